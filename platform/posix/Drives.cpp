#include "platform/posix/Drives.h"

#include <fcntl.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cstring>

#include "platform/posix/FileLocks.h"
#include "platform/posix/FilesInternal.h"

namespace vx::files {

namespace {

constexpr uint32_t kFuse = 0x65735546;
// NFS, SMB, SMB2, CIFS, 9P, Ceph, AFS twice, Coda, Lustre, and shared folders of virtual machines.
constexpr uint32_t kRemote[] = {0x6969,     0x517B,     0xFE534D42, 0xFF534D42, 0x01021997, 0x00C36400, 0x5346414F,
                                0x6B414653, 0x73757245, 0x0BD00BD0, 0x786F4256, 0xBACBACBC, kFuse};

// 0 if the server does not tell.
uint32_t TypeOf(int Handle) noexcept {
  struct statfs info;
  return ::fstatfs(Handle, &info) == 0 ? static_cast<uint32_t>(info.f_type) : 0;
}

// The system tells of each handle which locks it keeps itself; those that it passes on to a server are not among them.
TDriveKind TryLocks(int Handle) noexcept {
  if (!TryProbe(Handle)) return HasNoLocks(GetLastError()) ? dkCreation : dkUnknown;
  char path[32], text[4096];
  std::snprintf(path, sizeof path, "/proc/self/fdinfo/%d", Handle);
  const THandle told(::open(path, O_RDONLY | O_CLOEXEC));
  const ssize_t size = told.Get() < 0 ? -1 : ::read(told.Get(), text, sizeof text - 1);
  Unlock(Handle, lbProbe);
  if (size <= 0) return dkUnknown;
  text[size] = '\0';
  return std::strstr(text, "\nlock:") == nullptr ? dkLocks : dkCreation;
}

}  // namespace

bool IsRemote(int Handle, const struct stat& Info) noexcept {
  if (LosesLocks()) return true;
  if (major(Info.st_dev) != 0) return false;  // a disk of this machine
  const uint32_t type = TypeOf(Handle);
  if (type == 0) return true;
  for (const uint32_t remote : kRemote) {
    if (type == remote) return true;
  }
  return false;
}

TDriveKind DriveOf(int Handle, const struct stat& Info) noexcept {
  if (!IsRemote(Handle, Info)) return dkOwn;
  if (LosesLocks()) return dkCreation;
  const uint32_t type = TypeOf(Handle);
  return type == 0 ? dkUnknown : type == kFuse ? TryLocks(Handle) : dkCreation;
}

// A name that is to be made is always looked up at the server. Nothing is made, as the other end lies elsewhere, so
// that failing is what is wanted.
void RefreshName(const std::string& Native) noexcept { (void)!::link("/proc/self", Native.c_str()); }

bool RefreshInfo(int Handle, struct stat& Info) noexcept {
  ::fdatasync(Handle);
  struct statx fresh;
  return Check(::statx(Handle, "", AT_EMPTY_PATH | AT_STATX_FORCE_SYNC, STATX_BASIC_STATS, &fresh) == 0 &&
               ::fstat(Handle, &Info) == 0);
}

}  // namespace vx::files
