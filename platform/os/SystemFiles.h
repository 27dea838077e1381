// The files by which the system describes itself, and what is read from them. For the sources of platform/ only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vx::os {

// The path in the real system of a path such as "/usr/share/fonts".
std::string Rooted(std::string_view Path);
// The user's directory with Path behind it, a path for Rooted; empty if there is no such directory.
std::string InHome(std::string_view Path);

// A regular file that is read. Nothing is read from what could not be opened.
class TSource {
 public:
  // Path as it is in the real system.
  explicit TSource(const std::string& Path);
  ~TSource();
  TSource(const TSource&) = delete;
  TSource& operator=(const TSource&) = delete;
  // Exactly Count bytes from Offset on; false if the file has not as many.
  bool ReadAt(uint64_t Offset, void* Buffer, size_t Count) const;
  // All bytes, up to a limit that no file of settings reaches; empty beyond it.
  std::string ReadAll() const;

 private:
  int FHandle;  // -1 for none
};

// The bytes of the file that Rooted gives for Path; empty if there is none.
std::string ReadText(std::string_view Path);

// Whether a regular file that this user may execute stands at Path, as it is in the real system.
bool IsProgram(const std::string& Path);
// The directories, in the real system, that fonts are installed in, below which there may be others.
std::vector<std::string> FontDirectories();

// Takes the first part of Text up to Separator off it, and the separator too.
std::string_view TakePart(std::string_view& Text, char Separator);
// The decimal number that Text begins with behind blanks; Default if it begins with none that fits.
int64_t NumberIn(std::string_view Text, int64_t Default);

}  // namespace vx::os
