// Files that several processes, on several machines, read and write, and that no accident leaves half written.
//
//   ReplaceFileContent   new content for a file: the old or the new one stands there whole
//   AppendToFile         bytes at the end of a file that others append to as well
//   AppendLinesToFile    the same for lines, which stay apart from what a killed process left
//   TFileTurn            one process after the other, for what takes more than one open
//
// Example:
//   vx::TFileTurn turn;
//   if (!turn.Take(path, 1000)) return false;       // waits for others who take it
//   std::string bytes = Edited(path);               // nobody else who takes the turn is at it
//   vx::ReplaceFileContent(path, bytes, turn);
//
// Locks are advisory, as those of TFileStream. What each kind of drive gets:
//   - A drive of this machine: locks on the file, which go with the process that holds them, however it ends.
//   - A network drive whose locks hold between machines (GlusterFS and other drives by FUSE that pass locks on): the
//     same locks, the name and the size asked of the server each time, and all written to it before a lock goes. A
//     machine that vanishes loses its locks when the server notices.
//   - Any other drive that may be one of a network (sshfs, NFS, SMB, 9P ...): a directory ".NAME.vxlock" beside the
//     file, made by one machine at a time, and what was written is read back. An owner that was killed leaves it; it
//     is taken over once it did not change for ten seconds, as seen by one process, or is a minute old by its stamp.
//     Until then nobody gets a turn or appends. An owner that was only asleep can do no harm afterwards: its write
//     fails. The drive has to make directories and to move files in one step.
// Which kind it is, is tried out at each use. A file on a network drive that another machine has just replaced is read
// as it is now when it is opened; its stamp may be told late, by a second or as the drive remembers it.
//
// Threads: any number may work at one file, as processes may; a TFileTurn is for one at a time.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/Types.h"

namespace vx {

namespace files {
struct THeldTurn;
}
class TFileTurn;

// Makes Bytes the content of the file, which is made if it is not there. The file is taken exclusively before
// anything of it changes, as by TFileStream(Path, fmCreate | fmShareExclusive), and the same EFCreateError is
// raised where that fails. Faults while writing raise EWriteError.
//
// The new content is written beside the file, flushed and put in its place in one step, so that a process that
// is killed and a disk that fills up leave the old or the new content whole; the file's owner, rights and
// stamp rules stay, and of a symbolic link the file that it leads to is meant. What a killed process left
// beside the file is overwritten or removed by the next one. Only where that can't be done so (no right to make
// files in the directory or to give them the same owner, a file with several names or special rights, no
// regular file) the file is emptied and written in place.
//
// The result is the file's last-write time, in local time; it differs from the one before also where the clock
// is too coarse.
TDateTime ReplaceFileContent(const String& Path, std::string_view Bytes);
// The same for Size bytes that need not be in memory at once: PieceAt gives those from At on, as many as it likes but
// one at least, and may be asked for them again. What it raises goes to the caller, with the old content where it was.
TDateTime ReplaceFileContent(const String& Path, int64_t Size, FunctionRef<std::string_view(int64_t At)> PieceAt);
// The same for content that was worked out in a turn. EFCreateError, and nothing was changed, if the turn on Path was
// not had or has been lost meanwhile, and if what was written can't be read back from a network drive.
TDateTime ReplaceFileContent(const String& Path, std::string_view Bytes, const TFileTurn& Turn);

// Appends all of Bytes in one piece or raises EFOpenError or EWriteError and leaves the file as it was, but that
// it is made if it is not there. Others who append by this routine wait for each other, so that whole pieces
// stand in the file in any order.
void AppendToFile(const String& Path, std::string_view Bytes);
// The same for whole lines. A file that does not end with a line end, since a process was killed in the middle of its
// line, gets one first, in the same piece.
void AppendLinesToFile(const String& Path, std::string_view Lines);

// The right to be the one who works on a file, which only others who take a turn wait for: it hinders neither
// reading nor writing.
class TFileTurn {
 public:
  TFileTurn() noexcept;
  ~TFileTurn();
  TFileTurn(const TFileTurn&) = delete;
  TFileTurn& operator=(const TFileTurn&) = delete;

  // Waits up to so many milliseconds by the clock. False, and no turn is held, if another holds it all that
  // time, and if the file can't be opened for writing. A turn that was held is given back first. A file that is
  // not there yet can be taken, too: the right to make it, for which all wait who are to make files in its
  // directory. The turn stays with the name when this process replaces the content meanwhile, by
  // ReplaceFileContent; a file that others put there can be taken by the next one.
  [[nodiscard]] bool Take(const String& Path, int Milliseconds);
  void Release() noexcept;
  bool IsHeld() const noexcept { return FHeld != nullptr; }
  // Whether there was no file when the turn that is held was got.
  bool IsToMake() const noexcept;
  // Whether the last Take failed as another held the turn.
  bool IsOthers() const noexcept;
  // The system's number of the reason for which the last Take failed.
  int GetError() const noexcept { return FError; }

 private:
  friend TDateTime ReplaceFileContent(const String& Path, std::string_view Bytes, const TFileTurn& Turn);

  std::unique_ptr<files::THeldTurn> FHeld;
  int FError = 0;
};

}  // namespace vx
