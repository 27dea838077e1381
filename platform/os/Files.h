// Files and directories as the system has them, below Files.h. For the sources of platform/ only.
//
// Paths are native. A failure sets the last error; it is told by false unless said otherwise. The faults that tests
// ask for are met here where bytes are read and written and where files are opened, and above here for the rest.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/String.h"
#include "platform/os/Time.h"

namespace vx::files {

// The native path; false for an empty one and for one with a code unit 0.
bool NativePath(const String& Path, std::string& Native);

// What stands at a path.
struct TEntry {
  bool IsDirectory = false;
  bool IsFile = false;  // neither a directory, nor a link, a device or a pipe
  bool IsLink = false;
  bool IsHidden = false;
  bool IsReadOnly = false;  // the owner may not write
  int64_t Size = 0;         // bytes, of a file
  os::TMoment LastWrite{};
  uint64_t Drive = 0;
  uint64_t Id = 0;  // on its drive
};
enum class TLinks { Follow, Show };
// 0, or the system's error; the last error stays.
int LookUp(const std::string& Native, TLinks Links, TEntry& Entry) noexcept;
// The bare names in a directory, without "." and "..", in the system's order.
bool ListNames(const std::string& Native, std::vector<std::string>& Names);
// The directory that Native is in.
std::string DirectoryOf(const std::string& Native);
// The path without links and dots; empty if nothing stands there.
std::string WholePath(const std::string& Native);

bool RemoveFile(const std::string& Native) noexcept;
bool RemoveDirectory(const std::string& Native) noexcept;
bool MakeDirectory(const std::string& Native) noexcept;
bool SetReadOnlyAt(const std::string& Native, bool ReadOnly) noexcept;
// Makes a link at Target that leads where the one at Source does.
bool CopyLink(const std::string& Source, const std::string& Target);
// See FileCopy, FileMove and FileReplace.
bool CopyOne(const std::string& Source, const std::string& Target);
bool MoveEntry(const std::string& Source, const std::string& Target);
bool PutInPlace(const std::string& Source, const std::string& Target);

// Further modes with fmCreate: the old file is not emptied; no file is made; all that is written goes to the end.
inline constexpr uint32_t kKeepContent = 0x2000;
inline constexpr uint32_t kMustExist = 0x4000;
inline constexpr uint32_t kAtEnd = 0x8000;
// Opens with regard to share modes; -1 if that failed. Seekable is set for what has positions.
int OpenFile(const std::string& Native, uint32_t Mode, bool& Seekable);
// False if the system could not bring what was written to its place. -1 is no file.
bool CloseFile(int Handle) noexcept;
// As read and write, but whole: fewer bytes, and not more than kMaxRead, only at the end, and all bytes
// or failure. A Position below 0 is for what has none. -1 if it failed; Done tells what was written.
inline constexpr size_t kMaxRead = size_t{1} << 30;
int64_t ReadBytes(int Handle, const std::string& Native, void* Buffer, size_t Count, int64_t Position);
bool WriteBytes(int Handle, const std::string& Native, const void* Buffer, size_t Count, int64_t Position,
                size_t& Done);
// 0 for what has no size.
int64_t SizeOf(int Handle) noexcept;
bool SetSizeOf(int Handle, int64_t Size) noexcept;
bool FlushFile(int Handle) noexcept;
bool SetLastWriteOf(int Handle, os::TMoment Stamp) noexcept;

}  // namespace vx::files
