#include "tools/vxtab/System.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "platform/Exceptions.h"
#include "platform/Files.h"
#include "platform/Paths.h"

namespace vx::vxtab {

namespace {

char gFileToRemove[4096];
std::atomic<bool> gHasFileToRemove{false};

extern "C" void RemoveAndEnd(int Signal) {
  if (gHasFileToRemove.load(std::memory_order_acquire)) ::unlink(gFileToRemove);
  // The default action was set when the handler was called.
  ::raise(Signal);
}

}  // namespace

void RemoveOnSignal(const String* Path) noexcept {
  gHasFileToRemove.store(false, std::memory_order_release);
  if (Path == nullptr) return;
  std::string native = ToNativePath(*Path);
  if (native.size() >= sizeof gFileToRemove) return;
  std::memcpy(gFileToRemove, native.c_str(), native.size() + 1);
  gHasFileToRemove.store(true, std::memory_order_release);
}

void HandleSignals() noexcept {
  struct sigaction action {};
  action.sa_handler = RemoveAndEnd;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction old {};
    // What is ignored, as by nohup, stays so.
    if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) ::sigaction(signal, &action, nullptr);
  }
  ::signal(SIGXFSZ, SIG_IGN);
}

bool IsTerminal(int Descriptor) noexcept { return ::isatty(Descriptor) == 1; }

int TerminalWidth(int Descriptor) noexcept {
  winsize size{};
  return IsTerminal(Descriptor) && ::ioctl(Descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

bool CreateNewFile(const String& Path, bool ForOwner) noexcept {
  std::string native = ToNativePath(Path);
  int handle = ::open(native.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, ForOwner ? 0600 : 0666);
  if (handle < 0) {
    SetLastError(errno);
    return false;
  }
  const timespec longAgo[2] = {{946684800, 0}, {946684800, 0}};
  (void)::futimens(handle, longAgo);  // at worst the save waits for its stamp to change
  ::close(handle);
  return true;
}

TScratchDirectory::TScratchDirectory() {
  const char* root = std::getenv("TMPDIR");
  std::string path = std::string(root != nullptr && *root != '\0' ? root : "/tmp") + "/vxtabXXXXXX";
  if (::mkdtemp(path.data()) == nullptr) {
    throw EFCreateError(u"can't make a temporary directory: " + SysErrorMessage(errno));
  }
  FPath = String::FromUtf8(path);
}

TScratchDirectory::~TScratchDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(ToNativePath(FPath), ignored);
}

}  // namespace vx::vxtab
