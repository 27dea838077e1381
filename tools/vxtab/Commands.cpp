#include "tools/vxtab/Commands.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <utility>

#include "core/uVxFunctionsSerialize.h"
#include "platform/Numbers.h"
#include "tables/CellSums.h"
#include "tables/TableTexts.h"
#include "tools/vxtab/CommandHelpers.h"
#include "tools/vxtab/LookCommand.h"
#include "tools/vxtab/NamedCommands.h"
#include "tools/vxtab/PaintCommand.h"
#include "tools/vxtab/Show.h"
#include "tools/vxtab/TypeGuess.h"

namespace vx::vxtab {

namespace {

void RunShow(const TContext& Context) {
  TShowPart part;
  part.From = Context.Args.Number("from", part.From);
  part.Rows = Context.Args.Number("rows", part.Rows);
  part.Columns = Context.Args.Numbers("cols");
  part.Width = Context.Terminal.Width;
  ShowTable(Load(Context, 0, true)->Table, part, Context.Out);
}

// For each column a line with the types that its cells look like, the most frequent one first.
void WriteTypes(const TFileCsv& Table, std::ostream& Out) {
  const std::vector<TTypeCounts> columns = CountTypes(Table, 0);
  for (size_t col = 0; col < columns.size() && Out; ++col) {
    Out << "column " << col << ": ";
    bool isFirst = true;
    for (const auto& [type, count] : TypesByCount(columns[col])) {
      Out << (std::exchange(isFirst, false) ? "" : ", ") << FieldTypeToStr(type).ToUtf8() << ' ' << count;
    }
    Out << '\n';
  }
}

void RunInfo(const TContext& Context) {
  auto file = Load(Context, 0, true);
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
  if (Context.Args.Has("foreign")) Context.Out << "encoding: " << file->Encoding << '\n';
  if (Context.Args.Has("types")) WriteTypes(file->Table, Context.Out);
}

void RunDump(const TContext& Context) {
  constexpr size_t kBuffer = 65536;
  auto file = Load(Context);
  std::string text;
  for (int row = 0; row < file->Table.GetCount() && Context.Out; ++row) {
    AppendJsonRow(text, file->Table.GetLines(row)->Items());
    text += '\n';
    if (text.size() < kBuffer) continue;
    Context.Out << text;
    text.clear();
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
  Save(Context, *file->Table.TurnAxis(), 1);
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
  TReading reading = ReadingOptions(args);
  reading.By = rbExport;
  auto file = LoadTable(args.File(0), reading, Context.In, Context.Reporter);
  if (!file->Hint.empty()) Context.Reporter.Say("note: " + args.File(0) + ": " + file->Hint);
  Save(Context, file->Table, 1);
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
  (void)Context.Args.Needed("cell");  // an error if it is missing
  std::vector<TCellText> cells;
  for (const std::string& value : Context.Args.Values("cell")) cells.push_back(ReadCellOption(value));
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

// Tells the first cells that could not be read, and how many there are.
template <typename TSum>
void TellUnreadable(const TContext& Context, const TFileCsv& Table, const TSum& Sum) {
  constexpr size_t kMost = 5;
  if (Sum.IsWhole()) return;
  const size_t count = Sum.Unreadable.size();
  std::string text = "note: " + Context.Args.File(0) + ": " + std::to_string(count) +
                     (count == 1 ? " cell is" : " cells are") + " no such value and not in the sum:";
  for (size_t i = 0; i < std::min(count, kMost); ++i) {
    const TUnreadableCell& cell = Sum.Unreadable[i];
    text += (i > 0 ? ", row " : " row ") + std::to_string(cell.Row) + " '" +
            Table.GetCell(cell.Col, cell.Row).ToUtf8() + "' (position " + std::to_string(cell.Fault.Position) + ")";
  }
  Context.Reporter.Say(text + (count > kMost ? " ..." : ""));
}

// The sum of a column whose type is known; hours and amounts exactly, with a note on cells that are none.
String SumOfColumn(const TContext& Context, TFileCsv& Table, int Col, TVxFieldType Type, int From, int To) {
  if (Type != vftHour && Type != vftTime && Type != vftCurrency) return Table.SumY(Col, Type, From, To);
  if (From < 0) From = 1;
  if (To < 0) To = std::max(Table.GetCount() - 2, 0);
  if (Type == vftCurrency) {
    const TMoneyCellSum sum = SumMoneyY(Table, Col, From, To);
    TellUnreadable(Context, Table, sum);
    return CurrToStrF(sum.Sum, ffFixed, 2);
  }
  const THourCellSum sum = SumHoursY(Table, Col, From, To);
  TellUnreadable(Context, Table, sum);
  return HourAmountToStr(sum.Sum, {hofTwoDigits});
}

void RunSum(const TContext& Context) {
  static constexpr TVxFieldType kTypes[] = {vftInteger, vftFloat,    vftTime,    vftDateTime,
                                            vftHour,    vftCurrency, vftFraction};
  (void)Context.Args.Needed("type");  // errors if they are missing
  const TVxFieldType type = TypeOption(Context.Args, kTypes, vftUnknown);
  (void)Context.Args.Needed("col");
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
  Context.Out << SumOfColumn(Context, file->Table, col, type, from, to).ToUtf8() << '\n';
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
     "but one, for the first is a head and the last has the totals, unless told. A note tells cells\n"
     "that are no amount or no hours, such as -6:45",
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
    {"get", "FILE KEYNAME=VALUE RESULTNAME",
     "the cell in the column RESULTNAME of the first row that has exactly VALUE in the column KEYNAME", RunGet},
    {"sort", "IN OUT --by NAME [--type TYPE] [--format MASK] [--desc] [--stable-with NAME...]",
     "the rows behind the head in the order of a column, read as TYPE, such as vftDate or Zahl;\n"
     "else as text. MASK is how dates and times are compared, such as mmdd. Equal rows stay as they\n"
     "stand, unless --stable-with (repeat it for several) tells them apart, as ascending texts. Times of\n"
     "day have to be of one form, such as 09:30; Hour sorts them in any form",
     RunSort},
    {"merge", "INTO FROM --key NAME [--add-fields] OUT",
     "each row of FROM goes into the first row of INTO with exactly its key, or into a new one; empty\n"
     "cells change nothing. All rows get the width of the head. Columns that INTO lacks are left out\n"
     "unless --add-fields is told",
     RunMerge},
    {"select", "IN OUT --where NAME CLAUSE VALUE [--type TYPE]",
     "the head and the rows whose cell is as CLAUSE says: v (enthält), # (enthält nicht), =, <>, <, <=,\n"
     "> or >=, or their German texts; v and # look for a part of the text in any case, the others\n"
     "compare as TYPE, else as texts in any case",
     RunSelect},
    {"ini", "IN OUT", "a configuration file: a row for each section, a column for each key", RunIni},
    {"unique", "IN OUT --col NAME", "what a column holds, without blanks around, sorted and each once", RunUnique},
    {"look",
     "FILE [LOOK] [--col NAME] [--row N] [--type TYPE] [--format TEXT] [--align SIDES] [--color COLOR]\n"
     "      [--text-color COLOR] [--style WORDS] [--size N] [--width-min N] [--width-max N] [--title TEXT]\n"
     "      [--subtitle TEXT] [--zebra N] [--strips N] [--head N] [--foot N] [--left N]",
     "FILE alone is a look and is told in words. With LOOK, FILE is a table, and the look is made or\n"
     "changed: of a column, a row or else all cells the type, the format, the sides of the text (left,\n"
     "right, top, bottom, centre), the background, the font's colour, style (bold, italic, underlined,\n"
     "struck) and points, the limits of the width in pixels; of the table the headings, the darker rows,\n"
     "the strips on a page, and the fixed rows and columns",
     RunLook},
    {"paint", "IN OUT [--look FILE] [--title TEXT] [--rows N] [--cols LIST] [--landscape]",
     "the table as a picture (.png, .svg) or on pages of A4 (.pdf), with a look of the command look;\n"
     "without one the head row stands on each page, numbers stand at the right, and each second row is\n"
     "darker. The first N rows behind the head, the columns of LIST, such as 0,2-4, in their order",
     RunPaint},
    {"vocab", "[KEY]", "the lists of domain values with their lengths, or one of them: symbol and text", RunVocab},
};

}  // namespace

std::span<const TCommand> AllCommands() noexcept { return kCommands; }

}  // namespace vx::vxtab
