// Between commatext, arrays, lines and sentences.
#pragma once

#include <span>

#include "platform/String.h"
#include "platform/TextForms.h"

namespace vx {

// The commatext of the items. Copies no item.
inline String ToCommatext(std::span<const String> Items) { return WriteCommatext(Items); }
// The same; with Trim without the blank items at the start, at the end and inside. They are removed
// as TrimStrings does it, so that two or more of them at the start, with others behind, raise
// EStringListError. The items that stay are not trimmed.
String ArrayToCommatext(std::span<const String> Items, bool Trim);

// A sentence made of the cells of a commatext: without spaces at their ends, empty ones left out, one
// space between. A last cell that is empty leaves the space before it; this is wanted.
// u"\" Max \",,Meier" gives u"Max Meier".
String CommatextToString(std::u16string_view Text);

// The commatext of the lines of Text. A line ends at a carriage return, a line feed or both.
String TextToCommatext(std::u16string_view Text);
// The cells of a commatext as lines, with carriage return and line feed between them and none behind
// the last one.
String CommatextToText(std::u16string_view Text);

}  // namespace vx
