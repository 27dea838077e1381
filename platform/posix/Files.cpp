#include "platform/Files.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/Format.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/posix/Drives.h"
#include "platform/posix/FileLocks.h"
#include "platform/posix/FilesInternal.h"
#include "platform/posix/HeldTurn.h"

namespace vx::files {
namespace {

constexpr int kOpenTries = 10;

bool IsSpecial(const std::string& Native) noexcept {
  struct stat info;
  return ::stat(Native.c_str(), &info) == 0 && !S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode);
}

int OpenRetrying(const std::string& Native, int Flags) noexcept {
  int handle;
  do {
    handle = ::open(Native.c_str(), Flags | O_CLOEXEC | O_NOCTTY, 0666);
  } while (handle < 0 && errno == EINTR);
  return handle;
}

// Read locks need a descriptor that reads, so that writing alone is asked for only where it must be.
int OpenHandle(const std::string& Native, bool Writes, bool WriteOnly, uint32_t Mode) noexcept {
  if (!Writes) return OpenRetrying(Native, O_RDONLY);
  if (WriteOnly && IsSpecial(Native)) return OpenRetrying(Native, O_WRONLY);
  const bool create = (Mode & fmCreate) != 0 && (Mode & kMustExist) == 0;
  const int flags = (create ? O_CREAT : 0) | ((Mode & kAtEnd) != 0 ? O_APPEND : 0);
  int handle = OpenRetrying(Native, O_RDWR | flags);
  if (handle < 0 && errno == EACCES && WriteOnly) handle = OpenRetrying(Native, O_WRONLY | flags);
  return handle;
}

}  // namespace

bool IsStillAt(const std::string& Native, const struct stat& Info, bool IsRemote) noexcept {
  struct stat now;
  if (IsRemote) RefreshName(Native);
  return ::stat(Native.c_str(), &now) == 0 && now.st_dev == Info.st_dev && now.st_ino == Info.st_ino;
}

bool THandle::Close() noexcept {
  int handle = Release();
  return handle < 0 || Check(::close(handle) == 0);
}

int OpenFile(const std::string& Native, uint32_t Mode, bool& Seekable) {
  const bool create = (Mode & fmCreate) != 0;
  const bool writeOnly = create || (Mode & 3) == fmOpenWrite;
  const bool writes = writeOnly || (Mode & 3) == fmOpenReadWrite;
  const TShare share{create || (Mode & 3) != fmOpenWrite, writes, (Mode & (fmShareDenyWrite | fmShareDenyNone)) == 0,
                     (Mode & fmShareDenyNone) == 0};
  if (!Permitted(create ? foCreate : foOpen, Native)) return -1;
  for (int tries = 0;; ++tries) {
    THandle handle(OpenHandle(Native, writes, writeOnly, Mode));
    struct stat info;
    if (!Check(handle.Get() >= 0 && ::fstat(handle.Get(), &info) == 0)) {
      if (errno != ESTALE || tries == kOpenTries) return -1;
      RefreshName(Native);  // the server has another file there by now
      continue;
    }
    if (S_ISDIR(info.st_mode)) return Fail(EISDIR), -1;
    Seekable = S_ISREG(info.st_mode) || S_ISBLK(info.st_mode);
    if (!S_ISREG(info.st_mode)) return handle.Release();
    if (writes && (info.st_mode & S_IWUSR) == 0) return Fail(EACCES), -1;
    if (!TakeShare(handle.Get(), share)) return Fail(EBUSY), -1;
    // Another may have put a new file in this one's place before the locks stood.
    const bool isRemote = IsRemote(handle.Get(), info);
    if (!IsStillAt(Native, info, isRemote) && tries < kOpenTries) continue;
    if (THandle anew = isRemote && !writes ? THeldTurn::OpenAnew(Native) : THandle(); anew.Get() >= 0) {
      handle = std::move(anew);
    }
    if (isRemote && !RefreshInfo(handle.Get(), info)) {
      if (GetLastError() != ESTALE || tries == kOpenTries) return -1;
      continue;
    }
    if (create && (Mode & kKeepContent) == 0 && !Check(::ftruncate(handle.Get(), 0) == 0)) return -1;
    return handle.Release();
  }
}

int64_t ReadBytes(int Handle, const std::string& Native, void* Buffer, size_t Count, int64_t Position) {
  if (!Permitted(foRead, Native)) return -1;
  Count = TakeReads(std::min(Count, kMaxRead));
  size_t done = 0;
  while (done < Count) {
    char* to = static_cast<char*>(Buffer) + done;
    ssize_t got = Position < 0 ? ::read(Handle, to, Count - done)
                               : ::pread(Handle, to, Count - done, Position + static_cast<off_t>(done));
    if (got < 0 && errno == EINTR) continue;
    if (!Check(got >= 0)) return -1;
    if (got == 0) break;
    done += static_cast<size_t>(got);
  }
  return static_cast<int64_t>(done);
}

bool WriteBytes(int Handle, const std::string& Native, const void* Buffer, size_t Count, int64_t Position,
                size_t& Done) {
  Done = 0;
  if (!Permitted(foWrite, Native)) return false;
  const size_t room = TakeSpace(Count);
  while (Done < room) {
    const char* from = static_cast<const char*>(Buffer) + Done;
    ssize_t put = Position < 0 ? ::write(Handle, from, room - Done)
                               : ::pwrite(Handle, from, room - Done, Position + static_cast<off_t>(Done));
    if (put < 0 && errno == EINTR) continue;
    if (!Check(put >= 0)) return false;
    if (put == 0) return Fail(ENOSPC);
    Done += static_cast<size_t>(put);
  }
  return room == Count || Fail(ENOSPC);
}

bool CloseFile(int Handle) noexcept { return THandle(Handle).Close(); }

int64_t SizeOf(int Handle) noexcept {
  struct stat info;
  return ::fstat(Handle, &info) == 0 && S_ISREG(info.st_mode) ? info.st_size : 0;
}

bool SetSizeOf(int Handle, int64_t Size) noexcept { return Check(::ftruncate(Handle, Size) == 0); }

bool FlushFile(int Handle) noexcept { return Check(::fsync(Handle) == 0); }

bool SetLastWriteOf(int Handle, os::TMoment Stamp) noexcept {
  const timespec times[2] = {{0, UTIME_OMIT}, {static_cast<time_t>(Stamp.Seconds), Stamp.Nanoseconds}};
  return Check(::futimens(Handle, times) == 0);
}

}  // namespace vx::files
