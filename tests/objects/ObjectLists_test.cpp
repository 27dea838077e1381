#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <set>

#include "objects/uVxObjects/Registry.h"
#include "objects/uVxObjects/TVxDataIdList.h"
#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "platform/Numbers.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

std::string Log;
std::function<void()> OnGone;

struct TNote : TVxClassed<TNote, TVxDataIdHelper, u"TNote"> {
  explicit TNote(int Id = 0) { iId = Id; }
  ~TNote() override { Log += "~" + std::to_string(iId), OnGone ? OnGone() : void(); }
};
int IdOf(const TObject* Item) { return Item ? static_cast<const TVxDataId*>(Item)->GetId() : 0; }
std::string IdsOf(const TVxObjectList& List) {
  std::string ids;
  for (int i = 0; i < List.GetCount(); ++i) ids += std::to_string(IdOf(List.GetItem(i)));
  return ids;
}

// A list with an order by ids that writes down what it is told.
template <typename TList>
struct TTold : TList {
  using TList::TList;
  ~TTold() override { TList::Clear(); }
  using TList::Exchange, TList::Insert, TList::Move, TList::Sort, TList::IndexOf;
  int doCompare(const TObject* A, const TObject* B) const override { return ++Compared, IdOf(A) - IdOf(B); }
  void Notify(TObject* Item, TListNotification Action) override {
    (Log += "+x-c"[Action]) += Action == lnCleared ? "" : std::to_string(IdOf(Item)), OnNotify ? OnNotify() : void();
  }
  TObject* At(int Index) const { return TVxObjectList::GetItem(Index); }
  // Adds an object for each digit, the first one having to go to the first index told, and so on.
  void AddAll(const char* Ids, const char* Indexes) {
    for (int i = 0; Ids[i]; ++i) EXPECT_EQ(this->Add(new TNote(Ids[i] - '0')), Indexes[i] - '0') << Ids << i;
  }
  std::function<void()> OnNotify;
  mutable int Compared = 0;
};

template <typename T>
struct AnyObjectList : testing::Test {
  void TearDown() override { OnGone = nullptr; }
  // An object that the test frees at its end, unless List does.
  TNote* Make(const TVxObjects& List, int Id) {
    return static_cast<TNote*>(List.GetOwnsObjects() ? new TNote(Id) : Kept.emplace_back(new TNote(Id)).get());
  }
  void Take(const TVxObjects& From, TObject* Item) { From.GetOwnsObjects() ? void(Kept.emplace_back(Item)) : void(); }
  void Fill(TVxObjectList& List, int Count) {
    for (int id = 1; id <= Count; ++id) List.Add(Make(List, id));
    Log.clear();
  }
  std::vector<std::unique_ptr<TObject>> Kept;
  TScriptedDialogs Dialogs;
};
using TLists = testing::Types<TVxObjectList, TVxObjectListU, TVxObjectListSortU, TVxObjectListSortD, TVxDataIdList>;
TYPED_TEST_SUITE(AnyObjectList, TLists);

TYPED_TEST(AnyObjectList, TellsAndFreesAsItOwns) {
  using TList = TTold<TypeParam>;
  struct { const char* Name; std::function<void(TList&)> Run; const char *Ids, *Told, *Freed; } cases[] = {
      {"delete", [](TList& l) { l.Delete(0); }, "23", "-1", "-1~1"},
      {"remove", [](TList& l) { EXPECT_EQ(l.Remove(l.At(1)), 1); }, "13", "-2", "-2~2"},
      {"count", [](TList& l) { l.SetCount(1); }, "1", "-3-2", "-3~3-2~2"},
      {"clear", [](TList& l) { l.Clear(); }, "", "-3-2-1c", "-3~3-2~2-1~1c"},
      {"assign", [](TList& l) { l.Assign(l), l.Assign(TVxObjectList()); }, "", "-3-2-1c", "-3~3-2~2-1~1c"},
      {"add", [this](TList& l) { EXPECT_EQ(l.Add(this->Make(l, 9)), 3); }, "1239", "+9", "+9"},
      {"insert", [this](TList& l) { l.Insert(3, this->Make(l, 9)); }, "1239", "+9", "+9"},
      {"replace", [this](TList& l) { l.SetItem(2, this->Make(l, 9)); }, "129", "-3+9", "-3~3+9"},
      {"same", [](TList& l) { l.SetItem(2, l.At(2)); }, "123", "", ""},
      {"gaps", [](TList& l) { l.SetCount(5), l.Delete(4), l.SetItem(3, nullptr), l.SetCount(3); }, "123", "", ""},
      {"exchange", [](TList& l) { l.Exchange(0, 2); }, "321", "", ""},
      {"move", [](TList& l) { l.Move(0, 2), l.Move(7, 7); }, "231", "", ""},
      {"sort", [](TList& l) { l.Sort([](TObject* a, TObject* b) { return IdOf(b) - IdOf(a); }); }, "321", "", ""},
      {"extract", [this](TList& l) { this->Take(l, l.Extract(l.At(1))); }, "13", "x2", "x2"}};
  for (const auto& c : cases) {
    for (bool owns : {false, true}) {
      TList list(owns);
      this->Fill(list, 3);
      c.Run(list);
      EXPECT_EQ(IdsOf(list), c.Ids) << c.Name;
      EXPECT_EQ(Log, owns ? c.Freed : c.Told) << c.Name;
    }
  }
  EXPECT_TRUE(this->Dialogs.Shown.empty());
}

TYPED_TEST(AnyObjectList, RefusesWithAWarningAndStaysAsItWas) {
  using TList = TTold<TypeParam>;
  const String index = u"Der Index der Liste ";
  struct { String Text; const char16_t* Function; std::function<void(TList&, int)> Run; int Over; } cases[] = {
      {index, u"Delete", [](TList& l, int i) { l.Delete(i); }, 2},
      {index, u"GetItems", [](TList& l, int i) { EXPECT_EQ(l.At(i), nullptr); }, 2},
      {index, u"SetItems", [](TList& l, int i) { l.SetItem(i, nullptr); }, 2},
      {index, u"doInsert", [](TList& l, int i) { l.Insert(i, nullptr); }, 3},
      {index, u"doExchange.Index1", [](TList& l, int i) { l.Exchange(i, -5); }, 2},
      {index, u"doExchange.Index2", [](TList& l, int i) { l.Exchange(0, i); }, 2},
      {index, u"doMove.CurIndex", [](TList& l, int i) { l.Move(i, -5); }, 2},
      {index, u"doMove.NewIndex", [](TList& l, int i) { l.Move(0, i); }, 2},
      {u"Die Anzahl ", u"SetCount", [](TList& l, int i) { l.SetCount(i); }, 0x8000000},
      {u"Die Kapazität ", u"SetCapacity", [](TList& l, int i) { l.SetCapacity(i); }, 0x8000000}};
  TList list;
  this->Fill(list, 2);
  for (const auto& c : cases) {
    for (int bad : {INT32_MIN, -1, c.Over, INT32_MAX}) {
      this->Dialogs.Shown.clear();
      c.Run(list, bad);
      ASSERT_EQ(this->Dialogs.Shown.size(), 1u) << c.Text.ToUtf8();
      const TDialog shown = this->Dialogs.Shown[0];
      EXPECT_EQ(shown.Text, Concat({c.Text, bad < 0 ? u"unterschreitet das Minimum!" : u"überschreitet das Maximum!",
                                    u"\r\n\r\nObjekt: TVxObjects\r\nGroesse: 2\r\nFunktion: ", c.Function,
                                    u"\r\nIndex: ", IntToStr(bad)}));
      EXPECT_TRUE(shown.Kind == mtWarning && IdsOf(list) == "12" && list.GetCapacity() == 4 && Log.empty()) << Log;
    }
  }
}

TYPED_TEST(AnyObjectList, GrowsByItsSteps) {
  TTold<TypeParam> list(false);
  std::set<int> steps;
  for (int id = 1; id <= 96; steps.insert(list.GetCapacity()), ++id) list.Add(this->Make(list, id));
  list.GrowBy(30), steps.insert(list.GetCapacity());
  list.SetCount(200), steps.insert(list.GetCapacity());
  EXPECT_EQ(steps, (std::set{4, 8, 12, 28, 44, 60, 76, 95, 118, 183, 200}));
  list.Clear(), list.GrowBy(0);
  EXPECT_EQ(list.GetCapacity(), 4);
}

TYPED_TEST(AnyObjectList, MayBeChangedByWhatItTells) {
  for (bool byDestructor : {false, true}) {
    TTold<TypeParam> list;
    this->Fill(list, 6);
    int depth = 0;
    (byDestructor ? OnGone : list.OnNotify) = [&] {
      if (++depth == 1 && list.GetCount() > 1) list.Delete(0);
      --depth;
    };
    list.SetCount(3);
    EXPECT_EQ(IdsOf(list), "34") << "no objects are left where the fourth one was";
    list.Remove(list.At(0));
    EXPECT_EQ(IdsOf(list), "4");
    OnGone = [&] { EXPECT_LT(list.GetCount() + list.IndexOf(nullptr), 1); };
  }
  EXPECT_TRUE(this->Dialogs.Shown.empty());
}

TYPED_TEST(AnyObjectList, MakesItsLike) {
  DoCountObjects = true;
  const TypeParam list;
  auto like = list.GetNewInstance(false);
  EXPECT_TRUE(like->ClassName() == list.ClassName() && !like->GetOwnsObjects() && list.GetOwnsObjects());
  EXPECT_EQ(VxObjectCounter().at(list.ClassName()), 2);
  like = nullptr, DoCountObjects = false;
  EXPECT_EQ(VxObjectCounter().at(list.ClassName()), 1);
  std::vector<TNote> notes(4);  // in the order of ids and that of addresses
  TypeParam source(false), less(false), target(false);
  for (int i = 0; i < 4; ++i) notes[static_cast<size_t>(i)].SetId(i + 1);
  for (int i : {0, 1, 3}) source.Add(&notes[static_cast<size_t>(i)]);
  for (int i : {3, 2, 1}) less.Add(&notes[static_cast<size_t>(i)]);
  auto one = source.ItemsXOR(less), copy = source.Duplicate(false);
  EXPECT_FALSE(one->GetOwnsObjects());
  EXPECT_EQ(IdsOf(*one), (std::is_base_of_v<TVxObjectListSortU, TypeParam> ? "13" : "31"));
  EXPECT_EQ(IdsOf(*source.ItemsAND(less)) + IdsOf(source.ItemsAND(less, target)), "2424");
  source.ItemsSubtract(less);
  EXPECT_EQ(IdsOf(source) + IdsOf(*copy), "1124");
  copy->ItemsSubtract(*copy);
  EXPECT_EQ(copy->GetCount(), 0);
}

TEST(ObjectList, FindsByClass) {
  TVxObjectList list;
  for (TObject* item : std::vector<TObject*>{nullptr, new TObjectList, new TVxDataIdHelper, new TNote}) list.Add(item);
  using THelper = TVxDataIdHelper;
  EXPECT_EQ(list.FindInstanceOf(THelper::Class()), 2);
  EXPECT_EQ(list.FindInstanceOf(TNote::Class(), true, -7), 3);
  EXPECT_EQ(list.FindInstanceOf(THelper::Class(), false, 3), 3);
  for (bool exact : {false, true}) EXPECT_EQ(list.FindInstanceOf(TVxObject::Class(), exact), exact ? -1 : 2);
}

TEST(ObjectList, PacksByItsSteps) {
  const char* cases[][2] = {{"", ""}, {"12", "12"}, {"1020", "12"}, {"10203", "123"}, {"0012", "1"}, {"01234", "134"},
                            {"00123", "13"}, {"10", "1"}, {"000", ""}};
  std::unique_ptr<TNote> notes[] = {nullptr, std::make_unique<TNote>(1), std::make_unique<TNote>(2),
                                    std::make_unique<TNote>(3), std::make_unique<TNote>(4)};
  for (const auto& [before, after] : cases) {
    TVxObjectList list(false);
    for (const char* id = before; *id; ++id) list.Add(notes[*id - '0'].get());
    list.Pack();
    EXPECT_EQ(IdsOf(list), after) << before;
  }
}

TEST(ObjectLists, TreatEqualObjectsByTheirKind) {
  TTold<TVxObjectListU> unsorted;
  TTold<TVxObjectListSortU> unique;
  TTold<TVxObjectListSortD> all;
  TNote one(1), two(2);
  unsorted.AddAll("31", "01");
  Log.clear();
  EXPECT_EQ(unsorted.Add(&one), 1);
  unsorted.Insert(0, &one);
  EXPECT_TRUE(IdsOf(unsorted) == "31" && Log.empty()) << "refused, and still the caller's";
  unique.AddAll("53717", "00203");
  EXPECT_EQ(Log, "+5+3+7+1~7");
  unique.Add(unique.At(2));
  EXPECT_EQ(IdsOf(unique), "1357") << "an object is not refused for its own sake";
  all.AddAll("2212321", "0103441");
  Log.clear();
  EXPECT_TRUE(all.Remove(all.At(4)) == 2 && all.Remove(&one) == 0);
  EXPECT_EQ(Log, "-2~2-2~2-2~2-2~2-1~1-1~1");
  TScriptedDialogs dialogs;
  EXPECT_EQ(all.Remove(&two), -1);
  ASSERT_EQ(dialogs.Shown.size(), 1u);
  EXPECT_TRUE(dialogs.Shown[0].Text.view().ends_with(u"Groesse: 1\r\nFunktion: GetItems\r\nIndex: -1"));
}

TEST(DataIdList, FindsByIdAndCopiesWhatItOwns) {
  TScriptedDialogs dialogs;
  TObject stranger;
  TVxDataIdList list, copies, shared(false);
  EXPECT_TRUE(list.MaxId() == 0 && !list.GetItem(5) && TVxDataIdListCount == 3);
  for (int id : {INT32_MAX, 0, INT32_MIN, 7}) list.Add(new TNote(id));
  struct { int Id, Place, Index; } cases[] = {{INT32_MIN, 0, 0}, {-1, 1, -1}, {0, 1, 1}, {7, 2, 2}, {8, 3, -1}};
  for (const auto& c : cases) {
    int index = 9;
    EXPECT_EQ(list.Find(c.Id, index), c.Index >= 0) << c.Id;
    EXPECT_TRUE(index == c.Index && list.IndexSortId(c.Id) == c.Place) << c.Id;
    EXPECT_EQ(list.GetItem(c.Id), c.Index < 0 ? nullptr : list.GetItems(c.Index));
    TVxDataIdList::FreeProbe();
  }
  shared.Assign(list), copies.Assign(list);
  EXPECT_TRUE(shared.GetItems(2) == list.GetItems(2) && copies.GetItems(2) != list.GetItems(2) && copies.IsIn(7));
  EXPECT_THROW(list.Add(&stranger), EInvalidCast);
  EXPECT_TRUE(list.GetCount() == 4 && list.MaxId() == INT32_MAX && dialogs.Shown.empty());
}

// Whatever is done at whatever place, the slots hold what an array would.
TEST(ObjectList, HoldsManyObjectsInOrder) {
  std::mt19937 random(7);
  std::vector<TObject> objects(48000);
  std::vector<TObject*> expected;
  TVxObjectList list(false);
  for (size_t i = 0; i < objects.size(); ++i) {
    const auto place = static_cast<int>(random() % (expected.size() + 1) / (1 + i % 7));
    if (i % 8 < 7 - i / 8000 || place >= list.GetCount()) {
      list.Insert(place, &objects[i]);
      expected.insert(expected.begin() + place, &objects[i]);
    } else {
      list.Delete(place);
      expected.erase(expected.begin() + place);
    }
    if (i % 12000 == 0) list.SetCapacity(i == 24000 ? 5000000 : list.GetCount());  // for many, blocks are larger
    if (i % 6000 == 0 || i + 1 == objects.size()) {
      for (int k = 0; k < list.GetCount(); ++k) ASSERT_EQ(list.GetItem(k), expected[static_cast<size_t>(k)]) << i;
    }
  }
}

TEST(ObjectLists, AddManyInAnyOrderAsOneByOne) {
  std::mt19937 random(3);
  std::vector<TNote> notes(20000);
  TVxObjectList source(false);
  TVxObjectListU plain(false);
  TTold<TVxObjectListSortD> sorted(false);
  for (TNote& note : notes) note.SetId(static_cast<int>(random() % 999)), source.Add(&note);
  sorted.ItemsAssign(source);
  EXPECT_LT(sorted.Compared, 20000 * 36);
  std::vector<const TObject*> order;
  for (TNote& note : notes) order.push_back(&note);
  std::stable_sort(order.begin(), order.end(), [](auto a, auto b) { return IdOf(a) < IdOf(b); });
  for (int i = 0; i < 20000; ++i) ASSERT_EQ(sorted.At(i), order[static_cast<size_t>(i)]);
  sorted.Compared = 0, notes[0].SetId(999);
  EXPECT_TRUE(sorted.Add(notes.data()) == 20000 && sorted.Compared == 1) << "one comparison at the end";
  plain.ItemsAdd(source), plain.ItemsAdd(source);
  EXPECT_TRUE(plain.GetCount() == 20000 && plain.Last() == source.Last());
  EXPECT_EQ(source.ItemsXOR(plain)->GetCount(), 0);
  source.ItemsAdd(source), source.ItemsSubtract(plain);
  EXPECT_TRUE(source.GetCount() == 20000 && source.Last() == plain.Last()) << "one for one";
}

}  // namespace
}  // namespace vx
