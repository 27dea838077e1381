// Flushes to the disk, counted and left out on demand: how long one takes is the disk's affair, and not all
// peers flush.
#pragma once

namespace vx::bench {

// How often this process has asked for a flush.
int FlushCount() noexcept;
// As long as it lives, flushes of this process and of those forked from it are counted and not done.
class TWithoutFlushes {
 public:
  TWithoutFlushes() noexcept;
  ~TWithoutFlushes();
  TWithoutFlushes(const TWithoutFlushes&) = delete;
  TWithoutFlushes& operator=(const TWithoutFlushes&) = delete;
};

}  // namespace vx::bench
