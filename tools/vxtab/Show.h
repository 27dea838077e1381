// A part of a table as aligned text.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "tables/uFileCsv.h"

namespace vx::vxtab {

// How many columns of a terminal the character takes: 0 for combining marks, 2 for East Asian wide
// characters, else 1.
int DisplayWidth(char32_t CodePoint) noexcept;

// Text in UTF-8 with control characters made visible, cut to Limit columns with "…" at the end;
// Width is the number of columns it takes. Looks at no more of Text than it shows.
std::string VisibleText(std::u16string_view Text, int Limit, int& Width);

// The same in single quotes with at most 40 columns between them, for messages.
std::string Quoted(std::u16string_view Text);

struct TShowPart {
  int From = 0;              // the first row
  int Rows = 50;             // at most so many
  std::vector<int> Columns;  // empty: all
  int CellWidth = 40;        // columns of the terminal that a cell gets at most
  int Width = 0;             // columns of the terminal; 0: no terminal
};

// A head of column numbers, then a line for each row behind its number, both counted from 0; lines
// have at most Width columns. A last line says what is left out, if anything is.
void ShowTable(const TFileCsv& Table, const TShowPart& Part, std::ostream& Out);

}  // namespace vx::vxtab
