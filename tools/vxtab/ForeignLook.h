// What a file is in, and whether one that the library has read by its own rules looks like one that another program
// wrote.
#pragma once

#include <string>

#include "tables/Csv.h"

namespace vx::vxtab {

// As shown to the user, such as "UTF-16, little end first"; ceGuess is ASCII.
std::string EncodingName(TCsvEncoding Encoding, bool HasMark, int CodePage = 0);

TCsvEncodingGuess GuessEncoding(std::string_view Bytes) noexcept;
// The same for a file, which is read in pieces. EStreamError.
TCsvEncodingGuess GuessEncodingOf(const String& Path);
// Bytes in the encoding of the guess, without the byte order mark.
String DecodeForeign(std::string_view Bytes);

struct TForeignLook {
  char16_t Separator = u',';  // the one that the library takes
  std::string Hint;           // what the rules of other programs would give instead; empty if the same
};

// Table is what the library read from Path. The file is read again in pieces, so that a large one takes no more
// memory than its longest row. Raises EStreamError.
TForeignLook LookAsForeign(const TFileCsv& Table, const String& Path);

}  // namespace vx::vxtab
