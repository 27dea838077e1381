// Starting other programs, and the processes of the system.
//
//   TProcessStart     what to start and how
//   StartProcess      starts a process that this one may wait for
//   WaitForProcess, CloseProcess   the ends of such a process's handle
//   StartDetached     starts one that nobody waits for
//   RunForOutput      starts one, takes what it writes and waits for its end
//   FindProgram       the path of a program that the system knows by its name
//   ListProcesses     the processes of the system
//
// Example:
//   int code = 0;
//   vx::TProcessStart start{.Program = "/usr/bin/printf", .Arguments = {"%s;", "a b", "$x"}};
//   vx::RunForOutput(start, code, [&](std::string_view bytes) {
//     text += bytes;
//     return true;
//   });
//   text;                                                   // "a b;$x;"
//
// Programs are started by the system's own calls with a list of arguments: no shell comes between, and every
// argument reaches the child byte by byte. The child has a session of its own, no blocked signals and all
// descriptors of this process that are not closed on exec.
//
// Pitfall: a handle that is neither waited for nor closed keeps an entry in the system's table of processes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// Texts with a byte 0 can't be handed over: starting them fails with EINVAL.
struct TProcessStart {
  std::string Program;                   // native path; a relative one is from this process's directory
  std::vector<std::string> Arguments{};  // behind the name of the program
  std::string Directory{};               // native, for the child to work in; empty: that of this process
  int Input = -1;                        // the descriptor for its standard input; -1: that of this process
  bool Quiet = false;                    // reads nothing, and what it writes goes nowhere
};

// 0 and the handle of the new process, which is its id; or the system's error, with Handle -1. Whoever gets the
// handle has to wait for it or to close it.
int StartProcess(const TProcessStart& Start, int64_t& Handle);
// Waits without limit for the end and closes the handle. The exit code of a process that a signal ended is 128
// and the signal's number. False, with ExitCode 0, if the handle is none of StartProcess or is closed already.
bool WaitForProcess(int64_t Handle, int& ExitCode);
// Leaves the process to itself; it goes on. Other handles are ignored.
void CloseProcess(int64_t Handle);
// The process becomes the system's own. 0 and its id, or the system's error and -1.
int StartDetached(const TProcessStart& Start, int64_t* Id = nullptr);

// Starts the process with nothing to read, hands what it writes to its output and its errors to Take, up to 255
// bytes at a time, until all who hold its output have closed it, and waits for its end. 0, or the error of the
// start. If Take is false or raises, the output is closed and the process left to itself, with ExitCode 0.
int RunForOutput(const TProcessStart& Start, int& ExitCode, FunctionRef<bool(std::string_view Bytes)> Take);

// The path of the program Name, a name without "/", in the directories of the search path; empty if there is
// none that may be executed.
std::string FindProgram(const std::string& Name);

struct TProcessInfo {
  int64_t Id = 0;
  String Name;      // as the system calls the process; of a script its own name. Cut to 15 bytes
  String FileName;  // the bare name of the file it was started from; empty if this user may not see it
};
// The processes that run, in the order of their ids; ended ones that nobody has waited for are not among them.
std::vector<TProcessInfo> ListProcesses();

}  // namespace vx
