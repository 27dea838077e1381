// Handlers from lambdas, whose life is bound to an object.
//
//   TConnection     a handler that is heard for as long as this lives
//   TConnections    several of them
//   ConnectEvent    a lambda as the handler of an event that is a Method
//
// Example:
//   struct TBell { vx::TNotifyEvent OnRing; };
//   TBell bell;
//   int rings = 0;
//   {
//     vx::TConnection heard = vx::ConnectEvent(bell.OnRing, [&] { ++rings; });
//     bell.OnRing(nullptr);
//   }
//   rings;                     // 1
//   bool(bell.OnRing);         // false
//
// Signals give connections by Connect (services/uVxEvents.h). A lambda takes the arguments of the event, or none.
//
// A handler may do with its connection what it likes while it runs, end it too: the lambda and what it has captured
// live until it returns.
//
// Threads: a connection belongs to the thread of the signal or event that it stands for.
//
// Pitfalls:
//   - The result of Connect and ConnectEvent is the life of the handler: dropped, it is heard of no more.
//   - As a member, a connection stands behind what its lambda uses, so that it ends first.
//   - A signal may go before its connections. The object of an event must not.
#pragma once

#include <concepts>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/Method.h"

namespace vx {

namespace detail {

// A handler with the place where it is heard; frees itself once nobody holds it and it doesn't run.
class TConnected {
 public:
  TConnected() noexcept = default;
  TConnected(const TConnected&) = delete;
  TConnected& operator=(const TConnected&) = delete;
  virtual bool IsHeard() const noexcept = 0;
  void Leave() noexcept {
    Drop();
    FIsLeft = true;
    if (FRunning == 0) delete this;
  }

 protected:
  virtual ~TConnected() = default;
  virtual void Drop() noexcept = 0;

  class TRun {
   public:
    explicit TRun(TConnected& Self) noexcept : FSelf(Self) { ++FSelf.FRunning; }
    ~TRun() {
      if (--FSelf.FRunning == 0 && FSelf.FIsLeft) delete &FSelf;
    }
    TRun(const TRun&) = delete;
    TRun& operator=(const TRun&) = delete;

   private:
    TConnected& FSelf;
  };

 private:
  int FRunning = 0;
  bool FIsLeft = false;
};

// TPlace has Has(event) and Drop(event), both noexcept.
template <typename TPlace, typename F, typename TEvent>
class TConnectedLambda;
template <typename TPlace, typename F, typename R, typename... Args>
class TConnectedLambda<TPlace, F, Method<R(Args...)>> final : public TConnected {
 public:
  using TEvent = Method<R(Args...)>;
  TConnectedLambda(TPlace Place, F Lambda) : FPlace(std::move(Place)), FLambda(std::move(Lambda)) {}
  TEvent GetEvent() noexcept { return {&Call, this}; }
  bool IsHeard() const noexcept override {
    return FPlace.Has(TEvent{&Call, const_cast<void*>(static_cast<const void*>(this))});
  }

 private:
  ~TConnectedLambda() override = default;
  void Drop() noexcept override { FPlace.Drop(GetEvent()); }
  static R Call(void* Data, Args... Arguments) {
    auto& self = *static_cast<TConnectedLambda*>(Data);
    const TRun run(self);
    if constexpr (std::is_invocable_r_v<R, F&, Args...>) {
      return self.FLambda(std::forward<Args>(Arguments)...);
    } else {
      return self.FLambda();
    }
  }

  TPlace FPlace;
  F FLambda;
};

}  // namespace detail

// What can be the handler of an event: it takes the event's arguments, or none.
template <typename F, typename TEvent>
inline constexpr bool IsHandlerOf = false;
template <typename F, typename R, typename... Args>
inline constexpr bool IsHandlerOf<F, Method<R(Args...)>> =
    std::is_invocable_r_v<R, F&, Args...> || std::is_invocable_r_v<R, F&>;
template <typename F, typename TEvent>
concept HandlerOf = IsHandlerOf<std::remove_cvref_t<F>, TEvent>;

// Holds a handler, or none. Its end, Disconnect and the assignment of another one disconnect it.
class [[nodiscard]] TConnection {
 public:
  TConnection() noexcept = default;
  // For whoever makes connections: takes over what comes from new.
  explicit TConnection(detail::TConnected* Connected) noexcept : FConnected(Connected) {}
  TConnection(TConnection&& Other) noexcept : FConnected(std::exchange(Other.FConnected, nullptr)) {}
  TConnection& operator=(TConnection&& Other) noexcept {
    TConnection taken(std::move(Other));
    std::swap(FConnected, taken.FConnected);
    return *this;
  }
  ~TConnection() { Disconnect(); }

  // Whether the handler is still heard: false also once the signal is gone, or its list was cleared. Linear in the
  // handlers of the signal.
  bool IsConnected() const noexcept { return FConnected != nullptr && FConnected->IsHeard(); }
  // The handler is not called any more, and its lambda is freed; one that runs at the moment ends first.
  void Disconnect() noexcept {
    if (detail::TConnected* connected = std::exchange(FConnected, nullptr)) connected->Leave();
  }

 private:
  detail::TConnected* FConnected = nullptr;
};

// Connections that end together, the latest one first. Those whose signal is gone stay until then.
class TConnections {
 public:
  TConnections() noexcept = default;
  TConnections(TConnections&&) noexcept = default;
  TConnections& operator=(TConnections&& Other) noexcept {
    TConnections taken(std::move(Other));
    FItems.swap(taken.FItems);
    return *this;
  }
  ~TConnections() { Disconnect(); }

  void Add(TConnection Connection) { FItems.push_back(std::move(Connection)); }
  int GetCount() const noexcept { return static_cast<int>(FItems.size()); }
  void Disconnect() noexcept {
    while (!FItems.empty()) {
      const TConnection last = std::move(FItems.back());
      FItems.pop_back();
    }
  }

 private:
  std::vector<TConnection> FItems;
};

namespace detail {

template <typename TEvent>
struct TEventField {
  TEvent* Event;
  bool Has(const TEvent& Value) const noexcept { return *Event == Value; }
  void Drop(const TEvent& Value) noexcept {
    if (*Event == Value) *Event = nullptr;
  }
};

template <typename T, typename TEvent, typename TGet, typename TSet>
struct TEventProperty {
  T* Object;
  TGet Get;
  TSet Set;
  bool Has(const TEvent& Value) const noexcept { return (Object->*Get)() == Value; }
  void Drop(const TEvent& Value) noexcept {
    if ((Object->*Get)() == Value) (Object->*Set)(TEvent());
  }
};

}  // namespace detail

// Makes Lambda the handler of an event, in the place of the one that stood there. With the connection the event
// becomes empty, unless it has another handler by then. Event has to outlive the connection.
template <typename TSignature, HandlerOf<Method<TSignature>> F>
TConnection ConnectEvent(Method<TSignature>& Event, F&& Lambda) {
  using TPlace = detail::TEventField<Method<TSignature>>;
  auto* connected = new detail::TConnectedLambda<TPlace, std::remove_cvref_t<F>, Method<TSignature>>(
      TPlace{&Event}, std::forward<F>(Lambda));
  Event = connected->GetEvent();
  return TConnection(connected);
}

// The same for an event that is read and set:
//   ConnectEvent(item, &TMenuItem::GetOnClick, &TMenuItem::SetOnClick, [&] { ... })
// What Set raises goes to the caller, and then nothing is connected; where the connection ends it must not raise.
template <typename T, typename TEvent, typename TBase, typename TSet, HandlerOf<TEvent> F>
TConnection ConnectEvent(T& Object, const TEvent& (TBase::*Get)() const noexcept, TSet Set, F&& Lambda) {
  using TPlace = detail::TEventProperty<T, TEvent, decltype(Get), TSet>;
  auto* connected = new detail::TConnectedLambda<TPlace, std::remove_cvref_t<F>, TEvent>(TPlace{&Object, Get, Set},
                                                                                         std::forward<F>(Lambda));
  TConnection result(connected);
  (Object.*Set)(connected->GetEvent());
  return result;
}

}  // namespace vx
