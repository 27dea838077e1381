#include "core/uVxFunctionsSerialize.h"
#include "platform/Drawing.h"
#include "platform/TRecordingCanvas.h"
#include "rendering/uDecoration.h"
#include "rendering/uDecoration/detail/SortArrows.h"
#include "tests/support/PlainDecorator.h"
#include "tests/support/Test.h"

namespace {

// Behind what is drawn as a fraction stands "#".
String Shown(const String& Value, TVxFieldType Type, const String& Format) {
  bool isFraction = true;
  const String text = TDecorator::FormatText(Value, Type, Format, isFraction);
  return isFraction ? text + u"#" : text;
}

TEST(Decorator, FormatsByType) {
  const String cutWords(std::u16string_view(u"no\0yes\nx", 8));
  // Values and what is shown for them.
  for (const auto& [types, format, all] : TCases<std::vector<TVxFieldType>, String, String>{
           {{vftImage, vftToggle, vftButton}, u"", u"1="},
           {{vftImage, vftToggle, vftButton, vftTinyHTML, vftGrafic, static_cast<TVxFieldType>(200)}, u"x", u"1=;a="},
           {{vftUnknown, vftShortString, vftString, vftCommatext}, u"0", u"1=1;a,b=a,b"},
           {{vftUnknown, vftBoolean, vftInteger, vftFloat, vftDate, vftTime, vftDateTime},
            u"",
            u"1=1;007=007;=;0:30=0:30"},
           {{vftStatus, vftHour, vftTinyHTML, vftGrafic, vftCommatext}, u"", u"1=1;=;0:30=0:30"},
           {{vftBoolean}, u"yes\r\n", u"1=ja;0=nein;x=nein"},
           {{vftBoolean}, cutWords, u"1=ja"},
           {{vftBoolean}, u"no\r\nyes\r\nx", u"1=yes;0=no;2=no;=no"},
           {{vftBoolean}, u"\ryes", u"1=yes;0="},
           {{vftStatus}, u"x", u"0=aktiv;1=inaktiv;2=gelöscht;7=;00=;="},
           {{vftInteger, vftFloat}, u"kb ", u"1500=2 KB;2048=2 KB;-500=0 KB;1e5=1e5"},
           {{vftInteger, vftFloat}, u"KB", u"10000000000000000000000000=9,765625E21 KB"},
           {{vftInteger, vftFloat}, u"0.00", u"+1,005=1,01;1,5=1,50;1.234=1.234;,5=,5;1,2,3=1,2,3;-=-;1 =1 ;=;--1=--1"},
           {{vftFraction}, u"", u"1,5=150#;,5=50#;1,6=160#;1,7=1,7;5E-1=50#;1234,5=123450#"},
           {{vftFraction}, u"", u"-1,5=-1,5;1,5 =1,5 ; 1,5= 1,5;0=0;=;x=x"},
           {{vftFraction}, u"0.000", u"1234,5=1.23450#;-1,5=-1,500;1,7=1,700;,5=,5"},
           {{vftFraction}, u"KB", u"0,25=25#;1025=2 KB"},
           {{vftDate},
            u"d. mmm",
            u"11.02.2015=11. Feb;20150211=11. Feb; 20150211= 20150211;x=x;=;30.02.2015=30.02.2015"},
           {{vftDate}, u"yyyy", u"14.08.1872=1872;13.08.1872=13.08.1872"},  // the latter stands for no day
           {{vftTime}, u"h-nn", u"06:30=6-30;24:00=24:00;36:00=36:00;:30=:30;x=x"},
           {{vftTime}, u"q", u"06:30=6:30;00:05=:05;00:00=;36:00=36:00"},
           {{vftDateTime}, u"d.m. hh:nn", u"11.02.2015 06:30=11.2. 06:30;11.02.2015=11.02.2015;x 06:30=30.12. 06:30"},
           {{vftHour}, u"Q", u"026:05=026:05"},
           {{vftHour}, u"q", u"026:05:59=26:05;0:45=:45;-1:30=-1:30;-0:30=-:30;0=;=;1:75=1:75;65536:15=:15"},
           {{vftCurrency}, u"", u"1.234,5=1.234,50;abc=abc;="},
           {{vftCurrency}, u"x", u"-1234,565=-1.234,57 €;abc=abc;922337203685477,5807=922.337.203.685.477,58 €"},
       }) {
    const auto rows = explode(all, u';');
    for (TVxFieldType type : types) {
      std::vector<String> found;
      for (const String& row : rows->Items()) {
        const String value = row.Slice(0, static_cast<int>(row.view().find(u'=')));
        found.push_back(Concat({value, u"=", Shown(value, type, format)}));
      }
      EXPECT_EQ(implode(found, u";"), all) << type << " by " << format;
    }
  }
}

TEST(Decorator, KnowsTheFifthsQuartersThirdsAndTheHalf) {
  String found;
  for (int i = 0; i < 100; ++i) {
    const String value = Concat({u"0,", i < 10 ? u"0" : u"", IntToStr(i)});
    if (Shown(value, vftFraction, u"") != value) found += IntToStr(i) + u" ";
  }
  EXPECT_EQ(found, u"20 25 33 40 50 60 67 75 80 ");
}

TEST(Decorator, TellsACellInWords) {
  TVxImageList images;
  images.Add(TBitmap(pf24bit, 48, 16));
  for (int i = 0; i < 3; ++i) images.SetItems(i, String(i + 1, static_cast<char16_t>(u'a' + i)));
  TImageList nameless;
  for (const auto& [type, list, value, single, lines] : TCases<TVxFieldType, TImageList*, String, String, String>{
           {vftImage, &images, u"2,0", u"ccc, a", u"ccc\r\na"},
           {vftToggle, &images, u"1,x,7", u"bb, , ", u"bb\r\n\r\n"},
           {vftButton, &images, u"", u"", u""},
           {vftImage, &nameless, u"2,0", u"", u""},
           {vftCommatext, nullptr, u"\"a \"\"b\"\"\",,c", u"a \"b\"", u"a \"b\"\r\n\r\nc"},
           {vftCommatext, nullptr, u",c", u"", u"\r\nc"},
           {vftCommatext, nullptr, u"", u"", u""},
           {vftTinyHTML, nullptr, u"<b>a\rb", u"<b>a", u"<b>a\r\nb"},
           {vftInteger, &images, u"7", u"007", u"007"},
       }) {
    TDecoration look;
    look.SetFieldType(type);
    look.SetFormatString(u"000");
    look.SetImageList(list);
    EXPECT_EQ(TDecorator::GetText(value, look, true), single) << type << value;
    EXPECT_EQ(TDecorator::GetText(value, look, false), lines) << type << value;
  }
}

// What the size of the cell (0, Row) of a sorted table with one fixed row depends on.
struct TCell {
  TVxFieldType Type = vftUnknown;
  String Format{};
  int Image = -1;  // of three that are 16 wide and 10 high
  TAlignSet ImageAlign{}, Align{};
  TTextAngle Angle = taNone;
  int FontSize = 8;
  TRect Stripes{};
  int WidthMin = -1, WidthMax = -1, HeightMin = -1, HeightMax = -1;
  TTrimModes Modes{};
  TDecorationListOptions Options{};
  int MaxSubLines = 0, Spacing = 1;
  TPoint Margins{1, 0};
  TDecorationDevice Device = ddScreen;
  bool HasImages = true, Selects = false;
  TPoint SortCell{-1, -1};
  TSortArrow Arrow = saUp;
  TPoint Picture{};  // of a bitmap at the cell
  TPoint Coupled{};  // how many cells are
  int Row = 0;

  std::string Size(const String& Text) const;
};
std::string TCell::Size(const String& Text) const {
  TSortedPlain table;
  table.Cell = SortCell;
  table.Arrow = Arrow;
  TImageList images(16, 10);
  images.Add(TBitmap(pf24bit, 48, 10));
  TBitmap bitmap(pf24bit, Picture.X, Picture.Y);
  TDecorationList list(&table);
  TDecoration& look = *list.GetItems(0);
  look.SetFieldType(Type), look.SetFormatString(Format), look.SetImageIndex(Image), look.SetTextAngle(Angle);
  look.SetImageAlignSet(ImageAlign), look.SetAlignSet(Align), look.SetSelectRange(Stripes);
  look.SetFont({u"X", clRed, {}, FontSize}), look.SetWidthMin(WidthMin), look.SetWidthMax(WidthMax);
  look.SetHeightMin(HeightMin), look.SetHeightMax(HeightMax);
  list.SetFixed(0, 1, 0, 0), list.SetImageList(HasImages ? &images : nullptr), list.SetImageSpacing(Spacing);
  list.SetTrimModes(Modes), list.SetOptions(Options), list.SetMaxSubLines(MaxSubLines), list.SetDevice(Device);
  list.SetMarginHoriz(Margins.X), list.SetMarginVerti(Margins.Y);
  if (Coupled.X > 0) list.CreateRange(rtRect, 0, 0, Coupled.X - 1, Coupled.Y - 1)->SetOptions({doCoupled});
  TRecordingCanvas canvas(
      {.PixelsPerInch = {96, Device == ddMetafile ? 288 : 96}, .Kind = Device == ddMetafile ? dkMetafile : dkScreen});
  canvas.SetBrush({clBlue});
  const TFont font = canvas.GetFont();
  TPlainDecorator decorator;
  decorator.Selects = Selects;
  TObject* const object = Picture.X > 0 ? static_cast<TObject*>(&bitmap) : &table;
  const TPoint size = decorator.Calculate(canvas, Text, object, *list.VirtualListForCell(0, Row));
  EXPECT_EQ(canvas.GetFont(), font);
  EXPECT_EQ(canvas.GetBrush(), TBrush{clBlue});
  return std::to_string(size.X) + " " + std::to_string(size.Y);
}

// A letter is 7 wide, a blank 4, a line 14 high. The printer has twice the screen's pixels across and three times down.
TEST(Decorator, MeasuresACell) {
  const TPoint printer = GetPrinterPixelsPerInch();
  SetPrinterPixelsPerInch({192, 288});
  const TCases<const char*, String, const char*, TCell> cases = {
      {"plain", u"aa", "16 14", {}},
      {"lines of a plain text", u"a\r\nb", "24 14", {}},
      {"nothing", u" ", "0 0", {.Stripes = {1, 1, 1, 1}}},
      {"own font", u"a", "15 26", {.FontSize = 16}},
      {"image", u" \t", "18 10", {.Image = 2}},
      {"no such image", u" ", "0 0", {.Image = 3}},
      {"fitted image", u"", "24 14", {.Image = 0, .Modes = {tmFitImage}}},
      {"printed image", u"", "37 30", {.Image = 0, .Device = ddPrinter}},
      {"image beside", u"aa", "37 14", {.Image = 0, .Spacing = 5}},
      {"image above", u"aa", "18 25", {.Image = 0, .ImageAlign = {alTop}}},
      {"text below", u"aa", "18 25", {.Image = 0, .Align = {alBottom}}},
      {"both above", u"aa", "33 14", {.Image = 0, .ImageAlign = {alTop, alBottom}, .Align = {alTop, alRight}}},
      {"sorted up", u"aa", "16 14", {.Image = 0, .SortCell = {0, 0}}},
      {"sorted down", u"aa", "16 14", {.Image = 0, .SortCell = {0, 0}, .Arrow = saDown}},
      {"not sorted any more", u"aa", "33 14", {.Image = 0, .SortCell = {0, 0}, .Arrow = saNone}},
      {"sorted elsewhere", u"aa", "33 14", {.Image = 0, .SortCell = {1, 0}}},
      {"rich text", u"<b>aa</b>", "19 14", {.Type = vftTinyHTML}},
      {"rich lines", u"a<br>b", "9 28", {.Type = vftTinyHTML, .MaxSubLines = 1}},
      {"metafile", u"<font size = \"+2\">a</font>", "29 50", {.Type = vftTinyHTML, .Device = ddMetafile}},
      {"images", u"0,x,9", "50 10", {.Type = vftImage}},
      {"images in a column", u"0,1", "18 20", {.Type = vftToggle, .Align = {alRight}}},
      {"button", u"0,1", "18 10", {.Type = vftButton, .Align = {alLeft}}},
      {"indices without images", u"0,1", "20 14", {.Type = vftImage, .HasImages = false}},
      {"commatext", u"a,,bb,c", "16 56", {.Type = vftCommatext, .Format = u"x"}},
      {"fewer cells than lines", u"a,,bb,c", "16 56", {.Type = vftCommatext, .MaxSubLines = 5}},
      {"as many cells as lines", u"a,,bb,c", "16 42", {.Type = vftCommatext, .MaxSubLines = 4}},
      {"more cells than lines", u"a,,c,bb", "9 28", {.Type = vftCommatext, .MaxSubLines = 2}},
      {"all cells", u"a,,c,bb", "16 56", {.Type = vftCommatext, .Modes = {tmTrueCommatext}, .MaxSubLines = 2}},
      {"lines of a format", u"a\r\n\r\nbb", "16 42", {.Type = vftString, .Format = u"x"}},
      {"amount", u"1234,5", "52 14", {.Type = vftCurrency}},
      {"fraction of one digit", u"1,5", "27 14", {.Type = vftFraction}},
      {"fraction of more digits", u",500", "27 14", {.Type = vftFraction}},
      {"no fraction", u"1,7", "20 14", {.Type = vftFraction}},
      {"least width", u"", "52 0", {.WidthMin = 50}},
      {"most width", u"aa", "7 14", {.WidthMin = 50, .WidthMax = 5}},
      {"most height", u"aa", "16 5", {.HeightMin = 30, .HeightMax = 5}},
      {"no width", u"aa", "0 14", {.Stripes = {1, 1, 1, 1}, .WidthMax = 0}},
      {"printed limits", u"aa", "105 30", {.WidthMin = 50, .HeightMin = 10, .Device = ddPrinter}},
      {"printed margins", u"aa", "27 26", {.Margins = {3, 2}, .Device = ddPrinter}},
      {"printed stripes", u"aa", "24 26", {.Stripes = {1, 2, 3, 4}, .Device = ddPrinter}},
      {"clicked head", u"aa", "16 14", {.Stripes = {1, 2, 3, 5}, .Options = {dloColumnClick}}},
      {"selected head", u"aa", "20 21", {.Stripes = {1, 2, 3, 5}, .Options = {dloColumnClick}, .Selects = true}},
      {"below a clicked head", u"aa", "20 21", {.Stripes = {1, 2, 3, 5}, .Options = {dloColumnClick}, .Row = 1}},
      {"graphic", u"aa", "200 50", {.Type = vftGrafic, .Picture = {200, 50}}},
      {"high graphic", u"aa", "133 100", {.Type = vftGrafic, .Picture = {200, 150}}},
      {"thread", u"aa", "11 100", {.Type = vftGrafic, .WidthMin = 9, .Picture = {1, 9000}}},
      {"high row", u"", "200 120", {.Type = vftGrafic, .HeightMin = 120, .Picture = {200, 50}}},
      {"wide column", u"", "402 100", {.Type = vftGrafic, .WidthMin = 400, .Picture = {200, 50}}},
      {"graphic and another object", u"aa", "16 14", {.Type = vftGrafic}},
      {"coupled", u"aa", "5 7", {.Coupled = {3, 2}}},
      {"coupled with many", u"aa", "1 14", {.Coupled = {20, 1}}},
      {"turned behind the limits", u"aa", "14 7", {.Angle = taVert, .WidthMax = 5}},
  };
  for (const auto& [name, text, size, cell] : cases) EXPECT_EQ(cell.Size(text), size) << name;
  SetPrinterPixelsPerInch(printer);
  TSortedPlain table;
  TDecorationList list(&table);
  const TBitmap* up = detail::SortArrowOf(list);
  ASSERT_NE(up, nullptr);
  EXPECT_EQ((TFacts{up->GetTransparent(), up->GetTransparentColor()}), "yes 16711935");
}

}  // namespace
