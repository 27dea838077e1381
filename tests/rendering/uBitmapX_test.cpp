#include "rendering/uBitmapX.h"

#include "objects/uVxClasses.h"
#include "platform/Drawing.h"
#include "tests/support/Test.h"

namespace vx {
void PrintTo(const TRGB& Color, std::ostream* Stream) {
  *Stream << int{Color.Red} << '.' << int{Color.Green} << '.' << int{Color.Blue} << '.' << int{Color.Fourth};
}
}  // namespace vx

namespace {

using namespace vx;
using TRow = std::vector<TRGB>;

// One row of words, or of bytes.
template <typename T>
TBitmap Stored(TPixelFormat Format, int Width, std::initializer_list<T> Values) {
  TBitmap bitmap(Format, Width, 1);
  T* to = reinterpret_cast<T*>(bitmap.GetScanline(0));
  for (T value : Values) *to++ = value;
  return bitmap;
}
TRow PixelsOf(const TBitmapX& Picture) {
  TRow all;
  for (int y = 0; y < Picture.GetHeight(); ++y) {
    for (int x = 0; x < Picture.GetWidth(); ++x) all.push_back(Picture.GetPixels(x, y));
  }
  return all;
}
TBitmap Picture(int Width, const TRow& Pixels, TPixelFormat Format = pf24bit) {
  TBitmap bitmap(Format, Width, static_cast<int>(Pixels.size()) / Width);
  auto writer = TBitmapX::CreateBitmapX(&bitmap);
  for (size_t i = 0; i < Pixels.size(); ++i) {
    dynamic_cast<TBitmapXWrite&>(*writer).SetPixels(static_cast<int>(i) % Width, static_cast<int>(i) / Width,
                                                    Pixels[i]);
  }
  return bitmap;
}
const TRGB kA{10, 20, 30}, kB{40, 50, 60}, kC{70, 80, 90}, kD{100, 110, 120}, kE{1, 2, 3}, kF{4, 5, 6},
    kWhite{255, 255, 255};

TEST(BitmapX, ReadsEachLayout) {
  const TPaletteEntry palette[] = {{9, 8, 7, 6}, {1, 2, 3, 4}};
  auto with = [&](TBitmap Bitmap, size_t Count) {
    Bitmap.SetPalette(std::span(palette).first(Count));
    return Bitmap;
  };
  const TRGB set{255, 255, 255, 255}, white{255, 255, 255, 0}, first{9, 8, 7, 6}, second{1, 2, 3, 4}, zero{};
  struct {
    TBitmap Bitmap;
    String Class;
    TRow Pixels;
  } cases[] = {
      {with(Stored<uint8_t>(pf1bit, 9, {0x40, 0x80}), 2),
       u"TBitmap1",
       {first, white, first, first, first, first, first, first, white}},
      {with(Stored<uint8_t>(pf1bit, 2, {0x40}), 0), u"TBitmap1", {zero, white}},
      {with(Stored<uint8_t>(pf4bit, 4, {0x1F, 0x20}), 2), u"TBitmap4", {second, set, zero, first}},
      {with(Stored<uint8_t>(pf8bit, 4, {1, 255, 254, 0}), 2), u"TBitmap8", {second, set, zero, first}},
      {with(Stored<uint8_t>(pf8bit, 2, {1, 255}), 0), u"TBitmap8", {zero, zero}},
      {with(Stored<uint8_t>(pf4bit, 2, {0x1F}), 0), u"TBitmap4", {zero, zero}},
      {Stored<uint16_t>(pf15bit, 3, {31, 16 << 5, 0xFC01}), u"TBitmap15", {{255, 0, 0}, {0, 132, 0}, {8, 0, 255}}},
      {Stored<uint16_t>(pf16bit, 3, {31, 32 << 5, 0xF801}), u"TBitmap16", {{255, 0, 0}, {0, 130, 0}, {8, 0, 255}}},
      {Stored<uint8_t>(pf24bit, 2, {1, 2, 3, 4, 5, 6}), u"TBitmap24", {{3, 2, 1}, {6, 5, 4}}},
      {Stored<uint8_t>(pf32bit, 2, {1, 2, 3, 4, 5, 6, 7, 8}), u"TBitmap32", {{3, 2, 1, 4}, {7, 6, 5, 8}}},
  };
  for (auto& c : cases) {
    auto pixels = TBitmapX::CreateBitmapX(&c.Bitmap);
    EXPECT_EQ(pixels->ClassName(), c.Class);
    EXPECT_EQ(PixelsOf(*pixels), c.Pixels) << c.Class.ToUtf8();
    TRow row(c.Pixels.size() + 1, kA);
    pixels->GetRow(0, row);
    EXPECT_EQ(TRow(row.begin(), row.end() - 1), c.Pixels) << c.Class.ToUtf8();
    EXPECT_EQ(row.back(), zero);
    EXPECT_EQ(pixels->GetPixels(-1, 0), zero);
    EXPECT_EQ(pixels->GetColor(0, 0), ConvertRGBToColor(c.Pixels[0]));
    if (pixels->iOk) {
      EXPECT_THROW(pixels->GetPixels(0, 1), EInvalidGraphicOperation);
    }
  }
}

TEST(BitmapX, WritersMirrorReading) {
  const struct {
    TPixelFormat Format;
    TRGB Written, Read, Original;
    std::string Bytes;
  } cases[] = {{pf15bit, {255, 100, 20, 9}, {255, 99, 16, 0}, {31, 12, 2, 0}, "\x9F\x09"},
               {pf16bit, {255, 100, 20, 9}, {255, 101, 16, 0}, {31, 25, 2, 0}, "\x3F\x13"},
               {pf24bit, {1, 2, 3, 9}, {1, 2, 3, 0}, {1, 2, 3, 0}, "\3\2\1"},
               {pf32bit, {1, 2, 3, 9}, {1, 2, 3, 9}, {1, 2, 3, 9}, "\3\2\1\x9"}};
  for (const auto& c : cases) {
    TBitmap bitmap(c.Format, 3, 2), other(c.Format, 3, 2);
    auto made = TBitmapX::CreateBitmapX(&bitmap);
    auto& writer = dynamic_cast<TBitmapXWrite&>(*made);
    writer.SetPixels(1, 1, c.Written);
    EXPECT_EQ(writer.GetPixels(1, 1), c.Read);
    EXPECT_EQ(writer.GetOriginal(1, 1), c.Original);
    const auto* row = reinterpret_cast<const char*>(std::as_const(bitmap).GetScanline(1));
    EXPECT_EQ(std::string(row + c.Bytes.size(), c.Bytes.size()), c.Bytes);
    TBitmap32 none(nullptr);
    none.SetPixels(0, 0, kA);
    auto made2 = TBitmapX::CreateBitmapX(&other);
    auto& writer2 = dynamic_cast<TBitmapXWrite&>(*made2);
    writer2.SetOriginal(1, 1, c.Original);
    TRow pixels(3);
    writer2.GetRow(1, pixels);
    writer.SetRow(0, pixels);
    EXPECT_EQ(PixelsOf(writer)[1], c.Read);
    EXPECT_EQ(writer.Exchange(c.Read, {0, 0, 0}), 2);
    EXPECT_EQ(writer.Exchange({0, 0, 0, 1}, kA), 0);
    for (int x : {-1, 3}) writer.SetPixels(x, 0, {});
    if (c.Format == pf32bit) {
      writer.SetPixels(0, 2, {});
      writer.FloodFill({-5, 1, 1, INT_MAX}, {8, 8, 8, 0});
      EXPECT_EQ(writer.GetPixels(0, 1).Red, 8);
    } else {
      EXPECT_THROW(writer.SetPixels(0, 2, {}), EInvalidGraphicOperation);
    }
  }
}

TEST(BitmapX, WritesOnlyWhatDiffers) {
  TBitmap bitmap = Picture(2, {kA, kB});
  const TBitmap copy = bitmap;
  TBitmap24 writer(&bitmap);
  writer.SetPixels(1, 0, kB);
  writer.SetRow(0, TRow{kA, kB, kC});
  EXPECT_EQ(std::as_const(bitmap).GetScanline(0), copy.GetScanline(0));  // still shared
  writer.SetRow(0, TRow{kC});
  EXPECT_EQ(PixelsOf(writer), (TRow{kC, kB}));
}

TEST(BitmapX, OtherFormatsReadZeroAndAreNotWritten) {
  TBitmap bitmap(pf24bit, 2, 2), device(pfDevice, 1, 1);
  TBitmap16 wrong(&bitmap);
  wrong.SetPixels(0, 0, {});
  wrong.FloodFill({0, 0, 9, 9}, {});
  EXPECT_FALSE(wrong.iOk);
  EXPECT_EQ(wrong.Exchange({}, kA), 0);
  EXPECT_EQ(wrong.GetPixels(0, 99), TRGB{});
  EXPECT_EQ(TBitmap24(&bitmap).GetPixels(0, 0), kWhite);
  TBitmap24 later(&bitmap);
  bitmap.SetPixelFormat(pf1bit);
  EXPECT_EQ(later.GetPixels(1, 1), TRGB{});
  EXPECT_EQ(TBitmapX(&bitmap).iOk, false);
  EXPECT_EQ(TBitmapX::CreateBitmapX(nullptr), nullptr);

  SetScreenBitsPerPixel(16);
  EXPECT_EQ(TBitmapX::CreateBitmapX(&device)->ClassName(), u"TBitmap16");
  SetScreenBitsPerPixel(32);
  device = TBitmap(pfDevice, 1, 1);
  EXPECT_EQ(TBitmapX::CreateBitmapX(&device)->ClassName(), u"TBitmap32");
  SetScreenBitsPerPixel(64);
  device = TBitmap(pfDevice, 1, 1);
  EXPECT_EQ(TBitmapX::CreateBitmapX(&device), nullptr);
  SetScreenBitsPerPixel(32);
}

TEST(BitmapX, OwnsWhatItIsTold) {
  int freed = 0;
  struct TOwned : TBitmap {
    explicit TOwned(int& Count) : TBitmap(pf24bit, 1, 1), Freed(Count) {}
    ~TOwned() override { ++Freed; }
    int& Freed;
  } kept(freed);
  { TBitmap24 pixels(&kept); }
  EXPECT_EQ(freed, 0);
  {
    TBitmap24 pixels(new TOwned(freed), {booOwnsBitmap, booOwnsSource}, new test::TProbe([&] { freed += 10; }),
                     u"a.bmp");
    EXPECT_EQ(pixels.iFilename, u"a.bmp");
    pixels.SetBitmap(pixels.iBitmap);
    EXPECT_EQ(freed, 0);
    pixels.SetBitmap(new TOwned(freed));
    EXPECT_EQ(freed, 1);
  }
  EXPECT_EQ(freed, 12);
}

TEST(BitmapX, CalculatesWithColours) {
  TRGB rgb;
  ConvertColorToRGB(0xFF010203, rgb);
  EXPECT_EQ(rgb, (TRGB{3, 2, 1, 255}));
  InitRGB(rgb, 7);
  EXPECT_EQ(rgb, (TRGB{7, 7, 7, 7}));
  EXPECT_FALSE(EqualsRGB({7, 7, 7, 0}, rgb));
  EXPECT_EQ(SubtractColor(0xFF00000A, 20), SubtractColor(ColorToRGB(0xFF00000A), 20));
  const TColor sums[][3] = {
      {10, 20, 0x01011F}, {0xFFFFFF, 0, 0}, {0xFFFFFF, 0xFFFFFF, 0xFFFFFF}, {0x80FF00, 0x7F0001, 2}};
  for (const auto& c : sums) EXPECT_EQ(SubtractColor(c[0], c[1]), c[2]);
  const struct {
    Extended Value;
    int To255, To63;
  } rounded[] = {{-0.1L, 0, 0},   {0.5L, 0, 0},      {1.5L, 2, 2},    {62.5L, 62, 62},
                 {63.2L, 63, 63}, {254.5L, 254, 63}, {1e30L, 255, 63}};
  for (const auto& c : rounded) {
    uint8_t byte = 9, byte64 = 9;
    ProtectRound(c.Value, byte);
    ProtectRound64(c.Value, byte64);
    EXPECT_EQ(byte, c.To255);
    EXPECT_EQ(byte64, c.To63);
  }
  for (int i = 0; i < 0x1000000; i += 4099) {
    ConvertColorToRGB(static_cast<TColor>(i), rgb);
    ASSERT_EQ(ConvertHSVToRGB(ConvertRGBToHSV(rgb)), rgb);
  }
  const struct {
    TRGB From;
    double Brightness, Saturation;
    TRGB To;
  } bright[] = {{{10, 20, 30, 4}, 0, 1, {10, 20, 30, 4}},
                {{200, 100, 100, 4}, 55, 1, {255, 128, 128, 4}},
                {{200, 100, 100, 4}, 0, 0, {200, 200, 200, 4}},
                {{100, 200, 100, 4}, 0, 9, {0, 200, 0, 4}},
                {{50, 50, 50, 4}, -60, 3, {0, 0, 0, 4}}};
  for (auto c : bright) {
    BrightnessSaturation(c.From, c.Brightness, c.Saturation);
    EXPECT_EQ(c.From, c.To);
  }
}

TEST(BitmapX, DrawsAsOptionsSay) {
  TBitmap bitmap = Picture(3, {kA, kB, kC, kD, kE, kF});
  TBitmap24 source(&bitmap);
  const struct {
    TBitmapDrawOptions Options;
    int Width;
    TRow Pixels;
  } cases[] = {
      {{}, 3, {kA, kB, kC, kD, kE, kF}},
      {{bdoRotate90}, 2, {kD, kA, kE, kB, kF, kC}},
      {{bdoRotate180}, 3, {kF, kE, kD, kC, kB, kA}},
      {{bdoRotate90, bdoRotate180}, 2, {kC, kF, kB, kE, kA, kD}},
      {{bdoRotate270}, 2, {kC, kF, kB, kE, kA, kD}},
      {{bdoReflectVert}, 3, {kD, kE, kF, kA, kB, kC}},
      {{bdoReflectHoriz}, 3, {kC, kB, kA, kF, kE, kD}},
      {{bdoTransparent}, 3, {kA, kB, kC, kWhite, kE, kF}},
      {{bdoNoRed, bdoInvert},
       3,
       {{0, 235, 225}, {0, 205, 195}, {0, 175, 165}, {0, 145, 135}, {0, 253, 252}, {0, 250, 249}}},
      {{bdoSwapRB, bdoNoGreen}, 3, {{30, 0, 10}, {60, 0, 40}, {90, 0, 70}, {120, 0, 100}, {3, 0, 1}, {6, 0, 4}}},
      {{bdoGray, bdoNoBlue}, 3, {{18, 18, 0}, {48, 48, 0}, {78, 78, 0}, {108, 108, 0}, {2, 2, 0}, {5, 5, 0}}}};
  for (const auto& c : cases) {
    const auto result = source.Render(c.Options);
    EXPECT_EQ(result->GetWidth(), c.Width);
    EXPECT_EQ(PixelsOf(*result), c.Pixels) << &c - cases;
  }
  EXPECT_EQ(PixelsOf(*source.RenderRect({1, 1, 9, 9})), (TRow{kE, kF}));
  EXPECT_EQ(PixelsOf(*source.RenderRect({5, 5, 9, 9})), TRow{});
  EXPECT_EQ(PixelsOf(*source.RenderHard(2, 4)), (TRow{kA, kC, kA, kC, kD, kF, kD, kF}));
  EXPECT_EQ(PixelsOf(*source.RenderHardDown(2)), (TRow{kE, kF}));
  EXPECT_EQ(PixelsOf(*source.RenderRect({0, 0, 2, 1})->RenderHardUp(2)), (TRow{kA, kA, kB, kB, kA, kA, kB, kB}));
  EXPECT_EQ(PixelsOf(*source.Antialias(2)), (TRow{{38, 46, 53}, {37, 43, 48}}));
  EXPECT_THROW(source.Antialias(0), EArgumentException);
  EXPECT_EQ(PixelsOf(*source.Rotate(-270)), PixelsOf(*source.Render({bdoRotate90})));

  TBitmap board(pf32bit, 2, 2);
  TBitmap32 target(&board);
  target.Draw(-1, 1, source);
  EXPECT_EQ(PixelsOf(target), (TRow{kWhite, kWhite, kB, kC}));
  target.Draw(1, 1, source, {bdoRelative});
  EXPECT_EQ(PixelsOf(target)[3], TRGB{});
  const auto same = source.Render({bdoRotate90}, &bitmap);
  EXPECT_EQ(same->iBitmap, &bitmap);
  EXPECT_EQ(PixelsOf(*same), (TRow{kD, kA, kE, kB, kF, kC}));
}

TEST(BitmapX, TurnsByAnyAngle) {
  TBitmap bitmap(pf24bit, 20, 10);
  TBitmap24 source(&bitmap);
  source.FloodFill({0, 0, 20, 10}, kA);
  const auto turned = source.Rotate(30, 0x030201);
  EXPECT_EQ(turned->GetWidth() * 100 + turned->GetHeight(), 2319);
  EXPECT_EQ(turned->GetPixels(11, 9), kA);
  EXPECT_EQ(turned->GetPixels(0, 18), kE);
  EXPECT_THROW(source.Rotate(NAN), EArgumentException);
}

TEST(BitmapX, StatisticAndHeader) {
  TBitmap bitmap = Picture(2, {kB, kA, kB, kWhite}), empty;
  EXPECT_EQ(
      TBitmap24(&bitmap).ColorStatistic()->GetCommatext(),
      u"\"rrr.ggg.bbb - Anzahl 3\",\"010.020.030 - 001,000\",\"040.050.060 - 002,000\",\"255.255.255 - 001,000\"");
  EXPECT_EQ(TBitmap24(&empty).ColorStatistic()->GetCommatext(), u"\"rrr.ggg.bbb  hue  sat  val\"");

  test::TTempDir dir;
  const String path = dir.Path("a.BMP");
  bitmap.SaveToFile(path);
  TBitmapInfoHeader header;
  EXPECT_TRUE(ReadBitmapInfoHeader(path, header));
  EXPECT_EQ(header.biWidth * 1000 + header.biHeight * 100 + header.biBitCount + static_cast<int>(header.biSize), 2264);
  std::string bytes = test::GetText(path);
  test::PutText(path, "BA" + bytes.substr(2));
  EXPECT_TRUE(ReadBitmapInfoHeader(path, header));
  test::PutText(path, "BX" + bytes.substr(2));
  EXPECT_FALSE(ReadBitmapInfoHeader(path, header));
  test::PutText(path, bytes.substr(0, 53));
  EXPECT_THROW(ReadBitmapInfoHeader(path, header), EReadError);
  EXPECT_THROW(ReadBitmapInfoHeader(dir.Path("none"), header), EFOpenError);
  test::PutText(path, bytes);
  const auto loaded = TBitmapX::CreateLoadBitmapX(path);
  EXPECT_EQ(PixelsOf(*loaded), (TRow{kB, kA, kB, kWhite}));
  EXPECT_EQ(loaded->iFilename, path);
  EXPECT_EQ(TBitmapX::CreateLoadBitmapX(dir.Path("a.txt")), nullptr);
  test::PutText(dir.Path("a.emf"), "emf");
  EXPECT_THROW(TBitmapX::CreateLoadBitmapX(dir.Path("a.emf")), EInvalidGraphic);
  EXPECT_EQ(BoolToDrawOptions(true, false, false, false, false, false, true, false, false, false, false, false, true),
            (TBitmapDrawOptions{bdoNoRed, bdoTransparent, bdoReflectHoriz}));
}

}  // namespace
