// Whether a file that the library has read by its own rules looks like one that another program wrote.
#pragma once

#include <string>

#include "tools/vxtab/ForeignReader.h"

namespace vx::vxtab {

struct TForeignLook {
  TFileEncoding Encoding = encAscii;
  char16_t Separator = u',';  // the one that the library takes
  std::string Hint;           // what the rules of other programs would give instead; empty if the same
};

// Table is what the library read from Path. The file is read again in pieces, so that a large one takes no more
// memory than its longest row. Raises EStreamError.
TForeignLook LookAsForeign(const TFileCsv& Table, const String& Path);

}  // namespace vx::vxtab
