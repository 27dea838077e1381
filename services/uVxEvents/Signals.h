// The four families of signals, alike in all but what they hand over.
#pragma once

#include <memory>
#include <span>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "platform/Connection.h"
#include "platform/Method.h"
#include "platform/TObject.h"
#include "services/uVxEvents/HandlerList.h"

namespace vx {

using TSimpleEvent = Method<void(TObject* Sender, TObject* EventArgs)>;
// step of max are done; setting doStop asks the sender to stop and does not end the emission.
using TProgressEvent = Method<void(TObject* Sender, int step, int max, bool& doStop, TObject* EventArgs)>;
using TIdEvent = Method<void(TObject* Sender, int id)>;

// The two halves of a bound method.
struct TEventPointer {
  void* Code = nullptr;
  void* Data = nullptr;
  bool Equals(const TEventPointer& Other) const noexcept { return Code == Other.Code && Data == Other.Data; }
};

// A handler in a signal's list. TSelf names its class.
template <typename TSelf, typename TEvent>
class TEventHandler;
template <typename TSelf, typename... Args>
class TEventHandler<TSelf, Method<void(Args...)>> : public TObject {
 public:
  using TEvent = Method<void(Args...)>;
  explicit TEventHandler(TEvent Event) noexcept : iEvent(Event) {}
  const TEvent& GetEvent() const noexcept { return iEvent; }
  void SetEvent(TEvent Value) noexcept { iEvent = Value; }
  // Calls the event, which may free this handler.
  void doEvent(Args... Arguments) const {
    const TEvent event = iEvent;
    event(std::forward<Args>(Arguments)...);
  }
  // The code of a method that does nothing.
  static void Nothing(void*, Args...) {}

 private:
  TEvent iEvent;
};

// What the signals share: their handlers. Indexes count from 0, the newest handler first; one outside the list
// raises EListError.
template <typename THandler>
class TSignal : public TObject {
 public:
  using TEvent = typename THandler::TEvent;
  TSignal() noexcept = default;
  ~TSignal() override {
    if (FSelf) *FSelf = nullptr;
  }
  // Lambda is called as a method that was added, until the result ends: it takes the event's arguments, or none. The
  // signal may go first.
  template <HandlerOf<TEvent> F>
  TConnection Connect(F&& Lambda);
  // A method that is there already keeps its place: it is called once. The result is its index, 0 for a new one.
  int Add(TEvent Event);
  // An unknown method is ignored.
  void Remove(TEvent Event);
  // -1 for an unknown method. Linear.
  int IndexOf(TEvent Event) const noexcept;
  int Count() const noexcept { return HandlerList.GetCount(); }
  // The handler at Index, which stays the signal's. A handler of another class may stand there, see
  // SetEventHandler: nullptr then.
  THandler* GetEventHandler(int Index) const { return AsHandler(HandlerList.Get(Index)); }
  // Puts Handler, which is the signal's from then on, in the place of another, which is freed. One of another
  // family is skipped when the signal is emitted.
  void SetEventHandler(int Index, TObject* Handler) { HandlerList.Put(Index, Handler); }
  const TNotifyHandlerList& GetHandlerList() const noexcept { return HandlerList; }
  TNotifyHandlerList& GetHandlerList() noexcept { return HandlerList; }

 protected:
  // The object as a handler of this family; nullptr if it is none.
  static THandler* AsHandler(TObject* Object) noexcept {
    if (Object != nullptr && typeid(*Object) == typeid(THandler)) return static_cast<THandler*>(Object);
    return dynamic_cast<THandler*>(Object);
  }
  // Calls all handlers. Whether the signal is still there afterwards.
  template <typename... Args>
  bool Dispatch(Args&&... Arguments) {
    if (HandlerList.GetCount() == 0) return true;
    TNotifyHandlerEnumerator walk(HandlerList);
    while (walk.MoveNext()) {
      if (const THandler* handler = AsHandler(walk.GetCurrent())) handler->doEvent(Arguments...);
    }
    return walk.HasList();
  }

  TNotifyHandlerList HandlerList;

 private:
  // Where a connection's handler is heard.
  struct TPlace {
    std::shared_ptr<TSignal*> Signal;
    bool Has(const TEvent& Event) const noexcept { return *Signal != nullptr && (*Signal)->IndexOf(Event) >= 0; }
    void Drop(const TEvent& Event) noexcept {
      if (*Signal != nullptr) (*Signal)->Drop(Event);
    }
  };
  // As Remove. Where memory is lacking the handler stays, and calls nothing any more.
  void Drop(const TEvent& Event) noexcept;

  std::shared_ptr<TSignal*> FSelf;  // once there was a connection; nullptr in it when the signal is gone
};

template <typename THandler>
int TSignal<THandler>::IndexOf(TEvent Event) const noexcept {
  const std::span<TObject* const> handlers = HandlerList.Items();
  for (size_t i = 0; i < handlers.size(); ++i) {
    const THandler* handler = AsHandler(handlers[i]);
    if (handler && handler->GetEvent() == Event) return static_cast<int>(i);
  }
  return -1;
}

template <typename THandler>
int TSignal<THandler>::Add(TEvent Event) {
  const int index = IndexOf(Event);
  if (index >= 0) return index;
  auto handler = std::make_unique<THandler>(Event);
  HandlerList.Insert(0, handler.get());
  (void)handler.release();  // the list has it
  return 0;
}

template <typename THandler>
void TSignal<THandler>::Remove(TEvent Event) {
  const int index = IndexOf(Event);
  if (index >= 0) HandlerList.Delete(index);
}

template <typename THandler>
template <HandlerOf<typename THandler::TEvent> F>
TConnection TSignal<THandler>::Connect(F&& Lambda) {
  if (!FSelf) FSelf = std::make_shared<TSignal*>(this);
  auto* connected =
      new detail::TConnectedLambda<TPlace, std::remove_cvref_t<F>, TEvent>(TPlace{FSelf}, std::forward<F>(Lambda));
  TConnection result(connected);
  Add(connected->GetEvent());
  return result;
}

template <typename THandler>
void TSignal<THandler>::Drop(const TEvent& Event) noexcept {
  try {
    Remove(Event);
  } catch (...) {
    const int index = IndexOf(Event);
    if (index >= 0) GetEventHandler(index)->SetEvent({THandler::Nothing, nullptr});
  }
}

class TNotifyEventHandler : public TEventHandler<TNotifyEventHandler, TNotifyEvent> {
 public:
  using TEventHandler::TEventHandler;
  String ClassName() const override { return u"TNotifyEventHandler"; }
};
class TSimpleEventHandler : public TEventHandler<TSimpleEventHandler, TSimpleEvent> {
 public:
  using TEventHandler::TEventHandler;
  String ClassName() const override { return u"TSimpleEventHandler"; }
};
class TProgressEventHandler : public TEventHandler<TProgressEventHandler, TProgressEvent> {
 public:
  using TEventHandler::TEventHandler;
  String ClassName() const override { return u"TProgressEventHandler"; }
};
class TIdEventHandler : public TEventHandler<TIdEventHandler, TIdEvent> {
 public:
  using TEventHandler::TEventHandler;
  String ClassName() const override { return u"TIdEventHandler"; }
};

class TNotifySignal : public TSignal<TNotifyEventHandler> {
 public:
  String ClassName() const override { return u"TNotifySignal"; }
  void Emit(TObject* Sender) { DoEvent(Sender); }
  void DoEvent(TObject* Sender) { Dispatch(Sender); }
};

class TSimpleSignal : public TSignal<TSimpleEventHandler> {
 public:
  String ClassName() const override { return u"TSimpleSignal"; }
  // Whether each emission frees its EventArgs at its end, also if no handler was there. If a handler throws, they
  // stay the emitter's.
  bool GetOwnsObject() const noexcept { return iOwnsObject; }
  void SetOwnsObject(bool Value) noexcept { iOwnsObject = Value; }
  using TSignal::IndexOf;
  using TSignal::Remove;
  // The same for a method whose two halves are at hand.
  int IndexOf(const TEventPointer& Event) const noexcept;
  void Remove(const TEventPointer& Event);
  void Emit(TObject* Sender, TObject* EventArgs) { DoEvent(Sender, EventArgs); }
  void DoEvent(TObject* Sender, TObject* EventArgs);

 private:
  bool iOwnsObject = false;
};

class TProgressSignal : public TSignal<TProgressEventHandler> {
 public:
  String ClassName() const override { return u"TProgressSignal"; }
  void Emit(TObject* Sender, int step, int max, bool& doStop, TObject* EventArgs) {
    DoEvent(Sender, step, max, doStop, EventArgs);
  }
  void DoEvent(TObject* Sender, int step, int max, bool& doStop, TObject* EventArgs) {
    Dispatch(Sender, step, max, doStop, EventArgs);
  }
};

class TIdSignal : public TSignal<TIdEventHandler> {
 public:
  String ClassName() const override { return u"TIdSignal"; }
  void Emit(TObject* Sender, int id) { DoEvent(Sender, id); }
  void DoEvent(TObject* Sender, int id) { Dispatch(Sender, id); }
};

}  // namespace vx
