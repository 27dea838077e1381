// The table in memory, and its files.
//
//   TFileCsv                     a list of rows, each a TVxStringList of cells
//   THeadCsv                     the same with the names of its columns in row 0
//   TSortCsv                     the same kept in the order of one column
//   TFileCsvList, THeadCsvList   tables by their names
//   TCsvAllMode, TCsvAllModes    what DoAll does to all cells
//   StringsToCsv, CsvToStrings   a table from a list of commatexts and back
//
// Everything is a text, and typed values are made of it on access. Rows may have different lengths, and
// every operation says what it does with short ones. The column index comes before the row index
// everywhere; both count from 0. Reads past the end give an empty text and writes past the end are
// dropped: callers may rely on both.
//
// Example:
//   vx::TFileCsv table;
//   table.LoadFromFile(u"C:\\Daten\\Patienten.txt");
//   int row = table.IndexForColKey(0, u"4711");
//   table.SetCell(2, row, u"Köln");
//   table.SaveToFile(u"C:\\Daten\\Patienten.csv");       // the extension decides the separator
//
// Threads: several may read a table at once through its const members; who changes it has to be alone with it. Copies
// share rows and texts until one of them changes, and may go to other threads.
//
// Pitfalls:
//   - A blank ends an unquoted cell when files and commatexts are read; writing quotes such cells.
//   - ".tab" and ".vxt" files lose empty cells when they are read again.
//   - Reading turns the German letters of old DOS code pages right, and therefore á into ß.
//   - FieldCount is the length of row 0, whatever the other rows have.
//   - SumX and SumY take the first row or column for a head and the last one for the totals.
#pragma once

#include "tables/uFileCsv/TFileCsv.h"
#include "tables/uFileCsv/TFileCsvList.h"
#include "tables/uFileCsv/THeadCsv.h"
#include "tables/uFileCsv/TSortCsv.h"
