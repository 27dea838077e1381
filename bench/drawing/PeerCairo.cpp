#include <pango/pangocairo.h>

#include "bench/drawing/Peers.h"
#include "bench/support/Bench.h"

namespace vx::bench {

struct TCairoPeer::TImpl {
  cairo_surface_t* Surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kCellWidth, kCellHeight* kRows);
  cairo_t* Cairo = cairo_create(Surface);
  PangoLayout* Layout = pango_cairo_create_layout(Cairo);
  std::vector<std::string> Names;
  std::vector<std::vector<cairo_glyph_t>> Glyphs;  // of each name, at the place (2, 12)
  ~TImpl() {
    g_object_unref(Layout);
    cairo_destroy(Cairo);
    cairo_surface_destroy(Surface);
  }
  void Ground(int Row) {
    cairo_set_source_rgb(Cairo, 1, 1, 1);
    cairo_rectangle(Cairo, 0, Row * kCellHeight, kCellWidth, kCellHeight);
    cairo_fill(Cairo);
    cairo_set_source_rgb(Cairo, 0, 0, 0);
  }
};

TCairoPeer::TCairoPeer(const std::vector<std::string>& Names) : FImpl(std::make_unique<TImpl>()) {
  PangoFontDescription* font = pango_font_description_from_string("DejaVu Sans Condensed");
  pango_font_description_set_absolute_size(font, kFontPixels * PANGO_SCALE);
  pango_layout_set_font_description(FImpl->Layout, font);
  pango_font_description_free(font);
  FImpl->Names = Names;
  cairo_select_font_face(FImpl->Cairo, "DejaVu Sans Condensed", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(FImpl->Cairo, kFontPixels);
  for (const std::string& name : Names) {
    cairo_glyph_t* glyphs = nullptr;
    int count = 0;
    cairo_scaled_font_text_to_glyphs(cairo_get_scaled_font(FImpl->Cairo), 2, 12, name.data(),
                                     static_cast<int>(name.size()), &glyphs, &count, nullptr, nullptr, nullptr);
    FImpl->Glyphs.emplace_back(glyphs, glyphs + count);
    cairo_glyph_free(glyphs);
  }
}
TCairoPeer::~TCairoPeer() = default;

double TCairoPeer::PangoWidth() {
  int sum = 0;
  const double seconds = Time([&] {
    for (const std::string& name : FImpl->Names) {
      int width = 0;
      pango_layout_set_text(FImpl->Layout, name.data(), static_cast<int>(name.size()));
      pango_layout_get_pixel_size(FImpl->Layout, &width, nullptr);
      sum += width;
    }
  });
  Expect(sum > 0, "widths of Pango");
  return seconds;
}

double TCairoPeer::PangoDraw() {
  return Time([&] {
    int row = 0;
    for (const std::string& name : FImpl->Names) {
      FImpl->Ground(row);
      cairo_move_to(FImpl->Cairo, 2, row * kCellHeight + 2);
      pango_layout_set_text(FImpl->Layout, name.data(), static_cast<int>(name.size()));
      pango_cairo_show_layout(FImpl->Cairo, FImpl->Layout);
      row = (row + 1) % kRows;
    }
  });
}

double TCairoPeer::GlyphDraw() {
  return Time([&] {
    int row = 0;
    for (const auto& glyphs : FImpl->Glyphs) {
      FImpl->Ground(row);
      cairo_save(FImpl->Cairo);
      cairo_translate(FImpl->Cairo, 0, row * kCellHeight);
      cairo_show_glyphs(FImpl->Cairo, glyphs.data(), static_cast<int>(glyphs.size()));
      cairo_restore(FImpl->Cairo);
      row = (row + 1) % kRows;
    }
  });
}

double TCairoPeer::Fill() {
  return Time([&] {
    for (size_t i = 0; i < FImpl->Names.size(); ++i) {
      cairo_set_source_rgb(FImpl->Cairo, 1, 1, i % 2 ? 1 : 0.5);
      cairo_rectangle(FImpl->Cairo, 0, static_cast<int>(i % kRows) * kCellHeight, kCellWidth, kCellHeight);
      cairo_fill(FImpl->Cairo);
    }
  });
}

}  // namespace vx::bench
