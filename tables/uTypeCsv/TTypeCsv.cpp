// The typed table: its decorations, cells and events.
#include "tables/uTypeCsv/TTypeCsv.h"

#include <algorithm>
#include <typeinfo>

#include "platform/Exceptions.h"

namespace vx {

namespace {

constexpr char16_t kDefaultDateFormat[] = u"yyyymmddhhnnss";

}  // namespace

TTypeCsv::TTypeCsv(bool OwnsObjects)
    : THeadCsv(OwnsObjects),
      iDecorations(std::make_unique<TDecorationList>(this)),
      iSortDateFormat(kDefaultDateFormat) {}

TTypeCsv::~TTypeCsv() = default;

std::unique_ptr<TFileCsv> TTypeCsv::GetNewInstance() const { return std::make_unique<TTypeCsv>(); }

void TTypeCsv::Init() {
  THeadCsv::Init();
  iDecorations->Init();
  iSortDateFormat = kDefaultDateFormat;
}

void TTypeCsv::Clear() {
  THeadCsv::Clear();
  SortCell = {-1, -1};
  SortDirection = TS_NONE;
}

// A sort of many rows would else wait for each of them to come from memory.
void TTypeCsv::Notify(TObject* Object, TListNotification Action) {
  if (Action == lnAdded) FHasOthers = FHasOthers || typeid(*Object) != typeid(TVxStringList);
  THeadCsv::Notify(Object, Action);
}

void TTypeCsv::Assign(const TFileCsv& Source) {
  if (&Source == this) return;
  THeadCsv::Assign(Source);
  if (const auto* typed = dynamic_cast<const TTypeCsv*>(&Source)) AssignDecorations(*typed);
}

// The callbacks of the other table's decorations are bound to that table as long as its events are set.
void TTypeCsv::AssignDecorations(const TTypeCsv& Source) {
  iDecorations->Assign(Source.GetDecorations());
  const TCsvDrawEvent postDraw = Source.iOnPostDraw ? Source.iOnPostDraw : iOnPostDraw;
  const TCsvDrawEvent preDraw = Source.iOnPreDraw ? Source.iOnPreDraw : iOnPreDraw;
  if (postDraw) SetOnPostDraw(postDraw);
  if (preDraw) SetOnPreDraw(preDraw);
}

std::unique_ptr<TTypeCsv> TTypeCsv::Duplicate() const {
  std::unique_ptr<TFileCsv> copy = GetNewInstance();
  auto* typed = dynamic_cast<TTypeCsv*>(copy.get());
  if (!typed) throw EInvalidCast(Concat({u"GetNewInstance of ", ClassName(), u" gives no TTypeCsv"}));
  typed->Assign(*this);
  (void)copy.release();
  return std::unique_ptr<TTypeCsv>(typed);
}

void TTypeCsv::ClearContent() {
  const TDeleteScope scope(*this);
  const int top = std::max(0, GetContentTop());
  for (int row = std::min(GetContentCount(), GetCount()); row-- > top;) {
    if (row < GetCount()) Delete(row);  // a derived class may have deleted more
  }
}

void TTypeCsv::SetCell(int Col, int Row, const String& Text) {
  if (iDecorations->GetOptions().Has(dloDimensionBySet)) {
    while (GetCount() <= Row) AddEmpty(0);
    if (Row >= 0 && GetLines(Row)->GetCount() <= Col) {
      TVxStringList* line = GetLines(Row);
      line->SetCapacity(std::max(line->GetCapacity(), Col + 1));
      while (line->GetCount() <= Col) line->InsertItem(line->GetCount(), String(), nullptr);
    }
  }
  THeadCsv::SetCell(Col, Row, Text);
}

void TTypeCsv::SetOnPostDraw(TCsvDrawEvent Value) {
  iOnPostDraw = Value;
  SetCallbackPostDraw(Value ? TCallbackPostDraw::Of<&TTypeCsv::OnDecorationsPostDraw>(*this) : TCallbackPostDraw());
}

void TTypeCsv::SetOnPreDraw(TCsvDrawEvent Value) {
  iOnPreDraw = Value;
  SetCallbackPreDraw(Value ? TCallbackDraw::Of<&TTypeCsv::OnDecorationsPreDraw>(*this) : TCallbackDraw());
}

void TTypeCsv::OnDecorationsPostDraw(TCanvas& Canvas, int Col, int Row, TRect& Rect, TDecoration& Decoration) {
  if (iOnPostDraw) iOnPostDraw(*this, Canvas, Col, Row, Rect, Decoration);
}

void TTypeCsv::OnDecorationsPreDraw(TCanvas& Canvas, int Col, int Row, TRect& Rect, TDecoration& Decoration) {
  if (iOnPreDraw) iOnPreDraw(*this, Canvas, Col, Row, Rect, Decoration);
}

}  // namespace vx
