#include "platform/Numbers.h"
#include "rendering/uDecoration/detail/CellPainter.h"
#include "rendering/uDecoration/detail/TextCells.h"
#include "rendering/uGradient.h"

namespace vx::detail {
namespace {

constexpr TColor kButton = clGray, kButtonDown = 0x00303030;
constexpr TColor kDiscMiddle = 0x00E7E7E7;
constexpr int kDiscLighter = 30;
constexpr int kButtonBorder = 4;  // around the image
constexpr int kArrowUp = 5;       // how far an arrow stands above its cell

}  // namespace

// --- the image of the decoration, or the arrow of a sorted column

void TCellPainter::PaintImage() {
  if (FHasText && !IsOfImages(FLook->GetFieldType()) && FImageBand == FTextBand) {  // side by side
    FImageSide = FTextSide < FImageSide ? 1 : FTextSide == -1 ? -2 : -1;
  }
  FImageRect = RectAt({PlaceIn(FRect.Left, FRect.Right, FImageSize.X, FImageSide),
                       PlaceIn(FRect.Top, FRect.Bottom, FImageSize.Y, FImageBand)},
                      FImageSize);
  if (FSortArrow) return PaintSortArrow();
  DrawImage(FLook->GetImageIndex(), {FImageRect.Left, FImageRect.Top});
}

void TCellPainter::PaintSortArrow() {
  const TRect whole{0, 0, FSortArrow->GetWidth(), FSortArrow->GetHeight()};
  const TPoint at{PlaceIn(FRect.Left, FRect.Right, whole.Right, 0), Moved(FRect.Top, -kArrowUp)};
  FCanvas.TransparentBlt(RectAt(at, {whole.Right, whole.Bottom}), *FSortArrow, whole, clFuchsia);
}

void TCellPainter::DrawImage(int Index, TPoint At) {
  if (!FIsStretched) return FImages->Draw(FCanvas, At.X, At.Y, Index, true);
  TBitmap image;
  if (!FImages->GetBitmap(Index, image, FCanvas.GetBrush().Color)) return;
  const TCanvasLock lock(FCanvas);
  FCanvas.StretchDraw(RectAt(At, FImageSize), image);
}

// --- the graphic of the cell

void TCellPainter::PaintGraphic() {
  const Extended width = FGraphic->GetWidth(), height = FGraphic->GetHeight();
  if (FGraphic->GetEmpty()) return;
  TPoint size{FRect.Width(), FRect.Height()};
  const int64_t fitting = Pixels(height * size.X / width);
  if (size.Y < fitting) {
    size.X = Moved(0, Pixels(width * size.Y / height));
  } else {
    size.Y = Moved(0, fitting);
  }
  const TAlignSet align = FLook->GetImageAlignSet();
  const int band = align.Has(alClient) ? 0 : align.Has(alBottom) ? 1 : -1;
  FImageRect = RectAt(
      {PlaceIn(FRect.Left, FRect.Right, size.X, SideOf(align)), PlaceIn(FRect.Top, FRect.Bottom, size.Y, band)}, size);
  const TCanvasLock lock(FCanvas);
  FCanvas.StretchDraw(FImageRect, *FGraphic);
}

// --- images and buttons as the content

void TCellPainter::PaintContentImages() {
  if (FLook->GetFieldType() == vftButton) return PaintButton();
  int count = 0;
  ForEachCell(FCell.Text, [&](std::u16string_view index) { count += HasImage(StrToIntDef(index, -1)); });
  if (count == 0) return;
  const TImageGroup group = GroupOf(count);
  int image = 0;
  ForEachCell(FCell.Text, [&](std::u16string_view text) {
    const int index = StrToIntDef(text, -1);
    if (HasImage(index)) DrawImage(index, group.Place(image++));
  });
}

TPoint TCellPainter::TImageGroup::Place(int Index) const {
  return {Moved(At.X, Pixels(Index * StepX)), Moved(At.Y, Pixels(Index * StepY))};
}

TCellPainter::TImageGroup TCellPainter::GroupOf(int Count) const {
  const TAlignSet align = FLook->GetAlignSet();
  const bool isRow = !align.Has(alLeft) && !align.Has(alRight);
  TPoint size = FImageSize;
  // Images that have no room are pushed together.
  const auto spread = [Count](int& total, int room) -> Extended {
    const Extended all = static_cast<Extended>(total) * Count;
    const Extended step = all > room ? static_cast<Extended>(room) / Count : total;
    total = Moved(0, Pixels(step * Count));
    return step;
  };
  TImageGroup group;
  if (isRow) {
    group.StepX = spread(size.X, FTextRect.Width());
  } else {
    group.StepY = spread(size.Y, FTextRect.Height());
  }
  const int band = align.Has(alBottom) ? 1 : align.Has(alTop) ? -1 : 0;
  group.At = {PlaceIn(FTextRect.Left, FTextRect.Right, size.X, SideOf(align)),
              PlaceIn(FTextRect.Top, FTextRect.Bottom, size.Y, band)};
  return group;
}

void TCellPainter::PaintButton() {
  const TButtonInfo info(FLook->GetFormatString(), FCell.Text);
  const bool isOver = Has(ddsMouseOver), isDown = Has(ddsMouseDown);
  const int index = !isOver ? info.ImageIndexEnabled : isDown ? info.ImageIndexDown : info.ImageIndexHover;
  if (!HasImage(index)) return;
  TPoint at = GroupOf(1).Place(0);
  if (isOver) PaintButtonBorder(info.Border, RectAt(at, FImageSize));
  if (isDown) at.X = Moved(at.X, 1);
  DrawImage(index, at);
}

void TCellPainter::PaintButtonBorder(TButtonBorder Border, const TRect& Image) {
  if (Border == boNone) return;
  const TRect around{Moved(Image.Left, -kButtonBorder), Moved(Image.Top, -kButtonBorder),
                     Moved(Image.Right, kButtonBorder), Moved(Image.Bottom, kButtonBorder)};
  const TBrush brush = FCanvas.GetBrush();
  const TPen pen = FCanvas.GetPen();
  const TColor color = Has(ddsMouseDown) ? kButtonDown : kButton;
  if (Border == boCircle) {
    FCanvas.GradientEllipse(around, {clWhite, kDiscMiddle, gdVertical, true});
    FCanvas.SetBrush({brush.Color, bsClear});
    FCanvas.SetPen({ColorAdjustLuma(color, kDiscLighter)});
    FCanvas.Ellipse(around);
  } else {
    UseColor(color);
    FCanvas.FrameRect(Border == boCell ? Held(FCell.Rect) : around);
  }
  FCanvas.SetBrush(brush);
  FCanvas.SetPen(pen);
}

}  // namespace vx::detail
