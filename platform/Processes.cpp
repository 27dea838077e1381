#include "platform/Processes.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

#include "platform/os/Processes.h"

namespace vx {

namespace {

// A handle of the system that is closed at the end; -1 is none.
class THandle {
 public:
  explicit THandle(int Handle) noexcept : FHandle(Handle) {}
  ~THandle() { Close(); }
  THandle(const THandle&) = delete;
  THandle& operator=(const THandle&) = delete;
  int Get() const noexcept { return FHandle; }
  void Close() noexcept {
    if (FHandle >= 0) os::CloseHandle(std::exchange(FHandle, -1));
  }

 private:
  int FHandle;
};

bool IsGood(const std::string& Text) noexcept { return Text.find('\0') == Text.npos; }

int Launch(const TProcessStart& Start, int Input, int Output, bool Detach, int64_t& Process) {
  if (Start.Program.empty()) return ENOENT;
  const bool good = IsGood(Start.Program) && IsGood(Start.Directory) &&
                    std::all_of(Start.Arguments.begin(), Start.Arguments.end(), IsGood);
  if (!good) return EINVAL;
  std::error_code failed;
  const std::string program = std::filesystem::absolute(Start.Program, failed).string();
  if (failed) return failed.value();
  return os::Launch({program, Start.Arguments, Start.Directory, Input, Output, Detach}, Process);
}

// Processes whose handles were closed before they ended.
struct TLeft {
  std::mutex Mutex;
  std::vector<int64_t> Processes;
};
TLeft& Left() {
  static TLeft& left = *new TLeft;
  return left;
}

// Lets the system forget those that have ended meanwhile, and leaves one more if it runs.
void Leave(int64_t Process) {
  std::lock_guard lock(Left().Mutex);
  std::vector<int64_t>& left = Left().Processes;
  if (Process > 0) left.push_back(Process);
  std::erase_if(left, os::Forget);
}

int StartWith(const TProcessStart& Start, int Output, bool Detach, int64_t& Process) {
  Process = -1;
  Leave(0);
  if (!Start.Quiet) return Launch(Start, Start.Input, Output, Detach, Process);
  int handle = -1;
  if (const int error = os::OpenNothing(handle); error != 0) return error;
  const THandle nothing(handle);
  return Launch(Start, handle, Output >= 0 ? Output : handle, Detach, Process);
}

// A handle that is closed unless it was waited for.
class TOwned {
 public:
  explicit TOwned(int64_t Handle) noexcept : FHandle(Handle) {}
  ~TOwned() { CloseProcess(FHandle); }
  TOwned(const TOwned&) = delete;
  TOwned& operator=(const TOwned&) = delete;
  void Wait(int& ExitCode) { WaitForProcess(std::exchange(FHandle, -1), ExitCode); }

 private:
  int64_t FHandle;
};

constexpr bool IsProcess(int64_t Handle) noexcept { return Handle > 0 && Handle <= INT32_MAX; }

}  // namespace

int StartProcess(const TProcessStart& Start, int64_t& Handle) { return StartWith(Start, -1, false, Handle); }

bool WaitForProcess(int64_t Handle, int& ExitCode) {
  ExitCode = 0;
  return IsProcess(Handle) && os::WaitFor(Handle, ExitCode);
}

void CloseProcess(int64_t Handle) { Leave(IsProcess(Handle) ? Handle : 0); }

int StartDetached(const TProcessStart& Start, int64_t* Id) {
  int64_t process = -1;
  const int error = StartWith(Start, -1, true, process);
  if (Id != nullptr) *Id = process;
  return error;
}

int RunForOutput(const TProcessStart& Start, int& ExitCode, FunctionRef<bool(std::string_view Bytes)> Take) {
  ExitCode = 0;
  os::TPipe pipe;
  if (const int error = os::MakePipe(pipe); error != 0) return error;
  const THandle output(pipe.Read);
  THandle written(pipe.Write);
  TProcessStart start = Start;
  start.Quiet = true;
  int64_t process = -1;
  if (const int error = StartWith(start, written.Get(), false, process); error != 0) return error;
  written.Close();
  TOwned owned(process);
  char piece[255];
  for (;;) {
    const int got = os::ReadPipe(output.Get(), piece, sizeof piece);
    if (got <= 0) break;
    if (!Take(std::string_view(piece, static_cast<size_t>(got)))) return 0;
  }
  owned.Wait(ExitCode);
  return 0;
}

}  // namespace vx
