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

namespace vx {
namespace files {
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

ssize_t ReadBytes(int Handle, const std::string& Native, void* Buffer, size_t Count, int64_t Position) {
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
  return static_cast<ssize_t>(done);
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

}  // namespace files

using files::kCannotCreate;
using files::kCannotOpen;
using files::kCannotRead;
using files::kCannotWrite;
using files::Raise;

TFileStream::TFileStream(const String& Path, uint32_t Mode) : FPath(Path) {
  if (files::NativePath(Path, FNative)) FHandle = files::OpenFile(FNative, Mode, FSeekable);
  if (FHandle >= 0) return;
  if ((Mode & fmCreate) != 0) Raise<EFCreateError>(kCannotCreate, Path);
  Raise<EFOpenError>(kCannotOpen, Path);
}

TFileStream::~TFileStream() { files::THandle(FHandle).Close(); }

size_t TFileStream::Read(void* Buffer, size_t Count) {
  if (FSeekable && FPosition < 0) {
    files::Fail(EINVAL);
    Raise<EReadError>(kCannotRead, FPath);
  }
  size_t done = 0;
  while (done < Count) {
    char* to = static_cast<char*>(Buffer) + done;
    const size_t wanted = std::min(Count - done, files::kMaxRead);
    ssize_t got = files::ReadBytes(FHandle, FNative, to, wanted, FSeekable ? FPosition : -1);
    if (got < 0) Raise<EReadError>(kCannotRead, FPath);
    FPosition += got;
    done += static_cast<size_t>(got);
    if (static_cast<size_t>(got) < wanted) break;
  }
  return done;
}

void TFileStream::ReadRest(std::string& Bytes, size_t Most) {
  constexpr size_t kLeastRoom = 64 * 1024;
  size_t done = 0;
  // One byte more than is known of shows that the file has ended.
  auto room = static_cast<size_t>(std::max<int64_t>(GetSize() - FPosition, 0)) + 1;
  for (;; room = std::max(done, kLeastRoom)) {
    room = std::min(room, files::kMaxRead);
    const size_t before = Bytes.size();
    Bytes.resize(before + room);
    size_t got = 0;
    try {
      got = Read(Bytes.data() + before, room);
    } catch (...) {
      Bytes.resize(before);
      throw;
    }
    Bytes.resize(before + got);
    done += got;
    if (done > Most) throw EReadError(Format(kCannotRead, {FPath.view(), u"The file is too large."}));
    if (got < room) return;
  }
}

void TFileStream::ReadBuffer(void* Buffer, size_t Count) {
  if (Read(Buffer, Count) == Count) return;
  throw EReadError(Format(kCannotRead, {FPath.view(), u"The file ends before."}));
}

void TFileStream::WriteBuffer(const void* Buffer, size_t Count) {
  size_t done = 0;
  bool ok = FSeekable && FPosition < 0
                ? files::Fail(EINVAL)
                : files::WriteBytes(FHandle, FNative, Buffer, Count, FSeekable ? FPosition : -1, done);
  FPosition += static_cast<int64_t>(done);
  if (!ok) Raise<EWriteError>(kCannotWrite, FPath);
}

int64_t TFileStream::GetSize() const {
  struct stat info;
  return ::fstat(FHandle, &info) == 0 && S_ISREG(info.st_mode) ? info.st_size : 0;
}

void TFileStream::SetSize(int64_t Value) {
  if (files::Permitted(foSetSize, FNative) && files::Check(::ftruncate(FHandle, Value) == 0)) return;
  Raise<EWriteError>(kCannotWrite, FPath);
}

bool TFileStream::Flush() noexcept { return files::Permitted(foFlush, FNative) && files::Check(::fsync(FHandle) == 0); }

bool TFileStream::SetLastWrite(TDateTime Local) noexcept {
  return files::Guarded([&] {
    timespec times[2] = {{0, UTIME_OMIT}, {0, 0}};
    if (!files::LocalToStamp(Local, times[1])) return files::Fail(EINVAL);
    return files::Permitted(foSetTime, FNative) && files::Check(::futimens(FHandle, times) == 0);
  });
}

}  // namespace vx
