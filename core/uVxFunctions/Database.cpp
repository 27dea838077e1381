#include "core/uVxFunctions/Database.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctions/Numbers.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"

namespace vx {
namespace {

constexpr std::u16string_view kNoDateTime = u"00.00.0000 00:00:00";
constexpr std::u16string_view kMidnight = u" 00:00:00";
constexpr size_t kCompactLength = 8;  // yyyymmdd
constexpr size_t kDateLength = 10;    // yyyy-mm-dd, dd.mm.yyyy

// Calls Read with the text that Fill(char16_t*) writes, Length units of it.
template <typename F, typename R>
auto ReadBuilt(size_t Length, F&& Fill, R&& Read) {
  std::array<char16_t, 64> buffer;
  if (Length > buffer.size()) return Read(String::Build(Length, Fill).view());
  Fill(buffer.data());
  return Read(std::u16string_view(buffer.data(), Length));
}

// Writes the date in the order of the German form; Text is compact or has separators.
char16_t* PutDate(std::u16string_view Text, char16_t* Out) noexcept {
  bool compact = Text.size() == kCompactLength;
  auto put = [&](size_t first, size_t count) { Out = std::copy_n(Text.begin() + first, count, Out); };
  put(compact ? 6 : 8, 2);
  *Out++ = u'.';
  put(compact ? 4 : 5, 2);
  *Out++ = u'.';
  put(0, 4);
  return Out;
}

// What follows the date.
std::u16string_view TimeOf(std::u16string_view Text) noexcept {
  return Text.size() > kDateLength ? Text.substr(kDateLength) : kMidnight;
}

constexpr bool HasDate(std::u16string_view Text) noexcept {
  return Text.size() == kCompactLength || Text.size() >= kDateLength;
}

String WithPoint(String Text) {
  size_t comma = Text.view().find(u',');
  if (comma != std::u16string_view::npos) Text.SetUnit(static_cast<int>(comma), u'.');
  return Text;
}

template <typename R>
auto ReadWithComma(std::u16string_view Text, R&& Read) {
  size_t point = Text.find(u'.');
  if (point == std::u16string_view::npos) return Read(Text);
  auto fill = [&](char16_t* out) {
    std::copy(Text.begin(), Text.end(), out);
    out[point] = u',';
  };
  return ReadBuilt(Text.size(), fill, Read);
}

}  // namespace

String ConvertDbDate(std::u16string_view Text, bool DateOnly) {
  if (!HasDate(Text)) {
    std::u16string_view whole = Text.size() < kCompactLength ? kNoDateTime : Text;
    return DateOnly ? whole.substr(0, kDateLength) : whole;
  }
  std::u16string_view time = DateOnly ? std::u16string_view() : TimeOf(Text);
  return String::Build(kDateLength + time.size(),
                       [&](char16_t* out) { std::copy(time.begin(), time.end(), PutDate(Text, out)); });
}

TDateTime ConvertDbDateTime(std::u16string_view Text, TDateTime Default) {
  if (!HasDate(Text)) return Text.size() < kCompactLength ? Default : StrToDateTimeDef(Text, Default);
  std::u16string_view time = TimeOf(Text);
  auto fill = [&](char16_t* out) { std::copy(time.begin(), time.end(), PutDate(Text, out)); };
  return ReadBuilt(kDateLength + time.size(), fill, [Default](std::u16string_view german) {
    return german == kNoDateTime ? Default : StrToDateTimeDef(german, Default);
  });
}

String ConvertDateDb(TDateTime DateTime, std::u16string_view Mask, const String& Empty) {
  return std::trunc(DateTime) == 0 ? Empty : FormatDateTime(Mask, DateTime);
}

String ConvertDateTimeDb(TDateTime DateTime, std::u16string_view Mask, const String& Empty) {
  return DateTime == 0 ? Empty : FormatDateTime(Mask, DateTime);
}

String ConvertTimeDb(TDateTime DateTime, std::u16string_view Mask, const String& Empty) {
  return DateTime == std::trunc(DateTime) ? Empty : FormatDateTime(Mask, DateTime);
}

String ConvertCurrDb(Currency Value) { return WithPoint(CurrToStr(Value)); }

String ConvertExtDb(Extended Value) { return WithPoint(FloatToStr(Value)); }

Currency ConvertDbCurr(std::u16string_view Text, Currency Default) {
  return ReadWithComma(Text, [Default](std::u16string_view text) { return StrToCurrDef(text, Default); });
}

Extended ConvertDbExtDef(std::u16string_view Text, Extended Default) {
  return ReadWithComma(Text, [Default](std::u16string_view text) { return StrToExtDef(text, Default); });
}

}  // namespace vx
