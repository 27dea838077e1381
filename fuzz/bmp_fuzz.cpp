// BMP files: any bytes are a picture or are refused by name, never with more memory than they may take; a picture that
// was read is written and read again as the same, and no part of its file is another picture.
#include <optional>

#include "fuzz/support/Input.h"
#include "platform/Drawing.h"
#include "platform/TBitmap.h"
#include "rendering/uBitmapX.h"

namespace vx::fuzz {

namespace {

std::optional<TBitmap> Decoded(std::string_view Bytes) {
  try {
    return DecodeBitmap(Bytes, u"name");
  } catch (const EInvalidGraphic& e) {
    Check(e.GetMessage().view().starts_with(u"name: "), "what is refused is named");
    return {};
  }
}

std::vector<uint32_t> PixelsOf(const TBitmap& Bitmap) {
  const auto width = static_cast<size_t>(Bitmap.GetWidth());
  std::vector<uint32_t> pixels(width * static_cast<size_t>(Bitmap.GetHeight()));
  for (int y = 0; y < Bitmap.GetHeight(); ++y) {
    Bitmap.GetRow(y, std::span(pixels).subspan(width * static_cast<size_t>(y), width));
  }
  return pixels;
}

// Rows as a whole and pixels one by one are the same; looks at the middle row only.
void CheckPixels(TBitmap& Bitmap) {
  const auto pixels = TBitmapX::CreateBitmapX(&Bitmap);
  Check(pixels != nullptr, "each picture that is read has a class for its pixels");
  std::vector<TRGB> row(static_cast<size_t>(Bitmap.GetWidth()));
  const int y = Bitmap.GetHeight() / 2;
  pixels->GetRow(y, row);
  for (int x = 0; x < Bitmap.GetWidth(); ++x) {
    Check(pixels->GetPixels(x, y) == row[static_cast<size_t>(x)], "a row holds its pixels");
  }
}

}  // namespace

FUZZ(Input) {
  const size_t cut = Input.Byte();
  const std::string bytes = Input.Bytes();
  std::optional<TBitmap> bitmap = Decoded(bytes);
  if (!bitmap) return;
  const size_t held = static_cast<size_t>(bitmap->GetStride()) * static_cast<size_t>(bitmap->GetHeight());
  Check(held <= bytes.size() * 255 + (1 << 20), "memory is bound by what the file holds");
  if (held > 1 << 16) return;  // what follows is slow

  const std::vector<uint32_t> pixels = PixelsOf(*bitmap);
  const std::optional<TBitmap> again = Decoded(EncodeBitmap(*bitmap));
  Check(again.has_value(), "what is written is a picture");
  Check(again->GetPixelFormat() == bitmap->GetPixelFormat(), "the depth is kept");
  Check(PixelsOf(*again) == pixels, "the pixels are kept");
  CheckPixels(*bitmap);

  const std::optional<TBitmap> part = Decoded(std::string_view(bytes).substr(0, bytes.size() * cut / 256));
  Check(!part || PixelsOf(*part) == pixels, "a part of the file is refused, or holds all pixels");
}

}  // namespace vx::fuzz
