#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>

#include "platform/Clock.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/System.h"
#include "platform/Text.h"
#include "platform/posix/FilesInternal.h"

namespace vx {
namespace files {
namespace {

constexpr TDateTime kUnixEpoch = 25569;        // 1.1.1970
constexpr TDateTime kFirstDay = -693593;       // 1.1.0001
constexpr TDateTime kBehindLastDay = 2958466;  // 1.1.10000
constexpr int64_t kNanoseconds = 1000000000;

thread_local int LastError = 0;

}  // namespace

bool Fail(int Error) noexcept {
  LastError = Error;
  return false;
}

bool Check(bool Ok) noexcept { return Ok || Fail(errno); }

bool NativePath(const String& Path, std::string& Native) {
  Native = ToNativePath(Path);
  if (Native.empty()) return Fail(ENOENT);
  return Native.find('\0') == Native.npos || Fail(EINVAL);
}

TDateTime StampToLocal(const timespec& Stamp) {
  const Extended seconds = static_cast<Extended>(Stamp.tv_sec) + static_cast<Extended>(Stamp.tv_nsec) / kNanoseconds;
  const Extended days = seconds / 86400;
  const int offset = GetTimeZone().OffsetAtUtc(static_cast<TDateTime>(days + kUnixEpoch));
  return static_cast<TDateTime>(days + kUnixEpoch + static_cast<Extended>(offset) / 1440);
}

bool LocalToStamp(TDateTime Local, timespec& Stamp) {
  if (!(Local >= kFirstDay && Local < kBehindLastDay)) return false;
  Extended seconds =
      (static_cast<Extended>(Local) - kUnixEpoch) * 86400 - GetTimeZone().OffsetAtLocal(Local) * Extended{60};
  // A date-time comes a fraction of a microsecond beside the millisecond that it means.
  const Extended milliseconds = std::round(seconds * 1000);
  if (std::abs(seconds * 1000 - milliseconds) < Extended{0.001}) seconds = milliseconds / 1000;
  const Extended whole = std::floor(seconds);
  Stamp.tv_sec = static_cast<time_t>(whole);
  Stamp.tv_nsec = std::min<long>(std::lround((seconds - whole) * kNanoseconds), kNanoseconds - 1);
  return true;
}

namespace {

TFileInfo InfoOf(const std::string& Native, String Name, const struct stat& Info) {
  TFileInfo result;
  result.IsDirectory = S_ISDIR(Info.st_mode);
  result.Size = S_ISREG(Info.st_mode) ? Info.st_size : 0;
  result.IsReadOnly = (Info.st_mode & S_IWUSR) == 0;
  result.IsHidden = !Name.empty() && Name[0] == u'.';
  result.Id = Info.st_ino;
  result.LastWrite = ToldStamp(Native, StampToLocal(Info.st_mtim));
  result.Name = std::move(Name);
  return result;
}

// "*" and "?" as they are known; Name and Mask are in one case.
bool MatchesMask(std::u16string_view Name, std::u16string_view Mask) noexcept {
  size_t n = 0, m = 0, star = Mask.npos, retry = 0;
  while (n < Name.size()) {
    if (m < Mask.size() && Mask[m] == u'*') {
      star = m++;
      retry = n;
    } else if (m < Mask.size() && (Mask[m] == u'?' || Mask[m] == Name[n])) {
      ++n, ++m;
    } else if (star != Mask.npos) {
      m = star + 1;
      n = ++retry;
    } else {
      return false;
    }
  }
  return Mask.find_first_not_of(u'*', m) == Mask.npos;
}

// A mask that ends in ".*" finds names without an extension too, "*.*" thus all names.
bool IsFoundBy(const String& Name, const String& Mask) {
  const String name = LowerCase(Name);
  if (MatchesMask(name, Mask)) return true;
  return Mask.view().ends_with(u".*") && name.view().find(u'.') == std::u16string_view::npos &&
         MatchesMask(name, Mask.Slice(0, Mask.size() - 2));
}

std::vector<TFileInfo> SearchDirectory(const std::string& Native, const String& Mask) {
  std::vector<TFileInfo> result;
  const TDirectory directory(::opendir(Native.c_str()));
  if (!Check(directory != nullptr)) return result;
  const String mask = LowerCase(Mask);
  while (const dirent* entry = ::readdir(directory.get())) {
    const char* bytes = entry->d_name;
    if (std::strcmp(bytes, ".") == 0 || std::strcmp(bytes, "..") == 0) continue;
    String name = String::FromUtf8(bytes);
    if (!IsFoundBy(name, mask)) continue;
    std::string path = Native + (Native.back() == '/' ? "" : "/") + bytes;
    struct stat info;
    if (!Permitted(foStamp, path)) continue;
    // A link that leads nowhere is an entry all the same.
    if (::stat(path.c_str(), &info) != 0 && ::lstat(path.c_str(), &info) != 0) continue;
    result.push_back(InfoOf(path, std::move(name), info));
  }
  std::sort(result.begin(), result.end(), [](const TFileInfo& a, const TFileInfo& b) { return a.Name < b.Name; });
  return result;
}

}  // namespace
}  // namespace files

using files::Check;
using files::Guarded;
using files::NativePath;
using files::Permitted;

int GetLastError() noexcept { return files::LastError; }

void SetLastError(int Error) noexcept { files::LastError = Error; }

String SysErrorMessage(int Error) {
  const String text = SystemErrorText(Error);
  return text.empty() ? u"Unknown error " + IntToStr(Error) : text;
}

bool GetFileInfo(const String& Path, TFileInfo& Info) {
  std::string native;
  struct stat info;
  if (!NativePath(Path, native) || !Permitted(foStamp, native)) return false;
  if (!Check(::stat(native.c_str(), &info) == 0)) return false;
  Info = files::InfoOf(native, ExtractFileName(ExcludeTrailingPathDelimiter(Path)), info);
  return true;
}

std::vector<TFileInfo> FindFiles(const String& Mask) {
  const String name = ExtractFileName(Mask);
  if (name.view().find_first_of(u"*?") != std::u16string_view::npos) {
    const String directory = ExtractFilePath(Mask);
    std::string native;
    if (!NativePath(directory.empty() ? String(u".") : directory, native)) return {};
    return files::SearchDirectory(native, name);
  }
  std::vector<TFileInfo> result(1);
  if (name.empty() || !GetFileInfo(Mask, result[0])) result.clear();
  return result;
}

bool IsSameFile(const String& A, const String& B) {
  std::string a, b;
  struct stat infoA, infoB;
  return NativePath(A, a) && NativePath(B, b) && Check(::stat(a.c_str(), &infoA) == 0) &&
         Check(::stat(b.c_str(), &infoB) == 0) && infoA.st_dev == infoB.st_dev && infoA.st_ino == infoB.st_ino;
}

bool DirectoryExists(const String& Path) {
  std::string native;
  struct stat info;
  return NativePath(Path, native) && Check(::stat(native.c_str(), &info) == 0) &&
         (S_ISDIR(info.st_mode) || files::Fail(ENOTDIR));
}

bool FileDelete(const String& Path) noexcept {
  return Guarded([&] {
    std::string native;
    struct stat info;
    if (!NativePath(Path, native) || !Permitted(foDelete, native)) return false;
    if (!Check(::lstat(native.c_str(), &info) == 0)) return false;
    if (S_ISREG(info.st_mode) && (info.st_mode & S_IWUSR) == 0) return files::Fail(EACCES);
    return Check(::unlink(native.c_str()) == 0);
  });
}

bool DirectoryCreate(const String& Path) noexcept {
  return Guarded([&] {
    std::string native;
    return NativePath(Path, native) && Permitted(foMakeDir, native) && Check(::mkdir(native.c_str(), 0777) == 0);
  });
}

bool DirectoryRemove(const String& Path) noexcept {
  return Guarded([&] {
    std::string native;
    return NativePath(Path, native) && Permitted(foDelete, native) && Check(::rmdir(native.c_str()) == 0);
  });
}

bool SetReadOnly(const String& Path, bool ReadOnly) noexcept {
  return Guarded([&] {
    std::string native;
    struct stat info;
    if (!NativePath(Path, native) || !Permitted(foAttributes, native)) return false;
    if (!Check(::stat(native.c_str(), &info) == 0)) return false;
    mode_t all = info.st_mode & 07777;
    mode_t mode = ReadOnly ? all & ~mode_t{0222} : all | S_IWUSR;
    return mode == all || Check(::chmod(native.c_str(), mode) == 0);
  });
}

}  // namespace vx
