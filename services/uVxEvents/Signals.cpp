#include "services/uVxEvents/Signals.h"

namespace vx {

namespace {

TSimpleEvent MethodOf(const TEventPointer& Event) noexcept {
  return {reinterpret_cast<TSimpleEvent::TCode>(Event.Code), Event.Data};
}

}  // namespace

int TSimpleSignal::IndexOf(const TEventPointer& Event) const noexcept { return TSignal::IndexOf(MethodOf(Event)); }

void TSimpleSignal::Remove(const TEventPointer& Event) { TSignal::Remove(MethodOf(Event)); }

void TSimpleSignal::DoEvent(TObject* Sender, TObject* EventArgs) {
  bool isOwned = iOwnsObject;
  if (Dispatch(Sender, EventArgs)) isOwned = iOwnsObject;  // a handler may have set it, or freed this signal
  if (isOwned) delete EventArgs;
}

}  // namespace vx
