#include "core/uVxFunctions/Colors.h"
#include "platform/Text.h"
#include "rendering/uDecoration/detail/CellPainter.h"
#include "rendering/uDecoration/detail/SortArrows.h"
#include "rendering/uGradient.h"

namespace vx {
namespace detail {

// A head: its upper half in one colour, its lower half a gradient.
struct THeadLook {
  TColor Upper, From, To;
};

namespace {

constexpr THeadLook kPressed{0x00F9E4BC, 0x00F7D68D, 0x00F5D18A};
constexpr THeadLook kHover{0x00FFF7E3, 0x00FFEDBD, 0x00FCE2A2};
constexpr THeadLook kSorted{0x00FCF9F2, 0x00F9F1E1, 0x00F6ECD8};
constexpr THeadLook kPlain{0x00FFFFFF, 0x00FAF8F7, 0x00F4F2F1};
constexpr TColor kHoverColor = 0x003CC8FF;
constexpr int kDarker = -40, kFocused = -100;

// On a finer device stripes grow less than all else.
int64_t StripeWidth(int Width, Extended Factor) { return Pixels(Factor > 1 ? 0.66L * Factor * Width : Width * Factor); }

}  // namespace

TCellPainter::TCellPainter(TCanvas& Canvas, TDecorationList& List, const TCellToPaint& Cell)
    : FCanvas(Canvas),
      FList(List),
      FCell(Cell),
      FLook(List.Compress()),
      FHorz(TDecorator::FaktorHorz(List)),
      FVert(TDecorator::FaktorVert(List)),
      FIsFixed(List.FixedCell(List.GetCell().X, List.GetCell().Y, {})),
      FIsTopFixed(IsTopFixed(List)),
      FIsClickedHead(IsClickedHead(List)),
      FRect(Held(Cell.Rect)) {}

void TCellPainter::Paint() {
  CallBack(FList.GetCallbackPreDraw());
  TakeSortArrow();
  TakeFont();
  FindParts();
  PaintStripes();
  PaintBackground();
  TakeMarginsOff();
  Align();
  if (FHasImage) PaintImage();
  if (FGraphic) PaintGraphic();
  LeaveRoomForText();
  if (FHasText && !FGraphic) PaintText();
  PaintHoverMark();
  CallBack(FList.GetCallbackPostDraw());
}

void TCellPainter::UseColor(TColor Color) noexcept {
  FCanvas.SetBrush({Color});
  FCanvas.SetPen({Color});
}

void TCellPainter::CallBack(const TCallbackDraw& Callback) {
  if (!Callback) return;
  Callback(FCanvas, FList.GetCell().X, FList.GetCell().Y, FRect, *FLook);
  FRect = Held(FRect);
}

void TCellPainter::TakeSortArrow() {
  if (FIsTopFixed) FSortArrow = SortArrowOf(FList);
}

void TCellPainter::TakeFont() {
  const int size = FLook->GetFont().Size;
  FCanvas.SetFont(FLook->GetFont());
  TDecorator::SetCanvasFontSize(FCanvas, FList, size);
  if (size > 0) FFontFactor = static_cast<Extended>(FCanvas.GetFont().Size) / size;
}

void TCellPainter::FindParts() {
  FImages = FLook->GetImageList() ? FLook->GetImageList() : FList.GetImageList();
  FHasImage = FSortArrow || HasImage(FLook->GetImageIndex());
  FHasText = !TrimView(FCell.Text).empty();
  if (FLook->GetFieldType() == vftGrafic) FGraphic = dynamic_cast<const TBitmap*>(FCell.Object);
  if (!FHasImage && !IsOfImages(FLook->GetFieldType())) return;
  FIsStretched = FHorz != 1 || FVert != 1;
  const auto scaled = [](int size, Extended factor) { return Moved(0, Pixels(size * factor)); };
  if (FSortArrow) {
    FImageSize = {scaled(FSortArrow->GetWidth(), FHorz), scaled(FSortArrow->GetHeight(), FVert)};
  } else if (FImages) {
    const TSize size = ScaledImage(FCanvas, FList, *FImages);
    FImageSize = {Moved(0, size.Width), Moved(0, size.Height)};
    if (FImageSize.Y != scaled(FImages->GetHeight(), FVert)) FIsStretched = true;
  }
}

void TCellPainter::PaintStripes() {
  if (FIsClickedHead && !FCell.ColumnClickSelection) return;
  const TRect cell = Held(FCell.Rect), &widths = FLook->GetSelectRange();
  const TColorRect& colors = FLook->GetSelectColor();
  const auto paint = [&](const TRect& stripe, TColor color) {
    if (Has(ddsMask)) return;
    const TBrush brush = FCanvas.GetBrush();
    const TPen pen = FCanvas.GetPen();
    UseColor(color);
    FCanvas.Rectangle(stripe);
    FCanvas.SetBrush(brush);
    FCanvas.SetPen(pen);
  };
  if (widths.Left > 0) {
    const int64_t width = StripeWidth(widths.Left, FHorz);
    paint({cell.Left, cell.Top, Moved(cell.Left, width), cell.Bottom}, colors.Left);
    FRect.Left = Moved(FRect.Left, width);
  }
  if (widths.Right > 0) {
    const int64_t width = StripeWidth(widths.Right, FHorz);
    paint({Moved(cell.Right, -width), cell.Top, cell.Right, cell.Bottom}, colors.Right);
    FRect.Right = Moved(FRect.Right, -width - (FHorz > 1 ? 1 : 0));
  }
  if (widths.Top > 0) {
    const int64_t width = StripeWidth(widths.Top, FVert);
    paint({cell.Left, cell.Top, cell.Right, Moved(cell.Top, width)}, colors.Top);
    FRect.Top = Moved(FRect.Top, width);
  }
  if (widths.Bottom > 0) {
    const int64_t width = StripeWidth(widths.Bottom, FVert);
    paint({cell.Left, Moved(cell.Bottom, -width), cell.Right, cell.Bottom}, colors.Bottom);
    FRect.Bottom = Moved(FRect.Bottom, -width);
  }
}

TColor TCellPainter::BackgroundColor() {
  if (Has(ddsSelected) && !FList.GetOptions().Has(dloNoSelect)) {
    if (FList.GetSelectionColor() == clHighlight) {
      TFont font = FCanvas.GetFont();
      font.Color = clHighlightText;
      FCanvas.SetFont(font);
    }
    return FList.GetSelectionColor();
  }
  if (Has(ddsMouseOver) && FIsClickedHead) return kHoverColor;
  const TColor color = FLook->GetColor();
  if (color == clWhite) return FIsFixed ? FList.GetFixedColor() : FList.GetColor();
  return FIsFixed ? ColorIncrement(color, kDarker, true) : color;
}

TColor TCellPainter::Darkened(TColor Color) const noexcept {
  const int row = FList.GetCell().Y, lines = FList.GetZebraLines();
  const TRect& border = FList.GetFixed();
  const bool isStriped = lines > 1 && row < int64_t{FList.GetRowCount()} - border.Bottom &&
                         (int64_t{row} - border.Top) % lines == lines - 1;
  if (isStriped || FLook->GetOptions().Has(doZebraLine)) Color = ColorIncrement(Color, kDarker, true);
  return Has(ddsFocused) ? ColorIncrement(Color, kFocused, true) : Color;
}

void TCellPainter::PaintBackground() {
  if (Has(ddsMask) || FLook->GetColor() == clNone) return;
  const TColor color = Darkened(BackgroundColor());
  UseColor(color);
  if (FList.GetDevice() != ddScreen && color == clWhite) return;  // paper stays paper
  if (const THeadLook* look = HeadLook()) return PaintHead(*look);
  FCanvas.Rectangle(FRect);
  FIsPlain = true;
}

const THeadLook* TCellPainter::HeadLook() const {
  if (!FIsFixed || !FList.GetOptions().Has(dloColumnClick) || FList.GetDevice() != ddScreen) return nullptr;
  if (!FIsTopFixed) return &kPlain;
  if (Has(ddsMouseOver)) return Has(ddsMouseDown) ? &kPressed : &kHover;
  return IsSortCell(FList) ? &kSorted : &kPlain;
}

void TCellPainter::PaintHead(const THeadLook& Look) {
  TRect head = FRect;
  if (FIsTopFixed) {  // neighbouring heads close up
    head = {Moved(head.Left, -2), Moved(head.Top, -2), Moved(head.Right, 1), Moved(head.Bottom, 1)};
  }
  const TColor ground = FCanvas.GetBrush().Color;
  const int middle = head.Top + head.Height() / 2;
  UseColor(Look.Upper);
  FCanvas.Rectangle({head.Left, head.Top, head.Right, middle});
  PaintGradient(FCanvas, {head.Left, middle, head.Right, head.Bottom}, Look.From, 1, Look.To);
  UseColor(ground);
}

void TCellPainter::TakeMarginsOff() {
  int64_t across = Pixels(FList.GetMarginHoriz() * FHorz), down = Pixels(FList.GetMarginVerti() * FVert);
  if (IsTurned()) std::swap(across, down);
  FRect = {Moved(FRect.Left, across), Moved(FRect.Top, down), Moved(FRect.Right, -across), Moved(FRect.Bottom, -down)};
}

void TCellPainter::Align() {
  const auto side = [](TAlignSet align) { return align.Has(alLeft) ? -1 : align.Has(alRight) ? 1 : 0; };
  FTextRect = FImageRect = FRect;
  FTextSide = side(FLook->GetAlignSet());
  FTextBand = BandOf(FLook->GetAlignSet());
  FImageSide = side(FLook->GetImageAlignSet());
  FImageBand = BandOf(FLook->GetImageAlignSet());
}

void TCellPainter::LeaveRoomForText() {
  if (!FHasImage || FLook->GetImageIndex() < 0) return;
  if (FImageSide == FTextSide) {
    if (FImageBand < FTextBand) {
      FTextRect.Top = Moved(FImageRect.Bottom, 1);
    } else {
      FTextRect.Bottom = Moved(FImageRect.Top, -1);
    }
  } else if (FImageSide < FTextSide) {
    FTextRect.Left = Moved(FImageRect.Right, FList.GetImageSpacing());
  } else {
    FTextRect.Right = Moved(FImageRect.Left, -int64_t{FList.GetImageSpacing()});
  }
}

void TCellPainter::PaintHoverMark() {
  const int row = FList.GetHoverIndex();
  if (row < 0 || row != FList.GetCell().Y || FList.GetDevice() != ddScreen) return;
  for (int top : {FRect.Top, Moved(FRect.Top, 1)}) {
    TDecorator::DrawLine(FCanvas, FRect.Left, top, FRect.Right, top, clBlack);
  }
}

}  // namespace detail

void TDecorator::DrawCell(TCanvas& aCanvas, const TRect& aRect, const String& aText, TObject* aObject,
                          TDecorationList& aDecorationList, TDecorationDrawStates aState) {
  const detail::TCellToPaint cell{aRect, aText, aObject, aState, ColumnClickSelection()};
  detail::TCellPainter(aCanvas, aDecorationList, cell).Paint();
}

void TDecorator::DrawBorder(TCanvas& aCanvas, const TRect& aRect, const TDecorationList& aDecorationList) {
  if (!aDecorationList.GetOptions().Has(dloBorder)) return;
  const auto [col, row] = aDecorationList.GetCell();
  const TRect rect = detail::Held(aRect);
  const int right = rect.Right - 1, bottom = rect.Bottom - 1;
  if (col == 0) DrawLine(aCanvas, rect.Left, rect.Top, rect.Left, rect.Bottom, clBlack);
  if (col == aDecorationList.GetColCount() - 1) DrawLine(aCanvas, right, rect.Top, right, rect.Bottom, clBlack);
  if (row == 0) DrawLine(aCanvas, rect.Left, rect.Top, rect.Right, rect.Top, clBlack);
  if (row == aDecorationList.GetRowCount() - 1) DrawLine(aCanvas, rect.Left, bottom, rect.Right, bottom, clBlack);
}

void TDecorator::DrawLine(TCanvas& aCanvas, int X1, int Y1, int X2, int Y2, TColor aColor) {
  const TPen pen = aCanvas.GetPen();
  aCanvas.SetPen({aColor, pen.Width, pen.Style});
  aCanvas.MoveTo(X1, Y1);
  aCanvas.LineTo(X2, Y2);
  aCanvas.SetPen(pen);
}

}  // namespace vx
