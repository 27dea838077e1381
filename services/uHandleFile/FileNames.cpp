#include "services/uHandleFile/FileNames.h"

#include <algorithm>
#include <optional>

#include "platform/Exceptions.h"
#include "platform/Format.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "services/uHandleFile/FileTests.h"

namespace vx {
namespace {

constexpr TCharSet kForbidden = TCharSet::Range(0, 31) + TCharSet(u"\"*/:<>?|");
constexpr TCharSet kForbiddenInFilename = TCharSet::Range(0, 31) + TCharSet(u"\"*/<>?|");
constexpr int kMaxName = 260;

bool HoldsNone(std::u16string_view text, const TCharSet& set) noexcept {
  return std::none_of(text.begin(), text.end(), [&](char16_t unit) { return set.Has(unit); });
}

constexpr bool IsLetter(char16_t unit) noexcept {
  return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

// Calls take with each piece of text between backslashes; an empty text is one piece.
template <typename F>
void ForPieces(const String& text, F&& take) {
  std::u16string_view units = text;
  for (size_t at = 0;;) {
    const size_t end = std::min(units.find(u'\\', at), units.size());
    take(text.Slice(static_cast<int>(at), static_cast<int>(end - at)), end == units.size());
    if (end == units.size()) return;
    at = end + 1;
  }
}

// Index behind the last backslash that is not the end of the path, 0 without one.
int LastDirectoryStart(std::u16string_view path) noexcept {
  if (path.size() < 2) return 0;
  const size_t at = path.rfind(u'\\', path.size() - 2);
  return at == path.npos ? 0 : static_cast<int>(at) + 1;
}

// The text of format with number in it; without a value where it is no format for one number.
std::optional<String> WithNumber(std::u16string_view format, int number) {
  try {
    return Format(format, {number});
  } catch (const EConvertError&) {
    return std::nullopt;
  }
}

}  // namespace

bool CheckFileName(std::u16string_view name) {
  std::u16string_view last = TrimView(name);
  if (last.size() >= 2 && last[1] == u':' && IsLetter(last[0])) last.remove_prefix(2);
  last.remove_prefix(last.rfind(u'\\') + 1);  // nothing found wraps to 0
  return !last.empty() && HoldsNone(last, kForbidden);
}

bool CheckPath(std::u16string_view path) { return !path.empty() && HoldsNone(path, kForbidden); }

bool VxFilenameOk(std::u16string_view name) {
  for (size_t colon = name.find(u':'); colon != name.npos; colon = name.find(u':', colon + 1)) {
    if (colon != 1) return false;
  }
  return HoldsNone(name, kForbiddenInFilename);
}

bool ValidateFilename(std::u16string_view path, std::u16string_view name, String& result, bool noBlanks,
                      char16_t replacement) {
  TCharSet forbidden = kForbidden;
  if (noBlanks) forbidden.Include(u' ');
  const TCharSet inName = forbidden + TCharSet(u"\\");
  String text = Concat({path, path.ends_with(u'\\') ? u"" : u"\\"});
  const int pathLength = text.size();
  text += name;
  char16_t* units = text.MutableData();
  for (int i = 0; i < pathLength - 1; ++i) {
    if (forbidden.Has(units[i]) && !(i == 1 && units[i] == u':')) units[i] = replacement;
  }
  for (int i = pathLength; i < text.size(); ++i) {
    if (inName.Has(units[i])) units[i] = replacement;
  }
  result = text;
  if (result.size() > kMaxName) return false;
  return pathLength <= 2 || result[1] != u':' || IsLetter(result[0]);
}

bool FilenameIs83(const String& name) {
  const int extension = ExtractFileExt(name).size();
  return extension < 5 && ExtractFileName(name).size() - extension < 9;
}

String DecorateFilename(const String& name, std::u16string_view decoration, std::u16string_view format) {
  const String front = Concat({ExtractFilePath(name), ExtractPureFilename(name), decoration});
  const String extension = ExtractFileExt(name);
  if (WithNumber(format, 1) == WithNumber(format, 2)) return front + extension;
  for (int i = 1;; ++i) {
    String result = Concat({front, *WithNumber(format, i), extension});
    if (!VxFileExists(result)) return result;
  }
}

String ExtractPureFilename(const String& name) {
  const String last = ExtractFileName(name);
  return last.Slice(0, last.size() - ExtractFileExt(last).size());
}

bool GarantyWindowsPath(String& path) {
  if (path.view().find(u'/') == std::u16string_view::npos) return false;
  path = ReplaceAll(path, u"/", u"\\");
  return true;
}

void VxProcessFilename(const String& name, TVxStringList& list) {
  ForPieces(name, [&](const String& piece, bool last) {
    if (!last || !piece.empty()) list.Add(piece);
  });
}

std::unique_ptr<TVxStringList> VxProcessFilename(const String& name) {
  auto list = std::make_unique<TVxStringList>();
  VxProcessFilename(name, *list);
  return list;
}

std::unique_ptr<TVxStringList> PathToList(const String& path) {
  auto list = std::make_unique<TVxStringList>();
  const String drive = ExtractFileDrive(path);
  list->Add(drive);
  const size_t backslash = path.view().find(u'\\', static_cast<size_t>(drive.size()));
  const String rest = backslash == std::u16string_view::npos ? String() : path.Slice(static_cast<int>(backslash) + 1);
  ForPieces(rest, [&](const String& piece, bool) { list->Add(piece); });
  return list;
}

String VxSubtractLastDirectory(const String& path) {
  if (TrimView(path).empty()) return {};
  const int start = LastDirectoryStart(path);
  return start == 0 ? path : path.Slice(0, start);
}

String VxGetLastDirectory(const String& path) {
  const String last = path.Slice(LastDirectoryStart(path));
  return last.view().ends_with(u'\\') ? last.Slice(0, last.size() - 1) : last;
}

}  // namespace vx
