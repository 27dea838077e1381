// Files and directories copied, moved and replaced.
#include "platform/detail/FileErrors.h"
#include "platform/os/Files.h"

namespace vx {
namespace files {
namespace {

// What one copy of a directory has made, so that it can be taken back.
class TTreeCopy {
 public:
  bool Run(const std::string& Source, const std::string& Target) {
    if (Directory(Source, Target)) return true;
    const int error = GetLastError();
    for (auto made = FMade.rbegin(); made != FMade.rend(); ++made) {
      if (made->IsDirectory) {
        RemoveDirectory(made->Path);
      } else {
        RemoveFile(made->Path);
      }
    }
    return Fail(error);
  }

 private:
  struct TMade {
    std::string Path;
    bool IsDirectory;
  };

  bool Directory(const std::string& Source, const std::string& Target) {
    TEntry from, old;
    if (!Worked(LookUp(Source, TLinks::Follow, from))) return false;
    if (!from.IsDirectory) return Fail(ENOTDIR);
    if (LookUp(Target, TLinks::Follow, old) != 0) {
      if (!Permitted(foMakeDir, Target) || !MakeDirectory(Target)) return false;
      FMade.push_back({Target, true});
    } else if (!old.IsDirectory) {
      return Fail(ENOTDIR);
    }
    std::vector<std::string> names;
    if (!ListNames(Source, names)) return false;
    for (const std::string& name : names) {
      if (!Entry(Source + "/" + name, Target + "/" + name)) return false;
    }
    return true;
  }

  bool Entry(const std::string& Source, const std::string& Target) {
    TEntry from, old;
    if (!Worked(LookUp(Source, TLinks::Show, from))) return false;
    if (from.IsDirectory) return Directory(Source, Target);
    const bool isNew = LookUp(Target, TLinks::Show, old) != 0;
    if (from.IsLink) {
      if (!isNew && !RemoveFile(Target)) return false;
      if (!CopyLink(Source, Target)) return false;
    } else if (!from.IsFile) {
      return Fail(EOPNOTSUPP);
    } else if (!CopyOne(Source, Target)) {
      return false;
    }
    if (isNew) FMade.push_back({Target, false});
    return true;
  }

  std::vector<TMade> FMade;
};

bool BothNative(const String& A, const String& B, std::string& NativeA, std::string& NativeB) {
  return NativePath(A, NativeA) && NativePath(B, NativeB);
}

// Whether Target, which need not be there yet, is Source or lies in it; fails if Source is not there.
bool LiesIn(const std::string& Source, const std::string& Target, bool& Result) {
  std::string inner = WholePath(Source);
  if (inner.empty()) return Fail(ENOENT);
  if (inner.back() != '/') inner += '/';
  std::string outer = WholePath(Target);
  if (outer.empty()) outer = WholePath(DirectoryOf(Target)) + "/" + Target.substr(Target.rfind('/') + 1);
  Result = (outer + "/").starts_with(inner);
  return true;
}

}  // namespace
}  // namespace files

using files::BothNative;
using files::Guarded;
using files::Permitted;

bool FileCopy(const String& Source, const String& Target) noexcept {
  return Guarded([&] {
    std::string source, target;
    return BothNative(Source, Target, source, target) && files::CopyOne(source, target);
  });
}

bool FileMove(const String& Source, const String& Target) noexcept {
  return Guarded([&] {
    std::string source, target;
    return BothNative(Source, Target, source, target) && Permitted(foRename, source, target) &&
           files::MoveEntry(source, target);
  });
}

bool FileReplace(const String& Source, const String& Target) noexcept {
  return Guarded([&] {
    std::string source, target;
    return BothNative(Source, Target, source, target) && Permitted(foRename, source, target) &&
           files::PutInPlace(source, target);
  });
}

bool DirectoryCopy(const String& Source, const String& Target) noexcept {
  return Guarded([&] {
    std::string source, target;
    if (!BothNative(Source, Target, source, target)) return false;
    while (target.size() > 1 && target.back() == '/') target.pop_back();
    bool liesIn = false;
    if (!files::LiesIn(source, target, liesIn)) return false;
    return liesIn ? files::Fail(EINVAL) : files::TTreeCopy().Run(source, target);
  });
}

}  // namespace vx
