// Starting programs, and looking for processes and windows.
//
// Programs are started by the system itself. Parameters are one text, which is cut into arguments by the rules of
// platform/CommandLine.h: blanks part them, double quotes keep blanks, and a backslash counts only before a double
// quote. Nothing else has a meaning in it. VxQuoteArgument brings any text through unchanged:
//
//   int code;
//   vx::VxExecAndWait(u"/usr/bin/printf", u"%s " + vx::VxQuoteArgument(anyText), code, true, false, 0);
//
// Only the command of VxExecCommandline is read by the command interpreter, with all that it makes of it. A code
// unit 0 can't be handed over: what has one isn't started.
#pragma once

#include <cstdint>

#include "platform/String.h"

namespace vx {

// argument as it has to stand in parameters, in double quotes if need be. u"\"a b\"" of u"a b".
String VxQuoteArgument(const String& argument);

// Opens file by the shell, in its own directory, without waiting: programs are started with the parameters,
// documents opened in their application (see platform/ShellExecute.h). With a windowTitle not while there is
// a window of that title and this program. False if it failed; errorText, if given, is then the German text
// that tells why, and else empty.
bool VxExecute(const String& file, const String& parameters, String* errorText = nullptr,
               const String& windowTitle = {});

// Starts the program file, in its own directory and with a session of its own. A file without a directory is
// looked for in the current one and then on the search path. inputHandle, a descriptor, becomes its standard
// input; 0 leaves that of this process, and output and errors are this process's. Gives the process handle, or
// -1 if the program wasn't started.
//   wait         waits without limit and sets exitCode, 128 and the number for a signal; -1 if that failed
//   keepHandle   without wait: the caller has to end the handle by WaitForProcess or CloseProcess
//                (platform/Processes.h); else it is closed
// exitCode is 0 in all other cases.
int64_t VxExecAndWait(const String& file, const String& parameters, int& exitCode, bool wait, bool keepHandle,
                      int64_t inputHandle);
int64_t VxExecAndWait(const String& file, const String& parameters, bool wait, bool keepHandle);

// Runs a command of the command interpreter (/bin/sh) in directory, empty for the current one, with nothing to
// read. All that it and its children write, errors too, is appended to output, decoded from the system code
// page. True if it started. Returns when all of them have ended or closed their output: a command that writes
// without end fills the memory first; then the rest is dropped, and the command is told by its closed output.
bool VxExecCommandline(const String& command, String& output, const String& directory = {});

// Runs the system's "net" hidden with the parameters and waits for it. True if it started and its end was
// seen, whatever its exit code; false where there is no such program.
bool VxNetExe(const String& parameters);

// Whether a process runs that has this id, 0 for any, and this name, empty for any: that of its file, without
// a directory, or of the process itself, letters in any case.
bool VxProcessExists(int64_t processId, std::u16string_view name);

// The window of that title, and of that class unless className is empty, if it belongs to the program whose
// path is module, letters in any case; 0 if not. With showError a warning tells why. If the system doesn't tell
// the window's program, a process of its id with module's file name will do.
int64_t VxFindWindow(const String& className, const String& title, const String& module, bool showError);

}  // namespace vx
