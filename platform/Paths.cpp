#include "platform/Paths.h"

#include <algorithm>
#include <utility>

#include "platform/Text.h"

namespace vx {
namespace {

// Nothing can ever be made below a device, so that a path there neither exists nor comes to exist.
constexpr char kNowhere[] = "/dev/null/";

constexpr char16_t DriveLetter(char16_t Unit) noexcept {
  if (Unit >= u'a' && Unit <= u'z') return static_cast<char16_t>(Unit - u'a' + u'A');
  return Unit >= u'A' && Unit <= u'Z' ? Unit : u'\0';
}

bool HasDriveLetter(std::u16string_view Path) noexcept {
  return Path.size() >= 2 && Path[1] == u':' && DriveLetter(Path[0]) != 0;
}

bool IsSharePath(std::u16string_view Path) noexcept { return Path.size() > 2 && Path[0] == u'\\' && Path[1] == u'\\'; }

// The length of "\\server\share" at the front of Path, 0 if a part is missing.
size_t ShareLength(std::u16string_view Path) noexcept {
  if (!IsSharePath(Path)) return 0;
  size_t server = Path.find_first_of(u"\\/", 2);
  if (server == 2 || server == Path.npos) return 0;
  size_t share = std::min(Path.find_first_of(u"\\/", server + 1), Path.size());
  return share == server + 1 ? 0 : share;
}

// Index behind the last delimiter or drive colon, 0 without one.
size_t NameStart(std::u16string_view Path) noexcept {
  size_t at = Path.find_last_of(u"\\/");
  if (at != Path.npos) return at + 1;
  return HasDriveLetter(Path) ? 2 : 0;
}

// Index of the dot of the extension, the length of Path without one.
size_t ExtensionStart(std::u16string_view Path) noexcept {
  size_t at = Path.rfind(u'.');
  return at == Path.npos || at < NameStart(Path) ? Path.size() : at;
}

std::string WithSlashes(std::u16string_view Path) {
  std::string result = String(Path).ToUtf8();
  std::replace(result.begin(), result.end(), '\\', '/');
  return result;
}

// Directory followed by Rest, which may begin with delimiters.
std::string Join(const std::string& Directory, std::u16string_view Rest) {
  size_t first = Rest.find_first_not_of(u"\\/");
  if (first == Rest.npos) return Directory.empty() || !Rest.empty() ? Directory + "/" : Directory;
  return Directory + "/" + WithSlashes(Rest.substr(first));
}

std::string WithoutTrailingSlash(std::string Directory) {
  while (!Directory.empty() && Directory.back() == '/') Directory.pop_back();
  return Directory;
}

String ShareKey(std::u16string_view Share) {
  size_t first = std::min(Share.find_first_not_of(u"\\/"), Share.size());
  String key = UpperCase(String(Share.substr(first)));
  return ReplaceAll(key, u"/", u"\\");
}

}  // namespace

void TPathMap::SetDrive(char16_t Letter, std::string Directory) {
  char16_t letter = DriveLetter(Letter);
  if (letter == 0) return;
  if (Directory.empty()) {
    FDrives.erase(letter);
  } else {
    FDrives[letter] = WithoutTrailingSlash(std::move(Directory));
  }
}

void TPathMap::SetShare(std::u16string_view Share, std::string Directory) {
  if (Directory.empty()) {
    FShares.erase(ShareKey(Share));
  } else {
    FShares[ShareKey(Share)] = WithoutTrailingSlash(std::move(Directory));
  }
}

bool TPathMap::HasDrive(char16_t Letter) const { return FDrives.count(DriveLetter(Letter)) != 0; }

std::string TPathMap::DriveDirectory(char16_t Letter) const {
  auto found = FDrives.find(DriveLetter(Letter));
  return found == FDrives.end() ? std::string() : found->second;
}

std::string TPathMap::ToNative(std::u16string_view Path) const {
  if (HasDriveLetter(Path)) {
    auto found = FDrives.find(DriveLetter(Path[0]));
    return found == FDrives.end() ? kNowhere + WithSlashes(Path) : Join(found->second, Path.substr(2));
  }
  if (IsSharePath(Path)) {
    size_t length = ShareLength(Path);
    auto found = length == 0 ? FShares.end() : FShares.find(ShareKey(Path.substr(0, length)));
    return found == FShares.end() ? kNowhere + WithSlashes(Path.substr(2)) : Join(found->second, Path.substr(length));
  }
  return WithSlashes(Path);
}

TPathMap& GetPathMap() {
  static TPathMap& map = *new TPathMap;  // never taken down: the last log line still needs it
  return map;
}

String ExtractFileExt(const String& Path) { return Path.Slice(static_cast<int>(ExtensionStart(Path))); }

String ExtractFileName(const String& Path) { return Path.Slice(static_cast<int>(NameStart(Path))); }

String ExtractFilePath(const String& Path) { return Path.Slice(0, static_cast<int>(NameStart(Path))); }

String ExtractFileDir(const String& Path) { return ExcludeTrailingPathDelimiter(ExtractFilePath(Path)); }

String ExtractFileDrive(const String& Path) {
  return Path.Slice(0, HasDriveLetter(Path) ? 2 : static_cast<int>(ShareLength(Path)));
}

String ChangeFileExt(const String& Path, std::u16string_view Extension) {
  return Concat({Path.view().substr(0, ExtensionStart(Path)), Extension});
}

String IncludeTrailingPathDelimiter(const String& Path) {
  std::u16string_view path = Path;
  size_t at = path.find_last_of(u"\\/");
  char16_t delimiter = at == path.npos ? u'\\' : path[at];
  if (at != path.npos && at + 1 == path.size() && (at == 0 || !IsPathDelimiter(path[at - 1]))) return Path;
  size_t length = path.find_last_not_of(u"\\/") + 1;
  return Concat({path.substr(0, length), std::u16string_view(&delimiter, 1)});
}

String ExcludeTrailingPathDelimiter(const String& Path) {
  std::u16string_view path = Path;
  size_t length = path.find_last_not_of(u"\\/") + 1;
  if (length == path.size()) return Path;
  bool root = length == 0 || (length == 2 && HasDriveLetter(path));
  return Path.Slice(0, static_cast<int>(length + (root ? 1 : 0)));
}

}  // namespace vx
