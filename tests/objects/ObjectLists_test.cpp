#include "objects/uVxObjects.h"
#include "tests/support/Test.h"

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
  const TCases<std::function<void(TList&)>, std::string, std::string, std::string> cases = {
      {[](auto& l) { l.Delete(0); }, "23", "-1", "-1~1"},
      {[](auto& l) { l.SetCount(1); }, "1", "-3-2", "-3~3-2~2"},
      {[](auto& l) { EXPECT_EQ(l.Remove(l.At(1)), 1); }, "13", "-2", "-2~2"},
      {[](auto& l) { l.Exchange(0, 2); }, "321", "", ""},
      {[](auto& l) { l.Move(0, 2), l.Move(7, 7); }, "231", "", ""},
      {[](auto& l) { l.Clear(); }, "", "-3-2-1c", "-3~3-2~2-1~1c"},
      {[](auto& l) { l.SetItem(2, l.At(2)); }, "123", "-3+3", "-3+3"},
      {[](auto& l) { l.Assign(l), l.Assign(TVxObjectList()); }, "", "-3-2-1c", "-3~3-2~2-1~1c"},
      {[this](auto& l) { EXPECT_EQ(l.Add(this->Make(l, 9)), 3); }, "1239", "+9", "+9"},
      {[this](auto& l) { l.Insert(3, this->Make(l, 9)); }, "1239", "+9", "+9"},
      {[this](auto& l) { l.SetItem(2, this->Make(l, 9)); }, "129", "-3+9", "-3~3+9"},
      {[](auto& l) { l.SetCount(5), l.Delete(4), l.SetItem(3, nullptr), l.SetCount(3); }, "123", "", ""},
      {[](auto& l) { l.Sort([](TObject* a, TObject* b) { return IdOf(b) - IdOf(a); }); }, "321", "", ""},
      {[this](auto& l) { this->Take(l, l.Extract(l.At(1))); }, "13", "x2", "x2"}};
  for (int i = 0; const auto& [run, ids, told, freed] : cases) {
    for (bool owns : {false, true}) {
      TList list(owns);
      this->Fill(list, 3), run(list);
      EXPECT_EQ(std::pair(IdsOf(list), Log), std::pair(ids, owns ? freed : told)) << i;
    }
    ++i;
  }
  EXPECT_TRUE(this->Dialogs.Shown.empty());
}

TYPED_TEST(AnyObjectList, RefusesWithAWarningAndStaysAsItWas) {
  using TList = TTold<TypeParam>;
  struct {
    String Name;
    void (*Run)(TList&, int);
    int Over = 2;
    String Text = u"Der Index der Liste ";
  } cases[] = {{u"Delete", [](auto& l, int i) { l.Delete(i); }},
               {u"SetItems", [](auto& l, int i) { l.SetItem(i, nullptr); }},
               {u"GetItems", [](auto& l, int i) { EXPECT_EQ(l.At(i), nullptr); }},
               {u"doExchange.Index1", [](auto& l, int i) { l.Exchange(i, -5); }},
               {u"doExchange.Index2", [](auto& l, int i) { l.Exchange(0, i); }},
               {u"doMove.CurIndex", [](auto& l, int i) { l.Move(i, -5); }},
               {u"doMove.NewIndex", [](auto& l, int i) { l.Move(0, i); }},
               {u"doInsert", [](auto& l, int i) { l.Insert(i, nullptr); }, 3},
               {u"SetCount", [](auto& l, int i) { l.SetCount(i); }, 0x8000000, u"Die Anzahl "},
               {u"SetCapacity", [](auto& l, int i) { l.SetCapacity(i); }, 0x8000000, u"Die Kapazität "}};
  TList list;
  this->Fill(list, 2);
  for (size_t shows = 0; const auto& c : cases) {
    for (int bad : {INT32_MIN, -1, c.Over, INT32_MAX}) {
      c.Run(list, bad);
      ASSERT_EQ(this->Dialogs.Shown.size(), ++shows) << c.Name.ToUtf8();
      const String place = u"\r\n\r\nObjekt: TVxObjects\r\nGroesse: 2\r\nFunktion: " + c.Name + u"\r\nIndex: ";
      const String fault = bad < 0 ? u"unterschreitet das Minimum!" : u"überschreitet das Maximum!";
      EXPECT_EQ(this->Dialogs.Shown.back().Text, c.Text + fault + place + IntToStr(bad));
      EXPECT_EQ(this->Dialogs.Shown.back().Kind, mtWarning);
      EXPECT_EQ((TFacts{IdsOf(list) + Log, list.GetCapacity()}), "12 4");
    }
  }
}

TYPED_TEST(AnyObjectList, GrowsByItsSteps) {
  TTold<TypeParam> list(false);
  std::set<int> steps;
  for (int id = 1; id <= 96; steps.insert(list.GetCapacity()), ++id) list.Add(this->Make(list, id));
  list.GrowBy(30), steps.insert(list.GetCapacity()), list.SetCount(200), steps.insert(list.GetCapacity());
  EXPECT_EQ(steps, (std::set{4, 8, 12, 28, 44, 60, 76, 95, 118, 183, 200}));
  EXPECT_EQ((list.Clear(), list.GrowBy(0), list.GetCapacity()), 4);
}

TYPED_TEST(AnyObjectList, MayBeChangedByWhatItTells) {
  for (bool byDestructor : {false, true}) {
    int depth = 0;
    TTold<TypeParam> list;
    this->Fill(list, 6);
    auto& told = byDestructor ? OnGone : list.OnNotify;
    told = [&] { ++depth == 1 && list.GetCount() > 1 ? list.Delete(0) : void(), --depth; };
    EXPECT_EQ((list.SetCount(3), IdsOf(list)), "34") << "no objects are left where the fourth one was";
    EXPECT_EQ((list.Remove(list.At(0)), IdsOf(list)), "4");
    OnGone = [&] { EXPECT_LT(list.GetCount() + list.IndexOf(nullptr), 1); };
  }
  EXPECT_TRUE(this->Dialogs.Shown.empty());
}

TYPED_TEST(AnyObjectList, MakesItsLike) {
  DoCountObjects = true;
  const TypeParam list;
  auto like = list.GetNewInstance(false);
  EXPECT_EQ(like->ClassName(), list.ClassName());
  EXPECT_EQ((TFacts{like->GetOwnsObjects(), list.GetOwnsObjects()}), "no yes");
  EXPECT_EQ(VxObjectCounter().at(list.ClassName()), 2);
  like = nullptr, DoCountObjects = false;
  EXPECT_EQ(VxObjectCounter().at(list.ClassName()), 1);
  TNote notes[] = {TNote(1), TNote(2), TNote(3), TNote(4)};  // in the order of ids and that of addresses
  TypeParam source(false), less(false), target(false);
  for (auto [one, other] : {std::pair(0, 3), {1, 2}, {3, 1}}) source.Add(&notes[one]), less.Add(&notes[other]);
  auto one = source.ItemsXOR(less), copy = source.Duplicate(false);
  EXPECT_FALSE(one->GetOwnsObjects());
  EXPECT_EQ(IdsOf(*one), (std::is_base_of_v<TVxObjectListSortU, TypeParam> ? "13" : "31"));
  EXPECT_EQ(IdsOf(*source.ItemsAND(less)) + IdsOf(source.ItemsAND(less, target)), "2424");
  EXPECT_EQ((source.ItemsSubtract(less), IdsOf(source) + IdsOf(*copy)), "1124");
  EXPECT_EQ((copy->ItemsSubtract(*copy), copy->GetCount()), 0);
}

TEST(ObjectList, FindsByClass) {
  TVxObjectList list;
  for (TObject* item : std::vector<TObject*>{nullptr, new TObjectList, new TVxDataIdHelper, new TNote}) list.Add(item);
  const TVxClass& helper = TVxDataIdHelper::Class();
  EXPECT_EQ((TFacts{list.FindInstanceOf(helper), list.FindInstanceOf(helper, false, 3),
                    list.FindInstanceOf(TNote::Class(), true, -7)}),
            "2 3 3");
  for (bool exact : {false, true}) EXPECT_EQ(list.FindInstanceOf(TVxObject::Class(), exact), exact ? -1 : 2);
}

TEST(ObjectList, PacksByItsSteps) {
  const char* cases[][2] = {{"", ""},         {"12", "12"},    {"1020", "12"}, {"10203", "123"}, {"0012", "1"},
                            {"01234", "134"}, {"00123", "13"}, {"10", "1"},    {"000", ""}};
  TNote notes[] = {TNote(), TNote(1), TNote(2), TNote(3), TNote(4)};
  for (const auto& [before, after] : cases) {
    TVxObjectList list(false);
    for (const char* id = before; *id; ++id) list.Add(*id == '0' ? nullptr : &notes[*id - '0']);
    list.Pack();
    EXPECT_EQ(IdsOf(list), after) << before;
  }
}

TEST(ObjectLists, TreatEqualObjectsByTheirKind) {
  TTold<TVxObjectListU> unsorted;
  TTold<TVxObjectListSortU> unique;
  TTold<TVxObjectListSortD> all;
  TNote one(1), two(2);
  unsorted.AddAll("31", "01"), Log.clear();
  EXPECT_EQ(unsorted.Add(&one), 1);
  unsorted.Insert(0, &one);
  EXPECT_EQ((TFacts{IdsOf(unsorted), Log}), "31 ") << "refused, and still the caller's";
  unique.AddAll("53717", "00203");
  EXPECT_EQ(Log, "+5+3+7+1~7");
  EXPECT_EQ((unique.Add(unique.At(2)), IdsOf(unique)), "1357") << "an object is not refused for its own sake";
  all.AddAll("2212321", "0103441"), Log.clear();
  EXPECT_EQ((TFacts{all.Remove(all.At(4)), all.Remove(&one), Log}), "2 0 -2~2-2~2-2~2-2~2-1~1-1~1");
  TScriptedDialogs dialogs;
  EXPECT_EQ((TFacts{all.Remove(&two), dialogs.Shown.size()}), "-1 1");
  EXPECT_TRUE(dialogs.Shown.at(0).Text.view().ends_with(u"Groesse: 1\r\nFunktion: GetItems\r\nIndex: -1"));
}

TEST(DataIdList, FindsByIdAndCopiesWhatItOwns) {
  TScriptedDialogs dialogs;
  TObject stranger;
  TVxDataIdList list, copies, shared(false);
  EXPECT_EQ((TFacts{list.MaxId(), !list.GetItem(5), int{TVxDataIdListCount}}), "0 yes 3");
  for (int id : {INT32_MAX, 0, INT32_MIN, 7}) list.Add(new TNote(id));
  const TCases<int, int, int> cases = {{INT32_MIN, 0, 0}, {-1, 1, -1}, {0, 1, 1}, {7, 2, 2}, {8, 3, -1}};
  for (const auto& [id, place, index] : cases) {
    int found = 9;
    EXPECT_EQ(list.Find(id, found), index >= 0) << id;
    EXPECT_EQ(std::pair(found, list.IndexSortId(id)), std::pair(index, place)) << id;
    EXPECT_EQ(list.GetItem(id), index < 0 ? nullptr : list.GetItems(index));
    TVxDataIdList::FreeProbe();
  }
  // So many look-ups go by copied ids, but not past an id that has changed or an object that has come.
  TVxDataIdList many;
  for (int id = 0; id < 200; ++id) many.Add(new TNote(2 * id));
  auto finds = [&](int Id, int Index) {
    for (int i = 0; i < 99; ++i) EXPECT_EQ(many.IndexOf(Id), Index) << Id;
  };
  finds(250, 125), finds(251, -1);
  many.GetItems(199)->SetId(399);
  EXPECT_EQ((TFacts{many.IndexOf(399), many.IndexOf(398)}), "199 -1");
  many.Add(new TNote(7)), finds(250, 126), finds(399, 200);
  EXPECT_EQ(many.GetItem(1000), nullptr);
  shared.Assign(list), copies.Assign(list);
  EXPECT_EQ(shared.GetItems(2), list.GetItems(2));
  EXPECT_NE(copies.GetItems(2), list.GetItems(2));
  EXPECT_TRUE(copies.IsIn(7));
  EXPECT_THROW(list.Add(&stranger), EInvalidCast);
  EXPECT_EQ((TFacts{list.GetCount(), list.MaxId(), dialogs.Shown.size()}), "4 2147483647 0");
}

// Whatever is done at whatever place, the slots hold what an array would.
TEST(ObjectList, HoldsManyObjectsInOrder) {
  std::mt19937 random(7);
  std::vector<TObject> objects(48000);
  std::vector<TObject*> expected;
  TVxObjectList list(false);
  for (size_t i = 0; i < objects.size(); ++i) {
    const auto place = static_cast<int>(random() % (expected.size() + 1) / (1 + i % 7));
    const bool adds = i % 8 < 7 - i / 8000 || place >= list.GetCount();
    adds ? list.Insert(place, &objects[i]) : list.Delete(place);
    adds ? expected.insert(expected.begin() + place, &objects[i]) : expected.erase(expected.begin() + place);
    if (i % 12000 == 0) list.SetCapacity(i == 24000 ? 5000000 : list.GetCount());  // for many, blocks are larger
    for (int k = i % 6000 && i != 47999 ? list.GetCount() : 0; k < list.GetCount(); ++k)
      ASSERT_EQ(list.GetItem(k), expected[static_cast<size_t>(k)]) << i;
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
  auto key = [&](int i) { return std::pair(IdOf(sorted.At(i)), sorted.At(i)); };  // equal ones: as their addresses
  for (int i = 1; i < 20000; ++i) ASSERT_LT(key(i - 1), key(i));
  sorted.Compared = 0, notes[0].SetId(999);
  EXPECT_EQ((TFacts{sorted.Add(notes.data()), sorted.Compared}), "20000 1") << "one comparison at the end";
  plain.ItemsAdd(source);
  EXPECT_EQ(source.ItemsXOR(plain)->GetCount(), 0);
  source.ItemsAdd(source), source.ItemsSubtract(plain);
  EXPECT_EQ(source.GetCount(), 20000) << "one for one";
  EXPECT_EQ(source.Last(), plain.Last());
}

template <typename TList>
void ExpectBulkAsOneByOne(const std::vector<TObject*>& first, const TVxObjectList& source) {
  TList bulk(false), single(false);
  for (TObject* item : first) bulk.Add(item), single.Add(item);
  bulk.ItemsAdd(source);
  for (int i = 0; i < source.GetCount(); ++i) single.Add(source.GetItem(i));
  ASSERT_EQ(bulk.GetCount(), single.GetCount());
  for (int i = 0; i < bulk.GetCount(); ++i)
    ASSERT_EQ(bulk.TVxObjectList::GetItem(i), single.TVxObjectList::GetItem(i)) << i;
}

TEST(ObjectLists, BulkGivesWhatOneByOneGives) {
  std::mt19937 random(5);
  std::vector<TNote> notes(400);
  for (int round = 0; round < 20; ++round) {
    std::vector<TObject*> first;
    TVxObjectList source(false);
    TVxDataIdList copies, ids(false);
    for (TNote& note : notes) note.SetId(static_cast<int>(random() % 300));
    for (int i = round * 7; i > 0; --i) first.push_back(&notes[random() % 400]);
    for (int i = 60 + round * 9; i > 0; --i) source.Add(random() % 40 == 0 ? nullptr : &notes[random() % 400]);
    ExpectBulkAsOneByOne<TVxDataIdList>(first, source);
    ExpectBulkAsOneByOne<TVxObjectListU>(first, source);
    ExpectBulkAsOneByOne<TVxObjectListSortU>(first, source);
    ExpectBulkAsOneByOne<TVxObjectListSortD>(first, source);
    ids.ItemsAdd(source), copies.ItemsAdd(source);
    ASSERT_EQ(copies.GetCount(), ids.GetCount());
    for (int i = 0; i < ids.GetCount(); ++i) {
      const TVxDataId *copy = copies.GetItems(i), *note = ids.GetItems(i);
      ASSERT_EQ(std::pair(!copy, IdOf(copy)), std::pair(!note, IdOf(note))) << i;
      ASSERT_TRUE(!note == (copy == note)) << i;
    }
  }
}

}  // namespace
