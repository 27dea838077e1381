#include "platform/Shell.h"

#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "platform/Hook.h"
#include "platform/Paths.h"
#include "platform/Processes.h"

namespace vx {

namespace {

THook<TOpenDocument>& Hook() {
  static THook<TOpenDocument>& hook = *new THook<TOpenDocument>;
  return hook;
}

bool OpenBySystem(const String& File, const String& Directory) {
  // Absolute, as the program runs in another directory; so it can't be taken for an option either.
  std::error_code error;
  std::string file = std::filesystem::absolute(ToNativePath(File), error).string();
  if (File.empty() || error || file.find('\0') != std::string::npos || access(file.c_str(), F_OK) != 0) return false;
  std::string directory = Directory.empty() ? std::string() : ToNativePath(Directory);
  return StartDetached({.Program = FindProgram("xdg-open"), .Arguments = {file}, .Directory = directory}) == 0;
}

}  // namespace

bool OpenDocument(const String& File, const String& Directory) {
  auto open = Hook().Get();
  return open ? (*open)(File, Directory) : OpenBySystem(File, Directory);
}

TOpenDocument SetOpenDocument(TOpenDocument Open) { return Hook().Exchange(std::move(Open)); }

}  // namespace vx
