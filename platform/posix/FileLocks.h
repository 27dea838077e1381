// Locks on ranges of bytes that lie far behind any file's end: how share modes, turns and appenders exclude each other.
//
// They belong to the open handle, so that one process has no trouble with itself, and go with it. There is no other
// kind of lock on a file: on network file systems two kinds are one, and a process would wait for itself.
#pragma once

namespace vx::files {

// The first four tell other openers what this one does and denies; of the next two each is held by one at a time and
// has nothing to do with share modes; the last one is for trying out what a drive can do.
enum TLockByte : int { lbReads, lbDeniesWrite, lbWrites, lbDeniesRead, lbTurn, lbAppends, lbProbe };
inline constexpr int kShareBytes = 4;

struct TShare {
  bool Reads, Writes, DeniesRead, DeniesWrite;
};
// False while that can't be shared with what others do; on a drive without locks the file counts as shared.
bool TakeShare(int Handle, const TShare& Share) noexcept;
// Takes an open file as fmShareExclusive does; EBUSY while another has it open.
bool TakeExclusively(int Handle) noexcept;
void GiveShareBack(int Handle) noexcept;

// Takes one lock alone, on a file open for writing, without waiting; EBUSY while another holds it.
bool TryLock(int Handle, TLockByte Byte) noexcept;
void Unlock(int Handle, TLockByte Byte) noexcept;
// Whether that error of a lock means that the drive has none.
bool HasNoLocks(int Error) noexcept;
// Takes the probe lock, which others may hold as well, on a file open for reading.
bool TryProbe(int Handle) noexcept;

}  // namespace vx::files
