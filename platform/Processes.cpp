#include "platform/Processes.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

#include "platform/FilesInternal.h"

extern char** environ;

namespace vx {

namespace {

using files::THandle;

// Descriptors that the child gets as its standard ones; -1 leaves one.
struct TStandard {
  int Input, Output;
};

bool IsGood(const std::string& Text) noexcept { return Text.find('\0') == Text.npos; }

template <typename F>
auto Repeated(F&& Call) noexcept {
  auto result = Call();
  while (result < 0 && errno == EINTR) result = Call();
  return result;
}

// A copy of Handle above the standard descriptors, so that setting one of these can't close it. It goes with the
// start of the program.
int Above(int Handle) noexcept { return ::fcntl(Handle, F_DUPFD_CLOEXEC, 3); }

// Runs in the forked process: only calls that are safe there, nothing that allocates. Gives the error.
int Execute(char* const* Arguments, const char* Directory, TStandard Standard) noexcept {
  const int input = Standard.Input < 0 ? -1 : Above(Standard.Input);
  const int output = Standard.Output < 0 ? -1 : Above(Standard.Output);
  if ((Standard.Input >= 0 && input < 0) || (Standard.Output >= 0 && output < 0)) return errno;
  if (input >= 0 && ::dup2(input, 0) < 0) return errno;
  if (output >= 0 && (::dup2(output, 1) < 0 || ::dup2(output, 2) < 0)) return errno;
  if (Directory[0] != '\0' && ::chdir(Directory) != 0) return errno;
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  ::signal(SIGPIPE, SIG_DFL);
  ::execve(Arguments[0], Arguments, environ);
  return errno;
}

// The process that has ended is forgotten by the system. False if it is no child; Status may be nullptr.
bool Collect(pid_t Process, int* Status) noexcept {
  return Repeated([&] { return ::waitpid(Process, Status, 0); }) == Process;
}

// What the forked processes tell this one through a pipe, each part whole: an error, or the process that counts.
struct TReport {
  int Error;
  pid_t Process;
};

void Tell(int Pipe, TReport Report) noexcept { static_cast<void>(!::write(Pipe, &Report, sizeof Report)); }

// The pipe closes when the program starts and the process between has ended.
TReport Listen(int Pipe) noexcept {
  TReport result{0, -1}, report;
  while (Repeated([&] { return ::read(Pipe, &report, sizeof report); }) == sizeof report) {
    if (report.Error != 0) result.Error = report.Error;
    if (report.Process > 0) result.Process = report.Process;
  }
  return result;
}

// The forked process: with Detach it forks once more and ends at once.
[[noreturn]] void RunChild(char* const* Arguments, const char* Directory, TStandard Standard, bool Detach,
                           int Pipe) noexcept {
  const int above = Above(Pipe), report = above < 0 ? Pipe : above;
  ::setsid();
  const pid_t inner = Detach ? ::fork() : 0;
  if (inner > 0) Tell(report, {0, inner});
  if (inner > 0) ::_exit(0);
  Tell(report, {inner < 0 ? errno : Execute(Arguments, Directory, Standard), -1});
  ::_exit(127);
}

// Forks and executes. Process is the one that runs the program then.
int Launch(const TProcessStart& Start, TStandard Standard, bool Detach, pid_t& Process) {
  Process = -1;
  if (Start.Program.empty()) return ENOENT;
  const bool good = IsGood(Start.Program) && IsGood(Start.Directory) &&
                    std::all_of(Start.Arguments.begin(), Start.Arguments.end(), IsGood);
  if (!good) return EINVAL;
  std::error_code failed;
  std::string program = std::filesystem::absolute(Start.Program, failed).string();
  if (failed) return failed.value();
  std::vector<char*> arguments{program.data()};
  for (const std::string& argument : Start.Arguments) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);

  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return errno;
  const THandle listened(ends[0]);
  THandle told(ends[1]);
  const pid_t child = ::fork();
  if (child < 0) return errno;
  if (child == 0) RunChild(arguments.data(), Start.Directory.c_str(), Standard, Detach, told.Get());
  told = THandle();
  const TReport report = Listen(listened.Get());
  if (Detach || report.Error != 0) Collect(child, nullptr);
  if (report.Error == 0) Process = Detach ? report.Process : child;
  return report.Error != 0 ? report.Error : Process < 0 ? EIO : 0;
}

// Processes whose handles were closed before they ended.
struct TLeft {
  std::mutex Mutex;
  std::vector<pid_t> Processes;
};
TLeft& Left() {
  static TLeft& left = *new TLeft;
  return left;
}

// Lets the system forget those that have ended meanwhile, and leaves one more if it runs.
void Leave(pid_t Process) {
  std::lock_guard lock(Left().Mutex);
  std::vector<pid_t>& left = Left().Processes;
  if (Process > 0) left.push_back(Process);
  std::erase_if(left, [](pid_t process) { return ::waitpid(process, nullptr, WNOHANG) != 0; });
}

THandle OpenNothing(int Mode) { return THandle(::open("/dev/null", Mode | O_CLOEXEC)); }

int StartWith(const TProcessStart& Start, int Output, bool Detach, pid_t& Process) {
  Leave(0);
  if (!Start.Quiet) return Launch(Start, {Start.Input, Output}, Detach, Process);
  const THandle nothing = OpenNothing(O_RDWR);
  if (nothing.Get() < 0) return errno;
  return Launch(Start, {nothing.Get(), Output >= 0 ? Output : nothing.Get()}, Detach, Process);
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

int StartProcess(const TProcessStart& Start, int64_t& Handle) {
  pid_t process = -1;
  const int error = StartWith(Start, -1, false, process);
  Handle = process;
  return error;
}

bool WaitForProcess(int64_t Handle, int& ExitCode) {
  ExitCode = 0;
  int status = 0;
  if (!IsProcess(Handle) || !Collect(static_cast<pid_t>(Handle), &status)) return false;
  ExitCode = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  return true;
}

void CloseProcess(int64_t Handle) { Leave(IsProcess(Handle) ? static_cast<pid_t>(Handle) : 0); }

int StartDetached(const TProcessStart& Start, int64_t* Id) {
  pid_t process = -1;
  const int error = StartWith(Start, -1, true, process);
  if (Id != nullptr) *Id = process;
  return error;
}

int RunForOutput(const TProcessStart& Start, int& ExitCode, FunctionRef<bool(std::string_view Bytes)> Take) {
  ExitCode = 0;
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return errno;
  THandle output(ends[0]), written(ends[1]);
  TProcessStart start = Start;
  start.Quiet = true;
  pid_t process = -1;
  if (const int error = StartWith(start, written.Get(), false, process); error != 0) return error;
  written = THandle();
  TOwned owned(process);
  char piece[255];
  for (;;) {
    const ssize_t got = Repeated([&] { return ::read(output.Get(), piece, sizeof piece); });
    if (got <= 0) break;
    if (!Take(std::string_view(piece, static_cast<size_t>(got)))) return 0;
  }
  owned.Wait(ExitCode);
  return 0;
}

std::string FindProgram(const std::string& Name) {
  if (Name.empty() || !IsGood(Name) || Name.find('/') != Name.npos) return {};
  const char* path = std::getenv("PATH");
  const std::string list = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
  for (size_t begin = 0; begin <= list.size();) {
    const size_t end = std::min(list.find(':', begin), list.size());
    std::string file = list.substr(begin, end - begin) + "/" + Name;
    struct stat info;
    const bool isFile = end > begin && ::stat(file.c_str(), &info) == 0 && S_ISREG(info.st_mode);
    if (isFile && ::access(file.c_str(), X_OK) == 0) return file;
    begin = end + 1;
  }
  return {};
}

}  // namespace vx
