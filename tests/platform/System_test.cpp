#include "platform/System.h"

#include "tests/support/Test.h"

namespace {

// A system of its own in a fresh directory.
class SystemTest : public testing::Test {
 protected:
  SystemTest() : FBefore(SetSystemRoots({FDir.GetPath(), "/home/anna"})) {}
  ~SystemTest() override { SetSystemRoots(FBefore); }
  void Put(const std::string& Path, const std::string& Bytes, mode_t Mode = 0644) {
    const std::string path = FDir.GetPath() + Path;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    test::PutText(String::FromUtf8(path), Bytes);
    ::chmod(path.c_str(), Mode);
  }

 private:
  test::TTempDir FDir;
  TSystemRoots FBefore;
};

TEST_F(SystemTest, ProcessSessionAndScreenAreReadFromTheirFiles) {
  EXPECT_EQ((TFacts{ResidentBytes(), ScreenDepth(), IsRemoteLogin()}), "0 0 no") << "no files";
  Put("/proc/self/status", "Name:\tVmRSS\nVmHWM:\t99999999999999999999 kB\nVmRSS:\t    1024 kB\nThreads:\t1\n");
  Put("/sys/class/graphics/fb0/bits_per_pixel", "32\n");
  EXPECT_EQ((TFacts{ResidentBytes(), PeakResidentBytes(), ScreenDepth()}), "1048576 0 32");
  Put("/run/systemd/sessions/7", "UID=0\nREMOTE=1\n");
  Put("/run/systemd/sessions/8", "REMOTE=0\nREMOTE_HOST=REMOTE=1\n");
  for (const char* session : {"7", "8", "9", "4294967295", ""}) {
    Put("/proc/self/sessionid", session);
    EXPECT_EQ(IsRemoteLogin(), session == std::string("7")) << session;
  }
  EXPECT_EQ(SystemErrorText(ENOENT), u"No such file or directory");
  EXPECT_EQ(SystemErrorText(99999) + SystemErrorText(-1) + SystemErrorText(INT32_MIN), u"");
}

TEST_F(SystemTest, ProgramsAreFoundByTheTypeOfTheName) {
  const std::string share = "/usr/share/applications/", entry = "[Desktop Entry]\nExec=";
  Put("/usr/share/mime/globs2",
      "# rules\n50:text:*.txt\n50:c:*.c\n50:c++:*.C:cs\n50:gz:*.gz\n50:tar:*.tar.gz\n"
      "60:c:*.b\n70:gz\n50:gz:*.b\n50:make:make\n");
  Put(share + "mimeinfo.cache",
      "[Other]\ntext=cc.desktop\n[MIME Cache]\ntext=no.desktop;../up.desktop;ed.desktop;\n"
      "c=cc.desktop;\nc++=q.desktop\ngz=ed.desktop\ntar=way.desktop\nmake=hide.desktop\n");
  Put("/usr/share/up.desktop", entry + "/opt/cc\n");
  Put(share + "ed.desktop", "[Desktop Action x]\nExec=no\n[Desktop Entry]\nExec = ed %U\n");
  Put(share + "cc.desktop", entry + "/opt/cc %f\n");
  Put(share + "q.desktop", entry + "\"/opt/my \\\"cc\" --x %f\r\n");
  Put(share + "way.desktop", entry + "bin/ed\n");
  Put(share + "hide.desktop", entry + "ed\nHidden=true\n");
  for (const char* program : {"/bin/ed", "/opt/cc", "/opt/my \"cc"}) Put(program, "", 0755);
  Put("/usr/bin/ed", "no program");
  const TCases<String, String> cases = {
      {u"a.TXT", u"/bin/ed"}, {u"/a.c", u"/opt/cc"}, {u"make", u""},       {u"", u""},   {u"a.C", u"/opt/my \"cc"},
      {u"a.gz", u"/bin/ed"},  {u"a.tar.gz", u""},    {u"a.b", u"/opt/cc"}, {u"txt", u""}};
  for (const auto& [file, program] : cases) EXPECT_EQ(ProgramOfFile(file), program) << file;
  Put(share + "mimeapps.list", "[Added Associations]\ntext=ed.desktop\n[Default Applications]\ntext=no;cc.desktop\n");
  EXPECT_EQ(ProgramOfFile(u"a.txt"), u"/opt/cc") << "the system's choice before the cache";
  Put("/home/anna/.config/mimeapps.list", "[Default Applications]\ntext=q.desktop\n");
  EXPECT_EQ(ProgramOfFile(u"a.txt"), u"/opt/my \"cc") << "the user's choice first";
}

std::string Big(uint64_t Value, int Size) {
  std::string result;
  while (Size-- > 0) result += static_cast<char>(Value >> 8 * Size);
  return result;
}

// A font file with one name of a kind for a platform.
std::string Font(const std::string& Version, uint64_t Platform, uint64_t Kind, const std::string& Name,
                 size_t Start = 0) {
  return Version + Big(2, 2) + Big(0, 6) + "glyf" + std::string(12, '\0') + "name" + Big(0, 4) + Big(Start + 44, 4) +
         Big(18 + Name.size(), 4) + Big(1, 4) + Big(18, 2) + Big(Platform, 2) + Big(1, 4) + Big(Kind, 2) +
         Big(Name.size(), 2) + Big(0, 2) + Name;
}

TEST_F(SystemTest, FontsAreTrueTypeByTheirOutlinesAndNamedByTheirFamily) {
  const std::string sans{"\0S\0\xE4\0n", 6}, version = Big(0x10000, 4);
  const TCases<std::string, String, bool> cases = {
      {Font(version, 3, 1, sans), u"sÄN", true},
      {Font("true", 0, 16, sans), u"Sän", true},
      {Font("OTTO", 3, 1, sans), u"Sän", false},
      {Font(version, 1, 1, "S\xE4n"), u"Sän", false},
      {Font(version, 3, 4, sans), u"Sän", false},
      {Font(version, 3, 1, sans), u"Sä", false},
      {"ttcf" + version + Big(1, 4) + Big(16, 4) + Font(version, 3, 1, sans, 16), u"Sän", true}};
  for (const auto& [bytes, family, found] : cases) {
    Put("/usr/share/fonts/a/b.ttf", bytes);
    EXPECT_EQ(HasTrueTypeFont(family), found) << bytes;
  }
  const std::string font = Font(version, 1, 1, "Own");
  for (size_t at = 0; at <= font.size(); ++at) {
    Put("/home/anna/.fonts/own.ttf", std::string(font).replace(at, 1, "\xFF"));
    HasTrueTypeFont(u"Own");  // whatever it finds, it stays inside the file
    Put("/home/anna/.fonts/own.ttf", font.substr(0, at));
    EXPECT_EQ(HasTrueTypeFont(u"Own"), at == font.size()) << at;
  }
}

}  // namespace
