// A fresh directory for the files of one test.
//
//   vx::test::TTempDir dir;
//   vx::TFileStream file(dir.Path("a.txt"), vx::fmCreate);
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "platform/String.h"

namespace vx::test {

// Made under TMPDIR or /tmp, and removed with all that is in it at the end.
class TTempDir {
 public:
  TTempDir() {
    const char* root = ::getenv("TMPDIR");
    FPath = std::string(root != nullptr && *root != '\0' ? root : "/tmp") + "/vxtestXXXXXX";
    if (::mkdtemp(FPath.data()) == nullptr) throw std::runtime_error("no temporary directory");
  }
  ~TTempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(FPath, ignored);
  }
  TTempDir(const TTempDir&) = delete;
  TTempDir& operator=(const TTempDir&) = delete;

  // Without a delimiter at the end.
  const std::string& GetPath() const noexcept { return FPath; }
  // The native path of Name, a path of the directory's inside in UTF-8 with "/"; "" is the directory.
  String Path(const std::string& Name = {}) const {
    return String::FromUtf8(Name.empty() ? FPath : FPath + "/" + Name);
  }

 private:
  std::string FPath;
};

}  // namespace vx::test
