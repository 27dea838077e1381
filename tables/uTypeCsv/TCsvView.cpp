// The view: rows that come and go while a second list remembers all of them.
#include "tables/uTypeCsv/TCsvView.h"

#include <algorithm>
#include <utility>

#include "tables/uTypeCsv/detail/TAllRows.h"

namespace vx {

using detail::TOwnChange;

TCsvView::TCsvView(bool OwnsObjects) : TTypeCsv(OwnsObjects) {}

// Out of view mode first: the objects of hidden rows may look at the view when they go.
TCsvView::~TCsvView() {
  iAll.reset();
  const std::unique_ptr<THiddenCsv> hidden = std::move(iHidden);
}

std::unique_ptr<TFileCsv> TCsvView::GetNewInstance() const { return std::make_unique<TCsvView>(); }

void TCsvView::SetViewMode(bool Value) {
  if (Value == GetViewMode()) return;
  if (Value) {
    auto hidden = std::make_unique<THiddenCsv>();
    hidden->SetOwnsObjects(GetOwnsObjects());
    auto all = std::make_unique<TAllRows>();
    all->PutAll(Items());
    iHidden = std::move(hidden);
    iAll = std::move(all);
  } else {
    ShowAll();
    iHidden.reset();
    iAll.reset();
  }
}

void TCsvView::SetOwnsObjects(bool Value) noexcept {
  TTypeCsv::SetOwnsObjects(Value);
  if (iHidden) iHidden->SetOwnsObjects(Value);
}

const TObjectList& TCsvView::GetAll() const noexcept {
  if (iAll) return *iAll;
  return *this;
}

bool TCsvView::IsVisible(const TVxStringList* Row) const {
  return !iHidden || !iHidden->Contains(const_cast<TVxStringList*>(Row));
}

int TCsvView::PlaceOf(const TObject* Row) const noexcept {
  const int count = iAll->GetCount();
  int up = std::clamp(static_cast<int>(FLastPlace), 0, count), down = up - 1;
  const auto found = [&](int place) { return iAll->Get(place) == Row ? FLastPlace = place : -1; };
  for (; up < count || down >= 0; ++up, --down) {
    if (up < count && found(up) >= 0) return up;
    if (down >= 0 && found(down) >= 0) return down;
  }
  return -1;
}

void TCsvView::TakeOutOfAll(const TObject* Row) {
  if (const int place = PlaceOf(Row); place >= 0) iAll->Delete(place);
}

// --- the operations of the table ---

int TCsvView::Add(TObject* Row) {
  if (!iAll) return TTypeCsv::Add(Row);
  const int count = GetCount();
  iAll->Add(Row);
  const TOwnChange own(FOwn, Row);
  try {
    return TTypeCsv::Add(Row);
  } catch (...) {
    if (GetCount() == count) TakeOutOfAll(Row);
    throw;
  }
}

void TCsvView::Insert(int Index, TObject* Row) {
  if (!iAll) return TTypeCsv::Insert(Index, Row);
  if (Index == GetCount()) return static_cast<void>(TCsvView::Add(Row));
  const int count = GetCount();
  iAll->Insert(std::max(0, PlaceOf(Get(Index))), Row);
  const TOwnChange own(FOwn, Row);
  try {
    TTypeCsv::Insert(Index, Row);
  } catch (...) {
    if (GetCount() == count) TakeOutOfAll(Row);
    throw;
  }
}

void TCsvView::Delete(int Index) {
  if (!iAll) return TTypeCsv::Delete(Index);
  const TObject* row = Get(Index);
  TakeOutOfAll(row);
  const TOwnChange own(FOwn, row);
  TTypeCsv::Delete(Index);
}

TObject* TCsvView::Extract(TObject* Row) {
  if (iAll && IndexOf(Row) >= 0) TakeOutOfAll(Row);
  const TOwnChange own(FOwn, Row);
  return TTypeCsv::Extract(Row);
}

void TCsvView::Exchange(int A, int B) {
  const TObject *a = Get(A), *b = Get(B);
  TTypeCsv::Exchange(A, B);
  if (!iAll) return;
  const int placeA = PlaceOf(a), placeB = PlaceOf(b);
  if (placeA >= 0 && placeB >= 0) iAll->Exchange(placeA, placeB);
}

void TCsvView::Move(int From, int To) {
  const TObject *from = Get(From), *to = Get(To);
  TTypeCsv::Move(From, To);
  if (!iAll) return;
  const int placeFrom = PlaceOf(from), placeTo = PlaceOf(to);
  if (placeFrom >= 0 && placeTo >= 0) iAll->Move(placeFrom, placeTo);
}

void TCsvView::Clear() {
  if (iAll) iAll->Clear();
  TTypeCsv::Clear();
  if (iHidden) iHidden->Clear();
}

void TCsvView::ClearContent() {
  ShowAll();
  TTypeCsv::ClearContent();
}

// Put is no operation that a class can override; of all others this one knows.
void TCsvView::Notify(TObject* Object, TListNotification Action) {
  if (iAll && Object != FOwn && iAll->GetCount() > 0) {
    if (Action == lnDeleted) {
      FReplaced = PlaceOf(Object);
      if (FReplaced >= 0) iAll->Put(FReplaced, nullptr);
    } else if (Action == lnAdded) {
      const bool isFree = FReplaced >= 0 && FReplaced < iAll->GetCount() && iAll->Get(FReplaced) == nullptr;
      const int place = isFree ? FReplaced : PlaceOf(nullptr);
      place >= 0 ? iAll->Put(place, Object) : static_cast<void>(iAll->Add(Object));
      FReplaced = -1;
    }
  }
  TTypeCsv::Notify(Object, Action);
}

// --- all rows ---

TVxStringList* TCsvView::AllLineWith(int Col, int Row) const {
  if (Row >= GetAll().GetCount()) return nullptr;
  TVxStringList* line = GetAllLines(Row);
  return Col < line->GetCount() ? line : nullptr;
}

String TCsvView::GetAllCells(int Col, int Row) const {
  const TVxStringList* line = AllLineWith(Col, Row);
  return line ? line->Get(Col) : String();
}

void TCsvView::SetAllCells(int Col, int Row, const String& Text) {
  if (TVxStringList* line = AllLineWith(Col, Row)) line->Put(Col, Text);
}

TObject* TCsvView::GetAllObjects(int Col, int Row) const {
  const TVxStringList* line = AllLineWith(Col, Row);
  return line ? line->GetObject(Col) : nullptr;
}

void TCsvView::SetAllObjects(int Col, int Row, TObject* Object) {
  if (TVxStringList* line = AllLineWith(Col, Row)) line->PutObject(Col, Object);
}

}  // namespace vx
