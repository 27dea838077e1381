#include "services/uThreadPool/TThreadData.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/Threads.h"
#include "platform/UserMessages.h"
#include "services/uMsg.h"

namespace vx {

namespace {

String TextOf(const std::exception_ptr& Raised) {
  try {
    std::rethrow_exception(Raised);
  } catch (const std::exception& error) {
    return UserMessage(error);
  } catch (...) {
    return u"Unbekannter Fehler";
  }
}

}  // namespace

TThreadTicks::TThreadTicks(int Count) : iTicks(static_cast<size_t>(std::max(Count, 0))) {}

int TThreadTicks::GetNext() noexcept {
  if (iTicks.empty()) return -1;
  if (++iNext == static_cast<int>(iTicks.size())) iNext = 0;
  iLast = std::max(iLast, iNext);
  return iNext;
}

bool TThreadTicks::Add(uint32_t ticks) noexcept {
  const int index = GetNext();
  if (index < 0) return false;
  uint32_t& place = iTicks[static_cast<size_t>(index)];
  iAverageSum -= place;
  place = std::max(ticks, uint32_t{1});
  iAverageSum += place;
  return index == 0;
}

uint32_t TThreadTicks::Average() const noexcept {
  return iLast < 0 ? 10 : iAverageSum / static_cast<uint32_t>(GetCount());
}

TThreadData::TThreadData() : iThreadCount(GetLogicalCpuCount()), iTicks(std::make_unique<TThreadTicks>(64)) {}

TThreadData::TThreadData(int threadDiff) : TThreadData() {
  iThreadDiff = threadDiff;
  const int64_t count = int64_t{GetLogicalCpuCount()} + threadDiff;
  iThreadCount = count < 3 ? 2 : static_cast<int>(std::min(count, int64_t{std::numeric_limits<int>::max()}));
}

void TThreadData::SetTicks(std::unique_ptr<TThreadTicks> Value) noexcept {
  if (Value) iTicks = std::move(Value);
}

void TThreadData::Added(TThreadQueue&, int) {}

void TThreadData::GetFirst(TThreadQueue&) {}

void TThreadData::Done(TThreadJob* job, TThreadQueue&, int) {
  if (const auto* jobs = dynamic_cast<TThreadJobs*>(job)) {
    if (jobs->GetCount() > 0) iTicks->Add(jobs->GetTicks() / static_cast<uint32_t>(jobs->GetCount()));
  } else if (job != nullptr) {
    iTicks->Add(job->GetTicks());
  }
}

void TThreadData::Failed(TThreadJob* job, const std::exception_ptr& error) {
  ReportInMainThread(error, job != nullptr ? job->ClassName() : ClassName());
}

void ReportInMainThread(const std::exception_ptr& error, const String& sender) {
  TThread::Queue([text = TextOf(error), sender] { TMsgReport()(Error(text, sender), false); });
}

}  // namespace vx
