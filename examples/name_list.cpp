// Draws a list of names in many scripts, once as a picture, once as a page for the printer, once as SVG, by one
// routine that knows nothing of what it draws on.
#include <cstdio>
#include <iterator>

#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"

namespace {

constexpr struct {
  const char16_t *Script, *Name, *Room;
} kNames[] = {
    {u"Deutsch", u"Weiß-Müller, Jörg Ägidius", u"Wohnbereich 1"},
    {u"Polnisch", u"Wójcik, Łucja", u"Wohnbereich 2"},
    {u"Griechisch", u"Παπαδοπούλου, Ελένη", u"Διαμέρισμα 3"},
    {u"Kyrillisch", u"Иванова, Екатерина", u"Комната 4"},
    {u"Arabisch", u"محمد عبد الله", u"غرفة ٥"},
    {u"Hebräisch", u"כהן, שרה", u"חדר 6"},
    {u"Devanagari", u"शर्मा, प्रिया", u"कमरा ७"},
    {u"Thai", u"สมชาย ใจดี", u"ห้อง ๘"},
    {u"Chinesisch", u"王小明", u"九号房"},
    {u"Mit Zeichen", u"Nguye\u0302\u0303n, Van ☎ 😀", u"Zimmer 10"},
};

int Mul(int Value, int PixelsPerInch) { return Value * PixelsPerInch / 96; }

// The list from (Left, Top) on, sizes being those of a screen of 96 pixels per inch.
void DrawNames(vx::TCanvas& Canvas, int Left, int Top) {
  const vx::TCanvasState saved(Canvas);
  const auto size = [&](int value) { return Mul(value, Canvas.GetPixelsPerInch().Y); };
  const int columns[] = {Left, Left + size(110), Left + size(330), Left + size(470)};
  const int height = size(22);
  Canvas.GradientRect({Left, Top, columns[3], Top + height}, {0x00FFFFFF, 0x00F4E2D1});
  Canvas.SetBrush({vx::clWhite, vx::bsClear});
  vx::TFont font = Canvas.GetFont();
  font.Size = 9;
  font.Style = {vx::fsBold};
  Canvas.SetFont(font);
  const char16_t* heads[] = {u"Schrift", u"Name", u"Zimmer"};
  for (int column = 0; column < 3; ++column) Canvas.TextOut(columns[column] + size(4), Top + size(4), heads[column]);
  font.Style = {};
  int top = Top + height;
  for (const auto& row : kNames) {
    const vx::TRect line{Left, top, columns[3], top + height};
    Canvas.SetBrush({(&row - kNames) % 2 ? vx::TColor{0x00FAF5F0} : vx::clWhite});
    Canvas.FillRect(line);
    Canvas.SetBrush({vx::clWhite, vx::bsClear});
    const char16_t* cells[] = {row.Script, row.Name, row.Room};
    for (int column = 0; column < 3; ++column) {
      font.Color = column == 1 ? vx::clNavy : vx::clWindowText;
      Canvas.SetFont(font);
      const vx::TRect cell{columns[column] + size(4), top, columns[column + 1] - size(4), top + height};
      Canvas.TextRect(cell, cell.Left, top + (height - Canvas.TextHeight(u"A")) / 2, cells[column]);
    }
    // The width that was measured, to see whether the name is as wide.
    Canvas.SetPen({vx::clSilver});
    Canvas.MoveTo(columns[1] + size(4), line.Bottom - size(2));
    Canvas.LineTo(columns[1] + size(4) + Canvas.TextWidth(row.Name), line.Bottom - size(2));
    top += height;
  }
  Canvas.SetPen({vx::clGray});
  Canvas.Rectangle({Left, Top, columns[3], top});
  Canvas.SetTextUpward(true);
  Canvas.TextOut(Left - size(18), top, u"aufwärts geschrieben");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;  // the PNG file, the PDF file and the SVG file to write
  vx::InstallDrawing();
  const vx::TPoint size{520, 270};

  vx::TBitmap bitmap(vx::pf24bit, size.X, size.Y);
  DrawNames(bitmap.GetCanvas(), 30, 10);
  vx::SavePngFile(bitmap, vx::String::FromUtf8(argv[1]));

  vx::TPdfFile pdf(vx::String::FromUtf8(argv[2]), vx::PageA4());
  DrawNames(pdf.GetCanvas(), 600, 400);
  pdf.NewPage();
  DrawNames(pdf.GetCanvas(), 1000, 900);
  pdf.Close();

  vx::TSvgFile svg(vx::String::FromUtf8(argv[3]), size);
  DrawNames(svg.GetCanvas(), 30, 10);
  svg.Close();
  std::printf("%d names as %s, %d pages of %s, and %s\n", static_cast<int>(std::size(kNames)), argv[1],
              pdf.GetPageCount(), argv[2], argv[3]);
  return 0;
}
