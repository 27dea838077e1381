#include "core/MoneyText.h"

#include "core/detail/TextCursor.h"
#include "platform/Exceptions.h"
#include "platform/TextBuffer.h"
#include "platform/detail/Wide.h"

namespace vx {

namespace {

using detail::IsBlank;
using detail::IsDash;
using detail::TTextCursor;

constexpr int kPlaces = 4;  // of a unit

constexpr bool IsApostrophe(char16_t Unit) noexcept { return Unit == u'\'' || Unit == u'\u2019'; }

class TMoneyReader {
 public:
  TMoneyReader(std::u16string_view Text, TTextFault& Fault, TMoneyReadOptions Options) noexcept
      : FCursor(Text, Fault),
        FPoint(Options.Has(mroDecimalPoint) ? u'.' : u','),
        FGroup(Options.Has(mroDecimalPoint) ? u',' : u'.') {}

  bool Read(Currency& Value) noexcept {
    if (FCursor.IsAtEnd()) return FCursor.Fail(tfEmpty);
    if (!FCursor.IsAtDigit()) ReadFront();
    if (!ReadNumber()) return false;
    if (!FCursor.IsAtEnd()) ReadBack();
    if (!FCursor.Ends()) return false;
    const detail::TWide size = detail::Multiplied(FDigits, detail::PowerOfTen(kPlaces - FDecimals));
    return (size.High == 0 && detail::FromSize(size.Low, FIsNegative, Value.Units)) || FCursor.Fail(tfTooLarge);
  }

 private:
  // A sign and the currency, each or none, in either order.
  void ReadFront() noexcept {
    TakeSign();
    FCursor.SkipBlanks();
    TakeCurrency();
    FCursor.SkipBlanks();
    if (!FHasSign && FHasCurrency) TakeSign();
    FCursor.SkipBlanks();
  }
  // A minus and the currency, each or none.
  void ReadBack() noexcept {
    if (!FHasSign && FDecimals >= 2 && FCursor.TakeDash()) FIsNegative = true;
    FCursor.SkipBlanks();
    if (!FHasCurrency) TakeCurrency();
    FCursor.SkipBlanks();
  }
  void TakeSign() noexcept {
    FHasSign = IsDash(FCursor.Peek()) || FCursor.Peek() == u'+';
    FIsNegative = FCursor.TakeSign();
  }
  void TakeCurrency() noexcept {
    FHasCurrency = FCursor.Take(u'€') || FCursor.TakeWord(u"euro") || FCursor.TakeWord(u"eur");
  }

  bool ReadNumber() noexcept {
    FCursor.BeginNumber();
    const bool startsWithZero = FCursor.Peek() == u'0';
    const int count = FCursor.TakeDigits(FDigits);
    // A sign right before the separator may as well be a dash in the place of the whole units.
    if (count == 0 && (FHasSign || FCursor.Peek() != FPoint)) return FCursor.FailHere();
    if (count > 0 && !ReadGroups(count <= 3 && !startsWithZero)) return false;
    if (FCursor.HasFault()) return false;
    if (FCursor.Peek() == FPoint || (FCursor.Peek() == u'.' && IsApostrophe(FSeparator))) {
      FCursor.Skip();
      return ReadDecimals(count > 0);
    }
    if (FCursor.Peek() == FGroup && IsDash(FCursor.Peek(1))) {
      FCursor.Skip();
      return ReadDecimals(true);
    }
    return true;
  }

  // Groups of three digits, each behind the same separator.
  bool ReadGroups(bool MayFollow) noexcept {
    while (IsGroupSeparator(FCursor.Peek()) && FCursor.IsAtDigit(1)) {
      FSeparator = FCursor.Peek();
      if (!MayFollow || !FCursor.IsAtDigit(2) || !FCursor.IsAtDigit(3) || FCursor.IsAtDigit(4))
        return FCursor.Fail(tfGroup);
      FCursor.Skip();
      FCursor.TakeDigits(FDigits, 3);
    }
    return true;
  }
  bool IsGroupSeparator(char16_t Unit) const noexcept {
    if (FSeparator != 0) return Unit == FSeparator && Unit != 0;
    return Unit == FGroup || IsApostrophe(Unit) || (IsBlank(Unit) && Unit != 0);
  }

  // Behind the separator: one to four digits or, where there are whole units, one or two dashes.
  bool ReadDecimals(bool HasWhole) noexcept {
    FDecimals = FCursor.TakeDigits(FDigits, kPlaces);
    if (FDecimals > 0) return !FCursor.IsAtDigit() || FCursor.Fail(tfDecimals);
    if (!HasWhole || !FCursor.TakeDash()) return FCursor.FailHere();
    FCursor.TakeDash();
    return true;
  }

  TTextCursor FCursor;
  char16_t FPoint, FGroup;
  char16_t FSeparator = 0;  // that parts the groups of this text
  bool FHasSign = false, FIsNegative = false, FHasCurrency = false;
  uint64_t FDigits = 0;
  int FDecimals = 0;
};

// The usual form, up to 14 units of digits and perhaps two decimals, is read at once; false for all else, which
// TMoneyReader looks at part by part.
bool ReadUsual(std::u16string_view Text, char16_t Point, Currency& Value) noexcept {
  if (Text.size() > 14) return false;
  int64_t number = 0;
  size_t at = 0;
  auto takeDigits = [&] {
    const size_t first = at;
    for (; at < Text.size() && IsDigit(Text[at]); ++at) number = number * 10 + (Text[at] - u'0');
    return at - first;
  };
  if (takeDigits() == 0) return false;
  const bool isWhole = at == Text.size();
  if (!isWhole && (Text[at++] != Point || takeDigits() != 2 || at != Text.size())) return false;
  Value = Currency::FromUnits(number * (isWhole ? 10000 : 100));
  return true;
}

}  // namespace

bool TryStrToMoney(std::u16string_view Text, Currency& Value, TTextFault& Fault, TMoneyReadOptions Options) noexcept {
  if (ReadUsual(Text, Options.Has(mroDecimalPoint) ? u'.' : u',', Value)) [[likely]] {
    Fault = {};
    return true;
  }
  return TMoneyReader(Text, Fault, Options).Read(Value);
}

bool TryStrToMoney(std::u16string_view Text, Currency& Value, TMoneyReadOptions Options) noexcept {
  TTextFault fault;
  return TryStrToMoney(Text, Value, fault, Options);
}

Currency StrToMoney(std::u16string_view Text, TMoneyReadOptions Options) {
  Currency result;
  TTextFault fault;
  if (!TryStrToMoney(Text, result, fault, Options))
    throw EConvertError(Concat({u"'", Text, u"' ist kein Betrag: ", fault.GetText()}));
  return result;
}

String MoneyToStr(Currency Value, char16_t DecimalSeparator) {
  const uint64_t units = Value.Units < 0 ? 0 - static_cast<uint64_t>(Value.Units) : static_cast<uint64_t>(Value.Units);
  TTextBuffer text;
  if (Value.Units < 0) text.Add(u'-');
  text.AddNumber(units / 10000);
  text.Add(DecimalSeparator);
  if (units % 100 == 0) {
    text.AddNumber(units % 10000 / 100, 2);
  } else {
    text.AddNumber(units % 10000, 4);
  }
  return text.ToString();
}

}  // namespace vx
