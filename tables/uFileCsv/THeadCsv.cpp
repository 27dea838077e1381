// Names, columns and look-up of the table with a head.
#include "tables/uFileCsv/THeadCsv.h"

#include "platform/Collation.h"
#include "platform/Text.h"
#include "tables/uFileCsv/detail/ColumnScan.h"

namespace vx {

using detail::FindInColumn;
using detail::SameTextAs;
using detail::SameUnitsAs;
using detail::SortedUnique;

std::unique_ptr<TFileCsv> THeadCsv::GetNewInstance() const { return std::make_unique<THeadCsv>(); }

int THeadCsv::FieldIndex(std::u16string_view Name) const {
  if (GetCount() == 0) return -1;
  std::span<const String> names = GetLines(0)->Items();
  auto found = std::ranges::find_if(names, [&](const String& name) { return AnsiSameText(name, Name); });
  return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

String THeadCsv::FieldName(int Index) const { return getElement(Index, 0, String(), String()); }

int THeadCsv::NextWith(int First, int Col, std::u16string_view Value) const {
  if (Col < 0) return -1;
  return FindInColumn(Items(), First, Col, AsRow, SameTextAs(Value));
}

int THeadCsv::FieldCount(std::u16string_view Name, std::u16string_view Value) const {
  const int col = FieldIndex(Name);
  int count = 0;
  for (int row = NextWith(1, col, Value); row >= 0; row = NextWith(row + 1, col, Value)) ++count;
  return count;
}

String THeadCsv::FieldContent(std::u16string_view Name) const {
  const int col = FieldIndex(Name);
  if (col < 0) return {};
  TCells cells(static_cast<size_t>(GetCount()) - 1);
  for (int row = 1; row < GetCount(); ++row) {
    std::span<const String> line = GetLines(row)->Items();
    if (static_cast<size_t>(col) < line.size()) {
      cells[static_cast<size_t>(row) - 1] = Trim(line[static_cast<size_t>(col)]);
    }
  }
  return WriteCommatext(cells);
}

String THeadCsv::FieldContentUnique(std::u16string_view Name) const { return SortedUnique(FieldContent(Name)); }

String THeadCsv::SumY(std::u16string_view Name, TVxFieldType FieldType, int From, int To, int Target) {
  return SumY(FieldIndex(Name), FieldType, From, To, Target);
}

int THeadCsv::TestLastRow(std::u16string_view Name, std::u16string_view Value, int& FieldIndex) const {
  FieldIndex = this->FieldIndex(Name);
  const int last = iLastItem;
  if (FieldIndex < 0 || last < 0 || last >= GetCount()) return -1;
  std::span<const String> cells = GetLines(last)->Items();
  const auto col = static_cast<size_t>(FieldIndex);
  return col < cells.size() && cells[col] == Value ? last : -1;
}

TVxStringList* THeadCsv::TestLastItem(std::u16string_view Name, std::u16string_view Value, int& FieldIndex) const {
  const int row = TestLastRow(Name, Value, FieldIndex);
  return row < 0 ? nullptr : GetLines(row);
}

int THeadCsv::RowForField(std::u16string_view Name, std::u16string_view Value) const {
  if (GetCount() < 2) return -1;
  int col;
  if (const int last = TestLastRow(Name, Value, col); last >= 0) return last;
  if (col < 0) return -1;
  const String key = Value;
  const int row = FindInColumn(Items(), 1, col, AsRow, SameUnitsAs(key));
  if (row >= 0) iLastItem = row;
  return row;
}

TVxStringList* THeadCsv::ItemForField(std::u16string_view Name, std::u16string_view Value) const {
  const int row = RowForField(Name, Value);
  return row < 0 ? nullptr : GetLines(row);
}

String THeadCsv::ElementForField(std::u16string_view KeyName, std::u16string_view KeyValue,
                                 std::u16string_view ResultName) const {
  const int row = RowForField(KeyName, KeyValue);
  return row < 0 ? String() : getElement(ResultName, row, String(), String());
}

String THeadCsv::getElement(std::u16string_view Name, int Row, const String& NoColValue,
                            const String& NoRowValue) const {
  return getElement(FieldIndex(Name), Row, NoColValue, NoRowValue);
}

String THeadCsv::getElement(std::u16string_view Name, std::u16string_view KeyName, std::u16string_view KeyValue,
                            const String& NoColValue, const String& NoRowValue) const {
  int col;
  int row = TestLastRow(KeyName, KeyValue, col);
  if (row < 0) iLastItem = row = IndexForColKey(col, KeyValue);
  return getElement(Name, row, NoColValue, NoRowValue);
}

std::unique_ptr<THeadCsv> THeadCsv::DuplicateUnique(std::u16string_view Name, std::u16string_view Value) const {
  auto result = std::make_unique<THeadCsv>();
  const int col = FieldIndex(Name);
  for (int row = GetCount() > 0 ? 0 : -1; row >= 0; row = NextWith(row + 1, col, Value)) {
    auto copy = std::make_unique<TVxStringList>();
    copy->Assign(*GetLines(row));
    result->AddNew(std::move(copy));
  }
  return result;
}

}  // namespace vx
