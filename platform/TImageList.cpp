#include "platform/TImageList.h"

#include <algorithm>
#include <utility>

#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "platform/Format.h"
#include "platform/TCanvas.h"

namespace vx {
namespace {

constexpr int kLargest = 32767;
constexpr uint32_t kColorBits = 0xFFFFFF;

constexpr uint32_t ToPixel(TColor Color) noexcept {
  return (Color & 0xFF) << 16 | (Color & 0xFF00) | (Color >> 16 & 0xFF);
}

// The image at Left of a strip; Masked, if there is one, is what is transparent in it.
TBitmap Cut(const TBitmap& Strip, int Left, int Width, int Height, const uint32_t* Masked) {
  TBitmap image(pf32bit, Width, Height);
  image.SetAlphaFormat(afDefined);
  std::vector<uint32_t> from(static_cast<size_t>(Strip.GetWidth())), to(static_cast<size_t>(Width));
  for (int y = 0; y < Height; ++y) {
    std::fill(to.begin(), to.end(), 0);
    if (y < Strip.GetHeight()) {
      Strip.GetRow(y, from);
      std::copy_n(from.begin() + Left, std::min(Width, Strip.GetWidth() - Left), to.begin());
      for (uint32_t& pixel : to) {
        if (Masked && (pixel & kColorBits) == *Masked) pixel = 0;
      }
    }
    image.SetRow(y, to);
  }
  return image;
}

// The colour that Bitmap itself says is transparent.
const uint32_t* MaskOf(const TBitmap& Bitmap, uint32_t& Color) {
  if (!Bitmap.GetTransparent()) return nullptr;
  Color = ToPixel(ColorToRGB(Bitmap.GetTransparentColor()));
  return &Color;
}

uint32_t Blend(uint32_t Over, uint32_t Under) noexcept {
  const uint32_t alpha = Over >> 24;
  uint32_t result = 0;
  for (int shift : {0, 8, 16}) {
    const uint32_t over = Over >> shift & 0xFF, under = Under >> shift & 0xFF;
    result |= (over * alpha + under * (255 - alpha) + 127) / 255 << shift;
  }
  return result;
}

// In grays that are half way to white.
TBitmap Disabled(const TBitmap& Image) {
  TBitmap gray = Image;
  std::vector<uint32_t> row(static_cast<size_t>(Image.GetWidth()));
  for (int y = 0; y < gray.GetHeight(); ++y) {
    gray.GetRow(y, row);
    for (uint32_t& pixel : row) {
      const uint32_t bright = (299 * (pixel >> 16 & 0xFF) + 587 * (pixel >> 8 & 0xFF) + 114 * (pixel & 0xFF)) / 1000;
      pixel = (pixel & ~kColorBits) | (bright + 255) / 2 * 0x010101;
    }
    gray.SetRow(y, row);
  }
  return gray;
}

}  // namespace

void TCustomImageList::SetSize(int Width, int Height) {
  if (Width < 1 || Height < 1 || Width > kLargest || Height > kLargest) {
    throw EArgumentException(Format(u"Images can not be %d x %d pixels large", {Width, Height}));
  }
  if (Width == FWidth && Height == FHeight) return;
  Clear();
  FWidth = Width;
  FHeight = Height;
}

int TCustomImageList::AddImages(const TBitmap& Bitmap, const uint32_t* Masked) {
  if (Bitmap.GetEmpty()) return -1;
  const int first = GetCount();
  for (int left = 0; left < Bitmap.GetWidth(); left += FWidth) {
    FImages.push_back(Cut(Bitmap, left, FWidth, FHeight, Masked));
  }
  Added(GetCount() - first);
  return first;
}

int TCustomImageList::Add(const TBitmap& Bitmap) {
  uint32_t color;
  return AddImages(Bitmap, MaskOf(Bitmap, color));
}

int TCustomImageList::AddMasked(const TBitmap& Bitmap, TColor MaskColor) {
  const uint32_t color = ToPixel(ColorToRGB(MaskColor));
  return AddImages(Bitmap, &color);
}

void TCustomImageList::Replace(int Index, const TBitmap& Bitmap) {
  if (Index < 0 || Index >= GetCount() || Bitmap.GetEmpty()) return;
  uint32_t color;
  FImages[static_cast<size_t>(Index)] = Cut(Bitmap, 0, FWidth, FHeight, MaskOf(Bitmap, color));
}

void TCustomImageList::Delete(int Index) {
  if (Index >= 0 && Index < GetCount()) FImages.erase(FImages.begin() + Index);
}

void TCustomImageList::Clear() { FImages.clear(); }

void TCustomImageList::Added(int) {}

void TCustomImageList::Draw(TCanvas& Canvas, int X, int Y, int Index, bool Enabled) const {
  if (Index < 0 || Index >= GetCount()) return;
  const TBitmap& image = FImages[static_cast<size_t>(Index)];
  Canvas.Draw(X, Y, Enabled ? image : Disabled(image));
}

bool TCustomImageList::GetBitmap(int Index, TBitmap& Image, TColor Background) const {
  if (Index < 0 || Index >= GetCount()) return false;
  const uint32_t under = ToPixel(ColorToRGB(Background));
  TBitmap result(pf24bit, FWidth, FHeight);
  std::vector<uint32_t> row(static_cast<size_t>(FWidth));
  for (int y = 0; y < FHeight; ++y) {
    FImages[static_cast<size_t>(Index)].GetRow(y, row);
    for (uint32_t& pixel : row) pixel = Blend(pixel, under);
    result.SetRow(y, row);
  }
  Image = result;
  return true;
}

const TBitmap& TCustomImageList::GetImage(int Index) const {
  if (Index < 0 || Index >= GetCount()) throw EListError(FormatListError(SListIndexError, Index));
  return FImages[static_cast<size_t>(Index)];
}

String TVxImageList::GetItems(int Index) const {
  return static_cast<size_t>(Index) < FItems.size() ? FItems[static_cast<size_t>(Index)] : String();
}

void TVxImageList::SetItems(int Index, const String& Value) {
  if (static_cast<size_t>(Index) < FItems.size()) FItems[static_cast<size_t>(Index)] = Value;
}

int TVxImageList::IndexOf(std::u16string_view Name) const noexcept {
  for (size_t i = 0; i < FItems.size(); ++i) {
    if (AnsiSameText(FItems[i], Name)) return static_cast<int>(i);
  }
  return -1;
}

void TVxImageList::Delete(int Index) {
  if (static_cast<size_t>(Index) < FItems.size()) FItems.erase(FItems.begin() + Index);
  TImageList::Delete(Index);
}

void TVxImageList::Clear() {
  FItems.clear();
  TImageList::Clear();
}

void TVxImageList::Added(int) { FItems.resize(static_cast<size_t>(GetCount())); }

}  // namespace vx
