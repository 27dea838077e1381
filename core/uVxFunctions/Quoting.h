// The plain quoted form of a single value.
#pragma once

#include "platform/String.h"

namespace vx {

// Text in double quotes, with inner ones doubled, if it holds a space, a double quote or a comma;
// otherwise Text itself. Unlike a commatext it leaves line ends and other control characters alone.
// u"Max Meier" gives u"\"Max Meier\"".
String VxStrToQuoted(const String& Text);
// Undoes VxStrToQuoted: from a Text that begins with a double quote the first and the last code unit
// are dropped, whatever the last one is, and each pair of double quotes becomes one. Any other Text
// comes back as it is.
String VxQuotedToStr(const String& Text);

}  // namespace vx
