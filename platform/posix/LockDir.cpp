#include "platform/posix/LockDir.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/random.h>
#include <time.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/Clock.h"

namespace vx::files {

namespace {

constexpr int64_t kWatched = 10000;  // milliseconds
constexpr time_t kOld = 60;          // seconds
constexpr int kTries = 10;
constexpr int kReleaseTries = 500;

// A name that no one else makes.
std::string UniqueName() {
  unsigned char bytes[16];
  if (::getrandom(bytes, sizeof bytes, 0) != sizeof bytes) throw std::bad_alloc();
  std::string result;
  for (const unsigned char byte : bytes) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02x", byte);
    result += digits;
  }
  return result;
}

std::vector<std::string> NamesIn(const std::string& Directory) {
  std::vector<std::string> result;
  const TDirectory directory(::opendir(Directory.c_str()));
  while (const dirent* entry = directory ? ::readdir(directory.get()) : nullptr) {
    if (entry->d_name[0] != '.') result.push_back(entry->d_name);
  }
  std::sort(result.begin(), result.end());
  return result;
}

// What this process saw in directories of others, and since when.
class TWatch {
 public:
  // For how many milliseconds the same names stand there.
  int64_t Since(const std::string& Path, const std::vector<std::string>& Names) {
    std::lock_guard lock(FMutex);
    TSeen& seen = FSeen[Path];
    const int64_t now = GetTickCount();
    if (seen.Names != Names || now < seen.Tick) seen = {Names, now};
    return now - seen.Tick;
  }
  void Forget(const std::string& Path) {
    std::lock_guard lock(FMutex);
    FSeen.erase(Path);
  }

 private:
  struct TSeen {
    std::vector<std::string> Names;
    int64_t Tick = INT64_MAX;
  };
  std::mutex FMutex;
  std::map<std::string, TSeen> FSeen;
};

TWatch& Watch() {
  static TWatch watch;
  return watch;
}

}  // namespace

bool TLockDir::TryTake(const std::string& Place) {
  const size_t name = Place.rfind('/') + 1;
  FPath = Place.substr(0, name) + "." + Place.substr(name) + ".vxlock";
  FContent = FPath + "/" + UniqueName();
  FNames = 0;
  for (int tries = 0; tries < kTries; ++tries) {
    if (::mkdir(FPath.c_str(), 0777) != 0) {
      // Some servers tell of a directory that is there only that it can't be made.
      if (errno != EEXIST && errno != EPERM) return Check(false);
      if (!ClearLeftOver()) return Fail(EBUSY);
      continue;
    }
    FIsTaken = true;
    if (MakeContent().Get() >= 0) return Watch().Forget(FPath), true;
    const int error = GetLastError();
    Release();
    if (error != ENOENT) return Fail(error);  // else another took the new directory for left over
  }
  return Fail(EBUSY);
}

THandle TLockDir::MakeContent() {
  THandle result(::open(FContent.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666));
  if (!Check(result.Get() >= 0)) return THandle();
  if (!IsAlone()) return Fail(EBUSY), THandle();
  return result;
}

// Drives that know files by their paths mix up what they remember of the old and the new file at one path.
THandle TLockDir::OpenAnew(const std::string& Place) {
  const std::string name = FContent + "." + std::to_string(FNames++);
  if (!Check(::link(Place.c_str(), name.c_str()) == 0)) return THandle();
  THandle result(::open(name.c_str(), O_RDONLY | O_CLOEXEC));
  (void)Check(result.Get() >= 0);  // notes the error for the caller, who sees the empty handle
  return result;
}

// Two can be in one directory if it was removed and made again between two steps; the second one sees both.
bool TLockDir::IsAlone() const {
  const std::vector<std::string> names = NamesIn(FPath);
  const std::string own = FContent.substr(FPath.size() + 1);
  return !names.empty() &&
         std::all_of(names.begin(), names.end(), [&](const std::string& name) { return name.starts_with(own); });
}

// Whether there is no directory any more.
bool TLockDir::ClearLeftOver() const {
  const std::vector<std::string> names = NamesIn(FPath);
  struct stat info;
  if (::lstat(FPath.c_str(), &info) != 0) return errno == ENOENT;
  if (Watch().Since(FPath, names) < kWatched && ::time(nullptr) - info.st_mtime < kOld) return false;
  for (const std::string& name : names) ::unlink((FPath + "/" + name).c_str());
  return ::rmdir(FPath.c_str()) == 0 || errno == ENOENT;
}

void TLockDir::Release() noexcept {
  if (!FIsTaken) return;
  FIsTaken = false;
  ::unlink(FContent.c_str());
  for (; FNames > 0; --FNames) ::unlink((FContent + "." + std::to_string(FNames - 1)).c_str());
  // A file that was closed just now may stay for a moment under a hidden name.
  for (int tries = 0; ::rmdir(FPath.c_str()) != 0 && errno != ENOENT && tries < kReleaseTries; ++tries) {
    constexpr timespec kPause{0, 2000000};
    ::nanosleep(&kPause, nullptr);
  }
}

}  // namespace vx::files
