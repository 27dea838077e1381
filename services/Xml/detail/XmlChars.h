// Which characters XML allows where. Internal to Xml.
#pragma once

#include <cstdint>
#include <string_view>

namespace vx::detail {

constexpr bool IsXmlBlank(char16_t Unit) noexcept { return Unit == u' ' || Unit == u'\n' || Unit == u'\t'; }
constexpr bool IsXmlCharacter(char32_t Character) noexcept {
  return Character < 0x20 ? Character == '\t' || Character == '\n' || Character == '\r'
                          : Character < 0xD800 || (Character >= 0xE000 && Character < 0xFFFE) ||
                                (Character >= 0x10000 && Character < 0x110000);
}
constexpr bool IsHighSurrogate(char16_t Unit) noexcept { return (Unit & 0xFC00) == 0xD800; }
constexpr bool IsLowSurrogate(char16_t Unit) noexcept { return (Unit & 0xFC00) == 0xDC00; }
constexpr char32_t JoinSurrogates(char16_t High, char16_t Low) noexcept {
  return 0x10000 + ((char32_t{High} & 0x3FF) << 10) + (char32_t{Low} & 0x3FF);
}

// Where the name that begins at First ends; First if there is none. A unit 0 has to stand at the end of the text.
const char16_t* EndOfXmlName(const char16_t* First) noexcept;
// The same for what may begin with any character that a name can hold.
const char16_t* EndOfXmlToken(const char16_t* First) noexcept;
bool IsXmlName(std::u16string_view Text);

}  // namespace vx::detail
