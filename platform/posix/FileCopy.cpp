#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>

#include <cerrno>
#include <cstring>

#include "platform/posix/FilesInternal.h"

namespace vx {
namespace files {
namespace {

constexpr size_t kCopyBlock = 262144;
constexpr int kMaxLinks = 40;

std::string DirectoryOf(const std::string& Native) {
  size_t slash = Native.rfind('/');
  if (slash == Native.npos) return ".";
  return slash == 0 ? "/" : Native.substr(0, slash);
}

// "" if it can't be read or is cut.
std::string ReadLink(const std::string& Native) {
  char buffer[4096];
  ssize_t length = ::readlink(Native.c_str(), buffer, sizeof buffer);
  return length <= 0 || length == sizeof buffer ? std::string() : std::string(buffer, static_cast<size_t>(length));
}

}  // namespace

std::string BehindLinks(std::string Native) {
  struct stat info;
  for (int links = 0; links < kMaxLinks; ++links) {
    if (::lstat(Native.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return Native;
    std::string to = ReadLink(Native);
    if (to.empty()) return Native;
    Native = to[0] == '/' ? to : DirectoryOf(Native) + "/" + to;
  }
  return Native;
}

namespace {

std::string RealPath(const std::string& Native) {
  char* found = ::realpath(Native.c_str(), nullptr);
  if (found == nullptr) return {};
  std::string result = found;
  ::free(found);
  return result;
}

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
    ssize_t got = ReadBytes(From, Source, buffer.get(), kCopyBlock, Seekable ? position : -1);
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

bool Move(const std::string& Source, const std::string& Target) {
  if (::renameat2(AT_FDCWD, Source.c_str(), AT_FDCWD, Target.c_str(), RENAME_NOREPLACE) == 0) return true;
  const int error = errno;
  if (error == EEXIST && SameEntry(Source, Target)) return true;
  if (error != EINVAL && error != ENOSYS && error != EXDEV) return Fail(error);
  struct stat info;
  if (::lstat(Target.c_str(), &info) == 0) return Fail(EEXIST);
  if (::rename(Source.c_str(), Target.c_str()) == 0) return true;
  return errno == EXDEV ? MoveAcross(Source, Target) : Fail(errno);
}

// What one copy of a directory has made, so that it can be taken back.
class TTreeCopy {
 public:
  bool Run(const std::string& Source, const std::string& Target) {
    if (Directory(Source, Target)) return true;
    const int error = GetLastError();
    for (auto made = FMade.rbegin(); made != FMade.rend(); ++made) ::remove(made->c_str());
    return Fail(error);
  }

 private:
  bool Directory(const std::string& Source, const std::string& Target) {
    struct stat info, old;
    if (!Check(::stat(Source.c_str(), &info) == 0)) return false;
    if (!S_ISDIR(info.st_mode)) return Fail(ENOTDIR);
    if (::stat(Target.c_str(), &old) != 0) {
      if (!Permitted(foMakeDir, Target) || !Check(::mkdir(Target.c_str(), 0777) == 0)) return false;
      FMade.push_back(Target);
    } else if (!S_ISDIR(old.st_mode)) {
      return Fail(ENOTDIR);
    }
    std::vector<std::string> names;
    if (!List(Source, names)) return false;
    for (const std::string& name : names) {
      if (!Entry(Source + "/" + name, Target + "/" + name)) return false;
    }
    return true;
  }

  static bool List(const std::string& Native, std::vector<std::string>& Names) {
    const TDirectory directory(::opendir(Native.c_str()));
    if (!Check(directory != nullptr)) return false;
    while (const dirent* entry = ::readdir(directory.get())) {
      if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0) Names.push_back(entry->d_name);
    }
    return true;
  }

  bool Entry(const std::string& Source, const std::string& Target) {
    struct stat info, old;
    if (!Check(::lstat(Source.c_str(), &info) == 0)) return false;
    if (S_ISDIR(info.st_mode)) return Directory(Source, Target);
    const bool isNew = ::lstat(Target.c_str(), &old) != 0;
    if (S_ISLNK(info.st_mode)) {
      if (!isNew && !Check(::unlink(Target.c_str()) == 0)) return false;
      if (!Check(::symlink(ReadLink(Source).c_str(), Target.c_str()) == 0)) return false;
    } else if (!S_ISREG(info.st_mode)) {
      return Fail(EOPNOTSUPP);
    } else if (!CopyOne(Source, Target)) {
      return false;
    }
    if (isNew) FMade.push_back(Target);
    return true;
  }

  std::vector<std::string> FMade;
};

bool BothNative(const String& A, const String& B, std::string& NativeA, std::string& NativeB) {
  return NativePath(A, NativeA) && NativePath(B, NativeB);
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

}  // namespace files

using files::BothNative;
using files::Check;
using files::Guarded;
using files::Permitted;

bool FileCopy(const String& Source, const String& Target) noexcept {
  return Guarded([&] {
    std::string source, target;
    return BothNative(Source, Target, source, target) && files::CopyOne(source, target);
  });
}

bool FileMove(const String& Source, const String& Target) noexcept {
  return Guarded([&] {
    std::string source, target;
    return BothNative(Source, Target, source, target) && Permitted(foRename, source, target) &&
           files::Move(source, target);
  });
}

bool FileReplace(const String& Source, const String& Target) noexcept {
  return Guarded([&] {
    std::string source, target;
    if (!BothNative(Source, Target, source, target) || !Permitted(foRename, source, target)) return false;
    const std::string place = files::BehindLinks(target);
    struct stat info, old;
    if (!Check(::stat(source.c_str(), &info) == 0)) return false;
    if (S_ISDIR(info.st_mode)) return files::Fail(EISDIR);
    if (::stat(place.c_str(), &old) == 0 && S_ISREG(old.st_mode)) {
      if ((old.st_mode & S_IWUSR) == 0) return files::Fail(EACCES);
      if (!Check(::chmod(source.c_str(), old.st_mode & 0777) == 0)) return false;
      (void)!::chown(source.c_str(), old.st_uid, old.st_gid);
    }
    return Check(::rename(source.c_str(), place.c_str()) == 0);
  });
}

bool DirectoryCopy(const String& Source, const String& Target) noexcept {
  return Guarded([&] {
    std::string source, target;
    if (!BothNative(Source, Target, source, target)) return false;
    while (target.size() > 1 && target.back() == '/') target.pop_back();
    std::string inner = files::RealPath(source);
    if (inner.empty()) return files::Fail(ENOENT);
    if (inner.back() != '/') inner += '/';
    std::string outer = files::RealPath(target);
    if (outer.empty()) outer = files::RealPath(files::DirectoryOf(target)) + "/" + target.substr(target.rfind('/') + 1);
    if ((outer + "/").starts_with(inner)) return files::Fail(EINVAL);
    return files::TTreeCopy().Run(source, target);
  });
}

}  // namespace vx
