// Whole files as bytes, past all share modes and faults.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include "platform/Paths.h"

namespace vx::test {

inline void PutText(const String& Path, const std::string& Bytes) {
  std::ofstream(ToNativePath(Path), std::ios::binary) << Bytes;
}
// "<none>" if there is no such file.
inline std::string GetText(const String& Path) {
  std::ifstream file(ToNativePath(Path), std::ios::binary);
  return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "<none>";
}

}  // namespace vx::test
