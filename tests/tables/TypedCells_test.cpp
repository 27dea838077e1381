#include "tables/uFileCsv.h"
#include "tests/support/Test.h"

namespace {

TEST(TypedCells, TheLookOfATextDecidesItsType) {
  const TCases<TVxFieldType, std::vector<String>> cases = {
      {vftUnknown, {u""}},
      {vftInteger, {u"0", u"-12", u"+", u"20150211"}},
      {vftFloat, {u"1,5", u"-,", u"+1234,"}},
      {vftDate, {u"11.02.2015", u"11.02.15", u"99.99.9999", u"+1.02.2015", u"11.02.1:15"}},
      {vftTime, {u"00:00", u"24:00", u"24:00:00", u"06:30:59"}},
      {vftHour, {u"24:01", u"6:30", u"124:30", u":30", u"99:59", u"1,5:30"}},
      {vftString,
       {u"1.5", u" 1", u"1,2,3", u"+-1", u"1-", u"11.02.201", u"11.2.20155", u"1.102.2015", u"11.02.20,5", u"12:60",
        u"-6:30", u"123:4", u"24:00:01", u"06:60:00", u"06:00:60", u"6:30:000", u"::", u"١"}}};
  for (const auto& [type, texts] : cases)
    for (const String& text : texts) EXPECT_EQ(TFileCsv::GuessFieldType(text), type) << text;
}

TEST(TypedCells, ThousandsSeparatorsGoIntoNumbersOnce) {
  TFileCsv table;
  table.AddRow({u"123", u"1234", u"-123456", u"+1234567,8912", u",1234", u"1.2345", u" 1234", u"1234 h", u""});
  for (int i = 0; i < 2; ++i) {
    table.DoAll({camThousandDivider});
    EXPECT_EQ(table.GetText(), u"123,1.234,-123.456,\"+1.234.567,8912\",\",1234\",1.2345,\" 1234\",\"1234 h\",");
  }
}

// Cells and what is written to them go through the virtual operations.
class TLoudTable : public TFileCsv {
  String GetCell(int Col, int Row) const override { return u"\t1" + TFileCsv::GetCell(Col, Row) + u" "; }
  void SetCell(int Col, int Row, const String& Text) override { TFileCsv::SetCell(Col, Row, u"0" + Text); }
};

TEST(TypedCells, AreReadTrimmedAndWrittenThroughSetCell) {
  TFileCsv table;
  table.AddRow({u" 1 ", u"\t", u" 1.234,5\r\n", u" 36:30 ", u"x"});
  EXPECT_EQ((TFacts{table.GetCellsAsBool(0, 0), table.GetCellsAsBool(1, 0)}), "yes no");
  EXPECT_EQ(table.GetCellsAsBoolExt(1, 0), bNone);
  EXPECT_EQ((TFacts{table.GetCellsAsCurrency(2, 0).Units, table.GetCellsAsHour(3, 0) * 1440, table.GetCellsAsHour(1, 0),
                    table.GetCellsAsInt(4, 0)}),
            "12345000 2190 0 0");
  TLoudTable loud;
  loud.AddRow({u"2", u"2", u"2", u"2", u"2", u"2", u"2", u"2", u"2"});
  EXPECT_EQ((TFacts{loud.GetCellsAsInt(0, 0), loud.SumFloatX(0, 0, 8)}), "12 108");
  const TDateTime value = 42046 + 6.5 / 24;
  loud.SetCellsAsBool(0, 0, true), loud.SetCellsAsBoolExt(1, 0, bNone), loud.SetCellsAsCurrency(2, 0, 5);
  loud.SetCellsAsDate(3, 0, value), loud.SetCellsAsDateTime(4, 0, value), loud.SetCellsAsFloat(5, 0, 0.5);
  loud.SetCellsAsInt(6, 0, -7), loud.SetCellsAsTime(7, 0, value), loud.SetCellsAsHour(8, 0, 1.5);
  EXPECT_EQ(loud.GetText(), u"01,0,\"05,00\",011.02.2015,\"011.02.2015 06:30:00\",\"00,5\",0-7,006:30,036:00");
  const TCases<double, String> hours = {{36.5, u"876:00"},
                                        {-1.25, u"-18:00"},
                                        {HUGE_VAL, u"00:00"},
                                        {1e6, u"24000000:00"},
                                        {1 / 1440.0 - 1e-6, u"00:00"}};
  for (auto [days, text] : hours) EXPECT_EQ((table.SetCellsAsHour(0, 0, days), table.GetCell(0, 0)), text);
}

TEST(TypedCells, SumsOfRowsAndColumns) {
  TFileCsv table;
  table.AddRow({u"label", u"1", u"2,5", u"x", u"total"}), table.AddRow({u"100", u"1.000,005", u"0,1", u"", u"100"});
  table.AddRow({u"100", u"12:00", u"24:00"}), table.AddRow({u"100", u"100", u"100", u"100", u"100"});
  const TCases<TVxFieldType, int, int, String> cases = {// of the first three rows, and of a column
                                                        {vftFloat, -1, -1, u"3,5|0,1|0|0"},
                                                        {vftInteger, 5, 5, u"3,5|0,1|0|0"},
                                                        {vftDateTime, 0, 4, u"3,5|200,1|100|1"},
                                                        {vftFraction, 3, 2, u"0|0|0|0"},
                                                        {vftCurrency, -1, -1, u"3,50|1000,11|0,00|1000,01"},
                                                        {vftHour, -1, -1, u"00:00|00:00|48:00|12:00"},
                                                        {vftTime, 1, 1, u"00:00|00:00|24:00|00:00"},
                                                        {vftString, -1, -1, u"|||"}};
  for (const auto& [type, from, to, sums] : cases) {
    String rows;
    for (int row = 0; row < 3; ++row) rows += table.SumX(row, type, from, to) + u"|";
    EXPECT_EQ(rows + table.SumY(1, type, from, to), sums);
  }
  const String before = table.GetText();
  for (int outside : {-1, 5}) {
    EXPECT_EQ(table.SumX(outside, vftFloat, -1, -1, 0) + table.SumY(outside, vftFloat, -1, -1, 0), u"");
    table.SumX(0, vftFloat, -1, -1, outside), table.SumY(0, vftFloat, -1, -1, outside);
  }
  EXPECT_EQ(table.GetText(), before);
  table.SumX(0, vftFloat, -1, -1, 4), table.SumY(2, vftCurrency, -1, -1, 3);
  table.SumX(3, vftString, -1, -1, 0);  // the empty sum is written, too
  EXPECT_EQ(table.GetCell(4, 0) + u" " + table.GetCell(2, 3) + table.GetCell(0, 3), u"3,5 0,10");
  EXPECT_EQ((table.SumCurrencyX(1, 1, INT_MAX) + table.SumCurrencyX(9, 0, INT_MAX)).Units, 11001050);
  EXPECT_EQ(table.SumFloatY(0, 0, INT_MAX), 200);
  EXPECT_THROW(table.SumFloatX(0, -1, 0), EStringListError);
}

// Has a cell wherever one is asked for.
class TEndlessTable : public TFileCsv {
  String GetCell(int, int) const override { return ++Asked, u"1:00"; }

 public:
  mutable int Asked = 0;
};

TEST(TypedCells, SumsAskADerivedTableForAllCellsOfTheRange) {
  TEndlessTable table;
  table.AddRow({u"9", u"9"});
  EXPECT_EQ(table.SumTimeX(0, 1, 4) + u" " + table.SumTimeX(7, -1, 1), u"08:00 06:00");
  EXPECT_EQ(table.SumTimeY(0, 0, 4) + u" " + table.SumTimeY(7, 1, 0), u"05:00 00:00");
  (void)table.SumFloatX(2, 0, 2), (void)table.SumFloatY(2, 0, 2);
  (void)table.SumCurrencyX(2, 0, 2), (void)table.SumCurrencyY(INT_MAX, INT_MAX - 2, INT_MAX);
  EXPECT_EQ(table.Asked, 4 + 3 + 5 + 4 * 3);
}

TEST(TypedCells, SumsOfHours) {
  const TCases<std::vector<String>, String> cases = {
      // as a row and as a column
      {{u"12:00", u"24:00"}, u"48:00 36:00"},
      {{u"6:15", u"6:15", u"x"}, u"24:30 12:30"},
      {std::vector<String>(24, u"1:00"), u"24:00 24:00"},  // rounding errors cost no day
      {{u"65535:59", u"0:01"}, u"16:00 00:00"},
      {{u"-2:00", u"12:00"}, u"65512:00 65524:00"}};
  for (const auto& [cells, sums] : cases) {
    TFileCsv table;
    table.AddRow(cells);
    EXPECT_EQ(table.SumTimeX(0, 0, 99) + u" " + table.TurnAxis()->SumTimeY(0, 0, 99), sums);
  }
}

}  // namespace
