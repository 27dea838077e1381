#include "tools/vxtab/Reporter.h"

#include <chrono>
#include <ostream>

namespace vx::vxtab {

void TReporter::Say(std::string_view Text) {
  std::lock_guard lock(FMutex);
  ClearLine();
  FErr << Text << '\n' << std::flush;
}

void TReporter::BeginProgress(std::string Doing) {
  EndProgress();
  if (!FShowProgress) return;
  FIsEnding = false;
  FThread = std::thread([this, doing = std::move(Doing)] { RunProgress(doing); });
}

void TReporter::EndProgress() {
  if (!FThread.joinable()) return;
  {
    std::lock_guard lock(FMutex);
    FIsEnding = true;
    ClearLine();
  }
  FEnd.notify_all();
  FThread.join();
}

void TReporter::RunProgress(const std::string& Doing) {
  using namespace std::chrono;
  const auto start = steady_clock::now();
  std::unique_lock lock(FMutex);
  while (!FEnd.wait_for(lock, milliseconds(500), [this] { return FIsEnding; })) {
    auto seconds = duration_cast<milliseconds>(steady_clock::now() - start).count() / 1000;
    FErr << "\r\x1B[K" << Doing << " (" << seconds << " s)" << std::flush;
    FHasLine = true;
  }
}

void TReporter::ClearLine() {
  if (FHasLine) FErr << "\r\x1B[K" << std::flush;
  FHasLine = false;
}

}  // namespace vx::vxtab
