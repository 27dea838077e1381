// A value that several threads may note and read at once, with no order between them.
#pragma once

#include <atomic>

namespace vx {

// For what const members remember only to be faster or to tell where they were last. Costs what a plain value costs.
// Pitfall: of two changes at once, such as value = value + 1, one may get lost.
template <typename T>
class TRelaxed {
 public:
  TRelaxed(T Value) noexcept : FValue(Value) {}
  operator T() const noexcept { return FValue.load(std::memory_order_relaxed); }
  T operator=(T Value) noexcept {
    FValue.store(Value, std::memory_order_relaxed);
    return Value;
  }

 private:
  std::atomic<T> FValue;
};

}  // namespace vx
