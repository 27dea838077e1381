// The quoting primitives: a quote, then a text.
#include <algorithm>

#include "core/uVxFunctions.h"
#include "fuzz/support/Input.h"

namespace vx::fuzz {
namespace {

String PlainDequoted(std::u16string_view Text, char16_t Quote, int& Consumed) {
  String result;
  size_t pos = 0;
  if (!Text.empty() && Text[0] == Quote) {
    for (pos = 1; pos < Text.size();) {
      char16_t unit = Text[pos++];
      if (unit == Quote && (pos == Text.size() || Text[pos] != Quote)) break;
      if (unit == Quote) ++pos;
      result += unit;
    }
  }
  Consumed = static_cast<int>(pos);
  return result;
}

// Pairs are found from the end.
String PlainQuotedToStr(std::u16string_view Text) {
  if (Text.empty() || Text[0] != u'"') return Text;
  std::u16string result(Text.substr(1));
  if (!result.empty()) result.pop_back();
  for (size_t i = result.size(); i-- > 1;) {
    if (result[i] != u'"' || result[i - 1] != u'"') continue;
    result.erase(i, 1);
    --i;
  }
  return String(std::u16string_view(result));
}

}  // namespace

FUZZ(Input) {
  const char16_t quote = Input.Unit();
  const String text = Input.Text();
  const String quoted = QuotedStr(text, quote);
  Check(quoted.size() == text.size() + 2 + std::count(text.begin(), text.end(), quote), "each quote is doubled");
  int consumed = -1, expected = -1;
  Check(DequotedStr(quoted, quote, consumed) == text && consumed == quoted.size(), "a quoted text reads back");
  const String more = Input.Text();
  if (!more.view().starts_with(quote)) {
    Check(DequotedStr(quoted + more, quote, consumed) == text && consumed == quoted.size(), "what follows is not read");
  }
  Check(DequotedStr(text, quote, consumed) == PlainDequoted(text, quote, expected) && consumed == expected,
        "any text is read by the rules");
  Check(VxQuotedToStr(VxStrToQuoted(text)) == text, "a single value reads back");
  Check(VxQuotedToStr(text) == PlainQuotedToStr(text), "any single value is read by the rules");
}

}  // namespace vx::fuzz
