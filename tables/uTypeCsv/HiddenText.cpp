// The hidden rows of a view as a text, and views made equal to others.
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/Numbers.h"
#include "platform/detail/Holes.h"
#include "tables/uTypeCsv/TCsvView.h"
#include "tables/uTypeCsv/detail/TAllRows.h"

namespace vx {

namespace {

// A row and where it is to stand.
struct TPlacedRow {
  int Place;  // INT_MAX for behind all others
  std::unique_ptr<TVxStringList> Row;
};

std::vector<TPlacedRow> ReadRows(std::u16string_view Text) {
  std::vector<TPlacedRow> result;
  TVxStringList lines;
  lines.SetText(Text);
  for (const String& line : lines.Items()) {
    if (line.empty()) continue;
    auto row = std::make_unique<TVxStringList>();
    row->SetCommatext(line);
    int place = -1;
    if (row->GetCount() > 0) {
      place = StrToIntDef(row->Get(0), -1);
      row->Delete(0);
    }
    result.push_back({place < 0 ? INT_MAX : place, std::move(row)});
  }
  return result;
}

}  // namespace

String TCsvView::GetHiddenText() const {
  if (!iHidden || iHidden->GetCount() == 0) return {};
  // In the order of the hidden rows, which is that of their addresses.
  std::vector<std::pair<const TVxStringList*, int>> places;
  std::vector<bool> isShown;
  FindShown(isShown);
  for (int place = 0; place < iAll->GetCount(); ++place) {
    if (!isShown[static_cast<size_t>(place)]) places.emplace_back(GetAllLines(place), place);
  }
  std::ranges::sort(places);
  TVxStringList lines;
  lines.SetCapacity(static_cast<int>(places.size()));
  for (const auto& [row, place] : places) {
    TCells cells{IntToStr(place)};
    cells.insert(cells.end(), row->Items().begin(), row->Items().end());
    lines.Add(WriteCommatext(cells));
  }
  return lines.GetText();
}

void TCsvView::SetHiddenText(std::u16string_view Text) {
  std::vector<TPlacedRow> rows = ReadRows(Text);
  if (iAll) RemoveHidden();
  if (Text.empty()) return;
  SetViewMode(true);
  // Each place is that in the whole: what comes before it has to be there first.
  std::ranges::stable_sort(rows, {}, &TPlacedRow::Place);
  std::vector<TVxStringList*> added;
  std::vector<int> places;
  for (const TPlacedRow& row : rows) {
    added.push_back(row.Row.get());
    places.push_back(row.Place);
  }
  AddHidden(added, places);
  for (TPlacedRow& row : rows) (void)row.Row.release();  // the view has it
}

void TCsvView::RemoveHidden() {
  const std::vector<TObject*> shown(Items().begin(), Items().end());
  std::vector<bool> isShown;
  if (FindShown(isShown)) {
    iAll->PutAll(shown);
  } else {
    for (TVxStringList* row : iHidden->Items()) TakeOutOfAll(row);
  }
  iHidden->Clear();
}

void TCsvView::AddHidden(std::span<TVxStringList* const> Rows, std::span<const int> Places) {
  const std::span<TObject* const> old = iAll->Items();
  std::vector<TObject*> all(old.size() + Rows.size());
  // From the last one back: what comes later leaves to a row the places that it has not taken.
  detail::THoles free(all.size());
  for (size_t i = Rows.size(); i-- > 0;) {
    const size_t place = free.PlaceOf(static_cast<int>(std::min(old.size() + i, static_cast<size_t>(Places[i]))));
    all[place] = Rows[i];
    free.Free(place);
  }
  size_t next = 0;
  for (size_t place = 0; place < all.size(); ++place) {
    if (free.IsTaken(place)) all[place] = old[next++];
  }
  std::vector<TVxStringList*> hidden(iHidden->Items().begin(), iHidden->Items().end());
  hidden.insert(hidden.end(), Rows.begin(), Rows.end());
  iAll->PutAll(all);
  HiddenToFill().TakeAll(std::move(hidden));
}

void TCsvView::Assign(const TFileCsv& Source) {
  const auto* view = dynamic_cast<const TCsvView*>(&Source);
  if (view == nullptr || !view->iAll) return TTypeCsv::Assign(Source);
  if (view == this) return;
  SetViewMode(true);
  Clear();
  AssignDecorations(*view);
  std::vector<bool> isShown;
  view->FindShown(isShown);
  std::vector<TVxStringList*> hidden;
  std::vector<int> places;
  const auto copy = [&](int place) {
    auto row = std::make_unique<TVxStringList>();
    row->Assign(*view->GetAllLines(place));
    return row;
  };
  for (int place = 0; place < view->iAll->GetCount(); ++place) {
    if (isShown[static_cast<size_t>(place)]) {
      AddNew(copy(place));
    } else {
      places.push_back(place);
      hidden.push_back(nullptr);
    }
  }
  std::vector<std::unique_ptr<TVxStringList>> copies;
  for (size_t i = 0; i < places.size(); ++i) {
    copies.push_back(copy(places[i]));
    hidden[i] = copies[i].get();
  }
  AddHidden(hidden, places);
  for (auto& row : copies) (void)row.release();  // the view has it
}

}  // namespace vx
