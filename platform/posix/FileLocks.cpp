#include "platform/posix/FileLocks.h"

#include <fcntl.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/FilesInternal.h"

namespace vx::files {

namespace {

static_assert(sizeof(off_t) == 8);

constexpr off_t kLockBase = 0x7FFFFFFFFFFFFF00;
constexpr int kShareTries = 6;
constexpr long kFirstPause = 50000;  // nanoseconds

struct flock LockOf(int First, int Count, short Type) noexcept {
  struct flock lock {};
  lock.l_type = Type;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockBase + First;
  lock.l_len = Count;
  return lock;
}

bool Set(int Handle, int First, int Count, short Type) noexcept {
  struct flock lock = LockOf(First, Count, Type);
  return ::fcntl(Handle, F_OFD_SETLK, &lock) == 0;
}

bool IsBusy(int Error) noexcept { return Error == EAGAIN || Error == EACCES; }

bool IsHeldByOther(int Handle, TLockByte Byte) noexcept {
  struct flock lock = LockOf(Byte, 1, F_WRLCK);
  return ::fcntl(Handle, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

// False if an exclusive opener is there. A descriptor that can't read can't hold the lock; it then is open unshared.
bool Hold(int Handle, int First, int Count) noexcept { return Set(Handle, First, Count, F_RDLCK) || !IsBusy(errno); }

bool Announce(int Handle, const TShare& Share) noexcept {
  if (Share.Reads && Share.DeniesWrite && !Hold(Handle, lbReads, 2)) return false;
  if (Share.Reads && !Share.DeniesWrite && !Hold(Handle, lbReads, 1)) return false;
  if (!Share.Reads && Share.DeniesWrite && !Hold(Handle, lbDeniesWrite, 1)) return false;
  return (!Share.Writes || Hold(Handle, lbWrites, 1)) && (!Share.DeniesRead || Hold(Handle, lbDeniesRead, 1));
}

// Who comes second sees what the first one announced; both may see each other.
bool TryShare(int Handle, const TShare& Share) noexcept {
  if (Share.Reads && Share.Writes && Share.DeniesRead && Share.DeniesWrite) {
    if (Set(Handle, lbReads, kShareBytes, F_WRLCK)) return true;
    if (IsBusy(errno)) return false;
  }
  const bool isFree = Announce(Handle, Share) && !(Share.Reads && IsHeldByOther(Handle, lbDeniesRead)) &&
                      !(Share.Writes && IsHeldByOther(Handle, lbDeniesWrite)) &&
                      !(Share.DeniesRead && IsHeldByOther(Handle, lbReads)) &&
                      !(Share.DeniesWrite && IsHeldByOther(Handle, lbWrites));
  if (!isFree) GiveShareBack(Handle);
  return isFree;
}

}  // namespace

bool TakeShare(int Handle, const TShare& Share) noexcept {
  // Another may only be trying as well. Pauses differ from process to process, so that one of them comes first.
  long pause = kFirstPause + ::getpid() % 64 * 1000;
  for (int tries = 1; !TryShare(Handle, Share); ++tries, pause *= 2) {
    if (tries == kShareTries) return false;
    const timespec time{0, pause};
    ::nanosleep(&time, nullptr);
  }
  return true;
}

bool TakeExclusively(int Handle) noexcept { return TakeShare(Handle, {true, true, true, true}) || Fail(EBUSY); }

void GiveShareBack(int Handle) noexcept { Set(Handle, lbReads, kShareBytes, F_UNLCK); }

bool TryLock(int Handle, TLockByte Byte) noexcept {
  return Set(Handle, Byte, 1, F_WRLCK) || Fail(IsBusy(errno) ? EBUSY : errno);
}

void Unlock(int Handle, TLockByte Byte) noexcept { Set(Handle, Byte, 1, F_UNLCK); }

bool HasNoLocks(int Error) noexcept {
  return Error == ENOLCK || Error == ENOSYS || Error == EOPNOTSUPP || Error == EINVAL;
}

bool TryProbe(int Handle) noexcept { return Check(Set(Handle, lbProbe, 1, F_RDLCK)); }

}  // namespace vx::files
