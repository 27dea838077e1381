#include "objects/uVxClasses.h"

#include "tests/support/Test.h"

namespace {

TEST(Lists, RaiseTheListErrorsWithTheirTexts) {
  void (*runs[])(TTextList&, int) = {
      [](TTextList& l, int i) { l.Get(i); },         [](TTextList& l, int i) { l.Put(i, u"x"); },
      [](TTextList& l, int i) { l.GetObject(i); },   [](TTextList& l, int i) { l.PutObject(i, nullptr); },
      [](TTextList& l, int i) { l.Delete(i); },      [](TTextList& l, int i) { l.Insert(i == 2 ? 3 : i, u"x"); },
      [](TTextList& l, int i) { l.Exchange(0, i); }, [](TTextList& l, int i) { l.Exchange(i, 0); }};
  TVxStringList list;
  TOldStringList old;
  for (TTextList* each : {static_cast<TTextList*>(&list), static_cast<TTextList*>(&old)}) {
    auto error = [](auto run) { return test::RaisedBy<EStringListError>(run); };
    each->AddStrings(u"b,a");
    for (int index : {-1, 2, INT32_MIN, INT32_MAX}) {
      for (auto run : runs)
        EXPECT_TRUE(error([&] { run(*each, index); }).view().starts_with(u"List index out of bounds (")) << index;
    }
    EXPECT_EQ(error([&] { each->Get(2); }), u"List index out of bounds (2)");
    EXPECT_EQ(error([&] { each->SetCapacity(1); }), u"List capacity out of bounds (1)");
    each->SetSorted(true);
    EXPECT_EQ(error([&] { each->Insert(0, u"c"); }), u"Operation not allowed on sorted list");
    EXPECT_EQ(error([&] { each->Put(0, u"c"); }), u"Operation not allowed on sorted list");
    each->SetDuplicates(dupError);
    EXPECT_EQ(error([&] { each->Add(u"A"); }), u"String list does not allow duplicates");
    EXPECT_EQ(each->GetCommatext(), u"a,b");
  }
}

TEST(Lists, SortedOnesTakeTextsInOrder) {
  const TCases<TDuplicates, bool, String, int> cases = {
      {dupIgnore, false, u"a,Ä,b,ß", 2}, {dupAccept, false, u"A,a,Ä,B,b,ß", 3}, {dupIgnore, true, u"a,A,Ä,b,B,ß", 3}};
  for (const auto& [duplicates, caseSensitive, sorted, again] : cases) {
    TVxStringList list(false, true, duplicates, caseSensitive);
    list.SetCommatext(u"b,a,ß,B,A,Ä");
    int place = 9;
    EXPECT_EQ((TFacts{list.GetCommatext(), list.Find(u"aa", place), list.IndexOf(u"aa")}),
              (sorted + u" no -1").ToUtf8());
    EXPECT_EQ((std::array{place, list.IndexOf(u"b"), list.Add(u"b")}), (std::array{again, again, again}));
    list.SetCaseSensitive(true);
    EXPECT_EQ(TFacts{list.Items().first(again == 2 ? 0 : 4)}, again == 2 ? "" : "a,A,Ä,b") << "ordered anew";
  }
}

// Writes down when it goes, and how many items the list had then.
struct TNote : test::TProbe {
  TNote(std::string& Log, char Name, const TStrings& List)
      : TProbe([&Log, Name, &List] { (Log += Name) += std::to_string(List.GetCount()); }) {}
};

TEST(Lists, OwnedObjectsGoAfterTheirItems) {
  std::string log;
  TVxStringList keeper;
  TNote kept(log, 'k', keeper);
  {
    TVxStringList list(true, false, dupIgnore, false);
    for (char name : {'a', 'b', 'c', 'd'}) list.AddObject(u"x", new TNote(log, name, list));
    list.Delete(1), list.Add(u"without"), list.Clear();
    EXPECT_EQ((TFacts{log, list.GetCapacity()}), "b3a0c0d0 0");
    list.AddObject(u"x", new TNote(log, 'e', keeper));
    delete list.GetObject(0);
    list.PutObject(0, new TNote(log, 'f', keeper)), list.SetSorted(true);
    EXPECT_EQ(list.AddObject(u"X", new TNote(log, 'g', keeper)), 0);
    EXPECT_EQ(log, "b3a0c0d0e0g0");
    keeper.AddObject(u"x", &kept), keeper.SetSorted(true), keeper.AddObject(u"x", &kept);
    TOldStringList old;
    old.Assign(keeper);
    EXPECT_EQ(old.GetObject(0), &kept);
    old.Delete(0), keeper.Clear();
  }
  EXPECT_EQ(log, "b3a0c0d0e0g0f0");
}

TEST(Lists, GrowByTheirRule) {
  TVxStringList list;
  std::set<int> steps;
  for (; list.GetCount() < 130; steps.insert(list.GetCapacity())) list.Add(u"x");
  EXPECT_EQ(steps, (std::set{4, 8, 12, 28, 44, 60, 76, 95, 118, 147}));
}

TEST(Lists, MoveInsertAndExchangeTakeObjectsAlong) {
  TObject a, b;
  TObject* objects[] = {&b};
  TVxStringList list;
  list.AddStrings(u"a,b,c"), list.PutObject(0, &a), list.InsertObject(1, u"x", &b);
  list.Move(0, 3), list.Exchange(0, 1), list.AddStrings(TCells{u"y", u"z"}, objects);
  EXPECT_EQ(list.GetCommatext(), u"b,x,c,a,y,z");
  std::vector<TObject*> held;
  for (int i = 0; i < 6; ++i) held.push_back(list.GetObject(i));
  EXPECT_EQ(held, (std::vector<TObject*>{nullptr, &b, nullptr, &a, &b, nullptr}));
  list.SetText(u"1\r\n\r\n2");
  EXPECT_EQ(list.GetText(), u"1\r\n\r\n2");
  EXPECT_EQ(list.ConvertToDictionary().at(2), u"2");
}

TEST(Lists, SortAsTheHoarePartitionDoes) {
  // By the first letter alone, so that the order of equal ones shows the steps of the sort.
  auto byLetter = [](const TTextList& List, int A, int B) { return List.Items()[A][0] - List.Items()[B][0]; };
  const TCases<String, String> cases = {{u"a1,a2,a3", u"a3,a2,a1"},
                                        {u"b1,a1,b2,a2", u"a2,a1,b1,b2"},
                                        {u"b1,b2,a1,b3,a2,b4,a3,c1,b5,a4", u"a2,a3,a4,a1,b5,b1,b2,b3,b4,c1"}};
  for (const auto& [before, after] : cases) {
    TVxStringList list;
    list.SetCommatext(before), list.CustomSort(byLetter);
    EXPECT_EQ(list.GetCommatext(), after);
    list.SetSorted(true);
    String sorted = list.GetCommatext();
    list.CustomSort([](const TTextList&, int A, int B) { return B - A; });
    EXPECT_EQ(list.GetCommatext(), sorted);
  }
  TOldStringList old;
  old.SetCommatext(u"b,c,a,e,d");
  EXPECT_EQ((old.Sort(), old.GetCommatext()), u"a,b,c,d,e");
}

template <typename TList>
struct TSortedByLength : TList {
  void CustomSort(typename TList::TCompare) override {
    TList::CustomSort([](const TList& l, int a, int b) { return l.Items()[a].size() - l.Items()[b].size(); });
  }
};

TEST(Lists, SortByWhatCustomSortMakesOfIt) {
  TSortedByLength<TVxStringList> list;
  TSortedByLength<TOldStringList> old;
  for (TTextList* each : {static_cast<TTextList*>(&list), static_cast<TTextList*>(&old)}) {
    each->SetCommatext(u"bbb,a,cc"), each->Sort();
    EXPECT_EQ(each->GetCommatext(), u"a,cc,bbb");
    each->SetCommatext(u"bbb,a,cc"), each->SetSorted(true);
    EXPECT_EQ(each->GetCommatext(), u"a,cc,bbb");
  }
  list.SetSorted(false), list.Exchange(0, 2), list.SetSorted(true), list.ExchangeItems(0, 2);
  EXPECT_EQ((list.SetCaseSensitive(true), list.GetCommatext()), u"a,cc,bbb");
}

TEST(Lists, TypedAddsWriteTheSameTexts) {
  TVxStringList list;
  TOldStringList old;
  for (TTextList* each : {static_cast<TTextList*>(&list), static_cast<TTextList*>(&old)}) {
    each->AddBool(true), each->AddBoolExt(bNone), each->AddCurr(Currency(12)), each->AddDate(46000.25);
    each->AddDateTime(46000.25), each->AddExt(1.5L), each->AddInt(-7), each->AddTime(0.25);
    EXPECT_EQ(each->GetLighttext(), u"1||12,00|09.12.2025|09.12.2025 06:00:00|1,5|-7|06:00");
  }
}

TEST(Lists, MinusAssignAndEquals) {
  TObject object;
  TVxStringList list, minus, source(false, false, dupError, true);
  list.SetCommatext(u"a,b,A,c,b,a"), minus.SetCommatext(u"A,b,x,b");
  EXPECT_EQ((list.Minus(minus), list.GetCommatext()), u"A,c,a");
  source.SetCommatext(u"b,a"), source.PutObject(1, &object);
  list.SetOwnsObjects(false), list.Assign(source);
  EXPECT_EQ(list.GetDuplicates(), dupError);
  EXPECT_EQ((TFacts{list.EqualsAll(source), list.EqualsObjects(source), list.GetCaseSensitive()}), "yes yes yes");
  auto copy = source.Duplicate();
  EXPECT_EQ((TFacts{copy->EqualsAll(source), copy->EqualsObjects(source), copy->GetCaseSensitive()}), "yes yes yes");
  copy->Add(u"c");
  EXPECT_EQ((TFacts{source.EqualsObjects(*copy), source.EqualsAll(*copy)}), "yes no");
  EXPECT_THROW(copy->EqualsObjects(source), EStringListError);
  copy->PutObject(0, &object);
  EXPECT_FALSE(source.EqualsObjects(*copy));
  TOldStringList old;
  old.Assign(source);
  EXPECT_FALSE(source.EqualsAll(old));
  EXPECT_EQ(old.GetDuplicates(), dupIgnore);
  TVxStringPairList pairs(false, dupIgnore);
  EXPECT_EQ((TFacts{pairs.EqualsAll(TVxStringList()), TVxStringList().EqualsAll(pairs)}), "no no");
}

TEST(PairLists, KeepThePairsBesideTheirKeys) {
  TObject a, b;
  TVxStringPairList list;
  auto text = [](TVxStringPairList& List) { return List.GetCommatext() + u"/" + List.GetList().GetCommatext(); };
  EXPECT_EQ(list.AddPair(u"m", u"1") + list.AddPair(u"k", u"2", &a, &b), 0);
  EXPECT_EQ(list.AddPair(u"M", u"3"), 1);  // the last pair wins
  list.Add(u"l");
  EXPECT_EQ(text(list), u"k,l,m/2,,3");
  EXPECT_EQ((std::array{list.GetObject(0), list.GetPairObjects(0)}), (std::array{&a, &b}));
  int index;
  EXPECT_EQ((TFacts{list.PairFind(u"1", index), list.PairFind(u"3", index), index}), "no yes 2");
  auto copy = list.Duplicate();
  auto& pairs = static_cast<TVxStringPairList&>(*copy);
  EXPECT_EQ((TFacts{copy->EqualsAll(list), copy->EqualsObjects(list), copy->GetSorted()}), "yes yes yes");
  pairs.SetPairs(1, u"x"), pairs.SetPairObjects(1, &a);
  EXPECT_EQ((TFacts{copy->EqualsAll(list), copy->EqualsObjects(list)}), "no no");
  list.SetSorted(false), list.Exchange(0, 2), list.Move(0, 2);
  EXPECT_EQ(text(list), u"l,k,m/,2,3");
  list.Insert(1, u"L"), list.AddStrings(*copy);
  EXPECT_EQ((TFacts{text(list), list.Remove(u"L"), list.Remove(u"L")}), "l,L,k,m,k,l,m/,,2,3,2,x,3 3 -1");
  EXPECT_EQ(text(list), u"k,m,k,m/2,3,2,3");
  list.Exchange(0, 1);
  list.Sort();  // of the keys alone
  EXPECT_EQ(list.GetList().GetCommatext(), u"3,2,2,3");
  EXPECT_EQ((list.Clear(), list.PairCount()), 0);
}

template <typename TList>
class Files : public testing::Test {};
using TLists = testing::Types<TVxStringList, TOldStringList>;
TYPED_TEST_SUITE(Files, TLists);

TYPED_TEST(Files, LinesOfAFile) {
  SetSystemCodePage(1252);
  test::TTempDir dir;
  String path = dir.Path("a.txt");
  const std::string before(524288 - 2, 'x');
  const String line(524288 - 2, u'x');
  const TCases<std::string, TCells> cases = {
      {"", {}},
      {"a\r\n\r\nb", {u"a", u"", u"b"}},
      {"a\nb\r\n", {u"a", u"b"}},
      {"a\rb\r\r\nc\r", {u"a\rb\r", u"c"}},
      {"\x80\xE4", {u"€ä"}},
      {before + "a\r\nb", {line + u"a", u"b"}},  // the first chunk ends between CR and LF,
      {before + "\r\nb\r\n", {line, u"b"}},
      {before + "\r\n\r\nb", {line, u"", u"b"}},     // behind LF,
      {before + "abc\r\nd", {line + u"abc", u"d"}},  // inside a line,
      {before + "a\rb\n", {line + u"ab"}},           // and with a CR alone, which goes too
      {before + before + before + "\n", {line + line + line}},
      {"z\n" + before + "ab\n", {u"z", line + u"ab"}}};
  for (const auto& [bytes, lines] : cases) {
    test::PutText(path, bytes);
    TypeParam list;
    list.Add(u"gone"), list.LoadFromFile(path);
    EXPECT_TRUE(std::ranges::equal(list.Items(), lines)) << bytes.size();
    EXPECT_EQ(list.GetUpdateCount(), 0);
    TypeParam sorted, expected;  // a line in two chunks stays one
    for (TypeParam* each : {&sorted, &expected}) each->SetDuplicates(dupAccept), each->SetSorted(true);
    expected.AddStrings(lines), sorted.LoadFromFile(path);
    EXPECT_TRUE(sorted.Equals(expected)) << bytes.size();
    TVxStringPairList pairs;
    pairs.LoadFromFile(path), expected.SetDuplicates(dupIgnore), expected.SetCommatext(u""), expected.AddStrings(lines);
    EXPECT_TRUE(pairs.Equals(expected)) << bytes.size();
    EXPECT_EQ(pairs.PairCount(), pairs.GetCount()) << bytes.size();
    list.SaveToFile(path);
    EXPECT_EQ(static_cast<size_t>(list.GetSaveToSize()), test::GetText(path).size());
  }
  TypeParam list;
  list.SetCommatext(u"€,\"a\u0100\","), list.SaveToFile(path);
  EXPECT_EQ(test::GetText(path), "\x80\r\na?\r\n\r\n");
  EXPECT_THROW(list.LoadFromFile(dir.Path("none.txt")), EFOpenError);
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_THROW(list.SaveToFile(dir.Path("none/a.txt")), EFCreateError);
}

TYPED_TEST(Files, SaveToFileAddAtBothEnds) {
  test::TTempDir dir;
  String path = dir.Path("a.txt");
  TypeParam list;
  for (auto [cells, front] : {std::pair{u"a,b", true}, {u"c", false}, {u"d,ee,fff,gggg,hhhhh", true}, {u"", true}}) {
    list.SetCommatext(cells), list.SaveToFileAdd(path, front);
  }
  EXPECT_EQ(test::GetText(path), "d\r\nee\r\nfff\r\ngggg\r\nhhhhh\r\na\r\nb\r\nc\r\n");
  test::PutText(path, "");
  // Lines of all lengths around the size of the buffer.
  std::string expected;
  for (int size : {262142, 262141, 1, 262140, 300000, 0, 2}) {
    list.Add(String(size, u'x'));
    expected += std::string(static_cast<size_t>(size), 'x') + "\r\n";
  }
  list.SaveToFileAdd(path, true);
  EXPECT_TRUE(test::GetText(path) == expected);
}

}  // namespace
