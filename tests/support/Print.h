// Lets failed expectations and what is told beside them show texts as UTF-8.
#pragma once

#include <ostream>

#include "platform/String.h"

namespace vx {

inline void PrintTo(const String& Text, std::ostream* Stream) { *Stream << '"' << Text.ToUtf8() << '"'; }

}  // namespace vx
