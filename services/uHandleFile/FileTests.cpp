#include "services/uHandleFile/FileTests.h"

#include <algorithm>

#include "platform/Files.h"
#include "platform/Paths.h"

namespace vx {
namespace {

// The first and the first missing day of the stamps that a non-negative number of 32 bits can hold.
constexpr TDateTime kFirstDosDay = 29221;       // 1.1.1980
constexpr TDateTime kBehindLastDosDay = 52597;  // 1.1.2044

bool Opens(std::u16string_view name, uint32_t mode) {
  try {
    TFileStream file(name, mode);
    return true;
  } catch (const EStreamError&) {
    return false;
  }
}

bool OpensAlone(std::u16string_view name) { return Opens(name, fmOpenReadWrite | fmShareExclusive); }

}  // namespace

bool VxFileExists(std::u16string_view name) {
  const std::vector<TFileInfo> found = FindFiles(name);
  auto file = std::find_if(found.begin(), found.end(), [](const TFileInfo& info) { return !info.IsDirectory; });
  if (file == found.end()) return false;
  return file->Size > 0 || (file->LastWrite >= kFirstDosDay && file->LastWrite < kBehindLastDosDay);
}

bool VxFileIsLocked(std::u16string_view name) { return VxFileExists(name) && !OpensAlone(name); }

bool VxFileIsOpen(std::u16string_view name) { return VxFileIsLocked(name); }

bool VxFileInUse(std::u16string_view name) { return VxFileIsLocked(name); }

bool VxFileIsReadable(std::u16string_view name) {
  return VxFileExists(name) && !Opens(name, fmOpenRead | fmShareDenyNone);
}

bool VxTestExclusive(const TVxStringList& files, TVxStringList* failed) {
  bool good = true;
  for (int i = 0; i < files.GetCount() && (good || failed != nullptr); ++i) {
    const String name = files.Get(i);
    if (!VxFileExists(name)) continue;
    VxUnlockFile(name);
    if (OpensAlone(name)) continue;
    good = false;
    if (failed != nullptr) failed->Add(name);
  }
  return good;
}

void VxUnlockFile(std::u16string_view name) {
  TFileInfo info;
  if (GetFileInfo(name, info) && !info.IsDirectory && info.IsReadOnly) SetReadOnly(name, false);
}

bool VxFlushFile(std::u16string_view name) {
  if (name.empty()) return false;
  try {
    TFileStream file(name, fmOpenReadWrite | fmShareDenyNone);
    file.Flush();
    return true;
  } catch (const EStreamError&) {
    return false;
  }
}

}  // namespace vx
