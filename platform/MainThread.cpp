#include "platform/MainThread.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <limits>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/Hook.h"
#include "platform/Threads.h"

namespace vx {

namespace {

// What a thread waits for.
struct TCall {
  FunctionRef<void()> Method;
  bool IsRunning = false;
  bool IsDone = false;
  std::exception_ptr Error{};
  const TThread* Caller = TThread::CurrentThread();
  const TCall* Outer = nullptr;  // in whose run this one runs
};

struct TEntry {
  uint64_t Number;
  std::function<void()> Method;  // if there is no Call
  TCall* Call;
};

struct TMainQueue {
  std::mutex Mutex;
  std::condition_variable Changed;
  std::deque<TEntry> Entries;
  std::deque<std::exception_ptr> Raised;  // by methods that ran where nothing may be raised
  uint64_t NextNumber = 0;
  THook<std::function<void()>> WakeHook;
  std::atomic<std::thread::id> Main{};
  const TCall* Served = nullptr;  // the innermost one that runs; the main thread's own
};

// Threads may hand over until the very end of the program.
TMainQueue& MainQueue() {
  static TMainQueue& queue = *new TMainQueue;
  return queue;
}

// How long a thread that was terminated goes on waiting for the main thread.
constexpr auto kGrace = std::chrono::seconds(1);

void Push(TMainQueue& Queue, std::function<void()> Method, TCall* Call) {
  {
    std::lock_guard lock(Queue.Mutex);
    Queue.Entries.push_back({Queue.NextNumber, std::move(Method), Call});
    ++Queue.NextNumber;
  }
  Queue.Changed.notify_all();
  if (auto wake = Queue.WakeHook.Get()) (*wake)();
}

void RunCall(TMainQueue& Queue, TCall& Call) noexcept {
  Call.Outer = std::exchange(Queue.Served, &Call);
  try {
    Call.Method();
  } catch (...) {
    Call.Error = std::current_exception();
  }
  Queue.Served = Call.Outer;
  {
    std::lock_guard lock(Queue.Mutex);
    Call.IsDone = true;
  }
  Queue.Changed.notify_all();
}

// Runs the oldest entry if its number is below Limit.
bool RunOne(TMainQueue& Queue, uint64_t Limit) {
  TEntry entry;
  {
    std::lock_guard lock(Queue.Mutex);
    if (Queue.Entries.empty() || Queue.Entries.front().Number >= Limit) return false;
    entry = std::move(Queue.Entries.front());
    Queue.Entries.pop_front();
    if (entry.Call != nullptr) entry.Call->IsRunning = true;
  }
  if (entry.Call != nullptr) {
    RunCall(Queue, *entry.Call);
  } else {
    entry.Method();
  }
  return true;
}

}  // namespace

bool IsMainThread() noexcept {
  std::atomic<std::thread::id>& main = MainQueue().Main;
  const std::thread::id self = std::this_thread::get_id();
  std::thread::id known = main.load();
  if (known != std::thread::id()) return known == self;
  if (TThread::CurrentThread() != nullptr) return false;
  return main.compare_exchange_strong(known, self) || known == self;
}

void SetMainThread() noexcept { MainQueue().Main = std::this_thread::get_id(); }

bool CheckSynchronize(int Timeout) {
  if (!IsMainThread()) return false;
  TMainQueue& queue = MainQueue();
  uint64_t limit;
  {
    std::unique_lock lock(queue.Mutex);
    if (!queue.Raised.empty()) {
      std::exception_ptr error = std::move(queue.Raised.front());
      queue.Raised.pop_front();
      lock.unlock();
      std::rethrow_exception(error);
    }
    auto isWaiting = [&] { return !queue.Entries.empty(); };
    if (Timeout < 0) queue.Changed.wait(lock, isWaiting);
    if (Timeout > 0) queue.Changed.wait_for(lock, std::chrono::milliseconds(Timeout), isWaiting);
    limit = queue.NextNumber;
  }
  bool result = false;
  while (RunOne(queue, limit)) result = true;
  return result;
}

std::function<void()> SetWakeMainThread(std::function<void()> Wake) {
  return MainQueue().WakeHook.Exchange(std::move(Wake));
}

namespace main_thread {

bool Run(FunctionRef<void()> Method, const std::atomic<bool>* Terminated, bool* GaveUp) {
  if (IsMainThread()) {
    Method();
    return true;
  }
  if (GaveUp != nullptr && *GaveUp) return false;
  TMainQueue& queue = MainQueue();
  TCall call{Method};
  Push(queue, {}, &call);
  {
    std::unique_lock lock(queue.Mutex);
    queue.Changed.wait(lock, [&] { return call.IsRunning || (Terminated != nullptr && *Terminated); });
    if (!call.IsRunning) queue.Changed.wait_for(lock, kGrace, [&] { return call.IsRunning; });
    if (!call.IsRunning) {
      std::erase_if(queue.Entries, [&](const TEntry& entry) { return entry.Call == &call; });
      *GaveUp = true;
      return false;
    }
    queue.Changed.wait(lock, [&] { return call.IsDone; });
  }
  if (call.Error) std::rethrow_exception(call.Error);
  return true;
}

void Enqueue(std::function<void()> Method) {
  if (Method) Push(MainQueue(), std::move(Method), nullptr);
}

bool DrainUntil(FunctionRef<bool()> IsOver, int64_t Timeout) noexcept {
  TMainQueue& queue = MainQueue();
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(std::max(Timeout, int64_t{0}));
  while (true) {
    {
      std::unique_lock lock(queue.Mutex);
      auto hasCome = [&] { return IsOver() || !queue.Entries.empty(); };
      if (Timeout < 0) {
        queue.Changed.wait(lock, hasCome);
      } else if (!queue.Changed.wait_until(lock, end, hasCome)) {
        return false;
      }
      if (IsOver()) return true;
    }
    try {
      RunOne(queue, std::numeric_limits<uint64_t>::max());
    } catch (...) {
      std::lock_guard lock(queue.Mutex);
      queue.Raised.push_back(std::current_exception());
    }
  }
}

bool IsServing(FunctionRef<bool(const TThread* Thread)> IsMeant) {
  if (!IsMainThread()) return false;
  for (const TCall* call = MainQueue().Served; call != nullptr; call = call->Outer) {
    if (IsMeant(call->Caller)) return true;
  }
  return false;
}

void Wake() noexcept {
  TMainQueue& queue = MainQueue();
  { std::lock_guard lock(queue.Mutex); }
  queue.Changed.notify_all();
}

}  // namespace main_thread

}  // namespace vx
