// Tables as the screen sees them: with types, looks, a sort order, and rows that may be hidden.
//
//   TTypeCsv        a table with a head and a decoration list, which says how each region looks and is read
//   TCsvView        one that can hide rows without losing them or their places
//   THiddenCsv      the rows that a view hides
//   TTypeCsvList    typed tables by their names
//   RenderLegend    a small table that explains the images of another one
//   TRowCompare     the comparison of a sort
//
// Example, with rows of a date and a name below one row of heads:
//   vx::TCsvView visits;
//   visits.LoadFromFile(u"C:\\Daten\\Visiten.csv");
//   vx::TDecorationList& looks = visits.GetDecorations();
//   looks.SetFixed(0, 1, 0, 0);                                      // row 0 stays where it is
//   looks.CreateRange(vx::rtColumn, 0, -1, 0, -1)->SetFieldType(vx::vftDate);
//   visits.Sort(0, 0, vx::TS_NONE, u"yyyymmdd", nullptr);            // in the order of the days
//   visits.Sort(0, 0);                                               // the same column again: the other way round
//   visits.ShowOnly([](const vx::TVxStringList& row) { return row.GetCount() > 1 && row.Get(1) == u"Meier"; });
//   visits.GetCount();                                               // of the rows on show
//   visits.ShowAll();                                                // every row in its place
//
// The type of a column is asked of the decorations, by GetColumnFieldType; a column without one is sorted as text.
//
// Threads: as a TFileCsv; its decorations and its grid belong to the thread of the window that shows it.
//
// Pitfalls:
//   - ClearContent deletes rows here, where that of the plain table empties cells.
//   - Unless a format is told, dates are sorted by u"yyyymmddhhnnss", which reads each cell as a date; u"yyyymmdd"
//     is the fast way.
//   - The rows of a view are those on show: GetCount, GetCell and all that the plain table offers take no notice of the
//     others. AllCount, AllLines and AllCells do.
//   - Assign copies decorations by their serial form: tags and image lists of single decorations are lost.
#pragma once

#include "tables/uTypeCsv/RenderLegend.h"
#include "tables/uTypeCsv/TCsvView.h"
#include "tables/uTypeCsv/THiddenCsv.h"
#include "tables/uTypeCsv/TTypeCsv.h"
#include "tables/uTypeCsv/TTypeCsvList.h"
