// Any text as a rich text in any rectangle: its lines hold it in order, less tags, skipped returns, blanks dropped
// where lines wrap and what comes behind an overflow; they are as wide and as high as was promised, nothing is drawn
// outside of the rectangle but what has no place in it, and measuring grows with the text. What is written as RTF for
// others says what the lines hold.
#include <algorithm>

#include "fuzz/support/Input.h"
#include "fuzz/support/Values.h"
#include "platform/Exceptions.h"
#include "platform/TCanvasDevice.h"
#include "platform/Text.h"
#include "rendering/uVxTinyHTML.h"
#include "services/uVxXml.h"

namespace vx::fuzz {

namespace {

// Letters of many widths and without any; counts what is measured and notes the boxes of texts.
class TDevice final : public TCanvasDevice {
 public:
  explicit TDevice(int Overhang) : FOverhang(Overhang) {}
  TDeviceKind Kind() const noexcept override { return dkScreen; }
  TPoint PixelsPerInch() const noexcept override { return {96, 96}; }
  TRect Bounds() const noexcept override { return {-100000, -100000, 100000, 100000}; }
  void SetClip(const TRect* Clip, double) noexcept override { FClip = Clip ? *Clip : Bounds(); }
  void Fill(const TRect&, TColor) override { Check(false, "texts have no ground"); }
  void Frame(const TRect&, const TPen&) override {}
  void Line(TPoint, TPoint, const TPen&) override {}
  void Ellipse(const TRect&, const TColor*, const TPen*) override {}
  void Gradient(const TRect&, const TGradient&, bool) override {}
  void Picture(const TRect&, const TBitmap&, const TRect&, const TColor*) override {}
  void SetFont(const TFont& Font) override { FFont = Font; }
  TFontMetrics Metrics() override {
    const int em = FontPixels(FFont);
    return {em, em / 4, FFont.Style.Has(fsBold) || FFont.Style.Has(fsItalic) ? FOverhang : 0};
  }
  int TextWidth(std::u16string_view Text) override {
    Measured += static_cast<int64_t>(Text.size());
    int64_t width = 0;
    for (char16_t unit : Text) width += int64_t{unit % 7} * FontPixels(FFont) / 8;
    return static_cast<int>(std::min<int64_t>(width, 1 << 27));
  }
  void Text(const TTextRun& Run) override {
    const TFontMetrics metrics = Metrics();
    const TRect box{Run.Origin.X, Run.Origin.Y - metrics.Ascent, Run.Origin.X + TextWidth(Run.Text),
                    Run.Origin.Y + metrics.Descent};
    const TRect shown = IntersectRect(box, FClip);
    if (!shown.IsEmpty()) Boxes.push_back(shown);
  }

  int64_t Measured = 0;
  std::vector<TRect> Boxes;

 private:
  const int FOverhang;
  TFont FFont;
  TRect FClip = Bounds();
};

// A text taken apart: each unit but blanks, with the blanks and the ends of lines in front of it; the last one is the
// end.
struct TPiece {
  char16_t Unit;
  int Blanks, Breaks;
};
class TPieces {
 public:
  void Add(std::u16string_view Text) {
    for (char16_t unit : Text) unit == u' ' ? void(++FBlanks) : End(unit);
  }
  void Break() { ++FBreaks; }
  void End(char16_t Unit) { All.push_back({Unit, std::exchange(FBlanks, 0), std::exchange(FBreaks, 0)}); }

  std::vector<TPiece> All;

 private:
  int FBlanks = 0, FBreaks = 0;
};

// The words of a rich text one after the other, by the rules as they are told.
std::vector<TPiece> PlainWords(const String& Text) {
  TPieces pieces;
  const std::u16string_view text = Text;
  const auto at = [&](size_t pos) { return pos < text.size() ? text[pos] : u'\0'; };
  bool breaks = false;
  for (size_t pos = 0; pos < text.size();) {
    if (at(pos) == u'\r' && at(pos + 1) == u'\n') ++pos;
    if (std::exchange(breaks, false)) {
      pieces.Break();
      continue;
    }
    if (at(pos) == u'\n') {
      pieces.Break();
      ++pos;
      continue;
    }
    size_t first = pos;
    do {
      if (at(pos) == u'<') {
        pieces.Add(XMLDecode(text.substr(first, pos - first)));
        const size_t end = std::min(text.find(u'>', pos), text.size());
        const String tag = LowerCase(String(TrimView(text.substr(pos + 1, end - pos - 1))));
        breaks = tag == u"br" || tag == u"br/" || tag == u"br /";
        first = pos = std::min(end + 1, text.size());
      } else {
        ++pos;
      }
    } while (pos < text.size() && !breaks &&
             (std::u16string_view(u" \t\r\n").find(text[pos]) == text.npos || text[pos - 1] == u' '));
    pieces.Add(XMLDecode(text.substr(first, pos - first)));
  }
  pieces.End(0);
  return pieces.All;
}

void CheckContent(const TDecoLines& Lines, const String& Text) {
  TPieces pieces;
  for (int i = 0; i < Lines.GetCount(); ++i) {
    if (i > 0) pieces.Break();
    for (int c = 0; c < Lines.Get(i)->GetCount(); ++c) pieces.Add(Lines.Get(i)->Get(c)->GetValue());
  }
  pieces.End(0);
  const std::vector<TPiece>& held = pieces.All;
  const std::vector<TPiece> told = PlainWords(Text);
  Check(Lines.Overflow ? held.size() <= told.size() : held.size() == told.size(), "all of the text is there");
  for (size_t i = 0; i < held.size(); ++i) {
    if (Lines.Overflow && i + 1 == held.size()) break;
    Check(held[i].Unit == told[i].Unit, "the text is in its order");
    Check(held[i].Breaks >= told[i].Breaks, "lines are broken where they have to be");
    const bool isWrapped = held[i].Breaks > told[i].Breaks;
    Check(held[i].Blanks == told[i].Blanks || (isWrapped && held[i].Blanks < told[i].Blanks),
          "blanks go at wraps only");
  }
}

// Whether a line may be so wide: what is broken always keeps a character, and a long chunk takes the whole width.
bool MayBeSoWide(const TDecoLine& Line, int Width, int Overhang) {
  if (Line.Width() <= Width) return true;
  const TDecoChunk& last = *Line.Get(Line.GetCount() - 1);
  return Line.Width() - last.Width() < Width && (last.GetValue().size() <= 1 || last.Width() <= Width + Overhang);
}

void CheckRtf(const String& Rtf, const TDecoLines& Lines) {
  String told, held;
  for (int i = 0; i < Lines.GetCount(); ++i) {
    if (i > 0) told += u'\n';
    for (int c = 0; c < Lines.Get(i)->GetCount(); ++c) {
      for (char16_t unit : Lines.Get(i)->Get(c)->GetValue()) told += unit < 32 && unit != u'\t' ? u' ' : unit;
    }
  }
  const std::u16string_view rtf = Rtf;
  for (size_t pos = rtf.find(u"\\pard"); pos + 1 < rtf.size();) {
    const char16_t unit = rtf[pos++];
    Check(unit >= 32 && unit < 127, "plain characters alone");
    if (unit != u'\\') {
      Check(unit != u'{' && unit != u'}', "braces are escaped");
      held += unit;
    } else if (std::u16string_view(u"\\{}").find(rtf[pos]) != rtf.npos) {
      held += rtf[pos++];
    } else if (rtf[pos] == u'u' && (rtf[pos + 1] == u'-' || (rtf[pos + 1] >= u'0' && rtf[pos + 1] <= u'9'))) {
      const size_t end = std::min(rtf.find(u"\\'3f", pos), rtf.size());
      held += static_cast<char16_t>(StrToInt(rtf.substr(pos + 1, end - pos - 1)));
      pos = end + 4;
    } else {
      const size_t end = std::min(rtf.find_first_of(u" \\}", pos), rtf.size());
      const std::u16string_view word = rtf.substr(pos, end - pos);
      if (word == u"par") held += u'\n';
      if (word == u"tab") held += u'\t';
      pos = end + (end < rtf.size() && rtf[end] == u' ' ? 1 : 0);
    }
  }
  Check(held == told, "RTF for others says what the lines hold");
}

// Mostly small; up to 32767.
int Extent(TInput& Input) {
  const int byte = Input.Byte();
  return byte < 192 ? byte - 4 : byte < 240 ? (byte - 190) * 17 : 32767 - (byte - 240) * 801;
}

}  // namespace

FUZZ(Input) {
  const int left = Input.Byte() - 100, top = Input.Byte() - 100, width = Extent(Input), height = Extent(Input);
  const TRect rect{left, top, left + width, top + height};
  const int shape = Input.Byte(), overhang = shape / 3 % 4;
  const Extended scale = (Input.Byte() % 40) / 8.0L;
  const int size = std::max(Extent(Input), -1);
  String text = Input.Text();
  if (shape >= 250) {
    for (int doubled = 0; doubled < 5; ++doubled) text += String(text);
  }

  auto owned = std::make_unique<TDevice>(overhang);
  TDevice& device = *owned;
  TCanvas canvas(std::move(owned));
  TFont font;
  font.Size = size;
  canvas.SetFont(font);
  font = canvas.GetFont();

  const auto lines = ParseTinyHTML(text, canvas, {.Rect = rect, .Scale = scale});
  Check(device.Measured <= 400 * (int64_t{text.size()} + 20), "measuring grows with the text");
  Check(canvas.GetFont() == font, "the font is what it was");
  CheckContent(*lines, text);
  bool isInside = size >= 1;
  int64_t total = 0;
  for (int i = 0; i < lines->GetCount(); ++i) {
    const TDecoLine& line = *lines->Get(i);
    const bool wraps = width > 0 && rect.Right > 0;
    Check(!wraps || MayBeSoWide(line, width, overhang), "lines end at the right side");
    isInside = isInside && line.Width() <= width;
    int ascent = 0;
    for (int c = 0; c < line.GetCount(); ++c) {
      isInside = isInside && line.Get(c)->GetSize() >= 1;
      ascent = std::max(ascent, line.Get(c)->BaseLine());
    }
    // The line of a broken word stands on the base line of the word's largest letters, which may be in another line.
    isInside = isInside && line.GetBaseLine() <= ascent;
    Check(total < std::max(height, 0), "lines begin above the lower side");
    total += line.Height();
    if (!lines->Overflow && line.GetCount() > 0) Check(total <= height, "what fits ends above the lower side");
  }

  const auto alignment = static_cast<TAlignment>(shape % 3);
  canvas.SetFont(font);  // the lines were measured with theirs
  device.Boxes.clear();
  Check(HTML2Canvas(text, canvas, rect, alignment, scale) == !lines->Overflow, "told whether all fitted");
  Check(canvas.GetFont() == font && canvas.GetTextVertical() == tvTop, "the canvas is what it was");
  if (lines->Overflow && lines->GetCount() > 0 && !device.Boxes.empty()) device.Boxes.pop_back();  // the marker's
  for (const TRect& box : device.Boxes) Check(!isInside || IntersectRect(box, rect) == box, "drawn inside");

  const TRect wrapped = HTML2CanvasSize(text, canvas, true, 0, width, scale);
  const TRect free = HTML2CanvasSize(text, canvas, false, shape % 5, width, scale);
  Check(wrapped.Right >= 0 && wrapped.Bottom >= 0 && free.Right >= 0 && free.Bottom >= 0, "a size is none below 0");
  if (!lines->Overflow && (rect.Right > 0 || width <= 0)) Check(wrapped.Bottom == total, "measured as drawn");

  CheckRtf(HTML2RTF(text, canvas, rect, rfEscaped), *ParseTinyHTML(text, canvas, {.Rect = rect}));
  static_cast<void>(HTML2RTF(text, canvas));
  static_cast<void>(HTML2HTML(text, canvas));
  static_cast<void>(HTML2Text(text, u"\n"));
  String plain;
  for (char16_t unit : text) plain += unit > 127 || unit == u'\r' || unit == u'\n' ? u'?' : unit;
  Check(HTML2Text(HTMLEscape(plain, false), u"\n") == plain, "escaped texts come back");
  try {
    static_cast<void>(RTF2HTML(text, canvas));
  } catch (const EConvertError&) {
  }
  Check(canvas.GetFont() == font, "the font is what it was");
}

}  // namespace vx::fuzz
