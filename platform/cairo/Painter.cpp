#include "platform/cairo/Painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/TBitmap.h"
#include "platform/cairo/Shaping.h"

namespace vx::drawing {

namespace {

void SetColor(cairo_t* Cairo, TColor Color) {
  const TColor rgb = ColorToRGB(Color);
  cairo_set_source_rgb(Cairo, (rgb & 255) / 255.0, (rgb >> 8 & 255) / 255.0, (rgb >> 16 & 255) / 255.0);
}

// The dashes begin so many pixels before the line.
void SetPen(cairo_t* Cairo, const TPen& Pen, double Before = 0) {
  const double width = std::min(Pen.Width, 1 << 20);
  SetColor(Cairo, Pen.Color);
  cairo_set_line_width(Cairo, width);
  cairo_set_line_cap(Cairo, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(Cairo, CAIRO_LINE_JOIN_MITER);
  const double dashes[] = {(Pen.Style == psDash ? 18 : 3) * width, (Pen.Style == psDash ? 6 : 3) * width};
  cairo_set_dash(Cairo, dashes, Pen.Style == psSolid ? 0 : 2, std::fmod(Before, dashes[0] + dashes[1]));
}

// What Cairo's figures can be trusted with, in pixels.
constexpr int kFar = 1 << 20;

struct TBox {
  double Left, Top, Right, Bottom;
};
// The part that can be seen, Around larger on each side.
TBox VisibleBox(cairo_t* Cairo, double Around) {
  TBox box{};
  cairo_clip_extents(Cairo, &box.Left, &box.Top, &box.Right, &box.Bottom);
  return {box.Left - Around, box.Top - Around, box.Right + Around, box.Bottom + Around};
}

// What can be seen of Rect; lines around the clip are not met.
void AddRect(cairo_t* Cairo, const TRect& Rect) {
  const TBox box = VisibleBox(Cairo, 2);
  const double left = std::max<double>(Rect.Left, box.Left), top = std::max<double>(Rect.Top, box.Top);
  const double right = std::min<double>(Rect.Right, box.Right), bottom = std::min<double>(Rect.Bottom, box.Bottom);
  if (left < right && top < bottom) cairo_rectangle(Cairo, left, top, right - left, bottom - top);
}

// Strokes what can be seen of a line; its dashes stay where those of the whole line are.
void StrokeLine(cairo_t* Cairo, double X1, double Y1, double X2, double Y2, const TPen& Pen) {
  const TBox box = VisibleBox(Cairo, std::min(Pen.Width, kFar) + 2.0);
  const double across = X2 - X1, down = Y2 - Y1;
  double first = 0, last = 1;
  const auto cut = [&](double from, double by, double low, double high) {
    if (by == 0) {
      if (from < low || from > high) last = -1;
      return;
    }
    const double one = (low - from) / by, other = (high - from) / by;
    first = std::max(first, std::min(one, other));
    last = std::min(last, std::max(one, other));
  };
  cut(X1, across, box.Left, box.Right);
  cut(Y1, down, box.Top, box.Bottom);
  if (first >= last) return;
  SetPen(Cairo, Pen, first * std::hypot(across, down));
  cairo_move_to(Cairo, X1 + first * across, Y1 + first * down);
  cairo_line_to(Cairo, X1 + last * across, Y1 + last * down);
  cairo_stroke(Cairo);
}

// The ellipse that touches the sides of Rect, drawn in by Inset. Sides far off come nearer.
void AddEllipse(cairo_t* Cairo, const TRect& Rect, double Inset) {
  const auto held = [](int side) { return std::clamp(side, -kFar, kFar); };
  const TRect near{held(Rect.Left), held(Rect.Top), held(Rect.Right), held(Rect.Bottom)};
  const double across = std::max(near.Width() / 2.0 - Inset, 0.01);
  const double down = std::max(near.Height() / 2.0 - Inset, 0.01);
  cairo_matrix_t before;
  cairo_get_matrix(Cairo, &before);
  cairo_translate(Cairo, near.Left + near.Width() / 2.0, near.Top + near.Height() / 2.0);
  cairo_scale(Cairo, across, down);
  cairo_new_sub_path(Cairo);
  cairo_arc(Cairo, 0, 0, 1, 0, 2 * std::numbers::pi);
  cairo_close_path(Cairo);
  cairo_set_matrix(Cairo, &before);
}

TCairoPattern GradientPattern(const TRect& Rect, const TGradient& Gradient) {
  const bool down = Gradient.Direction == gdVertical;
  TCairoPattern pattern(down ? cairo_pattern_create_linear(0, Rect.Top, 0, Rect.Bottom)
                             : cairo_pattern_create_linear(Rect.Left, 0, Rect.Right, 0));
  const int steps = Gradient.Bell ? 32 : 1;
  const TColor from = ColorToRGB(Gradient.From), to = ColorToRGB(Gradient.To);
  for (int step = 0; step <= steps; ++step) {
    const double place = static_cast<double>(step) / steps;
    const TColor color = MixColors(from, to, GradientShare(Gradient, place));
    cairo_pattern_add_color_stop_rgb(pattern.get(), place, (color & 255) / 255.0, (color >> 8 & 255) / 255.0,
                                     (color >> 16 & 255) / 255.0);
  }
  return pattern;
}

uint32_t Premultiplied(uint32_t Pixel) noexcept {
  const uint32_t alpha = Pixel >> 24;
  if (alpha == 255) return Pixel;
  const auto times = [alpha](uint32_t channel) { return (channel * alpha + 127) / 255; };
  return alpha << 24 | times(Pixel >> 16 & 255) << 16 | times(Pixel >> 8 & 255) << 8 | times(Pixel & 255);
}

void ShowSimple(cairo_t* Cairo, TFace& Face, std::u16string_view Text, bool AsText) {
  std::vector<cairo_glyph_t> glyphs;
  glyphs.reserve(Text.size());
  std::string utf8;
  std::vector<cairo_text_cluster_t> clusters;
  int64_t x = 0;
  for (char16_t unit : Text) {
    const int advance = Face.Advance(unit);
    glyphs.push_back({Face.Glyph(unit).Index, static_cast<double>(x), 0});
    x += advance;
    if (!AsText) continue;
    const char16_t shown = unit < u' ' ? u' ' : unit;
    const size_t before = utf8.size();
    AppendUtf8(utf8, {&shown, 1});
    clusters.push_back({static_cast<int>(utf8.size() - before), 1});
  }
  cairo_set_font_face(Cairo, Face.CairoFace());
  cairo_set_font_size(Cairo, Face.Em());
  cairo_set_font_options(Cairo, PixelFontOptions().get());
  const int count = static_cast<int>(glyphs.size());
  if (AsText) {
    cairo_show_text_glyphs(Cairo, utf8.data(), static_cast<int>(utf8.size()), glyphs.data(), count, clusters.data(),
                           count, cairo_text_cluster_flags_t{});
  } else {
    cairo_show_glyphs(Cairo, glyphs.data(), count);
  }
}

}  // namespace

double GradientShare(const TGradient& Gradient, double Place) noexcept {
  return Gradient.Bell ? (1 - std::cos(2 * std::numbers::pi * Place)) / 2 : Place;
}

TColor MixColors(TColor From, TColor To, double Share) noexcept {
  TColor result = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    const double from = From >> shift & 255, to = To >> shift & 255;
    result |= static_cast<TColor>(std::lround(from + (to - from) * Share)) << shift;
  }
  return result;
}

int FaceTextWidth(TFace& Face, std::u16string_view Text) {
  const int width = Face.SimpleWidth(Text);
  return width >= 0 ? width : ShapedWidth(Face, Text);
}

void PaintFill(cairo_t* Cairo, const TRect& Rect, TColor Color) {
  SetColor(Cairo, Color);
  AddRect(Cairo, Rect);
  cairo_fill(Cairo);
}

void PaintFrame(cairo_t* Cairo, const TRect& Rect, const TPen& Pen) {
  if (Pen.Width * int64_t{2} >= std::min(Rect.Width(), Rect.Height())) {
    PaintFill(Cairo, Rect, Pen.Color);
    return;
  }
  if (Pen.Style == psSolid) {
    const int width = Pen.Width;
    PaintFill(Cairo, {Rect.Left, Rect.Top, Rect.Right, Rect.Top + width}, Pen.Color);
    PaintFill(Cairo, {Rect.Left, Rect.Bottom - width, Rect.Right, Rect.Bottom}, Pen.Color);
    PaintFill(Cairo, {Rect.Left, Rect.Top + width, Rect.Left + width, Rect.Bottom - width}, Pen.Color);
    PaintFill(Cairo, {Rect.Right - width, Rect.Top + width, Rect.Right, Rect.Bottom - width}, Pen.Color);
    return;
  }
  const double half = Pen.Width / 2.0, left = Rect.Left, top = Rect.Top, right = Rect.Right, bottom = Rect.Bottom;
  StrokeLine(Cairo, left, top + half, right, top + half, Pen);
  StrokeLine(Cairo, right - half, top, right - half, bottom, Pen);
  StrokeLine(Cairo, right, bottom - half, left, bottom - half, Pen);
  StrokeLine(Cairo, left + half, bottom, left + half, top, Pen);
}

TRect StraightLine(TPoint From, TPoint To, const TPen& Pen) noexcept {
  const int before = (Pen.Width - 1) / 2;
  if (Pen.Style != psSolid || (From.X != To.X && From.Y != To.Y)) return {};
  if (From.Y == To.Y) {
    const int left = From.X < To.X ? From.X : To.X + 1;
    return {left, From.Y - before, left + std::abs(To.X - From.X), From.Y - before + Pen.Width};
  }
  const int top = From.Y < To.Y ? From.Y : To.Y + 1;
  return {From.X - before, top, From.X - before + Pen.Width, top + std::abs(To.Y - From.Y)};
}

void PaintLine(cairo_t* Cairo, TPoint From, TPoint To, const TPen& Pen) {
  const TRect straight = StraightLine(From, To, Pen);
  if (!straight.IsEmpty()) {
    PaintFill(Cairo, straight, Pen.Color);
    return;
  }
  // Through the middles of the pixels; along an axis from the edge of the first to that of the last.
  const auto edge = [](int from, int to) { return from == to ? 0.5 : from < to ? 0.0 : 1.0; };
  const bool along = From.X == To.X || From.Y == To.Y;
  const double x = along ? edge(From.X, To.X) : 0.5, y = along ? edge(From.Y, To.Y) : 0.5;
  StrokeLine(Cairo, From.X + x, From.Y + y, To.X + x, To.Y + y, Pen);
}

void PaintEllipse(cairo_t* Cairo, const TRect& Rect, const TColor* Brush, const TPen* Pen) {
  if (Brush) {
    SetColor(Cairo, *Brush);
    AddEllipse(Cairo, Rect, Pen ? Pen->Width / 2.0 : 0);
    cairo_fill(Cairo);
  }
  if (Pen) {
    // Nobody counts the dashes of a line that long.
    const bool endless = Rect.Width() > kFar / 16 || Rect.Height() > kFar / 16;
    SetPen(Cairo, {Pen->Color, Pen->Width, endless ? psSolid : Pen->Style});
    AddEllipse(Cairo, Rect, Pen->Width / 2.0);
    cairo_stroke(Cairo);
  }
}

void PaintGradient(cairo_t* Cairo, const TRect& Rect, const TGradient& Gradient, bool InEllipse) {
  const TCairoPattern pattern = GradientPattern(Rect, Gradient);
  cairo_set_source(Cairo, pattern.get());
  if (InEllipse) {
    AddEllipse(Cairo, Rect, 0);
  } else {
    AddRect(Cairo, Rect);
  }
  cairo_fill(Cairo);
}

TPictureRows::TPictureRows(const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent)
    : FBitmap(Bitmap),
      FSource(Source),
      FKeyed(Transparent || Bitmap.GetTransparent()),
      FOpaque(!FKeyed && Bitmap.GetAlphaFormat() == afIgnored),
      FRow(static_cast<size_t>(Source.Right)) {
  if (!FKeyed) return;
  const TColor rgb = ColorToRGB(Transparent ? *Transparent : Bitmap.GetTransparentColor());
  FKey = (rgb & 0xFF) << 16 | (rgb & 0xFF00) | (rgb >> 16 & 0xFF);
}

TPictureRows::TPictureRows(const TBitmap& Bitmap)
    : FBitmap(Bitmap),
      FSource{0, 0, Bitmap.GetWidth(), Bitmap.GetHeight()},
      FOpaque(Bitmap.GetAlphaFormat() == afIgnored),
      FRow(static_cast<size_t>(Bitmap.GetWidth())) {}

const uint32_t* TPictureRows::Row(int Row) {
  FBitmap.GetRow(FSource.Top + Row, FRow);
  uint32_t* first = FRow.data() + FSource.Left;
  uint32_t* last = FRow.data() + FSource.Right;
  if (FBitmap.GetAlphaFormat() == afPremultiplied) {
    std::transform(first, last, first, [](uint32_t pixel) {
      const uint32_t alpha = pixel >> 24;
      if (alpha == 0) return uint32_t{0};
      const auto part = [alpha](uint32_t channel) { return std::min((channel * 255 + alpha / 2) / alpha, 255U); };
      return alpha << 24 | part(pixel >> 16 & 255) << 16 | part(pixel >> 8 & 255) << 8 | part(pixel & 255);
    });
  }
  if (FKeyed) {
    std::replace_if(
        first, last, [this](uint32_t pixel) { return (pixel & 0xFFFFFF) == FKey; }, uint32_t{0});
  }
  return first;
}

TSurface PictureSurface(const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) {
  TPictureRows rows(Bitmap, Source, Transparent);
  TSurface surface(cairo_image_surface_create(rows.IsOpaque() ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
                                              Source.Width(), Source.Height()));
  CheckStatus(cairo_surface_status(surface.get()));
  unsigned char* bytes = cairo_image_surface_get_data(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  for (int y = 0; y < Source.Height(); ++y) {
    const uint32_t* row = rows.Row(y);
    std::transform(row, row + Source.Width(), reinterpret_cast<uint32_t*>(bytes + static_cast<ptrdiff_t>(y) * stride),
                   Premultiplied);
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

void PaintPicture(cairo_t* Cairo, const TRect& Rect, const TBitmap& Bitmap, const TRect& Source,
                  const TColor* Transparent) {
  const TSurface surface = PictureSurface(Bitmap, Source, Transparent);
  cairo_save(Cairo);
  AddRect(Cairo, Rect);
  cairo_clip(Cairo);
  cairo_translate(Cairo, Rect.Left, Rect.Top);
  cairo_scale(Cairo, static_cast<double>(Rect.Width()) / Source.Width(),
              static_cast<double>(Rect.Height()) / Source.Height());
  cairo_set_source_surface(Cairo, surface.get(), 0, 0);
  cairo_pattern_set_extend(cairo_get_source(Cairo), CAIRO_EXTEND_PAD);
  const bool natural = Rect.Width() == Source.Width() && Rect.Height() == Source.Height();
  cairo_pattern_set_filter(cairo_get_source(Cairo), natural ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
  cairo_paint(Cairo);
  cairo_restore(Cairo);
}

std::vector<TRect> TextLines(const TFace& Face, TFontStyles Style, const TTextRun& Run, int Width) {
  const int thick = std::max(Face.Em() / 14, 1);
  std::vector<TRect> result;
  const auto add = [&](int top) {
    const TPoint at = Run.Origin;
    result.push_back(Run.Upward ? TRect{at.X + top, at.Y - Width, at.X + top + thick, at.Y}
                                : TRect{at.X, at.Y + top, at.X + Width, at.Y + top + thick});
  };
  if (Style.Has(fsUnderline)) add(std::max(Face.Em() / 10, 1));
  if (Style.Has(fsStrikeOut)) add(-Face.Metrics().Ascent / 3);
  return result;
}

void PaintText(cairo_t* Cairo, TFace& Face, TFontStyles Style, const TTextRun& Run, bool AsText) {
  SetColor(Cairo, Run.Color);
  cairo_save(Cairo);
  cairo_translate(Cairo, Run.Origin.X, Run.Origin.Y);
  if (Run.Upward) cairo_rotate(Cairo, -std::numbers::pi / 2);
  if (Face.IsSimple(Run.Text)) {
    ShowSimple(Cairo, Face, Run.Text, AsText);
  } else {
    ForEachShapedLine(Face, Run.Text, [&](PangoLayoutLine* line, int at) {
      cairo_move_to(Cairo, at, 0);
      pango_cairo_show_layout_line(Cairo, line);
    });
  }
  cairo_restore(Cairo);
  if (Style * TFontStyles{fsUnderline, fsStrikeOut} == TFontStyles{}) return;
  for (const TRect& line : TextLines(Face, Style, Run, FaceTextWidth(Face, Run.Text)))
    PaintFill(Cairo, line, Run.Color);
}

}  // namespace vx::drawing
