// A function of the program that the application may replace.
//
//   THook<F>   holds a std::function; empty stands for the library's own way
//
// Example:
//   vx::THook<vx::TDialogSink> hook;
//   if (auto sink = hook.Get()) return (*sink)(dialog);
//
// Any thread may read and replace. What Get gave stays callable after a replacement, and it is
// called outside the lock, so that the function may itself replace the hook.
#pragma once

#include <memory>
#include <mutex>
#include <utility>

namespace vx {

template <typename F>
class THook {
 public:
  // The function set; null if it is empty.
  std::shared_ptr<const F> Get() const {
    std::lock_guard lock(FMutex);
    return FFunction;
  }
  // Sets Function and returns the one set before.
  F Exchange(F Function) {
    std::shared_ptr<const F> held = Function ? std::make_shared<const F>(std::move(Function)) : nullptr;
    {
      std::lock_guard lock(FMutex);
      held.swap(FFunction);
    }
    return held ? *held : F();
  }

 private:
  mutable std::mutex FMutex;
  std::shared_ptr<const F> FFunction;
};

}  // namespace vx
