#include "tools/vxtab/Vxtab.h"

#include "platform/Drawing.h"
#include "tests/support/Test.h"
#include "tools/vxtab/Painting.h"
#include "tools/vxtab/SheetCells.h"
#include "tools/vxtab/Show.h"

// What fontconfig keeps of the patterns that it was asked for.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

namespace {

namespace fs = std::filesystem;
struct TResult {
  int Status;
  std::string Out, Err;
};

struct VxtabTest : testing::Test {
  // Words parted by blanks: "@name" stands for a file of the test's directory, "~" for a blank.
  TResult Run(const std::string& Line, const std::string& Input = {}, int Width = 0) {
    std::vector<std::string> words;
    std::istringstream line(Line + (Line.ends_with(' ') ? " " : "")), in(Input);
    for (std::string word; std::getline(line, word, ' '); words.push_back(word)) {
      std::replace(word.begin(), word.end(), '~', ' ');
      if (word.starts_with('@')) word = Native(word.substr(1));
    }
    std::ostringstream out, err;
    int status = vxtab::RunVxtab(words, in, out, err, {Width, false});
    return {status, out.str(), err.str()};
  }
  std::string Out(const std::string& Line, const std::string& Input = {}) {
    TResult result = Run(Line, Input);
    EXPECT_EQ(std::to_string(result.Status) + result.Err, "0") << Line;
    return result.Out;
  }
  // Runs what ends with a status and an error in which a part stands.
  TResult Tells(const std::string& Line, int Status, const std::string& Part) {
    TResult result = Run(Line);
    EXPECT_EQ(result.Status, Status) << Line;
    EXPECT_NE(result.Err.find(Part), std::string::npos) << Line << ": " << result.Err;
    return result;
  }
  void Put(const std::string& Name, const std::string& Bytes) { test::PutText(FDir.Path(Name), Bytes); }
  std::string Get(const std::string& Name) { return test::GetText(FDir.Path(Name)); }
  std::string Native(const std::string& Name) const { return FDir.GetPath() + "/" + Name; }
  int Entries() const { return static_cast<int>(std::distance(fs::directory_iterator(FDir.GetPath()), {})); }

  vx::test::TTempDir FDir;
};

std::string Bytes(std::u16string_view Text, bool LittleEndFirst) {
  std::string result;
  for (char16_t unit : Text) {
    const char bytes[] = {static_cast<char>(unit & 255), static_cast<char>(unit >> 8)};
    result += {bytes[!LittleEndFirst], bytes[LittleEndFirst]};
  }
  return result;
}

TEST_F(VxtabTest, ForeignReadingFollowsOnlySeparatorsLineEndsAndQuotes) {
  const TCases<const char*, std::string, std::string> cases = {
      {"blanks stay", "a b, c ,\td\n", R"(["a b", " c ", "\td"])"},
      {"empty cells and lines", ",\r\n\r\na,,\n\n", "[\"\", \"\"]\n[]\n[\"a\", \"\", \"\"]\n[]"},
      {"all line ends", "a,1\rb,2\r\nc,3\nd,4", "[\"a\", \"1\"]\n[\"b\", \"2\"]\n[\"c\", \"3\"]\n[\"d\", \"4\"]"},
      {"last line of one character", "a,b\nc", "[\"a\", \"b\"]\n[\"c\"]"},
      {"final separator without line end", "a,", R"(["a", ""])"},
      {"quotes", "\"a,\"\"b\"\"\r\nc\",\"\"\n", R"(["a,\"b\"\r\nc", ""])"},
      {"text behind a closing quote", "\"a\"b\"c\",d\n", R"(["ab\"c\"", "d"])"},
      {"quote inside a cell", "5\" pipe, \"x\",y\n", R"(["5\" pipe", " \"x\"", "y"])"},
      {"quote never closed", "a,\"b\nc,d\n", R"(["a", "b\nc,d\n"])"},
      {"quote never closed, pair at the end", "a,\"b\"\"", R"(["a", "b\""])"},
      {"one quote", "a,\"", R"(["a", ""])"},
      {"UTF-8", "Ä,\xF0\x9F\x98\x80\n", R"(["Ä", "😀"])"},
      {"UTF-8 with a mark", "\xEF\xBB\xBFx,y\n", R"(["x", "y"])"},
      {"UTF-16 with a mark", "\xFF\xFE" + Bytes(u"Ł,b\r\n", true), R"(["Ł", "b"])"},
      {"UTF-16, big end first", "\xFE\xFF" + Bytes(u"Ł,b\n", false), R"(["Ł", "b"])"},
      {"UTF-16 without a mark", Bytes(u"abc,ä\n", true), R"(["abc", "ä"])"},
      {"UTF-16 without a mark, big end first", Bytes(u"abc,ä\n", false), R"(["abc", "ä"])"},
      {"lone surrogates", "\xFF\xFE" + Bytes(u"\xD800,\xDC00\n", true), R"(["\ud800", "\udc00"])"},
      {"code page", "\xC4,\x80\n", R"(["Ä", "€"])"},
      {"UTF-8 of surrogates is none", "\xED\xA0\x80,x\n", "[\"í\xC2\xA0€\", \"x\"]"},
      {"cut UTF-8 is none", "a,\xE2\x82", R"(["a", "â‚"])"},
      {"control characters", std::string("a\0b,\x1F\n", 6), R"(["a\u0000b", "\u001f"])"}};
  for (const auto& [name, bytes, dump] : cases) {
    Put("f", bytes);
    EXPECT_EQ(Run("dump --foreign --separator comma @f").Out, dump + "\n") << name;
    EXPECT_EQ(Run("dump --foreign --separator=, -", bytes).Out, dump + "\n") << name;
  }
}

TEST_F(VxtabTest, ConvertedForeignTablesReadBackOrTheNoteSaysWhere) {
  const TCases<const char*, std::string, std::string, std::string> cases = {
      {"blanks, quotes, breaks as .csv", "Max Meier,\"a \"\"b\"\"\r\nc\",,\n,\"x,y;z\",ß,€\n", ".csv", ""},
      {"the same as .txt", "Max;Meier;\"a \"\"b\"\"\r\nc\";;\n;\"x,y;z\";ß;€\n", ".txt", ""},
      {"as .vxt", "Max Meier,b c\nä,ö\n", ".vxt", ""},
      {"empty cell", "a,b\na,,c\n", ".tab", "column 1 of row 1 is 'c' instead of ''"},
      {"empty row", "a,b\n\"\"\n", ".txt", "row 1 has 0 cells instead of 1"},
      {"outside the code page", "a,Łódź\n", ".csv", "column 1 of row 0 is '?ód?' instead of 'Łódź'"},
      {"no separator in the first line", "Titel\na,b\n", ".txt", "column 0 of row 1 is 'a;b' instead of 'a'"},
      {"no extension", "a b,c\n", "", "column 0 of row 0 is 'a' instead of 'a b'"},
      {"a cell with code unit 0", std::string("a,b\0c\n", 6), ".csv", "column 1 of row 0 is 'b"}};
  for (const auto& [name, bytes, extension, note] : cases) {
    SCOPED_TRACE(name);
    Put("in", bytes);
    const TResult result = Tells("convert --foreign @in @out" + extension, 0, note);
    EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), note.empty() ? 0 : 1);
    EXPECT_EQ(result.Err.starts_with("note: " + Native("out" + extension)), !note.empty()) << result.Err;
    const std::string own = Out("dump @out" + extension), foreign = Out("dump --foreign @in");
    EXPECT_EQ(note.empty() ? own : foreign, foreign);
    fs::remove(Native("out" + extension));
    EXPECT_EQ(Entries(), 1);
  }
}

TEST_F(VxtabTest, ConvertsToTheFormsOfOtherPrograms) {
  Put("in", "Name;Ort\nŁukasz B;\"a;b\"\n\"x\ny\";\n");
  for (const auto& [line, bytes, note] : TCases<std::string, std::string, std::string>{
           {"o.tsv", "\xEF\xBB\xBFName\tOrt\r\nŁukasz B\ta;b\r\n\"x\ny\"\t\r\n", ""},
           {"o.txt --to-encoding utf-8-plain", "Name;Ort\r\nŁukasz B;\"a;b\"\r\n\"x\ny\";\r\n", ""},
           {"o.csv --to-separator ä --to-encoding codepage", "Name\xE4Ort\r\n?ukasz B\344a;b\r\n\"x\ny\"\xE4\r\n",
            "1 cells can't be written in this form, first column 0 of row 1, 'Łukasz B'"},
           {"o.jsonl", "{\"Name\": \"Łukasz B\", \"Ort\": \"a;b\"}\n{\"Name\": \"x\\ny\", \"Ort\": \"\"}\n", ""},
           {"o.md", "| Name | Ort |\n| --- | --- |\n| Łukasz B | a;b |\n| x<br>y |  |\n", ""},
       }) {
    const TResult result = Tells("convert --foreign @in @" + line, 0, note);
    EXPECT_EQ((TFacts{result.Err.empty(), Get(line.substr(0, line.find(' ')))}),
              (note.empty() ? "yes " : "no ") + bytes);
  }
  Put("in", "a;\"b\nc\"d\n\"e");
  Tells("dump --foreign @in", 0, "in, line 2, column 3: text stands behind a closing quote; so in 2 places\n");
  Put("in", "f\x81r;Gr\x94\341e\n");
  EXPECT_NE(Out("info --foreign @in").find("encoding: code page 850\n"), std::string::npos);
  EXPECT_EQ(Out("dump --foreign --codepage 1252 @in"), "[\"f\xC2\x81r\", \"Gr”áe\"]\n");
  EXPECT_EQ(Out("dump --foreign --encoding utf-16 --separator , -", Bytes(u"ä,b", true)), "[\"ä\", \"b\"]\n");
}

TEST_F(VxtabTest, SpreadsheetsAreReadAndWritten) {
  using namespace vxtab;
  for (const auto& [code, format] : TCases<std::string, TSheetFormat>{{"dd\\.mm\\.yyyy", sfDate},
                                                                      {"[$-407]d. mmm yy hh:mm", sfMoment},
                                                                      {"h:mm", sfTime},
                                                                      {"[h]:mm", sfHours},
                                                                      {"0.00 \"Stunden d\"", sfNumber},
                                                                      {"#,##0.00\\ [$€-407]", sfNumber}})
    EXPECT_EQ(FormatOfCode(code), format) << code;
  for (const auto& [value, format, text] :
       TCases<double, TSheetFormat, String>{{5.1875, sfHours, u"124:30"},
                                            {-0.5, sfHours, u"-12:00"},
                                            {46380.99999999, sfMoment, u"25.12.2026 00:00:00"},
                                            {-1, sfDate, u"-1"},
                                            {1.25, sfTime, u"31.12.1899 06:00:00"},
                                            {0.1 + 0.2, sfNumber, u"0,3"}})
    EXPECT_EQ(TextOfValue(value, format), text);
  for (const char16_t* text :
       {u"007", u"1e5", u"60.01.2020", u"01.01.1900", u"1.234,50", u"-0", u"12345678901234567", u""})
    EXPECT_FALSE(ValueOfText(text)) << String(text);
  Put("in.csv", "PLZ,Tag,Betrag,x\r\n01067,24.12.2026,\"-1234,5\",\"a\nb \"\r\n\x80,,,\x02_x0041_\r\n");
  const TResult written = Run("convert @in.csv @out.xlsx");
  if (written.Err.find("was built without spreadsheet files") != std::string::npos) GTEST_SKIP() << "no spreadsheets";
  EXPECT_EQ((TFacts{written.Status, written.Err}), "0 ");
  EXPECT_EQ(Out("dump @out.xlsx"), Out("dump @in.csv"));
  Put("in.csv", "a,b\r\nc,\r\n,\r\n");
  Tells("convert @in.csv @out.xlsx", 0, "read again, row 2 has 0 cells instead of 2");

  const std::string cells = std::string(" ") + VX_TEST_DATA + "/cells";
  EXPECT_EQ(Run("dump" + cells + ".xlsx").Out,
            "[\"shared\", \"rich text\", \" lead\\u0001 \", \"inline\", \"1\", \"#DIV/0!\", \"\", \"\"]\n"
            "[\"\", \"\", \"\", \"\", \"\", \"\", \"\", \"\"]\n"
            "[\"24.12.2026\", \"24.12.2026 13:45:00\", \"06:00:00\", \"3,5\", \"formtext\", \"\", \"0\", \"1E21\"]\n");
  EXPECT_EQ(Run("dump" + cells + ".ods").Out,
            "[\"Łukasz\\nzwei\", \"12,5\", \"24.12.2026\", \"24.12.2026 13:45:00\", \"13:45:00\", \"1\", \"0,19\", "
            "\"25,01\"]\n" +
                std::string("[\"\", \"r\", \"r\", \"r\", \"\", \"\", \"\", \"\"]\n") +
                "[\"\", \"r\", \"r\", \"r\", \"\", \"\", \"\", \"\"]\n");
  Tells("dump" + cells + ".ods", 0, "the first sheet is read; take others with --sheet: Zwei\n");
  EXPECT_EQ(Out("dump --sheet 2" + cells + ".ods") + Out("dump --sheet Zwei" + cells + ".xlsx"),
            "[\"B\"]\n[\"no refs\", \"-5\"]\n");
  Tells("dump --sheet Drei" + cells + ".xlsx", 1, "there is no sheet 'Drei'; there are Eins, Zwei");
  Put("j.xlsx", "PK");
  Tells("dump @j.xlsx", 1, "j.xlsx: is no spreadsheet file that can be read");
}

TEST_F(VxtabTest, FailuresTellWhatAndWhereAndWriteNothing) {
  Put("in.csv", "a,b\r\nc,d\r\n"), Put("old.csv", "old"), Put("fixed.csv", "fixed");
  fs::permissions(Native("fixed.csv"), fs::perms::owner_read);
  fs::create_directory(Native("dir.csv"));
  const TCases<std::string, int, std::string> cases = {
      {"info @none.csv", 1, "ist nicht vorhanden,\nkann also nicht geladen werden.\n"},
      {"info @dir.csv", 1, "dir.csv: is a directory"},
      {"convert @none.csv @new.xls", 1, "new.xls: unknown extension '.xls'; known are .csv"},
      {"turn @in.csv @fixed.csv", 1, "fixed.csv: is read-only"},
      {"convert @in.csv @none/new.csv", 1, "none/new.csv: can't make a file"},
      {"convert @in.csv /dev/full", 1, "/dev/full: can't be written"},
      {"set @in.csv @old.csv --cell 0,0=x --cell 2,1=x", 1, "there is no cell 2,1"},
      {"set @in.csv @old.csv --cell 0;0=x", 2, "not of the form COL,ROW=TEXT"},
      {"set @in.csv @old.csv", 2, "--cell COL,ROW=TEXT is missing"},
      {"clean @in.csv @old.csv", 2, "nothing to clean"},
      {"convert @in.csv", 2, "OUT is missing"},
      {"convert @in.csv -", 2, "'-' can't be written to"},
      {"info @in.csv @old.csv", 2, "old.csv' is too much"},
      {"info ", 2, "FILE is empty"},
      {"show @in.csv --rows", 2, "option --rows needs a value"},
      {"show @in.csv --rows=-1", 2, "not a number from 0 on"},
      {"show @in.csv --cols 3-1", 2, "not a list like 0,2-4"},
      {"show @in.csv --cols 0-2000000000", 2, "too many"},
      {"info --codepage 99 @in.csv", 2, "unknown code page 99"},
      {"info --separator tab @in.csv", 2, "goes with --foreign only"},
      {"info --foreign --encoding utf-7 @in.csv", 2, "known are utf-8, utf-8-plain, utf-16, utf-16be, codepage"},
      {"convert @in.csv @old.csv --to-separator ab", 2, "--to-separator ab: neither comma"},
      {"sum @in.csv --col 2 --type hour", 1, "row 0 has no column 2"},
      {"sum @in.csv --col 1 --type hour --to 2", 1, "there is no row 2"},
      {"sum @in.csv --col 1 --type string", 2, "--type string: not a type for this command; known are Integer (Zahl)"},
      {"sum @in.csv --type hour", 2, "--col N is missing"},
      {"melt", 2, "unknown command melt"},
      {"get @in.csv a=c x", 1, "in.csv: row 0 has no column named 'x'"},
      {"get @in.csv a=C b", 1, "in.csv: no row has exactly 'C' in the column 'a'; row 1 has 'c'"},
      {"get @in.csv a=a b", 1, "no row has exactly 'a' in the column 'a'\n"},
      {"get - a=a b", 1, "-: row 0 has no column named 'a'"},
      {"get @in.csv a b", 2, "'a' is not of the form KEYNAME=VALUE"},
      {"sort @in.csv @old.csv", 2, "--by NAME is missing"},
      {"sort @in.csv @old.csv --by a --stable-with y", 1, "no column named 'y'"},
      {"sort @in.csv @old.csv --by a --type Bild", 2, "Date (Datum), Time (Zeit)"},
      {"sort @in.csv @old.csv --by a --format yyyy", 2, "--format goes with"},
      {"merge @in.csv @fixed.csv --key a @old.csv", 1, "fixed.csv: row 0 has no column named 'a'"},
      {"merge @fixed.csv @in.csv @old.csv --key=a", 1, "fixed.csv: row 0 has no column named 'a'"},
      {"merge - - @old.csv --key a", 2, "only one of INTO and FROM can be '-'"},
      {"select @in.csv @old.csv --where a =", 2, "--where needs all of NAME CLAUSE VALUE"},
      {"select @in.csv @old.csv --where x = 1", 1, "in.csv: row 0 has no column named 'x'"},
      {"select @in.csv @old.csv --where a == 1", 2, "known are v (enthält), # (enthält nicht)"},
      {"select @in.csv @old.csv --where a < bald --type=Datum", 2, "'bald' is not of the type"},
      {"ini @none.ini @old.csv", 1, "none.ini"},
      {"vocab Farben", 1, "there is no vocabulary 'Farben'"},
      {"--foreign info", 2, "the command has to come first"},
      {"", 2, "a command is missing"}};
  for (const auto& [line, status, told] : cases) {
    const TResult result = Tells(line, status, told);
    EXPECT_EQ(result.Err.find("Try: vxtab --help") != std::string::npos, status == 2) << result.Err;
    EXPECT_EQ((TFacts{result.Out, Get("old.csv"), Entries()}), " old 4") << line;
  }
  EXPECT_EQ(GetSystemCodePage().GetNumber(), 1252);
}

TEST_F(VxtabTest, FaultsOfTheDiskLeaveTheOldFileAndNothingBeside) {
  const std::string old = "a,b\r\nc,d\r\n";
  Put("t.csv", old);
  for (TFileOperation operation : {foCreate, foWrite, foFlush, foRename}) {
    TFileFaults faults;
    faults.Fail(operation, ENOSPC, 100);
    Tells("set @t.csv @t.csv --cell 0,0=new", 1, "t.csv");
    EXPECT_EQ(Get("t.csv"), old) << operation;
    EXPECT_EQ(Entries(), 1) << operation;
  }
  TFileFaults faults;
  faults.LimitSpace(5);
  EXPECT_EQ((TFacts{Run("convert @t.csv @t.txt").Status, Entries()}), "1 1");
}

TEST_F(VxtabTest, SavesThroughLinks) {
  Put("real.csv", "a,b\r\nc,d\r\n");
  fs::create_symlink("real.csv", Native("link.csv"));
  Out("set @link.csv @link.csv --cell 1,0=x=1,~\"ü\" --cell=0,1=");
  EXPECT_TRUE(fs::is_symlink(Native("link.csv")));
  EXPECT_EQ(Get("real.csv"), "a,\"x=1, \"\"\xFC\"\"\"\r\n,d\r\n");
}

TEST_F(VxtabTest, InfoNamesSixValuesAndSaysWhenAFileLooksForeign) {
  const TCases<const char*, std::string, std::string, std::string> cases = {
      {"own", "a;\"b c\"\r\n\r\nd;\"\xFC\";\r\n",
       "separator: semicolon\nrows: 3\ncolumns: 0..3\nbytes: 19\ncells: 5\nlongest cell: 3\n", ""},
      {"empty", "", "separator: comma\nrows: 0\ncolumns: 0..0\nbytes: 0\ncells: 0\nlongest cell: 0\n", ""},
      {"blanks", "a,b\n\nc d,e\n", "rows: 2", "row 1 would have 2 cells instead of 3"},
      {"last line of one character", "a,b\r\nc", "rows: 1", "it would have more rows than the 1 read now"},
      {"UTF-8", "\xC3\x84,b\n", "rows: 1", "it looks like UTF-8\n"},
      {"UTF-16", Bytes(u"abc\tdef\n", true), "separator: tab", "UTF-16, little end first"}};
  for (const auto& [name, bytes, out, hint] : cases) {
    SCOPED_TRACE(name);
    Put("f.csv", bytes);
    const TResult result = Tells("info @f.csv", 0, hint);
    EXPECT_EQ(result.Out.substr(result.Out.find(out), hint.empty() ? 999 : out.size()), out);
    EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), hint.empty() ? 0 : 1);
    EXPECT_EQ(result.Err.find("--foreign") != std::string::npos, !hint.empty());
  }
  Put("f.csv", "\xC3\x84;b\n");
  EXPECT_NE(Out("info --foreign @f.csv").find("\nencoding: UTF-8\n"), std::string::npos);
  EXPECT_EQ(Out("dump --codepage 850 -", "a,\x9C\n"), "[\"a\", \"£\"]\n");
}

TEST_F(VxtabTest, ShowAlignsByWhatIsSeenAndKeepsToTheWidth) {
  Put("t.csv", "日本,a\xCC\x88,\"x\ny\"\nb,\xE2\x80\xAE,\n1,2,3,4\n");
  EXPECT_EQ(Out("show --foreign @t.csv"),
            "  | 0    | 1      | 2   | 3\n--+------+--------+-----+--\n"
            "0 | 日本 | a\xCC\x88      | x␊y\n1 | b    | ‹202E› | \n2 | 1    | 2      | 3   | 4\n");
  EXPECT_EQ(Out("show --foreign @t.csv --cols 3,0 --from 1 --rows 1"),
            "  | 3 | 0\n--+---+--\n1 |   | b\n(1 of 3 rows, 2 of 2 columns)\n");
  for (int width = 8; width < 40; ++width) {
    std::istringstream lines(Run("show --foreign @t.csv", {}, width).Out);
    for (std::string line; std::getline(lines, line) && !line.starts_with('(');) {
      int seen;
      vxtab::VisibleText(String::FromUtf8(line), 1000, seen);
      EXPECT_LE(seen, width) << line;
    }
  }
  int width;
  const TCases<String, int, std::string> cases = {
      {u"abcdef", 6, "abcdef 6"}, {u"日本語", 4, "日… 3"}, {u"a\x1B\x7F\x85", 20, "a␛␡‹85› 7"}};
  for (const auto& [text, limit, seen] : cases)
    EXPECT_EQ((TFacts{vxtab::VisibleText(text, limit, width), width}), seen);
  EXPECT_LT(vxtab::VisibleText(String(100000, u'\u0301'), 40, width).size(), 100u);
}

TEST_F(VxtabTest, ChangesTables) {
  Put("ragged.csv", "a,\"  b \"\r\n\"\",\"\"\r\n\"c\nd\",e,f\r\n");
  Tells("turn @ragged.csv @turned.txt", 0, "beyond the width of row 0 are left out, first in row 2");
  EXPECT_EQ(Out("dump @turned.txt"), "[\"a\", \"\", \"c\\nd\"]\n[\"  b \", \"\", \"e\"]\n");
  Out("clean @ragged.csv --trim --balance -- @clean.csv");
  EXPECT_EQ(Out("dump @clean.csv"), "[\"a\", \"b\", \"\"]\n[\"\", \"\", \"\"]\n[\"c\\nd\", \"e\", \"f\"]\n");
  Out("clean @ragged.csv @clean.csv --drop-empty --one-line");
  EXPECT_EQ(Out("dump @clean.csv"), "[\"a\", \"  b \"]\n[\"c d\", \"e\", \"f\"]\n");
  Put("export", Bytes(u"a,b\r\nx\r\ny,2\r\n", true));
  Tells("mssql @export @export.csv", 0, "the last record has 1 cells, the first 2");
  EXPECT_EQ(Out("dump @export.csv"), "[\"a\", \"b\"]\n[\"x\\r\\ny\", \"2\"]\n[\"\"]\n");
}

TEST_F(VxtabTest, TypesAndSumsOfColumns) {
  Put("t.txt", "Was;Betrag;Dauer\r\na;1234,5;12:00\r\nb;-4,25;24:30\r\nSumme;;\r\n");
  std::string info = Out("info --types @t.txt");
  EXPECT_EQ(info.substr(info.find("column 0")),
            "column 0: vftString 4\ncolumn 1: vftFloat 2, vftUnknown 1, vftString 1\n"
            "column 2: vftUnknown 1, vftString 1, vftTime 1, vftHour 1\n");
  for (const std::string type : {"vftCurrency", "VFTCURRENCY", "currency", "währung", "13"})
    EXPECT_EQ(Out("sum @t.txt --col 1 --type " + type), "1230,25\n");
  EXPECT_EQ(Out("sum @t.txt --col=2 --type=hour --from=2 --to=3"), "24:30\n");
  Put("h.tab", "x\t7:30\nx\t-6:45\nx\t6;45\nx\t\nx\t70000:00\n");
  EXPECT_EQ(Tells("sum @h.tab --col 1 --type Stunden --from 0 --to 4", 0,
                  "h.tab: 1 cell is no such value and not in the sum: row 2 '6;45' (position 2)")
                .Out,
            "70000:45\n");
  Out("clean @t.txt @t.txt --thousands");
  EXPECT_EQ(Get("t.txt"), "Was;Betrag;Dauer\r\na;1.234,5;12:00\r\nb;-4,25;24:30\r\nSumme;;\r\n");
}

TEST_F(VxtabTest, SortKeepsTheHeadAndEveryRow) {
  const char* kRows[] = {"P2,09:30,02.03.2026,\xC4lf,1", "p1,10:00,31.12.2025,Alf,-5", "P3,09:15,x,alf", "P4",
                         "P1,,02.03.2025,Bodo,\"1.000,50\",more"};
  std::string bytes = "Id,Zeit,Datum,Name,Betrag\r\n";
  for (const char* row : kRows) bytes += std::string(row) + "\r\n";
  Put("t.csv", bytes);
  for (const std::string text :  // the order of kRows and the options
       {"14023 id", "31204 Name", "23410 Datum --type vftDate", "01423 Datum --type Datum --desc",
        "40231 Datum --type date --format mmdd --stable-with Id", "40231 Betrag --type währung --desc",
        "13240 Betrag --type Integer --stable-with=Name --stable-with Id"}) {
    const std::string order = text.substr(0, 5), options = text.substr(6);
    std::string expected = bytes.substr(0, bytes.find('\n') + 1);
    for (char row : order) expected += std::string(kRows[row - '0']) + "\r\n";
    EXPECT_EQ(Out("sort @t.csv @out.csv --by " + options), "");
    EXPECT_EQ(Get("out.csv"), expected) << options;
  }
  Put("t.csv", "B,a,b\r\n2,x,1\r\n1,y,2\r\n");
  Tells("sort @t.csv @t.csv --by b", 0, "'b' stands twice; column 0 is taken");
  EXPECT_EQ(Get("t.csv"), "B,a,b\r\n1,y,2\r\n2,x,1\r\n");
  EXPECT_EQ(Out("sort - @t.csv --by a", "a,b\r\n"), "");
  EXPECT_EQ(Get("t.csv"), "a,b\r\n");
}

TEST_F(VxtabTest, SelectsByEightClausesInSymbolsAndTexts) {
  Put("t.txt", "0;Ort;Von\r\n1;K\xF6ln;09.03.2026\r\n2;BONN;10.02.2026\r\n3;Bonn;\r\n4;\"Region K\xD6LN\"\r\n");
  const TCases<std::string, std::string, std::string, std::string, std::string, std::string> cases = {
      {"ort", "v", "enthält", "KÖLN", "Text", "014"},
      {"Ort", "#", "enthält~nicht", "o", "Text", "01"},
      {"Ort", "v", "Enthält", "", "Text", "01234"},
      {"Ort", "=", "gleich~=", "bonn", "Text", "023"},
      {"Ort", "<>", "ungleich~<>", "bonn", "Text", "014"},
      {"Von", "=", "gleich~=", "", "Text", "034"},
      {"Von", "<", "kleiner~<", "09.03.2026", "Datum", "0234"},
      {"Von", "<=", "kleiner~gleich~<=", "20260309", "vftDate", "01234"},
      {"Von", ">", "größer~>", "28.02.2026", "date", "01"},
      {"Von", ">=", "GRÖßER~GLEICH~>=", "10.02.2026", "6", "012"}};
  for (const auto& [name, symbol, text, value, type, wanted] : cases) {
    for (const std::string& clause : {symbol, text}) {
      Out("select @t.txt @out.txt --where " + name + " " + clause + " " + value + " --type " + type);
      std::string rows;
      std::istringstream lines(Get("out.txt"));
      for (std::string line; std::getline(lines, line);) rows += line[0];
      EXPECT_EQ(rows, wanted) << name << clause << value;
    }
  }
  Put("t.csv", "a=b,c\r\n-5,1\r\n");
  Out("select @t.csv @t.csv --where=a=b < -4 --type Zahl");
  EXPECT_EQ(Out("get @t.csv A=B=-5 C"), "1\n");
}

TEST_F(VxtabTest, MergesByKeyAndTellsWhatIsLost) {
  Put("a.csv", "Id,Ort\r\n1,Bonn\r\n2\r\n1,x\r\n");
  Put("b.csv", "ort,Tel,ID\r\n,77,1\r\nK\xF6ln,88,2\r\nUlm,99,3\r\n");
  Tells("merge @a.csv @b.csv --key ID @out.csv", 0, "b.csv: the column 'Tel' is left out, as all");
  EXPECT_EQ(Get("out.csv"), "Id,Ort\r\n1,Bonn\r\n2,K\xF6ln\r\n1,x\r\n3,Ulm\r\n");
  EXPECT_EQ(Out("merge @a.csv --key id --add-fields - @a.csv", Get("b.csv")), "");
  EXPECT_EQ(Get("a.csv"), "Id,Ort,Tel\r\n1,Bonn,77\r\n2,K\xF6ln,88\r\n1,x,\r\n3,Ulm,99\r\n");
  Put("b.csv", "Id,Tel,Tel\r\n,1,2,3\r\n\"\",5,\r\n");
  for (const char* note : {"'Tel' stands twice; the last", "cells beyond the head are left out, first in row 1\n",
                           "rows with the same key become one row, first 1 and 2 with ''\n"})
    Tells("merge @a.csv @b.csv --key id @out.csv", 0, note);
  EXPECT_EQ(Out("dump @out.csv"), Out("dump @a.csv") + "[\"\", \"\", \"5\"]\n");
}

TEST_F(VxtabTest, ConfigurationFilesUniqueColumnsAndVocabularies) {
  Put("t.ini", "\xEF\xBB\xBFx=0\n[b]\nOrt=K\xC3\xB6ln\nZ=1\n;Z=2\n[B]\nz=3\nnur\n[c]\n");
  Tells("ini @t.ini @t.csv", 0, "the section [B] stands twice");
  EXPECT_EQ(Get("t.csv"), "[Sections],ORT,Z\r\n[b],K\xF6ln,1\r\n[B],K\xF6ln,1\r\n[c],,\r\n");
  Put("t.ini", Get("t.ini").substr(3, 17));
  Tells("ini @t.ini @t.csv", 0, "it looks like UTF-8 without a");
  EXPECT_EQ(Get("t.csv"), "[Sections],ORT\r\n[b],K\xC3\xB6ln\r\n");
  Out("ini --foreign @t.ini @t.csv");
  EXPECT_EQ(Get("t.csv"), "[Sections],ORT\r\n[b],K\xF6ln\r\n");
  Put("t.csv", "A,Wort\r\n1,\" b \"\r\n2,\xC4\r\n3,b\r\n4,a\r\n5,B\r\n6,b\r\n");
  Out("unique @t.csv @out.csv --col wort");
  EXPECT_EQ(Get("out.csv"), "Wort\r\na\r\n\xC4\r\nb\r\nB\r\n");
  EXPECT_NE(Out("vocab").find(" | FEDERALSTATE               | 53\n"), std::string::npos);
  EXPECT_EQ(Out("vocab boolext"), "  | 0 | 1\n--+---+-------------\n0 | 0 | Nein\n1 | 1 | Ja\n2 | 2 | keine Angabe\n");
  EXPECT_NE(Out("vocab BERUFSABSCHLUSS").find(" eines nichtärztlichen Heilberufes\n"), std::string::npos);
}

TEST_F(VxtabTest, LooksAreMadeChangedAndToldInWords) {
  Put("t.csv", "Name,Geboren\r\nKöln,1\r\n");
  Out("look @t.csv @a.look --head 1 --zebra 2 --title Plan~1 --col geboren --type Date --format d.~mmmm --align "
      "right,top");
  Out("look @t.csv @a.look --row 0 --style bold,italic --text-color #336699 --color clYellow --width-max 9");
  EXPECT_EQ(Out("look @a.look"),
            "title: Plan 1\nfixed: 1 top\nfont: Tahoma 10\ndarker rows, every: 2\n"
            "with: vertical lines in the border, horizontal lines in the border, vertical lines, horizontal lines, "
            "grid lines, heads that can be clicked\n"
            "all cells: String\ncolumn 1: Date; as 'd. mmmm'; right, top\n"
            "row 0: background clYellow; font Tahoma 10, bold, italic, #336699; width at most 9\n");
  Tells("look @t.csv @a.look --subtitle \xC5\x81 --type Zahl", 0, "1 characters are not in the code page 1252");
  const std::string look = Get("a.look");
  Put("half.look", look.substr(0, 40));
  const TCases<const char*, int, const char*> cases = {
      {"look @half.look", 1, "half.look is no whole look of a table"},
      {"look @half.look", 1, "Die Dekorationsliste konnte nicht zugewiesen werden!"},
      {"look @t.csv @a.look --col Ort --size 9", 1, "no column named 'Ort'"},
      {"look @t.csv @a.look --align rechts", 2, "known are left, right, top, bottom, centre"},
      {"look @t.csv @a.look --color #12", 2, "neither a name such as clYellow nor #RRGGBB"},
      {"look @t.csv @a.look --col Name --row 1", 2, "two regions"}};
  for (const auto& [line, status, part] : cases) Tells(line, status, part);
  EXPECT_EQ(Get("a.look"), look);
}

// Nothing here but these needs what draws.
struct VxtabPaint : VxtabTest {
  void SetUp() override {
    if (!vxtab::CanPaint()) GTEST_SKIP() << "built without vxlib::drawing";
  }
  void TearDown() override { SetDrawingBackend(nullptr); }
};

TEST_F(VxtabPaint, PicturesAndPagesAreWrittenWholeOrNotAtAll) {
  Put("t.csv", "Name,Zahl\r\nK\xF6ln,1\r\nBonn,22\r\nUlm\r\n");
  Out("paint @t.csv @a.png --title Liste");
  EXPECT_EQ(Get("a.png").substr(0, 8), "\x89PNG\r\n\x1A\n");
  Out("paint @t.csv @b.png --title Liste --rows 1 --cols 1");
  EXPECT_LT(Get("b.png").size(), Get("a.png").size());
  Out("paint @t.csv @a.svg");
  EXPECT_NE(Get("a.svg").find(">K\xC3\xB6ln</text>"), std::string::npos);
  EXPECT_EQ(Out("paint @t.csv @a.pdf --landscape"), "pages: 1\n");
  EXPECT_EQ(Get("a.pdf").substr(0, 5), "%PDF-");
  Put("empty.csv", "");
  Out("paint @empty.csv @empty.png");
  Put("half.look", "Titel,");
  std::string wide;
  for (int i = 0; i < 10000; ++i) wide += "a,";
  Put("wide.csv", wide);
  const int before = Entries();
  const TCases<const char*, int, const char*> cases = {
      {"paint @t.csv @c.bmp", 2, "ends in none of .png, .svg and .pdf"},
      {"paint @t.csv @c.png --landscape", 2, "--landscape goes with a PDF only"},
      {"paint @t.csv @c.png --cols 0,2", 1, "row 0 has no column 2"},
      {"paint @t.csv @c.png --look @half.look", 1, "half.look is no whole look of a table"},
      {"paint @wide.csv @c.png", 1, "take fewer rows and columns by --rows and --cols"},
      {"paint @t.csv @missing/c.pdf", 1, "Cannot create file"}};
  for (const auto& [line, status, part] : cases) Tells(line, status, part);
  TFileFaults faults;
  faults.LimitSpace(100);
  for (const char* line : {"paint @t.csv @a.png --rows 1", "paint @t.csv @c.pdf"}) Tells(line, 1, "Cannot write file");
  EXPECT_EQ(Entries(), before);
  EXPECT_EQ(Get("a.png").substr(0, 8), "\x89PNG\r\n\x1A\n");
}

TEST_F(VxtabTest, HelpNamesEveryCommandAndWantsNoFile) {
  std::string help = Out("convert --help");
  for (const char* name : {"show", "info", "dump", "convert", "turn", "clean", "mssql", "set", "sum", "get", "sort",
                           "merge", "select", "ini", "unique", "vocab", "look", "paint"})
    EXPECT_NE(help.find("vxtab " + std::string(name)), std::string::npos) << name;
  EXPECT_EQ(help, Out("help"));
}

}  // namespace
