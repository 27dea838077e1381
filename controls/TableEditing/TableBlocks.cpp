#include "controls/TableEditing/TableBlocks.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "controls/uVxFilter/detail/TextTest.h"
#include "rendering/uDecoration.h"
#include "services/uVxXml.h"
#include "tables/Csv.h"
#include "tables/uTypeCsv.h"

namespace vx {

namespace {

constexpr TCsvForm kClipboardForm{.Separator = u'\t', .Encoding = ceUtf16, .HasMark = false};

// The rows and the places of columns that have a selected cell, rising.
struct TBlock {
  std::vector<int> Rows, Cols;

  explicit TBlock(const TTableSelection& Selection) {
    for (const TRect& range : Selection.GetRanges()) {
      AddAll(Rows, range.Top, range.Bottom);
      AddAll(Cols, range.Left, range.Right);
    }
    for (std::vector<int>* places : {&Rows, &Cols}) {
      std::ranges::sort(*places);
      places->erase(std::unique(places->begin(), places->end()), places->end());
    }
  }

 private:
  static void AddAll(std::vector<int>& Places, int First, int End) {
    for (int place = First; place < End; ++place) Places.push_back(place);
  }
};

int ColumnAt(std::span<const int> Columns, int Place) noexcept {
  return static_cast<size_t>(Place) < Columns.size() ? Columns[static_cast<size_t>(Place)] : -1;
}

// The selected cells of a block, row by row; empty texts for the others.
template <typename F>
void ForCells(const TTypeCsv& Table, const TTableSelection& Selection, std::span<const int> Columns,
              const TBlock& Block, int Row, F&& Take) {
  for (const int place : Block.Cols) {
    const int col = ColumnAt(Columns, place);
    const bool isIn = col >= 0 && Row < Table.GetCount() && Selection.IsSelected({place, Row});
    Take(col, isIn ? Table.GetCell(col, Row) : String());
  }
}

// A cell as the table shows it, for HTML.
class TShownCells {
 public:
  explicit TShownCells(const TTypeCsv& Table)
      : FDecorations(Table.GetDecorations()), FCell(FDecorations.DuplicateHead()) {}
  String operator()(int Col, int Row, const String& Text) {
    if (Text.empty()) return Text;
    FDecorations.VirtualListForCell(Col, Row, *FCell);
    return TDecorator::GetText(Text, *FCell->Compress(), false);
  }

 private:
  TDecorationList& FDecorations;
  std::unique_ptr<TDecorationList> FCell;
};

// Every kind of line break becomes <br>.
void AppendHtmlCell(std::u16string& Html, std::u16string_view Tag, std::u16string_view Text) {
  ((Html += u'<') += Tag) += u'>';
  for (bool isFirst = true; !Text.empty() || isFirst; isFirst = false) {
    const size_t end = std::min(Text.find_first_of(u"\r\n"), Text.size());
    if (!isFirst) Html += u"<br>";
    Html += XMLEncode(Text.substr(0, end));
    const size_t width = Text.substr(end, 2) == u"\r\n" ? 2 : 1;
    if (end == Text.size()) break;
    Text.remove_prefix(end + width);
  }
  ((Html += u"</") += Tag) += u'>';
}

void AppendHtmlRow(std::u16string& Html, std::u16string_view Tag, std::span<const String> Cells) {
  Html += u"<tr>";
  for (const String& cell : Cells) AppendHtmlCell(Html, Tag, cell);
  Html += u"</tr>\r\n";
}

// The rows of cells that a text from the clipboard has. Any line end closes a row; one at the end begins no other.
std::vector<std::vector<String>> ReadBlock(std::u16string_view Text) {
  const std::string_view bytes(reinterpret_cast<const char*>(Text.data()), Text.size() * sizeof(char16_t));
  TCsvReader reader = TCsvReader::OverBytes(bytes, kClipboardForm);
  std::vector<std::vector<String>> rows;
  while (reader.Next()) rows.emplace_back(reader.Cells().begin(), reader.Cells().end());
  return rows;
}

// Puts a block into the cells of a table, and counts what becomes of it.
class TPaste {
 public:
  TPaste(TTypeCsv& Table, const TTableSelection& Selection, std::span<const int> Columns, const TMayPut& MayPut)
      : FTable(Table), FSelection(Selection), FColumns(Columns), FMayPut(MayPut) {}

  // A text for a place on the screen; rows behind the area's last one are for AddedRows.
  void Put(TPoint Place, const String& Text, int AddedRows) {
    const TRect& area = FSelection.GetArea();
    const int col = Place.X < area.Right ? ColumnAt(FColumns, Place.X) : -1;
    if (col < 0 || Place.Y >= area.Bottom + AddedRows) {
      Result.Outside += !Text.empty();
      return;
    }
    String text = Text;
    const bool isNew = Place.Y >= area.Bottom;
    const String present = isNew ? String() : FTable.GetCell(col, Place.Y);
    if (text == present) return;
    if (FMayPut && !FMayPut(col, Place.Y, text)) {
      if (Result.Refused++ == 0) Result.FirstRefused = {col, Place.Y};
    } else if (text != present) {
      Edits.push_back({col, Place.Y, std::move(text)});
    }
  }

  TPasteResult Result;
  std::vector<TCellEdit> Edits;

 private:
  TTypeCsv& FTable;
  const TTableSelection& FSelection;
  std::span<const int> FColumns;
  const TMayPut& FMayPut;
};

class TOneStep {
 public:
  explicit TOneStep(TTableHistory& History) noexcept : FHistory(History) { History.BeginStep(); }
  ~TOneStep() { FHistory.EndStep(); }
  TOneStep(const TOneStep&) = delete;
  TOneStep& operator=(const TOneStep&) = delete;

 private:
  TTableHistory& FHistory;
};

void AddEmptyRows(TTypeCsv& Table, TTableHistory& History, int Row, int Count) {
  std::vector<std::unique_ptr<TVxStringList>> rows;
  for (int i = 0; i < Count; ++i) {
    rows.push_back(std::make_unique<TVxStringList>());
    for (int col = 0; col < Table.FieldCount(); ++col) rows.back()->Add(String());
  }
  History.InsertRows(Row, std::move(rows));
}

}  // namespace

String CopyAsText(const TTypeCsv& Table, const TTableSelection& Selection, std::span<const int> Columns) {
  const TBlock block(Selection);
  TCsvWriter writer(kClipboardForm);
  std::vector<String> cells;
  for (const int row : block.Rows) {
    cells.clear();
    ForCells(Table, Selection, Columns, block, row, [&](int, const String& text) { cells.push_back(text); });
    writer.Write(cells);
  }
  const std::string_view bytes = writer.Bytes();
  std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
  std::memcpy(text.data(), bytes.data(), bytes.size());
  return text;
}

String CopyAsHtml(const TTypeCsv& Table, const TTableSelection& Selection, std::span<const int> Columns) {
  const TBlock block(Selection);
  TShownCells shown(Table);
  std::u16string html = u"<table>\r\n";
  std::vector<String> cells;
  if (Table.GetContentTop() > 0 && Table.GetCount() > 0) {
    for (const int place : block.Cols) cells.push_back(Table.GetCell(std::max(0, ColumnAt(Columns, place)), 0));
    AppendHtmlRow(html, u"th", cells);
  }
  for (const int row : block.Rows) {
    cells.clear();
    ForCells(Table, Selection, Columns, block, row,
             [&](int col, const String& text) { cells.push_back(shown(col, row, text)); });
    AppendHtmlRow(html, u"td", cells);
  }
  return html + u"</table>\r\n";
}

TPasteResult PasteText(TTypeCsv& Table, TTableHistory& History, std::u16string_view Text,
                       const TTableSelection& Selection, std::span<const int> Columns, const TPasteOptions& Options) {
  const std::vector<std::vector<String>> rows = ReadBlock(Text);
  TRect places = Selection.GetBounds();
  TPaste paste(Table, Selection, Columns, Options.MayPut);
  if (rows.empty() || places.IsEmpty()) return paste.Result;
  int added = 0;
  if (rows.size() == 1 && rows[0].size() == 1) {
    for (const TRect& range : Selection.GetRanges()) {
      for (int row = range.Top; row < range.Bottom; ++row) {
        for (int col = range.Left; col < range.Right; ++col) paste.Put({col, row}, rows[0][0], 0);
      }
    }
  } else {
    const int height = static_cast<int>(rows.size());
    if (Options.MayAddRows) added = std::max(0, places.Top + height - Selection.GetArea().Bottom);
    places = {places.Left, places.Top, places.Left, std::min(places.Top + height, Selection.GetArea().Bottom + added)};
    for (int i = 0; i < height; ++i) {
      const auto& cells = rows[static_cast<size_t>(i)];
      const int width = static_cast<int>(cells.size());
      places.Right = std::max(places.Right, std::min(places.Left + width, Selection.GetArea().Right));
      for (int j = 0; j < width; ++j) {
        paste.Put({places.Left + j, places.Top + i}, cells[static_cast<size_t>(j)], added);
      }
    }
  }
  const TOneStep step(History);
  if (added > 0) AddEmptyRows(Table, History, Selection.GetArea().Bottom, added);
  History.SetCells(paste.Edits);
  paste.Result.Changed = static_cast<int>(paste.Edits.size());
  paste.Result.Places = places;
  return paste.Result;
}

int ClearCells(TTypeCsv& Table, TTableHistory& History, const TTableSelection& Selection, std::span<const int> Columns,
               const TMayPut& MayPut) {
  TPasteOptions options;
  options.MayPut = MayPut;
  return PasteText(Table, History, u"\"\"", Selection, Columns, options).Changed;
}

TPoint FindCell(const TTypeCsv& Table, std::u16string_view Text, std::span<const int> Columns, TPoint From,
                TFindOptions Options) {
  const int top = Table.GetContentTop(), rows = Table.GetContentCount() - top, cols = static_cast<int>(Columns.size());
  if (Text.empty() || rows <= 0 || cols == 0) return {-1, -1};
  const detail::TValueTest test(Options.Has(foWholeCell) ? String(Text) : Concat({u"*", Text, u"*"}), true);
  const int64_t count = int64_t{rows} * cols, step = Options.Has(foBackward) ? count - 1 : 1;
  int64_t at = int64_t{std::clamp(From.Y - top, 0, rows - 1)} * cols + std::clamp(From.X, 0, cols - 1);
  if (!Options.Has(foAlsoAtPlace)) at = (at + step) % count;
  std::span<const String> cells;
  for (int64_t i = 0, shown = -1; i < count; ++i, at = (at + step) % count) {
    if (at / cols != shown) cells = Table.GetLines(top + static_cast<int>(shown = at / cols))->Items();
    const auto place = static_cast<int>(at % cols);
    const auto col = static_cast<size_t>(Columns[static_cast<size_t>(place)]);
    if (col < cells.size() && test.Matches(cells[col])) return {place, top + static_cast<int>(shown)};
  }
  return {-1, -1};
}

}  // namespace vx
