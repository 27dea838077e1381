#include "tables/uTypeCsv.h"

#include "tables/uSearchConst.h"
#include "tests/support/PlainDecorations.h"
#include "tests/support/Test.h"

namespace vx {
namespace {

// The first cells of all rows.
String Names(const TObjectList& List) {
  String result;
  for (int i = 0; i < List.GetCount(); ++i) {
    const auto* row = static_cast<const TVxStringList*>(List.Get(i));
    result += row->GetCount() > 0 ? row->Get(0) : u"-";
    result += u" ";
  }
  return result;
}

// The hidden rows in an order of their own.
std::multiset<String> HiddenLines(const TCsvView& View) {
  TVxStringList lines;
  lines.SetText(View.GetHiddenText());
  return {lines.Items().begin(), lines.Items().end()};
}

// A view that keeps count of its rows by what Notify tells.
struct TCountedView : TCsvView {
  std::multiset<const TObject*> Present;
  ~TCountedView() override { Clear(); }
  void Notify(TObject* Object, TListNotification Action) override {
    if (Action == lnAdded) Present.insert(Object);
    if (Action == lnDeleted || Action == lnExtracted) Present.erase(Present.find(Object));
    TCsvView::Notify(Object, Action);
  }
};

// What a view does, row by row and as plainly as it can be put; rows are their first cells.
struct TPlainView {
  struct TRow {
    String Name, Key;
    bool IsHidden = false;
  };
  std::vector<TRow> All;

  size_t PlaceOf(int Index) const {  // of a row of the table; of its end, that of All
    size_t place = 0;
    for (; place < All.size(); ++place) {
      if (!All[place].IsHidden && Index-- == 0) break;
    }
    return place;
  }
  int Count() const {
    return static_cast<int>(std::ranges::count_if(All, [](const TRow& row) { return !row.IsHidden; }));
  }
  String Text(bool OfAll) const {
    String result;
    for (const TRow& row : All) {
      if (OfAll || !row.IsHidden) result += Concat({row.Name, u" "});
    }
    return result;
  }
  void Move(size_t From, size_t To) {
    const TRow row = All[From];
    All.erase(All.begin() + static_cast<std::ptrdiff_t>(From));
    All.insert(All.begin() + static_cast<std::ptrdiff_t>(To), row);
  }
};

class TViewWalk {
 public:
  explicit TViewWalk(unsigned Seed) : FRandom(Seed) {
    FView.GetDecorations().SetFixed(0, 1, 0, 1);
    FView.GetDecorations().CreateRange(rtColumn, 1, -1, 1, -1)->SetFieldType(vftInteger);
    for (int i = 0; i < 9; ++i) FView.Add(NewRow());
    while (FPlain.All.size() < 9) FPlain.All.push_back(FMade[FPlain.All.size()]);
  }
  void Step(int Number);
  void Check(int Number) const;

 private:
  int Any(int Count) { return static_cast<int>(FRandom() % static_cast<unsigned>(std::max(1, Count))); }
  TVxStringList* NewRow() {
    const String name = Concat({u"r", IntToStr(static_cast<int>(FMade.size()))}), key = IntToStr(Any(4));
    auto* row = new TVxStringList;
    row->Add(name);
    const bool isShort = Any(5) == 0;
    if (!isShort) row->Add(key);
    FMade.push_back({name, isShort ? u"" : key});
    return row;
  }
  TVxStringList* RowAt(size_t Place) { return FView.GetAllLines(static_cast<int>(Place)); }
  void Sort();
  void ShowOnly();

  std::mt19937 FRandom;
  TCountedView FView;
  TPlainView FPlain;
  std::vector<TPlainView::TRow> FMade;
};

void TViewWalk::Sort() {
  const int direction = Any(2) == 0 ? 1 : -1;
  TVxIntegerList indices;
  const String before = FPlain.Text(true);
  const std::vector<TPlainView::TRow> rows = FPlain.All;
  const auto end = FPlain.All.end() - (FPlain.All.empty() ? 0 : 1);
  std::stable_sort(std::min(FPlain.All.begin() + 1, end), end,
                   [&](const auto& a, const auto& b) { return direction * CompareInteger(a.Key, b.Key) < 0; });
  const bool isByType = Any(2) == 0;
  const TSortColumn column{.Index = 1, .SortType = vftInteger, .SortDirection = direction, .DateTimeFormat = {}};
  const auto compare = [](const TStrings& a, const TStrings& b, const TSortColumn* by) {
    return CustomSortProcStr(a, b, by);
  };
  isByType ? FView.CustomSort(CustomSortProcStr, &column, &indices) : FView.CustomSort(compare, &column, &indices);
  if (FView.GetViewMode() || FPlain.Count() == static_cast<int>(rows.size())) {
    String told;
    for (int index : indices) told += Concat({rows[static_cast<size_t>(index)].Name, u" "});
    EXPECT_EQ(told, FPlain.Text(true)) << before;
  }
}

void TViewWalk::ShowOnly() {
  const int wanted = Any(4);
  const auto isWanted = [&](const String& name) { return name[name.size() - 1] % 4 >= wanted; };
  FView.ShowOnly([&](const TVxStringList& row) { return isWanted(row.Get(0)); });
  for (size_t i = 1; i + 1 < FPlain.All.size(); ++i) FPlain.All[i].IsHidden = !isWanted(FPlain.All[i].Name);
}

void TViewWalk::Step(int Number) {
  const int count = FPlain.Count(), row = Any(count), other = Any(count),
            any = Any(static_cast<int>(FPlain.All.size()));
  const auto place = static_cast<size_t>(any);
  auto& all = FPlain.All;
  const auto at = [&](size_t index) { return all.begin() + static_cast<std::ptrdiff_t>(index); };
  const bool hasRows = count > 1;
  switch (Number) {
    case 0:
      if (hasRows) FView.Hide(row), all[FPlain.PlaceOf(row)].IsHidden = true;
      break;
    case 1:
      if (!all.empty()) FView.Show(RowAt(place)), all[place].IsHidden = false;
      break;
    case 2:
      if (!all.empty()) FView.Hide(RowAt(place)), all[place].IsHidden = true;
      break;
    case 3:
      ShowOnly();
      break;
    case 4:
      FView.Add(NewRow()), all.push_back(FMade.back());
      break;
    case 5:
      FView.Insert(row, NewRow()), all.insert(at(FPlain.PlaceOf(row)), FMade.back());
      break;
    case 6:
      if (all.size() > 6 && hasRows) FView.Delete(row), all.erase(at(FPlain.PlaceOf(row)));
      break;
    case 7:
      if (all.size() > 6 && hasRows) delete FView.Extract(FView.Get(row)), all.erase(at(FPlain.PlaceOf(row)));
      break;
    case 8:
      if (hasRows) FView.Exchange(row, other), std::swap(all[FPlain.PlaceOf(row)], all[FPlain.PlaceOf(other)]);
      break;
    case 9:
      if (hasRows) FView.Move(row, other), FPlain.Move(FPlain.PlaceOf(row), FPlain.PlaceOf(other));
      break;
    case 10:
      Sort();
      break;
    case 11:
      FView.SetHiddenText(FView.GetHiddenText());
      break;
    case 12:
      if (hasRows) FView.SetLines(row, NewRow()), all[FPlain.PlaceOf(row)] = FMade.back();
      break;
    default:
      if (Any(2) == 0) break;
      Any(2) == 0 ? FView.ShowAll() : FView.SetViewMode(false);
      for (auto& shown : all) shown.IsHidden = false;
  }
}

void TViewWalk::Check(int Number) const {
  ASSERT_EQ(Names(FView.GetAll()), FPlain.Text(true)) << Number;
  ASSERT_EQ(Names(FView), FPlain.Text(false)) << Number;
  ASSERT_EQ(static_cast<int>(FView.Present.size()), FView.GetCount()) << Number;
  std::multiset<String> hidden;
  for (size_t i = 0; i < FPlain.All.size(); ++i) {
    const auto& row = FPlain.All[i];
    ASSERT_EQ(FView.IsVisible(FView.GetAllLines(static_cast<int>(i))), !row.IsHidden) << Number;
    if (row.IsHidden)
      hidden.insert(Concat({IntToStr(static_cast<int>(i)), u",", row.Name, row.Key.empty() ? u"" : u",", row.Key}));
  }
  ASSERT_EQ(HiddenLines(FView), hidden) << Number;
}

TEST(TCsvView, DoesWhatAPlainListDoes) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    TViewWalk walk(seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 150 && !testing::Test::HasFatalFailure(); ++i) {
      const int number = static_cast<int>(random() % 14);
      walk.Step(number);
      walk.Check(number);
    }
  }
}

}  // namespace
}  // namespace vx
