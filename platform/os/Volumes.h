// The file systems of the system. For the sources of platform/ only; the rest of platform/Volumes.h is the system's
// too.
#pragma once

#include <cstdint>
#include <string>

namespace vx::os {

// How many blocks of what size this user may still write where Path, a native path, lies. 0 or the error, which
// leaves both as they are.
int SpaceOf(const std::string& Path, uint64_t& BlockSize, uint64_t& Blocks) noexcept;

}  // namespace vx::os
