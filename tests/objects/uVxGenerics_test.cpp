#include "objects/uVxGenerics.h"

#include "objects/uSingleton.h"
#include "objects/uVxDataSerialize.h"
#include "tests/support/Test.h"

namespace {

struct TCard {
  int Key, Arrival;
  friend bool operator==(const TCard&, const TCard&) = default;
};
int ByKey(const TCard& a, const TCard& b) { return CompareValues(a.Key, b.Key); }

struct TCards : GSortList<TCard> {
  TCards() : GSortList(ByKey) {}
  String ClassName() const override { return u"TCards"; }
  void Notify(const TCard& card, TCollectionNotification action) override { Log.push_back({card.Arrival, action}); }
  std::vector<TCard> Log;
};
template <typename T>
std::vector<T> Copy(const GList<T>& list) {
  return {list.Items().begin(), list.Items().end()};
}

TEST(GSortList, ManyAtOnceAreAsOneByOneAndEqualOnesKeepTheirOrder) {
  std::mt19937 random(6);
  for (int round = 0; round < 300; ++round) {
    TCards all, each;
    for (int range = 0, arrival = 0; range < 3; ++range) {
      std::vector<TCard> cards(random() % 20);
      for (TCard& card : cards) card = {static_cast<int>(random() % 7), ++arrival};
      all.AddRange(cards);
      for (const TCard& card : cards) EXPECT_EQ(each.Get(each.Add(card)), card);
    }
    ASSERT_EQ(std::tuple(Copy(all), all.Log, all.GetCapacity()), std::tuple(Copy(each), each.Log, each.GetCapacity()));
    for (TCard key = {-1, 0}; key.Key < 8; ++key.Key) {
      int place = -2, first = 0, last = -1;
      for (const TCard& card : all.Items()) first += card.Key < key.Key, last += card.Key <= key.Key;
      const bool known = first <= last;
      ASSERT_EQ((std::tuple{all.Find(key, place), place, all.Contains(key)}), (std::tuple{known, first, known}));
      if (!known) first = last = -1;
      ASSERT_EQ((std::array{all.FirstIndexOf(key), all.LastIndexOf(key), all.Remove(key)}),
                (std::array{first, last, first}));
    }
  }
  GSortList<int> fast;
  std::vector<int> falling(900000, -1);
  std::partial_sum(falling.begin(), falling.end(), falling.begin());
  fast.AddRange(falling), fast.AddRange(fast);  // one by one it would take minutes
  EXPECT_EQ((TFacts{fast.GetCount(), std::ranges::is_sorted(fast.Items())}), "1800000 yes");
}

TEST(GSortList, OrdersByItsComparer) {
  GSortList<int> list{std::span<const int>(std::vector{3, 1, 2})};
  EXPECT_EQ((TFacts{list.Items(), list.Compare(1, 2), list.GetComparer()(3, 2)}), "1,2,3 -1 1");
  list.SetComparer([](int a, int b) { return b - a; });
  list.Sort(), list.Add(2);
  EXPECT_EQ(TFacts{list.Items()}, "3,2,2,1");
  EXPECT_EQ((TFacts{list.Extract(2), list.Extract(7), list.AddUnique(2), list.AddUnique(9)}), "2 0 -1 0");
  list.SetComparer([](int a, int) -> int { return a == 1 ? throw Exception(u"one") : 0; });
  EXPECT_EQ(test::RaisedBy<Exception>([&] { list.Sort(); }), u"one");
  EXPECT_EQ(test::RaisedBy<Exception>([&] { list.AddRange({4, 1, 6}); }), u"one");
  EXPECT_EQ(Copy(list), (std::vector<int>{9, 3, 2, 1}));
}

TEST(GSortList, RefusesWhatBreaksTheOrder) {
  TScriptedDialogs dialogs;
  TCards list;
  list.AddRange({{2, 0}, {1, 1}});
  std::u16string shown;
  GList<TCard>& base = list;  // virtual: the same through the base
  list.Exchange(0, 1), list.Insert(0, {9, 9}), list.InsertRange(0, std::vector<TCard>{{0, 2}});
  list.InsertRange(0, {{9, 9}}), base.InsertRange(0, list), base.Move(0, 1), base.Reverse();
  for (const TDialog& dialog : dialogs.Shown) shown += dialog.Text.Slice(38).view(), shown += u' ';
  EXPECT_EQ(shown,
            u"Austauschen!\r\nTCards.Exchange Einfügen!\r\nTCards.Insert Einfügen!\r\nTCards.InsertRange "
            u"Einfügen!\r\nTCards.InsertRange Einfügen!\r\nTCards.InsertRange Bewegen!\r\nTCards.Move "
            u"Umdrehen!\r\nTCards.Reverse ");
  EXPECT_EQ(dialogs.Shown[0].Text.Slice(0, 38), u"Diese sortierte Liste akzeptiert kein ");
  EXPECT_EQ(Copy(list), (std::vector<TCard>{{1, 1}, {2, 0}}));
}

TEST(GList, GrowsByDoubling) {
  const int cases[][3] = {{0, 0, 0}, {0, 1, 2}, {0, 3, 4},   {1, 2, 2},
                          {3, 4, 6}, {5, 5, 5}, {5, 41, 80}, {0, 999, 1024}};
  for (auto [start, wanted, capacity] : cases) {
    GSortList<int> grown;
    EXPECT_EQ((grown.SetCapacity(start), grown.Grow(wanted), grown.GetCapacity()), capacity) << start << ' ' << wanted;
  }
  GSortList<int> list;
  list.Add(1);
  for (int64_t wanted : {1ll * INT32_MAX, (1ll << 30) + 1, 1ll << 60}) EXPECT_THROW(list.Grow(wanted), std::bad_alloc);
  EXPECT_EQ(test::RaisedBy<EListError>([&] { list.SetCapacity(0); }), u"List capacity out of bounds (0)");
  EXPECT_EQ((TFacts{list.GetCapacity(), list.Get(0)}), "2 1");
}

struct TNoted : GList<std::u16string> {
  ~TNoted() override { Clear(); }
  void Notify(const std::u16string& item, TCollectionNotification action) override {
    (Log += u"+-x"[action]) += item + static_cast<char16_t>(u'0' + GetCount()) + u' ';
  }
  std::u16string Log;
};

TEST(GList, ChangesNotifiesAndTakesItsOwnItems) {
  TNoted list;
  list.AddRange({u"a", u"b"});
  for (int i = 0; i < 3; ++i) list.Insert(1, list.Get(0)), list.Add(list.Get(0)), list.InsertRange(1, list);
  list.DeleteRange(3, list.GetCount() - 3), list.Log.clear(), list.Put(1, u"p");
  EXPECT_EQ((TFacts{list.Extract(u"a"), list.Extract(u"q"), list.LastIndexOf(u"a")}), "a  1");
  list.AddRange({u"c", u"d"}), list.Move(0, 2);
  list.Move(3, 0), list.Exchange(0, 1), list.Exchange(1, 1), list.Reverse();
  EXPECT_EQ(TFacts{list.Items()}, "p,c,d,a");
  list.Sort([](const auto& a, const auto& b) { return b.compare(a); });
  EXPECT_EQ((TFacts{list.Remove(u"d"), list.Remove(u"q"), list.Contains(u"d")}), "1 -1 no");
  list.Clear();
  EXPECT_EQ(list.Log, u"-a3 +p3 xa2 +c4 +d4 -d3 -p0 -c0 -a0 ");
  for (auto fault : {+[](TNoted& l) { l.Put(-1, u""); }, +[](TNoted& l) { l.Insert(1, u""); },
                     +[](TNoted& l) { l.DeleteRange(0, 1); }, +[](TNoted& l) { l.Move(0, 0); }})
    EXPECT_THROW(fault(list), EListError);
}

struct TOwn : TVxClassed<TOwn, TVxDataIdSingleton, u"TOwn"> {
  explicit TOwn(bool silent) : TVxClassed(silent) {}
};

TEST(TVxDataIdSingleton, OneSlotForAll) {
  TScriptedDialogs dialogs;
  using T = TVxDataIdSingleton;
  EXPECT_EQ(T::AccessSingleton(0), nullptr);
  T* first = T::Singleton<TOwn>(7);
  EXPECT_EQ((std::array{T::Singleton(8), T::AccessSingleton(1)}), (std::array{first, first}));
  EXPECT_EQ((TFacts{first->ClassName(), first->GetSerialize(), dialogs.Shown.size()}), "TOwn 8 0");
  EXPECT_EQ(test::RaisedBy<Exception>([] { T::AccessSingleton(3); }), u"Illegal request 3 in AccessSingleton");
  uVxGenerics::FreeBuffersForLeakPrevention();
  EXPECT_EQ(T::AccessSingleton(0), nullptr);
  std::unique_ptr<T> taken(T::Singleton(-5)), direct(new T);
  EXPECT_EQ(T::AccessSingleton(2), nullptr);
  EXPECT_NE(T::Singleton(1), taken.get());
  EXPECT_EQ((direct->SetSerialize(u"12"), direct->GetId()), 12);
  taken.reset(), direct.reset();
  EXPECT_NE(T::AccessSingleton(0), nullptr) << "only its own object empties the slot";
  T::ReleaseSingleton(), T::ReleaseSingleton();
  EXPECT_EQ(dialogs.Shown.at(0).Text,
            u"Das Hilfsobjekt darf nicht direkt instantiiert werden!\r\nStatt dessen ist die "
            u"Klassenmethode \"Singleton\" zu nutzen.\r\n[TVxDataIdSingleton.Create]");
}

TEST(GSingletons, OwnsItsObjectsUntilTheyAreFreed) {
  static size_t seen = 9;
  struct TProbe : TObject {
    ~TProbe() override { seen = GSingletons().size(); }
  };
  GSingletons()[u"TProbe"] = std::make_unique<TProbe>();
  uSingleton::FreeBuffersForLeakPrevention();
  EXPECT_EQ((TFacts{seen, GSingletons().size()}), "0 0");
}

template <typename TBase>
struct TFields : TVxClassed<TFields<TBase>, TBase, u"TFields"> {
  TVxStringList& GetData(TVxStringList& data) const override {
    data.AddStrings(Cells);
    ++Reads;
    return data;
  }
  void SetData(const TVxStringList& data) override { Cells.assign(data.Items().begin(), data.Items().end()); }
  TCells Cells;
  mutable int Reads = 0;
};
template <typename TBase>
void TravelsInItsForm(const String& text) {
  auto made = TVxData::Factory(TFields<TBase>::Class(), text);
  ASSERT_NE(made, nullptr) << text;
  EXPECT_EQ(made->GetSerialize(), text);
  EXPECT_EQ(TBase::Class().NewInstance(), nullptr) << text;
  auto& data = dynamic_cast<TFields<TBase>&>(*made);
  EXPECT_EQ(data.Cells, (TCells{u"a b", u""}));
  for (const char16_t* cell : {u"°", u"|,\"", u"\x1b\n"}) {
    data.Cells.push_back(cell), data.Reads = 0;
    auto copy = data.Duplicate();
    EXPECT_EQ(std::pair(static_cast<TFields<TBase>&>(*copy).Cells, data.Reads), std::pair(data.Cells, 1));
    EXPECT_TRUE(copy->EqualsAll(&data)) << text;
  }
  TVxDataIdHelper id;
  id.SetId(42), data.Assign(&id), data.Assign(nullptr);
  EXPECT_EQ(data.Cells, TCells{u"42"}) << "from another kind by its text";
}
TEST(TSerialData, TravelsInItsForm) {
  TravelsInItsForm<TVxDataCommatext>(u"\"a b\","), TravelsInItsForm<TVxDataOffsettext>(u"3°a b0°");
  TravelsInItsForm<TVxDataLighttext>(u"a b|"), TravelsInItsForm<TVxDataIdLighttext>(u"a b|");
  TravelsInItsForm<TVxDataIntelliText>(u"a b|");
}

}  // namespace
