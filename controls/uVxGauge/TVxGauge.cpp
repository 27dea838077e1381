#include "controls/uVxGauge/TVxGauge.h"

#include <algorithm>
#include <utility>

#include "platform/Hook.h"
#include "platform/Lazy.h"
#include "platform/Sorting.h"
#include "platform/TCanvas.h"

namespace vx {

namespace {

THook<TTaskbarSink>& TaskbarHook() {
  static THook<TTaskbarSink>& hook = *new THook<TTaskbarSink>;
  return hook;
}

constinit TLazy<TGaugeGroupList> gGroups;

}  // namespace

TTaskbarSink SetTaskbarSink(TTaskbarSink Sink) { return TaskbarHook().Exchange(std::move(Sink)); }

void ShowTaskbarProgress(const TTaskbarProgress& Progress) {
  if (const auto sink = TaskbarHook().Get()) (*sink)(Progress);
}

const TBitmap& TVxPaintObjectVcl::Paint() {
  BeginPainting();
  PaintBitmap(FPicture);
  return FPicture;
}

void TVxPaintObjectVcl::LookChanged() { FGauge.LookChanged(); }
void TVxPaintObjectVcl::ValuesChanged(bool IsSeen) { FGauge.ValuesChanged(IsSeen); }

TVxGauge::TVxGauge(const std::shared_ptr<TGaugeWindow>& Window) : iPaintObject(*this) {
  SetBounds({0, 0, 185, 41});
  iPaintObject.SethParent(Window);
  ApplyPaintRect();
}

TVxGauge::~TVxGauge() {
  SetGroupIndex(-1);
  SetShowInTaskbar(false);
  iKilled = true;
}

void TVxGauge::SetPaintRect(const TRect& Value) {
  iPaintRect = Value;
  ApplyPaintRect();
}

void TVxGauge::ApplyPaintRect() { iPaintObject.SetPaintRect(iPaintRect.IsEmpty() ? GetClientRect() : iPaintRect); }

void TVxGauge::SetGroupIndex(int aIndex) {
  const int index = std::max(aIndex, -1);
  if (index == iGroupIndex) return;
  iGroupIndex = index;
  if (index < 0) {
    TGaugeGroupList::Leave(*this);
    return;
  }
  TGaugeGroupList::Enter(*this);
  UpdatePendant(true);
}

bool TVxGauge::HasValuesOf(const TVxGauge& Other) const noexcept {
  return GetMax() == Other.GetMax() && GetMin() == Other.GetMin() && GetPosition() == Other.GetPosition();
}

void TVxGauge::ReceiveValues(const TVxGauge& Other) {
  const bool received = std::exchange(FIsReceiving, true);
  SetValues(Other.GetMax(), Other.GetMin(), Other.GetPosition());
  FIsReceiving = received;
}

void TVxGauge::UpdatePendant(bool aReceive) {
  if (iGroupIndex < 0 || iKilled) return;
  const TGaugeGroupList& list = TGaugeGroupList::Instance();
  for (int i = list.FindGroup(iGroupIndex); i < list.GetCount(); ++i) {
    TVxGauge& other = list.GetGauge(i);
    if (other.iGroupIndex != iGroupIndex) break;
    if (&other == this || HasValuesOf(other)) continue;
    if (aReceive) {
      ReceiveValues(other);
    } else {
      other.ReceiveValues(*this);
    }
  }
}

void TVxGauge::SetThreadPainted(bool Value) {
  if (Value == GetThreadPainted()) return;
  FListed.reset();
  if (!Value) return;
  ApplyPaintRect();
  FListed = std::make_unique<TVxPaintObjectThreadListed>();
  FListed->Assign(iPaintObject.GetValues());
}

void TVxGauge::LookChanged() {
  if (iKilled) return;
  if (FListed) FListed->Assign(iPaintObject.GetValues());
  if (!FIsPainting) Invalidate();
}

void TVxGauge::ValuesChanged(bool IsSeen) {
  if (iKilled) return;
  if (FListed) FListed->SetValues(GetMax(), GetMin(), GetPosition());
  if (IsSeen) Invalidate();
  if (!FIsReceiving) UpdatePendant(false);
  RefreshTaskbar();
}

void TVxGauge::SetShowInTaskbar(bool Value) {
  if (Value == iShowInTaskbar) return;
  iShowInTaskbar = Value;
  if (Value) {
    RefreshTaskbar();
  } else {
    TellTaskbar(-1);
  }
}

void TVxGauge::RefreshTaskbar() {
  if (!iShowInTaskbar || iKilled) return;
  const Extended percent = TVxPaintObject::CalcPercent(GetPosition(), GetMax(), GetMin());
  TellTaskbar(percent > 0 ? static_cast<int>(std::min(percent, Extended{100})) : 0);  // 0 also for what is no number
}

void TVxGauge::TellTaskbar(int Percent) {
  if (Percent == FTaskbarPercent) return;
  FTaskbarPercent = Percent;
  ShowTaskbarProgress({iPaintObject.GethParent(), Percent >= 0, std::max(Percent, 0)});
}

void TVxGauge::Paint() {
  FIsPainting = true;
  ApplyPaintRect();
  FIsPainting = false;
  const TRect& rect = iPaintObject.GetPaintRect();
  if (GetCanvas() == nullptr || !iPaintObject.GetVisible() || rect.IsEmpty()) return;
  GetCanvas()->Draw(rect.Left, rect.Top, iPaintObject.Paint());
}

void TVxGauge::GlowTimer() {
  if (GetVisible() && iPaintObject.GetVisible() && iPaintObject.GetGlowRunning()) Invalidate();
}

TGaugeGroupList& TGaugeGroupList::Instance() {
  return gGroups.Get([] { return std::make_unique<TGaugeGroupList>(false); });
}

void TGaugeGroupList::Enter(TVxGauge& Gauge) {
  TGaugeGroupList& list = Instance();
  list.Add(&Gauge);
  list.SortByGroupIndex(0, list.GetCount() - 1);
}

void TGaugeGroupList::Leave(TVxGauge& Gauge) {
  TGaugeGroupList& list = Instance();
  list.Remove(&Gauge);
  if (list.GetCount() == 0) gGroups.Free();
}

void TGaugeGroupList::SortByGroupIndex(int aLow, int aHigh) {
  PartitionSort(
      std::max(aLow, 0), std::min(aHigh, GetCount() - 1),
      [this](int a, int b) {
        const int first = GetGauge(a).iGroupIndex, second = GetGauge(b).iGroupIndex;
        return (first > second) - (first < second);
      },
      [this](int a, int b) { doExchange(a, b); });
}

int TGaugeGroupList::FindGroup(int GroupIndex) const {
  int low = 0, high = GetCount();
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (GetGauge(middle).iGroupIndex < GroupIndex) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

}  // namespace vx
