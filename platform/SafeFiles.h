// Files that several processes read and write, and that no accident leaves half written.
//
//   ReplaceFileContent   new content for a file: the old or the new one stands there whole
//   AppendToFile         bytes at the end of a file that others append to as well
//   TFileTurn            one process after the other, for what takes more than one open
//
// Example:
//   vx::TFileTurn turn;
//   turn.Take(path, 1000);              // waits for others who take it
//   ... read the file, work out new content ...
//   vx::ReplaceFileContent(path, bytes);
//
// Locks are advisory, as those of TFileStream, and go with the process that holds them, however it ends.
#pragma once

#include <string>
#include <string_view>

#include "platform/Files.h"

namespace vx {

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

// Appends all of Bytes in one piece or raises EFOpenError or EWriteError and leaves the file as it was, but that
// it is made if it is not there. Others who append by this routine wait for each other, so that whole pieces
// stand in the file in any order.
void AppendToFile(const String& Path, std::string_view Bytes);

// The right to be the one who works on a file, which only others who take a turn wait for: it hinders neither
// reading nor writing.
class TFileTurn {
 public:
  TFileTurn() noexcept = default;
  ~TFileTurn() { Release(); }
  TFileTurn(const TFileTurn&) = delete;
  TFileTurn& operator=(const TFileTurn&) = delete;

  // Waits up to so many milliseconds by the clock. False, and no turn is held, if another holds it all that
  // time, if the file can't be opened for writing, and where the system has no locks. A turn that was held is
  // given back first. A file that is not there yet can be taken, too: the right to make it, for which all wait
  // who are to make files in its directory. The turn stays with the name when this process replaces the content
  // meanwhile, by ReplaceFileContent; a file that others put there can be taken by the next one.
  bool Take(const String& Path, int Milliseconds);
  void Release() noexcept;

 private:
  friend struct TFileTurns;

  int FHandle = -1;
  TFileTurn* FNext = nullptr;  // the next one that is held in this process
};

}  // namespace vx
