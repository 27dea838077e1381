// Pictures with fewer colours, by cutting the cube of all colours.
//
//   TRGBSpace          the cube of one picture: counts its pixels, cuts, and paints it anew
//   TRGBSubSpace       a box of the cube
//   TRGBSubSpaceList   boxes, and the average colour of the one that holds a colour
//   TIntArr64D3        how many pixels lie in each of 64 x 64 x 64 cells
//
// Example:
//   auto pixels = vx::TBitmapX::CreateLoadBitmapX(u"foto.bmp");
//   auto reduced = pixels->CompressColors(256, false);       // makes a TRGBSpace and renders
//   reduced->iBitmap->SaveToFile(u"klein.bmp");
//
// Boxes are cut so that both halves hold about as many pixels, not so that they are as wide: crowded colours get more
// boxes. Each pixel becomes the average of its box. Bounds and cells are in a scale of 6 bits, 0 to 63; averages in
// one of 8 bits, where only 3, 7, 11 .. 255 occur.
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfalls: colours that differ only in the lowest 2 bits are one. With UseTransparent the pixels to be transparent are
// looked for in the bitmap that is painted on, not in the picture: give a copy of it, or none.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "objects/uVxClasses.h"
#include "platform/TObjectList.h"
#include "rendering/uBitmapX.h"

namespace vx {

// From 8 to 6 bits a channel and back: (c + 1) * 4 - 1. The fourth byte becomes 0.
constexpr TRGB RGBTo64(TRGB Color) noexcept {
  return {static_cast<uint8_t>(Color.Red >> 2), static_cast<uint8_t>(Color.Green >> 2),
          static_cast<uint8_t>(Color.Blue >> 2), 0};
}
constexpr TRGB RGBFrom64(TRGB Color) noexcept {
  return {static_cast<uint8_t>((Color.Red + 1) * 4 - 1), static_cast<uint8_t>((Color.Green + 1) * 4 - 1),
          static_cast<uint8_t>((Color.Blue + 1) * 4 - 1), 0};
}

// Counters by blue, red and green, in 6 bits, and the sums by which any box is counted at once.
class TIntArr64D3 {
 public:
  TIntArr64D3();
  void Clear() noexcept;
  void Add(TRGB Color64) noexcept { ++FCounts[IndexOf(Color64.Blue, Color64.Red, Color64.Green)]; }
  // To be called behind the last Add, before boxes are counted.
  void SumUp() noexcept;
  int Get(int Blue, int Red, int Green) const noexcept { return FCounts[IndexOf(Blue, Red, Green)]; }
  // The pixels of a box, bounds inclusive; bounds beyond the cube are held to it.
  int CountOf(TRGB Low, TRGB High) const noexcept;

 private:
  static constexpr size_t kSide = 64, kSumSide = 65;
  static constexpr size_t IndexOf(int Blue, int Red, int Green) noexcept {
    return (static_cast<size_t>(Blue) * kSide + static_cast<size_t>(Red)) * kSide + static_cast<size_t>(Green);
  }
  uint32_t SumBelow(int Blue, int Red, int Green) const noexcept;

  std::vector<int32_t> FCounts;
  std::vector<uint32_t> FSums;  // of all cells below each corner
};
using PIntArr64D3 = TIntArr64D3*;

class TRGBSubSpace;

// Boxes. Owns them, unless told otherwise.
class TRGBSubSpaceList : public TObjectList {
 public:
  using TObjectList::TObjectList;
  String ClassName() const override { return u"TRGBSubSpaceList"; }
  TRGBSubSpace& GetSpace(int Index) const;
  // The average of the box that holds Color (6 bits): the one at ilastIndex, otherwise the first from the start, which
  // becomes ilastIndex. If none does, black with 255 in the fourth byte, and ilastIndex is the count.
  TRGB GetAveColor(TRGB Color64);
  // For each box the line of GetSpaceCommatext, with CR and LF between them.
  String GetSpacesCommatext() const;

  int ilastIndex = 0;
};

// A box and, once it is cut, its halves.
class TRGBSubSpace : public TObject {
 public:
  // A box of the bounds of Parent, one level below it; without one of no size, on level -1.
  explicit TRGBSubSpace(TRGBSubSpace* Parent = nullptr);
  TRGBSubSpace(const TRGBSubSpace&) = delete;
  TRGBSubSpace& operator=(const TRGBSubSpace&) = delete;
  String ClassName() const override { return u"TRGBSubSpace"; }

  // Frees the halves.
  virtual void ClearSpaces();
  // Cuts the box on its longest side (on a tie green before red before blue) where both halves come to hold about as
  // many pixels, and shrinks both. A box of one cell gives two halves equal to it. The result is true.
  virtual bool DivideSpace();

  // All three channels lie within the bounds.
  bool inSpace(TRGB Color64) const noexcept;
  // Appends both halves, which stay this box's, to a list that does not own.
  void AddSpaces(TRGBSubSpaceList& List) const;
  // Minimum and maximum of red, green and blue and the average as "red.green.blue".
  String GetSpaceCommatext() const;
  // The pixels in the slab of the box where the channel is Value; 0 for bcNone.
  int AreaCount(TBaseColor Color, int Value) const noexcept;
  int AreaRedCount(int Value) const noexcept { return AreaCount(bcRed, Value); }
  int AreaGreenCount(int Value) const noexcept { return AreaCount(bcGreen, Value); }
  int AreaBlueCount(int Value) const noexcept { return AreaCount(bcBlue, Value); }
  bool AreaRedEmpty(int Value) const noexcept { return AreaRedCount(Value) == 0; }
  bool AreaGreenEmpty(int Value) const noexcept { return AreaGreenCount(Value) == 0; }
  bool AreaBlueEmpty(int Value) const noexcept { return AreaBlueCount(Value) == 0; }
  // Shrinks the bounds, green first, then red, then blue, to what holds pixels. Without pixels each minimum
  // comes to lie above its maximum.
  void CompressSpace() noexcept;
  // Sets iaveColor to the weighted average of the pixels; 3, 3, 3 without any.
  void CalculateAverage();

  TRGB iaveColor;
  const TBitmapX* iBitmapX = nullptr;  // not owned
  TBaseColor icutColor = bcNone;
  int16_t iLevel = -1;
  TRGB imaxRGB, iminRGB;       // inclusive
  PIntArr64D3 iP3D = nullptr;  // the root's
  TRGBSubSpace* iParent = nullptr;
  TRGBSubSpaceList iSpaces;
};

class TRGBSpace : public TRGBSubSpace {
 public:
  // Counts the picture, which has to outlive the space. With UseTransparent the first pixel of the last row is the
  // transparent colour, and one colour fewer is left for the others.
  TRGBSpace(const TBitmapX& BitmapX, uint16_t maxColor, bool UseTransparent);
  String ClassName() const override { return u"TRGBSpace"; }

  void ClearSpaces() override;
  // There is a transparent colour: its fourth byte is below 255.
  bool Transparent() const noexcept { return itransRGB.Fourth < 255; }
  // Counts the pixels anew, without those of the transparent colour.
  void NewP3D();
  // Cuts until there are imaxColor boxes (at least two), and paints the picture on Bitmap, which gets its size, and 24
  // bits unless it has 32; without one, on a copy of it that the result owns. Pixels of Bitmap that are transparent get
  // the transparent colour, moved away from all averages. Bitmap may be the picture itself. Null, with nothing painted,
  // if there are not enough boxes. May be called again.
  std::unique_ptr<TBitmapXWrite> Render(TBitmap* Bitmap);

  uint16_t imaxColor;
  TRGB itransRGB{0, 0, 0, 255};
  TRGBSubSpaceList iVSpaces{false};  // the boxes that are not cut

 private:
  bool Cut();
  int CutLevel(int Level, bool& Divided);
  void Paint(TBitmapXWrite& Target, const TBitmapX& Picture);

  TIntArr64D3 FCounts;
};

}  // namespace vx
