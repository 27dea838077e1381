#include "services/uHandleFile/Directories.h"

#include <algorithm>
#include <vector>

#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "services/uHandleFile/Drives.h"
#include "services/uHandleFile/detail/Warnings.h"

namespace vx {

using uHandleFile::Failed;

namespace {

constexpr std::u16string_view kDelimiters = u"\\/";
// No file system takes a longer path, and looking for each of its levels would take quadratic time.
constexpr int kMaxPath = 32767;

// Length of the drive with the delimiters behind it, or of the leading delimiters.
size_t RootLength(std::u16string_view path) {
  const size_t drive = static_cast<size_t>(ExtractFileDrive(path).size());
  return std::min(path.find_first_not_of(kDelimiters, drive), path.size());
}

bool IsOnlyDrive(std::u16string_view path) {
  return !ExtractFileDrive(path).empty() && RootLength(path) == path.size();
}

// The path of each level below the root, from the top down.
std::vector<String> LevelsOf(std::u16string_view path) {
  std::vector<String> levels;
  std::u16string_view text = path;
  for (size_t at = RootLength(path); at < text.size();) {
    const size_t end = std::min(text.find_first_of(kDelimiters, at), text.size());
    levels.emplace_back(path.substr(0, end));
    at = std::min(text.find_first_not_of(kDelimiters, end), text.size());
  }
  return levels;
}

// Begins below the deepest level that exists and stops at the first failure.
bool MakeLevels(std::u16string_view path) {
  if (path.size() > kMaxPath) return false;
  const std::vector<String> levels = LevelsOf(path);
  size_t next = levels.size();
  while (next > 0 && !DirectoryExists(levels[next - 1])) --next;
  for (; next < levels.size(); ++next) {
    if (!DirectoryCreate(levels[next]) && !DirectoryExists(levels[next])) return false;
  }
  return true;
}

bool IsQuoted(std::u16string_view path) { return path.size() >= 2 && path[0] == u'"' && path[path.size() - 1] == u'"'; }

bool ForceFailed(std::u16string_view path) {
  if (!VxDriveAvailable(path, true)) return false;
  return Failed(true,
                u"Das Laufwerk steht zur Verfügung,\r\n"
                u"aber folgendes Verzeichnis konnten nicht angelegt werden:\r\n\r\n",
                path);
}

// Collects the entries of one source and copies them.
bool MergeOne(std::u16string_view source, std::u16string_view target, String& error) {
  if (!DirectoryExists(source)) {
    error = Format(u"Der Quellordner \"%s\" ist nicht erreichbar.", {source});
    return false;
  }
  const String from = IncludeTrailingPathDelimiter(source);
  const std::vector<TFileInfo> entries = FindFiles(from + u"*");
  for (bool directories : {true, false}) {
    for (const TFileInfo& entry : entries) {
      if (entry.IsDirectory != directories) continue;
      const String one = from + entry.Name, to = target + entry.Name;
      if (directories ? DirectoryCopy(one, to) : FileCopy(one, to)) continue;
      error = Format(directories ? u"Das Verzeichnis \"%s\" konnte nicht nach \"%s\" kopiert werden."
                                 : u"Die Datei \"%s\" konnte nicht nach \"%s\" kopiert werden.",
                     {one.view(), to.view()});
      return false;
    }
  }
  return true;
}

bool MergeInto(std::span<const String> sources, std::u16string_view target, String& error) {
  const String to = IncludeTrailingPathDelimiter(target);
  if (!target.empty() && !DirectoryExists(to) && !MakeLevels(to)) {
    error = Format(u"Das Zielverzeichnis \"%s\" konnte nicht erstellen.", {to.view()});
    return false;
  }
  if (target.empty() || !DirectoryExists(to)) {
    error = Format(u"Der Zielverzeichnis \"%s\" ist nicht erreichbar.", {to.view()});
    return false;
  }
  for (std::u16string_view source : sources) {
    if (!MergeOne(source, to, error)) return false;
  }
  return true;
}

int AttributesOf(const TFileInfo& entry) {
  return (entry.IsDirectory ? faDirectory : faArchive) | (entry.IsReadOnly ? faReadOnly : 0) |
         (entry.IsHidden ? faHidden : 0);
}

// The search would find "." there.
bool FindsDirectoryItself(std::u16string_view mask) {
  const String name = ExtractFileName(mask), directory = ExtractFilePath(mask);
  return (name == u"*" || name == u"*.*") && (directory.empty() || DirectoryExists(directory));
}

}  // namespace

bool VxRemoveDir(std::u16string_view dir, bool showError) {
  if (!DirectoryExists(dir)) {
    return Failed(showError,
                  u"Folgendes Verzeichnis konnte nicht gelöscht werden, weil es, wider Erwarten, nicht vorhanden war:"
                  u"\r\nName: ",
                  dir);
  }
  return DirectoryRemove(dir) ||
         Failed(showError, u"Folgendes Verzeichnis konnte nicht gelöscht werden:\r\nName: ", dir);
}

bool VxForceDirectories(std::u16string_view path) {
  String rest = path;
  while (IsQuoted(rest)) rest = rest.Slice(1, rest.size() - 2);
  if (rest.empty()) return true;
  if (IsOnlyDrive(rest)) {
    VxDriveAvailableError(ExtractFileDrive(rest));
    return false;
  }
  return DirectoryExists(rest) || MakeLevels(rest) || ForceFailed(rest);
}

bool VxForceDirectoriesOld(std::u16string_view path) {
  const String rest = Trim(path);
  if (rest.empty() || DirectoryExists(rest)) return true;
  if (rest.size() <= kMaxPath) {
    for (std::u16string_view level : LevelsOf(rest)) {
      if (!DirectoryExists(level)) DirectoryCreate(level);
    }
  }
  return DirectoryExists(rest) || ForceFailed(rest);
}

bool MergeDirectories(std::span<const String> sources, std::u16string_view target, String* errorText) {
  String error;
  const bool good = MergeInto(sources, target, error);
  if (errorText != nullptr) *errorText = error;
  return good;
}

bool VxIsEmptyDir(std::u16string_view dir) {
  std::vector<String> open{dir};
  while (!open.empty()) {
    const String base = IncludeTrailingPathDelimiter(open.back());
    open.pop_back();
    for (const TFileInfo& entry : FindFiles(base + u"*")) {
      if (!entry.IsDirectory) return false;
      open.push_back(base + entry.Name);
    }
  }
  return true;
}

bool ls(std::unique_ptr<TVxStringList>& list, std::u16string_view dir, int attributesIn, int attributesOut,
        std::u16string_view pattern) {
  list.reset();
  const String mask = Concat({dir, pattern});
  const std::vector<TFileInfo> entries = FindFiles(mask);
  if (entries.empty() && !FindsDirectoryItself(mask)) return false;
  list = std::make_unique<TVxStringList>();
  for (const TFileInfo& entry : entries) {
    const int attributes = AttributesOf(entry);
    if ((attributes & attributesIn) != 0 && (attributes & attributesOut & ~attributesIn) == 0) list->Add(entry.Name);
  }
  return true;
}

}  // namespace vx
