// One value of the program that is made at its first use and can be freed and made again.
//
//   TLazy<T>   holds it
//
// Example:
//   constinit vx::TLazy<TPrices> Prices;
//   double Price(int Article) { return Prices.Get().Of(Article); }
//   void FreePrices() noexcept { Prices.Free(); }
//
// Any number of threads may ask at once, also for the first time; the value has no lock of its own. At the end of the
// program values are freed in the opposite order of their making, unless they stay. Pitfalls: what makes a value must
// not ask for it; nobody may use it while it is freed; a value that is asked for behind its end is made again, and
// stays.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>

namespace vx {

namespace detail {

// What is freed when the program ends.
struct TAtEnd {
  void (*Free)(TAtEnd& Self) noexcept = nullptr;
  TAtEnd* Before = nullptr;
};
void FreeAtEnd(TAtEnd& Held) noexcept;

}  // namespace detail

enum TLazyEnd : bool {
  leFreed,  // with the program
  leStays   // never, as others may need it to the very last
};

// To be a global constant-initialised object.
template <typename T, TLazyEnd kEnd = leFreed>
class TLazy : private detail::TAtEnd {
 public:
  constexpr TLazy() noexcept = default;
  TLazy(const TLazy&) = delete;
  TLazy& operator=(const TLazy&) = delete;

  // The value; Make gives a std::unique_ptr to it if there is none yet. What Make raises leaves none.
  template <typename F>
  T& Get(F&& Make) {
    T* value = FValue.load(std::memory_order_acquire);
    return value != nullptr ? *value : GetMade(Make);
  }
  T& Get() {
    return Get([] { return std::make_unique<T>(); });
  }
  // Frees the value, if there is one; the next Get, even by its destructor, makes another.
  void Free() noexcept { delete FValue.exchange(nullptr, std::memory_order_acq_rel); }

 private:
  template <typename F>
  T& GetMade(F& Make) {
    std::lock_guard lock(FMutex);
    T* value = FValue.load(std::memory_order_relaxed);
    if (value != nullptr) return *value;
    if (kEnd == leFreed && TAtEnd::Free == nullptr) {
      TAtEnd::Free = [](TAtEnd& Self) noexcept { static_cast<TLazy&>(Self).Free(); };
      detail::FreeAtEnd(*this);
    }
    value = Make().release();
    FValue.store(value, std::memory_order_release);
    return *value;
  }

  std::mutex FMutex;
  std::atomic<T*> FValue{nullptr};
};

}  // namespace vx
