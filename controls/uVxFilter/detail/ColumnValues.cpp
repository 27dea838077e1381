#include "controls/uVxFilter/detail/ColumnValues.h"

#include <algorithm>
#include <unordered_map>

#include "platform/Collation.h"
#include "rendering/uDecoration/detail/TextCells.h"
#include "tables/uTypeCsv.h"

namespace vx::detail {

namespace {

// Hands the rows of the content to Take(row index, cell), until it gives false.
template <typename F>
void ForEachRow(const TCsvView& View, int Col, F Take) {
  const int count = View.GetAllCount();
  for (int row = std::max(View.GetContentTop(), 0); row < count; ++row) {
    const std::span<const String> cells = View.GetAllLines(row)->Items();
    static const String kEmpty;
    if (!Take(row, static_cast<size_t>(Col) < cells.size() ? cells[static_cast<size_t>(Col)] : kEmpty)) return;
  }
}

bool HasCells(std::u16string_view Cell) { return Cell.find(u',') != Cell.npos; }

}  // namespace

int CountColumns(const TCsvView& View) { return View.GetAll().GetCount() > 0 ? View.GetAllLines(0)->GetCount() : 0; }

bool HasMoreValues(const TCsvView& View, int Col, int Limit) {
  std::vector<std::u16string_view> found;
  ForEachRow(View, Col, [&](int, const String& cell) {
    const bool isNew =
        std::none_of(found.begin(), found.end(), [&](std::u16string_view value) { return AnsiSameText(value, cell); });
    if (isNew) found.push_back(cell);
    return found.size() <= static_cast<size_t>(Limit);
  });
  return found.size() > static_cast<size_t>(Limit);
}

std::vector<TColumnValue> ColumnValues(const TCsvView& View, int Col, bool Split) {
  std::unordered_map<String, int> rows;
  ForEachRow(View, Col, [&](int row, const String& cell) {
    if (Split && HasCells(cell))
      ForEachCell(cell, [&](std::u16string_view value) { rows.try_emplace(String(value), row); });
    else
      rows.try_emplace(cell, row);
    return true;
  });
  std::vector<TColumnValue> values;
  values.reserve(rows.size());
  for (const auto& [value, row] : rows) values.push_back({value, row});
  std::sort(values.begin(), values.end(), [](const TColumnValue& a, const TColumnValue& b) {
    const int order = AnsiCompareText(a.Value, b.Value);
    return order != 0 ? order < 0 : a.Row < b.Row;
  });
  auto isSame = [](const TColumnValue& a, const TColumnValue& b) { return AnsiSameText(a.Value, b.Value); };
  values.erase(std::unique(values.begin(), values.end(), isSame), values.end());
  return values;
}

std::vector<int> RowsOfValues(const TCsvView& View, int Col, const std::vector<String>& Values) {
  std::vector<int> rows(Values.size(), -1);
  size_t missing = Values.size();
  ForEachRow(View, Col, [&](int row, const String& cell) {
    auto take = [&](std::u16string_view value) {
      for (size_t i = 0; i < Values.size(); ++i) {
        if (rows[i] >= 0 || !AnsiSameText(Values[i], value)) continue;
        rows[i] = row;
        --missing;
      }
    };
    take(cell);
    if (HasCells(cell)) ForEachCell(cell, take);
    return missing > 0;
  });
  return rows;
}

}  // namespace vx::detail
