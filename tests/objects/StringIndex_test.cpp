#include "objects/uVxClasses.h"
#include "objects/uVxGenerics.h"
#include "objects/uVxObjects.h"
#include "tests/support/Test.h"

namespace {

constexpr TVxStringIndexOptions kOwns{vxioOwnsObjects}, kOwnsAnyCase{vxioOwnsObjects, vxioNotCaseSensitive};

// Keeps a set of the living ones, and looks at an index when it goes.
struct TNote : TObject {
  explicit TNote(TVxStringIndex* seen = nullptr) : Seen(seen) { Living.insert(this); }
  ~TNote() override {
    if (Living.erase(this); Seen) Seen->IndexOf(this), Seen->Delete(u"friend"), Seen->Add(u"late");
  }
  TVxStringIndex* Seen;
  static inline std::set<TObject*> Living;
};

TEST(StringIndex, ComparesAndFoldsKeys) {
  const TCases<String, String, int> compared = {
      {u"a", u"a", 0},   {u"abc", u"abd", -3}, {u"b", u"abc", 3}, {u"B", u"a", -3}, {u"abcdefghi", u"abcdefgh", 2},
      {u"a", u"ab", -2}, {u"a", u"", 1},       {u"", u"a", -1},   {u"", u"", 0},    {u"abcdeXgh", u"abcdeYgh", -3}};
  for (const auto& [a, b, result] : compared) EXPECT_EQ(VxCompareText(a, b, true), result) << a;
  EXPECT_EQ(VxCompareText(u"MÜLLER", u"müller", false), 0);
  EXPECT_GT(VxCompareText(u"B", u"a", false), 0);
  const TCases<String, int, String> folded = {
      {u"Müller", 0, u"Müller"}, {u"Müller", -1, u"Müller"}, {u"ab", 5, u"ab   "},    {u"Müller", 3, u"Muel\""},
      {u"Ärger", 5, u"Aerger!"}, {u"ÄRGER", 5, u"AERGER!"},  {u"Ä", 1, u"Ae!"},       {u"Ä", 2, u"Ae !"},
      {u"ÖÜß", 3, u"OeUess!#%"}, {u"äÄ", 2, u"aeAE!#"},      {u"x-Ö-", 4, u"x-OE-#"}, {u"ab", 1, u"a"}};
  TVxStringIndex wide;
  for (const auto& [text, length, result] : folded)
    EXPECT_EQ((wide.SetFixedLength(length), wide.ModifyString(text)), result);
  wide.SetFixedLength(196);
  EXPECT_EQ(wide.ModifyString(String(195, u'x') + u"ä"), String(195, u'x') + u"aeae\u00E6") << "a marker is folded too";
  wide.SetFixedLength(7), wide.SetCommatext(u"Mueller,Müller,Muffe,Müller");
  EXPECT_EQ(wide.Implode(u"/"), u"Mueller/Mueller \"/Muffe  ");
  EXPECT_EQ((TFacts{wide.IndexOf(u"Müller"), wide.SortedIndexOf(u"Muffe"), wide.GetDuplicateCount()}), "1 2 1");
  EXPECT_EQ((TFacts{wide.Delete(u"Müller"), !wide.Extract(u"nobody"), wide.GetCount()}), "1 yes 2");
}

TEST(StringIndex, RemembersTheLastSearch) {
  TVxStringIndex index;
  TNote a, c;
  int place = 9;
  EXPECT_EQ((TFacts{index.Find(u"a", place), place, index.GetLastIndex()}), "no 0 0");
  EXPECT_EQ((TFacts{index.Add(u"c", &c), index.Add(u"a", &a), index.Add(u"e")}), "0 0 2");
  const TCases<String, bool, int> cases = {{u"c", true, 1}, {u"c", true, 1},  {u"d", false, 2}, {u"", false, 0},
                                           {u"a", true, 0}, {u"z", false, 3}, {u"e", true, 2}};
  for (const auto& [key, found, expected] : cases)
    EXPECT_EQ((std::tuple{index.Find(key, place), place, index.GetLastIndex(), index.IndexSort(key)}),
              (std::tuple{found, expected, expected, expected}))
        << key;
  EXPECT_EQ((TFacts{index.IndexOf(&c), index.GetLastIndex()}), "1 1");
  EXPECT_EQ((TFacts{index.IndexOf(&index), index.GetLastIndex()}), "-1 -1");
  index.Find(u"e", place), index.Delete(u"c");
  EXPECT_EQ((TFacts{index.Find(u"e", place), place, index.Delete(&a), index.Delete(&a)}), "yes 1 0 -1");
  EXPECT_EQ((index.Clear(), index.GetLastIndex()), -1);
  TVxStringList unsorted;
  unsorted.SetCommatext(u"c,a,b,a"), index.Assign(unsorted);
  EXPECT_EQ((TFacts{index.GetCommatext(), index.IsIn(u"a")}), "c,a,b,a no")
      << "as it stands: at or before the first key";
  EXPECT_THROW(index.GetItems(4), EStringListError);
  EXPECT_THROW(index.Delete(-1), EStringListError);
}

// The same work on an index and on a map from keys in lower case; the long runs go through many keys.
TEST(StringIndex, DoesWhatAMapDoes) {
  for (bool isCaseSensitive : {true, false}) {
    TVxStringIndex index(isCaseSensitive ? TVxStringIndexOptions{} : TVxStringIndexOptions{vxioNotCaseSensitive});
    std::mt19937 random(7);
    std::map<std::u16string, std::pair<std::u16string, TObject*>> map;
    TObject* any[] = {nullptr, &index, reinterpret_cast<TObject*>(&map)};
    TVxStringList& csl = index.GetCsl();  // whole whenever it is looked at
    int duplicates = 0;
    for (int step = 0; step < 14000; ++step) {
      std::u16string key, low;
      for (unsigned v = random() % 20000; v > 0; v /= 10) key += static_cast<char16_t>(u"aA"[random() % 2] + v % 10);
      for (char16_t unit : key) low += static_cast<char16_t>(isCaseSensitive ? unit : unit | 32);
      bool exists = map.count(low) > 0;
      int place;
      EXPECT_EQ(index.Find(key, place), exists);
      EXPECT_EQ(place, step % 50 > 0 ? place : std::distance(map.begin(), map.lower_bound(low)));
      if (exists) {
        EXPECT_EQ(index.GetItems(place), map[low].first);
        EXPECT_EQ(index.GetObjects(place), map[low].second);
      }
      if (random() % 4 > 0) {
        duplicates += exists;
        EXPECT_EQ(index.Add(key, map.try_emplace(low, key, nullptr).first->second.second = any[random() % 3]), place);
      } else if (step % 100 < 10) {
        const bool bySelf = !exists || step % 2;
        if (!bySelf) csl.Delete(place);
        EXPECT_EQ(bySelf ? index.Delete(key) : place, map.erase(low) ? place : -1);
      }
      ASSERT_EQ(csl.GetCount(), static_cast<int>(map.size()));
      if (step % 1500 > 1) continue;
      ASSERT_EQ(csl.Items().size(), map.size());
      for (size_t at = 0; const auto& [each, entry] : map) {
        ASSERT_EQ(csl.Items()[at], entry.first) << step;
        ASSERT_EQ(csl.GetObject(static_cast<int>(at++)), entry.second) << step;
      }
    }
    ASSERT_EQ(index.GetCount(), static_cast<int>(map.size()));
    ASSERT_EQ(index.GetDuplicateCount(), duplicates);
    for (int at = 0; const auto& [low, entry] : map) EXPECT_EQ(csl.Get(at++), entry.first);
  }
}

TEST(StringIndex, GivesAListThatStaysItsOwn) {
  TVxStringIndex index;
  TVxStringList& csl = index.GetCsl();
  for (int i = 5000; i > 0; --i) index.Add(u"k" + IntToStr(10000 + i));  // in front of many
  index.Add(u"a");
  EXPECT_EQ(csl.GetCount(), 5001);
  const auto has = [&](const String& key, int place) {
    EXPECT_EQ((std::pair{index.IndexOf(key), csl.IndexOf(key)}), std::pair(place, place)) << key;
  };
  csl.Delete(2), has(u"a", 0), has(u"k10001", 1), has(u"k10002", -1), has(u"k15000", 4999);
  index.Add(u"b"), csl.Put(1, u"aa"), has(u"aa", 1), has(u"b", -1), csl.Insert(1, u"a2"), has(u"a2", 1);
  TVxStringList copy;
  copy.Assign(csl);
  EXPECT_EQ((TFacts{copy.EqualsAll(csl), csl.EqualsAll(copy)}), "yes yes");
  EXPECT_THROW(csl.Get(5002), EStringListError);
  EXPECT_THROW(csl.Delete(-1), EStringListError);
  csl.Clear(), csl.Add(u"x"), has(u"x", 0);
  EXPECT_EQ(index.GetCount(), 1);
}

// Reading may tidy up and note where it was: that must not be seen by others.
TEST(ContainersThread, AreReadBySeveralAtOnce) {
  TVxStringIndex index;
  TVxDataIdList ids, others;
  std::vector<String> keys;
  for (int i = 3000; i > 0; --i) keys.push_back(u"key " + IntToStr(10000 + i));
  for (const String& key : keys) index.Add(key);
  for (int id = 0; id < 3000; ++id) {
    for (TVxDataIdList* list : {&ids, &others}) {
      auto* object = new TVxDataIdHelper;
      object->SetId(id * 2), list->Add(object);
    }
  }
  const auto read = [&, &index = std::as_const(index), &ids = std::as_const(ids)](bool asks) {
    for (int i = 0; i < 3000; ++i) {
      ASSERT_EQ(index.IndexOf(keys[static_cast<size_t>(i)]), 2999 - i);
      ASSERT_EQ(ids.IndexOf(i), i % 2 ? -1 : i / 2);
      ASSERT_EQ(others.IndexSort(TVxDataIdSingleton::Singleton(i * 2)), i);
      ASSERT_EQ(asks && i % 1000 == 0 ? index.GetCsl().Items().size() : 3000, 3000);
    }
  };
  std::jthread a([&] { read(true); }), b([&] { read(true); }), c([&] { read(false); });
}

TEST(StringIndex, TakesManyAsOneByOne) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    std::mt19937 random(seed);
    TVxStringIndexOptions options = seed % 2 ? kOwns : kOwnsAnyCase;
    TVxStringIndex single(options), bulk(options);
    size_t living = 0;
    for (int count : {40, 300}) {
      TVxStringList lists[2];
      while (count-- > 0) {
        String key(1 + static_cast<int>(random() % 3), static_cast<char16_t>(u"aA"[random() % 2] + random() % 26));
        for (auto has = random() % 3; TVxStringList & list : lists) list.AddObject(key, has ? new TNote : nullptr);
      }
      if (seed % 3 == 0) lists[0].Sort(), lists[1].Sort();
      for (int i = 0; i < lists[0].GetCount(); ++i) single.Add(lists[0].Get(i), lists[0].GetObject(i));
      bulk.AddStrings(lists[1]);
    }
    EXPECT_TRUE(bulk.GetCsl().Equals(single.GetCsl())) << seed;
    EXPECT_EQ(bulk.GetDuplicateCount(), single.GetDuplicateCount());
    for (int i = 0; i < single.GetCount(); ++i) living += single.GetObjects(i) && bulk.GetObjects(i) ? 2 : 0;
    bulk.AddStrings(bulk);
    EXPECT_EQ(bulk.GetDuplicateCount(), single.GetDuplicateCount() + single.GetCount());
    EXPECT_EQ(TNote::Living.size(), living);
  }
}

TEST(StringIndex, FreesWhatItOwns) {
  TVxStringIndex index(kOwns), taker(kOwns);
  String key;
  TNote* notes[] = {new TNote, new TNote, new TNote, new TNote, new TNote, new TNote};
  auto living = [&] {
    std::string numbers;
    for (int i = 0; i < 6; ++i) numbers += TNote::Living.count(notes[i]) > 0 ? std::to_string(i) : "";
    return numbers;
  };
  for (int i : {0, 1, 2, 3, 0}) index.Add(String(1, u"abcd"[i]), notes[i]);
  EXPECT_EQ((TFacts{living(), index.GetDuplicateCount()}), "012345 1");
  EXPECT_EQ((TFacts{index.Add(u"a", notes[4]), living(), index.GetDuplicateCount()}), "0 12345 2");
  index.Delete(1);
  EXPECT_EQ((TFacts{index.Extract(1, key) == notes[2], key, living()}), "yes c 2345");
  index.SetIntellitext(u"x|y");
  EXPECT_EQ((TFacts{living(), index.GetIntellitext()}), "25 x|y");
  index.Add(u"x", notes[2]), index.SetCommatext(u"x,a");
  EXPECT_EQ((TFacts{living(), index.GetText()}), "5 a\r\nx\r\ny") << "no clearing, and no object for x";
  index.Add(u"a", notes[5]), index.DeleteObjects();
  EXPECT_EQ((TFacts{TNote::Living.size(), index.GetCount(), !index.GetObjects(0)}), "0 3 yes");
  auto watch = [&] {
    for (const char16_t* each : {u"m", u"b", u"friend", u"z"}) index.Add(each, new TNote(&index));
  };
  watch(), index.Add(u"m", nullptr), index.DeleteObjects();
  EXPECT_EQ((TFacts{TNote::Living.size(), index.IsIn(u"late"), index.IsIn(u"friend")}), "0 yes no");
  watch(), index.Init();
  EXPECT_EQ((TFacts{TNote::Living.size(), index.GetCount(), index.GetOptions().IsEmpty()}), "0 0 yes");
  for (int i = 6000; i > 3000; --i) taker.Add(IntToStr(i % 5000 + 1000), new TNote);
  taker.Clear();
  EXPECT_TRUE(TNote::Living.empty());
  TNote mine;
  taker.Add(u"own", &mine), index.Add(u"a", &mine), taker.Assign(index);
  EXPECT_EQ(TNote::Living, std::set<TObject*>{&mine});
  EXPECT_EQ((TFacts{taker.GetOptions().IsEmpty(), taker.IndexOf(&mine), taker.IsIn(u"a")}), "yes 0 yes");
}

TEST(StringIndex, GoesToFilesAsItStands) {
  test::TTempDir dir;
  TVxStringIndex index;
  index.SetCommatext(u"b,a");
  EXPECT_EQ((TFacts{index.SaveToFile(dir.Path("k")), test::GetText(dir.Path("k"))}), "yes a\r\nb\r\n");
  EXPECT_EQ((TFacts{index.LoadFromFile(dir.Path("none")), index.LoadFromFile(dir.Path())}), "no no");
  test::PutText(dir.Path("k"), "z\nb");
  EXPECT_EQ((TFacts{index.LoadFromFile(dir.Path("k")), index.GetCommatext()}), "yes z,b");
}

TEST(StringTree, HasOneTextForm) {
  TVxStringTree tree(kOwns), read, merged(kOwnsAnyCase);
  for (const char16_t* path : {u"Bonn \\\\ Beuel\\", u"Bonn\\beuel"}) tree.AddPath(path);
  EXPECT_EQ(tree.GetSerialize(), u"0°F°4°Bonn7°5°Beuel");
  for (const char16_t* path : {u"a\\b\\\\c", u" x|y"}) tree.AddPath(path);
  read.SetSerialize(tree.GetSerialize());
  EXPECT_EQ(read.GetSerialize(), tree.GetSerialize());
  EXPECT_EQ((TFacts{read.GetCommatext(), !read.GetObjects(2)}), "Bonn,a,x|y yes");
  auto* bonn = dynamic_cast<TVxStringTree*>(read.GetObjects(0));
  EXPECT_EQ((TFacts{bonn->GetOptions().IsEmpty(), bonn->GetCommatext(), !bonn->GetObjects(0)}), "yes Beuel yes");
  merged.AddPath(u"BONN\\Poppelsdorf"), merged.AddTree(read), merged.AddTree(merged);
  auto* inner = dynamic_cast<TVxStringTree*>(merged.GetObjects(1));
  EXPECT_EQ((TFacts{merged.GetCommatext(), inner->GetCommatext()}), "a,BONN,x|y Beuel,Poppelsdorf");
  inner->AddTree(merged);  // holds it
  EXPECT_EQ(inner->GetCommatext(), u"a,Beuel,BONN,Poppelsdorf,x|y");
  read.OwnNodes();
}

TEST(StringTree, ReadsAnyTextAndAnyDepth) {
  std::mt19937 random(3);
  std::u16string path;
  for (int round = 0; round < 3000; ++round) {
    String text = u"0°18°4°Bonn6°5°Beuel2°1°a7°6°°x|y°°";
    for (int i = random() % 4; i-- > 0;) text.SetUnit(static_cast<int>(random() % 30), u"0°|A1\0b"[random() % 7]);
    TVxStringTree tree(round % 2 ? kOwns : TVxStringIndexOptions{}), again;
    tree.SetSerialize(text);
    const String written = tree.GetSerialize();
    again.SetSerialize(written);
    const bool hasZero = text.view().find(u'\0') < text.view().npos;
    EXPECT_EQ(hasZero ? written : again.GetSerialize(), written);
    tree.OwnNodes(), again.OwnNodes();
  }
  for (int depth = 100000; depth > 0; --depth) path += u"n\\";
  TVxStringTree deep(kOwns), copy, merged(kOwns);
  deep.AddPath(path), copy.SetSerialize(deep.GetSerialize()), merged.AddTree(copy);
  EXPECT_EQ(merged.GetSerialize(), deep.GetSerialize());
  copy.OwnNodes();
}

TEST(StringTree, WalksByPlacesOfItsFirstLevel) {
  TVxStringTree tree(kOwns);
  tree.Add(u"c");
  TVxStringList names;
  std::unique_ptr<TVxStringTree> none;
  for (const char16_t* path : {u"a\\x\\deep", u"b\\p", u"b\\q\\r"}) tree.AddPath(path);
  const TCases<String, bool> cases = {{u"a", true},         {u"a,x", true},   {u"b,q", true},    {u"b,x", false},
                                      {u"a,x,deep", false}, {u"a,x,x", true}, {u"b,q,r", false}, {u"b,q,p", true},
                                      {u"c,y", false},      {u"", false}};
  for (const auto& [at, exists] : cases)
    EXPECT_EQ((names.SetCommatext(at), tree.CascadeExists(names)), exists) << String(at).ToUtf8();
  tree.Add(u"c", new TNote), names.SetCommatext(u"c,y");
  EXPECT_THROW(tree.CascadeExists(names), EInvalidCast);
  TVxStringTree* made[] = {TVxStringTree::ValidateNode(tree, u"c"), TVxStringTree::ValidateNode(none, u"new")};
  EXPECT_EQ((std::array<TObject*, 2>{made[0], made[1]}), (std::array{tree.GetObjects(2), none->GetObjects(0)}));
  EXPECT_TRUE(TNote::Living.empty());
}

TEST(ArrayStrStr, KeepsValuesBesideTheirKeys) {
  TArrayStrStr map;
  String many, expected;
  for (auto [key, value] : {std::pair(u"b", u"1"), {u"b", u"2"}, {u"a", u"3"}}) map.Add(key, value, false);
  EXPECT_EQ(map.GetSerialize(), u"a|3|b|1");
  map.Add(u"b", u"2", true), map.SetItems(u"c", u"?");
  EXPECT_EQ((TFacts{map.GetItems(u"b"), map.IndexOfKey(u"B"), map.GetItems(u"c")}), "2 -1 ");
  auto copy = map.Duplicate();
  EXPECT_EQ((TFacts{copy->EqualsAll(&map), copy->ClassName()}), "yes TArrayStrStr");
  map.Delete(u"a");
  EXPECT_EQ((TFacts{map.GetKeys(0), map.GetValues(0), map.GetCount(), copy->EqualsAll(&map)}), "b 2 1 no");
  for (int i = 200; i-- > 100;) many += u"k" + IntToStr(i) + u"|x|K" + IntToStr(i) + u"|" + IntToStr(i) + u"|";
  for (int i = 100; i < 200; ++i) expected += u"k" + IntToStr(i) + u"|" + IntToStr(i) + u"|";
  map.SetCaseSensitive(false), map.SetSerialize(many + u"odd");
  EXPECT_EQ(map.GetSerialize() + u"|", expected);
  EXPECT_EQ((TFacts{map.IsKeyIn(u"K150"), map.IndexOfValue(u"150"), map.IsValueIn(u"x")}), "yes 50 no");
}

TEST(DateRange, SpeaksByCallPaths) {
  TvxDateRange range(42036, 42063);
  const TCases<String, String, String> cases = {
      {u"", u"", u"01.02.2015 - 28.02.2015"},  {u"Begin", u"", u"01.02.2015"}, {u"Ende", u"", u"28.02.2015"},
      {u"Zeitraum", u"x", u"Februar 2015"},    {u"TvxDateRange", u"x", u""},   {u"nothing", u"x", u""},
      {u"Ende", u"02.02.2015", u"02.02.2015"}, {u"Begin", u"none", u""},       {u"", u"", u"30.12.1899 - 02.02.2015"}};
  for (const auto& [path, write, text] : cases)
    EXPECT_EQ(!write.empty() && range.ValueOf(0, path, write, false) != u"" ? u"!" : range.ValueOf(0, path, u"", true),
              text);
  EXPECT_EQ(TvxDateRange::Class().DataHeads(true).front().name, u"-1201");
}

TEST(Pop, FailsOnceAndForAll) {
  TVxStringList data;
  data.SetCommatext(u"1,7,x,\u00FFTNext,2,3");
  TPop pop(&data, 0, 1, true);
  EXPECT_EQ((TFacts{pop.PopBool(), pop.PopInt(0), pop.Pop(true), pop.PopBoolDef(true, true), pop.iSuccess}),
            "yes 7  yes yes");
  EXPECT_EQ((TFacts{pop.PopInt(5), pop.iSuccess, pop.Increment(-2), pop.Pop()}), "5 no 0 ");
  TPop whole(&data, 2, -1, true);
  EXPECT_EQ((TFacts{whole.PopInt(9), whole.iSuccess, whole.iEndOfGroup}), "9 yes 5");
  EXPECT_EQ((TFacts{whole.Increment(INT32_MAX) < 0, whole.Pop()}), "yes ");
  const TCases<String, bool, bool, int, int> groups = {{u"", true, true, 0, 2},
                                                       {u"TNext", true, true, 4, 5},
                                                       {u"TNext", false, false, 4, 5},
                                                       {u"TNone", true, false, 0, -1}};
  for (const auto& row : groups) {
    const auto& [name, success, result, first, last] = row;
    TPop group(&data, name, success);
    EXPECT_EQ(std::tuple(name, success, group.iSuccess, group.iInd, group.iEndOfGroup), row);
  }
  EXPECT_EQ((TFacts{TPop(nullptr, u"", true).iSuccess, TPop(nullptr, 0, -1, true).Pop()}), "no ");
}

}  // namespace
