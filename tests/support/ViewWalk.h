// A view on which one operation after the other is done, beside the plainest list that does the same.
//
//   TViewWalk walk([&](int count) { return NumberBelow(count); });
//   EXPECT_EQ(walk.Step(), "");            // what differs then
#pragma once

#include <algorithm>
#include <functional>
#include <set>
#include <vector>

#include "platform/Numbers.h"
#include "tables/uTypeCsv.h"

namespace vx::test {

// The first cells of all rows.
inline String Names(const TObjectList& List) {
  String result;
  for (int i = 0; i < List.GetCount(); ++i) {
    const auto* row = static_cast<const TVxStringList*>(List.Get(i));
    result += Concat({row->GetCount() > 0 ? row->Get(0) : u"-", u" "});
  }
  return result;
}

// The lines of the hidden rows, which stand in an order of their own.
inline std::multiset<String> HiddenLines(const TCsvView& View) {
  TVxStringList lines;
  lines.SetText(View.GetHiddenText());
  return {lines.Items().begin(), lines.Items().end()};
}

class TViewWalk {
 public:
  // Any(n) gives a number from 0 to n - 1.
  explicit TViewWalk(std::function<int(int)> Any) : FAny(std::move(Any)) {
    View.GetDecorations().SetFixed(0, 1, 0, 1);
    View.GetDecorations().CreateRange(rtColumn, 1, -1, 1, -1)->SetFieldType(vftInteger);
    for (int i = 0; i < 9; ++i) View.Add(NewRow());
  }
  std::string Step() {
    const int kind = FAny(14);
    Do(kind);
    const char* fault = Fault();
    return *fault ? Concat({String::FromUtf8(fault), u" ", IntToStr(kind)}).ToUtf8() : std::string();
  }

  // Counts its rows by what Notify tells.
  struct TCountedView : TCsvView {
    std::multiset<const TObject*> Present;
    ~TCountedView() override { Clear(); }
    void Notify(TObject* Object, TListNotification Action) override {
      if (Action == lnAdded) Present.insert(Object);
      if (Action == lnDeleted || Action == lnExtracted) Present.erase(Present.find(Object));
      TCsvView::Notify(Object, Action);
    }
  } View;

 private:
  struct TRow {
    String Name, Key;
    bool IsHidden = false;
  };

  // A row for the view, which Last is beside it; some are short.
  TVxStringList* NewRow(bool IsAdded = true) {
    FLast = {Concat({u"r", IntToStr(FMade++)}), FAny(5) == 0 ? u"" : IntToStr(FAny(4))};
    auto* row = new TVxStringList;
    row->Add(FLast.Name);
    if (!FLast.Key.empty()) row->Add(FLast.Key);
    if (IsAdded) FAll.push_back(FLast);
    return row;
  }
  auto At(size_t Place) { return FAll.begin() + static_cast<std::ptrdiff_t>(Place); }
  // Of a row of the table among all.
  size_t PlaceOf(int Index) const {
    size_t place = 0;
    while (FAll[place].IsHidden || Index-- > 0) ++place;
    return place;
  }
  String Text(bool OfAll) const {
    String result;
    for (const TRow& row : FAll) {
      if (OfAll || !row.IsHidden) result += Concat({row.Name, u" "});
    }
    return result;
  }
  const char* Fault() const {
    if (Names(View.GetAll()) != Text(true)) return "all rows";
    if (Names(View) != Text(false)) return "rows on show";
    if (View.Present != std::multiset<const TObject*>(View.Items().begin(), View.Items().end())) return "notifications";
    std::multiset<String> hidden;
    for (size_t i = 0; i < FAll.size(); ++i) {
      const int place = static_cast<int>(i);
      if (View.IsVisible(View.GetAllLines(place)) == FAll[i].IsHidden) return "visible";
      const String key = FAll[i].Key.empty() ? String() : Concat({u",", FAll[i].Key});
      if (FAll[i].IsHidden) hidden.insert(Concat({IntToStr(place), u",", FAll[i].Name, key}));
    }
    return HiddenLines(View) != hidden ? "hidden text" : FSortIsWrong ? "order" : "";
  }
  void Do(int Kind);
  void Sort();
  void ShowAll(bool ByMode) {
    ByMode ? View.SetViewMode(false) : View.ShowAll();
    for (TRow& row : FAll) row.IsHidden = false;
  }
  void ShowOnly() {
    const int wanted = FAny(4);
    const auto isWanted = [&](const String& name) { return name[name.size() - 1] % 4 >= wanted; };
    View.ShowOnly([&](const TVxStringList& row) { return isWanted(row.Get(0)); });
    for (size_t i = 1; i + 1 < FAll.size(); ++i) FAll[i].IsHidden = !isWanted(FAll[i].Name);
  }

  std::function<int(int)> FAny;
  std::vector<TRow> FAll;
  TRow FLast;
  int FMade = 0;
  bool FSortIsWrong = false;
};

inline void TViewWalk::Do(int Kind) {
  if (Kind == 4) return static_cast<void>(View.Add(NewRow()));
  const int count = View.GetCount();
  if (count < 2) return ShowAll(false);
  const int row = FAny(count), other = FAny(count);
  const size_t place = PlaceOf(row), far = PlaceOf(other),
               any = static_cast<size_t>(FAny(static_cast<int>(FAll.size())));
  TVxStringList* const anyRow = View.GetAllLines(static_cast<int>(any));
  const TRow old = FAll[place];
  if (Kind == 0) View.Hide(row), FAll[place].IsHidden = true;
  if (Kind == 1) View.Show(anyRow), FAll[any].IsHidden = false;
  if (Kind == 2) View.Hide(anyRow), FAll[any].IsHidden = true;
  if (Kind == 3) ShowOnly();
  if (Kind == 5) View.Insert(row, NewRow(false)), FAll.insert(At(place), FLast);
  if (Kind == 6) View.Delete(row), FAll.erase(At(place));
  if (Kind == 7) delete View.Extract(View.Get(row)), FAll.erase(At(place));
  if (Kind == 8) View.Exchange(row, other), std::swap(FAll[place], FAll[far]);
  if (Kind == 9) View.Move(row, other), FAll.erase(At(place)), FAll.insert(At(far), old);
  if (Kind == 10) Sort();
  if (Kind == 11) View.SetHiddenText(View.GetHiddenText());
  if (Kind == 12) View.SetLines(row, NewRow(false)), FAll[place] = FLast;
  if (Kind == 13) ShowAll(FAny(2) == 0);
}

inline void TViewWalk::Sort() {
  const TSortColumn column{
      .Index = 1, .SortType = vftInteger, .SortDirection = FAny(2) == 0 ? 1 : -1, .DateTimeFormat = {}};
  const std::vector<TRow> before = FAll;
  std::stable_sort(FAll.begin() + 1, FAll.end() - 1, [&](const TRow& a, const TRow& b) {
    return column.SortDirection * CompareInteger(a.Key, b.Key) < 0;
  });
  const auto compare = [](auto& a, auto& b, const TSortColumn* by) { return CustomSortProcStr(a, b, by); };
  TVxIntegerList indices;
  FAny(2) == 0 ? View.CustomSort(CustomSortProcStr, &column, &indices) : View.CustomSort(compare, &column, &indices);
  String told;
  for (int index : indices) told += Concat({before[static_cast<size_t>(index)].Name, u" "});
  FSortIsWrong = told != Text(true);
}

}  // namespace vx::test
