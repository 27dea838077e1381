#include "platform/Files.h"

#include "platform/UserMessages.h"
#include "tests/support/Test.h"

namespace {

bool Opens(const String& path, uint32_t mode) {
  return RaisedBy<EStreamError>([&] { TFileStream file(path, mode); }).empty();
}

bool OpensInOtherProcess(const String& path, uint32_t mode) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(Opens(path, mode) ? 1 : 0);
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

class Files : public testing::Test {
 protected:
  String Make(const std::string& name, const std::string& bytes) {
    test::PutText(Dir.Path(name), bytes);
    return Dir.Path(name);
  }
  test::TTempDir Dir;
};

TEST_F(Files, ShareModesHoldWithinAndBetweenProcesses) {
  struct TMode {
    uint32_t Mode;
    bool Reads, Writes, SharesRead, SharesWrite;
  };
  std::vector<TMode> modes;
  for (uint32_t access : {fmOpenRead, fmOpenWrite, fmOpenReadWrite, fmCreate})
    for (uint32_t share : {0u, 0u | fmShareExclusive, 0u | fmShareDenyWrite, 0u | fmShareDenyNone})
      modes.push_back({access | share, access != fmOpenWrite, access != fmOpenRead, share >= fmShareDenyWrite,
                       share == fmShareDenyNone});
  const String path = Make("a", "x");
  for (const TMode& first : modes) {
    TFileStream file(path, first.Mode);
    for (const TMode& next : modes) {
      bool free = (!next.Reads || first.SharesRead) && (!next.Writes || first.SharesWrite) &&
                  (!first.Reads || next.SharesRead) && (!first.Writes || next.SharesWrite);
      EXPECT_EQ(Opens(path, next.Mode), free) << first.Mode << " then " << next.Mode;
      EXPECT_EQ(OpensInOtherProcess(path, next.Mode), free) << first.Mode << " then " << next.Mode;
    }
  }
}

TEST_F(Files, ReadsAndWritesAtItsPosition) {
  const String path = Make("a", "old");
  {
    TFileStream reader(path, fmOpenRead | fmShareDenyWrite);
    EXPECT_THROW(TFileStream(path, fmCreate | fmShareDenyNone), EFCreateError);
    EXPECT_EQ(GetText(path), "old") << "emptied only when the share modes allow it";
  }
  TFileStream file(path, fmCreate);
  EXPECT_EQ(file.GetSize(), 0);
  file.WriteBuffer("0123456789", 10);
  char buffer[8] = {};
  file.SetPosition(8);
  EXPECT_EQ((std::vector{file.Read(buffer, 8), file.Read(buffer, 8)}), (std::vector<size_t>{2, 0}));
  file.SetPosition(7);
  EXPECT_EQ(RaisedBy<EReadError>([&] { file.ReadBuffer(buffer, 4); }),
            u"Cannot read file \"" + path + u"\". The file ends before.");
  file.SetPosition(12), file.WriteBuffer("xy", 2);
  EXPECT_EQ(GetText(path), std::string("0123456789\0\0xy", 14));
  file.SetPosition(-1);
  EXPECT_THROW(file.Read(buffer, 1), EReadError);
}

TEST_F(Files, FailuresNameThePathAndTheReason) {
  const String readOnly = Make("ro", "x"), none = Dir.Path("none"), dir = Dir.Path(), nul = u"a" + String(1, u'\0');
  ASSERT_EQ((TFacts{SetReadOnly(readOnly, true), Opens(readOnly, fmOpenRead)}), "yes yes");
  const String longName = dir + u"/" + String(256, u'l'), gone = u"Das Laufwerk ist nicht erreichbar.";
  const TFileStream busy(Make("busy", "x"), fmOpenRead | fmShareExclusive);
  const TCases<String, uint32_t, int, String> cases = {
      {none, fmOpenRead, ENOENT, u"Sie ist nicht vorhanden."},
      {none + u"/a", fmCreate, ENOENT, u"Ihr Verzeichnis ist nicht vorhanden."},
      {none + u"/a", fmOpenRead, ENOENT, u"Ihr Verzeichnis ist nicht vorhanden."},
      {readOnly + u"/a", fmOpenRead, ENOTDIR, u"Ein Teil ihres Pfades ist kein Verzeichnis."},
      {dir, fmOpenRead, EISDIR, u"Es ist ein Verzeichnis."},
      {dir, fmCreate, EISDIR, u"Es ist ein Verzeichnis."},
      {nul, fmOpenRead, EINVAL, u"Ihr Name oder eine Angabe dazu ist nicht erlaubt."},
      {u"", fmOpenRead, ENOENT, u"Sie ist nicht vorhanden."},
      {readOnly, fmOpenWrite, EACCES, u"Das Recht dazu fehlt."},
      {readOnly, fmCreate, EACCES, u"Das Recht dazu fehlt."},
      {longName, fmCreate, ENAMETOOLONG, u"Ihr Name ist zu lang."},
      {busy.GetPath(), fmCreate, EBUSY, u"Sie wird gerade von einem anderen Programm benutzt."},
      {u"Q:\\a", fmCreate, ENOTDIR, gone},
      {u"\\\\server\\share\\a", fmOpenRead, ENOTDIR, gone}};
  for (const auto& [path, mode, error, reason] : cases) {
    const bool create = mode == fmCreate;
    try {
      TFileStream(path, mode);
      ADD_FAILURE() << path;
    } catch (const EStreamError& fault) {
      EXPECT_EQ(typeid(fault), create ? typeid(EFCreateError) : typeid(EFOpenError));
      EXPECT_EQ(fault.GetMessage(), Concat({create ? u"Cannot create" : u"Cannot open", u" file \"", path, u"\". ",
                                            SysErrorMessage(error)}));
      EXPECT_EQ(UserMessage(fault), Concat({u"Die Datei \"", path, u"\" kann nicht ",
                                            create ? u"angelegt" : u"geöffnet", u" werden. ", reason}));
      EXPECT_EQ(std::pair(GetLastError(), fault.GetError()), std::pair(error, error));
    }
  }
}

TEST_F(Files, StampsAreLocalAndExactToAMicrosecond) {
  test::TZoneAt zone(120);
  TFileStream file(Make("a", "x"), fmOpenRead);
  for (TDateTime stamp : {46000.5, 46000.123456789, 29221.0, 25568.75}) {
    TFileInfo info;
    EXPECT_EQ((TFacts{file.SetLastWrite(stamp), GetFileInfo(file.GetPath(), info)}), "yes yes") << stamp;
    EXPECT_EQ(info.LastWrite, stamp);
  }
  struct stat info;
  EXPECT_EQ((TFacts{file.SetLastWrite(25570), ::stat(file.GetPath().ToUtf8().c_str(), &info), info.st_mtim.tv_sec}),
            "yes 0 79200");
  for (TDateTime bad : {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e6}) EXPECT_FALSE(file.SetLastWrite(bad));
}

TEST_F(Files, FindsByMask) {
  for (const char* name : {"b.csv", "A.CSV", "c.txt", "noext", ".hidden", "Müller.csv", "x.y.z"}) Make(name, "1");
  ASSERT_TRUE(DirectoryCreate(Dir.Path("dir.csv")));
  std::filesystem::create_symlink("nowhere", Dir.GetPath() + "/link");
  const char* all = ".hidden,A.CSV,Müller.csv,b.csv,c.txt,dir.csv,link,noext,x.y.z,";
  const std::pair<const char*, std::string> cases[] = {
      {"*", all},    {"*.z", "x.y.z,"},   {"?.C*", "A.CSV,b.csv,"}, {"*.csv", "A.CSV,Müller.csv,b.csv,dir.csv,"},
      {"*.*", all},  {"c.txt", "c.txt,"}, {"mÜ*", "Müller.csv,"},   {"?", ""},
      {"C.TXT", ""}, {"none/*", ""},      {"noe*.*", "noext,"},     {"", ""},
      {"link", ""},  {"*i*k*", "link,"},  {"**?**.t?t**", "c.txt,"}};
  for (const auto& [mask, names] : cases) {
    std::string found;
    for (const TFileInfo& info : FindFiles(Dir.Path() + u"/" + String::FromUtf8(mask))) {
      found += info.Name.ToUtf8() + ",";
      EXPECT_EQ(std::pair(info.IsDirectory, info.IsHidden),
                std::pair(info.Name == u"dir.csv", info.Name == u".hidden"));
    }
    EXPECT_EQ(found, names) << mask;
  }
}

TEST_F(Files, CopyMoveReplaceDelete) {
  const String a = Make("a", "new"), b = Make("b", "old"), c = Dir.Path("c"), ro = Make("ro", "kept");
  ASSERT_EQ((TFacts{TFileStream(ro, fmOpenRead).SetLastWrite(40000.25), SetReadOnly(ro, true)}), "yes yes");
  EXPECT_EQ((TFacts{FileDelete(ro), FileCopy(a, ro), FileReplace(a, ro), FileMove(a, b), FileCopy(a, a)}),
            "no no no no no");
  EXPECT_EQ((TFacts{FileCopy(Dir.Path(), c), FileCopy(Dir.Path("none"), b), FileDelete(Dir.Path())}), "no no no");
  EXPECT_TRUE(FileMove(a, Dir.Path("./a")));
  EXPECT_EQ(GetText(a) + GetText(b) + GetText(c) + GetText(ro), "newold<none>kept");
  TFileInfo info;
  EXPECT_EQ((TFacts{FileCopy(ro, b), FileMove(b, c), GetFileInfo(c, info)}), "yes yes yes");
  EXPECT_EQ((TFacts{info.IsReadOnly, info.LastWrite, GetText(b), GetText(c)}), "yes 40000.25 <none> kept");
  EXPECT_EQ((TFacts{SetReadOnly(c, false), FileDelete(c)}), "yes yes");
  const String link = Dir.Path("link"), real = Make("real", "old");
  ASSERT_EQ(::symlink("real", link.ToUtf8().c_str()) + ::chmod(real.ToUtf8().c_str(), 0640), 0);
  EXPECT_EQ((TFacts{FileCopy(ro, link), SetReadOnly(real, false), GetText(real)}), "yes yes kept");
  EXPECT_EQ((TFacts{FileReplace(a, link), GetText(real), GetText(a)}), "yes new <none>");
  struct stat status;
  EXPECT_EQ(::stat(link.ToUtf8().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640);
}

TEST_F(Files, AFailedCopyLeavesTheOldTarget) {
  const String source = Make("a", std::string(700000, 'n')), target = Make("b", "old");
  {
    TFileFaults faults;
    faults.LimitSpace(300000);
    EXPECT_EQ((std::pair{FileCopy(source, target), GetLastError()}), std::pair(false, ENOSPC));
  }
  for (const String& held : {source, target}) {
    TFileStream holder(held, fmOpenReadWrite | fmShareExclusive);
    EXPECT_EQ((std::pair{FileCopy(source, target), GetLastError()}), std::pair(false, EBUSY));
  }
  EXPECT_EQ((TFacts{GetText(target), FindFiles(Dir.Path("*")).size()}), "old 2");
  EXPECT_TRUE(FileCopy(source, target));
  EXPECT_TRUE(GetText(target) == std::string(700000, 'n'));
}

TEST_F(Files, CopiesDirectories) {
  const String s = Dir.Path("s"), t = Dir.Path("t");
  ASSERT_EQ((TFacts{DirectoryCreate(s), DirectoryCreate(s + u"/sub")}), "yes yes");
  Make("s/1", "one"), Make("s/sub/2", "two");
  std::filesystem::create_symlink("1", Dir.GetPath() + "/s/link");
  EXPECT_EQ((TFacts{DirectoryCopy(s, s + u"/sub/t"), DirectoryCopy(Dir.Path("none"), t)}), "no no");
  TFileFaults faults;
  faults.Fail(foWrite, ENOSPC, 1, 0, "/2");
  EXPECT_EQ((TFacts{DirectoryCopy(s, t), DirectoryExists(t), DirectoryCopy(s, t + u"/")}), "no no yes");
  Make("s/1", "changed");
  EXPECT_TRUE(DirectoryCopy(s, t));
  EXPECT_EQ(GetText(Dir.Path("t/link")) + GetText(Dir.Path("t/sub/2")), "changedtwo");
  EXPECT_EQ((TFacts{DirectoryCreate(t), DirectoryRemove(t)}), "no no");
}

TEST_F(Files, FaultsStrikeWhereTheyAreTold) {
  const String a = Make("a", "x");
  TFileStream file(a, fmOpenReadWrite | fmShareDenyNone);
  TFileInfo info;
  const std::pair<TFileOperation, std::function<bool()>> cases[] = {
      {foOpen, [&] { return Opens(a, fmOpenRead | fmShareDenyNone); }},
      {foFlush, [&] { return file.Flush(); }},
      {foSetTime, [&] { return file.SetLastWrite(46000); }},
      {foStamp, [&] { return GetFileInfo(a, info); }}};
  for (const auto& [operation, run] : cases) {
    SCOPED_TRACE(int{operation});
    TFileFaults outer;
    outer.Fail(operation, EIO, 2, 0, "/other");
    {
      TFileFaults faults;
      faults.Fail(operation, EROFS, 2);
      EXPECT_EQ((std::array<int, 4>{run(), GetLastError(), run(), run()}), (std::array{0, EROFS, 0, 1}));
      faults.Fail(operation, EROFS, 99);
    }
    EXPECT_TRUE(run());
  }
  TFileFaults faults;
  faults.Fail(foFlush, EIO, 1, 2);
  EXPECT_EQ((TFacts{file.Flush(), file.Flush(), file.Flush(), file.Flush()}), "yes yes no yes");
}

}  // namespace
