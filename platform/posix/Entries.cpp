// Entries of directories.
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>

#include <cerrno>
#include <cstring>

#include "platform/Paths.h"
#include "platform/posix/FilesInternal.h"

namespace vx::files {

namespace {

constexpr int kMaxLinks = 40;

// "" if it can't be read or is cut.
std::string ReadLink(const std::string& Native) {
  char buffer[4096];
  ssize_t length = ::readlink(Native.c_str(), buffer, sizeof buffer);
  return length <= 0 || length == sizeof buffer ? std::string() : std::string(buffer, static_cast<size_t>(length));
}

bool IsHiddenName(const std::string& Native) noexcept {
  const size_t end = Native.find_last_not_of('/');
  if (end == Native.npos) return false;
  const size_t slash = Native.rfind('/', end);
  return Native[slash == Native.npos ? 0 : slash + 1] == '.';
}

}  // namespace

bool Check(bool Ok) noexcept { return Ok || Fail(errno); }

bool NativePath(const String& Path, std::string& Native) {
  Native = ToNativePath(Path);
  if (Native.empty()) return Fail(ENOENT);
  return Native.find('\0') == Native.npos || Fail(EINVAL);
}

int LookUp(const std::string& Native, TLinks Links, TEntry& Entry) noexcept {
  struct stat info;
  const int failed = Links == TLinks::Follow ? ::stat(Native.c_str(), &info) : ::lstat(Native.c_str(), &info);
  if (failed != 0) return errno;
  Entry.IsDirectory = S_ISDIR(info.st_mode);
  Entry.IsFile = S_ISREG(info.st_mode);
  Entry.IsLink = S_ISLNK(info.st_mode);
  Entry.IsHidden = IsHiddenName(Native);
  Entry.IsReadOnly = (info.st_mode & S_IWUSR) == 0;
  Entry.Size = Entry.IsFile ? info.st_size : 0;
  Entry.LastWrite = MomentOf(info.st_mtim);
  Entry.Drive = info.st_dev;
  Entry.Id = info.st_ino;
  return 0;
}

bool ListNames(const std::string& Native, std::vector<std::string>& Names) {
  const TDirectory directory(::opendir(Native.c_str()));
  if (!Check(directory != nullptr)) return false;
  while (const dirent* entry = ::readdir(directory.get())) {
    if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0) Names.push_back(entry->d_name);
  }
  return true;
}

std::string WholePath(const std::string& Native) {
  char* found = ::realpath(Native.c_str(), nullptr);
  if (found == nullptr) return {};
  std::string result = found;
  ::free(found);
  return result;
}

std::string DirectoryOf(const std::string& Native) {
  size_t slash = Native.rfind('/');
  if (slash == Native.npos) return ".";
  return slash == 0 ? "/" : Native.substr(0, slash);
}

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

bool RemoveFile(const std::string& Native) noexcept { return Check(::unlink(Native.c_str()) == 0); }

bool RemoveDirectory(const std::string& Native) noexcept { return Check(::rmdir(Native.c_str()) == 0); }

bool MakeDirectory(const std::string& Native) noexcept { return Check(::mkdir(Native.c_str(), 0777) == 0); }

bool SetReadOnlyAt(const std::string& Native, bool ReadOnly) noexcept {
  struct stat info;
  if (!Check(::stat(Native.c_str(), &info) == 0)) return false;
  const mode_t all = info.st_mode & 07777;
  const mode_t mode = ReadOnly ? all & ~mode_t{0222} : all | S_IWUSR;
  return mode == all || Check(::chmod(Native.c_str(), mode) == 0);
}

bool CopyLink(const std::string& Source, const std::string& Target) {
  return Check(::symlink(ReadLink(Source).c_str(), Target.c_str()) == 0);
}

}  // namespace vx::files
