#include "services/uThreadPool/TPoolProgress.h"

#include <atomic>
#include <limits>

#include "platform/Clock.h"
#include "platform/MainThread.h"
#include "platform/Threads.h"

namespace vx {

// What an emission that waits for the main thread still finds if the progress is gone.
struct TPoolProgress::TState {
  TPoolProgress* Owner = nullptr;  // the main thread's own
  std::atomic<int64_t> Step{0}, Max{0}, Shown{-1};
  std::atomic<int64_t> NextTicks{std::numeric_limits<int64_t>::min()};
  std::atomic<bool> IsQueued{false}, IsStopped{false};
};

TPoolProgress::TPoolProgress(TObject* Sender, uint32_t Interval)
    : FState(std::make_shared<TState>()), FSender(Sender), FInterval(Interval) {
  FState->Owner = this;
}

TPoolProgress::~TPoolProgress() { FState->Owner = nullptr; }

int64_t TPoolProgress::GetStep() const noexcept { return FState->Step; }
int64_t TPoolProgress::GetMax() const noexcept { return FState->Max; }
bool TPoolProgress::IsStopped() const noexcept { return FState->IsStopped; }

void TPoolProgress::Begin(int64_t Max) noexcept {
  FState->Step = 0;
  FState->Max = Max;
  FState->Shown = -1;
  FState->IsStopped = false;
  FState->NextTicks = std::numeric_limits<int64_t>::min();
}

bool TPoolProgress::IsDue(int64_t Step) const noexcept {
  return Step == FState->Max || GetTickCount() >= FState->NextTicks.load(std::memory_order_relaxed);
}

void TPoolProgress::Advance(int64_t Steps) {
  const int64_t step = FState->Step += Steps;
  if (!IsDue(step)) return;
  if (IsMainThread()) return Emit();
  if (FState->IsQueued.exchange(true)) return;
  try {
    TThread::Queue([state = FState] {
      state->IsQueued = false;
      if (state->Owner != nullptr) state->Owner->Emit();
    });
  } catch (...) {
    FState->IsQueued = false;
    throw;
  }
}

void TPoolProgress::Flush() {
  if (IsMainThread() && FState->Step != 0) Emit();
}

void TPoolProgress::Emit() {
  FState->NextTicks = GetTickCount() + FInterval;
  int64_t step = FState->Step, max = FState->Max;
  if (FState->Shown.exchange(step) == step) return;
  for (; max > std::numeric_limits<int>::max(); max /= 2) step /= 2;
  bool isStopped = IsStopped();
  FSignal.Emit(FSender, static_cast<int>(step), static_cast<int>(max), isStopped, nullptr);
  if (isStopped) FState->IsStopped = true;
}

}  // namespace vx
