#include "services/uThreadPool/detail/PoolLoop.h"

#include <algorithm>
#include <chrono>

#include "services/uThreadPool/TPoolProgress.h"

namespace vx::detail {

namespace {

using TSteady = std::chrono::steady_clock;

constexpr int64_t kPiece = 50000;  // ns; taking one costs less than a hundredth of it
constexpr uint64_t kGrowth = 4;    // of a piece from one to the next at most
constexpr uint64_t kShare = 2;     // a piece is at most this part of what each thread still has to do

// How many items the next piece should have, if the last one had Count.
uint64_t NextPiece(uint64_t Count, int64_t Nanoseconds) noexcept {
  if (Nanoseconds * static_cast<int64_t>(kGrowth) <= kPiece) return Count * kGrowth;
  const double wanted = static_cast<double>(Count) * static_cast<double>(kPiece) / static_cast<double>(Nanoseconds);
  return std::max(static_cast<uint64_t>(wanted), uint64_t{1});
}

}  // namespace

uint64_t TPoolLoop::Take(uint64_t Wanted, uint64_t& From) noexcept {
  From = FNext.load(std::memory_order_relaxed);
  while (From < FCount) {
    const uint64_t left = FCount - From;
    const uint64_t count = std::min(Wanted, std::max(left / (static_cast<uint64_t>(FThreads) * kShare), uint64_t{1}));
    if (FNext.compare_exchange_weak(From, From + count, std::memory_order_relaxed)) return count;
  }
  return 0;
}

void TPoolLoop::Work(int Slot) noexcept {
  const TCancelScope byPool(FCancels, FSeen), byLoop(FBreaks, 0);
  uint64_t wanted = 1, from = 0, done = 0;
  try {
    auto begin = TSteady::now();
    while (!TCancelScope::IsCanceled()) {
      const uint64_t count = Take(wanted, from);
      if (count == 0) break;
      FRun(from, from + count, Slot);
      done += count;
      const auto end = TSteady::now();
      wanted = NextPiece(count, std::chrono::nanoseconds(end - begin).count());
      begin = end;
      if (FProgress == nullptr) continue;
      FProgress->Advance(static_cast<int64_t>(count));
      if (FProgress->IsStopped()) Break(nullptr);
    }
    // Cancelled from outside in one thread: the others need not see it by themselves.
    if (TCancelScope::IsCanceled()) Break(nullptr);
  } catch (...) {
    Break(std::current_exception());
  }
  FDone += done;
}

void TPoolLoop::Break(std::exception_ptr Error) noexcept {
  FBreaks = 1;
  if (!Error) return;
  std::lock_guard lock(FMutex);
  if (!FError) FError = std::move(Error);
}

bool TPoolLoop::Finish() {
  if (FError) std::rethrow_exception(FError);
  return FDone == FCount;
}

}  // namespace vx::detail
