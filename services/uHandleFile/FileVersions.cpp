#include "services/uHandleFile/FileVersions.h"

#include <algorithm>
#include <string>

#include "platform/Files.h"
#include "platform/Format.h"

namespace vx {

namespace {

// A file of which single numbers are read; what lies behind its end is 0.
class TNumbers {
 public:
  explicit TNumbers(const String& name) : FFile(name, fmOpenRead | fmShareDenyNone) {}

  uint32_t Get(int64_t at, size_t size) {
    unsigned char bytes[4] = {};
    if (at < 0 || at > FFile.GetSize()) return 0;
    FFile.SetPosition(at);
    if (FFile.Read(bytes, size) < size) return 0;
    return bytes[0] | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16 | uint32_t{bytes[3]} << 24;
  }
  uint32_t Word(int64_t at) { return Get(at, 2); }
  uint32_t Long(int64_t at) { return Get(at, 4); }

 private:
  TFileStream FFile;
};

// The part of a program that holds its resources: where it is in the file, and in the memory of the program.
struct TSection {
  int64_t Start = 0;
  uint32_t Address = 0, Size = 0;
};

TSection FindResources(TNumbers& file) {
  constexpr uint32_t kDosMark = 0x5A4D, kMark = 0x4550, kWide = 0x20B;
  if (file.Word(0) != kDosMark) return {};
  const int64_t header = file.Long(0x3C);
  if (file.Long(header) != kMark) return {};
  const uint32_t count = file.Word(header + 6), optionalSize = file.Word(header + 20);
  const int64_t optional = header + 24;
  const uint32_t address = file.Long(optional + (file.Word(optional) == kWide ? 128 : 112));
  for (uint32_t i = 0; i < count && address != 0; ++i) {
    const int64_t section = optional + optionalSize + int64_t{40} * i;
    const uint32_t first = file.Long(section + 12), size = file.Long(section + 16);
    if (address >= first && address - first < size) {
      return {int64_t{file.Long(section + 20)} + (address - first), address, size - (address - first)};
    }
  }
  return {};
}

// The entry of a directory of resources with that number, 0 for the first of all: what it leads to, as offset in
// the section, the highest bit set for a further directory. 0 if there is none.
uint32_t FindEntry(TNumbers& file, const TSection& section, uint32_t directory, uint32_t number) {
  const int64_t at = section.Start + directory;
  const uint32_t count = file.Word(at + 12) + file.Word(at + 14);
  for (uint32_t i = 0; i < count; ++i) {
    const int64_t entry = at + 16 + int64_t{8} * i;
    if (number == 0 || file.Long(entry) == number) return file.Long(entry + 4);
  }
  return 0;
}

// Where the fixed part of the version resource begins; 0 if there is none.
int64_t FindVersion(TNumbers& file) {
  constexpr uint32_t kVersionType = 16, kFurther = 0x80000000, kMark = 0xFEEF04BD;
  constexpr int64_t kKeySize = 40;  // three numbers, "VS_VERSION_INFO" and the end of the group of four
  const TSection section = FindResources(file);
  uint32_t entry = section.Size != 0 ? FindEntry(file, section, 0, kVersionType) : 0;
  for (int level = 0; level < 2 && (entry & kFurther) != 0; ++level) {
    entry = FindEntry(file, section, entry & ~kFurther, 0);
  }
  if (entry == 0 || (entry & kFurther) != 0) return 0;
  const uint32_t address = file.Long(section.Start + entry);
  if (address < section.Address || address - section.Address >= section.Size) return 0;
  const int64_t fixed = section.Start + (address - section.Address) + kKeySize;
  return file.Long(fixed) == kMark ? fixed : 0;
}

// The four numbers, two in each of the two at Offset of the fixed part.
String Version(const String& name, int offset) {
  uint32_t high = 0, low = 0;
  try {
    TNumbers file(name);
    if (const int64_t fixed = FindVersion(file); fixed != 0) {
      high = file.Long(fixed + offset);
      low = file.Long(fixed + offset + 4);
    }
  } catch (const EStreamError&) {
    high = low = 0;
  }
  return Format(u"%d.%d.%d.%d", {high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF});
}

}  // namespace

String VxFileVersion(const String& name) { return Version(name, 8); }

String VxFileProductVersion(const String& name) { return Version(name, 16); }

}  // namespace vx
