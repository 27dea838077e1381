#include <fcntl.h>
#include <sys/file.h>
#include <time.h>

#include <algorithm>
#include <cerrno>

#include "platform/Clock.h"
#include "platform/SafeFiles.h"
#include "platform/posix/Drives.h"
#include "platform/posix/FileLocks.h"
#include "platform/posix/HeldTurn.h"

namespace vx {
namespace files {

namespace {

// All that this process holds.
constinit THeldTurn* First = nullptr;

// A forked process shares the locks of the handle, so that closing it is not enough.
void GiveBack(const THandle& Handle) noexcept {
  if (Handle.Get() < 0) return;
  Unlock(Handle.Get(), lbTurn);
  ::flock(Handle.Get(), LOCK_UN);  // of a directory
}

}  // namespace

TPolling::TPolling(int Milliseconds) : FEnd(GetTickCount() + std::max(Milliseconds, 0)) {}

bool TPolling::Wait() {
  if (GetTickCount() >= FEnd) return false;
  if (FPause >= 1000000) return Sleep(1), true;
  const timespec pause{0, FPause};
  ::nanosleep(&pause, nullptr);
  FPause *= 2;
  return true;
}

constinit std::mutex THeldTurn::Mutex;

THeldTurn::~THeldTurn() {
  std::lock_guard lock(Mutex);
  if (!FIsListed) return;
  THeldTurn** place = &First;
  while (*place != this) place = &(*place)->FNext;
  *place = FNext;
  GiveBack(Handle);
}

void THeldTurn::List() {
  std::lock_guard lock(Mutex);
  FNext = std::exchange(First, this);
  FIsListed = true;
}

THeldTurn* THeldTurn::Find(const struct stat* Info, const std::string& Place) noexcept {
  THeldTurn* turn = First;
  while (turn != nullptr && !(Info != nullptr ? turn->IsOn(Info) : turn->IsOn(nullptr) && turn->Place == Place)) {
    turn = turn->FNext;
  }
  return turn;
}

THandle THeldTurn::OpenAnew(const std::string& Native) {
  std::lock_guard lock(Mutex);
  for (THeldTurn* turn = First; turn != nullptr; turn = turn->FNext) {
    if (turn->Native == Native && turn->Directory.IsTaken()) return turn->Directory.OpenAnew(turn->Place);
  }
  return THandle();
}

bool THeldTurn::IsOn(const struct stat* Info) const noexcept {
  struct stat held;
  if (Handle.Get() < 0 || ::fstat(Handle.Get(), &held) != 0) return false;
  if (S_ISDIR(held.st_mode)) return Info == nullptr;
  return Info != nullptr && held.st_dev == Info->st_dev && held.st_ino == Info->st_ino;
}

void THeldTurn::MoveTo(THandle AHandle) noexcept {
  GiveBack(Handle);
  Handle = std::move(AHandle);
}

// What the turn is held by: the file itself or, if it is not there, its directory.
bool THeldTurn::Open() {
  Handle = THandle(::open(Native.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  IsNew = Handle.Get() < 0 && errno == ENOENT;
  if (IsNew) {
    const size_t name = Native.rfind('/');
    const std::string directory = name == Native.npos ? "." : name == 0 ? "/" : Native.substr(0, name);
    Handle = THandle(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  if (!Check(Handle.Get() >= 0 && ::fstat(Handle.Get(), &FInfo) == 0)) return false;
  IsRemote = files::IsRemote(Handle.Get(), FInfo);
  if (!S_ISREG(FInfo.st_mode)) return IsNew || !S_ISDIR(FInfo.st_mode) || Fail(EISDIR);
  return (FInfo.st_mode & S_IWUSR) != 0 || Fail(EACCES);
}

THeldTurn::TTry THeldTurn::Lock() {
  bool isTaken = false;
  const bool isFile = S_ISREG(FInfo.st_mode);
  if (!isFile && !IsNew) return tryGot;  // a device or the like: nothing stands in it
  const TDriveKind kind = isFile ? DriveOf(Handle.Get(), FInfo) : IsRemote ? dkCreation : dkOwn;
  if (kind == dkUnknown) return tryAgain;
  if (kind != dkCreation) {
    isTaken = isFile ? TryLock(Handle.Get(), lbTurn)
                     : ::flock(Handle.Get(), LOCK_EX | LOCK_NB) == 0 || Fail(errno == EWOULDBLOCK ? EBUSY : errno);
    if (!isTaken && !HasNoLocks(GetLastError())) return GetLastError() == EBUSY ? tryBusy : tryFailed;
  }
  if (isTaken || Directory.TryTake(Place)) return tryGot;
  return GetLastError() == EBUSY ? tryBusy : tryFailed;
}

// Whether the turn is on what stands there now.
bool THeldTurn::IsStill() const {
  struct stat now;
  if (!IsNew) return !S_ISREG(FInfo.st_mode) || IsStillAt(Native, FInfo, IsRemote);
  if (IsRemote) RefreshName(Native);
  return ::stat(Native.c_str(), &now) != 0 && errno == ENOENT;
}

THeldTurn::TTry THeldTurn::Try() {
  if (Handle.Get() < 0 && !Open()) {
    const int error = GetLastError();
    Handle = THandle();
    if (error == ESTALE) RefreshName(Native);
    return error == ESTALE ? tryAgain : tryFailed;
  }
  const TTry result = Lock();
  if (result == tryBusy || (result == tryGot && IsStill())) return result;
  // Another file stands there by now, or the server knows this one no more.
  const bool isGone = result != tryFailed || (IsRemote && !IsStill());
  Directory.Release();
  GiveBack(Handle);
  Handle = THandle();
  return isGone ? tryAgain : result;
}

}  // namespace files

using files::THeldTurn;

TFileTurn::TFileTurn() noexcept = default;
TFileTurn::~TFileTurn() = default;

bool TFileTurn::Take(const String& Path, int Milliseconds) {
  Release();
  const bool isTaken = files::Guarded([&] {
    std::string native;
    if (!files::NativePath(Path, native)) return false;
    auto held = std::make_unique<THeldTurn>(native);
    for (files::TPolling polling(Milliseconds);;) {
      const THeldTurn::TTry result = held->Try();
      if (result == THeldTurn::tryGot) break;
      if (result == THeldTurn::tryFailed) return false;
      if ((result == THeldTurn::tryBusy || held->IsRemote) && !polling.Wait()) return files::Fail(EBUSY);
    }
    held->List();
    FHeld = std::move(held);
    return true;
  });
  FError = isTaken ? 0 : GetLastError();
  return isTaken;
}

void TFileTurn::Release() noexcept { FHeld.reset(); }

bool TFileTurn::IsToMake() const noexcept { return FHeld != nullptr && FHeld->IsNew; }

bool TFileTurn::IsOthers() const noexcept { return FError == EBUSY; }

}  // namespace vx
