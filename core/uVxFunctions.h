// The small routines for values that the whole library uses.
//
//   VxStrToQuoted, VxQuotedToStr   the plain quoted form of a single value
//
// Example:
//   vx::String quoted = vx::VxStrToQuoted(u"Max Meier");   // u"\"Max Meier\""
//   vx::String name = vx::VxQuotedToStr(quoted);           // u"Max Meier"
//
// Pitfall: VxQuotedToStr drops the last code unit of a text in quotes without a look at it.
#pragma once

#include "core/uVxFunctions/Quoting.h"
