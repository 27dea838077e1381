#include "services/uSharedIni.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <optional>
#include <sstream>

#include "platform/Calendar.h"
#include "platform/IniLine.h"
#include "platform/Numbers.h"
#include "platform/SafeFiles.h"
#include "services/uHandleFile.h"
#include "services/uMsg.h"
#include "tests/support/Cases.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

using TTexts = std::vector<std::string>;
using TContent = std::map<String, std::map<String, String>>;

const std::string kNot = "Die Konfigurationsdatei konnte nicht ", kLoad = "TSharedIni.LoadValues: ";
const std::string kStamp = "Datum=09.12.2025\nZeit=07:00\n", kUser = kStamp + "Benutzer=meier\n\n";

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size()) text.replace(at, from.size(), to);
  return text;
}
// What an object holds, as a text with "\n" at line ends; and its keys, names in capital letters.
std::string Lines(const TSharedIni& ini) {
  THashedStringList lines;
  ini.GetStrings(lines);
  return Replaced(lines.GetTextStr().ToUtf8(), "\r\n", "\n");
}
TContent Content(const TSharedIni& ini) {
  TContent result;
  THashedStringList lines;
  ini.GetStrings(lines);
  for (int i = 0, section = 0; i < lines.GetCount(); ++i) {
    const TIniLine line = ParseIniLine(lines.View(i));
    const auto head = [&] { return UpperCase(String(ParseIniLine(lines.View(section)).Name)); };
    if (line.Kind == ilSection) section = i, result[head()];
    if (line.Kind == ilValue) result[head()][UpperCase(String(line.Name))] = line.Value;
  }
  return result;
}
// Does steps on objects a, b, ...: "a+S.x=1" writes, "a-S.x" deletes, "a!S" erases, "a/" deletes the file, brackets
// open and close a transaction and the default mode, "_" is a blank. Tells what "a>S.x=1" reads (1 is the default) and
// what a store (".") and a reload gave ("?"; "~" if it is forced and changes are forgotten).
std::string Do(std::span<TSharedIni* const> inis, const std::string& steps) {
  std::istringstream stream(steps);
  std::string told;
  for (std::string step; stream >> step;) {
    TSharedIni& ini = *inis[static_cast<size_t>(step[0] - 'a')];
    const size_t dot = step.find('.', 2), is = std::min(step.find('='), step.size());
    const auto part = [&](size_t from, size_t to) {
      return String::FromUtf8(from < to && from < step.size() ? Replaced(step.substr(from, to - from), "_", " ") : "");
    };
    const String section = part(2, dot), key = dot == step.npos ? String() : part(dot + 1, is),
                 value = part(is + 1, step.npos);
    const char what = step[1];
    if (what == '+') ini.WriteString(section, key, value);
    if (what == '-') ini.DeleteKey(section, key);
    if (what == '!') ini.EraseSection(section);
    if (what == '/') FileDelete(ini.GetFileName());
    if (what == '(' || what == ')') ini.SetTransaction(what == '(');
    if (what == '[' || what == ']') ini.SetDefaults(what == '[');
    if (what == '>') told += ini.ReadString(section, key, value).ToUtf8() + ",";
    if (what == '.') told += ini.Store() ? "1," : "0,";
    if (what == '?' || what == '~') told += ini.Reload(what == '~', what == '~') ? "1," : "0,";
  }
  return told;
}

struct SharedIni : testing::Test {
  SharedIni() {
    Msg().SetMsgInterrupt({[](void*, const TMsgInfo&, TMsgList&, bool) {}, nullptr});
    Msg().SetLogInterrupt(TLogInterrupt::Of<&SharedIni::Note>(*this));
  }
  ~SharedIni() override { uMsg::FreeBuffersForLeakPrevention(); }
  void Note(const TMsgInfo& info, int, bool) {
    Notes.push_back(String(Concat({String(1, u"LWE"[info.msgType]), u" ", info.sender, u": ", info.msg})).ToUtf8());
  }
  TTexts Told() { return std::exchange(Notes, {}); }
  // Writes and reads a file, "\n" standing for its line ends; each write has a stamp of its own.
  String Put(const std::string& name, const std::string& text) {
    test::PutText(Dir.Path(name), Replaced(text, "\n", "\r\n"));
    TFileStream(Dir.Path(name), fmOpenReadWrite).SetLastWrite(++Stamp);
    return Dir.Path(name);
  }
  std::string Get(const std::string& name) { return Replaced(test::GetText(Dir.Path(name)), "\r\n", "\n"); }
  test::TTempDir Dir;
  test::TClockAt Clock{46000.25};
  test::TZoneAt Zone{60};
  TDateTime Stamp = 45000;
  TTexts Notes;
};

TEST_F(SharedIni, ReadsLinesAndAnyEncoding) {
  const std::pair<std::string, std::string> cases[] = {
      {" [ A ] \n x = 1 \n;c\ny z\nq = = 2\n\n=v\nk =\n", "[A]\nx=1\ny z\nq== 2\n=v\nk=\n\n"},
      {"a=1\n;\n[A]\nb", "[A]\nb\n\n"},
      {"[A]\nx=1\n[a]\nx=2", "[A]\nx=1\n\n[a]\nx=2\n\n"},
      {"[a=b]\n[\n]\n[]\n[x=y]z", "[a=b]\n[\n]\n\n[]\n[x=y]z\n\n"},
      {"x=1", ""}};
  for (const auto& [text, lines] : cases) EXPECT_EQ(Lines(TSharedIni(Put("f", text))), lines);
  TSharedIni ini(Put("f", "[ \xC4 ]\nKEY=1\nkey=2\nplain\n[\xE4]\nz=3\n[e]\nh=0XFF\no=0x\n[n]\n"));
  TVxStringList list;
  const auto shown = [&](auto read) { return list.Add(u"old"), (ini.*read)(u"ä", list), list.GetCommaText(); };
  EXPECT_EQ(shown(&TSharedIni::ReadSection) + u"|" + shown(&TSharedIni::ReadSectionValues),
            u"KEY,key|KEY=1,key=2,plain");
  EXPECT_EQ(ini.ReadString(u"ä", u"Key", u"-") + ini.ReadString(u"Ä", u"z", u"-") + ini.ReadString(u"e", u"", u"!"),
            u"1-!");
  EXPECT_EQ((TFacts{ini.ReadInteger(u"e", u"h", 3), ini.ReadInteger(u"e", u"o", 3)}), "255 3");
  EXPECT_EQ((TFacts{ini.SectionExists(u"N", true), ini.SectionExists(u"N", false), ini.SectionExists(u"q", true)}),
            "yes no no");
  list.SetCommaText(u"a=1,=2,b,c=d=e,A=3");
  ini.WriteSectionValues(u"e", list);
  EXPECT_EQ(Content(ini)[u"E"], (TContent::mapped_type{{u"A", u"3"}, {u"C", u"d=e"}}));
  const auto bytes = [](const TEncoding& e, const String& text) { return std::string(e.Mark()) + e.Encode(text); };
  const TEncoding *none = nullptr, *utf8 = &TEncoding::Utf8(), *low = &TEncoding::Utf16(),
                  *high = &TEncoding::Utf16BigEndian();
  for (auto [mark, told] : {std::pair(none, none), {none, low}, {utf8, none}, {low, utf8}, {high, none}}) {
    const TEncoding& kept = mark ? *mark : told ? *told : TEncoding::Default();
    FileDelete(Dir.Path("f"));
    if (mark || !told) test::PutText(Dir.Path("f"), bytes(kept, u"[S]\r\nn=ü"));
    TSharedIni coded(Dir.Path("f"), {}, told);
    EXPECT_EQ(coded.ReadString(u"S", u"n", u"ü"), u"ü");
    coded.WriteString(u"S", u"n", u"ä€");
    EXPECT_TRUE(coded.Store());
    EXPECT_EQ(test::GetText(Dir.Path("f")), bytes(kept, u"[S]\r\nn=ä€\r\n\r\n"));
  }
}

TEST_F(SharedIni, StepsOfTwo) {
  const std::string x = "[S]\nx=1\n";
  const TSharedIniOptions none, stamp{sioSectionStamp}, write{sioInstantWrite}, both{sioSectionStamp, sioInstantWrite},
      memorize{sioMemorizeDefaults, sioInstantWrite};
  const TCases<TSharedIniOptions, std::string, std::string, std::string, std::string> cases = {
      {none, x, "a+S.x=2 b+S.y=3 a. b. a>S.y a. a>S.y", "1,1,,1,3,", "[S]\nx=2\ny=3\n\n"},
      {none, x + "plain\n[T]\n", "a!S a. b+T.k= b.", "1,1,", "[T]\nk=\n\n"},
      {none, "[M]\n", "a+A.b=1 a+A.a=2 a+Z.k=3 a+M.n=4 a.", "1,", "[M]\nn=4\n\n[Z]\nk=3\n\n[A]\nb=1\na=2\n\n"},
      {none, ";c\nl=1\n[S]\nx = a\n", "a+S.X=a a-S.q a-T.q a!T b+S.x=c a. a>S.x", "1,a,",
       ";c\nl=1\n[S]\nx = a\n"},  // not written
      {none, ";c\nl=1\n[S]\nx = a\n", "a+S.X=A a. a?", "1,0,", "[S]\nX=A\n\n"},
      {none, x, "a+T.x=2 a/ b? a. b? b.", "0,1,1,1,", "[S]\nx=1\n\n[T]\nx=2\n\n"},
      {none, x + "[S]\nx=2\n", "a!S a.", "1,", "[S]\nx=2\n\n"},
      {none, x, "a+_T_._k=_v_ a+;.;=; a+[S.k=S] a+S].a=b=c a+S.[a=b] a. a>T.k a>S].a", "1,v,b=c,",
       "[S]\nx=1\n[a=b]\n\n[S]]\na=b=c\n\n[[S]\nk=S]\n\n[;]\n;=;\n\n[ T ]\n k= v \n\n"},
      {{sioReadOnly}, x, "a+S.x=2 a. a>S.x b+S.y=1 b. a. a>S.x", "1,2,1,1,1,", "[S]\nx=1\ny=1\n\n"},
      {write, x, "a+S.x=2 b? b>S.x a( a( a+S.y=3 a-S.x a) a. b? a) a. b?", "1,2,0,0,1,1,", "[S]\ny=3\n\n"},
      {write, x, "a) a) a( a+S.x=2 b? a) b?", "0,1,", "[S]\nx=2\n\n"},
      {{sioInstantRead}, x, "b+S.x=2 b. a>S.x a( b+S.x=3 b. a( a>S.x a) a) a>S.x", "1,2,1,2,3,", "[S]\nx=3\n\n"},
      {memorize, x, "a>S.x=d a[ a[ a] a+T.w=5 a+T.w=6 a>s.X=e a>T.w=e a>U.n=1 a>U.n=2 a] a>S.x=e", "1,d,5,1,1,1,", x},
      {write, x, "a>S.x=d a[ a+T.w=5 a>s.X=e a>T.w=e a>U.n=1 a>U.n=2 a]", "1,e,e,1,2,", x},
      {stamp, "[A]\n[B]\nb=1\n[C]\nc=1\n", "a+A.a=2 a+B.b=1 a!C a-D.x a.", "1,", "[A]\na=2\n" + kUser + "[B]\nb=1\n\n"},
      {stamp, "[A]\n[E]\ne=1\n[B]\nb=1\n[C]\nc=1\n[D]\nd=1\n[G]\ng=1\n",
       "b+G.h=2 b. a+a.a=2 a+A.b=1 a-B.b a!c a!E a+e.q=1 a!D a!G a.", "1,1,",
       "[A]\nb=1\na=2\n" + kUser + "[E]\nq=1\n" + kUser + "[B]\n" + kUser + "[G]\nh=2\n" + kUser},
      {both, x + "[T]\n", "a/ a+N.n=1 a.", "1,", x + kUser + "[T]\n" + kUser + "[N]\nn=1\n" + kUser}};
  for (const auto& [options, start, steps, told, end] : cases) {
    TSharedIni a(Put("f", start), options), b(Dir.Path("f"));
    a.SetUsername(u" meier ");
    TSharedIni* inis[] = {&a, &b};
    EXPECT_EQ(Do(inis, steps), told) << steps;
    EXPECT_EQ(Get("f"), end) << steps;
    EXPECT_EQ((TFacts{a.Store(), a.Modified()}), "yes no") << steps;
    EXPECT_EQ(a.GetLoaded(), VxFileLastWrite(a.GetFileName(), false)) << steps;
    EXPECT_EQ(Lines(a), Lines(TSharedIni(a.GetFileName()))) << steps;
    EXPECT_EQ(a.DefaultSectionExists(u"u"), options == memorize);
  }
  TSharedIni ini(Put("f", "[A]\n" + kUser), stamp), other(Dir.Path("f"));
  Clock.Advance(3600000);
  EXPECT_EQ(ini.ReadSectionStamp(u"A"), u"Letzte Bearbeitung: 9.12.2025, 7:00, meier");
  EXPECT_EQ(ini.ReadSectionStamp(u"B") + other.ReadSectionStamp(u"A"), u"Letzte Bearbeitung: 9.12.2025, 8:00, ");
}

TEST_F(SharedIni, RetriesAndTells) {
  const String path = Put("f", "[S]\nx=1\n");
  const std::string p = path.ToUtf8();
  TSharedIni a(path), none{String()}, below(Dir.Path("d/e/f")), directory(Dir.Path("d"));
  TSharedIni* inis[] = {&a, &none, &below, &directory};
  EXPECT_EQ(Do(inis, "b+S.k=v b. c. c+S.k=v c. d+S.k=v a+S.y=2"), "0,1,1,");
  EXPECT_TRUE(none.Modified());
  EXPECT_EQ(Get("d/e/f"), "[S]\nk=v\n\n");
  EXPECT_EQ(Told(), TTexts());
  a.SetTimeOut(50);
  const auto failed = [&](size_t times, const std::string& sender, const std::string& word, const String& why) {
    TTexts result(times, "L " + sender + kNot + word + " werden! " + why.ToUtf8());
    return result.push_back("W " + sender + kNot + "erstellt/geöffnet werden! " + p), result;
  };
  {
    const TFileStream held(path, fmOpenReadWrite | fmShareExclusive);
    const String why = test::RaisedBy<EFOpenError>([&] { TFileStream(path, fmOpenRead | fmShareDenyWrite); });
    const TSharedIni shut(path);
    EXPECT_EQ((TFacts{shut.GetLoaded(), Lines(shut), Clock.GetSleeps(), Clock.Ticks()}), "0  101 1010");
    EXPECT_EQ(Told(), failed(101, kLoad, "geöffnet", why));
    EXPECT_EQ((TFacts{Do(inis, "a."), Told().size()}), "0, 102") << "the fresh copy has a patience of its own";
    EXPECT_EQ((TFacts{a.Reload(true, false), a.GetLoaded(), a.Modified(), Lines(a)}), "no 0 yes [S]\nx=1\ny=2\n\n");
    EXPECT_EQ(Told(), failed(6, kLoad, "geöffnet", why));
  }
  {
    const TFileStream held(path, fmOpenRead | fmShareDenyNone);
    EXPECT_EQ((TFacts{Do(inis, "a."), a.Modified(), a.GetLoaded()}), "0, yes 0");
    const String whyNot = test::RaisedBy<EFCreateError>([&] { TFileStream(path, fmCreate | fmShareExclusive); });
    EXPECT_EQ(Told(), failed(6, "TSharedIni.StoreValues: ", "erstellt", whyNot));
  }
  EXPECT_EQ((TFacts{Do(inis, "d."), directory.Modified(), DirectoryExists(Dir.Path("d")), Told().size()}),
            "0, yes yes 102");
  TFileFaults faults;
  faults.Fail(foCreate, EACCES, 3, 0, "/f");
  EXPECT_EQ((TFacts{Do(inis, "a."), a.Modified(), Told().size(), Get("f")}), "1, no 3 [S]\nx=1\ny=2\n\n");
  faults.LimitSpace(5);
  EXPECT_EQ((TFacts{Do(inis, "a+S.y=3 a."), a.Modified(), Get("f")}), "1, no [S]\nx=1\ny=2\n\n");
  faults.Fail(foRead, EIO);
  EXPECT_EQ((TFacts{Do(inis, "a+S.x=2 a~ a>S.x=-"), a.Modified()}), "1,-, no");
  EXPECT_EQ(Told(),
            (TTexts{"W " + kLoad + kNot + "geschrieben werden! " + p, "W " + kLoad + kNot + "gelesen werden! " + p}));
  TSharedIni(path).SetTransaction(true);
  EXPECT_EQ(Told(),
            TTexts{"L TSharedIni.Destroy: Eine Transaktion auf einer Konfigurationsdatei wurde nicht beendet!" + p});
}

TEST_F(SharedIni, DataFormKeepsAnyText) {
  const TCases<String, String> cases = {
      {u"a\r\nb", u"\"a\"0D0A\"b\""}, {u"\n", u"\"\"0A"},           {u"", u""},
      {u"\"", u"\"\"\"\""},           {u"a\"\x1F", u"\"a\"\"\"1F"}, {u"ä€ ", u"\"ä€ \""}};
  for (const auto& [text, data] : cases)
    EXPECT_EQ(std::pair(IniStrToData(text), IniDataToStr(data)), std::pair(data, text));
  EXPECT_EQ(IniDataToStr(u"0d\"x\"4G\"\"41 \"\"\"b") + IniDataToStr(u"\""), String(1, u'\0') + u"x@A\"b");
  std::mt19937 random(1);
  for (TSharedIni ini{String()}; random() % 300 != 0;) {
    String text;
    while (random() % 12 != 0) text += u"a\"\n\r\0\x1F =ä"[random() % 9];
    ini.WriteData(u"S", u"k", text);
    ASSERT_EQ(std::pair(ini.ReadData(u"S", u"k", u"?"), ini.ReadData(u"S", u"none", text)), std::pair(text, text));
  }
}

TEST_F(SharedIni, RefusesLineBreaksAndTrimsBlanks) {
  TSharedIni ini(Dir.Path("a.ini"));
  const String texts[][3] = {{u"A\n", u"k", u"v"}, {u"A", u"k\r", u"v"}, {u"A", u"k", u"v\r\n[B]"}};
  for (const auto& [section, key, value] : texts) {
    ini.WriteString(section, key, value);
    EXPECT_EQ(Told(), TTexts{"W TSharedIni.WriteString: Ein Wert mit Zeilenumbruch kann nicht in die "
                             "Konfigurationsdatei geschrieben werden! " +
                             Concat({ini.GetFileName(), u": [", section, u"] ", key}).ToUtf8()});
    EXPECT_EQ((TFacts{ini.Modified(), ini.SectionExists(section, true)}), "no no") << value;
  }
  ini.WriteString(u" S ", u" k ", u" v ");
  EXPECT_TRUE(ini.Store());
  EXPECT_EQ(TSharedIni(ini.GetFileName()).ReadString(u"S", u"k", {}), u"v");
}

TEST_F(SharedIni, MirrorsACentralFile) {
  const String local = Put("l", "[S]\nx=1\nold=2\n[E]\n"), central = Put("c", "[S]\nX=1\ny=3\n[T]\nz=4\n");
  TDuplicateIni plain(local, central, {dioSectionStamp, dioInstantWrite});
  EXPECT_EQ((TFacts{plain.GetSourceLoaded(), plain.Download()}), "0 yes");
  EXPECT_EQ(plain.GetSourceLoaded(), VxFileLastWrite(central, false));
  EXPECT_EQ((TFacts{plain.GetSectionStamp(), plain.GetTransaction()}), "yes no");
  EXPECT_EQ(Get("l"), "[S]\nx=1\ny=3\n\n[E]\n\n[T]\nz=4\n\n");
  TDuplicateIni ini(local, central, {dioInstantSourceRead, dioInstantSourceWrite, dioSectionStamp});
  TSharedIni other(central);
  TSharedIni* inis[] = {&ini, &other};
  EXPECT_EQ(Do(inis, "b+S.y=5 b+T.n=6 b. a+S.x=9 a-T.z a. a>S.y a? a>S.y a?"), "1,1,3,1,5,0,");  // merged into both
  EXPECT_EQ(Get("c"), "[S]\nx=9\ny=5\nZeit=07:00\nDatum=09.12.2025\n\n[T]\nn=6\nZeit=07:00\nDatum=09.12.2025\n\n");
  EXPECT_EQ(Get("l"), "[S]\nx=9\ny=5\n" + kStamp + "\n[E]\n\n[T]\n" + kStamp + "n=6\n\n");
  for (bool empty : {false, true}) {  // the central file is made anew
    empty ? (void)Put("c", "") : (void)FileDelete(central);
    EXPECT_FALSE(ini.Reload(false, false));
    EXPECT_EQ(Get("c"), Get("l"));
    EXPECT_EQ(ini.GetSourceLoaded(), VxFileLastWrite(central, false));
    const std::string paths = central.ToUtf8() + "->" + local.ToUtf8();
    EXPECT_EQ(Told(), TTexts{"L " + kLoad + kNot + "heruntergeladen werden! " + paths});
  }
  TDuplicateIni deep(local, Dir.Path("n/c"), {dioInstantSourceRead}), none(Dir.Path("no"), Dir.Path("nc"));
  EXPECT_EQ(Get("n/c"), Get("l"));
  EXPECT_EQ((TFacts{none.Download(), none.Upload()}), "no no");
  EXPECT_TRUE(TDuplicateIni(Put("l", "[S]\nQ=8\n"), central).Upload());
  EXPECT_EQ(Get("c"), "[S]\nQ=8\n\n[E]\n\n[T]\n\n");
}

TEST_F(SharedIni, WhoDoesNotGetItsTurnKeepsItsJournal) {
  for (const char* name : {"f", "none"}) {
    if (*name == 'f') Put(name, "[S]\nx=1\n");
    const std::string before = Get(name);
    TSharedIni a(Dir.Path(name));
    TSharedIni* inis[] = {&a};
    TFileTurn turn;
    ASSERT_TRUE(turn.Take(Dir.Path(name), 0));
    for (uint32_t timeOut : {0, 50}) {
      a.SetTimeOut(timeOut);
      EXPECT_EQ(Do(inis, "a+S.y=2 a."), "0,");
      const std::string path = Dir.Path(name).ToUtf8();
      EXPECT_EQ(Told(), TTexts{"W TSharedIni.StoreValues: " + kNot + "erstellt/geöffnet werden! " + path});
    }
    EXPECT_EQ(Get(name), before);
    turn.Release();
    EXPECT_EQ(Do(inis, "a."), "1,");
    EXPECT_EQ(Get(name), *name == 'f' ? "[S]\nx=1\ny=2\n\n" : "[S]\ny=2\n\n");
  }
}

TEST_F(SharedIni, MergesOnlyIntoWhatItCouldRead) {
  TSharedIni a(Put("f", "[S]\nx=1\n")), b(a.GetFileName());
  TSharedIni* inis[] = {&a, &b};
  {
    TFileFaults faults;
    faults.Fail(foRead, EIO);
    EXPECT_EQ(Do(inis, "a+S.y=2 a."), "0,");
  }
  EXPECT_EQ(Do(inis, "a."), "1,");
  EXPECT_EQ(Get("f"), "[S]\nx=1\ny=2\n\n");
  for (const TEncoding* encoding : {&TEncoding::Utf8(), &TEncoding::Utf16BigEndian()}) {  // it has got a mark meanwhile
    const auto bytes = [&](const String& text) { return std::string(encoding->Mark()) + encoding->Encode(text); };
    test::PutText(b.GetFileName(), bytes(u"[S]\r\nя=Ω\r\n"));
    TSharedIni without(b.GetFileName());
    without.SetEncoding(&TEncoding::Default());
    without.WriteString(u"S", u"n", u"ж");
    EXPECT_TRUE(without.Store());
    EXPECT_EQ(test::GetText(b.GetFileName()), bytes(u"[S]\r\nя=Ω\r\nn=ж\r\n\r\n"));
  }
}

TEST_F(SharedIni, AHandlerThatRaisesDoesNotEndTheProgram) {
  Msg().SetLogInterrupt({[](void*, const TMsgInfo&, int, bool) { throw Exception(u"raised"); }, nullptr});
  TSharedIni(Put("f", "")).SetTransaction(true);
}

TEST_F(SharedIni, ACentralFileThatIsNotThereGetsTheWholeLocalContent) {
  for (bool empty : {false, true}) {
    const String local = Put("l", "[S]\nx=1\n[T]\nz=4\n"), central = Dir.Path("c");
    FileDelete(central);
    TDuplicateIni ini(local, central, {dioInstantSourceWrite});
    if (empty) Put("c", "");
    TSharedIni* inis[] = {&ini};
    TFileTurn turn;
    ASSERT_TRUE(turn.Take(central, 0));
    EXPECT_EQ(Do(inis, "a+S.y=2 a."), "0,");
    EXPECT_EQ(Get("c") + Get("l"), std::string(empty ? "" : "<none>") + "[S]\nx=1\ny=2\n\n[T]\nz=4\n\n");
    turn.Release();
    EXPECT_EQ(Do(inis, "a."), "1,") << "what did not reach the central file stays in the journal";
    EXPECT_EQ(Get("c"), Get("l"));
    EXPECT_FALSE(ini.Modified());
  }
}

// Replays a journal on maps: no text is a deleted key, and an empty key an erased section.
using TJournal = std::map<std::pair<String, String>, std::optional<String>>;
TContent Replayed(TContent file, const TJournal& journal) {
  for (const auto& [place, value] : journal) {
    if (value)
      file[place.first][place.second] = *value;
    else if (file.contains(place.first))
      file[place.first].erase(place.second);
  }
  for (const auto& [place, value] : journal) {
    if (place.second.empty() && file.contains(place.first) && file[place.first].empty()) file.erase(place.first);
  }
  return file;
}

TEST_F(SharedIni, TypedKeysMeanTheSameWhateverTheSettings) {
  TFormatSettings settings = GetFormatSettings();
  settings.DecimalSeparator = u'.';
  settings.ThousandSeparator = u',';
  settings.DateSeparator = u'/';
  settings.ShortDateFormat = u"m/d/yyyy";
  const TFormatSettings foreign = std::exchange(settings, GetFormatSettings());
  SetFormatSettings(foreign);
  TSharedIni ini(Dir.Path("typed"));
  ini.WriteMoney(u"M", u"least", Currency::FromUnits(INT64_MIN));
  ini.WriteMoney(u"M", u"cent", Currency::FromUnits(-100));
  ini.WriteMoney(u"M", u"part", Currency::FromUnits(12345678));
  ini.WriteHours(u"H", u"minus", THourAmount::Of(-6, -45));
  ini.WriteDay(u"D", u"day", EncodeDate(2026, 2, 3));
  ini.WriteDay(u"D", u"first", EncodeDate(1, 1, 1));
  ini.WriteDay(u"D", u"none", 0);
  EXPECT_TRUE(Told().empty());
  for (TDateTime none : {0.5, 1e9, std::nan("")}) ini.WriteDay(u"D", u"day", none);
  EXPECT_EQ(Told().size(), 3U);
  EXPECT_EQ(Lines(ini),
            "[M]\nleast=-922337203685477,5808\ncent=-0,01\npart=1234,5678\n\n[H]\nminus=-6:45\n\n"
            "[D]\nday=03.02.2026\nfirst=01.01.0001\nnone=\n\n");
  EXPECT_EQ(ini.ReadMoney(u"M", u"least", 1).Units, INT64_MIN);
  EXPECT_EQ(ini.ReadHours(u"H", u"minus", {}).Minutes, -405);
  EXPECT_EQ((TFacts{ini.ReadDay(u"D", u"day", 7), ini.ReadDay(u"D", u"first", 7), ini.ReadDay(u"D", u"none", 7),
                    ini.ReadDay(u"D", u"missing", 7), ini.ReadMoney(u"H", u"minus", 5).Units}),
            "46056 -693593 7 7 50000");
  for (const auto& [text, told] :
       TCases<String, std::string>{{u"3.2.2026", "46056"},
                                   {u"2026-02-03", "46056"},
                                   {u"", "leer"},
                                   {u"3.2.26", "kein vierstelliges Jahr an Position 5"},
                                   {u"31.02.2026", "diesen Tag gibt es nicht an Position 1"},
                                   {u"2026-2-3", "unerwartetes Zeichen an Position 7"},
                                   {u"3/2/2026", "unerwartetes Zeichen an Position 2"},
                                   {u"03.02.2026 7:00", "unerwartetes Zeichen an Position 11"}}) {
    ini.WriteString(u"D", u"day", text);
    const TIniValue<TDateTime> day = ini.CheckDay(u"D", u"day");
    EXPECT_EQ(day ? (std::ostringstream() << day.Value).str() : day.GetText().ToUtf8(), told) << text;
  }
  EXPECT_EQ(ini.CheckMoney(u"M", u"x").GetText() + ini.CheckHours(u"H", u"minus").GetText(), u"nicht vorhanden");
  SetFormatSettings(settings);
}

TEST_F(SharedIni, Utf8WithoutAMarkIsReadIfAskedFor) {
  for (const auto& [text, value, stored] : TCases<std::string, String, std::string>{
           {"[A]\nx=\xC3\xA4\n", u"ä", "[A]\nx=\xC3\xA4\ny=\xC3\x9F\n\n"},
           {"[A]\nx=\xE4\n", u"ä", "[A]\nx=\xE4\ny=\xDF\n\n"},
           {"[A]\nx=a\n", u"a", "[A]\nx=a\ny=\xC3\x9F\n\n"},
           {"\xEF\xBB\xBF[A]\nx=a\n", u"a", "\xEF\xBB\xBF[A]\nx=a\ny=\xC3\x9F\n\n"}}) {
    TSharedIni ini(Put("f", text), {sioUtf8});
    ini.WriteString(u"A", u"y", u"ß");
    EXPECT_EQ(ini.ReadString(u"A", u"x", u""), value);
    EXPECT_TRUE(ini.Store());
    EXPECT_EQ(Get("f"), stored);
  }
  TSharedIni made(Dir.Path("new"), {sioUtf8}), old(Put("old", "[A]\nx=\xC3\xA4\n"));
  made.WriteString(u"A", u"x", u"ä");
  EXPECT_TRUE(made.Store());
  EXPECT_EQ(Get("new") + Get("old"), "[A]\nx=\xC3\xA4\n\n[A]\nx=\xC3\xA4\n");
  EXPECT_EQ(old.ReadString(u"A", u"x", u""), u"Ã¤");  // the code page, unless told
}

TEST_F(SharedIni, ChangesOneKeyAsItStandsInTheFile) {
  const auto addOne = [](String& text) { return text = IntToStr(StrToIntDef(text, 0) + 1), true; };
  TSharedIni a(Put("f", "[N]\nn=4\n")), b(a.GetFileName());
  a.WriteString(u"N", u"other", u"1");
  EXPECT_EQ((TFacts{b.Change(u"N", u"n", addOne), a.Change(u"n", u"N", addOne), a.ReadString(u"N", u"n", u"")}),
            "0 0 6");
  EXPECT_EQ(Get("f"), "[N]\nN=6\n\n");  // the other key waits
  a.WriteString(u"N", u"n", u"20");
  EXPECT_EQ((TFacts{a.Change(u"N", u"n", addOne), b.Change(u"N", u"m", [](String&) { return false; }), a.Store()}),
            "0 1 yes");
  EXPECT_EQ(Get("f"), "[N]\nn=21\nother=1\n\n");
  EXPECT_TRUE(Told().empty());
  const auto raise = [](String&) -> bool { throw Exception(u"no"); };
  EXPECT_THROW((void)a.Change(u"N", u"n", raise), Exception);
  TFileFaults faults;
  faults.LimitSpace(3);
  EXPECT_EQ(a.Change(u"N", u"n", addOne), icNotStored);
  faults.LimitSpace(1 << 20);
  EXPECT_EQ(a.Change(u"N", u"n", [](String& text) { return text = u"a\nb", true; }), icNotStored);
  EXPECT_EQ(Told().size(), 2U);
  EXPECT_EQ(Get("f"), "[N]\nn=21\nother=1\n\n");
  TSharedIni reading(a.GetFileName(), {sioReadOnly}), gone(Dir.Path("gone"));
  gone.WriteString(u"N", u"waits", u"1");
  EXPECT_EQ((TFacts{reading.Change(u"N", u"n", addOne), gone.Change(u"N", u"n", addOne)}), "2 0");
  EXPECT_EQ(Get("gone"), "[N]\nwaits=1\nn=1\n\n");
  TDuplicateIni mirror(Dir.Path("local"), a.GetFileName(), {dioInstantSourceRead, dioInstantSourceWrite});
  EXPECT_EQ(
      (TFacts{a.Change(u"N", u"n", addOne), mirror.Change(u"N", u"n", addOne), mirror.ReadString(u"N", u"n", u"")}),
      "0 0 23");
  EXPECT_EQ(Get("f") + Get("local"), "[N]\nn=23\nother=1\n\n[N]\nn=23\nother=1\n\n");
}

TEST(SharedIniProcesses, LoseNoIncrementNotEvenWhenKilled) {
  const test::TTempDir dir;
  const String path = dir.Path("count.ini");
  std::vector<pid_t> children;
  for (int child = 0; child < 4; ++child) {
    children.push_back(::fork());
    if (children.back() != 0) continue;
    Msg().SetLogInterrupt({[](void*, const TMsgInfo&, int, bool) {}, nullptr});
    Msg().SetMsgInterrupt({[](void*, const TMsgInfo&, TMsgList&, bool) {}, nullptr});
    TSharedIni ini(path);
    for (int n = 0; n < 30;) {
      const bool isLast = child == 3 && n == 14;
      n += ini.Change(u"N", u"n", [&](String& text) {
        if (isLast) ::raise(SIGKILL);
        return text = IntToStr(StrToIntDef(text, 0) + 1), true;
      }) == icStored;
    }
    ::_exit(0);
  }
  for (pid_t child : children) ::waitpid(child, nullptr, 0);
  EXPECT_EQ(TSharedIni(path).ReadString(u"N", u"n", u""), u"104");
}

TEST_F(SharedIni, RandomStepsGoAsOnMaps) {
  std::mt19937 random(1);
  TContent file{{u"A", {{u"X", u"1"}}}, {u"B", {}}};
  TSharedIni a(Put("f", "[A]\nx=1\n[B]\n")), b(a.GetFileName()), c(a.GetFileName());
  TSharedIni* inis[] = {&a, &b, &c};
  struct {
    TContent Memory;
    int Loaded = 1;
    TJournal Journal{};
  } models[] = {{file}, {file}, {file}};
  int written = 1, version = 1;  // of the file; 0: there is none
  for (int round = 0; round < 1500; ++round) {
    const auto pick = [&](const char* from, unsigned count) { return std::string(1, from[random() % count]); };
    const std::string who = pick("abc", 3), section = pick("AbC", 3), key = pick("xYz", 3), value = pick("123", 3);
    const std::string kind = pick("+++++++++++++++----!!!!???~....../", 34),
                      step = who + kind + section + "." + key + "=" + value;
    const std::string told = Do(inis, step);
    auto& [memory, loaded, journal] = models[who[0] - 'a'];
    const String s = UpperCase(String::FromUtf8(section)), k = UpperCase(String::FromUtf8(key));
    const bool isMerging = kind == "." && !journal.empty(), isLoading = kind == "." || kind == "?" || kind == "~";
    if (kind == "+") journal[{s, k}] = memory[s][k] = String::FromUtf8(value);
    if (kind == "-") journal[{s, k}] = {}, memory.contains(s) && memory[s].erase(k);
    if (kind == "/") file = {}, version = 0;
    if (kind == "!") {
      for (const auto& entry : memory[s]) journal[{s, entry.first}] = {};
      journal[{s, u""}] = {}, memory.erase(s);
    }
    if (isMerging) {
      const TContent after = version == 0 ? memory : Replayed(file, journal);
      if (version == 0 || after != file) version = ++written;
      file = memory = after, journal.clear(), loaded = version;
    }
    const bool isDue = loaded != version || kind == "~";
    ASSERT_EQ(told, !isLoading ? "" : kind == "." || (isDue && version != 0) ? "1," : "0,") << round;
    if (isLoading && isDue) memory = file, loaded = version;
    if (kind == "~") journal.clear();
    ASSERT_EQ(Content(TSharedIni(a.GetFileName())), file) << round;
    ASSERT_EQ(Content(*inis[who[0] - 'a']), memory) << round;
    ASSERT_EQ(inis[who[0] - 'a']->Modified(), !journal.empty()) << round;
  }
}

}  // namespace
