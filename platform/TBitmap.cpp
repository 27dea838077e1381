#include "platform/TBitmap.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstring>
#include <map>
#include <mutex>
#include <utility>

#include "platform/BitmapGlyphs.h"
#include "platform/Drawing.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Paths.h"
#include "platform/PixelRows.h"
#include "platform/SafeFiles.h"
#include "platform/TCanvas.h"
#include "platform/Text.h"

namespace vx {
namespace {

constexpr size_t kMostBytesOfFile = size_t{1} << 31;

bool HasExtension(const String& Filename, std::u16string_view Extension) {
  return LowerCase(ExtractFileExt(Filename)) == Extension;
}

// White pixels from X on.
void Whiten(uint8_t* Row, int Stride, TPixelFormat Format, TAlphaFormat Alpha, int X) noexcept {
  const int bits = BitsOfPixelFormat(Format);
  const size_t firstBit = static_cast<size_t>(X) * static_cast<size_t>(bits), byte = firstBit / 8;
  if (byte >= static_cast<size_t>(Stride)) return;
  const auto kept = static_cast<uint8_t>(Row[byte] | 0xFF >> firstBit % 8);
  std::memset(Row + byte, 0xFF, static_cast<size_t>(Stride) - byte);
  Row[byte] = kept;
  if (bits != 32 || Alpha != afIgnored) return;
  for (size_t i = byte + 3; i < static_cast<size_t>(Stride); i += 4) Row[i] = 0;
}

struct TResources {
  std::mutex Lock;
  std::map<String, TBitmap> Bitmaps;  // by their names in small letters
};
TResources& Resources() {
  static TResources resources;
  return resources;
}

std::atomic<int> gScreenBits{32};

}  // namespace

int BitsOfPixelFormat(TPixelFormat Format) noexcept {
  constexpr int kBits[] = {32, 1, 4, 8, 16, 16, 24, 32, 0};
  return Format <= pfCustom ? kBits[Format] : 0;
}

TBitmap::TBitmap() noexcept = default;

TBitmap::TBitmap(TPixelFormat Format, int Width, int Height) : TBitmap() {
  SetPixelFormat(Format);
  SetSize(Width, Height);
}

TBitmap::~TBitmap() { Release(); }

TBitmap::TBitmap(const TBitmap& Other) noexcept : TObject(Other) { ShareFrom(Other); }

TBitmap::TBitmap(TBitmap&& Other) noexcept : TObject(Other) { *this = std::move(Other); }

TBitmap& TBitmap::operator=(const TBitmap& Other) noexcept {
  if (this == &Other) return *this;
  Release();
  ShareFrom(Other);
  return *this;
}

TBitmap& TBitmap::operator=(TBitmap&& Other) noexcept {
  if (this == &Other) return *this;
  *this = std::as_const(Other);
  Other.Release();
  return *this;
}

void TBitmap::ShareFrom(const TBitmap& Other) noexcept {
  FImage = Other.FImage;
  if (FImage) FImage->Holders.Add();
  FBits = Other.FBits;
  FWidth = Other.FWidth;
  FHeight = Other.FHeight;
  FStride = Other.FStride;
  FFormat = Other.FFormat;
  FAlphaFormat = Other.FAlphaFormat;
  FTransparent = Other.FTransparent;
  FTransparentColor = Other.FTransparentColor;
}

void TBitmap::Release() noexcept {
  if (FImage && FImage->Holders.Release()) delete FImage;
  FImage = nullptr;
  FBits = nullptr;
  FWidth = FHeight = FStride = 0;
}

void TBitmap::RaiseRow() { throw EInvalidGraphicOperation(u"Scan line index out of range"); }

// Room for pixels that nobody has set yet; the palette and what the bitmap says of itself stay.
void TBitmap::Allocate(TPixelFormat Format, int Width, int Height) {
  const int64_t stride = pixels::StrideOf(Width, BitsOfPixelFormat(Format));
  if (Width < 0 || Height < 0 || stride > INT_MAX || stride * Height > INT_MAX) {
    throw EInvalidGraphicOperation(vx::Format(u"A bitmap can not be %d x %d pixels large", {Width, Height}));
  }
  auto image = std::make_unique<TImage>();
  image->Bits = std::make_unique_for_overwrite<uint8_t[]>(static_cast<size_t>(stride * Height));
  if (FImage) image->Palette = FImage->Palette;
  Release();
  FImage = image.release();
  FBits = FImage->Bits.get();
  FWidth = Width;
  FHeight = Height;
  FStride = static_cast<int>(stride);
  FFormat = Format;
}

// The image, of which no copy has a share.
TBitmap::TImage& TBitmap::OwnImage() {
  if (!FImage) Allocate(FFormat, FWidth, FHeight);
  if (FImage->Holders.IsShared()) Detach();
  return *FImage;
}

void TBitmap::Detach() {
  const TBitmap shared = *this;
  Allocate(FFormat, FWidth, FHeight);
  std::copy_n(shared.FBits, static_cast<size_t>(FStride) * static_cast<size_t>(FHeight), FBits);
}

void TBitmap::SetSize(int Width, int Height) {
  if (Width == FWidth && Height == FHeight) return;
  const TBitmap before = *this;
  Allocate(FFormat, Width, Height);
  const auto shared = static_cast<size_t>(std::min(FStride, before.FStride));
  for (int y = 0; y < Height; ++y) {
    uint8_t* row = FBits + static_cast<size_t>(y) * static_cast<size_t>(FStride);
    const bool isKept = y < before.FHeight;
    if (isKept) std::copy_n(before.GetScanline(y), shared, row);
    Whiten(row, FStride, FFormat, FAlphaFormat, isKept ? std::min(before.FWidth, Width) : 0);
  }
}

void TBitmap::SetPixelFormat(TPixelFormat Value) {
  if (Value == FFormat) return;
  const int bits = BitsOfPixelFormat(Value);
  if (bits == 0) throw EInvalidGraphicOperation(u"Pixels of this format have no layout");
  TBitmap after = *this;
  after.Allocate(Value, FWidth, FHeight);
  if (bits <= 8) {
    std::vector<TPaletteEntry>& palette = after.FImage->Palette;
    const std::span<const TPaletteEntry> defaults = pixels::DefaultPalette(Value);
    if (palette.empty()) palette.assign(defaults.begin(), defaults.end());
    if (palette.size() > defaults.size()) palette.resize(defaults.size());
  }
  const bool isSameLayout = bits == 32 && BitsOfPixelFormat(FFormat) == 32;
  if (isSameLayout) {
    std::copy_n(FBits, static_cast<size_t>(FStride) * static_cast<size_t>(FHeight), after.FBits);
  } else {
    after.FAlphaFormat = afIgnored;
    if (!GetEmpty()) after.PackRowsOf(*this);
  }
  *this = std::move(after);
}

void TBitmap::PackRowsOf(const TBitmap& Other) {
  std::vector<uint32_t> row(static_cast<size_t>(FWidth));
  pixels::TRowPacker packer(FFormat, FAlphaFormat, GetPalette());
  for (int y = 0; y < FHeight; ++y) {
    Other.GetRow(y, row);
    uint8_t* bytes = GetScanline(y);
    Whiten(bytes, FStride, FFormat, FAlphaFormat, 0);  // what pads the row is set, too
    packer.Pack(row, bytes);
  }
}

void TBitmap::GetRow(int Row, std::span<uint32_t> Pixels) const {
  const uint8_t* bytes = GetScanline(Row);
  pixels::UnpackRow(bytes, FFormat, FAlphaFormat, GetPalette(),
                    Pixels.first(std::min(Pixels.size(), static_cast<size_t>(FWidth))));
}

void TBitmap::SetRow(int Row, std::span<const uint32_t> Pixels) {
  uint8_t* bytes = GetScanline(Row);
  pixels::TRowPacker packer(FFormat, FAlphaFormat, GetPalette());
  packer.Pack(Pixels.first(std::min(Pixels.size(), static_cast<size_t>(FWidth))), bytes);
}

std::span<const TPaletteEntry> TBitmap::GetPalette() const noexcept {
  return FImage ? std::span<const TPaletteEntry>(FImage->Palette) : std::span<const TPaletteEntry>();
}

void TBitmap::SetPalette(std::span<const TPaletteEntry> Entries) {
  if (Entries.size() > 256) throw EInvalidGraphicOperation(u"A palette has at most 256 entries");
  const std::vector<TPaletteEntry> entries(Entries.begin(), Entries.end());  // they may be this palette's
  OwnImage().Palette = entries;
}

int TBitmap::GetPaletteEntries(int Start, std::span<TPaletteEntry> Entries) const noexcept {
  const std::span<const TPaletteEntry> palette = GetPalette();
  if (Start < 0 || static_cast<size_t>(Start) >= palette.size()) return 0;
  const auto first = static_cast<size_t>(Start);
  const size_t count = std::min(Entries.size(), palette.size() - first);
  std::copy_n(palette.begin() + Start, count, Entries.begin());
  return static_cast<int>(count);
}

TColor TBitmap::GetTransparentColor() const {
  if (FTransparentColor != clDefault) return FTransparentColor;
  if (GetEmpty()) return clWhite;
  uint32_t pixel = 0;
  GetRow(FHeight - 1, {&pixel, 1});
  return (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
}

TCanvas& TBitmap::GetCanvas() {
  if (!FCanvas) FCanvas = NewBitmapCanvas(*this);
  return *FCanvas;
}

void TBitmap::LoadFromFile(const String& Filename) {
  std::string bytes(2, '\0');
  {
    TFileStream file(Filename, fmOpenRead | fmShareDenyWrite);
    bytes.resize(file.Read(bytes.data(), bytes.size()));
    if (bytes == "BM") {
      file.ReadRest(bytes, kMostBytesOfFile);
      *this = DecodeBitmap(bytes, Filename);
      return;
    }
  }
  if (HasExtension(Filename, u".bmp")) throw EInvalidGraphic(Format(u"%s: this is no BMP file", {Filename}));
  if (HasExtension(Filename, u".emf")) throw EInvalidGraphic(Format(u"%s: EMF files can not be read", {Filename}));
  TBitmap loaded;
  LoadPictureFile(Filename, loaded);
  *this = std::move(loaded);
}

void TBitmap::SaveToFile(const String& Filename) const {
  if (HasExtension(Filename, u".png")) return SavePngFile(*this, Filename);
  ReplaceFileContent(Filename, EncodeBitmap(*this));
}

void TBitmap::LoadFromResourceName(std::u16string_view Name) {
  TResources& resources = Resources();
  {
    std::lock_guard lock(resources.Lock);
    auto found = resources.Bitmaps.find(LowerCase(String(Name)));
    if (found != resources.Bitmaps.end()) {
      *this = found->second;
      return;
    }
  }
  TBitmap glyph;
  if (!glyphs::Draw(UpperCase(String(Name)), glyph)) throw EInvalidGraphic(Format(u"Resource %s not found", {Name}));
  *this = glyph;
}

void SetBitmapResource(const String& Name, const TBitmap& Bitmap) {
  TResources& resources = Resources();
  std::lock_guard lock(resources.Lock);
  if (Bitmap.GetEmpty()) {
    resources.Bitmaps.erase(LowerCase(String(Name)));
  } else {
    resources.Bitmaps.insert_or_assign(LowerCase(String(Name)), Bitmap);
  }
}

int GetScreenBitsPerPixel() noexcept { return gScreenBits; }
void SetScreenBitsPerPixel(int Value) noexcept { gScreenBits = Value; }

}  // namespace vx
