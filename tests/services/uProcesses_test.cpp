#include <fcntl.h>
#include <signal.h>

#include <iomanip>

#include "platform/CommandLine.h"
#include "platform/Desktop.h"
#include "platform/Processes.h"
#include "platform/Shell.h"
#include "platform/ShellExecute.h"
#include "platform/System.h"
#include "services/uHandleFile.h"
#include "services/uWindowsVersion.h"
#include "tests/support/Test.h"

namespace {

const String kNul(1, u'\0');

struct ProcessTest : testing::Test {
  ~ProcessTest() override {
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a process is left behind";
    ::setenv("PATH", FPath.c_str(), 1);
    SetSystemRoots({});
    SetOpenDocument({});
    SetShellExecute({});
    SetFindWindow({});
  }
  String Put(const std::string& name, const std::string& text, mode_t mode = 0755) {
    const std::string path = FDirectory + "/" + name;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << text;
    ::chmod(path.c_str(), mode);
    return String::FromUtf8(path);
  }
  String Script(const std::string& text) { return Put("it's \"a\" $(x); größe", "#!/bin/sh\n" + text); }
  std::string Read(const std::string& name) { return test::GetText(FDir.Path(name)); }
  // The exit code, or -1 if the program was not started.
  int64_t Run(const String& file, const String& parameters = {}, int64_t input = 0) {
    int code = 9;
    const int64_t process = VxExecAndWait(file, parameters, code, true, false, input);
    return process > 0 ? code : process;
  }

  test::TTempDir FDir;
  std::string FDirectory = FDir.GetPath(), FPath = std::getenv("PATH");
  TScriptedDialogs FDialogs;
};

TEST(CommandLineTest, ArgumentsAreCutByTheRules) {
  const TCases<String, TCells> cases = {{u" \t ", {}},
                                        {u"a  b\tc ", {u"a", u"b", u"c"}},
                                        {u"\"a b\" c\"d e\"f", {u"a b", u"cd ef"}},
                                        {u"\"\" \"", {u"", u""}},
                                        {u"\"a\"\"b\"", {u"a\"b"}},
                                        {u"a\\\\b c\\", {u"a\\\\b", u"c\\"}},
                                        {u"\\\" \\\\\"a b\" \\\\\\\"", {u"\"", u"\\a b", u"\\\""}},
                                        {u"a\r\nb;$x'y z'", {u"a\r\nb;$x'y", u"z'"}},
                                        {u"\"a b", {u"a b"}},
                                        {u"\"C:\\a b\\\\\" c", {u"C:\\a b\\", u"c"}}};
  for (const auto& [text, arguments] : cases) EXPECT_EQ(SplitArguments(text), arguments) << text;
  for (int number = 0; number < 6 * 6 * 6 * 6 * 6; ++number) {
    String text;
    for (int rest = number; rest > 0; rest /= 6) text += u"\"\\ a\n"[rest % 6];
    EXPECT_EQ(SplitArguments(u"x " + VxQuoteArgument(text) + u" y"), (std::vector<String>{u"x", text, u"y"}));
  }
}

TEST_F(ProcessTest, EveryArgumentReachesTheChildUnchanged) {
  const std::vector<String> arguments = {
      u"",  u" ",        u"\"", u"a b", u"\\", u"\\\"",    u"a\\\\",        u"; exit 9", u"$HOME `id`", u"$(touch x)",
      u"'", u"a\r\nb\n", u"*",  u"-n",  u"%s", u"Größe €", u"\xD83D\xDE00", u"|&<>",     u"\t",         u"~"};
  String parameters;
  std::string wanted;
  for (const String& argument : arguments) {
    parameters += u" " + VxQuoteArgument(argument);
    wanted += "[" + argument.ToUtf8() + "]";
  }
  EXPECT_EQ(Run(Script("printf '[%s]' \"$@\" > out; pwd >> out"), parameters), 0);
  EXPECT_EQ(Read("out"), wanted + FDirectory + "\n");
  int code = 9;
  EXPECT_EQ((TFacts{VxExecAndWait(Script("exit 0"), u"a" + kNul, code, true, false, 0), code}), "-1 0");
}

TEST_F(ProcessTest, EndsAreWaitedForAndHandlesKept) {
  int ends[2], code = 0;
  for (auto [script, ended] : {std::pair{"exit 7", "yes 7"}, {"kill -9 $$", "yes 137"}, {"exit 255", "yes 255"}}) {
    EXPECT_EQ((TFacts{VxExecAndWait(Script(script), u"", code, true, true, 0) > 0, code}), ended) << script;
    const int64_t kept = VxExecAndWait(Script(script), u"", false, true);
    EXPECT_EQ((TFacts{WaitForProcess(kept, code), code}), ended) << script;
    EXPECT_EQ((TFacts{WaitForProcess(kept, code), code}), "no 0") << "closed by then";
  }
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC) + ::mkfifo((FDirectory + "/fifo").c_str(), 0600), 0);
  ASSERT_EQ(::write(ends[1], "hello\n", 6), 6);
  EXPECT_EQ((TFacts{Run(Script("read line; echo \"<$line>\" > out"), u"", ends[0]), Read("out")}), "0 <hello>\n");
  const int64_t reading = VxExecAndWait(u"/bin/cat", u"", code, false, true, ends[0]);
  EXPECT_EQ((TFacts{VxProcessExists(reading, u"CAT"), VxProcessExists(reading, u"dog")}), "yes no");
  ::close(ends[1]);
  EXPECT_EQ((TFacts{WaitForProcess(reading, code), code, VxProcessExists(reading, u"")}), "yes 0 no");
  const int64_t left = VxExecAndWait(Script("echo $$ > fifo"), u"", false, false);
  EXPECT_EQ(Read("fifo"), std::to_string(left) + "\n");
  CloseProcess(VxExecAndWait(Script("read line < fifo"), u"", false, true));
  std::ofstream(FDirectory + "/fifo") << "go\n";
  siginfo_t ended;
  EXPECT_EQ(::waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT), 0) << "collected later";
  ::close(ends[0]);
  CloseProcess(-1);
}

TEST_F(ProcessTest, WhatCannotBeStartedGivesMinusOne) {
  ::setenv("PATH", FDirectory.c_str(), 1);
  const String found = Put("found", "#!/bin/sh\nexit 3\n");
  const std::vector<String> files({u"", u"none", found + u"/", kNul, FDir.Path("missing"), FDir.Path(),
                                   Put("plain", "x", 0644), Put("text", "x\n"), Put("bad", "#!/no/such\n"),
                                   Put("elf", "\177ELF junk"), Put("empty", "")});
  for (const String& file : files)
    EXPECT_EQ((TFacts{Run(file), VxExecAndWait(file, u"", false, false)}), "-1 -1") << file;
  for (int64_t input : {int64_t{-1}, int64_t{999}, INT64_MAX}) EXPECT_EQ(Run(found, u"", input), -1) << input;
  EXPECT_EQ((TFacts{Run(u"found"), VxNetExe(u"use")}), "3 no");
  Put("net", "#!/bin/sh\necho \"$0 $*\" > " + FDirectory + "/out; exit 1\n");
  EXPECT_TRUE(VxNetExe(u"  use X: \"a b\" "));
  EXPECT_EQ(Read("out"), FDirectory + "/net use X: a b\n");
}

TEST_F(ProcessTest, CommandlinesAreReadByTheInterpreterAndTheirOutputDecoded) {
  String output = u"before ";
  EXPECT_TRUE(VxExecCommandline(u"printf '\\344\\200'; echo x >&2; cat; pwd; exit 3", output, FDir.Path()));
  EXPECT_EQ(output, u"before ä€x\n" + FDir.Path() + u"\n");
  const TCases<String, String> cases = {{u"", u""},
                                        {u"kill -9 $$", u""},
                                        {u"-x 2>/dev/null", u""},  // no option
                                        {u"echo a; kill -9 $$", u"a\n"},
                                        {u"exec >&- 2>&-; exit 1", u""},
                                        {u"(sleep 0.05; echo late) & echo first", u"first\nlate\n"},
                                        {u"printf 'a\\0b'", u"a" + kNul + u"b"},
                                        {u"head -c 1000001 /dev/zero | tr '\\0' 'z'", String(1000001, u'z')}};
  for (const auto& [command, wanted] : cases) {
    EXPECT_TRUE(VxExecCommandline(command, output = {})) << command;
    EXPECT_EQ(output, wanted) << command;
  }
  EXPECT_FALSE(VxExecCommandline(u"echo a", output, FDir.Path("missing")));
  EXPECT_FALSE(VxExecCommandline(kNul, output));
  int code = 9, pieces = 0;
  const auto take = [&](std::string_view bytes) { return bytes.size() <= 255 && ++pieces < 3; };
  const TProcessStart endlessly{"/bin/sh", {"-c", "echo $$ > pid; while :; do echo x; done"}, FDirectory};
  EXPECT_EQ((TFacts{RunForOutput(endlessly, code, take), code, pieces}), "0 0 3");
  const pid_t endless = std::atoi(Read("pid").c_str());
  for (int i = 0; i < 5000 && VxProcessExists(endless, u""); ++i) ::usleep(1000);
  EXPECT_FALSE(VxProcessExists(endless, u"")) << "ended by its closed output";
  CloseProcess(INT32_MAX);
}

TEST_F(ProcessTest, ExecuteTellsWhyAFileIsNotOpened) {
  const String file = Put("a.csv", "x", 0644), path = u"\r\n\r\nPfad: " + file;
  TShellCall call;
  int result = 33;
  SetShellExecute([&](const TShellCall& given) { return call = given, result; });
  String error = u"old";
  EXPECT_TRUE(VxExecute(file, u"-p \"x\"", &error));
  EXPECT_EQ(Concat({error, u"|", call.Verb, u"|", call.File, u"|", call.Parameters, u"|", call.Directory}),
            u"|open|" + file + u"|-p \"x\"|" + FDir.Path());
  const std::pair<int, String> reasons[] = {
      {0, u"Windows stehen nicht genug Ressourcen zur Verfügung."},
      {2, u"Sie existiert nicht."},
      {3, u"Das Verzeichnis existiert nicht."},
      {5, u"Der Zugriff wurde verweigert."},
      {8, u"Es steht nicht genug Arbeitsspeicher zur Verfügung."},
      {11, u"Es ist keine Win32-Anwendung."},
      {26, u"Sie ist schon offen."},
      {27, u"Die Dateiendung ist keinem Programm vollständig zugeordnet."},
      {28, u"The DDE transaction could not be completed because the request timed out."},
      {29, u"The DDE transaction failed."},
      {32, u"Die DLL wurde nicht gefunden."},
      {30, u"The DDE transaction could not be completed because other DDE transactions were being processed."},
      {31, u"Die Dateiendung ist keinem Programm zugeordnet."},
      {1, u"Windows meldet die Fehlernummer [1]."}};
  for (const auto& [number, reason] : reasons) {
    result = number;
    EXPECT_EQ((TFacts{VxExecute(file, u"", &error), VxExecute(file, u"", nullptr)}), "no no") << number;
    EXPECT_EQ(error, u"Die Datei kann nicht ausgeführt werden!" + reason + path);
  }
  result = 33;
  EXPECT_FALSE(VxExecute(file + u"x", u"", &error));
  EXPECT_EQ(error, u"Die Datei existiert nicht, kann also nicht ausgeführt werden!" + path + u"x");
  SetFindWindow([&](const String&, const String& title) { return TWindow{title == u"T" ? 5 : 0, 1, file}; });
  EXPECT_EQ((TFacts{VxExecute(file, u"", &error, u"other"), VxExecute(file, u"", &error, u"T")}), "yes no");
  EXPECT_EQ(error, u"Das Programm läuft bereits, darf aber nicht mehrfach gestartet werden! +#13#10#13#10");
  EXPECT_TRUE(FDialogs.Shown.empty());
}

TEST_F(ProcessTest, TheShellStartsProgramsAndOpensDocuments) {
  ::setenv("PATH", (FDirectory + "/bin").c_str(), 1);
  SetSystemRoots({FDirectory, "/home"});
  ASSERT_EQ(::mkfifo((FDirectory + "/fifo").c_str(), 0600), 0);
  const std::string tell = "#!/bin/sh\nprintf '[%s]' \"${0##*/}\" \"$@\" > " + FDirectory + "/fifo\n";
  Put("bin/xdg-open", tell), Put("bin/xcalc", tell), Put("bin/lp", tell);
  String opened;
  SetOpenDocument([&](const String& file, const String&) { return opened = file, file.view().ends_with(u".csv"); });
  const String program = Put("run", tell), document = Put("a.csv", "x", 0644);
  const TCases<TShellCall, int, std::string> cases = {
      {{u"open", program, u"a \"b c\"", FDir.Path()}, 33, "[run][a][b c]"},
      {{u"open", document}, 33, ""},
      {{u"open", u"CALC.exe", u"1"}, 33, "[xcalc][1]"},
      {{u"print", document}, 33, "[lp][" + document.ToUtf8() + "]"},
      {{u"open", u"mailto:a@b?subject=$(x) \"y\""}, 33, "[xdg-open][mailto:a@b?subject=$(x) \"y\"]"},
      {{u"open", u"cmd.exe"}, 2, ""},
      {{u"edit", document}, 31, ""},
      {{u"open", document + kNul}, 2, ""},
      {{u"print", FDir.Path("none")}, 2, ""},
      {{u"open", document + u"/x"}, 3, ""},
      {{u"open", Put("b.txt", "x", 0644)}, 31, ""},
      {{u"open", Put("locked", "#!/bin/sh", 0644)}, 5, ""},
      {{u"open", Put("junk", "junk")}, 11, ""},
      {{u"open", Put("nointerpreter", "#!/none\n")}, 2, ""},
      {{u"open", program, u"", FDir.Path("none")}, 2, ""}};
  for (const auto& [call, result, written] : cases) {
    EXPECT_EQ(ShellExecute(call), result) << call.File;
    EXPECT_EQ(written.empty() ? "" : Read("fifo"), written);
  }
  EXPECT_EQ(opened, FDir.Path("b.txt"));
}

TEST_F(ProcessTest, ToolsMailsAndAddressesGoThroughTheShell) {
  String told;
  int result = 33;
  SetShellExecute(
      [&](const TShellCall& call) { return told = call.Verb + u" " + call.File + u" " + call.Parameters, result; });
  const TCells calls = ReadLighttext(
      u"open wab.exe p|open calc.exe p|open cmd.exe p|open mspaint.exe p|open wordpad.exe p|open notepad.exe p|"
      u"open wmplayer.exe p|open charmap.exe p|open dfrg.msc p|open msinfo32.exe p|open sndvol32.exe p|"
      u"open wscui.cpl p|open iexplore.exe p|open p |open %SystemRoot%\\Fonts p|explore p |print p |open  p");
  for (int tool = 0; tool <= wtPrint + 1; ++tool) {
    EXPECT_TRUE(VxWindowsTool(static_cast<TWindowsTool>(tool), u"p"));
    EXPECT_EQ(told, calls.at(static_cast<size_t>(tool)));
  }
  const String file = Put("a b", "x");
  EXPECT_TRUE(VxProcessMailTo(u"a@b", u"s t", u"x\"y", file));
  EXPECT_EQ(told, u"open mailto:a@b?subject=s t&body=x\"y&file=\"" + file + u"\" ");
  EXPECT_EQ((TFacts{VxProcessMailTo(u"a", u"", u"", file + u"x"), told}), "yes open mailto:a?subject=&body= ");
  result = 32;
  EXPECT_EQ((TFacts{VxWindowsTool(wtCommand), VxProcessMailTo(u"a", u"b", u"c", u"")}), "no no");
  const TCases<String, String> urls = {
      {u"", u""},        {u"a", u"a "},           {u"/", u"/ "},           {u"/a/", u"/ a/ "},
      {u"a//", u"a// "}, {u"a///b", u"a/ // b "}, {u"//h/p", u"// h/ p "}, {u"x://a/b", u"x:// a/ b "}};
  for (const auto& [url, wanted] : urls) {
    String pieces;
    const auto list = VxParseURL(url);
    for (const String& piece : list->Items()) pieces += piece + u" ";
    EXPECT_EQ(pieces, wanted);
  }
}

TEST_F(ProcessTest, WindowsAndProcessesAreFoundByTheirPrograms) {
  EXPECT_EQ((TFacts{VxProcessExists(::getpid(), u""), VxProcessExists(INT32_MAX, u"")}), "yes no");
  SetSystemRoots({FDirectory, "/home/anna"});
  EXPECT_FALSE(VxProcessExists(0, u"")) << "no processes";
  const TCases<std::string, std::string> stats = {{"12", "12 ("},  {"14", "14 (d)"},    {"8", "8 (a) b) S 1"},
                                                  {"13", "13 )("}, {"9x", "9 (c) S 1"}, {"7", "7 (kind) of) Z 1"}};
  for (const auto& [file, text] : stats) Put("proc/" + file + "/stat", text);
  std::filesystem::create_symlink("/opt/Größe (deleted)", FDirectory + "/proc/8/exe");
  const TCases<int64_t, String, bool> processes = {
      {0, u"", true},      {8, u"", true},  {8, u"A) B", true}, {7, u"", false},  {0, u"GRÖSSE", false},
      {0, u"GRÖßE", true}, {9, u"", false}, {0, u"c", false},   {12, u"", false}, {-1, u"", false}};
  for (const auto& [id, name, exists] : processes) EXPECT_EQ(VxProcessExists(id, name), exists) << id << name;
  const String found = u"Es wurde ein Fenster gefunden,\r\naber ", title = u"\r\n\r\nFenstername: T";
  const TCases<TWindow, String> cases = {
      {TWindow{5, 1, u"c:\\GRößE"}, u""},
      {TWindow{5, 8, u""}, u""},
      {TWindow{}, u"Es wurde kein Fenster gefunden!" + title},
      {TWindow{5, 0, u"C:\\Größe"}, found + u"kein dazugehöriger Prozess!" + title + u"\r\n"},
      {TWindow{5, 9, u""}, found + u"kein dazugehöriges Modul!" + title},
      {TWindow{5, 8, u"D:\\x"}, found + u"es stammt von einem fremden Prozess!" + title + u"\r\nProzessname: D:\\x"}};
  for (const auto& [window, told] : cases) {
    SetFindWindow([given = window](const String& name, const String& text) {
      return name == u"C" && text == u"T" ? given : TWindow{1, 1, u"C:\\Größe"};
    });
    FDialogs.Shown.clear();
    for (bool show : {false, true}) {
      EXPECT_TRUE(FDialogs.Shown.empty());
      EXPECT_EQ(VxFindWindow(u"C", u"T", u"C:\\Größe", show), told.empty() ? 5 : 0);
    }
    EXPECT_EQ(FDialogs.Shown.empty() ? u"" : FDialogs.Shown[0].Text, told);
    EXPECT_EQ(FDialogs.Shown.empty() ? mtWarning : FDialogs.Shown[0].Kind, mtWarning);
  }
}

TEST_F(ProcessTest, DrivesAreThoseOfTheTableOfMounts) {
  int64_t bytes = -1;
  EXPECT_EQ((TFacts{VxDiskSpace(FDir.Path("none/none"), bytes), bytes > 0}), "yes yes");
  EXPECT_EQ((TFacts{VxDiskSpace(u"X:\\a", bytes), bytes}), "no 0");
  EXPECT_EQ((TFacts{VxDiskSpace(kNul, bytes), VxDiskSpace(u"", bytes)}), "no yes");
  SetSystemRoots({FDirectory, "/"});
  EXPECT_EQ(VxDriveType(u"C"), 0) << "no table";
  Put("proc/self/mounts",
      "/dev/sda1 / ext4 rw 0 0\n//srv/daten /mnt/a\\040b cifs rw 0 0\nu@nas:/vol/x/ /mnt/nfs nfs4\n"
      "tmpfs /mnt/ram tmpfs\n/dev/sr0 /mnt/cd iso9660 ro\n/dev/sdb1 /mnt/stick vfat rw 0 0\nx /mnt/old ext4\n"
      "[::1]:/v /mnt/old nfs\nbroken\n/dev/x y z\n");
  Put("sys/block/sda/removable", "0\n"), Put("sys/block/sdb/removable", "1\n"), Put("dev/sdb1", "");
  Put("dev/disk/by-label/y", "");
  std::filesystem::create_symlink("../../sdb1", FDirectory + "/dev/disk/by-label/MEIN\\x20STICK");
  // kind, network path and label
  const TCases<char16_t, std::string, std::string> cases = {
      {u'J', "/dev", "3  "},    {u'H', "/mnt/stick", "2  MEIN STICK"},
      {u'L', "/mnt", "3  "},    {u'K', "/mnt/old", R"(4 \\[::1]\v )"},
      {u'I', "/none", "1  "},   {u'E', "/mnt/nfs", R"(4 \\nas\vol\x )"},
      {u'G', "/mnt/cd", "5  "}, {u'D', "/mnt/a b/sub", R"(4 \\srv\daten\sub )"},
      {u'F', "/mnt/ram", "6  "}};
  for (const auto& [letter, directory, told] : cases) {
    if (directory != "/none") std::filesystem::create_directories(FDirectory + directory);
    GetPathMap().SetDrive(letter, directory);
  }
  EXPECT_EQ(VxDriveList()->GetCommaText(), u"C:\\,D:\\,E:\\,F:\\,G:\\,H:\\,I:\\,J:\\,K:\\,L:\\");
  for (const auto& [letter, directory, told] : cases) {
    for (const char16_t* path : {u"", u":", u":\\none\\a"}) {
      const String drive = String(1, letter) + path;
      EXPECT_EQ((TFacts{VxDriveType(drive), VxDriveToUNC(drive), GetVolumeName(letter)}), told) << drive;
    }
    GetPathMap().SetDrive(letter, "");
  }
  EXPECT_EQ((TFacts{VxDriveType(u"X:\\"), VxDriveType(u""), VxDriveToUNC(u"\\\\a\\b")}), "1 1 ");
}

TEST_F(ProcessTest, DirectoriesAreThoseOfTheSystemAndTheUser) {
  EXPECT_EQ(VxUserName(), LoginName());
  SetSystemRoots({FDirectory, "/home/anna"});
  Put("usr/x", ""), Put("tmp/x", ""), Put("home/anna/Mein Tisch/x", ""), Put("home/anna/Music/x", "");
  EXPECT_EQ((TFacts{VxWindowsDirectory(), VxWindowsTempDirectory(), VxWindowsFontsDirectory()}),
            R"(C:\usr C:\tmp\ C:\usr\Fonts\)");
  EXPECT_EQ(VxWindowsDesktopDirectory(), u"");
  Put("home/anna/.config/user-dirs.dirs",
      "# x\nXDG_DESKTOP_DIR=no\nXDG_DESKTOP_DIR=\"$HOME/Mein\\ Tisch/\"\n"
      "XDG_MUSIC_DIR=\"relative\"\nXDG_VIDEOS_DIR=\"/none");
  EXPECT_EQ(VxWindowsDesktopDirectory(), u"C:\\home\\anna\\Mein Tisch");
  for (int folder : {-1, 6, 15, INT32_MAX}) EXPECT_EQ(GetProgramPath(folder), u"") << folder;
  EXPECT_EQ(GetProgramPath(4), u"C:\\home\\anna\\Music");
  String directory = u"a";
  EXPECT_FALSE(VxSelectDirectory(u"c", u"r", directory));
  SetSelectDirectory([](const TDirectoryQuestion& q, String& chosen) { return chosen = q.Caption + q.Root, true; });
  EXPECT_EQ((TFacts{VxSelectDirectory(u"c", u"r", directory), directory}), "yes cr");
  EXPECT_TRUE(SetSelectDirectory({}));
}

TEST_F(ProcessTest, VersionsOfProgramsComeFromTheirResources) {
  std::string bytes(0x220, '\0');
  // The header with one section, that section's entry, the three directories, the place and the version itself.
  for (auto [at, value] : std::initializer_list<std::pair<int, uint32_t>>{
           {0, 0x5A4D},         {0x3C, 0x40},     {0x40, 0x4550},      {0x46, 1},           {0x54, 0xF0},
           {0x58, 0x20B},       {0xD8, 0x2000},   {0x154, 0x2000},     {0x158, 0x180},      {0x15C, 0x180},
           {0x18C, 0x20000},    {0x190, 3},       {0x198, 16},         {0x19C, 0x80000020}, {0x1AC, 0x10000},
           {0x1B4, 0x80000038}, {0x1C4, 0x10000}, {0x1CC, 0x50},       {0x1D0, 0x2060},     {0x208, 0xFEEF04BD},
           {0x210, 0x2000A},    {0x214, 0xFFFF},  {0x218, 0xFFFF0001}, {0x21C, 0x10002}}) {
    for (int i = 0; i < 4; ++i) bytes[static_cast<size_t>(at + i)] = static_cast<char>(value >> 8 * i);
  }
  const auto version = [&](const std::string& text) {
    const String file = Put("v", text);
    return VxFileVersion(file) + u" " + VxFileProductVersion(file);
  };
  EXPECT_EQ(version(bytes), u"2.10.0.65535 65535.1.1.2");
  EXPECT_EQ(VxFileVersion(FDir.Path("none")) + VxFileVersion(FDir.Path()), u"0.0.0.00.0.0.0");
  for (size_t size = 0; size < 0x20C; size += 7) EXPECT_EQ(version(bytes.substr(0, size)), u"0.0.0.0 0.0.0.0") << size;
  for (size_t at = 0; at < bytes.size(); at += 3) version(std::string(bytes).replace(at, 1, "\xFF"));  // it ends
}

TEST(WindowsVersionTest, NamesFollowTheRecord) {
  const TOSVersionInfoEx before = OSVersionEx();
  EXPECT_EQ(GetWinVersion(), u"Unbekannte Windows-Version " + SystemName());
  // platform, version, kind of product, suite, whether it is an R2, and the name: "?" is unknown, "+" professional
  for (const char* text :
       {"0 9 9 0 0 0 Win32s", "1 4 0 0 512 0 Windows 95", "1 4 10 0 0 0 Windows 98",
        "1 4 90 0 0 0 Windows Millennium Edition", "1 5 0 0 0 0 ?", "3 5 1 0 0 0 ?", "2 4 0 0 0 0 Windows NT+",
        "2 5 0 0 512 0 Windows 2000 Home Edition", "2 5 1 0 0xFDFF 0 Windows XP+",
        "2 5 2 1 0 1 Windows Server 2003 \"R2\"+", "2 5 2 1 0 0 Windows XP x64+",
        "2 5 2 3 32768 0 Windows Home Server+", "2 5 2 3 0 0 Windows Server 2003+", "2 6 0 1 0 0 Windows Vista+",
        "2 6 0 2 0 0 Windows Server 2008+", "2 6 1 1 512 0 Windows 7 Home Edition",
        "2 6 1 3 0 0 Windows Server 2008 R2+", "2 10 0 1 0 0 ?+", "2 0x60000 0x10006 1 512 0 ? Home Edition"}) {
    SCOPED_TRACE(text);
    uint32_t platform, major, minor, product, suite, isR2;
    std::string told;
    std::istringstream stream(text);
    std::getline(stream >> std::setbase(0) >> platform >> major >> minor >> product >> suite >> isR2 >> std::ws, told);
    OSVersionEx() = {
        major, minor, 0, platform, {}, 0, 0, static_cast<uint16_t>(suite), static_cast<uint8_t>(product), isR2 == 1};
    const String name =
        ReplaceAll(ReplaceAll(String::FromUtf8(told), u"?", u"Unbekannte Windows-Version"), u"+", u" Professional");
    EXPECT_EQ(GetWinVersion(), name);
    OSVersionEx().CSDVersion = u"Service Pack 2 ";
    EXPECT_EQ(GetWinVersion(), name + u" Service Pack 2");
    EXPECT_EQ(IsWin7(), major == 6 && minor == 1);
    EXPECT_EQ(IsWin7AndBigger(), major > 6 || IsWin7());
  }
  OSVersionEx() = before;
  EXPECT_FALSE(Is64bit());
  SetIsWow64Process([](bool& emulated) { return emulated = true; });
  EXPECT_TRUE(Is64bit());
  SetIsWow64Process([](bool&) { return false; });
  EXPECT_EQ(test::RaisedBy<Exception>([] { Is64bit(); }), u"IsWindows64: bad process handle");
  SetIsWow64Process(nullptr);
}

}  // namespace
