// The forms of table files by their extensions. Internal to those who save tables.
#pragma once

#include <string_view>
#include <vector>

#include "tables/uFileCsv/TFileCsv.h"
#include "tables/uFileCsv/detail/RowWriter.h"

namespace vx::detail {

struct TFileForm {
  std::u16string_view Extension;
  TRowForm Form;
  char16_t Separator;
};

// nullptr for an extension that is none of a table.
const TFileForm* FindFileForm(const String& Path);

// A buffer that any row of the table fits into.
std::vector<char> MakeRowBuffer(const TFileCsv& Table);
// Hands the lines of all rows to Put, and gives the number of their bytes.
int64_t PutRows(const TFileCsv& Table, const TFileForm& Form, std::vector<char>& Buffer, TRowWriter::TPut Put);

}  // namespace vx::detail
