// What stands in directories, and the operations on it.
#include <algorithm>
#include <cmath>

#include "platform/Clock.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/System.h"
#include "platform/Text.h"
#include "platform/detail/FileErrors.h"
#include "platform/os/Files.h"

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

TDateTime StampToLocal(os::TMoment Stamp) {
  const Extended seconds =
      static_cast<Extended>(Stamp.Seconds) + static_cast<Extended>(Stamp.Nanoseconds) / kNanoseconds;
  const Extended days = seconds / 86400;
  const int offset = GetTimeZone().OffsetAtUtc(static_cast<TDateTime>(days + kUnixEpoch));
  return static_cast<TDateTime>(days + kUnixEpoch + static_cast<Extended>(offset) / 1440);
}

bool LocalToStamp(TDateTime Local, os::TMoment& Stamp) {
  if (!(Local >= kFirstDay && Local < kBehindLastDay)) return false;
  Extended seconds =
      (static_cast<Extended>(Local) - kUnixEpoch) * 86400 - GetTimeZone().OffsetAtLocal(Local) * Extended{60};
  // A date-time comes a fraction of a microsecond beside the millisecond that it means.
  const Extended milliseconds = std::round(seconds * 1000);
  if (std::abs(seconds * 1000 - milliseconds) < Extended{0.001}) seconds = milliseconds / 1000;
  const Extended whole = std::floor(seconds);
  Stamp.Seconds = static_cast<int64_t>(whole);
  Stamp.Nanoseconds =
      static_cast<int32_t>(std::min<int64_t>(std::llround((seconds - whole) * kNanoseconds), kNanoseconds - 1));
  return true;
}

namespace {

TFileInfo InfoOf(const std::string& Native, String Name, const TEntry& Entry) {
  TFileInfo result;
  result.IsDirectory = Entry.IsDirectory;
  result.Size = Entry.Size;
  result.IsReadOnly = Entry.IsReadOnly;
  result.IsHidden = Entry.IsHidden;
  result.Id = Entry.Id;
  result.LastWrite = ToldStamp(Native, StampToLocal(Entry.LastWrite));
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
  std::vector<std::string> names;
  if (!ListNames(Native, names)) return result;
  const String mask = LowerCase(Mask);
  for (const std::string& bytes : names) {
    String name = String::FromUtf8(bytes);
    if (!IsFoundBy(name, mask)) continue;
    const std::string path = Native + (Native.back() == '/' ? "" : "/") + bytes;
    TEntry entry;
    if (!Permitted(foStamp, path)) continue;
    // A link that leads nowhere is an entry all the same.
    if (LookUp(path, TLinks::Follow, entry) != 0 && LookUp(path, TLinks::Show, entry) != 0) continue;
    result.push_back(InfoOf(path, std::move(name), entry));
  }
  std::sort(result.begin(), result.end(), [](const TFileInfo& a, const TFileInfo& b) { return a.Name < b.Name; });
  return result;
}

}  // namespace
}  // namespace files

using files::Guarded;
using files::LookUp;
using files::NativePath;
using files::Permitted;
using files::TEntry;
using files::TLinks;
using files::Worked;

int GetLastError() noexcept { return files::LastError; }

void SetLastError(int Error) noexcept { files::LastError = Error; }

String SysErrorMessage(int Error) {
  const String text = SystemErrorText(Error);
  return text.empty() ? u"Unknown error " + IntToStr(Error) : text;
}

bool GetFileInfo(const String& Path, TFileInfo& Info) {
  std::string native;
  TEntry entry;
  if (!NativePath(Path, native) || !Permitted(foStamp, native)) return false;
  if (!Worked(LookUp(native, TLinks::Follow, entry))) return false;
  Info = files::InfoOf(native, ExtractFileName(ExcludeTrailingPathDelimiter(Path)), entry);
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
  TEntry entryA, entryB;
  return NativePath(A, a) && NativePath(B, b) && Worked(LookUp(a, TLinks::Follow, entryA)) &&
         Worked(LookUp(b, TLinks::Follow, entryB)) && entryA.Drive == entryB.Drive && entryA.Id == entryB.Id;
}

bool DirectoryExists(const String& Path) {
  std::string native;
  TEntry entry;
  return NativePath(Path, native) && Worked(LookUp(native, TLinks::Follow, entry)) &&
         (entry.IsDirectory || files::Fail(ENOTDIR));
}

bool FileDelete(const String& Path) noexcept {
  return Guarded([&] {
    std::string native;
    TEntry entry;
    if (!NativePath(Path, native) || !Permitted(foDelete, native)) return false;
    if (!Worked(LookUp(native, TLinks::Show, entry))) return false;
    if (entry.IsFile && entry.IsReadOnly) return files::Fail(EACCES);
    return files::RemoveFile(native);
  });
}

bool DirectoryCreate(const String& Path) noexcept {
  return Guarded([&] {
    std::string native;
    return NativePath(Path, native) && Permitted(foMakeDir, native) && files::MakeDirectory(native);
  });
}

bool DirectoryRemove(const String& Path) noexcept {
  return Guarded([&] {
    std::string native;
    return NativePath(Path, native) && Permitted(foDelete, native) && files::RemoveDirectory(native);
  });
}

bool SetReadOnly(const String& Path, bool ReadOnly) noexcept {
  return Guarded([&] {
    std::string native;
    return NativePath(Path, native) && Permitted(foAttributes, native) && files::SetReadOnlyAt(native, ReadOnly);
  });
}

}  // namespace vx
