// Rows of tables related to each other: sorted, looked up by keys, joined, grouped. Nothing is lost on the way.
//
//   SortRows     a table by several columns; what is no value of its column's type stands last and is told
//   TKeyIndex    finds rows by the cells of one or several columns
//   InnerJoin, LeftJoin   the pairs of rows of two tables that share a key, and those that have no partner
//   TGroups      rows that share a key: in groups, distinct, counted
//   SumHours, SumMoney, SumIntegers, FindDates   of each group: exact sum, least and most, and what could not be read
//   PivotCounts, PivotSums   groups by two and more keys as rows and columns of a table
//
// Example:
//   vx::THeadCsv visits, nurses;
//   visits.SetText(u"Pflegekraft,Datum,Stunden\r\nP1,04.05.2026,7:30\r\nP2,01.06.2026,:45\r\nP1,05.05.2026,-0:15");
//   nurses.SetText(u"Nummer,Name\r\nP1,Anja\r\nP2,Tim");
//   const vx::TKeyIndex byNumber(nurses, {u"Nummer"});
//   nurses.GetCell(1, byNumber.Row(u"P2"));                                          // u"Tim"
//   const vx::TJoin join = vx::InnerJoin(visits, {u"Pflegekraft"}, byNumber);
//   const vx::TGroups groups(join, {vx::OfRight(u"Name"), vx::ByMonth(u"Datum")});
//   groups.GetCount();                                                               // 2
//   groups.Key(1, 1);                                                                // u"2026-06"
//   const auto hours = vx::SumHours(groups, u"Stunden");
//   vx::HourAmountToStr(hours.Groups[0].Sum);                                        // u"7:15"
//   hours.IsWhole();                                                                 // true
//   vx::PivotSums(groups, hours)->GetText();
//   // u"Name,2026-05,2026-06\r\nAnja,7:15,\r\nTim,,0:45"
//
// Columns and rows count from 0. A column may be told by its name in a table with a head; EArgumentException for one
// that the table does not have. In a table with a head the rows begin with 1, in others with 0, unless told otherwise.
// Keys are the cells as they stand in the rows: exactly, blanks too, unless koNoCase; a cell that a short row does not
// have is an empty text. Each operation costs n, or n log n where it orders.
//
// Pitfalls:
//   - Indexes, joins and groups hold no copies of rows: their tables have to outlive them and stay as they are. What an
//     index notices is told at TKeyIndex; joins and groups notice nothing.
//   - A row whose key cells are all empty has no partner in a join: it is told among those without one.
#pragma once

#include "tables/Relations/GroupSums.h"
#include "tables/Relations/RelationRows.h"
#include "tables/Relations/SortRows.h"
#include "tables/Relations/TGroups.h"
#include "tables/Relations/TJoin.h"
#include "tables/Relations/TKeyIndex.h"
