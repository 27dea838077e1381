// Paints a table of all kinds of cells as a picture and on paper: heads, stripes, images, buttons, fractions, rich and
// turned texts.
#include <cstdio>

#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"
#include "rendering/uDecoration.h"

namespace {

constexpr int kCols = 7, kRows = 9, kHeight = 34, kTurned = 2;
constexpr int kWidths[kCols] = {120, 70, 34, 110, 150, 70, 90};
const char16_t* const kCells[kRows][kCols] = {
    {u"Name", u"Betrag", u"Tag", u"Stunden", u"Notiz", u"Bild", u"Knopf"},
    {u"Müller, Änne", u"1234,5", u"Mo", u"1,5", u"<b>Frau Müller</b><br>um <font color = \"clRed\">8:30</font> Uhr",
     u"0,1", u"0,,1,2|boSquare||"},
    {u"Weiß, Jörg", u"-80", u"Di", u"12,25", u"<i>nur nachmittags</i>", u"2,x,9", u"0,,1,2|boCircle||"},
    {u"Groß, Heinz-Günter von der Heide", u"0", u"Mi", u"0,75",
     u"ein Text ohne Zeichen, der nicht in seine Zelle passt, da sie für ihn zu klein ist", u"0,1,2,0,1,2",
     u"0,,1,2|boCell||"},
    {u"Wójcik, Łucja", u"99999999", u"Do", u"7", u"", u"1", u"0,,1,2|boSquare||"},
    {u"Pflegestufe 3 ab 12 2026 bewilligt", u"12", u"Fr", u"1,3399", u"&lt;b&gt;", u"", u"0,,1,2|boCircle||"},
    {u"links|rechts", u"12", u"Sa", u"", u"<u>unterstrichen</u> und <s>gestrichen</s>", u"2", u""},
    {u"ausgewählt", u"3", u"So", u"0,5", u"im Blick", u"0", u"0,,1,2|boSquare||"},
    {u"Summe", u"1235", u"", u"22", u"", u"", u""},
};

// The table, sorted by its second column.
struct TTable : vx::TObject, vx::TSortedTable {
  vx::TPoint GetSortCell() const noexcept override { return {1, 0}; }
  vx::TSortArrow GetSortArrow() const noexcept override { return vx::saUp; }
};

struct TPicture : vx::TDecorator {
  vx::TObject* GetComponent() const override { return nullptr; }
  void SetComponent(vx::TObject*) override {}
  void Trim() override {}
};

// Three images of 16 pixels: a square, a disc and a cross in front of nothing.
void AddImages(vx::TImageList& Images) {
  vx::TBitmap strip(vx::pf24bit, 48, 16);
  vx::TCanvas& canvas = strip.GetCanvas();
  canvas.SetBrush({vx::clFuchsia});
  canvas.FillRect({0, 0, 48, 16});
  canvas.SetBrush({vx::clTeal});
  canvas.FillRect({2, 2, 14, 14});
  canvas.SetBrush({vx::clRed});
  canvas.FillRect({20, 2, 28, 14});
  canvas.FillRect({18, 4, 30, 12});
  canvas.SetBrush({vx::clNavy});
  canvas.FillRect({38, 2, 42, 14});
  canvas.FillRect({34, 6, 46, 10});
  Images.AddMasked(strip, vx::clFuchsia);
}

void Decorate(vx::TDecorationList& List, vx::TImageList& Images) {
  List.SetColCount(kCols);
  List.SetRowCount(kRows);
  List.SetFixed(0, 1, 0, 1);
  List.SetFixedColor(vx::clBtnFace);
  List.SetZebraLines(2);
  List.SetMarginHoriz(4);
  List.SetImageSpacing(4);
  List.SetImageList(&Images);
  List.SetTrimModes({vx::tmNumberProtection});
  List.SetFont({u"Tahoma", vx::clWindowText, {}, 9});
  const auto column = [&](int col, vx::TVxFieldType type, vx::TAlignSet align) -> vx::TDecoration& {
    vx::TDecoration& look = *List.CreateRange(vx::rtRect, col, 1, col, -1);
    look.SetFieldType(type);
    look.SetAlignSet(align);
    return look;
  };
  column(0, vx::vftString, {vx::alLeft}).SetFormatString(u"|");
  column(1, vx::vftCurrency, {vx::alRight}).SetFormatString(u"x");
  column(kTurned, vx::vftString, {vx::alClient}).SetTextAngle(vx::taVert);
  column(3, vx::vftFraction, {vx::alRight});
  column(4, vx::vftTinyHTML, {vx::alLeft});
  column(5, vx::vftImage, {vx::alClient});
  column(6, vx::vftButton, {vx::alClient});
  vx::TDecoration& heads = *List.CreateRange(vx::rtRow, 0, 0, 0, 0);
  heads.SetFontOwner(true);
  heads.SetFont({u"Tahoma", vx::clWindowText, {vx::fsBold}, 9});
  heads.SetAlignSet({vx::alClient});
  List.GetCell(0, 1, true)->SetImageIndex(0);
  List.GetCell(0, 1, true)->SetImageAlignSet({vx::alLeft});
  List.GetCell(0, 2, true)->SetImageIndex(2);
  List.GetCell(0, 2, true)->SetImageAlignSet({vx::alRight});
  List.GetCell(0, 4, true)->SetSelectRange(6, 0, 0, 3);
  List.GetCell(0, 4, true)->SetSelectColor(vx::clRed, vx::clSilver, vx::clSilver, vx::clBlue);
  List.GetCell(1, 4, true)->SetColor(vx::clMoneyGreen);
}

vx::TDecorationDrawStates StateOf(int Col, int Row) {
  if (Row == 0 && Col == 3) return {vx::ddsMouseOver};
  if (Row == 0 && Col == 4) return {vx::ddsMouseOver, vx::ddsMouseDown};
  if (Col == 6 && Row == 7) return {vx::ddsMouseOver, vx::ddsMouseDown, vx::ddsSelected};
  if (Col == 6 && Row > 0) return {vx::ddsMouseOver};
  if (Row == 7) return {vx::ddsSelected};
  if (Row == 6 && Col == 1) return {vx::ddsFocused};
  return {};
}

void PaintTable(vx::TCanvas& Canvas, int Left, int Top, vx::TDecorationList& List) {
  TPicture painter;
  const auto cell = List.DuplicateHead();
  const auto across = vx::TDecorator::FaktorHorz(List), down = vx::TDecorator::FaktorVert(List);
  for (int row = 0; row < kRows; ++row) {
    int left = 0;
    for (int col = 0; col < kCols; ++col) {
      const auto x = [&](int pixels) { return Left + static_cast<int>(pixels * across); };
      const auto y = [&](int pixels) { return Top + static_cast<int>(pixels * down); };
      const vx::TRect rect{x(left), y(row * kHeight), x(left + kWidths[col]), y((row + 1) * kHeight)};
      List.VirtualListForCell(col, row, *cell);
      Canvas.IntersectClip(rect);
      painter.DrawCell(Canvas, rect, kCells[row][col], nullptr, *cell,
                       List.GetDevice() == vx::ddScreen ? StateOf(col, row) : vx::TDecorationDrawStates());
      Canvas.ResetClip();
      left += kWidths[col];
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;  // the PNG file and the PDF file to write
  vx::InstallDrawing();
  TTable table;
  vx::TImageList images(16, 16);
  AddImages(images);
  vx::TDecorationList list(&table);
  Decorate(list, images);

  int width = 0;
  for (int col : kWidths) width += col;
  vx::TBitmap bitmap(vx::pf24bit, width + 20, kRows * kHeight + 20);
  PaintTable(bitmap.GetCanvas(), 10, 10, list);
  vx::SavePngFile(bitmap, vx::String::FromUtf8(argv[1]));

  vx::TPdfFile pdf(vx::String::FromUtf8(argv[2]), vx::PageA4());
  list.SetDevice(vx::ddPrinter);
  PaintTable(pdf.GetCanvas(), 300, 300, list);
  pdf.Close();
  std::printf("%d cells as %s and %s\n", kCols * kRows, argv[1], argv[2]);
  return 0;
}
