#include "services/uHandleFile.h"

#include <sys/stat.h>

#include <filesystem>

#include "tests/support/Test.h"

namespace {

using namespace vx;

using test::GetText;

const String kAdvice =
    u"\r\n\r\nDas Programm wird nicht korrekt funktionieren.\r\n\r\nBitte überprüfen Sie:\r\n1. die \"Vergabe der "
    u"Rechte\" des Betriebssystems.\r\n    Es muss Voller Lese- und Schreibzugriff gewährt werden.\r\n2. den freien "
    u"Platz auf der Festplatte.\r\n3. die Integrität der Festplatte, zum Beispiel mit dem Windowsprogramm \"Scandisk\""
    u"\r\n    oder der sogenannten \"Fehlerüberprüfung\".\r\n\r\nNordvale GmbH, Musterstadt, Hotline: (000) 00 00 00-0";
const String kNotMade =
    u"Das Laufwerk steht zur Verfügung,\r\naber folgendes Verzeichnis konnten nicht angelegt werden:\r\n\r\n";

// Drive V: is the temporary directory, W: its directory "w".
class HandleFile : public testing::Test {
 protected:
  HandleFile() {
    GetPathMap().SetDrive(u'V', Dir.GetPath());
    GetPathMap().SetDrive(u'W', Dir.GetPath() + "/w");
    DirectoryCreate(Dir.Path("w"));
  }
  ~HandleFile() override {
    for (char16_t drive : {u'V', u'W'}) GetPathMap().SetDrive(drive, "");
  }
  static String Make(const String& path, const std::string& bytes, bool readOnly = false) {
    test::PutText(path, bytes);
    if (readOnly) SetReadOnly(path, true);
    return path;
  }
  // The texts of the dialogs since the last call, joined by "|"; every one a warning with OK alone.
  String Told() {
    String texts;
    for (const TDialog& dialog : Dialogs.Shown) {
      EXPECT_EQ(dialog.Kind, dialog.Text.view().starts_with(u"Netzwerkproblem") ? mtError : mtWarning);
      EXPECT_EQ(dialog.Buttons, TMsgDlgButtons{mbOK});
      texts = texts + (texts.empty() ? u"" : u"|") + dialog.Text;
    }
    Dialogs.Shown.clear();
    return texts;
  }
  // The text of a file, with "!" before if it is read-only.
  static std::string Show(const String& path) {
    TFileInfo info;
    return (GetFileInfo(path, info) && info.IsReadOnly ? "!" : "") + GetText(path);
  }

  test::TTempDir Dir;
  TScriptedDialogs Dialogs;
};

TEST_F(HandleFile, FailuresAreToldWhereAsked) {
  const String ro = Make(u"V:\\ro", "x", true), a = Make(u"V:\\w\\a", "x"), b = u"V:\\w\\b", w = u"V:\\w", u = u"V:\\u";
  const String file = u"Folgende Datei konnte nicht ", dir = u"Folgendes Verzeichnis konnte nicht gelöscht werden";
  const String copied = file + u"kopiert werden", aToB = u":\r\nvon: V:\\w\\a\r\nnach: V:\\w\\b";
  const std::pair<std::function<bool(bool)>, String> cases[] = {
      {[&](bool show) { return VxDeleteFile(ro, show); }, file + u"gelöscht werden:\r\nName: V:\\ro"},
      {[&](bool show) { return VxDeleteFileReadOnly(a, show); }, file + u"gelöscht werden:\r\nName: V:\\w\\a"},
      {[&](bool show) { return VxDeleteFile(w, show); },
       file + u"gelöscht werden, weil Sie, wider Erwarten, nicht vorhanden war:\r\nName: V:\\w"},
      {[&](bool show) { return VxRemoveDir(w, show); }, dir + u":\r\nName: V:\\w"},
      {[&](bool show) { return VxRemoveDir(u, show); },
       dir + u", weil es, wider Erwarten, nicht vorhanden war:\r\nName: V:\\u"},
      {[&](bool show) { return VxCopyFile(a, b, show); }, copied + aToB},
      {[&](bool show) { return VxCopyFile(b, a, show); },
       copied + u", da die Quelle nicht existiert:\r\nvon: V:\\w\\b\r\nnach: V:\\w\\a"},
      {[&](bool show) { return VxMoveFile(a, b, show); }, file + u"umbenannt werden" + aToB}};
  TFileFaults faults;
  faults.LimitSpace(0);
  for (TFileOperation operation : {foDelete, foRename}) faults.Fail(operation, EACCES, 99);
  for (const auto& [run, text] : cases) {
    EXPECT_TRUE(!run(false) && Told().empty() && !run(true));
    EXPECT_EQ(Told(), text + kAdvice);
  }
  EXPECT_FALSE(VxCopyFile(a, u"V:\\ro\\x\\c", true));
  EXPECT_EQ(Told(), kNotMade + u"V:\\ro\\x" + kAdvice + u"|" + copied +
                        u", da das Zielverzeichnis nicht existiert:\r\nvon: V:\\w\\a\r\nnach: V:\\ro\\x\\c" + kAdvice);
}

TEST_F(HandleFile, DeletesCopiesAndMovesPastReadOnlyFiles) {
  const String a = Make(u"V:\\a", "1", true), b = u"V:\\new\\x\\b", c = u"W:\\sub\\c";
  EXPECT_TRUE(VxCopyFile(a, b, true) && Show(b) == "1");
  EXPECT_TRUE(VxCopyFile(a, Make(b, "older", true), true) && Show(b) == "1");
  EXPECT_TRUE(VxDeleteFileReadOnly(a, true) && !VxRenameFile(a, b, true) && !VxMoveFile(a, b, true));
  SetReadOnly(b, true);
  EXPECT_TRUE(VxRenameFile(Make(a, "2", true), b, true) && VxMoveFile(b, u"v:\\new\\x\\.\\b", true));
  EXPECT_EQ(Show(b) + Show(a), "2<none>");
  EXPECT_TRUE(VxMoveFile(b, c, true) && Show(u"V:\\w\\sub\\c") + Show(b) == "2<none>");
  TFileFaults faults;
  faults.Fail(foDelete, EACCES, 2);
  EXPECT_FALSE(VxMoveFile(c, b, false));
  EXPECT_EQ(GetText(b) + GetText(c), "22");
  EXPECT_EQ(Told(), u"");
  EXPECT_FALSE(VxRenameFile(b, a, true)) << "a drive alone is no directory that can be forced";
  EXPECT_EQ(Told(), u"Netzwerkproblem: Das Laufwerk (V:) ist nicht erreichbar.");
}

TEST_F(HandleFile, RenamingNeverDeletesTheFileItself) {
  const String a = Make(u"V:\\w\\a", "1");
  std::filesystem::create_symlink(Dir.GetPath() + "/w/a", Dir.GetPath() + "/w/link");
  for (const String& other : {a, String(u"v:\\.\\w\\a"), String(u"W:\\a"), Dir.Path("w/a"), String(u"W:\\link")}) {
    for (const auto& [from, to] : {std::pair(a, other), std::pair(other, a)}) {
      TFileFaults faults;
      faults.Fail(foRename, EACCES, 1);
      VxRenameFile(from, to, false);  // a drive alone is no directory that can be forced
      ASSERT_EQ(GetText(a), "1") << from.ToUtf8() << " to " << to.ToUtf8();
    }
  }
}

TEST_F(HandleFile, ForcesDirectories) {
  const String drive = u"Netzwerkproblem: Das Laufwerk (", gone = u") ist nicht erreichbar.";
  const String share = u"Netzwerkproblem: Die Serverfreigabe (\\\\srv\\x" + gone, missing = drive + u"Q:" + gone;
  const String inFile = kNotMade + Make(u"V:\\file", "x") + u"\\a\\" + kAdvice;
  struct {
    String Path, Made, Told, ToldOld;
  } cases[] = {{u"", u"V:\\", u"", u""},
               {u"V:\\a\\b\\\\c\\\\", u"V:\\a\\b\\c", u"", u""},
               {Dir.Path("n/m/"), Dir.Path("n/m"), u"", u""},
               {u"V:\\", u"V:\\", drive + u"V:" + gone, u""},
               {u"Q:\\a", u"", missing, missing},
               {u"\\\\srv\\x\\a", u"", share, share},
               {u"V:\\file\\a\\", u"", inFile, inFile},
               {u"\"V:\\1\\x\"", u"V:\\1\\x", u"", u""}};
  for (const auto& c : cases) {
    EXPECT_EQ(VxForceDirectories(c.Path), c.Told.empty()) << c.Path.ToUtf8();
    EXPECT_EQ(Told(), c.Told);
    EXPECT_EQ(DirectoryExists(c.Made), !c.Made.empty()) << c.Path.ToUtf8();
    EXPECT_TRUE(VxForceDirectoriesOld(c.Path) == c.ToldOld.empty() && Told() == c.ToldOld) << c.Path.ToUtf8();
  }
  EXPECT_TRUE(VxForceDirectoriesOld(u" V:\\older\\x\r\n") && DirectoryExists(u"V:\\older\\x"));
  EXPECT_FALSE(VxForceDirectories(u"V:" + ReplaceAll(String(500000, u'x'), u"x", u"\\x")));
  TFileFaults faults;
  faults.Fail(foMakeDir, EACCES, 1, 1);
  EXPECT_FALSE(VxForceDirectories(u"V:\\2\\3\\4") || !DirectoryExists(u"V:\\2") || DirectoryExists(u"V:\\2\\3"));
}

TEST_F(HandleFile, MergesDirectories) {
  ASSERT_TRUE(VxForceDirectories(u"V:\\s1\\d") && VxForceDirectories(u"V:\\s2\\d\\e"));
  Make(u"V:\\s1\\a", "1"), Make(u"V:\\s1\\d\\f", "1"), Make(u"V:\\s2\\a", "2"), Make(u"V:\\s2\\d\\e\\g", "2");
  const String sources[] = {u"V:\\s1", u"V:\\s2\\", u"V:\\s3"};
  struct {
    int Sources;
    TFileOperation Operation;
    std::string PathEnd;
    String Target, Error;
  } cases[] = {
      {2, foCopy, "/none", u"V:\\t\\u", u""},
      {2, foMakeDir, "/x", u"V:\\x", u"Das Zielverzeichnis \"V:\\x\\\" konnte nicht erstellen."},
      {2, foCopy, "/g", u"V:\\y", u"Das Verzeichnis \"V:\\s2\\d\" konnte nicht nach \"V:\\y\\d\" kopiert werden."},
      {2, foCopy, "s1/a", u"V:\\z", u"Die Datei \"V:\\s1\\a\" konnte nicht nach \"V:\\z\\a\" kopiert werden."},
      {3, foCopy, "/none", u"V:\\t", u"Der Quellordner \"V:\\s3\" ist nicht erreichbar."},
      {0, foCopy, "/none", u"", u"Der Zielverzeichnis \"\\\" ist nicht erreichbar."}};
  for (const auto& c : cases) {
    String error = u"old";
    TFileFaults faults;
    faults.Fail(c.Operation, EACCES, 1, 0, c.PathEnd);
    EXPECT_EQ(MergeDirectories(std::span(sources, static_cast<size_t>(c.Sources)), c.Target, &error), c.Error.empty());
    EXPECT_EQ(error, c.Error);
  }
  EXPECT_EQ(GetText(u"V:\\t\\u\\a") + GetText(u"V:\\t\\u\\d\\f") + GetText(u"V:\\t\\u\\d\\e\\g"), "212");
  EXPECT_EQ(GetText(u"V:\\z\\d\\f") + GetText(u"V:\\z\\d\\e\\g"), "1<none>");
}

TEST_F(HandleFile, TellsWhetherFilesExistAndAreFree) {
  test::TZoneAt zone(60);
  const String a = Make(u"V:\\a.txt", "x"), b = Make(u"V:\\b", "x", true), empty = Make(u"V:\\empty", "");
  EXPECT_TRUE(VxFileExists(a) && VxFileExists(u"V:\\*.T?T") && VxFileExists(Dir.Path("a.txt")));
  EXPECT_FALSE(VxFileExists(u"V:\\g*") || VxFileExists(u"V:\\w") || VxFileExists(u""));
  for (TDateTime stamp : {29220.999, 29221.0, 46000.0, 52596.999, 52597.0}) {
    ASSERT_TRUE(TFileStream(empty, fmOpenRead).SetLastWrite(stamp));
    EXPECT_EQ(VxFileExists(empty), stamp >= 29221 && stamp < 52597) << stamp;
  }
  EXPECT_FALSE(VxFileIsLocked(a) || VxFileInUse(u"V:\\none") || VxFileIsReadable(a) || VxFileIsReadable(u"V:\\none"));
  EXPECT_FALSE(VxFlushFile(u"V:\\none") || VxFlushFile(b) || VxFlushFile(u"") || !VxFileIsOpen(b));
  TVxStringList files, failed;
  for (const String& name : {a, String(u"V:\\none"), b, a}) files.Add(name);
  TFileStream writer(a, fmOpenReadWrite | fmShareDenyNone);
  EXPECT_TRUE(VxFileIsLocked(a) && VxFlushFile(a) && !VxFileIsReadable(a));
  EXPECT_FALSE(VxTestExclusive(files) || Show(b) != "!x") << "the first failure ends the test";
  EXPECT_FALSE(VxTestExclusive(files, &failed) || Show(b) != "x");
  EXPECT_EQ(failed.GetCommatext(), u"V:\\a.txt,V:\\a.txt");
  TFileStream holder(b, fmOpenRead | fmShareExclusive);
  EXPECT_TRUE(VxFileIsReadable(b) && VxTestExclusive(TVxStringList()));
}

TEST_F(HandleFile, EmptyDirectoriesAndLists) {
  ASSERT_TRUE(VxForceDirectories(u"W:\\1\\2") && VxForceDirectories(u"W:\\3") && VxIsEmptyDir(u"V:\\w"));
  Make(u"W:\\1\\2\\.hidden", ""), Make(u"W:\\a.txt", "x"), Make(u"W:\\b.TXT", "x", true), Make(u"W:\\.c", "x");
  EXPECT_FALSE(VxIsEmptyDir(u"W:\\1"));
  struct {
    int In, Out;
    String Pattern, Names;
  } cases[] = {{faAnyFile, faDirectory, u"*", u".c,1,3,a.txt,b.TXT"},
               {faArchive, faReadOnly | faHidden, u"*", u"a.txt"},
               {faDirectory, 0, u"*", u"1,3"},
               {faReadOnly, 0, u"*.t?t", u"b.TXT"},
               {faHidden, 0, u"a*", u""}};
  std::unique_ptr<TVxStringList> list;
  for (const auto& c : cases) {
    ASSERT_TRUE(ls(list, u"W:\\", c.In, c.Out, c.Pattern));
    EXPECT_EQ(list->GetCommatext(), c.Names);
  }
  EXPECT_TRUE(!ls(list, u"W:\\", faAnyFile, 0, u"*.none") && list == nullptr);
}

TEST_F(HandleFile, SizeStampAndHash) {
  const String a = Make(u"V:\\a", "12345678ab"), dir = u"V:\\w", none = u"V:\\none";
  EXPECT_EQ(VxFileSize(a, true) * 100 + VxFileSize(dir, true) * 10 + VxFileSize(none, true), 979);
  EXPECT_TRUE(VxFileSize(dir, false) + VxFileSize(none, false) == 0 && VxFileLastWrite(none, true) == -1);
  test::TZoneAt zone(60);
  int code = 9;
  EXPECT_TRUE(VxSetFileLastWrite(a, 46000.75, code) && code == 0 && VxFileLastWrite(a, true) == 46000.75);
  for (int second = 0; second < 86400; second += 17) {
    VxSetFileLastWrite(a, 46000 + second / 86400.0, code);
    struct stat info;
    ASSERT_EQ(stat((Dir.GetPath() + "/a").c_str(), &info), 0);
    // 46000 is 9.12.2025, an hour behind in universal time.
    ASSERT_EQ(info.st_mtim.tv_sec * 1000000000 + info.st_mtim.tv_nsec, (1765238400L - 3600 + second) * 1000000000);
  }
  TFileFaults faults;
  faults.Fail(foSetTime, EPERM);
  struct {
    String Name;
    TDateTime Stamp;
    String Text;
  } cases[] = {{a, std::nan(""), u"[1] Ausnahmefehler! Win32Error=22"},
               {a, -200000, u"[2] \"SystemTimeToFileTime\" ist fehlgeschlagen! Win32Error=22"},
               {a, -109204.99, u"[3] \"LocalFileTimeToFileTime\" ist fehlgeschlagen! Win32Error=22"},
               {none, 46000, u"[4] \"FileOpen\" ist fehlgeschlagen! Win32Error=2"},
               {a, 46000, u"[5] \"SetFileTime\" ist fehlgeschlagen! Win32Error=1"}};
  for (const auto& c : cases) {
    EXPECT_FALSE(VxSetFileLastWrite(c.Name, c.Stamp, code));
    EXPECT_EQ(VxSetFileLastWriteError(code), c.Text);
  }
  EXPECT_EQ(VxSetFileLastWriteError(0), u"Das Dateidatum wurde erfolgreich geändert!");
  EXPECT_EQ(VxSetFileLastWriteError(6), u"[6] Unbekannter Fehler! Win32Error=1");
  uint64_t hash = 1;
  EXPECT_TRUE(VxHashFromHD(a, hash) && hash == (0x3837363534333231u ^ 0x6261u));
  EXPECT_TRUE(!VxHashFromHD(none, hash) && hash == 0);
  EXPECT_TRUE(VxHashFromHD(Make(u"V:\\big", std::string(2 * 524288, 'x') + "\x01"), hash) && hash == 1);
}

TEST(HandleFileNames, SizesAsText) {
  constexpr uint64_t kMega = 1 << 20, kGiga = 1 << 30;
  const std::pair<uint64_t, const char16_t*> sizes[] = {
      {0, u"0 Byte"},      {1024, u"1024 Byte"},    {1025, u"1,01 kB"},
      {1536, u"1,5 kB"},   {kMega, u"1024 kB"},     {2 * kMega - 1, u"2 MB"},
      {kGiga, u"1024 MB"}, {kGiga + 1, u"1,01 GB"}, {UINT64_MAX, u"17179869184 GB"}};
  for (const auto& [size, text] : sizes) EXPECT_EQ(VxFileSizeText(size), text);
  struct {
    uint64_t Size;
    const char16_t* Unit;
    int Digits;
    const char16_t* Text;
  } details[] = {{1025, u"kb", 0, u"2 kB"},
                 {1025, u"KB", 3, u"1,001 kB"},
                 {1025, u"kB", 12, u"1,0009765625 kB"},
                 {1025, u"kB", -3, u"2 kB"},
                 {1, u"Gb", 2000000000, u"0,00000000093132258 GB"},
                 {kMega - 1, u"mb", 2, u"1 MB"},
                 {UINT64_MAX, u"KB", 2, u"18014398509481984 kB"},
                 {UINT64_MAX, u"TB", 2, u"18446744073709551615 Byte"}};
  for (const auto& c : details) EXPECT_EQ(VxFileSizeTextDetail(c.Size, c.Unit, c.Digits), c.Text);
}

TEST(HandleFileNames, Checks) {
  const std::function<bool(const String&)> checks[] = {CheckFileName, CheckPath, VxFilenameOk, FilenameIs83};
  const std::pair<String, std::string> cases[] = {{u"", "--++"},
                                                  {u"  ", "-+++"},
                                                  {u" Liste.csv ", "+++-"},
                                                  {u"C:\\v1.2345\\Liste.csv", "+-++"},
                                                  {u"a/b", "---+"},
                                                  {u"C:a:b", "---+"},
                                                  {u"\u00DC\u2026\u4E2D", "++++"},
                                                  {u"tab\there", "---+"},
                                                  {u"12345678.abcd", "+++-"}};
  for (const auto& [name, marks] : cases) {
    std::string found;
    for (const auto& check : checks) found += check(name) ? '+' : '-';
    EXPECT_EQ(found, marks) << name.ToUtf8();
  }
}

TEST(HandleFileNames, MendsNames) {
  const String longest(257, u'x'), tooLong(258, u'x');
  struct {
    String Path, Name;
    bool NoBlanks;
    String Result;
    bool Good;
  } cases[] = {{u"C:\\Temp", u"a/b", false, u"C:\\Temp\\a_b", true},
               {u"1:\\x", u"a", false, u"1:\\x\\a", false},
               {u"C:\\T*m p\\", u"a\\b :c", true, u"C:\\T_m_p\\a_b__c", true},
               {u":::", u" \x1F\u4E2D", false, u"_:_\\ _\u4E2D", false},
               {u"C:", longest, false, u"C:\\" + longest, true},
               {u"C:", tooLong, false, u"C:\\" + tooLong, false}};
  for (const auto& c : cases) {
    String result = u"old";
    EXPECT_EQ(ValidateFilename(c.Path, c.Name, result, c.NoBlanks, u'_'), c.Good) << c.Path.ToUtf8();
    EXPECT_EQ(result, c.Result);
  }
  String path = u"a/b\\c/";
  EXPECT_TRUE(GarantyWindowsPath(path) && !GarantyWindowsPath(path) && path == u"a\\b\\c\\");
}

TEST_F(HandleFile, DecoratesNames) {
  for (const char16_t* name : {u"V:\\a.b.txt", u"V:\\a.b_1.txt", u"V:\\a.b_2.txt", u"V:\\a.b-001.txt"}) Make(name, "x");
  struct {
    String Decoration, Format, Result;
  } cases[] = {{u"", u"_%d", u"_3.txt"},
               {u"-", u"%.3d", u"-002.txt"},
               {u"_x", u"fix", u"_x.txt"},
               {u"", u"%s%%", u".txt"},
               {u" neu", u"(%%%3u|%0:-3d|%0:X)", u" neu(%  1|1  |1).txt"},
               {u"", u"%", u".txt"},
               {u"", u"%d %d", u".txt"}};
  const String name = u"V:\\a.b";
  for (const auto& c : cases) EXPECT_EQ(DecorateFilename(name + u".txt", c.Decoration, c.Format), name + c.Result);
}

TEST(HandleFileNames, TakesPathsApart) {
  struct {
    String Path;
    TCells Pieces, List;
    String Front, Last;
  } cases[] = {{u"C:\\a\\b\\", {u"C:", u"a", u"b"}, {u"C:", u"a", u"b", u""}, u"C:\\a\\", u"b"},
               {u"C:\\", {u"C:"}, {u"C:", u""}, u"C:\\", u"C:"},
               {u"\\\\s\\f\\x", {u"", u"", u"s", u"f", u"x"}, {u"\\\\s\\f", u"x"}, u"\\\\s\\f\\", u"x"}};
  for (const auto& c : cases) {
    EXPECT_TRUE(std::ranges::equal(VxProcessFilename(c.Path)->Items(), c.Pieces)) << c.Path.ToUtf8();
    EXPECT_TRUE(std::ranges::equal(PathToList(c.Path)->Items(), c.List)) << c.Path.ToUtf8();
    EXPECT_EQ(VxSubtractLastDirectory(c.Path) + u"|" + VxGetLastDirectory(c.Path), c.Front + u"|" + c.Last);
  }
}

}  // namespace
