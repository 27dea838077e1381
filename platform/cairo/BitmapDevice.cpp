#include "platform/cairo/BitmapDevice.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <cwchar>

#include "platform/Drawing.h"
#include "platform/cairo/Blend.h"
#include "platform/cairo/Painter.h"
#include "platform/cairo/Shaping.h"

namespace vx::drawing {

namespace {

static_assert(std::endian::native == std::endian::little, "pixels of 32 bits are read as words");

// The largest side of a surface that is painted beside a bitmap.
constexpr int kTile = 4096;

uint32_t Rgb(TColor Color) noexcept {
  const TColor rgb = ColorToRGB(Color);
  return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | (rgb >> 16 & 0xFF);
}

bool HasWords(const TBitmap& Bitmap) noexcept { return BitsOfPixelFormat(Bitmap.GetPixelFormat()) == 32; }

// The C library fills with its wide characters, which are as large here, a row at a time; plain loops take twice as
// long.
void FillWords(uint32_t* To, uint32_t Word, int Count) noexcept {
  if constexpr (sizeof(wchar_t) == sizeof Word) {
    std::wmemset(reinterpret_cast<wchar_t*>(To), static_cast<wchar_t>(Word), static_cast<size_t>(Count));
  } else {
    std::fill_n(To, Count, Word);
  }
}

// A byte of a channel over another one, by Part of 256.
uint8_t MixByte(uint8_t Dst, uint32_t Src, uint32_t Part) noexcept {
  return static_cast<uint8_t>((Dst * (256 - Part) + (Src & 255) * Part) >> 8);
}

}  // namespace

TBitmapDevice::TBitmapDevice(TBitmap& Bitmap) : TFaceDevice(GetScreenPixelsPerInch()), FBitmap(Bitmap) {}

// --- the place of things

TRect TBitmapDevice::Bounds() const noexcept {
  return {0, 0, static_cast<int>(std::ceil(FBitmap.GetWidth() / FScale)),
          static_cast<int>(std::ceil(FBitmap.GetHeight() / FScale))};
}

TRect TBitmapDevice::Scaled(const TRect& Rect) const noexcept {
  if (FScale == 1) return Rect;
  const auto side = [this](int value) {
    return static_cast<int>(std::clamp(std::floor(value * FScale + 0.5), -1e9, 1e9));
  };
  return {side(Rect.Left), side(Rect.Top), side(Rect.Right), side(Rect.Bottom)};
}

TRect TBitmapDevice::Visible(const TRect& Pixels) const noexcept {
  const TRect inside = IntersectRect(Pixels, {0, 0, FBitmap.GetWidth(), FBitmap.GetHeight()});
  return FClipped ? IntersectRect(inside, FClip) : inside;
}

void TBitmapDevice::SetClip(const TRect* Clip, double Scale) noexcept {
  FScale = Scale;
  FClipped = Clip != nullptr;
  if (Clip) FClip = Scaled(*Clip);
}

// --- straight into the rows

template <typename F>
void TBitmapDevice::EditRow(int Y, int Left, int Right, F Change) {
  if (HasWords(FBitmap)) {
    Change(reinterpret_cast<uint32_t*>(FBitmap.GetScanline(Y)) + Left, Right - Left);
    return;
  }
  thread_local std::vector<uint32_t> row;
  row.resize(static_cast<size_t>(Right));
  FBitmap.GetRow(Y, row);
  Change(row.data() + Left, Right - Left);
  FBitmap.SetRow(Y, row);
}

void TBitmapDevice::FillPixels(const TRect& Pixels, TColor Color) {
  const TRect part = Visible(Pixels);
  if (part.IsEmpty()) return;
  const uint32_t pixel = OpaquePixel(Rgb(Color), FBitmap.GetAlphaFormat());
  const auto fill = [pixel](uint32_t* pixels, int count) { FillWords(pixels, pixel, count); };
  const int bits = BitsOfPixelFormat(FBitmap.GetPixelFormat());
  if (bits < 8) {
    for (int y = part.Top; y < part.Bottom; ++y) EditRow(y, part.Left, part.Right, fill);
    return;
  }
  const size_t bytes = static_cast<size_t>(bits) / 8, width = static_cast<size_t>(part.Width()) * bytes;
  uint8_t* row = FBitmap.GetScanline(part.Top) + static_cast<size_t>(part.Left) * bytes;
  if (bits == 32) {
    for (int y = part.Top; y < part.Bottom; ++y, row += FBitmap.GetStride()) {
      FillWords(reinterpret_cast<uint32_t*>(row), pixel, part.Width());
    }
    return;
  }
  // One pixel, as often as the row takes, and this row for all.
  EditRow(part.Top, part.Left, part.Left + 1, fill);
  for (size_t done = bytes; done < width; done *= 2) std::memcpy(row + done, row, std::min(done, width - done));
  const uint8_t* first = row;
  for (int y = part.Top + 1; y < part.Bottom; ++y) std::memcpy(row += FBitmap.GetStride(), first, width);
}

void TBitmapDevice::Fill(const TRect& Rect, TColor Color) { FillPixels(Scaled(Rect), Color); }

void TBitmapDevice::Frame(const TRect& Rect, const TPen& Pen) {
  const int width = std::min({Pen.Width, Rect.Width(), Rect.Height()});
  const TRect sides[] = {{Rect.Left, Rect.Top, Rect.Right, Rect.Top + width},
                         {Rect.Left, Rect.Top, Rect.Left + width, Rect.Bottom},
                         {Rect.Right - width, Rect.Top, Rect.Right, Rect.Bottom},
                         {Rect.Left, Rect.Bottom - width, Rect.Right, Rect.Bottom}};
  for (const TRect& side : sides) {
    if (Pen.Style == psSolid) {
      Fill(side, Pen.Color);
    } else {
      Overlay(side, [&](cairo_t* cairo) { PaintFrame(cairo, Rect, Pen); });
    }
  }
}

void TBitmapDevice::Line(TPoint From, TPoint To, const TPen& Pen) {
  const TRect straight = StraightLine(From, To, Pen);
  if (!straight.IsEmpty()) {
    Fill(straight, Pen.Color);
    return;
  }
  const int around = std::min(Pen.Width, 1 << 20) + 1;
  const TRect area{std::min(From.X, To.X) - around, std::min(From.Y, To.Y) - around, std::max(From.X, To.X) + around,
                   std::max(From.Y, To.Y) + around};
  Overlay(area, [&](cairo_t* cairo) { PaintLine(cairo, From, To, Pen); });
}

void TBitmapDevice::Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) {
  Overlay(Rect, [&](cairo_t* cairo) { PaintEllipse(cairo, Rect, Brush, Pen); });
}

void TBitmapDevice::Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) {
  if (InEllipse) {
    Overlay(Rect, [&](cairo_t* cairo) { PaintGradient(cairo, Rect, Gradient, true); });
    return;
  }
  const TRect pixels = Scaled(Rect);
  const TRect part = Visible(pixels);
  if (part.IsEmpty()) return;
  const bool down = Gradient.Direction == gdVertical;
  const int first = down ? pixels.Top : pixels.Left, count = down ? pixels.Height() : pixels.Width();
  const TColor from = ColorToRGB(Gradient.From), to = ColorToRGB(Gradient.To);
  const auto color = [&](int at) {
    const double place = count > 1 ? static_cast<double>(at - first) / (count - 1) : 0;
    return MixColors(from, to, GradientShare(Gradient, place));
  };
  for (int at = down ? part.Top : part.Left; at < (down ? part.Bottom : part.Right); ++at) {
    FillPixels(down ? TRect{part.Left, at, part.Right, at + 1} : TRect{at, part.Top, at + 1, part.Bottom}, color(at));
  }
}

// --- beside the bitmap and laid over it

void TBitmapDevice::OverlayTile(const TRect& Pixels, cairo_surface_t* Surface) {
  cairo_surface_flush(Surface);
  const uint8_t* rows = cairo_image_surface_get_data(Surface);
  const int stride = cairo_image_surface_get_stride(Surface);
  const TAlphaFormat format = FBitmap.GetAlphaFormat();
  for (int y = Pixels.Top; y < Pixels.Bottom; ++y) {
    const auto* source = reinterpret_cast<const uint32_t*>(rows + static_cast<ptrdiff_t>(y - Pixels.Top) * stride);
    if (std::all_of(source, source + Pixels.Width(), [](uint32_t pixel) { return pixel == 0; })) continue;
    EditRow(y, Pixels.Left, Pixels.Right, [&](uint32_t* pixels, int count) {
      for (int x = 0; x < count; ++x) {
        const uint32_t opacity = source[x] >> 24;
        if (opacity == 0) continue;
        // Painted colours come multiplied by their opacity.
        const auto channel = [&](int shift) {
          return std::min(((source[x] >> shift & 255) * 255 + opacity / 2) / opacity, 255U) << shift;
        };
        const uint32_t rgb = opacity == 255 ? source[x] & 0xFFFFFF : channel(16) | channel(8) | channel(0);
        pixels[x] = opacity == 255 ? OpaquePixel(rgb, format) : Over(pixels[x], rgb, opacity, format);
      }
    });
  }
}

template <typename F>
void TBitmapDevice::Overlay(const TRect& Area, F Paint) {
  TRect pixels = Scaled(Area);
  pixels = Visible({pixels.Left - 1, pixels.Top - 1, pixels.Right + 1, pixels.Bottom + 1});
  for (int top = pixels.Top; top < pixels.Bottom; top += kTile) {
    for (int left = pixels.Left; left < pixels.Right; left += kTile) {
      const TRect tile{left, top, std::min(left + kTile, pixels.Right), std::min(top + kTile, pixels.Bottom)};
      TSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, tile.Width(), tile.Height()));
      TCairo cairo(cairo_create(surface.get()));
      cairo_translate(cairo.get(), -tile.Left, -tile.Top);
      cairo_scale(cairo.get(), FScale, FScale);
      Paint(cairo.get());
      CheckStatus(cairo_status(cairo.get()));
      OverlayTile(tile, surface.get());
    }
  }
}

void TBitmapDevice::Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) {
  if (&Bitmap == &FBitmap) {
    const TBitmap before = Bitmap;  // NOLINT(performance-unnecessary-copy-initialization): its pixels change
    Picture(Rect, before, Source, Transparent);
    return;
  }
  const TRect pixels = Scaled(Rect);
  constexpr int most = 16384;
  const bool natural = pixels.Width() == Source.Width() && pixels.Height() == Source.Height();
  if (natural || std::max({pixels.Width(), pixels.Height(), Source.Width(), Source.Height()}) > most) {
    StretchPixels(pixels, Bitmap, Source, Transparent);
  } else {
    Overlay(Rect, [&](cairo_t* cairo) { PaintPicture(cairo, Rect, Bitmap, Source, Transparent); });
  }
}

// Each pixel is the one of the source that its place leads to.
void TBitmapDevice::StretchPixels(const TRect& Pixels, const TBitmap& Bitmap, const TRect& Source,
                                  const TColor* Transparent) {
  const TRect part = Visible(Pixels);
  const TAlphaFormat format = FBitmap.GetAlphaFormat();
  TPictureRows rows(Bitmap, Source, Transparent);
  const auto from = [](int64_t at, int length, int sourceLength) {
    return static_cast<int>(at * sourceLength / length);
  };
  for (int y = part.Top; y < part.Bottom; ++y) {
    const uint32_t* source = rows.Row(from(y - Pixels.Top, Pixels.Height(), Source.Height()));
    EditRow(y, part.Left, part.Right, [&](uint32_t* pixels, int count) {
      for (int x = 0; x < count; ++x) {
        const uint32_t pixel = source[from(part.Left + x - Pixels.Left, Pixels.Width(), Source.Width())];
        pixels[x] = Over(pixels[x], pixel & 0xFFFFFF, pixel >> 24, format);
      }
    });
  }
}

// --- texts

TFace* TBitmapDevice::MasksFor(std::u16string_view Text) {
  if (FFace->Em() * FScale > TFace::LargestMaskEm || !FFace->IsSimple(Text)) return nullptr;
  if (FScale == 1) return FFace.get();
  if (FMasksOf != FFace || FMasksScale != FScale) {
    FMasks = FFace->Scaled(FScale);
    FMasksOf = FFace;
    FMasksScale = FScale;
  }
  return FMasks->IsSimple(Text) ? FMasks.get() : nullptr;
}

void TBitmapDevice::Text(const TTextRun& Run) {
  if (TFace* masks = Run.Upward ? nullptr : MasksFor(Run.Text)) {
    DrawLetters(*masks, Run.Text, Run.Origin, Run.Color);
    if (FStyle.Has(fsUnderline) || FStyle.Has(fsStrikeOut)) {
      for (const TRect& line : TextLines(*FFace, FStyle, Run, TextWidth(Run.Text))) Fill(line, Run.Color);
    }
    return;
  }
  // Letters may reach beyond the place that they are measured by.
  const int width = TextWidth(Run.Text), around = FFace->Em() * 2, x = Run.Origin.X, y = Run.Origin.Y;
  const TRect area = Run.Upward ? TRect{x - around, y - width - around, x + around, y + around}
                                : TRect{x - around, y - around, x + width + around, y + around};
  Overlay(area, [&](cairo_t* cairo) { PaintText(cairo, *FFace, FStyle, Run, false); });
}

// Each letter stands where the advances before the scale lead to.
void TBitmapDevice::DrawLetters(TFace& Masks, std::u16string_view Text, TPoint Origin, TColor Color) {
  const TRect visible = Visible({0, 0, FBitmap.GetWidth(), FBitmap.GetHeight()});
  const uint32_t rgb = Rgb(Color);
  const TAlphaFormat format = FBitmap.GetAlphaFormat();
  const int bytes = format == afDefined ? 0 : HasWords(FBitmap) ? 4 : FBitmap.GetPixelFormat() == pf24bit ? 3 : 0;
  const auto pixel = [scale = FScale](int64_t place) {
    return scale == 1 ? place : static_cast<int64_t>(std::floor(static_cast<double>(place) * scale + 0.5));
  };
  const int64_t baseLine = pixel(Origin.Y);
  int64_t place = Origin.X;
  for (char16_t unit : Text) {
    const int64_t at = pixel(place), advance = FFace->Advance(unit), behind = pixel(place + advance);
    if (at > visible.Right + int64_t{Masks.Em()}) return;
    if (behind + Masks.Em() > visible.Left) {
      const TGlyph& glyph = Masks.Glyph(unit);
      const int x = static_cast<int>(at) + glyph.Left, y = static_cast<int>(baseLine) + glyph.Top;
      const TRect part = IntersectRect(visible, {x, y, x + glyph.Width, y + glyph.Height});
      if (part.IsEmpty()) {
      } else if (bytes == 4) {
        DrawMask<4>(glyph, part, x, y, OpaquePixel(rgb, format));
      } else if (bytes == 3) {
        DrawMask<3>(glyph, part, x, y, rgb);
      } else {
        DrawMaskSlowly(glyph, part, x, y, rgb);
      }
    }
    place += advance;
  }
}

// Part is what can be seen of the glyph at (X, Y).
template <int Bytes>
void TBitmapDevice::DrawMask(const TGlyph& Glyph, const TRect& Part, int X, int Y, uint32_t Pixel) {
  const ptrdiff_t stride = FBitmap.GetStride();
  uint8_t* row = FBitmap.GetScanline(Part.Top) + ptrdiff_t{Part.Left} * Bytes;
  const uint8_t* mask = &Glyph.Mask[static_cast<size_t>((Part.Top - Y) * Glyph.Width + Part.Left - X)];
  const int width = Part.Width();
  for (int y = Part.Top; y < Part.Bottom; ++y, row += stride, mask += Glyph.Width) {
    for (int x = 0; x < width; ++x) {
      if (!mask[x]) continue;
      const uint32_t part = PartOf(mask[x]);
      if constexpr (Bytes == 4) {
        uint32_t& pixel = reinterpret_cast<uint32_t*>(row)[x];
        pixel = Mix(pixel, Pixel, part);
      } else {
        uint8_t* pixel = row + ptrdiff_t{x} * 3;
        pixel[0] = MixByte(pixel[0], Pixel, part);
        pixel[1] = MixByte(pixel[1], Pixel >> 8, part);
        pixel[2] = MixByte(pixel[2], Pixel >> 16, part);
      }
    }
  }
}

void TBitmapDevice::DrawMaskSlowly(const TGlyph& Glyph, const TRect& Part, int X, int Y, uint32_t Rgb) {
  const TAlphaFormat format = FBitmap.GetAlphaFormat();
  for (int y = Part.Top; y < Part.Bottom; ++y) {
    const uint8_t* mask = &Glyph.Mask[static_cast<size_t>((y - Y) * Glyph.Width + Part.Left - X)];
    EditRow(y, Part.Left, Part.Right, [&](uint32_t* pixels, int count) {
      for (int x = 0; x < count; ++x) pixels[x] = Over(pixels[x], Rgb, mask[x], format);
    });
  }
}

}  // namespace vx::drawing
