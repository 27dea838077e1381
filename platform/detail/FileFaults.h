// What TFileFaults tells those who work on files. Not for use outside them.
#pragma once

#include <string>

#include "platform/Files.h"

namespace vx::files {

// Sets the last error; always false.
bool Fail(int Error) noexcept;

// 0, or the system error with which the operation has to fail.
int FaultOf(TFileOperation Operation, const std::string& Native, const std::string& Second = {}) noexcept;
// True unless the operation has to fail.
bool Permitted(TFileOperation Operation, const std::string& Native, const std::string& Second = {}) noexcept;
// How much of Count may be written or read; takes it off what is left.
size_t TakeSpace(size_t Count) noexcept;
size_t TakeReads(size_t Count) noexcept;
// Whether every drive is to count as one on which locks don't hold between machines.
bool LosesLocks() noexcept;
// The stamp that is to be told of Native, whose own is Stamp.
TDateTime ToldStamp(const std::string& Native, TDateTime Stamp);

}  // namespace vx::files
