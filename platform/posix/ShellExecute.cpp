#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/CommandLine.h"
#include "platform/Paths.h"
#include "platform/Processes.h"
#include "platform/Shell.h"
#include "platform/System.h"
#include "platform/Text.h"
#include "platform/os/Shell.h"
#include "platform/os/SystemFiles.h"

namespace vx {

namespace {

// Programs of this kind of system that do what a tool does, the desktop's own choice first.
constexpr struct {
  std::u16string_view Tool;
  const char* Programs[5];
} kTools[] = {
    {u"wab.exe", {"gnome-contacts", "kaddressbook", "thunderbird"}},
    {u"calc.exe", {"gnome-calculator", "kcalc", "mate-calc", "galculator", "xcalc"}},
    {u"cmd.exe", {"x-terminal-emulator", "gnome-terminal", "konsole", "xfce4-terminal", "xterm"}},
    {u"mspaint.exe", {"kolourpaint", "pinta", "drawing", "gimp"}},
    {u"wordpad.exe", {"lowriter", "abiword", "calligrawords"}},
    {u"notepad.exe", {"gnome-text-editor", "gedit", "kwrite", "mousepad", "xed"}},
    {u"wmplayer.exe", {"totem", "vlc", "dragon", "parole", "mpv"}},
    {u"charmap.exe", {"gucharmap", "gnome-characters", "kcharselect"}},
    {u"msinfo32.exe", {"hardinfo", "hardinfo2", "kinfocenter", "gnome-system-monitor"}},
    {u"sndvol32.exe", {"pavucontrol", "pavucontrol-qt", "kmix"}},
    {u"iexplore.exe", {"x-www-browser", "firefox", "firefox-esr", "chromium", "epiphany"}},
};

std::string ProgramOfTool(std::u16string_view Name) {
  for (const auto& tool : kTools) {
    if (!SameAscii(Name, tool.Tool)) continue;
    for (const char* program : tool.Programs) {
      if (std::string path = program != nullptr ? FindProgram(program) : std::string(); !path.empty()) return path;
    }
  }
  return {};
}

int ResultOf(int Error) noexcept {
  switch (Error) {
    case 0:
      return seStarted;
    case ENOENT:
    case ENAMETOOLONG:
      return seFileNotFound;
    case ENOTDIR:
    case ELOOP:
      return sePathNotFound;
    case EACCES:
    case EPERM:
    case EISDIR:
      return seAccessDenied;
    case ENOMEM:
    case E2BIG:
      return seOutOfMemory;
    case ENOEXEC:
    case ELIBBAD:
      return seBadFormat;
    case ETXTBSY:
      return seShare;
    case EAGAIN:
    case EMFILE:
    case ENFILE:
      return seNoResources;
    default:
      return seOtherError;
  }
}

int Start(const std::string& Program, std::u16string_view Parameters, const String& Directory) {
  TProcessStart start{.Program = Program, .Directory = Directory.empty() ? "" : ToNativePath(Directory)};
  for (const String& argument : SplitArguments(Parameters)) start.Arguments.push_back(argument.ToUtf8());
  return StartDetached(start);
}

int StartWithFile(const char* Program, const std::string& File) {
  return ResultOf(StartDetached({.Program = FindProgram(Program), .Arguments = {File}}));
}

// A letter, then letters and digits, and a colon behind at least two of them.
bool IsAddress(std::u16string_view Text) noexcept {
  const size_t length = std::min(Text.find(u':'), Text.size());
  for (size_t i = 0; i < length; ++i) {
    const char16_t unit = LowerAscii(Text[i]);
    const bool isLetter = unit >= u'a' && unit <= u'z';
    if (!isLetter && (i == 0 || (!IsDigit(unit) && unit != u'+' && unit != u'-' && unit != u'.'))) return false;
  }
  return length > 1 && length < Text.size();
}

// True for what begins as programs do.
bool LooksLikeProgram(const std::string& File) {
  char start[4] = {};
  const os::TSource source(File);
  return source.ReadAt(0, start, 2) &&
         (std::string_view(start, 2) == "#!" || (source.ReadAt(0, start, 4) && std::string_view(start, 4) == "\x7F"
                                                                                                             "ELF"));
}

int OpenFile(const TShellCall& Call, const std::string& File, bool IsRegular) {
  if (IsRegular && ::access(File.c_str(), X_OK) == 0) {
    const int error = Start(File, Call.Parameters, Call.Directory);
    // Drives of other systems mark all their files as programs.
    if (error != ENOEXEC || ProgramOfFile(Call.File).empty()) return ResultOf(error);
  } else if (IsRegular && LooksLikeProgram(File)) {
    return seAccessDenied;
  }
  return OpenDocument(Call.File, Call.Directory) ? seStarted : seNoAssociation;
}

}  // namespace

bool os::OpenDocument(const String& File, const String& Directory) {
  // Absolute, as the program runs in another directory; so it can't be taken for an option either.
  std::error_code error;
  std::string file = std::filesystem::absolute(ToNativePath(File), error).string();
  if (File.empty() || error || file.find('\0') != std::string::npos || ::access(file.c_str(), F_OK) != 0) return false;
  std::string directory = Directory.empty() ? std::string() : ToNativePath(Directory);
  return StartDetached({.Program = FindProgram("xdg-open"), .Arguments = {file}, .Directory = directory}) == 0;
}

int os::ShellExecute(const TShellCall& Call) {
  if (Call.File == u"%SystemRoot%\\Fonts") return os::ShellExecute({Call.Verb, u"/usr/share/fonts"});
  const bool print = Call.Verb == u"print";
  if (Call.File.view().find(u'\0') != std::u16string_view::npos) return seFileNotFound;
  if (!print && Call.Verb != u"open" && Call.Verb != u"explore") return seNoAssociation;
  const std::string file = ToNativePath(Call.File);
  struct stat info;
  if (::stat(file.c_str(), &info) != 0) {
    const int error = errno;
    if (!print && IsAddress(Call.File)) return StartWithFile("xdg-open", Call.File.ToUtf8());
    const std::string tool = print ? std::string() : ProgramOfTool(Call.File);
    return ResultOf(tool.empty() ? error : Start(tool, Call.Parameters, Call.Directory));
  }
  // Not to be taken for an option.
  if (print) return StartWithFile("lp", file.starts_with('-') ? "./" + file : file);
  return OpenFile(Call, file, S_ISREG(info.st_mode));
}

}  // namespace vx
