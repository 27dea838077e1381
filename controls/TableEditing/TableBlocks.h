// Blocks of cells for the clipboard and from it, and the finding of cells. The unit's header tells what columns are.
#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "controls/TableEditing/TTableHistory.h"
#include "controls/TableEditing/TTableSelection.h"

namespace vx {

// The selected cells as other programs paste them: tabs between cells, line ends behind rows, quotes around a cell that
// has such or begins with a quote. Texts are those of the cells, not those shown, so that they can be pasted back. Rows
// and columns in which nothing is selected are left out; what is not selected in the others is empty.
String CopyAsText(const TTypeCsv& Table, const TTableSelection& Selection, std::span<const int> Columns);
// The same cells as a table of HTML, in texts as the table shows them; the names of the columns as its head, if there
// is a fixed row.
String CopyAsHtml(const TTypeCsv& Table, const TTableSelection& Selection, std::span<const int> Columns);

// Whether a text may come into a cell; it may repair the text.
using TMayPut = std::function<bool(int Col, int Row, String& Text)>;

struct TPasteOptions {
  bool MayAddRows = false;  // for what reaches below the last row
  TMayPut MayPut;           // empty: everything
};

// What came of a paste.
struct TPasteResult {
  int Changed = 0;              // cells that are other ones than before, new ones included
  int Outside = 0;              // cells with a text for which there was no column or row
  int Refused = 0;              // cells whose text may not come there
  TPoint FirstRefused{-1, -1};  // column and row of the table
  TRect Places;                 // where the block has come to stand, to be selected
};

// Puts a block as CopyAsText makes it, or a spreadsheet, into the table as one step, from the upper left selected cell
// on; a single cell into all selected ones. Cells outside the selection's area are not changed.
TPasteResult PasteText(TTypeCsv& Table, TTableHistory& History, std::u16string_view Text,
                       const TTableSelection& Selection, std::span<const int> Columns,
                       const TPasteOptions& Options = {});
// Empties the selected cells as one step, as far as MayPut lets them be empty. How many are other ones than before.
int ClearCells(TTypeCsv& Table, TTableHistory& History, const TTableSelection& Selection, std::span<const int> Columns,
               const TMayPut& MayPut = {});

enum TFindOption : uint8_t {
  foBackward,
  foWholeCell,   // the whole text of the cell
  foAlsoAtPlace  // the cell at From, too, which otherwise comes last
};
using TFindOptions = Set<TFindOption>;

// The place (column on the screen, row) of the next cell whose text contains Text, whatever the case and with "*" for
// any characters as in the filter bar, from the place From on, row by row through the content and around its end; (-1,
// -1) if there is none or Text is empty. Hidden columns and rows are not looked at. Texts are those of the cells, not
// those shown.
TPoint FindCell(const TTypeCsv& Table, std::u16string_view Text, std::span<const int> Columns, TPoint From,
                TFindOptions Options = {});

}  // namespace vx
