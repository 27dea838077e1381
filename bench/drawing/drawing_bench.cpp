// Texts and fills on a picture beside Pango, Cairo and Qt: names of 20 letters, each in a cell of its own.
#include <random>

#include "bench/drawing/Peers.h"
#include "bench/drawing/Pictures.h"
#include "bench/support/Bench.h"
#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"

namespace vx::bench {
namespace {

constexpr int kNames = 4000;
constexpr int kRounds = 9;

// Names of 20 letters, made of German syllables.
std::vector<String> Names(int Count) {
  constexpr const char16_t* syllables[] = {u"mül", u"ler",  u"hans", u"jör", u"wei",
                                           u"ßen", u"bach", u"grä",  u"fin", u"ot"};
  std::mt19937 random(7);
  std::vector<String> result;
  for (int i = 0; i < Count; ++i) {
    String name = u"B";
    while (name.size() < 20) name += name.size() == 10 ? u", A" : syllables[random() % 10];
    result.push_back(name.Slice(0, 20));
  }
  return result;
}

std::vector<std::string> Utf8(const std::vector<String>& Names) {
  std::vector<std::string> result;
  for (const String& name : Names) result.push_back(name.ToUtf8());
  return result;
}

class TOurs {
 public:
  explicit TOurs(std::vector<String> Names, TPixelFormat Format = pf32bit)
      : FNames(std::move(Names)), FBitmap(Format, kCellWidth, kCellHeight * kRows), FCanvas(FBitmap.GetCanvas()) {}

  double Width() {
    int sum = 0;
    const double seconds = Time([&] {
      for (const String& name : FNames) sum += FCanvas.TextWidth(name);
    });
    Expect(sum > 0, "widths");
    return seconds;
  }
  double Draw() {
    return Time([&] {
      int row = 0;
      for (const String& name : FNames) {
        const TRect cell{0, row * kCellHeight, kCellWidth, (row + 1) * kCellHeight};
        FCanvas.SetBrush({clWhite});
        FCanvas.TextRect(cell, 2, cell.Top + 2, name);
        row = (row + 1) % kRows;
      }
    });
  }
  double Fill() {
    return Time([&] {
      for (int i = 0; i < static_cast<int>(FNames.size()); ++i) {
        FCanvas.SetBrush({i % 2 ? clWhite : clGray});
        FCanvas.FillRect({0, i % kRows * kCellHeight, kCellWidth, (i % kRows + 1) * kCellHeight});
      }
    });
  }

 private:
  const std::vector<String> FNames;
  TBitmap FBitmap;
  TCanvas& FCanvas;
};

void MeasureNames() {
  const std::vector<String> names = Names(kNames);
  TOurs ours(names), ours24(names, pf24bit);
  TCairoPeer cairo(Utf8(names));
  TQtPeer qt(Utf8(names));
  const auto widths = Medians(
      kRounds, [&] { return ours.Width(); }, [&] { return cairo.PangoWidth(); }, [&] { return qt.Width(); });
  ReportOurs("drawing/width", widths[0], kNames, TBar::AtMost(100));
  Report("drawing/width", widths[0], "pango", widths[1], kNames);
  Report("drawing/width", widths[0], "qfontmetrics", widths[2], kNames);

  const auto draws = Medians(
      kRounds, [&] { return ours.Draw(); }, [&] { return ours24.Draw(); }, [&] { return cairo.PangoDraw(); },
      [&] { return cairo.GlyphDraw(); }, [&] { return qt.DrawStatic(); }, [&] { return qt.DrawElided(); });
  ReportOurs("drawing/name_on_ground", draws[0], kNames, TBar::AtMost(3000));
  ReportOurs("drawing/name_on_ground_24bit", draws[1], kNames, TBar::AtMost(3000));
  Report("drawing/name_on_ground", draws[0], "pango", draws[2], kNames);
  Report("drawing/name_on_ground", draws[0], "cairo_glyphs", draws[3], kNames, TBar::AtLeast(1));
  Report("drawing/name_on_ground", draws[0], "qpainter_static", draws[4], kNames, TBar::AtLeast(1));
  Report("drawing/name_on_ground", draws[0], "qpainter_elided", draws[5], kNames, TBar::AtLeast(1));

  const auto fills = Medians(
      kRounds, [&] { return ours.Fill(); }, [&] { return cairo.Fill(); }, [&] { return qt.Fill(); });
  Report("drawing/fill", fills[0], "cairo", fills[1], kNames, TBar::AtLeast(1));
  Report("drawing/fill", fills[0], "qpainter", fills[2], kNames, TBar::AtLeast(1));
}

// Names that are shaped, few enough to be known, and always others.
void MeasureShaped() {
  std::vector<String> names, others;
  for (int i = 0; i < kNames; ++i) {
    names.push_back(u"שרה כהן, מנהלת " + String(1, static_cast<char16_t>(u'א' + i % 20)));
    others.push_back(u"שרה כהן " + String(i % 64, static_cast<char16_t>(u'א' + i / 64 % 20)) + u"ב");
  }
  TOurs ours(names), ourOthers(others);
  TCairoPeer cairo(Utf8(names)), cairoOthers(Utf8(others));
  const auto times = Medians(
      3, [&] { return ours.Draw(); }, [&] { return cairo.PangoDraw(); }, [&] { return ourOthers.Width(); },
      [&] { return cairoOthers.PangoWidth(); });
  Report("drawing/shaped_name_on_ground", times[0], "pango", times[1], kNames);
  Report("drawing/shaped_width_of_others", times[2], "pango", times[3], kNames);
}

void MeasureLength() {
  std::vector<String> longer;
  for (const String& name : Names(kNames / 10)) {
    String text;
    for (int i = 0; i < 10; ++i) text += name;
    longer.push_back(text);
  }
  TOurs few(Names(kNames / 10)), many(longer);
  const auto times = Medians(
      kRounds, [&] { return many.Width(); }, [&] { return few.Width(); });
  ReportGrowth("drawing/width", "200_letters", times[0] / kNames * 1e10 / 10, "20_letters", times[1] / kNames * 1e10,
               "ns", TBar::AtMost(1.3));
}

}  // namespace
}  // namespace vx::bench

int main() {
  using namespace vx::bench;
  vx::InstallDrawing();
  MeasureNames();
  MeasureShaped();
  MeasureLength();
  MeasurePictures();
}
