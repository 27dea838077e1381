#include "services/uThreadPool/TThreadPool.h"

#include <algorithm>
#include <utility>

#include "platform/Clock.h"

namespace vx {

namespace {

constexpr uint32_t kRoundTicks = 10;
constexpr int kLargestSpare = 64;  // jobs

uint32_t Ticks() { return static_cast<uint32_t>(GetTickCount()); }

// Of a pool without an application's.
class TPlainData final : public TThreadData {
 public:
  explicit TPlainData(int Threads) {
    if (Threads > 0) iThreadCount = Threads;
  }
  void Done(TThreadJob* job, TThreadQueue& queue, int doing) override {
    TThreadData::Done(job, queue, doing);
    delete job;
  }
  bool HaveToSync() override { return false; }
  void Synchronize() override {}
};

}  // namespace

TThreadWorker::TThreadWorker(TThreadData& data, TThreadPoolExchange exchange)
    : TVxThread(true), iData(data), iExchange(exchange) {}

TThreadWorker::~TThreadWorker() {
  Finish();
  delete iJob;
}

void TThreadWorker::Stop() {
  TVxThread::Stop();
  FWake.SetEvent();
}

void TThreadWorker::TerminatedSet() noexcept {
  TVxThread::TerminatedSet();
  FWake.Abandon();
}

void TThreadWorker::doExecute() {
  iExchange(iJob);
  if (iJob == nullptr) {
    if (FPool == nullptr) return (void)Sleep(kRoundTicks);
    return FPool->HelpOrRest(*this);
  }
  if (FPool == nullptr) return iJob->ExecuteCaught(iData);
  const detail::TCancelScope scope(FPool->FCancels, FCancels);
  iJob->ExecuteCaught(iData);
}

TThreadPool::TThreadPool(TThreadData& data, bool suspended) : TVxThread(suspended), iData(data) {
  {
    TCriticalSectionLock lock(iCritical);
    iData.GetFirst(iToDo);
  }
  for (int i = 0; i < iData.GetThreadCount(); ++i) {
    iThreads.push_back(std::make_unique<TThreadWorker>(iData, TThreadPoolExchange::Of<&TThreadPool::Exchange>(*this)));
    iThreads.back()->FPool = this;
  }
  FHasWorkers = !iThreads.empty();
  FLoopThreads = std::max(iData.GetThreadCount(), 1);
  FEnding.reserve(iThreads.size());  // the end needs no memory
  AfterConstruction();
}

TThreadPool::TThreadPool(int Threads) : TThreadPool(std::make_unique<TPlainData>(Threads)) {}

TThreadPool::TThreadPool(std::unique_ptr<TThreadData> data) : TThreadPool(*data, true) {
  FOwnData = std::move(data);
  Start();
}

TThreadPool::~TThreadPool() {
  ThreadsDestroy(false);
  Finish();
  for (auto& task : FTasks) task->Cancel();
}

void TThreadPool::Add(TThreadJob* job) {
  if (job == nullptr) return;
  TCriticalSectionLock lock(iCritical);
  iToDo.Push(job);
  iData.Added(iToDo, iDoing);
}

void TThreadPool::Start() {
  TVxThread::Start();
  ThreadsStart();
}

void TThreadPool::Stop() {
  ThreadsStop();
  TVxThread::Stop();
  TellWaiters();
}

void TThreadPool::Terminate() {
  ThreadsDestroy(false);
  TVxThread::Terminate();
}

void TThreadPool::ThreadsDestroy(bool terminateOnly) {
  TWorkers ended;
  {
    std::lock_guard lock(FControl);
    iThreadsOn = false;
    FHasWorkers = false;
    for (auto& worker : iThreads) FEnding.push_back(std::move(worker));
    iThreads.clear();
    for (auto& worker : FEnding) {
      // A job that ends its own pool: the worker goes when the job has ended.
      const bool isSelf = worker.get() == CurrentThread();
      worker->SetFreeOnTerminate(isSelf);
      if (worker->GetStarted()) worker->Terminate();
      if (isSelf) (void)worker.release();  // frees itself
    }
    std::erase(FEnding, nullptr);
    if (!terminateOnly) ended.swap(FEnding);
  }
  TellWaiters();
}

void TThreadPool::Exchange(TThreadJob*& job) noexcept {
  // Made before the lock is taken, which is to be held for short.
  std::unique_ptr<TThreadJobs> batch = NewBatch();
  TCriticalSectionLock lock(iCritical);
  try {
    if (TThreadJob* ended = std::exchange(job, nullptr)) {
      --iDoing;
      if (ended->FHasFailed) ReportFailures(*ended);
      iData.Done(ended, iToDo, iDoing);
    }
  } catch (...) {
    ReportFailure(nullptr, std::current_exception());
  }
  const bool hasOther = !FTasks.empty() || FLoops != nullptr;
  FIsJobsTurn = !hasOther || !FIsJobsTurn;
  if (!FIsJobsTurn) return TellIfDone();
  try {
    job = TakeNext(batch);
  } catch (...) {
    ReportFailure(nullptr, std::current_exception());
  }
  if (job != nullptr) static_cast<TThreadWorker*>(CurrentThread())->FCancels = FCancels;
  TellIfDone();
}

// Workers read it outside of the lock, so it is left alone where it can be.
void TThreadPool::SetBatchSize(int Value) noexcept {
  if (FBatchSize != Value) FBatchSize = Value;
}

std::unique_ptr<TThreadJobs> TThreadPool::NewBatch() noexcept {
  const int size = FBatchSize;
  if (size == 0) return nullptr;
  try {
    auto batch = std::make_unique<TThreadJobs>();
    batch->iList.SetCapacity(size);
    return batch;
  } catch (...) {
    return nullptr;
  }
}

TThreadJob* TThreadPool::TakeNext(std::unique_ptr<TThreadJobs>& batch) {
  const int waiting = iToDo.GetCount();
  if (waiting == 0) return nullptr;
  const int64_t count = iData.GetTicksWork() / int64_t{std::max(iData.GetTicks().Average(), uint32_t{1})} + 1;
  if (count == 1) {
    SetBatchSize(0);
    ++iDoing;
    return iToDo.Pop();
  }
  const int taken = static_cast<int>(std::min({count, int64_t{waiting}, int64_t{TVxObjects::kLimit} - 1}));
  if (!batch) batch = std::make_unique<TThreadJobs>();
  SetBatchSize(std::min(taken, kLargestSpare));
  batch->iList.Take(iToDo, taken);
  ++iDoing;
  return batch.release();
}

void TThreadPool::ReportFailures(TThreadJob& job) noexcept {
  if (job.FError) return ReportFailure(&job, job.FError);
  ForEachJob(&job, [&](TThreadJob& each) {
    if (each.FHasFailed) ReportFailures(each);
  });
}

void TThreadPool::ReportFailure(TThreadJob* job, const std::exception_ptr& error) noexcept {
  TCriticalSectionLock lock(iCritical);
  try {
    iData.Failed(job, error);
  } catch (...) {
  }
}

void TThreadPool::doExecute() {
  try {
    if (iData.HaveToSync()) TThread::Synchronize([this] { iData.Synchronize(); });
    LookForWork();
  } catch (...) {
    ReportFailure(nullptr, std::current_exception());
  }
  Sleep(kRoundTicks);
}

void TThreadPool::LookForWork() {
  int waiting, doing;
  {
    TCriticalSectionLock lock(iCritical);
    waiting = iToDo.GetCount() + static_cast<int>(FTasks.size()) + (FLoops != nullptr ? 1 : 0);
    doing = iDoing + FTasksRunning;
    if (FWaiters != nullptr) waiting += doing;  // jobs have to come to Done, though the queue may be empty
  }
  if (waiting > 0) {
    iToDoEmpty = 0;
    if (!iThreadsOn) ThreadsStart();
  } else if (iThreadsOn && IsIdleOver(doing)) {
    ThreadsStop();
    iData.Synchronize();
  }
}

bool TThreadPool::IsIdleOver(int doing) noexcept {
  if (iData.GetTicksFinish() != 0) return true;
  if (doing != 0) return false;
  if (iToDoEmpty != 0) return Ticks() - iToDoEmpty >= iData.GetIdleTicks();
  iToDoEmpty = Ticks();
  return false;
}

void TThreadPool::ThreadsStart() {
  std::lock_guard lock(FControl);
  if (iThreadsOn || iThreads.empty()) return;
  iThreadsOn = true;
  iData.SetTicksBegin(Ticks() - iData.GetTicksBegin());
  for (auto& worker : iThreads) worker->Start();
}

void TThreadPool::ThreadsStop() {
  {
    std::lock_guard lock(FControl);
    if (!iThreadsOn) return;
    iData.SetTicksBegin(Ticks() - iData.GetTicksBegin());
    iThreadsOn = false;
    for (auto& worker : iThreads) worker->Stop();
  }
  TellWaiters();
}

}  // namespace vx
