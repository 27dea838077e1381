#include "platform/TRecordingCanvas.h"

#include <algorithm>
#include <cmath>

#include "platform/Numbers.h"
#include "platform/TBitmap.h"
#include "platform/TCanvasDevice.h"

namespace vx {

namespace {

constexpr std::u16string_view kNarrow = u" !'(),-./:;I[]`fijlrt|";
constexpr std::u16string_view kWide = u"MWmw";

String Place(TPoint At) { return IntToStr(At.X) + u"," + IntToStr(At.Y); }
String Extent(const TRect& Rect) {
  return Place({Rect.Left, Rect.Top}) + u" " + IntToStr(Rect.Width()) + u"x" + IntToStr(Rect.Height());
}
String PenText(const TPen& Pen) {
  String result = ColorToString(Pen.Color);
  if (Pen.Width != 1) result += u" " + IntToStr(Pen.Width);
  if (Pen.Style == psDash) result += u" dash";
  if (Pen.Style == psDot) result += u" dot";
  return result;
}
String Quoted(std::u16string_view Text) {
  constexpr char16_t digits[] = u"0123456789ABCDEF";
  String result = u"\"";
  for (char16_t unit : Text) {
    if (unit < 32) {
      result += Concat({u"\\x", {&digits[unit >> 4], 1}, {&digits[unit & 15], 1}});
      continue;
    }
    if (unit == u'"' || unit == u'\\') result += u'\\';
    result += unit;
  }
  return result + u"\"";
}
String FontText(const TFont& Font) {
  String result = Font.Name + u" " + IntToStr(Font.Size);
  if (Font.Style.Has(fsBold)) result += u" bold";
  if (Font.Style.Has(fsItalic)) result += u" italic";
  if (Font.Style.Has(fsUnderline)) result += u" underline";
  if (Font.Style.Has(fsStrikeOut)) result += u" strikeout";
  return result;
}

class TRecordingDevice final : public TCanvasDevice {
 public:
  explicit TRecordingDevice(const TRecordingSurface& Surface) : FSurface(Surface) {}

  TDeviceKind Kind() const noexcept override { return FSurface.Kind; }
  TPoint PixelsPerInch() const noexcept override { return FSurface.PixelsPerInch; }
  TRect Bounds() const noexcept override {
    const auto scaled = [this](int Side) { return static_cast<int>(std::ceil(Side / FScale)); };
    return {scaled(FSurface.Bounds.Left), scaled(FSurface.Bounds.Top), scaled(FSurface.Bounds.Right),
            scaled(FSurface.Bounds.Bottom)};
  }

  void SetClip(const TRect* Clip, double Scale) noexcept override {
    FClip = Clip ? std::optional(*Clip) : std::nullopt;
    FScale = Scale;
  }
  void Fill(const TRect& Rect, TColor Color) override { Add(u"fill " + Extent(Rect) + u" " + ColorToString(Color)); }
  void Frame(const TRect& Rect, const TPen& Pen) override { Add(u"frame " + Extent(Rect) + u" " + PenText(Pen)); }
  void Line(TPoint From, TPoint To, const TPen& Pen) override {
    Add(u"line " + Place(From) + u" to " + Place(To) + u" " + PenText(Pen));
  }
  void Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) override {
    String line = u"ellipse " + Extent(Rect);
    if (Brush) line += u" fill " + ColorToString(*Brush);
    if (Pen) line += u" pen " + PenText(*Pen);
    Add(line);
  }
  void Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) override {
    String line = u"gradient " + Extent(Rect) + u" " + ColorToString(Gradient.From) + u" to " +
                  ColorToString(Gradient.To) + (Gradient.Direction == gdVertical ? u" down" : u" right");
    if (Gradient.Bell) line += u" bell";
    if (InEllipse) line += u" ellipse";
    Add(line);
  }
  void Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) override {
    String line = u"picture " + Extent(Rect);
    const bool whole = Source == TRect{0, 0, Bitmap.GetWidth(), Bitmap.GetHeight()};
    if (!whole || Rect.Width() != Source.Width() || Rect.Height() != Source.Height()) line += u" of " + Extent(Source);
    if (Transparent) line += u" without " + ColorToString(*Transparent);
    Add(line);
  }

  void SetFont(const TFont& Font) override {
    FFont = Font;
    FEm = FontPixels(Font);
  }
  TFontMetrics Metrics() override {
    const bool synthesised = FFont.Style.Has(fsBold) || FFont.Style.Has(fsItalic);
    return {FEm, (FEm + 2) / 4, synthesised ? 1 : 0};
  }
  int TextWidth(std::u16string_view Text) override {
    int64_t width = 0;
    for (char16_t unit : Text) width += UnitWidth(unit);
    return static_cast<int>(std::min<int64_t>(width, 1 << 27));
  }
  int Advance(char16_t Unit) override { return UnitWidth(Unit); }
  void Text(const TTextRun& Run) override {
    const TFontMetrics metrics = Metrics();
    const int width = TextWidth(Run.Text);
    const TPoint at = Run.Origin;
    const TRect box = Run.Upward ? TRect{at.X - metrics.Ascent, at.Y - width, at.X + metrics.Descent, at.Y}
                                 : TRect{at.X, at.Y - metrics.Ascent, at.X + width, at.Y + metrics.Descent};
    String line =
        Concat({u"text ", Extent(box), u" ", Quoted(Run.Text), u" ", ColorToString(Run.Color), u" ", FontText(FFont)});
    if (Run.Upward) line += u" upward";
    Add(line);
  }

  String Lines;

 private:
  int UnitWidth(char16_t Unit) const noexcept {
    if ((Unit >= 0x300 && Unit <= 0x36F) || (Unit >= 0xDC00 && Unit <= 0xDFFF)) return 0;
    const int bold = FFont.Style.Has(fsBold) ? 1 : 0;
    if (Unit < 32 || kNarrow.find(Unit) != kNarrow.npos) return (FEm * 2 + 3) / 6 + bold;
    if (kWide.find(Unit) != kWide.npos) return FEm + bold;
    return (FEm * 6 + 5) / 10 + bold;
  }
  void Add(const String& Line) {
    Lines += Line;
    if (FClip) Lines += u" in " + Extent(*FClip);
    if (FScale != 1) Lines += u" scale " + FloatToStr(FScale);
    Lines += u'\n';
  }

  const TRecordingSurface FSurface;
  std::optional<TRect> FClip;
  double FScale = 1;
  TFont FFont;
  int FEm = 11;
};

TRecordingDevice& Recorder(const TCanvas& Canvas) noexcept {
  return static_cast<TRecordingDevice&>(Canvas.GetDevice());
}

}  // namespace

TRecordingCanvas::TRecordingCanvas(const TRecordingSurface& Surface)
    : TCanvas(std::make_unique<TRecordingDevice>(Surface)) {}

const String& TRecordingCanvas::GetText() const noexcept { return Recorder(*this).Lines; }
void TRecordingCanvas::Clear() noexcept { Recorder(*this).Lines.clear(); }

}  // namespace vx
