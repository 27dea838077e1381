#include "rendering/uDecoration/detail/TableMeasure.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <optional>
#include <utility>

#include "platform/TCanvas.h"
#include "platform/TImageList.h"
#include "platform/Text.h"
#include "platform/TextBounds.h"
#include "rendering/uDecoration/detail/NumberBounds.h"

namespace vx::detail {
namespace {

bool IsBlank(const String& Text) noexcept { return Text.empty() || (Text.view()[0] <= u' ' && TrimView(Text).empty()); }

// How cells of the same decorations differ in size.
enum TLookKind : uint8_t {
  lkText,       // by the width of their text, which is one line
  lkLines,      // the same for texts without line breaks
  lkFormatted,  // by what is shown for their text
  lkByText,     // in any way, but alike for equal texts
  lkByCell      // in any way
};

// What the cells of a column have in common in some rows that follow one another.
struct TLook {
  TLookKind Kind = lkByCell;
  std::vector<TDecoration*> Items;  // that apply to them, those of single cells aside
  std::unique_ptr<TDecoration> Whole;
  bool IsFixedRow = false, IsFixedCol = false;
  unsigned Id = 0;
  const TTextBounds* Bounds = nullptr;
  std::optional<TNumberBounds> Numbers;
  int Height = -1;       // of a cell with a text; -1 while there was none
  int BlankHeight = -1;  // of one without
  int Widest = -1;       // the widest text so far, in which cell, and what stands there
  TPoint WidestCell;
  String WidestText;

  // Another text of known width is as high as the others.
  bool CanOnlyBeWider() const noexcept { return Height >= 0 && (Kind == lkText || Kind == lkLines); }
};

TLookKind KindOf(const TDecorationList& List, const TDecoration& Look) {
  const TVxFieldType type = Look.GetFieldType();
  const TRect& stripes = Look.GetSelectRange();
  if (type == vftGrafic) return lkByCell;
  if (Look.GetTextAngle() == taVert) return lkByText;
  // With these a wider text may have a smaller cell.
  if (List.GetMarginHoriz() < 0 || List.GetImageSpacing() < 0 || stripes.Left < 0 || stripes.Right < 0) return lkByText;
  switch (type) {
    case vftUnknown:
    case vftShortString:
    case vftString:
      return Look.GetFormatString().empty() ? lkText : lkLines;
    case vftBoolean:
    case vftInteger:
    case vftFloat:
    case vftDate:
    case vftTime:
    case vftDateTime:
    case vftStatus:
    case vftHour:
      return Look.GetFormatString().empty() ? lkText : lkFormatted;
    case vftCurrency:
      return lkFormatted;
    default:
      return lkByText;
  }
}

// The heights of cells by their texts, for those that were looked at last.
class THeightMemo {
 public:
  explicit THeightMemo(int64_t Cells)
      : FEntries(std::bit_ceil(static_cast<size_t>(std::clamp<int64_t>(Cells, 2, kMostEntries)))) {}
  // -1 if it is not known.
  int Find(const TLook& Look, const String& Text) noexcept {
    const size_t place = PlaceOf(Look, Text);
    for (const TEntry* entry : {&FEntries[place], &FEntries[place ^ 1]}) {
      if (entry->Look == Look.Id && entry->Text == Text) return entry->Height;
    }
    return -1;
  }
  // In the place of what was put there before the last.
  void Put(const TLook& Look, const String& Text, int Height) {
    const size_t place = PlaceOf(Look, Text);
    std::swap(FEntries[place], FEntries[place ^ 1]);
    FEntries[place] = {Look.Id, Height, Text};
  }

 private:
  struct TEntry {
    unsigned Look = 0;
    int Height = -1;
    String Text;
  };
  size_t PlaceOf(const TLook& Look, const String& Text) const noexcept {
    const size_t hash = std::hash<String>()(Text) + Look.Id * size_t{0x9E3779B97F4A7C15};
    return (hash ^ hash >> 29) & (FEntries.size() - 1);
  }
  static constexpr int64_t kMostEntries = 1 << 16;
  std::vector<TEntry> FEntries;
};

class TTableMeasure {
 public:
  TTableMeasure(TDecorator& Decorator, TCanvas& Canvas, TDecorationList& List, TCellSource& Cells, bool IsPlain)
      : FDecorator(Decorator),
        FCanvas(Canvas),
        FList(List),
        FCells(Cells),
        FIsPlain(IsPlain),
        FColCount(Cells.CellCols()),
        FBuffer(List.DuplicateHead()),
        FLooks(static_cast<size_t>(Cells.CellCols())) {
    FNeeds.Cols.resize(static_cast<size_t>(Cells.CellCols()));
    FNeeds.Rows.resize(static_cast<size_t>(Cells.CellRows()));
  }
  TNeeds Run();

 private:
  std::vector<int> BandBegins() const;
  void FindSpecials();
  void BeginBand(int Row);
  void MakeLook(TLook& Look, int Col, int Row);
  void EndLook(TLook& Look, int Col);
  bool IsSpecial(int Col, int Row) noexcept;
  void MeasureRow(int Row);
  int MeasureCell(TLook& Look, int Col, int Row, const String& Text, bool IsBlankText);
  int MeasureShown(TLook& Look, int Col, int Row, const String& Text);
  int MeasureText(TLook& Look, int Col, int Row, const String& Text, const String& Shown);
  int Calculate(int Col, int Row, const String& Text);
  const TTextBounds& BoundsOf(const TDecoration& Look);
  TNeed& Col(int Index) { return FNeeds.Cols[static_cast<size_t>(Index)]; }

  TDecorator& FDecorator;
  TCanvas& FCanvas;
  TDecorationList& FList;
  TCellSource& FCells;
  const bool FIsPlain;
  const int FColCount;
  std::unique_ptr<TDecorationList> FBuffer;
  std::vector<TLook> FLooks;
  unsigned FLookIds = 0;
  std::vector<std::pair<int, int>> FSpecials;  // row and column of cells that are unlike their neighbours
  size_t FNextSpecial = 0;
  std::vector<std::pair<TFont, std::unique_ptr<TTextBounds>>> FBounds;  // by the font of the canvas
  const TDecoration* FFontOf = nullptr;                                 // the canvas has this one's font
  std::optional<THeightMemo> FMemo;
  TNeeds FNeeds;
};

// The rows from which on other decorations apply than in the one before.
std::vector<int> TTableMeasure::BandBegins() const {
  const int rows = FCells.CellRows();
  std::vector<int> begins{0, FList.GetFixed().Top, rows - FList.GetFixed().Bottom};
  for (int i = 0; i < FList.GetIndexFirstCell(); ++i) {
    const TDecoration& item = *FList.GetItems(i);
    if (item.GetRangeType() != rtRow && item.GetRangeType() != rtRect) continue;
    TRect cells;
    item.RangeRect(cells);
    begins.push_back(cells.Top);
    if (cells.Bottom >= 0 && cells.Bottom < rows) begins.push_back(cells.Bottom + 1);
  }
  std::sort(begins.begin(), begins.end());
  begins.erase(std::unique(begins.begin(), begins.end()), begins.end());
  std::erase_if(begins, [&](int row) { return row < 0 || row >= rows; });
  return begins;
}

void TTableMeasure::FindSpecials() {
  for (int i = FList.GetIndexFirstCell(); i < FList.GetCount(); ++i) {
    const TRect& range = FList.GetItems(i)->GetRange();
    FSpecials.emplace_back(range.Top, range.Left);
  }
  if (const auto* table = dynamic_cast<const TSortedTable*>(FList.OutermostParent())) {
    FSpecials.emplace_back(table->GetSortCell().Y, table->GetSortCell().X);
  }
  std::sort(FSpecials.begin(), FSpecials.end());
  while (FNextSpecial < FSpecials.size() && FSpecials[FNextSpecial] < std::pair(0, 0)) ++FNextSpecial;
}

// Looks go on where nothing changes for them.
void TTableMeasure::BeginBand(int Row) {
  const bool isFixed = FList.FixedCell(-1, Row, {alTop, alBottom});
  std::vector<TDecoration*> items;
  for (int col = 0; col < FColCount; ++col) {
    TLook& look = FLooks[static_cast<size_t>(col)];
    FList.VirtualListForCell(col, Row, *FBuffer);
    items.clear();
    for (int i = 0; i < FBuffer->GetCount(); ++i) {
      if (FBuffer->GetItems(i)->GetRangeType() != rtCell) items.push_back(FBuffer->GetItems(i));
    }
    if (look.Whole && look.IsFixedRow == isFixed && look.Items == items) continue;
    EndLook(look, col);
    look = TLook();
    look.IsFixedRow = isFixed;
    look.Items = items;
    MakeLook(look, col, Row);
  }
}

void TTableMeasure::MakeLook(TLook& Look, int Col, int Row) {
  FList.VirtualListForCell(Col, Row, *FBuffer);
  Look.Id = ++FLookIds;
  Look.IsFixedCol = Col < FList.GetFixed().Left || Col >= FCells.CellCols() - FList.GetFixed().Right;
  if (FBuffer->GetCount() > static_cast<int>(Look.Items.size())) FBuffer->Delete(FBuffer->GetCount() - 1);
  Look.Whole = FBuffer->Compress();
  Look.Whole->SetParent(&FList);  // the buffer goes on to other cells
  if (!FIsPlain) return;
  Look.Kind = KindOf(FList, *Look.Whole);
  if (Look.Kind == lkByText || Look.Kind == lkByCell) return;
  Look.Bounds = &BoundsOf(*Look.Whole);
  Look.Numbers.emplace(*Look.Whole, *Look.Bounds);
}

// The canvas has the font of Look afterwards, as Calculate would give it.
const TTextBounds& TTableMeasure::BoundsOf(const TDecoration& Look) {
  FCanvas.SetFont(Look.GetFont());
  TDecorator::SetCanvasFontSize(FCanvas, FList, Look.GetFont().Size);
  FFontOf = &Look;
  for (const auto& [font, bounds] : FBounds) {
    if (font == FCanvas.GetFont()) return *bounds;
  }
  FBounds.emplace_back(FCanvas.GetFont(), std::make_unique<TTextBounds>(FCanvas));
  return *FBounds.back().second;
}

// The height of the cell; its width counts for the column.
int TTableMeasure::Calculate(int Col, int Row, const String& Text) {
  FList.VirtualListForCell(Col, Row, *FBuffer);
  const TPoint size = FDecorator.Calculate(FCanvas, Text, FCells.CellObject(Col, Row), *FBuffer);
  TNeed& need = this->Col(Col);
  need.Size = std::max(need.Size, size.X);
  if (FList.FixedCell(-1, Row, {alTop, alBottom})) need.FixedSize = std::max(need.FixedSize, size.X);
  return size.Y;
}

void TTableMeasure::EndLook(TLook& Look, int Col) {
  if (FFontOf == Look.Whole.get()) FFontOf = nullptr;
  if (Look.Widest >= 0) Calculate(Col, Look.WidestCell.Y, Look.WidestText);
}

// Takes a cell whose text shows as the one line Shown.
int TTableMeasure::MeasureText(TLook& Look, int Col, int Row, const String& Text, const String& Shown) {
  if (Look.Height >= 0 && Look.Bounds->Of(Shown) <= Look.Widest) return Look.Height;
  if (FFontOf != Look.Whole.get()) BoundsOf(*Look.Whole);
  const int width = FCanvas.TextWidth(Shown);
  if (width < 1) return Calculate(Col, Row, Text);  // counts as if there was no text
  if (Look.Height < 0) Look.Height = Calculate(Col, Row, Text);
  if (width > Look.Widest) {
    Look.Widest = width;
    Look.WidestCell = {Col, Row};
    Look.WidestText = Text;
  }
  return Look.Height;
}

int TTableMeasure::MeasureShown(TLook& Look, int Col, int Row, const String& Text) {
  if (Look.Height >= 0 && Look.Numbers->IsKnown() && Look.Numbers->Of(Text) <= Look.Widest) return Look.Height;
  int height = FMemo->Find(Look, Text);
  if (height >= 0) return height;
  bool isFraction;
  const String shown =
      TDecorator::FormatText(Text, Look.Whole->GetFieldType(), Look.Whole->GetFormatString(), isFraction);
  const bool isLine =
      !shown.empty() && shown.view().find_first_of(std::u16string_view(u"\r\n\0", 3)) == shown.view().npos;
  height = isLine ? MeasureText(Look, Col, Row, Text, shown) : Calculate(Col, Row, Text);
  FMemo->Put(Look, Text, height);
  return height;
}

int TTableMeasure::MeasureCell(TLook& Look, int Col, int Row, const String& Text, bool IsBlankText) {
  if (Look.Kind == lkByCell) return Calculate(Col, Row, Text);
  if (IsBlankText) {
    if (Look.BlankHeight < 0) Look.BlankHeight = Calculate(Col, Row, Text);
    return Look.BlankHeight;
  }
  if (Look.Kind == lkText) return MeasureText(Look, Col, Row, Text, Text);
  if (!FMemo) FMemo.emplace(int64_t{FCells.CellRows()} * FColCount);
  if (Look.Kind != lkByText) return MeasureShown(Look, Col, Row, Text);
  int height = FMemo->Find(Look, Text);
  if (height < 0) FMemo->Put(Look, Text, height = Calculate(Col, Row, Text));
  return height;
}

// The next special cell is that one.
bool TTableMeasure::IsSpecial(int Col, int Row) noexcept {
  bool isSpecial = false;
  for (; FNextSpecial < FSpecials.size() && FSpecials[FNextSpecial] <= std::pair(Row, Col); ++FNextSpecial) {
    isSpecial = FSpecials[FNextSpecial] == std::pair(Row, Col);
  }
  return isSpecial;
}

void TTableMeasure::MeasureRow(int Row) {
  static const String empty;
  const std::span<const String> texts = FCells.RowTexts(Row);
  const bool hasSpecials = FNextSpecial < FSpecials.size() && FSpecials[FNextSpecial].first <= Row;
  TNeed& need = FNeeds.Rows[static_cast<size_t>(Row)];
  for (int col = 0; col < FColCount; ++col) {
    TLook& look = FLooks[static_cast<size_t>(col)];
    const String& text = static_cast<size_t>(col) < texts.size() ? texts[static_cast<size_t>(col)] : empty;
    const bool isBlank = IsBlank(text);
    int height;
    if (hasSpecials && IsSpecial(col, Row)) {
      height = Calculate(col, Row, text);
    } else if (!isBlank && look.CanOnlyBeWider() && look.Bounds->Of(text) <= look.Widest) {
      height = look.Height;
    } else {
      height = MeasureCell(look, col, Row, text, isBlank);
    }
    need.Size = std::max(need.Size, height);
    if (look.IsFixedCol) need.FixedSize = std::max(need.FixedSize, height);
    if (isBlank && (look.Kind != lkByCell || FCells.CellObject(col, Row) == nullptr)) continue;
    const bool isContent = !look.IsFixedCol && !look.IsFixedRow;
    need.HasText = Col(col).HasText = true;
    need.HasContent |= isContent;
    Col(col).HasContent |= isContent;
  }
}

TNeeds TTableMeasure::Run() {
  const TCanvasState saved(FCanvas);
  FindSpecials();
  const std::vector<int> bands = BandBegins();
  size_t next = 0;
  for (int row = 0; row < FCells.CellRows(); ++row) {
    if (next < bands.size() && bands[next] == row) {
      BeginBand(row);
      ++next;
    }
    MeasureRow(row);
  }
  for (int col = 0; col < FColCount; ++col) EndLook(FLooks[static_cast<size_t>(col)], col);
  return std::move(FNeeds);
}

}  // namespace

TNeeds MeasureTable(TDecorator& Decorator, TCanvas& Canvas, TDecorationList& List, TCellSource& Cells, bool IsPlain) {
  return TTableMeasure(Decorator, Canvas, List, Cells, IsPlain).Run();
}

}  // namespace vx::detail
