// What a user does with the cells of a table on the screen, without a screen.
//
//   TTableSelection           the current cell and the selected ones, by mouse and keys
//   TTableHistory, TCellEdit  changes of cells and rows that can be undone and done again
//   CopyAsText, CopyAsHtml    the selected cells for the clipboard
//   PasteText                 a block from the clipboard into cells
//   FindCell                  the next cell with a text
//   CellEditorOf, RepairCellText    how cells of each type are changed, and which texts they take
//
// Example:
//   vx::TTypeCsv table;
//   for (auto* line : {u"Name,Ort", u"Meier,Bonn", u"Müller,Köln"}) table.AddRow(line);
//   vx::TTableHistory history(table);
//   history.SetCell(1, 2, u"Aachen");
//   history.Undo();
//   table.GetCell(1, 2);                               // u"Köln"
//   const int columns[] = {1, 0};                      // as they stand on the screen
//   vx::TTableSelection selection;
//   selection.SetArea({0, 1, 2, 3});                   // two columns, the rows below the head
//   selection.SelectAll();
//   vx::CopyAsText(table, selection, columns);         // u"Bonn\tMeier\r\nKöln\tMüller\r\n"
//   vx::FindCell(table, u"müll", columns, {0, 1}).Y;   // 2
//
// Two kinds of columns: those of the table, and places on the screen, counted from 0 from the left, where columns may
// be hidden and moved; a list of columns tells which column of the table stands at each place. Rows are those on show.
//
// One thread at a time.
#pragma once

#include "controls/TableEditing/CellEditing.h"
#include "controls/TableEditing/TTableHistory.h"
#include "controls/TableEditing/TTableSelection.h"
#include "controls/TableEditing/TableBlocks.h"
