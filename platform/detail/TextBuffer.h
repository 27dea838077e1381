// A text that is put together piece by piece, on the stack as long as it is short.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>

#include "platform/String.h"

namespace vx {

class TTextBuffer {
 public:
  void Add(char16_t Unit) {
    if (FCount == kCapacity) Spill();
    FUnits[FCount++] = Unit;
  }
  void Add(std::u16string_view Text) {
    for (char16_t unit : Text) Add(unit);
  }
  void Add(char16_t Unit, int Count) {
    for (; Count > 0; --Count) Add(Unit);
  }
  // Value in decimal digits, at least Least of them (up to 20).
  void AddNumber(uint64_t Value, int Least = 1) {
    char digits[20];
    const char* end = std::to_chars(digits, digits + sizeof digits, Value).ptr;
    Add(u'0', Least - static_cast<int>(end - digits));
    for (const char* digit = digits; digit != end; ++digit) Add(static_cast<char16_t>(*digit));
  }
  String ToString() const { return FSpilled.empty() ? String(View()) : FSpilled + View(); }

 private:
  static constexpr int kCapacity = 64;
  std::u16string_view View() const { return {FUnits, static_cast<size_t>(FCount)}; }
  void Spill() {
    FSpilled += View();
    FCount = 0;
  }

  char16_t FUnits[kCapacity];
  int FCount = 0;
  String FSpilled;
};

}  // namespace vx
