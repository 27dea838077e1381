#include "services/uThreadPool/TThreadJob.h"

#include "platform/Clock.h"
#include "platform/Threads.h"
#include "services/uThreadPool/TPoolTask.h"

namespace vx {

namespace {

constexpr int kAhead = 2;  // jobs that are fetched from memory before their turn

}  // namespace

void TThreadJob::ExecuteBegin() noexcept { iTicks = static_cast<uint32_t>(GetTickCount()); }

void TThreadJob::ExecuteEnd() noexcept { iTicks = static_cast<uint32_t>(GetTickCount()) - iTicks; }

void TThreadJob::Execute(TThreadData& data) {
  ExecuteBegin();
  doExecute(data);
  ExecuteEnd();
}

void TThreadJob::ExecuteCaught(TThreadData& data) noexcept {
  ExecuteBegin();
  doExecuteCaught(data);
  ExecuteEnd();
}

void TThreadJob::doExecuteCaught(TThreadData& data) noexcept {
  if (FHasFailed) {
    FHasFailed = false;
    FError = nullptr;
  }
  try {
    doExecute(data);
  } catch (...) {
    FError = std::current_exception();
    FHasFailed = true;
  }
}

TThreadJobList::~TThreadJobList() { Drop(0); }

void TThreadJobList::Take(TThreadQueue& queue, int count) {
  SetCount(count);
  for (int i = 0; i < count; ++i) iList[i] = queue.Pop();
}

void TThreadJobList::Drop(int kept) {
  for (int i = kept; i < GetCount() && GetOwnsObjects(); ++i) delete &At(i);
  iList.SetCount(kept);
}

void TThreadJobs::Add(TThreadJob* job) {
  if (job != nullptr) iList.Add(job);
}

// Where one job ends the next one begins, so that a short job costs one look at the clock, and a cheap one.
void TThreadJobs::doExecute(TThreadData& data) {
  TLazyTicks ticks;
  auto begin = static_cast<uint32_t>(ticks.Read());
  const int count = GetCount();
  for (int i = 0; i < count; ++i) {
    if (detail::TCancelScope::IsCanceled()) return iList.Drop(i);
    if (i + kAhead < count) __builtin_prefetch(&iList.At(i + kAhead), 1);
    TThreadJob& job = iList.At(i);
    job.iTicks = begin;
    job.doExecuteCaught(data);
    const auto end = static_cast<uint32_t>(ticks.Read());
    job.iTicks = end - begin;
    begin = end;
    if (job.FHasFailed) FHasFailed = true;
  }
}

void TThreadQueue::Clear() {
  while (TThreadJob* job = Pop()) delete job;
}

}  // namespace vx
