// TObjectList and the protocol of TStrings.

#include "core/uVxFunctionsSerialize.h"
#include "objects/uVxClasses.h"
#include "objects/uVxGenerics.h"
#include "objects/uVxObjects.h"
#include "platform/Sorting.h"
#include "platform/TObjectList.h"
#include "tables/uFileCsv.h"
#include "tests/support/Test.h"

namespace {

struct TNotedList : TObjectList {
  using TObjectList::TObjectList;
  ~TNotedList() override { Clear(); }
  std::string Log;
  void Notify(TObject* Object, TListNotification Action) override {
    (Log += "+xd"[Action]) += std::to_string(GetCount());
    TObjectList::Notify(Object, Action);
  }
};

TEST(TObjectList, FreesExactlyWhatItOwns) {
  for (bool owns : {true, false}) {
    std::vector<int> gone;
    test::TProbe* probes[5];
    for (int i = 0; i < 5; ++i) probes[i] = new test::TProbe([&gone, i] { gone.push_back(i); });
    {
      TObjectList list(owns);
      for (TObject* probe : probes) list.Add(probe);
      list.Delete(1), list.Put(0, nullptr);
      EXPECT_EQ((TFacts{list.Extract(probes[2]) == probes[2], !list.Extract(probes[2])}), "yes yes");
      EXPECT_EQ((TFacts{list.Remove(probes[3]), list.Remove(probes[3])}), "1 -1");
    }
    EXPECT_EQ(gone, owns ? (std::vector<int>{1, 0, 3, 4}) : std::vector<int>{});
    for (int i = 0; i < 5; ++i)
      if (!owns || i == 2) delete probes[i];
  }
}

TEST(TObjectList, NotifiesAfterTheChangeAndMovesInOrder) {
  TObject items[4];
  TNotedList list(false);
  list.Add(&items[0]), list.Insert(0, &items[1]), list.Insert(2, &items[2]), list.Put(1, &items[2]);
  list.Extract(&items[1]), list.Delete(0);
  EXPECT_EQ(list.Log, "+1+2+3d3+3x2d1");
  list.Clear();
  for (TObject& item : items) list.Add(&item);
  list.Move(0, 2), list.Move(3, 1), list.Exchange(0, 3);
  std::string places;
  for (TObject* item : list.Items()) places += static_cast<char>('0' + (item - items));
  EXPECT_EQ(places, "0321");
}

struct TScopeList : TObjectList {
  using TObjectList::TDeleteScope;
  using TObjectList::TObjectList;
};

TEST(TObjectList, DeletesManyInAScopeWhateverElseIsDoneMeanwhile) {
  std::vector<TObject> objects(400);
  for (unsigned seed = 1; seed <= 40; ++seed) {
    std::mt19937 random(seed);
    TScopeList list(false);
    std::vector<TObject*> model;
    for (TObject& object : objects) list.Add(&object), model.push_back(&object);
    {
      const TScopeList::TDeleteScope scope(list), inner(list);
      for (int place = static_cast<int>(model.size()); !model.empty() && place-- > 0;) {
        const auto other = random() % model.size();
        const auto index = static_cast<int>(other);
        const auto at = model.begin() + index;
        const auto what = random() % 40;
        if (what == 0) list.Add(&objects[other]), model.push_back(&objects[other]);
        if (what == 1) list.Insert(index, nullptr), model.insert(at, nullptr);
        if (what == 2) list.Put(index, &objects[0]), *at = &objects[0];
        if (what == 3) list.Exchange(index, 0), std::swap(*at, model[0]);
        if (what == 4) list.Move(index, 0), std::rotate(model.begin(), at, at + 1);
        if (what == 5) list.Extract(*at), model.erase(std::ranges::find(model, *at));
        if (what == 6) list.Delete(index), model.erase(at);
        if (what == 7) list.SetCapacity(list.GetCount());
        if (what == 8) list.SetCount(list.GetCount() - 1), model.pop_back();
        if (static_cast<size_t>(place) >= model.size() || random() % 3 == 0) continue;
        list.Delete(place), model.erase(model.begin() + place);
        ASSERT_EQ(list.GetCount(), static_cast<int>(model.size()));
        for (size_t i = 0; i < model.size(); ++i) ASSERT_EQ(list.Get(static_cast<int>(i)), model[i]);
        EXPECT_THROW((void)list.Get(list.GetCount()), EListError);
      }
    }
    EXPECT_TRUE(std::ranges::equal(list.Items(), model));
  }
}

TEST(TObjectList, RefusesBadIndexesAndStaysAsItWas) {
  TObject object;
  TObjectList list(false);
  list.Add(&object);
  const std::function<void()> faults[] = {[&] { list.Get(1); },         [&] { list.Put(1, &object); },
                                          [&] { list.Delete(1); },      [&] { list.Insert(2, &object); },
                                          [&] { list.Exchange(0, 1); }, [&] { list.Move(0, 1); },
                                          [&] { list.SetCapacity(0); }};
  for (const auto& fault : faults) EXPECT_THROW(fault(), EListError);
  EXPECT_EQ(test::RaisedBy<EListError>([&] { list.Get(-7); }), u"List index out of bounds (-7)");
  EXPECT_EQ(list.GetCount(), 1);
}

// The protocol itself, over the least that a list must have.
struct TPlainList : TStrings {
  String Get(int Index) const override { return FItems.at(static_cast<size_t>(Index)); }
  int GetCount() const override { return static_cast<int>(FItems.size()); }
  void Insert(int Index, const String& Text) override { FItems.insert(FItems.begin() + Index, Text); }
  void Delete(int Index) override { FItems.erase(FItems.begin() + Index); }
  void Clear() override { FItems.clear(); }
  void SetUpdateState(bool Updating) override {
    Updates += Updating ? '(' : ')';
    if (!Updating && RaisesAtEnd) throw Exception(u"end");
  }
  std::string Updates;
  bool RaisesAtEnd = false;
  std::vector<String> FItems;
};

TEST(TStrings, TextCutsAtEveryKindOfLineEnd) {
  const std::pair<String, String> cases[] = {{u"", u""},
                                             {u"a\r\nb\rc\nd", u"a\r\nb\r\nc\r\nd\r\n"},
                                             {u"a\n\nb\r\r", u"a\r\n\r\nb\r\n\r\n"},
                                             {u"\n\r", u"\r\n\r\n"},
                                             {std::u16string_view(u"a\0b", 3), u"a\r\n"}};
  for (const auto& [text, back] : cases) {
    TPlainList list;
    list.SetText(text);
    EXPECT_EQ(list.GetText(), back);
    EXPECT_EQ(list.Updates, "()");
  }
}

TEST(TStrings, CommaTextQuotesAndReadsBack) {
  const std::pair<String, String> cases[] = {{u"a b", u"a,b"},   {u"\"a \"\"b\"\"\", c", u"\"a \"\"b\"\"\",c"},
                                             {u"a,", u"a,"},     {u",", u","},
                                             {u"\"\"", u"\"\""}, {u"\"open, end", u"\"open, end\""},
                                             {u"  ", u""}};
  for (const auto& [text, back] : cases) {
    TPlainList list;
    list.SetCommaText(text);
    EXPECT_EQ(list.GetCommaText(), back) << text.ToUtf8();
  }
}

TEST(TStrings, WhatTheEndOfAnUpdateRaisesReachesTheCaller) {
  TPlainList list, other;
  list.SetCommaText(u"b ,a"), list.RaisesAtEnd = true;
  void (*runs[])(TStrings&) = {[](auto& l) { l.SetCommaText(u"c, d"); }, [](auto& l) { l.Exchange(0, 1); },
                               [](auto& l) { TrimStrings(l, true, true, true, true, false); },
                               [](auto& l) { l.SetText(u"e"); }, [](auto& l) { l.Assign(TVxStringList()); }};
  for (int i = 0; auto run : runs) {
    EXPECT_EQ(test::RaisedBy<Exception>([&] { run(list); }), u"end") << i;
    EXPECT_EQ(list.GetUpdateCount(), 0) << i++;
  }
  const auto nested = [&] {
    const TUpdateScope scope(list), again(list);
    throw Exception(u"first");
  };
  EXPECT_EQ(test::RaisedBy<Exception>(nested), u"first");
  EXPECT_EQ(list.GetUpdateCount(), 0);
}

TEST(TStrings, MovesExchangesAssignsAndCompares) {
  TPlainList a, b;
  a.SetCommaText(u"0,1,2,3"), a.Move(0, 2), a.Exchange(0, 3);
  b.Assign(a), b.AddStrings(a);
  EXPECT_EQ((TFacts{b.GetCommaText(), b.Equals(a)}), "3,2,0,1,3,2,0,1 no");
  a.Assign(b);
  EXPECT_TRUE(a.Equals(b));
  b.SetText(u"Straße\nÄrger\n");
  EXPECT_EQ((TFacts{b.IndexOf(u"ärger"), b.IndexOf(u"Strasse")}), "1 -1");
}

TEST(Sorts, LoseNothingWhateverTheComparisonSays) {
  std::mt19937 random(4);
  int left = 0;
  const std::function<int()> kinds[] = {[] { return -1; }, [] { return 1; },
                                        [&] { return static_cast<int>(random() % 3) - 1; },
                                        [&] { return --left < 0 ? throw Exception(u"") : static_cast<int>(random()); }};
  for (int count : {0, 1, 2, 7, 8, 17, 100, 3000}) {
    for (const auto& compare : kinds) {
      std::vector<int> objects(static_cast<size_t>(count)), numbers(objects.size());
      std::iota(numbers.begin(), numbers.end(), 0);
      TObjectList plain(false);
      TVxObjectList told(false);
      TVxDoubleList doubles;
      GList<std::string> texts;
      GSortList<int> sorted([&](int, int) { return compare(); });
      for (int& object : objects) {
        auto* item = reinterpret_cast<TObject*>(&object);
        plain.Add(item), told.Add(item), doubles.Add(object = static_cast<int>(&object - objects.data()));
        texts.Add(std::to_string(object));
      }
      const auto attempt = [&](auto run) {
        left = count;
        try {
          run();
        } catch (const Exception&) {
        }
      };
      attempt([&] { plain.Sort([&](auto, auto) { return compare(); }); });
      attempt([&] { told.Sort([&](auto, auto) { return compare(); }); });
      attempt([&] { doubles.Sort([&](auto, auto) { return compare(); }); });
      attempt([&] { texts.Sort([&](auto&, auto&) { return compare(); }); });
      attempt([&] { sorted.AddRange(numbers); });
      std::vector<int> items[5];
      for (int i = 0; i < count; ++i) {
        items[0].push_back(*reinterpret_cast<int*>(plain.Get(i)));
        items[1].push_back(*reinterpret_cast<int*>(told.GetItem(i)));
        items[2].push_back(static_cast<int>(doubles.Get(i)));
        items[3].push_back(std::stoi(texts.Get(i)));
      }
      items[4].assign(sorted.Items().begin(), sorted.Items().end());
      if (items[4].empty()) items[4] = numbers;  // a comparison has raised
      for (auto& each : items) {
        std::ranges::sort(each);
        EXPECT_EQ(each, numbers) << &each - items << " of " << count;
      }
    }
  }
}

TEST(Sorts, MergeKeepsEqualOnesInTheirOrder) {
  std::mt19937 random(5);
  for (size_t count : {0, 1, 6, 7, 8, 50, 1000, 4097}) {
    std::vector<std::pair<int, size_t>> expected;
    for (size_t i = 0; i < count; ++i) expected.emplace_back(static_cast<int>(random() % (1 + count / 4)), i);
    const auto keys = expected;
    size_t compared = 0;
    const auto order = StableOrder(count, [&](size_t a, size_t b) { return keys[a].first < keys[b].first; });
    std::ranges::sort(expected);
    ASSERT_EQ(order.size(), count);
    for (size_t i = 0; i < count; ++i) ASSERT_EQ(order[i], expected[i].second) << count;
    const auto stays = StableSort(order, [&](size_t a, size_t b) { return ++compared, keys[a].first < keys[b].first; });
    EXPECT_EQ(stays, order);
    EXPECT_EQ(compared, count > 0 ? count - 1 : 0);
  }
}

// Numbers that stand so that each partition around the middle one parts only few from the rest: they get their values
// while they are sorted.
std::vector<int> HostileToPartitions(int Count) {
  std::vector<int> items(static_cast<size_t>(Count)), values(items.size(), Count);
  std::iota(items.begin(), items.end(), 0);
  int next = 0, candidate = 0;
  PartitionSort(
      0, Count - 1,
      [&](int a, int b) {
        const int x = items[static_cast<size_t>(a)], y = items[static_cast<size_t>(b)];
        int &valueX = values[static_cast<size_t>(x)], &valueY = values[static_cast<size_t>(y)];
        if (x != y && valueX == Count && valueY == Count) (x == candidate ? valueX : valueY) = next++;
        candidate = valueX == Count ? x : valueY == Count ? y : candidate;
        return valueX - valueY;
      },
      [&](int a, int b) { std::swap(items[static_cast<size_t>(a)], items[static_cast<size_t>(b)]); });
  return values;
}

TEST(Sorts, PartitionsEndWithinTheirMeasure) {
  const int count = 4000;
  std::vector<int> values = HostileToPartitions(count);
  int64_t compared = 0;
  const auto isDone = [&](std::vector<int> items, int64_t most) {
    compared = 0;
    return PartitionSortWithin(
        most, 0, count - 1,
        [&](int a, int b) { return ++compared, items[static_cast<size_t>(a)] - items[static_cast<size_t>(b)]; },
        [&](int a, int b) { std::swap(items[static_cast<size_t>(a)], items[static_cast<size_t>(b)]); });
  };
  EXPECT_TRUE(isDone(values, INT64_MAX));
  EXPECT_GT(compared, int64_t{count} * count / 8);
  EXPECT_FALSE(isDone(values, 60 * count));
  EXPECT_LT(compared, 70 * count);
  TFileCsv table;
  for (int value : values) table.AddRow(u"A" + IntToStr(10000 + value));
  TVxStringList unique, expected;
  for (int value : std::set<int>(values.begin(), values.end())) expected.Add(u"A" + IntToStr(10000 + value));
  unique.SetCommatext(table.ColumnContentUnique(0));
  EXPECT_TRUE(unique.Equals(expected));
}

}  // namespace
