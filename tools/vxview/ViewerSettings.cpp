#include "tools/vxview/ViewerSettings.h"

#include <algorithm>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Folders.h"
#include "platform/Numbers.h"

namespace vx::vxview {

namespace {

const String kWindow = u"Fenster", kFiles = u"Dateien", kLast = u"Zuletzt";

// Paths have what section names can't: they stand in a form without brackets and blanks at the ends.
String SectionOf(const String& Path) {
  if (Path.empty()) return kWindow;
  std::u16string section = u"Datei ";
  for (const char16_t unit : Path) {
    if (unit == u'[' || unit == u']' || unit == u'%' || unit < u' ') {
      section += Concat({u"%", IntToStr(unit), u"%"});
    } else {
      section += unit;
    }
  }
  return section + u'|';
}

}  // namespace

String TViewerSettings::DefaultPath() {
  const String folder = FolderPath(flSettings);
  return folder.empty() ? folder : Concat({folder, u"\\vxview.ini"});
}

TViewerSettings::TViewerSettings(const String& FileName) : FIni(FileName, {sioUtf8}) {}

std::vector<String> TViewerSettings::LastFiles() {
  TVxStringList paths;
  paths.SetCommatext(FIni.ReadString(kFiles, kLast, String()));
  std::vector<String> files(paths.Items().begin(), paths.Items().end());
  std::erase_if(files, [](const String& path) { return path.empty(); });
  return files;
}

void TViewerSettings::Opened(const String& Path) {
  if (FIni.GetFileName().empty()) return;
  const TIniChange change = FIni.Change(kFiles, kLast, [&](String& text) {
    TVxStringList paths;
    paths.SetCommatext(text);
    for (int i = paths.GetCount() - 1; i >= 0; --i) {
      if (paths.Get(i) == Path) paths.Delete(i);
    }
    paths.Insert(0, Path);
    while (paths.GetCount() > MostFiles) paths.Delete(MostFiles);
    text = paths.GetCommatext();
    return true;
  });
  (void)change;  // a failure was reported
}

String TViewerSettings::Read(const String& Path, const String& Key) {
  return FIni.ReadData(SectionOf(Path), Key, String());
}

void TViewerSettings::Write(const String& Path, const String& Key, const String& Value) {
  if (Read(Path, Key) != Value) FIni.WriteData(SectionOf(Path), Key, Value);
}

void TViewerSettings::Store() {
  if (FIni.Modified()) (void)FIni.Store();  // a failure was reported
}

}  // namespace vx::vxview
