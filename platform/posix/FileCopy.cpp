#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>

#include <cerrno>
#include <cstring>

#include "platform/posix/FilesInternal.h"

namespace vx::files {
namespace {

constexpr size_t kCopyBlock = 262144;

bool SameFile(const struct stat& A, const struct stat& B) noexcept {
  return A.st_dev == B.st_dev && A.st_ino == B.st_ino;
}

// True if both paths lead to one entry of one directory.
bool SameEntry(const std::string& A, const std::string& B) {
  struct stat a, b;
  return A.substr(A.rfind('/') + 1) == B.substr(B.rfind('/') + 1) && ::stat(DirectoryOf(A).c_str(), &a) == 0 &&
         ::stat(DirectoryOf(B).c_str(), &b) == 0 && SameFile(a, b) && ::lstat(A.c_str(), &a) == 0;
}

// A new file that vanishes with the object unless it has been put in its place.
class TTempFile {
 public:
  explicit TTempFile(const std::string& Directory) : FPath(Directory + "/.vxXXXXXX"), FHandle(Make(FPath)) {}
  ~TTempFile() {
    if (FExists) ::unlink(FPath.c_str());
  }
  TTempFile(const TTempFile&) = delete;
  TTempFile& operator=(const TTempFile&) = delete;
  int Get() const noexcept { return FHandle.Get(); }
  bool PutAt(const std::string& Target) noexcept {
    if (!FHandle.Close() || !Check(::rename(FPath.c_str(), Target.c_str()) == 0)) return false;
    FExists = false;
    return true;
  }

 private:
  int Make(std::string& Path) noexcept {
    int handle = ::mkostemp(Path.data(), O_CLOEXEC);
    FExists = handle >= 0;
    return handle;
  }
  bool FExists = false;
  std::string FPath;
  THandle FHandle;
};

bool CopyBytes(int From, bool Seekable, const std::string& Source, int To, const std::string& Target) {
  const std::unique_ptr<char[]> buffer(new char[kCopyBlock]);
  for (int64_t position = 0;;) {
    const int64_t got = ReadBytes(From, Source, buffer.get(), kCopyBlock, Seekable ? position : -1);
    size_t done = 0;
    if (got < 0 || !WriteBytes(To, Target, buffer.get(), static_cast<size_t>(got), -1, done)) return false;
    if (static_cast<size_t>(got) < kCopyBlock) return true;
    position += got;
  }
}

// Stamp and read-only attribute of Source; the other rights stay those of Old if there was a file.
bool CopyAttributes(int To, const struct stat& Source, const struct stat* Old) noexcept {
  mode_t mode = (Old != nullptr ? Old->st_mode : Source.st_mode) & 0777;
  mode = (Source.st_mode & S_IWUSR) == 0 ? mode & ~mode_t{0222} : mode | S_IWUSR;
  // Only some may give files away; who may not becomes the owner.
  if (Old != nullptr) (void)!::fchown(To, Old->st_uid, Old->st_gid);
  const timespec times[2] = {Source.st_atim, Source.st_mtim};
  return Check(::fchmod(To, mode) == 0 && ::futimens(To, times) == 0);
}

// Where no new file can be made beside Target, it is overwritten in its place.
bool CopyInPlace(int From, bool Seekable, const std::string& Source, int To, const std::string& Target) {
  struct stat info;
  if (!Check(::fstat(To, &info) == 0)) return false;
  if (S_ISREG(info.st_mode) && !Check(::ftruncate(To, 0) == 0)) return false;
  return CopyBytes(From, Seekable, Source, To, Target);
}

bool MoveAcross(const std::string& Source, const std::string& Target) {
  struct stat info;
  if (!Check(::lstat(Source.c_str(), &info) == 0)) return false;
  if (!S_ISREG(info.st_mode)) return Fail(EXDEV);
  if (!CopyOne(Source, Target)) return false;
  if (Check(::unlink(Source.c_str()) == 0)) return true;
  ::unlink(Target.c_str());
  return false;
}

}  // namespace

bool CopyOne(const std::string& Source, const std::string& Target) {
  if (!Permitted(foCopy, Source, Target)) return false;
  bool seekable = false, targetSeekable = false;
  struct stat info, old;
  THandle from(OpenFile(Source, fmOpenRead | fmShareDenyNone, seekable));
  if (from.Get() < 0 || !Check(::fstat(from.Get(), &info) == 0)) return false;
  const std::string place = BehindLinks(Target);
  const bool replaces = ::stat(place.c_str(), &old) == 0;
  THandle to;
  if (replaces) {
    if (SameFile(info, old)) return Fail(EEXIST);
    to = THandle(OpenFile(place, fmOpenReadWrite | fmShareExclusive, targetSeekable));
    if (to.Get() < 0) return false;
    if (!targetSeekable) return CopyInPlace(from.Get(), seekable, Source, to.Get(), Target);
  }
  TTempFile temp(DirectoryOf(place));
  if (temp.Get() < 0) {
    const bool inPlace = replaces && (errno == EACCES || errno == EPERM || errno == EROFS);
    if (!inPlace) return Check(false);
    if (!CopyInPlace(from.Get(), seekable, Source, to.Get(), Target)) return false;
    CopyAttributes(to.Get(), info, &old);  // as far as the owner of the file lets others
    return to.Close();
  }
  return CopyBytes(from.Get(), seekable, Source, temp.Get(), Target) &&
         CopyAttributes(temp.Get(), info, replaces ? &old : nullptr) && temp.PutAt(place);
}

bool MoveEntry(const std::string& Source, const std::string& Target) {
  if (::renameat2(AT_FDCWD, Source.c_str(), AT_FDCWD, Target.c_str(), RENAME_NOREPLACE) == 0) return true;
  const int error = errno;
  if (error == EEXIST && SameEntry(Source, Target)) return true;
  if (error != EINVAL && error != ENOSYS && error != EXDEV) return Fail(error);
  struct stat info;
  if (::lstat(Target.c_str(), &info) == 0) return Fail(EEXIST);
  if (::rename(Source.c_str(), Target.c_str()) == 0) return true;
  return errno == EXDEV ? MoveAcross(Source, Target) : Fail(errno);
}

bool PutInPlace(const std::string& Source, const std::string& Target) {
  const std::string place = BehindLinks(Target);
  struct stat info, old;
  if (!Check(::stat(Source.c_str(), &info) == 0)) return false;
  if (S_ISDIR(info.st_mode)) return Fail(EISDIR);
  if (::stat(place.c_str(), &old) == 0 && S_ISREG(old.st_mode)) {
    if ((old.st_mode & S_IWUSR) == 0) return Fail(EACCES);
    if (!Check(::chmod(Source.c_str(), old.st_mode & 0777) == 0)) return false;
    (void)!::chown(Source.c_str(), old.st_uid, old.st_gid);  // only some may give files away
  }
  return Check(::rename(Source.c_str(), place.c_str()) == 0);
}

}  // namespace vx::files
