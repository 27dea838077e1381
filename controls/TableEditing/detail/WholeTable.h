// The rows of a table or view, hidden ones among them, taken out and put in many at once.
#pragma once

#include <span>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "tables/uTypeCsv.h"

namespace vx::detail {

// All rows in their order, hidden ones included.
const TObjectList& AllRowsOf(const TTypeCsv& Table) noexcept;
// Where those of Rows stand among all rows that stand there.
std::unordered_map<const TObject*, int> FindRows(const TTypeCsv& Table, std::unordered_set<const TObject*> Rows);

// Shows all rows of a view while it lives, and then hides again those that were hidden and are still there. Does
// nothing to other tables.
class TWholeTable {
 public:
  explicit TWholeTable(TTypeCsv& Table);
  ~TWholeTable();
  TWholeTable(const TWholeTable&) = delete;
  TWholeTable& operator=(const TWholeTable&) = delete;

  // Takes the rows at these rising places out; they are the caller's where the table owns its rows.
  void TakeOut(std::span<const int> Places);
  // Puts the rows in so that they stand at these rising places, or behind all others; the table takes them over if it
  // owns rows. What fails changes nothing.
  void PutIn(std::span<TVxStringList* const> Rows, std::span<const int> Places);

 private:
  TTypeCsv& FTable;
  TCsvView* FView = nullptr;  // if it was in view mode
  std::unordered_set<const TObject*> FHidden;
};

}  // namespace vx::detail
