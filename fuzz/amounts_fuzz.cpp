// Hours and money: numbers first, then a text for the strict readers.
#include "core/ExactSum.h"
#include "core/HourPeriods.h"
#include "core/Money.h"
#include "fuzz/support/Values.h"
#include "platform/Exceptions.h"

namespace vx::fuzz {
namespace {

// A reader tells a fault in the text or none, and leaves a value that it refuses.
template <typename T, typename TRead>
bool Reads(const String& Text, T& Value, TRead Read) {
  const T before = Value;
  TTextFault fault;
  const bool isRead = Read(Text.view(), Value, fault);
  Check(isRead == (fault.Kind == tfNone), "read or a fault");
  Check(isRead || Value == before, "a refused text changes nothing");
  Check((fault.Position == 0) == (isRead || fault.Kind == tfEmpty), "a fault has a place");
  Check(fault.Position <= static_cast<int>(Text.size()) + 1, "the place is in the text or behind it");
  Check(fault.GetText().empty() == isRead, "a fault has a text");
  return isRead;
}

void CheckHours(const String& Text, int64_t Minutes) {
  THourAmount value = THourAmount::FromMinutes(Minutes), industry = value, back;
  const bool isRead = Reads(Text, value, [](auto text, auto& v, auto& f) { return TryStrToHourAmount(text, v, f); });
  const bool isIndustry =
      Reads(Text, industry, [](auto text, auto& v, auto& f) { return TryStrToHourAmount(text, v, f, {hroIndustry}); });
  Check(!isRead || (isIndustry && industry == value), "industry hours take hours, too");
  Check(TryStrToHourAmount(HourAmountToStr(value, {hofTwoDigits, hofPlusSign}), back) && back == value, "hours back");
  if (Raises<EMathError>([&] { value.ToIndustry(); })) return;
  Check(THourAmount::FromIndustry(value.ToIndustry()) == value, "hundredths come back");
  Check(TryStrToHourAmount(HourAmountToIndustryStr(value), back, {hroIndustry}) && back == value, "industry back");
}

void CheckTexts(const String& Text, Currency Amount) {
  for (const TMoneyReadOptions options : {TMoneyReadOptions{}, TMoneyReadOptions{mroDecimalPoint}}) {
    Currency value = Amount, other;
    if (!Reads(Text, value, [&](auto text, auto& v, auto& f) { return TryStrToMoney(text, v, f, options); })) continue;
    Check(TryStrToMoney(u" " + Text + u"\t", other, options) && other == value, "blanks around don't count");
  }
  TDecimalFactor factor = 7;
  Reads(Text, factor, [](auto text, auto& v, auto& f) { return TryStrToDecimalFactor(text, v, f); });
  Check(StrToDecimalFactor(DecimalFactorToStr(factor)) == factor, "factors come back");
  Check(factor - factor == 0 && (factor < 0) == (-factor > 0), "factors are in order");
}

void CheckMoney(Currency Amount, TDecimalFactor Factor, int Places, TMoneyRounding Rounding) {
  Currency product, quotient;
  if (!Raises<EMathError>([&] { product = Product(Amount, Factor, Places, Rounding); })) {
    const bool isNegative = (Amount < 0) != (Factor < 0);
    Check(product == 0 || (product < 0) == isNegative, "the sign of a product");
    Check(product.Units == INT64_MIN || Product(Amount, -Factor, Places, Rounding) == -product, "symmetrical about 0");
  }
  if (!Raises<EMathError>([&] { quotient = Quotient(Amount, Factor, 4, Rounding); }) && Factor >= 1 && Factor < 1000) {
    Currency back;
    if (!Raises<EMathError>([&] { back = Product(quotient, Factor, 4, Rounding); }))
      Check(back.Units - Amount.Units < 1000 && Amount.Units - back.Units < 1000, "a quotient comes back");
  }
  Raises<EMathError>([&] { WithPercent(Amount, Factor, Places, Rounding); });
  Raises<EMathError>([&] { WithoutPercent(Amount, Factor, Places, Rounding); });
  Raises<EMathError>([&] { Ratio(Amount, product, Places, Rounding); });
}

void CheckShares(Currency Amount, int Count, int Places, const std::vector<int64_t>& Weights) {
  auto sum = [](const std::vector<Currency>& parts) {
    TMoneySum total;
    for (Currency part : parts) total.Add(part);
    return total.Get();
  };
  std::vector<Currency> parts;
  if (!Raises<EMathError>([&] { parts = SplitAmount(Amount, Count, Places); }))
    Check(sum(parts) == Amount, "equal shares");
  if (!Raises<EMathError>([&] { parts = SplitAmount(Amount, Weights, Places); }))
    Check(sum(parts) == Amount, "weighted shares");
}

void CheckPeriod(const THourPeriod& Period, TPeriodCuts Cuts, TClockWindow Window) {
  std::vector<TPeriodPart> parts;
  if (Raises<EMathError>([&] { parts = SplitPeriod(Period, Cuts, Window); })) return;
  THourAmount clock, elapsed;
  for (size_t i = 0; i < parts.size(); ++i) {
    Check(parts[i].Elapsed.Minutes >= 0, "time goes on");
    Check(i == 0 || parts[i].From == parts[i - 1].To, "parts touch");
    clock += parts[i].Clock;
    elapsed += parts[i].Elapsed;
  }
  Check(clock == ClockHours(Period) && elapsed == ElapsedHours(Period), "the parts are the whole");
}

}  // namespace

FUZZ(Input) {
  TValues values(Input);
  int64_t numbers[3];  // of every size
  for (int64_t& number : numbers) {
    number = static_cast<int64_t>(values.Bits());
    number >>= values.Byte() % 64;
  }
  const auto [units, digits, minutes] = numbers;
  const int decimals = values.Byte() % 19, places = values.Byte() % 9 - 4, count = values.Byte();
  const TMoneyRounding rounding = values.Byte() % 2 == 0 ? mrTrade : mrMath;
  const std::vector<int64_t> weights = {digits, minutes, count, places};
  const TDateTime from = static_cast<TDateTime>(minutes % 1500000000) / 1440;
  const TDateTime to = from + static_cast<TDateTime>(digits % 100000) / 1440;
  const int flags = values.Byte();
  TPeriodCuts cuts;
  for (int bit = 0; bit < 4; ++bit) {
    if ((flags >> bit & 1) != 0) cuts.Include(static_cast<TPeriodCut>(bit));
  }
  CheckPeriod({from, to, (flags & 16) != 0, (flags & 32) != 0}, cuts, {count * 6, values.Byte() * 6});
  const Currency amount = Currency::FromUnits(units);
  const TDecimalFactor factor = TDecimalFactor::Of(digits % 1000000000000000000, decimals);
  CheckMoney(amount, factor, places, rounding);
  CheckShares(amount, count, places, weights);
  const String text = Input.Text();
  CheckHours(text, minutes);
  CheckTexts(text, amount);
}

}  // namespace vx::fuzz
