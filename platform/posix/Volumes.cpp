#include "platform/Volumes.h"

#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <initializer_list>
#include <string>

#include "platform/Paths.h"
#include "platform/os/SystemFiles.h"
#include "platform/os/Volumes.h"

namespace vx {

namespace {

namespace fs = std::filesystem;

struct TMount {
  std::string Source, Type;
  std::string Inside;  // the path behind the mount's directory, "" or beginning with "/"
};

bool IsOneOf(std::string_view Text, std::initializer_list<std::string_view> Texts) noexcept {
  return std::find(Texts.begin(), Texts.end(), Text) != Texts.end();
}

// Text with the units that stand there as Prefix and Digits digits of the base Base.
std::string Unescaped(std::string_view Text, std::string_view Prefix, size_t Digits, int Base) {
  std::string result;
  while (!Text.empty()) {
    const std::string digits(Text.starts_with(Prefix) ? Text.substr(Prefix.size(), Digits) : std::string_view());
    const std::string_view allowed = Base == 8 ? "01234567" : "0123456789abcdefABCDEF";
    if (digits.size() == Digits && digits.find_first_not_of(allowed) == digits.npos) {
      result += static_cast<char>(std::stoi(digits, nullptr, Base));
      Text.remove_prefix(Prefix.size() + Digits);
    } else {
      result += Text.front();
      Text.remove_prefix(1);
    }
  }
  return result;
}

// The directory that Path leads to, as it is inside the root of the system; empty if there is none.
std::string RealDirectory(const String& Path) {
  const std::string native = ToNativePath(Path);
  if (native.empty() || native.find('\0') != native.npos) return {};
  std::error_code error;
  std::string real = fs::canonical(os::Rooted(native), error).string();
  if (error || !fs::is_directory(real, error)) return {};
  const std::string root = fs::canonical(os::Rooted("/"), error).string();
  if (root != "/" && real.starts_with(root)) real.erase(0, root.size());
  return real.empty() ? "/" : real;
}

// The mount that holds Directory: the deepest, and of several at one place the last. Lines of the table are
// "source directory type options 0 0", with blanks as "\040".
TMount MountOf(const std::string& Directory) {
  TMount result;
  size_t deepest = 0;
  const std::string table = os::ReadText("/proc/self/mounts");
  for (std::string_view rest = table; !rest.empty();) {
    std::string_view line = os::TakePart(rest, '\n');
    const std::string_view source = os::TakePart(line, ' ');
    std::string point = Unescaped(os::TakePart(line, ' '), "\\", 3, 8);
    const std::string_view type = os::TakePart(line, ' ');
    if (type.empty() || !point.starts_with('/')) continue;
    if (point == "/") point.clear();
    const bool holds =
        Directory.starts_with(point) && (Directory.size() == point.size() || Directory[point.size()] == '/');
    if (!holds || point.size() < deepest) continue;
    deepest = point.size();
    result = {Unescaped(source, "\\", 3, 8), std::string(type), Directory.substr(point.size())};
  }
  return result;
}

bool IsRemote(const TMount& Mount) noexcept {
  return IsOneOf(Mount.Type, {"cifs", "smb3", "smbfs", "nfs", "nfs4", "ncpfs", "afs", "ceph", "fuse.sshfs",
                              "fuse.davfs", "davfs", "fuse.smbnetfs", "9p"});
}

// The device may be a part of the one that knows whether it can be taken out.
bool IsRemovable(const std::string& Source) {
  constexpr std::string_view kDevices = "/dev/";
  if (!Source.starts_with(kDevices)) return false;
  std::string device = Source.substr(kDevices.size());
  if (device.find('/') != device.npos) return false;
  for (; !device.empty(); device.pop_back()) {
    const std::string state = os::ReadText("/sys/block/" + device + "/removable");
    if (!state.empty()) return state.starts_with('1');
  }
  return false;
}

}  // namespace

int os::SpaceOf(const std::string& Path, uint64_t& BlockSize, uint64_t& Blocks) noexcept {
  struct statvfs info;
  if (::statvfs(Path.c_str(), &info) != 0) return errno;
  BlockSize = info.f_frsize;
  Blocks = info.f_bavail;
  return 0;
}

TVolumeKind KindOfVolume(const String& Path) {
  const std::string directory = RealDirectory(Path);
  if (directory.empty()) return vkMissing;
  const TMount mount = MountOf(directory);
  if (mount.Type.empty()) return vkUnknown;
  if (IsRemote(mount)) return vkRemote;
  if (IsOneOf(mount.Type, {"iso9660", "udf"})) return vkCdRom;
  if (IsOneOf(mount.Type, {"tmpfs", "ramfs"})) return vkRamDisk;
  return IsRemovable(mount.Source) ? vkRemovable : vkFixed;
}

String NetworkPath(const String& Path) {
  const std::string directory = RealDirectory(Path);
  const TMount mount = directory.empty() ? TMount() : MountOf(directory);
  if (!IsRemote(mount)) return {};
  std::string path = mount.Source;
  if (!path.starts_with("//")) {  // "server:/share", the server perhaps with a user before it
    const size_t colon = path.starts_with('[') ? path.find("]:") + 1 : path.find(':');
    if (colon == path.npos || colon == 0) return {};
    const size_t name = path.rfind('@', colon);
    path = "//" + path.substr(name == path.npos ? 0 : name + 1, colon - (name == path.npos ? 0 : name + 1)) +
           (path[colon + 1] == '/' ? "" : "/") + path.substr(colon + 1);
  }
  while (path.ends_with('/')) path.pop_back();
  path += mount.Inside == "/" ? "" : mount.Inside;
  std::replace(path.begin(), path.end(), '/', '\\');
  return String::FromUtf8(path);
}

String VolumeLabel(const String& Path) {
  const std::string directory = RealDirectory(Path);
  const std::string source = directory.empty() ? std::string() : MountOf(directory).Source;
  if (!source.starts_with("/dev/")) return {};
  std::error_code error;
  const fs::path device = fs::canonical(os::Rooted(source), error);
  if (error) return {};
  fs::directory_iterator labels(os::Rooted("/dev/disk/by-label"), error);
  for (; !error && labels != fs::directory_iterator(); labels.increment(error)) {
    std::error_code broken;
    if (fs::canonical(labels->path(), broken) != device || broken) continue;
    return String::FromUtf8(Unescaped(labels->path().filename().string(), "\\x", 2, 16));
  }
  return {};
}

}  // namespace vx
