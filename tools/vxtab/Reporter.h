// What vxtab says on standard error: messages, and on a terminal what takes long.
#pragma once

#include <condition_variable>
#include <iosfwd>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace vx::vxtab {

class TReporter {
 public:
  TReporter(std::ostream& Err, bool ShowProgress) : FErr(Err), FShowProgress(ShowProgress) {}
  ~TReporter() { EndProgress(); }
  TReporter(const TReporter&) = delete;
  TReporter& operator=(const TReporter&) = delete;

  // One message, ended by a line feed here. Any thread may call it.
  void Say(std::string_view Text);
  // Until EndProgress, once half a second has passed, a line says that this is being done and for how
  // long. Nothing without a terminal.
  void BeginProgress(std::string Doing);
  // Takes the line back.
  void EndProgress();

 private:
  void RunProgress(const std::string& Doing);
  void ClearLine();

  std::ostream& FErr;
  bool FShowProgress;
  std::mutex FMutex;
  std::condition_variable FEnd;
  bool FIsEnding = false;
  bool FHasLine = false;
  std::thread FThread;
};

// Shows the progress of a block.
class TProgress {
 public:
  TProgress(TReporter& Reporter, std::string Doing) : FReporter(Reporter) { Reporter.BeginProgress(std::move(Doing)); }
  ~TProgress() { FReporter.EndProgress(); }
  TProgress(const TProgress&) = delete;
  TProgress& operator=(const TProgress&) = delete;

 private:
  TReporter& FReporter;
};

}  // namespace vx::vxtab
