// Tools of the desktop, mails and addresses. All go through the shell (platform/ShellExecute.h), which says there
// what it does on a system that has other tools.
#pragma once

#include <memory>

#include "objects/uVxClasses/TVxStringList.h"

namespace vx {

enum TWindowsTool : uint8_t {
  wtAddressBook,
  wtCalculator,
  wtCommand,
  wtPaint,
  wtWordpad,
  wtNotepad,
  wtMediaplayer,
  wtCharMap,
  wtDefrag,
  wtSysInfo,
  wtSoundVolume,
  wtSecurity,
  wtInternet,
  wtFolder,       // parameter itself
  wtFolderFonts,  // the directory of fonts
  wtExplore,      // parameter, to look through it
  wtPrint         // parameter, to print it
};

// Opens a tool with parameter as its parameters, or parameter itself. True if the shell took it; false too for a
// tool that this system hasn't.
bool VxWindowsTool(TWindowsTool tool, const String& parameter = {});

// Opens a new mail. The texts stand in the address as they are; attachment only if it exists. True if the shell
// took it.
bool VxProcessMailTo(const String& address, const String& subject, const String& body, const String& attachment);

// The pieces of url, each up to and with its "/", where two "/" stay together: u"x://", u"a/", u"b" of
// u"x://a/b". Of more than two in a row each two from the right are one piece. No piece is empty.
[[nodiscard]] std::unique_ptr<TVxStringList> VxParseURL(const String& url);

}  // namespace vx
