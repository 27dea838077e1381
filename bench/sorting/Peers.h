// The peers of sorting: what a programmer writes with the standard library and ICU over rows of plain texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct UCollator;

namespace vx::bench {

using TNarrowTable = std::vector<std::vector<std::string>>;
using TWideTable = std::vector<std::vector<std::u16string>>;
using TOrder = std::vector<int>;

// ICU's German order without regard to case, in which blanks and punctuation count as with ours.
class TIcuOrder {
 public:
  TIcuOrder();
  ~TIcuOrder();
  TIcuOrder(const TIcuOrder&) = delete;
  TIcuOrder& operator=(const TIcuOrder&) = delete;

  int Compare(std::u16string_view A, std::u16string_view B) const;
  // The rows in the order of a column, equal ones as they stand: by comparing the texts, or their sort keys
  // made once for each row.
  TOrder ByCompare(const TWideTable& Table, size_t Col) const;
  TOrder ByKeys(const TWideTable& Table, size_t Col) const;

 private:
  UCollator* FCollator;
};

// The same in the order of the bytes.
TOrder OrderByBytes(const TNarrowTable& Table, size_t Col);
// The same in the order of values that are read once for each row: dd.mm.yyyy, amounts such as 1.234,56,
// and hours and minutes hh:mm. What has another form counts 0.
TOrder OrderByDate(const TNarrowTable& Table, size_t Col);
TOrder OrderByAmount(const TNarrowTable& Table, size_t Col);
TOrder OrderByHours(const TNarrowTable& Table, size_t Col);

// The first row from First on whose cell at Col is Key; -1 if there is none.
int FindRow(const TNarrowTable& Table, size_t First, size_t Col, const std::string& Key);

}  // namespace vx::bench
