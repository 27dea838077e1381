#include "objects/uVxClasses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/CodePage.h"
#include "platform/Exceptions.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "tests/support/FileText.h"
#include "tests/support/Print.h"
#include "tests/support/TempDir.h"

namespace vx {
namespace {

// The text of the list error that Run raises.
template <typename TRun>
String ErrorOf(TRun Run) {
  try {
    Run();
  } catch (const EStringListError& e) {
    return e.GetMessage();
  }
  return u"nothing";
}

TEST(Lists, RaiseTheListErrorsWithTheirTexts) {
  void (*runs[])(TTextList&, int) = {
      [](TTextList& l, int i) { l.Get(i); }, [](TTextList& l, int i) { l.Put(i, u"x"); },
      [](TTextList& l, int i) { l.GetObject(i); }, [](TTextList& l, int i) { l.PutObject(i, nullptr); },
      [](TTextList& l, int i) { l.Delete(i); }, [](TTextList& l, int i) { l.Insert(i, u"x"); },
      [](TTextList& l, int i) { l.Exchange(0, i); }, [](TTextList& l, int i) { l.Exchange(i, 0); }};
  TVxStringList list;
  TOldStringList old;
  for (TTextList* each : {static_cast<TTextList*>(&list), static_cast<TTextList*>(&old)}) {
    each->AddStrings(u"b,a");
    for (int index : {-1, 3, INT32_MIN, INT32_MAX}) {
      String expected = Format(u"List index out of bounds (%d)", {IntToStr(index)});
      for (auto run : runs) EXPECT_EQ(ErrorOf([&] { run(*each, index); }), expected);
    }
    EXPECT_EQ(ErrorOf([&] { each->Get(2); }), u"List index out of bounds (2)");
    EXPECT_EQ(ErrorOf([&] { each->SetCapacity(1); }), u"List capacity out of bounds (1)");
    each->SetSorted(true);
    EXPECT_EQ(ErrorOf([&] { each->Insert(0, u"c"); }), u"Operation not allowed on sorted list");
    EXPECT_EQ(ErrorOf([&] { each->Put(0, u"c"); }), u"Operation not allowed on sorted list");
    each->SetDuplicates(dupError);
    EXPECT_EQ(ErrorOf([&] { each->Add(u"A"); }), u"String list does not allow duplicates");
    EXPECT_EQ(each->GetCommatext(), u"a,b");
  }
}

TEST(Lists, SortedOnesTakeTextsInOrder) {
  struct { TDuplicates Duplicates; bool CaseSensitive; const char16_t* Sorted; int Again; } cases[] = {
      {dupIgnore, false, u"a,Ä,b,ß", 2}, {dupAccept, false, u"A,a,Ä,B,b,ß", 3}, {dupIgnore, true, u"a,A,Ä,b,B,ß", 3}};
  for (const auto& c : cases) {
    TVxStringList list(false, true, c.Duplicates, c.CaseSensitive);
    list.SetCommatext(u"b,a,ß,B,A,Ä");
    EXPECT_EQ(list.GetCommatext(), c.Sorted);
    EXPECT_TRUE(list.IndexOf(u"b") == c.Again && list.Add(u"b") == c.Again);
  }
}

TEST(Lists, FindGivesThePlaceOfAText) {
  TVxStringList list(false, true, dupAccept, false);
  int index = 9;
  EXPECT_FALSE(list.Find(u"x", index));
  EXPECT_EQ(index, 0);
  list.SetCommatext(u"a,c,C,c,e");
  struct { const char16_t* Text; bool Found; int Index; } cases[] = {
      {u"a", true, 0}, {u"b", false, 1}, {u"c", true, 1}, {u"d", false, 4}, {u"z", false, 5}, {u"", false, 0}};
  for (const auto& c : cases) {
    EXPECT_TRUE(list.Find(c.Text, index) == c.Found && index == c.Index) << String(c.Text).ToUtf8();
  }
  EXPECT_EQ(list.IndexOf(u"d"), -1);
}

// Writes down when it goes, and how many items the list had then.
struct TNote : TObject {
  TNote(std::string& Log, char Name, const TStrings* List = nullptr) : FLog(Log), FName(Name), FList(List) {}
  ~TNote() override { (FLog += FName) += FList ? std::to_string(FList->GetCount()) : ""; }
  std::string& FLog;
  char FName;
  const TStrings* FList;
};

TEST(Lists, OwnedObjectsGoAfterTheirItems) {
  std::string log;
  {
    TVxStringList list(true, false, dupIgnore, false);
    for (char name : {'a', 'b', 'c', 'd'}) list.AddObject(u"x", new TNote(log, name, &list));
    list.Delete(1);
    EXPECT_EQ(log, "b3");
    list.Add(u"without");
    list.Clear();
    EXPECT_EQ(log, "b3a0c0d0");
    EXPECT_EQ(list.GetCapacity(), 0);
    list.AddObject(u"x", new TNote(log, 'e'));
    delete list.GetObject(0);
    list.PutObject(0, new TNote(log, 'f'));
    list.SetSorted(true);
    EXPECT_EQ(list.AddObject(u"X", new TNote(log, 'g')), 0);
    EXPECT_EQ(log, "b3a0c0d0eg");
  }
  EXPECT_EQ(log, "b3a0c0d0egf");
  TNote kept(log, 'k');
  {
    TVxStringList list;
    list.AddObject(u"x", &kept);
    list.SetSorted(true);
    list.AddObject(u"x", &kept);
    TOldStringList old;
    old.Assign(list);
    EXPECT_EQ(old.GetObject(0), &kept);
    old.Delete(0);
  }
  EXPECT_EQ(log.back(), 'f');
}

TEST(Lists, GrowByTheirRule) {
  TVxStringList list;
  std::string steps;
  for (int last = 0; list.GetCount() < 130; list.Add(u"x")) {
    if (list.GetCapacity() != last) steps += " " + std::to_string(last = list.GetCapacity());
  }
  EXPECT_EQ(steps, " 4 8 12 28 44 60 76 95 118 147");
}

TEST(Lists, MoveInsertAndExchangeTakeObjectsAlong) {
  TObject a, b;
  TVxStringList list;
  list.AddStrings(u"a,b,c");
  list.PutObject(0, &a);
  list.InsertObject(1, u"x", &b);
  list.Move(0, 3);
  list.Exchange(0, 1);
  EXPECT_EQ(list.GetCommatext(), u"b,x,c,a");
  EXPECT_EQ(list.GetObject(1), &b);
  EXPECT_EQ(list.GetObject(3), &a);
  TObject* objects[] = {&b};
  list.AddStrings(TCells{u"y", u"z"}, objects);
  EXPECT_EQ(list.GetObject(4), &b);
  EXPECT_EQ(list.GetObject(5), nullptr);
  list.SetText(u"1\r\n\r\n2");
  EXPECT_EQ(list.GetText(), u"1\r\n\r\n2");
  EXPECT_EQ(list.ConvertToDictionary().at(2), u"2");
}

// Watches the exchanges of a sort.
struct TWatchedSort : TOldStringList {
  bool SawSelf = false;
  void ExchangeItems(int A, int B) override {
    SawSelf |= A == B;
    TOldStringList::ExchangeItems(A, B);
  }
};

TEST(Lists, SortAsTheHoarePartitionDoes) {
  // By the first letter alone, so that the order of equal ones shows the steps of the sort.
  auto byLetter = [](const TTextList& List, int A, int B) { return List.Items()[A][0] - List.Items()[B][0]; };
  struct { const char16_t *Before, *After; } cases[] = {
      {u"a1,a2,a3", u"a3,a2,a1"}, {u"b1,a1,b2,a2", u"a2,a1,b1,b2"},
      {u"b1,b2,a1,b3,a2,b4,a3,c1,b5,a4", u"a2,a3,a4,a1,b5,b1,b2,b3,b4,c1"}};
  for (const auto& c : cases) {
    TVxStringList list;
    list.SetCommatext(c.Before);
    list.CustomSort(byLetter);
    EXPECT_EQ(list.GetCommatext(), c.After);
    list.SetSorted(true);
    String sorted = list.GetCommatext();
    list.CustomSort([](const TTextList&, int A, int B) { return B - A; });
    EXPECT_EQ(list.GetCommatext(), sorted);
  }
  TWatchedSort old;
  old.SetCommatext(u"b,c,a,e,d");
  old.Sort();
  EXPECT_EQ(old.GetCommatext(), u"a,b,c,d,e");
  EXPECT_TRUE(old.SawSelf);  // the older list exchanges an item with itself too
  std::mt19937 random(7);
  TVxStringList many;
  for (int i = 0; i < 20000; ++i) many.Add(IntToStr(static_cast<int>(random() % 500)));
  many.SetSorted(true);
  EXPECT_TRUE(std::ranges::is_sorted(many.Items()));
}

TEST(Lists, ChangingTheRuleOfCaseOrdersAnew) {
  TVxStringList list(false, true, dupAccept, false);
  for (const char16_t* text : {u"b", u"a", u"B", u"A"}) list.Add(text);
  list.SetCaseSensitive(true);
  EXPECT_EQ(list.GetCommatext(), u"a,A,b,B");
  EXPECT_TRUE(list.GetSorted());
  EXPECT_EQ(list.IndexOf(u"B"), 3);
}

TEST(Lists, MinusAssignAndEquals) {
  TObject object;
  TVxStringList list, minus;
  list.SetCommatext(u"a,b,A,c,b,a");
  minus.SetCommatext(u"A,b,x,b");
  list.Minus(minus);
  EXPECT_EQ(list.GetCommatext(), u"A,c,a");
  TVxStringList source(false, false, dupError, true);
  source.SetCommatext(u"b,a");
  source.PutObject(1, &object);
  list.SetOwnsObjects(false);
  list.Assign(source);
  EXPECT_TRUE(list.GetCaseSensitive());
  EXPECT_EQ(list.GetDuplicates(), dupError);
  EXPECT_TRUE(list.EqualsAll(source) && list.EqualsObjects(source));
  auto copy = source.Duplicate();
  EXPECT_TRUE(copy->EqualsAll(source) && copy->EqualsObjects(source) && copy->GetCaseSensitive());
  copy->PutObject(0, &object);
  EXPECT_FALSE(copy->EqualsObjects(source));
  copy->PutObject(0, nullptr);
  copy->Add(u"c");
  EXPECT_TRUE(source.EqualsObjects(*copy));
  EXPECT_THROW(copy->EqualsObjects(source), EStringListError);
  EXPECT_FALSE(source.EqualsAll(*copy));
  TOldStringList old;
  old.Assign(source);
  EXPECT_FALSE(source.EqualsAll(old));
  EXPECT_EQ(old.GetDuplicates(), dupIgnore);
  TVxStringPairList pairs(false, dupIgnore);
  EXPECT_FALSE(pairs.EqualsAll(TVxStringList()) || TVxStringList().EqualsAll(pairs));
}

TEST(PairLists, KeepThePairsBesideTheirKeys) {
  TObject a, b;
  TVxStringPairList list;
  EXPECT_EQ(list.AddPair(u"m", u"1"), 0);
  EXPECT_EQ(list.AddPair(u"k", u"2", &a, &b), 0);
  EXPECT_EQ(list.AddPair(u"M", u"3"), 1);  // the last pair wins
  list.Add(u"l");
  auto text = [](TVxStringPairList& List) { return List.GetCommatext() + u"/" + List.GetList().GetCommatext(); };
  EXPECT_EQ(text(list), u"k,l,m/2,,3");
  TObject *keyObject, *pairObject;
  String key, pair;
  list.GetAll(0, keyObject, key, pairObject, pair);
  EXPECT_TRUE(keyObject == &a && key == u"k" && pairObject == &b && pair == u"2");
  int index;
  EXPECT_TRUE(list.PairFind(u"3", index));
  EXPECT_EQ(index, 2);
  EXPECT_FALSE(list.PairFind(u"1", index));
  auto copy = list.Duplicate();
  EXPECT_TRUE(copy->EqualsAll(list) && copy->EqualsObjects(list) && copy->GetSorted());
  static_cast<TVxStringPairList&>(*copy).SetPairs(1, u"x");
  EXPECT_FALSE(copy->EqualsAll(list));
  static_cast<TVxStringPairList&>(*copy).SetPairObjects(1, &a);
  EXPECT_FALSE(copy->EqualsObjects(list));
  list.SetSorted(false);
  list.Exchange(0, 2);
  EXPECT_EQ(text(list), u"m,l,k/3,,2");
  list.Move(0, 2);
  EXPECT_EQ(text(list), u"l,k,m/,2,3");
  list.Insert(1, u"L");
  list.AddStrings(*copy);
  EXPECT_EQ(text(list), u"l,L,k,m,k,l,m/,,2,3,2,x,3");
  EXPECT_EQ(list.Remove(u"L"), 3);
  EXPECT_EQ(list.Remove(u"L"), -1);
  EXPECT_EQ(text(list), u"k,m,k,m/2,3,2,3");
  list.Exchange(0, 1);
  list.Sort();  // of the keys alone
  EXPECT_EQ(list.GetList().GetCommatext(), u"3,2,2,3");
  list.Clear();
  EXPECT_EQ(list.PairCount(), 0);
}

template <typename TList>
class Files : public testing::Test {};
using TLists = testing::Types<TVxStringList, TOldStringList>;
TYPED_TEST_SUITE(Files, TLists);

TYPED_TEST(Files, LinesOfAFile) {
  SetSystemCodePage(1252);
  test::TTempDir dir;
  String path = dir.Path("a.txt");
  constexpr size_t kChunk = 524288;
  std::string before(kChunk - 2, 'x');
  String line(static_cast<int>(kChunk) - 2, u'x');
  struct { std::string Bytes; TCells Lines; } cases[] = {
      {"", {}}, {"a\r\n\r\nb", {u"a", u"", u"b"}}, {"a\nb\r\n", {u"a", u"b"}}, {"a\rb\r\r\nc\r", {u"a\rb\r", u"c"}},
      {"\x80\xE4", {u"€ä"}},
      {before + "a\r\nb", {line + u"a", u"b"}},         // between CR and LF
      {before + "\r\nb\r\n", {line, u"b"}},             // behind LF
      {before + "\r\n\r\nb", {line, u"", u"b"}},
      {before + "abc\r\nd", {line + u"abc", u"d"}},     // inside a line
      {before + "a\rb\n", {line + u"ab"}},              // a CR that only ends the chunk goes too
      {before + before + before + "\n", {line + line + line}}};
  for (const auto& c : cases) {
    test::PutText(path, c.Bytes);
    TypeParam list;
    list.Add(u"gone");
    list.LoadFromFile(path);
    EXPECT_TRUE(std::ranges::equal(list.Items(), c.Lines)) << c.Bytes.size();
    EXPECT_EQ(list.GetUpdateCount(), 0);
    list.SaveToFile(path);
    EXPECT_EQ(static_cast<size_t>(list.GetSaveToSize()), test::GetText(path).size());
  }
  TypeParam list;
  list.SetCommatext(u"€,\"a\u0100\",");
  list.SaveToFile(path);
  EXPECT_EQ(test::GetText(path), "\x80\r\na?\r\n\r\n");
  EXPECT_THROW(list.LoadFromFile(dir.Path("none.txt")), EFOpenError);
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_THROW(list.SaveToFile(dir.Path("none/a.txt")), EFCreateError);
}

TYPED_TEST(Files, SaveToFileAddAtBothEnds) {
  test::TTempDir dir;
  String path = dir.Path("a.txt");
  TypeParam list;
  list.SetCommatext(u"a,b");
  list.SaveToFileAdd(path, true);
  list.SetCommatext(u"c");
  list.SaveToFileAdd(path, false);
  list.SetCommatext(u"d,ee,fff,gggg,hhhhh");
  list.SaveToFileAdd(path, true);
  EXPECT_EQ(test::GetText(path), "d\r\nee\r\nfff\r\ngggg\r\nhhhhh\r\na\r\nb\r\nc\r\n");
  test::PutText(path, "");
  list.SaveToFileAdd(path, true);
  list.Clear();
  list.SaveToFileAdd(path, true);
  EXPECT_EQ(test::GetText(path), "d\r\nee\r\nfff\r\ngggg\r\nhhhhh\r\n");
  // Lines of all lengths around the size of the buffer.
  std::string expected;
  for (int size : {262142, 262141, 1, 262140, 300000, 0, 2}) {
    list.Add(String(size, u'x'));
    expected += std::string(static_cast<size_t>(size), 'x') + "\r\n";
  }
  list.SaveToFile(path);
  EXPECT_TRUE(test::GetText(path) == expected);
}

}  // namespace
}  // namespace vx
