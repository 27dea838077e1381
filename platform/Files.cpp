#include "platform/Files.h"

#include <algorithm>

#include "platform/detail/FileErrors.h"
#include "platform/os/Files.h"

namespace vx {

using files::kCannotCreate;
using files::kCannotOpen;
using files::kCannotRead;
using files::kCannotWrite;
using files::Raise;

TFileStream::TFileStream(const String& Path, uint32_t Mode) : FPath(Path) {
  if (files::NativePath(Path, FNative)) FHandle = files::OpenFile(FNative, Mode, FSeekable);
  if (FHandle >= 0) return;
  if ((Mode & fmCreate) != 0) Raise<EFCreateError>(kCannotCreate, Path);
  Raise<EFOpenError>(kCannotOpen, Path);
}

TFileStream::~TFileStream() { files::CloseFile(FHandle); }

size_t TFileStream::Read(void* Buffer, size_t Count) {
  if (FSeekable && FPosition < 0) {
    files::Fail(EINVAL);
    Raise<EReadError>(kCannotRead, FPath);
  }
  size_t done = 0;
  while (done < Count) {
    char* to = static_cast<char*>(Buffer) + done;
    const size_t wanted = std::min(Count - done, files::kMaxRead);
    const int64_t got = files::ReadBytes(FHandle, FNative, to, wanted, FSeekable ? FPosition : -1);
    if (got < 0) Raise<EReadError>(kCannotRead, FPath);
    FPosition += got;
    done += static_cast<size_t>(got);
    if (static_cast<size_t>(got) < wanted) break;
  }
  return done;
}

void TFileStream::ReadRest(std::string& Bytes, size_t Most) {
  constexpr size_t kLeastRoom = 64 * 1024;
  size_t done = 0;
  // One byte more than is known of shows that the file has ended.
  auto room = static_cast<size_t>(std::max<int64_t>(GetSize() - FPosition, 0)) + 1;
  for (;; room = std::max(done, kLeastRoom)) {
    room = std::min(room, files::kMaxRead);
    const size_t before = Bytes.size();
    Bytes.resize(before + room);
    size_t got = 0;
    try {
      got = Read(Bytes.data() + before, room);
    } catch (...) {
      Bytes.resize(before);
      throw;
    }
    Bytes.resize(before + got);
    done += got;
    if (done > Most) Raise<EReadError>(kCannotRead, FPath, {u"The file is too large.", u"Sie ist zu groß."});
    if (got < room) return;
  }
}

void TFileStream::ReadBuffer(void* Buffer, size_t Count) {
  if (Read(Buffer, Count) == Count) return;
  Raise<EReadError>(kCannotRead, FPath, {u"The file ends before.", u"Sie endet vorher."});
}

void TFileStream::WriteBuffer(const void* Buffer, size_t Count) {
  size_t done = 0;
  bool ok = FSeekable && FPosition < 0
                ? files::Fail(EINVAL)
                : files::WriteBytes(FHandle, FNative, Buffer, Count, FSeekable ? FPosition : -1, done);
  FPosition += static_cast<int64_t>(done);
  if (!ok) Raise<EWriteError>(kCannotWrite, FPath);
}

int64_t TFileStream::GetSize() const { return files::SizeOf(FHandle); }

void TFileStream::SetSize(int64_t Value) {
  if (files::Permitted(foSetSize, FNative) && files::SetSizeOf(FHandle, Value)) return;
  Raise<EWriteError>(kCannotWrite, FPath);
}

bool TFileStream::Flush() noexcept { return files::Permitted(foFlush, FNative) && files::FlushFile(FHandle); }

bool TFileStream::SetLastWrite(TDateTime Local) noexcept {
  return files::Guarded([&] {
    os::TMoment stamp{};
    if (!files::LocalToStamp(Local, stamp)) return files::Fail(EINVAL);
    return files::Permitted(foSetTime, FNative) && files::SetLastWriteOf(FHandle, stamp);
  });
}

}  // namespace vx
