#include "services/uAnimate.h"

#include "tables/uFileCsv.h"
#include "tests/support/Test.h"

namespace {

struct AnimateTest : testing::Test {
  ~AnimateTest() override { uAnimate::FreeBuffersForLeakPrevention(); }
  // The statistic without its head, cells joined by "|" and rows by "/".
  static String Show(const TSWList& watches) {
    auto table = watches.Statistic();
    EXPECT_EQ(table->GetLines(0)->GetCommaText(), u"Name,Zeit,Anzahl,Durchschnitt,Min,Max,Nr,Level");
    String text;
    for (int row = 1; row < table->GetCount(); ++row) {
      for (const String& cell : table->GetLines(row)->Items()) text += cell + u"|";
      text.SetUnit(text.size() - 1, u'/');
    }
    return text;
  }
  test::TClockAt Clock{46000.25};
  test::TZoneAt Zone{60};
  TObject A, B;
  TSWList List;
};

TEST_F(AnimateTest, SpansEndFromTheLatestAndAreToldByTheirTag) {
  TStopWatch watch;
  EXPECT_EQ((TFacts{watch.GetOwnsObjects(), TStopWatch(false).GetOwnsObjects()}), "yes no");
  for (TObject* tag : {&A, &B, &A, static_cast<TObject*>(nullptr)}) watch.Start(tag, u"in");
  watch.Add(new TObject);
  const TCases<TObject*, int> cases = {{&A, 2}, {&A, 0}, {&A, -1}, {nullptr, 3}, {nullptr, -1}, {&B, 1}};
  for (int count = 0; const auto& [tag, ended] : cases) {
    Clock.Advance(1000);
    EXPECT_EQ(watch.Finish(tag, u"out"), ended >= 0);
    EXPECT_EQ(watch.FinishCount(), count += ended >= 0);
    if (ended < 0) continue;
    auto* period = static_cast<TSWPeriod*>(watch.Get(ended));
    EXPECT_EQ(period->GetFinish(), Now());
    EXPECT_EQ(period->GetSText() + u"|" + period->GetFText(), u"in|out");
    EXPECT_NEAR(period->Period() * 86400, static_cast<double>(Clock.Ticks()) / 1000, 1e-4);
    period->Init();
    EXPECT_EQ((TFacts{period->GetSText(), period->GetFText(), period->Period()}), "  0");
    EXPECT_EQ(period->GetTag(), nullptr);
    period->SetFinish(1);
  }
  watch.SetName(u"x"), watch.SetLevel(3), watch.SetNr(4);
  watch.Init();
  EXPECT_EQ((TFacts{watch.GetName(), watch.GetLevel(), watch.GetNr(), watch.GetCount()}), " 0 0 5");
}

TEST_F(AnimateTest, StatisticTellsTimesAndNesting) {
  const TCases<String, String, TObject*, int> steps = {{u"b", u"", &A, 0},
                                                       {u"a", u"a", &A, 1250},
                                                       {u"a", u"a", &B, 61'500},
                                                       {u"B", u"b", &A, 3'600'022},
                                                       {u"A b,\"", u"", nullptr, 0}};
  for (const auto& [start, stop, tag, wait] : steps) {
    List.Start(start, tag);
    Clock.Advance(wait);
    EXPECT_EQ(List.Stop(stop, tag), !stop.empty());
  }
  const String open = u"|0:00:00:000|0|0:00:000|0:00:000|0:00:000|";
  EXPECT_EQ(Show(List), u"+A b,\"" + open + u"3|1/+B" + open +
                            u"2|1/+a|0:01:02:750|2|0:31:375|0:01:250|1:01:500|1|1/"
                            u"b|1:01:02:772|1|1:02:772|1:02:772|1:02:772|0|0/");
  TFileCsv table;
  table.AddRow(u"old");
  List.Statistic(table);
  EXPECT_EQ(table.GetCount(), 5);
  for (std::u16string_view name : {u"+a", u"a", u"+A", u"Name", u""}) {
    TVxStringList element;
    element.Add(u"old");
    List.getStatisticElement(name, element);
    EXPECT_TRUE(element.Equals(*List.getStatisticElement(name)));
    EXPECT_EQ(element.GetCount(), name == u"+a" || name == u"Name" ? 8 : 0) << String(name).ToUtf8();
  }
  TScriptedDialogs dialogs;
  List.ShowStatistic();
  EXPECT_NE(dialogs.Shown.at(0).Text.view().find(u"+a,0:01:02:750,2,"), std::u16string_view::npos);
}

TEST_F(AnimateTest, LevelsFallWithEveryStopOfAKnownName) {
  const auto levelAfter = [&](const String& name) {
    List.Start(name, &A);
    return static_cast<TStopWatch*>(List.GetObjects(List.IndexOf(name)))->GetLevel();
  };
  EXPECT_EQ((TFacts{levelAfter(u"a"), levelAfter(u"b")}), "0 1");
  EXPECT_EQ((TFacts{List.Stop(u"b", &B), List.Stop(u"c", &A)}), "no no") << "no such tag, no such name";
  EXPECT_EQ(levelAfter(u"c"), 1);
  List.SetActive(false);
  List.Start(u"d", &A);
  EXPECT_EQ((TFacts{List.Stop(u"a", &A), List.GetCount()}), "no 3");
  List.SetActive(true);
  for (int i = 0; i < 3; ++i) List.Stop(u"a", &A);
  EXPECT_EQ(levelAfter(u"a"), -1) << "more ends than starts";
  List.Add(u"e", new TObject);
  EXPECT_FALSE(List.Stop(u"e", &A)) << "no watch";
  EXPECT_EQ(levelAfter(u"e"), -1);
  List.SetActive(false);
  List.Init();
  EXPECT_EQ((TFacts{List.GetCount(), List.GetActive(), levelAfter(u"x")}), "0 yes 0");
  EXPECT_EQ(List.GetOptions(), (TVxStringIndexOptions{vxioOwnsObjects, vxioModifyAnsiChars}));
  Animate()->Start(u"a", &A);
  EXPECT_EQ(Animate()->GetCount(), 1) << "one list until it is freed";
  uAnimate::FreeBuffersForLeakPrevention();
  EXPECT_EQ(Animate()->GetCount(), 0);
}

}  // namespace
