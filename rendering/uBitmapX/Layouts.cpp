// The classes of each depth: how their pixels lie in a row.
#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>

#include "rendering/uBitmapX/TBitmapX.h"

namespace vx {
namespace {

// A channel of 5 or 6 bits (up to Top) as 8 bits and back, each to the nearest; there are no midpoints.
template <unsigned Top>
constexpr std::array<uint8_t, Top + 1> MakeWide() noexcept {
  std::array<uint8_t, Top + 1> wide{};
  for (unsigned i = 0; i <= Top; ++i) wide[i] = static_cast<uint8_t>((2 * i * 255 + Top) / (2 * Top));
  return wide;
}
constexpr auto kWide31 = MakeWide<31>();
constexpr auto kWide63 = MakeWide<63>();
constexpr uint8_t Narrow(unsigned Value, unsigned Top) noexcept {
  return static_cast<uint8_t>((2 * Value * Top + 255) / 510);
}

TRGB ColorOf(const TPaletteEntry& Entry) noexcept { return {Entry.peRed, Entry.peGreen, Entry.peBlue, Entry.peFlags}; }

constexpr TRGB kAllSet{255, 255, 255, 255};

constexpr bool kLittle = std::endian::native == std::endian::little;

uint16_t LoadWord(const uint8_t* From) noexcept {
  uint16_t word;
  std::memcpy(&word, From, sizeof word);
  return word;
}

// A pixel of so many bytes as a number: two of them are a word of the machine's order, three and four stand from the
// lowest one on.
template <size_t Bytes>
uint32_t LoadPixel(const uint8_t* From) noexcept {
  if constexpr (Bytes == 2) return LoadWord(From);
  const uint32_t low = From[0] | uint32_t{From[1]} << 8 | uint32_t{From[2]} << 16;
  return Bytes == 3 ? low : low | uint32_t{From[3]} << 24;
}
template <size_t Bytes>
void StorePixel(uint8_t* To, uint32_t Pixel) noexcept {
  const auto word = static_cast<uint16_t>(Pixel);
  if constexpr (Bytes == 4 && kLittle) {
    std::memcpy(To, &Pixel, Bytes);
  } else if constexpr (Bytes == 2 || kLittle) {
    std::memcpy(To, &word, sizeof word);
    if constexpr (Bytes == 3) To[2] = static_cast<uint8_t>(Pixel >> 16);
  } else {
    for (size_t i = 0; i < Bytes; ++i) To[i] = static_cast<uint8_t>(Pixel >> 8 * i);
  }
}

// The four bytes of a colour as a number, red being the lowest one, and back.
uint32_t NumberOf(TRGB Color) noexcept {
  if constexpr (kLittle) return std::bit_cast<uint32_t>(Color);
  return Color.Red | uint32_t{Color.Green} << 8 | uint32_t{Color.Blue} << 16 | uint32_t{Color.Fourth} << 24;
}
TRGB OfNumber(uint32_t Number) noexcept {
  if constexpr (kLittle) return std::bit_cast<TRGB>(Number);
  return {static_cast<uint8_t>(Number), static_cast<uint8_t>(Number >> 8), static_cast<uint8_t>(Number >> 16),
          static_cast<uint8_t>(Number >> 24)};
}
uint32_t RedAndBlueSwapped(uint32_t Number) noexcept {
  return (Number & 0xFF00FF00) | std::rotl(Number & 0xFF00FF, 16);
}

// Apart from the store that nearly all pixels take, so that this one saves no registers.
template <size_t Bytes>
[[gnu::noinline]] void StoreParted(TBitmap& Bitmap, int Y, size_t At, uint32_t Pixel) {
  StorePixel<Bytes>(Bitmap.GetScanline(Y) + At, Pixel);
}

}  // namespace

// Unpack and Pack turn a pixel to the stored values of the channels and back, Scale and Unscale these to 8 bits and
// back. The first byte of 15 and 16 bits lies in the low bits, that of 24 and 32 bits in the third place.
struct TLayout15 {
  static constexpr TPixelFormat Format = pf15bit;
  static constexpr size_t Bytes = 2;
  static TRGB Unpack(uint32_t Pixel) noexcept {
    return {static_cast<uint8_t>(Pixel & 31), static_cast<uint8_t>(Pixel >> 5 & 31),
            static_cast<uint8_t>(Pixel >> 10 & 31), 0};
  }
  static uint32_t Pack(TRGB Color) noexcept {
    return (Color.Red & 31u) | (Color.Green & 31u) << 5 | (Color.Blue & 31u) << 10;
  }
  static TRGB Scale(TRGB Color) noexcept { return {kWide31[Color.Red], kWide31[Color.Green], kWide31[Color.Blue], 0}; }
  static TRGB Unscale(TRGB Color) noexcept {
    return {Narrow(Color.Red, 31), Narrow(Color.Green, 31), Narrow(Color.Blue, 31), 0};
  }
};

struct TLayout16 {
  static constexpr TPixelFormat Format = pf16bit;
  static constexpr size_t Bytes = 2;
  static TRGB Unpack(uint32_t Pixel) noexcept {
    return {static_cast<uint8_t>(Pixel & 31), static_cast<uint8_t>(Pixel >> 5 & 63), static_cast<uint8_t>(Pixel >> 11),
            0};
  }
  static uint32_t Pack(TRGB Color) noexcept {
    return (Color.Red & 31u) | (Color.Green & 63u) << 5 | (Color.Blue & 31u) << 11;
  }
  static TRGB Scale(TRGB Color) noexcept { return {kWide31[Color.Red], kWide63[Color.Green], kWide31[Color.Blue], 0}; }
  static TRGB Unscale(TRGB Color) noexcept {
    return {Narrow(Color.Red, 31), Narrow(Color.Green, 63), Narrow(Color.Blue, 31), 0};
  }
};

struct TLayout24 {
  static constexpr TPixelFormat Format = pf24bit;
  static constexpr size_t Bytes = 3;
  static TRGB Unpack(uint32_t Pixel) noexcept {
    return {static_cast<uint8_t>(Pixel >> 16), static_cast<uint8_t>(Pixel >> 8), static_cast<uint8_t>(Pixel), 0};
  }
  static uint32_t Pack(TRGB Color) noexcept { return RedAndBlueSwapped(NumberOf(Color)) & 0xFFFFFF; }
  static TRGB Scale(TRGB Color) noexcept { return Color; }
  static TRGB Unscale(TRGB Color) noexcept { return Color; }
};

struct TLayout32 {
  static constexpr TPixelFormat Format = pf32bit;
  static constexpr size_t Bytes = 4;
  static TRGB Unpack(uint32_t Pixel) noexcept { return OfNumber(RedAndBlueSwapped(Pixel)); }
  static uint32_t Pack(TRGB Color) noexcept { return RedAndBlueSwapped(NumberOf(Color)); }
  static TRGB Scale(TRGB Color) noexcept { return Color; }
  static TRGB Unscale(TRGB Color) noexcept { return Color; }
};

void TBitmapXPalette::ReadPalette(size_t Most) noexcept {
  iPalette = {};
  iPaletteCount = iBitmap ? static_cast<uint32_t>(iBitmap->GetPaletteEntries(0, std::span(iPalette).first(Most))) : 0;
}

TBitmap1::TBitmap1(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions, TObject* Source, const String& Filename)
    : TBitmapXPalette(Bitmap, OwnsOptions, Source, Filename) {
  TBitmap1::SetBitmap(Bitmap);
}

void TBitmap1::SetBitmap(TBitmap* Value) {
  TakeBitmap(Value, pf1bit);
  ReadPalette(1);
}

TRGB TBitmap1::GetPixels(int X, int Y) const {
  const uint8_t* row = RowToRead(pf1bit, X, Y);
  if (!row) return {};
  if ((row[X / 8] >> (7 - X % 8) & 1) != 0) return {255, 255, 255, 0};
  return iPaletteCount > 0 ? ColorOf(iPalette[0]) : TRGB{};
}

TBitmap4::TBitmap4(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions, TObject* Source, const String& Filename)
    : TBitmapXPalette(Bitmap, OwnsOptions, Source, Filename) {
  TBitmap4::SetBitmap(Bitmap);
}

void TBitmap4::SetBitmap(TBitmap* Value) {
  TakeBitmap(Value, pf4bit);
  ReadPalette(15);
  iOk = iOk && iPaletteCount > 0;
}

TRGB TBitmap4::GetPixels(int X, int Y) const {
  const uint8_t* row = RowToRead(pf4bit, X, Y);
  if (!row) return {};
  const unsigned index = X % 2 == 0 ? row[X / 2] >> 4 : row[X / 2] & 15u;
  return index == 15 ? kAllSet : ColorOf(iPalette[index]);
}

TBitmap8::TBitmap8(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions, TObject* Source, const String& Filename)
    : TBitmapXPalette(Bitmap, OwnsOptions, Source, Filename) {
  TBitmap8::SetBitmap(Bitmap);
}

void TBitmap8::SetBitmap(TBitmap* Value) {
  TakeBitmap(Value, pf8bit);
  ReadPalette(255);
  iOk = iOk && iPaletteCount > 0;
}

TRGB TBitmap8::GetPixels(int X, int Y) const {
  const uint8_t* row = RowToRead(pf8bit, X, Y);
  if (!row) return {};
  return row[X] == 255 ? kAllSet : ColorOf(iPalette[row[X]]);
}

void TBitmap8::GetRow(int Y, std::span<TRGB> Row) const {
  const uint8_t* row = RowToRead(pf8bit, 0, Y);
  const size_t inside = row ? std::min(Row.size(), static_cast<size_t>(iBitmap->GetWidth())) : 0;
  for (size_t x = 0; x < inside; ++x) Row[x] = row[x] == 255 ? kAllSet : ColorOf(iPalette[row[x]]);
  std::fill(Row.begin() + static_cast<std::ptrdiff_t>(inside), Row.end(), TRGB{});
}

int TBitmapXWrite::Exchange(TRGB A, TRGB B) {
  std::vector<TRGB> row(static_cast<size_t>(GetWidth()));
  int count = 0;
  for (int y = 0; iOk && y < GetHeight(); ++y) {
    GetRow(y, row);
    for (size_t x = 0; x < row.size(); ++x) {
      if (!EqualsRGB(row[x], A)) continue;
      SetPixels(static_cast<int>(x), y, B);
      ++count;
    }
  }
  return count;
}

void TBitmapXWrite::FloodFill(const TRect& Rect, TRGB Color) {
  // One row outside the picture does all that more of them would.
  const int beyond = std::max(Rect.Top, GetHeight());
  const int bottom = Rect.Bottom > beyond ? beyond + 1 : Rect.Bottom;
  for (int x = std::max(Rect.Left, 0); iOk && x < std::min(Rect.Right, GetWidth()); ++x) {
    for (int y = Rect.Top; y < bottom; ++y) SetPixels(x, y, Color);
  }
}

template <typename TLayout>
TBitmapXOf<TLayout>::TBitmapXOf(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions, TObject* Source,
                                const String& Filename)
    : TBitmapXWrite(Bitmap, OwnsOptions, Source, Filename) {
  TBitmapXOf::SetBitmap(Bitmap);
}

template <typename TLayout>
void TBitmapXOf<TLayout>::SetBitmap(TBitmap* Value) {
  TakeBitmap(Value, TLayout::Format);
}

template <typename TLayout>
TRGB TBitmapXOf<TLayout>::GetPixels(int X, int Y) const {
  const uint8_t* row = RowToRead(TLayout::Format, X, Y);
  return row ? TLayout::Scale(TLayout::Unpack(LoadPixel<TLayout::Bytes>(row + TLayout::Bytes * static_cast<size_t>(X))))
             : TRGB{};
}

template <typename TLayout>
TRGB TBitmapXOf<TLayout>::GetOriginal(int X, int Y) const {
  const uint8_t* row = RowToRead(TLayout::Format, X, Y);
  return row ? TLayout::Unpack(LoadPixel<TLayout::Bytes>(row + TLayout::Bytes * static_cast<size_t>(X))) : TRGB{};
}

template <typename TLayout>
void TBitmapXOf<TLayout>::Store(int X, int Y, TRGB Original) {
  TBitmap* const bitmap = iBitmap;
  if (!iOk || bitmap->GetPixelFormat() != TLayout::Format) return;
  if (TLayout::Format == pf32bit && Y >= bitmap->GetHeight()) return;
  const uint8_t* row = std::as_const(*bitmap).GetScanline(Y);
  if (static_cast<unsigned>(X) >= static_cast<unsigned>(bitmap->GetWidth())) return;
  const size_t at = TLayout::Bytes * static_cast<size_t>(X);
  const uint32_t pixel = TLayout::Pack(Original);
  if (LoadPixel<TLayout::Bytes>(row + at) == pixel) return;
  if (bitmap->IsShared()) return StoreParted<TLayout::Bytes>(*bitmap, Y, at, pixel);
  StorePixel<TLayout::Bytes>(const_cast<uint8_t*>(row) + at, pixel);  // nobody else has these pixels
}

template <typename TLayout>
void TBitmapXOf<TLayout>::SetOriginal(int X, int Y, TRGB Color) {
  Store(X, Y, Color);
}

template <typename TLayout>
void TBitmapXOf<TLayout>::SetPixels(int X, int Y, TRGB Color) {
  Store(X, Y, TLayout::Unscale(Color));
}

template <typename TLayout>
void TBitmapXOf<TLayout>::GetRow(int Y, std::span<TRGB> Row) const {
  const uint8_t* row = RowToRead(TLayout::Format, 0, Y);
  const size_t inside = row ? std::min(Row.size(), static_cast<size_t>(iBitmap->GetWidth())) : 0;
  for (size_t x = 0; x < inside; ++x)
    Row[x] = TLayout::Scale(TLayout::Unpack(LoadPixel<TLayout::Bytes>(row + TLayout::Bytes * x)));
  std::fill(Row.begin() + static_cast<std::ptrdiff_t>(inside), Row.end(), TRGB{});
}

template <typename TLayout>
void TBitmapXOf<TLayout>::SetRow(int Y, std::span<const TRGB> Row) {
  if (TLayout::Format == pf32bit && Y >= GetHeight()) return;
  const uint8_t* row = RowToRead(TLayout::Format, 0, Y);
  if (!row) return;
  constexpr size_t kPixels = 256;
  uint8_t stored[kPixels * TLayout::Bytes];
  const size_t inside = std::min(Row.size(), static_cast<size_t>(iBitmap->GetWidth()));
  for (size_t first = 0; first < inside; first += kPixels) {
    const size_t count = std::min(kPixels, inside - first), at = first * TLayout::Bytes;
    for (size_t x = 0; x < count; ++x)
      StorePixel<TLayout::Bytes>(stored + x * TLayout::Bytes, TLayout::Pack(TLayout::Unscale(Row[first + x])));
    if (std::memcmp(row + at, stored, count * TLayout::Bytes) == 0) continue;
    uint8_t* target = iBitmap->GetScanline(Y);
    std::memcpy(target + at, stored, count * TLayout::Bytes);
    row = target;
  }
}

template class TBitmapXOf<TLayout15>;
template class TBitmapXOf<TLayout16>;
template class TBitmapXOf<TLayout24>;
template class TBitmapXOf<TLayout32>;

}  // namespace vx
