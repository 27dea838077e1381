// Files with share modes, and what the library asks of directories.
//
//   TFileStream    one open file
//   TFileInfo      what is known of a file or directory
//   TFileFaults    makes files fail on command, for tests
//   FileDelete, FileCopy, …   operations that report by their result
//
// Paths are in the library's grammar or native (see Paths.h).
//
// Share modes hold between processes and between two opens of one process. They are advisory: all
// who open files through this layer respect them, other programs need not. An open that a share
// mode forbids fails like any other open. On file systems without locks files open unshared.
//
// Example:
//   vx::TFileStream file(u"C:\\Daten\\a.txt", vx::fmOpenRead | vx::fmShareDenyWrite);
//   std::string bytes(static_cast<size_t>(file.GetSize()), '\0');
//   file.ReadBuffer(bytes.data(), bytes.size());
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Exceptions.h"
#include "platform/Types.h"

namespace vx {

// One of the first four, and one of the share modes; without a share mode fmShareExclusive counts.
// fmCreate makes a new file or empties the old one, only after the share modes allow it, and opens it
// for reading and writing. A file that its owner may not write doesn't open for writing, whoever asks.
enum TFileMode : uint32_t {
  fmOpenRead = 0x0000,
  fmOpenWrite = 0x0001,
  fmOpenReadWrite = 0x0002,
  fmCreate = 0x1000,
  fmShareExclusive = 0x0010,  // no one else has the file open
  fmShareDenyWrite = 0x0020,  // no one else has it open for writing
  fmShareDenyNone = 0x0040    // all may, unless they deny it themselves
};
constexpr uint32_t operator|(TFileMode A, TFileMode B) noexcept {
  return static_cast<uint32_t>(A) | static_cast<uint32_t>(B);
}

// The file is closed with the object. Positions and sizes are in bytes.
class TFileStream {
 public:
  // Raises EFOpenError, with fmCreate EFCreateError; the text names the path and the reason.
  TFileStream(const String& Path, uint32_t Mode);
  ~TFileStream();
  TFileStream(const TFileStream&) = delete;
  TFileStream& operator=(const TFileStream&) = delete;

  // Up to Count bytes from the position on; fewer only at the end of the file, 0 there. EReadError.
  size_t Read(void* Buffer, size_t Count);
  // Exactly Count bytes; EReadError if the file ends before.
  void ReadBuffer(void* Buffer, size_t Count);
  // Appends all bytes from the position to the end of the file to Bytes, which holds what was read also if
  // EReadError is raised: by the system, or as there are more than Most.
  void ReadRest(std::string& Bytes, size_t Most);
  // All Count bytes; EWriteError if the system takes fewer, for example on a full disk.
  void WriteBuffer(const void* Buffer, size_t Count);
  int64_t GetPosition() const noexcept { return FPosition; }
  void SetPosition(int64_t Value) noexcept { FPosition = Value; }
  // 0 for what has no size, such as a pipe or a device.
  int64_t GetSize() const;
  // Cuts or extends the file. EWriteError.
  void SetSize(int64_t Value);
  // Brings what was written to the disk. False if the system could not.
  bool Flush() noexcept;
  // Local time. False if the system refuses.
  bool SetLastWrite(TDateTime Local) noexcept;
  const String& GetPath() const noexcept { return FPath; }

 private:
  String FPath;
  std::string FNative;
  int FHandle = -1;
  int64_t FPosition = 0;
  bool FSeekable = true;
};

struct TFileInfo {
  String Name;       // the bare name
  int64_t Size = 0;  // bytes
  bool IsDirectory = false;
  bool IsReadOnly = false;  // the owner may not write
  bool IsHidden = false;    // the name begins with a dot
  TDateTime LastWrite = 0;  // local time, exact to a microsecond
  uint64_t Id = 0;          // on most drives another one for another file at the same path
};

// What stands at Path, symbolic links followed. False if there is nothing or it can't be seen.
bool GetFileInfo(const String& Path, TFileInfo& Info);
// The entries that match Mask, which may hold "*" and "?" in its last component, in the order of
// their names by code units, without "." and "..". A Mask without wildcards finds that one entry.
// Letters of names match regardless of case, as users of such masks expect.
std::vector<TFileInfo> FindFiles(const String& Mask);
bool DirectoryExists(const String& Path);
// Whether both paths lead to one file, by whatever spelling or link.
bool IsSameFile(const String& A, const String& B);

// All report failure by false and raise nothing; a failure leaves the file system as it was.
bool FileDelete(const String& Path) noexcept;  // fails on a read-only file
// Overwrites; keeps the stamp and the read-only attribute of Source. Fails on a read-only Target and
// where share modes forbid to read Source or to replace Target.
bool FileCopy(const String& Source, const String& Target) noexcept;
// Fails if Target exists, unless it is Source itself. A directory moves within one file system only.
bool FileMove(const String& Source, const String& Target) noexcept;
// Puts the file Source in the place of Target, which may exist, in one step that others see whole or
// not at all. Both must lie on one file system. The file keeps the rights of Target; a Target that is
// read-only is not replaced, and of a symbolic link the file that it leads to. Share modes don't count.
bool FileReplace(const String& Source, const String& Target) noexcept;
bool DirectoryCreate(const String& Path) noexcept;  // one level; fails if it exists
bool DirectoryRemove(const String& Path) noexcept;  // fails if it is not empty
// Copies a directory with all that is in it into Target, which is made; existing files are
// overwritten. A failure takes back what was made; files overwritten before it stay so. Symbolic links
// in Source are copied as links. Fails if Target lies in Source.
bool DirectoryCopy(const String& Source, const String& Target) noexcept;
bool SetReadOnly(const String& Path, bool ReadOnly) noexcept;
// The system's number and text of the last failure in this layer, in this thread. A success leaves it.
int GetLastError() noexcept;
void SetLastError(int Error) noexcept;
String SysErrorMessage(int Error);  // English, for logs; UserErrorMessage has the text for the person at the screen

// The file operations that tests can make fail.
// foStamp is the asking for what is known of a file, foRename moving and replacing.
enum TFileOperation : uint8_t {
  foOpen,
  foCreate,
  foRead,
  foWrite,
  foSetSize,
  foFlush,
  foDelete,
  foRename,
  foCopy,
  foMakeDir,
  foSetTime,
  foStamp,
  foAttributes
};

// While it lives, operations fail, or go wrong in other ways, as it is told.
class TFileFaults {
 public:
  TFileFaults();
  ~TFileFaults();
  TFileFaults(const TFileFaults&) = delete;
  TFileFaults& operator=(const TFileFaults&) = delete;
  // The operation fails with the system error Error (EACCES, ENOSPC, …) the next Times times, after
  // succeeding Skip times; on paths that end in PathEnd, which is compared as native path; empty: all.
  // An operation on two paths counts if either ends so.
  void Fail(TFileOperation Operation, int Error, int Times = 1, int Skip = 0, std::string PathEnd = {});
  // Writes beyond so many bytes in all fail with ENOSPC, after taking what still fits.
  void LimitSpace(int64_t Bytes) noexcept;
  // Reads find the end of the file after so many bytes in all, whatever its size: a file that
  // shrinks while it is read.
  void CutReads(int64_t Bytes) noexcept;
  // Last-write stamps that are asked for stay at the value of the first asking, path by path.
  void FreezeStamps() noexcept;
  // Every drive counts as one of a network on which locks don't hold between machines.
  void LoseLocks() noexcept;

 private:
  struct TRules;
  friend struct TFileFaultAccess;
  TRules* FRules;
};

}  // namespace vx
