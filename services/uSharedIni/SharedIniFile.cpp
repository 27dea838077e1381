// The file of a shared configuration: loading, storing, merging.
#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/Collation.h"
#include "platform/DateText.h"
#include "platform/Exceptions.h"
#include "platform/Files.h"
#include "platform/FormatSettings.h"
#include "platform/IniLine.h"
#include "platform/Paths.h"
#include "platform/SafeFiles.h"
#include "platform/Sorting.h"
#include "platform/detail/Utf8.h"
#include "services/uHandleFile.h"
#include "services/uMsg.h"
#include "services/uSharedIni/TSharedIni.h"

namespace vx {

namespace {

constexpr int kRetryPause = 10;  // milliseconds
constexpr std::u16string_view kLoadValues = u"TSharedIni.LoadValues";
constexpr std::u16string_view kStoreValues = u"TSharedIni.StoreValues";

void Tell(TMsgType Type, std::u16string_view What, std::u16string_view Detail, std::u16string_view Sender,
          bool Success) {
  TMsgReport()(msgInfo(Type, Concat({u"Die Konfigurationsdatei konnte nicht ", What, u"! ", Detail}), Sender), Success);
}

// Always false.
bool TellNotOpened(const String& FileName, std::u16string_view Sender) {
  Tell(msgWarning, u"erstellt/geöffnet werden", FileName, Sender, false);
  return false;
}

// Runs Open until it does not raise or so many milliseconds have passed. Each failure is logged, the last one
// told; false then.
template <typename F>
bool Retry(const String& FileName, uint32_t TimeOut, std::u16string_view Sender, F Open) {
  const int64_t deadline = GetTickCount() + TimeOut;
  do {
    std::u16string_view word = u"erstellt oder geöffnet";
    String reason;
    try {
      Open();
      return true;
    } catch (const EFOpenError& error) {
      word = u"geöffnet";
      reason = error.GetMessage();
    } catch (const EFCreateError& error) {
      word = u"erstellt";
      reason = error.GetMessage();
    } catch (const Exception& error) {
      reason = error.GetMessage();
    }
    Tell(msgLog, Concat({word, u" werden"}), reason, Sender, true);
    Sleep(kRetryPause);
  } while (GetTickCount() <= deadline);
  return TellNotOpened(FileName, Sender);
}

// The later ones first, so that the others keep their places.
void DeleteLines(THashedStringList* Lines, std::vector<int>& Places) {
  std::sort(Places.begin(), Places.end(), std::greater<>());
  Places.erase(std::unique(Places.begin(), Places.end()), Places.end());
  for (int place : Places) Lines->Delete(place);
  Places.clear();
}

bool IsBehind(const String& A, const String& B) { return AnsiCompareText(A, B) > 0; }

// A section that is noted already is the last one in Sections.
void NoteSection(std::vector<String>& Sections, const String& Section) {
  if (Sections.empty() || AnsiCompareText(Sections.back(), Section) != 0) Sections.push_back(Section);
}

// Whether a line with these names, written and read again, says the same.
bool ReadsBack(const String& Section, const String& Ident, const String& Value) {
  constexpr std::u16string_view kBreaks = u"\r\n";
  const String head = Concat({u"[", Section, u"]"});
  const String text = Concat({Ident, u"=", Value});
  const TIniLine line = ParseIniLine(text);
  return ParseIniLine(head).Name == Section && line.Kind == ilValue && line.Name == Ident && line.Value == Value &&
         head.view().find_first_of(kBreaks) == head.view().npos &&
         text.view().find_first_of(kBreaks) == text.view().npos;
}

}  // namespace

void TSharedIni::MakeDirectory(const String& FileName) {
  const String directory = ExtractFileDir(FileName);
  if (!directory.empty() && !DirectoryExists(directory)) VxForceDirectories(directory);
}

TDateTime TSharedIni::LoadValues() {
  const String& name = GetFileName();
  if (name.empty() || !VxFileExists(name)) {
    Clear();
    return 0;
  }
  TDateTime result = 0;
  std::unique_ptr<TFileStream> file;
  FIsWhole = true;
  FMark = MarkOf(name);
  const bool isOpen = Retry(name, iTimeOut, kLoadValues, [&] {
    result = VxFileLastWrite(name, false);
    file = std::make_unique<TFileStream>(name, fmOpenRead | fmShareDenyWrite);
  });
  if (!isOpen) return 0;
  std::string bytes;
  try {
    file->ReadRest(bytes, INT32_MAX);
  } catch (const Exception&) {
    FIsWhole = false;
    Tell(msgWarning, u"gelesen werden", name, kLoadValues, true);
  }
  if (FIsUnmarked) iEncoding = FGiven;  // it was found out for the bytes that stood there before
  size_t mark = 0;
  iEncoding = &TEncoding::Detect(bytes, mark, iEncoding ? *iEncoding : TEncoding::Default());
  FIsUnmarked = mark == 0 && IsUtf8WithoutMark(bytes);
  if (FIsUnmarked) iEncoding = &TEncoding::Utf8();
  SetText(iEncoding->Decode(std::string_view(bytes).substr(mark)));
  return result;
}

bool TSharedIni::IsUtf8WithoutMark(std::string_view Bytes) const noexcept {
  if (!iOptions.Has(sioUtf8)) return false;
  for (size_t at = 0; at < Bytes.size();) {
    if (detail::NextFromUtf8(Bytes, at) == detail::kBrokenUtf8) return false;
  }
  return true;
}

bool TSharedIni::StoreValues(TSharedIni& Target) {
  // A file that was never read has no encoding yet.
  if (iEncoding == nullptr && iOptions.Has(sioUtf8)) {
    iEncoding = &TEncoding::Utf8();
    FIsUnmarked = true;
  }
  const TEncoding& encoding = iEncoding ? *iEncoding : TEncoding::Default();
  const bool isMarked = !FIsUnmarked || &encoding != &TEncoding::Utf8();
  const std::string bytes =
      (isMarked ? std::string(encoding.Mark()) : std::string()) + encoding.Encode(Target.GetText());
  FIsWritten = true;
  return Retry(Target.GetFileName(), iTimeOut, kStoreValues, [&] {
    try {
      const String& name = Target.GetFileName();
      FStored = FTurn ? ReplaceFileContent(name, bytes, *FTurn) : ReplaceFileContent(name, bytes);
    } catch (const EWriteError&) {
      FIsWritten = false;
      FStored = VxFileLastWrite(Target.GetFileName(), false);
      Tell(msgWarning, u"geschrieben werden", Target.GetFileName(), kLoadValues, true);
    }
  });
}

TSharedIni::TMark TSharedIni::MarkOf(const String& FileName) {
  TFileInfo info;
  return FileName.empty() || !GetFileInfo(FileName, info) ? TMark() : TMark{info.Size, info.Id};
}

bool TSharedIni::IsFileAsLoaded() const {
  return VxFileLastWrite(GetFileName(), false) == iLoaded && (iLoaded == 0 || MarkOf(GetFileName()) == FMark);
}

bool TSharedIni::StoreOrMake(TSharedIni& Ini, TSharedIni& Origin) {
  Ini.FOrigin = &Origin;
  const bool result = Ini.Store();
  Ini.FOrigin = nullptr;
  if (!result && Ini.iModifications) Origin.AddModifications(Ini.Journal());
  return result;
}

bool TSharedIni::MakeFrom(const TSharedIni& Origin, const String& Path, const std::function<void()>& Begin) {
  TSharedIni made(Path);
  made.FOrigin = &Origin;
  return made.InTurn([&] {
    if (!made.IsToBeMade()) return true;
    Begin();
    return made.StoreWhole();
  });
}

bool TSharedIni::Reload(bool Force, bool ClearModifications) {
  if (!Force && IsFileAsLoaded()) return false;
  iLoaded = LoadValues();
  if (ClearModifications) ModificationsClear();
  return iLoaded != 0;
}

bool TSharedIni::Store() {
  if (!Storeable()) {
    if (GetFileName().empty() || (GetTransaction() && iOptions.Has(sioInstantWrite))) return false;
    Reload(false, false);
    return true;
  }
  const bool result = InTurn([&] { return IsToBeMade() ? StoreWhole() : StoreMerged(); });
  if (result) ModificationsClear();
  return result;
}

// Who finds no file takes the turn to make it, and may find one when it has it.
bool TSharedIni::InTurn(const std::function<bool()>& Work) {
  if (!VxFileExists(GetFileName())) MakeDirectory(GetFileName());
  TFileTurn turn;
  const bool isTaken = turn.Take(GetFileName(), static_cast<int>(std::min<uint32_t>(iTimeOut, INT32_MAX)));
  // Where there is no turn for another reason, the file can't be written; StoreValues tells that.
  if (!isTaken && turn.IsOthers()) return TellNotOpened(GetFileName(), kStoreValues);
  FTurn = &turn;
  const std::unique_ptr<const TFileTurn*, void (*)(const TFileTurn**)> end(
      &FTurn, [](const TFileTurn** held) { *held = nullptr; });
  return Work();
}

// A mirror takes an empty central file for one that has gone.
bool TSharedIni::IsToBeMade() const {
  const bool isThere = FTurn->IsHeld() ? !FTurn->IsToMake() : VxFileExists(GetFileName());
  return !isThere || (FOrigin != nullptr && VxFileSize(GetFileName(), false) == 0);
}

TSharedIni::TStamp TSharedIni::MakeStamp() const {
  if (!GetSectionStamp()) return {};
  const TDateTime now = Now();
  const TFormatSettings& settings = GetFormatSettings();
  return {FormatDateTime(settings.ShortDateFormat, now), FormatDateTime(settings.ShortTimeFormat, now), iUsername};
}

void TSharedIni::WriteStamp(TSharedIni& Target, std::span<const String> Sections, const TStamp& Stamp) {
  auto write = [&](const String& section, const String& ident, const String& value) {
    Target.WriteString(section, ident, value);
    if (&Target != this) Modification(section, ident, value, atModify);
  };
  for (const String& section : Sections) {
    write(section, u"Datum", Stamp.Date);
    write(section, u"Zeit", Stamp.Time);
    if (!Stamp.User.empty()) write(section, u"Benutzer", Stamp.User);
  }
}

// Replays the journal on Other, which has no journal, and gives the sections that it changes, in order. Whether it
// changed anything.
bool TSharedIni::Replay(TSharedIni& Other, std::vector<String>& Changed) const {
  const std::span<const TSharedIniModification> journal = Journal().Items();
  bool isErasing = false;
  THashedStringList* section = nullptr;
  std::vector<int> gone;                // places of lines to be deleted in it
  std::vector<String> changed, erased;  // as the journal has them: the last sections first
  for (size_t i = journal.size(); i-- > 0;) {
    const TSharedIniModification& entry = journal[i];
    THashedStringList* lines = Other.Lines(entry.Section);
    if (lines != section || entry.ActionType != atDelete) DeleteLines(std::exchange(section, lines), gone);
    const int place = lines ? lines->IndexOfName(entry.Ident) : -1;
    isErasing = isErasing || entry.ActionType == atErase;
    if (entry.ActionType == atModify) {
      const size_t value = static_cast<size_t>(entry.Ident.size()) + 1;
      if (place >= 0 && lines->View(place).view().substr(value) == entry.Value.view()) continue;
      Other.WriteString(entry.Section, entry.Ident, entry.Value);
      NoteSection(changed, entry.Section);
    } else if (entry.ActionType == atDelete && place >= 0) {
      gone.push_back(place);
      NoteSection(changed, entry.Section);
    }
  }
  DeleteLines(section, gone);
  for (size_t i = journal.size(); isErasing && i-- > 0;) {
    const TSharedIniModification& entry = journal[i];
    if (entry.ActionType != atErase || !Other.SectionExists(entry.Section, true) || Other.HasKeys(entry.Section)) {
      continue;
    }
    Other.EraseSection(entry.Section);
    NoteSection(erased, entry.Section);
  }
  std::ranges::set_difference(changed, erased, std::back_inserter(Changed), IsBehind);
  std::ranges::reverse(Changed);
  return !changed.empty() || !erased.empty();
}

// Into a file that is there: the journal is replayed on what stands in it now.
bool TSharedIni::StoreMerged() {
  const TStamp stamp = MakeStamp();
  TSharedIniOptions options{sioReadOnly};
  if (iOptions.Has(sioUtf8)) options.Include(sioUtf8);
  // A file without a mark is read as it is written.
  TSharedIni other(GetFileName(), options, FIsUnmarked ? FGiven : iEncoding);
  if (other.iLoaded == 0 || !other.FIsWhole) return false;
  iEncoding = other.iEncoding;  // a mark that the file has got counts
  FIsUnmarked = other.FIsUnmarked;
  std::vector<String> changed;
  bool isPlain = true;
  for (const TSharedIniModification& entry : Journal().Items()) {
    isPlain = isPlain && (entry.ActionType != atModify || ReadsBack(entry.Section, entry.Ident, entry.Value));
  }
  if (!Replay(other, changed)) {
    iLoaded = other.iLoaded;
    FMark = other.FMark;
  } else {
    if (GetSectionStamp()) WriteStamp(other, changed, stamp);
    if (!StoreValues(other)) return false;
    iLoaded = FStored;
    FMark = MarkOf(GetFileName());
  }
  // What is read back as it was written needs no reading.
  for (const String& value : {stamp.Date, stamp.Time, stamp.User}) isPlain = isPlain && ReadsBack(u"x", u"x", value);
  if (isPlain) {
    iSections.swap(other.iSections);
  } else {
    Assign(&other);
  }
  return true;
}

// Into a file that is not there: all that this object, or the one that it stores for, holds.
bool TSharedIni::StoreWhole() {
  if (FOrigin != nullptr) {
    Assign(FOrigin);
    iEncoding = FOrigin->iEncoding;
    FIsUnmarked = FOrigin->FIsUnmarked;
  }
  if (GetSectionStamp()) {
    std::vector<String> sections;
    const auto name = [&](size_t at) -> const String& { return iSections->View(static_cast<int>(at)); };
    const auto count = static_cast<size_t>(iSections->GetCount());
    for (size_t at : StableOrder(count, [&](size_t a, size_t b) { return IsBehind(name(b), name(a)); })) {
      NoteSection(sections, name(at));
    }
    const bool isInstant = iOptions.Has(sioInstantWrite);
    SetOption(sioInstantWrite, false);
    WriteStamp(*this, sections, MakeStamp());
    SetOption(sioInstantWrite, isInstant);
  }
  if (!StoreValues(*this)) return false;
  iLoaded = FStored;
  FMark = MarkOf(GetFileName());
  return true;
}

bool TSharedIni::HasKeys(std::u16string_view Section) const {
  const THashedStringList* lines = Lines(Section);
  for (int i = 0; lines && i < lines->GetCount(); ++i) {
    if (lines->View(i).view().find(u'=') != std::u16string_view::npos) return true;
  }
  return false;
}

}  // namespace vx
