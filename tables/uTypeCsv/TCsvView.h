// The typed table that can hide rows. The unit's header tells the whole and its pitfalls.
#pragma once

#include <memory>
#include <vector>

#include "tables/uTypeCsv/THiddenCsv.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

// What is on show is the table itself; a second list, All, has all rows in their order. While the view mode is on,
// every row is in All, and either in the table or hidden, and the table has the order of All. Rows that are hidden are
// freed with the view if it owns its rows.
//
// Hide and Show take a time that grows with the table. To hide and show many rows ShowOnly and ShowAll take no more
// than that for all of them together; their result, and what Notify tells, are those of one call for each row.
//
// Pitfalls:
//   - What goes by rows of the table, such as the look-up by a key, does not see hidden rows. A sort does.
//   - A derived class's Notify must not change the table while many rows come and go.
class TCsvView : public TTypeCsv {
 public:
  explicit TCsvView(bool OwnsObjects = true);
  ~TCsvView() override;
  String ClassName() const override { return u"TCsvView"; }
  [[nodiscard]] std::unique_ptr<TFileCsv> GetNewInstance() const override;
  // From a view in view mode all rows, hidden ones as hidden ones; this view is in view mode then. From any other table
  // the rows on show become its rows, and what is hidden here stays so.
  void Assign(const TFileCsv& Source) override;

  // Switched off, it shows all rows.
  bool GetViewMode() const noexcept { return iAll != nullptr; }
  void SetViewMode(bool Value);
  // As that of any table; setting it counts for hidden rows, too.
  void SetOwnsObjects(bool Value) noexcept;

  // --- hiding and showing ---
  // Both switch the view mode on. A row that is not on show stays as it is; a Row by index outside the table raises
  // EListError.
  void Hide(TVxStringList* Row);
  void Hide(int Row) { Hide(GetLines(Row)); }
  // Puts a hidden row back to its place: before the next one in All that is on show. Any other row stays as it is.
  void Show(TVxStringList* Row);
  void ShowAll();
  // Whether the row is not among the hidden ones.
  bool IsVisible(const TVxStringList* Row) const;
  // Hides and shows the content so that those rows are on show of which IsWanted says so: each row of All between the
  // fixed ones is asked once, in their order. The view mode is on then, unless all were wanted and it was off. What
  // IsWanted raises goes to the caller, and nothing has changed. IsWanted must not change the view.
  void ShowOnly(FunctionRef<bool(const TVxStringList& Row)> IsWanted);
  // The same for any rows of All: IsWanted[i] is for row i, and rows beyond the end of IsWanted stay as they are.
  void ShowOnly(const std::vector<bool>& IsWanted);
  // A line for each hidden row, in no particular order: the commatext of its place in All and its cells. Empty if none
  // is hidden. Setting it removes all hidden rows from the view, and frees them if it owns, and adds a hidden row for
  // each line that is not empty, with the place told; where that is no place of All, behind all others. Lines may come
  // in any order, each place is that in the whole. Only a text that is not empty switches the view mode on.
  // Pitfall: a line break within a cell is a line's end.
  String GetHiddenText() const;
  void SetHiddenText(std::u16string_view Text);

  // --- all rows, hidden ones among them ---
  // The table itself out of view mode. For reading: changes of the list are not the view's.
  const TObjectList& GetAll() const noexcept;
  // Without the fixed rows at the bottom.
  int GetAllCount() const noexcept { return GetAll().GetCount() - iDecorations->GetFixed().Bottom; }
  // EListError outside of All. The row stays the view's.
  TVxStringList* GetAllLines(int Index) const { return AsRow(GetAll().Get(Index)); }
  // As GetCell, SetCell, GetObject and SetObject: reading past the end gives the empty text and nullptr, writing there
  // is ignored, and negative indexes raise the list errors.
  String GetAllCells(int Col, int Row) const;
  void SetAllCells(int Col, int Row, const String& Text);
  TObject* GetAllObjects(int Col, int Row) const;
  void SetAllObjects(int Col, int Row, TObject* Object);

  // --- the operations of the table, which keep All in step ---
  int Add(TObject* Row) override;
  void Insert(int Index, TObject* Row) override;
  void Delete(int Index) override;
  TObject* Extract(TObject* Row) override;
  void Exchange(int A, int B) override;
  void Move(int From, int To) override;
  void Clear() override;
  // Deletes hidden rows, too.
  void ClearContent() override;
  // Sorts hidden rows with the others; they stay hidden. Indices counts the rows of All.
  void CustomSort(TRowCompare Compare, const TSortColumn* Column, TVxIntegerList* Indices) override;

 protected:
  // An override has to hand on to this one.
  void Notify(TObject* Object, TListNotification Action) override;

  class TAllRows;
  std::unique_ptr<THiddenCsv> iHidden;
  std::unique_ptr<TAllRows> iAll;

 private:
  // Which rows of All are on show. False if the table is out of step with All, as only operations can make it that pass
  // by this class: what moves many rows at once goes one by one then, so that none is lost.
  bool FindShown(std::vector<bool>& IsShown) const;
  void ShowRows(const std::vector<bool>& WasShown, const std::vector<bool>& IsShown, bool IsInStep);
  void Apply(const std::vector<bool>& WasShown, const std::vector<bool>& IsShown);
  void NotifyAll(std::span<TObject* const> Rows, TListNotification Action);
  // Where the row stands in All, looked for from the last such place on; -1 if it does not.
  int PlaceOf(const TObject* Row) const noexcept;
  void TakeOutOfAll(const TObject* Row);
  // The row of All if it has that cell, else nullptr.
  TVxStringList* AllLineWith(int Col, int Row) const;
  void RemoveHidden();
  // For rows to be hidden: the table may own by now, as loading makes it do.
  THiddenCsv& HiddenToFill() noexcept {
    iHidden->SetOwnsObjects(GetOwnsObjects());
    return *iHidden;
  }
  // Puts Rows into All, one after the other, each at its place or at the end, and hides them.
  void AddHidden(std::span<TVxStringList* const> Rows, std::span<const int> Places);

  mutable TRelaxed<int> FLastPlace = 0;
  const TObject* FOwn = nullptr;  // the row whose coming or going an operation of this class tells
  int FReplaced = -1;             // the place in All of a row that Put has just taken away
};

}  // namespace vx
