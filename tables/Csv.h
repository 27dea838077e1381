// Table files as the programs of the world write and read them (RFC 4180 and its relatives): the way for new files.
//
//   LoadCsv, SaveCsv     a table from a file and into one
//   TCsvReader           row by row, without a table
//   TCsvWriter           the same way out
//   TCsvForm             separator, quote, encoding, byte order mark, line ends
//   TCsvFaults           where a file goes wrong, by line and column
//   TLostCells           which cells a file cannot hold
//   TCsvEncodingGuess    which encoding bytes are in
//
// Only the separator and the end of the line close a cell: u"Anja Bößer" is one cell with or without quotes. Quotes
// stand where a cell begins or nowhere; within them separators and line breaks are text, and a doubled quote is one. A
// line ends at a carriage return, a line feed or both; an empty line is a row without cells; the last line needs no
// end.
//
// Example:
//   vx::TFileCsv table;
//   vx::TCsvLoaded loaded = vx::LoadCsv(table, u"C:\\Daten\\Kassen.csv");  // separator and encoding are found out
//   for (const vx::TCsvFault& fault : loaded.Faults.First) show(fault.ToText());
//   vx::TSaved saved = vx::SaveCsv(table, u"C:\\Daten\\Kassen neu.csv", loaded.Form);  // as it came
//   if (!saved.IsSaved) show(saved.Lost.ToText());  // nothing was written
//
// What was written comes back cell for cell when it is read in the same form; what can't is told before anything on the
// disk changes. What a faulty file holds is read all the same, and the faults are told.
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfalls:
//   - A guess may go wrong: the bytes of a short text in a code page may be good UTF-8 too, and a table of one column
//   has
//     no separator. Who knows the form tells it.
//   - TFileCsv::LoadFromFile reads by other rules, where a blank ends a cell that stands in no quotes; files that it or
//     older programs are to read are written by SaveToFile, or by SaveWhole of SavedTables.h.
#pragma once

#include "tables/Csv/CsvFiles.h"
#include "tables/Csv/TCsvEncodingGuess.h"
#include "tables/Csv/TCsvFaults.h"
#include "tables/Csv/TCsvForm.h"
#include "tables/Csv/TCsvReader.h"
#include "tables/Csv/TCsvWriter.h"
#include "tables/LostCells.h"
