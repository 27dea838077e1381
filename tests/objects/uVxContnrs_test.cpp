#include "objects/uVxContnrs.h"

#include <atomic>
#include <thread>

#include "tests/support/Test.h"

namespace {

using namespace vx;

char pool[128];
void* P(char name) { return &pool[static_cast<int>(name)]; }

TEST(TVxChainList, CacheFollowsTheWork) {
  // g<i> Get, d<i> Delete, i<i><c> Insert, f<c> IndexOf, r<c> Remove, < and > pop, c Clear
  const struct {
    const char* Script;
    const char* Items;
    int Cached;
  } cases[] = {{"", "abcdefghij", -1},
               {"g3g10g-1", "abcdefghij", 3},
               {"i3x", "abcxdefghij", 3},
               {"i0x", "xabcdefghij", -1},
               {"g2i0x", "xabcdefghij", 3},
               {"g2i99x", "abcdefghijx", 2},
               {"g2i10x", "abcdefghijx", 2},
               {"g4i-5xd-1d11", "xabcdefghij", 5},
               {"g4d4", "abcdfghij", 4},
               {"g9d9", "abcdefghi", 8},
               {"d2", "abdefghij", 2},
               {"g4<", "bcdefghij", 3},
               {"g4>", "abcdefghi", 4},
               {"g0<", "bcdefghij", 0},
               {"g9>", "abcdefghi", 8},
               {"g4fd", "abcdefghij", 4},
               {"g4ff", "abcdefghij", 4},
               {"g4fa", "abcdefghij", 0},
               {"g4fz", "abcdefghij", 4},
               {"g4ra", "bcdefghij", 0},
               {"g4rf", "abcdeghij", 4},
               {"g4rd", "abcefghij", 3},
               {"g4rz", "abcdefghij", 4},
               {"g4c", "", -1},
               {"g0d0d0d0d0d0d0d0d0d0d0g0fa<>", "", -1},
               {"ci5xg0>fx", "", -1}};
  for (const auto& c : cases) {
    TVxChainList list;
    std::string items;
    for (char item = 'a'; item <= 'j'; ++item) EXPECT_EQ(list.Add(P(item)), item - 'a');
    for (const char* at = c.Script; *at;) {
      char* end = nullptr;
      const char work = *at++;
      const int number = static_cast<int>(std::strtol(at, &end, 10));
      if (std::strchr("gdi", work)) at = end;
      switch (work) {
        case 'g':
          list.Get(number);
          break;
        case 'd':
          list.Delete(number);
          break;
        case 'i':
          list.Insert(number, P(*at++));
          break;
        case 'f':
          list.IndexOf(P(*at++));
          break;
        case 'r':
          list.Remove(P(*at++));
          break;
        case 'c':
          list.Clear();
          break;
        case '<':
          list.PopFirst();
          break;
        case '>':
          list.PopLast();
      }
    }
    EXPECT_EQ(list.GetCachedIndex(), c.Cached) << c.Script;
    while (list.GetCount() > 0) items += static_cast<char>(static_cast<char*>(list.PopFirst()) - pool);
    EXPECT_EQ(items, c.Items) << c.Script;
  }
}

TEST(TVxChainList, WalksByIndexAreLinear) {
  TVxChainList list;
  int count = 300000, seen = 0;
  for (int i = 0; i < count; ++i) list.Add(P('a'));
  for (int i = 0; i < 2 * count; ++i) seen += list.Get(i < count ? i : 2 * count - 1 - i) == P('a');
  for (int i = 0; i < count; ++i) seen += list.Get(count / 2 + i * 5 % 8) == P('a');
  for (int i = 0; i < count; ++i) list.Delete(list.GetCount() / 2);
  EXPECT_TRUE(seen == 3 * count && list.GetCount() == 0);
}

TEST(TVxThreadList, ThreadsShareIt) {
  using T = TVxThreadList;
  T list;
  std::vector<std::atomic<int>> taken(6000);
  std::atomic<size_t> left = taken.size();
  auto produce = [&](size_t first) {
    for (size_t i = first; i < taken.size(); i += 2) {
      TVxThreadListLock locked(list);
      list.Add(&taken[i]);  // the lock counts
      if (i % 3 == 0) locked->Insert(0, locked->PopLast());
    }
  };
  auto consume = [&](void* (T::*pop)()) {
    while (left > 0)
      if (void* data = (list.*pop)()) ++*static_cast<std::atomic<int>*>(data), --left;
  };
  { std::jthread a(consume, &T::PopFirst), b(consume, &T::PopLast), c(produce, 0), d(produce, 1); }
  EXPECT_TRUE(std::all_of(taken.begin(), taken.end(), [](int times) { return times == 1; }) && list.GetCount() == 0);
}

struct TProbe : test::TProbe {
  TProbe(
      std::string& l, char c, std::function<void()> f = [] {})
      : test::TProbe([&l, c, f] { l += c, f(); }) {}
};

TEST(TVxThreadList, FreesOnlyWhatItIsToldTo) {
  std::string log;
  TProbe kept(log, 'k');
  TVxThreadList list;
  auto add = [&](char name, std::function<void()> f) { list.Add(static_cast<TObject*>(new TProbe(log, name, f))); };
  add('a', [&] { add('x', [] {}); }), add('b', [] {});
  TVxThreadListLock locked(list);
  for (int number : {-1, 1, 99}) list.FreeObjectsFirst(number), log += '.';
  EXPECT_TRUE(list.Add(&kept) == 0 && list.Remove(&kept) == 0 && list.Remove(&kept) == -1 && list.Add(&kept) == 0);
  list.Clear();
  EXPECT_TRUE(locked->GetCount() == 0 && log == ".a.bx.");
}

TEST(TVxIdValueList, ReadsAndWritesCsv) {
  const struct {
    TVxIdValueListType Type;
    String Text, Back;
    int Of7;
  } cases[] = {{vtInteger, u"", u"", 0},
               {vtInteger, u"7,42", u"7,42\x1B", 42},
               {vtInteger,
                u"9,1\x1B"
                u"7,2\x1B"
                u"5\x1B"
                u"x,y\x1B"
                u"7,4,5\x1B"
                u"-1,-2",
                u"-1,-2\x1B"
                u"0,0\x1B"
                u"7,4\x1B"
                u"9,1\x1B",
                4},
               {vtDate, u"7,01.02.2015", u"7,01.02.2015\x1B", 42036},
               {vtDate, u"7,42036", u"7,30.12.1899\x1B", 0}};
  for (const auto& c : cases) {
    TVxIdValueList list(c.Type);
    list.Add(77, 1);
    list.SetCsv(c.Text);
    EXPECT_TRUE(list.GetCsv() == c.Back && list.GetValue(7) == c.Of7) << list.GetCsv().ToUtf8();
  }
}

TEST(TVxIdValueList, AgreesWithAMapAndManyAtOnceWithOneByOne) {
  std::mt19937 random(5);
  TVxIdValueList list;
  std::map<int, int> model;
  for (int step = 0; step < 3000; ++step) {
    const int id = static_cast<int>(random() % 60) - 30, value = static_cast<int>(random() % 9);
    const bool known = model.count(id) > 0;
    int found = 7;
    TVxIdValueList more;
    EXPECT_TRUE(list.Find(id, found) == known && found == (known ? model[id] : 0));
    EXPECT_TRUE(list.FindValue(value, found) ? list.GetValue(found) == value : found == 0);
    switch (random() % 6) {
      case 0:
        model[id] = value;
        EXPECT_EQ(list.GetId(list.Add(id, value)), id);
        break;
      case 1:
        EXPECT_EQ(list.AddValue(id, value), known ? model[id] += value : 0);
        break;
      case 2:
        EXPECT_EQ(list.Delete(id) >= 0, model.erase(id) > 0);
        break;
      case 3:
        EXPECT_EQ(list.Remove(id), known ? model[id] : 0);
        model.erase(id);
        break;
      case 4:
        list.SetValue(id, value), known ? model[id] = value : 0;
        break;
      case 5:
        for (int i = 0; i < value; ++i) more.Add(id + i * i, i), model[id + i * i] = i;
    }
    list.AddList(more), list.AddList(list);
    int at = 0;
    for (auto [key, held] : model) EXPECT_TRUE(list.GetId(at) == key && list.GetVal(at++) == held);
    ASSERT_TRUE(list.GetCount() == at && list.GetList(false).GetCount() == at);
  }
  list.ClearValues(), list.Add(99, INT32_MAX);
  EXPECT_TRUE(list.GetVal(0) == 0 && list.AddValue(99, 1) == INT32_MIN);
  EXPECT_THROW(list.DeleteIndex(list.GetCount()), EListError);
}

TEST(TVxIdObjectList, FreesExactlyWhatItOwns) {
  for (bool owns : {true, false}) {
    std::string log;
    std::vector<std::unique_ptr<TProbe>> held;
    TVxIdObjectList list(owns), more(false);
    auto probe = [&](char name) {  // looks at the list when it goes
      auto* made = new TProbe(log, name, [&] {
        for (int i = 0; i < list.GetCount(); ++i) list.GetItem(i);
      });
      if (!owns) held.emplace_back(made);
      return made;
    };
    EXPECT_EQ(list.Add(5, probe('a')) + list.Add(3, probe('b')) + list.Add(4, probe('c')) + list.Add(3, probe('d')), 1);
    list.SetItem(1, probe('e'));
    TObject* found = nullptr;
    EXPECT_TRUE(list.Find(4, found) && list.Remove(found) == 1 && !list.Find(4, found) && !found);
    std::unique_ptr<TObject> taken(list.Extract(5));
    EXPECT_TRUE(taken && !list.Extract(5) && list.GetOwnsObjects() == owns && list.Delete(5) == -1);
    if (!owns) taken.release();
    for (int id : {3, 9, 1}) more.Add(id, probe(static_cast<char>('0' + id)));
    list.AddList(more), list.AddList(more), list.AddList(list);
    EXPECT_TRUE(list.GetCount() == 3 && list.IndexOf(3) == 1 && list.GetItem(2) == more.GetItem(2) &&
                list.GetId(2) == 9);
    list.ClearObjects();
    EXPECT_TRUE(list.GetCount() == 3 && list.Find(9, found) && !found);
    list.Add(2, probe('i')), list.Clear();
    EXPECT_EQ(log, owns ? "bced139i" : "");
    EXPECT_THROW(list.GetItem(0), EListError);
    held.clear();  // before the list that they look at
  }
}

struct TKeyed : TObject {
  explicit TKeyed(int key) : Key(key) {}
  int Key;
};
struct TKeyedList : TVxObjectListSimpleSort {
  using TVxObjectListSimpleSort::TVxObjectListSimpleSort;
  int GetIdForObject(TObject* Item) const override { return static_cast<TKeyed*>(Item)->Key; }
};

TEST(TVxObjectListSimpleSort, KeepsTheOrderOfItsNumbers) {
  std::vector<TKeyed> items;
  TKeyedList list(false);
  TScriptedDialogs dialogs;
  for (int key : {5, 1, 9, 5, -3, INT32_MAX, 7, INT32_MIN, 5}) items.emplace_back(key);
  for (TKeyed& item : items) list.Insert(99, &item);
  for (auto [key, place] : {std::pair(0, 2), {2, 3}, {8, 7}, {-9, 1}, {10, 8}, {6, 6}, {INT32_MIN, 0}, {-1, 2}}) {
    TKeyed other(key);
    EXPECT_EQ(list.IndexSort(&other), place) << key;
    EXPECT_TRUE(list.IndexOf(&other) == -1 && list.Remove(&other) == -1 && !list.Extract(&other));
  }
  list.Exchange(0, 1), list.Move(0, 1), list.Sort([](TObject*, TObject*) { return 0; });
  for (int i = 0; String name : {u"Exchange", u"Move", u"Sort"})
    EXPECT_EQ(dialogs.Shown.at(i++).Text, u"Die Funktion \"" + name +
                                              u"\" \r\nwird vom Objekt "
                                              u"\"TVxObjectListSimpleSort\" \r\nnicht unterstützt.");
  EXPECT_TRUE(list.Add(&items[2]) == 7 && list.GetCount() == 9 && list.IndexOf(&items[2]) == 7);
  EXPECT_TRUE(list.Remove(&items[4]) == 1 && list.Extract(&items[1]) == &items[1] && list.GetCount() == 7);
  TVxObjectListSimpleSort owner(&list);
  TObject* taken = owner.Get(owner.Add(new TObject));
  EXPECT_TRUE(owner.Add(taken) == 0 && owner.Extract(taken) == taken && owner.Add(taken) == 0);
  EXPECT_TRUE(owner.GetOwnsObjects() && owner.GetParent() == &list);
  for (int i = 1; i < 7; ++i) EXPECT_LE(list.GetIdForObject(list.Get(i - 1)), list.GetIdForObject(list.Get(i)));
}

}  // namespace
