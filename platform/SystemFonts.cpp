#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/System.h"
#include "platform/Text.h"
#include "platform/os/SystemFiles.h"

namespace vx {

namespace {

namespace fs = std::filesystem;

constexpr uint32_t kTrueType = 0x00010000;
constexpr uint32_t Tag(const char (&Name)[5]) {
  uint32_t result = 0;
  for (int i = 0; i < 4; ++i) result = result << 8 | static_cast<uint8_t>(Name[i]);
  return result;
}

// A number of the file: the highest byte first. Bytes must hold it.
uint32_t Number(std::string_view Bytes, size_t At, size_t Size) {
  uint32_t result = 0;
  for (size_t i = 0; i < Size; ++i) result = result << 8 | static_cast<uint8_t>(Bytes[At + i]);
  return result;
}
uint32_t Short(std::string_view Bytes, size_t At) { return Number(Bytes, At, 2); }
uint32_t Long(std::string_view Bytes, size_t At) { return Number(Bytes, At, 4); }

// Count bytes from Offset on; empty if the file has not as many.
std::string ReadPart(const os::TSource& Source, uint64_t Offset, size_t Count) {
  std::string result(Count, '\0');
  if (!Source.ReadAt(Offset, result.data(), Count)) result.clear();
  return result;
}

// A name in the file has UnitBytes bytes for each code unit.
bool IsName(std::string_view Bytes, size_t UnitBytes, std::u16string_view Name) {
  if (Bytes.size() != Name.size() * UnitBytes) return false;
  for (size_t i = 0; i < Name.size(); ++i) {
    const auto unit = static_cast<char16_t>(Number(Bytes, i * UnitBytes, UnitBytes));
    // The bytes of a Macintosh name from 128 on are other characters than the code units.
    if ((UnitBytes == 1 && unit >= 128) || LowerCase(unit) != LowerCase(Name[i])) return false;
  }
  return true;
}

// Whether a family name of the name table is Family.
bool NamesFamily(std::string_view Table, std::u16string_view Family) {
  constexpr size_t kHeader = 6, kRecord = 12;
  constexpr uint32_t kUnicode = 0, kMacintosh = 1, kWindows = 3, kFamily = 1, kTypographicFamily = 16;
  if (Table.size() < kHeader) return false;
  const size_t count = std::min<size_t>(Short(Table, 2), (Table.size() - kHeader) / kRecord);
  const size_t texts = Short(Table, 4);
  for (size_t i = 0; i < count; ++i) {
    const std::string_view record = Table.substr(kHeader + i * kRecord, kRecord);
    const uint32_t platform = Short(record, 0), kind = Short(record, 6);
    if (kind != kFamily && kind != kTypographicFamily) continue;
    const size_t size = Short(record, 8), at = texts + Short(record, 10);
    if (at > Table.size() || size > Table.size() - at) continue;
    const bool isUtf16 = platform == kUnicode || platform == kWindows;
    if ((isUtf16 || platform == kMacintosh) && IsName(Table.substr(at, size), isUtf16 ? 2 : 1, Family)) return true;
  }
  return false;
}

// Whether the font that begins at Offset has TrueType outlines and is of Family.
bool IsFontOf(const os::TSource& Source, uint64_t Offset, std::u16string_view Family) {
  constexpr size_t kHeader = 12, kRecord = 16, kNameLimit = size_t{1} << 20;
  const std::string header = ReadPart(Source, Offset, kHeader);
  if (header.empty() || (Long(header, 0) != kTrueType && Long(header, 0) != Tag("true"))) return false;
  const std::string tables = ReadPart(Source, Offset + kHeader, Short(header, 4) * kRecord);
  for (size_t at = 0; at < tables.size(); at += kRecord) {
    if (Long(tables, at) != Tag("name")) continue;
    const size_t size = Long(tables, at + 12);
    return size <= kNameLimit && NamesFamily(ReadPart(Source, Long(tables, at + 8), size), Family);
  }
  return false;
}

// The same for a file, which may hold several fonts.
bool IsFontFileOf(const std::string& Path, std::u16string_view Family) {
  constexpr size_t kHeader = 12, kMostFonts = 256;
  const os::TSource source(Path);
  const std::string header = ReadPart(source, 0, kHeader);
  if (header.empty()) return false;
  if (Long(header, 0) != Tag("ttcf")) return IsFontOf(source, 0, Family);
  const size_t count = std::min<size_t>(Long(header, 8), kMostFonts);
  const std::string offsets = ReadPart(source, kHeader, count * 4);
  for (size_t at = 0; at < offsets.size(); at += 4) {
    if (IsFontOf(source, Long(offsets, at), Family)) return true;
  }
  return false;
}

bool HasFontIn(const std::string& Directory, std::u16string_view Family) {
  constexpr int kDeepest = 32;
  std::error_code error;
  fs::recursive_directory_iterator entry(Directory, fs::directory_options::skip_permission_denied, error);
  for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
    if (entry.depth() >= kDeepest) entry.disable_recursion_pending();
    if (IsFontFileOf(entry->path().string(), Family)) return true;
  }
  return false;
}

}  // namespace

bool HasTrueTypeFont(std::u16string_view Family) {
  if (Family.empty()) return false;
  const std::vector<std::string> directories = os::FontDirectories();
  return std::ranges::any_of(directories, [&](const std::string& path) { return HasFontIn(path, Family); });
}

}  // namespace vx
