#include "platform/Folders.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/os/SystemFiles.h"

namespace vx {

namespace {

// Where a folder is: for one of the user's the key in the file that names them, and the path in the user's
// directory if it is not named there; else the path itself.
constexpr struct {
  const char* Key;
  const char* Path;
} kFolders[kFolderCount] = {
    {"", ""},
    {"XDG_DESKTOP_DIR", "/Desktop"},
    {"XDG_DOCUMENTS_DIR", "/Documents"},
    {"XDG_DOWNLOAD_DIR", "/Downloads"},
    {"XDG_MUSIC_DIR", "/Music"},
    {"XDG_PICTURES_DIR", "/Pictures"},
    {"XDG_VIDEOS_DIR", "/Videos"},
    {"XDG_TEMPLATES_DIR", "/Templates"},
    {"XDG_PUBLICSHARE_DIR", "/Public"},
    {"", "/.config"},
    {"", "/.local/share"},
    {nullptr, "/usr/bin"},
    {nullptr, "/usr/share"},
    {nullptr, "/usr"},
    {nullptr, "/tmp"},
};

// The value of Key: lines are KEY="$HOME/name" or KEY="/path", with a backslash before units that have a
// meaning there. Empty if there is none; the last line counts.
std::string NamedFolder(std::string_view Key) {
  constexpr std::string_view kHome = "$HOME";
  const std::string text = os::ReadText(os::InHome("/.config/user-dirs.dirs"));
  std::string result;
  for (std::string_view rest = text; !rest.empty();) {
    std::string_view line = os::TakePart(rest, '\n');
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (os::TakePart(line, '=') != Key || !line.starts_with('"')) continue;
    line.remove_prefix(1);
    const bool inHome = line.starts_with(kHome);
    if (inHome) line.remove_prefix(kHome.size());
    std::string path;
    for (size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
      if (line[i] == '\\' && i + 1 < line.size()) ++i;
      path += line[i];
    }
    if (path.starts_with('/') || (inHome && path.empty())) result = inHome ? os::InHome(path) : path;
  }
  return result;
}

bool IsDirectory(const std::string& Path) {
  std::error_code error;
  return !Path.empty() && Path.find('\0') == Path.npos && std::filesystem::is_directory(os::Rooted(Path), error);
}

}  // namespace

String FolderPath(TFolder Folder) {
  if (Folder >= kFolderCount) return {};
  const auto& folder = kFolders[Folder];
  std::string path;
  if (folder.Key != nullptr && folder.Key[0] != '\0') path = NamedFolder(folder.Key);
  if (path.empty()) path = folder.Key != nullptr ? os::InHome(folder.Path) : folder.Path;
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return IsDirectory(path) ? LibraryPath(path) : String();
}

}  // namespace vx
