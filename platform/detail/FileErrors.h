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

// What can't be done, or why: for logs, and in German for the person at the screen.
struct TTold {
  std::u16string_view English, German;
};
inline constexpr TTold kCannotOpen = {u"Cannot open file \"%s\". %s",
                                      u"Die Datei \"%s\" kann nicht geöffnet werden. %s"};
inline constexpr TTold kCannotCreate = {u"Cannot create file \"%s\". %s",
                                        u"Die Datei \"%s\" kann nicht angelegt werden. %s"};
inline constexpr TTold kCannotRead = {u"Cannot read file \"%s\". %s",
                                      u"Die Datei \"%s\" kann nicht gelesen werden. %s"};
inline constexpr TTold kCannotWrite = {u"Cannot write file \"%s\". %s",
                                       u"Die Datei \"%s\" kann nicht geschrieben werden. %s"};
// Raises an E that names Path and the reason.
template <typename E>
[[noreturn]] void Raise(const TTold& What, const String& Path, const TTold& Reason, int Error = 0) {
  throw E(Format(What.English, {Path.view(), Reason.English}), Format(What.German, {Path.view(), Reason.German}),
          Error);
}
// The German reason of Error at Path: where something is missing, it is told whether file, directory or drive.
String ReasonAt(int Error, const String& Path);
// The same with the last error as the reason.
template <typename E>
[[noreturn]] void Raise(const TTold& What, const String& Path) {
  const int error = GetLastError();
  const String reason = SysErrorMessage(error), german = ReasonAt(error, Path);
  Raise<E>(What, Path, {reason.view(), german.view()}, error);
}

TDateTime StampToLocal(os::TMoment Stamp);
// False for what is no time of the years 1 to 9999.
bool LocalToStamp(TDateTime Local, os::TMoment& Stamp);

}  // namespace vx::files
