// What the comparison of two cells and the ordering of many have in common.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/uConst.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx::detail {

// -1, 0 or 1.
template <typename T>
constexpr int SignOfDifference(T A, T B) noexcept {
  return A < B ? -1 : B < A ? 1 : 0;
}

// The lines of a commatext as one text.
String CommatextLines(std::u16string_view Commatext);

// How the cells of one of the types for dates and times are compared.
struct TMomentForm {
  // The format without which only the values that are read count. What it makes of a value are digits, always
  // as many, so that those texts stand as the numbers do that Digits gives.
  std::u16string_view Format;
  // The comparison by characters; false if the values have to be read.
  bool (*CompareUnits)(std::u16string_view A, std::u16string_view B, int& Result) noexcept;
  TDateTime (*Read)(std::u16string_view Text, TDateTime Default) noexcept;
  uint64_t (*DigitsOf)(TDateTime Value) noexcept;

  uint64_t Digits(std::u16string_view Text) const noexcept { return DigitsOf(Read(Text, 0)); }
  String Text(std::u16string_view Cell, std::u16string_view AFormat) const;
};

// The form of vftDate, vftTime or vftDateTime; nullptr for the other types.
const TMomentForm* FindMomentForm(TVxFieldType FieldType) noexcept;

// As dd.mm.yyyy, with any characters for the letters.
constexpr bool BeginsAsDate(std::u16string_view Text) noexcept {
  return Text.size() >= 10 && Text[2] == u'.' && Text[5] == u'.';
}

}  // namespace vx::detail
