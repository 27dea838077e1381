#include "tools/vxtab/PaintCommand.h"

#include <algorithm>
#include <ostream>

#include "platform/Text.h"
#include "tools/vxtab/CommandHelpers.h"
#include "tools/vxtab/LookFiles.h"
#include "tools/vxtab/Painting.h"
#include "tools/vxtab/TypeGuess.h"

namespace vx::vxtab {

namespace {

bool IsNumber(TVxFieldType Type) noexcept { return Type == vftInteger || Type == vftFloat || Type == vftHour; }

// A fixed head row, darker rows, and each column read as what most of its cells look like, numbers at the right.
void SetDefaultLook(TTypeCsv& Table) {
  TDecorationList& look = Table.GetDecorations();
  look.SetFixed(0, 1, 0, 0);
  look.SetZebraLines(2);
  look.SetMarginHoriz(4);
  look.SetMarginVerti(2);
  const auto columns = CountTypes(Table, 1);
  for (int col = 0; col < static_cast<int>(columns.size()); ++col) {
    TVxFieldType type = vftString;
    for (const auto& [guessed, count] : TypesByCount(columns[static_cast<size_t>(col)])) {
      if (guessed == vftUnknown) continue;
      type = guessed;
      break;
    }
    TDecoration* column = look.CreateRange(rtColumn, col, -1, col, -1);
    column->SetFieldType(type);
    if (IsNumber(type)) column->SetAlignSet({alRight});
  }
}

// Columns that LIST lacks get no width.
void HideOthers(TTypeCsv& Table, const std::vector<int>& Columns) {
  for (int column : Columns) {
    if (column >= Table.FieldCount()) throw TFailure("row 0 has no column " + std::to_string(column));
  }
  for (int col = 0; col < Table.FieldCount(); ++col) {
    if (std::find(Columns.begin(), Columns.end(), col) != Columns.end()) continue;
    Table.GetDecorations().CreateRange(rtColumn, col, -1, col, -1)->SetTrimModes({tmHide});
  }
}

// Without cells that stand beyond the head, and rows behind the first Count of the content.
void CutTable(const TContext& Context, TTypeCsv& Table) {
  const int count = Context.Args.Number("rows", -1);
  if (count >= 0) {
    while (Table.GetContentCount() > Table.GetContentTop() + count) Table.Delete(Table.GetContentCount() - 1);
  }
  for (int row = 1; row < Table.GetCount(); ++row) {
    if (Table.GetLines(row)->GetCount() <= Table.FieldCount()) continue;
    Context.Reporter.Say("note: cells beyond the width of row 0 are left out, first in row " + std::to_string(row));
    return;
  }
}

std::string ExtensionOf(const std::string& Name) {
  const size_t dot = Name.rfind('.');
  return LowerCase(String::FromUtf8(dot == std::string::npos ? "" : Name.substr(dot))).ToUtf8();
}

}  // namespace

void RunPaint(const TContext& Context) {
  const TArguments& args = Context.Args;
  const std::string extension = ExtensionOf(args.File(1));
  if (extension != ".png" && extension != ".svg" && extension != ".pdf") {
    throw TUsageError("'" + args.File(1) + "' ends in none of .png, .svg and .pdf");
  }
  if (args.Has("landscape") && extension != ".pdf") throw TUsageError("--landscape goes with a PDF only");
  if (!CanPaint()) throw TFailure("this vxtab was built without the component that draws");
  TTypeCsv table;
  table.Assign(Load(Context)->Table);
  if (args.Has("look")) {
    table.GetDecorations().Assign(*LoadLook(args.Values("look").back()));
  } else {
    SetDefaultLook(table);
  }
  if (args.Has("title")) table.GetDecorations().SetTitle(String::FromUtf8(args.Values("title").back()));
  CutTable(Context, table);
  if (args.Has("cols")) HideOthers(table, args.Numbers("cols"));
  if (extension == ".pdf") {
    const int pages = PaintPages(table, args.File(1), args.Has("landscape"));
    Context.Out << "pages: " << pages << '\n';
  } else {
    PaintPicture(table, args.File(1));
  }
}

}  // namespace vx::vxtab
