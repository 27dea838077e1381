#include "core/uVxFunctions/Strings.h"

#include <algorithm>

namespace vx {

namespace {

constexpr TCharSet kQuoteEscaped = u"\n\r'/\\";
constexpr TCharSet kNotInFilenames = u"\"*/:<>\\|";

bool IsGoodCharset(std::u16string_view Text, const TCharSet& First, const TCharSet& Unique, const TCharSet& Allowed) {
  if (Text.empty()) return false;
  if (First != TCharSet()) {
    if (!First.Has(Text[0])) return false;
    Text.remove_prefix(1);
  }
  TCharSet used;
  for (char16_t unit : Text) {
    if (!Allowed.Has(unit) || used.Has(unit)) return false;
    if (Unique.Has(unit)) used.Include(unit);
  }
  return true;
}

}  // namespace

String quote(std::u16string_view Text) {
  const auto escaped = std::count_if(Text.begin(), Text.end(), [](char16_t Unit) { return kQuoteEscaped.Has(Unit); });
  return String::Build(Text.size() + static_cast<size_t>(escaped) + 2, [&](char16_t* Units) {
    *Units++ = u'\'';
    for (char16_t unit : Text) {
      if (kQuoteEscaped.Has(unit)) *Units++ = u'\\';
      *Units++ = unit == u'\n' ? u'n' : unit == u'\r' ? u'r' : unit;
    }
    *Units = u'\'';
  });
}

String GarantyLength(const String& Text, int Length) {
  const int length = std::max(Length, 0);
  if (Text.size() >= length) return Text.Slice(0, length);
  return String::Build(static_cast<size_t>(length), [&](char16_t* Units) {
    std::fill(std::copy(Text.begin(), Text.end(), Units), Units + length, u' ');
  });
}

String GarantyDigits(uint64_t Value, int Length) {
  const auto length = static_cast<size_t>(std::max(Length, 0));
  return String::Build(length, [&](char16_t* Units) {
    for (size_t i = length; i > 0; Value /= 10) Units[--i] = static_cast<char16_t>(u'0' + Value % 10);
  });
}

std::string GarantyLengthA(std::string_view Text, int Length) {
  const auto length = static_cast<size_t>(std::max(Length, 0));
  std::string result(Text.substr(0, length));
  result.resize(length, ' ');
  return result;
}

String ValidateFilename(const String& Text) {
  String result = Text;
  StrSetReplace(result, kNotInFilenames, u'_');
  return result;
}

String UpperFirstChar(const String& Text) {
  if (Text.empty() || Text[0] < u'a' || Text[0] > u'z') return Text;
  String result = Text;
  result.SetUnit(0, static_cast<char16_t>(Text[0] - u'a' + u'A'));
  return result;
}

int CaseStringOf(std::u16string_view Text, std::span<const std::u16string_view> List) noexcept {
  const auto found = std::find(List.begin(), List.end(), Text);
  return found == List.end() ? -1 : static_cast<int>(found - List.begin());
}

bool StrSet(std::u16string_view Text, const TCharSet& Chars) noexcept {
  return std::any_of(Text.begin(), Text.end(), [&](char16_t Unit) { return Chars.Has(Unit); });
}

bool StrSetReplace(String& Text, const TCharSet& Chars, char16_t Replacement) {
  if (!StrSet(Text, Chars)) return false;
  char16_t* units = Text.MutableData();
  std::replace_if(
      units, units + Text.size(), [&](char16_t Unit) { return Chars.Has(Unit); }, Replacement);
  return true;
}

bool StrSpecificChars(std::u16string_view Text, const TCharSet& Chars) noexcept {
  return !Text.empty() && std::all_of(Text.begin(), Text.end(), [&](char16_t Unit) { return Chars.Has(Unit); });
}

String VxTrim(const String& Text, const TCharSet& Chars, bool InSet) {
  const auto first = std::find_if(Text.begin(), Text.end(), [&](char16_t Unit) { return Chars.Has(Unit) != InSet; });
  return Text.Slice(static_cast<int>(first - Text.begin()));
}

bool StrCharset(std::u16string_view Text, const TCharSet& First, const TCharSet& Unique,
                const TCharSet& Allowed) noexcept {
  const bool good = IsGoodCharset(Text, First, Unique, Allowed);
  if (!good) StrCharsetErrorCount.fetch_add(1, std::memory_order_relaxed);
  return good;
}

}  // namespace vx
