#include "platform/Folders.h"

#include <algorithm>

#include "platform/Paths.h"

namespace vx {

String LibraryPath(const std::string& Path) {
  const TPathMap& map = GetPathMap();
  const bool isTold =
      Path.starts_with('/') && Path.find('\\') == Path.npos && map.HasDrive(u'C') && map.DriveDirectory(u'C').empty();
  if (!isTold) return String::FromUtf8(Path);
  std::string path = "C:" + Path;
  std::replace(path.begin(), path.end(), '/', '\\');
  return String::FromUtf8(path);
}

}  // namespace vx
