// Images of one size, by their index.
//
//   TCustomImageList, TImageList   count, size, drawing, one image as a bitmap
//   TVxImageList                   the same with a name for each image
//
// Example:
//   vx::TVxImageList images(16, 16);
//   images.AddMasked(bitmap, vx::clFuchsia);      // the strip is cut into images of 16 pixels
//   images.SetItems(0, u"offen");
//   images.Draw(canvas, 4, 4, 0);
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfall: a list keeps colours and transparency of 32 bits; palettes don't come back.
#pragma once

#include <vector>

#include "platform/TBitmap.h"

namespace vx {

// Indexes outside the list do nothing, and give what is told; sizes are in pixels.
class TCustomImageList : public TObject {
 public:
  explicit TCustomImageList(int Width = 16, int Height = 16) { SetSize(Width, Height); }
  String ClassName() const override { return u"TCustomImageList"; }

  int GetCount() const noexcept { return static_cast<int>(FImages.size()); }
  int GetWidth() const noexcept { return FWidth; }
  int GetHeight() const noexcept { return FHeight; }
  // Another size empties the list. EArgumentException for a size below 1 or above 32767.
  void SetSize(int Width, int Height);

  // Adds the images that stand side by side in Bitmap, from the left; a remainder that is narrower than an image
  // is filled up with what is transparent, as are images lower than the list's, and higher ones are cut. The bitmap's
  // transparent colour counts if it says so. The result is the index of the first image, -1 for a bitmap without
  // pixels.
  int Add(const TBitmap& Bitmap);
  // The same, with all pixels of the colour MaskColor transparent.
  int AddMasked(const TBitmap& Bitmap, TColor MaskColor);
  // Puts the first image of Bitmap in the place of another one.
  void Replace(int Index, const TBitmap& Bitmap);
  virtual void Delete(int Index);
  virtual void Clear();

  // Draws the image with its transparency; one that is not enabled in light grays.
  virtual void Draw(TCanvas& Canvas, int X, int Y, int Index, bool Enabled = true) const;
  // Image becomes the image of the list's size and 24 bits, before the colour Background; the result is false, with
  // Image unchanged, for an index outside the list.
  bool GetBitmap(int Index, TBitmap& Image, TColor Background = clWhite) const;
  // The image as the list keeps it: 32 bits with transparency. EListError for an index outside the list.
  const TBitmap& GetImage(int Index) const;

 protected:
  // Called behind the adding of Count images at the end.
  virtual void Added(int Count);

 private:
  int AddImages(const TBitmap& Bitmap, const uint32_t* Masked);

  std::vector<TBitmap> FImages;
  int FWidth = 0;
  int FHeight = 0;
};

class TImageList : public TCustomImageList {
 public:
  using TCustomImageList::TCustomImageList;
  String ClassName() const override { return u"TImageList"; }
};

// Each image has a name, the empty text at first.
class TVxImageList : public TImageList {
 public:
  using TImageList::TImageList;
  String ClassName() const override { return u"TVxImageList"; }
  // The name of an image; the empty text for an index outside the list, where setting does nothing.
  String GetItems(int Index) const;
  void SetItems(int Index, const String& Value);
  // The index of the first image of that name, regardless of case; -1 if there is none.
  int IndexOf(std::u16string_view Name) const noexcept;
  void Delete(int Index) override;
  void Clear() override;

 protected:
  void Added(int Count) override;

 private:
  std::vector<String> FItems;
};

}  // namespace vx
