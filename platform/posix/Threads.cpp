#include "platform/os/Threads.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vx::os {

int ProcessorCount() noexcept { return static_cast<int>(::sysconf(_SC_NPROCESSORS_ONLN)); }

TThreadId CurrentThreadId() noexcept { return ::syscall(SYS_gettid); }

void SetPriority(TThreadId Thread, TThreadPriority Priority) noexcept {
  static constexpr int kNice[] = {19, 10, 5, 0, -5, -10, -20};
  (void)::setpriority(PRIO_PROCESS, static_cast<id_t>(Thread), kNice[Priority]);  // a wish: not all may rise
}

}  // namespace vx::os
