#include "platform/CommandLine.h"

#include <algorithm>

namespace vx {

namespace {

constexpr bool IsBlank(char16_t Unit) noexcept { return Unit == u' ' || Unit == u'\t'; }

// How many backslashes stand at At.
size_t CountBackslashes(std::u16string_view Text, size_t At) noexcept {
  return std::min(Text.find_first_not_of(u'\\', At), Text.size()) - At;
}

// Reads the argument at At and moves At behind it.
String ReadArgument(std::u16string_view Text, size_t& At) {
  String argument;
  bool quoted = false;
  while (At < Text.size() && (quoted || !IsBlank(Text[At]))) {
    const size_t backslashes = CountBackslashes(Text, At);
    At += backslashes;
    if (At == Text.size() || Text[At] != u'"') {
      argument += Text.substr(At - backslashes, backslashes);
      if (backslashes == 0) argument += Text[At++];
      continue;
    }
    argument += Text.substr(At - backslashes, backslashes / 2);
    ++At;
    if (backslashes % 2 == 1) {
      argument += u'"';
    } else if (quoted && At < Text.size() && Text[At] == u'"') {
      argument += Text[At++];
    } else {
      quoted = !quoted;
    }
  }
  return argument;
}

}  // namespace

std::vector<String> SplitArguments(std::u16string_view Text) {
  std::vector<String> result;
  for (size_t at = 0;;) {
    while (at < Text.size() && IsBlank(Text[at])) ++at;
    if (at == Text.size()) return result;
    result.push_back(ReadArgument(Text, at));
  }
}

String QuoteArgument(const String& Argument) {
  const std::u16string_view text = Argument;
  if (!text.empty() && text.find_first_of(u" \t\"") == text.npos) return Argument;
  String result = u"\"";
  for (size_t at = 0; at <= text.size(); ++at) {
    const size_t backslashes = CountBackslashes(text, at);
    at += backslashes;
    result += text.substr(at - backslashes, backslashes);
    // Those before a double quote, be it the closing one, are doubled.
    if (at == text.size() || text[at] == u'"') result += text.substr(at - backslashes, backslashes);
    if (at == text.size()) break;
    if (text[at] == u'"') result += u'\\';
    result += text[at];
  }
  result += u'"';
  return result;
}

}  // namespace vx
