#include "bench/services/PeersIni.h"

#define SI_CONVERT_ICU  // as the library was built; texts of bytes are not converted
#include <SimpleIni.h>
#include <fcntl.h>
#include <glib.h>
#include <sys/file.h>
#include <unistd.h>

#include "bench/support/Bench.h"

namespace vx::bench {

namespace {

class TGKeyFile : public TPeerIni {
 public:
  ~TGKeyFile() override { g_key_file_free(FFile); }
  void Load(const std::string& Path) override {
    Expect(g_key_file_load_from_file(FFile, Path.c_str(), G_KEY_FILE_NONE, nullptr), "g_key_file_load_from_file");
  }
  std::string Get(const std::string& Section, const std::string& Key) override {
    char* value = g_key_file_get_string(FFile, Section.c_str(), Key.c_str(), nullptr);
    Expect(value != nullptr, "g_key_file_get_string");
    std::string result = value;
    g_free(value);
    return result;
  }
  int64_t LookUp(const TIniKeys& Keys) override {
    int64_t sum = 0;
    for (const auto& [section, key] : Keys.Pairs) {
      char* value = g_key_file_get_string(FFile, Keys.Sections[section].c_str(), Keys.Keys[key].c_str(), nullptr);
      sum += value[std::char_traits<char>::length(value) - 1];
      g_free(value);
    }
    return sum;
  }
  void Set(const std::string& Section, const std::string& Key, const std::string& Value) override {
    g_key_file_set_string(FFile, Section.c_str(), Key.c_str(), Value.c_str());
  }
  void Save(const std::string& Path) override {
    Expect(g_key_file_save_to_file(FFile, Path.c_str(), nullptr), "g_key_file_save_to_file");
  }

 private:
  GKeyFile* FFile = g_key_file_new();
};

class TSimpleIni : public TPeerIni {
 public:
  TSimpleIni() { FFile.SetUnicode(); }
  void Load(const std::string& Path) override { Expect(FFile.LoadFile(Path.c_str()) == SI_OK, "SimpleIni.LoadFile"); }
  std::string Get(const std::string& Section, const std::string& Key) override {
    return FFile.GetValue(Section.c_str(), Key.c_str(), "");
  }
  int64_t LookUp(const TIniKeys& Keys) override {
    int64_t sum = 0;
    for (const auto& [section, key] : Keys.Pairs) {
      const char* value = FFile.GetValue(Keys.Sections[section].c_str(), Keys.Keys[key].c_str(), "");
      sum += value[std::char_traits<char>::length(value) - 1];
    }
    return sum;
  }
  void Set(const std::string& Section, const std::string& Key, const std::string& Value) override {
    Expect(FFile.SetValue(Section.c_str(), Key.c_str(), Value.c_str()) >= 0, "SimpleIni.SetValue");
  }
  void Save(const std::string& Path) override {
    Expect(FFile.SaveFile(Path.c_str(), false) == SI_OK, "SimpleIni.SaveFile");
  }

 private:
  CSimpleIniA FFile;
};

}  // namespace

std::unique_ptr<TPeerIni> MakeGKeyFile() { return std::make_unique<TGKeyFile>(); }
std::unique_ptr<TPeerIni> MakeSimpleIni() { return std::make_unique<TSimpleIni>(); }

void StoreLocked(const std::string& Path, const std::string& Section, const std::string& Key,
                 const std::string& Value) {
  const int lock = ::open((Path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  Expect(lock >= 0 && ::flock(lock, LOCK_EX) == 0, "flock");
  TSimpleIni ini;
  ini.Load(Path);
  ini.Set(Section, Key, Value);
  ini.Save(Path);
  ::flock(lock, LOCK_UN);
  ::close(lock);
}

}  // namespace vx::bench
