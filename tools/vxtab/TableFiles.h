// How the commands get their tables and save them.
#pragma once

#include <iosfwd>
#include <string>

#include "tables/uFileCsv.h"
#include "tools/vxtab/Arguments.h"
#include "tools/vxtab/ForeignReader.h"
#include "tools/vxtab/Reporter.h"

namespace vx::vxtab {

enum TReadBy : uint8_t {
  rbLibrary,    // as the library reads table files
  rbForeign,    // as RFC 4180 has it
  rbExport,     // a database server's export in UTF-16
  rbIni,        // a configuration file: UTF-8 or UTF-16 by its byte order mark, else the code page
  rbForeignIni  // the same, but UTF-8 and UTF-16 need no mark
};

struct TLoadedFile {
  THeadCsv Table;
  int64_t Bytes = 0;
  // The rest is known only if it was asked for, and to rbForeign.
  char16_t Separator = u',';
  TFileEncoding Encoding = encAscii;
  std::string Hint;  // why the file looks foreign, empty if it does not
};

// Name is a path in UTF-8, or "-" for In. Separator 0: found in the file. WithDetails: see TLoadedFile.
// Raises TFailure with a message that names the file; nothing that is no regular file is read twice.
std::unique_ptr<TLoadedFile> LoadTable(const std::string& Name, TReadBy ReadBy, char16_t Separator, bool WithDetails,
                                       std::istream& In, TReporter& Reporter);

// Raises TFailure unless Name can be a table's target: a known extension, no directory, not read-only;
// TUsageError for "-".
void CheckTarget(const std::string& Name);

// Saves in the form that the extension tells. The file that was there is replaced in one step, when
// the new one is whole and on the disk; until then it stays as it was. What is no regular file is
// written to. A table that the file does not give back cell for cell is told in a note. TFailure.
void SaveTable(TFileCsv& Table, const std::string& Name, TReporter& Reporter);

}  // namespace vx::vxtab
