// Values, journal and content of a shared configuration file.
#include "services/uSharedIni/TSharedIni.h"

#include <utility>
#include <vector>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Clock.h"
#include "platform/Collation.h"
#include "platform/DateText.h"
#include "platform/FormatSettings.h"
#include "platform/IniLine.h"
#include "platform/Text.h"
#include "services/uMsg.h"
#include "services/uSharedIni/IniData.h"

namespace vx {

namespace {

int CompareEntries(const TSharedIniModification& A, const TSharedIniModification& B) { return A.Compare(B); }

bool HasLineBreak(const String& Text) noexcept {
  return Text.view().find_first_of(u"\r\n") != std::u16string_view::npos;
}

String Line(const String& Ident, const String& Value) { return Concat({Ident, u"=", Value}); }

}  // namespace

int TSharedIniModification::Compare(const TSharedIniModification& Modify) const noexcept {
  const int sections = AnsiCompareText(Section, Modify.Section);
  return sections != 0 ? sections : AnsiCompareText(Ident, Modify.Ident);
}

TSharedIniModifications::TSharedIniModifications() : GSortList(CompareEntries) {}

void TSharedIniModifications::AddOrReplace(TSharedIniModification Modify) {
  if (int place; Find(Modify, place)) {
    Put(place, std::move(Modify));
  } else {
    Add(std::move(Modify));
  }
}

const TSharedIniModification* TSharedIniModifications::FindEntry(const String& Section, const String& Ident) const {
  int place;
  return Find({Section, Ident, String(), atModify}, place) ? &Get(place) : nullptr;
}

TSharedIni::TSharedIni(String FileName) : TSharedIni(std::move(FileName), TSharedIniOptions()) {}

TSharedIni::TSharedIni(String FileName, TSharedIniOptions Options, const TEncoding* Encoding)
    : TCustomIniFile(std::move(FileName)),
      iEncoding(Encoding),
      iOptions(Options),
      iSections(std::make_unique<THashedStringList>()),
      FGiven(Encoding) {
  if (!Options.Has(sioReadOnly)) iModifications = std::make_unique<TSharedIniModifications>();
  if (Options.Has(sioMemorizeDefaults)) iDefaultList = std::make_unique<TSharedIniModifications>();
  try {
    iLoaded = TSharedIni::LoadValues();
  } catch (...) {
    Clear();
    throw;
  }
}

TSharedIni::~TSharedIni() {
  try {
    if (GetTransaction()) {
      const String text =
          Concat({u"Eine Transaktion auf einer Konfigurationsdatei wurde nicht beendet!", GetFileName()});
      TMsgReport()(Log(text, u"TSharedIni.Destroy"), true);
    }
  } catch (...) {
    // A handler that raises, or want of memory: there is nobody left to tell.
  }
  Clear();
}

void TSharedIni::SetDefaults(bool Value) noexcept {
  if (Value) {
    ++iDefaults;
  } else if (iDefaults > 0) {
    --iDefaults;
  }
}

void TSharedIni::SetUsername(const String& Value) { iUsername = Trim(Value); }

void TSharedIni::SetTransaction(bool Value) {
  if (Value) {
    if (iTransaction == 0 && iOptions.Has(sioInstantRead)) Reload(false, false);
    ++iTransaction;
    return;
  }
  if (iTransaction > 0) --iTransaction;
  if (iTransaction == 0 && iOptions.Has(sioInstantWrite)) (void)Store();  // reports through Msg
}

// --- the journal ---

bool TSharedIni::Modified() const noexcept {
  return iModifications && (iModifications->GetCount() > 0 || !FNewEntries.empty());
}

bool TSharedIni::Storeable() const noexcept {
  return Modified() && !(GetTransaction() && iOptions.Has(sioInstantWrite)) && !GetFileName().empty();
}

void TSharedIni::ModificationsClear() {
  if (iModifications) iModifications->Clear();
  FNewEntries.clear();
}

void TSharedIni::AddModifications(const TSharedIniModifications& List) {
  if (!iModifications || &List == iModifications.get()) return;
  for (const TSharedIniModification& entry : List.Items()) NewEntry(entry);
}

void TSharedIni::NewEntry(TSharedIniModification Entry) {
  auto old = FNewEntries.extract(Entry);
  if (old.empty()) {
    FNewEntries.insert(std::move(Entry));
  } else {
    old.value() = std::move(Entry);
    FNewEntries.insert(std::move(old));
  }
}

const TSharedIniModifications& TSharedIni::Journal() const {
  std::vector<TSharedIniModification> added;
  for (const TSharedIniModification& entry : FNewEntries) {
    if (int place; iModifications->Find(entry, place)) {
      iModifications->Put(place, entry);
    } else {
      added.push_back(entry);
    }
  }
  iModifications->AddRange(added);
  FNewEntries.clear();
  return *iModifications;
}

void TSharedIni::Modification(const String& Section, const String& Ident, const String& Value,
                              TSharedIniModificationType Type) {
  if (iModifications) NewEntry({Section, Ident, Value, Type});
}

void TSharedIni::InstantWrite() {
  if (iOptions.Has(sioInstantWrite) && !GetTransaction()) (void)Store();  // reports through Msg
}

void TSharedIni::InstantRead() {
  if (iOptions.Has(sioInstantRead) && !GetTransaction()) Reload(false, false);
}

// Remembers a default unless the key has one already.
void TSharedIni::Memorize(std::u16string_view Section, std::u16string_view Ident, const String& Value) {
  if (!iDefaultList || !iOptions.Has(sioMemorizeDefaults)) return;
  iDefaultList->AddUnique({Section, Ident, Value, atModify});
}

// --- values ---

THashedStringList* TSharedIni::Lines(std::u16string_view Section) const {
  const int place = iSections->IndexOf(Section);
  return place < 0 ? nullptr : static_cast<THashedStringList*>(iSections->GetObject(place));
}

const String* TSharedIni::FindLine(std::u16string_view Section, std::u16string_view Ident) const {
  const THashedStringList* lines = Lines(Section);
  const int place = lines ? lines->IndexOfName(Ident) : -1;
  return place < 0 ? nullptr : &lines->View(place);
}

String TSharedIni::ReadString(std::u16string_view Section, std::u16string_view Ident, const String& Default) {
  if (GetDefaults()) {
    const bool isMemorizing = iDefaultList && iOptions.Has(sioMemorizeDefaults);
    const TSharedIniModification* entry = isMemorizing ? iDefaultList->FindEntry(Section, Ident) : nullptr;
    if (entry) return entry->Value;
    Memorize(Section, Ident, Default);
    return Default;
  }
  InstantRead();
  Memorize(Section, Ident, Default);
  const String* line = FindLine(Section, Ident);
  return line ? line->Slice(static_cast<int>(Ident.size()) + 1) : Default;
}

void TSharedIni::WriteString(const String& Section, const String& Ident, const String& Value) {
  if (GetDefaults()) return Memorize(Section, Ident, Value);
  if (HasLineBreak(Section) || HasLineBreak(Ident) || HasLineBreak(Value)) {
    TMsgReport()(
        Warning(Concat({u"Ein Wert mit Zeilenumbruch kann nicht in die Konfigurationsdatei geschrieben werden! ",
                        GetFileName(), u": [", Section, u"] ", Ident}),
                u"TSharedIni.WriteString"),
        false);
    return;
  }
  Modification(Section, Ident, Value, atModify);
  PutLine(Section, Ident, Value);
  InstantWrite();
}

void TSharedIni::PutLine(const String& Section, const String& Ident, const String& Value) {
  THashedStringList* lines = Lines(Section);
  if (!lines) lines = &AddSection(Section);
  if (const int place = lines->IndexOfName(Ident); place >= 0) {
    lines->Put(place, Line(Ident, Value));
  } else {
    lines->Add(Line(Ident, Value));
  }
}

void TSharedIni::DeleteKey(const String& Section, const String& Ident) {
  Modification(Section, Ident, String(), atDelete);
  THashedStringList* lines = Lines(Section);
  const int place = lines ? lines->IndexOfName(Ident) : -1;
  if (place >= 0) lines->Delete(place);
  InstantWrite();
}

void TSharedIni::EraseSection(const String& Section) {
  const String name = Section;  // NOLINT(performance-unnecessary-copy-initialization): may be of what goes
  TVxStringList keys;
  ReadSection(name, keys);
  for (const String& key : keys.Items()) Modification(name, key, String(), atDelete);
  Modification(name, String(), String(), atErase);
  if (const int place = iSections->IndexOf(name); place >= 0) {
    delete iSections->GetObject(place);
    iSections->Delete(place);
  }
  InstantWrite();
}

void TSharedIni::WriteSectionValues(const String& Section, const TStrings& Strings) {
  TVxStringList lines;
  lines.Assign(Strings);
  EraseSection(Section);
  for (const String& line : lines.Items()) {
    const size_t equals = line.view().find(u'=');
    if (equals == line.view().npos || equals == 0) continue;
    WriteString(Section, line.Slice(0, static_cast<int>(equals)), line.Slice(static_cast<int>(equals) + 1));
  }
}

// Replaces Strings by what Take(lines, index) adds for each line of a section.
template <typename F>
void TSharedIni::ReadLines(std::u16string_view Section, TStrings& Strings, F Take) {
  const String name = Section;  // it may be an item of Strings
  InstantRead();
  TUpdateScope update(Strings);
  Strings.Clear();
  const THashedStringList* lines = Lines(name);
  for (int i = 0; lines && i < lines->GetCount(); ++i) Take(*lines, i);
}

void TSharedIni::ReadSection(std::u16string_view Section, TStrings& Strings) {
  ReadLines(Section, Strings, [&](const THashedStringList& lines, int index) {
    if (lines.View(index).view().find(u'=') != std::u16string_view::npos) Strings.Add(lines.GetNames(index));
  });
}

void TSharedIni::ReadSections(TStrings& Strings) {
  InstantRead();
  TUpdateScope update(Strings);
  Strings.Clear();
  for (int i = 0; i < iSections->GetCount(); ++i) Strings.Add(iSections->View(i));
}

void TSharedIni::ReadSectionValues(std::u16string_view Section, TStrings& Strings) {
  ReadLines(Section, Strings, [&](const THashedStringList& lines, int index) { Strings.Add(lines.View(index)); });
}

bool TSharedIni::ValueExists(std::u16string_view Section, std::u16string_view Ident) {
  return FindLine(Section, Ident) != nullptr;
}

bool TSharedIni::SectionExists(std::u16string_view Section, bool EvenIfEmpty) const {
  const THashedStringList* lines = Lines(Section);
  return lines && (EvenIfEmpty || lines->GetCount() > 0);
}

bool TSharedIni::DefaultSectionExists(std::u16string_view Section) const {
  if (!iDefaultList) return false;
  int place;
  if (iDefaultList->Find({Section, String(), String(), atModify}, place)) return true;
  return place < iDefaultList->GetCount() && AnsiSameText(iDefaultList->Get(place).Section, Section);
}

String TSharedIni::ReadData(std::u16string_view Section, std::u16string_view Ident, const String& Default) {
  return IniDataToStr(ReadString(Section, Ident, IniStrToData(Default)));
}

void TSharedIni::WriteData(const String& Section, const String& Ident, const String& Value) {
  WriteString(Section, Ident, IniStrToData(Value));
}

String TSharedIni::ReadSectionStamp(std::u16string_view Section) {
  if (!GetSectionStamp()) return {};
  const TDateTime now = Now();
  const String date = FormatDateTime(u"d/mm/yyyy", ReadDate(Section, u"Datum", now));
  const String time = FormatDateTime(u"h:nn", ReadTime(Section, u"Zeit", now));
  return Concat({u"Letzte Bearbeitung: ", date, u", ", time, u", ", ReadString(Section, u"Benutzer", iUsername)});
}

// --- the whole content ---

THashedStringList& TSharedIni::AddSection(const String& Name) {
  auto lines = std::make_unique<THashedStringList>();
  iSections->AddObject(Name, lines.get());
  return *lines.release();
}

void TSharedIni::Clear() {
  for (int i = 0; i < iSections->GetCount(); ++i) delete iSections->GetObject(i);
  iSections->Clear();
}

void TSharedIni::Assign(const TSharedIni* Other) {
  TVxStringList lines;
  if (Other) Other->GetStrings(lines);
  SetStrings(lines);
}

void TSharedIni::GetStrings(TStrings& Strings) const {
  for (int i = 0; i < iSections->GetCount(); ++i) {
    Strings.Add(Concat({u"[", iSections->View(i), u"]"}));
    const auto* lines = static_cast<const THashedStringList*>(iSections->GetObject(i));
    for (int k = 0; k < lines->GetCount(); ++k) Strings.Add(lines->View(k));
    Strings.Add(String());
  }
}

// One line of a file; Section is the one before it, nullptr before the first.
void TSharedIni::TakeLine(const String& Text, THashedStringList*& Section) {
  const TIniLine line = ParseIniLine(Text);
  if (line.Kind == ilSection) Section = &AddSection(line.Name);
  if (line.Kind == ilSection || line.Kind == ilNothing || Section == nullptr) return;
  // Mostly the line stands as it is to be kept, and its characters are shared.
  const std::u16string_view all = Text;
  const bool isPlain = line.Kind == ilPlain;
  const size_t size = line.Name.size() + (isPlain ? 0 : 1 + line.Value.size());
  const auto first = static_cast<size_t>(line.Name.data() - all.data());
  if (isPlain || line.Name.data() + line.Name.size() + 1 == line.Value.data()) {
    Section->Add(Text.Slice(static_cast<int>(first), static_cast<int>(size)));
  } else {
    Section->Add(Line(line.Name, line.Value));
  }
}

void TSharedIni::SetStrings(const TStrings& Strings) {
  TVxStringList lines;  // Strings may be lines of this object
  lines.Assign(Strings);
  Clear();
  THashedStringList* section = nullptr;
  for (const String& line : lines.Items()) TakeLine(line, section);
}

void TSharedIni::SetText(const String& Text) {
  Clear();
  THashedStringList* section = nullptr;
  ForEachLine(Text, [&](std::u16string_view line) {
    TakeLine(Text.Slice(static_cast<int>(line.data() - Text.data()), static_cast<int>(line.size())), section);
  });
}

template <typename F>
void TSharedIni::ForEachPiece(F Take) const {
  for (int i = 0; i < iSections->GetCount(); ++i) {
    Take(u"[");
    Take(iSections->View(i));
    Take(u"]\r\n");
    const auto* lines = static_cast<const THashedStringList*>(iSections->GetObject(i));
    for (int k = 0; k < lines->GetCount(); ++k) {
      Take(lines->View(k));
      Take(u"\r\n");
    }
    Take(u"\r\n");
  }
}

String TSharedIni::GetText() const {
  size_t size = 0;
  auto measure = [&](std::u16string_view piece) { size += piece.size(); };
  ForEachPiece(measure);
  return String::Build(size, [&](char16_t* target) {
    ForEachPiece([&](std::u16string_view piece) { target = std::copy(piece.begin(), piece.end(), target); });
  });
}

}  // namespace vx
