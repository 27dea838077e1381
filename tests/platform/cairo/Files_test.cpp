// Fonts, and the files that drawing reads and writes.

#include "platform/cairo/CairoDrawing.h"
#include "tests/platform/cairo/Devices.h"
#include "tests/support/Test.h"

namespace {

// What a program writes; "" if it is not installed.
std::string OutputOf(const std::string& Command) {
  std::string result;
  if (FILE* pipe = ::popen((Command + " 2>/dev/null").c_str(), "r")) {
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe)) result += static_cast<char>(byte);
    ::pclose(pipe);
  }
  return result;
}

class DrawingFiles : public testing::Test {
 protected:
  DrawingFiles() { InstallDrawing(); }
  TTempDir Dir;
};

TEST_F(DrawingFiles, TahomaIsAboutAsWideWhereSomethingStandsInForIt) {
  // The figures of the font itself at 100 pixels.
  const String text =
      u"Müller, Hans-Jürgen 12.03.1956 Große Morgenpflege Königswinter 1.234,56 Straße Wohnbereich Schmidt Anna";
  TBitmap bitmap(pf24bit, 1, 1);
  TCanvas& canvas = bitmap.GetCanvas();
  for (const auto& [style, width] : TCases<TFontStyles, int>{{TFontStyles{}, 4921}, {TFontStyles{fsBold}, 5625}}) {
    for (const int size : {8, 9, 10, 75}) {
      canvas.SetFont({u"Tahoma", clBlack, style, size});
      const double exact = width / 100.0 * std::lround(size * 96 / 72.0);
      EXPECT_NEAR(canvas.TextWidth(text), exact, exact * (size < 75 ? 0.07 : 0.05)) << size;
    }
  }
}

TEST_F(DrawingFiles, AMissingLetterComesFromAnotherFont) {
  TBitmap bitmap(pf24bit, 1, 1);
  TCanvas& canvas = bitmap.GetCanvas();
  canvas.SetFont({u"A family that nobody has", clBlack, {}, 75});
  EXPECT_GT(canvas.TextWidth(u"Müller"), 200) << "the family itself";
  // A square for a letter that no font has is of another width than a Chinese letter, which fills its square.
  EXPECT_NEAR(canvas.TextWidth(u"王"), 100, 3);
}

TEST_F(DrawingFiles, LongTextsAreMeasuredAndDrawn) {
  TBitmap bitmap(pf24bit, 200, 20);
  TCanvas& canvas = bitmap.GetCanvas();
  const std::u16string simple(1000000, u'H'), shaped(100000, u'ש');
  EXPECT_EQ(canvas.TextWidth(simple), 1000000 * canvas.TextWidth(u"H"));
  EXPECT_EQ(canvas.TextWidth(shaped), 100000 * canvas.TextWidth(u"ש"));
  canvas.TextOut(-500000, 0, simple);
  canvas.TextOut(-50000, 0, shaped);
  EXPECT_EQ(InkOf(bitmap).Width(), 200);
}

TEST_F(DrawingFiles, LettersThatAreNotKeptAreDrawnAlike) {
  std::u16string all;
  for (char16_t letter = u' '; letter < 0x300; ++letter) all += letter;
  const auto drawn = [](const std::u16string& before) {
    TBitmap bitmap(pf24bit, 200, 100);
    bitmap.GetCanvas().SetFont({u"Tahoma", clBlack, {}, 54});
    for (char16_t letter : before) bitmap.GetCanvas().TextOut(0, 0, {&letter, 1});
    for (int x : {0, 100}) bitmap.GetCanvas().TextRect({x, 0, x + 100, 100}, x, 0, u"Ж");
    return EncodeBitmap(bitmap);
  };
  CairoDrawing::FreeBuffersForLeakPrevention();
  const std::string fresh = drawn(u"");
  CairoDrawing::FreeBuffersForLeakPrevention();
  EXPECT_EQ(drawn(all), fresh);
}

TEST_F(DrawingFiles, PdfTextsComeBack) {
  const TClockAt clock(46000);
  const std::vector<const char16_t*> lines({u"Weiß-Müller, Jörg Ägidius", u"Ελένη Παπαδοπούλου", u"Иванова 1.234,56 €",
                                            u"„fi ffl“ <&>", u"שרה", u"محمد", u"王小明"});
  const auto write = [&](const char* name) {
    TPdfFile pdf(Dir.Path(name), PageA4());
    for (int page = 0; page < 2; ++page) {
      if (page > 0) pdf.NewPage();
      pdf.GetCanvas().SetBrush({clWhite, bsClear});
      int y = 600;
      for (const char16_t* line : lines) pdf.GetCanvas().TextOut(600, y += 200, line);
    }
    EXPECT_EQ(pdf.GetPageCount(), 2);
    pdf.Close();
    pdf.Close();
    pdf.GetCanvas().SetBrush({clRed});
    EXPECT_EQ(RaisedBy<EInvalidGraphicOperation>([&] {
                pdf.GetCanvas().FillRect({0, 0, 9, 9});
              }),
              u"The file is closed and can't be drawn on");
    return GetText(Dir.Path(name));
  };
  EXPECT_EQ(write("a.pdf"), write("b.pdf")) << "the same drawing gives the same file";
  const std::string text = OutputOf("pdftotext " + Dir.GetPath() + "/a.pdf -");
  if (text.empty()) GTEST_SKIP() << "pdftotext is not installed";
  // Readers guess blanks between letters from right to left by their distance.
  const auto letters = [](std::string bytes) {
    std::erase(bytes, ' ');
    return bytes;
  };
  for (const char16_t* line : lines) {
    const bool guessed = line[0] >= 0x590 && line[0] < 0x700;
    const std::string wanted = String(line).ToUtf8();
    EXPECT_NE((guessed ? letters(text) : text).find(wanted), std::string::npos) << wanted << " in\n" << text;
  }
  EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 2);
  const std::string fonts =
      OutputOf("pdffonts " + Dir.GetPath() + "/a.pdf | tail -n +3 | awk '{print $(NF-4)}' | sort -u");
  EXPECT_EQ(fonts, "yes\n") << "all fonts are embedded";
}

TEST_F(DrawingFiles, SvgKeepsTextsAndBringsItsFonts) {
  TSvgFile svg(Dir.Path("a.svg"), {100, 50});
  svg.GetCanvas().TextOut(1, 2, u"Größe <&\"'>");
  svg.Close();
  const std::string text = GetText(Dir.Path("a.svg"));
  EXPECT_NE(text.find(">Größe &lt;&amp;&quot;&#39;&gt;</text>"), std::string::npos) << text;
  EXPECT_NE(text.find("@font-face{font-family:vx1;src:url(data:font/ttf;base64,"), std::string::npos);
  EXPECT_LT(text.size(), 40000U) << "cut down to the letters used";
}

TEST_F(DrawingFiles, NothingIsWrittenBeforeClose) {
  TPdfFile(Dir.Path("a.pdf"), {10, 10}).GetCanvas().FillRect({0, 0, 5, 5});
  TSvgFile(Dir.Path("a.svg"), {10, 10}).GetCanvas().FillRect({0, 0, 5, 5});
  EXPECT_TRUE(std::filesystem::is_empty(Dir.GetPath()));
  EXPECT_NE(RaisedBy<EInvalidGraphicOperation>([&] { TPdfFile(Dir.Path("b.pdf"), {10, 0}); }), u"");
}

TEST_F(DrawingFiles, AFailedCloseLeavesTheOldFileAndMayBeTriedAgain) {
  TPdfFile pdf(Dir.Path("a"), {10, 10});
  TSvgFile svg(Dir.Path("a"), {10, 10});
  const auto close = [&](auto& file, const char* start) {
    PutText(Dir.Path("a"), "old");
    {
      TFileFaults faults;
      faults.LimitSpace(100);
      EXPECT_NE(RaisedBy<EWriteError>([&] { file.Close(); }).view().find(Dir.Path("a").view()), std::u16string::npos);
    }
    EXPECT_EQ(GetText(Dir.Path("a")), "old");
    file.GetCanvas().SetBrush({clRed});
    const auto draw = [&] { file.GetCanvas().FillRect({0, 0, 9, 9}); };
    EXPECT_EQ(RaisedBy<EInvalidGraphicOperation>(draw), u"The file is closed and can't be drawn on");
    file.Close();
    EXPECT_TRUE(GetText(Dir.Path("a")).starts_with(start)) << GetText(Dir.Path("a"));
    std::filesystem::remove_all(Dir.GetPath());
    file.Close();
    EXPECT_EQ(GetText(Dir.Path("a")), "<none>");
    std::filesystem::create_directory(Dir.GetPath());
  };
  close(pdf, "%PDF-");
  close(svg, "<?xml");
}

TEST_F(DrawingFiles, PngComesBackAsItWasWritten) {
  TBitmap opaque(pf24bit, 3, 2), clear(pf32bit, 3, 2);
  clear.SetAlphaFormat(afDefined);
  for (int x = 0; x < 3; ++x) {
    const uint32_t pixels[] = {0x00123456, 0x80FF8040, 0xFF0A0B0C};
    std::memcpy(clear.GetScanline(1) + 4 * x, &pixels[x], 4);
    opaque.GetScanline(1)[3 * x] = static_cast<uint8_t>(7 * x);
  }
  for (const TBitmap& bitmap : {opaque, clear}) {
    SavePngFile(bitmap, Dir.Path("a.png"));
    TBitmap again;
    LoadPictureFile(Dir.Path("a.png"), again);
    ASSERT_EQ(again.GetPixelFormat(), bitmap.GetPixelFormat());
    EXPECT_EQ(again.GetAlphaFormat(), bitmap.GetAlphaFormat());
    for (int y = 0; y < 2; ++y) {
      std::vector<uint32_t> was(3), is(3);
      bitmap.GetRow(y, was);
      again.GetRow(y, is);
      EXPECT_EQ(is, was) << y;
    }
  }
}

TEST_F(DrawingFiles, WhatIsNoPictureIsRefusedByName) {
  TBitmap bitmap(pf24bit, 40, 30), loaded(pf8bit, 2, 2);
  bitmap.GetCanvas().TextOut(1, 1, u"PNG");
  const std::string png = EncodePng(bitmap);
  std::vector<std::string> files = {
      "", "EMF",
      std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x08\x06\0\0\0\0\0\0\0", 33)};
  for (size_t length = 1; length < png.size(); length += 7) files.push_back(png.substr(0, length));
  for (const std::string& bytes : files) {
    PutText(Dir.Path("bad.png"), bytes);
    const String message = RaisedBy<EInvalidGraphic>([&] { LoadPictureFile(Dir.Path("bad.png"), loaded); });
    EXPECT_TRUE(message.view().starts_with(Dir.Path("bad.png") + u": ")) << message.ToUtf8() << bytes.size();
    EXPECT_EQ(loaded.GetPixelFormat(), pf8bit);
  }
  EXPECT_NE(RaisedBy<EFOpenError>([&] { LoadPictureFile(Dir.Path("none.png"), loaded); }), u"");
}

// A window of 200 x 100, a red brush, and a rectangle, behind a header that tells the size at 96 pixels per inch.
TEST_F(DrawingFiles, MetafilesAreReadWhereThereIsALoader) {
  const uint16_t words[] = {0xCDD7, 0x9AC6, 0,     0,     0,     200, 100,   96, 0, 0, 0x57DD, 1,
                            9,      0x300,  44,    0,     1,     8,   0,     0,  // header
                            4,      0,      0x103, 8,     5,     0,   0x20B, 0,  0, 5, 0,      0x20C,
                            100,    200,    7,     0,     0x2FC, 0,   0xFF,  0,  0, 4, 0,      0x12D,
                            0,      7,      0,     0x41B, 80,    180, 20,    20, 3, 0, 0};
  PutText(Dir.Path("a.wmf"), {reinterpret_cast<const char*>(words), sizeof words});
  TBitmap bitmap;
  const String fault = RaisedBy<EInvalidGraphic>([&] { bitmap.LoadFromFile(Dir.Path("a.wmf")); });
  if (!fault.empty()) {
    EXPECT_TRUE(fault.view().starts_with(Dir.Path("a.wmf") + u": ")) << fault.ToUtf8();
    GTEST_SKIP() << "no loader, or no fonts for it: " << fault.ToUtf8();
  }
  EXPECT_EQ(bitmap.GetWidth(), 2 * bitmap.GetHeight());
  EXPECT_EQ(PixelAt(bitmap, bitmap.GetWidth() / 2, bitmap.GetHeight() / 2), 0xFF0000U);
}

TEST_F(DrawingFiles, ABitmapMayChangeUnderItsCanvas) {
  TBitmap bitmap(pf24bit, 10, 10);
  TCanvas& canvas = bitmap.GetCanvas();
  canvas.SetBrush({clBlack});
  canvas.FillRect({0, 0, 100, 100});
  const TBitmap before = bitmap;
  bitmap.SetSize(20, 5);
  bitmap.SetPixelFormat(pf8bit);
  canvas.FillRect({15, 0, 100, 2});
  EXPECT_EQ(canvas.GetClip(), (TRect{0, 0, 20, 5}));
  EXPECT_EQ(InkOf(bitmap), (TRect{0, 0, 20, 5}));
  EXPECT_EQ(InkOf(before), (TRect{0, 0, 10, 10}));
  canvas.Draw(0, 1, bitmap);
  EXPECT_EQ(PixelAt(bitmap, 17, 3), 0xFFFFFFU) << "what the bitmap was before counts when it is drawn on itself";
}

}  // namespace
