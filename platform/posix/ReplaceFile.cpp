// New content for a file, which the old one stands beside until the new one is whole.
#include <fcntl.h>
#include <stdio.h>
#include <sys/xattr.h>
#include <time.h>

#include <cerrno>
#include <cstring>
#include <optional>

#include "platform/SafeFiles.h"
#include "platform/posix/Drives.h"
#include "platform/posix/FileLocks.h"
#include "platform/posix/HeldTurn.h"
#include "platform/posix/NewContent.h"

namespace vx {
namespace files {
namespace {

constexpr int kTries = 10;
constexpr int kLockDirWait = 1000;       // milliseconds
constexpr int64_t kSecond = 1000000000;  // in nanoseconds
constexpr int64_t kLeastStep = 10000;    // what a date-time of our days can tell
constexpr int64_t kClockIsBack = 60;     // seconds, on a drive that knows whole ones only

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

// The stamp that a file with the stamp Old must get so that all see a change; Now is what the clock gave it. False if
// that does. Where the clock has gone back far, its time counts.
bool NeedsStamp(const timespec& Old, const timespec& Now, bool IsRemote, timespec& Stamp) noexcept {
  const bool isCoarse = IsRemote && Old.tv_nsec == 0 && Now.tv_nsec == 0;
  const int64_t seconds = int64_t{Now.tv_sec} - Old.tv_sec, back = isCoarse ? kClockIsBack : 1;
  if (seconds > 1 || seconds < -back) return false;
  const int64_t step = seconds * kSecond + Now.tv_nsec - Old.tv_nsec;
  if (step >= kLeastStep || step <= -back * kSecond) return false;
  Stamp = isCoarse ? timespec{Old.tv_sec + 1, 0} : timespec{Old.tv_sec, Old.tv_nsec + kLeastStep};
  if (Stamp.tv_nsec >= kSecond) Stamp = {Old.tv_sec + 1, Stamp.tv_nsec - kSecond};
  return true;
}

struct TContent {
  int64_t Size;
  FunctionRef<std::string_view(int64_t At)> PieceAt;
};

// Runs for one file. Whoever replaces it holds it, if there is one, and the temporary file exclusively.
class TReplacement {
 public:
  // Turn is that of the caller; nullptr for none.
  TReplacement(const std::string& Native, const TContent& Content, THeldTurn* Turn)
      : FNative(Native), FPlace(BehindLinks(Native)), FContent(Content), FTurn(Turn) {}

  bool Run() {
    for (int tries = 0; tries < kTries; ++tries) {
      const TStep step = Attempt();
      if (step == stInPlace) return WriteInPlace();
      if (step != stAgain) return step == stDone;
    }
    FTaken = false;
    return Fail(EBUSY);
  }
  // False if Run failed before anything could be changed, or nobody knows what it changed.
  bool IsTaken() const noexcept { return FTaken; }
  const timespec& GetStamp() const noexcept { return FNew.st_mtim; }

 private:
  enum TStep { stDone, stFailed, stInPlace, stAgain };

  TStep Attempt() {
    FTaken = false;
    if (FTurn != nullptr && FTurn->IsRemote) RefreshName(FPlace);
    const bool exists = ::stat(FPlace.c_str(), &FOld) == 0;
    FIsNew = !exists && errno == ENOENT && !FPlace.ends_with('/');
    if (!(FIsNew ? Permitted(foCreate, FNative) : Take(exists ? kMustExist : 0))) {
      return exists && GetLastError() == ENOENT ? stAgain : stFailed;
    }
    if (!HasTurn()) return FTaken = false, Fail(EBUSY), stFailed;
    if (!FIsNew && !IsReplaceable()) return stInPlace;
    FTemp.emplace(FPlace, Directory());
    if (!FTemp->Make(FIsNew)) return WithoutTemp(GetLastError());
    FNew = FTemp->GetInfo();
    FTaken = true;
    if (!FIsNew && !TakeOverRights()) return stInPlace;
    const int file = FTemp->Get();
    return WriteContent(file, true) && Finish(file) ? Put() : stFailed;
  }

  bool Take(uint32_t Further) {
    FFile = THandle(OpenFile(FNative, fmCreate | fmShareExclusive | kKeepContent | Further, FSeekable));
    if (FFile.Get() < 0 || !Check(::fstat(FFile.Get(), &FOld) == 0)) return false;
    FTaken = !S_ISREG(FOld.st_mode) || IsStillAt(FPlace, FOld);
    return FTaken || Fail(EBUSY);
  }

  // Whether the caller's turn is on this file, or there is no need of one. Where locks don't hold between machines a
  // turn is taken here.
  bool HasTurn() {
    if (FTurn != nullptr) {
      std::lock_guard lock(THeldTurn::Mutex);
      return FTurn->Directory.IsTaken() || FTurn->IsOn(FIsNew ? nullptr : &FOld) || !(FIsNew || S_ISREG(FOld.st_mode));
    }
    if (FIsNew || !S_ISREG(FOld.st_mode) || FOwn.IsTaken()) return true;
    const TDriveKind kind = DriveOf(FFile.Get(), FOld);
    if (kind != dkCreation) return kind != dkUnknown;
    for (TPolling polling(kLockDirWait); !FOwn.TryTake(FPlace);) {
      if (GetLastError() != EBUSY || !polling.Wait()) return false;
    }
    return true;
  }
  TLockDir* Directory() noexcept { return FTurn != nullptr ? &FTurn->Directory : &FOwn; }
  bool IsInDirectory() noexcept { return Directory()->IsTaken(); }

  bool IsReplaceable() const noexcept {
    return S_ISREG(FOld.st_mode) && FOld.st_nlink == 1 && (FOld.st_mode & 07000) == 0 && !HasAttributes(FFile.Get());
  }

  TStep WithoutTemp(int Error) noexcept {
    if (Error == EBUSY || IsInDirectory()) return FTaken = false, stFailed;
    const bool forbidden = Error == EACCES || Error == EPERM || Error == EROFS;
    return forbidden || Error == ENAMETOOLONG || Error == EISDIR ? stInPlace : stFailed;
  }

  bool TakeOverRights() const noexcept {
    const int file = FTemp->Get();
    const bool sameOwner = FNew.st_uid == FOld.st_uid && FNew.st_gid == FOld.st_gid;
    const bool sameRights = ((FNew.st_mode ^ FOld.st_mode) & 0777) == 0;
    return Permitted(foAttributes, FTemp->GetPath()) && (sameOwner || ::fchown(file, FOld.st_uid, FOld.st_gid) == 0) &&
           (sameRights || ::fchmod(file, FOld.st_mode & 0777) == 0) && !HasAttributes(file);
  }

  // Brings what was written to the disk, with a stamp that differs from the old one.
  bool Finish(int Handle) {
    const std::string& temp = FTemp ? FTemp->GetPath() : FPlace;
    if (!Permitted(foFlush, temp, FNative) || !Check(::fdatasync(Handle) == 0 && ::fstat(Handle, &FNew) == 0)) {
      return false;
    }
    timespec times[2] = {{0, UTIME_OMIT}, {}};
    if (FIsNew || !NeedsStamp(FOld.st_mtim, FNew.st_mtim, IsRemote(Handle, FNew), times[1])) return true;
    // Who writes to another's file may not set its stamp; then it stays that of the clock.
    if (Permitted(foSetTime, temp, FNative)) ::futimens(Handle, times);
    return Check(::fstat(Handle, &FNew) == 0);
  }

  TStep Put() {
    if (!IsInDirectory() && !FTemp->IsStillThere()) return Fail(EBUSY), stFailed;
    if (Permitted(foRename, FTemp->GetPath(), FNative) && PutInPlace()) return ReadsBack() ? stDone : stFailed;
    const int error = GetLastError();
    if (error == ENOENT && IsInDirectory()) return FTaken = false, Fail(EBUSY), stFailed;  // the turn was lost
    if (FIsNew && error == EEXIST) return FTemp->Drop(), stAgain;
    // The file is a mount point.
    return error == EBUSY ? stInPlace : stFailed;
  }

  // The turn that this process holds on the file goes over to the new one.
  bool PutInPlace() {
    std::lock_guard lock(THeldTurn::Mutex);
    THeldTurn* turn = FTurn != nullptr ? FTurn : THeldTurn::Find(FIsNew ? nullptr : &FOld, FPlace);
    if (turn != nullptr && !TryLock(FTemp->Get(), lbTurn)) turn = nullptr;
    if (!(FIsNew ? PutAnew() : Check(::rename(FTemp->GetPath().c_str(), FPlace.c_str()) == 0))) return false;
    THandle file = FTemp->Release();
    if (turn != nullptr) turn->MoveTo(std::move(file));
    return true;
  }

  bool PutAnew() const noexcept {
    const char* const temp = FTemp->GetPath().c_str();
    if (::renameat2(AT_FDCWD, temp, AT_FDCWD, FPlace.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return Check(false);
    return Check(::rename(temp, FPlace.c_str()) == 0);
  }

  // What can't be made sure by locks is looked at again, past what this machine remembers.
  bool ReadsBack() {
    if (!IsInDirectory()) return true;
    RefreshName(FPlace);
    THandle file = Directory()->OpenAnew(FPlace);
    if (file.Get() < 0) file = THandle(::open(FPlace.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat info;
    bool same = file.Get() >= 0 && RefreshInfo(file.Get(), info) && info.st_size == FContent.Size;
    if (same) ::posix_fadvise(file.Get(), 0, 0, POSIX_FADV_DONTNEED);
    std::string bytes;
    for (int64_t at = 0; same && at < FContent.Size; at += static_cast<int64_t>(bytes.size())) {
      const std::string_view piece = FContent.PieceAt(at);
      bytes.resize(piece.size());
      same = ReadBytes(file.Get(), FNative, bytes.data(), bytes.size(), at) == static_cast<int64_t>(piece.size()) &&
             bytes == piece;
    }
    if (!same) FTaken = false;
    return same || Fail(EBUSY);
  }

  bool WriteContent(int Handle, bool IsSeekable) {
    size_t done = 0;
    int64_t at = 0;
    do {
      const std::string_view piece = FContent.PieceAt(at);
      if (!WriteBytes(Handle, FNative, piece.data(), piece.size(), IsSeekable ? at : -1, done)) return false;
      at += static_cast<int64_t>(done);
    } while (at < FContent.Size);
    return true;
  }

  bool WriteInPlace() {
    FTemp.reset();
    if (FFile.Get() < 0 && !Take(0)) return false;
    if (!S_ISREG(FOld.st_mode)) {
      return WriteContent(FFile.Get(), FSeekable);
    }
    (void)TNewContent(FPlace, Directory()).ClearLeft();  // it is in nobody's way if it can't be removed
    const bool ok = Check(::ftruncate(FFile.Get(), 0) == 0) && WriteContent(FFile.Get(), true) && Finish(FFile.Get());
    if (!ok && FIsNew) ::unlink(FPlace.c_str());
    return ok && ReadsBack();
  }

  std::string FNative;  // as told
  std::string FPlace;   // behind symbolic links
  const TContent& FContent;
  THeldTurn* FTurn;
  TLockDir FOwn;
  THandle FFile;
  std::optional<TNewContent> FTemp;
  struct stat FOld {
  }, FNew{};
  bool FIsNew = false, FTaken = false, FSeekable = false;
};

TDateTime Replace(const String& Path, const TContent& Content, THeldTurn* Turn) {
  std::string native;
  if (!NativePath(Path, native)) Raise<EFCreateError>(kCannotCreate, Path);
  TReplacement replacement(native, Content, Turn);
  if (!replacement.Run()) {
    if (replacement.IsTaken()) Raise<EWriteError>(kCannotWrite, Path);
    Raise<EFCreateError>(kCannotCreate, Path);
  }
  return ToldStamp(native, StampToLocal(MomentOf(replacement.GetStamp())));
}

TDateTime Replace(const String& Path, std::string_view Bytes, THeldTurn* Turn) {
  const auto rest = [&](int64_t at) { return Bytes.substr(static_cast<size_t>(at)); };
  return Replace(Path, TContent{static_cast<int64_t>(Bytes.size()), rest}, Turn);
}

}  // namespace
}  // namespace files

TDateTime ReplaceFileContent(const String& Path, std::string_view Bytes) {
  return files::Replace(Path, Bytes, nullptr);
}

TDateTime ReplaceFileContent(const String& Path, int64_t Size, FunctionRef<std::string_view(int64_t At)> PieceAt) {
  return files::Replace(Path, files::TContent{Size, PieceAt}, nullptr);
}

TDateTime ReplaceFileContent(const String& Path, std::string_view Bytes, const TFileTurn& Turn) {
  if (!Turn.IsHeld()) {
    files::Fail(Turn.GetError() != 0 ? Turn.GetError() : EBUSY);
    files::Raise<EFCreateError>(files::kCannotCreate, Path);
  }
  return files::Replace(Path, Bytes, Turn.FHeld.get());
}

}  // namespace vx
