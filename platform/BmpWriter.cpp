#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/BmpFile.h"
#include "platform/Drawing.h"
#include "platform/TBitmap.h"

namespace vx {
namespace {

using namespace bmp;

constexpr uint32_t kPixelsPerMeter = 3780;      // 96 on an inch
constexpr uint32_t kSystemColors = 0x73524742;  // "sRGB"

constexpr TPaletteEntry kBlack[1];  // what indexes show without a palette

class TWriter {
 public:
  explicit TWriter(const TBitmap& Bitmap) noexcept : FBitmap(Bitmap) {}
  std::string Write();

 private:
  void Word(uint32_t Value) { FBytes += {static_cast<char>(Value), static_cast<char>(Value >> 8)}; }
  void Long(uint32_t Value) {
    Word(Value & 0xFFFF);
    Word(Value >> 16);
  }
  void Fields(const TFields& Fields) {
    for (uint32_t mask : {Fields.Red, Fields.Green, Fields.Blue}) Long(mask);
  }
  void WriteHeader(uint32_t HeaderSize, uint32_t PixelsStart, uint32_t ImageSize);
  void WriteRows();

  const TBitmap& FBitmap;
  uint32_t FBits = 0, FColors = 0;
  bool FHasAlpha = false, FHasFields = false;
  std::string FBytes;
};

void TWriter::WriteHeader(uint32_t HeaderSize, uint32_t PixelsStart, uint32_t ImageSize) {
  FBytes += "BM";
  Long(PixelsStart + ImageSize);
  Long(0);
  Long(PixelsStart);
  Long(HeaderSize);
  Long(static_cast<uint32_t>(FBitmap.GetWidth()));
  Long(static_cast<uint32_t>(FBitmap.GetHeight()));
  Word(1);
  Word(FBits);
  Long(FHasFields ? kBitFields : kPlain);
  Long(ImageSize);
  Long(kPixelsPerMeter);
  Long(kPixelsPerMeter);
  Long(FColors);
  Long(0);
  if (FHasFields) Fields(FHasAlpha ? kFields32 : kFields16);
  if (!FHasAlpha) return;
  Long(kFields32Alpha.Alpha);
  Long(kSystemColors);
  FBytes.append(kV4Header - kInfoHeader - 20, '\0');
}

// From the last row to the first; what pads a row is 0.
void TWriter::WriteRows() {
  const size_t width = static_cast<size_t>(FBitmap.GetWidth());
  const size_t used = (width * FBits + 7) / 8, padding = (4 - used % 4) % 4;
  const bool isDevice = FBitmap.GetPixelFormat() == pfDevice,
             isMultiplied = FBitmap.GetAlphaFormat() == afPremultiplied;
  std::vector<uint32_t> row(isDevice || (FHasAlpha && isMultiplied) ? width : 0);
  for (int y = FBitmap.GetHeight(); y-- > 0;) {
    if (row.empty()) {
      FBytes.append(reinterpret_cast<const char*>(FBitmap.GetScanline(y)), used);
    } else {
      FBitmap.GetRow(y, row);
      for (uint32_t pixel : row) {
        for (uint32_t shift = 0; shift < FBits; shift += 8) FBytes += static_cast<char>(pixel >> shift);
      }
    }
    FBytes.append(padding, '\0');
    if (std::endian::native == std::endian::big && FBits == 16) {
      for (size_t i = FBytes.size() - used - padding; i + 1 < FBytes.size(); i += 2)
        std::swap(FBytes[i], FBytes[i + 1]);
    }
  }
}

std::string TWriter::Write() {
  const TPixelFormat format = FBitmap.GetPixelFormat();
  if (FBitmap.GetEmpty()) throw EInvalidGraphicOperation(u"A bitmap without pixels can not be written");
  FHasAlpha = FBitmap.GetAlphaFormat() != afIgnored && BitsOfPixelFormat(format) == 32;
  FHasFields = FHasAlpha || format == pf16bit;
  FBits = static_cast<uint32_t>(format == pfDevice && !FHasAlpha ? 24 : BitsOfPixelFormat(format));
  std::span<const TPaletteEntry> palette;
  if (FBits <= 8) palette = FBitmap.GetPalette().first(std::min<size_t>(FBitmap.GetPalette().size(), 1u << FBits));
  if (FBits <= 8 && palette.empty()) palette = kBlack;
  FColors = static_cast<uint32_t>(palette.size());

  const uint32_t header = FHasAlpha ? kV4Header : kInfoHeader;
  const uint32_t start =
      static_cast<uint32_t>(kFileHeader) + header + (FHasFields && !FHasAlpha ? 12 : 0) + 4 * FColors;
  const auto rowSize = static_cast<uint32_t>((static_cast<uint64_t>(FBitmap.GetWidth()) * FBits + 31) / 32 * 4);
  const uint32_t imageSize = rowSize * static_cast<uint32_t>(FBitmap.GetHeight());
  FBytes.reserve(size_t{start} + imageSize);
  WriteHeader(header, start, imageSize);
  for (const TPaletteEntry& entry : palette) {
    for (uint8_t byte : {entry.peBlue, entry.peGreen, entry.peRed, entry.peFlags}) FBytes += static_cast<char>(byte);
  }
  WriteRows();
  return std::move(FBytes);
}

}  // namespace

std::string EncodeBitmap(const TBitmap& Bitmap) { return TWriter(Bitmap).Write(); }

}  // namespace vx
