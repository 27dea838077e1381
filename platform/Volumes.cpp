#include "platform/Volumes.h"

#include <cerrno>
#include <filesystem>
#include <string>

#include "platform/Paths.h"
#include "platform/os/Volumes.h"

namespace vx {

bool FreeBytes(const String& Path, int64_t& Bytes) {
  Bytes = 0;
  std::string path = ToNativePath(Path);
  if (path.empty()) path.push_back('.');
  if (path.find('\0') != path.npos) return false;
  uint64_t size = 0, count = 0;
  while (const int error = os::SpaceOf(path, size, count)) {
    if ((error != ENOENT && error != ENOTDIR) || path == "." || path == "/") return false;
    const std::string above = std::filesystem::path(path).parent_path().string();
    // A drive that is not set leads below a device, where nothing is.
    if (above == "/dev/null") return false;
    if (above.empty()) {
      path = std::string(1, '.');
    } else if (above == path) {
      path = std::string(1, '/');
    } else {
      path = above;
    }
  }
  const auto most = static_cast<uint64_t>(INT64_MAX);
  Bytes = static_cast<int64_t>(size != 0 && count > most / size ? most : size * count);
  return true;
}

}  // namespace vx
