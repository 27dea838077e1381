#include "platform/Format.h"

#include <algorithm>
#include <cmath>

#include "platform/Exceptions.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"

namespace vx {

namespace {

constexpr int kNone = -1;
constexpr int kMaxNumber = 1000000;  // of a width, a precision or an index
constexpr int kGeneralPrecision = 15;

// A place of a pattern.
struct TPlace {
  bool IsLeftBound = false;
  int Width = kNone;
  int Precision = kNone;
  char16_t Kind = 0;  // in lower case; 0 for a pattern that ends before
};

// Makes one text from one pattern.
class TFormatter {
 public:
  TFormatter(std::u16string_view Pattern, std::initializer_list<TFormatArg> Values,
             const TFormatSettings& Settings) noexcept
      : FPattern(Pattern), FValues(Values.begin()), FCount(static_cast<int>(Values.size())), FSettings(Settings) {}

  String Make() {
    String result;
    while (FAt < FPattern.size()) {
      const size_t sign = std::min(FPattern.find(u'%', FAt), FPattern.size());
      result += FPattern.substr(FAt, sign - FAt);
      FAt = sign + 1;
      if (sign == FPattern.size()) break;
      if (Unit() == u'%') {
        result += u'%';
        ++FAt;
      } else {
        AddPlace(result, ReadPlace());
      }
    }
    return result;
  }

 private:
  char16_t Unit() const noexcept { return FAt < FPattern.size() ? FPattern[FAt] : u'\0'; }

  TPlace ReadPlace() {
    TPlace place;
    int number = kNone;
    // A number may be an index, which is seen behind it.
    if (Unit() != u'-') number = ReadNumber();
    if (Unit() == u':') {
      FNext = std::max(number, 0);
      number = kNone;
      ++FAt;
    }
    if (number == kNone && Unit() == u'-') {
      place.IsLeftBound = true;
      ++FAt;
    }
    place.Width = number != kNone ? number : ReadNumber();
    if (Unit() == u'.') {
      ++FAt;
      place.Precision = std::max(ReadNumber(), 0);
    }
    const char16_t kind = Unit();
    place.Kind = kind >= u'A' && kind <= u'Z' ? static_cast<char16_t>(kind + 32) : kind;
    ++FAt;
    return place;
  }

  int ReadNumber() {
    if (Unit() == u'*') {
      ++FAt;
      const auto* value = std::get_if<int64_t>(&Take().Value);
      if (value == nullptr) Fail();
      return static_cast<int>(std::clamp<int64_t>(*value, 0, kMaxNumber));
    }
    int number = kNone;
    for (; Unit() >= u'0' && Unit() <= u'9'; ++FAt) {
      number = std::max(number, 0) * 10 + (Unit() - u'0');
      if (number > kMaxNumber) Fail();
    }
    return number;
  }

  void AddPlace(String& Result, const TPlace& Place) {
    const String text = TextOf(Place);
    const int blanks = std::max(Place.Width - text.size(), 0);
    if (!Place.IsLeftBound) Result += String(blanks, u' ');
    Result += text;
    if (Place.IsLeftBound) Result += String(blanks, u' ');
  }

  String TextOf(const TPlace& Place) {
    switch (Place.Kind) {
      case u's': {
        const auto* text = std::get_if<std::u16string_view>(&Take().Value);
        if (text == nullptr) Fail();
        return Place.Precision == kNone ? *text : text->substr(0, static_cast<size_t>(Place.Precision));
      }
      case u'd':
      case u'u':
      case u'x':
        return WholeNumber(Place);
      case u'f':
        return Real(ffFixed, Place);
      case u'n':
        return Real(ffNumber, Place);
      case u'm':
        return Real(ffCurrency, Place);
      case u'e':
        return Real(ffExponent, Place);
      case u'g':
        return Real(ffGeneral, Place);
      default:
        Fail();
    }
  }

  String WholeNumber(const TPlace& Place) {
    const TFormatArg& argument = Take();
    const auto* value = std::get_if<int64_t>(&argument.Value);
    if (value == nullptr) Fail();
    const bool isNegative = *value < 0 && Place.Kind == u'd';
    uint64_t rest = isNegative ? 0 - static_cast<uint64_t>(*value) : static_cast<uint64_t>(*value);
    if (argument.Bits == 32 && !isNegative) rest &= UINT32_MAX;
    const unsigned base = Place.Kind == u'x' ? 16 : 10;
    char16_t digits[20];
    int first = 20;
    do {
      digits[--first] = u"0123456789ABCDEF"[rest % base];
      rest /= base;
    } while (rest != 0);
    const int zeros = std::max(Place.Precision - (20 - first), 0);
    return Concat({isNegative ? u"-" : u"", String(zeros, u'0'), {digits + first, static_cast<size_t>(20 - first)}});
  }

  // A whole number is none of these kinds: a place says what its value is.
  String Real(TFloatFormat Form, const TPlace& Place) {
    const bool isFixed = Form == ffFixed || Form == ffNumber || Form == ffCurrency;
    const int usual = Form == ffCurrency ? FSettings.CurrencyDecimals : 2;
    const int digits = !isFixed ? 3 : Place.Precision == kNone ? usual : Place.Precision;
    const int precision = isFixed || Place.Precision == kNone ? kGeneralPrecision : Place.Precision;
    const TFormatArg& argument = Take();
    if (const auto* amount = std::get_if<Currency>(&argument.Value)) {
      return isFixed ? CurrToStrF(*amount, Form, digits, FSettings)
                     : FloatToStrF(amount->ToExtended(), Form, precision, digits, FSettings);
    }
    const auto* value = std::get_if<Extended>(&argument.Value);
    if (value == nullptr) Fail();
    return FloatToStrF(*value, Form, isFixed ? 18 : precision, Form == ffGeneral ? 0 : digits, FSettings);
  }

  const TFormatArg& Take() {
    if (FNext >= FCount) throw EConvertError(Concat({u"No argument for format '", FPattern, u"'"}));
    return FValues[FNext++];
  }

  [[noreturn]] void Fail() const {
    throw EConvertError(Concat({u"Format '", FPattern, u"' invalid or incompatible with argument"}));
  }

  std::u16string_view FPattern;
  const TFormatArg* FValues;
  int FCount;
  const TFormatSettings& FSettings;
  size_t FAt = 0;
  int FNext = 0;  // value of the next place
};

}  // namespace

String Format(std::u16string_view Pattern, std::initializer_list<TFormatArg> Values, const TFormatSettings& Settings) {
  return TFormatter(Pattern, Values, Settings).Make();
}

String Format(std::u16string_view Pattern, std::initializer_list<TFormatArg> Values) {
  return Format(Pattern, Values, GetFormatSettings());
}

}  // namespace vx
