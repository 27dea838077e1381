// Reads tables that other programs wrote: only the separator and a line end close a cell (RFC 4180).
//
// Example:
//   vx::vxtab::TForeignText text = vx::vxtab::DecodeForeign(bytes);
//   vx::TFileCsv table;
//   vx::vxtab::ReadForeign(text.Text, vx::vxtab::GuessSeparator(text.Text), table);
//
// The rules where RFC 4180 is silent: a line ends at a carriage return, a line feed, or both; an empty
// line is a row without cells; a last line needs no line end; a quote matters only where a cell begins
// and in such a cell; what follows a closing quote is taken as it stands; a quote that is never closed
// reaches to the end of the text.
#pragma once

#include <string>
#include <string_view>

#include "platform/Types.h"
#include "tables/uFileCsv.h"

namespace vx::vxtab {

enum TFileEncoding : uint8_t { encAscii, encCodePage, encUtf8, encUtf8Mark, encUtf16Le, encUtf16Be };
// As shown to the user, such as "UTF-16, little end first".
const char* EncodingName(TFileEncoding Encoding) noexcept;

// By the byte order mark; without one UTF-16 by its zero bytes, UTF-8 if there are characters beyond
// ASCII and all are valid, otherwise the system's code page.
TFileEncoding GuessEncoding(std::string_view Bytes) noexcept;

// The same for bytes that come in pieces.
class TEncodingGuess {
 public:
  // Beginning: at least 65,536 bytes, or all of Size if they are fewer.
  TEncodingGuess(std::string_view Beginning, int64_t Size) noexcept;
  // Looks at the next bytes, and returns how many of them it is done with: the others have to begin the next
  // piece, unless AreLast.
  size_t Look(std::string_view Bytes, bool AreLast) noexcept;
  // What comes changes nothing more.
  bool IsSure() const noexcept { return FIsSure; }
  TFileEncoding Get() const noexcept { return FEncoding; }

 private:
  TFileEncoding FEncoding = encAscii;
  bool FIsSure = false;
};

struct TForeignText {
  String Text;  // without the byte order mark
  TFileEncoding Encoding = encAscii;
};
TForeignText DecodeForeign(std::string_view Bytes);

// The one of ESC, tab, ";" and comma by which most of the first lines have the same number of cells,
// and more than one; the comma if there is none.
char16_t GuessSeparator(std::u16string_view Text);

// Appends the rows of Text to Table. The cells share the characters of Text.
void ReadForeign(const String& Text, char16_t Separator, TFileCsv& Table);
// The number of cells of each row, until TakeCount gives false.
void CountForeign(std::u16string_view Text, char16_t Separator, FunctionRef<bool(int Cells)> TakeCount);

}  // namespace vx::vxtab
