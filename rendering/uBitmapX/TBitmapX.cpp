#include "rendering/uBitmapX/TBitmapX.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "core/uVxFunctionsSerialize.h"
#include "objects/uVxClasses.h"
#include "platform/Drawing.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/NumberMasks.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "rendering/uRGBSpace.h"

namespace vx {
namespace {

TPixelFormat FormatOfBits(int Bits, TPixelFormat Default) noexcept {
  switch (Bits) {
    case 1:
      return pf1bit;
    case 4:
      return pf4bit;
    case 8:
      return pf8bit;
    case 15:
      return pf15bit;
    case 16:
      return pf16bit;
    case 24:
      return pf24bit;
    case 32:
      return pf32bit;
    default:
      return Default;
  }
}

String ChannelText(unsigned Value) { return FormatFloat(u"000", Value); }

}  // namespace

TBitmapDrawOptions BoolToDrawOptions(bool NoRed, bool NoGreen, bool NoBlue, bool SwapRB, bool Invert, bool Gray,
                                     bool Transparent, bool Relative, bool Rotate90, bool Rotate180, bool Rotate270,
                                     bool ReflectVert, bool ReflectHoriz) noexcept {
  const bool wanted[] = {NoRed,    NoGreen,  NoBlue,    SwapRB,    Invert,      Gray,        Transparent,
                         Relative, Rotate90, Rotate180, Rotate270, ReflectVert, ReflectHoriz};
  TBitmapDrawOptions options;
  for (int i = bdoNoRed; i <= bdoReflectHoriz; ++i) {
    if (wanted[i]) options.Include(static_cast<TBitmapDrawOption>(i));
  }
  return options;
}

TBitmapX::TBitmapX(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions, TObject* Source, const String& Filename)
    : iFilename(Filename), iOwnsOptions(OwnsOptions), iSource(Source), iBitmap(Bitmap) {}

TBitmapX::~TBitmapX() {
  if (iOwnsOptions.Has(booOwnsBitmap)) delete iBitmap;
  if (iOwnsOptions.Has(booOwnsSource)) delete iSource;
}

TRGB TBitmapX::GetPixels(int, int) const { return {}; }

void TBitmapX::SetBitmap(TBitmap* Value) { TakeBitmap(Value, pfCustom); }

void TBitmapX::TakeBitmap(TBitmap* Value, TPixelFormat Format) {
  if (Value != iBitmap && iOwnsOptions.Has(booOwnsBitmap)) delete iBitmap;
  iBitmap = Value;
  iOk = iBitmap && iBitmap->GetPixelFormat() == Format;
}

void TBitmapX::GetRow(int Y, std::span<TRGB> Row) const {
  for (size_t x = 0; x < Row.size(); ++x) Row[x] = GetPixels(static_cast<int>(x), Y);
}

std::unique_ptr<TBitmapX> TBitmapX::CreateBitmapX(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions, TObject* Source,
                                                  const String& Filename) {
  if (!Bitmap) return nullptr;
  if (Bitmap->GetPixelFormat() == pfDevice) Bitmap->SetPixelFormat(FormatOfBits(GetScreenBitsPerPixel(), pfDevice));
  switch (Bitmap->GetPixelFormat()) {
    case pf1bit:
      return std::make_unique<TBitmap1>(Bitmap, OwnsOptions, Source, Filename);
    case pf4bit:
      return std::make_unique<TBitmap4>(Bitmap, OwnsOptions, Source, Filename);
    case pf8bit:
      return std::make_unique<TBitmap8>(Bitmap, OwnsOptions, Source, Filename);
    case pf15bit:
      return std::make_unique<TBitmap15>(Bitmap, OwnsOptions, Source, Filename);
    case pf16bit:
      return std::make_unique<TBitmap16>(Bitmap, OwnsOptions, Source, Filename);
    case pf24bit:
      return std::make_unique<TBitmap24>(Bitmap, OwnsOptions, Source, Filename);
    case pf32bit:
      return std::make_unique<TBitmap32>(Bitmap, OwnsOptions, Source, Filename);
    default:
      return nullptr;
  }
}

std::unique_ptr<TBitmapX> TBitmapX::CreateLoadBitmapX(const String& Filename, TBitmapOwnsOptions OwnsOptions,
                                                      TObject* Source) {
  const String extension = LowerCase(ExtractFileExt(Filename));
  constexpr std::u16string_view kKnown[] = {u".bmp", u".jpg", u".ico", u".emf", u".wmf"};
  if (std::find(std::begin(kKnown), std::end(kKnown), extension) == std::end(kKnown)) return nullptr;
  auto bitmap = std::make_unique<TBitmap>();
  bitmap->LoadFromFile(Filename);
  OwnsOptions.Include(booOwnsBitmap);
  std::unique_ptr<TBitmapX> result = CreateBitmapX(bitmap.get(), OwnsOptions, Source, Filename);
  if (result) static_cast<void>(bitmap.release());  // the result's
  return result;
}

std::unique_ptr<TBitmapXWrite> TBitmapX::CompressColors(uint16_t maxColor, bool UseTransparent, TBitmap* Bitmap) const {
  return TRGBSpace(*this, maxColor, UseTransparent).Render(Bitmap);
}

std::unique_ptr<TVxStringList> TBitmapX::ColorStatistic() const {
  auto lines = std::make_unique<TVxStringList>();
  const auto width = static_cast<size_t>(GetWidth());
  std::vector<uint32_t> colors;
  colors.reserve(width * static_cast<size_t>(GetHeight()));
  std::vector<TRGB> row(width);
  for (int y = 0; y < GetHeight(); ++y) {
    GetRow(y, row);
    for (TRGB pixel : row) colors.push_back(uint32_t{pixel.Red} << 16 | uint32_t{pixel.Green} << 8 | pixel.Blue);
  }
  std::sort(colors.begin(), colors.end());
  for (auto first = colors.begin(); first != colors.end();) {
    const auto last = std::upper_bound(first, colors.end(), *first);
    lines->Add(Concat({ChannelText(*first >> 16), u".", ChannelText(*first >> 8 & 0xFF), u".",
                       ChannelText(*first & 0xFF), u" - ", FormatFloat(u"###,###,000.000", last - first)}));
    first = last;
  }
  lines->Insert(0, lines->GetCount() > 0 ? Format(u"rrr.ggg.bbb - Anzahl %d", {lines->GetCount()})
                                         : String(u"rrr.ggg.bbb  hue  sat  val"));
  return lines;
}

void TBitmapX::ConvertToPNG(const String& PngFilename) const {
  if (!iBitmap) throw EInvalidGraphicOperation(u"There is no bitmap to be converted to PNG");
  SavePngFile(*iBitmap, PngFilename);
}

void SetBitmapDimension(TBitmap& Bitmap, TPixelFormat PixelFormat, int Width, int Height) {
  Bitmap.SetPixelFormat(PixelFormat);
  Bitmap.SetSize(Width, Height);
}

bool ReadBitmapInfoHeader(const String& Filename, TBitmapInfoHeader& Header) {
  TFileStream file(Filename, fmOpenRead | fmShareDenyWrite);
  uint8_t bytes[40];
  file.ReadBuffer(bytes, 14);
  if (bytes[0] != 'B' || (bytes[1] != 'M' && bytes[1] != 'A')) return false;
  file.ReadBuffer(bytes, sizeof bytes);
  const uint8_t* at = bytes;
  auto take = [&at](auto& Field) {
    uint32_t value = 0;
    for (size_t i = 0; i < sizeof Field; ++i) value |= uint32_t{*at++} << 8 * i;
    Field = static_cast<std::remove_reference_t<decltype(Field)>>(value);
  };
  take(Header.biSize);
  take(Header.biWidth);
  take(Header.biHeight);
  take(Header.biPlanes);
  take(Header.biBitCount);
  take(Header.biCompression);
  take(Header.biSizeImage);
  take(Header.biXPelsPerMeter);
  take(Header.biYPelsPerMeter);
  take(Header.biClrUsed);
  take(Header.biClrImportant);
  return true;
}

}  // namespace vx
