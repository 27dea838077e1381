// The right to work on a file, where locks don't hold between machines: a directory beside it.
//
// Whoever makes the directory has the right. A file of a name of its own in it takes up the new content and is moved
// into the file's place in the end, so that an owner whose directory was removed as left over can do no harm: its file
// has gone with it, and the move fails. No step removes anything of another owner.
#pragma once

#include <string>

#include "platform/posix/FilesInternal.h"

namespace vx::files {

class TLockDir {
 public:
  TLockDir() noexcept = default;
  ~TLockDir() { Release(); }
  TLockDir(const TLockDir&) = delete;
  TLockDir& operator=(const TLockDir&) = delete;

  // The right to work on the file Place; EBUSY while another has it. A directory that did not change while this
  // process looked for ten seconds, or whose stamp is a minute old, counts as left over.
  bool TryTake(const std::string& Place);
  bool IsTaken() const noexcept { return FIsTaken; }
  // The file for new content, empty, open to read and write; EBUSY if the right was lost.
  THandle MakeContent();
  const std::string& GetContent() const noexcept { return FContent; }
  // The file Place by a name that it never had, so that nothing of it can be remembered; none if the drive knows no
  // second names.
  THandle OpenAnew(const std::string& Place);
  void Release() noexcept;

 private:
  bool IsAlone() const;
  bool ClearLeftOver() const;

  std::string FPath, FContent;
  int FNames = 0;  // further ones of the file
  bool FIsTaken = false;
};

}  // namespace vx::files
