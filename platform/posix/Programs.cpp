#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <vector>

#include "platform/Paths.h"
#include "platform/Processes.h"
#include "platform/System.h"
#include "platform/os/SystemFiles.h"

namespace vx {

namespace {

using os::TakePart;

// The directory of the user and those of the system, the former first.
std::vector<std::string> DataDirectories(std::string_view Path) {
  std::vector<std::string> result;
  if (std::string home = os::InHome("/.local/share"); !home.empty()) result.push_back(home);
  result.insert(result.end(), {"/usr/local/share", "/usr/share"});
  for (std::string& directory : result) directory += Path;
  return result;
}

char ToLower(char Byte) noexcept { return Byte >= 'A' && Byte <= 'Z' ? static_cast<char>(Byte + 32) : Byte; }

bool SameName(std::string_view A, std::string_view B) noexcept {
  return std::equal(A.begin(), A.end(), B.begin(), B.end(), [](char a, char b) { return ToLower(a) == ToLower(b); });
}

// How well a rule for names fits: by its weight, its length, and whether the case fits too.
using TFit = std::tuple<int64_t, size_t, bool>;

// Whether Name fits Glob, a name or "*" and the end of one. Other wildcards fit nothing.
bool FitsGlob(std::string_view Name, std::string_view Glob, bool CaseSensitive, bool& Exact) {
  if (Glob.starts_with('*')) {
    Glob.remove_prefix(1);
    if (Name.size() < Glob.size()) return false;
    Name.remove_prefix(Name.size() - Glob.size());
  }
  if (Glob.empty() || Glob.find_first_of("*?[") != Glob.npos) return false;
  Exact = Name == Glob;
  return Exact || (!CaseSensitive && SameName(Name, Glob));
}

// The type of files of that name, such as "text/plain"; empty if it has none. The lines of rules are
// "weight:type:glob" or "weight:type:glob:flags", the flag "cs" for names whose case counts.
std::string TypeOfName(std::string_view Name) {
  std::string type;
  TFit best{-1, 0, false};
  for (const std::string& path : DataDirectories("/mime/globs2")) {
    const std::string rules = os::ReadText(path);
    for (std::string_view rest = rules; !rest.empty();) {
      std::string_view line = TakePart(rest, '\n');
      const int64_t weight = os::NumberIn(TakePart(line, ':'), -1);
      const std::string_view ruleType = TakePart(line, ':'), glob = TakePart(line, ':');
      bool exact = false;
      if (weight < 0 || !FitsGlob(Name, glob, TakePart(line, ':') == "cs", exact)) continue;
      const TFit fit{weight, glob.size(), exact};
      if (fit > best) {
        best = fit;
        type = ruleType;
      }
    }
  }
  return type;
}

// The value of Key in the section Section of a text of sections, lines "key=value".
std::string_view ValueIn(std::string_view Text, std::string_view Section, std::string_view Key) {
  bool inSection = false;
  while (!Text.empty()) {
    std::string_view line = TakePart(Text, '\n');
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with('[')) {
      inSection = line.size() == Section.size() + 2 && line.substr(1, Section.size()) == Section;
      continue;
    }
    std::string_view key = TakePart(line, '=');
    key = key.substr(0, key.find_last_not_of(" \t") + 1);
    if (inSection && key == Key) return line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
  }
  return {};
}

bool IsProgram(const std::string& Path) { return os::IsProgram(os::Rooted(Path)); }

// The first argument of a command line; it may stand in double quotes, with a backslash before units
// that are taken as they stand.
std::string FirstArgument(std::string_view Command) {
  if (!Command.starts_with('"')) return std::string(TakePart(Command, ' '));
  std::string result;
  for (size_t i = 1; i < Command.size() && Command[i] != '"'; ++i) {
    if (Command[i] == '\\' && i + 1 < Command.size()) ++i;
    result += Command[i];
  }
  return result;
}

// The full path of the program that the command of the desktop file Id starts; empty if there is none.
std::string ProgramOfDesktopFile(std::string_view Id) {
  if (Id.empty() || Id.find('/') != Id.npos) return {};
  for (const std::string& directory : DataDirectories("/applications/")) {
    const std::string text = os::ReadText(directory + std::string(Id));
    if (text.empty()) continue;
    if (ValueIn(text, "Desktop Entry", "Hidden") == "true") return {};
    const std::string program = FirstArgument(ValueIn(text, "Desktop Entry", "Exec"));
    if (program.empty() || program.find('\0') != program.npos) return {};
    if (program.front() == '/') return IsProgram(program) ? program : std::string();
    if (program.find('/') != program.npos) return {};
    for (const char* bin : {"/usr/local/bin/", "/usr/bin/", "/bin/"}) {
      if (IsProgram(bin + program)) return bin + program;
    }
    return {};
  }
  return {};
}

// The program of the first of the desktop files, "a.desktop;b.desktop", that has one.
std::string ProgramOfList(std::string_view Ids) {
  while (!Ids.empty()) {
    if (std::string program = ProgramOfDesktopFile(TakePart(Ids, ';')); !program.empty()) return program;
  }
  return {};
}

std::string ProgramOfType(const std::string& Type) {
  std::vector<std::string> choices = DataDirectories("/applications/mimeapps.list");
  choices.insert(choices.begin(), "/etc/xdg/mimeapps.list");
  if (std::string home = os::InHome("/.config/mimeapps.list"); !home.empty()) choices.insert(choices.begin(), home);
  auto find = [&Type](const std::vector<std::string>& Paths, std::string_view Section) {
    for (const std::string& path : Paths) {
      const std::string text = os::ReadText(path);
      if (std::string program = ProgramOfList(ValueIn(text, Section, Type)); !program.empty()) return program;
    }
    return std::string();
  };
  std::string program = find(choices, "Default Applications");
  if (program.empty()) program = find(choices, "Added Associations");
  if (program.empty()) program = find(DataDirectories("/applications/mimeinfo.cache"), "MIME Cache");
  return program;
}

}  // namespace

String ProgramOfFile(const String& File) {
  const std::string type = TypeOfName(ExtractFileName(File).ToUtf8());
  return type.empty() ? String() : String::FromUtf8(ProgramOfType(type));
}

std::string FindProgram(const std::string& Name) {
  if (Name.empty() || Name.find_first_of(std::string_view("/\0", 2)) != Name.npos) return {};
  const char* path = std::getenv("PATH");
  const std::string list = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
  for (size_t begin = 0; begin <= list.size();) {
    const size_t end = std::min(list.find(':', begin), list.size());
    std::string file = list.substr(begin, end - begin) + "/" + Name;
    if (end > begin && os::IsProgram(file)) return file;
    begin = end + 1;
  }
  return {};
}

}  // namespace vx
