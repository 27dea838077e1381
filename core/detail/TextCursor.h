// Walks through the text of a value and keeps the first fault. Internal to the strict readers.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "core/TextFault.h"
#include "platform/Text.h"

namespace vx::detail {

// The hyphen, the minus of mathematics and the two dashes that programs put in its place.
constexpr bool IsDash(char16_t Unit) noexcept {
  return Unit == u'-' || Unit == u'\u2212' || Unit == u'\u2013' || Unit == u'\u2014';
}
// Blanks, also those at which no line may break.
constexpr bool IsBlank(char16_t Unit) noexcept {
  return Unit <= u' ' || Unit == u'\u00A0' || Unit == u'\u2009' || Unit == u'\u202F';
}

class TTextCursor {
 public:
  // Stands behind the blanks in front; those at the end are no part of the text.
  TTextCursor(std::u16string_view Text, TTextFault& Fault) noexcept : FText(Text), FFault(Fault) {
    FFault = {};
    while (!FText.empty() && IsBlank(FText.back())) FText.remove_suffix(1);
    SkipBlanks();
  }
  bool IsAtEnd() const noexcept { return FPos == FText.size(); }
  // The unit so many places ahead; 0 behind the end.
  char16_t Peek(size_t Ahead = 0) const noexcept { return Ahead < FText.size() - FPos ? FText[FPos + Ahead] : u'\0'; }
  bool IsAtDigit(size_t Ahead = 0) const noexcept { return IsDigit(Peek(Ahead)); }
  void Skip(size_t Count = 1) noexcept { FPos += Count; }
  void SkipBlanks() noexcept {
    while (!IsAtEnd() && IsBlank(FText[FPos])) ++FPos;
  }
  bool Take(char16_t Unit) noexcept {
    if (IsAtEnd() || FText[FPos] != Unit) return false;
    ++FPos;
    return true;
  }
  bool TakeDash() noexcept {
    if (IsAtEnd() || !IsDash(FText[FPos])) return false;
    ++FPos;
    return true;
  }
  // Takes Word, which stands in small letters, in any case.
  bool TakeWord(std::u16string_view Word) noexcept {
    if (FText.size() - FPos < Word.size() || !SameAscii(FText.substr(FPos, Word.size()), Word)) return false;
    FPos += Word.size();
    return true;
  }
  // A sign or none; true for one that makes the value negative.
  bool TakeSign() noexcept {
    if (TakeDash()) return true;
    Take(u'+');
    return false;
  }
  // From here on the number stands that may turn out too large.
  void BeginNumber() noexcept { FNumber = FPos; }
  // Takes all digits, up to Most of them, behind those of Value and returns how many there are. More than fits 64
  // bits is a fault.
  int TakeDigits(uint64_t& Value, int Most = INT32_MAX) noexcept {
    int count = 0;
    for (; count < Most && IsAtDigit(); ++count, ++FPos) {
      const unsigned digit = FText[FPos] - unsigned{u'0'};
      if (Value > (UINT64_MAX - digit) / 10) {
        Fail(tfTooLarge);
      } else {
        Value = Value * 10 + digit;
      }
    }
    return count;
  }

  // The first fault stands; always false.
  bool Fail(TTextFaultKind Kind) noexcept {
    if (HasFault()) return false;
    FFault = {Kind, Kind == tfEmpty ? 0 : static_cast<int>(Kind == tfTooLarge ? FNumber : FPos) + 1};
    return false;
  }
  // The same at another place.
  bool FailAt(size_t Place, TTextFaultKind Kind) noexcept {
    GoTo(Place);
    return Fail(Kind);
  }
  // A place to come back to.
  size_t Here() const noexcept { return FPos; }
  void GoTo(size_t Place) noexcept { FPos = Place; }
  // For a text that should go on in another way.
  bool FailHere() noexcept { return Fail(IsAtEnd() ? tfIncomplete : tfUnexpected); }
  bool HasFault() const noexcept { return FFault.Kind != tfNone; }
  // Whether all was read without a fault.
  bool Ends() noexcept { return HasFault() || IsAtEnd() ? !HasFault() : Fail(tfUnexpected); }

 private:
  std::u16string_view FText;
  size_t FPos = 0, FNumber = 0;
  TTextFault& FFault;
};

}  // namespace vx::detail
