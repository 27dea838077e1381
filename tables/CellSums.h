// Sums of the hours and of the money in the cells of a table, which tell what they could not read.
//
//   TCellSum                             the sum, and how many cells were read, empty, missing or unreadable
//   SumHoursY, SumHoursX, SumMoneyY, SumMoneyX   of a column, of a row
//
// Example:
//   vx::TFileCsv table;
//   for (const char16_t* hours : {u"Stunden", u"7:30", u"-6:45", u"6;45", u""}) table.AddRow({u"Anja", hours});
//   const vx::THourCellSum sum = vx::SumHoursY(table, 1, 1);
//   vx::HourAmountToStr(sum.Sum);          // u"0:45"
//   sum.Read;                              // 2
//   sum.Empty;                             // 1
//   sum.Unreadable.size();                 // 1
//   sum.Unreadable[0].Row;                 // 3
//   sum.Unreadable[0].Fault.GetText();     // u"unerwartetes Zeichen an Position 2"
//
// Columns and rows count from 0, and the column comes first. Cells are asked through the virtual GetCell and read by
// TryStrToHourAmount and TryStrToMoney. EOverflow where the whole sum leaves the range of its type; the order of the
// cells plays no part.
//
// Threads: any number may sum up one table, which nobody changes meanwhile.
//
// Pitfalls: a sum with unreadable cells is the sum of the others: look at IsWhole first. Heads and totals are no part
// of a range unless it includes them: there is no default for From.
#pragma once

#include <cstdint>
#include <vector>

#include "core/HourAmount.h"
#include "core/MoneyText.h"
#include "core/TextFault.h"
#include "platform/Currency.h"
#include "tables/uFileCsv.h"

namespace vx {

// A cell whose text is no such value, and why.
struct TUnreadableCell {
  int Col = 0, Row = 0;
  TTextFault Fault;  // its position counts in the cell's text
};

template <typename T>
struct TCellSum {
  T Sum{};              // of the cells that were read
  int Read = 0;         // cells that were read
  int Empty = 0;        // cells without a text or with blanks alone
  int64_t Missing = 0;  // cells of the range that the table does not have: rows that are too short or not there
  std::vector<TUnreadableCell> Unreadable;  // in their order

  bool IsWhole() const noexcept { return Unreadable.empty(); }
};
using THourCellSum = TCellSum<THourAmount>;
using TMoneyCellSum = TCellSum<Currency>;

// The cells of a column in the rows From to To, both included; a To of -1 is the last row. EArgumentException for a Col
// or From below 0; a To below From is an empty range.
THourCellSum SumHoursY(const TFileCsv& Table, int Col, int From, int To = -1, THourReadOptions Options = {});
TMoneyCellSum SumMoneyY(const TFileCsv& Table, int Col, int From, int To = -1, TMoneyReadOptions Options = {});
// The same of the cells From to To of a row; a To of -1 is its last cell.
THourCellSum SumHoursX(const TFileCsv& Table, int Row, int From, int To = -1, THourReadOptions Options = {});
TMoneyCellSum SumMoneyX(const TFileCsv& Table, int Row, int From, int To = -1, TMoneyReadOptions Options = {});

}  // namespace vx
