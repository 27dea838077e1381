#include "platform/cairo/SvgDevice.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "platform/cairo/Painter.h"
#include "platform/cairo/Shaping.h"
#include "platform/cairo/SvgText.h"

namespace vx::drawing {

namespace {

// With a point whatever the settings say.
std::string Number(double Value) {
  const auto thousandths = static_cast<int64_t>(std::llround(Value * 1000));
  const auto whole = std::abs(thousandths) / 1000, rest = std::abs(thousandths) % 1000;
  std::array<char, 8> digits{};
  std::snprintf(digits.data(), digits.size(), ".%03d", static_cast<int>(rest));
  std::string result = (thousandths < 0 ? "-" : "") + std::to_string(whole);
  if (rest != 0) result += digits.data();
  return result;
}

std::string Attribute(std::string_view Name, double Value) {
  return " " + std::string(Name) + "=\"" + Number(Value) + "\"";
}

std::string Hex(TColor Color) {
  const TColor rgb = ColorToRGB(Color);
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02X%02X%02X", rgb & 255, rgb >> 8 & 255, rgb >> 16 & 255);
  return text.data();
}

std::string Extent(const TRect& Rect) {
  return Attribute("x", Rect.Left) + Attribute("y", Rect.Top) + Attribute("width", Rect.Width()) +
         Attribute("height", Rect.Height());
}

std::string EllipseStart(const TRect& Rect, double Inset) {
  return "<ellipse" + Attribute("cx", Rect.Left + Rect.Width() / 2.0) +
         Attribute("cy", Rect.Top + Rect.Height() / 2.0) + Attribute("rx", std::max(Rect.Width() / 2.0 - Inset, 0.0)) +
         Attribute("ry", std::max(Rect.Height() / 2.0 - Inset, 0.0));
}

std::string Stroke(const TPen& Pen) {
  std::string result = " stroke=\"" + Hex(Pen.Color) + "\"" + Attribute("stroke-width", Pen.Width);
  if (Pen.Style == psSolid) return result;
  const bool dash = Pen.Style == psDash;
  return result + " stroke-dasharray=\"" + Number((dash ? 18.0 : 3.0) * Pen.Width) + " " +
         Number((dash ? 6.0 : 3.0) * Pen.Width) + "\"";
}

cairo_status_t Append(void* Bytes, const unsigned char* Data, unsigned int Length) noexcept {
  try {
    static_cast<std::string*>(Bytes)->append(reinterpret_cast<const char*>(Data), Length);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::exception&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

}  // namespace

// --- texts and bytes

std::string EscapedXml(std::string_view Utf8) {
  std::string result;
  for (size_t i = 0; i < Utf8.size(); ++i) {
    const char byte = Utf8[i];
    if (byte == '&') {
      result += "&amp;";
    } else if (byte == '<') {
      result += "&lt;";
    } else if (byte == '>') {
      result += "&gt;";
    } else if (byte == '"') {
      result += "&quot;";
    } else if (byte == '\'') {
      result += "&#39;";
    } else if (Utf8.substr(i, 3) == "\xEF\xBF\xBE" || Utf8.substr(i, 3) == "\xEF\xBF\xBF") {
      result += "\xEF\xBF\xBD";
      i += 2;
    } else {
      result += byte;
    }
  }
  return result;
}

std::string Base64(std::string_view Bytes) {
  constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string result;
  result.reserve((Bytes.size() + 2) / 3 * 4);
  for (size_t i = 0; i < Bytes.size(); i += 3) {
    const size_t count = std::min<size_t>(Bytes.size() - i, 3);
    uint32_t group = 0;
    for (size_t k = 0; k < 3; ++k) group = group << 8 | (k < count ? static_cast<unsigned char>(Bytes[i + k]) : 0U);
    for (size_t k = 0; k < 4; ++k) result += k <= count ? digits[group >> (18 - 6 * k) & 63] : '=';
  }
  return result;
}

// --- the file

std::string TSvgDevice::File() const {
  std::string result = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
                       Attribute("width", FSize.X) + Attribute("height", FSize.Y) + " viewBox=\"0 0 " +
                       Number(FSize.X) + " " + Number(FSize.Y) + "\">\n";
  const std::string fonts = FFonts.Rules();
  if (!fonts.empty()) result += "<style>\n" + fonts + "</style>\n";
  if (!FDefinitions.empty()) result += "<defs>\n" + FDefinitions + "</defs>\n";
  return result + FBody + (FGroup.empty() ? "" : "</g>\n") + "</svg>\n";
}

int TSvgDevice::Define(const std::string& Start, const std::string& Rest) {
  const auto [found, added] = FDefined.emplace(Start + Rest, static_cast<int>(FDefined.size()) + 1);
  if (added) FDefinitions += Start + " id=\"d" + std::to_string(found->second) + "\"" + Rest + "\n";
  return found->second;
}

std::string TSvgDevice::GroupStart() {
  std::string result;
  if (FScale != 1) result += " transform=\"scale(" + Number(FScale) + ")\"";
  if (FClipped) {
    result +=
        " clip-path=\"url(#d" + std::to_string(Define("<clipPath", "><rect" + Extent(FClip) + "/></clipPath>")) + ")\"";
  }
  return result.empty() ? result : "<g" + result + ">\n";
}

void TSvgDevice::Add(const std::string& Element) {
  if (FFinished) RaiseClosed();
  const std::string group = GroupStart();
  if (group != FGroup) {
    if (!FGroup.empty()) FBody += "</g>\n";
    FBody += group;
    FGroup = group;
  }
  FBody += Element + "\n";
}

TRect TSvgDevice::Bounds() const noexcept {
  return {0, 0, static_cast<int>(std::ceil(FSize.X / FScale)), static_cast<int>(std::ceil(FSize.Y / FScale))};
}

void TSvgDevice::SetClip(const TRect* Clip, double Scale) noexcept {
  FScale = Scale;
  FClipped = Clip != nullptr;
  if (Clip) FClip = *Clip;
}

// --- elements

void TSvgDevice::Fill(const TRect& Rect, TColor Color) {
  Add("<rect" + Extent(Rect) + " fill=\"" + Hex(Color) + "\"/>");
}

void TSvgDevice::Frame(const TRect& Rect, const TPen& Pen) {
  if (Pen.Width * int64_t{2} >= std::min(Rect.Width(), Rect.Height())) {
    Fill(Rect, Pen.Color);
    return;
  }
  const double half = Pen.Width / 2.0;
  Add("<rect" + Attribute("x", Rect.Left + half) + Attribute("y", Rect.Top + half) +
      Attribute("width", Rect.Width() - Pen.Width) + Attribute("height", Rect.Height() - Pen.Width) + " fill=\"none\"" +
      Stroke(Pen) + "/>");
}

void TSvgDevice::Line(TPoint From, TPoint To, const TPen& Pen) {
  const TRect straight = StraightLine(From, To, Pen);
  if (!straight.IsEmpty()) {
    Fill(straight, Pen.Color);
    return;
  }
  Add("<line" + Attribute("x1", From.X + 0.5) + Attribute("y1", From.Y + 0.5) + Attribute("x2", To.X + 0.5) +
      Attribute("y2", To.Y + 0.5) + Stroke(Pen) + "/>");
}

void TSvgDevice::Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) {
  Add(EllipseStart(Rect, Pen ? Pen->Width / 2.0 : 0) + " fill=\"" + (Brush ? Hex(*Brush) : "none") + "\"" +
      (Pen ? Stroke(*Pen) : "") + "/>");
}

void TSvgDevice::Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) {
  const bool down = Gradient.Direction == gdVertical;
  const TColor from = ColorToRGB(Gradient.From), to = ColorToRGB(Gradient.To);
  std::string stops = down ? " x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">" : " x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">";
  const int steps = Gradient.Bell ? 32 : 1;
  for (int step = 0; step <= steps; ++step) {
    const double place = static_cast<double>(step) / steps;
    stops += "<stop" + Attribute("offset", place) + " stop-color=\"" +
             Hex(MixColors(from, to, GradientShare(Gradient, place))) + "\"/>";
  }
  const int number = Define("<linearGradient", stops + "</linearGradient>");
  Add((InEllipse ? EllipseStart(Rect, 0) : "<rect" + Extent(Rect)) + " fill=\"url(#d" + std::to_string(number) +
      ")\"/>");
}

void TSvgDevice::Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) {
  std::string png;
  CheckStatus(cairo_surface_write_to_png_stream(PictureSurface(Bitmap, Source, Transparent).get(), Append, &png));
  Add("<image" + Extent(Rect) + " preserveAspectRatio=\"none\" href=\"data:image/png;base64," + Base64(png) + "\"/>");
}

// --- texts

void TSvgDevice::Text(const TTextRun& Run) {
  const bool simple = FFace->IsSimple(Run.Text);
  const int width = TextWidth(Run.Text);
  const String shown = WithoutControls(Run.Text);
  std::string line = "<text xml:space=\"preserve\"";
  if (simple) {
    // Each letter stands where it was measured.
    line += " x=\"";
    int64_t at = Run.Origin.X;
    for (char16_t unit : shown) {
      line += Number(static_cast<double>(at)) + " ";
      at += FFace->Advance(unit);
    }
    line.back() = '"';
  } else {
    bool rightToLeft = false;
    ForEachShapedLine(*FFace, Run.Text, [&](PangoLayoutLine* part, int at) {
      if (at == 0) rightToLeft = part->resolved_dir == PANGO_DIRECTION_RTL;
    });
    line += Attribute("x", rightToLeft ? Run.Origin.X + width : Run.Origin.X) + Attribute("textLength", width);
    line += " lengthAdjust=\"spacingAndGlyphs\"";
    if (rightToLeft) line += " direction=\"rtl\"";
  }
  line += Attribute("y", Run.Origin.Y) + " fill=\"" + Hex(Run.Color) + "\" font-family=\"" +
          FFonts.Use(*FFace, Run.Text) + "\"" + Attribute("font-size", FFace->Em());
  if (FStyle.Has(fsBold)) line += " font-weight=\"bold\"";
  if (FStyle.Has(fsItalic)) line += " font-style=\"italic\"";
  if (Run.Upward) line += " transform=\"rotate(-90 " + Number(Run.Origin.X) + " " + Number(Run.Origin.Y) + ")\"";
  Add(line + ">" + EscapedXml(shown.ToUtf8()) + "</text>");
  for (const TRect& below : TextLines(*FFace, FStyle, Run, width)) Fill(below, Run.Color);
}

}  // namespace vx::drawing
