#include "services/uThreadPool/TPoolTask.h"

#include "platform/MainThread.h"
#include "services/uThreadPool/TThreadData.h"

namespace vx::detail {

namespace {

constinit thread_local const TCancelScope* Innermost = nullptr;

}  // namespace

TCancelScope::TCancelScope(const std::atomic<uint32_t>& Count, uint32_t Seen) noexcept
    : FCount(Count), FSeen(Seen), FOuter(std::exchange(Innermost, this)) {}

TCancelScope::~TCancelScope() { Innermost = FOuter; }

bool TCancelScope::IsCanceled() noexcept {
  for (const TCancelScope* scope = Innermost; scope != nullptr; scope = scope->FOuter) {
    if (scope->FCount.load(std::memory_order_relaxed) != scope->FSeen) return true;
  }
  return false;
}

bool WaitServing(TEvent& Event, uint32_t Milliseconds) noexcept {
  if (!IsMainThread()) return Event.WaitFor(Milliseconds) == wrSignaled;
  return main_thread::DrainUntil([&] { return Event.IsSet(); }, Milliseconds == kInfinite ? -1 : int64_t{Milliseconds});
}

TTaskState::~TTaskState() {
  if (!FError || FIsAsked) return;
  try {
    ReportInMainThread(FError, u"TPoolTask");
  } catch (...) {
  }
}

bool TTaskState::TryRun() noexcept {
  TStage expected = tsWaiting;
  if (!FStage.compare_exchange_strong(expected, tsRunning)) return false;
  FRunner = std::this_thread::get_id();
  FThread = TThread::CurrentThread();
  try {
    const TCancelScope scope(FCancels, 0);
    Run();
  } catch (...) {
    FError = std::current_exception();
  }
  FThread = nullptr;
  FRunner = std::thread::id();
  End(tsEnded);
  return true;
}

void TTaskState::Cancel() noexcept {
  FCancels = 1;
  TStage expected = tsWaiting;
  if (FStage.compare_exchange_strong(expected, tsCanceled)) End(tsCanceled);
}

void TTaskState::End(TStage Stage) noexcept {
  FStage = Stage;
  FEnded.SetEvent();
  main_thread::Wake();
}

bool TTaskState::Wait(uint32_t Milliseconds) {
  if (IsEnded()) return true;
  if (Milliseconds == kInfinite && TryRun()) return true;
  const bool isSelf = FRunner.load() == std::this_thread::get_id();
  if (isSelf || main_thread::IsServing([&](const TThread* thread) { return thread && thread == FThread; })) {
    throw EThreadPool(u"A task can't wait for itself");
  }
  return WaitServing(FEnded, Milliseconds);
}

void TTaskState::Ask() {
  if (FStage == tsCanceled) throw ECanceled(u"The task was cancelled before it began");
  FIsAsked = true;
  if (FError) std::rethrow_exception(FError);
}

}  // namespace vx::detail
