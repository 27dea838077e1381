// From the library's path grammar to the local file system.
//
//   TPathMap       which directory a drive letter or a server share stands for
//   ToNativePath   the local path of a path of the library, in UTF-8
//
// The library's paths use the backslash, drive letters ("C:\Daten\Liste.csv") and shares
// ("\\server\share\Liste.csv"). A path without any backslash and drive letter, such as
// "/home/anna/Liste.csv" or "Liste.csv", is a native path and passes as it is.
//
// Example:
//   vx::GetPathMap().SetDrive(u'D', "/srv/daten");
//   vx::ToNativePath(u"D:\\Listen\\a.csv");     // "/srv/daten/Listen/a.csv"
//   vx::ToNativePath(u"C:\\etc\\hosts");        // "/etc/hosts"
//
// Pitfalls: names keep their case; the local file system decides whether it matters. A drive that
// is not set, other than C:, and a share that is not set map to a path that does not exist.
#pragma once

#include <map>
#include <string>

#include "platform/String.h"

namespace vx {

class TPathMap {
 public:
  // Letter in any case; an empty directory removes the drive. C: is the root directory unless set.
  void SetDrive(char16_t Letter, std::string Directory);
  // Share as "server\share" in any case; an empty directory removes it.
  void SetShare(std::u16string_view Share, std::string Directory);
  bool HasDrive(char16_t Letter) const;
  // The directory of the drive without a trailing "/", empty for the root; only if HasDrive.
  std::string DriveDirectory(char16_t Letter) const;
  std::string ToNative(std::u16string_view Path) const;

 private:
  std::map<char16_t, std::string> FDrives{{u'C', ""}};
  std::map<String, std::string> FShares;
};

// The map in use; change it at the start of the program, before other threads use files.
TPathMap& GetPathMap();
inline std::string ToNativePath(std::u16string_view Path) { return GetPathMap().ToNative(Path); }

// True for the two delimiters that a path may hold: the backslash, and "/" in native paths.
constexpr bool IsPathDelimiter(char16_t Unit) noexcept { return Unit == u'\\' || Unit == u'/'; }
// The extension with its dot ("" without one), the last component, and the path in front of it with
// its delimiter ("C:\Daten\", "/tmp/"). Both delimiters and the colon of a drive end a component.
String ExtractFileExt(const String& Path);
String ExtractFileName(const String& Path);
String ExtractFilePath(const String& Path);
// The same without a trailing delimiter, save for a root.
String ExtractFileDir(const String& Path);
// "C:" or "\\server\share", empty for any other path.
String ExtractFileDrive(const String& Path);
// Path with Extension (with its dot) in place of its own.
String ChangeFileExt(const String& Path, std::u16string_view Extension);
// With exactly one delimiter at the end: the kind that the path uses, the backslash if it uses none.
String IncludeTrailingPathDelimiter(const String& Path);
String ExcludeTrailingPathDelimiter(const String& Path);

}  // namespace vx
