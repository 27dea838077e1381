// The columns or the rows of a table on a screen: how large each of them is, and where it stands.
//
//   TTableAxis      sizes and places, of as many as there are
//   TAxisView       what can be seen of them while fixed ones at both ends stay and the others scroll by pixels
//   TAxisPiece      one that can be seen
//
// Example:
//   vx::TTableAxis rows;
//   rows.Reset(1000000, 20);
//   rows.SetSize(2, 50);
//   rows.Begin(3);                                        // 90
//   rows.At(95);                                          // 3
//   vx::TAxisView view{rows, 1, 0, 400, 1000};            // a head, 400 pixels to see, scrolled by 1000
//   view.At(25);                                          // 49
//
// Only those are stored whose size is not the common one; places are found by halving among these. For one thread.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vx {

// Indexes count from 0; places are pixels from the beginning of the first one. Sizes below 0 count as 0, which hides.
class TTableAxis {
 public:
  // So many of one size, which is at least 1.
  void Reset(int Count, int Size);
  int GetCount() const noexcept { return FCount; }
  // Those that come have the common size, and those that go are forgotten.
  void SetCount(int Value);
  int GetCommonSize() const noexcept { return FCommon; }
  // Outside of them 0, and no change.
  int GetSize(int Index) const noexcept;
  void SetSize(int Index, int Value);
  // Count and sizes of all; the most frequent size above 0 becomes the common one.
  void SetSizes(std::span<const int> Sizes);
  // Takes one away and puts it in so that it has the index To then.
  void Move(int From, int To);

  // An index up to the count, which is held to that.
  int64_t Begin(int Index) const noexcept;
  int64_t Total() const noexcept { return Begin(FCount); }
  // The one that covers a place, never one of size 0; -1 outside.
  int At(int64_t Place) const noexcept;

 private:
  struct TOther {
    int Index;
    int Size;
    int64_t Extra;  // how much larger it and all before it are than by the common size
  };
  // The first of the others from Index on.
  std::vector<TOther>::const_iterator From(int Index) const noexcept;
  void SumUp(size_t First) noexcept;

  int FCount = 0;
  int FCommon = 1;
  std::vector<TOther> FOthers;  // by index
};

// Place is where it begins on the screen, which may be before 0 or behind a fixed one.
struct TAxisPiece {
  int Index;
  int Place;
  int Size;
  friend bool operator==(const TAxisPiece&, const TAxisPiece&) noexcept = default;
};

// Fixed ones at the beginning stand at 0, those at the end behind the last one or, if not all have room, at the end of
// the screen; the others scroll between. A value for the moment: Axis has to outlive it.
struct TAxisView {
  const TTableAxis& Axis;
  int FixedFirst = 0;
  int FixedLast = 0;
  int Room = 0;
  int64_t Offset = 0;

  enum TZone { zoFirst, zoMiddle, zoLast };
  // Pixels of the screen; a zone without room ends where it begins.
  int ZoneBegin(TZone Zone) const noexcept;
  int ZoneEnd(TZone Zone) const noexcept;
  TZone ZoneOf(int Index) const noexcept;
  // How far it can be scrolled.
  int64_t MaxOffset() const noexcept;
  // How many pixels scroll.
  int MiddleRoom() const noexcept { return ZoneEnd(zoMiddle) - ZoneBegin(zoMiddle); }
  // Where one stands, seen or not; held to 2^26 pixels around the screen.
  int PlaceOf(int Index) const noexcept;
  // The one at a pixel of the screen; -1 for none.
  int At(int Pixel) const noexcept;
  // The offset next to the present one with which Index is seen whole, or its beginning if it has no room.
  int64_t OffsetToSee(int Index) const noexcept;
  // Those of a zone that touch the pixels from Begin up to End, but for hidden ones.
  std::vector<TAxisPiece> Pieces(TZone Zone, int Begin, int End) const;

 private:
  int First() const noexcept;
  int Last() const noexcept;  // the first of the fixed ones at the end
};

}  // namespace vx
