// What the sources of Files.h and SafeFiles.h share. Not for use outside them.
//
// All functions report a failure through SetLastError and, unless said otherwise, by false.
#pragma once

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <new>
#include <string>
#include <utility>

#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/detail/FileFaults.h"

namespace vx::files {

// Owns a descriptor; -1 is none.
class THandle {
 public:
  explicit THandle(int Handle = -1) noexcept : FHandle(Handle) {}
  THandle(THandle&& Other) noexcept : FHandle(Other.Release()) {}
  THandle& operator=(THandle&& Other) noexcept {
    std::swap(FHandle, Other.FHandle);
    return *this;
  }
  ~THandle() {
    if (FHandle >= 0) ::close(FHandle);
  }
  int Get() const noexcept { return FHandle; }
  int Release() noexcept { return std::exchange(FHandle, -1); }
  // False if the system could not bring what was written to its place.
  bool Close() noexcept;

 private:
  int FHandle;
};

struct TDirectoryCloser {
  void operator()(DIR* Directory) const noexcept { ::closedir(Directory); }
};
using TDirectory = std::unique_ptr<DIR, TDirectoryCloser>;

// Fails with errno unless Ok.
bool Check(bool Ok) noexcept;
// Runs Body and reports lack of memory as a failure.
template <typename F>
bool Guarded(F&& Body) noexcept {
  try {
    return Body();
  } catch (const std::exception&) {
    return Fail(ENOMEM);
  }
}

inline constexpr char16_t kCannotOpen[] = u"Cannot open file \"%s\". %s";
inline constexpr char16_t kCannotCreate[] = u"Cannot create file \"%s\". %s";
inline constexpr char16_t kCannotRead[] = u"Cannot read file \"%s\". %s";
inline constexpr char16_t kCannotWrite[] = u"Cannot write file \"%s\". %s";
// Raises an E that names Path and the last error.
template <typename E>
[[noreturn]] void Raise(std::u16string_view Pattern, const String& Path) {
  throw E(Format(Pattern, {Path.view(), SysErrorMessage(GetLastError()).view()}));
}

// The native path; false for an empty one and for one with a code unit 0.
bool NativePath(const String& Path, std::string& Native);

TDateTime StampToLocal(const timespec& Stamp);
// False for what is no time of the years 1 to 9999.
bool LocalToStamp(TDateTime Local, timespec& Stamp);

// Where a symbolic link leads in the end, whether or not something stands there.
std::string BehindLinks(std::string Native);
// Whether Info is that of what stands at Native now; of a network drive, by what its server says. The last error stays.
bool IsStillAt(const std::string& Native, const struct stat& Info, bool IsRemote = false) noexcept;

// Further modes with fmCreate: the old file is not emptied; no file is made; all that is written goes to the end.
inline constexpr uint32_t kKeepContent = 0x2000;
inline constexpr uint32_t kMustExist = 0x4000;
inline constexpr uint32_t kAtEnd = 0x8000;
// Opens with regard to share modes; -1 if that failed. Seekable is set for what has positions.
int OpenFile(const std::string& Native, uint32_t Mode, bool& Seekable);
// As read and write, but whole: fewer bytes, and not more than kMaxRead, only at the end, and all bytes
// or failure. A Position below 0 is for what has none. -1 if it failed; Done tells what was written.
inline constexpr size_t kMaxRead = size_t{1} << 30;
ssize_t ReadBytes(int Handle, const std::string& Native, void* Buffer, size_t Count, int64_t Position);
bool WriteBytes(int Handle, const std::string& Native, const void* Buffer, size_t Count, int64_t Position,
                size_t& Done);

// Copies one file; see FileCopy. The paths are native.
bool CopyOne(const std::string& Source, const std::string& Target);

}  // namespace vx::files
