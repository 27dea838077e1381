// The temporary file beside a file that takes up its new content.
#pragma once

#include <string>

#include "platform/posix/FilesInternal.h"
#include "platform/posix/LockDir.h"

namespace vx::files {

// It has one fixed name, and whoever writes there holds it exclusively; or, where the turn is a directory, it lies in
// that. It goes with the object unless it was put in its place.
class TNewContent {
 public:
  TNewContent(const std::string& Place, TLockDir* Directory);
  ~TNewContent() { Drop(); }
  TNewContent(const TNewContent&) = delete;
  TNewContent& operator=(const TNewContent&) = delete;

  // EBUSY while another one writes there. What a killed process left is removed.
  bool Make(bool IsNew);
  int Get() const noexcept { return FFile.Get(); }
  const std::string& GetPath() const noexcept { return FPath; }
  // As it was made.
  const struct stat& GetInfo() const noexcept { return FInfo; }
  bool IsStillThere() const noexcept;
  // Removes what a killed process left; fails while another one writes there.
  bool ClearLeft() const;
  void Drop() noexcept;
  // After it was put in its place: gives others access to it and the open file to the caller.
  THandle Release() noexcept;

 private:
  bool Create(bool IsNew);

  std::string FPath;
  TLockDir* FDirectory;
  THandle FFile;
  struct stat FInfo {};
};

}  // namespace vx::files
