// A text that is put together piece by piece and whose length is not known before.
//
//   TTextBuffer   the pieces; on the stack as long as they are short
//
// Example:
//   vx::TTextBuffer text;
//   text.AddNumber(7, 2);
//   text.Add(u" Uhr");
//   text.ToString();      // u"07 Uhr"
//
// Where the length is known, String::Build fills a text in one go; Concat joins a few pieces. Pitfall: what is added
// must not be a part of the buffer itself.
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/String.h"

namespace vx {

class TTextBuffer {
 public:
  TTextBuffer() noexcept : FUnits(FShort) {}
  TTextBuffer(const TTextBuffer&) = delete;
  TTextBuffer& operator=(const TTextBuffer&) = delete;

  void Add(char16_t Unit) {
    if (FCount == FCapacity) [[unlikely]]
      Grow(1);
    FUnits[FCount++] = Unit;
  }
  void Add(std::u16string_view Text) { std::copy(Text.begin(), Text.end(), Room(Text.size())); }
  void Add(char16_t Unit, int Count) {
    if (Count > 0) std::fill_n(Room(static_cast<size_t>(Count)), Count, Unit);
  }
  // Value in decimal digits, at least Least of them (up to 20).
  void AddNumber(uint64_t Value, int Least = 1) {
    char digits[20];
    const char* end = std::to_chars(digits, digits + sizeof digits, Value).ptr;
    Add(u'0', Least - static_cast<int>(end - digits));
    for (const char* digit = digits; digit != end; ++digit) Add(static_cast<char16_t>(*digit));
  }
  // The place of so many more units, which the caller fills before the next call.
  char16_t* Room(size_t Count) {
    if (FCapacity - FCount < Count) [[unlikely]]
      Grow(Count);
    char16_t* room = FUnits + FCount;
    FCount += Count;
    return room;
  }
  // Forgets the text and keeps the memory for the next one.
  void Clear() noexcept { FCount = 0; }

  // Stands until the next change.
  std::u16string_view View() const noexcept { return {FUnits, FCount}; }
  String ToString() const { return String(View()); }

 private:
  static constexpr size_t kShort = 64;
  void Grow(size_t More);  // apart, so that adding stays short enough to be inlined

  char16_t* FUnits;
  size_t FCount = 0;
  size_t FCapacity = kShort;
  std::unique_ptr<char16_t[]> FLong;
  char16_t FShort[kShort];
};

}  // namespace vx
