#include "tables/CellSums.h"

#include "tests/support/Test.h"

namespace {

// The sum, how many cells were read, empty and missing, and the unreadable ones.
template <typename T>
std::string Shown(const TCellSum<T>& Sum, int64_t Value) {
  std::ostringstream text;
  text << Value << ' ' << Sum.Read << ' ' << Sum.Empty << ' ' << Sum.Missing;
  for (const TUnreadableCell& cell : Sum.Unreadable)
    text << "; " << cell.Col << ' ' << cell.Row << ' ' << cell.Fault.GetText().ToUtf8();
  return text.str();
}
std::string Shown(const THourCellSum& Sum) { return Shown(Sum, Sum.Sum.Minutes); }
std::string Shown(const TMoneyCellSum& Sum) { return Shown(Sum, Sum.Sum.Units); }

// Cells with blanks around.
class TBlankTable : public TFileCsv {
  String GetCell(int Col, int Row) const override { return u" " + TFileCsv::GetCell(Col, Row) + u"\t"; }
};

TEST(CellSums, TellWhatTheyCouldNotRead) {
  TBlankTable table;
  table.SetText(u"Name,h,Betrag\r\nAnja,7:30,\"1.234,50 €\"\r\nTim,-6:45,\r\nIda\r\nEva,\"7,5\",\"-3,-\"\r\nx,,25.01");
  EXPECT_EQ(Shown(SumHoursY(table, 1, 1)), "45 2 1 1; 1 4 unerwartetes Zeichen an Position 3");
  EXPECT_EQ(Shown(SumHoursY(table, 1, 1, 9, {hroIndustry})), "495 3 1 5");
  EXPECT_EQ(Shown(SumMoneyY(table, 2, 0, 4)), "12315000 2 1 1; 2 0 unerwartetes Zeichen an Position 2");
  EXPECT_EQ(Shown(SumMoneyX(table, 5, 2, -1, {mroDecimalPoint})), "250100 1 0 0");
  EXPECT_EQ(Shown(SumHoursX(table, 9, 0, INT_MAX)), "0 0 0 2147483648");
  EXPECT_EQ(Shown(SumHoursX(table, 1, 1, 0)), "0 0 0 0");
  EXPECT_THROW(SumHoursY(table, -1, 0), EArgumentException);
  EXPECT_THROW(SumMoneyX(table, 0, -1), EArgumentException);
  TFileCsv large;
  large.AddRow({u"922337203685477", u"922337203685477", u"-922337203685477,5808"});
  EXPECT_EQ(SumMoneyX(large, 0, 0).Sum.Units, 9223372036854764192) << "large only on the way";
  EXPECT_THROW(SumMoneyX(large, 0, 0, 1), EOverflow);
}

}  // namespace
