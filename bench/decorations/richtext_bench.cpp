// A paragraph of 60 words with 10 marks read, wrapped and drawn on a picture, beside Pango and Qt; and one ten times as
// long.
#include "bench/decorations/RichTextPeers.h"
#include "bench/decorations/Topics.h"
#include "bench/support/Bench.h"
#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"
#include "rendering/uVxTinyHTML.h"

namespace vx::bench {
namespace {

constexpr int kRounds = 201;

// 60 words with 10 marks; the marks of fonts in the form of the reader.
std::string Paragraph(const char* Red, const char* Blue, const char* Large, const char* End) {
  const auto font = [End](const char* begin, const char* text) { return std::string(begin) + text + End; };
  return "<b>Frau Müller</b> wurde um " + font(Red, "8:30 Uhr") + " von Schwester <i>Anja Bößer</i> besucht. Die " +
         "Grundpflege dauerte <u>45 Minuten</u>, der Blutdruck lag bei " + font(Blue, "135 zu 85") +
         " und damit <s>zu hoch</s> im Rahmen. " + font(Large, "Achtung:") + " die <b>Medikamente</b> für den " +
         "Abend stehen <i>nicht</i> mehr im Schrank, sondern auf dem Tisch neben der Tür. Der Sohn kommt am " +
         "Mittwoch <u>17 Uhr</u> und bringt die neuen Rezepte mit.";
}

class TOurText {
 public:
  TOurText(const std::string& Text, int Height)
      : FText(String::FromUtf8(Text)), FRect{0, 0, kTextWidth, Height}, FBitmap(pf32bit, kTextWidth, Height) {}
  double Draw(int& Height) {
    TCanvas& canvas = FBitmap.GetCanvas();
    Height = HTML2CanvasSize(FText, canvas, true, 0, kTextWidth, 1).Bottom;
    bool fits = false;
    const double seconds = Time([&] { fits = HTML2Canvas(FText, canvas, FRect, taLeftJustify, 1); });
    Expect(fits, "all of the paragraph is drawn");
    return seconds;
  }

 private:
  const String FText;
  const TRect FRect;
  TBitmap FBitmap;
};

std::string Repeated(const std::string& Text, int Count) {
  std::string all;
  for (int i = 0; i < Count; ++i) all += Text + " ";
  return all;
}

}  // namespace

void RunRichText() {
  InstallDrawing();
  const std::string ours =
      Paragraph("<font color=\"clRed\">", "<font color=\"clBlue\">", "<font size=\"+2\">", "</font>");
  TOurText few(ours, kTextHeight), many(Repeated(ours, 10), kTextHeight * 10);
  const std::string markup =
      Paragraph("<span foreground=\"red\">", "<span foreground=\"blue\">", "<span size=\"10.2pt\">", "</span>");
  const std::string html =
      Paragraph("<font color=\"red\">", "<font color=\"blue\">", "<span style=\"font-size:14px\">", "</span>");
  TPangoText pango;
  TQtText qt;
  int ourHeight = 0, pangoHeight = 0, qtHeight = 0, height = 0;
  const auto times = Medians(
      kRounds, [&] { return few.Draw(ourHeight); }, [&] { return pango.Draw(markup, pangoHeight); },
      [&] { return qt.Draw(html, qtHeight); }, [&] { return many.Draw(height); });
  // All have wrapped the text to about as many lines.
  Expect(ourHeight >= 60 && pangoHeight >= 60 && qtHeight >= 60, "the paragraph is wrapped");
  ReportOurs("decorations/rich_text", times[0], 1, TBar::AtMost(0.1));
  Report("decorations/rich_text", times[0], "pango", times[1]);
  Report("decorations/rich_text", times[0], "qtextdocument", times[2]);
  ReportGrowth("decorations/rich_text", "600_words", times[3] * 1e6 / 10, "60_words", times[0] * 1e6, "us",
               TBar::AtMost(1.3));
}

}  // namespace vx::bench
