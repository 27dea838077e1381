#include "platform/Drawing.h"
#include "platform/TRecordingCanvas.h"
#include "rendering/uDecoration.h"
#include "tests/support/Test.h"

namespace vx::test {
namespace {

struct TTable : TObject, TSortedTable {
  TPoint GetSortCell() const noexcept override { return Cell; }
  TSortArrow GetSortArrow() const noexcept override { return Arrow; }
  TPoint Cell{-1, -1};
  TSortArrow Arrow = saUp;
};

struct TPainter : TDecorator {
  bool ColumnClickSelection() const override { return Selects; }
  TObject* GetComponent() const override { return nullptr; }
  void SetComponent(TObject*) override {}
  void Trim() override {}
  bool Selects = true;
};

// A cell of a table of 4 columns and 10 rows, of which the first ones and the last row are fixed.
struct TCell {
  TVxFieldType Type = vftUnknown;
  String Text = u"ab";
  String Format{};
  TDecorationDrawStates State{};
  TPoint At{1, 1};
  TDecorationListOptions Options{};
  TColor Color = clWhite, Selection = clHighlight;
  TRect Stripes{};
  TDecorationOptions Look{};
  int Zebra = 0, Hover = -1;
  TAlignSet Align{}, ImageAlign{};
  TTextAngle Angle = taNone;
  int Image = -1;  // of five that are 16 wide and 10 high
  TTrimModes Modes{};
  TPoint Margins{1, 0};
  TDecorationDevice Device = ddScreen;
  bool HasImages = true, Selects = true, HasGraphic = false;
  TPoint SortCell{-1, -1};
  TSortArrow Arrow = saUp;
  TRect Rect{10, 20, 70, 50};
  int FontSize = 8;
  TPoint Graphic{20, 10};
  TCallbackDraw Before{}, After{};

  String Drawn() const;
};

// The lines with "; " between them, and without what nearly all cells have.
String Terse(const String& Drawn) {
  std::u16string text(Drawn.view());
  for (const auto& [from, to] : TCases<std::u16string, std::u16string>{
           {u" clBlack X 8", u""}, {u"fill 10,20 60x30 clCream\n", u"ground\n"}, {u"\n", u"; "}}) {
    for (size_t at; (at = text.find(from)) != text.npos;) text.replace(at, from.size(), to);
  }
  return text.empty() ? String() : String(text.substr(0, text.size() - 2));
}

String TCell::Drawn() const {
  TTable table;
  table.Cell = SortCell, table.Arrow = Arrow;
  TImageList images(16, 10);
  images.Add(TBitmap(pf24bit, 80, 10));
  TBitmap graphic(pf24bit, Graphic.X, Graphic.Y);
  TDecorationList list(&table);
  TDecoration& look = *list.GetItems(0);
  look.SetFieldType(Type), look.SetFormatString(Format), look.SetColor(Color), look.SetSelectRange(Stripes);
  look.SetSelectColor(clRed, clLime, clBlue, clAqua), look.SetOptions(Look), look.SetAlignSet(Align);
  look.SetImageAlignSet(ImageAlign), look.SetTextAngle(Angle), look.SetImageIndex(Image);
  list.SetColCount(4), list.SetRowCount(10), list.SetFixed(1, 1, 0, 1), list.SetOptions(Options);
  list.SetColor(clCream), list.SetFixedColor(clMoneyGreen), list.SetSelectionColor(Selection);
  list.SetZebraLines(Zebra), list.SetHoverIndex(Hover), list.SetTrimModes(Modes), list.SetDevice(Device);
  list.SetImageList(HasImages ? &images : nullptr), list.SetImageSpacing(3),
      list.SetFont({u"X", clBlack, {}, FontSize});
  list.SetMarginHoriz(Margins.X), list.SetMarginVerti(Margins.Y);
  list.SetCallbackPreDraw(Before), list.SetCallbackPostDraw(After);
  TRecordingCanvas canvas({.Kind = Device == ddMetafile ? dkMetafile : dkScreen});
  canvas.SetBrush({clFuchsia});
  const TFont font = canvas.GetFont();
  TPainter painter;
  painter.Selects = Selects;
  painter.DrawCell(canvas, Rect, Text, HasGraphic ? &graphic : nullptr, *list.VirtualListForCell(At.X, At.Y), State);
  EXPECT_EQ(canvas.GetFont(), font);
  EXPECT_EQ(canvas.GetBrush(), TBrush{clFuchsia});
  EXPECT_EQ(canvas.GetPen(), TPen{});
  EXPECT_TRUE(canvas.GetTextOpaque());
  return Terse(canvas.GetText());
}

struct TCase {
  const char* Name;
  TCell Cell;
  String Drawn;
};
void Check(const std::vector<TCase>& Cases) {
  for (const TCase& c : Cases) EXPECT_EQ(c.Cell.Drawn(), c.Drawn) << c.Name;
}

constexpr TPoint kHead{1, 0};

TEST(DrawCell, Backgrounds) {
  Check({
      {"content", {.Text = u""}, u"ground"},
      {"border", {.Text = u"", .At = {0, 3}}, u"fill 10,20 60x30 clMoneyGreen"},
      {"own colour", {.Text = u"", .Color = clRed}, u"fill 10,20 60x30 clRed"},
      {"own colour in the border", {.Text = u"", .At = {1, 9}, .Color = clRed}, u"fill 10,20 60x30 $000000F2"},
      {"none", {.Text = u"", .State = {ddsSelected}, .Color = clNone}, u""},
      {"selected",
       {.State = {ddsSelected, ddsMouseOver}, .Color = clRed},
       u"fill 10,20 60x30 clHighlight; text 11,28 14x14 \"ab\" clHighlightText X 8 in 11,28 58x22"},
      {"selected in another colour",
       {.State = {ddsSelected}, .Selection = clLime},
       u"fill 10,20 60x30 clLime; text 11,28 14x14 \"ab\" in 11,28 58x22"},
      {"not to be selected",
       {.State = {ddsSelected}, .Options = {dloNoSelect}},
       u"ground; text 11,28 14x14 \"ab\" in 11,28 58x22"},
      {"focused", {.Text = u"", .State = {ddsFocused}}, u"fill 10,20 60x30 $00CFDADE"},
      {"darkened and focused",
       {.Text = u"", .State = {ddsFocused}, .Look = {doZebraLine}},
       u"fill 10,20 60x30 $00C2CDD1"},
      {"second row", {.Text = u"", .At = {1, 2}, .Zebra = 3}, u"ground"},
      {"third row", {.Text = u"", .At = {1, 3}, .Zebra = 3}, u"fill 10,20 60x30 $00E3EEF2"},
      {"last row", {.Text = u"", .At = {1, 9}, .Zebra = 3}, u"fill 10,20 60x30 clMoneyGreen"},
      {"mask", {.State = {ddsMask, ddsSelected}, .Stripes = {1, 2, 3, 4}}, u"text 12,27 14x14 \"ab\" in 12,27 54x19"},
      {"printed white",
       {.Color = 0x01000000 | clWhite, .Device = ddPrinter},
       u"fill 10,20 60x30 $01FFFFFF; text 16,28 14x14 \"ab\" in 16,28 48x22"},
      {"stripes",
       {.Text = u"", .Stripes = {1, 2, 3, 4}},
       u"fill 10,20 1x30 clRed; fill 67,20 3x30 clBlue; fill 10,20 60x2 clLime; fill 10,46 60x4 clAqua; fill 11,22 "
       u"56x24 clCream"},
      {"clicked head with stripes",
       {.Text = u"", .At = kHead, .Options = {dloColumnClick}, .Stripes = {5, 0, 0, 0}, .Selects = false},
       u"fill 8,18 63x16 clWhite; gradient 8,34 63x17 $00FAF8F7 to $00F4F2F1 down"},
      {"content with stripes",
       {.Text = u"", .Options = {dloColumnClick}, .Stripes = {5, 0, 0, 0}, .Selects = false},
       u"fill 10,20 5x30 clRed; fill 15,20 55x30 clCream"},
      {"row under the mouse",
       {.Text = u"", .Hover = 1, .Margins = {2, 3}},
       u"ground; line 12,23 to 68,23 clBlack; line 12,24 to 68,24 clBlack"},
  });
}
TEST(DrawCell, Heads) {
  Check({
      {"plain",
       {.Text = u"", .At = kHead, .Options = {dloColumnClick}, .Color = clRed},
       u"fill 8,18 63x16 clWhite; gradient 8,34 63x17 $00FAF8F7 to $00F4F2F1 down"},
      {"plain at the left",
       {.Text = u"", .At = {0, 1}, .Options = {dloColumnClick}},
       u"fill 10,20 60x15 clWhite; gradient 10,35 60x15 $00FAF8F7 to $00F4F2F1 down"},
      {"hover",
       {.Text = u"", .State = {ddsMouseOver}, .At = kHead, .Options = {dloColumnClick}},
       u"fill 8,18 63x16 $00FFF7E3; gradient 8,34 63x17 $00FFEDBD to $00FCE2A2 down"},
      {"pressed",
       {.Text = u"", .State = {ddsMouseOver, ddsMouseDown}, .At = kHead, .Options = {dloColumnClick}},
       u"fill 8,18 63x16 $00F9E4BC; gradient 8,34 63x17 $00F7D68D to $00F5D18A down"},
      {"sorted up",
       {.Text = u"", .At = kHead, .Options = {dloColumnClick}, .SortCell = kHead},
       u"fill 8,18 63x16 $00FCF9F2; gradient 8,34 63x17 $00F9F1E1 to $00F6ECD8 down; picture 35,15 9x12 without "
       u"clFuchsia"},
      {"sorted without an arrow",
       {.Text = u"", .At = kHead, .Options = {dloColumnClick}, .SortCell = kHead, .Arrow = saNone},
       u"fill 8,18 63x16 $00FCF9F2; gradient 8,34 63x17 $00F9F1E1 to $00F6ECD8 down"},
      {"sorted by a cell below", {.Text = u"", .Options = {dloColumnClick}, .SortCell = {1, 1}}, u"ground"},
      {"not to be clicked", {.Text = u"", .State = {ddsMouseOver}, .At = kHead}, u"fill 10,20 60x30 clMoneyGreen"},
      {"printed",
       {.Text = u"", .State = {ddsMouseOver}, .At = kHead, .Options = {dloColumnClick}, .Device = ddMetafile},
       u"fill 10,20 60x30 $003CC8FF"},
  });
}
TEST(DrawCell, Images) {
  Check({
      {"before the text", {.Image = 4}, u"ground; picture 11,30 16x10; text 30,28 14x14 \"ab\" in 30,28 39x22"},
      {"no such image", {.Text = u"", .Image = 5}, u"ground"},
      {"behind the text",
       {.Align = {alLeft}, .ImageAlign = {alRight}, .Image = 0},
       u"ground; picture 53,30 16x10; text 11,28 14x14 \"ab\" in 11,28 39x22"},
      {"behind the text in the middle",
       {.Align = {alLeft}, .Image = 0},
       u"ground; picture 53,30 16x10; text 11,28 14x14 \"ab\" in 11,28 39x22"},
      {"first of both",
       {.Align = {alLeft}, .ImageAlign = {alLeft}, .Image = 0},
       u"ground; picture 11,30 16x10; text 30,28 14x14 \"ab\" in 30,28 39x22"},
      {"above the text",
       {.Align = {alRight}, .ImageAlign = {alTop, alRight}, .Image = 0},
       u"ground; picture 53,20 16x10; text 55,33 14x14 \"ab\" in 11,33 58x17"},
      {"below the text",
       {.ImageAlign = {alBottom}, .Image = 0},
       u"ground; picture 32,40 16x10; text 11,22 14x14 \"ab\" in 11,22 58x17"},
      {"alone", {.Text = u" ", .ImageAlign = {alRight, alBottom}, .Image = 0}, u"ground; picture 53,40 16x10"},
      {"as high as a line",
       {.Text = u"", .Image = 0, .Modes = {tmFitImage}},
       u"ground; picture 29,28 22x14 of 0,0 16x10"},
      {"graphic", {.Type = vftGrafic, .HasGraphic = true}, u"ground; picture 11,20 58x29 of 0,0 20x10"},
      {"high graphic",
       {.Type = vftGrafic, .ImageAlign = {alClient}, .HasGraphic = true, .Graphic = {10, 20}},
       u"ground; picture 32,20 15x30 of 0,0 10x20"},
      {"graphic at the right",
       {.Type = vftGrafic, .ImageAlign = {alRight, alBottom}, .HasGraphic = true},
       u"ground; picture 11,21 58x29 of 0,0 20x10"},
      {"image, letter, and one that is missing", {.Type = vftImage, .Text = u"1,x,99"}, u"ground; picture 11,30 16x10"},
      {"images in a row",
       {.Type = vftToggle, .Text = u"1,2", .Align = {alClient, alBottom}},
       u"ground; picture 24,40 16x10; picture 40,40 16x10"},
      {"images pushed together",
       {.Type = vftToggle, .Text = u"0,1,2,3,4,0,1", .Align = {alTop}},
       u"ground; picture 11,20 16x10; picture 19,20 16x10; picture 28,20 16x10; picture 36,20 16x10; picture 44,20 "
       u"16x10; picture 52,20 16x10; picture 61,20 16x10"},
      {"images in a column",
       {.Type = vftImage, .Text = u"0,1,2,3", .Align = {alRight}},
       u"ground; picture 53,20 16x10; picture 53,28 16x10; picture 53,35 16x10; picture 53,42 16x10"},
      {"indices without images",
       {.Type = vftImage, .Text = u"1,2", .HasImages = false},
       u"ground; text 11,28 18x14 \"1,2\" in 11,28 58x22"},
      {"no image left", {.Type = vftImage, .Text = u"x"}, u"ground"},
      {"button", {.Type = vftButton, .Text = u",,1", .Format = u"0,,,2|boSquare"}, u"ground; picture 11,30 16x10"},
      {"button under the mouse",
       {.Type = vftButton, .Text = u",,1", .Format = u"0,,,2|boSquare", .State = {ddsMouseOver}},
       u"ground; frame 7,26 24x18 clGray; picture 11,30 16x10"},
      {"pressed button",
       {.Type = vftButton, .Text = u",,1", .Format = u"0,,,2|boSquare", .State = {ddsMouseOver, ddsMouseDown}},
       u"ground; frame 7,26 24x18 $00303030; picture 12,30 16x10"},
      {"round button",
       {.Type = vftButton, .Text = u",,1", .Format = u"|boCircle", .State = {ddsMouseOver}},
       u"ground; gradient 7,26 24x18 clWhite to $00E7E7E7 down bell ellipse; ellipse 7,26 24x18 pen $00888888; picture "
       u"11,30 16x10"},
      {"whole cell",
       {.Type = vftButton, .Text = u",,1", .Format = u"|boCell", .State = {ddsMouseOver, ddsMask}},
       u"frame 10,20 60x30 clGray; picture 11,30 16x10"},
  });
}
TEST(DrawCell, Texts) {
  Check({
      {"left", {}, u"ground; text 11,28 14x14 \"ab\" in 11,28 58x22"},
      {"client and top", {.Align = {alClient, alTop}}, u"ground; text 33,20 14x14 \"ab\" in 11,20 58x14"},
      {"right and bottom",
       {.Align = {alRight, alBottom}, .Margins = {2, 3}},
       u"ground; text 54,33 14x14 \"ab\" in 12,33 56x14"},
      {"lines with a break", {.Text = u"a\r\nb"}, u"ground; text 11,28 22x14 \"a\\x0D\\x0Ab\" in 11,28 58x22"},
      {"lines of a format",
       {.Type = vftBoolean, .Text = u"1", .Format = u"no\nyes"},
       u"ground; text 11,28 21x14 \"yes\" in 11,28 58x22"},
      {"cells, empty ones make way",
       {.Type = vftCommatext, .Text = u"a,,b,c"},
       u"ground; text 11,21 7x14 \"a\" in 11,21 58x29; text 11,35 7x14 \"b\" in 11,35 58x15"},
      {"cells, empty ones stay",
       {.Type = vftCommatext, .Text = u"a,,b,c", .Modes = {tmTrueCommatext}},
       u"ground; text 11,21 7x14 \"a\" in 11,21 58x29"},
      {"all cells fit", {.Type = vftCommatext, .Text = u",b"}, u"ground; text 11,35 7x14 \"b\" in 11,35 58x15"},
      {"too low", {.Text = u"a", .Rect = {0, 0, 40, 13}}, u"fill 0,0 40x13 clCream"},
      {"parted",
       {.Type = vftString, .Text = u"a|b|c", .Format = u"|", .Align = {alClient}},
       u"ground; text 11,28 7x14 \"a\" in 11,28 58x22; text 51,28 18x14 \"b|c\" in 11,28 58x22"},
      {"not parted",
       {.Type = vftString, .Text = u"ab", .Format = u"|", .Align = {alClient}},
       u"ground; text 33,28 14x14 \"ab\" in 11,28 58x22"},
      {"rich", {.Type = vftTinyHTML, .Text = u"<b>a</b>", .Align = {alClient}}, u"ground; text 35,28 8x14 \"a\" bold"},
      {"rich at the right", {.Type = vftTinyHTML, .Text = u"a", .Align = {alRight}}, u"ground; text 62,20 7x14 \"a\""},
      {"turned",
       {.Type = vftCommatext, .Text = u"a,b", .Angle = taVert, .Margins = {2, 3}},
       u"ground; fill 26,41 14x7 clCream; text 26,41 14x7 \"a\" upward; fill 40,41 14x7 clCream; text 40,41 14x7 \"b\" "
       u"upward"},
      {"turned, client and bottom",
       {.Align = {alClient, alBottom}, .Angle = taVert},
       u"ground; fill 56,28 14x14 clCream; text 56,28 14x14 \"ab\" upward"},
      {"turned, right and top",
       {.Align = {alRight, alTop}, .Angle = taVert},
       u"ground; fill 10,21 14x14 clCream; text 10,21 14x14 \"ab\" upward"},
      {"turned, shortened",
       {.Text = u"abcdef", .Angle = taVert},
       u"ground; fill 33,27 14x22 clCream; text 33,27 14x22 \"ab..\" upward"},
      {"turned over a head",
       {.At = {0, 1}, .Options = {dloColumnClick}, .Angle = taVert},
       u"fill 10,20 60x15 clWhite; gradient 10,35 60x15 $00FAF8F7 to $00F4F2F1 down; text 33,35 14x14 \"ab\" upward"},
      {"turned, in a mask", {.State = {ddsMask}, .Angle = taVert}, u"text 33,35 14x14 \"ab\" upward"},
      {"turned, printed", {.Angle = taVert, .Device = ddPrinter}, u"ground; text 33,30 14x14 \"ab\" upward"},
      {"fraction",
       {.Type = vftFraction, .Text = u"21,5", .Align = {alRight}},
       u"ground; fill 41,28 14x14 clCream; text 41,28 14x14 \"21\"; text 57,28 5x10 \"1\" clBlack X 6; text 64,32 5x10 "
       u"\"2\" clBlack X 6; line 58,41 to 68,29 clBlack"},
      {"fraction alone",
       {.Type = vftFraction, .Text = u",75", .Rect = {0, 0, 300, 90}, .FontSize = 48},
       u"fill 0,0 300x90 clCream; fill 1,5 76x80 clCream; text 1,5 29x60 \"3\" clBlack X 36; text 48,25 29x60 \"4\" "
       u"clBlack X 36; line 8,78 to 70,12 clBlack; line 7,78 to 69,12 clBlack; line 9,78 to 71,12 clBlack"},
      {"fraction alone in a mask",
       {.Type = vftFraction, .Text = u",75", .State = {ddsMask}},
       u"text 11,28 5x10 \"3\" clBlack X 6; text 20,32 5x10 \"4\" clBlack X 6; line 12,41 to 24,29 clBlack"},
      {"nearly a fraction",
       {.Type = vftFraction, .Text = u"1,3399"},
       u"ground; fill 11,28 25x14 clCream; text 11,28 25x14 \"1,34\""},
      {"shortened fraction",
       {.Type = vftFraction, .Text = u"123456,5", .Rect = {0, 0, 40, 20}},
       u"fill 0,0 40x20 clCream; fill 1,3 36x14 clCream; text 1,3 36x14 \"1234..\""},
      {"no fraction", {.Type = vftFraction, .Text = u"1,7"}, u"ground; text 11,28 18x14 \"1,7\" in 11,28 58x22"},
  });
}

// The printer has twice the screen's pixels across and three times down.
TEST(DrawCell, OnFinerDevices) {
  const TPoint printer = GetPrinterPixelsPerInch();
  SetPrinterPixelsPerInch({192, 288});
  Check({
      {"stripes and margins",
       {.Color = clRed, .Stripes = {1, 1, 5, 5}, .Margins = {3, 1}, .Device = ddPrinter, .Rect = {0, 0, 100, 60}},
       u"fill 0,0 1x60 clRed; fill 93,0 7x60 clBlue; fill 0,0 100x2 clLime; fill 0,50 100x10 clAqua; fill 1,2 91x48 "
       u"clRed; text 7,19 14x14 \"ab\" in 7,19 79x28"},
      {"image",
       {.Text = u"", .Hover = 1, .Image = 0, .Device = ddPrinter},
       u"ground; picture 24,20 32x30 of 0,0 16x10"},
      {"images",
       {.Type = vftImage, .Text = u"0,1", .Device = ddMetafile},
       u"ground; picture 12,20 32x30 of 0,0 16x10; picture 40,20 32x30 of 0,0 16x10"},
      {"arrow",
       {.Text = u"", .At = kHead, .Options = {dloColumnClick}, .Device = ddPrinter, .SortCell = kHead, .Arrow = saDown},
       u"fill 10,20 60x30 clMoneyGreen; picture 35,15 9x12 without clFuchsia"},
  });
  SetPrinterPixelsPerInch(printer);
}

// What is left of a text in so many pixels: a letter takes 7, a wide one 11, a blank and a point 4.
TEST(DrawCell, ShortensTexts) {
  constexpr TTrimModes kNumbers{tmNumberProtection};
  for (const auto& [text, width, modes, shown] : TCases<String, int, TTrimModes, String>{
           {u"abcd", 28, {}, u"abcd"},
           {u"abcd", 27, {}, u"ab.."},
           {u"abcd", 21, {}, u"a.."},
           {u"abcd", 14, {}, u".."},
           {u"abcd", 9, {}, u".."},
           {u"abcd", 8, {}, u"a"},
           {u"abcd", 7, {}, u""},
           {u"ab 12", 31, {}, u"ab .."},
           {u"Wort 12 34 Ende", 200, kNumbers, u"Wort 12 34 Ende"},
           {u"Wort 12 34 Ende", 92, kNumbers, u"Wort 12 34Ende"},
           {u"Wort 12 34 Ende", 80, kNumbers, u"W..12 34Ende"},
           {u"Wort 12 34 Ende", 60, kNumbers, u"12 34Ende"},
           {u"Wort 12 34 Ende", 59, kNumbers, u"12 34En.."},
           {u"Wort 12 34 Ende", 40, kNumbers, u"12 34.."},
           {u"a1  2  b", 30, kNumbers, u"1 2b"},
           {u"12345", 28, kNumbers, u"12.."},
           {u"abcd", 27, kNumbers, u"ab.."},
           {u"1abc", 8, kNumbers, u"1"},
           {u"😀bc", 8, {}, u"😀"},
       }) {
    const String drawn =
        TCell{.Text = text, .State = {ddsMask}, .Modes = modes, .Margins = {}, .Rect = {0, 0, width, 20}}.Drawn();
    const std::u16string_view line = drawn;
    const size_t first = line.find(u'"') + 1, last = line.rfind(u'"');
    EXPECT_EQ(first == 0 ? u"" : line.substr(first, last - first), shown.view()) << text << width;
  }
  const String longText(1'000'000, u'a');
  EXPECT_EQ((TCell{.Text = longText, .State = {ddsMask}, .Rect = {0, 0, 31, 20}}.Drawn()),
            u"text 1,3 29x14 \"aaa..\" in 1,3 29x17");
}

// Sees the cell before and behind its painting, and changes it in between.
struct TWitness {
  void Before(TCanvas& Canvas, int Col, int Row, TRect& Rect, TDecoration& Look) {
    Canvas.TextOut(Col, Row, u"<");
    Look.SetColor(clLime);
    Rect.Left += 30;
  }
  void After(TCanvas& Canvas, int, int, TRect& Rect, TDecoration& Look) {
    Canvas.SetBrush({Look.GetColor()});
    Canvas.FrameRect(Rect);
  }
};

TEST(DrawCell, CallsBack) {
  TWitness witness;
  Check({{"both",
          {.Text = u"",
           .Stripes = {2, 0, 0, 0},
           .Before = TCallbackDraw::Of<&TWitness::Before>(witness),
           .After = TCallbackDraw::Of<&TWitness::After>(witness)},
          u"fill 1,1 7x14 clFuchsia; text 1,1 7x14 \"<\" clWindowText Tahoma 8; fill 10,20 2x30 clRed; fill 42,20 "
          u"28x30 clLime; frame 43,20 26x30 clLime"}});
}

TEST(DrawCell, DrawsTheBorderOfTheTable) {
  TDecorationList list;
  list.SetColCount(2), list.SetRowCount(2), list.SetOptions({dloBorder});
  TRecordingCanvas canvas;
  canvas.SetPen({clRed, 2});
  for (TPoint cell : {TPoint{0, 0}, TPoint{1, 1}}) {
    list.SetCell(cell);
    TDecorator::DrawBorder(canvas, {10, 20, 70, 50}, list);
  }
  EXPECT_EQ(Terse(canvas.GetText()),
            u"line 10,20 to 10,50 clBlack 2; line 10,20 to 70,20 clBlack 2; line 69,20 to 69,50 clBlack 2; line 10,49 "
            u"to 70,49 clBlack 2");
  EXPECT_EQ(canvas.GetPen(), (TPen{clRed, 2}));
}

}  // namespace
}  // namespace vx::test
