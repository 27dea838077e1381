// One short rich text, the note of a visit, in three forms: drawn on a picture, once with enough room and once cut
// off; as plain text; and as RTF for other programs.
#include <cstdio>

#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"
#include "rendering/uVxTinyHTML.h"

namespace {

constexpr char16_t kNote[] =
    u"<font size=\"+3\" color=\"clNavy\"><b>Frau Müller-Lüdenscheid</b></font><br>"
    u"<font color=\"clGray\">03.03.2026, 8:30 bis 9:15 Uhr</font><br>"
    u"Große Morgenpflege, <i>danach</i> Blutdruck <b>135/85</b>, Puls <b>72</b>.<br>"
    u"<font color=\"clRed\"><b>Achtung:</b> Haut am <u>linken Fersenbein</u> gerötet</font>, bitte abends ansehen. "
    u"<s>Termin am Dienstag</s> Der Hausarzt kommt <b>Donnerstag &lt; 10 Uhr</b>.";

// The note in a frame that is Room large, with margins of 6 pixels. Returns whether all of it fitted.
bool DrawNote(vx::TCanvas& Canvas, const vx::TRect& Room, vx::TAlignment Alignment) {
  const vx::TCanvasState saved(Canvas);
  Canvas.SetPen({vx::clSilver});
  Canvas.SetBrush({vx::clCream});
  Canvas.Rectangle(Room);
  const vx::TRect text{Room.Left + 6, Room.Top + 6, Room.Right - 6, Room.Bottom - 6};
  return vx::HTML2Canvas(kNote, Canvas, text, Alignment, 1.0);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;  // the PNG file to write
  vx::InstallDrawing();
  vx::TBitmap bitmap(vx::pf24bit, 560, 120);
  vx::TCanvas& canvas = bitmap.GetCanvas();
  canvas.FillRect({0, 0, bitmap.GetWidth(), bitmap.GetHeight()});
  const vx::TRect room = vx::HTML2CanvasSize(kNote, canvas, true, 0, 308, 1.0);
  const vx::TRect wide{10, 10, 330, 10 + room.Bottom + 12}, low{345, 10, 550, 90};
  std::printf("drawn in %d x %d: %s\n", wide.Width(), wide.Height(),
              DrawNote(canvas, wide, vx::taLeftJustify) ? "all of it" : "cut off");
  std::printf("drawn in %d x %d: %s\n", low.Width(), low.Height(),
              DrawNote(canvas, low, vx::taCenter) ? "all of it" : "cut off");
  vx::SavePngFile(bitmap, vx::String::FromUtf8(argv[1]));

  const vx::String rtf = vx::HTML2RTF(kNote, canvas, vx::rfEscaped);
  std::printf("\nAs plain text:\n%s\n", vx::HTML2Text(kNote, u"\n").ToUtf8().c_str());
  std::printf("\nAs RTF:\n%s\n", rtf.ToUtf8().c_str());
  return 0;
}
