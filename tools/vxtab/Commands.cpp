#include "tools/vxtab/Commands.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>

#include "core/uVxFunctionsSerialize.h"
#include "platform/Collation.h"
#include "tools/vxtab/Json.h"
#include "tools/vxtab/Show.h"
#include "tools/vxtab/TableFiles.h"

namespace vx::vxtab {

namespace {

constexpr std::pair<char16_t, const char*> kSeparators[] = {
    {u',', "comma"}, {u';', "semicolon"}, {u'\t', "tab"}, {u'\x1B', "esc"}};

const char* SeparatorName(char16_t Separator) {
  for (auto [unit, name] : kSeparators) {
    if (unit == Separator) return name;
  }
  return "other";
}

char16_t SeparatorOption(const TArguments& Args) {
  if (!Args.Has("separator")) return 0;
  if (!Args.Has("foreign")) throw TUsageError("--separator goes with --foreign only");
  const std::string& value = Args.Values("separator").back();
  for (auto [unit, name] : kSeparators) {
    if (value == name) return unit;
  }
  if (value.size() == 1 && value[0] >= ' ' && value[0] < 127 && value[0] != '"') return static_cast<char16_t>(value[0]);
  throw TUsageError("--separator " + value + ": neither comma, semicolon, tab, esc nor a single character");
}

std::unique_ptr<TLoadedFile> Load(const TContext& Context, bool WithDetails = false) {
  const TArguments& args = Context.Args;
  auto file = LoadTable(args.File(0), args.Has("foreign") ? rbForeign : rbLibrary, SeparatorOption(args), WithDetails,
                        Context.In, Context.Reporter);
  if (!file->Hint.empty()) {
    Context.Reporter.Say("note: " + args.File(0) + " seems to come from another program, try --foreign: " + file->Hint);
  }
  return file;
}

// What all commands of the form IN OUT have in common: Change makes the table that is saved.
template <typename F>
void LoadChangeSave(const TContext& Context, F Change) {
  CheckTarget(Context.Args.File(1));
  auto file = Load(Context);
  Change(file->Table);
  SaveTable(file->Table, Context.Args.File(1), Context.Reporter);
}

void RunShow(const TContext& Context) {
  TShowPart part;
  part.From = Context.Args.Number("from", part.From);
  part.Rows = Context.Args.Number("rows", part.Rows);
  part.Columns = Context.Args.Numbers("cols");
  part.Width = Context.Terminal.Width;
  ShowTable(Load(Context, true)->Table, part, Context.Out);
}

// For each column a line with the types that its cells look like, the most frequent one first.
void WriteTypes(const TFileCsv& Table, std::ostream& Out) {
  static constexpr std::array kTypes = {vftUnknown, vftString, vftInteger, vftFloat, vftDate, vftTime, vftHour};
  using TCounts = std::array<int, kTypes.size()>;
  std::vector<TCounts> columns;
  for (int row = 0; row < Table.GetCount(); ++row) {
    const auto cells = Table.GetLines(row)->Items();
    if (cells.size() > columns.size()) columns.resize(cells.size());
    for (size_t col = 0; col < cells.size(); ++col) {
      const auto type = std::find(kTypes.begin(), kTypes.end(), TFileCsv::GuessFieldType(cells[col]));
      ++columns[col][static_cast<size_t>(type - kTypes.begin())];
    }
  }
  for (size_t col = 0; col < columns.size() && Out; ++col) {
    std::array<size_t, kTypes.size()> order{0, 1, 2, 3, 4, 5, 6};
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) { return columns[col][a] > columns[col][b]; });
    Out << "column " << col << ": ";
    for (size_t i = 0; i < order.size() && columns[col][order[i]] > 0; ++i) {
      Out << (i > 0 ? ", " : "") << FieldTypeToStr(kTypes[order[i]]).ToUtf8() << ' ' << columns[col][order[i]];
    }
    Out << '\n';
  }
}

void RunInfo(const TContext& Context) {
  auto file = Load(Context, true);
  int least = file->Table.GetCount() > 0 ? file->Table.FieldCount() : 0;
  int most = least;
  int64_t cells = 0;
  int longest = 0;
  for (int row = 0; row < file->Table.GetCount(); ++row) {
    auto items = file->Table.GetLines(row)->Items();
    least = std::min(least, static_cast<int>(items.size()));
    most = std::max(most, static_cast<int>(items.size()));
    cells += static_cast<int64_t>(items.size());
    for (const String& cell : items) longest = std::max(longest, cell.size());
  }
  Context.Out << "separator: " << SeparatorName(file->Separator) << "\nrows: " << file->Table.GetCount()
              << "\ncolumns: " << least << ".." << most << "\nbytes: " << file->Bytes << "\ncells: " << cells
              << "\nlongest cell: " << longest << '\n';
  if (Context.Args.Has("foreign")) Context.Out << "encoding: " << EncodingName(file->Encoding) << '\n';
  if (Context.Args.Has("types")) WriteTypes(file->Table, Context.Out);
}

void RunDump(const TContext& Context) {
  constexpr size_t kBuffer = 65536;
  auto file = Load(Context);
  std::string text;
  for (int row = 0; row < file->Table.GetCount() && Context.Out; ++row) {
    text += '[';
    bool isFirst = true;
    for (const String& cell : file->Table.GetLines(row)->Items()) {
      if (!std::exchange(isFirst, false)) text += ", ";
      AppendJson(text, cell);
      if (text.size() < kBuffer) continue;
      Context.Out << text;
      text.clear();
    }
    text += "]\n";
  }
  Context.Out << text;
}

void RunConvert(const TContext& Context) {
  LoadChangeSave(Context, [](TFileCsv&) {});
}

void RunTurn(const TContext& Context) {
  CheckTarget(Context.Args.File(1));
  auto file = Load(Context);
  for (int row = 1; row < file->Table.GetCount(); ++row) {
    if (file->Table.GetLines(row)->GetCount() <= file->Table.FieldCount()) continue;
    Context.Reporter.Say("note: cells beyond the width of row 0 are left out, first in row " + std::to_string(row));
    break;
  }
  SaveTable(*file->Table.TurnAxis(), Context.Args.File(1), Context.Reporter);
}

void RunClean(const TContext& Context) {
  constexpr std::pair<const char*, TCsvAllModes> kModes[] = {{"trim", {camTrim}},
                                                             {"balance", {camBalanceColcount, camBalanceMax}},
                                                             {"drop-empty", {camDeleteEmptyLines}},
                                                             {"one-line", {camDeleteEnter}},
                                                             {"thousands", {camThousandDivider}}};
  TCsvAllModes modes;
  for (auto [option, mode] : kModes) {
    if (Context.Args.Has(option)) modes = modes + mode;
  }
  if (modes.IsEmpty()) throw TUsageError("nothing to clean is told");
  LoadChangeSave(Context, [&](TFileCsv& table) { table.DoAll(modes); });
}

void RunMssql(const TContext& Context) {
  const TArguments& args = Context.Args;
  if (args.Has("foreign")) throw TUsageError("mssql and --foreign are two ways to read a file; take one");
  CheckTarget(args.File(1));
  auto file = LoadTable(args.File(0), rbExport, SeparatorOption(args), false, Context.In, Context.Reporter);
  if (!file->Hint.empty()) Context.Reporter.Say("note: " + args.File(0) + ": " + file->Hint);
  SaveTable(file->Table, args.File(1), Context.Reporter);
}

struct TCellText {
  int Col, Row;
  String Text;
};

TCellText ReadCellOption(const std::string& Value) {
  std::string_view value = Value;
  size_t equals = value.find('=');
  size_t comma = value.find(',');
  if (equals != value.npos && comma < equals) {
    int col = ParseNumber(value.substr(0, comma));
    int row = ParseNumber(value.substr(comma + 1, equals - comma - 1));
    if (col >= 0 && row >= 0) return {col, row, String::FromUtf8(value.substr(equals + 1))};
  }
  throw TUsageError("--cell " + Value + ": not of the form COL,ROW=TEXT with numbers from 0 on");
}

void RunSet(const TContext& Context) {
  std::vector<TCellText> cells;
  for (const std::string& value : Context.Args.Values("cell")) cells.push_back(ReadCellOption(value));
  if (cells.empty()) throw TUsageError("--cell COL,ROW=TEXT is missing");
  LoadChangeSave(Context, [&](TFileCsv& table) {
    for (const TCellText& cell : cells) {
      if (cell.Row >= table.GetCount() || cell.Col >= table.GetLines(cell.Row)->GetCount()) {
        throw TFailure(Context.Args.File(0) + ": there is no cell " + std::to_string(cell.Col) + "," +
                       std::to_string(cell.Row) + " (column, row); nothing was written");
      }
      table.SetCell(cell.Col, cell.Row, cell.Text);
    }
  });
}

// A type that cells can be added up as, by its name, its number, or its word for users.
TVxFieldType ReadTypeOption(const TArguments& Args) {
  if (!Args.Has("type")) throw TUsageError("--type TYPE is missing");
  const std::string& value = Args.Values("type").back();
  const String text = String::FromUtf8(value);
  for (TVxFieldType type : {vftInteger, vftFloat, vftTime, vftDateTime, vftHour, vftCurrency, vftFraction}) {
    if (GetVxFieldType(text) == type || AnsiSameText(text, VxFieldTypeToText(type, false)) ||
        AnsiSameText(text, VxFieldTypeToText(type, true))) {
      return type;
    }
  }
  throw TUsageError("--type " + value + ": not a type of numbers, amounts or hours such as vftCurrency");
}

void RunSum(const TContext& Context) {
  const TVxFieldType type = ReadTypeOption(Context.Args);
  if (!Context.Args.Has("col")) throw TUsageError("--col N is missing");
  const int col = Context.Args.Number("col", 0);
  const int from = Context.Args.Number("from", -1);
  const int to = Context.Args.Number("to", -1);
  auto file = Load(Context);
  if (col >= file->Table.FieldCount()) {
    throw TFailure(Context.Args.File(0) + ": row 0 has no column " + std::to_string(col));
  }
  if (const int last = std::max(from, to); last >= file->Table.GetCount()) {
    throw TFailure(Context.Args.File(0) + ": there is no row " + std::to_string(last));
  }
  Context.Out << file->Table.SumY(col, type, from, to).ToUtf8() << '\n';
}

constexpr TCommand kCommands[] = {
    {"show", "FILE [--rows N] [--from N] [--cols LIST]",
     "an aligned table: N rows (50) from row N on, the columns of LIST, such as 0,2-4", RunShow},
    {"info", "FILE [--types]",
     "separator, rows, columns and sizes, one \"name: value\" a line; for each column what its\n"
     "cells look like, with counts",
     RunInfo},
    {"sum", "FILE --col N --type TYPE [--from N] [--to N]",
     "the sum of a column's cells read as TYPE, such as vftCurrency or hour; rows 1 to the last\n"
     "but one, for the first is a head and the last has the totals, unless told",
     RunSum},
    {"dump", "FILE", "each row a line: a JSON array of strings in UTF-8", RunDump},
    {"convert", "IN OUT", "the same table in the form that the extension of OUT tells", RunConvert},
    {"turn", "IN OUT", "rows become columns and columns rows", RunTurn},
    {"clean", "IN OUT [--trim] [--balance] [--drop-empty] [--one-line] [--thousands]",
     "without blanks around cells; all rows as wide as the widest; without rows of\n"
     "blank cells; line breaks in cells become blanks; 1234,5 becomes 1.234,5",
     RunClean},
    {"mssql", "IN OUT", "reads a database server's export: UTF-16, commas, no quotes", RunMssql},
    {"set", "IN OUT --cell COL,ROW=TEXT...", "writes cells that exist; repeat --cell for several", RunSet},
};

}  // namespace

std::span<const TCommand> AllCommands() noexcept { return kCommands; }

}  // namespace vx::vxtab
