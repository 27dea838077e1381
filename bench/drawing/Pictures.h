// A picture as all peers know it, and what others do with its file and its colours: the seconds that one run takes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vx::bench {

inline constexpr int kWidth = 1024, kHeight = 768;
inline constexpr int kColors = 256;

// Red, green and blue of kWidth x kHeight pixels, from the top.
using TRgbBytes = std::vector<uint8_t>;

// How near a picture comes to the one it was made from, in decibels.
double Psnr(const TRgbBytes& A, const TRgbBytes& B);

// gdk-pixbuf: from the bytes of a BMP file to pixels in memory, and back.
class TPixbufPeer {
 public:
  explicit TPixbufPeer(const std::string& Bmp);
  ~TPixbufPeer();
  double Load();
  double Save();

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

// ImageMagick: the same, and the picture in few colours without dithering.
class TMagickPeer {
 public:
  explicit TMagickPeer(const std::string& Bmp);
  ~TMagickPeer();
  double Load();
  double Save();
  double Reduce();
  // Of the picture that Reduce left.
  TRgbBytes GetReduced() const;

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

// libimagequant: the picture in few colours, without dithering, at the speed that it has unless told another one.
class TQuantPeer {
 public:
  explicit TQuantPeer(const TRgbBytes& Picture);
  double Reduce();
  TRgbBytes GetReduced() const;

 private:
  std::vector<uint8_t> FPixels;  // with a fourth byte
  std::vector<uint8_t> FIndexes;
  std::vector<uint8_t> FPalette;
};

// Our side.
void MeasurePictures();

}  // namespace vx::bench
