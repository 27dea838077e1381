#include "tables/CheckedCells.h"

#include "platform/Calendar.h"
#include "tables/uTypeCsv.h"
#include "tests/support/Cases.h"
#include "tests/support/Raised.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

// What a cell tells of its value: itself, or the fault.
template <TCellKind K>
String Told(const TFileCsv& Table, TCellColumn Col, int Row, TCellOptions Options = {}) {
  const auto cell = ReadCell<K>(Table, Col, Row, Options);
  TFileCsv shown;
  shown.AddRow(u"");
  return cell && GrowCell<K>(shown, 0, 0, *cell) ? shown.GetCell(0, 0) : cell.GetText();
}

// Its cells have blanks around, and what is written has an exclamation mark.
class TOwnTable : public TFileCsv {
  String GetCell(int Col, int Row) const override { return u" " + TFileCsv::GetCell(Col, Row) + u"\t"; }
  void SetCell(int Col, int Row, const String& Text) override { TFileCsv::SetCell(Col, Row, Text + u"!"); }
};

TEST(CheckedCells, TellTheValueOrWhyNot) {
  TFileCsv table;
  table.AddRow({u"31.02.2015", u" 04.05.1944 ", u"", u" ", u"12,5 x", u"1,234.5", u"7,50"});
  const String at = u"Zeile 1, Spalte ";
  for (const auto& [told, wanted] : TCases<String, String>{
           {Told<ckText>(table, 1, 0), u" 04.05.1944 "},
           {Told<ckText>(table, 2, 0), u""},
           {Told<ckDate>(table, 1, 0), u"04.05.1944"},
           {Told<ckDate>(table, 0, 0), at + u"1: '31.02.2015' ist kein Datum: diesen Tag gibt es nicht an Position 1"},
           {Told<ckDate>(table, 2, 0), at + u"3: leer"},
           {Told<ckTime>(table, 3, 0), at + u"4: leer"},
           {Told<ckDateTime>(table, 1, 0),
            at + u"2: ' 04.05.1944 ' ist kein Datum mit Uhrzeit: unvollständig an Position 12"},
           {Told<ckFloat>(table, 4, 0), at + u"5: '12,5 x' ist keine Zahl: unerwartetes Zeichen an Position 5"},
           {Told<ckFloat>(table, 6, 0), u"7,5"},
           {Told<ckInt>(table, 6, 0), at + u"7: '7,50' ist keine ganze Zahl: unerwartetes Zeichen an Position 2"},
           {Told<ckHours>(table, 6, 0), at + u"7: '7,50' ist keine Stundenzahl: unerwartetes Zeichen an Position 2"},
           {Told<ckHours>(table, 6, 0, {coIndustry}), u"7:30"},
           {Told<ckMoney>(table, 5, 0), at + u"6: '1,234.5' ist kein Betrag: unerwartetes Zeichen an Position 6"},
           {Told<ckMoney>(table, 5, 0, {coDecimalPoint}), u"1234,50"},
           {Told<ckFactor>(table, 6, 0), u"7,5"},
           {Told<ckFactor>(table, 6, 0, {coDecimalPoint}),
            at + u"7: '7,50' ist kein Faktor: unerwartetes Zeichen an Position 2"},
           {Told<ckBool>(table, 6, 0), at + u"7: '7,50' ist weder Ja noch Nein: unerwartetes Zeichen an Position 1"},
           {Told<ckDate>(table, 7, 0), u"Zeile 1 hat keine Spalte 8"},
           {Told<ckText>(table, INT_MAX, 0), u"Zeile 1 hat keine Spalte 2147483648"},
           {Told<ckText>(table, 0, 1), u"Zeile 2 gibt es nicht"},
           {Told<ckText>(table, 0, -1), u"Zeile 0 gibt es nicht"},
           {Told<ckText>(table, -1, 0), u"Spalte 0 gibt es nicht"},
           {Told<ckText>(table, u"Ort", 0), u"Spalte 'Ort' gibt es nicht"}})
    EXPECT_EQ(told, wanted);
}

TEST(CheckedCells, KnowTheColumnsByName) {
  TTypeCsv table;
  table.SetText(u"Name,Geburt\r\nTim,\r\nIda\r\n");
  EXPECT_EQ(Told<ckText>(table, u"name", 1), u"Tim");
  EXPECT_EQ(Told<ckDate>(table, String(u"geburt"), 2), u"Zeile 3 hat keine Spalte 2 ('Geburt')");
  EXPECT_EQ(Told<ckDate>(table, u"Ort", 1), u"Spalte 'Ort' gibt es nicht");
  table.SetCell(1, 1, u"\"a\n\"");
  const auto cell = ReadCell<ckDate>(table, 1, 1);
  EXPECT_EQ(
      cell.GetLogText(),
      u"cell col=1 row=1 name=\"Geburt\" wanted=date fault=unreadable why=unexpected position=1 text=\"\"\"a \"\"\"");
  EXPECT_EQ(ReadCell<ckInt>(table, u"Ort", 1).GetLogText(),
            u"cell col=-1 row=1 name=\"Ort\" wanted=int fault=nocolumn");
  EXPECT_EQ(test::RaisedBy<EConvertError>([&] { (void)ReadCell<ckDate>(table, 1, 2).value(); }),
            u"Zeile 3 hat keine Spalte 2 ('Geburt')");
  table.SetCell(1, 1, String(70, u'x'));
  EXPECT_EQ(Told<ckInt>(table, 1, 1), u"Zeile 2, Spalte 2 ('Geburt'): '" + String(60, u'x') +
                                          u"...' ist keine ganze Zahl: unerwartetes Zeichen an Position 1");
  EXPECT_EQ((TFacts{cell.IsEmpty(), ReadCell<ckDate>(table, 1, 2).IsEmpty(), ReadCell<ckDate>(table, 1, 4).IsEmpty(),
                    ReadCell<ckInt>(table, 0, 1).value_or(7), *ReadCell<ckInt>(table, 0, 1)}),
            "no yes no 7 0");
}

TEST(CheckedCells, AreWrittenOrTellWhyNot) {
  TFileCsv table;
  table.AddRow(u"a,b");
  auto told = [&](const TCellResult& result) { return (result ? u"ok" : result.GetText()) + u"|" + table.GetText(); };
  EXPECT_EQ(told(WriteCell<ckMoney>(table, 2, 0, 5)), u"Zeile 1 hat keine Spalte 3|a,b");
  EXPECT_EQ(told(GrowCell<ckMoney>(table, 0, 1, 5)), u"Zeile 2 gibt es nicht|a,b");
  EXPECT_EQ(told(GrowCell<ckMoney>(table, -1, 0, 5)), u"Spalte 0 gibt es nicht|a,b");
  EXPECT_EQ(told(GrowCell<ckDate>(table, 5, 0, 0.5)),
            u"Zeile 1, Spalte 6: der Wert ist kein Datum, das in einer Zelle stehen kann|a,b");
  EXPECT_EQ(told(GrowCell<ckMoney>(table, 3, 0, Currency::FromUnits(-12345678))), u"ok|a,b,,\"-1234,5678\"");
  EXPECT_EQ(told(WriteCell<ckMoney>(table, 3, 0, 5, {coDecimalPoint})), u"ok|a,b,,5.00");
  EXPECT_EQ(told(WriteCell<ckBool>(table, 1, 0, true)), u"ok|a,1,,5.00");
  TOwnTable own;
  own.AddRow(u"7:30,x");
  EXPECT_EQ(Told<ckHours>(own, 0, 0), u"7:30");
  EXPECT_EQ((TFacts{bool(WriteCell<ckHours>(own, 1, 0, THourAmount::Of(-6, -45))), own.GetText()}), "yes 7:30,-6:45!");
}

// What would be lost without a word is refused by the compiler.
template <TCellKind K, typename T>
concept Writable = requires(TFileCsv& Table, const T& Value) {
  WriteCell<K>(Table, 0, 0, Value);
};
static_assert(Writable<ckInt, int> && Writable<ckFloat, int> && Writable<ckMoney, int> &&
              Writable<ckText, const char16_t*>);
static_assert(!Writable<ckInt, double> && !Writable<ckInt, uint64_t> && !Writable<ckBool, int>);
static_assert(!Writable<ckBool, const char16_t*> && !Writable<ckText, int> && !Writable<ckMoney, double>);

}  // namespace
