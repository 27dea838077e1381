#include "platform/os/Processes.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <vector>

#include "platform/posix/FilesInternal.h"

extern char** environ;

namespace vx {

namespace {

using files::THandle;

// Descriptors that the child gets as its standard ones; -1 leaves one.
struct TStandard {
  int Input, Output;
};

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

}  // namespace

int os::MakePipe(TPipe& Pipe) noexcept {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return errno;
  Pipe.Read = ends[0];
  Pipe.Write = ends[1];
  return 0;
}

int os::OpenNothing(int& Handle) noexcept {
  Handle = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  return Handle < 0 ? errno : 0;
}

void os::CloseHandle(int Handle) noexcept { ::close(Handle); }

int os::ReadPipe(int Handle, char* Buffer, int Count) noexcept {
  return static_cast<int>(Repeated([&] { return ::read(Handle, Buffer, static_cast<size_t>(Count)); }));
}

int os::Launch(const TLaunch& Call, int64_t& Process) {
  std::vector<char*> arguments{const_cast<char*>(Call.Program.c_str())};
  for (const std::string& argument : Call.Arguments) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);

  TPipe pipe;
  if (const int error = MakePipe(pipe); error != 0) return error;
  const THandle listened(pipe.Read);
  THandle told(pipe.Write);
  const pid_t child = ::fork();
  if (child < 0) return errno;
  if (child == 0) {
    RunChild(arguments.data(), Call.Directory.c_str(), {Call.Input, Call.Output}, Call.Detach, told.Get());
  }
  told = THandle();
  const TReport report = Listen(listened.Get());
  if (Call.Detach || report.Error != 0) Collect(child, nullptr);
  if (report.Error == 0) Process = Call.Detach ? report.Process : child;
  return report.Error != 0 ? report.Error : Process < 0 ? EIO : 0;
}

bool os::WaitFor(int64_t Process, int& ExitCode) noexcept {
  int status = 0;
  if (!Collect(static_cast<pid_t>(Process), &status)) return false;
  ExitCode = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  return true;
}

bool os::Forget(int64_t Process) noexcept { return ::waitpid(static_cast<pid_t>(Process), nullptr, WNOHANG) != 0; }

}  // namespace vx
