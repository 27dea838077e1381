// What the library asks of the system about the user, this process, the screen, programs and fonts.
//
//   SystemErrorText                     the text of a system error
//   SystemName                          the running system
//   LoginName, IsRemoteLogin            the user and the session
//   ResidentBytes, PeakResidentBytes    the memory of this process
//   ScreenDepth                         the screen
//   ProgramOfFile, HasTrueTypeFont      programs and fonts that are installed
//   TSystemRoots, SetSystemRoots        where all of this is looked for
//
// Example (a test):
//   vx::TSystemRoots before = vx::SetSystemRoots({dir.GetPath(), "/home/anna"});
//   vx::String program = vx::ProgramOfFile(u"letter.txt");    // such as u"/usr/bin/editor"
//   vx::SetSystemRoots(before);
//
// What is missing, can't be read or has not the form that it should have counts as not there; nothing
// raises but for lack of memory. No environment variable is read.
#pragma once

#include <cstdint>
#include <string>

#include "platform/String.h"

namespace vx {

// Where the files of the system are looked for. Results name paths as they are inside Root.
struct TSystemRoots {
  std::string Root;  // stands in front of all paths, without a "/" at its end; empty: the real system
  std::string Home;  // the user's directory inside Root; empty: what the user database says
};
// Replaces the roots and returns the ones before. Not for use beside other threads.
TSystemRoots SetSystemRoots(TSystemRoots Roots);

// The system's text of an error number such as ENOENT, always in English; empty for a number that it
// doesn't know.
String SystemErrorText(int Error);

// The kernel's name and release, such as u"Linux 6.1.0-18-amd64"; empty if unknown.
String SystemName();

// The name by which the user of this process logs in; empty if the user database has none.
String LoginName();
// True if the session that this process belongs to was opened from another machine.
bool IsRemoteLogin();

// The memory of this process, in bytes: what is in use now, and the most that ever was. 0 if unknown.
int64_t ResidentBytes();
int64_t PeakResidentBytes();

// The bits of a pixel on the first screen; 0 if there is none.
int ScreenDepth();

// The full path of the program that the desktop opens a file of such a name with. Only the last
// component of File counts; the file need not exist. Empty if the name has no known type, the type no
// program, or the program is not there.
String ProgramOfFile(const String& File);

// True if a font with TrueType outlines is installed whose family has that name; letters in any case.
// Reads the directories of fonts anew each time.
bool HasTrueTypeFont(std::u16string_view Family);

}  // namespace vx
