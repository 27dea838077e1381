#include "objects/uVxClasses.h"
#include "tests/support/Test.h"

namespace {

TEST(IntegerLists, ReadAndWriteTexts) {
  const TCases<String, String, String, String> cases = {
      {u"1,x,3", u"1,0,3", u"1,0,3", u"0,1,3"},
      {u"", u"", u"", u""},
      {u"5,5,-7,$10,5", u"5,5,-7,16,5", u"5,-7,16", u"-7,5,16"},
      {u"2147483647,-2147483648,2147483648", u"2147483647,-2147483648,0", u"2147483647,-2147483648,0",
       u"-2147483648,0,2147483647"}};
  for (const auto& [text, asPlain, asUnique, asIds] : cases) {
    TVxIntegerList plain;
    TVxIntegerListUnique unique;
    TVxIdList ids;
    using TPair = std::pair<TVxIntegerList*, String>;
    for (const auto& [list, held] : {TPair(&plain, asPlain), TPair(&unique, asUnique), TPair(&ids, asIds)}) {
      list->SetCommatext(text);
      EXPECT_EQ(list->GetCommatext(), held);
      auto again = list->GetNewInstance();
      again->SetLighttext(list->GetLighttext());
      EXPECT_EQ(again->EqualsAll(*list), list != &unique);  // that one gives a plain list
      again->SetSerialize(u';', u'\'', list->GetSerialize(u';', u'\''));
      EXPECT_EQ(again->GetCommatext(), held);
    }
  }
  TVxIntegerList list;
  list.SetLighttext(u"7||-1");
  EXPECT_EQ(list.GetUserText(u", ", u"<", u">"), u"<7>, <0>, <-1>");
  EXPECT_EQ(TVxIntegerList().GetUserText(u", ", u"<", u">"), u"");
}

TEST(IntegerLists, ChangeByIndexOrRaise) {
  TVxIntegerList list;
  list.SetCommatext(u"1,2,3,2");
  list.Move(0, 3), list.Move(2, 0), list.Exchange(1, 2), list.Insert(4, 9), list.Put(0, INT32_MIN);
  list.Insert(0, reinterpret_cast<void*>(uintptr_t{0xFFFFFFFFFFFFFFFE}));
  EXPECT_EQ(list.GetCommatext(), u"-2,-2147483648,3,2,1,9");
  list.Add(list);
  EXPECT_EQ((TFacts{list.GetCount(), list.First(), list.Last(), list.Extract(9)}), "12 -2 9 5");
  list.Put(0, INT32_MAX), list.Sort();
  EXPECT_TRUE(std::ranges::is_sorted(list.Items()));
  void (*runs[])(TVxIntegerList&, int) = {
      [](auto& l, int i) { l.Get(i); },         [](auto& l, int i) { l.Put(i, 1); },
      [](auto& l, int i) { l.Delete(i); },      [](auto& l, int i) { l.Exchange(i, 0); },
      [](auto& l, int i) { l.Exchange(0, i); }, [](auto& l, int i) { l.Move(i, 0); },
      [](auto& l, int i) { l.Move(0, i); },     [](auto& l, int i) { l.Insert(i == l.GetCount() ? i + 1 : i, 1); }};
  for (int index : {-1, 2, INT32_MIN, INT32_MAX, 0}) {
    list.SetCount(index == 0 ? 0 : 2);
    for (auto run : runs) EXPECT_NE(test::RaisedBy<EListError>([&] { run(list, index); }), u"") << index;
    EXPECT_EQ(list.GetCount(), index == 0 ? 0 : 2);
  }
  EXPECT_EQ(test::RaisedBy<EListError>([&] { list.Last(); }), u"List index out of bounds (-1)");
  EXPECT_EQ(test::RaisedBy<EListError>([&] { list.SetCount(-1); }), u"List count out of bounds (-1)");
  list.AddList(std::vector{4, 5});
  EXPECT_EQ(test::RaisedBy<EListError>([&] { list.SetCapacity(1); }), u"List capacity out of bounds (1)");
  auto walk = list.GetEnumerator();
  EXPECT_NE(test::RaisedBy<EListError>([&] { walk.GetCurrent(); }), u"");
  for (int item : list) EXPECT_EQ((std::pair{walk.MoveNext(), walk.GetCurrent()}), std::pair(true, item));
  EXPECT_EQ((TFacts{walk.MoveNext(), walk.GetCurrent()}), "no 5");
}

TEST(IdLists, RefuseWhatWouldBreakTheOrder) {
  TScriptedDialogs dialogs;
  TVxIdList list;
  EXPECT_EQ((TFacts{list.Add(5), list.Add(5), list.Add(2), list.Add(reinterpret_cast<void*>(5))}), "0 0 0 1");
  TVxIntegerList& base = list;
  base.Insert(-1, 7), base.Insert(0, nullptr), base.Exchange(0, 1), base.Move(0, 9);
  for (size_t shown = 0; const String name : {u"Insert", u"Insert", u"Exchange", u"Move"})
    EXPECT_EQ(dialogs.Shown.at(shown++).Text, u"[TVxIdList] : Die Funktion " + name + u" ist nicht unterstützt.");
  int none = 7, index = 7;
  EXPECT_EQ((TFacts{base.Find(4, none), none, base.Find(5, index), index}), "no -1 yes 1");
  EXPECT_EQ((TFacts{list.Intersects(u"9,5"), list.Intersects(u"9,x"), list.Intersects(u"")}), "yes no no");
  EXPECT_EQ((TFacts{list.Remove(4), list.Extract(5), list.Remove(2), list.Intersects(u"0")}), "-1 1 0 no");
}

// A derived list may see each item: these do not take any short way.
template <typename T>
struct TOneByOne : T {};

TEST(IntegerLists, TakeManyAsOneByOne) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    TVxIntegerList source, removed, plain, plainSlow;
    for (unsigned i = random() % 80; i > 0; --i) (i % 2 ? source : removed).Add(static_cast<int>(random() % 30) - 10);
    TVxIntegerListUnique unique;
    TVxIdList ids, common;
    TOneByOne<TVxIntegerListUnique> uniqueSlow;
    TOneByOne<TVxIdList> idsSlow;
    using TPair = std::pair<TVxIntegerList*, TVxIntegerList*>;
    for (auto [quick, slow] : {TPair(&plain, &plainSlow), TPair(&unique, &uniqueSlow), TPair(&ids, &idsSlow)}) {
      quick->Assign(source), slow->Assign(source), quick->Minus(removed);
      for (int item : removed) slow->Remove(item);
      EXPECT_TRUE(std::ranges::equal(*quick, *slow));
      quick->AddList(removed), slow->AddList(removed);
      EXPECT_EQ(quick->GetCommatext(), slow->GetCommatext());
    }
    common.Assign(ids), common.Intersect(removed);
    for (int id = -12; id < 22; ++id) {
      EXPECT_EQ(common.IsIn(id), ids.IsIn(id) && removed.IsIn(id));
      auto place = std::lower_bound(ids.begin(), ids.end(), id);
      EXPECT_EQ(ids.IndexOf(id), place != ids.end() && *place == id ? place - ids.begin() : -1);
    }
    EXPECT_EQ(common.Intersects(ids), common.GetCount() > 0);
  }
}

// Writes down what Notify is told.
template <typename T>
struct TLogged : T {
  void Notify(double Value, TDoubleListNotification Action) override {
    Log += Concat({std::u16string_view(&u"+x-!"[Action], 1), FloatToStr(Value), u" "});
    const int to = std::exchange(ShrinksTo, -1);
    to == 0 ? this->Clear() : to > 0 ? this->SetCount(to) : void();
  }
  String Take() { return std::exchange(Log, String()); }
  String Log;
  int ShrinksTo = -1;
};

TEST(DoubleLists, ReportEachChangeAndFault) {
  TLogged<TVxDoubleList> list;
  const TCases<void (*)(TVxDoubleList&), String, String> cases = {
      {[](auto& l) { l.SetCommatext(u"3,x,\"1,5\""); }, u"!11 ", u"3,0,\"1,5\""},
      {[](auto& l) { EXPECT_EQ((l.Put(2, 1), l.Add(4)), 3); }, u"-1,5 +1 +4 ", u"3,0,1,4"},
      {[](auto& l) { l.Insert(4, 5), l.Insert(6, 5), l.Insert(-1, 5); }, u"+5 !5 !5 ", u"3,0,1,4,5"},
      {[](auto& l) { l.Move(0, 2), l.Move(0, 5), l.Move(-1, 0); }, u"!6 !6 ", u"0,1,3,4,5"},
      {[](auto& l) { l.Exchange(0, 4), l.Exchange(5, 0), l.Exchange(0, -1); }, u"!2 !3 ", u"5,1,3,4,0"},
      {[](auto& l) {
         EXPECT_EQ((TFacts{l.Extract(3), l.Extract(8), l.Remove(8)}), "3 0 -1");
       },
       u"-0 x3 ", u"5,1,4,0"},
      {[](auto& l) {
         EXPECT_EQ((TFacts{l.Get(-1), l.Get(4), l.Get(0)}), "0 0 5");
       },
       u"!4 !4 ", u"5,1,4,0"},
      {[](auto& l) { l.Delete(4), l.Delete(3), l.Put(3, 1); }, u"!1 -0 !7 ", u"5,1,4"},
      {[](auto& l) { l.SetCapacity(2), l.SetCapacity(0x8000000); }, u"!8 !8 ", u"5,1,4"},
      {[](auto& l) { l.SetCount(-1), l.SetCount(0x8000000), l.SetCount(4), l.SetCount(3); }, u"!9 !9 -0 ", u"5,1,4"},
      {[](auto& l) { l.Add(1), l.Add(5), l.Add(5), l.Pack(); }, u"+1 +5 +5 -5 -5 -1 ", u"1,4,5"},
      {[](auto& l) { l.Sort([](double a, double b) { return static_cast<int>(b - a); }); }, u"", u"5,4,1"},
      {[](auto& l) { l.Clear(); }, u"-1 -4 -5 ", u""}};
  for (const auto& [run, log, text] : cases)
    EXPECT_EQ((run(list), std::pair{list.Take(), list.GetCommatext()}), std::pair(log, text));
  EXPECT_EQ(list.GetCapacity(), 0);
  list.SetCommatext(u"1,2,3");
  list.ShrinksTo = 1, list.SetCommatext(u"4,x,5,6");  // in the midst of the reading
  EXPECT_EQ(list.GetCommatext(), u"4");
  for (auto [to, counted, read] : {std::tuple(0, u"", u""), {3, u"1,2", u"8,9"}, {1, u"1", u"8"}}) {
    list.SetCommatext(u"1,2,3,4,5,6,7,8,9");
    EXPECT_EQ((list.ShrinksTo = to, list.SetCount(2), list.GetCommatext()), counted);
    list.SetCommatext(u"1,2,3,4,5,6,7,8,9");
    EXPECT_EQ((list.ShrinksTo = to, list.SetCommatext(u"8,9"), list.GetCommatext()), read);
    EXPECT_LE(list.GetCount(), list.GetCapacity());
  }
  list.Clear();
  TVxIntegerListUnique steps;
  for (; list.Add(1) < 99; steps.Add(list.GetCapacity())) {
  }
  EXPECT_EQ(steps.GetCommatext(), u"4,8,12,28,44,60,76,95,118");
}

TEST(DoubleSortLists, KeepTheirOrder) {
  TScriptedDialogs dialogs;
  TVxDoubleSortList list, other;
  list.SetCommatext(u"1,1,2");
  EXPECT_EQ((TFacts{list.GetCommatext(), (list.SetUnique(true), list.GetCommatext())}), "1,1,1,1,2,2 1,2");
  list.Insert(0, 9);
  EXPECT_EQ((TFacts{list.Add(2), list.IndexOf(9), list.IndexOf(3), list.InsertIndexOf(3)}), "1 2 -1 2");
  TVxDoubleList& base = list;
  base.Exchange(0, 1), base.Move(0, 9), base.Sort([](double a, double b) { return a < b ? 1 : -1; });
  EXPECT_EQ(list.GetCommatext(), u"1,2,9");
  EXPECT_EQ(dialogs.Shown.at(0).Text, u"Die Funktion \"TVxDoubleList.Exchange\" wird nicht unterstützt!");
  EXPECT_EQ(dialogs.Shown.at(1).Text, u"Die Funktion \"TVxDoubleList.Move\" wird nicht unterstützt!");
  EXPECT_EQ((TFacts{list.Extract(7), list.Extract(2), list.Remove(2), list.Remove(9)}), "7 2 -1 1");
  other.Assign(list);
  EXPECT_EQ((TFacts{other.GetUnique(), other.Add(1), other.GetCount()}), "yes 0 1");
  TLogged<TVxDoubleSortList> logged;
  EXPECT_EQ((logged.SetCommatext(u"2,x"), logged.Take()), u"!11 +2 !11 ");
}

TEST(DoubleSortLists, TakeManyAsOneByOne) {
  std::mt19937 random(3);
  const double odd[] = {NAN, 0.0, -0.0, INFINITY, -INFINITY, 1, 2};
  for (int round = 0; round < 300; ++round) {
    TVxDoubleList source;
    const unsigned range = round < 297 ? 20 : 8000;  // The last rounds are long ones, which go in pieces.
    const unsigned count = range == 20 ? random() % 30 : 9000;
    for (unsigned i = 0; i < count; ++i) source.Add(round % 3 ? random() % range : odd[random() % 7]);
    TVxDoubleSortList quick;
    TOneByOne<TVxDoubleSortList> slow;
    // In the last form the slots are in order when the values are added.
    void (*runs[])(TVxDoubleSortList&, TVxDoubleList&) = {
        [](auto& l, auto& from) { l.Assign(from); }, [](auto& l, auto& from) { l.SetCommatext(from.GetCommatext()); },
        [](auto& l, auto& from) {
          from.Pack();
          l.SetCommatext(from.GetCommatext());
        }};
    for (auto run : runs) {
      quick.SetUnique(round % 2 == 0), slow.SetUnique(round % 2 == 0), run(quick, source), run(slow, source);
      EXPECT_EQ(quick.GetCapacity(), slow.GetCapacity());
      constexpr auto bits = [](double value) { return std::bit_cast<int64_t>(value); };
      EXPECT_TRUE(std::ranges::equal(quick.Items(), slow.Items(), {}, bits, bits)) << round;
    }
    quick.Assign(source);
    EXPECT_EQ(quick.IndexOf(NAN), -1);
    for (double value : quick.Items()) {
      const int place = quick.IndexOf(value);
      EXPECT_EQ(place < 0, std::isnan(value));
      EXPECT_EQ(place < 0 ? 0 : quick.Get(place), place < 0 ? 0 : value);
    }
  }
}

TEST(PointLists, AreSetsInOrder) {
  TScriptedDialogs dialogs;
  TVxPointList list, other;
  for (TPoint point : {TPoint{5, 1}, {INT32_MIN, 0}, {INT32_MAX, 0}, {5, -1}}) list.Add(point);
  EXPECT_EQ((TFacts{list.Add({5, 1}), list.Add({4, 9}), list.GetCount()}), "2 1 5");
  EXPECT_EQ((TFacts{list.IndexOf({5, 0}), list.Contains({INT32_MAX, 0}), list.IndexSort({5, 0})}), "-1 yes 3");
  for (TPoint point : {TPoint{5, 1}, {6, 6}}) other.Add(point);
  for (auto [a, b] : {std::pair(&list, &other), std::pair(&other, &list)}) {
    auto changes = a->Changes(b);
    EXPECT_EQ((TFacts{changes->GetCount(), changes->Get(3).X, changes->Get(3).Y, changes->Contains({5, 1})}),
              "5 6 6 no");
  }
  EXPECT_TRUE(std::ranges::equal(list.Changes(nullptr)->Items(), list.Items()));
  EXPECT_EQ((TFacts{list.Changes(&list)->GetCount(), list.Remove({5, 1}), list.Remove({5, 1})}), "0 3 -1");
  EXPECT_EQ(test::RaisedBy<EListError>([&] { list.Delete(4); }), u"List index out of bounds (4)");
  list.Insert(9, {1, 1});
  EXPECT_EQ(dialogs.Shown.at(0).Text, u"Die Funktion \"TVxPointList.Insert\" wird nicht unterstützt!");
}

TEST(Doubles, RoundAndPrint) {
  const TCases<double, int, String, String> cases = {
      {1.2345, 3, u"1,23", u"1,234"},  {2.5, 0, u"3,00", u"3"},
      {-2.5, 0, u"-3,00", u"-3"},      {1234567.891, 1, u"1234567,90", u"1234567,9"},
      {1250, -2, u"1300,00", u"1300"}, {0.004, 2, u"0,00", u"0"}};
  for (const auto& [value, places, fixed, short_] : cases) {
    TVxDouble number(value);
    EXPECT_EQ(std::pair(number.RoundedStr(places), number.RoundedStrShort(places)), std::pair(fixed, short_)) << value;
    EXPECT_EQ((number.SetAsString(number.GetAsString()), number.GetValue()), value);
    EXPECT_EQ((number.SetAsString(u"1.5x"), number.GetValue()), 0);
  }
}

}  // namespace
