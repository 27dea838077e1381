#include "platform/TBitmap.h"

#include "platform/Drawing.h"
#include "platform/TImageList.h"
#include "platform/TRecordingCanvas.h"
#include "tests/support/Test.h"

namespace {

using TPixels = std::vector<uint32_t>;

constexpr TPixelFormat kFormats[] = {pf1bit, pf4bit, pf8bit, pf15bit, pf16bit, pf24bit, pf32bit, pfDevice};

TPixels PixelsOf(const TBitmap& Bitmap) {
  TPixels all, row(static_cast<size_t>(Bitmap.GetWidth()));
  for (int y = 0; y < Bitmap.GetHeight(); ++y) {
    Bitmap.GetRow(y, row);
    all.insert(all.end(), row.begin(), row.end());
  }
  return all;
}
// Pixels in rows of Width; what fits into the format stands there as it is.
TBitmap Made(TPixelFormat Format, int Width, const TPixels& Pixels) {
  TBitmap bitmap(Format, Width, static_cast<int>(Pixels.size()) / Width);
  for (int y = 0; y < bitmap.GetHeight(); ++y)
    bitmap.SetRow(y, std::span(Pixels).subspan(static_cast<size_t>(y * Width)));
  return bitmap;
}
TBitmap Random(TPixelFormat Format, int Width, int Height, unsigned Seed) {
  std::mt19937 random(Seed);
  TPixels pixels(static_cast<size_t>(Width * Height));
  for (uint32_t& pixel : pixels) pixel = random();
  return Made(Format, Width, pixels);
}

// The bytes of numbers, each given with its size: L(1) is four bytes, W(1) two.
std::string N(uint32_t Value, int Bytes) {
  std::string bytes;
  for (int i = 0; i < Bytes; ++i) bytes += static_cast<char>(Value >> 8 * i);
  return bytes;
}
std::string L(uint32_t Value) { return N(Value, 4); }
std::string W(uint32_t Value) { return N(Value, 2); }
std::string Rest(std::initializer_list<int> Bytes) { return {Bytes.begin(), Bytes.end()}; }

struct TForm {
  int Width = 2, Height = 1;
  uint32_t Bits = 24, Compression = 0, Colors = 0;
  std::string Behind;  // palette or fields, which stand behind the header
  std::string Pixels;
  uint32_t Header = 40;
  std::string Fields = {};  // in longer headers
};
std::string FileOf(const TForm& Form) {
  const int size = Form.Header == 12 ? 2 : 4;
  std::string header = N(static_cast<uint32_t>(Form.Width), size) + N(static_cast<uint32_t>(Form.Height), size) + W(1) +
                       W(Form.Bits) + L(Form.Compression) + L(0) + L(0) + L(0) + L(Form.Colors) + L(0) + Form.Fields;
  header.resize(Form.Header - 4);
  const auto start = static_cast<uint32_t>(18 + header.size() + Form.Behind.size());
  return "BM" + L(0) + L(0) + L(start) + L(Form.Header) + header + Form.Behind + Form.Pixels;
}
const std::string kTwoColors = L(0x0A0B0C) + L(0xF1F2F3);
const std::string kFields565 = L(0xF800) + L(0x7E0) + L(0x1F);

TEST(Bitmap, PixelsKeepTheirPlaceInEveryFormat) {
  for (TPixelFormat format : kFormats) {
    const TBitmap small = Random(format, 13, 3, 7);
    TBitmap larger = small;
    larger.SetSize(21, 5);
    const TPixels pixels = PixelsOf(small);
    TPixels expected(21 * 5, 0xFFFFFFFF);
    for (int y = 0; y < 3; ++y) std::copy_n(&pixels[13u * y], 13, &expected[21u * y]);
    EXPECT_EQ(PixelsOf(larger), expected) << format;
    larger.SetSize(13, 3);
    EXPECT_EQ(PixelsOf(larger), pixels) << format;
    for (TPixelFormat other : {pf32bit, format}) {
      larger.SetPixelFormat(other);
      EXPECT_EQ(PixelsOf(larger), pixels) << format << ' ' << other;
    }
    EXPECT_EQ(small.GetStride() % 4, 0);
  }
}

TEST(Bitmap, ColoursBecomeTheNearestOnes) {
  const TPixels source = {0xFF000000, 0xFFFFFFFF, 0xFF0A85FB, 0xFF7F7F7F, 0xFFC00001};
  for (const auto& [format, pixels] :
       TCases<TPixelFormat, TPixels>{{pf1bit, {0xFF000000, 0xFFFFFFFF, 0xFFFFFFFF, 0xFF000000, 0xFF000000}},
                                     {pf4bit, {0xFF000000, 0xFFFFFFFF, 0xFF00FFFF, 0xFF808080, 0xFFFF0000}},
                                     {pf8bit, {0xFF000000, 0xFFFFFFFF, 0xFF0099FF, 0xFF7F7F7F, 0xFFCC0000}},
                                     {pf15bit, {0xFF000000, 0xFFFFFFFF, 0xFF0884FF, 0xFF7B7B7B, 0xFFBD0000}},
                                     {pf16bit, {0xFF000000, 0xFFFFFFFF, 0xFF0886FF, 0xFF7B7D7B, 0xFFBD0000}},
                                     {pf24bit, source}})
    EXPECT_EQ(PixelsOf(Made(format, 5, source)), pixels) << format;
  TBitmap alpha = Made(pf32bit, 1, {0x00FF8040});
  EXPECT_EQ(PixelsOf(alpha), TPixels{0xFFFF8040});
  alpha.SetAlphaFormat(afPremultiplied), alpha.SetRow(0, TPixels{0x80FF8040});
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(alpha.GetScanline(0)), 4), "\x20\x40\x80\x80");
  EXPECT_EQ(PixelsOf(alpha), TPixels{0x80FF8040});
}

TEST(Bitmap, CopiesShareUntilOneChanges) {
  TBitmap first(pf24bit, 3, 2);
  TBitmap second = first;
  const uint8_t* shared = std::as_const(second).GetScanline(1);
  EXPECT_EQ(std::as_const(first).GetScanline(1), shared);
  first.GetScanline(1)[0] = 7;
  EXPECT_EQ(std::as_const(second).GetScanline(1), shared);
  EXPECT_EQ(PixelsOf(second), TPixels(6, 0xFFFFFFFF));
  second = std::move(first);
  EXPECT_EQ(PixelsOf(second)[3], 0xFFFFFF07);
  EXPECT_TRUE(first.GetEmpty());
}

TEST(Bitmap, SizesAndRowsAreChecked) {
  TBitmap bitmap(pf32bit, 2, 2);
  EXPECT_EQ(RaisedBy<EInvalidGraphicOperation>([&] { bitmap.GetScanline(2); }), u"Scan line index out of range");
  EXPECT_EQ(RaisedBy<EInvalidGraphicOperation>([&] { bitmap.SetSize(-1, 2); }),
            u"A bitmap can not be -1 x 2 pixels large");
  EXPECT_EQ(RaisedBy<EInvalidGraphicOperation>([&] { bitmap.SetSize(1 << 20, 1 << 20); }),
            u"A bitmap can not be 1048576 x 1048576 pixels large");
  EXPECT_NE(RaisedBy<EInvalidGraphicOperation>([&] { bitmap.SetPixelFormat(pfCustom); }), u"");
  EXPECT_EQ((TFacts{bitmap.GetWidth(), bitmap.GetHeight()}), "2 2");
  EXPECT_EQ(TBitmap().GetTransparentColor(), clWhite);
  EXPECT_EQ(Made(pf24bit, 1, {0xFF010203, 0xFF0A0B0C}).GetTransparentColor(), 0x0C0B0Au);
}

TEST(Bitmap, FilesOfEveryFormatComeBack) {
  test::TTempDir dir;
  for (TPixelFormat format : kFormats) {
    for (int width : {1, 2, 7, 8, 9, 33}) {
      TBitmap before = Random(format, width, 5, static_cast<unsigned>(width)), after;
      before.SaveToFile(dir.Path("a.bmp"));
      after.LoadFromFile(dir.Path("a.bmp"));
      EXPECT_EQ(after.GetPixelFormat(), format == pfDevice ? pf24bit : format);
      EXPECT_EQ(PixelsOf(after), PixelsOf(before)) << format << ' ' << width;
      EXPECT_TRUE(std::ranges::equal(after.GetPalette(), before.GetPalette()));
    }
  }
  TBitmap alpha(pf32bit, 2, 1);
  alpha.SetAlphaFormat(afDefined), alpha.SetRow(0, TPixels{0x80112233, 0x00FFFFFF});
  const TBitmap back = DecodeBitmap(EncodeBitmap(alpha), u"a");
  EXPECT_EQ(back.GetAlphaFormat(), afDefined);
  EXPECT_EQ(PixelsOf(back), (TPixels{0x80112233, 0x00FFFFFF}));
  EXPECT_NE(RaisedBy<EInvalidGraphicOperation>([] { EncodeBitmap(TBitmap(pf24bit, 0, 4)); }), u"");
}

TEST(Bitmap, ReadsAllForms) {
  constexpr uint32_t k = 0xFF0A0B0C, w = 0xFFF1F2F3, z = 0xFF000000;
  const std::string rows = "abcdef" + W(0) + "ghijkl" + W(0);
  for (const auto& [format, form, pixels] : TCases<TPixelFormat, TForm, TPixels>{
           {pf24bit, {2, 2, 24, 0, 0, "", rows}, {0xFF696867, 0xFF6C6B6A, 0xFF636261, 0xFF666564}},
           {pf24bit, {2, -2, 24, 0, 0, "", rows}, {0xFF636261, 0xFF666564, 0xFF696867, 0xFF6C6B6A}},
           {pf1bit, {3, 1, 1, 0, 0, kTwoColors, Rest({0x40, 0, 0, 0})}, {k, w, k}},
           {pf4bit, {3, 1, 4, 0, 2, kTwoColors, Rest({0x10, 0x10, 0, 0})}, {w, k, w}},
           {pf8bit, {2, 1, 8, 0, 2, kTwoColors, Rest({1, 9, 0, 0})}, {w, z}},
           {pf8bit, {2, 1, 8, 0, 0, "abc", Rest({0, 1, 0, 0}), 12}, {0xFF636261, z}},
           {pf15bit, {2, 1, 16, 0, 0, "", W(0x7C00) + W(0x801F)}, {0xFFFF0000, 0xFF0000FF}},
           {pf16bit, {2, 1, 16, 3, 0, kFields565, W(0xF800) + W(0x07E0)}, {0xFFFF0000, 0xFF00FF00}},
           {pf32bit,
            {2, 1, 16, 6, 0, L(0xF00) + L(0xF0) + L(0xF) + L(0xF000), W(0x8F10) + W(0x000F)},
            {0x88FF1100, 0x000000FF}},
           {pf32bit, {1, 1, 32, 0, 0, "", L(0x12345678)}, {0xFF345678}},
           {pf32bit, {1, 1, 32, 3, 0, L(0xFF) + L(0x3FF00) + L(0xFFC00000), L(0xFFC3FF80)}, {0xFF80FFFF}},
           {pf32bit,
            {1, 1, 32, 3, 0, "", L(0x80FF0102), 124, L(0xFF0000) + L(0xFF00) + L(0xFF) + L(0xFF000000)},
            {0x80FF0102}},
           // A run, an escape that leads up and to the right, and single pixels; what is not met is index 0.
           {pf8bit,
            {4, 3, 8, 1, 2, kTwoColors, Rest({2, 1, 0, 2, 1, 1, 1, 1, 0, 0, 0, 3, 1, 0, 1, 0, 0, 1})},
            {w, k, w, k, k, k, k, w, w, w, k, k}},
           {pf4bit, {5, 1, 4, 2, 2, kTwoColors, Rest({3, 0x10, 0, 3, 0x11, 0, 0, 1})}, {w, k, w, w, w}}}) {
    const TBitmap bitmap = DecodeBitmap(FileOf(form), u"a.bmp");
    EXPECT_EQ(bitmap.GetPixelFormat(), format) << testing::PrintToString(FileOf(form));
    EXPECT_EQ(PixelsOf(bitmap), pixels) << testing::PrintToString(FileOf(form));
  }
}

TEST(Bitmap, HostileFilesAreRefused) {
  const String cut = u"the BMP file is cut off", out = u"the runs of the BMP file lead out of the picture";
  for (const auto& [form, text] : TCases<TForm, String>{
           {{INT_MAX, 1, 24, 0, 0, "", "abc"}, cut},
           {{1, INT_MIN, 1, 0, 0, kTwoColors, "abcd"}, u"the BMP file has no size that a picture can have"},
           {{0, 1, 24, 0, 0, "", "abcd"}, u"the BMP file has no size that a picture can have"},
           {{65535, 65535, 8, 1, 0, std::string(1024, 0), Rest({0, 1})}, cut},
           {{2, 1, 8, 0, UINT32_MAX, kTwoColors, "abcd"}, u"the BMP file has a larger palette than it holds"},
           {{2, 1, 24, 0, UINT32_MAX, "", "abcdefgh"}, u"the BMP file has a larger palette than it holds"},
           {{2, 1, 30000, 0, 0, "", "abcdefgh"}, u"BMP files of 30000 bits can not be read"},
           {{2, 1, 8, 2, 2, kTwoColors, "abcdefgh"}, u"BMP files with compression 2 of 8 bits can not be read"},
           {{2, -1, 8, 1, 2, kTwoColors, "abcdefgh"}, u"BMP files with compression 1 of 8 bits can not be read"},
           {{2, 1, 16, 3, 0, L(0) + L(0) + L(0), "abcd"}, u"the BMP file has bit fields without colours"},
           {{2, 1, 16, 3, 0, L(0x1F0000) + L(1) + L(2), "abcd"}, u"the BMP file has bit fields that are none"},
           {{2, 1, 32, 3, 0, L(0x101) + L(1) + L(2), "abcdefgh"}, u"the BMP file has bit fields that are none"},
           {{2, 1, 8, 1, 2, kTwoColors, Rest({2, 1})}, cut},
           {{2, 1, 8, 1, 2, kTwoColors, Rest({5, 1, 0, 1})}, out},
           {{2, 1, 8, 1, 2, kTwoColors, Rest({0, 2, 9, 0, 0, 1})}, out},
           {{2, 1, 8, 1, 2, kTwoColors, Rest({0, 2, 0, 2, 0, 1})}, out},
           {{2, 1, 8, 1, 2, kTwoColors, Rest({0, 0, 2, 1, 0, 1})}, out},
           {{2, 1, 8, 1, 2, kTwoColors, Rest({0, 0, 0, 0, 0, 1})}, out},
           {{2, 1, 8, 1, 2, kTwoColors, Rest({0, 4, 1, 1, 1, 1, 0, 1})}, u""},  // within what pads the row
           {{2, 1, 8, 1, 2, kTwoColors, Rest({0, 4, 1, 1})}, cut},
           {{2, 1, 24, 0, 0, "", "abcdefgh", 44}, u"the BMP file has a header of unknown size"}}) {
    const std::string file = FileOf(form);
    EXPECT_EQ(RaisedBy<EInvalidGraphic>([&] { DecodeBitmap(file, u"a.bmp"); }), text.empty() ? text : u"a.bmp: " + text)
        << testing::PrintToString(file);
  }
  std::vector<std::string> whole = {FileOf({4, 1, 8, 1, 2, kTwoColors, Rest({4, 1, 0, 0, 0, 1})})};
  for (TPixelFormat format : kFormats) whole.push_back(EncodeBitmap(Random(format, 5, 3, 1)));
  for (const std::string& file : whole) {
    EXPECT_NO_THROW(DecodeBitmap(file, u"a"));
    for (size_t size = 0; size < file.size(); ++size)
      EXPECT_THROW(DecodeBitmap(std::string_view(file).substr(0, size), u"a"), EInvalidGraphic) << size;
  }
}

TEST(Bitmap, FilesThatAreNotBmpNeedTheDrawingComponent) {
  test::TTempDir dir;
  TBitmap bitmap(pf8bit, 3, 1);
  for (auto name : {"a.bmp", "a.EMF", "a.jpg"}) test::PutText(dir.Path(name), "no picture");
  const auto before = SetDrawingBackend(nullptr);
  EXPECT_EQ(RaisedBy<EInvalidGraphic>([&] { bitmap.LoadFromFile(dir.Path("a.bmp")); }),
            dir.Path("a.bmp") + u": this is no BMP file");
  EXPECT_EQ(RaisedBy<EInvalidGraphic>([&] { bitmap.LoadFromFile(dir.Path("a.EMF")); }),
            dir.Path("a.EMF") + u": EMF files can not be read");
  EXPECT_NE(RaisedBy<EInvalidGraphicOperation>([&] { bitmap.LoadFromFile(dir.Path("a.jpg")); }), u"");
  EXPECT_NE(RaisedBy<EInvalidGraphicOperation>([&] { bitmap.SaveToFile(dir.Path("a.png")); }), u"");
  EXPECT_NE(RaisedBy<EInvalidGraphicOperation>([&] { bitmap.GetCanvas(); }), u"");
  EXPECT_THROW(bitmap.LoadFromFile(dir.Path("none.bmp")), EFOpenError);
  EXPECT_EQ(bitmap.GetWidth(), 3);
  EXPECT_EQ(test::GetText(dir.Path("a.png")), "<none>");
  SetDrawingBackend(before);
}

TEST(Bitmap, ResourcesAreFoundByName) {
  TBitmap glyph;
  for (auto name : {u"UP", u"down", u"Multi_Select"}) {
    glyph.LoadFromResourceName(name);
    EXPECT_EQ(glyph.GetTransparentColor(), clFuchsia);
    EXPECT_TRUE(glyph.GetTransparent());
    const TPixels pixels = PixelsOf(glyph);
    EXPECT_EQ(pixels[0], 0xFFFF00FF);
    EXPECT_GT(std::ranges::count_if(pixels, [](uint32_t Pixel) { return Pixel != 0xFFFF00FF; }), 10);
  }
  SetBitmapResource(u"up", TBitmap(pf24bit, 1, 1));
  glyph.LoadFromResourceName(u"UP");
  EXPECT_EQ(glyph.GetWidth(), 1);
  SetBitmapResource(u"Up", TBitmap());
  glyph.LoadFromResourceName(u"UP");
  EXPECT_EQ(glyph.GetWidth(), 9);
  EXPECT_EQ(RaisedBy<EInvalidGraphic>([&] { glyph.LoadFromResourceName(u"LEFT"); }), u"Resource LEFT not found");
}

TEST(ImageList, KeepsImagesNamesAndTransparency) {
  TVxImageList images(2, 2);
  EXPECT_EQ(images.AddMasked(Made(pf24bit, 3, {0xFF112233, 0xFFFF00FF, 0xFF445566}), clFuchsia), 0);
  EXPECT_EQ((TFacts{images.Add(Made(pf24bit, 2, {0xFF010203, 0xFFFF00FF})), images.Add(TBitmap())}), "2 -1");
  const TPixels wanted[] = {{0xFF112233, 0, 0, 0}, {0xFF445566, 0, 0, 0}, {0xFF010203, 0xFFFF00FF, 0, 0}};
  for (int i : {0, 1, 2}) EXPECT_EQ(PixelsOf(images.GetImage(i)), wanted[i]) << i;
  EXPECT_THROW(images.GetImage(3), EListError);

  TBitmap image;
  EXPECT_EQ((TFacts{images.GetBitmap(0, image, clBlue), images.GetBitmap(3, image)}), "yes no");
  EXPECT_EQ(PixelsOf(image), (TPixels{0xFF112233, 0xFF0000FF, 0xFF0000FF, 0xFF0000FF}));
  images.SetItems(1, u"offen"), images.SetItems(9, u"zu");
  images.Delete(0);
  EXPECT_EQ(PixelsOf(images.GetImage(0)), wanted[1]);
  EXPECT_EQ((TFacts{images.GetItems(0), images.IndexOf(u"OFFEN"), images.GetItems(-1)}), "offen 0 ");
  images.SetSize(4, 4);
  EXPECT_EQ((TFacts{images.GetCount(), images.IndexOf(u"offen")}), "0 -1");
  EXPECT_THROW(images.SetSize(0, 4), EArgumentException);
}

TEST(ImageList, DrawsOneImage) {
  TImageList images(2, 1);
  images.Add(Made(pf24bit, 4, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF000000}));
  TRecordingCanvas canvas;
  for (int index : {1, -1, 2}) images.Draw(canvas, 3, 4, index);
  EXPECT_EQ(canvas.GetText(), u"picture 3,4 2x1\n");
}

}  // namespace
