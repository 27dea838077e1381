#include "platform/BitmapGlyphs.h"

#include <iterator>

namespace vx::glyphs {
namespace {

constexpr TColor kTransparent = clFuchsia;

// What a letter paints.
constexpr struct {
  char Letter;
  TColor Color;
} kColors[] = {{'.', kTransparent}, {'#', 0x6B5138}, {'+', 0xA88A6C}, {'k', 0x5A5A5A},
               {'w', clWhite},      {'g', 0x2E8B2E}, {'b', 0xB06428}};

// The arrow stands low, since a column's head draws it 5 pixels above its top.
constexpr const char* kUp[] = {".........", ".........", ".........", ".........", ".........", ".........",
                               "....#....", "...#+#...", "..#+++#..", ".#######.", ".........", "........."};
constexpr const char* kDown[] = {".........", ".........", ".........", ".........", ".........", ".........",
                                 ".#######.", "..#+++#..", "...#+#...", "....#....", ".........", "........."};
constexpr const char* kMultiSelect[] = {"................", ".kkkkk..........", ".kwwwg..........", ".kwwgk.bbbbbbbb.",
                                        ".kgwgk..........", ".kwgwk..........", ".kkkkk..........", "................",
                                        "................", ".kkkkk..........", ".kwwwg..........", ".kwwgk.bbbbbbbb.",
                                        ".kgwgk..........", ".kwgwk..........", ".kkkkk..........", "................"};

constexpr struct {
  std::u16string_view Name;
  const char* const* Rows;
  int Count;
} kGlyphs[] = {{u"UP", kUp, std::size(kUp)},
               {u"DOWN", kDown, std::size(kDown)},
               {u"MULTI_SELECT", kMultiSelect, std::size(kMultiSelect)}};

TColor ColorOf(char Letter) noexcept {
  for (const auto& color : kColors) {
    if (color.Letter == Letter) return color.Color;
  }
  return kTransparent;
}

}  // namespace

bool Draw(std::u16string_view Name, TBitmap& Glyph) {
  for (const auto& glyph : kGlyphs) {
    if (glyph.Name != Name) continue;
    const std::string_view first = glyph.Rows[0];
    TBitmap bitmap(pf24bit, static_cast<int>(first.size()), glyph.Count);
    for (int y = 0; y < glyph.Count; ++y) {
      uint8_t* row = bitmap.GetScanline(y);
      for (size_t x = 0; x < first.size(); ++x, row += 3) {
        const TColor color = ColorOf(glyph.Rows[y][x]);
        row[0] = static_cast<uint8_t>(color >> 16);
        row[1] = static_cast<uint8_t>(color >> 8);
        row[2] = static_cast<uint8_t>(color);
      }
    }
    bitmap.SetTransparentColor(kTransparent);
    bitmap.SetTransparent(true);
    Glyph = bitmap;
    return true;
  }
  return false;
}

}  // namespace vx::glyphs
