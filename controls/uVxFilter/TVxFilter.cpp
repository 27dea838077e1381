#include "controls/uVxFilter/TVxFilter.h"

#include <algorithm>
#include <vector>

#include "controls/uVxFilter/detail/ColumnValues.h"
#include "platform/TCanvas.h"
#include "services/uMsg.h"
#include "tables/uTypeCsv.h"

namespace vx {

namespace {

constexpr int kHeight = 18;
constexpr int kWidth = 400;

}  // namespace

void TVxPaintBox::Paint() {
  TCanvas* canvas = GetCanvas();
  if (canvas == nullptr) return;
  {
    const TCanvasState saved(*canvas);
    canvas->SetFont(GetFont());
    canvas->SetBrush({GetColor()});
    canvas->FillRect(GetClientRect());
    PaintContent(*canvas);
  }
  TPaintBox::Paint();
  if (iBorderStyle == bsNone) return;
  const TCanvasState saved(*canvas);
  canvas->SetBrush({clBtnShadow});
  canvas->FrameRect(GetClientRect());
}

TVxFilter::TVxFilter() {
  SetBounds({0, 0, kWidth, kHeight});
  SetColor(clBtnFace);
  iFilterPopup.AddItem(u"Filter zurücksetzen", TNotifyEvent::Of<&TVxFilter::ResetClick>(*this))
      .SetHint(u"löscht alle gesetzten Filterwerte");
}

TVxFilter::~TVxFilter() {
  if (iOnDestroy) iOnDestroy(this);
}

// --- the rows ---

void TVxFilter::Filter(TCsvView* aView) {
  if (aView == nullptr) return;
  struct TTest {
    int Col;
    const TVxFilterCore* Core;
  };
  std::vector<TTest> tests;
  for (int col = 0; col < iItems.GetCount(); ++col) {
    const TVxFilterCore& core = iItems.Get(col).GetFilterCore();
    if (!core.GetPassesAll()) tests.push_back({col, &core});
  }
  aView->ShowOnly([&](const TVxStringList& row) {
    const std::span<const String> cells = row.Items();
    return std::all_of(tests.begin(), tests.end(), [&](const TTest& test) {
      const auto col = static_cast<size_t>(test.Col);
      return col >= cells.size() || test.Core->Check(cells[col], row.GetObject(test.Col));
    });
  });
  TellStopped();
}

void TVxFilter::TellStopped() {
  TMsgAction action;
  for (int i = 0; i < iItems.GetCount(); ++i) iItems.Get(i).TellStopped();
  action.End();
}

void TVxFilter::SetFilter(TCsvView* aView) {
  const TControlUpdate update(*this);
  FView = aView;
  if (aView != nullptr) {
    for (int i = iItems.GetCount(); i-- > detail::CountColumns(*aView);) iItems.Delete(i);
  }
  for (int i = 0; i < iItems.GetCount(); ++i) iItems.Get(i).SetCsvV(aView);
}

// Whoever hears of a change may take items away.
void TVxFilter::Reset() {
  for (int i = 0; i < iItems.GetCount(); ++i) iItems.Get(i).SetValues({});
}

void TVxFilter::ResetClick(TObject* /*Sender*/) { Reset(); }

void TVxFilter::Changed() {
  if (iOnChanged) iOnChanged(this);
  iSigChanged.Emit(this);
}

// --- the bar ---

void TVxFilter::SetPlaces(std::vector<TFilterPlace> Value) {
  iPlaces = std::move(Value);
  Invalidate();
}

void TVxFilter::Realign() {
  const TControlUpdate update(*this);
  if (!iPlaces.empty()) return TakePlaces();
  int left = 0;
  for (int i = 0; i < iItems.GetCount(); ++i) {
    TVxFilterItem& item = iItems.Get(i);
    const bool isScrolled = i < iLeftCol && !item.GetIsFixedCol();
    item.SetLeft(isScrolled ? -item.GetWidth() - iSplitLineWidth : left);
    if (!isScrolled) left += item.GetWidth() + iSplitLineWidth;
  }
}

void TVxFilter::TakePlaces() {
  iPlaces.resize(static_cast<size_t>(iItems.GetCount()));
  for (int i = 0; i < iItems.GetCount(); ++i) {
    const TFilterPlace& place = iPlaces[static_cast<size_t>(i)];
    TVxFilterItem& item = iItems.Get(i);
    item.SetLeft(place.Left);
    if (item.GetWidth() != place.Width) item.SetWidth(place.Width);
  }
}

TRect TVxFilter::ItemRect(int Index) const noexcept {
  if (Index < 0 || Index >= iItems.GetCount()) return {};
  const TVxFilterItem& item = iItems.Get(Index);
  const TRect rect{item.GetLeft(), 0, item.GetLeft() + item.GetWidth(), GetHeight()};
  if (iPlaces.empty()) return rect;
  const auto place = static_cast<size_t>(Index);
  if (place >= iPlaces.size()) return {};
  return IntersectRect(rect, {iPlaces[place].From, 0, iPlaces[place].To, GetHeight()});
}

TVxFilterItem* TVxFilter::ItemAt(int X, int Y) {
  if (X < 0 || Y < 0 || X >= GetWidth() || Y >= GetHeight()) return nullptr;
  Realign();
  for (int i = 0; i < iItems.GetCount(); ++i) {
    const TRect rect = ItemRect(i);
    if (X >= rect.Left && X < rect.Right) return &iItems.Get(i);
  }
  return nullptr;
}

void TVxFilter::PaintContent(TCanvas& Canvas) {
  Realign();
  for (int i = 0; i < iItems.GetCount(); ++i) {
    const TVxFilterItem& item = iItems.Get(i);
    const TRect seen = ItemRect(i), rect{item.GetLeft(), 0, item.GetLeft() + item.GetWidth(), GetHeight()};
    if (seen.Right < 0 || seen.Left >= GetWidth() || (!iPlaces.empty() && seen.IsEmpty())) continue;
    {
      const TCanvasState saved(Canvas);
      Canvas.IntersectClip(seen);
      item.GetFilterCore().Paint(Canvas, rect);
    }
    Canvas.SetBrush({clBtnShadow});
    Canvas.FillRect({seen.Right, 0, seen.Right + iSplitLineWidth, GetHeight()});
  }
}

void TVxFilter::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  TVxPaintBox::MouseDown(Button, Shift, X, Y);
  if (!GetEnabled()) return;
  if (Button == mbRight) {
    const TPoint place = ClientToScreen({X, Y});
    iFilterPopup.Popup(place.X, place.Y);
  } else if (TVxFilterItem* item = Button == mbLeft ? ItemAt(X, Y) : nullptr) {
    item->Click();
  }
}

}  // namespace vx
