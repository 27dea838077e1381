// The text that a cell shows, type by type, beside the type's parser and its formatter called one after the other.
#include <vector>

#include "bench/decorations/Topics.h"
#include "bench/support/Bench.h"
#include "core/uVxFunctions.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "rendering/uDecoration.h"

namespace vx::bench {
namespace {

constexpr int kRounds = 99;  // short ones, which other programs seldom interrupt
constexpr int kCells = 2000;
constexpr double kMostOfBoth = 1.3;

// Runs both over all values and reports them; what they make of a value has to be the same.
template <typename TParts>
void RunType(const char* What, const std::vector<String>& Values, TVxFieldType Type, const String& Format,
             TParts Parts) {
  const auto format = [&](const String& value) {
    bool isFraction;
    return TDecorator::FormatText(value, Type, Format, isFraction);
  };
  const auto measure = [&](auto show) {
    return Time([&] {
      for (const String& value : Values) benchmark::DoNotOptimize(show(value));
    });
  };
  for (const String& value : Values) Expect(format(value) == Parts(value), What);
  const auto times = Medians(
      kRounds, [&] { return measure(format); }, [&] { return measure(Parts); });
  Report(What, times[0], "parts", times[1], kCells, TBar::AtLeast(1 / kMostOfBoth));
}

template <typename F>
std::vector<String> Values(F Make) {
  std::vector<String> values;
  for (int i = 0; i < kCells; ++i) values.push_back(Make(i));
  return values;
}

void RunNumbers() {
  const auto byMask = [](std::u16string_view mask) {
    return [mask](const String& value) { return FormatFloat(mask, StrToExtDef(value, 0)); };
  };
  const auto wholes = Values([](int i) { return IntToStr(i * 37); });
  RunType("format_integer", wholes, vftInteger, u"#,##0", byMask(u"#,##0"));
  const auto decimals = Values([](int i) { return Concat({IntToStr(i), u",", IntToStr(i % 1000)}); });
  RunType("format_float", decimals, vftFloat, u"#,##0.00", byMask(u"#,##0.00"));
  const auto halves = Values([](int i) { return Concat({IntToStr(i), u",5"}); });
  RunType("format_fraction", halves, vftFraction, u"", [](const String& value) {
    const String text = FormatFloat(u".00", StrToExtDef(value, 0));
    const auto whole = static_cast<size_t>(text.size()) - 3;
    return Concat({text.view().substr(0, whole), text.view().substr(whole + 1)});
  });
  RunType("format_currency", decimals, vftCurrency, u"x", [](const String& value) {
    Currency amount;
    Expect(TryStrToCurr(value, amount), "an amount");
    return VxCurrToStr(amount, {ctsThousendDivider, ctsSign}, 2);
  });
}

void RunTimes() {
  const auto dates = Values([](int i) { return DateToStr(40000 + i % 9000); });
  RunType("format_date", dates, vftDate, u"d. mmmm yyyy",
          [](const String& value) { return FormatDateTime(u"d. mmmm yyyy", StrToDateDef(value, 0)); });
  const auto times = Values([](int i) { return TimeToStr((i % 1439 + 1) / 1440.0); });
  RunType("format_time", times, vftTime, u"hh:nn",
          [](const String& value) { return FormatDateTime(u"hh:nn", StrToTimeDef(value, 0)); });
  const auto moments = Values([](int i) { return DateTimeToStr(40000.5 + i % 9000); });
  RunType("format_datetime", moments, vftDateTime, u"dd.mm.yyyy hh:nn",
          [](const String& value) { return FormatDateTime(u"dd.mm.yyyy hh:nn", StrToDateTimeDef(value, 0)); });
  const auto hours = Values([](int i) { return Concat({IntToStr(1 + i % 200), u":30"}); });
  RunType("format_hour", hours, vftHour, u"q", [](const String& value) {
    TDateTime amount;
    Expect(VxStrToHour(value, amount), "hours");
    return VxHourToStr(amount, {});
  });
}

}  // namespace

void RunFormats() {
  RunNumbers();
  RunTimes();
}

}  // namespace vx::bench
