// The watches; their tables are made in tables/uAnimate.cpp.
#include "services/uAnimate.h"

#include <algorithm>

#include "platform/Clock.h"
#include "platform/FreeBuffers.h"
#include "platform/Lazy.h"

namespace vx {

namespace {

constinit TLazy<TSWList> Watches;

TSWPeriod* AsPeriod(TObject* Object) { return dynamic_cast<TSWPeriod*>(Object); }

}  // namespace

void TStopWatch::Init() {
  iName.clear();
  iLevel = 0;
  iNr = 0;
}

void TStopWatch::Start(TObject* tag, const String& text) {
  auto period = std::make_unique<TSWPeriod>();
  period->SetTag(tag);
  period->SetSText(text);
  period->SetStart(Now());
  Add(period.get());
  (void)period.release();  // the list has it
}

bool TStopWatch::Finish(TObject* tag, const String& text) {
  for (int i = GetCount() - 1; i >= 0; --i) {
    TSWPeriod* period = AsPeriod(Get(i));
    if (period == nullptr || period->GetTag() != tag || period->GetFinish() != 0) continue;
    period->SetFinish(Now());
    period->SetFText(text);
    return true;
  }
  return false;
}

int TStopWatch::FinishCount() const {
  return static_cast<int>(std::count_if(Items().begin(), Items().end(), [](TObject* object) {
    const TSWPeriod* period = AsPeriod(object);
    return period != nullptr && period->GetFinish() > 0;
  }));
}

TSWList::TSWList() { TSWList::Init(); }

void TSWList::Init() {
  TVxStringIndex::Init();
  iActive = true;
  curlevel = 0;
  SetOptions({vxioOwnsObjects, vxioModifyAnsiChars});
}

void TSWList::Start(const String& name, TObject* tag, const String& text) {
  if (!iActive) return;
  int index;
  TStopWatch* watch = Find(name, index) ? Watch(index) : nullptr;
  if (watch == nullptr) {
    auto made = std::make_unique<TStopWatch>();
    made->SetName(name);
    made->SetNr(GetCount());
    Add(name, made.get());
    watch = made.release();
  }
  watch->Start(tag, text);
  watch->SetLevel(curlevel++);
}

bool TSWList::Stop(const String& name, TObject* tag, const String& text) {
  int index;
  if (!iActive || !Find(name, index)) return false;
  TStopWatch* watch = Watch(index);
  --curlevel;
  return watch != nullptr && watch->Finish(tag, text);
}

TSWList* Animate() {
  return &Watches.Get([] {
    OnFreeBuffers(foServices, &uAnimate::FreeBuffersForLeakPrevention);
    return std::make_unique<TSWList>();
  });
}

void uAnimate::FreeBuffersForLeakPrevention() noexcept { Watches.Free(); }

}  // namespace vx
