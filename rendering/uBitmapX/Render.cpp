// Drawing, turning and scaling of pixel buffers.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "core/uVxFunctions/Colors.h"
#include "platform/Exceptions.h"
#include "rendering/uBitmapX/TBitmapX.h"

namespace vx {
namespace {

// Pixels in a rectangle of their own, between reading and writing.
struct TPicture {
  TPicture(int AWidth, int AHeight)
      : Width(AWidth), Height(AHeight), Pixels(static_cast<size_t>(AWidth) * static_cast<size_t>(AHeight)) {}
  TRGB& At(int X, int Y) noexcept { return Pixels[Index(X, Y)]; }
  const TRGB& At(int X, int Y) const noexcept { return Pixels[Index(X, Y)]; }
  std::span<TRGB> Row(int Y) noexcept { return std::span(Pixels).subspan(Index(0, Y), static_cast<size_t>(Width)); }

  int Width, Height;
  std::vector<TRGB> Pixels;

 private:
  size_t Index(int X, int Y) const noexcept {
    return static_cast<size_t>(Y) * static_cast<size_t>(Width) + static_cast<size_t>(X);
  }
};

TPicture Read(const TBitmapX& Source) {
  TPicture picture(Source.GetWidth(), Source.GetHeight());
  for (int y = 0; y < picture.Height; ++y) Source.GetRow(y, picture.Row(y));
  return picture;
}

// The picture of that size whose pixel (x, y) is the one of From that Place(x, y) says.
template <typename F>
TPicture Rearranged(const TPicture& From, int Width, int Height, F&& Place) {
  TPicture picture(Width, Height);
  for (int y = 0; y < Height; ++y) {
    for (int x = 0; x < Width; ++x) {
      const TPoint place = Place(x, y);
      picture.At(x, y) = From.At(place.X, place.Y);
    }
  }
  return picture;
}

// Turned clockwise so many times by a right angle.
TPicture Turned(TPicture Picture, int Quarters) {
  const int width = Picture.Width, height = Picture.Height;
  switch (Quarters % 4) {
    case 1:
      return Rearranged(Picture, height, width, [&](int X, int Y) { return TPoint{Y, height - 1 - X}; });
    case 2:
      std::reverse(Picture.Pixels.begin(), Picture.Pixels.end());
      return Picture;
    case 3:
      return Rearranged(Picture, height, width, [&](int X, int Y) { return TPoint{width - 1 - Y, X}; });
    default:
      return Picture;
  }
}

TPicture Placed(TPicture Picture, TBitmapDrawOptions Options) {
  const int quarters =
      (Options.Has(bdoRotate90) ? 1 : 0) + (Options.Has(bdoRotate180) ? 2 : 0) + (Options.Has(bdoRotate270) ? 3 : 0);
  TPicture placed = Turned(std::move(Picture), quarters);
  for (int y = 0; Options.Has(bdoReflectHoriz) && y < placed.Height; ++y) {
    std::reverse(placed.Row(y).begin(), placed.Row(y).end());
  }
  for (int y = 0; Options.Has(bdoReflectVert) && y < placed.Height / 2; ++y) {
    const std::span<TRGB> upper = placed.Row(y), lower = placed.Row(placed.Height - 1 - y);
    std::swap_ranges(upper.begin(), upper.end(), lower.begin());
  }
  return placed;
}

TRGB Colored(TRGB Color, TBitmapDrawOptions Options) noexcept {
  if (Options.Has(bdoGray)) Color.Red = Color.Green = Color.Blue = ColorAverage(ConvertRGBToColor(Color));
  if (Options.Has(bdoInvert)) {
    for (uint8_t* channel : {&Color.Red, &Color.Green, &Color.Blue}) *channel = static_cast<uint8_t>(255 - *channel);
  }
  if (Options.Has(bdoSwapRB)) std::swap(Color.Red, Color.Blue);
  if (Options.Has(bdoNoRed)) Color.Red = 0;
  if (Options.Has(bdoNoGreen)) Color.Green = 0;
  if (Options.Has(bdoNoBlue)) Color.Blue = 0;
  return Color;
}

uint8_t Raised(uint8_t Target, uint8_t By) noexcept {
  return static_cast<uint8_t>(std::clamp(Target + By - 128, 0, 255));
}

// Puts the pixels of Row, from place (X, Y) on, into Target. Old is room for a row.
void WriteRow(TBitmapXWrite& Target, int X, int Y, std::span<const TRGB> Row, TBitmapDrawOptions Options,
              const TRGB* Transparent, std::vector<TRGB>& Old) {
  Old.resize(static_cast<size_t>(Target.GetWidth()));
  Target.GetRow(Y, Old);
  TRGB* to = Old.data() + X;
  for (TRGB pixel : Row) {
    TRGB& target = *to++;
    if (Transparent && pixel == *Transparent) continue;
    const TRGB color = Colored(pixel, Options);
    target = Options.Has(bdoRelative) ? TRGB{Raised(target.Red, color.Red), Raised(target.Green, color.Green),
                                             Raised(target.Blue, color.Blue), target.Fourth}
                                      : color;
  }
  Target.SetRow(Y, Old);
}

void Write(TPicture Source, TBitmapXWrite& Target, int X, int Y, TBitmapDrawOptions Options) {
  if (Source.Pixels.empty()) return;
  TRGB transparent = Source.At(0, Source.Height - 1);
  TPicture picture = Placed(std::move(Source), Options);
  const int64_t left = std::max<int64_t>(-int64_t{X}, 0), top = std::max<int64_t>(-int64_t{Y}, 0);
  const int64_t right = std::min<int64_t>(picture.Width, int64_t{Target.GetWidth()} - X);
  const int64_t bottom = std::min<int64_t>(picture.Height, int64_t{Target.GetHeight()} - Y);
  if (left >= right) return;
  std::vector<TRGB> old;
  for (int64_t y = top; y < bottom; ++y) {
    const auto row =
        picture.Row(static_cast<int>(y)).subspan(static_cast<size_t>(left), static_cast<size_t>(right - left));
    WriteRow(Target, static_cast<int>(X + left), static_cast<int>(Y + y), row, Options,
             Options.Has(bdoTransparent) ? &transparent : nullptr, old);
  }
}

// A writer over Bitmap or over a bitmap of its own, which gets that size.
std::unique_ptr<TBitmapXWrite> MakeTarget(TBitmap* Bitmap, int Width, int Height) {
  std::unique_ptr<TBitmap> own;
  if (!Bitmap) own = std::make_unique<TBitmap>();
  TBitmap& bitmap = Bitmap ? *Bitmap : *own;
  const TPixelFormat format = bitmap.GetPixelFormat() == pf32bit ? pf32bit : pf24bit;
  SetBitmapDimension(bitmap, format, Width, Height);
  const TBitmapOwnsOptions owns = own ? TBitmapOwnsOptions{booOwnsBitmap} : TBitmapOwnsOptions{};
  std::unique_ptr<TBitmapXWrite> target;
  if (format == pf32bit) {
    target = std::make_unique<TBitmap32>(&bitmap, owns);
  } else {
    target = std::make_unique<TBitmap24>(&bitmap, owns);
  }
  static_cast<void>(own.release());  // the target's
  return target;
}

std::unique_ptr<TBitmapXWrite> Written(TPicture Picture, TBitmapDrawOptions Options, TBitmap* Bitmap) {
  const bool isTurned = Options.Has(bdoRotate90) != Options.Has(bdoRotate270);
  std::unique_ptr<TBitmapXWrite> target =
      MakeTarget(Bitmap, isTurned ? Picture.Height : Picture.Width, isTurned ? Picture.Width : Picture.Height);
  Write(std::move(Picture), *target, 0, 0, Options);
  return target;
}

void CheckFactor(int Factor) {
  if (Factor < 1) throw EArgumentException(u"The factor of a picture must be at least 1");
}

TPicture Scaled(const TPicture& From, int Width, int Height) {
  if (From.Pixels.empty()) return TPicture(0, 0);
  return Rearranged(From, Width, Height, [&](int X, int Y) {
    return TPoint{static_cast<int>((int64_t{2} * X + 1) * From.Width / (int64_t{2} * Width)),
                  static_cast<int>((int64_t{2} * Y + 1) * From.Height / (int64_t{2} * Height))};
  });
}

// The mean of the pixels from (Left, Top) on that are there.
TRGB MeanOf(const TPicture& From, int Left, int Top, int Factor) noexcept {
  const int right = static_cast<int>(std::min<int64_t>(From.Width, int64_t{Left} + Factor));
  const int bottom = static_cast<int>(std::min<int64_t>(From.Height, int64_t{Top} + Factor));
  uint64_t sums[4] = {}, count = 0;
  for (int y = Top; y < bottom; ++y) {
    for (int x = Left; x < right; ++x, ++count) {
      const TRGB pixel = From.At(x, y);
      sums[0] += pixel.Red;
      sums[1] += pixel.Green;
      sums[2] += pixel.Blue;
      sums[3] += pixel.Fourth;
    }
  }
  auto mean = [&](int i) { return static_cast<uint8_t>((sums[i] + count / 2) / count); };
  return {mean(0), mean(1), mean(2), mean(3)};
}

// The colour at a place between pixels; what lies outside the picture is Around.
TRGB MixedAt(const TPicture& From, double X, double Y, TRGB Around) noexcept {
  const double left = std::floor(X), top = std::floor(Y);
  double sums[4] = {};
  for (int i = 0; i < 4; ++i) {
    const int toRight = i % 2, down = i / 2;
    const double x = left + toRight, y = top + down, part = (1 - std::abs(X - x)) * (1 - std::abs(Y - y));
    const bool isInside = x >= 0 && y >= 0 && x < From.Width && y < From.Height;
    const TRGB pixel = isInside ? From.At(static_cast<int>(x), static_cast<int>(y)) : Around;
    const uint8_t channels[] = {pixel.Red, pixel.Green, pixel.Blue, pixel.Fourth};
    for (int c = 0; c < 4; ++c) sums[c] += part * channels[c];
  }
  auto rounded = [&](int i) { return static_cast<uint8_t>(std::lround(sums[i])); };
  return {rounded(0), rounded(1), rounded(2), rounded(3)};
}

TPicture RotatedBy(const TPicture& From, double Degrees, TRGB Around) {
  const double angle = Degrees * std::numbers::pi / 180, cosine = std::cos(angle), sine = std::sin(angle);
  const double width = std::abs(From.Width * cosine) + std::abs(From.Height * sine);
  const double height = std::abs(From.Width * sine) + std::abs(From.Height * cosine);
  constexpr double kTiny = 1E-9;
  TPicture turned(static_cast<int>(std::ceil(width - kTiny)), static_cast<int>(std::ceil(height - kTiny)));
  for (int y = 0; y < turned.Height; ++y) {
    for (int x = 0; x < turned.Width; ++x) {
      const double fromMiddleX = x + 0.5 - turned.Width / 2.0, fromMiddleY = y + 0.5 - turned.Height / 2.0;
      turned.At(x, y) = MixedAt(From, fromMiddleX * cosine + fromMiddleY * sine + From.Width / 2.0 - 0.5,
                                fromMiddleY * cosine - fromMiddleX * sine + From.Height / 2.0 - 0.5, Around);
    }
  }
  return turned;
}

}  // namespace

std::unique_ptr<TBitmapXWrite> TBitmapX::Render(TBitmapDrawOptions Options, TBitmap* Bitmap) const {
  return Written(Read(*this), Options, Bitmap);
}

std::unique_ptr<TBitmapXWrite> TBitmapX::RenderRect(const TRect& Rect, TBitmapDrawOptions Options,
                                                    TBitmap* Bitmap) const {
  const TRect part = IntersectRect(Rect, {0, 0, GetWidth(), GetHeight()});
  TPicture picture(part.Width(), part.Height());
  std::vector<TRGB> row(static_cast<size_t>(part.Right));
  for (int y = 0; y < picture.Height; ++y) {
    GetRow(part.Top + y, row);
    std::copy(row.begin() + part.Left, row.end(), picture.Row(y).begin());
  }
  return Written(std::move(picture), Options, Bitmap);
}

std::unique_ptr<TBitmapXWrite> TBitmapX::RenderHard(int Width, int Height, TBitmapDrawOptions Options,
                                                    TBitmap* Bitmap) const {
  if (Width < 0 || Height < 0) throw EArgumentException(u"A picture can not have a size below 0");
  return Written(Scaled(Read(*this), Width, Height), Options, Bitmap);
}

std::unique_ptr<TBitmapXWrite> TBitmapX::RenderHardUp(int Factor, TBitmapDrawOptions Options, TBitmap* Bitmap) const {
  CheckFactor(Factor);
  const TPicture picture = Read(*this);
  const int64_t width = int64_t{picture.Width} * Factor, height = int64_t{picture.Height} * Factor;
  if (width * height > INT32_MAX) throw EArgumentException(u"The factor makes the picture too large");
  return Written(Scaled(picture, static_cast<int>(width), static_cast<int>(height)), Options, Bitmap);
}

std::unique_ptr<TBitmapXWrite> TBitmapX::RenderHardDown(int Factor, TBitmapDrawOptions Options, TBitmap* Bitmap) const {
  CheckFactor(Factor);
  const TPicture picture = Read(*this);
  auto fewer = [&](int Count) { return Count / Factor + (Count % Factor != 0); };
  auto place = [&](int At, int Count) {
    return static_cast<int>(std::min<int64_t>(int64_t{At} * Factor + Factor / 2, Count - 1));
  };
  return Written(Rearranged(picture, fewer(picture.Width), fewer(picture.Height),
                            [&](int X, int Y) {
                              return TPoint{place(X, picture.Width), place(Y, picture.Height)};
                            }),
                 Options, Bitmap);
}

std::unique_ptr<TBitmapXWrite> TBitmapX::Rotate(double Degrees, TColor Background, TBitmapDrawOptions Options,
                                                TBitmap* Bitmap) const {
  if (!std::isfinite(Degrees)) throw EArgumentException(u"A picture can only be turned by a number of degrees");
  double degrees = std::fmod(Degrees, 360);
  if (degrees < 0) degrees += 360;
  if (std::fmod(degrees, 90) == 0) return Written(Turned(Read(*this), static_cast<int>(degrees / 90)), Options, Bitmap);
  TRGB around;
  ConvertColorToRGB(ColorToRGB(Background), around);
  return Written(RotatedBy(Read(*this), degrees, around), Options, Bitmap);
}

std::unique_ptr<TBitmapXWrite> TBitmapX::Antialias(int Factor, TBitmapDrawOptions Options, TBitmap* Bitmap) const {
  CheckFactor(Factor);
  const TPicture picture = Read(*this);
  auto fewer = [&](int Count) { return Count / Factor + (Count % Factor != 0); };
  TPicture smooth(fewer(picture.Width), fewer(picture.Height));
  for (int y = 0; y < smooth.Height; ++y) {
    for (int x = 0; x < smooth.Width; ++x) smooth.At(x, y) = MeanOf(picture, x * Factor, y * Factor, Factor);
  }
  return Written(std::move(smooth), Options, Bitmap);
}

void TBitmapXWrite::Draw(int X, int Y, const TBitmapX& Source, TBitmapDrawOptions Options) {
  if (iOk) Write(Read(Source), *this, X, Y, Options);
}

}  // namespace vx
