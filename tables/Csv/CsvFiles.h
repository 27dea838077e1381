// Tables from table files and into them. The unit's header tells the rules.
#pragma once

#include <string_view>

#include "tables/Csv/TCsvFaults.h"
#include "tables/Csv/TCsvForm.h"
#include "tables/LostCells.h"
#include "tables/uFileCsv.h"

namespace vx {

struct TCsvLoaded {
  TCsvForm Form;      // of the file, with nothing left open
  TCsvFaults Faults;  // what was wrong with it; its cells were read all the same
};

// Replaces the table's rows by those of a file; a THeadCsv has the first one as its head. Raises EFOpenError, also if
// there is no such file, and EArgumentException for a form that can't be, and the table stays as it was then;
// EReadError, and the table is empty then.
TCsvLoaded LoadCsv(TFileCsv& Table, std::u16string_view Path, const TCsvForm& Form = {});
// The same from bytes in memory.
TCsvLoaded LoadCsvBytes(TFileCsv& Table, std::string_view Bytes, const TCsvForm& Form = {});

// Writes all rows. Where the file can't hold every cell it says which, before the file changes, and with ilRefuse
// leaves it as it was. The new content takes the place of the old in one step, by ReplaceFileContent, and is on the
// disk then. Raises EArgumentException, EFCreateError, EWriteError; the old file stays then.
[[nodiscard]] TSaved SaveCsv(const TFileCsv& Table, std::u16string_view Path, const TCsvForm& Form = {},
                             TIfLost IfLost = ilRefuse);

}  // namespace vx
