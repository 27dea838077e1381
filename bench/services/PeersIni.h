// Peers of the shared configuration: GKeyFile and SimpleIni.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vx::bench {

// What is looked up: pairs of indexes of names, in UTF-8.
struct TIniKeys {
  std::vector<std::string> Sections, Keys;
  std::vector<std::pair<size_t, size_t>> Pairs;
};

// Faults end the program.
class TPeerIni {
 public:
  virtual ~TPeerIni() = default;
  virtual void Load(const std::string& Path) = 0;
  virtual std::string Get(const std::string& Section, const std::string& Key) = 0;
  // Looks all keys up; the sum of the last bytes of their values, of which none may be empty.
  virtual int64_t LookUp(const TIniKeys& Keys) = 0;
  virtual void Set(const std::string& Section, const std::string& Key, const std::string& Value) = 0;
  virtual void Save(const std::string& Path) = 0;
};

// Its values are copies, checked to be UTF-8; it saves beside the file, flushes and renames.
std::unique_ptr<TPeerIni> MakeGKeyFile();
// Its values are views; it saves over the file and does not flush.
std::unique_ptr<TPeerIni> MakeSimpleIni();

// What a programmer does with SimpleIni where several processes store: takes a lock on the file Path.lock, loads,
// sets, saves and gives the lock back.
void StoreLocked(const std::string& Path, const std::string& Section, const std::string& Key, const std::string& Value);

}  // namespace vx::bench
