// Table files as other programs write them: read, written and back; what files can't hold; other forms of text.
#include "tables/Csv.h"

#include "tables/SavedTables.h"
#include "tables/TableTexts.h"
#include "tests/support/PlainTable.h"
#include "tests/support/Test.h"

namespace {

std::string Json(const TFileCsv& Table) {
  std::string text = TableToJsonLines(Table, jrArrays);
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}
std::string Places(const TCsvFaults& Faults) {
  std::string text;
  for (const TCsvFault& fault : Faults.First) {
    text += "oti"[fault.Kind] + std::to_string(fault.Col) + ',' + std::to_string(fault.Row) + '@' +
            std::to_string(fault.Line) + ':' + std::to_string(fault.Column) + ' ';
  }
  return text;
}
std::string Places(const TLostCells& Lost) {
  std::string text;
  for (const TLostCell& cell : Lost.First) {
    text += "cf"[cell.Reason] + std::to_string(cell.Col) + ',' + std::to_string(cell.Row) + ' ';
  }
  return text;
}
// The text as UTF-16, the high byte first or not.
std::string Wide(std::u16string_view Text, bool HighFirst = false) {
  std::string bytes;
  for (char16_t unit : Text) {
    const char pair[] = {static_cast<char>(unit >> 8), static_cast<char>(unit & 255)};
    bytes += {pair[!HighFirst], pair[HighFirst]};
  }
  return bytes;
}

TEST(CsvTest, ReadsRowsByTheRulesAndTellsFaultsByLineAndColumn) {
  using namespace std::string_literals;
  const TCsvForm semicolon{.Separator = u';', .Encoding = ceUtf8}, odd{.Separator = u'→', .Quote = u'\''};
  const TCsvForm tab{.Separator = u'\t', .Quote = 0}, page{.Separator = u'→'};
  for (const auto& [form, bytes, rows, faults] : TCases<TCsvForm, std::string, std::string, std::string>{
           {semicolon, "", "", ""},
           {semicolon, "a", R"(["a"] )", ""},
           {semicolon, ";Anja Bößer; ;\"\";", R"(["", "Anja Bößer", " ", "", ""] )", ""},
           {semicolon, "a\r\n\r\nb\n\rc\r\rd\n", R"(["a"] [] ["b"] [] ["c"] [] ["d"] )", ""},
           {semicolon, "\"a;\"\"b\"\"\r\nc\";d\"e\"\n\"\"", R"(["a;\"b\"\r\nc", "d\"e\""] [""] )", ""},
           {semicolon, "\"\"\"\";\"\"\"\"\"\"", R"(["\"", "\"\""] )", ""},
           {semicolon, "x\n\"a\r\nb\"ö c;\"d\" \n", R"(["x"] ["a\r\nbö c", "d "] )", "t0,1@3:3 t1,1@3:10 "},
           {semicolon, "x;y\r\nä;\"ö\"\";\nz", R"(["x", "y"] ["ä", "ö\";\nz"] )", "o1,1@2:3 "},
           {semicolon, "a\"\";\"", R"(["a\"\"", ""] )", "o1,0@1:5 "},
           {semicolon, "a\n\xC3;ü\xFFx\xED\xA0\x80;\"\"\"\xE2\x82\"\n",
            "[\"a\"] [\"\xEF\xBF\xBD\", \"ü\xEF\xBF\xBDx"
            "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\", \"\\\"\xEF\xBF\xBD\"] ",
            "i0,1@2:1 i1,1@2:4 i2,1@2:11 "},
           {semicolon, "a\0;\0"s, R"(["a\u0000", "\u0000"] )", ""},
           {odd, "\xEF\xBB\xBF'a→b'→c\xE2\x86→\xE2\x86\x93\n→", "[\"a→b\", \"c\xEF\xBF\xBD\", \"↓\"] [\"\", \"\"] ",
            "i1,0@1:8 "},
           {odd, Wide(u"\uFEFFä→'b''\n'→\n") + "x", R"(["ä", "b'\n", ""] )", "i0,1@3:1 "},
           {odd, Wide(u"\uFEFFä→\xD800→b", true), R"(["ä", "\ud800", "b"] )", ""},
           {tab, "\"a\tb\"\r\n\t\n", R"(["\"a", "b\""] ["", ""] )", ""},
           {page, "a;b\x80,c\n", R"(["a;b€,c"] )", ""},
       }) {
    TFileCsv table;
    table.AddRow({u"old"});
    const TCsvLoaded loaded = LoadCsvBytes(table, bytes, form);
    EXPECT_EQ(Json(table), rows) << bytes;
    EXPECT_EQ(Places(loaded.Faults), faults) << bytes;
  }
  TFileCsv table;
  EXPECT_EQ(LoadCsvBytes(table, "x;y\r\nä;\"ö\"\"").Faults.First.at(0).ToText(),
            u"Zeile 2, Spalte 3: Das Anführungszeichen wird nicht geschlossen.");
  std::string many;
  for (int i = 0; i < 300; ++i) many += "\"a\"b,";
  const TCsvFaults faults = LoadCsvBytes(table, many + "\n" + many).Faults;
  EXPECT_EQ((TFacts{faults.Count, faults.First.size(), faults.First[99].Column}), "600 100 499");
}

TEST(CsvTest, FindsOutTheForm) {
  const std::string filler = "0123456789\n", mark = "\xEF\xBB\xBF";
  std::string long_;
  while (long_.size() < 600000) long_ += filler;
  for (const auto& [bytes, facts] : TCases<std::string, std::string>{
           {"", "2 0 no 44 0"},
           {"a;b\nc;d\n", "2 0 no 59 1"},
           {"a,b;c\nd,e;f,g\n", "2 0 no 59 1"},
           {"x\ta|b\nc|d\n", "2 0 no 124 1"},
           {"Tabelle\nStand 1, 2, 3\na;b\nc;d\ne;f\n", "2 0 no 59 1"},
           {"1,5;2,5\n3,5;4,5\n", "2 0 no 59 1"},
           {"\"a;b\",c\n\"d;e\",f\n", "2 0 no 44 1"},
           {"a,b\tc,d\n", "2 0 no 9 1"},
           {"x\x1By\n", "2 0 no 27 1"},
           {mark + "\"a\r;\",b\r", "2 0 yes 44 2"},
           {"Mädchen;1\r\n", "2 0 no 59 0"},
           {"M\344dchen\x84;1\r\n", "1 0 no 59 0"},
           {"M\204dchen f\x81r Gr\x94\341e\n", "1 850 no 44 1"},
           {"sagte \x84ja\x93 \x96 nein\n", "1 0 no 44 1"},
           {Wide(u"\uFEFFa\tb\r\n"), "3 0 yes 9 0"},
           {Wide(u"ab;cd\r", true), "4 0 no 59 2"},
           {long_ + "ä\n", "2 0 no 44 1"},
           {long_ + "\xE4\n", "1 0 no 44 1"},
       }) {
    TFileCsv table;
    const TCsvForm form = LoadCsvBytes(table, bytes).Form;
    EXPECT_EQ((TFacts{form.Encoding, form.CodePage, form.HasMark, form.Separator, form.LineEnd}), facts)
        << bytes.substr(0, 40);
  }
  const TCsvForm wrong[] = {{.Separator = u'\n'},
                            {.Separator = u'"'},
                            {.Separator = u'\xD800'},
                            {.Quote = u'ä'},
                            {.Quote = u'\r'},
                            {.CodePage = 7},
                            {.Separator = u'→', .Encoding = ceCodePage}};
  for (const TCsvForm& form : wrong) EXPECT_THROW(CheckCsvForm(form), EArgumentException);
  EXPECT_EQ(
      (TFacts{CsvSeparatorOf(u"a.CSV"), CsvSeparatorOf(u"a.b.txt"), CsvSeparatorOf(u".tsv"), CsvSeparatorOf(u"x.vxt")}),
      "44 59 9 27");
}

// A table of cells that every form finds hard.
void Fill(TFileCsv& Table, std::mt19937& Random, const TCsvForm& Form) {
  const auto below = [&](unsigned limit) { return static_cast<unsigned>(Random() % limit); };
  const char16_t hard[] = {Form.Separator, u'"', u'\'', u'\r', u'\n', u' ',   0,      0xFEFF, 0xD83D, 0xDE00,
                           u'ß',           u'€', u'ł',  0x81,  u'\t', 0xBBEF, 0xFFFD, u';',   0xFF};
  for (unsigned rows = below(6); rows > 0; --rows) {
    TCells cells(below(5));
    for (String& cell : cells) {
      const unsigned length = below(20) == 0 ? 9000 + below(40000) : below(24);
      for (unsigned i = 0; i < length; ++i) {
        cell += below(3) == 0 ? hard[below(std::size(hard))] : static_cast<char16_t>(u'a' + below(26));
      }
    }
    Table.AddRow(std::span<const String>(cells));
  }
}

TEST(CsvTest, EveryCellComesBackOrTheWriterTellsIt) {
  std::mt19937 random(7);
  int64_t lost = 0;
  for (int turn = 0; turn < 1500; ++turn) {
    TCsvForm form{.Separator = u",;\t\x1B|→é\x01"[random() % 8], .Quote = u"\"\"'"[random() % 3]};
    form.Encoding = static_cast<TCsvEncoding>(1 + random() % 4);
    if (form.Encoding == ceCodePage) form.Separator = u",;\t§"[random() % 4];
    form.HasMark = random() % 2 == 0;
    form.LineEnd = static_cast<TCsvLineEnd>(random() % 3);
    form.Quoting = static_cast<TCsvQuoting>(random() % 2);
    if (random() % 8 == 0) form.Quote = 0;
    TFileCsv table, back;
    Fill(table, random, form);
    TCsvWriter writer(form);
    for (int row = 0; row < table.GetCount(); ++row) writer.Write(table.GetLines(row)->Items());
    const TCsvLoaded loaded = LoadCsvBytes(back, writer.Bytes(), form);
    lost += writer.Lost().Count;
    bool isFormLost = false;
    for (const TLostCell& cell : writer.Lost().First) {
      isFormLost |= cell.Reason == lrForm;
      if (cell.Reason == lrCharacter) table.SetCell(cell.Col, cell.Row, back.GetCell(cell.Col, cell.Row));
      EXPECT_FALSE(cell.Reason == lrCharacter && (form.Encoding == ceUtf16 || form.Encoding == ceUtf16BigEndian));
    }
    ASSERT_EQ(!isFormLost, Rows(back) == Rows(table)) << turn;
    if (isFormLost) continue;
    ASSERT_EQ(loaded.Faults.Count, 0) << turn;
    ASSERT_EQ(loaded.Form.LineEnd, form.LineEnd) << turn;

    // Row by row, and counted only, it is the same.
    TCsvReader reader = TCsvReader::OverBytes(writer.Bytes(), form),
               counter = TCsvReader::OverBytes(writer.Bytes(), form);
    for (const TCells& row : Rows(back)) {
      ASSERT_TRUE(reader.Next());
      ASSERT_EQ(TCells(reader.Cells().begin(), reader.Cells().end()), row) << turn;
      ASSERT_EQ(counter.Skip(), static_cast<int>(row.size())) << turn;
    }
    ASSERT_EQ((TFacts{reader.Next(), counter.Skip(), reader.Row() + 1 - back.GetCount()}), "no -1 0") << turn;
  }
  EXPECT_GT(lost, 0);
}

TEST(CsvTest, FilesAreReplacedWholeOrNotAtAll) {
  test::TTempDir dir;
  const String path = dir.Path("k.txt");
  TFileCsv table;
  table.AddRow({u"Łukasz", u"1;2", u"\xD800"});
  EXPECT_EQ((TFacts{SaveCsv(table, path).IsSaved, test::GetText(path)}), "no <none>");
  const TSaved saved = SaveCsv(table, path, {}, ilSave);
  EXPECT_EQ((TFacts{saved.IsSaved, Places(saved.Lost), saved.Lost.ToText()}),
            "yes c2,0  1 Zelle kann nicht gespeichert werden: Zeile 1, Spalte 3 (Zeichen)");
  const std::string bytes = test::GetText(path);
  EXPECT_EQ(bytes, "\xEF\xBB\xBFŁukasz;\"1;2\";\xEF\xBF\xBD\r\n");
  {
    TFileFaults faults;
    faults.LimitSpace(10);
    EXPECT_THROW((void)SaveCsv(table, path, {}, ilSave), EWriteError);
    faults.Fail(foRead, EIO);
    EXPECT_THROW((void)LoadCsv(table, path), EReadError);
  }
  EXPECT_EQ(test::GetText(path), bytes);
  EXPECT_THROW((void)LoadCsv(table, dir.Path("none.csv")), EFOpenError);
  ASSERT_EQ(table.GetCount(), 1) << "what could not be opened leaves the table";
  TCsvReader reader(path);
  EXPECT_EQ((TFacts{reader.Next(), reader.Cells()[0], reader.Form().Separator, reader.Line(), reader.Next()}),
            "yes Łukasz 59 1 no");
  test::PutText(path, "x;y\n\"a\nb\";c\n\nd");
  TCsvReader lines(path);
  std::string text;
  while (lines.Next()) text += std::to_string(lines.Line()) + ' ';
  EXPECT_EQ(text, "1 2 4 5 ");
}

TEST(SavedTablesTest, LostCellsAreThoseThatLoadFromFileReadsOtherwise) {
  test::TTempDir dir;
  for (const auto& [name, rows, places] : TCases<std::string, std::vector<TCells>, std::string>{
           {"a.csv", {{u"Łukasz", u"a b", u"", u"x\r\ny"}, {u""}, {}}, "c0,0 "},
           {"a.csv", {{u"Malá", u"\x81"}, {String(std::u16string_view(u"a\0", 2)), u"\xD800"}}, "c0,0 c1,0 f0,1 c1,1 "},
           {"a.csv", {{u"a;b;c", u"d"}, {u"x"}}, "f0,0 c1,0 "},
           {"a.tab", {{u"a", u"", u"c"}, {u"d", u""}}, "f1,0 f2,0 f1,1 "},
           {"a.TXT", {{u"a", u"", u"c"}, {u""}}, "f0,1 "},
           {"a", {{u"a"}, {u"b c"}}, "f0,1 "},
       }) {
    TFileCsv table, back;
    for (const TCells& row : rows) table.AddRow(std::span<const String>(row));
    const String path = dir.Path(name);
    test::PutText(path, "old");
    EXPECT_EQ((TFacts{Places(FindLostCells(table, path)), SaveWhole(table, path).IsSaved, test::GetText(path)}),
              places + " no old")
        << name;
    EXPECT_TRUE(SaveWhole(table, path, ilSave).IsSaved);
    const std::string bytes = test::GetText(path);
    ASSERT_TRUE(table.SaveToFile(path));
    EXPECT_EQ(test::GetText(path), bytes) << name;
  }
  std::mt19937 random(3);
  int whole = 0;
  for (int turn = 0; turn < 80; ++turn) {
    TFileCsv table, back;
    Fill(table, random, {.Separator = u';'});
    if (turn % 2 == 0) table.DoAll({camDeleteEnter, camTrim});
    const String path = dir.Path(turn % 3 == 0 ? "r.csv" : turn % 3 == 1 ? "r.txt" : "r.vxt");
    const TSaved saved = SaveWhole(table, path, ilSave);
    ASSERT_TRUE(back.LoadFromFile(path));
    ASSERT_EQ(saved.Lost.IsEmpty(), Rows(back) == Rows(table)) << turn;
    whole += saved.Lost.IsEmpty();
  }
  EXPECT_GT(whole, 5);
  TFileCsv table;
  EXPECT_THROW((void)SaveWhole(table, dir.Path("a.doc")), EArgumentException);
}

TEST(TableTextsTest, JsonLinesAndMarkdownHoldTheCells) {
  TFileCsv table;
  EXPECT_EQ((TFacts{TableToJsonLines(table), TableToMarkdown(table)}), " ");
  table.AddRow({u"Name", u"", u"Name", u"Name 3"});
  table.AddRow({u"Weiß|\"\\", u"a\r\nb\n", u"<b>", u"\xD83D\xDE00\xD800", u"mehr"});
  table.AddRow(std::span<const String>());
  EXPECT_EQ(TableToJsonLines(table),
            "{\"Name\": \"Weiß|\\\"\\\\\", \"2\": \"a\\r\\nb\\n\", \"Name 3'\": \"<b>\", \"Name 3\": \"😀\\ud800\", "
            "\"5\": \"mehr\"}\n{}\n");
  EXPECT_EQ(TableToJsonLines(table, jrArrays).substr(0, 33), "[\"Name\", \"\", \"Name\", \"Name 3\"]\n[\"");
  EXPECT_EQ(TableToMarkdown(table),
            "| Name |  | Name | Name 3 |  |\n| --- | --- | --- | --- | --- |\n"
            "| Weiß\\|\"\\\\ | a<br>b<br> | \\<b\\> | 😀\xEF\xBF\xBD | mehr |\n|  |  |  |  |  |\n");
}

}  // namespace
