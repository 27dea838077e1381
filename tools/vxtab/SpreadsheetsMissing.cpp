#include "tools/vxtab/Arguments.h"
#include "tools/vxtab/Spreadsheets.h"

namespace vx::vxtab {

namespace {

[[noreturn]] void Refuse() {
  throw TFailure(
      "this vxtab was built without spreadsheet files; with libxlsxwriter, libzip and libxml2 installed "
      "(./dev packages spreadsheets) it is built with them");
}

}  // namespace

std::vector<std::string> ReadSpreadsheet(const String&, const std::string&, TFileCsv&) { Refuse(); }
void WriteSpreadsheet(const TFileCsv&, const String&) { Refuse(); }

}  // namespace vx::vxtab
