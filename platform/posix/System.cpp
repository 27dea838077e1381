#include "platform/System.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/Text.h"
#include "platform/os/SystemFiles.h"

namespace vx {

namespace os {

namespace {

TSystemRoots& Roots() {
  static TSystemRoots& roots = *new TSystemRoots;
  return roots;
}

// The entry of the user whose rights this process has: Use is called with it while it stands.
template <typename F>
std::string FromUserEntry(F&& Use) {
  constexpr size_t kLimit = size_t{1} << 20;
  for (std::vector<char> buffer(1024); buffer.size() <= kLimit; buffer.resize(buffer.size() * 2)) {
    passwd entry{};
    passwd* found = nullptr;
    int error = 0;
    do {
      error = ::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found);
    } while (error == EINTR);
    if (error == ERANGE) continue;
    const char* text = error == 0 && found != nullptr ? Use(*found) : nullptr;
    return text != nullptr ? text : "";
  }
  return {};
}

// The bytes that a line such as "VmRSS:     1234 kB" of the state of this process tells.
int64_t MemoryBytes(std::string_view Key) {
  const std::string status = ReadText("/proc/self/status");
  for (std::string_view rest = status; !rest.empty();) {
    std::string_view line = TakePart(rest, '\n');
    if (TakePart(line, ':') != Key) continue;
    const int64_t kilobytes = NumberIn(line, 0);
    return kilobytes > 0 && kilobytes <= INT64_MAX / 1024 ? kilobytes * 1024 : 0;
  }
  return 0;
}

}  // namespace

std::string Rooted(std::string_view Path) { return Roots().Root + std::string(Path); }

std::string InHome(std::string_view Path) {
  const std::string& set = Roots().Home;
  const std::string home = set.empty() ? FromUserEntry([](const passwd& Entry) { return Entry.pw_dir; }) : set;
  return home.empty() ? home : home + std::string(Path);
}

TSource::TSource(const std::string& Path)
    : FHandle(::open(Path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {
  struct stat info;
  if (FHandle < 0 || (::fstat(FHandle, &info) == 0 && S_ISREG(info.st_mode))) return;
  ::close(FHandle);
  FHandle = -1;
}

TSource::~TSource() {
  if (FHandle >= 0) ::close(FHandle);
}

bool TSource::ReadAt(uint64_t Offset, void* Buffer, size_t Count) const {
  auto* target = static_cast<char*>(Buffer);
  while (Count > 0) {
    if (Offset > INT64_MAX - Count) return false;
    const ssize_t got = ::pread(FHandle, target, Count, static_cast<off_t>(Offset));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    target += got;
    Offset += static_cast<size_t>(got);
    Count -= static_cast<size_t>(got);
  }
  return true;
}

std::string TSource::ReadAll() const {
  constexpr size_t kLimit = size_t{1} << 24, kPiece = size_t{1} << 14;
  std::string result;
  while (result.size() < kLimit) {
    const size_t size = result.size();
    result.resize(size + kPiece);
    ssize_t got = 0;
    do {
      got = ::pread(FHandle, result.data() + size, kPiece, static_cast<off_t>(size));
    } while (got < 0 && errno == EINTR);
    result.resize(size + static_cast<size_t>(got > 0 ? got : 0));
    if (got <= 0) return result;
  }
  return {};
}

std::string ReadText(std::string_view Path) { return TSource(Rooted(Path)).ReadAll(); }

bool IsProgram(const std::string& Path) {
  struct stat info;
  return ::stat(Path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && ::access(Path.c_str(), X_OK) == 0;
}

std::vector<std::string> FontDirectories() {
  std::vector<std::string> result;
  for (std::string_view directory : {"/.fonts", "/.local/share/fonts"}) {
    if (const std::string path = InHome(directory); !path.empty()) result.push_back(Rooted(path));
  }
  for (std::string_view directory : {"/usr/local/share/fonts", "/usr/share/fonts"}) result.push_back(Rooted(directory));
  return result;
}

std::string_view TakePart(std::string_view& Text, char Separator) {
  const size_t end = Text.find(Separator);
  const std::string_view part = Text.substr(0, end);
  Text.remove_prefix(end == Text.npos ? Text.size() : end + 1);
  return part;
}

int64_t NumberIn(std::string_view Text, int64_t Default) {
  Text.remove_prefix(std::min(Text.find_first_not_of(" \t"), Text.size()));
  int64_t number = 0;
  const auto [end, error] = std::from_chars(Text.data(), Text.data() + Text.size(), number);
  return error == std::errc() ? number : Default;
}

}  // namespace os

TSystemRoots SetSystemRoots(TSystemRoots Roots) { return std::exchange(os::Roots(), std::move(Roots)); }

String SystemErrorText(int Error) {
  const char* text = ::strerrordesc_np(Error);
  return text != nullptr ? String::FromUtf8(text) : String();
}

String SystemName() {
  std::string name = os::ReadText("/proc/sys/kernel/ostype") + os::ReadText("/proc/sys/kernel/osrelease");
  std::replace(name.begin(), name.end(), '\n', ' ');
  return Trim(String::FromUtf8(name));
}

String LoginName() {
  return String::FromUtf8(os::FromUserEntry([](const passwd& Entry) { return Entry.pw_name; }));
}

bool IsRemoteLogin() {
  const int64_t session = os::NumberIn(os::ReadText("/proc/self/sessionid"), -1);
  if (session < 0 || session >= UINT32_MAX) return false;
  const std::string state = os::ReadText("/run/systemd/sessions/" + std::to_string(session));
  for (std::string_view rest = state; !rest.empty();) {
    if (os::TakePart(rest, '\n') == "REMOTE=1") return true;
  }
  return false;
}

int64_t ResidentBytes() { return os::MemoryBytes("VmRSS"); }

int64_t PeakResidentBytes() { return os::MemoryBytes("VmHWM"); }

int ScreenDepth() {
  const int64_t bits = os::NumberIn(os::ReadText("/sys/class/graphics/fb0/bits_per_pixel"), 0);
  return bits > 0 && bits <= INT32_MAX ? static_cast<int>(bits) : 0;
}

}  // namespace vx
