// Walks through the text of a value and keeps the first fault. Internal to the strict readers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/TextFault.h"
#include "platform/Text.h"

namespace vx::detail {

// The hyphen, the minus of mathematics and the two dashes that programs put in its place.
constexpr bool IsDash(char16_t Unit) noexcept {
  return Unit == u'-' || (Unit >= u'\u2013' && (Unit == u'\u2212' || Unit <= u'\u2014'));
}
// Blanks, also those at which no line may break.
constexpr bool IsBlank(char16_t Unit) noexcept {
  return Unit <= u' ' || (Unit >= u'\u00A0' && (Unit == u'\u00A0' || Unit == u'\u2009' || Unit == u'\u202F'));
}

class TTextCursor {
 public:
  // Stands behind the blanks in front; those at the end are no part of the text.
  TTextCursor(std::u16string_view Text, TTextFault& Fault) noexcept
      : FBegin(Text.data()), FAt(FBegin), FEnd(FBegin + Text.size()), FNumber(FBegin), FFault(Fault) {
    FFault = {};
    while (FEnd != FBegin && IsBlank(FEnd[-1])) --FEnd;
    SkipBlanks();
  }
  bool IsAtEnd() const noexcept { return FAt == FEnd; }
  // The unit so many places ahead; 0 behind the end.
  char16_t Peek(int Ahead = 0) const noexcept { return Ahead < FEnd - FAt ? FAt[Ahead] : u'\0'; }
  bool IsAtDigit(int Ahead = 0) const noexcept { return IsDigit(Peek(Ahead)); }
  void Skip(int Count = 1) noexcept { FAt += Count; }
  void SkipBlanks() noexcept {
    while (!IsAtEnd() && IsBlank(*FAt)) ++FAt;
  }
  bool Take(char16_t Unit) noexcept {
    if (IsAtEnd() || *FAt != Unit) return false;
    ++FAt;
    return true;
  }
  bool TakeDash() noexcept {
    if (IsAtEnd() || !IsDash(*FAt)) return false;
    ++FAt;
    return true;
  }
  // Takes Word, which stands in small letters, in any case.
  bool TakeWord(std::u16string_view Word) noexcept {
    const auto size = static_cast<std::ptrdiff_t>(Word.size());
    if (FEnd - FAt < size || !SameAscii({FAt, Word.size()}, Word)) return false;
    FAt += size;
    return true;
  }
  // A sign or none; true for one that makes the value negative.
  bool TakeSign() noexcept {
    if (TakeDash()) return true;
    Take(u'+');
    return false;
  }
  // From here on the number stands that may turn out too large.
  void BeginNumber() noexcept { FNumber = FAt; }
  // Takes all digits, up to Most of them, behind those of Value and returns how many there are. More than fits 64
  // bits is a fault.
  int TakeDigits(uint64_t& Value, int Most = INT32_MAX) noexcept {
    const char16_t* const first = FAt;
    const char16_t* const end = FEnd - FAt > Most ? FAt + Most : FEnd;
    uint64_t value = Value;
    for (; FAt != end && IsDigit(*FAt); ++FAt) {
      const unsigned digit = *FAt - unsigned{u'0'};
      if (value > (UINT64_MAX - 9) / 10 && value > (UINT64_MAX - digit) / 10) [[unlikely]] {
        Fail(tfTooLarge);
      } else {
        value = value * 10 + digit;
      }
    }
    Value = value;
    return static_cast<int>(FAt - first);
  }

  // Takes Count digits and returns their number; -1, and nothing is taken, if there are not so many.
  template <int Count>
  int TakeExactly() noexcept {
    if (FEnd - FAt < Count) return -1;
    unsigned value = 0;
    for (int i = 0; i < Count; ++i) {
      if (!IsDigit(FAt[i])) return -1;
      value = value * 10 + FAt[i] - u'0';
    }
    FAt += Count;
    return static_cast<int>(value);
  }

  // The first fault stands; always false.
  bool Fail(TTextFaultKind Kind) noexcept {
    if (HasFault()) return false;
    FFault = {Kind, Kind == tfEmpty ? 0 : static_cast<int>((Kind == tfTooLarge ? FNumber : FAt) - FBegin) + 1};
    return false;
  }
  // The same at another place.
  bool FailAt(const char16_t* Place, TTextFaultKind Kind) noexcept {
    GoTo(Place);
    return Fail(Kind);
  }
  // A place to come back to.
  const char16_t* Here() const noexcept { return FAt; }
  void GoTo(const char16_t* Place) noexcept { FAt = Place; }
  // For a text that should go on in another way.
  bool FailHere() noexcept { return Fail(IsAtEnd() ? tfIncomplete : tfUnexpected); }
  bool HasFault() const noexcept { return FFault.Kind != tfNone; }
  // Whether all was read without a fault.
  bool Ends() noexcept { return HasFault() || IsAtEnd() ? !HasFault() : Fail(tfUnexpected); }

 private:
  const char16_t* FBegin;
  const char16_t* FAt;
  const char16_t* FEnd;
  const char16_t* FNumber;
  TTextFault& FFault;
};

}  // namespace vx::detail
