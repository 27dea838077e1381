// Pixels one by one and in rows, BMP files, and pictures in few colours.
#include <algorithm>
#include <cmath>
#include <random>

#include "bench/drawing/Pictures.h"
#include "bench/support/Bench.h"
#include "platform/TBitmap.h"
#include "rendering/uBitmapX.h"

namespace vx::bench {
namespace {

constexpr int kRounds = 15;
constexpr double kPixels = double{kWidth} * kHeight;

// Something like a photograph: soft areas, edges, and noise.
TRgbBytes Photograph() {
  std::mt19937 random(11);
  TRgbBytes bytes;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const double hill = 90 * std::sin(x / 97.0) * std::cos(y / 61.0), sky = 120.0 * y / kHeight;
      const bool isRoof = (x / 128 + y / 96) % 3 == 0 && (x + y) % 200 < 120;
      for (double channel : {110 + hill + (isRoof ? 60 : 0), 60 + sky + hill / 3, 200 - sky + (isRoof ? -80 : 0)}) {
        const double noisy = channel + static_cast<int>(random() % 17) - 8;
        bytes.push_back(static_cast<uint8_t>(std::lround(std::clamp(noisy, 0.0, 255.0))));
      }
    }
  }
  return bytes;
}

TBitmap BitmapOf(const TRgbBytes& Bytes, TPixelFormat Format) {
  TBitmap bitmap(Format, kWidth, kHeight);
  const auto pixels = TBitmapX::CreateBitmapX(&bitmap);
  const uint8_t* from = Bytes.data();
  std::vector<TRGB> row(kWidth);
  for (int y = 0; y < kHeight; ++y) {
    for (TRGB& pixel : row) {
      pixel = {from[0], from[1], from[2], 0};
      from += 3;
    }
    dynamic_cast<TBitmapXWrite&>(*pixels).SetRow(y, row);
  }
  return bitmap;
}

TRgbBytes BytesOf(const TBitmapX& Pixels) {
  TRgbBytes bytes;
  std::vector<TRGB> row(kWidth);
  for (int y = 0; y < kHeight; ++y) {
    Pixels.GetRow(y, row);
    for (const TRGB pixel : row) bytes.insert(bytes.end(), {pixel.Red, pixel.Green, pixel.Blue});
  }
  return bytes;
}

// All pixels of a picture through an object of which only the base is known.
class TPixels {
 public:
  TPixels(const TRgbBytes& Bytes, TPixelFormat Format)
      : FBitmap(BitmapOf(Bytes, Format)), FMade(TBitmapX::CreateBitmapX(&FBitmap)) {}

  double Read() {
    unsigned sum = 0;
    const double seconds = Time([&] {
      for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) sum += FMade->GetPixels(x, y).Green;
      }
    });
    Expect(sum > 0, "pixels are read");
    return seconds;
  }
  // Each time another colour, since a pixel that has its colour already is not written.
  double Write() {
    const TRGB color{++FTimes, 20, 30, 0};
    return Time([&] {
      for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) Writer().SetPixels(x, y, color);
      }
    });
  }
  double Rows() {
    std::vector<TRGB> row(kWidth);
    return Time([&] {
      for (int y = 0; y < kHeight; ++y) {
        FMade->GetRow(y, row);
        for (TRGB& pixel : row) pixel.Green ^= 1;
        Writer().SetRow(y, row);
      }
    });
  }

 private:
  TBitmapXWrite& Writer() { return static_cast<TBitmapXWrite&>(*FMade); }

  TBitmap FBitmap;
  std::unique_ptr<TBitmapX> FMade;
  uint8_t FTimes = 0;
};

void MeasurePixels(const TRgbBytes& Bytes) {
  TPixels pixels24(Bytes, pf24bit), pixels32(Bytes, pf32bit);
  const auto times = Medians(
      kRounds, [&] { return pixels24.Read(); }, [&] { return pixels32.Read(); }, [&] { return pixels24.Write(); },
      [&] { return pixels32.Write(); }, [&] { return pixels24.Rows(); }, [&] { return pixels32.Rows(); });
  ReportOurs("drawing/read_pixel_24bit", times[0], kPixels, TBar::AtMost(3));
  ReportOurs("drawing/read_pixel_32bit", times[1], kPixels, TBar::AtMost(3));
  ReportOurs("drawing/write_pixel_24bit", times[2], kPixels, TBar::AtMost(3));
  ReportOurs("drawing/write_pixel_32bit", times[3], kPixels, TBar::AtMost(3));
  ReportOurs("drawing/pixel_of_row_read_and_written_24bit", times[4], kPixels);
  ReportOurs("drawing/pixel_of_row_read_and_written_32bit", times[5], kPixels);
}

// In memory, so that nobody waits for a disk. Our SaveToFile also flushes, which the peers' do not.
void MeasureFiles(const char* Form, const TBitmap& Picture) {
  const std::string bmp = EncodeBitmap(Picture);
  TPixbufPeer pixbuf(bmp);
  TMagickPeer magick(bmp);
  const auto times = Medians(
      kRounds,
      [&] { return Time([&] { Expect(DecodeBitmap(bmp, u"bmp").GetWidth() == kWidth, "a BMP file is read"); }); },
      [&] { return pixbuf.Load(); }, [&] { return magick.Load(); },
      [&] { return Time([&] { Expect(EncodeBitmap(Picture).size() == bmp.size(), "a BMP file is written"); }); },
      [&] { return pixbuf.Save(); }, [&] { return magick.Save(); });
  const std::string load = std::string("drawing/load_bmp_") + Form, save = std::string("drawing/save_bmp_") + Form;
  Report(load, times[0], "gdk_pixbuf", times[1], 1, TBar::AtLeast(1));
  Report(load, times[0], "imagemagick", times[2], 1, TBar::AtLeast(1));
  // gdk-pixbuf writes 24 bits whatever it read.
  if (Picture.GetPixelFormat() == pf24bit) Report(save, times[3], "gdk_pixbuf", times[4], 1, TBar::AtLeast(1));
  Report(save, times[3], "imagemagick", times[5], 1, TBar::AtLeast(1));
}

void MeasureColors(const TRgbBytes& Bytes) {
  TBitmap picture = BitmapOf(Bytes, pf24bit);
  const auto pixels = TBitmapX::CreateBitmapX(&picture);
  std::unique_ptr<TBitmapXWrite> reduced;
  TQuantPeer quant(Bytes);
  TMagickPeer magick(EncodeBitmap(picture));
  const auto times = Medians(
      5, [&] { return Time([&] { reduced = pixels->CompressColors(kColors, false); }); },
      [&] { return quant.Reduce(); }, [&] { return magick.Reduce(); });
  ReportOurs("drawing/reduce_to_256_colors", times[0], 1, TBar::AtMost(15));
  Report("drawing/reduce_to_256_colors", times[0], "libimagequant", times[1]);
  Report("drawing/reduce_to_256_colors", times[0], "imagemagick", times[2]);
  std::printf("BENCH drawing/psnr_of_256_colors ours=%.2fdB libimagequant=%.2fdB imagemagick=%.2fdB\n",
              Psnr(Bytes, BytesOf(*reduced)), Psnr(Bytes, quant.GetReduced()), Psnr(Bytes, magick.GetReduced()));
}

}  // namespace

void MeasurePictures() {
  const TRgbBytes bytes = Photograph();
  MeasurePixels(bytes);
  MeasureFiles("24bit", BitmapOf(bytes, pf24bit));
  TBitmap few = BitmapOf(bytes, pf24bit);
  few.SetPixelFormat(pf8bit);
  MeasureFiles("8bit", few);
  MeasureColors(bytes);
}

}  // namespace vx::bench
