// Whether a text matches the value of a text filter, or one of its values.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "controls/uVxFilter/detail/ManyTexts.h"
#include "platform/String.h"

namespace vx::detail {

// One value, folded and taken apart when it is set, so that a test neither parses nor allocates.
class TValueTest {
 public:
  enum TKind : uint8_t { vtAll, vtEquals, vtBegins, vtEnds, vtContains, vtPattern };

  // Strict: the whole text has to match Value, in which "*" stands for any characters. Otherwise a "!" at the
  // beginning or end binds the value to that end of the text, and it may stand anywhere from an end without one.
  TValueTest(std::u16string_view Value, bool Strict);

  TKind GetKind() const noexcept { return FKind; }
  // In capital letters, without wildcards at its ends.
  std::u16string_view GetFolded() const noexcept { return FFolded; }
  bool Matches(std::u16string_view Text) const;

 private:
  void SetPattern(std::u16string_view Pattern);
  void SetScanUnits();
  bool IsAt(const char16_t* Place) const noexcept;
  bool IsIn(std::u16string_view Text) const noexcept;

  TKind FKind = vtAll;
  std::u16string FFolded;
  String FPattern;  // of vtPattern, and of a long vtContains
  // The unit of the value that is scanned for, in each case that it has, and where it stands.
  size_t FScanAt = 0;
  char16_t FScan[3] = {};
};

// Any of several values.
class TTextTest {
 public:
  TTextTest() = default;
  TTextTest(std::span<const String> Values, bool Strict);
  TTextTest(TTextTest&&) = default;
  TTextTest& operator=(TTextTest&&) = default;
  bool Matches(std::u16string_view Text) const;

 private:
  bool IsOneOf(std::u16string_view Text) const;

  // Takes the values of a kind out of FValues.
  std::vector<TValueTest> TakeKind(TValueTest::TKind Kind);

  std::vector<TValueTest> FValues;
  TManyTexts FContains;                             // of many values, those that a text has to contain
  std::unordered_set<std::u16string_view> FEquals;  // and those that it has to equal
  std::vector<std::u16string> FEqualTexts;          // their characters
};

// The expression by which a text matches any of Values. It binds nothing to an end of the text: what has to equal a
// value or to begin or end with it need only contain it.
String BuildExpression(std::span<const String> Values, bool Strict);

}  // namespace vx::detail
