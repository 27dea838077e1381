#include "bench/services/Flushes.h"

#include <sys/syscall.h>
#include <unistd.h>

namespace {

int Count = 0;
bool IsSkipping = false;

int Flush(long Call, int Handle) noexcept {
  ++Count;
  return IsSkipping ? 0 : static_cast<int>(::syscall(Call, Handle));
}

}  // namespace

// These take the place of the system's in the whole program, shared libraries too.
extern "C" int fsync(int Handle) { return Flush(SYS_fsync, Handle); }
extern "C" int fdatasync(int Handle) { return Flush(SYS_fdatasync, Handle); }

namespace vx::bench {

int FlushCount() noexcept { return Count; }
TWithoutFlushes::TWithoutFlushes() noexcept { IsSkipping = true; }
TWithoutFlushes::~TWithoutFlushes() { IsSkipping = false; }

}  // namespace vx::bench
