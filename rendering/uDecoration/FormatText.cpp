#include <cmath>

#include "core/uVxFunctions.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "rendering/uDecoration/TDecorator.h"
#include "rendering/uDecoration/detail/Fractions.h"
#include "rendering/uDecoration/detail/TextCells.h"

namespace vx {
namespace {

// A date and an amount of hours that no table holds.
constexpr TDateTime kMissing = -10000.0;
constexpr std::u16string_view kAsHours = u"q";

bool BeginsWithDigit(std::u16string_view Text) noexcept { return !Text.empty() && IsDigit(Text.front()); }

String BooleanText(std::u16string_view Value, std::u16string_view Format) {
  std::u16string_view words[2];
  size_t count = 0;
  detail::ForEachTextLine(Format, [&](std::u16string_view line) {
    if (count < 2) words[count++] = line;
  });
  const bool isTrue = Value == u"1";
  if (count < 2) return isTrue ? u"ja" : u"nein";
  return words[isTrue];
}

String StatusText(std::u16string_view Value) {
  constexpr std::u16string_view kWords[] = {u"aktiv", u"inaktiv", u"gelöscht"};
  if (Value.size() != 1 || Value[0] < u'0' || Value[0] > u'2') return {};
  return kWords[Value[0] - u'0'];
}

String HourText(TDateTime Value) {
  if (Value == 0) return {};
  const TDateTime amount = std::fabs(Value);
  int hour, minute, second, msec;
  DecodeTime(amount, hour, minute, second, msec);
  constexpr double kDaysMax = 0x1p52;
  const auto days = amount < kDaysMax ? static_cast<uint64_t>(amount) : 0;
  const auto hours = static_cast<uint16_t>(days * 24 + static_cast<unsigned>(hour));
  TTextBuffer text;
  if (Value < 0) text.Add(u'-');
  if (hours != 0) text.AddNumber(hours);
  text.Add(u':');
  text.AddNumber(static_cast<unsigned>(minute), 2);
  return text.ToString();
}

// The smallest whole number of 1024 that holds Value.
String KilobytesText(Extended Value) {
  const Extended count = std::ceil(Value / 1024);
  const bool isInt64 = std::fabs(count) < 0x1p63L;
  return (isInt64 ? IntToStr(static_cast<int64_t>(count)) : FormatFloat(u"0", count)) + u" KB";
}

// The number without the separator before its two decimals.
String FractionText(std::u16string_view Mask, Extended Value) {
  String text = FormatFloat(Mask, Value);
  const int size = text.size();
  if (size < 3) return text;
  char16_t* units = text.MutableData();
  units[size - 3] = units[size - 2];
  units[size - 2] = units[size - 1];
  return text.Slice(0, size - 1);
}

bool ReadNumber(std::u16string_view Text, Extended& Value) noexcept {
  static constexpr TCharSet kFirst = u"+-0123456789", kOnce = u"+,-", kOthers = u",0123456789";
  if (!StrCharset(Text, kFirst, kOnce, kOthers)) return false;
  bool isNumber;
  Value = StrToExtDef(Text, 0, isNumber);
  return isNumber;
}

String NumberText(const String& Text, TVxFieldType FieldType, std::u16string_view Mask, bool& IsFraction) {
  Extended value;
  if (!ReadNumber(Text, value)) return Text;
  IsFraction = FieldType == vftFraction && detail::IsFraction(value);
  if (IsFraction) return FractionText(u"###,###,###,###.00", value);  // whatever the mask says, that is wanted
  if (SameAscii(TrimView(Mask), u"KB")) return KilobytesText(value);
  return FormatFloat(Mask, value);
}

String CurrencyText(const String& Text, bool WithSign) {
  Currency value;
  if (!TryStrToCurr(Text, value)) return Text;
  TCurrToStrOptions options{ctsThousendDivider};
  if (WithSign) options.Include(ctsSign);
  return VxCurrToStr(value, options, 2);
}

String DateText(const String& Text, std::u16string_view Mask) {
  const TDateTime date = BeginsWithDigit(Text) ? StrToDateDef(Text, kMissing) : kMissing;
  return date == kMissing ? Text : FormatDateTime(Mask, date);
}

String TimeText(const String& Text, std::u16string_view Mask) {
  const TDateTime time = BeginsWithDigit(Text) ? StrToTimeDef(Text, kMissing) : kMissing;
  if (time == kMissing || time >= 1) return Text;
  return Mask == kAsHours ? HourText(time) : FormatDateTime(Mask, time);
}

String DateTimeText(const String& Text, std::u16string_view Mask) {
  const TDateTime moment = StrToDateTimeDef(Text, kMissing);
  return moment == kMissing ? Text : FormatDateTime(Mask, moment);
}

String HourAmountText(const String& Text, std::u16string_view Mask) {
  TDateTime hours;
  return Mask == kAsHours && VxStrToHour(Text, hours) ? HourText(hours) : Text;
}

// The texts that ForEach hands over, with Glue between them. Allocates once.
template <typename F>
String Joined(F ForEach, std::u16string_view Glue) {
  size_t size = 0, count = 0;
  ForEach([&](std::u16string_view text) {
    size += text.size();
    ++count;
  });
  if (count > 0) size += (count - 1) * Glue.size();
  return String::Build(size, [&](char16_t* target) {
    ForEach([&](std::u16string_view text) {
      target = std::copy(text.begin(), text.end(), target);
      if (--count > 0) target = std::copy(Glue.begin(), Glue.end(), target);
    });
  });
}

template <typename F>
String LinesOf(F ForEach, bool SingleLine) {
  if (!SingleLine) return Joined(ForEach, u"\r\n");
  String first;
  bool isFirst = true;
  ForEach([&](std::u16string_view text) {
    if (isFirst) first = text;
    isFirst = false;
  });
  return first;
}

String ImageNames(std::u16string_view Indices, const TVxImageList& Images, bool SingleLine) {
  const auto forEach = [&](auto Take) {
    detail::ForEachCell(Indices, [&](std::u16string_view index) { Take(Images.GetItems(StrToIntDef(index, -1))); });
  };
  return Joined(forEach, SingleLine ? u", " : u"\r\n");
}

// The whole number at or below Value, which is below 2^63: a rounding and a look are faster than a conversion that
// cuts.
int64_t CutDown(Extended Value) noexcept {
  const int64_t nearest = std::llrint(Value);
  return static_cast<Extended>(nearest) > Value ? nearest - 1 : nearest;
}

}  // namespace

bool detail::IsFraction(Extended Value) noexcept {
  constexpr Extended kLargest = 0x1p63L - 1;  // what is larger has no decimals to be shown
  if (!(Value > 0 && Value <= kLargest)) return false;
  switch (CutDown((Value - static_cast<Extended>(CutDown(Value))) * 100)) {
    case 20:
    case 25:
    case 33:
    case 40:
    case 50:
    case 60:
    case 67:
    case 75:
    case 80:
      return true;
    default:
      return false;
  }
}

bool detail::ReadFraction(std::u16string_view Text, Extended& Value) noexcept {
  static constexpr TCharSet kFirst = u"+,-0123456789";
  if (Text.empty() || !kFirst.Has(Text.front()) || !IsDigit(Text.back())) return false;
  bool isNumber;
  Value = StrToExtDef(Text, 0, isNumber);
  return isNumber && IsFraction(Value);
}

String TDecorator::FormatText(const String& aValue, TVxFieldType aFieldType, std::u16string_view aFormat,
                              bool& aFraction) {
  aFraction = false;
  if (aFieldType == vftImage || aFieldType == vftToggle || aFieldType == vftButton) return {};
  if (aFormat.empty() && aFieldType == vftFraction) {
    Extended value;
    aFraction = detail::ReadFraction(aValue, value);
    return aFraction ? FractionText(u".00", value) : aValue;
  }
  if (aFormat.empty() && aFieldType != vftCurrency) return aValue;
  switch (aFieldType) {
    case vftUnknown:
    case vftShortString:
    case vftString:
    case vftCommatext:
      return aValue;
    case vftBoolean:
      return BooleanText(aValue, aFormat);
    case vftInteger:
    case vftFloat:
    case vftFraction:
      return NumberText(aValue, aFieldType, aFormat, aFraction);
    case vftDate:
      return DateText(aValue, aFormat);
    case vftTime:
      return TimeText(aValue, aFormat);
    case vftDateTime:
      return DateTimeText(aValue, aFormat);
    case vftStatus:
      return StatusText(aValue);
    case vftHour:
      return HourAmountText(aValue, aFormat);
    case vftCurrency:
      return CurrencyText(aValue, !aFormat.empty());
    default:
      return {};
  }
}

String TDecorator::GetText(const String& aValue, const TDecoration& aDecoration, bool aSingleLine) {
  const auto cells = [&](auto Take) { detail::ForEachCell(aValue, Take); };
  const auto lines = [&](auto Take) { detail::ForEachTextLine(aValue, Take); };
  switch (aDecoration.GetFieldType()) {
    case vftImage:
    case vftToggle:
    case vftButton:
      if (const auto* images = dynamic_cast<const TVxImageList*>(aDecoration.GetImageList())) {
        return ImageNames(aValue, *images, aSingleLine);
      }
      break;
    case vftCommatext:
      return LinesOf(cells, aSingleLine);
    case vftTinyHTML:
      return LinesOf(lines, aSingleLine);
    default:
      break;
  }
  bool isFraction;
  return FormatText(aValue, aDecoration.GetFieldType(), aDecoration.GetFormatString(), isFraction);
}

}  // namespace vx
