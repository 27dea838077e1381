#include "platform/cairo/Shaping.h"

#include <algorithm>
#include <array>
#include <string>

namespace vx::drawing {

namespace {

using TLayout = THandle<PangoLayout, g_object_unref>;
using TContext = THandle<PangoContext, g_object_unref>;

struct TShaped {
  uint64_t Face = 0;
  String Text;
  TLayout Layout;
  int Width = 0;
};

// What this thread shaped last; a text has one place, which it takes from the one before.
struct TShapedTexts {
  TContext Context;
  std::array<TShaped, 256> Short;
  std::array<TShaped, 8> Long;
  TShaped& Place(size_t Hash, bool IsLong) noexcept {
    return IsLong ? Long[Hash % Long.size()] : Short[Hash % Short.size()];
  }
};

TShapedTexts& Held() {
  thread_local TShapedTexts texts;
  return texts;
}
TShapedTexts& Texts() {
  TShapedTexts& texts = Held();
  if (!texts.Context) {
    texts.Context.reset(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    pango_cairo_context_set_font_options(texts.Context.get(), PixelFontOptions().get());
  }
  return texts;
}

const TShaped& Shape(const TFace& Face, std::u16string_view Text) {
  TShapedTexts& texts = Texts();
  const size_t hash = std::hash<std::u16string_view>()(Text) ^ (Face.Id() * 0x9E3779B97F4A7C15u >> 40);
  TShaped& place = texts.Place(hash, Text.size() > 256);
  if (place.Face == Face.Id() && place.Text == Text) return place;
  place.Face = 0;  // of no face until all of it is set
  if (!place.Layout) {
    place.Layout.reset(pango_layout_new(texts.Context.get()));
    pango_layout_set_single_paragraph_mode(place.Layout.get(), TRUE);
  }
  PangoLayout* layout = place.Layout.get();
  pango_layout_set_font_description(layout, Face.PangoFont());
  const std::string utf8 = WithoutControls(Text).ToUtf8();
  pango_layout_set_text(layout, utf8.data(), static_cast<int>(utf8.size()));
  PangoRectangle logical;
  pango_layout_line_get_extents(pango_layout_get_line_readonly(layout, 0), nullptr, &logical);
  place.Text = Text;
  place.Width = std::max(PANGO_PIXELS_CEIL(logical.width), 0);
  place.Face = Face.Id();
  return place;
}

// Shaped in one go is what keeps the figures of Pango, units of 1/1024 pixel, well inside 32 bits.
size_t MostUnits(const TFace& Face) noexcept { return static_cast<size_t>(std::clamp(500000 / Face.Em(), 64, 4096)); }

void ForEachPart(const TFace& Face, std::u16string_view Text, FunctionRef<void(std::u16string_view)> Take) {
  const size_t most = MostUnits(Face);
  while (Text.size() > most) {
    size_t end = Text.rfind(u' ', most);
    if (end == Text.npos || end == 0) end = most;
    if (Text[end] >= 0xDC00 && Text[end] <= 0xDFFF) --end;
    Take(Text.substr(0, end));
    Text.remove_prefix(end);
  }
  Take(Text);
}

}  // namespace

String WithoutControls(std::u16string_view Text) {
  return String::Build(Text.size(), [Text](char16_t* units) {
    std::replace_copy_if(
        Text.begin(), Text.end(), units, [](char16_t unit) { return unit < u' '; }, u' ');
  });
}

void FreeShapedTexts() noexcept { Held() = {}; }

int ShapedWidth(const TFace& Face, std::u16string_view Text) {
  int64_t width = 0;
  ForEachPart(Face, Text, [&](std::u16string_view part) { width += Shape(Face, part).Width; });
  return static_cast<int>(std::min<int64_t>(width, 1 << 27));
}

void ForEachShapedLine(const TFace& Face, std::u16string_view Text, FunctionRef<void(PangoLayoutLine*, int)> Show) {
  int64_t at = 0;
  ForEachPart(Face, Text, [&](std::u16string_view part) {
    const TShaped& shaped = Shape(Face, part);
    if (at < 1 << 27) Show(pango_layout_get_line_readonly(shaped.Layout.get(), 0), static_cast<int>(at));
    at += shaped.Width;
  });
}

}  // namespace vx::drawing
