#include "rendering/uBitmapX.h"

#include "objects/uVxClasses.h"
#include "platform/Drawing.h"
#include "tests/support/Test.h"

namespace vx {
void PrintTo(const TRGB& Color, std::ostream* Stream) {
  *Stream << int{Color.Red} << '.' << int{Color.Green} << '.' << int{Color.Blue};
  if (Color.Fourth != 0) *Stream << '.' << int{Color.Fourth};
}
}  // namespace vx

namespace {

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

// The rows parted by blanks: a letter for each of the colours above, "." for white, the numbers of any other.
std::string Show(const TBitmapX& Picture) {
  const TRow known{kA, kB, kC, kD, kE, kF, kWhite};
  const TRow pixels = PixelsOf(Picture);
  std::string text;
  for (size_t i = 0; i < pixels.size(); ++i) {
    const auto place = static_cast<size_t>(std::ranges::find(known, pixels[i]) - known.begin());
    if (i > 0 && i % static_cast<size_t>(Picture.GetWidth()) == 0) text += ' ';
    text += place < known.size() ? std::string(1, "ABCDEF."[place]) : '(' + testing::PrintToString(pixels[i]) + ')';
  }
  return text;
}

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
    EXPECT_EQ((TRow{row.back(), pixels->GetPixels(-1, 0)}), (TRow{zero, zero}));
    EXPECT_EQ(pixels->GetColor(0, 0), ConvertRGBToColor(c.Pixels[0]));
    if (pixels->iOk) {
      EXPECT_THROW(pixels->GetPixels(0, 1), EInvalidGraphicOperation);
    }
  }
}

TEST(BitmapX, WritersMirrorReading) {
  const TCases<TPixelFormat, TRGB, TRGB, TRGB, std::string> cases = {
      // written, read, as it is stored
      {pf15bit, {255, 100, 20, 9}, {255, 99, 16, 0}, {31, 12, 2, 0}, "\x9F\x09"},
      {pf16bit, {255, 100, 20, 9}, {255, 101, 16, 0}, {31, 25, 2, 0}, "\x3F\x13"},
      {pf24bit, {1, 2, 3, 9}, {1, 2, 3, 0}, {1, 2, 3, 0}, "\3\2\1"},
      {pf32bit, {1, 2, 3, 9}, {1, 2, 3, 9}, {1, 2, 3, 9}, "\3\2\1\x9"}};
  for (const auto& [format, written, read, original, bytes] : cases) {
    TBitmap bitmap(format, 3, 2), other(format, 3, 2);
    auto made = TBitmapX::CreateBitmapX(&bitmap);
    auto& writer = dynamic_cast<TBitmapXWrite&>(*made);
    writer.SetPixels(1, 1, written);
    EXPECT_EQ((TRow{writer.GetPixels(1, 1), writer.GetOriginal(1, 1)}), (TRow{read, original}));
    const auto* row = reinterpret_cast<const char*>(std::as_const(bitmap).GetScanline(1));
    EXPECT_EQ(std::string(row + bytes.size(), bytes.size()), bytes);
    TBitmap32 none(nullptr);
    none.SetPixels(0, 0, kA);
    auto made2 = TBitmapX::CreateBitmapX(&other);
    auto& writer2 = dynamic_cast<TBitmapXWrite&>(*made2);
    writer2.SetOriginal(1, 1, original);
    TRow pixels(3);
    writer2.GetRow(1, pixels);
    writer.SetRow(0, pixels);
    EXPECT_EQ(PixelsOf(writer)[1], read);
    EXPECT_EQ((TFacts{writer.Exchange(read, {0, 0, 0}), writer.Exchange({0, 0, 0, 1}, kA)}), "2 0");
    for (int x : {-1, 3}) writer.SetPixels(x, 0, {});
    if (format == pf32bit) {
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
  EXPECT_EQ(Show(writer), "CB");
}

TEST(BitmapX, OtherFormatsReadZeroAndAreNotWritten) {
  TBitmap bitmap(pf24bit, 2, 2), device(pfDevice, 1, 1);
  TBitmap16 wrong(&bitmap);
  wrong.SetPixels(0, 0, {});
  wrong.FloodFill({0, 0, 9, 9}, {});
  EXPECT_EQ((TFacts{wrong.iOk, TBitmapX(&bitmap).iOk, wrong.Exchange({}, kA)}), "no no 0");
  EXPECT_EQ(wrong.GetPixels(0, 99), TRGB{});
  EXPECT_EQ(TBitmap24(&bitmap).GetPixels(0, 0), kWhite);
  TBitmap24 later(&bitmap);
  bitmap.SetPixelFormat(pf1bit);
  EXPECT_EQ(later.GetPixels(1, 1), TRGB{});
  EXPECT_EQ(TBitmapX::CreateBitmapX(nullptr), nullptr);

  for (auto [depth, name] : {std::pair{16, u"TBitmap16"}, {32, u"TBitmap32"}, {64, u""}}) {
    SetScreenBitsPerPixel(depth);
    if (depth > 16) device = TBitmap(pfDevice, 1, 1);  // at first it is older than the depth
    const auto made = TBitmapX::CreateBitmapX(&device);
    EXPECT_EQ(made ? made->ClassName() : u"", name);
  }
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
  const TCases<Extended, std::string> rounded = {{-0.1L, "0 0"},   {0.5L, "0 0"},    {1.5L, "2 2"},
                                                 {62.5L, "62 62"}, {63.2L, "63 63"}, {254.5L, "254 63"},
                                                 {1e30L, "255 63"}};
  for (const auto& [value, bytes] : rounded) {
    uint8_t byte = 9, byte64 = 9;
    ProtectRound(value, byte);
    ProtectRound64(value, byte64);
    EXPECT_EQ((TFacts{byte, byte64}), bytes);
  }
  for (int i = 0; i < 0x1000000; i += 4099) {
    ConvertColorToRGB(static_cast<TColor>(i), rgb);
    ASSERT_EQ(ConvertHSVToRGB(ConvertRGBToHSV(rgb)), rgb);
  }
  const TCases<TRGB, double, double, TRGB> bright = {{{10, 20, 30, 4}, 0, 1, {10, 20, 30, 4}},
                                                     {{200, 100, 100, 4}, 55, 1, {255, 128, 128, 4}},
                                                     {{200, 100, 100, 4}, 0, 0, {200, 200, 200, 4}},
                                                     {{100, 200, 100, 4}, 0, 9, {0, 200, 0, 4}},
                                                     {{50, 50, 50, 4}, -60, 3, {0, 0, 0, 4}}};
  for (auto [color, brightness, saturation, wanted] : bright) {
    BrightnessSaturation(color, brightness, saturation);
    EXPECT_EQ(color, wanted);
  }
}

TEST(BitmapX, DrawsAsOptionsSay) {
  TBitmap bitmap = Picture(3, {kA, kB, kC, kD, kE, kF});
  TBitmap24 source(&bitmap);
  const std::pair<TBitmapDrawOptions, std::string> cases[] = {
      {{}, "ABC DEF"},
      {{bdoRotate90}, "DA EB FC"},
      {{bdoRotate180}, "FED CBA"},
      {{bdoRotate270}, "CF BE AD"},
      {{bdoReflectVert}, "DEF ABC"},
      {{bdoReflectHoriz}, "CBA FED"},
      {{bdoTransparent}, "ABC .EF"},
      {{bdoRotate90, bdoRotate180}, "CF BE AD"},
      {{bdoNoRed, bdoInvert}, "(0.235.225)(0.205.195)(0.175.165) (0.145.135)(0.253.252)(0.250.249)"},
      {{bdoSwapRB, bdoNoGreen}, "(30.0.10)(60.0.40)(90.0.70) (120.0.100)(3.0.1)(6.0.4)"},
      {{bdoGray, bdoNoBlue}, "(18.18.0)(48.48.0)(78.78.0) (108.108.0)(2.2.0)(5.5.0)"}};
  for (const auto& [options, shown] : cases) EXPECT_EQ(Show(*source.Render(options)), shown);
  EXPECT_EQ((TFacts{Show(*source.RenderRect({1, 1, 9, 9})), Show(*source.RenderRect({5, 5, 9, 9}))}), "EF ");
  EXPECT_EQ((TFacts{Show(*source.RenderHard(2, 4)), Show(*source.RenderHardDown(2))}), "AC AC DF DF EF");
  EXPECT_EQ(Show(*source.RenderRect({0, 0, 2, 1})->RenderHardUp(2)), "AABB AABB");
  EXPECT_EQ(Show(*source.Antialias(2)), "(38.46.53)(37.43.48)");
  EXPECT_THROW(source.Antialias(0), EArgumentException);
  EXPECT_EQ(Show(*source.Rotate(-270)), "DA EB FC");

  TBitmap board(pf32bit, 2, 2);
  TBitmap32 target(&board);
  target.Draw(-1, 1, source);
  EXPECT_EQ(Show(target), ".. BC");
  target.Draw(1, 1, source, {bdoRelative});
  EXPECT_EQ(Show(target), ".. B(0.0.0)");
  const auto same = source.Render({bdoRotate90}, &bitmap);
  EXPECT_EQ(same->iBitmap, &bitmap);
  EXPECT_EQ(Show(*same), "DA EB FC");
}

TEST(BitmapX, TurnsByAnyAngle) {
  TBitmap bitmap(pf24bit, 20, 10);
  TBitmap24 source(&bitmap);
  source.FloodFill({0, 0, 20, 10}, kA);
  const auto turned = source.Rotate(30, 0x030201);
  EXPECT_EQ((TFacts{turned->GetWidth(), turned->GetHeight()}), "23 19");
  EXPECT_EQ((TRow{turned->GetPixels(11, 9), turned->GetPixels(0, 18)}), (TRow{kA, kE}));
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
  EXPECT_EQ((TFacts{header.biSize, header.biWidth, header.biHeight, header.biBitCount}), "40 2 2 24");
  const std::string bytes = test::GetText(path);
  for (const char* mark : {"BA", "BX"}) {
    test::PutText(path, mark + bytes.substr(2));
    EXPECT_EQ(ReadBitmapInfoHeader(path, header), mark[1] == 'A') << mark;
  }
  test::PutText(path, bytes.substr(0, 53));
  EXPECT_THROW(ReadBitmapInfoHeader(path, header), EReadError);
  EXPECT_THROW(ReadBitmapInfoHeader(dir.Path("none"), header), EFOpenError);
  test::PutText(path, bytes);
  const auto loaded = TBitmapX::CreateLoadBitmapX(path);
  EXPECT_EQ(Show(*loaded), "BA B.");
  EXPECT_EQ(loaded->iFilename, path);
  EXPECT_EQ(TBitmapX::CreateLoadBitmapX(dir.Path("a.txt")), nullptr);
  test::PutText(dir.Path("a.emf"), "emf");
  EXPECT_THROW(TBitmapX::CreateLoadBitmapX(dir.Path("a.emf")), EInvalidGraphic);
  EXPECT_EQ(BoolToDrawOptions(true, false, false, false, false, false, true, false, false, false, false, false, true),
            (TBitmapDrawOptions{bdoNoRed, bdoTransparent, bdoReflectHoriz}));
}

}  // namespace
