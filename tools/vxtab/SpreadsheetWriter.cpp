#include <xlsxwriter.h>

#include <string>
#include <string_view>

#include "platform/Paths.h"
#include "tools/vxtab/Arguments.h"
#include "tools/vxtab/SheetCells.h"
#include "tools/vxtab/Spreadsheets.h"

namespace vx::vxtab {

namespace {

constexpr int kMostRows = 1048576, kMostCols = 16384, kMostUnits = 32767;

std::string PlaceOf(int Col, int Row) { return "column " + std::to_string(Col) + " of row " + std::to_string(Row); }

void CheckLimits(const TFileCsv& Table) {
  if (Table.GetCount() > kMostRows) throw TFailure("a sheet has at most " + std::to_string(kMostRows) + " rows");
  for (int row = 0; row < Table.GetCount(); ++row) {
    const auto cells = Table.GetLines(row)->Items();
    if (cells.size() > kMostCols) {
      throw TFailure("row " + std::to_string(row) + " has more than the " + std::to_string(kMostCols) +
                     " columns that a sheet may have");
    }
    for (size_t col = 0; col < cells.size(); ++col) {
      if (cells[col].size() <= kMostUnits) continue;
      throw TFailure(PlaceOf(static_cast<int>(col), row) + " has more than the " + std::to_string(kMostUnits) +
                     " characters that a cell of a sheet may have");
    }
  }
}

void Check(lxw_error Error) {
  if (Error != LXW_NO_ERROR) throw TFailure(lxw_strerror(Error));
}

// Files have "_x000D_" for the character of that number, so that a text that looks so needs an escape of its own.
std::string SheetText(const String& Cell) {
  const std::string bytes = Cell.ToUtf8();
  std::string text;
  for (size_t pos = 0; pos < bytes.size(); ++pos) {
    const std::string_view rest = std::string_view(bytes).substr(pos);
    const bool isEscape = rest.size() >= 7 && rest.starts_with("_x") && rest[6] == '_' &&
                          rest.substr(2, 4).find_first_not_of("0123456789abcdefABCDEF") == rest.npos;
    if (bytes[pos] == '\0') {
      text += "_x0000_";
    } else {
      text += isEscape ? "_x005F_" : rest.substr(0, 1);
    }
  }
  return text;
}

void PutCell(lxw_worksheet* Sheet, int Row, int Col, const String& Cell, lxw_format* DateFormat) {
  const auto row = static_cast<lxw_row_t>(Row);
  const auto col = static_cast<lxw_col_t>(Col);
  if (Cell.empty()) return;
  if (const auto value = ValueOfText(Cell)) {
    Check(worksheet_write_number(Sheet, row, col, value->Value, value->Format == sfDate ? DateFormat : nullptr));
  } else {
    Check(worksheet_write_string(Sheet, row, col, SheetText(Cell).c_str(), nullptr));
  }
}

}  // namespace

void WriteSpreadsheet(const TFileCsv& Table, const String& Path) {
  CheckLimits(Table);
  const std::string native = ToNativePath(Path);
  lxw_workbook* const book = workbook_new(native.c_str());
  if (book == nullptr) throw TFailure("can't be made");
  // Closing frees the book, whatever comes of it.
  auto close = [&] { return workbook_close(book); };
  try {
    lxw_worksheet* const sheet = workbook_add_worksheet(book, nullptr);
    lxw_format* const dates = workbook_add_format(book);
    format_set_num_format(dates, "dd.mm.yyyy");
    for (int row = 0; row < Table.GetCount(); ++row) {
      const auto cells = Table.GetLines(row)->Items();
      for (size_t col = 0; col < cells.size(); ++col) PutCell(sheet, row, static_cast<int>(col), cells[col], dates);
    }
  } catch (...) {
    (void)close();
    throw;
  }
  Check(close());
}

}  // namespace vx::vxtab
