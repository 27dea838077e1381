#include "core/uVxFunctionsSerialize.h"
#include "platform/Drawing.h"
#include "platform/TRecordingCanvas.h"
#include "rendering/uDecoration.h"
#include "tests/support/PlainDecorator.h"
#include "tests/support/Test.h"

namespace {

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
  return text.empty() ? String(u"-") : String(text.substr(0, text.size() - 2));
}

String TCell::Drawn() const {
  TSortedPlain table;
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
  list.SetImageList(HasImages ? &images : nullptr), list.SetImageSpacing(3);
  list.SetFont({u"X", clBlack, {}, FontSize}), list.SetMarginHoriz(Margins.X), list.SetMarginVerti(Margins.Y);
  list.SetCallbackPreDraw(Before), list.SetCallbackPostDraw(After);
  TRecordingCanvas canvas({.Kind = Device == ddMetafile ? dkMetafile : dkScreen});
  canvas.SetBrush({clFuchsia});
  const TFont font = canvas.GetFont();
  TPlainDecorator painter;
  painter.Selects = Selects;
  painter.DrawCell(canvas, Rect, Text, HasGraphic ? &graphic : nullptr, *list.VirtualListForCell(At.X, At.Y), State);
  EXPECT_EQ(canvas.GetFont(), font);
  EXPECT_EQ(canvas.GetBrush(), TBrush{clFuchsia});
  EXPECT_EQ(canvas.GetPen(), TPen{});
  EXPECT_TRUE(canvas.GetTextOpaque());
  return Terse(canvas.GetText());
}

// A line for each cell: its name, and what it draws.
void Check(const std::vector<TCell>& Cells, const String& Drawn) {
  const auto lines = explode(Drawn, u'\n');
  ASSERT_EQ(static_cast<int>(Cells.size()), lines->GetCount());
  for (size_t i = 0; i < Cells.size(); ++i) {
    const String line = lines->Get(static_cast<int>(i));
    const std::u16string_view name = line.view().substr(0, line.view().find(u':'));
    EXPECT_EQ(Concat({name, u": ", Cells[i].Drawn()}), line);
  }
}

constexpr TPoint kHead{1, 0};
TCell Head(TCell Cell) {
  Cell.Text = u"", Cell.At = kHead, Cell.Options = {dloColumnClick};
  return Cell;
}
TCell Button(TCell Cell) {
  Cell.Type = vftButton, Cell.Text = u",,1", Cell.Format = u"0,,,2|" + Cell.Format;
  return Cell;
}

TEST(DrawCell, Backgrounds) {
  Check({TCell{.Text = u""}, TCell{.Text = u"", .At = {0, 3}}, TCell{.Text = u"", .Color = clRed},
         TCell{.Text = u"", .At = {1, 9}, .Color = clRed}, TCell{.Text = u"", .State = {ddsSelected}, .Color = clNone},
         TCell{.State = {ddsSelected, ddsMouseOver}, .Color = clRed},
         TCell{.State = {ddsSelected}, .Options = {dloNoSelect}},
         TCell{.Text = u"", .State = {ddsFocused}, .Look = {doZebraLine}}, TCell{.Text = u"", .At = {1, 2}, .Zebra = 3},
         TCell{.Text = u"", .At = {1, 3}, .Zebra = 3}, TCell{.Text = u"", .At = {1, 9}, .Zebra = 3},
         TCell{.State = {ddsMask, ddsSelected}, .Stripes = {1, 2, 3, 4}},
         TCell{.State = {ddsSelected}, .Selection = clWhite, .Device = ddPrinter},
         TCell{.Text = u"", .Stripes = {1, 2, 3, 4}}, Head({.Stripes = {5, 0, 0, 0}, .Selects = false}),
         TCell{.Text = u"", .Hover = 1, .Margins = {2, 3}}},
        uR"(content: ground
border: fill 10,20 60x30 clMoneyGreen
own colour: fill 10,20 60x30 clRed
own colour in the border: fill 10,20 60x30 $000000F2
none: -
selected: fill 10,20 60x30 clHighlight; text 11,28 14x14 "ab" clHighlightText X 8 in 11,28 58x22
not to be selected: ground; text 11,28 14x14 "ab" in 11,28 58x22
darkened and focused: fill 10,20 60x30 $00C2CDD1
second row: ground
third row: fill 10,20 60x30 $00E3EEF2
last row: fill 10,20 60x30 clMoneyGreen
mask: text 12,27 14x14 "ab" in 12,27 54x19
printed white: text 16,28 14x14 "ab" in 16,28 48x22
stripes: fill 10,20 1x30 clRed; fill 67,20 3x30 clBlue; fill 10,20 60x2 clLime; fill 10,46 60x4 clAqua; fill 11,22 56x24 clCream
clicked head with stripes: fill 8,18 63x16 clWhite; gradient 8,34 63x17 $00FAF8F7 to $00F4F2F1 down
row under the mouse: ground; line 12,23 to 68,23 clBlack; line 12,24 to 68,24 clBlack)");
}
TEST(DrawCell, Heads) {
  Check(
      {Head({.Color = clRed}), TCell{.Text = u"", .At = {0, 1}, .Options = {dloColumnClick}},
       Head({.State = {ddsMouseOver}}), Head({.State = {ddsMouseOver, ddsMouseDown}}), Head({.SortCell = kHead}),
       Head({.SortCell = kHead, .Arrow = saNone}), TCell{.Text = u"", .Options = {dloColumnClick}, .SortCell = {1, 1}},
       TCell{.Text = u"", .State = {ddsMouseOver}, .At = kHead}, Head({.State = {ddsMouseOver}, .Device = ddMetafile})},
      uR"(plain: fill 8,18 63x16 clWhite; gradient 8,34 63x17 $00FAF8F7 to $00F4F2F1 down
plain at the left: fill 10,20 60x15 clWhite; gradient 10,35 60x15 $00FAF8F7 to $00F4F2F1 down
hover: fill 8,18 63x16 $00FFF7E3; gradient 8,34 63x17 $00FFEDBD to $00FCE2A2 down
pressed: fill 8,18 63x16 $00F9E4BC; gradient 8,34 63x17 $00F7D68D to $00F5D18A down
sorted up: fill 8,18 63x16 $00FCF9F2; gradient 8,34 63x17 $00F9F1E1 to $00F6ECD8 down; picture 35,15 9x12 without clFuchsia
sorted without an arrow: fill 8,18 63x16 $00FCF9F2; gradient 8,34 63x17 $00F9F1E1 to $00F6ECD8 down
sorted by a cell below: ground
not to be clicked: fill 10,20 60x30 clMoneyGreen
printed: fill 10,20 60x30 $003CC8FF)");
}
TEST(DrawCell, Images) {
  Check(
      {TCell{.Image = 4}, TCell{.Text = u"", .Image = 5}, TCell{.Align = {alLeft}, .ImageAlign = {alRight}, .Image = 0},
       TCell{.Align = {alLeft}, .ImageAlign = {alLeft}, .Image = 0},
       TCell{.Align = {alRight}, .ImageAlign = {alTop, alRight}, .Image = 0},
       TCell{.ImageAlign = {alBottom}, .Image = 0}, TCell{.Text = u" ", .ImageAlign = {alRight, alBottom}, .Image = 0},
       TCell{.Text = u"", .Image = 0, .Modes = {tmFitImage}},
       TCell{.Type = vftGrafic, .ImageAlign = {alClient}, .HasGraphic = true, .Graphic = {10, 20}},
       TCell{.Type = vftGrafic, .ImageAlign = {alRight, alBottom}, .HasGraphic = true}},
      uR"(before the text: ground; picture 11,30 16x10; text 30,28 14x14 "ab" in 30,28 39x22
no such image: ground
behind the text: ground; picture 53,30 16x10; text 11,28 14x14 "ab" in 11,28 39x22
first of both: ground; picture 11,30 16x10; text 30,28 14x14 "ab" in 30,28 39x22
above the text: ground; picture 53,20 16x10; text 55,33 14x14 "ab" in 11,33 58x17
below the text: ground; picture 32,40 16x10; text 11,22 14x14 "ab" in 11,22 58x17
alone: ground; picture 53,40 16x10
as high as a line: ground; picture 29,28 22x14 of 0,0 16x10
high graphic: ground; picture 32,20 15x30 of 0,0 10x20
graphic at the right: ground; picture 11,21 58x29 of 0,0 20x10)");
}
TEST(DrawCell, ContentImages) {
  Check({TCell{.Type = vftImage, .Text = u"1,x,99"},
         TCell{.Type = vftToggle, .Text = u"1,2", .Align = {alClient, alBottom}},
         TCell{.Type = vftToggle, .Text = u"0,1,2,3,4,0,1", .Align = {alTop}},
         TCell{.Type = vftImage, .Text = u"0,1,2,3", .Align = {alRight}},
         TCell{.Type = vftImage, .Text = u"1,2", .HasImages = false}},
        uR"(image, letter, and one that is missing: ground; picture 11,30 16x10
images in a row: ground; picture 24,40 16x10; picture 40,40 16x10
images pushed together: ground; picture 11,20 16x10; picture 19,20 16x10; picture 28,20 16x10; picture 36,20 16x10; picture 44,20 16x10; picture 52,20 16x10; picture 61,20 16x10
images in a column: ground; picture 53,20 16x10; picture 53,28 16x10; picture 53,35 16x10; picture 53,42 16x10
indices without images: ground; text 11,28 18x14 "1,2" in 11,28 58x22)");
}
TEST(DrawCell, Buttons) {
  Check({Button({.Format = u"boSquare"}), Button({.Format = u"boSquare", .State = {ddsMouseOver}}),
         Button({.Format = u"boSquare", .State = {ddsMouseOver, ddsMouseDown}}),
         Button({.Format = u"boCircle", .State = {ddsMouseOver}}),
         Button({.Format = u"boCell", .State = {ddsMouseOver, ddsMask}})},
        uR"(button: ground; picture 11,30 16x10
button under the mouse: ground; frame 7,26 24x18 clGray; picture 11,30 16x10
pressed button: ground; frame 7,26 24x18 $00303030; picture 12,30 16x10
round button: ground; gradient 7,26 24x18 clWhite to $00E7E7E7 down bell ellipse; ellipse 7,26 24x18 pen $00888888; picture 11,30 16x10
whole cell: frame 10,20 60x30 clGray; picture 11,30 16x10)");
}
TEST(DrawCell, Texts) {
  Check({TCell{}, TCell{.Align = {alClient, alTop}}, TCell{.Align = {alRight, alBottom}, .Margins = {2, 3}},
         TCell{.Text = u"a\r\nb"}, TCell{.Type = vftBoolean, .Text = u"1", .Format = u"no\nyes"},
         TCell{.Type = vftCommatext, .Text = u"a,,b,c"},
         TCell{.Type = vftCommatext, .Text = u"a,,b,c", .Modes = {tmTrueCommatext}},
         TCell{.Type = vftCommatext, .Text = u",b"}, TCell{.Text = u"a", .Rect = {0, 0, 40, 13}},
         TCell{.Type = vftString, .Text = u"a|b|c", .Format = u"|", .Align = {alClient}},
         TCell{.Type = vftTinyHTML, .Text = u"<b>a</b>", .Align = {alClient}}},
        uR"(left: ground; text 11,28 14x14 "ab" in 11,28 58x22
client and top: ground; text 33,20 14x14 "ab" in 11,20 58x14
right and bottom: ground; text 54,33 14x14 "ab" in 12,33 56x14
lines with a break: ground; text 11,28 22x14 "a\x0D\x0Ab" in 11,28 58x22
lines of a format: ground; text 11,28 21x14 "yes" in 11,28 58x22
cells, empty ones make way: ground; text 11,21 7x14 "a" in 11,21 58x29; text 11,35 7x14 "b" in 11,35 58x15
cells, empty ones stay: ground; text 11,21 7x14 "a" in 11,21 58x29
all cells fit: ground; text 11,35 7x14 "b" in 11,35 58x15
too low: fill 0,0 40x13 clCream
parted: ground; text 11,28 7x14 "a" in 11,28 58x22; text 51,28 18x14 "b|c" in 11,28 58x22
rich: ground; text 35,28 8x14 "a" bold)");
}
TEST(DrawCell, TurnedTexts) {
  Check(
      {TCell{.Type = vftCommatext, .Text = u"a,b", .Angle = taVert, .Margins = {2, 3}},
       TCell{.Align = {alClient, alBottom}, .Angle = taVert}, TCell{.Align = {alRight, alTop}, .Angle = taVert},
       TCell{.Text = u"abcdef", .Angle = taVert}, TCell{.At = {0, 1}, .Options = {dloColumnClick}, .Angle = taVert},
       TCell{.State = {ddsMask}, .Angle = taVert}, TCell{.Angle = taVert, .Device = ddPrinter}},
      uR"(turned: ground; fill 26,41 14x7 clCream; text 26,41 14x7 "a" upward; fill 40,41 14x7 clCream; text 40,41 14x7 "b" upward
turned, client and bottom: ground; fill 56,28 14x14 clCream; text 56,28 14x14 "ab" upward
turned, right and top: ground; fill 10,21 14x14 clCream; text 10,21 14x14 "ab" upward
turned, shortened: ground; fill 33,27 14x22 clCream; text 33,27 14x22 "ab.." upward
turned over a head: fill 10,20 60x15 clWhite; gradient 10,35 60x15 $00FAF8F7 to $00F4F2F1 down; text 33,35 14x14 "ab" upward
turned, in a mask: text 33,35 14x14 "ab" upward
turned, printed: ground; text 33,30 14x14 "ab" upward)");
}
TEST(DrawCell, Fractions) {
  Check(
      {TCell{.Type = vftFraction, .Text = u"21,5", .Align = {alRight}},
       TCell{.Type = vftFraction, .Text = u",75", .Rect = {0, 0, 300, 90}, .FontSize = 48},
       TCell{.Type = vftFraction, .Text = u",75", .State = {ddsMask}},
       TCell{.Type = vftFraction, .Text = u"1,3399", .Align = {alRight}},
       TCell{.Type = vftFraction, .Text = u"123456,5", .Rect = {0, 0, 40, 20}}},
      uR"(fraction: ground; fill 41,28 14x14 clCream; text 41,28 14x14 "21"; text 57,28 5x10 "1" clBlack X 6; text 64,32 5x10 "2" clBlack X 6; line 58,41 to 68,29 clBlack
fraction alone: fill 0,0 300x90 clCream; fill 1,5 76x80 clCream; text 1,5 29x60 "3" clBlack X 36; text 48,25 29x60 "4" clBlack X 36; line 8,78 to 70,12 clBlack; line 7,78 to 69,12 clBlack; line 9,78 to 71,12 clBlack
fraction alone in a mask: text 11,28 5x10 "3" clBlack X 6; text 20,32 5x10 "4" clBlack X 6; line 12,41 to 24,29 clBlack
nearly a fraction: ground; text 44,28 25x14 "1,34" in 11,28 58x22
shortened fraction: fill 0,0 40x20 clCream; fill 1,3 36x14 clCream; text 1,3 36x14 "1234..")");
}
// The printer has twice the screen's pixels across and three times down.
TEST(DrawCell, OnFinerDevices) {
  const TPoint printer = GetPrinterPixelsPerInch();
  SetPrinterPixelsPerInch({192, 288});
  Check(
      {TCell{.Color = clRed, .Stripes = {1, 1, 5, 5}, .Margins = {3, 1}, .Device = ddPrinter, .Rect = {0, 0, 100, 60}},
       TCell{.Text = u"", .Hover = 1, .Image = 0, .Device = ddPrinter},
       TCell{.Type = vftImage, .Text = u"0,1", .Device = ddMetafile},
       Head({.Device = ddPrinter, .SortCell = kHead, .Arrow = saDown})},
      uR"(stripes and margins: fill 0,0 1x60 clRed; fill 93,0 7x60 clBlue; fill 0,0 100x2 clLime; fill 0,50 100x10 clAqua; fill 1,2 91x48 clRed; text 7,19 14x14 "ab" in 7,19 79x28
image: ground; picture 24,20 32x30 of 0,0 16x10
images: ground; picture 12,20 32x30 of 0,0 16x10; picture 40,20 32x30 of 0,0 16x10
arrow: fill 10,20 60x30 clMoneyGreen; picture 35,15 9x12 without clFuchsia)");
  SetPrinterPixelsPerInch(printer);
}
// What is left of a text in so many pixels: a letter takes 7, a wide one 11, a blank and a point 4.
TEST(DrawCell, ShortensTexts) {
  for (const auto& [text, modes, all] : TCases<String, TTrimModes, String>{
           {u"abcd", {}, u"28=abcd;27=ab..;21=a..;14=..;9=..;8=a;7=-"},
           {u"ab 12", {}, u"31=ab .."},
           {u"😀bc", {}, u"8=😀"},
           {u"Wort 12 34 Ende",
            {tmNumberProtection},
            u"200=Wort 12 34 Ende;92=Wort 12 34Ende;80=W..12 34Ende;60=12 34Ende;59=12 34En..;40=12 34..;8=-"},
           {u"a1  2  b", {tmNumberProtection}, u"30=1 2b"},
           {u"12345", {tmNumberProtection}, u"28=12..;8=1"},
           {u"abcd", {tmNumberProtection}, u"27=ab.."},
       }) {
    const auto rows = explode(all, u';');
    for (const String& row : rows->Items()) {
      const String width = row.Slice(0, static_cast<int>(row.view().find(u'=')));
      const TCell cell{
          .Text = text, .State = {ddsMask}, .Modes = modes, .Margins = {}, .Rect = {0, 0, StrToInt(width), 20}};
      const String drawn = cell.Drawn();
      const size_t first = drawn.view().find(u'"') + 1, last = drawn.view().rfind(u'"');
      EXPECT_EQ(Concat({width, u"=", first == 0 ? u"-" : drawn.view().substr(first, last - first)}), row) << text;
    }
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
  Check(
      {{.Text = u"",
        .Stripes = {2, 0, 0, 0},
        .Before = TCallbackDraw::Of<&TWitness::Before>(witness),
        .After = TCallbackDraw::Of<&TWitness::After>(witness)}},
      uR"(both: fill 1,1 7x14 clFuchsia; text 1,1 7x14 "<" clWindowText Tahoma 8; fill 10,20 2x30 clRed; fill 42,20 28x30 clLime; frame 43,20 26x30 clLime)");
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
