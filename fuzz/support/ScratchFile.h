// One file that a target writes and reads again and again, in memory where the system has a place for that.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/String.h"

namespace vx::fuzz {

// Removed with the object. Name is the end of its path, with the extension.
class TScratchFile {
 public:
  explicit TScratchFile(const std::string& Name) {
    const char* told = std::getenv("TMPDIR");
    std::string directory = told != nullptr && *told != '\0' ? told : "/tmp";
    if (access("/dev/shm", W_OK) == 0) directory = "/dev/shm";
    FPath = directory + "/vxfuzz" + std::to_string(getpid()) + Name;
  }
  ~TScratchFile() { Remove(); }
  TScratchFile(const TScratchFile&) = delete;
  TScratchFile& operator=(const TScratchFile&) = delete;

  String GetPath() const { return String::FromUtf8(FPath); }
  void Remove() { std::remove(FPath.c_str()); }
  void Put(const std::string& Bytes) {
    std::FILE* file = std::fopen(FPath.c_str(), "wb");
    if (file == nullptr || std::fwrite(Bytes.data(), 1, Bytes.size(), file) != Bytes.size()) std::abort();
    std::fclose(file);
  }
  std::string Get() const {
    std::string bytes;
    std::FILE* file = std::fopen(FPath.c_str(), "rb");
    if (file == nullptr) std::abort();
    for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file)) bytes += static_cast<char>(byte);
    std::fclose(file);
    return bytes;
  }

 private:
  std::string FPath;
};

}  // namespace vx::fuzz
