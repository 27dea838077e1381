// The values of spreadsheets as texts of cells, and texts as values.
#pragma once

#include <optional>
#include <string_view>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx::vxtab {

enum TSheetFormat : uint8_t {
  sfNumber,
  sfDate,
  sfTime,    // of a day
  sfMoment,  // date and time
  sfHours    // an amount of hours, which may exceed a day
};

// What a format for numbers such as "dd.mm.yyyy hh:mm" or "[h]:mm" shows.
TSheetFormat FormatOfCode(std::string_view Code) noexcept;
// The same for the numbers that files of Office Open XML give the formats without a code.
TSheetFormat FormatOfNumber(size_t Number) noexcept;

// A value as the text of a cell. Dates count from 30.12.1899.
String TextOfValue(double Value, TSheetFormat Format);

// The value of a text that TextOfValue gives back: a number or a date. None for every other text.
struct TSheetValue {
  double Value;
  TSheetFormat Format;
};
std::optional<TSheetValue> ValueOfText(const String& Text);

}  // namespace vx::vxtab
