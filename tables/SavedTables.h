// Saving in the forms of TFileCsv::SaveToFile, with a word on what they can't hold.
//
//   FindLostCells   what a file of that name would lose; nothing on the disk changes
//   SaveWhole       saves, or refuses where something would be lost
//
// The forms are those of the extensions ".csv", ".txt", ".vxt", ".tab" and none, in the system's code page. A cell is
// lost if LoadFromFile would read it otherwise: characters beyond the code page, empty cells of ".tab" and ".vxt", the
// letter á, and what makes the first line look like another separator. SaveCsv of Csv.h writes files that hold all.
//
// Example:
//   vx::TSaved saved = vx::SaveWhole(table, u"C:\\Daten\\Kassen.tab");
//   if (!saved.IsSaved) show(saved.Lost.ToText());  // the file is as it was
//
// Threads: any number may save one table, which nobody changes meanwhile, into different files.
//
// Pitfall: where a form shifts the cells of a row, all cells from there on count as lost.
#pragma once

#include <string_view>

#include "tables/LostCells.h"
#include "tables/uFileCsv.h"

namespace vx {

// Raises EArgumentException that names the path for another extension.
TLostCells FindLostCells(const TFileCsv& Table, std::u16string_view Path);

// Writes the bytes that SaveToFile would. The new content takes the place of the old in one step, by
// ReplaceFileContent. Raises EArgumentException for another extension, EFCreateError, EWriteError; the old file stays
// then.
[[nodiscard]] TSaved SaveWhole(const TFileCsv& Table, std::u16string_view Path, TIfLost IfLost = ilRefuse);

}  // namespace vx
