#include <algorithm>
#include <cstdint>

#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctions/Rounding.h"
#include "platform/Drawing.h"
#include "platform/FormatSettings.h"
#include "platform/NumberMasks.h"
#include "platform/TImageList.h"
#include "platform/Text.h"
#include "rendering/uDecoration/TDecorator.h"
#include "rendering/uDecoration/detail/CellParts.h"
#include "rendering/uDecoration/detail/Fractions.h"
#include "rendering/uDecoration/detail/SortArrows.h"
#include "rendering/uDecoration/detail/TextCells.h"
#include "rendering/uVxTinyHTML.h"

namespace vx {
namespace {

using detail::Pixels;
using detail::TSize;

Extended ToPrinter(const TDecorationList& List, int TPoint::*Axis) noexcept {
  const int screen = GetScreenPixelsPerInch().*Axis;
  if (List.GetDevice() == ddScreen || screen == 0) return 1;
  return static_cast<Extended>(GetPrinterPixelsPerInch().*Axis) / screen;
}

// Adds up lines, one below the other.
class TLines {
 public:
  explicit TLines(const TCanvas& Canvas) noexcept : FCanvas(Canvas) {}
  void Add(std::u16string_view Line) {
    FSize.Width = std::max<int64_t>(FSize.Width, FCanvas.TextWidth(Line));
    FSize.Height += FCanvas.TextHeight(Line.empty() ? u"A" : Line);
  }
  TSize Size() const noexcept { return FSize; }

 private:
  const TCanvas& FCanvas;
  TSize FSize;
};

// Measures one cell.
class TMeasure {
 public:
  // The canvas has the font of Look.
  TMeasure(TCanvas& Canvas, const TDecorationList& List, const TDecoration& Look)
      : FCanvas(Canvas),
        FList(List),
        FLook(Look),
        FImages(Look.GetImageList() ? Look.GetImageList() : List.GetImageList()),
        FHorz(TDecorator::FaktorHorz(List)),
        FVert(TDecorator::FaktorVert(List)) {}

  TSize ImageSize() const {
    const int index = FLook.GetImageIndex();
    const bool hasImage = FImages != nullptr && index >= 0 && index < FImages->GetCount();
    return hasImage && detail::SortArrowOf(FList) == nullptr ? ScaledImage() : TSize();
  }
  TSize TextSize(const String& Text) const;
  TSize Together(TSize Image, TSize Text) const;
  void Limit(TSize& Size) const;
  // Margins and edge stripes, where there is something to surround.
  void Surround(TSize& Size, bool HasStripes) const;
  // Room for a graphic of that size, see the design's rule for pictures lower than 100 pixels.
  static void FitGraphic(TSize& Size, TSize Graphic);
  // The part of one of the cells that are coupled.
  void Share(TSize& Size) const;

 private:
  TSize ScaledImage() const { return detail::ScaledImage(FCanvas, FList, *FImages); }
  TSize ContentImages(std::u16string_view Indices) const;
  TSize CellLines(std::u16string_view Commatext) const;
  TSize PlainLine(const String& Text) const;

  TCanvas& FCanvas;
  const TDecorationList& FList;
  const TDecoration& FLook;
  const TImageList* FImages;
  Extended FHorz, FVert;
};

TSize TMeasure::ContentImages(std::u16string_view Indices) const {
  TSize size = ScaledImage();
  if (FLook.GetFieldType() == vftButton) return size;
  int64_t count = 0;
  detail::ForEachCell(Indices, [&](std::u16string_view) { ++count; });
  const TAlignSet align = FLook.GetAlignSet();
  (align.Has(alLeft) || align.Has(alRight) ? size.Height : size.Width) *= count;
  return size;
}

TSize TMeasure::CellLines(std::u16string_view Commatext) const {
  const int most = FList.GetMaxSubLines();
  const bool isCut = most >= 1 && !FList.GetTrimModes().Has(tmTrueCommatext);
  int count = 0;
  if (isCut) detail::ForEachCell(Commatext, [&](std::u16string_view) { ++count; });
  const bool dropsEmpty = isCut && count >= most;
  TLines lines(FCanvas);
  int taken = 0;
  detail::ForEachCell(Commatext, [&](std::u16string_view cell) {
    if ((dropsEmpty && cell.empty()) || (isCut && taken == most)) return;
    ++taken;
    lines.Add(cell);
  });
  return lines.Size();
}

TSize TMeasure::PlainLine(const String& Text) const {
  TLines lines(FCanvas);
  Extended value;
  if (FLook.GetFieldType() == vftFraction && detail::ReadFraction(Text, value)) {
    const size_t separator = Text.view().find(GetFormatSettings().DecimalSeparator);
    const size_t behind = static_cast<size_t>(Text.size()) - (separator == Text.view().npos ? 0 : separator + 1);
    if (behind < 2) {
      lines.Add(FormatFloat(u"0.00", value));
      return lines.Size();
    }
  }
  lines.Add(Text);
  return lines.Size();
}

TSize TMeasure::TextSize(const String& Text) const {
  const TVxFieldType type = FLook.GetFieldType();
  if (type == vftTinyHTML) {
    const int fontSize = FLook.GetFont().Size;
    const Extended scale = fontSize > 0 ? static_cast<Extended>(FCanvas.GetFont().Size) / fontSize : 1;
    const TRect room = HTML2CanvasSize(Text, FCanvas, false, 0, FList.GetMaxSubLines(), scale);
    return {room.Width(), room.Height()};
  }
  if (detail::IsOfImages(type) && FImages != nullptr) return ContentImages(Text);
  if (type == vftCommatext) return CellLines(Text);
  if (FLook.GetFormatString().empty() && type != vftCurrency) return PlainLine(Text);
  TLines lines(FCanvas);
  bool isFraction;
  const String shown = TDecorator::FormatText(Text, type, FLook.GetFormatString(), isFraction);
  detail::ForEachTextLine(shown, [&](std::u16string_view line) { lines.Add(line); });
  return lines.Size();
}

TSize TMeasure::Together(TSize Image, TSize Text) const {
  if (Image.Width < 1) return Text;
  if (Text.Width < 1) return Image;
  if (detail::BandOf(FLook.GetImageAlignSet()) == detail::BandOf(FLook.GetAlignSet())) {
    return {Image.Width + Text.Width + FList.GetImageSpacing(), std::max(Image.Height, Text.Height)};
  }
  return {std::max(Image.Width, Text.Width), Image.Height + Text.Height + 1};
}

void TMeasure::Limit(TSize& Size) const {
  const auto raise = [](int64_t& value, int least, Extended factor) {
    if (least >= 0) value = std::max(value, Pixels(least * factor));
  };
  const auto lower = [](int64_t& value, int most, Extended factor) {
    if (most >= 0) value = std::min(value, Pixels(most * factor));
  };
  raise(Size.Width, FLook.GetWidthMin(), FHorz);
  lower(Size.Width, FLook.GetWidthMax(), FHorz);
  raise(Size.Height, FLook.GetHeightMin(), FVert);
  lower(Size.Height, FLook.GetHeightMax(), FVert);
}

void TMeasure::Surround(TSize& Size, bool HasStripes) const {
  if (Size.Width <= 0) return;
  Size.Width += 2 * Pixels(FList.GetMarginHoriz() * FHorz);
  Size.Height += 2 * Pixels(FList.GetMarginVerti() * FVert);
  if (!HasStripes) return;
  const auto both = [](int first, int second, Extended factor) {
    if (factor <= 1) return int64_t{first} + second;
    return Pixels(first * factor * 0.66L) + Pixels(second * factor * 0.66L);
  };
  const TRect& stripes = FLook.GetSelectRange();
  Size.Width += both(stripes.Left, stripes.Right, FHorz) + (FHorz > 1 ? 1 : 0);
  Size.Height += both(stripes.Top, stripes.Bottom, FVert);
}

void TMeasure::FitGraphic(TSize& Size, TSize Graphic) {
  constexpr int kMaxHeight = 100;
  const auto scaled = [](int64_t value, int64_t to, int64_t from) {
    return from == 0 ? value
                     : Pixels(static_cast<Extended>(to) / static_cast<Extended>(from) * static_cast<Extended>(value));
  };
  if (Graphic.Width <= 0) return;
  if (Graphic.Height > kMaxHeight) Graphic = {scaled(Graphic.Width, kMaxHeight, Graphic.Height), kMaxHeight};
  if (Size.Height > Graphic.Height) {
    Graphic.Height = Size.Height;  // a graphic gets no wider in a high row, that is wanted
  } else if (Size.Width > Graphic.Width) {
    Graphic = {Size.Width, scaled(Graphic.Height, Size.Width, Graphic.Width)};
  }
  Size = {std::max(Size.Width, Graphic.Width), std::max(Size.Height, Graphic.Height)};
}

void TMeasure::Share(TSize& Size) const {
  if (FList.GetCoupled() == nullptr || Size.Width < 1) return;
  TRect cells;
  FList.GetCoupled()->RangeRect(cells);
  const int64_t cols = int64_t{cells.Right} - cells.Left + 1, rows = int64_t{cells.Bottom} - cells.Top + 1;
  if (cols == 0 || rows == 0) return;
  Size.Width /= cols;
  if (Size.Width == 0) Size.Width = 1;
  Size.Height /= rows;
}

}  // namespace

detail::TSize detail::ScaledImage(const TCanvas& Canvas, const TDecorationList& List, const TImageList& Images) {
  const TSize size{Pixels(Images.GetWidth() * TDecorator::FaktorHorz(List)),
                   Pixels(Images.GetHeight() * TDecorator::FaktorVert(List))};
  if (!List.GetTrimModes().Has(tmFitImage)) return size;
  const int line = Canvas.TextHeight(u"A");
  if (size.Height == line || size.Height < 1) return size;
  return {Pixels(static_cast<Extended>(line) / static_cast<Extended>(size.Height) * static_cast<Extended>(size.Width)),
          line};
}

Extended TDecorator::FaktorHorz(const TDecorationList& aDecorationList) noexcept {
  return ToPrinter(aDecorationList, &TPoint::X);
}

Extended TDecorator::FaktorVert(const TDecorationList& aDecorationList) noexcept {
  return ToPrinter(aDecorationList, &TPoint::Y);
}

void TDecorator::SetCanvasFontSize(TCanvas& aCanvas, const TDecorationList& aDecorationList, int aSize) {
  TFont font = aCanvas.GetFont();
  font.Size = aSize;
  if (aDecorationList.GetDevice() == ddMetafile && font.PixelsPerInch != 0) {
    const auto fine = static_cast<Extended>(aCanvas.GetPixelsPerInch().Y);
    font.Size = static_cast<int>(Pixels(fine / font.PixelsPerInch * aSize));
  }
  aCanvas.SetFont(font);
}

TPoint TDecorator::Calculate(TCanvas& aCanvas, const String& aText, TObject* aObject,
                             TDecorationList& aDecorationList) {
  const TCanvasState saved(aCanvas);
  const std::unique_ptr<TDecoration> look = aDecorationList.Compress();
  aCanvas.SetFont(look->GetFont());
  SetCanvasFontSize(aCanvas, aDecorationList, look->GetFont().Size);

  const TMeasure measure(aCanvas, aDecorationList, *look);
  TSize graphic, text;
  const auto* bitmap = look->GetFieldType() == vftGrafic ? dynamic_cast<const TBitmap*>(aObject) : nullptr;
  if (bitmap != nullptr) graphic = {bitmap->GetWidth(), bitmap->GetHeight()};
  if (graphic.Width == 0 && !TrimView(aText).empty()) text = measure.TextSize(aText);

  TSize size = measure.Together(measure.ImageSize(), text);
  measure.Limit(size);
  measure.Surround(size, ColumnClickSelection() || !detail::IsClickedHead(aDecorationList));
  TMeasure::FitGraphic(size, graphic);
  measure.Share(size);
  if (look->GetTextAngle() == taVert) std::swap(size.Width, size.Height);
  return {static_cast<int>(Pixels(static_cast<Extended>(size.Width))),
          static_cast<int>(Pixels(static_cast<Extended>(size.Height)))};
}

}  // namespace vx
