#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>

#include "platform/BmpFile.h"
#include "platform/Drawing.h"
#include "platform/Format.h"
#include "platform/PixelRows.h"
#include "platform/TBitmap.h"

namespace vx {

// Fills pixels of bitmaps that are made here.
struct TBitmapAccess {
  static TBitmap Make(TPixelFormat Format, int Width, int Height) {
    TBitmap bitmap;
    bitmap.Allocate(Format, Width, Height);
    return bitmap;
  }
};

namespace {

using namespace bmp;

constexpr uint64_t kSpareBytes = 1 << 20;
constexpr uint64_t kMostOfByte = 255;  // the pixels that a byte of runs may stand for

// A channel of bit fields, brought to 8 bits.
class TChannel {
 public:
  TChannel() noexcept = default;
  explicit TChannel(uint32_t Mask) noexcept : FMask(Mask), FShift(Mask ? std::countr_zero(Mask) : 0) {}
  bool IsWhole() const noexcept { return (uint64_t{FMask >> FShift} & (uint64_t{FMask >> FShift} + 1)) == 0; }
  uint32_t Of(uint32_t Word) const noexcept {
    if (FMask == 0) return 0;
    const uint64_t top = FMask >> FShift;
    return static_cast<uint32_t>((uint64_t{(Word & FMask) >> FShift} * 255 + top / 2) / top);
  }

 private:
  uint32_t FMask = 0;
  int FShift = 0;
};

class TReader {
 public:
  TReader(std::string_view Bytes, const String& Name) noexcept : FBytes(Bytes), FName(Name) {}
  TBitmap Read();

 private:
  [[noreturn]] void Fail(std::u16string_view Fault) const {
    throw EInvalidGraphic(Format(u"%s: %s", {FName.view(), Fault}));
  }
  [[noreturn]] void FailCut() const { Fail(u"the BMP file is cut off"); }
  uint8_t Byte(size_t At) const noexcept { return static_cast<uint8_t>(FBytes[At]); }
  uint32_t Word(size_t At) const noexcept { return Byte(At) | uint32_t{Byte(At + 1)} << 8; }
  uint32_t Long(size_t At) const noexcept { return Word(At) | Word(At + 2) << 16; }
  // A field of the header at so many bytes behind its start; 0 where the header is shorter.
  uint32_t Field(uint32_t At) const noexcept { return At + 4 <= FHeaderSize ? Long(kFileHeader + At) : 0; }

  void ReadHeader();
  void ReadSize();
  void ReadFields();
  void CheckForm() const;
  void ReadPalette();
  TPixelFormat FormatOfFields() const noexcept;
  void ReadPlainRows(TBitmap& Bitmap) const;
  void ReadFieldRows(TBitmap& Bitmap) const;
  void ReadRuns(TBitmap& Bitmap) const;

  // The row of the bitmap for a row of the file.
  int RowOf(int FileRow) const noexcept { return FTopDown ? FileRow : FHeight - 1 - FileRow; }

  std::string_view FBytes;
  const String& FName;
  uint32_t FHeaderSize = 0;
  int FWidth = 0, FHeight = 0;
  bool FTopDown = false;
  uint32_t FBits = 0, FCompression = kPlain;
  TFields FFields;
  std::vector<TPaletteEntry> FPalette;
  size_t FPaletteStart = 0, FPixels = 0;
};

void TReader::ReadSize() {
  int64_t height;
  if (FHeaderSize == kCoreHeader) {
    FWidth = static_cast<int>(Word(kFileHeader + 4));
    height = Word(kFileHeader + 6);
    FBits = Word(kFileHeader + 10);
  } else {
    FWidth = static_cast<int>(Field(4));
    height = static_cast<int>(Field(8));
    FBits = Word(kFileHeader + 14);
    FCompression = Field(16);
  }
  FTopDown = height < 0;
  height = FTopDown ? -height : height;
  if (FWidth <= 0 || height == 0 || height > INT_MAX) Fail(u"the BMP file has no size that a picture can have");
  FHeight = static_cast<int>(height);
}

void TReader::ReadFields() {
  size_t at = kFileHeader + kInfoHeader;
  if (FHeaderSize == kInfoHeader) {  // they stand behind the header
    FPaletteStart += FCompression == kAlphaBitFields ? 16 : 12;
    if (FPaletteStart > FBytes.size()) FailCut();
  } else if (FHeaderSize < 52) {
    Fail(u"the BMP file has bit fields that are not there");
  }
  FFields = {Long(at), Long(at + 4), Long(at + 8), 0};
  if (FCompression == kAlphaBitFields ? FHeaderSize == kInfoHeader || FHeaderSize >= 56 : FHeaderSize >= 56) {
    FFields.Alpha = Long(at + 12);
  }
  const uint32_t wordMask = FBits == 16 ? 0xFFFF : UINT32_MAX;
  if ((FFields.Red | FFields.Green | FFields.Blue) == 0) Fail(u"the BMP file has bit fields without colours");
  for (uint32_t mask : {FFields.Red, FFields.Green, FFields.Blue, FFields.Alpha}) {
    if ((mask & ~wordMask) != 0 || !TChannel(mask).IsWhole()) Fail(u"the BMP file has bit fields that are none");
  }
}

void TReader::ReadHeader() {
  if (FBytes.substr(0, 2) != "BM") Fail(u"this is no BMP file");
  if (FBytes.size() < kFileHeader + 4) FailCut();
  FHeaderSize = Long(kFileHeader);
  constexpr uint32_t kSizes[] = {kCoreHeader, 16, kInfoHeader, 52, 56, 64, kV4Header, kV5Header};
  if (std::find(std::begin(kSizes), std::end(kSizes), FHeaderSize) == std::end(kSizes)) {
    Fail(u"the BMP file has a header of unknown size");
  }
  FPaletteStart = kFileHeader + FHeaderSize;
  if (FPaletteStart > FBytes.size()) FailCut();
  ReadSize();
  CheckForm();
  if (FCompression == kBitFields || FCompression == kAlphaBitFields) {
    ReadFields();
  } else {
    FFields = FBits == 16 ? kFields15 : kFields32;
  }
}

void TReader::CheckForm() const {
  static constexpr uint32_t kDepths[] = {1, 4, 8, 16, 24, 32};
  if (std::find(std::begin(kDepths), std::end(kDepths), FBits) == std::end(kDepths)) {
    Fail(Format(u"BMP files of %d bits can not be read", {FBits}));
  }
  bool isKnown = FCompression == kPlain;
  if (FCompression == kRle8) isKnown = FBits == 8 && !FTopDown;
  if (FCompression == kRle4) isKnown = FBits == 4 && !FTopDown;
  if (FCompression == kBitFields || FCompression == kAlphaBitFields) {
    isKnown = (FBits == 16 || FBits == 32) && FHeaderSize != 64;
  }
  if (!isKnown) Fail(Format(u"BMP files with compression %d of %d bits can not be read", {FCompression, FBits}));
}

// The entries lie between header and pixels; more than the depth can tell apart are not kept.
void TReader::ReadPalette() {
  const size_t entrySize = FHeaderSize == kCoreHeader ? 3 : 4;
  const uint32_t most = FBits <= 8 ? 1u << FBits : 0;
  const uint32_t told = Field(32);
  uint64_t count = told != 0 || FBits > 8 ? told : most;
  const size_t start = Long(10);
  if (told == 0 && start > FPaletteStart) count = std::min<uint64_t>(count, (start - FPaletteStart) / entrySize);
  const uint64_t end = FPaletteStart + count * entrySize;
  if (end > FBytes.size()) {
    if (count > 256) Fail(u"the BMP file has a larger palette than it holds");
    FailCut();
  }
  FPixels = start < kFileHeader + FHeaderSize ? static_cast<size_t>(end) : start;
  if (FPixels > FBytes.size()) FailCut();
  FPalette.resize(static_cast<size_t>(std::min<uint64_t>(count, most)));
  size_t at = FPaletteStart;
  for (TPaletteEntry& entry : FPalette) {
    entry = {Byte(at + 2), Byte(at + 1), Byte(at), entrySize == 4 ? Byte(at + 3) : uint8_t{0}};
    at += entrySize;
  }
}

// The format that holds the pixels as they are, or pf32bit.
TPixelFormat TReader::FormatOfFields() const noexcept {
  switch (FBits) {
    case 1:
      return pf1bit;
    case 4:
      return pf4bit;
    case 8:
      return pf8bit;
    case 24:
      return pf24bit;
    case 16:
      return FFields == kFields15 ? pf15bit : FFields == kFields16 ? pf16bit : pf32bit;
    default:
      return pf32bit;
  }
}

void TReader::ReadPlainRows(TBitmap& Bitmap) const {
  const auto stride = static_cast<size_t>(Bitmap.GetStride());
  const char* row = FBytes.data() + FPixels;
  for (int y = 0; y < FHeight; ++y, row += stride) std::memcpy(Bitmap.GetScanline(RowOf(y)), row, stride);
  if constexpr (std::endian::native == std::endian::big) {
    if (FBits != 16) return;
    for (int y = 0; y < FHeight; ++y) {
      uint8_t* bytes = Bitmap.GetScanline(y);
      for (size_t i = 0; i + 1 < stride; i += 2) std::swap(bytes[i], bytes[i + 1]);
    }
  }
}

void TReader::ReadFieldRows(TBitmap& Bitmap) const {
  const TChannel red(FFields.Red), green(FFields.Green), blue(FFields.Blue), alpha(FFields.Alpha);
  const size_t bytes = FBits / 8;
  const auto stride = static_cast<size_t>(pixels::StrideOf(FWidth, static_cast<int>(FBits)));
  for (int y = 0; y < FHeight; ++y) {
    const size_t row = FPixels + static_cast<size_t>(y) * stride;
    uint8_t* target = Bitmap.GetScanline(RowOf(y));
    for (size_t x = 0; x < static_cast<size_t>(FWidth); ++x, target += 4) {
      const uint32_t word = bytes == 2 ? Word(row + 2 * x) : Long(row + 4 * x);
      target[0] = static_cast<uint8_t>(blue.Of(word));
      target[1] = static_cast<uint8_t>(green.Of(word));
      target[2] = static_cast<uint8_t>(red.Of(word));
      target[3] = static_cast<uint8_t>(alpha.Of(word));
    }
  }
}

// A row that runs are put into.
class TRunRow {
 public:
  TRunRow(uint8_t* Row, uint32_t Bits) noexcept : FRow(Row), FBits(Bits) {}
  // Pixel X takes the index; of 4 bits the high half of Value at even places of a run, the low one at odd ones.
  void Put(int X, int Place, uint8_t Value) noexcept {
    if (FBits == 8) {
      FRow[X] = Value;
      return;
    }
    const unsigned index = Place % 2 == 0 ? Value >> 4 : Value & 15u;
    uint8_t& byte = FRow[X / 2];
    byte = static_cast<uint8_t>(X % 2 == 0 ? (byte & 15u) | index << 4 : (byte & 0xF0u) | index);
  }

 private:
  uint8_t* FRow;
  uint32_t FBits;
};

void TReader::ReadRuns(TBitmap& Bitmap) const {
  const int room = Bitmap.GetStride() * (FBits == 8 ? 1 : 2);  // what pads a row may be written, too
  for (int y = 0; y < FHeight; ++y) std::memset(Bitmap.GetScanline(y), 0, static_cast<size_t>(Bitmap.GetStride()));
  size_t at = FPixels;
  int x = 0, y = 0;
  for (;;) {
    if (at + 2 > FBytes.size()) FailCut();
    const int count = Byte(at), value = Byte(at + 1);
    at += 2;
    if (count == 0 && value == 0) {
      x = 0;
      ++y;
      if (y > FHeight) Fail(u"the runs of the BMP file lead out of the picture");
      continue;
    }
    if (count == 0 && value == 1) return;
    if (count == 0 && value == 2) {
      if (at + 2 > FBytes.size()) FailCut();
      x += Byte(at);
      y += Byte(at + 1);
      at += 2;
      if (x > FWidth || y > FHeight) Fail(u"the runs of the BMP file lead out of the picture");
      continue;
    }
    const int pixels = count > 0 ? count : value;
    if (y >= FHeight || pixels > room - x) Fail(u"the runs of the BMP file lead out of the picture");
    TRunRow row(Bitmap.GetScanline(RowOf(y)), FBits);
    if (count > 0) {
      for (int i = 0; i < pixels; ++i) row.Put(x + i, i, static_cast<uint8_t>(value));
    } else {
      const auto bytes = static_cast<size_t>(FBits == 8 ? pixels : (pixels + 1) / 2);
      if (bytes + bytes % 2 > FBytes.size() - at) FailCut();
      for (int i = 0; i < pixels; ++i) row.Put(x + i, i, Byte(at + static_cast<size_t>(FBits == 8 ? i : i / 2)));
      at += bytes + bytes % 2;
    }
    x += pixels;
  }
}

TBitmap TReader::Read() {
  ReadHeader();
  ReadPalette();
  const bool hasRuns = FCompression == kRle8 || FCompression == kRle4;
  const uint64_t held = FBytes.size() - FPixels;
  const auto height = static_cast<uint64_t>(FHeight);
  const auto needed = static_cast<uint64_t>(pixels::StrideOf(FWidth, static_cast<int>(FBits)));
  if (hasRuns ? needed > (held * kMostOfByte + kSpareBytes) / height : needed > held / height) FailCut();
  const TPixelFormat format = FormatOfFields();
  const bool isConverted = format == pf32bit && (FBits == 16 || (FFields != kFields32 && FFields != kFields32Alpha));
  TBitmap bitmap;
  try {
    bitmap = TBitmapAccess::Make(format, FWidth, FHeight);
  } catch (const EInvalidGraphicOperation&) {
    Fail(u"the BMP file has a larger picture than can be kept");
  }
  if (FFields.Alpha != 0) bitmap.SetAlphaFormat(afDefined);
  if (!FPalette.empty()) bitmap.SetPalette(FPalette);
  if (hasRuns) {
    ReadRuns(bitmap);
  } else if (isConverted) {
    ReadFieldRows(bitmap);
  } else {
    ReadPlainRows(bitmap);
  }
  return bitmap;
}

}  // namespace

TBitmap DecodeBitmap(std::string_view Bytes, const String& Name) { return TReader(Bytes, Name).Read(); }

}  // namespace vx
