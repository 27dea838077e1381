// How the sources of Files.h and SafeFiles.h fail, and their stamps. Not for use outside them.
#pragma once

#include <cerrno>
#include <exception>

#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/detail/FileFaults.h"
#include "platform/os/Time.h"

namespace vx::files {

// Fails with Error unless it is 0.
inline bool Worked(int Error) noexcept { return Error == 0 || Fail(Error); }

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

TDateTime StampToLocal(os::TMoment Stamp);
// False for what is no time of the years 1 to 9999.
bool LocalToStamp(TDateTime Local, os::TMoment& Stamp);

}  // namespace vx::files
