// A local mirror of a central configuration file.
#pragma once

#include <memory>

#include "services/uSharedIni/TSharedIni.h"

namespace vx {

enum TDuplicateIniOption : uint8_t {
  dioReadOnly,  // the first five as those of TSharedIni
  dioMemorizeDefaults,
  dioSectionStamp,
  dioInstantWrite,
  dioInstantRead,
  dioInstantSourceWrite,  // each Store passes the changes on to the central file
  dioInstantSourceRead    // the central file is fetched at the start, and by Reload if it has changed
};
using TDuplicateIniOptions = Set<TDuplicateIniOption>;

// A TSharedIni on the local file that exchanges its content with a central one. A central file that has gone,
// or is empty, while the local one is there is made again from the whole of it, when it is to be fetched or when
// changes are passed on to it. Changes that reached the local file only stay in the journal, and Store is false.
//
// Example:
//   vx::TDuplicateIni ini(local, central, {vx::dioInstantSourceRead, vx::dioInstantSourceWrite});
//   ini.WriteString(u"Fenster", u"Breite", u"800");
//   bool isStored = ini.Store();          // in both files, merged into each
class TDuplicateIni : public TSharedIni {
 public:
  // Without options nothing is fetched.
  TDuplicateIni(String FileName, String Sourcename);
  TDuplicateIni(const String& FileName, const String& Sourcename, TDuplicateIniOptions Options,
                const TEncoding* Encoding = nullptr);
  String ClassName() const override { return u"TDuplicateIni"; }

  TDuplicateIniOptions GetDuplicateOptions() const noexcept { return iDuplicateOptions; }
  // The central file's last-write time when it was fetched last; 0 before.
  TDateTime GetSourceLoaded() const noexcept { return iSourceLoaded; }
  const String& GetSourcename() const noexcept { return iSourcename; }

  // Makes the local file equal to the central one: keys that it lacks go, all others come. Empty sections stay.
  [[nodiscard]] bool Download();
  // The other way round.
  [[nodiscard]] bool Upload();
  [[nodiscard]] bool Store() override;
  bool Reload(bool Force, bool ClearModifications) override;
  void ModificationsClear() override;
  // Where changes are passed on, the central file decides, and the local one gets its value; that it could not be
  // stored there is reported, and the next fetch brings it. Otherwise the change is one of the local file alone.
  [[nodiscard]] TIniChange Change(const String& Section, const String& Ident,
                                  FunctionRef<bool(String& Value)> Function) override;

 private:
  TDuplicateIni(String FileName, String Sourcename, TDuplicateIniOptions Options, const TEncoding* Encoding,
                TDateTime SourceLoaded);
  static TDateTime FetchFirst(const String& FileName, const String& Sourcename, TDuplicateIniOptions Options);
  static bool Rebuild(const String& Sourcename, const TSharedIni& Target);
  // Makes Target equal to the central file, whose last-write time comes into SourceLoaded.
  static bool DoDownload(const String& Sourcename, TSharedIni& Target, TDateTime& SourceLoaded);

  TDuplicateIniOptions iDuplicateOptions;
  TDateTime iSourceLoaded = 0;
  String iSourcename;
  std::unique_ptr<TSharedIni> iSource;  // while Store runs
};

}  // namespace vx
