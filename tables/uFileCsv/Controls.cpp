// The table in string grids and list views, and back.
#include <algorithm>
#include <vector>

#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctionsSerialize.h"
#include "platform/Numbers.h"
#include "platform/TCanvas.h"
#include "platform/TListView.h"
#include "platform/TStringGrid.h"
#include "platform/TextBounds.h"
#include "tables/uFileCsv.h"
#include "tables/uFileCsv/detail/RowMemory.h"

namespace vx {
namespace {

// The numbers below Count among Texts; all of them if there are no texts.
std::vector<int> ColumnsOf(std::span<const String> Texts, int Count) {
  std::vector<int> columns;
  if (Texts.empty()) {
    for (int i = 0; i < Count; ++i) columns.push_back(i);
  }
  for (const String& text : Texts) {
    const int column = StrToIntDef(text, -1);
    if (column >= 0 && column < Count) columns.push_back(column);
  }
  return columns;
}

// Makes the row hold what a row of a grid has.
void FillRow(TVxStringList& Line, std::vector<String>& Cells, std::span<TObject* const> Objects) {
  Line.Clear();
  Line.TakeCells(Cells);
  for (size_t i = 0; i < Objects.size() && static_cast<int>(i) < Line.GetCount(); ++i) {
    if (Objects[i] != nullptr) Line.PutObject(static_cast<int>(i), Objects[i]);
  }
}

void WriteGridCell(TStringGrid& Grid, int Col, int Row, const String& Text, TObject* Object) {
  Grid.SetCells(Col, Row, Text);
  Grid.SetObjects(Col, Row, Object);
}

// The largest of widths where those below 100 pixels count 1.2 times; in tenths of pixels.
class TWidest {
 public:
  void Add(const TCanvas& Canvas, const TTextBounds& Bounds, std::u16string_view Text) {
    constexpr int64_t kNarrow = 100;
    const auto tenths = [](int64_t width) { return width * (width < kNarrow ? 12 : 10); };
    const int64_t bound = Bounds.Of(Text);
    if (std::max(tenths(std::min(bound, kNarrow - 1)), tenths(bound)) <= FTenths) return;
    FTenths = std::max(FTenths, tenths(Canvas.TextWidth(Text)));
  }
  int Times(Extended Factor) const noexcept {
    return static_cast<int>(std::clamp<Extended>(static_cast<Extended>(FTenths) / 10 * Factor, 0, INT32_MAX));
  }

 private:
  int64_t FTenths = 0;
};

}  // namespace

// --- grids ---

void TFileCsv::GetGrid(const TStringGrid& Grid, bool DropFirstCol) {
  const int count = Grid.GetRowCount();
  const auto first = static_cast<size_t>(DropFirstCol && Grid.GetColCount() > 0 ? 1 : 0);
  detail::TRowMemory memory(count - GetCount() >= detail::TRowMemory::ManyRows);
  std::vector<String> cells;
  for (int i = 0; i < count; ++i) {
    std::span<const String> texts = Grid.GetRowCells(i);
    std::span<TObject* const> objects = Grid.GetRowObjects(i);
    cells.assign(texts.begin() + static_cast<std::ptrdiff_t>(std::min(first, texts.size())), texts.end());
    cells.resize(static_cast<size_t>(Grid.GetColCount()) - first);
    objects = objects.subspan(std::min(first, objects.size()));
    if (i < GetCount()) {
      FillRow(*GetLines(i), cells, objects);
    } else {
      auto row = memory.NewRow();
      FillRow(*row, cells, objects);
      AddInPlace(std::move(row));
    }
  }
  while (GetCount() > count) Delete(GetCount() - 1);
}

void TFileCsv::SetGrid(TStringGrid& Grid, bool WithNumbers) {
  const TControlUpdate update(Grid);
  SetGridIntern(Grid, WithNumbers);
  SetGridColWidth(Grid, 1.11L);
}

void TFileCsv::SetGridIntern(TStringGrid& Grid, bool WithNumbers) {
  const TControlUpdate update(Grid);
  const int fields = FieldCount(), count = GetCount();
  const int topRow = Grid.GetTopRow();
  const int shift = WithNumbers ? 1 : 0;
  // What a grid loses when it gets smaller is gone, and where it grows it is empty.
  Grid.SetRowCount(fields < 1 ? 0 : count);
  Grid.SetColCount(fields < 1 ? 0 : fields + shift);
  if (fields < 1) return;
  Grid.SetTopRow(topRow);
  for (int row = 0; row < count; ++row) {
    if (WithNumbers) WriteGridCell(Grid, 0, row, row == 0 ? String(u"Nr.") : IntToStr(row), nullptr);
    for (int col = 0; col < fields; ++col) {
      WriteGridCell(Grid, col + shift, row, GetCell(col, row), GetObject(col, row));
    }
  }
}

void TFileCsv::SetGridColWidth(TStringGrid& Grid, Extended Factor) {
  TCanvas* const canvas = Grid.GetCanvas();
  if (canvas == nullptr) return;
  const TControlUpdate update(Grid);
  canvas->SetFont(Grid.GetFont());
  const TTextBounds bounds(*canvas);
  std::vector<TWidest> widest(static_cast<size_t>(Grid.GetColCount()));
  for (int row = 0; row < Grid.GetRowCount(); ++row) {
    std::span<const String> cells = Grid.GetRowCells(row);
    for (size_t col = 0; col < cells.size(); ++col) {
      if (!cells[col].empty()) widest[col].Add(*canvas, bounds, cells[col]);
    }
  }
  for (size_t col = 0; col < widest.size(); ++col) Grid.SetColWidths(static_cast<int>(col), widest[col].Times(Factor));
}

// --- list views ---

void TFileCsv::GetListviewCell(const TListItem& Item, int ViewCol, TVxStringList& Line, int TableCol,
                               int /*TableRow*/) {
  const TStrings& subItems = Item.GetSubItems();
  if (ViewCol < 0 || ViewCol > subItems.GetCount() || TableCol < 0) return;
  while (Line.GetCount() <= TableCol) Line.Add({});
  Line.Put(TableCol, ViewCol == 0 ? Item.GetCaption() : subItems.Get(ViewCol - 1));
  Line.PutObject(TableCol, ViewCol == 0 ? Item.GetData() : subItems.GetObject(ViewCol - 1));
}

void TFileCsv::SetListviewCell(TListItem& Item, int ViewCol, const TVxStringList& Line, int TableCol,
                               int /*TableRow*/) {
  if (TableCol < 0 || TableCol >= Line.GetCount() || ViewCol < 0) return;
  if (ViewCol == 0) {
    Item.SetCaption(Line.Get(TableCol));
    Item.SetData(Line.GetObject(TableCol));
    return;
  }
  TListSubItems& subItems = Item.SubItems();
  while (subItems.GetCount() < ViewCol) subItems.Add({});
  subItems.Put(ViewCol - 1, Line.Get(TableCol));
  subItems.PutObject(ViewCol - 1, Line.GetObject(TableCol));
}

int TFileCsv::GetListView(const TListView& View, std::u16string_view Columns, int First, int Limit, bool OnlySelected) {
  TVxStringList names;
  names.SetCommatext(Columns);
  const std::vector<int> columns = ColumnsOf(names.Items(), View.GetColumnCount());
  int used = 0;
  // The row for what comes next: one that there is, below Limit, or a new one.
  const auto fillNext = [&](auto fill) {
    if (used < Limit && used < GetCount()) {
      GetLines(used)->Clear();
      fill(*GetLines(used), used);
      ++used;
    } else {
      auto row = std::make_unique<TVxStringList>();
      fill(*row, std::max(used, GetCount()));
      AddInPlace(std::move(row));
      ++used;
    }
  };
  if (Limit < 1) used = GetCount();
  fillNext([&](TVxStringList& line, int) {
    for (int column : columns) line.Add(View.GetColumns(column).GetCaption());
  });
  const int64_t behind = Limit < 1 ? View.GetItemCount() : int64_t{std::max(First, 0)} + Limit + 1;
  for (int i = std::max(First, 0); i < std::min<int64_t>(behind, View.GetItemCount()); ++i) {
    const TListItem& item = View.GetItems(i);
    if (OnlySelected && !item.GetSelected()) continue;
    fillNext([&](TVxStringList& line, int row) {
      for (size_t k = 0; k < columns.size(); ++k) GetListviewCell(item, columns[k], line, static_cast<int>(k), row);
    });
  }
  for (int row = std::min(Limit, GetCount()); row-- > used;) Delete(row);
  return used;
}

void TFileCsv::SetListview(TListView& View, std::u16string_view Columns, int First, int Count) {
  const TControlUpdate update(View);
  const std::vector<int> columns = ColumnsOf(explode(Columns, u',')->Items(), FieldCount());
  First = std::clamp(First, 0, GetCount());
  const int count = Count < 0 ? GetCount() - First : std::min(Count, GetCount() - First);
  for (int i = 0; i < count; ++i) {
    const bool isNew = i >= View.GetItemCount();
    TListItem& item = isNew ? View.AddItem() : View.GetItems(i);
    if (!isNew) {
      item.SetCaption({});
      item.SetData(nullptr);
      item.SubItems().Clear();
    }
    const TVxStringList& line = *GetLines(First + i);
    for (size_t k = 0; k < columns.size(); ++k) SetListviewCell(item, static_cast<int>(k), line, columns[k], First + i);
  }
  while (View.GetItemCount() > count) View.DeleteItem(View.GetItemCount() - 1);
}

// --- headed and sorted tables ---

void THeadCsv::SetListview(TListView& View, std::u16string_view Columns, int First, int Count) {
  const TControlUpdate update(View);
  for (int i = 0; i < FieldCount(); ++i) {
    TListColumn& column = i < View.GetColumnCount() ? View.GetColumns(i) : View.AddColumn();
    column.SetCaption(FieldName(i));
  }
  while (View.GetColumnCount() > FieldCount()) View.DeleteColumn(View.GetColumnCount() - 1);
  TFileCsv::SetListview(View, IndicesForNames(Columns), First < 0 ? 1 : First == INT32_MAX ? First : First + 1, Count);
}

int THeadCsv::GetListView(const TListView& View, std::u16string_view Columns, int First, int Limit, bool OnlySelected) {
  return TFileCsv::GetListView(View, Columns, First, Limit, OnlySelected);
}

void TSortCsv::GetGrid(const TStringGrid& Grid, bool DropFirstCol) {
  Clear();
  TFileCsv::GetGrid(Grid, DropFirstCol);
}

int TSortCsv::GetListView(const TListView& View, std::u16string_view Columns, int First, int Limit, bool OnlySelected) {
  Clear();
  return TFileCsv::GetListView(View, Columns, First, Limit, OnlySelected);
}

}  // namespace vx
