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

void SetPen(cairo_t* Cairo, const TPen& Pen) {
  SetColor(Cairo, Pen.Color);
  cairo_set_line_width(Cairo, Pen.Width);
  cairo_set_line_cap(Cairo, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(Cairo, CAIRO_LINE_JOIN_MITER);
  const double on = (Pen.Style == psDash ? 18.0 : 3.0) * Pen.Width;
  const double dashes[] = {on, (Pen.Style == psDash ? 6.0 : 3.0) * Pen.Width};
  cairo_set_dash(Cairo, dashes, Pen.Style == psSolid ? 0 : 2, 0);
}

void AddRect(cairo_t* Cairo, const TRect& Rect) {
  cairo_rectangle(Cairo, Rect.Left, Rect.Top, Rect.Width(), Rect.Height());
}

// The ellipse that touches the sides of Rect, drawn in by Inset.
void AddEllipse(cairo_t* Cairo, const TRect& Rect, double Inset) {
  const double across = std::max(Rect.Width() / 2.0 - Inset, 0.01);
  const double down = std::max(Rect.Height() / 2.0 - Inset, 0.01);
  cairo_matrix_t before;
  cairo_get_matrix(Cairo, &before);
  cairo_translate(Cairo, Rect.Left + Rect.Width() / 2.0, Rect.Top + Rect.Height() / 2.0);
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
  SetPen(Cairo, Pen);
  const double half = Pen.Width / 2.0;
  cairo_rectangle(Cairo, Rect.Left + half, Rect.Top + half, Rect.Width() - Pen.Width, Rect.Height() - Pen.Width);
  cairo_stroke(Cairo);
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
  SetPen(Cairo, Pen);
  // Through the middles of the pixels; along an axis from the edge of the first to that of the last.
  const auto edge = [](int from, int to) { return from == to ? 0.5 : from < to ? 0.0 : 1.0; };
  const bool along = From.X == To.X || From.Y == To.Y;
  const double x = along ? edge(From.X, To.X) : 0.5, y = along ? edge(From.Y, To.Y) : 0.5;
  cairo_move_to(Cairo, From.X + x, From.Y + y);
  cairo_line_to(Cairo, To.X + x, To.Y + y);
  cairo_stroke(Cairo);
}

void PaintEllipse(cairo_t* Cairo, const TRect& Rect, const TColor* Brush, const TPen* Pen) {
  if (Brush) {
    SetColor(Cairo, *Brush);
    AddEllipse(Cairo, Rect, Pen ? Pen->Width / 2.0 : 0);
    cairo_fill(Cairo);
  }
  if (Pen) {
    SetPen(Cairo, *Pen);
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
