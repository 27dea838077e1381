#include "services/uSharedIni/TDuplicateIni.h"

#include <utility>

#include "services/uHandleFile.h"
#include "services/uMsg.h"

namespace vx {

namespace {

TSharedIniOptions SharedOptions(TDuplicateIniOptions Options) {
  constexpr std::pair<TDuplicateIniOption, TSharedIniOption> kSame[] = {{dioReadOnly, sioReadOnly},
                                                                        {dioMemorizeDefaults, sioMemorizeDefaults},
                                                                        {dioSectionStamp, sioSectionStamp},
                                                                        {dioInstantWrite, sioInstantWrite},
                                                                        {dioInstantRead, sioInstantRead}};
  TSharedIniOptions result;
  for (const auto& [from, to] : kSame) {
    if (Options.Has(from)) result.Include(to);
  }
  return result;
}

// Both in a transaction, and nothing noted beside what is copied.
class TCopyScope {
 public:
  TCopyScope(TSharedIni& Source, TSharedIni& Destination) : FSource(Source), FDestination(Destination) {
    FSource.SetTransaction(true);
    FDestination.SetTransaction(true);
    FSource.SetMemorizeDefaults(false);
    FDestination.SetMemorizeDefaults(false);
    FDestination.SetSectionStamp(false);
  }
  ~TCopyScope() {
    FDestination.SetTransaction(false);
    FSource.SetTransaction(false);
    FDestination.SetSectionStamp(FHasStamp);
    FDestination.SetMemorizeDefaults(FDestinationMemorizes);
    FSource.SetMemorizeDefaults(FSourceMemorizes);
  }
  TCopyScope(const TCopyScope&) = delete;
  TCopyScope& operator=(const TCopyScope&) = delete;

 private:
  TSharedIni& FSource;
  TSharedIni& FDestination;
  const bool FSourceMemorizes = FSource.GetMemorizeDefaults();
  const bool FDestinationMemorizes = FDestination.GetMemorizeDefaults();
  const bool FHasStamp = FDestination.GetSectionStamp();
};

// Calls Take(section, key) for each key.
template <typename F>
void ForEachKey(TSharedIni& Ini, F Take) {
  TVxStringList sections, keys;
  Ini.ReadSections(sections);
  for (const String& section : sections.Items()) {
    Ini.ReadSection(section, keys);
    for (const String& key : keys.Items()) Take(section, key);
  }
}

// Makes the keys of Destination those of Source, and stores them.
bool DoLoad(TSharedIni& Source, TSharedIni& Destination) {
  if (Source.GetLoaded() == 0) return false;
  {
    const TCopyScope scope(Source, Destination);
    ForEachKey(Destination, [&](const String& section, const String& key) {
      if (!Source.ValueExists(section, key)) Destination.DeleteKey(section, key);
    });
    ForEachKey(Source, [&](const String& section, const String& key) {
      const String value = Source.ReadString(section, key, String());
      if (Destination.ValueExists(section, key) && Destination.ReadString(section, key, String()) == value) return;
      Destination.WriteString(section, key, value);
    });
  }
  const bool isStored = Destination.GetOptions().Has(sioInstantWrite) && !Destination.GetTransaction();
  return isStored || Destination.Store();
}

bool HasContent(const String& Path) { return VxFileExists(Path) && VxFileSize(Path, false) > 0; }

}  // namespace

TDuplicateIni::TDuplicateIni(String FileName, String Sourcename)
    : TSharedIni(std::move(FileName)), iSourcename(std::move(Sourcename)) {}

TDuplicateIni::TDuplicateIni(const String& FileName, const String& Sourcename, TDuplicateIniOptions Options,
                             const TEncoding* Encoding)
    : TDuplicateIni(FileName, Sourcename, Options, Encoding, FetchFirst(FileName, Sourcename, Options)) {}

TDuplicateIni::TDuplicateIni(String FileName, String Sourcename, TDuplicateIniOptions Options,
                             const TEncoding* Encoding, TDateTime SourceLoaded)
    : TSharedIni(std::move(FileName), SharedOptions(Options), Encoding),
      iDuplicateOptions(Options),
      iSourceLoaded(SourceLoaded),
      iSourcename(std::move(Sourcename)) {}

// Before the object itself is made, so that it loads what was fetched.
TDateTime TDuplicateIni::FetchFirst(const String& FileName, const String& Sourcename, TDuplicateIniOptions Options) {
  TDateTime sourceLoaded = 0;
  if (Options.Has(dioInstantSourceRead)) {
    TSharedIni local(FileName);
    (void)DoDownload(Sourcename, local, sourceLoaded);  // reports through Msg
  }
  return sourceLoaded;
}

bool TDuplicateIni::DoDownload(const String& Sourcename, TSharedIni& Target, TDateTime& SourceLoaded) {
  if (!HasContent(Sourcename) && HasContent(Target.GetFileName()) && !Rebuild(Sourcename, Target)) return false;
  TSharedIni source(Sourcename, {sioReadOnly});
  SourceLoaded = source.GetLoaded();
  return DoLoad(source, Target);
}

// Makes a central file that has gone again from the local one, unless another has done so meanwhile.
bool TDuplicateIni::Rebuild(const String& Sourcename, const TSharedIni& Target) {
  return MakeFrom(Target, Sourcename, [&] {
    const String files = Concat({Sourcename, u"->", Target.GetFileName()});
    TMsgReport()(Log(Concat({u"Die Konfigurationsdatei konnte nicht heruntergeladen werden! ", files}),
                     u"TSharedIni.LoadValues"),
                 true);
  });
}

bool TDuplicateIni::Download() { return DoDownload(iSourcename, *this, iSourceLoaded); }

bool TDuplicateIni::Upload() {
  TSharedIni source(iSourcename);
  return DoLoad(*this, source);
}

bool TDuplicateIni::Store() {
  const bool isPassingOn = iDuplicateOptions.Has(dioInstantSourceWrite) && Storeable();
  iSource = isPassingOn ? std::make_unique<TSharedIni>(iSourcename) : nullptr;
  bool result = TSharedIni::Store();
  if (result && iSource) result = StoreOrMake(*iSource, *this);
  iSource.reset();
  return result;
}

bool TDuplicateIni::Reload(bool Force, bool ClearModifications) {
  bool isFetched = true;
  if (iDuplicateOptions.Has(dioInstantSourceRead) && VxFileLastWrite(iSourcename, false) != iSourceLoaded) {
    TSharedIni local(GetFileName());
    isFetched = DoDownload(iSourcename, local, iSourceLoaded);
  }
  return TSharedIni::Reload(Force, ClearModifications) && isFetched;
}

TIniChange TDuplicateIni::Change(const String& Section, const String& Ident,
                                 FunctionRef<bool(String& Value)> Function) {
  if (!iDuplicateOptions.Has(dioInstantSourceWrite)) return TSharedIni::Change(Section, Ident, Function);
  TSharedIni source(iSourcename);
  source.SetTimeOut(GetTimeOut());
  String value;
  const TIniChange result = ChangeIn(source, *this, Section, Ident, [&](String& text) {
    const bool isChanged = Function(text);
    value = text;
    return isChanged;
  });
  if (result == icStored) {
    TSharedIni local(GetFileName());
    local.WriteString(Section, Ident, value);
    (void)local.Store();  // reports through Msg
  }
  return result;
}

void TDuplicateIni::ModificationsClear() {
  if (iSource && GetModifications()) iSource->AddModifications(*GetModifications());
  TSharedIni::ModificationsClear();
}

}  // namespace vx
