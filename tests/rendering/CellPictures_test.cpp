// Pictures of cells beside those that stand in pictures/. With VX_WRITE_PICTURES set they are written there anew, to be
// looked at before they are kept.

#include "platform/TBitmap.h"
#include "platform/TImageList.h"
#include "platform/cairo/CairoDrawing.h"
#include "rendering/uDecoration.h"
#include "tests/support/PlainDecorator.h"
#include "tests/support/Test.h"

extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

namespace {

constexpr int kWidth = 120, kHeight = 26;
// Letters look a little different from one version of the font's software to the next.
constexpr int kNear = 48;          // of a channel
constexpr double kMostFar = 0.02;  // the part of all pixels that may differ by more
constexpr double kMostMean = 2.5;  // of all channels

// Before anybody asks for a font.
const bool kFontsAreOurs = setenv("FONTCONFIG_FILE", VX_TEST_RENDERING "/fonts.conf", 1) == 0;

// Two images of 12 pixels.
struct TImages : TImageList {
  TImages() : TImageList(12, 12) {
    TBitmap strip(pf24bit, 24, 12);
    TCanvas& canvas = strip.GetCanvas();
    canvas.SetBrush({clTeal});
    canvas.FillRect({0, 0, 12, 12});
    canvas.SetBrush({clRed});
    canvas.FillRect({12, 0, 24, 12});
    AddMasked(strip, clFuchsia);
  }
};

struct TScene {
  const char* Name;
  TPoint Cell;
  const char16_t* Text;
  TDecorationDrawStates State{};
  TVxFieldType Type = vftUnknown;
  TAlignSet Align{}, ImageAlign{};
  int Image = -1, Zebra = 0;
  const char16_t* Format = u"";
  TTextAngle Angle = taNone;
  TTrimModes Modes{};
  TRect Stripes{};
};
const TScene kScenes[] = {
    {"head", {0, 0}, u"Name"},
    {"head_hover", {0, 0}, u"Name", {ddsMouseOver}},
    {"head_pressed", {0, 0}, u"Name", {ddsMouseOver, ddsMouseDown}},
    {"head_sorted", {1, 0}, u"Betrag", {}, vftUnknown, {alClient}},
    {"zebra_amount", {1, 2}, u"1234,5", {}, vftCurrency, {alRight}, {}, -1, 2, u"x"},
    {"fraction", {1, 1}, u"12,75", {}, vftFraction},
    {"rich_text", {1, 1}, u"<b>fett</b> und <u>unten</u>", {}, vftTinyHTML},
    {"image_and_text", {1, 1}, u"Müller", {}, vftUnknown, {}, {alLeft}, 0},
    {"images", {1, 1}, u"0,1,1", {}, vftImage, {alClient}},
    {"button", {1, 1}, u"0,,1,1|boCircle||", {ddsMouseOver}, vftButton, {alClient}},
    {.Name = "turned", .Cell = {1, 1}, .Text = u"Mo", .Angle = taVert},
    {.Name = "shortened", .Cell = {1, 1}, .Text = u"Pflegestufe von Frau 12 2026", .Modes = {tmNumberProtection}},
    {.Name = "selected_stripes", .Cell = {1, 1}, .Text = u"gewählt", .State = {ddsSelected}, .Stripes = {5, 0, 0, 3}}};

void Paint(const TScene& Scene, TBitmap& Bitmap) {
  TSortedPlain table;
  table.Cell = {1, 0}, table.Arrow = saDown;
  TImages images;
  TDecorationList list(&table);
  list.SetColCount(3), list.SetRowCount(5), list.SetFixed(0, 1, 0, 0), list.SetMarginHoriz(3);
  list.SetImageList(&images);
  list.SetFont({u"DejaVu Sans", clWindowText, {}, 9});
  TDecoration& look = *list.CreateRange(rtCell, Scene.Cell.X, Scene.Cell.Y, Scene.Cell.X, Scene.Cell.Y);
  list.SetZebraLines(Scene.Zebra), list.SetImageSpacing(Scene.Image < 0 ? 1 : 4), list.SetTrimModes(Scene.Modes);
  look.SetFieldType(Scene.Type), look.SetFormatString(Scene.Format), look.SetTextAngle(Scene.Angle);
  look.SetAlignSet(Scene.Align), look.SetImageAlignSet(Scene.ImageAlign), look.SetImageIndex(Scene.Image);
  look.SetSelectRange(Scene.Stripes), look.SetSelectColor(clRed, clSilver, clSilver, clBlue);
  Bitmap.SetPixelFormat(pf24bit);
  Bitmap.SetSize(kWidth, kHeight);
  Bitmap.GetCanvas().SetBrush({clWhite});
  Bitmap.GetCanvas().FillRect({0, 0, kWidth, kHeight});
  const auto cell = list.VirtualListForCell(Scene.Cell.X, Scene.Cell.Y);
  DecoratorCanvas().DrawCell(Bitmap.GetCanvas(), {0, 0, kWidth, kHeight}, Scene.Text, nullptr, *cell, Scene.State);
}

// What both differ by, each channel of each pixel; and in a sentence whether that is too much, else nothing.
std::string Compare(const TBitmap& Kept, const TBitmap& Made, TBitmap& Difference) {
  if (Kept.GetWidth() != kWidth || Kept.GetHeight() != kHeight) return "the kept picture has another size";
  Difference = Made;
  int64_t sum = 0;
  int far = 0;
  for (int y = 0; y < kHeight; ++y) {
    const auto* kept = static_cast<const uint8_t*>(Kept.GetScanline(y));
    auto* made = static_cast<uint8_t*>(Difference.GetScanline(y));
    for (int x = 0; x < kWidth; ++x) {
      int most = 0;
      for (int channel = 3 * x; channel < 3 * x + 3; ++channel) {
        const int by = std::abs(kept[channel] - made[channel]);
        made[channel] = static_cast<uint8_t>(by);
        sum += by;
        most = std::max(most, by);
      }
      far += most > kNear;
    }
  }
  const double mean = static_cast<double>(sum) / (3 * kWidth * kHeight);
  const double part = static_cast<double>(far) / (kWidth * kHeight);
  if (mean <= kMostMean && part <= kMostFar) return {};
  return "mean " + std::to_string(mean) + ", far off " + std::to_string(100 * part) + " %";
}

TEST(CellPictures, AreThoseThatWereLookedAt) {
  if (!std::filesystem::exists("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"))
    GTEST_SKIP() << "fonts-dejavu-core is missing";
  ASSERT_TRUE(kFontsAreOurs);
  InstallDrawing();
  for (const TScene& scene : kScenes) {
    const String kept = String::FromUtf8(std::string(VX_TEST_RENDERING "/pictures/") + scene.Name + ".png");
    TBitmap made, before, difference;
    Paint(scene, made);
    if (std::getenv("VX_WRITE_PICTURES") != nullptr) SavePngFile(made, kept);
    LoadPictureFile(kept, before);
    const std::string fault = Compare(before, made, difference);
    if (fault.empty()) continue;
    const std::string path = std::string(VX_TEST_PICTURES "/") + scene.Name;
    SavePngFile(made, String::FromUtf8(path + ".new.png"));
    SavePngFile(difference, String::FromUtf8(path + ".difference.png"));
    ADD_FAILURE() << scene.Name << ": " << fault << "; see " << path << ".new.png and .difference.png";
  }
}

}  // namespace
