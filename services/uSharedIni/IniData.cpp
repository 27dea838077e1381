#include "services/uSharedIni/IniData.h"

#include "platform/TextBuffer.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

constexpr std::u16string_view kHexDigits = u"0123456789ABCDEF";

// The value of a digit; 0 for what is none, small letters too.
unsigned HexValue(char16_t Unit) noexcept {
  const size_t value = kHexDigits.find(Unit);
  return value == kHexDigits.npos ? 0 : static_cast<unsigned>(value);
}

// Takes pairs of digits off the front of Text, up to the next double quote.
void AppendFromHex(TTextBuffer& Result, std::u16string_view& Text) {
  const std::u16string_view digits = Text.substr(0, Text.find(u'"'));
  for (size_t at = 0; at + 1 < digits.size(); at += 2) {
    Result.Add(static_cast<char16_t>(HexValue(digits[at]) << 4 | HexValue(digits[at + 1])));
  }
  Text.remove_prefix(digits.size());
}

}  // namespace

String IniStrToData(std::u16string_view Text) {
  TTextBuffer result;
  for (size_t at = 0; at < Text.size();) {
    size_t end = at;
    while (end < Text.size() && Text[end] >= 32) ++end;
    result.Add(QuotedStr(Text.substr(at, end - at), u'"'));
    for (at = end; at < Text.size() && Text[at] < 32; ++at) {
      result.Add(kHexDigits[Text[at] >> 4]);
      result.Add(kHexDigits[Text[at] & 15]);
    }
  }
  return result.ToString();
}

String IniDataToStr(std::u16string_view Text) {
  TTextBuffer result;
  while (!Text.empty()) {
    if (Text[0] == u'"') {
      int size;
      result.Add(DequotedStr(Text, u'"', size));
      Text.remove_prefix(static_cast<size_t>(size));
    } else {
      AppendFromHex(result, Text);
    }
  }
  return result.ToString();
}

}  // namespace vx
