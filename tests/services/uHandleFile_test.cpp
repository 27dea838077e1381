#include "services/uHandleFile.h"

#include <sys/stat.h>

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

// Drive V: is the temporary directory, which is the current one, too; W: its directory "w".
struct HandleFile : testing::Test {
  HandleFile() {
    GetPathMap().SetDrive(u'V', Dir.GetPath());
    GetPathMap().SetDrive(u'W', Dir.GetPath() + "/w");
    DirectoryCreate(Dir.Path("w"));
    std::filesystem::current_path(Dir.GetPath());
  }
  ~HandleFile() override {
    for (char16_t drive : {u'V', u'W'}) GetPathMap().SetDrive(drive, "");
    std::filesystem::current_path(Before);
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

  const std::filesystem::path Before = std::filesystem::current_path();
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
    EXPECT_EQ((TFacts{run(false), Told(), run(true)}), "no  no");
    EXPECT_EQ(Told(), text + kAdvice);
  }
  EXPECT_FALSE(VxCopyFile(a, u"V:\\ro\\x\\c", true));
  EXPECT_EQ(Told(), kNotMade + u"V:\\ro\\x" + kAdvice + u"|" + copied +
                        u", da das Zielverzeichnis nicht existiert:\r\nvon: V:\\w\\a\r\nnach: V:\\ro\\x\\c" + kAdvice);
}

TEST_F(HandleFile, DeletesCopiesAndMovesPastReadOnlyFiles) {
  const String a = Make(u"V:\\a", "1", true), b = u"V:\\new\\x\\b", c = u"W:\\sub\\c";
  EXPECT_EQ((TFacts{VxCopyFile(a, b, true), Show(b)}), "yes 1");
  EXPECT_EQ((TFacts{VxCopyFile(a, Make(b, "older", true), true), Show(b)}), "yes 1");
  EXPECT_EQ((TFacts{VxDeleteFileReadOnly(a, true), VxRenameFile(a, b, true), VxMoveFile(a, b, true)}), "yes no no");
  SetReadOnly(b, true);
  EXPECT_EQ((TFacts{VxRenameFile(Make(a, "2", true), b, true), VxMoveFile(b, u"v:\\new\\x\\.\\b", true)}), "yes yes");
  EXPECT_EQ(Show(b) + Show(a), "2<none>");
  EXPECT_EQ((TFacts{VxMoveFile(b, c, true), Show(u"V:\\w\\sub\\c"), Show(b)}), "yes 2 <none>");
  TFileFaults faults;
  faults.Fail(foDelete, EACCES, 2);
  EXPECT_EQ((TFacts{VxMoveFile(c, b, false), GetText(b), GetText(c), Told()}), "no 2 2 ");
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
  const TCases<String, String, String, String> cases = {// path, made, told, and told by the old way
                                                        {u"", u"V:\\", u"", u""},
                                                        {u"V:\\a\\b\\\\c\\\\", u"V:\\a\\b\\c", u"", u""},
                                                        {Dir.Path("n/m/"), Dir.Path("n/m"), u"", u""},
                                                        {u"V:\\", u"V:\\", drive + u"V:" + gone, u""},
                                                        {u"Q:\\a", u"", missing, missing},
                                                        {u"\\\\srv\\x\\a", u"", share, share},
                                                        {u"V:\\file\\a\\", u"", inFile, inFile},
                                                        {u"\"V:\\1\\x\"", u"V:\\1\\x", u"", u""}};
  for (const auto& [path, made, told, toldOld] : cases) {
    EXPECT_EQ(VxForceDirectories(path), told.empty()) << path;
    EXPECT_EQ(Told(), told);
    EXPECT_EQ(DirectoryExists(made), !made.empty()) << path;
    EXPECT_EQ(VxForceDirectoriesOld(path), toldOld.empty()) << path;
    EXPECT_EQ(Told(), toldOld) << path;
  }
  EXPECT_TRUE(DirectoryExists(Dir.Path("\"V:/1/x\""))) << "the old routine takes quotes for letters of a name";
  EXPECT_EQ((TFacts{VxForceDirectoriesOld(u" V:\\older\\x\r\n"), DirectoryExists(u"V:\\older\\x")}), "yes yes");
  EXPECT_FALSE(VxForceDirectories(u"V:" + ReplaceAll(String(500000, u'x'), u"x", u"\\x")));
  TFileFaults faults;
  faults.Fail(foMakeDir, EACCES, 1, 1);
  EXPECT_FALSE(VxForceDirectories(u"V:\\2\\3\\4"));
  EXPECT_EQ((TFacts{DirectoryExists(u"V:\\2"), DirectoryExists(u"V:\\2\\3")}), "yes no");
}

TEST_F(HandleFile, MergesDirectories) {
  for (const char16_t* directory : {u"V:\\s1\\d", u"V:\\s2\\d\\e"}) ASSERT_TRUE(VxForceDirectories(directory));
  Make(u"V:\\s1\\a", "1"), Make(u"V:\\s1\\d\\f", "1"), Make(u"V:\\s2\\a", "2"), Make(u"V:\\s2\\d\\e\\g", "2");
  const String sources[] = {u"V:\\s1", u"V:\\s2\\", u"V:\\s3"};
  const TCases<size_t, TFileOperation, std::string, String, String> cases = {
      // of so many sources
      {2, foCopy, "/none", u"V:\\t\\u", u""},
      {2, foMakeDir, "/x", u"V:\\x", u"Das Zielverzeichnis \"V:\\x\\\" konnte nicht erstellen."},
      {2, foCopy, "/g", u"V:\\y", u"Das Verzeichnis \"V:\\s2\\d\" konnte nicht nach \"V:\\y\\d\" kopiert werden."},
      {2, foCopy, "s1/a", u"V:\\z", u"Die Datei \"V:\\s1\\a\" konnte nicht nach \"V:\\z\\a\" kopiert werden."},
      {3, foCopy, "/none", u"V:\\t", u"Der Quellordner \"V:\\s3\" ist nicht erreichbar."},
      {0, foCopy, "/none", u"", u"Der Zielverzeichnis \"\\\" ist nicht erreichbar."}};
  for (const auto& [count, operation, pathEnd, target, told] : cases) {
    String error = u"old";
    TFileFaults faults;
    faults.Fail(operation, EACCES, 1, 0, pathEnd);
    EXPECT_EQ(MergeDirectories(std::span(sources, count), target, &error), told.empty());
    EXPECT_EQ(error, told);
  }
  EXPECT_EQ(GetText(u"V:\\t\\u\\a") + GetText(u"V:\\t\\u\\d\\f") + GetText(u"V:\\t\\u\\d\\e\\g"), "212");
  EXPECT_EQ(GetText(u"V:\\z\\d\\f") + GetText(u"V:\\z\\d\\e\\g"), "1<none>");
}

TEST_F(HandleFile, TellsWhetherFilesExistAndAreFree) {
  test::TZoneAt zone(60);
  const String a = Make(u"V:\\a.txt", "x"), b = Make(u"V:\\b", "x", true), empty = Make(u"V:\\empty", "");
  for (const String& path : TCells{a, u"V:\\*.T?T", Dir.Path("a.txt")}) EXPECT_TRUE(VxFileExists(path)) << path;
  for (const String& path : TCells{u"V:\\g*", u"V:\\w", u""}) EXPECT_FALSE(VxFileExists(path)) << path;
  for (TDateTime stamp : {29220.999, 29221.0, 46000.0, 52596.999, 52597.0}) {
    ASSERT_TRUE(TFileStream(empty, fmOpenRead).SetLastWrite(stamp));
    EXPECT_EQ(VxFileExists(empty), stamp >= 29221 && stamp < 52597) << stamp;
  }
  const String none = u"V:\\none";
  EXPECT_EQ((TFacts{VxFileIsLocked(a), VxFileInUse(none), VxFileIsReadable(a), VxFileIsReadable(none)}), "no no no no");
  EXPECT_EQ((TFacts{VxFlushFile(none), VxFlushFile(b), VxFlushFile(u""), VxFileIsOpen(b)}), "no no no yes");
  TVxStringList files, failed;
  for (const String& name : {a, none, b, a}) files.Add(name);
  TFileStream writer(a, fmOpenReadWrite | fmShareDenyNone);
  EXPECT_EQ((TFacts{VxFileIsLocked(a), VxFlushFile(a), VxFileIsReadable(a)}), "yes yes no");
  EXPECT_EQ((TFacts{VxTestExclusive(files), Show(b)}), "no !x") << "the first failure ends the test";
  EXPECT_EQ((TFacts{VxTestExclusive(files, &failed), Show(b)}), "no x");
  EXPECT_EQ(failed.GetCommatext(), u"V:\\a.txt,V:\\a.txt");
  TFileStream holder(b, fmOpenRead | fmShareExclusive);
  EXPECT_EQ((TFacts{VxFileIsReadable(b), VxTestExclusive(TVxStringList())}), "yes yes");
}

TEST_F(HandleFile, EmptyDirectoriesAndLists) {
  for (const char16_t* directory : {u"W:\\1\\2", u"W:\\3"}) ASSERT_TRUE(VxForceDirectories(directory));
  EXPECT_TRUE(VxIsEmptyDir(u"V:\\w"));
  Make(u"W:\\1\\2\\.hidden", ""), Make(u"W:\\a.txt", "x"), Make(u"W:\\b.TXT", "x", true), Make(u"W:\\.c", "x");
  EXPECT_FALSE(VxIsEmptyDir(u"W:\\1"));
  const TCases<int, int, String, String> cases = {{faAnyFile, faDirectory, u"*", u".c,1,3,a.txt,b.TXT"},
                                                  {faArchive, faReadOnly | faHidden, u"*", u"a.txt"},
                                                  {faDirectory, 0, u"*", u"1,3"},
                                                  {faReadOnly, 0, u"*.t?t", u"b.TXT"},
                                                  {faHidden, 0, u"a*", u""}};
  std::unique_ptr<TVxStringList> list;
  for (const auto& [in, out, pattern, names] : cases) {
    ASSERT_TRUE(ls(list, u"W:\\", in, out, pattern));
    EXPECT_EQ(list->GetCommatext(), names);
  }
  EXPECT_FALSE(ls(list, u"W:\\", faAnyFile, 0, u"*.none"));
  EXPECT_EQ(list, nullptr);
}

TEST_F(HandleFile, SizeStampAndHash) {
  const String a = Make(u"V:\\a", "12345678ab"), dir = u"V:\\w", none = u"V:\\none";
  EXPECT_EQ((TFacts{VxFileSize(a, true), VxFileSize(dir, true), VxFileSize(none, true)}), "10 -2 -1");
  EXPECT_EQ((TFacts{VxFileSize(dir, false), VxFileSize(none, false), VxFileLastWrite(none, true)}), "0 0 -1");
  test::TZoneAt zone(60);
  int code = 9;
  EXPECT_EQ((TFacts{VxSetFileLastWrite(a, 46000.75, code), code, VxFileLastWrite(a, true)}), "yes 0 46000.75");
  for (int second = 0; second < 86400; second += 17) {
    VxSetFileLastWrite(a, 46000 + second / 86400.0, code);
    struct stat info;
    ASSERT_EQ(stat((Dir.GetPath() + "/a").c_str(), &info), 0);
    // 46000 is 9.12.2025, an hour behind in universal time.
    ASSERT_EQ(info.st_mtim.tv_sec * 1000000000 + info.st_mtim.tv_nsec, (1765238400L - 3600 + second) * 1000000000);
  }
  TFileFaults faults;
  faults.Fail(foSetTime, EPERM);
  const TCases<String, TDateTime, String> cases = {
      {a, std::nan(""), u"[1] Ausnahmefehler! Win32Error=22"},
      {a, -200000, u"[2] \"SystemTimeToFileTime\" ist fehlgeschlagen! Win32Error=22"},
      {a, -109204.99, u"[3] \"LocalFileTimeToFileTime\" ist fehlgeschlagen! Win32Error=22"},
      {none, 46000, u"[4] \"FileOpen\" ist fehlgeschlagen! Win32Error=2"},
      {a, 46000, u"[5] \"SetFileTime\" ist fehlgeschlagen! Win32Error=1"}};
  for (const auto& [name, stamp, text] : cases) {
    EXPECT_FALSE(VxSetFileLastWrite(name, stamp, code));
    EXPECT_EQ(VxSetFileLastWriteError(code), text);
  }
  EXPECT_EQ(VxSetFileLastWriteError(0), u"Das Dateidatum wurde erfolgreich geändert!");
  EXPECT_EQ(VxSetFileLastWriteError(6), u"[6] Unbekannter Fehler! Win32Error=1");
  uint64_t hash = 1;
  EXPECT_EQ((std::pair{VxHashFromHD(a, hash), hash}), (std::pair{true, uint64_t{0x3837363534333231u ^ 0x6261u}}));
  EXPECT_EQ((TFacts{VxHashFromHD(none, hash), hash}), "no 0");
  EXPECT_EQ((TFacts{VxHashFromHD(Make(u"V:\\big", std::string(2 * 524288, 'x') + "\x01"), hash), hash}), "yes 1");
}

TEST(HandleFileNames, SizesAsText) {
  constexpr uint64_t kMega = 1 << 20, kGiga = 1 << 30;
  const std::pair<uint64_t, const char16_t*> sizes[] = {
      {0, u"0 Byte"},      {1024, u"1024 Byte"},    {1025, u"1,01 kB"},
      {1536, u"1,5 kB"},   {kMega, u"1024 kB"},     {2 * kMega - 1, u"2 MB"},
      {kGiga, u"1024 MB"}, {kGiga + 1, u"1,01 GB"}, {UINT64_MAX, u"17179869184 GB"}};
  for (const auto& [size, text] : sizes) EXPECT_EQ(VxFileSizeText(size), text);
  const TCases<uint64_t, String, int, String> details = {{1025, u"kb", 0, u"2 kB"},
                                                         {1025, u"KB", 3, u"1,001 kB"},
                                                         {1025, u"kB", 12, u"1,0009765625 kB"},
                                                         {1025, u"kB", -3, u"2 kB"},
                                                         {1, u"Gb", 2000000000, u"0,00000000093132258 GB"},
                                                         {kMega - 1, u"mb", 2, u"1 MB"},
                                                         {UINT64_MAX, u"KB", 2, u"18014398509481984 kB"},
                                                         {UINT64_MAX, u"TB", 2, u"18446744073709551615 Byte"}};
  for (const auto& [size, unit, digits, text] : details) EXPECT_EQ(VxFileSizeTextDetail(size, unit, digits), text);
}

TEST(HandleFileNames, Checks) {
  const std::function<bool(const String&)> checks[] = {CheckFileName, CheckPath, VxFilenameOk, FilenameIs83};
  const std::pair<String, std::string> cases[] = {
      {u"", "--++"},         {u" Liste.csv ", "+++-"},        {u"  ", "-+++"},    {u"12345678.abcd", "+++-"},
      {u"a/b", "---+"},      {u"\u00DC\u2026\u4E2D", "++++"}, {u"C:a:b", "---+"}, {u"C:\\v1.2345\\Liste.csv", "+-++"},
      {u"tab\there", "---+"}};
  for (const auto& [name, marks] : cases) {
    std::string found;
    for (const auto& check : checks) found += check(name) ? '+' : '-';
    EXPECT_EQ(found, marks) << name.ToUtf8();
  }
}

TEST(HandleFileNames, MendsNames) {
  const String longest(257, u'x'), tooLong(258, u'x');
  const TCases<String, String, bool, String, bool> cases = {
      {u"C:\\Temp", u"a/b", false, u"C:\\Temp\\a_b", true},
      {u"1:\\x", u"a", false, u"1:\\x\\a", false},
      {u"C:\\T*m p\\", u"a\\b :c", true, u"C:\\T_m_p\\a_b__c", true},
      {u":::", u" \x1F\u4E2D", false, u"_:_\\ _\u4E2D", false},
      {u"C:", longest, false, u"C:\\" + longest, true},
      {u"C:", tooLong, false, u"C:\\" + tooLong, false}};
  for (const auto& [directory, name, noBlanks, mended, good] : cases) {
    String result = u"old";
    EXPECT_EQ(ValidateFilename(directory, name, result, noBlanks, u'_'), good) << directory;
    EXPECT_EQ(result, mended);
  }
  String path = u"a/b\\c/";
  EXPECT_EQ((TFacts{GarantyWindowsPath(path), GarantyWindowsPath(path), path}), R"(yes no a\b\c\)");
}

TEST_F(HandleFile, DecoratesNames) {
  for (const char16_t* name : {u"V:\\a.b.txt", u"V:\\a.b_1.txt", u"V:\\a.b_2.txt", u"V:\\a.b-001.txt"}) Make(name, "x");
  const TCases<String, String, String> cases = {
      {u"", u"%d %d", u".txt"},   {u"", u"%", u".txt"},    {u" neu", u"(%%%3u|%0:-3d|%0:X)", u" neu(%  1|1  |1).txt"},
      {u"_x", u"fix", u"_x.txt"}, {u"", u"%s%%", u".txt"}, {u"-", u"%.3d", u"-002.txt"},
      {u"", u"_%d", u"_3.txt"}};
  for (const auto& [decoration, format, result] : cases)
    EXPECT_EQ(DecorateFilename(u"V:\\a.b.txt", decoration, format), u"V:\\a.b" + result);
}

TEST(HandleFileNames, TakesPathsApart) {
  const TCases<String, std::string> cases = {// pieces, list, all but the last directory, and that
                                             {u"C:\\a\\b\\", R"(C:,a,b C:,a,b, C:\a\ b)"},
                                             {u"C:\\", R"(C: C:, C:\ C:)"},
                                             {u"\\\\s\\f\\x", R"(,,s,f,x \\s\f,x \\s\f\ x)"}};
  for (const auto& [path, told] : cases) {
    EXPECT_EQ((TFacts{VxProcessFilename(path)->Items(), PathToList(path)->Items(), VxSubtractLastDirectory(path),
                      VxGetLastDirectory(path)}),
              told);
  }
}

}  // namespace
