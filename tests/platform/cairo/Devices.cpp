#include "tests/platform/cairo/Devices.h"

#include "platform/cairo/CairoDrawing.h"
#include "tests/support/Test.h"

// fontconfig keeps its patterns by distances, which look like lost memory.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

namespace vx::test {

namespace {

using TDraw = std::function<void(TCanvas&)>;
constexpr TPoint kSize{120, 80};
constexpr TPoint kPixelsPerInch{96, 96};

template <TPixelFormat Format, TAlphaFormat Alpha = afIgnored>
std::optional<TBitmap> OnBitmap(const TDraw& Draw) {
  TBitmap bitmap(Format, kSize.X, kSize.Y);
  bitmap.SetAlphaFormat(Alpha);
  Draw(bitmap.GetCanvas());
  TBitmap seen = bitmap;
  seen.SetAlphaFormat(afIgnored);
  seen.SetPixelFormat(pf24bit);
  return seen;
}

// The picture that Command leaves at Path.
std::optional<TBitmap> MadeBy(const std::string& Command, const String& Path) {
  if (std::system((Command + " 2>/dev/null").c_str()) != 0) return {};
  TBitmap bitmap;
  LoadPictureFile(Path, bitmap);
  bitmap.SetPixelFormat(pf24bit);
  return bitmap;
}

std::optional<TBitmap> OnPdf(const TDraw& Draw) {
  const TTempDir dir;
  TPdfFile file(dir.Path("a.pdf"), kSize, kPixelsPerInch);
  Draw(file.GetCanvas());
  file.Close();
  return MadeBy("cd " + dir.GetPath() + " && pdftocairo -r 96 -singlefile -png a.pdf a", dir.Path("a.png"));
}

std::optional<TBitmap> OnSvg(const TDraw& Draw) {
  const TTempDir dir;
  TSvgFile file(dir.Path("a.svg"), kSize, kPixelsPerInch);
  Draw(file.GetCanvas());
  file.Close();
  return MadeBy("cd " + dir.GetPath() + " && rsvg-convert --background-color=white -o a.png a.svg", dir.Path("a.png"));
}

constexpr std::array kDevices = {
    TDevice{"device", OnBitmap<pfDevice>},
    TDevice{"bits1", OnBitmap<pf1bit>},
    TDevice{"bits8", OnBitmap<pf8bit>},
    TDevice{"bits15", OnBitmap<pf15bit>},
    TDevice{"bits24", OnBitmap<pf24bit>},
    TDevice{"opacity", OnBitmap<pf32bit, afDefined>},
    TDevice{"premultiplied", OnBitmap<pf32bit, afPremultiplied>},
    TDevice{"pdf", OnPdf},
    TDevice{"svg", OnSvg},
};

}  // namespace

std::span<const TDevice> Devices() { return kDevices; }

uint32_t PixelAt(const TBitmap& Bitmap, int X, int Y) {
  std::vector<uint32_t> row(static_cast<size_t>(X) + 1);
  Bitmap.GetRow(Y, row);
  return row.back() & 0xFFFFFF;
}

TRect InkOf(const TBitmap& Bitmap) {
  TRect ink{INT_MAX, INT_MAX, 0, 0};
  std::vector<uint32_t> row(static_cast<size_t>(Bitmap.GetWidth()));
  for (int y = 0; y < Bitmap.GetHeight(); ++y) {
    Bitmap.GetRow(y, row);
    for (int x = 0; x < Bitmap.GetWidth(); ++x) {
      if ((row[static_cast<size_t>(x)] & 0xFFFFFF) == 0xFFFFFF) continue;
      ink = {std::min(ink.Left, x), std::min(ink.Top, y), std::max(ink.Right, x + 1), std::max(ink.Bottom, y + 1)};
    }
  }
  return ink.Right == 0 ? TRect{} : ink;
}

}  // namespace vx::test
