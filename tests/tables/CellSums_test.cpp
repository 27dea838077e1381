#include "tables/CellSums.h"

#include "tests/support/Test.h"

namespace {

using namespace vx;

// The sum, what was read, empty and missing, and the unreadable cells.
template <typename T>
std::string Shown(const TCellSum<T>& Sum, int64_t Value) {
  std::string text = std::to_string(Value) + ", " + std::to_string(Sum.Read) + " read, " + std::to_string(Sum.Empty) +
                     " empty, " + std::to_string(Sum.Missing) + " missing";
  for (const TUnreadableCell& cell : Sum.Unreadable)
    text += "; " + std::to_string(cell.Col) + "," + std::to_string(cell.Row) + " " + cell.Fault.GetText().ToUtf8();
  return text;
}
std::string Shown(const THourCellSum& Sum) { return Shown(Sum, Sum.Sum.Minutes); }
std::string Shown(const TMoneyCellSum& Sum) { return Shown(Sum, Sum.Sum.Units); }

// A table whose cells have blanks around.
class TBlankTable : public TFileCsv {
  String GetCell(int Col, int Row) const override { return u" " + TFileCsv::GetCell(Col, Row) + u"\t"; }
};

TEST(CellSums, TellWhatTheyCouldNotRead) {
  TBlankTable table;
  table.AddRow({u"Name", u"Stunden", u"Betrag"});
  table.AddRow({u"Anja", u"7:30", u"1.234,50 €"});
  table.AddRow({u"Tim", u"-6:45", u""});
  table.AddRow({u"Marija"});
  table.AddRow({u"Ida", u"7,5", u"-3,-"});
  table.AddRow({u"Summe", u"", u"25.01"});
  EXPECT_EQ(Shown(SumHoursY(table, 1, 1)), "45, 2 read, 1 empty, 1 missing; 1,4 unerwartetes Zeichen an Position 3");
  EXPECT_EQ(Shown(SumHoursY(table, 1, 1, 9, {hroIndustry})), "495, 3 read, 1 empty, 5 missing");
  EXPECT_EQ(Shown(SumMoneyY(table, 2, 0, 4)),
            "12315000, 2 read, 1 empty, 1 missing; 2,0 unerwartetes Zeichen an Position 2");
  EXPECT_EQ(Shown(SumMoneyY(table, 2, 5)), "0, 0 read, 0 empty, 0 missing; 2,5 falsche Tausendergruppe an Position 4");
  EXPECT_EQ(Shown(SumMoneyX(table, 5, 2, -1, {mroDecimalPoint})), "250100, 1 read, 0 empty, 0 missing");
  EXPECT_EQ(Shown(SumHoursX(table, 1, 1, 1)), "450, 1 read, 0 empty, 0 missing");
  EXPECT_EQ(Shown(SumHoursX(table, 9, 0, INT_MAX)), "0, 0 read, 0 empty, 2147483648 missing");
  EXPECT_EQ(Shown(SumHoursY(table, 1, 3, 2)), "0, 0 read, 0 empty, 0 missing");
  EXPECT_THROW(SumHoursY(table, -1, 0), EArgumentException);
  EXPECT_THROW(SumMoneyX(table, 0, -1), EArgumentException);
}

TEST(CellSums, LeaveTheRangeOnlyAtTheEnd) {
  TFileCsv table;
  table.AddRow({u"922337203685477", u"922337203685477", u"-1.000.000"});
  EXPECT_THROW(SumMoneyX(table, 0, 0), EOverflow);
  table.SetCell(2, 0, u"-922337203685477,5808");
  EXPECT_EQ(SumMoneyX(table, 0, 0).Sum.Units, 9223372036854764192);
}

}  // namespace
