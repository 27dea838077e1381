// Tables for hexadecimal numbers.
//
//   IntToHexConst                           the text of each value from 0 to 255
//   HexToIntConstLow, HexToIntConstHigh     the value of a digit at its place
//
// Example:
//   vx::IntToHexConst[0xB0];                                       // u"B0"
//   vx::HexToIntConstHigh[1][u'B' - u'A'] + vx::HexToIntConstLow[0][0];   // 0xB0
//
// Threads: constants, which any number may read.
//
// Pitfall: the texts have no leading zero: IntToHexConst[10] is u"A".
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vx {

namespace hexconst {

using TUnits = std::array<std::array<char16_t, 2>, 256>;

constexpr TUnits MakeUnits() {
  TUnits result{};
  for (size_t i = 0; i < 256; ++i) result[i] = {u"0123456789ABCDEF"[i >> 4], u"0123456789ABCDEF"[i & 15]};
  return result;
}
inline constexpr TUnits kUnits = MakeUnits();

constexpr std::array<std::u16string_view, 256> MakeTexts() {
  std::array<std::u16string_view, 256> result;
  for (size_t i = 0; i < 256; ++i) {
    size_t leading = i < 16 ? 1 : 0;
    result[i] = {kUnits[i].data() + leading, 2 - leading};
  }
  return result;
}

// The digits First to First + kCount - 1, each at the places 0 to 7.
template <size_t kCount>
constexpr std::array<std::array<uint32_t, kCount>, 8> MakeValues(uint32_t First) {
  std::array<std::array<uint32_t, kCount>, 8> result{};
  for (size_t place = 0; place < 8; ++place) {
    for (size_t i = 0; i < kCount; ++i) result[place][i] = (First + static_cast<uint32_t>(i)) << (4 * place);
  }
  return result;
}

}  // namespace hexconst

// The upper-case hexadecimal text of each value, without a leading zero: u"0" to u"FF".
inline constexpr std::array<std::u16string_view, 256> IntToHexConst = hexconst::MakeTexts();
// digit * 16^place, by [place][digit], places 0 to 7 from the right; for the digits 0 to 9.
inline constexpr auto HexToIntConstLow = hexconst::MakeValues<10>(0);
// The same for the digits A to F, by [place][digit - 'A'].
inline constexpr auto HexToIntConstHigh = hexconst::MakeValues<6>(10);

}  // namespace vx
