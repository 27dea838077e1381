#include "platform/posix/NewContent.h"

#include <fcntl.h>

#include <cerrno>

#include "platform/posix/FileLocks.h"

namespace vx::files {

namespace {

constexpr int kTries = 10;

}  // namespace

TNewContent::TNewContent(const std::string& Place, TLockDir* Directory)
    : FDirectory(Directory != nullptr && Directory->IsTaken() ? Directory : nullptr) {
  const size_t name = Place.rfind('/') + 1;
  FPath =
      FDirectory != nullptr ? FDirectory->GetContent() : Place.substr(0, name) + "." + Place.substr(name) + ".vxnew";
}

bool TNewContent::Make(bool IsNew) {
  if (!Permitted(foCreate, FPath)) return false;
  if (FDirectory != nullptr) {
    FFile = FDirectory->MakeContent();
    return FFile.Get() >= 0 && Check(::fstat(FFile.Get(), &FInfo) == 0);
  }
  if (!Create(IsNew)) return false;
  const bool ok = (TakeExclusively(FFile.Get()) && Check(::fstat(FFile.Get(), &FInfo) == 0)) &&
                  (IsStillAt(FPath, FInfo) || Fail(EBUSY));
  if (!ok) FFile = THandle();  // it may be another's by now
  return ok;
}

bool TNewContent::Create(bool IsNew) {
  for (int tries = 0;; ++tries) {
    FFile = THandle(::open(FPath.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, IsNew ? 0666 : 0600));
    if (FFile.Get() >= 0) return true;
    if (errno != EEXIST) return Check(false);
    if (!ClearLeft()) return false;
    if (tries == kTries) return Fail(EBUSY);
  }
}

bool TNewContent::ClearLeft() const {
  struct stat info;
  if (FDirectory != nullptr || ::lstat(FPath.c_str(), &info) != 0) return true;
  THandle left;
  if (S_ISREG(info.st_mode)) {
    left = THandle(::open(FPath.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (left.Get() < 0 && errno != EACCES) return errno == ENOENT || Check(false);
  }
  if (left.Get() >= 0) {
    if (!TakeExclusively(left.Get())) return false;
    if (!Check(::fstat(left.Get(), &info) == 0) || !IsStillAt(FPath, info)) return true;
  }
  return Check(::unlink(FPath.c_str()) == 0 || errno == ENOENT);
}

bool TNewContent::IsStillThere() const noexcept { return IsStillAt(FPath, FInfo); }

void TNewContent::Drop() noexcept {
  if (FFile.Get() >= 0 && FDirectory == nullptr && IsStillThere()) ::unlink(FPath.c_str());
  FFile = THandle();
}

THandle TNewContent::Release() noexcept {
  if (FDirectory == nullptr) GiveShareBack(FFile.Get());
  return std::move(FFile);
}

}  // namespace vx::files
