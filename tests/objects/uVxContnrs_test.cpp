#include "objects/uVxContnrs.h"

#include "tests/support/Test.h"

namespace {

char pool[128];
void* P(char name) { return &pool[static_cast<int>(name)]; }

TEST(TVxChainList, CacheFollowsTheWork) {
  // g<i> Get, d<i> Delete, i<i><c> Insert, f<c> IndexOf, r<c> Remove, < and > pop, c Clear
  const TCases<const char*, std::string, int> cases = {
      {"i3x", "abcxdefghij", 3}, {"i0x", "xabcdefghij", -1},   {"", "abcdefghij", -1},
      {"g4d4", "abcdfghij", 4},  {"g2i0x", "xabcdefghij", 3},  {"g3g10g-1", "abcdefghij", 3},
      {"g9d9", "abcdefghi", 8},  {"g2i99x", "abcdefghijx", 2}, {"g4i-5xd-1d11", "xabcdefghij", 5},
      {"g4>", "abcdefghi", 4},   {"g2i10x", "abcdefghijx", 2}, {"d2", "abdefghij", 2},
      {"g0<", "bcdefghij", 0},   {"g4fd", "abcdefghij", 4},    {"g4<", "bcdefghij", 3},
      {"g9>", "abcdefghi", 8},   {"g4ff", "abcdefghij", 4},    {"g4c", "", -1},
      {"g4ra", "bcdefghij", 0},  {"g4fa", "abcdefghij", 0},    {"g0d0d0d0d0d0d0d0d0d0d0g0fa<>", "", -1},
      {"g4rf", "abcdeghij", 4},  {"g4fz", "abcdefghij", 4},    {"ci5xg0>fx", "", -1},
      {"g4rd", "abcefghij", 3},  {"g4rz", "abcdefghij", 4}};
  for (const auto& row : cases) {
    TVxChainList list;
    std::string items;
    const char* at = std::get<0>(row);
    int number = 0;
    const std::map<char, std::function<void()>> works = {{'g', [&] { list.Get(number); }},
                                                         {'d', [&] { list.Delete(number); }},
                                                         {'i', [&] { list.Insert(number, P(*at++)); }},
                                                         {'f', [&] { list.IndexOf(P(*at++)); }},
                                                         {'r', [&] { list.Remove(P(*at++)); }},
                                                         {'c', [&] { list.Clear(); }},
                                                         {'<', [&] { list.PopFirst(); }},
                                                         {'>', [&] { list.PopLast(); }}};
    for (char item = 'a'; item <= 'j'; ++item) EXPECT_EQ(list.Add(P(item)), item - 'a');
    while (*at) {
      char* end = nullptr;
      const char work = *at++;
      number = static_cast<int>(std::strtol(at, &end, 10));
      if (std::strchr("gdi", work)) at = end;
      works.at(work)();
    }
    const int cached = list.GetCachedIndex();
    while (list.GetCount() > 0) items += static_cast<char>(static_cast<char*>(list.PopFirst()) - pool);
    EXPECT_EQ(std::tuple(std::get<0>(row), items, cached), row);
  }
}

TEST(TVxChainList, WalksByIndexAreLinear) {
  TVxChainList list;
  int count = 300000, seen = 0;
  for (int i = 0; i < count; ++i) list.Add(P('a'));
  for (int i = 0; i < 2 * count; ++i) seen += list.Get(i < count ? i : 2 * count - 1 - i) == P('a');
  for (int i = 0; i < count; ++i) seen += list.Get(count / 2 + i * 5 % 8) == P('a');
  for (int i = 0; i < count; ++i) list.Delete(list.GetCount() / 2);
  EXPECT_EQ(std::pair(seen, list.GetCount()), std::pair(3 * count, 0));
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
  EXPECT_EQ(std::ranges::count_if(taken, [](int times) { return times == 1; }), 6000);
  EXPECT_EQ(list.GetCount(), 0);
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
  EXPECT_EQ((TFacts{list.Add(&kept), list.Remove(&kept), list.Remove(&kept), list.Add(&kept)}), "0 0 -1 0");
  EXPECT_EQ((list.Clear(), TFacts{locked->GetCount(), log}), "0 .a.bx.");
}

TEST(TVxIdValueList, ReadsAndWritesCsv) {
  const TCases<TVxIdValueListType, String, String, int> cases = {
      {vtInteger, u"", u"", 0},
      {vtInteger, u"7,42", u"7,42;", 42},
      {vtInteger, u"9,1;7,2;5;x,y;7,4,5;-1,-2", u"-1,-2;0,0;7,4;9,1;", 4},
      {vtDate, u"7,01.02.2015", u"7,01.02.2015;", 42036},
      {vtDate, u"7,42036", u"7,30.12.1899;", 0}};
  for (const auto& [type, text, back, of7] : cases) {
    TVxIdValueList list(type);
    list.Add(77, 1);
    list.SetCsv(ReplaceAll(text, u";", u"\x1B"));
    EXPECT_EQ(std::pair(list.GetCsv(), list.GetValue(7)), std::pair(ReplaceAll(back, u";", u"\x1B"), of7));
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
    EXPECT_EQ(list.Find(id, found), known);
    EXPECT_EQ(found, known ? model[id] : 0);
    const bool isHeld = list.FindValue(value, found);
    EXPECT_EQ(isHeld ? list.GetValue(found) : found, isHeld ? value : 0);
    const std::function<void()> works[] = {[&] { EXPECT_EQ(list.GetId(list.Add(id, model[id] = value)), id); },
                                           [&] { EXPECT_EQ(list.AddValue(id, value), known ? model[id] += value : 0); },
                                           [&] { EXPECT_EQ(list.Delete(id) >= 0, model.erase(id) > 0); },
                                           [&] { EXPECT_EQ(list.Remove(id), known ? model.extract(id).mapped() : 0); },
                                           [&] { list.SetValue(id, value), known ? model[id] = value : 0; },
                                           [&] {
                                             for (int i = 0; i < value; ++i)
                                               more.Add(id + i * i, i), model[id + i * i] = i;
                                           }};
    works[random() % 6]();
    list.AddList(more), list.AddList(list);
    std::vector<std::pair<int, int>> held;
    for (int at = 0; at < list.GetCount(); ++at) held.emplace_back(list.GetId(at), list.GetVal(at));
    ASSERT_EQ(held, (std::vector<std::pair<int, int>>(model.begin(), model.end())));
    ASSERT_EQ(list.GetList(false).GetCount(), list.GetCount());
  }
  list.ClearValues(), list.Add(99, INT32_MAX);
  EXPECT_EQ((TFacts{list.GetVal(0), list.AddValue(99, 1)}), "0 -2147483648");
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
    EXPECT_EQ((TFacts{list.Find(4, found), list.Remove(found), list.Find(4, found), !found}), "yes 1 no yes");
    std::unique_ptr<TObject> taken(list.Extract(5));
    EXPECT_EQ((TFacts{taken != nullptr, list.Extract(5) != nullptr, list.Delete(5)}), "yes no -1");
    EXPECT_EQ(list.GetOwnsObjects(), owns);
    if (!owns) taken.release();
    for (int id : {3, 9, 1}) more.Add(id, probe(static_cast<char>('0' + id)));
    list.AddList(more), list.AddList(more), list.AddList(list);
    EXPECT_EQ((TFacts{list.GetCount(), list.IndexOf(3), list.GetId(2)}), "3 1 9");
    EXPECT_EQ(list.GetItem(2), more.GetItem(2));
    list.ClearObjects();
    EXPECT_EQ((TFacts{list.GetCount(), list.Find(9, found), !found}), "3 yes yes");
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
    EXPECT_EQ((TFacts{list.IndexOf(&other), list.Remove(&other), !list.Extract(&other)}), "-1 -1 yes") << key;
  }
  list.Exchange(0, 1), list.Move(0, 1), list.Sort([](TObject*, TObject*) { return 0; });
  const String refused = u"\" \r\nwird vom Objekt \"TVxObjectListSimpleSort\" \r\nnicht unterstützt.";
  for (int i = 0; String name : {u"Exchange", u"Move", u"Sort"})
    EXPECT_EQ(dialogs.Shown.at(i++).Text, u"Die Funktion \"" + name + refused);
  EXPECT_EQ((TFacts{list.Add(&items[2]), list.GetCount(), list.IndexOf(&items[2])}), "7 9 7");
  EXPECT_EQ((TFacts{list.Remove(&items[4]), list.Extract(&items[1]) == &items[1], list.GetCount()}), "1 yes 7");
  TVxObjectListSimpleSort owner(&list);
  TObject* taken = owner.Get(owner.Add(new TObject));
  EXPECT_EQ((TFacts{owner.Add(taken), owner.Extract(taken) == taken, owner.Add(taken)}), "0 yes 0");
  EXPECT_EQ((TFacts{owner.GetOwnsObjects(), owner.GetParent() == &list}), "yes yes");
  for (int i = 1; i < 7; ++i) EXPECT_LE(list.GetIdForObject(list.Get(i - 1)), list.GetIdForObject(list.Get(i)));
}

}  // namespace
