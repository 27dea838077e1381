// The system's processors and threads. For the sources of platform/ only.
#pragma once

#include <cstdint>

#include "platform/Threads.h"

namespace vx::os {

// The processors in use; less than 1 if the system can't tell.
int ProcessorCount() noexcept;

// The system's number of a running thread; never 0.
using TThreadId = int64_t;
TThreadId CurrentThreadId() noexcept;
// A priority that this user may not set leaves the thread as it is.
void SetPriority(TThreadId Thread, TThreadPriority Priority) noexcept;

}  // namespace vx::os
