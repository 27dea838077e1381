#include "platform/SafeFiles.h"

#include <csignal>

#include "tests/support/Test.h"

namespace {

namespace fs = std::filesystem;

class SafeFiles : public testing::Test {
 protected:
  SafeFiles() { fs::current_path(Dir.GetPath()); }
  ~SafeFiles() override { fs::current_path(Before); }
  static int Entries() { return static_cast<int>(std::distance(fs::directory_iterator("."), {})); }
  // Runs body in processes of their own; true if nothing was raised there.
  static bool InProcesses(int count, const std::function<void(int)>& body, useconds_t killAfter = 0) {
    for (int i = 0; i < count; ++i) {
      const pid_t child = ::fork();
      if (child == 0) ::_exit(RaisedBy<Exception>([&] { body(i); }).empty() ? 0 : 1);
      if (killAfter > 0) ::usleep(killAfter), ::kill(child, SIGKILL);
    }
    bool ok = true;
    for (int status = 0; ::wait(&status) > 0;) ok = ok && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return ok;
  }
  const fs::path Before = fs::current_path();
  test::TTempDir Dir;
};

TEST_F(SafeFiles, ReplacesTheContentAndKeepsTheRest) {
  const TCases<const char*, std::function<void()>, bool> cases = {
      {"rights", [] { ::chmod("a", 0641); }, true},
      {"what a killed process left", [] { PutText(u".a.vxnew", "longer than new"); }, true},
      {"a link there", [] { fs::create_symlink("other", ".a.vxnew"); }, true},
      {"another file there", [] { fs::create_hard_link("other", ".a.vxnew"); }, true},
      {"special rights", [] { ::chmod("a", 01755); }, false},
      {"two names", [] { PutText(u".a.vxnew", "left"), fs::create_hard_link("a", "a2"); }, false}};
  fs::create_symlink("a", "link");
  for (const auto& [name, prepare, isNewFile] : cases) {
    PutText(u"a", "old content"), PutText(u"other", "other"), prepare();
    struct stat old, now;
    ASSERT_EQ(::stat("a", &old), 0);
    ReplaceFileContent(u"link", "new");
    EXPECT_EQ(GetText(u"a") + GetText(u"other") + GetText(u".a.vxnew"), "newother<none>") << name;
    EXPECT_EQ((TFacts{::stat("a", &now), fs::is_symlink("link")}), "0 yes") << name;
    EXPECT_EQ(std::pair(now.st_mode, now.st_ino != old.st_ino), std::pair(old.st_mode, isNewFile)) << name;
  }
  for (const char* name : {"a", "a2", "other"}) fs::remove(name);
  for (const String& path : {String(u"b"), String(u"link"), String(255, u'n')}) ReplaceFileContent(path, "12");
  EXPECT_EQ(GetText(u"a") + GetText(u"b") + GetText(String(255, u'n')) + std::to_string(Entries()), "1212124");
}

TEST_F(SafeFiles, ContentInPiecesIsWrittenWholeOrNotAtAll) {
  const std::string content = "one two three";
  const auto piece = [&](int64_t at) { return std::string_view(content).substr(static_cast<size_t>(at), 5); };
  for (const char* before : {"", "something longer than that"}) {
    PutText(u"a", before);
    ReplaceFileContent(u"a", 13, piece);
    EXPECT_EQ(GetText(u"a"), content);
  }
  const auto failing = [&](int64_t at) { return at > 0 ? throw EReadError(u"gone") : piece(at); };
  EXPECT_EQ(RaisedBy<EReadError>([&] { ReplaceFileContent(u"a", 13, failing); }), u"gone");
  EXPECT_EQ(std::pair(GetText(u"a"), Entries()), std::pair(content, 1));
}

TEST_F(SafeFiles, FaultsLeaveTheOldContentOrAreWrittenAround) {
  PutText(u"old", "old");
  const TCases<TFileOperation, int, std::string, std::string> cases = {
      {foSetSize, ENOSPC, "", "old"},      {foWrite, EIO, "", "old"},
      {foFlush, EIO, "", "old"},           {foRename, EACCES, "", "old"},
      {foCreate, EDQUOT, ".vxnew", "old"}, {foCreate, EACCES, ".vxnew", "1"},
      {foCreate, EROFS, ".vxnew", "22"},   {foAttributes, EPERM, ".vxnew", "3"},
      {foRename, EBUSY, ".vxnew", "4"}};
  for (const auto& [operation, error, on, content] : cases) {
    const bool fails = content == "old";
    TFileFaults faults;
    operation == foSetSize ? faults.LimitSpace(2) : faults.Fail(operation, error, 1, 0, on);
    const std::string replacement = fails ? "new" : content;
    EXPECT_EQ(RaisedBy<EWriteError>([&] { ReplaceFileContent(u"old", replacement); }),
              fails ? u"Cannot write file \"old\". " + SysErrorMessage(error) : String());
    EXPECT_EQ(std::pair(GetText(u"old"), Entries()), std::pair(content, 1));
  }
  TFileFaults faults;
  faults.LimitSpace(2);
  EXPECT_THROW(ReplaceFileContent(u"missing", "new"), EWriteError);
  EXPECT_EQ(Entries(), 1);
}

TEST_F(SafeFiles, AFileIsTakenAsByAStream) {
  TFileStream held(u"held", fmCreate | fmShareDenyNone), beside(u".new.vxnew", fmCreate);
  PutText(u"ro", "x"), SetReadOnly(u"ro", true);
  for (const char16_t* path : {u"held", u"ro", u".", u"none/a", u"new/", u""}) {
    const String text = RaisedBy<EFCreateError>([&] { TFileStream stream(path, fmCreate | fmShareExclusive); });
    EXPECT_EQ(RaisedBy<EFCreateError>([&] { ReplaceFileContent(path, "new"); }), text);
    EXPECT_FALSE(text.empty());
  }
  EXPECT_THROW(ReplaceFileContent(u"new", "x"), EFCreateError) << "another one makes the same file";
  EXPECT_EQ(GetText(u"held") + GetText(u"ro") + GetText(u"new"), "x<none>");
}

TEST_F(SafeFiles, StampsGrow) {
  TFileInfo info;
  TDateTime last = 0;
  for (int i = 0; i < 50; ++i) {
    if (i == 30) fs::create_hard_link("a", "b");
    const TDateTime stamp = ReplaceFileContent(u"a", "x");
    EXPECT_GT(stamp, last) << i;
    EXPECT_TRUE(GetFileInfo(u"a", info)) << i;
    EXPECT_EQ(info.LastWrite, stamp) << i;
    last = stamp;
  }
  TFileStream(u"a", fmOpenReadWrite).SetLastWrite(Now() + 1);
  EXPECT_LT(ReplaceFileContent(u"a", "x"), Now() + 0.5) << "where the clock has gone back, it counts";
}

TEST_F(SafeFiles, AKilledProcessLeavesTheOldOrTheNewContent) {
  const std::string texts[] = {std::string(300000, 'a'), std::string(200000, 'b'), GetText(u"a")};
  for (unsigned round = 0; round < 50; ++round) {
    EXPECT_FALSE(InProcesses(
        1,
        [&](int i) {
          for (;; ++i) ReplaceFileContent(u"a", texts[i % 2]);
        },
        500 + round * 331));
    const std::string text = GetText(u"a");
    EXPECT_NE(std::find(texts, texts + 3, text), texts + 3) << text.size();
  }
  ReplaceFileContent(u"a", "end");
  EXPECT_EQ((TFacts{GetText(u"a"), Entries()}), "end 1");
}

TEST_F(SafeFiles, AppendsWholePieces) {
  EXPECT_TRUE(InProcesses(4, [](int child) {
    for (int i = 0; i < 100; ++i) AppendToFile(u"log", std::string(5000, static_cast<char>('a' + child)) + "\n");
  }));
  const std::string text = GetText(u"log");
  EXPECT_EQ(text.size(), 400u * 5001);
  for (size_t at = 0; at < text.size(); at += 5001) EXPECT_EQ(text.find_first_not_of(text[at], at), at + 5000);
  TFileFaults faults;
  faults.LimitSpace(2);
  EXPECT_THROW(AppendToFile(u"log", "abc"), EWriteError);
  EXPECT_THROW(AppendLinesToFile(u"log", "abc"), EWriteError);
  EXPECT_TRUE(GetText(u"log") == text);
  AppendToFile(u"/dev/null", ""), ReplaceFileContent(u"/dev/null", "");
  TFileStream file(u"log", fmOpenRead | fmShareDenyWrite);
  EXPECT_THROW(AppendToFile(u"log", "abc"), EFOpenError);
}

TEST_F(SafeFiles, AppendedLinesStayApartFromAPiece) {
  for (bool isFar : {false, true}) {
    TFileFaults faults;
    if (isFar) faults.LoseLocks();
    for (auto [old, now] : {std::pair("", "b\r\n"), {"a\n", "a\nb\r\n"}, {"a\r", "a\r\nb\r\n"}, {"a", "a\r\nb\r\n"}}) {
      PutText(u"log", old);
      AppendLinesToFile(u"log", "b\r\n");
      EXPECT_EQ(GetText(u"log"), now);
    }
  }
  EXPECT_EQ(Entries(), 1);
}

// Directories beside the files stand in for locks.
TEST_F(SafeFiles, WhereLocksDontHoldATurnIsADirectory) {
  TFileFaults faults;
  faults.LoseLocks();
  PutText(u"a", "0"), PutText(u"log", ""), ::chmod("a", 0640);
  EXPECT_TRUE(InProcesses(3, [](int child) {
    for (int i = 0; i < 20; ++i) {
      TFileTurn turn;
      if (!turn.Take(u"a", 30000)) throw Exception(u"no turn");
      for (int j = 0; j < 2; ++j) ReplaceFileContent(u"a", std::to_string(std::stoi(GetText(u"a")) + 1), turn);
      AppendToFile(u"log", std::string(5000, static_cast<char>('a' + child)) + "\n");
    }
  }));
  const std::string text = GetText(u"log");
  for (size_t at = 0; at < text.size(); at += 5001) EXPECT_EQ(text.find_first_not_of(text[at], at), at + 5000);
  struct stat info;
  EXPECT_EQ(::stat("a", &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
  EXPECT_EQ(GetText(u"a") + "," + std::to_string(text.size()) + "," + std::to_string(Entries()), "120,300060,2");
}

TEST_F(SafeFiles, ADirectoryThatIsLeftOverIsTakenOver) {
  test::TClockAt clock(46000);
  TFileFaults faults;
  faults.LoseLocks();
  for (const char16_t* path : {u"a", u"new"}) {
    PutText(u"a", "old");
    TFileTurn asleep, other;
    EXPECT_TRUE(asleep.Take(path, 0));
    EXPECT_FALSE(other.Take(path, 9990)) << "its owner may be alive";
    EXPECT_TRUE(other.IsOthers());
    EXPECT_TRUE(other.Take(path, 100));
    EXPECT_THROW(ReplaceFileContent(path, "late", asleep), EFCreateError) << "who has lost it does no harm";
    asleep.Release();
    ReplaceFileContent(path, "content", other);
    EXPECT_EQ(GetText(path), "content");
  }
  fs::create_directory(".a.vxlock"), PutText(u".a.vxlock/b", "");
  fs::last_write_time(".a.vxlock", fs::file_time_type::clock::now() - std::chrono::minutes(2));
  ReplaceFileContent(u"a", "alone");
  EXPECT_EQ(GetText(u"a") + std::to_string(Entries()), "alone2");
}

TEST_F(SafeFiles, ContentOfATurnNeedsTheTurn) {
  PutText(u"a", "old");
  TFileTurn turn, none;
  EXPECT_FALSE(none.Take(u"none/a", 0));
  EXPECT_EQ(RaisedBy<EFCreateError>([&] { ReplaceFileContent(u"a", "x", none); }),
            u"Cannot create file \"a\". " + SysErrorMessage(ENOENT));
  EXPECT_TRUE(turn.Take(u"a", 0));
  fs::rename("a", "b"), PutText(u"a", "of another");
  EXPECT_THROW(ReplaceFileContent(u"a", "x", turn), EFCreateError);
  EXPECT_TRUE(turn.Take(u"c", 0));
  EXPECT_TRUE(turn.IsToMake());
  for (const char* text : {"1", "2"}) ReplaceFileContent(u"c", text, turn);
  EXPECT_FALSE(none.Take(u"c", 5)) << "the turn goes over to the file that was made";
  EXPECT_EQ(GetText(u"a") + GetText(u"c"), "of another2");
}

TEST_F(SafeFiles, ATurnIsOneProcessAfterTheOther) {
  PutText(u"a", "0"), PutText(u"b", "0"), PutText(u"ro", ""), SetReadOnly(u"ro", true);
  {
    test::TClockAt clock(46000);
    TFileTurn turn, other;
    for (const char16_t* bad : {u"", u"ro", u"none/none", u"."}) EXPECT_FALSE(turn.Take(bad, 10));
    EXPECT_EQ((TFacts{turn.Take(u"none", 0), other.Take(u"none", 0)}), "yes no") << "the right to make a file";
    EXPECT_EQ((TFacts{turn.Take(u"a", 0), turn.Take(u"a", 0), other.Take(u"a", 0), other.Take(u"a", 100)}),
              "yes yes no no");
    EXPECT_EQ(clock.Ticks(), 100);
    for (int i = 0; i < 2; ++i) ReplaceFileContent(u"a", "0");
    EXPECT_FALSE(other.Take(u"a", 5)) << "the turn goes with the name";
    EXPECT_EQ((TFacts{FileReplace(u"b", u"a"), other.Take(u"a", 0)}), "yes yes") << "but for a file of another making";
  }
  EXPECT_TRUE(InProcesses(3, [](int) {
    for (int i = 0; i < 20; ++i) {
      TFileTurn turn;
      if (!turn.Take(u"a", 30000)) throw Exception(u"no turn");
      for (int j = i % 2; j < 2; ++j) ReplaceFileContent(u"a", std::to_string(std::stoi(GetText(u"a")) + 1));
    }
  }));
  EXPECT_EQ(GetText(u"a"), "90");
}

}  // namespace
