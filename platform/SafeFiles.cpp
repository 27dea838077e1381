#include "platform/SafeFiles.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <time.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <mutex>

#include "platform/Clock.h"
#include "platform/FilesInternal.h"

namespace vx {

using files::Check;
using files::Fail;
using files::Permitted;
using files::THandle;

namespace {

constexpr int kTries = 10;
constexpr int kAppendWait = 1000;
constexpr int64_t kSecond = 1000000000;  // in nanoseconds
constexpr int64_t kLeastStep = 10000;    // what a date-time of our days can tell

// Waits between tries until the time is over: shortly at first, then by the clock.
class TPolling {
 public:
  explicit TPolling(int Milliseconds) : FEnd(GetTickCount() + std::max(Milliseconds, 0)) {}
  bool Wait() {
    if (GetTickCount() >= FEnd) return false;
    if (FPause >= 1000000) return Sleep(1), true;
    const timespec pause{0, FPause};
    ::nanosleep(&pause, nullptr);
    FPause *= 2;
    return true;
  }

 private:
  int64_t FEnd;
  long FPause = 50000;  // nanoseconds
};

}  // namespace

// The turns that this process holds.
struct TFileTurns {
  static std::mutex Mutex;
  static TFileTurn* First;

  static void Add(TFileTurn& Turn, int Handle) {
    std::lock_guard lock(Mutex);
    Turn.FHandle = Handle;
    Turn.FNext = std::exchange(First, &Turn);
  }
  static void Remove(TFileTurn& Turn) noexcept {
    std::lock_guard lock(Mutex);
    if (Turn.FHandle < 0) return;
    TFileTurn** place = &First;
    while (*place != &Turn) place = &(*place)->FNext;
    *place = Turn.FNext;
    Replace(Turn, -1);
  }
  // Under the mutex.
  static TFileTurn* Find(const struct stat& Info) noexcept {
    struct stat held;
    TFileTurn* turn = First;
    while (turn != nullptr &&
           !(::fstat(turn->FHandle, &held) == 0 && held.st_dev == Info.st_dev && held.st_ino == Info.st_ino)) {
      turn = turn->FNext;
    }
    return turn;
  }
  // Under the mutex. A forked process shares the lock of the old handle, so that closing it is not enough.
  static void Replace(TFileTurn& Turn, int Handle) noexcept {
    const THandle old(std::exchange(Turn.FHandle, Handle));
    files::Unlock(old.Get(), files::lbTurn);
    ::flock(old.Get(), LOCK_UN);  // of a directory
  }
};

constinit std::mutex TFileTurns::Mutex;
constinit TFileTurn* TFileTurns::First = nullptr;

namespace {

// Lets the turn that this process holds on the file Old go over to Temp, which is put in its place meanwhile.
class TTurnMove {
 public:
  TTurnMove(const struct stat& Old, const std::string& Temp) : FLock(TFileTurns::Mutex), FTurn(TFileTurns::Find(Old)) {
    if (FTurn == nullptr) return;
    FHandle = THandle(::open(Temp.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC));
    if (FHandle.Get() < 0 || !files::TryLock(FHandle.Get(), files::lbTurn)) FTurn = nullptr;
  }
  void Done() noexcept {
    if (FTurn != nullptr) TFileTurns::Replace(*FTurn, FHandle.Release());
  }

 private:
  std::lock_guard<std::mutex> FLock;
  TFileTurn* FTurn;
  THandle FHandle;
};

// Access lists and the like, which a new file would not have.
bool HasAttributes(int Handle) noexcept {
  char names[4096];
  const ssize_t size = ::flistxattr(Handle, names, sizeof names);
  if (size < 0) return errno == ERANGE;
  for (const char* name = names; name < names + size; name += std::strlen(name) + 1) {
    if (std::strncmp(name, "security.", 9) != 0) return true;
  }
  return false;
}

// New content for one file. The temporary file beside it has one fixed name; whoever writes there holds the file
// itself, if there is one, and the temporary file exclusively.
class TReplacement {
 public:
  TReplacement(const std::string& Native, std::string_view Bytes)
      : FNative(Native), FPlace(files::BehindLinks(Native)), FBytes(Bytes) {
    const size_t name = FPlace.rfind('/') + 1;
    FTemp = FPlace.substr(0, name) + "." + FPlace.substr(name) + ".vxnew";
  }
  ~TReplacement() { DropTemp(); }
  TReplacement(const TReplacement&) = delete;
  TReplacement& operator=(const TReplacement&) = delete;

  bool Run() {
    for (int tries = 0; tries < kTries; ++tries) {
      const TStep step = Attempt();
      if (step == stInPlace) return WriteInPlace();
      if (step != stAgain) return step == stDone;
    }
    FTaken = false;
    return Fail(EBUSY);
  }
  // False if Run failed before anything could be changed.
  bool IsTaken() const noexcept { return FTaken; }
  const timespec& GetStamp() const noexcept { return FNew.st_mtim; }

 private:
  enum TStep { stDone, stFailed, stInPlace, stAgain };

  TStep Attempt() {
    FTaken = false;
    const bool exists = ::stat(FPlace.c_str(), &FOld) == 0;
    FIsNew = !exists && errno == ENOENT && !FPlace.ends_with('/');
    if (!(FIsNew ? Permitted(foCreate, FNative) : Take(exists ? files::kMustExist : 0))) {
      return exists && GetLastError() == ENOENT ? stAgain : stFailed;
    }
    if (!FIsNew && !IsReplaceable()) return stInPlace;
    if (!MakeTemp()) return WithoutTemp(GetLastError());
    FTaken = true;
    if (!FIsNew && !TakeOverRights()) return stInPlace;
    size_t done = 0;
    const bool ok =
        files::WriteBytes(FTempFile.Get(), FNative, FBytes.data(), FBytes.size(), 0, done) && Finish(FTempFile.Get());
    return ok ? Put() : stFailed;
  }

  bool Take(uint32_t Further) {
    const uint32_t mode = fmCreate | fmShareExclusive | files::kKeepContent | Further;
    FFile = THandle(files::OpenFile(FNative, mode, FSeekable));
    if (FFile.Get() < 0 || !Check(::fstat(FFile.Get(), &FOld) == 0)) return false;
    FTaken = !S_ISREG(FOld.st_mode) || files::IsStillAt(FPlace, FOld);
    return FTaken || Fail(EBUSY);
  }

  bool IsReplaceable() const noexcept {
    return S_ISREG(FOld.st_mode) && FOld.st_nlink == 1 && (FOld.st_mode & 07000) == 0 && !HasAttributes(FFile.Get());
  }

  bool MakeTemp() {
    if (!Permitted(foCreate, FTemp)) return false;
    THandle file;
    for (int tries = 0; file.Get() < 0; ++tries) {
      file = THandle(::open(FTemp.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, FIsNew ? 0666 : 0600));
      if (file.Get() >= 0) break;
      if (errno != EEXIST) return Check(false);
      if (!ClearTemp()) return false;
      if (tries == kTries) return Fail(EBUSY);
    }
    if (!files::TakeExclusively(file.Get()) || !Check(::fstat(file.Get(), &FNew) == 0)) return false;
    if (!files::IsStillAt(FTemp, FNew)) return Fail(EBUSY);
    FTempFile = std::move(file);
    return true;
  }

  TStep WithoutTemp(int Error) noexcept {
    if (Error == EBUSY) FTaken = false;
    const bool forbidden = Error == EACCES || Error == EPERM || Error == EROFS;
    return forbidden || Error == ENAMETOOLONG || Error == EISDIR ? stInPlace : stFailed;
  }

  // Removes what a killed process left; fails while another one writes there.
  bool ClearTemp() const {
    struct stat info;
    if (::lstat(FTemp.c_str(), &info) != 0) return true;
    THandle left;
    if (S_ISREG(info.st_mode)) {
      left = THandle(::open(FTemp.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
      if (left.Get() < 0 && errno != EACCES) return errno == ENOENT || Check(false);
    }
    if (left.Get() >= 0) {
      if (!files::TakeExclusively(left.Get())) return false;
      if (!Check(::fstat(left.Get(), &info) == 0) || !files::IsStillAt(FTemp, info)) return true;
    }
    return Check(::unlink(FTemp.c_str()) == 0 || errno == ENOENT);
  }

  void DropTemp() noexcept {
    if (FTempFile.Get() >= 0 && files::IsStillAt(FTemp, FNew)) ::unlink(FTemp.c_str());
    FTempFile = THandle();
  }

  bool TakeOverRights() const noexcept {
    const int file = FTempFile.Get();
    const bool sameOwner = FNew.st_uid == FOld.st_uid && FNew.st_gid == FOld.st_gid;
    return Permitted(foAttributes, FTemp) && (sameOwner || ::fchown(file, FOld.st_uid, FOld.st_gid) == 0) &&
           ::fchmod(file, FOld.st_mode & 0777) == 0 && !HasAttributes(file);
  }

  // Brings what was written to the disk, with a stamp that differs from the old one. Where the clock has gone
  // back far, its time counts.
  bool Finish(int Handle) {
    if (!Permitted(foFlush, FTemp, FNative) || !Check(::fdatasync(Handle) == 0 && ::fstat(Handle, &FNew) == 0)) {
      return false;
    }
    const timespec &old = FOld.st_mtim, &now = FNew.st_mtim;
    if (FIsNew || now.tv_sec > old.tv_sec + 1 || now.tv_sec < old.tv_sec - 1) return true;
    const int64_t step = (now.tv_sec - old.tv_sec) * kSecond + now.tv_nsec - old.tv_nsec;
    if (step >= kLeastStep || step <= -kSecond) return true;
    timespec times[2] = {{0, UTIME_OMIT}, {old.tv_sec, old.tv_nsec + kLeastStep}};
    if (times[1].tv_nsec >= kSecond) times[1] = {old.tv_sec + 1, times[1].tv_nsec - kSecond};
    // Who writes to another's file may not set its stamp; then it stays that of the clock.
    if (Permitted(foSetTime, FTemp, FNative)) ::futimens(Handle, times);
    return Check(::fstat(Handle, &FNew) == 0);
  }

  TStep Put() {
    if (!files::IsStillAt(FTemp, FNew)) return Fail(EBUSY), stFailed;
    if (Permitted(foRename, FTemp, FNative) && (FIsNew ? PutAnew() : PutInPlaceOfOld())) {
      FTempFile = THandle();
      return stDone;
    }
    const int error = GetLastError();
    if (FIsNew && error == EEXIST) return DropTemp(), stAgain;
    // The file is a mount point.
    return error == EBUSY ? stInPlace : stFailed;
  }

  bool PutInPlaceOfOld() {
    TTurnMove turn(FOld, FTemp);
    if (!Check(::rename(FTemp.c_str(), FPlace.c_str()) == 0)) return false;
    turn.Done();
    return true;
  }

  bool PutAnew() const noexcept {
    if (::renameat2(AT_FDCWD, FTemp.c_str(), AT_FDCWD, FPlace.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return Check(false);
    return Check(::rename(FTemp.c_str(), FPlace.c_str()) == 0);
  }

  bool WriteInPlace() {
    DropTemp();
    if (FFile.Get() < 0 && !Take(0)) return false;
    size_t done = 0;
    if (!S_ISREG(FOld.st_mode)) {
      return files::WriteBytes(FFile.Get(), FNative, FBytes.data(), FBytes.size(), FSeekable ? 0 : -1, done);
    }
    (void)ClearTemp();
    const bool ok = Check(::ftruncate(FFile.Get(), 0) == 0) &&
                    files::WriteBytes(FFile.Get(), FNative, FBytes.data(), FBytes.size(), 0, done) &&
                    Finish(FFile.Get());
    if (!ok && FIsNew) ::unlink(FPlace.c_str());
    return ok;
  }

  std::string FNative;  // as told
  std::string FPlace;   // behind symbolic links
  std::string FTemp;
  std::string_view FBytes;
  THandle FFile, FTempFile;
  struct stat FOld {
  }, FNew{};
  bool FIsNew = false, FTaken = false, FSeekable = false;
};

// All of Bytes at the end, or none.
bool AppendWhole(int Handle, const std::string& Native, std::string_view Bytes) {
  struct stat info;
  if (!Check(::fstat(Handle, &info) == 0)) return false;
  size_t done = 0;
  if (files::WriteBytes(Handle, Native, Bytes.data(), Bytes.size(), -1, done)) return true;
  const int error = GetLastError();
  if (done > 0 && S_ISREG(info.st_mode)) (void)!::ftruncate(Handle, info.st_size);
  return Fail(error);
}

// The file, open to append, with the appender's lock where there are locks.
THandle OpenToAppend(const String& Path, std::string& Native) {
  if (!files::NativePath(Path, Native) || !Permitted(foOpen, Native)) return THandle();
  TPolling polling(kAppendWait);
  for (;;) {
    bool seekable = false;
    struct stat info;
    THandle file(files::OpenFile(Native, fmCreate | fmShareDenyNone | files::kKeepContent, seekable));
    if (file.Get() < 0 || !Check(::fstat(file.Get(), &info) == 0)) return THandle();
    if (!S_ISREG(info.st_mode)) return file;
    ::fcntl(file.Get(), F_SETFL, O_APPEND);
    while (!files::TryLock(file.Get(), files::lbAppends) && GetLastError() == EBUSY) {
      if (!polling.Wait()) return Fail(EBUSY), THandle();
    }
    if (files::IsStillAt(Native, info)) return file;
  }
}

// What a turn on the file is held by: the file itself or, if it is not there, its directory.
THandle OpenForTurn(const std::string& Native, struct stat& Info) noexcept {
  THandle file(::open(Native.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  if (file.Get() < 0 && errno == ENOENT) {
    const size_t name = Native.rfind('/');
    const std::string directory = name == Native.npos ? "." : name == 0 ? "/" : Native.substr(0, name);
    file = THandle(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  if (!Check(file.Get() >= 0 && ::fstat(file.Get(), &Info) == 0)) return THandle();
  if (S_ISDIR(Info.st_mode)) return file;
  if (!S_ISREG(Info.st_mode)) return Fail(EINVAL), THandle();
  if ((Info.st_mode & S_IWUSR) == 0) return Fail(EACCES), THandle();
  return file;
}

bool TryTurn(int Handle, const struct stat& Info) noexcept {
  if (!S_ISDIR(Info.st_mode)) return files::TryLock(Handle, files::lbTurn);
  return ::flock(Handle, LOCK_EX | LOCK_NB) == 0 || Fail(errno == EWOULDBLOCK ? EBUSY : errno);
}

// The turn is on what stands there now.
bool IsTurnStill(const std::string& Native, const struct stat& Info) noexcept {
  struct stat now;
  return S_ISDIR(Info.st_mode) ? ::stat(Native.c_str(), &now) != 0 : files::IsStillAt(Native, Info);
}

}  // namespace

TDateTime ReplaceFileContent(const String& Path, std::string_view Bytes) {
  std::string native;
  if (!files::NativePath(Path, native)) files::Raise<EFCreateError>(files::kCannotCreate, Path);
  TReplacement replacement(native, Bytes);
  if (!replacement.Run()) {
    if (replacement.IsTaken()) files::Raise<EWriteError>(files::kCannotWrite, Path);
    files::Raise<EFCreateError>(files::kCannotCreate, Path);
  }
  return files::ToldStamp(native, files::StampToLocal(replacement.GetStamp()));
}

void AppendToFile(const String& Path, std::string_view Bytes) {
  std::string native;
  const THandle file = OpenToAppend(Path, native);
  if (file.Get() < 0) files::Raise<EFOpenError>(files::kCannotOpen, Path);
  if (!AppendWhole(file.Get(), native, Bytes)) files::Raise<EWriteError>(files::kCannotWrite, Path);
}

bool TFileTurn::Take(const String& Path, int Milliseconds) {
  Release();
  return files::Guarded([&] {
    std::string native;
    if (!files::NativePath(Path, native) || !Permitted(foOpen, native)) return false;
    TPolling polling(Milliseconds);
    struct stat info {};
    for (THandle file;;) {
      if (file.Get() < 0) file = OpenForTurn(native, info);
      if (file.Get() < 0) return false;
      if (TryTurn(file.Get(), info)) {
        if (IsTurnStill(native, info)) return TFileTurns::Add(*this, file.Release()), true;
        file = THandle();  // another file stands there by now
      } else if (GetLastError() != EBUSY || !polling.Wait()) {
        return false;
      }
    }
  });
}

void TFileTurn::Release() noexcept { TFileTurns::Remove(*this); }

}  // namespace vx
