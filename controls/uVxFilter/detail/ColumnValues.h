// What a column of a view holds, in all rows of the content, hidden ones too.
#pragma once

#include <vector>

#include "platform/String.h"

namespace vx {
class TCsvView;
}

namespace vx::detail {

struct TColumnValue {
  String Value;
  int Row;  // the first row that has it, counted in all rows
};

// The cells of the first of all rows, whether it is on show or not; 0 without rows.
int CountColumns(const TCsvView& View);
// Whether there are more than Limit values that differ regardless of case; looks no further than it has to. A row that
// ends before the column has an empty one.
bool HasMoreValues(const TCsvView& View, int Col, int Limit);
// The values that differ regardless of case, in the German order. With Split the values are those of the cells'
// commatexts.
std::vector<TColumnValue> ColumnValues(const TCsvView& View, int Col, bool Split);
// The first row whose cell is Value or has it in its commatext, regardless of case, for each of Values; -1 for none.
std::vector<int> RowsOfValues(const TCsvView& View, int Col, const std::vector<String>& Values);

}  // namespace vx::detail
