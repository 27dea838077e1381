// Table files: bytes to rows and back, and everything that can go wrong on the way.

#include "platform/Shell.h"
#include "tables/uFileCsv.h"
#include "tests/support/PlainTable.h"
#include "tests/support/Test.h"

namespace {

struct TableFiles : testing::Test {
  std::vector<TCells> Load(const std::string& Bytes) {
    PutText(dir.Path("in.txt"), Bytes);
    TFileCsv table;
    EXPECT_TRUE(table.LoadFromFile(dir.Path("in.txt")));
    return Rows(table);
  }
  test::TTempDir dir;
  TScriptedDialogs dialogs;
};

TEST_F(TableFiles, AreReadByTheRules) {
  using R = std::vector<TCells>;
  const TCases<std::string, R> cases = {
      {"", {}},
      {"x", {}},
      {"x\n", {{u"x"}}},
      {"a;b\r\nc;d\r\n", {{u"a", u"b"}, {u"c", u"d"}}},
      {"a,b\n\nc,d\n", {{u"a", u"b"}, {u"c", u"d"}}},  // two line feeds are one line end
      {"a,b\r\n\r\nc", {{u"a", u"b"}, {}}},            // a last line of one character is lost
      {"a,b\r\ncd", {{u"a", u"b"}, {u"cd"}}},
      {"a;\"b\r\n;\"\"c\"\"\"\r\n", {{u"a", u"b\r\n;\"c\""}}},
      {"a;\"open\r\nb;c", {{u"a", u"open\r\nb;"}}},                 // an open quote takes all but the last
      {"a;b\"c\r\nd;e\"f\r\ng", {{u"a", u"b\"c", u"d", u"e\"f"}}},  // a quote inside still counts
      {"Max Meier;Bonn\r\n", {{u"Max", u"Meier", u"Bonn"}}},
      {"a\033b\r\n", {{u"a", u"b"}}},
      {"a;;b;\r\n;\r\n", {{u"a", u"", u"b", u""}, {u"", u""}}},
      {"a\t\tb\t\r\n", {{u"a", u"b"}}},
      {std::string("\0a\0;b\0\r\0\n", 9), {{u"a", u"b"}}},
      {"\"a\"b;\"c\" \"d\"\r\n", {{u"a", u"b", u"c", u"d"}}},
      {"\x81\x84\x8E\x94\x99\x9A\xE1\xE4\x80\r\n", {{u"ü\u201E\u017D\u201D\u2122\u0161ßä€"}}},
  };
  for (const auto& [bytes, rows] : cases) {
    EXPECT_EQ(Load(bytes), rows) << bytes;
    EXPECT_EQ(ReadPlainly(bytes), rows) << bytes;
  }
  // Only code units that stand for themselves after decoding are turned right.
  ASSERT_TRUE(SetSystemCodePage(28591));
  EXPECT_EQ(Load("\x81\x84\x8E\x94\x99\x9A\xE1\xE4\x80\r\n"), (R{{u"üäÄöÖÜßä\x80"}}));
  ASSERT_TRUE(SetSystemCodePage(1252));
}

TEST_F(TableFiles, ReadTheSameAsThePlainRulesOnAnything) {
  const std::string alphabets[] = {std::string("a\";\r\n ,\xE1\x81\0\t", 11), "abcdefgh;\"\r\n", "\";;\"\n",
                                   "ab,\x1B \n\""};
  std::mt19937 random(42);
  for (int round = 0; round < 400; ++round) {
    const std::string& alphabet = alphabets[random() % 4];
    std::string bytes;
    for (size_t left = random() % 300; left > 0; --left) bytes += alphabet[random() % alphabet.size()];
    ASSERT_EQ(Load(bytes), ReadPlainly(bytes)) << ::testing::PrintToString(bytes);
  }
}

TEST_F(TableFiles, ReadTheSameWhereverTheChunksEnd) {
  // Lines of changing length, so that the ends of the chunks of 256 KB meet every part of a row.
  for (unsigned seed = 0; seed < 6; ++seed) {
    std::mt19937 random(seed);
    std::string bytes;
    while (bytes.size() < 1200000) {
      bytes += std::to_string(random() % 1000) + ";\"" + std::string(random() % 40, 'q') + "\"\"\r\n\";";
      if (random() % 5000 == 0) bytes += std::string(400000, 'x');
      if (random() % 50 == 0) bytes += "a\"b c\"d";
      if (random() % 70 == 0) bytes += std::string(3, '\0');
      bytes += std::string(random() % 30, 'z') + "\r\n";
    }
    ASSERT_EQ(Load(bytes), ReadPlainly(bytes)) << seed;
  }
}

TEST_F(TableFiles, RowsAndTextsOfALargeOneOutliveIt) {
  std::string bytes;
  for (int i = 0; i < 40000; ++i) bytes += std::to_string(i) + ";\"ein Text, der im Block steht\";short\r\n";
  PutText(dir.Path("large.txt"), bytes);
  std::vector<std::unique_ptr<TObject>> rows;
  std::vector<String> texts;
  {
    TFileCsv table, other;
    ASSERT_TRUE(table.LoadFromFile(dir.Path("large.txt")));
    auto copy = table.Duplicate();
    other.AddFileCsv(table);
    for (int row = 39999; row >= 0; row -= 1000) {
      texts.push_back(table.GetCell(1, row));
      for (TFileCsv* each : {&table, copy.get(), &other}) rows.emplace_back(each->Extract(each->Get(row)));
    }
    table.Clear();
    copy->SetCell(0, 0, u"changed"), copy->GetLines(0)->Add(u"grown");
    EXPECT_EQ(copy->GetLines(0)->GetLighttext() + other.GetLines(0)->GetLighttext(),
              u"changed|ein Text, der im Block steht|short|grown0|ein Text, der im Block steht|short");
  }
  for (const String& text : texts) ASSERT_EQ(text, u"ein Text, der im Block steht");
  for (size_t i = 0; i < rows.size(); ++i) {
    auto& row = dynamic_cast<TVxStringList&>(*rows[i]);
    ASSERT_EQ(row.GetLighttext(), IntToStr(39999 - static_cast<int>(i / 3) * 1000) + u"|" + texts[0] + u"|short");
  }
}

TEST_F(TableFiles, AreWrittenByTheExtension) {
  TFileCsv table;
  table.AddRow({u"a b", u"", u"c\"d", u"e;f", u"g,h", u"Müller € \u4E2D", u"i\tj", u"12345678 Wort"});
  for (int cells : {1, 0}) table.AddEmpty(cells);
  const TCases<const char*, std::string> cases = {
      {"t.csv", "\"a b\",,\"c\"\"d\",e;f,\"g,h\",\"M\xFCller \x80 ?\",\"i\tj\",\"12345678 Wort\"\r\n\"\"\r\n\r\n"},
      {"t.TXT", "\"a b\";;\"c\"\"d\";\"e;f\";g,h;\"M\xFCller \x80 ?\";\"i\tj\";\"12345678 Wort\"\r\n\r\n\r\n"},
      {"t.vxt",
       "\"a b\"\033\033\"c\"\"d\"\033e;f\033g,h\033\"M\xFCller \x80 ?\"\033\"i\tj\"\033\"12345678 Wort\"\r\n\r\n\r\n"},
      {"t.tab", "\"a b\"\t\t\"c\"\"d\"\te;f\tg,h\t\"M\xFCller \x80 ?\"\t\"i\tj\"\t\"12345678 Wort\"\r\n\r\n\r\n"},
      {"t", "a b  c\"d e;f g,h M\xFCller \x80 ? i\tj 12345678 Wort\r\n\r\n\r\n"}};
  for (const auto& [name, bytes] : cases) {
    PutText(dir.Path(name), std::string(5000, 'o'));  // an old and longer file
    EXPECT_TRUE(table.SaveToFile(dir.Path(name)));
    EXPECT_EQ(GetText(dir.Path(name)), bytes) << name;
  }
  EXPECT_THROW(table.SaveToFile(dir.Path("t.xls")), EStringListError);
  EXPECT_EQ(GetText(dir.Path("t.xls")), "<none>");
  EXPECT_EQ((TFacts{TFileCsv().SaveToFile(dir.Path("t.xls")), GetText(dir.Path("t.xls"))}), "yes ");
  EXPECT_TRUE(dialogs.Shown.empty());
}

TEST_F(TableFiles, ReadBackWhatWasWritten) {
  std::u16string alphabet = u"abcz 019,;\"'\r\n\tüß€ä";
  std::mt19937 random(3);
  for (int round = 0; round < 60; ++round) {
    TFileCsv table;
    int columns = 1 + static_cast<int>(random() % 6);
    for (int row = 0; row < 30; ++row) {
      table.AddEmpty(columns);
      for (int col = 0; col < columns; ++col) {
        std::u16string cell(row == 0 ? 1 : random() % 40, u'x');
        for (char16_t& unit : cell) unit = row == 0 ? u'x' : alphabet[random() % alphabet.size()];
        table.SetCell(col, row, std::u16string_view(cell));
      }
    }
    // With two columns at least, the first line shows the separator.
    const char* name = columns > 1 && round % 2 ? "t.txt" : "t.csv";
    TFileCsv back;
    ASSERT_TRUE(table.SaveToFile(dir.Path(name)));
    ASSERT_TRUE(back.LoadFromFile(dir.Path(name)));
    ASSERT_EQ(Rows(back), Rows(table)) << name;
  }
}

TEST_F(TableFiles, MissingFileWarnsAndLeavesTheTable) {
  TVxStringList row;
  TFileCsv table(false);
  table.Add(&row);
  EXPECT_FALSE(table.LoadFromFile(u"C:\\nirgends\\a.csv"));
  EXPECT_FALSE(table.LoadFromFile(dir.Path()));  // a directory is no file
  ASSERT_EQ(dialogs.Shown.size(), 2u);
  EXPECT_EQ(dialogs.Shown[0].Text,
            u"Die Datei\r\nC:\\nirgends\\a.csv\r\nist nicht vorhanden,\r\nkann also nicht geladen werden.");
  EXPECT_EQ(dialogs.Shown[0].Kind, mtWarning);
  EXPECT_EQ(table.Get(0), &row);
  EXPECT_FALSE(table.GetOwnsObjects());
}

TEST_F(TableFiles, FailedReadingLeavesAnEmptyTable) {
  PutText(dir.Path("a.txt"), std::string(600000, 'a') + "\r\n");
  TFileCsv table;
  {
    TFileFaults faults;
    faults.Fail(foRead, EIO, 1, 1);
    EXPECT_THROW(table.LoadFromFile(dir.Path("a.txt")), EReadError);
  }
  EXPECT_EQ(table.GetCount(), 0);
  TFileStream locked(dir.Path("a.txt"), fmOpenReadWrite | fmShareExclusive);
  EXPECT_THROW(table.LoadFromFile(dir.Path("a.txt")), EFOpenError);
}

TEST_F(TableFiles, AShrinkingFileGivesTheRowsThatAreLeft) {
  std::string bytes;
  for (int i = 0; i < 100000; ++i) bytes += "abc;def\r\n";
  PutText(dir.Path("a.txt"), bytes);
  TFileFaults faults;
  faults.CutReads(500003);
  TFileCsv table;
  EXPECT_TRUE(table.LoadFromFile(dir.Path("a.txt")));
  EXPECT_EQ(Rows(table), ReadPlainly(bytes.substr(0, 500003)));
}

TEST_F(TableFiles, FailedWritingIsRaised) {
  auto table = std::make_unique<TFileCsv>();
  for (int i = 0; i < 50000; ++i) table->AddRow(u"abcdefgh,ijklmnop");
  {
    TFileFaults faults;
    faults.LimitSpace(300000);
    EXPECT_THROW(table->SaveToFile(dir.Path("full.csv")), EWriteError);
  }
  PutText(dir.Path("locked.csv"), "old");
  TFileStream reader(dir.Path("locked.csv"), fmOpenRead | fmShareDenyWrite);
  EXPECT_THROW(table->SaveToFile(dir.Path("locked.csv")), EFCreateError);
  EXPECT_EQ(GetText(dir.Path("locked.csv")), "old");
  EXPECT_THROW(table->SaveToFile(dir.Path("no/such/dir.csv")), EFCreateError);
  EXPECT_THROW(table->SaveToFile(u"/dev/full"), EWriteError);
}

TEST_F(TableFiles, AStampThatStandsStillIsWatchedAndThenSet) {
  TFileCsv table;
  table.AddRow(u"a,b"), table.SaveToFile(dir.Path("a.csv"));
  test::TClockAt clock(46000);
  {
    TFileFaults faults;
    faults.FreezeStamps();
    EXPECT_TRUE(table.SaveToFile(dir.Path("a.csv")));  // stamped in the end: no failure
    EXPECT_EQ(clock.GetSleeps(), 15);
  }
  TFileFaults faults;
  faults.FreezeStamps();
  faults.Fail(foSetTime, EPERM, 1);
  EXPECT_FALSE(table.SaveToFile(dir.Path("a.csv")));
  ASSERT_EQ(dialogs.Shown.size(), 1u);
  EXPECT_EQ(dialogs.Shown[0].Text,
            u"Die Datei wurde nicht korrekt gespeichert.\r\n\r\n\r\n\r\nDateipfad " + dir.Path("a.csv"));
}

TEST_F(TableFiles, SaveAndExecuteShowsATextAsCsv) {
  std::vector<String> opened;
  TOpenDocument previous = SetOpenDocument([&](const String& file, const String& directory) {
    return opened.insert(opened.end(), {file, directory}), true;
  });
  TFileCsv table;
  table.AddRow(u"a,b");
  for (const char* name : {"x.txt", "y.csv", "z.tab"}) EXPECT_TRUE(table.SaveAndExecute(dir.Path(name)));
  SetOpenDocument(previous);
  EXPECT_EQ(opened, (std::vector<String>{dir.Path("x.csv"), dir.Path(), dir.Path("y.csv"), dir.Path()}));
  EXPECT_EQ(GetText(dir.Path("x.txt")) + GetText(dir.Path("x.csv")), "<none>a;b\r\n");
}

TEST_F(TableFiles, DatabaseExportsAreCutByTheNumberOfFields) {
  const TCases<std::u16string_view, std::vector<TCells>, bool> cases = {
      {u"a,b\r\nc,d", {{u"a", u"b"}, {u"c", u"d"}}, true},
      {u"a,b\r\nc\r\nc,d\r\ne,f\r\n", {{u"a", u"b"}, {u"c\r\nc", u"d"}, {u"e", u"f"}, {u""}}, false},
      {u"one\ntwo\n", {{u"one"}, {u"two"}, {u""}}, true},
      {u"\uFEFFa,\u4E2D\nb,c,d\n\n\ne", {{u"\uFEFFa", u"\u4E2D"}, {u"b", u"c", u"d"}, {u"e"}}, false},
      {std::u16string_view(u"a,b\0\nc,d", 8), {{u"a", u"b"}}, true},
      {u"", {{u""}}, true}};
  for (const auto& [text, rows, isWhole] : cases) {
    std::string bytes;
    for (char16_t unit : text) bytes += {static_cast<char>(unit & 255), static_cast<char>(unit >> 8)};
    PutText(dir.Path("export"), bytes);
    TFileCsv table;
    table.AddRow(u"old");
    EXPECT_EQ(table.LoadMSSQL(dir.Path("export")), isWhole);
    EXPECT_EQ(Rows(table), rows);
  }
  TFileCsv table;
  EXPECT_THROW(table.LoadMSSQL(dir.Path("none")), EFOpenError);
}

}  // namespace
