// Several arguments in one text.
//
//   SplitArguments   the arguments of such a text
//   QuoteArgument    an argument as it has to stand in it
//
// Example:
//   vx::SplitArguments(u"-o \"Liste Mai.csv\" a\\b");                   // {u"-o", u"Liste Mai.csv", u"a\\b"}
//   vx::SplitArguments(vx::QuoteArgument(anyText)).front() == anyText;   // true
//
// The rules:
//   - Blanks and tabs outside double quotes end an argument; line breaks and all else belong to it.
//   - A double quote begins or ends a quoted stretch, of which an argument may have several. u"\"\"" alone is
//     an empty argument. Within a stretch two double quotes stand for one.
//   - Backslashes before a double quote: each two stand for one, and one left over makes the double quote an
//     ordinary character. Backslashes elsewhere are ordinary.
//   - A stretch that isn't ended goes to the end of the text.
// No shell is asked, so that "$", ";", "*", "'" and the like are ordinary everywhere.
//
// Threads: any number may call these at once.
#pragma once

#include <vector>

#include "platform/String.h"

namespace vx {

// Never fails; blanks alone give no argument.
std::vector<String> SplitArguments(std::u16string_view Text);
// Argument itself if it reads as that, else in double quotes, so that SplitArguments gives just this one
// argument: the empty text is u"\"\"".
String QuoteArgument(const String& Argument);

}  // namespace vx
