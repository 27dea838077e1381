// What the sources for files share. Not for use outside them.
//
// All functions report a failure through SetLastError and, unless said otherwise, by false.
#pragma once

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <utility>

#include "platform/detail/FileErrors.h"
#include "platform/os/Files.h"

namespace vx::files {

// Owns a descriptor; -1 is none.
class THandle {
 public:
  explicit THandle(int Handle = -1) noexcept : FHandle(Handle) {}
  THandle(THandle&& Other) noexcept : FHandle(Other.Release()) {}
  THandle& operator=(THandle&& Other) noexcept {
    std::swap(FHandle, Other.FHandle);
    return *this;
  }
  ~THandle() {
    if (FHandle >= 0) ::close(FHandle);
  }
  int Get() const noexcept { return FHandle; }
  int Release() noexcept { return std::exchange(FHandle, -1); }
  // False if the system could not bring what was written to its place.
  bool Close() noexcept;

 private:
  int FHandle;
};

struct TDirectoryCloser {
  void operator()(DIR* Directory) const noexcept { ::closedir(Directory); }
};
using TDirectory = std::unique_ptr<DIR, TDirectoryCloser>;

// Fails with errno unless Ok.
bool Check(bool Ok) noexcept;
inline os::TMoment MomentOf(const timespec& Stamp) noexcept {
  return {Stamp.tv_sec, static_cast<int32_t>(Stamp.tv_nsec)};
}

// Where a symbolic link leads in the end, whether or not something stands there.
std::string BehindLinks(std::string Native);
// Whether Info is that of what stands at Native now; of a network drive, by what its server says. The last error stays.
bool IsStillAt(const std::string& Native, const struct stat& Info, bool IsRemote = false) noexcept;

}  // namespace vx::files
