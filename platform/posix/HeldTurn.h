// A turn while it is held; see TFileTurn.
#pragma once

#include <mutex>
#include <string>

#include "platform/posix/FilesInternal.h"
#include "platform/posix/LockDir.h"

namespace vx::files {

// Waits between tries until the time is over: shortly at first, then by the clock.
class TPolling {
 public:
  explicit TPolling(int Milliseconds);
  bool Wait();

 private:
  int64_t FEnd;
  long FPause = 50000;  // nanoseconds
};

struct THeldTurn {
  enum TTry { tryGot, tryBusy, tryAgain, tryFailed };

  explicit THeldTurn(const std::string& ANative) : Native(ANative), Place(BehindLinks(ANative)) {}
  ~THeldTurn();
  THeldTurn(const THeldTurn&) = delete;
  THeldTurn& operator=(const THeldTurn&) = delete;

  TTry Try();
  // The turn that this process holds on the file of that Info, or on making the file Place; nullptr if there is none.
  // Under Mutex, which also guards the handle of a turn that is listed.
  static THeldTurn* Find(const struct stat* Info, const std::string& Place) noexcept;
  static std::mutex Mutex;
  // The file Native, opened to read past all that this machine remembers, if this process has its turn by a directory.
  static THandle OpenAnew(const std::string& Native);
  void List();
  // Whether the file of that Info, nullptr for none, is the one that the turn is on. Under Mutex.
  bool IsOn(const struct stat* Info) const noexcept;
  // From now on the turn is on a file that has just been put at Place, whose turn Handle holds. Under Mutex.
  void MoveTo(THandle Handle) noexcept;

  std::string Native, Place;  // as told, and behind symbolic links
  THandle Handle;             // of the file; if it is not there, of its directory
  TLockDir Directory;         // where the locks of the drive don't do
  bool IsNew = false;         // there was no file
  bool IsRemote = false;

 private:
  bool Open();
  TTry Lock();
  bool IsStill() const;

  struct stat FInfo {};
  THeldTurn* FNext = nullptr;
  bool FIsListed = false;
};

}  // namespace vx::files
