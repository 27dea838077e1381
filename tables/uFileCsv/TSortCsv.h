// A table kept in the order of one column: rows by a key.
#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "tables/uFileCsv/TFileCsv.h"

namespace vx {

// The rows stand in ascending order of their cells at SortColumn, by code unit, so that case counts, and
// no two have the same key: the last one that came wins. A row too short to have a key raises
// EStringListError (SListIndexError) wherever keys are compared.
//
// Example:
//   vx::TSortCsv prices;
//   prices.AddRow(u"LK02,\"Große Pflege\",21.40");
//   vx::String price = prices.ElementForKey(u"LK02", 2, u"0.00");
//
// Pitfalls: only Add and what rests on it, reading and importing among them, keep the order. Insert, Put,
// Move, Exchange, writing cells of the key column, and Assign and Duplicate from rows in another order leave
// rows as they are put; setting SortColumn puts them in order.
class TSortCsv : public TFileCsv {
 public:
  explicit TSortCsv(bool OwnsObjects = true);
  ~TSortCsv() override;
  String ClassName() const override { return u"TSortCsv"; }
  // A new empty table with the same SortColumn.
  [[nodiscard]] std::unique_ptr<TFileCsv> GetNewInstance() const override;
  // Clear, and SortColumn 0.
  void Init() override;
  void Clear() override;

  // Puts a row in its place and returns its index. If there is a row with its key, that one takes over the
  // new row's content, and the new row is freed if the table owns its rows. If Add raises, the table is as it
  // was and the row the caller's.
  int Add(TObject* Row) override;
  // Copies the rows of Source in its order, without sorting.
  void Assign(const TFileCsv& Source) override;
  // Both empty the table first, and the rows stand as they are read.
  void GetGrid(const TStringGrid& Grid, bool DropFirstCol) override;
  int GetListView(const TListView& View, std::u16string_view Columns, int First, int Limit, bool OnlySelected) override;

  int GetSortColumn() const noexcept { return iSortColumn; }
  // Puts the rows in the order of that column, also if it is the same one. Of rows with equal keys the
  // first stays, with the content of the last; the others are freed if the table owns its rows. If a row has
  // no such cell, EStringListError is raised and nothing has changed.
  void SetSortColumn(int Value);

  // The place of Key or, if it is not there, where it would stand: from 0 to GetCount. IndexForKey is the
  // same, and no proof that the key is there.
  int IndexSort(std::u16string_view Key) const;
  int IndexForKey(std::u16string_view Key) const { return IndexSort(Key); }
  // The row with exactly this key, which stays the table's; nullptr if there is none.
  TVxStringList* ItemForKey(std::u16string_view Key) const;
  using TFileCsv::ElementForKey;
  // The cell Col of that row; Default if there is no such row or cell.
  String ElementForKey(std::u16string_view Key, int Col, const String& Default) const;
  // Writes that cell; false if there is no such row or cell.
  bool SetElement(std::u16string_view Key, int Col, const String& Text);
  // Shows the first cell of each row in a dialog: a debugging aid.
  void ShowIndex() const;

 protected:
  int AddInPlace(std::unique_ptr<TVxStringList> Row) override;
  void BeginRows() override;
  void EndRows() override;

 private:
  // A row that is not in the table; it is freed with its holder if the table owns its rows.
  struct TFreeIfOwned {
    bool IsOwned = true;
    void operator()(TVxStringList* Row) const noexcept {
      if (IsOwned) delete Row;
    }
  };
  using TFreeRow = std::unique_ptr<TVxStringList, TFreeIfOwned>;
  struct TMergePlan;

  void FreePending() noexcept { std::exchange(FPending, {}).clear(); }
  std::u16string_view KeyAt(int Row) const;
  // Whether Add may leave the row to EndRows.
  bool AddsLater();
  // Whether all rows have keys, each above the one before.
  bool IsInOrder() const;
  TMergePlan PlanMerge(const std::vector<TFreeRow>& Rows) const;
  void Merge(std::vector<TFreeRow>& Rows);
  void TakeOut(std::vector<TFreeRow>& Rows, size_t& Out);

  int iSortColumn = 0;
  int FRowsDepth = 0;              // of BeginRows
  int FRowsSeen = 0;               // since BeginRows, while they are few
  bool FIsInOrder = false;         // the table, once they are more
  std::vector<TFreeRow> FPending;  // added since BeginRows, not in the table yet
};

}  // namespace vx
