// A bound method: an object and one of its member functions.
//
//   Method<R(Args...)>   the type of events
//   TNotifyEvent         the event that tells of its sender alone
//
// Example:
//   vx::TNotifyEvent changed = vx::TNotifyEvent::Of<&TForm::Changed>(form);
//   if (changed) changed(sender);
//
// The object stays the caller's and has to live as long as the method is called. A function that belongs to
// no object is taken by Of as well: Of<&LogChange>().
//
// Threads: copies go anywhere; whether the function may be called in several threads is its object's affair.
//
// Pitfall: an empty method must not be called.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

namespace vx {

class TObject;

template <typename Signature>
class Method;

// Two pointers, copied freely. Equal are methods of the same function and the same object.
template <typename R, typename... Args>
class Method<R(Args...)> {
 public:
  using TCode = R (*)(void* Data, Args...);

  constexpr Method() noexcept = default;
  constexpr Method(std::nullptr_t) noexcept {}
  // The two halves of a method, as GetCode and GetData gave them.
  constexpr Method(TCode Code, void* Data) noexcept : FCode(Code), FData(Data) {}

  // The member function Function of Object, or a free function.
  template <auto Function, typename TSelf>
  static constexpr Method Of(TSelf& Object) noexcept {
    return Method([](void* data,
                     Args... args) -> R { return (static_cast<TSelf*>(data)->*Function)(std::forward<Args>(args)...); },
                  const_cast<std::remove_const_t<TSelf>*>(&Object));
  }
  template <auto Function>
  static constexpr Method Of() noexcept {
    return Method([](void*, Args... args) -> R { return Function(std::forward<Args>(args)...); }, nullptr);
  }

  R operator()(Args... Arguments) const { return FCode(FData, std::forward<Args>(Arguments)...); }
  explicit constexpr operator bool() const noexcept { return FCode != nullptr; }
  constexpr TCode GetCode() const noexcept { return FCode; }
  constexpr void* GetData() const noexcept { return FData; }
  friend constexpr bool operator==(const Method& A, const Method& B) noexcept = default;

 private:
  TCode FCode = nullptr;
  void* FData = nullptr;
};

using TNotifyEvent = Method<void(TObject* Sender)>;

}  // namespace vx
