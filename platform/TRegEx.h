// Regular expressions.
//
//   TRegEx                     an expression and whether a text has a place that it matches
//   TRegExOption               how it is read
//   ERegularExpressionError    an expression that is none
//
// Example:
//   vx::TRegEx street(u"^(haupt|neben)str", {vx::roIgnoreCase, vx::roCompiled});
//   street.IsMatch(u"Hauptstraße 7");                   // true
//   vx::TRegEx::Escape(u"1.5 (netto)");                 // u"1\\.5 \\(netto\\)"
//
// Expressions are Perl's, as PCRE2 reads them, for Unicode: \w takes letters of all languages, "." a character of
// two code units as one. A line ends at CR, LF or both. A surrogate without its other half counts as U+FFFD, in
// expressions and texts. \C is refused.
//
// No expression and no text holds a program up: a match is given up when it has taken a number of steps that grows
// with the text, or more than 64 MB, and then counts as none. GetWasStopped tells of it.
//
// Copies share the expression; any number of threads may match at once.
// Pitfalls: an expression that was stopped for seconds altogether is given up sooner on the texts that follow. An
// escaped text has its blanks and "#" as they are, which roIgnorePatternSpace takes away.
#pragma once

#include <memory>
#include <string_view>

#include "platform/Exceptions.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// The text is "Error in regular expression at offset %d: %s", with what PCRE2 says of it.
class ERegularExpressionError : public Exception {
 public:
  ERegularExpressionError(String Message, int Offset) : Exception(std::move(Message)), FOffset(Offset) {}
  // How many code units had been read when the fault was seen.
  int GetOffset() const noexcept { return FOffset; }

 private:
  int FOffset;
};

enum TRegExOption : uint8_t {
  roIgnoreCase,
  roMultiLine,           // ^ and $ at each line, not only at the ends of the text
  roExplicitCapture,     // only groups with a name capture
  roCompiled,            // into instructions of the processor, where it can be: slower to make, faster to match
  roSingleLine,          // "." takes the ends of lines, too
  roIgnorePatternSpace,  // blanks and what follows "#" in the expression count for nothing
  roNotEmpty             // a place of no characters is none
};
using TRegExOptions = Set<TRegExOption>;

class TRegEx {
 public:
  // No expression yet: nothing matches.
  TRegEx() noexcept = default;
  // Raises ERegularExpressionError for a wrong expression, and for one that is too large.
  explicit TRegEx(std::u16string_view Pattern, TRegExOptions Options = {});

  // Whether any place of Text matches. Allocates nothing unless Text has half a surrogate pair.
  bool IsMatch(std::u16string_view Text) const;
  static bool IsMatch(std::u16string_view Text, std::u16string_view Pattern, TRegExOptions Options = {}) {
    return TRegEx(Pattern, Options).IsMatch(Text);
  }
  // The expression that matches Text and nothing else: a "\" before each of \ . [ ] ( ) ? * + { } ^ $ |
  static String Escape(std::u16string_view Text);

  // As given; empty, and none, without an expression.
  String GetPattern() const;
  TRegExOptions GetOptions() const noexcept;
  // Whether a match of this expression was ever given up.
  bool GetWasStopped() const noexcept;

 private:
  struct TCode;
  std::shared_ptr<TCode> FCode;
};

}  // namespace vx
