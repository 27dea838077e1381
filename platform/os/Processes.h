// The processes of the system. For the sources of platform/ only. Handles are the system's numbers, errors those of
// <cerrno>, 0 for none.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vx::os {

// The ends of a pipe, which no program that is started inherits.
struct TPipe {
  int Read = -1, Write = -1;
};
int MakePipe(TPipe& Pipe) noexcept;
// What gives nothing and takes all.
int OpenNothing(int& Handle) noexcept;
void CloseHandle(int Handle) noexcept;
// What there is, at most Count bytes; waits until there is something. 0 at the end, -1 if it failed.
int ReadPipe(int Handle, char* Buffer, int Count) noexcept;

// Texts without a byte 0. The handles become the standard ones of the program; -1 leaves that of this process.
struct TLaunch {
  const std::string& Program;  // absolute
  std::span<const std::string> Arguments;
  const std::string& Directory;  // empty: that of this process
  int Input;
  int Output;  // for errors, too
  bool Detach;
};
// Starts it; see platform/Processes.h for what the child has. Process becomes its id.
int Launch(const TLaunch& Call, int64_t& Process);
// Waits for the end of a child, which is forgotten by the system then. False if it is none.
bool WaitFor(int64_t Process, int& ExitCode) noexcept;
// Lets the system forget a child that has ended; false while it runs.
bool Forget(int64_t Process) noexcept;

}  // namespace vx::os
