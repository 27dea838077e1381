// Tables as pictures and on paper.
#pragma once

#include <string>

#include "tables/uTypeCsv.h"

namespace vx::vxtab {

// Whether vxtab was built with what draws.
bool CanPaint() noexcept;

// The whole table with its title, as one PNG or SVG picture. TFailure if it would be more than 16384 pixels wide or
// high. The file is written whole or not at all.
void PaintPicture(TTypeCsv& Table, const std::string& Name);
// The table on pages of A4, Landscape on its side, each with the day's date. The result is the number of pages.
int PaintPages(TTypeCsv& Table, const std::string& Name, bool Landscape);

}  // namespace vx::vxtab
