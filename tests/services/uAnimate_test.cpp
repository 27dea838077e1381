#include "services/uAnimate.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "tables/uFileCsv.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

class AnimateTest : public testing::Test {
 protected:
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
  TManualClock Clock{46000.25};
  TClockScope Scope{Clock};
  TFixedTimeZone Zone{60};
  TTimeZoneScope ZoneScope{Zone};
  TObject A, B;
  TSWList List;
};

TEST_F(AnimateTest, SpansEndFromTheLatestAndAreToldByTheirTag) {
  TStopWatch watch;
  EXPECT_TRUE(watch.GetOwnsObjects() && !TStopWatch(false).GetOwnsObjects());
  for (TObject* tag : {&A, &B, &A, static_cast<TObject*>(nullptr)}) watch.Start(tag, u"in");
  watch.Add(new TObject);
  struct {
    TObject* Tag;
    int Ended;
  } cases[] = {{&A, 2}, {&A, 0}, {&A, -1}, {nullptr, 3}, {nullptr, -1}, {&B, 1}};
  for (int count = 0; const auto& c : cases) {
    Clock.Advance(1000);
    EXPECT_EQ(watch.Finish(c.Tag, u"out"), c.Ended >= 0);
    EXPECT_EQ(watch.FinishCount(), count += c.Ended >= 0);
    if (c.Ended < 0) continue;
    auto* period = static_cast<TSWPeriod*>(watch.Get(c.Ended));
    EXPECT_TRUE(period->GetFinish() == Now() && period->GetFText() == u"out" && period->GetSText() == u"in");
    EXPECT_NEAR(period->Period() * 86400, static_cast<double>(Clock.Ticks()) / 1000, 1e-4);
    period->Init();
    EXPECT_TRUE((period->GetFText() + period->GetSText()).empty() && period->Period() == 0 && !period->GetTag());
    period->SetFinish(1);
  }
  watch.SetName(u"x"), watch.SetLevel(3), watch.SetNr(4);
  watch.Init();
  EXPECT_TRUE(watch.GetName().empty() && watch.GetLevel() == 0 && watch.GetNr() == 0 && watch.GetCount() == 5);
}

TEST_F(AnimateTest, StatisticTellsTimesAndNesting) {
  struct {
    String Start, Stop;
    TObject* Tag;
    int Wait;
  } steps[] = {{u"b", u"", &A, 0},
               {u"a", u"a", &A, 1250},
               {u"a", u"a", &B, 61'500},
               {u"B", u"b", &A, 3'600'022},
               {u"A b,\"", u"", nullptr, 0}};
  for (const auto& step : steps) {
    List.Start(step.Start, step.Tag);
    Clock.Advance(step.Wait);
    EXPECT_EQ(List.Stop(step.Stop, step.Tag), step.Stop != u"");
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
  EXPECT_TRUE(levelAfter(u"a") == 0 && levelAfter(u"b") == 1);
  EXPECT_FALSE(List.Stop(u"b", &B) || List.Stop(u"c", &A)) << "no such tag, no such name";
  EXPECT_EQ(levelAfter(u"c"), 1);
  List.SetActive(false);
  List.Start(u"d", &A);
  EXPECT_FALSE(List.Stop(u"a", &A) || List.GetCount() != 3);
  List.SetActive(true);
  for (int i = 0; i < 3; ++i) List.Stop(u"a", &A);
  EXPECT_EQ(levelAfter(u"a"), -1) << "more ends than starts";
  List.Add(u"e", new TObject);
  EXPECT_FALSE(List.Stop(u"e", &A)) << "no watch";
  EXPECT_EQ(levelAfter(u"e"), -1);
  List.SetActive(false);
  List.Init();
  EXPECT_TRUE(List.GetCount() == 0 && List.GetActive() && levelAfter(u"x") == 0);
  EXPECT_EQ(List.GetOptions(), (TVxStringIndexOptions{vxioOwnsObjects, vxioModifyAnsiChars}));
  Animate()->Start(u"a", &A);
  EXPECT_EQ(Animate()->GetCount(), 1) << "one list until it is freed";
  uAnimate::FreeBuffersForLeakPrevention();
  EXPECT_EQ(Animate()->GetCount(), 0);
}

}  // namespace
}  // namespace vx
