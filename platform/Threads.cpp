#include "platform/Threads.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "platform/Clock.h"
#include "platform/MainThread.h"
#include "platform/System.h"
#include "platform/os/Threads.h"
#include "platform/os/Time.h"

namespace vx {

namespace {

std::atomic<int> SetCpuCount{0};
constinit thread_local TThread* Current = nullptr;

// Gives way to the other half of the processor's core, and leaves the memory that is watched to its writer.
void Pause() noexcept {
#if defined(__x86_64__) || defined(__i386__)
  __builtin_ia32_pause();
#endif
}

// Tells threads apart at the price of an address.
const void* Self() noexcept {
  static constinit thread_local char place = 0;
  return &place;
}

}  // namespace

int GetLogicalCpuCount() noexcept {
  const int set = SetCpuCount;
  if (set > 0) return set;
  return std::max(os::ProcessorCount(), 1);
}

int SetLogicalCpuCount(int Value) noexcept { return SetCpuCount.exchange(Value > 0 ? Value : 0); }

void TEvent::Change(unsigned On, unsigned Off) noexcept {
  {
    std::lock_guard lock(FMutex);
    FState.store((FState.load(std::memory_order_relaxed) & ~Off) | On, std::memory_order_release);
  }
  if (On != 0) FChanged.notify_all();
}

TWaitResult TEvent::WaitFor(uint32_t Milliseconds) noexcept {
  unsigned state = FState.load(std::memory_order_acquire);
  if (state == 0 && Milliseconds > 0) {
    std::unique_lock lock(FMutex);
    auto hasChanged = [&] { return (state = FState.load(std::memory_order_acquire)) != 0; };
    if (Milliseconds == kInfinite) {
      FChanged.wait(lock, hasChanged);
    } else {
      FChanged.wait_for(lock, std::chrono::milliseconds(Milliseconds), hasChanged);
    }
  }
  if ((state & kSet) != 0) return wrSignaled;
  return state != 0 ? wrAbandoned : wrTimeout;
}

bool TCriticalSection::IsHeld() const noexcept { return FOwner.load(std::memory_order_relaxed) == Self(); }

bool TCriticalSection::EnterAgain() noexcept {
  if (!IsHeld()) return false;
  ++FDepth;
  return true;
}

bool TCriticalSection::EnterFree() noexcept {
  int expected = lsFree;
  return FState.compare_exchange_strong(expected, lsHeld, std::memory_order_acquire, std::memory_order_relaxed);
}

bool TCriticalSection::TryEnter() noexcept {
  if (EnterAgain()) return true;
  if (!EnterFree()) return false;
  FOwner.store(Self(), std::memory_order_relaxed);
  return true;
}

void TCriticalSection::Enter() noexcept {
  if (EnterAgain()) return;
  constexpr int kSpins = 100;
  bool entered = EnterFree();
  for (int i = 0; i < kSpins && !entered; ++i) {
    Pause();
    if (FState.load(std::memory_order_relaxed) == lsFree) entered = EnterFree();
  }
  if (!entered) {
    while (FState.exchange(lsAwaited, std::memory_order_acquire) != lsFree) FState.wait(lsAwaited);
  }
  FOwner.store(Self(), std::memory_order_relaxed);
}

void TCriticalSection::Leave() noexcept {
  if (FDepth > 0) {
    --FDepth;
    return;
  }
  FOwner.store(nullptr, std::memory_order_relaxed);
  if (FState.exchange(lsFree, std::memory_order_release) == lsAwaited) FState.notify_one();
}

// What outlives the object if it frees itself.
struct TThread::TState {
  std::recursive_mutex Mutex;  // while it is held, the thread neither begins nor ends
  std::condition_variable_any Ended;
  std::atomic<bool> IsStarted{false};
  std::atomic<bool> IsFinished{false};
  os::TThreadId Id = 0;  // of the running thread; else 0
};

TThread::TKeep::TKeep(const TThread& Thread) : FState(Thread.FState) { FState->Mutex.lock(); }
TThread::TKeep::~TKeep() { FState->Mutex.unlock(); }

TThread::TThread(bool CreateSuspended) : FState(std::make_shared<TState>()), FCreateSuspended(CreateSuspended) {
  IsMainThread();  // who makes the first thread is the main thread, unless told otherwise
}

TThread::~TThread() {
  ExpectFinished();
  if (!FThread.joinable()) return;
  if (FThread.get_id() == std::this_thread::get_id()) {
    FThread.detach();
  } else {
    FThread.join();
  }
}

bool TThread::GetStarted() const noexcept { return FState->IsStarted; }
bool TThread::GetFinished() const noexcept { return FState->IsFinished; }
TThread* TThread::CurrentThread() noexcept { return Current; }

void TThread::Start() {
  TKeep keep(*this);
  if (FState->IsStarted) return;
  try {
    FThread = std::thread(&TThread::Run, this, FState);
  } catch (const std::system_error& error) {
    throw EThread(u"Thread creation error: " + SystemErrorText(error.code().value()));
  }
  FState->IsStarted = true;
}

void TThread::AfterConstruction() {
  if (!FCreateSuspended) Start();
}

void TThread::Terminate() {
  TKeep keep(*this);
  FTerminated.store(true, std::memory_order_release);
  TerminatedSet();
  main_thread::Wake();
}

void TThread::WaitFor() noexcept {
  if (Current == this || !GetStarted()) return;
  const std::shared_ptr<TState> state = FState;
  auto isFinished = [&] { return state->IsFinished.load(); };
  if (IsMainThread()) return (void)main_thread::DrainUntil(isFinished);
  std::unique_lock lock(state->Mutex);
  state->Ended.wait(lock, isFinished);
}

void TThread::ExpectFinished() const noexcept {
  if (Current == this || !IsRunning()) return;
  std::fputs(
      "A thread still runs while its object is destroyed: each class derived from TThread has to call Finish in "
      "its destructor.\n",
      stderr);
  std::abort();
}

void TThread::Finish() noexcept {
  if (Current == this || !IsRunning()) return;
  SetFreeOnTerminate(false);
  Terminate();
  WaitFor();
}

void TThread::Run(TThread* Self, const std::shared_ptr<TState>& State) noexcept {
  {
    std::lock_guard lock(State->Mutex);
    Current = Self;
    State->Id = os::CurrentThreadId();
    if (Self->FPriority != tpNormal) Self->ApplyPriority();
  }
  try {
    if (!Self->GetTerminated()) Self->Execute();
  } catch (...) {
    Self->FFatalException = std::current_exception();
  }
  try {
    Self->DoTerminate();
  } catch (...) {
  }
  bool isFreed;
  {
    std::lock_guard lock(State->Mutex);
    State->Id = 0;
    isFreed = Self->FFreeOnTerminate;
    State->IsFinished = true;
  }
  State->Ended.notify_all();
  if (isFreed) delete Self;
  main_thread::Wake();
}

void TThread::SetPriority(TThreadPriority Value) noexcept {
  TKeep keep(*this);
  FPriority = Value;
  ApplyPriority();
}

void TThread::ApplyPriority() noexcept {
  if (FState->Id != 0) os::SetPriority(FState->Id, FPriority);
}

bool TThread::Synchronize(FunctionRef<void()> Method) {
  if (Current == nullptr) return main_thread::Run(Method, nullptr, nullptr);
  return main_thread::Run(Method, &Current->FTerminated, &Current->FGaveUp);
}

void TThread::Queue(std::function<void()> Method) { main_thread::Enqueue(std::move(Method)); }

TLazyTicks::TLazyTicks() noexcept : FIsSystem(&GetClock() == &SystemClock()) {}

int64_t TLazyTicks::Read() noexcept {
  if (!FIsSystem) return GetTickCount();
  const int64_t coarse = os::CoarseTicks();
  if (coarse != FCoarse) {
    FCoarse = coarse;
    FTicks = GetTickCount();
  }
  return FTicks;
}

}  // namespace vx
