#include <pango/pangocairo.h>

#include "bench/decorations/RichTextPeers.h"
#include "bench/support/Bench.h"

namespace vx::bench {

struct TPangoText::TImpl {
  cairo_surface_t* Surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kTextWidth, kTextHeight);
  cairo_t* Cairo = cairo_create(Surface);
  PangoLayout* Layout = pango_cairo_create_layout(Cairo);
  ~TImpl() {
    g_object_unref(Layout);
    cairo_destroy(Cairo);
    cairo_surface_destroy(Surface);
  }
};

TPangoText::TPangoText() : FImpl(std::make_unique<TImpl>()) {
  PangoFontDescription* font = pango_font_description_from_string("DejaVu Sans Condensed");
  pango_font_description_set_absolute_size(font, kTextPixels * PANGO_SCALE);
  pango_layout_set_font_description(FImpl->Layout, font);
  pango_font_description_free(font);
  pango_layout_set_width(FImpl->Layout, kTextWidth * PANGO_SCALE);
  pango_layout_set_wrap(FImpl->Layout, PANGO_WRAP_WORD_CHAR);
}
TPangoText::~TPangoText() = default;

double TPangoText::Draw(const std::string& Markup, int& Height) {
  return Time([&] {
    cairo_move_to(FImpl->Cairo, 0, 0);
    pango_layout_set_markup(FImpl->Layout, Markup.data(), static_cast<int>(Markup.size()));
    pango_cairo_show_layout(FImpl->Cairo, FImpl->Layout);
    pango_layout_get_pixel_size(FImpl->Layout, nullptr, &Height);
  });
}

}  // namespace vx::bench
