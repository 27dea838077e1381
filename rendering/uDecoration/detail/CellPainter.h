// The painting of one cell, step by step: each step wins over those before it.
//
//   DrawCell.cpp      the order, stripes, backgrounds, heads, where image and text stand
//   CellImages.cpp    images, graphics, buttons
//   CellText.cpp      texts in lines
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "rendering/uDecoration/TButtonInfo.h"
#include "rendering/uDecoration/TDecorator.h"
#include "rendering/uDecoration/detail/CellParts.h"

namespace vx::detail {

// What TDecorator::DrawCell is given.
struct TCellToPaint {
  TRect Rect;
  const String& Text;
  TObject* Object;
  TDecorationDrawStates State;
  bool ColumnClickSelection;
};

class TCellPainter {
 public:
  TCellPainter(TCanvas& Canvas, TDecorationList& List, const TCellToPaint& Cell);
  // Leaves the state of the canvas as it was.
  void Paint();

 private:
  // --- DrawCell.cpp
  void CallBack(const TCallbackDraw& Callback);
  void TakeSortArrow();
  void TakeFont();
  void FindParts();
  void PaintStripes();
  TColor BackgroundColor();
  TColor Darkened(TColor Color) const noexcept;
  void PaintBackground();
  void PaintHead(const struct THeadLook& Look);
  const struct THeadLook* HeadLook() const;
  void TakeMarginsOff();
  void Align();
  void LeaveRoomForText();
  void PaintHoverMark();

  // --- CellImages.cpp
  void PaintImage();
  void PaintSortArrow();
  void PaintGraphic();
  void DrawImage(int Index, TPoint At);
  void PaintContentImages();
  void PaintButton();
  void PaintButtonBorder(TButtonBorder Border, const TRect& Image);
  // Count images side by side or one below the other in the place of the text.
  struct TImageGroup {
    TPoint At;
    Extended StepX = 0, StepY = 0;
    TPoint Place(int Index) const;
  };
  TImageGroup GroupOf(int Count) const;
  bool HasImage(int Index) const noexcept { return FImages && Index >= 0 && Index < FImages->GetCount(); }

  // --- CellText.cpp
  void PaintText();
  void PaintRichText();
  std::vector<String> FittingLines(bool& IsFraction) const;
  void AlignLines(const std::vector<String>& Lines);
  void PaintLines(const std::vector<String>& Lines, bool IsFraction);
  void PaintLine(std::u16string_view Line, TPoint At, bool IsFraction);
  TPoint PlaceOf(std::u16string_view Line, int Index, int Side) const;

  bool Has(TDecorationDrawState State) const noexcept { return FCell.State.Has(State); }
  bool IsTurned() const noexcept { return FLook->GetTextAngle() == taVert; }
  // Brush and pen get the colour.
  void UseColor(TColor Color) noexcept;

  TCanvas& FCanvas;
  TDecorationList& FList;
  const TCellToPaint& FCell;
  const TCanvasState FSaved{FCanvas};
  const std::unique_ptr<TDecoration> FLook;
  const Extended FHorz, FVert;
  const bool FIsFixed, FIsTopFixed, FIsClickedHead;
  TRect FRect;       // what is left of the cell
  TRect FTextRect;   // for the text
  TRect FImageRect;  // where the image stands
  const TImageList* FImages = nullptr;
  const TBitmap* FSortArrow = nullptr;
  const TBitmap* FGraphic = nullptr;
  TPoint FImageSize;
  Extended FFontFactor = 1;
  // -1 for left and top, 1 for right and bottom.
  int FTextSide = 0, FTextBand = 0, FImageSide = 0, FImageBand = 0;
  bool FHasImage = false, FHasText = false;
  bool FIsStretched = false;  // images are, as the device is finer than the screen
  bool FIsPlain = false;      // the ground of the cell is the brush's colour
};

// A coordinate moved, held to a range in which sums of coordinates don't overflow.
constexpr int Moved(int Place, int64_t By) noexcept {
  constexpr int64_t kFarthest = 1 << 28;
  return static_cast<int>(std::clamp(Place + std::clamp(By, -4 * kFarthest, 4 * kFarthest), -kFarthest, kFarthest));
}
inline TRect Held(const TRect& Rect) noexcept {
  return {Moved(Rect.Left, 0), Moved(Rect.Top, 0), Moved(Rect.Right, 0), Moved(Rect.Bottom, 0)};
}
// Where something of that size begins in [First, Last): flush for a Side of -1 and 1, centred for 0.
constexpr int PlaceIn(int First, int Last, int Size, int Side) noexcept {
  if (Side < 0) return First;
  return Side > 0 ? Moved(Last, -int64_t{Size}) : Moved(First, (int64_t{Last} - First - Size) / 2);
}
inline TRect RectAt(TPoint At, TPoint Size) noexcept { return {At.X, At.Y, Moved(At.X, Size.X), Moved(At.Y, Size.Y)}; }
// Where texts and graphics stand across: alClient is the middle, and without alRight it is the left.
inline int SideOf(TAlignSet Align) noexcept { return Align.Has(alClient) ? 0 : Align.Has(alRight) ? 1 : -1; }

// Line, or if it is wider than Width pixels, a part of it with ".." behind; with ProtectsNumbers what stands in front
// of the first digit is cut first, and blanks behind it go that don't part two numbers. The time grows with the length
// of the line.
String ShortenedLine(const TCanvas& Canvas, const String& Line, int Width, bool ProtectsNumbers);

// The last two characters are decimals that stand for a fraction.
bool HasFractionGlyph(std::u16string_view Text) noexcept;
// A number without separator whose last two digits are its decimals, as a whole number and a fraction with its top left
// at (X, Y); any other text, such as one that was shortened, as it is. The state of the canvas is what it was.
void PaintFraction(TCanvas& Canvas, TPoint At, std::u16string_view Text);

}  // namespace vx::detail
