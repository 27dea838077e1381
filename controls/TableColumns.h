// How the columns of a table stand on a screen: in which order, how wide, and which are hidden. The table itself stays
// as it is.
//
// Example:
//   vx::TTableColumns columns;
//   columns.Reset(3, 80);
//   columns.SetWidth(0, 120);
//   columns.SetHidden(1, true);
//   columns.Move(2, 0);                                   // the last one comes first
//   columns.TableCol(0);                                  // 2
//   columns.GetLayout();                                  // u"2=80,0=120,1=-80"
//
// A column is told by its index in the table unless a place on the screen is told; places count hidden ones, too. An
// index that is not there is ignored, and reads as 0, shown, or -1.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/TableAxis.h"
#include "platform/String.h"

namespace vx {

class TTableColumns {
 public:
  // So many, in the table's order, all shown, and of one width.
  void Reset(int Count, int Width);
  int GetCount() const noexcept { return FAxis.GetCount(); }
  // Those that come stand at the end; those that go are forgotten.
  void SetCount(int Value);
  // The pixels behind each column that belong to its line; widths are told without them.
  int GetLine() const noexcept { return FLine; }
  void SetLine(int Value);
  // Sizes with their lines, by place; hidden columns are 0 wide.
  const TTableAxis& GetAxis() const noexcept { return FAxis; }

  int TableCol(int Place) const noexcept;
  int PlaceOf(int Col) const noexcept;
  // Of a hidden one the width that it has when it is shown again. At least 1.
  int GetWidth(int Col) const noexcept;
  void SetWidth(int Col, int Value);
  // Of all columns of the table; 0 and below hides, others show.
  void SetWidths(const std::vector<int>& Widths);
  bool GetHidden(int Col) const noexcept { return FHidden.count(Col) != 0; }
  void SetHidden(int Col, bool Value);
  void ShowAll();
  int CountShown() const noexcept { return GetCount() - static_cast<int>(FHidden.size()); }
  // Both are places.
  void Move(int From, int To);

  // Columns in their order on the screen: index and width, of hidden ones with a minus sign.
  String GetLayout() const;
  // Reads that text; never raises. What it does not tell, or tells wrongly or twice, stays, behind what it tells.
  void SetLayout(std::u16string_view Text);

 private:
  bool Has(int Col) const noexcept { return Col >= 0 && Col < GetCount(); }
  void SetOrder(std::vector<int> Order);

  TTableAxis FAxis;
  int FLine = 0;
  std::vector<int> FOrder, FPlaces;      // the columns by place and back; empty in the table's order
  std::unordered_map<int, int> FHidden;  // the widths of hidden columns
};

}  // namespace vx
