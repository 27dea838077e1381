#include "rendering/uRGBSpace.h"

#include "tests/support/Test.h"

namespace {

using TCell = std::array<int, 3>;  // red, green, blue

// The cut as plainly as it can be put: pixels are counted anew for each slab, boxes searched anew for each pixel.
struct TPlainBox {
  TCell Low{0, 0, 0}, High{63, 63, 63};
  int Level = 0;
};
struct TPlainSpace {
  std::vector<TCell> Pixels;
  size_t MaxColor;

  static bool Holds(const TPlainBox& Box, const TCell& Cell) {
    const auto isInside = [&](size_t i) { return Cell[i] >= Box.Low[i] && Cell[i] <= Box.High[i]; };
    return isInside(0) && isInside(1) && isInside(2);
  }
  int Slab(TPlainBox Box, size_t Axis, int Value) const {
    Box.Low[Axis] = Box.High[Axis] = Value;
    return static_cast<int>(std::ranges::count_if(Pixels, [&](const TCell& Cell) { return Holds(Box, Cell); }));
  }
  void Compress(TPlainBox& Box) const {
    for (size_t axis : {1, 0, 2}) {
      while (Box.Low[axis] <= Box.High[axis] && Slab(Box, axis, Box.Low[axis]) == 0) ++Box.Low[axis];
      while (Box.High[axis] > Box.Low[axis] && Slab(Box, axis, Box.High[axis]) == 0) --Box.High[axis];
    }
  }
  std::pair<TPlainBox, TPlainBox> Divide(const TPlainBox& Box) const {
    const int r = Box.High[0] - Box.Low[0], g = Box.High[1] - Box.Low[1], b = Box.High[2] - Box.Low[2];
    size_t axis = 1;
    if (r > g || g < b) axis = r >= b ? 0 : 2;
    int i = Box.Low[axis], j = Box.High[axis], l = Slab(Box, axis, i), h = Slab(Box, axis, j);
    while (i + 1 < j) h >= l ? l += Slab(Box, axis, ++i) : h += Slab(Box, axis, --j);
    TPlainBox low{Box.Low, Box.High, Box.Level + 1}, high = low;
    low.High[axis] = i;
    high.Low[axis] = j;
    for (TPlainBox* half : {&low, &high}) Compress(*half);
    return {low, high};
  }
  std::vector<TPlainBox> Leaves() const {
    TPlainBox root;
    Compress(root);
    auto [first, second] = Divide(root);
    std::vector<TPlainBox> leaves{first, second};
    size_t count = 0;
    do {
      size_t at = leaves.size() - 1;
      const int level = leaves[at].Level;
      while (leaves[at].Level == level) {
        const auto [low, high] = Divide(leaves[at]);
        count = leaves.size() + 1;
        if (count <= MaxColor) {
          leaves.insert(leaves.end(), {low, high});
          leaves.erase(leaves.begin() + static_cast<int>(at));
        }
        if (count >= MaxColor || at == 0) break;
        --at;
      }
    } while (count < MaxColor);
    return leaves;
  }
  TRGB Average(const TPlainBox& Box) const {
    auto channel = [&](size_t i) {
      int sum = 0, count = 0;
      for (const TCell& cell : Pixels)
        if (Holds(Box, cell)) ++count, sum += cell[i];
      return static_cast<uint8_t>(count == 0 ? 3 : std::nearbyint(static_cast<double>(sum) / count) * 4 + 3);
    };
    return {channel(0), channel(1), channel(2), 0};
  }
};

TCell CellOf(TRGB Pixel) { return {Pixel.Red / 4, Pixel.Green / 4, Pixel.Blue / 4}; }

std::vector<TRGB> PixelsOf(const TBitmapX& Picture) {
  std::vector<TRGB> all;
  for (int y = 0; y < Picture.GetHeight(); ++y) {
    for (int x = 0; x < Picture.GetWidth(); ++x) all.push_back(Picture.GetPixels(x, y));
  }
  return all;
}

// The pixels that painting Picture on Target has to give.
std::vector<TRGB> PlainlyReduced(const TBitmapX& Picture, const TBitmapX& Target, int MaxColor, bool UseTransparent) {
  const TRGB transparent = UseTransparent ? Picture.GetPixels(0, Picture.GetHeight() - 1) : TRGB{0, 0, 0, 255};
  const bool isTransparent = transparent.Fourth < 255;
  TPlainSpace space{{}, static_cast<size_t>(MaxColor - (UseTransparent ? 1 : 0))};
  const std::vector<TRGB> pixels = PixelsOf(Picture), under = PixelsOf(Target);
  for (TRGB pixel : pixels)
    if (!isTransparent || !EqualsRGB(pixel, transparent)) space.Pixels.push_back(CellOf(pixel));
  TRGB written = transparent;
  for (uint8_t* channel : {&written.Red, &written.Green, &written.Blue}) *channel -= (*channel + 1) % 4 == 0 ? 1 : 0;
  const std::vector<TPlainBox> leaves = space.Leaves();
  std::vector<TRGB> result;
  for (size_t i = 0; i < pixels.size(); ++i) {
    auto found =
        std::ranges::find_if(leaves, [&](const TPlainBox& Box) { return TPlainSpace::Holds(Box, CellOf(pixels[i])); });
    const bool isLeftOut = isTransparent && EqualsRGB(under[i], transparent);
    result.push_back(isLeftOut ? written : found != leaves.end() ? space.Average(*found) : TRGB{0, 0, 0, 255});
  }
  return result;
}

TBitmap RandomPicture(TPixelFormat Format, std::mt19937& Random) {
  TBitmap bitmap(Format, 1 + static_cast<int>(Random() % 9), 1 + static_cast<int>(Random() % 9));
  const uint32_t spread = Random() % 3 == 0 ? 0xFFFFFFFF : Random() % 2 == 0 ? 0x3F1F0F : 0xC0C0C0;
  for (int y = 0; y < bitmap.GetHeight(); ++y) {
    std::vector<uint32_t> row(static_cast<size_t>(bitmap.GetWidth()));
    for (uint32_t& pixel : row) pixel = static_cast<uint32_t>(Random()) & spread;
    bitmap.SetRow(y, row);
  }
  return bitmap;
}

TEST(RGBSpace, CutsAsThePlainModelDoes) {
  std::mt19937 random(4711);
  for (int i = 0; i < 150; ++i) {
    const TPixelFormat format = std::array{pf24bit, pf32bit, pf15bit, pf8bit}[random() % 4];
    TBitmap source = RandomPicture(format, random), target = source;
    auto picture = TBitmapX::CreateBitmapX(&source);
    const auto maxColor = static_cast<uint16_t>(random() % 40 + 1);
    const bool useTransparent = random() % 2 == 0;
    const auto own = picture->CompressColors(maxColor, useTransparent);
    target.SetPixelFormat(format == pf32bit ? pf32bit : pf24bit);
    std::vector<TRGB> expected = PlainlyReduced(*picture, *TBitmapX::CreateBitmapX(&target), maxColor, useTransparent);
    const auto painted = picture->CompressColors(maxColor, useTransparent, &target);
    if (format != pf32bit) std::ranges::for_each(expected, [](TRGB& Pixel) { Pixel.Fourth = 0; });
    ASSERT_EQ(PixelsOf(*painted), expected) << i << ' ' << format << ' ' << maxColor << ' ' << useTransparent;
    if (format != pf24bit) continue;
    ASSERT_EQ(PixelsOf(*own), expected) << i;
    ASSERT_EQ(PixelsOf(*picture->CompressColors(maxColor, useTransparent, &source)), expected) << i;
  }
}

TBitmap Filled(std::initializer_list<TRGB> Pixels) {
  TBitmap bitmap(pf24bit, static_cast<int>(Pixels.size()), 1);
  TBitmap24(&bitmap).SetRow(0, std::vector<TRGB>(Pixels));
  return bitmap;
}

TEST(RGBSpace, BoxesTellThemselves) {
  TBitmap bitmap = Filled({{250, 0, 0}, {250, 0, 0}, {0, 8, 0}, {0, 80, 0}});
  TBitmap24 picture(&bitmap);
  TRGBSpace space(picture, 4, false);
  TRGBSubSpaceList& leaves = space.iVSpaces;
  EXPECT_EQ((TFacts{space.iLevel, space.GetSpaceCommatext(), TRGBSubSpace().iLevel}), "0 0,0,0,62,20,0,0.0.0 -1");
  EXPECT_EQ((TFacts{space.AreaRedCount(62), space.AreaGreenCount(0), space.AreaBlueEmpty(1)}), "2 2 yes");
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(PixelsOf(*space.Render(nullptr)), (std::vector<TRGB>{{251, 3, 3}, {251, 3, 3}, {3, 11, 3}, {3, 83, 3}}));
    EXPECT_EQ(space.icutColor, bcRed);
    EXPECT_EQ(leaves.GetSpacesCommatext(),
              u"62,0,0,62,0,0,251.3.3\r\n62,0,0,62,0,0,251.3.3\r\n0,2,0,0,2,0,3.11.3\r\n0,20,0,0,20,0,3.83.3");
  }
  for (const auto& [cell, colour, index] :
       TCases<TRGB, TRGB, int>{{{0, 20, 0}, {3, 83, 3, 0}, 3}, {{1, 20, 0}, {0, 0, 0, 255}, 4}}) {
    EXPECT_EQ(leaves.GetAveColor(cell), colour);
    EXPECT_EQ(leaves.ilastIndex, index);
  }
  space.ClearSpaces();
  EXPECT_EQ((TFacts{leaves.GetCount(), space.iSpaces.GetCount(), space.icutColor}), "0 0 0");
}

TEST(RGBSpace, SmallNumbersAndOneColour) {
  TBitmap plain = Filled({{250, 250, 9}, {250, 250, 9}}), empty(pf24bit, 0, 0);
  TBitmap24 picture(&plain), nothing(&empty);
  for (uint16_t maxColor : {0, 1, 2, 3, 256, 65535}) {
    TRGBSpace space(picture, maxColor, false);
    EXPECT_EQ(PixelsOf(*space.Render(nullptr)), std::vector<TRGB>(2, {251, 251, 11})) << maxColor;
    EXPECT_EQ(space.iVSpaces.GetCount(), std::max<int>(maxColor, 2));
    EXPECT_EQ(nothing.CompressColors(maxColor, true)->GetWidth(), 0) << maxColor;
  }
  const TRGBSpace transparent(picture, 256, true);
  EXPECT_EQ((TFacts{transparent.imaxColor, transparent.Transparent()}), "255 yes");
  EXPECT_EQ(PixelsOf(*picture.CompressColors(256, true)), std::vector<TRGB>(2, {250, 250, 9}));
}

}  // namespace
