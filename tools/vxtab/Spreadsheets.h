// Spreadsheet files: .xlsx and .ods are read, .xlsx is written. Where vxtab was built without the libraries for them,
// everything here raises TFailure that says so.
//
// Cells become texts as the library writes values: numbers with a decimal comma (1234,5), dates 24.12.2026, moments
// 24.12.2026 13:45:00, times 13:45:00, amounts of hours 124:30, truth 1 and 0; a formula is its last result. All rows
// get the width of the widest. On the way back a cell becomes a number or a date where that reads again as the same
// text, so that 0049 and 01067 stay texts.
#pragma once

#include <string>
#include <vector>

#include "tables/uFileCsv.h"

namespace vx::vxtab {

// Adds the rows of a sheet, by its name or, if there is no such name, its number from 1 on; empty: the first. Gives the
// names of all sheets. TFailure.
std::vector<std::string> ReadSpreadsheet(const String& Path, const std::string& Sheet, TFileCsv& Table);

// Makes a file of one sheet. TFailure, also for more rows, columns and text than a sheet may have.
void WriteSpreadsheet(const TFileCsv& Table, const String& Path);

}  // namespace vx::vxtab
