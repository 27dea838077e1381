// What a desktop does with a file, an address or the name of one of its tools.
//
//   TShellCall        what shall be done
//   ShellExecute      does it through the hook
//   SetShellExecute   replaces the hook
//
// Example (a test):
//   vx::SetShellExecute([&](const vx::TShellCall& call) { calls.push_back(call); return vx::seStarted; });
//
// The system's own way, for the verb "open", "explore" and "print":
//   - A program is started directly, with the arguments that SplitArguments finds in the parameters.
//   - Any other file, and a directory, goes to OpenDocument; its parameters are not used.
//   - An address such as "mailto:anna@nordvale.de" goes to "xdg-open" as one argument.
//   - Names such as "calc.exe" without a directory, for which there is no file, stand for the desktop's tool of
//     that kind: the first that is installed of a few.
//   - "print" hands the file to "lp"; "explore" opens it like "open".
// Nothing waits for what it started, and no shell reads any of these texts.
//
// Threads: any number may call these at once.
#pragma once

#include <functional>

#include "platform/String.h"

namespace vx {

struct TShellCall {
  String Verb = u"open";
  String File;  // in the library's or the native path grammar
  String Parameters{};
  String Directory{};  // to work in; empty leaves it
};

// Above seFailed the call was taken; up to there it says what went wrong.
enum TShellResult : int {
  seNoResources = 0,
  seOtherError = 1,
  seFileNotFound = 2,
  sePathNotFound = 3,
  seAccessDenied = 5,
  seOutOfMemory = 8,
  seBadFormat = 11,
  seShare = 26,
  seAssociationIncomplete = 27,
  seDdeTimeout = 28,
  seDdeFail = 29,
  seDdeBusy = 30,
  seNoAssociation = 31,
  seDllNotFound = 32,
  seFailed = 32,
  seStarted = 33
};

// A hook may give any number.
using TShellExecute = std::function<int(const TShellCall& Call)>;

int ShellExecute(const TShellCall& Call);
// An empty function sets the system's own way back. Returns what was set before, empty if it was that.
TShellExecute SetShellExecute(TShellExecute Execute);

}  // namespace vx
