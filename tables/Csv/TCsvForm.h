// How a table file is written down. The unit's header tells the rules.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/String.h"

namespace vx {

enum TCsvEncoding : uint8_t {
  ceGuess,          // reading: found out; writing: UTF-8
  ceCodePage,       // one byte a character
  ceUtf8,           //
  ceUtf16,          // the low byte first
  ceUtf16BigEndian  // the high byte first
};

enum TCsvLineEnd : uint8_t { clCrLf, clLf, clCr };
enum TCsvQuoting : uint8_t {
  cqNeeded,  // cells that would be read otherwise without
  cqAll      // every cell
};

// What is left as it stands here is found out when a file is read, and when it is written the form that most programs
// read without being asked.
struct TCsvForm {
  // Any character but quotes and line ends, in code units. 0: reading, the one of ESC, tab, ";", comma and "|" by which
  // most of the first lines have the same number of cells, and more than one, else the comma; writing, that of the
  // file's name (CsvSeparatorOf).
  char16_t Separator = 0;
  // A character of ASCII; 0: the file knows no quotes, and cells with separators or line breaks can't be written.
  char16_t Quote = u'"';
  TCsvEncoding Encoding = ceGuess;
  // With ceCodePage, or when that is guessed: a number of platform/CodePage.h. 0: the system's; but 850 where it is
  // guessed and the German letters stand where that page has them.
  int CodePage = 0;
  // The rest is for writing; reading finds a mark and takes every kind of line end, and tells them.
  bool HasMark = true;  // the byte order mark, by which spreadsheet programs know UTF-8; code pages have none
  TCsvLineEnd LineEnd = clCrLf;
  TCsvQuoting Quoting = cqNeeded;

  friend bool operator==(const TCsvForm&, const TCsvForm&) = default;
};

// ";" for ".txt", tab for ".tab" and ".tsv", ESC for ".vxt", else the comma.
char16_t CsvSeparatorOf(std::u16string_view Path);

// Raises EArgumentException that names what no file can have: a separator that is a quote, a line end, a surrogate or
// a character that the code page lacks, a quote beyond ASCII, an unknown code page.
void CheckCsvForm(const TCsvForm& Form);

}  // namespace vx
