// What the drive that a file lies on can do, and how to look past what this machine remembers of a network drive.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <string>

namespace vx::files {

enum TDriveKind : uint8_t {
  dkUnknown,  // its server does not answer, or knows this file no more
  dkOwn,      // of this machine alone
  dkLocks,    // of several machines, with locks that hold between them
  dkCreation  // of several machines, without locks or with locks that hold within each of them only
};
// Whether the open file of that Info lies on a drive that other machines may write to, or nobody knows.
bool IsRemote(int Handle, const struct stat& Info) noexcept;
// Of a regular file that is open for reading; tries out what the drive does with a lock.
TDriveKind DriveOf(int Handle, const struct stat& Info) noexcept;

// Has the server asked at the next use of the name.
void RefreshName(const std::string& Native) noexcept;
// Has the server asked for size and stamp of an open file. False, with the last error, if it knows the file no more.
bool RefreshInfo(int Handle, struct stat& Info) noexcept;

}  // namespace vx::files
