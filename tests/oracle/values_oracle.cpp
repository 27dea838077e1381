// Compares the dates, times, amounts and numbers of the library with the standard library of C++ and
// with exact integer arithmetic, over whole ranges:
//   values_oracle [-v] [-s]
// -v lists the days on which the week differs from the ISO rule; -s draws a tenth of the random cases. A line of counts
// for each comparison; exit status 1 for a difference that no rule explains.
//
// Here are the amounts of money, against integers of 128 bits.
#include "tests/oracle/values_oracle.h"

#include <limits>

#include "core/uVxFunctions/CurrencyText.h"
#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctions/Rounding.h"
#include "platform/Exceptions.h"
#include "platform/FormatSettings.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"

namespace vx::oracle {
namespace {

// Wide enough for every amount in its units, times ten, and for every decimal number of 38 digits.
__extension__ typedef __int128 TInt128;

constexpr int64_t kMost = std::numeric_limits<int64_t>::max(), kOverflow = -kMost - 1;

TInt128 Size(TInt128 Value) { return Value < 0 ? -Value : Value; }
TInt128 PowerOfTen(int Exponent) { return Exponent == 0 ? TInt128{1} : PowerOfTen(Exponent - 1) * 10; }

// The multiple of Step nearest to Value; of two that are as near, the one further from 0.
TInt128 HalfAway(TInt128 Value, TInt128 Step) {
  const TInt128 rest = Size(Value) % Step, lower = Size(Value) - rest;
  const TInt128 size = rest >= Step - rest ? lower + Step : lower;
  return Value < 0 ? -size : size;
}

void CompareRounding(TComparison& To, TInt128 Units, int Places) {
  const TInt128 want = HalfAway(Units, PowerOfTen(4 - Places));
  const Currency value = Currency::FromUnits(static_cast<int64_t>(Units));
  int64_t got = kOverflow;
  try {
    got = RoundCurrency(value, Places).Units;
  } catch (const EOverflow&) {
  }
  To.Same("RoundCurrency", got, Size(want) > kMost ? kOverflow : static_cast<int64_t>(want), value, Places);
}

// An amount of Units with Digits decimals; with a separator behind every third digit if Thousands.
std::u16string AmountText(int64_t Units, int Digits, bool Thousands) {
  const TInt128 rounded = Digits < 4 ? HalfAway(Units, PowerOfTen(4 - Digits)) : Units;
  std::string whole = std::to_string(static_cast<uint64_t>(Size(rounded) / 10000));
  std::string decimals = std::to_string(static_cast<uint64_t>(10000 + Size(rounded) % 10000)).substr(1);
  decimals.resize(static_cast<size_t>(Digits), '0');
  for (size_t i = whole.size(); Thousands && i > 3; i -= 3) whole.insert(i - 3, 1, '.');
  return Wide((rounded < 0 ? "-" : "") + whole + (Digits > 0 ? "," : "") + decimals);
}

void CompareText(TComparison& To, int64_t Units, int Digits) {
  const Currency value = Currency::FromUnits(Units);
  const std::u16string divided = AmountText(Units, Digits, true);
  To.Same("CurrToStrF ffFixed", CurrToStrF(value, ffFixed, Digits), AmountText(Units, Digits, false), value, Digits);
  To.Same("CurrToStrF ffNumber", CurrToStrF(value, ffNumber, Digits), divided, value, Digits);
  To.Same("FormatCurr #,##0.00", FormatCurr(u"#,##0.00", value), AmountText(Units, 2, true), value);
  const std::u16string exact = AmountText(Units, 4, false), full = AmountText(Units, 4, true);
  std::u16string shortest = exact.substr(0, exact.find_last_not_of(u'0') + 1);
  if (shortest.back() == u',') shortest.pop_back();
  To.Same("CurrToStr", CurrToStr(value), shortest, value);
  To.Same("StrToCurr", StrToCurr(shortest), value, shortest);
  To.Same("StrToCurrDef", StrToCurrDef(full, 1), value, full);
}

// Digits with so many Decimals and an exponent: the nearest unit, of two the even one.
void CompareReading(TComparison& To, TInt128 Digits, int Decimals, int Exponent) {
  std::string text;
  TInt128 rest = Size(Digits);
  for (int i = 0; rest != 0 || i < Decimals + 1; rest /= 10) {
    text.insert(0, 1, static_cast<char>('0' + static_cast<int>(rest % 10)));
    if (++i == Decimals) text.insert(0, 1, ',');
  }
  const std::u16string wide =
      Wide((Digits < 0 ? "-" : "") + text + (Exponent != 0 ? 'E' + std::to_string(Exponent) : ""));
  const int shift = Exponent + 4 - Decimals;
  TInt128 want = shift < 0 ? Size(Digits) / PowerOfTen(-shift) : Size(Digits) * PowerOfTen(shift);
  if (shift < 0) {
    const TInt128 low = Size(Digits) % PowerOfTen(-shift), high = PowerOfTen(-shift) - low;
    if (low > high || (low == high && want % 2 == 1)) ++want;
  }
  const bool good = want <= kMost + TInt128{Digits < 0};
  Currency none = Currency::FromUnits(-77), value = none;
  To.Same("TextToCurr", TextToCurr(wide, value, GetFormatSettings()), good, wide);
  To.Same("TextToCurr", value, good ? Currency::FromUnits(static_cast<int64_t>(Digits < 0 ? -want : want)) : none,
          wide);
}

void CompareReading(TComparison& To, TRandom& Random) {
  const TInt128 digits = Random.OfAnySize();
  // Any number, midpoints, more digits than any amount has, and the limits with the midpoints there.
  CompareReading(To, digits, Random.Int(0, 14), Random.Int(-12, 12));
  CompareReading(To, digits / 10 * 10 + 5, 5, 0);
  CompareReading(To, digits * Random.Range(1, 1000000000000000) + Random.Range(0, 9), Random.Int(8, 22), 0);
  const TInt128 limit = (TInt128{kMost} + Random.Range(-2, 2)) * 10000 + Random.Range(0, 2) * 5000;
  CompareReading(To, (limit + Random.Range(-1, 1)) * (digits < 0 ? -1 : 1), 8, 0);
}

void CompareCurrency(TReport& Report) {
  TComparison rounding(Report, "RoundCurrency"), texts(Report, "amount-texts"), reading(Report, "amounts-read");
  TRandom random(10000);
  for (int i = 0; i < 10000000 / Report.Part; ++i) CompareRounding(rounding, random.OfAnySize(), random.Int(-3, 3));
  for (int places = -3; places <= 3; ++places) {
    const TInt128 step = PowerOfTen(4 - places);
    for (int i = -100000; i <= 100000; ++i) {
      for (int beside = -1; beside <= 1; ++beside) CompareRounding(rounding, i * step + step / 2 + beside, places);
    }
    for (int i = -1000; i <= 1000; ++i)  // about the limits
      CompareRounding(rounding, (TInt128{kMost} - Size(i) * step / 20) * (i < 0 ? -1 : 1), places);
  }
  for (int i = 0; i < 500000 / Report.Part; ++i) {
    CompareText(texts, random.OfAnySize(), random.Int(0, 8));
    CompareReading(reading, random);
  }
  for (int units = -20000; units <= 20000; ++units) CompareText(texts, units, random.Int(0, 5));
  for (int i = 0; i < 20000; ++i) CompareText(texts, i % 2 == 0 ? kMost - i : -kMost - 1 + i / 2, i % 5);
}

}  // namespace
}  // namespace vx::oracle

int main(int argc, char** argv) {
  vx::oracle::TReport report;
  for (int i = 1; i < argc; ++i) {
    if (std::string_view(argv[i]) == "-v") report.Verbose = true;
    if (std::string_view(argv[i]) == "-s") report.Part = 10;
  }
  vx::oracle::CompareDates(report);
  vx::oracle::CompareTimes(report);
  vx::oracle::CompareCurrency(report);
  vx::oracle::CompareNumbers(report);
  std::printf("%s\n", report.Differences == 0 ? "no unexplained difference" : "UNEXPLAINED DIFFERENCES");
  return report.Differences == 0 ? 0 : 1;
}
