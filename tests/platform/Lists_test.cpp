// TObjectList and the protocol of TStrings.
#include "objects/uVxClasses.h"
#include "platform/TObjectList.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

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
      EXPECT_TRUE(list.Extract(probes[2]) == probes[2] && list.Extract(probes[2]) == nullptr);
      EXPECT_TRUE(list.Remove(probes[3]) == 1 && list.Remove(probes[3]) == -1);
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
  void SetUpdateState(bool Updating) override { Updates += Updating ? '(' : ')'; }
  std::string Updates;
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
  const std::pair<String, String> cases[] = {{u"a b", u"a,b"},
                                             {u"\"a \"\"b\"\"\", c", u"\"a \"\"b\"\"\",c"},
                                             {u"a,", u"a,"},
                                             {u",", u","},
                                             {u"\"\"", u"\"\""},
                                             {u"  ", u""},
                                             {u"\"open, end", u"\"open, end\""}};
  for (const auto& [text, back] : cases) {
    TPlainList list;
    list.SetCommaText(text);
    EXPECT_EQ(list.GetCommaText(), back) << text.ToUtf8();
  }
}

TEST(TStrings, MovesExchangesAssignsAndCompares) {
  TPlainList a, b;
  a.SetCommaText(u"0,1,2,3"), a.Move(0, 2), a.Exchange(0, 3);
  b.Assign(a), b.AddStrings(a);
  EXPECT_TRUE(b.GetCommaText() == u"3,2,0,1,3,2,0,1" && !b.Equals(a));
  a.Assign(b);
  EXPECT_TRUE(a.Equals(b));
  b.SetText(u"Straße\nÄrger\n");
  EXPECT_TRUE(b.IndexOf(u"ärger") == 1 && b.IndexOf(u"Strasse") == -1);
}

}  // namespace
