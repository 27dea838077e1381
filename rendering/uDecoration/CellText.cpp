#include "platform/FormatSettings.h"
#include "rendering/uDecoration/detail/CellPainter.h"
#include "rendering/uDecoration/detail/TextCells.h"
#include "rendering/uVxTinyHTML.h"

namespace vx::detail {
namespace {

// An empty line is as high as any other.
std::u16string_view Measured(std::u16string_view Line) noexcept { return Line.empty() ? u" " : Line; }

// Of a number whose decimals were rounded to what is no fraction.
String WithSeparator(std::u16string_view Number) {
  const size_t whole = Number.size() - 2;
  return Concat({Number.substr(0, whole), {&GetFormatSettings().DecimalSeparator, 1}, Number.substr(whole)});
}

// Takes lines one by one and keeps, shortened, those that fit.
class TFittingLines {
 public:
  TFittingLines(const TCanvas& Canvas, const TRect& Rect, bool IsTurned, TTrimModes Modes)
      : FCanvas(Canvas),
        FWidth(IsTurned ? Rect.Height() : Rect.Width()),
        FHeight(Rect.Height()),
        FIsTurned(IsTurned),
        FKeepsEmpty(Modes.Has(tmTrueCommatext)),
        FProtectsNumbers(Modes.Has(tmNumberProtection)) {}

  void Add(const String& Text) {
    if (FIsFull && (FKeepsEmpty || Text.empty() || FLines.size() >= FRoom)) return;
    String line = ShortenedLine(FCanvas, Text, FWidth, FProtectsNumbers);
    if (!FIsFull && Fits(line)) {
      FLines.push_back(std::move(line));
      return;
    }
    if (!FIsFull) Close();
    if (!FKeepsEmpty && !line.empty() && FLines.size() < FRoom) FLines.push_back(std::move(line));
  }
  std::vector<String> Take() { return std::move(FLines); }

 private:
  bool Fits(std::u16string_view Line) {
    if (FIsTurned) {
      FCount = std::max<int64_t>(FCount, FCanvas.TextWidth(Measured(Line)));
    } else {
      FCount += FCanvas.TextHeight(Measured(Line));
    }
    return FCount <= FHeight;
  }
  // There is room for as many lines as there are; empty ones make way for others.
  void Close() {
    FIsFull = true;
    FRoom = FLines.size();
    if (!FKeepsEmpty) std::erase_if(FLines, [](const String& line) { return line.empty(); });
  }

  const TCanvas& FCanvas;
  const int FWidth, FHeight;
  const bool FIsTurned, FKeepsEmpty, FProtectsNumbers;
  std::vector<String> FLines;
  int64_t FCount = 0;
  size_t FRoom = 0;
  bool FIsFull = false;
};

}  // namespace

void TCellPainter::PaintText() {
  if (IsOfImages(FLook->GetFieldType()) && FImages) return PaintContentImages();
  if (FLook->GetFieldType() == vftTinyHTML) return PaintRichText();
  bool isFraction = false;
  const std::vector<String> lines = FittingLines(isFraction);
  if (lines.empty()) return;
  AlignLines(lines);
  PaintLines(lines, isFraction);
}

void TCellPainter::PaintRichText() {
  const TAlignSet align = FLook->GetAlignSet();
  if (align.Has(alClient)) {
    const int height = HTML2CanvasSize(FCell.Text, FCanvas, true, 0, FTextRect.Width(), FFontFactor).Height();
    const int surplus = (FTextRect.Height() - height) / 2;
    if (height < FTextRect.Height()) {
      FTextRect.Top += surplus;
      FTextRect.Bottom -= surplus;
    }
  }
  const int side = SideOf(align);
  const TAlignment alignment = side == 0 ? taCenter : side == 1 ? taRightJustify : taLeftJustify;
  const TBrush brush = FCanvas.GetBrush();
  HTML2Canvas(FCell.Text, FCanvas, FTextRect, alignment, FFontFactor);
  FCanvas.SetBrush(brush);
}

std::vector<String> TCellPainter::FittingLines(bool& IsFraction) const {
  TFittingLines lines(FCanvas, FTextRect, IsTurned(), FList.GetTrimModes());
  const TVxFieldType type = FLook->GetFieldType();
  const String& format = FLook->GetFormatString();
  if (type == vftCommatext) {
    ForEachCell(FCell.Text, [&](std::u16string_view cell) { lines.Add(cell); });
  } else if (format.empty() && type != vftCurrency && type != vftFraction) {
    lines.Add(FCell.Text);
  } else {
    String shown = TDecorator::FormatText(FCell.Text, type, format, IsFraction);
    if (IsFraction && !HasFractionGlyph(shown)) {
      IsFraction = false;
      shown = WithSeparator(shown);
    }
    ForEachTextLine(shown, [&](std::u16string_view line) { lines.Add(line); });
  }
  return lines.Take();
}

void TCellPainter::AlignLines(const std::vector<String>& Lines) {
  int64_t total = 0;
  for (const String& line : Lines) total += FCanvas.TextHeight(Measured(line));
  const TAlignSet align = FLook->GetAlignSet();
  int& first = IsTurned() ? FTextRect.Left : FTextRect.Top;
  int& last = IsTurned() ? FTextRect.Right : FTextRect.Bottom;
  const int64_t surplus = last - first - total;
  if (surplus <= 0) return;
  if (align.Has(alTop)) {
    last = Moved(last, -surplus);
  } else {
    first = Moved(first, align.Has(alBottom) ? surplus : surplus / 2);
  }
}

TPoint TCellPainter::PlaceOf(std::u16string_view Line, int Index, int Side) const {
  const int width = FCanvas.TextWidth(Line);
  if (!IsTurned()) return {PlaceIn(FTextRect.Left, FTextRect.Right, width, Side), FTextRect.Top};
  const int64_t left = int64_t{Index} * FCanvas.TextHeight(Measured(Line));
  // Upward: a text begins at its lower end.
  const int end = PlaceIn(FTextRect.Top, FTextRect.Bottom, width, -Side);
  return {Moved(FTextRect.Left, left), Side < 0 ? FTextRect.Bottom : Moved(end, width)};
}

void TCellPainter::PaintLines(const std::vector<String>& Lines, bool IsFraction) {
  const bool isOpaque = FCanvas.GetTextOpaque();
  FCanvas.SetTextOpaque(isOpaque && FIsPlain && FList.GetDevice() != ddPrinter);
  const std::u16string_view separator = FLook->GetFormatString();
  const bool isParted = FLook->GetFieldType() == vftString && !separator.empty();
  int index = 0;
  for (const String& line : Lines) {
    std::u16string_view text = line, atRight;
    if (const size_t place = isParted ? text.find(separator) : text.npos; place != text.npos) {
      atRight = text.substr(place + separator.size());
      text = text.substr(0, place);
      FLook->SetAlignSet({});
    }
    PaintLine(text, PlaceOf(text, index, SideOf(FLook->GetAlignSet())), IsFraction);
    if (!atRight.empty()) PaintLine(atRight, PlaceOf(atRight, index, 1), IsFraction);
    if (!IsTurned()) FTextRect.Top = Moved(FTextRect.Top, FCanvas.TextHeight(Measured(line)));
    ++index;
  }
  FCanvas.SetTextOpaque(isOpaque);
}

void TCellPainter::PaintLine(std::u16string_view Line, TPoint At, bool IsFraction) {
  if (IsFraction) return PaintFraction(FCanvas, At, Line);
  if (IsTurned()) {
    FCanvas.SetTextUpward(true);
    FCanvas.TextOut(At.X, At.Y, Line);
    return FCanvas.SetTextUpward(false);
  }
  const TColor ground = FCanvas.GetBrush().Color;
  FCanvas.SetBrush({ground, bsClear});
  FCanvas.TextRect(FTextRect, At.X, At.Y, Line);
  FCanvas.SetBrush({ground});
}

}  // namespace vx::detail
