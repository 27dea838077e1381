// What the headers say of threads: values that are shared, and objects of each thread that stand on shared tables,
// settings and caches, which nobody has used before.
#include <barrier>
#include <thread>

#include "core/HourPeriods.h"
#include "core/MoneyText.h"
#include "core/uConst.h"
#include "objects/uVxClassesString.h"
#include "objects/uVxTree.h"
#include "platform/Collation.h"
#include "platform/Currency.h"
#include "platform/DateText.h"
#include "platform/NumberMasks.h"
#include "platform/TRecordingCanvas.h"
#include "platform/TRegEx.h"
#include "rendering/uDecoration.h"
#include "rendering/uVxTinyHTML.h"
#include "services/uSharedIni.h"
#include "services/uVxEvents.h"
#include "services/uVxXml.h"
#include "tables/CellSums.h"
#include "tables/TableTexts.h"
#include "tables/uSort.h"
#include "tables/uTypeCsv.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

// What several threads have at once, none of which changes it.
struct TShared {
  TShared() {
    for (int i = 0; i < 60; ++i) {
      const String number = IntToStr(i * 7 % 60);
      for (TFileCsv* table : {static_cast<TFileCsv*>(&Typed), &Table})
        table->AddRow({u"Schlüsselnummer " + number, number + u":30", number + u",25", number + u".01.2026"});
    }
    for (int i = 0; i < 9; ++i) Row.Add(u"a cell that is longer than most " + IntToStr(i));
  }
  String Text = std::u16string_view(u"a text that is longer than what stands in a value");
  TVxStringList Row;
  TFileCsv Table;
  TTypeCsv Typed;
  TRegEx Expression{u"nummer (\\d)7$"};
};

template <typename... T>
std::string Told(const T&... values) {
  return testing::PrintToString(TFacts{values...});
}

std::string Sorted(const TFileCsv& table) {
  std::vector<const TVxStringList*> rows;
  for (int i = 0; i < table.GetCount(); ++i) rows.push_back(table.GetLines(i));
  const TSortColumn by[] = {{.Index = 0, .SortType = vftString, .SortDirection = -1}};
  return Told(OrderRows(rows, by));
}

std::string Painted() {
  TRecordingCanvas canvas;
  TDecorationList looks;
  looks.SetColCount(5), looks.SetRowCount(20);
  looks.CreateRange(rtColumn, 2, -1, 2, -1)->SetFieldType(vftDate);
  HTML2Canvas(u"<b>Frau Müller</b><br>um <font color = \"clRed\">8:30</font>", canvas, {0, 0, 200, 40}, taLeftJustify,
              1.0);
  bool isFraction = false;
  const String shown = TDecorator::FormatText(u"20260224", vftDate, u"dd.mm.yyyy", isFraction);
  return Told(canvas.GetText(), looks.VirtualListForCell(2, 7)->GetCount(), shown, looks.GetCommatext());
}

using TWork = std::function<std::string(TShared&)>;
const std::pair<const char*, TWork> Works[] = {
    {"copies of a text and of a row",
     [](TShared& all) {
       String text = all.Text;
       TVxStringList row, same;
       row.Assign(all.Row), same.Assign(all.Row);
       text += u"!", row.Put(3, text), row.Sort();
       return Told(text, row.GetCommatext(), same.GetCommatext(), all.Text);
     }},
    {"a table that is read",
     [](TShared& all) {
       const TFileCsv& table = all.Table;
       return Told(table.GetText(), table.GetCellsAsDate(3, 5), table.ColumnContentUnique(1),
                   table.IndexForColKey(0, u"Schlüsselnummer 13"), TableToJsonLines(table),
                   HourAmountToStr(SumHoursY(table, 1, 1).Sum), CurrToStr(table.SumCurrencyY(2, 0, 9)));
     }},
    {"a copy of a table that is changed",
     [](TShared& all) {
       const auto copy = all.Table.Duplicate();
       for (int i = 0; i < 60; i += 3) copy->SetCell(1, i, u"changed"), copy->GetLines(i + 1)->Add(u"more");
       return Told(copy->GetText(), copy->TurnAxis()->GetText());
     }},
    {"a typed table", [](TShared& all) { return Told(all.Typed.Duplicate()->GetText(), all.Typed.GetContentCount()); }},
    {"rows in order", [](TShared& all) { return Sorted(all.Table); }},
    {"an expression",
     [](TShared& all) {
       return Told(all.Expression.IsMatch(all.Table.GetCell(0, 1)), all.Expression.IsMatch(u"nummer 47"));
     }},
    {"forms of values",
     [](TShared&) {
       return Told(FormatFloat(u"#,##0.00", 1234567.891L), DateToStr(46000), CurrToStr(StrToMoney(u"1.234,50 EUR")),
                   AnsiCompareText(u"Straße", u"STRASSE"), TVxString::ToDate(u"20150211", 0),
                   GetSystemCodePage().Encode(u"Öl €"));
     }},
    {"names of subtypes, hours in Germany",
     [](TShared&) {
       return Told(getSubTypeText(u"FamStatus", 1), getSubTypeSymbol(u"NATIONALITY", 1),
                   HourAmountToStr(ElapsedHours({46109.9, 46110.3})));
     }},
    {"rich texts and decorations", [](TShared&) { return Painted(); }},
    {"XML, trees and templates",
     [](TShared&) {
       TXmlObject read;
       read.Read(u"<A id=\"1\"><NAME>Müller &amp; Sohn</NAME></A>");
       TVxStringList lines;
       read.GetXmlText(0, lines);
       TVxTextNode root;
       const String path = root.Validate(u"Bonn")->Validate(u"Beuel")->TextToRoot(u"\\");
       const String holders[] = {u"%N%"}, names[] = {u"Meier"};
       TVxStringReplacer letter;
       return Told(lines.GetTextStr(), path, letter.ReplaceString(u"Frau %N%", holders, names, true).ToString());
     }},
    {"a signal of its own", [](TShared&) {
       TIdSignal signal;
       int heard = 0;
       for (int i = 0; i < 9; ++i) {
         const TConnection connection = signal.Connect([&](TObject*, int id) { heard += id; });
         signal.Emit(nullptr, i);
       }
       return Told(heard, signal.Count());
     }}};

TEST(SharingThreads, SeveralAtOnceGetWhatOneGets) {
  constexpr int kThreads = 3, kRounds = 8;
  TShared all;
  std::vector<std::vector<std::string>> got(kThreads);
  std::barrier together(kThreads);
  {
    std::vector<std::jthread> threads;
    for (auto& told : got) {
      threads.emplace_back([&] {
        for (int round = 0; round < kRounds; ++round) {
          for (const auto& [what, work] : Works) together.arrive_and_wait(), told.push_back(work(all));
        }
      });
    }
  }
  for (const auto& told : got) {
    for (size_t i = 0; i < told.size(); ++i) {
      const auto& [what, work] = Works[i % std::size(Works)];
      ASSERT_EQ(told[i], work(all)) << what;
    }
  }
}

TEST(SharingThreads, EachHasItsOwnObjectOfAConfigurationFile) {
  test::TTempDir dir;
  const auto store = [&](const String& mine) {
    TSharedIni ini(dir.Path("shared.ini"));
    for (int i = 0; i < 10; ++i) {
      ini.WriteString(mine, IntToStr(i), mine);
      EXPECT_TRUE(ini.Store());
    }
  };
  for (int round = 0; round < 2; ++round) std::jthread a([&] { store(u"a"); }), b([&] { store(u"b"); });
  TSharedIni ini(dir.Path("shared.ini"));
  for (const char16_t* key : {u"0", u"9"}) {
    EXPECT_EQ((TFacts{ini.ReadString(u"a", key, u""), ini.ReadString(u"b", key, u"")}), "a b");
  }
}

}  // namespace
