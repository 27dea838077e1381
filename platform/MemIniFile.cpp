#include "platform/MemIniFile.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "platform/Encoding.h"
#include "platform/Files.h"
#include "platform/IniLine.h"
#include "platform/Text.h"

namespace vx {

bool TMemIniFile::TNameOrder::operator()(std::u16string_view A, std::u16string_view B) const noexcept {
  return std::lexicographical_compare(A.begin(), A.end(), B.begin(), B.end(),
                                      [](char16_t a, char16_t b) { return LowerCase(a) < LowerCase(b); });
}

TMemIniFile::TMemIniFile(std::u16string_view Path) {
  const String path = Path;
  TFileInfo info;
  if (!GetFileInfo(path, info)) return;
  std::string bytes;
  TFileStream(path, fmOpenRead | fmShareDenyNone).ReadRest(bytes, INT32_MAX);
  size_t mark = 0;
  const TEncoding& encoding = TEncoding::Detect(bytes, mark, TEncoding::Default());
  FText = encoding.Decode(std::string_view(bytes).substr(mark));
  Parse();
}

void TMemIniFile::Parse() {
  TSection* section = nullptr;
  ForEachLine(FText, [&](std::u16string_view text) {
    const TIniLine line = ParseIniLine(text);
    if (line.Kind == ilSection) {
      FNames.push_back(line.Name);
      auto [place, isNew] = FSections.try_emplace(line.Name);
      section = isNew ? &place->second : nullptr;  // a second one of that name is never looked into
    } else if (line.Kind == ilValue && section) {
      section->Keys.push_back(line.Name);
      section->Values.emplace(line.Name, line.Value);
    }
  });
}

void TMemIniFile::Replace(TStrings& Strings, std::span<const std::u16string_view> Names) {
  TUpdateScope scope(Strings);
  Strings.Clear();
  for (std::u16string_view name : Names) Strings.Add(name);
}

void TMemIniFile::ReadSections(TStrings& Strings) const { Replace(Strings, FNames); }

void TMemIniFile::ReadSection(std::u16string_view Section, TStrings& Strings) const {
  auto section = FSections.find(Section);
  if (section == FSections.end()) {
    Replace(Strings, {});
  } else {
    Replace(Strings, section->second.Keys);
  }
}

String TMemIniFile::ReadString(std::u16string_view Section, std::u16string_view Ident, const String& Default) const {
  auto section = FSections.find(Section);
  if (section == FSections.end()) return Default;
  auto value = section->second.Values.find(Ident);
  return value == section->second.Values.end() ? Default : String(value->second);
}

}  // namespace vx
