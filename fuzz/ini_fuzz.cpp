// Configuration files: the input is the file. It is read by both classes, written, read again, and stored with changes.
#include "fuzz/support/Input.h"
#include "fuzz/support/ScratchFile.h"
#include "objects/uVxClasses/TVxStringList.h"
#include "platform/MemIniFile.h"
#include "services/uMsg.h"
#include "services/uSharedIni.h"

namespace vx::fuzz {
namespace {

TCells Cells(const TVxStringList& List) { return {List.Items().begin(), List.Items().end()}; }

TCells Lines(const TSharedIni& Ini) {
  TVxStringList lines;
  Ini.GetStrings(lines);
  return Cells(lines);
}

TCells Sections(auto& Ini) {
  TVxStringList sections;
  Ini.ReadSections(sections);
  return Cells(sections);
}

TCells Keys(auto& Ini, const String& Section) {
  TVxStringList keys;
  Ini.ReadSection(Section, keys);
  return Cells(keys);
}

void CheckSame(TSharedIni& Ini, const TMemIniFile& Plain) {
  const TCells sections = Sections(Ini);
  Check(sections == Sections(Plain), "the same sections");
  size_t checks = 0;
  for (const String& section : sections) {
    const TCells keys = Keys(Ini, section);
    Check(keys == Keys(Plain, section), "the same keys");
    for (const String& key : keys) {
      const String value = Ini.ReadString(section, key, u"?");
      Check(value == Plain.ReadString(section, key, u"!"), "the same values");
      Check(Ini.ValueExists(section, key), "a key that is told is there");
      if (++checks == 1000) return;
    }
  }
}

void CheckReadBack(const TSharedIni& Ini) {
  TVxStringList lines;
  Ini.GetStrings(lines);
  TSharedIni back{String()};
  back.SetStrings(lines);
  Check(Lines(back) == Cells(lines), "what was written reads back");
  TSharedIni copy{String()};
  copy.Assign(&Ini);
  Check(Lines(copy) == Cells(lines), "a copy is the same");
}

// Stores, and compares with what a fresh object loads.
void CheckStored(TSharedIni& Ini, const String& Section, const String& Key, const String& Value, bool IsPlain) {
  Ini.WriteString(Section, Key, Value);
  Check(Ini.Modified() && Ini.Store() && !Ini.Modified(), "stored");
  TSharedIni fresh(Ini.GetFileName(), {sioReadOnly});
  Check(Lines(fresh) == Lines(Ini), "what was stored is what the object holds");
  Check(!IsPlain || fresh.ReadString(Section, Key, String()) == Value, "a new value is there");
  CheckSame(fresh, TMemIniFile(Ini.GetFileName()));
}

}  // namespace

FUZZ(Input) {
  static TScratchFile file(".ini");
  Msg().SetLog({false, laInstant, String(), String()});
  const std::string bytes = Input.Bytes();
  file.Put(bytes);
  TSharedIni ini(file.GetPath());
  CheckSame(ini, TMemIniFile(file.GetPath()));
  CheckReadBack(ini);
  CheckStored(ini, u"Neu", u"Wert", u"1 = eins", true);

  const TCells sections = Sections(ini);
  const TCells keys = Keys(ini, sections[0]);
  if (!keys.empty()) ini.DeleteKey(sections[0], keys.back());
  if (sections.size() > 1) ini.EraseSection(sections[1]);
  // A line break in a value parts it only when the file is loaded.
  const String raw =
      TEncoding::Default().Decode(std::string_view(bytes).substr(0, bytes.find_first_of("\r\n")).substr(0, 30));
  CheckStored(ini, raw, raw, raw, false);
}

}  // namespace vx::fuzz
