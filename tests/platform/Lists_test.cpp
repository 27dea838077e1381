// TObjectList and the protocol of TStrings.
#include <gtest/gtest.h>

#include <functional>

#include "objects/uVxClasses.h"
#include "platform/Exceptions.h"
#include "platform/TObjectList.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

class TProbe : public TObject {
 public:
  TProbe(int Id, std::vector<int>& Gone) : FId(Id), FGone(Gone) {}
  ~TProbe() override { FGone.push_back(FId); }

 private:
  int FId;
  std::vector<int>& FGone;
};

class TNotedList : public TObjectList {
 public:
  using TObjectList::TObjectList;
  ~TNotedList() override { Clear(); }
  std::string Log;

 protected:
  void Notify(TObject* Object, TListNotification Action) override {
    Log += "+xd"[Action];
    Log += std::to_string(GetCount());
    TObjectList::Notify(Object, Action);
  }
};

TEST(TObjectList, FreesExactlyWhatItOwns) {
  for (bool owns : {true, false}) {
    std::vector<int> gone;
    TProbe* probes[5];
    for (int i = 0; i < 5; ++i) probes[i] = new TProbe(i, gone);
    {
      TObjectList list(owns);
      for (TProbe* probe : probes) list.Add(probe);
      list.Delete(1);
      list.Put(0, nullptr);
      EXPECT_EQ(list.Extract(probes[2]), probes[2]);
      EXPECT_EQ(list.Remove(probes[3]), 1);
      EXPECT_EQ(list.Remove(probes[3]), -1);
      EXPECT_EQ(list.Extract(probes[3]), nullptr);
    }
    EXPECT_EQ(gone, owns ? (std::vector<int>{1, 0, 3, 4}) : std::vector<int>{});
    for (int i = 0; i < 5; ++i) {
      if (!owns || i == 2) delete probes[i];
    }
  }
}

TEST(TObjectList, NotifiesAfterTheChangeAndMovesInOrder) {
  TObject a, b, c;
  TNotedList list(false);
  list.Add(&a);
  list.Insert(0, &b);
  list.Insert(2, &c);
  list.Put(1, &c);
  list.Extract(&b);
  list.Delete(0);
  EXPECT_EQ(list.Log, "+1+2+3d3+3x2d1");

  TObject items[4];
  TObjectList order(false);
  for (TObject& item : items) order.Add(&item);
  order.Move(0, 2);
  order.Move(3, 1);
  order.Exchange(0, 3);
  std::string places;
  for (TObject* item : order.Items()) places += static_cast<char>('0' + (item - items));
  EXPECT_EQ(places, "0321");
}

TEST(TObjectList, RefusesBadIndexesAndStaysAsItWas) {
  TObject object;
  TObjectList list(false);
  list.Add(&object);
  const std::function<void()> faults[] = {[&] { list.Get(1); },          [&] { list.Put(1, &object); },
                                          [&] { list.Delete(1); },       [&] { list.Insert(2, &object); },
                                          [&] { list.Exchange(0, 1); },  [&] { list.Move(0, 1); }};
  for (const auto& fault : faults) EXPECT_THROW(fault(), EListError);
  EXPECT_THROW(list.SetCapacity(0), EListError);
  try {
    list.Get(-7);
    FAIL();
  } catch (const EListError& error) {
    EXPECT_STREQ(error.what(), "List index out of bounds (-7)");
  }
  EXPECT_EQ(list.GetCount(), 1);
}

// The protocol itself, over the least that a list must have.
class TPlainList : public TStrings {
 public:
  String Get(int Index) const override { return FItems.at(static_cast<size_t>(Index)); }
  int GetCount() const override { return static_cast<int>(FItems.size()); }
  void Insert(int Index, const String& Text) override { FItems.insert(FItems.begin() + Index, Text); }
  void Delete(int Index) override { FItems.erase(FItems.begin() + Index); }
  void Clear() override { FItems.clear(); }
  std::string Updates;

 protected:
  void SetUpdateState(bool Updating) override { Updates += Updating ? '(' : ')'; }

 private:
  std::vector<String> FItems;
};

TEST(TStrings, TextCutsAtEveryKindOfLineEnd) {
  struct { std::u16string_view Text, Back; } cases[] = {
      {u"", u""},
      {u"a", u"a\r\n"},
      {u"a\r\nb\rc\nd", u"a\r\nb\r\nc\r\nd\r\n"},
      {u"a\n\nb\r\r", u"a\r\n\r\nb\r\n\r\n"},
      {u"\n\r", u"\r\n\r\n"},
      {std::u16string_view(u"a\0b", 3), u"a\r\n"},
  };
  for (const auto& c : cases) {
    TPlainList list;
    list.SetText(c.Text);
    EXPECT_EQ(list.GetText().view(), c.Back);
    EXPECT_EQ(list.Updates, "()");
  }
}

TEST(TStrings, CommaTextQuotesAndReadsBack) {
  struct { std::u16string_view Text, Back; } cases[] = {
      {u"a,b", u"a,b"},   {u"a b", u"a,b"},          {u"\"a \"\"b\"\"\", c", u"\"a \"\"b\"\"\",c"},
      {u"a,", u"a,"},     {u",", u","},              {u"\"\"", u"\"\""},
      {u"  ", u""},       {u"\"open, end", u"\"open, end\""},
  };
  for (const auto& c : cases) {
    TPlainList list;
    list.SetCommaText(c.Text);
    EXPECT_EQ(list.GetCommaText().view(), c.Back) << String(c.Text).ToUtf8();
  }
}

TEST(TStrings, MovesExchangesAssignsAndCompares) {
  TPlainList a, b;
  a.SetCommaText(u"0,1,2,3");
  a.Move(0, 2);
  a.Exchange(0, 3);
  EXPECT_EQ(a.GetCommaText().view(), u"3,2,0,1");
  b.Assign(a);
  b.AddStrings(a);
  EXPECT_EQ(b.GetCount(), 8);
  EXPECT_FALSE(b.Equals(a));
  a.Assign(b);
  EXPECT_TRUE(a.Equals(b));
  b.SetText(u"Stra\u00DFe\n\u00C4rger\n");
  EXPECT_EQ(b.IndexOf(u"\u00E4rger"), 1);
  EXPECT_EQ(b.IndexOf(u"Strasse"), -1);
}

}  // namespace
}  // namespace vx
