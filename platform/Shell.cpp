#include "platform/Shell.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/Hook.h"
#include "platform/Paths.h"

extern char** environ;

namespace vx {

namespace {

constexpr char kOpener[] = "xdg-open";

THook<TOpenDocument>& Hook() {
  static THook<TOpenDocument>& hook = *new THook<TOpenDocument>;
  return hook;
}

// Where the opener may lie, in the order of the search path.
std::vector<std::string> OpenerPaths() {
  const char* path = std::getenv("PATH");
  std::string list = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
  std::vector<std::string> result;
  for (size_t begin = 0; begin <= list.size();) {
    size_t end = std::min(list.find(':', begin), list.size());
    if (end > begin) result.push_back(list.substr(begin, end - begin) + "/" + kOpener);
    begin = end + 1;
  }
  return result;
}

// Runs in the forked process: only calls that are safe there, nothing that allocates.
[[noreturn]] void RunOpener(const std::vector<std::string>& Programs, char* const* Arguments, const char* Directory,
                            int Report) noexcept {
  if (Directory[0] == '\0' || chdir(Directory) == 0) {
    for (const std::string& program : Programs) execve(program.c_str(), Arguments, environ);
  }
  // The pipe closes unread when the program starts; a byte on it says that it didn't.
  static_cast<void>(!write(Report, "x", 1));
  _exit(127);
}

// Starts the opener as a process of its own session whose parent has ended at once, so that the
// system and not this program collects it.
bool Start(const std::vector<std::string>& Programs, char* const* Arguments, const char* Directory) {
  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) return false;
  pid_t child = fork();
  if (child == 0) {
    setsid();
    pid_t grandchild = fork();
    if (grandchild == 0) RunOpener(Programs, Arguments, Directory, report[1]);
    if (grandchild < 0) static_cast<void>(!write(report[1], "x", 1));
    _exit(0);
  }
  close(report[1]);
  ssize_t failed = -1;
  if (child > 0) {
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    char byte = 0;
    do {
      failed = read(report[0], &byte, 1);
    } while (failed < 0 && errno == EINTR);
  }
  close(report[0]);
  return failed == 0;
}

bool OpenBySystem(const String& File, const String& Directory) {
  // Absolute, as the program runs in another directory; so it can't be taken for an option either.
  std::error_code error;
  std::string file = std::filesystem::absolute(ToNativePath(File), error).string();
  if (File.empty() || error || file.find('\0') != std::string::npos || access(file.c_str(), F_OK) != 0) return false;
  std::string directory = Directory.empty() ? std::string() : ToNativePath(Directory);
  std::vector<std::string> programs = OpenerPaths();
  std::string name = kOpener;
  char* arguments[] = {name.data(), file.data(), nullptr};
  return Start(programs, arguments, directory.c_str());
}

}  // namespace

bool OpenDocument(const String& File, const String& Directory) {
  auto open = Hook().Get();
  return open ? (*open)(File, Directory) : OpenBySystem(File, Directory);
}

TOpenDocument SetOpenDocument(TOpenDocument Open) { return Hook().Exchange(std::move(Open)); }

}  // namespace vx
