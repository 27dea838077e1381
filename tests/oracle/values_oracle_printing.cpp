// Printed numbers against the digits of printf.
//
// printf writes the exact decimal value in as many digits as asked for. All rounding is done here on
// those digits, midpoints away from zero: so the texts differ from printf's own at these only.
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "core/uVxFunctions/Rounding.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "platform/Rounding.h"
#include "values_oracle.h"

namespace vx::oracle {
namespace {

// The number 0.DDD... * 10^Point, without a sign.
struct TDigits {
  std::string Digits;
  int Point = 0;
};

TDigits PrintDigits(Extended Value, int Count) {
  char text[200];
  std::snprintf(text, sizeof text, "%.*Le", Count - 1, std::fabs(Value));
  TDigits result;
  const char* at = text;
  for (; *at != 'e'; ++at) {
    if (*at != '.') result.Digits += *at;
  }
  result.Point = std::atoi(at + 1) + 1;
  return result;
}

// The first Count digits, the rest rounded half away from zero.
TDigits Cut(const TDigits& Number, int Count) {
  if (Count < 0) return {};
  const size_t count = static_cast<size_t>(Count);
  TDigits result{Number.Digits.substr(0, count), Number.Point};
  if (count >= Number.Digits.size()) return result;
  bool carry = Number.Digits[count] >= '5';
  for (size_t i = count; carry && i-- > 0;) {
    carry = result.Digits[i] == '9';
    result.Digits[i] = carry ? '0' : static_cast<char>(result.Digits[i] + 1);
  }
  if (carry) {
    result.Digits.insert(0, "1");
    ++result.Point;
  }
  return result;
}

// Value in at most Precision digits and, from Decimals 0 on, at most so many behind the separator.
TDigits RoundDigits(Extended Value, int Precision, int Decimals) {
  TDigits number = PrintDigits(Value, 22);
  int count = Precision;
  if (Decimals >= 0 && number.Point + Decimals < count) count = number.Point + Decimals;
  // What looks like a midpoint may be just beside it.
  if (count >= 0 && number.Digits.find_last_not_of('0') == static_cast<size_t>(count)) {
    number = PrintDigits(Value, 100);
  }
  return Cut(number, count);
}

bool IsZero(const TDigits& Number) { return Number.Digits.find_first_not_of('0') == std::string::npos; }

std::string Trimmed(std::string Text) {
  if (Text.find(',') == std::string::npos || Text.find('E') != std::string::npos) return Text;
  Text.erase(Text.find_last_not_of('0') + 1);
  if (Text.back() == ',') Text.pop_back();
  return Text;
}

std::string FixedText(const TDigits& Number, bool Negative, int Decimals, bool Thousands) {
  const int point = IsZero(Number) ? 0 : Number.Point;
  std::string whole, decimals;
  for (int place = point; place > 0; --place) {
    const size_t i = static_cast<size_t>(point - place);
    whole += i < Number.Digits.size() ? Number.Digits[i] : '0';
    if (Thousands && place % 3 == 1 && place > 1) whole += '.';
  }
  if (whole.empty()) whole = "0";
  for (int place = 0; place < Decimals; ++place) {
    const int i = point + place;
    decimals += i >= 0 && i < static_cast<int>(Number.Digits.size()) ? Number.Digits[static_cast<size_t>(i)] : '0';
  }
  return (Negative && !IsZero(Number) ? "-" : "") + whole + (Decimals > 0 ? "," : "") + decimals;
}

std::string ScientificText(const TDigits& Number, bool Negative, int Precision, bool Plus, int Least) {
  TDigits number = Number;
  number.Digits.resize(static_cast<size_t>(Precision), '0');
  const int exponent = IsZero(number) ? 0 : number.Point - 1;
  std::string digits = std::to_string(std::abs(exponent));
  if (static_cast<int>(digits.size()) < Least) digits.insert(0, static_cast<size_t>(Least) - digits.size(), '0');
  return (Negative && !IsZero(number) ? "-" : "") + number.Digits.substr(0, 1) + "," + number.Digits.substr(1) + "E" +
         (exponent < 0 ? "-"
          : Plus       ? "+"
                       : "") +
         digits;
}

std::string GeneralText(Extended Value, int Precision, int Least) {
  const TDigits number = RoundDigits(Value, Precision, -1);
  const bool negative = std::signbit(Value);
  const bool scientific = !IsZero(number) && (number.Point > Precision || number.Point < -4);
  if (!scientific) return Trimmed(FixedText(number, negative, Precision + 5, false));
  const std::string text = ScientificText(number, negative, Precision, false, Least);
  const size_t mark = text.find('E');
  return Trimmed(text.substr(0, mark)) + text.substr(mark);
}

// To Precision digits first, and what these say to so many decimals; in the general form where more than
// Most digits stand before the separator.
std::string FixedForm(Extended Value, int Precision, int Most, int Decimals, bool Thousands) {
  const TDigits number = RoundDigits(Value, Precision, -1);
  if (number.Point > Most) return GeneralText(Value, Precision, 0);
  return FixedText(Cut(number, number.Point + Decimals), std::signbit(Value), Decimals, Thousands);
}

std::string MaskedForm(Extended Value, int Decimals, bool Thousands) {
  return FixedForm(Value, 15, 18, Decimals, Thousands);
}

// Rounded only once.
std::string NearestForm(Extended Value, int Precision, int Decimals, bool Thousands) {
  const TDigits number = RoundDigits(Value, Precision, Decimals);
  if (number.Point > Precision) return GeneralText(Value, Precision, 0);
  return FixedText(number, std::signbit(Value), Decimals, Thousands);
}

Extended PowerOfTen(int Exponent) {
  char text[16];
  std::snprintf(text, sizeof text, "1e%d", Exponent);
  return std::strtold(text, nullptr);
}

Extended AnyMantissa(TRandom& Random, int Exponent) {
  return std::ldexp(static_cast<Extended>(Random.Bits() | uint64_t{1} << 63), Exponent - 63);
}

Extended Midpoint(TRandom& Random) {
  const Extended digits = static_cast<Extended>(Random.Range(0, 999999999999999) >> Random.Range(0, 49));
  const int places = static_cast<int>(Random.Range(1, 12));
  Extended result = 0;
  switch (Random.Range(0, 2)) {
    case 0: {  // a 5 behind the last digit, as a whole number of up to 19 digits
      const Extended power = PowerOfTen(static_cast<int>(Random.Range(0, 3)));
      result = (digits * 10 + 5) * power;
      break;
    }
    case 1:  // halves, quarters, eighths...
      result = digits + std::ldexp(static_cast<Extended>(Random.Bits() >> (64 - places) | 1), -places);
      break;
    default:  // a 5 behind the last decimal, mostly just beside the middle
      result = (digits * 10 + 5) / PowerOfTen(places);
  }
  if (Random.Range(0, 3) > 0) return result;
  return std::nextafter(result, Random.Range(0, 1) == 0 ? 0 : std::numeric_limits<Extended>::max());
}

Extended RandomNumber(TRandom& Random) {
  Extended result = 0;
  switch (const int64_t kind = Random.Range(0, 39); kind) {
    case 0:
      result = AnyMantissa(Random, static_cast<int>(Random.Range(-16445, 16383)));
      break;
    case 1:
      result = std::ldexp(static_cast<Extended>(1), static_cast<int>(Random.Range(-200, 200)));
      break;
    default:
      if (kind < 12) {
        const Extended digits = static_cast<Extended>(Random.Range(0, 999999999999999999) >> Random.Range(0, 59));
        result = digits / PowerOfTen(static_cast<int>(Random.Range(0, 20)));
        if (kind % 2 == 0) result = static_cast<double>(result);
      } else if (kind < 22) {
        result = AnyMantissa(Random, static_cast<int>(Random.Range(-80, 80)));
      } else if (kind < 30) {
        result = kind % 2 == 0 ? std::ldexp(static_cast<Extended>(1), static_cast<int>(Random.Range(0, 66)))
                               : PowerOfTen(static_cast<int>(Random.Range(0, 21)));
        result += static_cast<Extended>(Random.Range(-9, 9)) / (kind < 26 ? 1 : 10);
      } else {
        result = Midpoint(Random);
      }
  }
  return Random.Range(0, 1) == 0 ? result : -result;
}

void CompareNoNumbers(TComparison& To) {
  const Extended infinity = std::numeric_limits<Extended>::infinity();
  const Extended values[] = {std::numeric_limits<Extended>::quiet_NaN(), infinity, -infinity};
  const char16_t* const texts[] = {u"NAN", u"INF", u"-INF"};
  for (int i = 0; i < 3; ++i) {
    To.Case();
    To.Same("FloatToStr", FloatToStr(values[i]), std::u16string_view(texts[i]), values[i]);
    To.Same("FormatFloat", FormatFloat(u"0.00", values[i]), std::u16string_view(texts[i]), values[i]);
    for (TFloatFormat format : {ffGeneral, ffExponent, ffFixed, ffNumber}) {
      To.Same("FloatToStrF", FloatToStrF(values[i], format, 15, 2), std::u16string_view(texts[i]), values[i], format);
    }
  }
}

}  // namespace

void ComparePrinting(TReport& Report) {
  TComparison general(Report, "FloatToStr", "numbers"), fixed(Report, "FloatToStrF-fixed", "numbers");
  TComparison scientific(Report, "FloatToStrF-scientific", "numbers"), masked(Report, "FormatFloat", "numbers");
  TComparison whole(Report, "rounding", "numbers"), none(Report, "no-numbers", "numbers");
  TRandom random(15);
  CompareNoNumbers(none);
  for (int i = 0; i < 2000000; ++i) {
    const Extended value = i < 2 ? (i == 0 ? 0.0L : -0.0L) : RandomNumber(random);
    general.Case();
    general.Same("FloatToStr", FloatToStr(value), TWide(GeneralText(value, 15, 0)), value);

    const Extended amount = RandomNumber(random);
    const int precision = random.Range(0, 1) == 0 ? 15 : static_cast<int>(random.Range(2, 18));
    const int digits = static_cast<int>(random.Range(0, 18) >> random.Range(0, 3));
    const bool thousands = random.Range(0, 3) == 0;
    const std::string want = FixedForm(amount, precision, precision, digits, thousands);
    fixed.Case();
    if (want != NearestForm(amount, precision, digits, thousands)) fixed.Explain();
    fixed.Same(thousands ? "ffNumber" : "ffFixed",
               FloatToStrF(amount, thousands ? ffNumber : ffFixed, precision, digits), TWide(want), amount, precision,
               digits);

    const Extended number = RandomNumber(random);
    const int least = static_cast<int>(random.Range(0, 4));
    scientific.Case();
    if (random.Range(0, 1) == 0) {
      const TDigits rounded = RoundDigits(number, precision, -1);
      scientific.Same("ffExponent", FloatToStrF(number, ffExponent, precision, least),
                      TWide(ScientificText(rounded, std::signbit(number), precision, true, least)), number, precision,
                      least);
    } else {
      scientific.Same("ffGeneral", FloatToStrF(number, ffGeneral, precision, least),
                      TWide(GeneralText(number, precision, least)), number, precision, least);
    }

    const Extended sum = RandomNumber(random);
    masked.Case();
    masked.Same("0.00", FormatFloat(u"0.00", sum), TWide(MaskedForm(sum, 2, false)), sum);
    if (i % 4 == 0) masked.Same("#,##0.0", FormatFloat(u"#,##0.0", sum), TWide(MaskedForm(sum, 1, true)), sum);
    if (i % 4 == 1) masked.Same("0.###", FormatFloat(u"0.###", sum), TWide(Trimmed(MaskedForm(sum, 3, false))), sum);
    if (i % 4 == 2) masked.Same("0", FormatFloat(u"0", sum), TWide(MaskedForm(sum, 0, false)), sum);

    whole.Case();
    whole.Same("SimpleRoundTo", SimpleRoundTo(sum, 0), std::round(sum), sum);
    if (std::fabs(sum) >= 9e18L) continue;
    whole.Same("RoundTrade", RoundTrade(sum), int64_t{std::llround(sum)}, sum);
    whole.Same("RoundMath", RoundMath(sum), int64_t{std::llrint(sum)}, sum);
  }
}

}  // namespace vx::oracle
