// Bytes and lines at the end of a file that others append to as well.
#include <fcntl.h>

#include <cerrno>

#include "platform/SafeFiles.h"
#include "platform/posix/Drives.h"
#include "platform/posix/FileLocks.h"
#include "platform/posix/HeldTurn.h"

namespace vx {
namespace files {
namespace {

constexpr int kAppendWait = 1000;  // milliseconds
constexpr uint32_t kAppend = fmCreate | fmShareDenyNone | kKeepContent | kAtEnd;

class TAppender {
 public:
  // The file, open, with the appender's lock where there are locks.
  bool Open(const String& Path) {
    if (!NativePath(Path, FNative) || !Permitted(foOpen, FNative)) return false;
    for (TPolling polling(kAppendWait);;) {
      bool seekable = false;
      FFile = THandle(OpenFile(FNative, kAppend, seekable));
      if (FFile.Get() < 0 || !Check(::fstat(FFile.Get(), &FInfo) == 0)) return false;
      if (!S_ISREG(FInfo.st_mode)) return true;
      FKind = DriveOf(FFile.Get(), FInfo);
      if (FKind == dkUnknown) {
        if (!polling.Wait()) return Fail(EBUSY);
        continue;
      }
      if (FKind == dkCreation) return OpenWithDirectory(polling);
      while (!TryLock(FFile.Get(), lbAppends) && GetLastError() == EBUSY) {
        if (!polling.Wait()) return Fail(EBUSY);
      }
      if (IsStillAt(FNative, FInfo, FKind != dkOwn)) return FKind == dkOwn || RefreshInfo(FFile.Get(), FInfo);
    }
  }

  // All of Bytes, or none.
  bool Append(std::string_view Bytes, bool AreLines) {
    if (FKind == dkOwn && !Check(::fstat(FFile.Get(), &FInfo) == 0)) return false;
    std::string whole;
    if (const std::string_view end = AreLines ? MissingLineEnd() : std::string_view(); !end.empty()) {
      whole.append(end).append(Bytes);
      Bytes = whole;
    }
    size_t done = 0;
    if (WriteBytes(FFile.Get(), FNative, Bytes.data(), Bytes.size(), -1, done) && IsSafe(Bytes)) return true;
    const int error = GetLastError();
    // A piece that can't be taken back stays a line of its own.
    if (done > 0 && done < Bytes.size() && S_ISREG(FInfo.st_mode)) (void)!::ftruncate(FFile.Get(), FInfo.st_size);
    return Fail(error);
  }

 private:
  // Opened again with the right to append, so that the end is where the server says. Who may not make a directory
  // there relies on the server's appending.
  bool OpenWithDirectory(TPolling& Polling) {
    while (!FDirectory.TryTake(BehindLinks(FNative))) {
      if (GetLastError() != EBUSY) break;
      if (!Polling.Wait()) return false;
    }
    bool seekable = false;
    FFile = THandle(OpenFile(FNative, kAppend, seekable));
    return FFile.Get() >= 0 && RefreshInfo(FFile.Get(), FInfo);
  }

  // What has to stand before a line so that it begins one.
  std::string_view MissingLineEnd() const noexcept {
    char last = '\n';
    if (FInfo.st_size > 0 && ::pread(FFile.Get(), &last, 1, FInfo.st_size - 1) != 1) return {};
    return last == '\n' ? "" : last == '\r' ? "\n" : "\r\n";
  }

  // On a network drive: the server has it, and where no lock makes that sure, it can be read there.
  bool IsSafe(std::string_view Bytes) const {
    if (FKind == dkOwn) return true;
    if (!Check(::fdatasync(FFile.Get()) == 0)) return false;
    if (FKind == dkLocks) return true;
    // Drives that know files by their paths may remember an old end; others don't read past what they remember.
    return IsRead(Bytes, O_DIRECT) || IsRead(Bytes, 0) || Fail(EIO);
  }

  bool IsRead(std::string_view Bytes, int Flags) const {
    const THandle file(::open(FNative.c_str(), O_RDONLY | O_CLOEXEC | Flags));
    struct stat info;
    if (!Check(file.Get() >= 0) || !RefreshInfo(file.Get(), info)) return false;
    std::string bytes(Bytes.size(), '\0');
    const ssize_t got = ::pread(file.Get(), bytes.data(), bytes.size(), FInfo.st_size);
    return got == static_cast<ssize_t>(Bytes.size()) && bytes == Bytes;
  }

  std::string FNative;
  TLockDir FDirectory;
  THandle FFile;
  struct stat FInfo {};
  TDriveKind FKind = dkOwn;
};

void Append(const String& Path, std::string_view Bytes, bool AreLines) {
  TAppender appender;
  if (!appender.Open(Path)) Raise<EFOpenError>(kCannotOpen, Path);
  if (!appender.Append(Bytes, AreLines)) Raise<EWriteError>(kCannotWrite, Path);
}

}  // namespace
}  // namespace files

void AppendToFile(const String& Path, std::string_view Bytes) { files::Append(Path, Bytes, false); }

void AppendLinesToFile(const String& Path, std::string_view Lines) { files::Append(Path, Lines, true); }

}  // namespace vx
