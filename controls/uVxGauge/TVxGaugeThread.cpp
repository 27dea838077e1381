#include "controls/uVxGauge/TVxGaugeThread.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace vx {

namespace {

constexpr uint32_t kRoundTicks = 20;

// The process's painter. Its lock is the outermost one.
struct TPainter {
  std::mutex Lock;
  TVxGaugeThread* Thread = nullptr;
  std::atomic<int> ListedCount{0};
};
constinit TPainter gPainter;

}  // namespace

void TVxPaintObjectThreadPainter::Paint() {
  if (GetPaintRect().IsEmpty() || !GethParent()) return;
  TBitmap bitmap;
  PaintBitmap(bitmap);
  GethParent()->BitBlt(GetPaintRect().Left, GetPaintRect().Top, bitmap);
}

TVxPaintObjectThreadListed::TVxPaintObjectThreadListed(TVxGaugeThread* Thread) : FThread(Thread) {
  std::lock_guard lock(gPainter.Lock);
  if (Thread != nullptr) {
    Thread->Add(*this);
    return;
  }
  std::unique_ptr<TVxGaugeThread> made;
  if (gPainter.Thread == nullptr) made = std::make_unique<TVxGaugeThread>();
  FThread = made ? made.get() : gPainter.Thread;
  FIsProcess = true;
  FThread->Add(*this);
  if (made) gPainter.Thread = made.release();  // frees itself
  ++gPainter.ListedCount;
}

TVxPaintObjectThreadListed::~TVxPaintObjectThreadListed() {
  std::lock_guard lock(gPainter.Lock);
  if (FThread != nullptr) FThread->Remove(*this);
  if (FIsProcess) --gPainter.ListedCount;
}

int TVxPaintObjectThreadListed::GetListedCount() noexcept { return gPainter.ListedCount; }

bool TVxPaintObjectThreadListed::doPaint() const {
  return iVisible && ihParent && ihParent->IsWindowVisible() && (GetGlowRunning() || GetBasicsChanged());
}

std::unique_ptr<TVxPaintObjectThreadPainter> TVxPaintObjectThreadListed::GetPainter() {
  TCriticalSectionLock lock(iSection);
  if (!doPaint()) return nullptr;
  BeginPainting();
  return std::make_unique<TVxPaintObjectThreadPainter>(GetValues());
}

void TVxPaintObjectThreadListed::PaintingFailed(const std::exception_ptr& Error) {
  if (!std::exchange(FIsFailureTold, true)) ReportInMainThread(Error, u"TVxGaugeThread");
}

TVxGaugeThread::TVxGaugeThread(bool suspended) : TVxThread(suspended) {}

TVxGaugeThread::~TVxGaugeThread() { Finish(); }

void TVxGaugeThread::Add(TVxPaintObjectThreadListed& Object) {
  TCriticalSectionLock lock(iLock);
  iList.push_back(&Object);
  if (iList.size() > 1) return;
  try {
    Start();
  } catch (...) {
    iList.pop_back();
    throw;
  }
}

void TVxGaugeThread::Remove(const TVxPaintObjectThreadListed& Object) noexcept {
  TCriticalSectionLock lock(iLock);
  std::erase(iList, &Object);
}

size_t TVxGaugeThread::PaintAll() {
  TCriticalSectionLock lock(iLock);
  const size_t count = iList.size();
  for (TVxPaintObjectThreadListed* object : iList) {
    if (IsStopped()) break;
    try {
      if (const auto painter = object->GetPainter(); painter && !IsStopped()) painter->Paint();
    } catch (...) {
      object->PaintingFailed(std::current_exception());
    }
  }
  return count;
}

void TVxGaugeThread::doExecute() {
  const size_t count = PaintAll();
  if (IsStopped()) return;
  if (count > 0) {
    Sleep(kRoundTicks);
  } else {
    EndUnlessUsed();
  }
}

// Nobody can add to the list any more once the process has no reference.
void TVxGaugeThread::EndUnlessUsed() {
  std::lock_guard process(gPainter.Lock);
  TCriticalSectionLock lock(iLock);
  if (!iList.empty()) return;
  if (gPainter.Thread == this) gPainter.Thread = nullptr;
  Terminate();
}

void TVxGaugeThread::DoTerminate() {
  std::lock_guard process(gPainter.Lock);
  if (gPainter.Thread == this) gPainter.Thread = nullptr;
  TCriticalSectionLock lock(iLock);
  for (TVxPaintObjectThreadListed* object : std::exchange(iList, {}))
    object->FThread = nullptr;  // not painted any more
}

}  // namespace vx
