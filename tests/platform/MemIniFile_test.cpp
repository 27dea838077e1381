#include "platform/MemIniFile.h"

#include "objects/uVxClasses.h"
#include "platform/Encoding.h"
#include "platform/IniLine.h"
#include "tests/support/Test.h"

namespace {

using namespace std::literals;

TEST(Encoding, DetectsDecodesAndEncodes) {
  const TEncoding &page = TEncoding::Default(), &utf8 = TEncoding::Utf8();
  const TEncoding &low = TEncoding::Utf16(), &high = TEncoding::Utf16BigEndian();
  // The bytes, behind them a mark of so many; the text; and whether the bytes come back.
  const TCases<std::string, const TEncoding*, size_t, String, bool> cases = {
      {"", &page, 0, u"", true},
      {"\xEF\xBB\xBF\x61\xC3(\xE2\x82", &utf8, 3, u"a\uFFFD(\uFFFD", false},
      {"\xFF", &page, 0, u"ÿ", true},
      {"\xEF\xBB\xBFü\xF0\x9F\x98\x80", &utf8, 3, u"ü😀", true},
      {"\xEF\xBB", &page, 0, u"ï»", true},
      {"a=\xFC\x80", &page, 0, u"a=ü€", true},
      {"\xFF\xFE"s, &low, 2, u"", true},
      {"\xEF\xBB\xBF", &utf8, 3, u"", true},
      {"\xFF\xFE\x61\0b"s, &low, 2, u"a", false},
      {"\xFF\xFE\xFC\0\xAC "s, &low, 2, u"ü€", true},
      {"\xFE\xFF\xD8\0\0"s, &high, 2, u"\xD800", false},
      {"\xFE\xFF\0\xFC \xAC"s, &high, 2, u"ü€", true}};
  for (const auto& row : cases) {
    const auto& [bytes, kind, mark, text, returns] = row;
    size_t skipped = 99;
    const TEncoding& found = TEncoding::Detect(bytes, skipped, page);
    const String decoded = found.Decode(std::string_view(bytes).substr(mark));
    const bool isBack = std::string(found.Mark()) + found.Encode(text) == bytes;
    EXPECT_EQ(std::tuple(bytes, &found, skipped, decoded, isBack), row);
    EXPECT_EQ(found.Mark().size(), mark) << text;
  }
  EXPECT_EQ(page.Encode(u"Ж") + utf8.Encode(u"\xDC00z"), "?\xEF\xBF\xBDz");
  String all;
  for (int unit = 0; unit < 0x10000; ++unit) all += static_cast<char16_t>(unit);
  for (const TEncoding* each : {&low, &high}) EXPECT_TRUE(each->Decode(each->Encode(all)) == all);
  SetSystemCodePage(437);
  EXPECT_EQ(page.Decode("\x81") + String::FromUtf8(page.Encode(u"é") == "\x82" ? "é" : ""), u"üé");
  SetSystemCodePage(1252);
}

TEST(IniLine, KindsAndLineEnds) {
  const TCases<std::u16string_view, TIniLine> cases = {
      {u"[]", {ilSection, {}, {}}},        {u"", {}},
      {u"[", {ilPlain, u"[", {}}},         {u" \t\0"sv, {}},
      {u"[a]b", {ilPlain, u"[a]b", {}}},   {u" ;a=b", {}},
      {u"[a]=b", {ilValue, u"[a]", u"b"}}, {u" [ a b ] ", {ilSection, u"a b", {}}},
      {u"[a=b]", {ilSection, u"a=b", {}}}, {u" a = b = c ", {ilValue, u"a", u"b = c"}},
      {u"=v", {ilValue, {}, u"v"}},        {u"a b;c", {ilPlain, u"a b;c", {}}},
      {u"a=", {ilValue, u"a", {}}},        {u"a\0b=c\0d"sv, {ilValue, u"a\0b"sv, u"c\0d"sv}}};
  for (const auto& [line, said] : cases) {
    const auto [kind, name, value] = ParseIniLine(line);
    EXPECT_EQ(std::tuple(kind, name, value), std::tuple(said.Kind, said.Name, said.Value)) << String(line);
  }
  String lines;
  ForEachLine(u"a\rb\n\r\nc\r\n\n d", [&](std::u16string_view line) { lines += u"<" + String(line) + u">"; });
  EXPECT_EQ(lines, u"<a><b><><c><>< d>");
}

class MemIniFile : public testing::Test {
 protected:
  TMemIniFile Make(const std::string& bytes) {
    test::PutText(Dir.Path("a.ini"), bytes);
    return TMemIniFile(Dir.Path("a.ini"));
  }
  // The keys of a section, or the sections.
  static String Names(const TMemIniFile& ini, const char16_t* section = nullptr) {
    TVxStringList list;
    list.Add(u"old");
    section ? ini.ReadSection(section, list) : ini.ReadSections(list);
    return list.GetCommatext();
  }
  test::TTempDir Dir;
};

TEST_F(MemIniFile, FindsWhatStandsFirst) {
  const TMemIniFile ini = Make(
      "lost=1\n[Größe]\r\nÄ=1\r\nb = x = y \nB=2\nplain\n;c=3\n=v\nleer=\n\n[two]\r"
      "k\0ey=\0\x31\r[GRÖßE]\nb=9\nnew=9\n[Two]\n[ ]\nin=none"s.insert(0, "\xEF\xBB\xBF"));
  EXPECT_EQ(Names(ini), u"Größe,two,GRÖßE,Two,");
  EXPECT_EQ(Names(ini, u"GRÖßE") + u"|" + Names(ini, u"TWO") + u"|" + Names(ini, u"") + u"|" + Names(ini, u"none"),
            u"Ä,b,B,,leer|k\0ey|in|"sv);
  const TCases<String, String, String> cases = {
      {u"größe", u"ä", u"1"},   {u"Größe", u"B", u"x = y"}, {u"Größe", u"", u"v"}, {u"Größe", u"LEER", u""},
      {u"Größe", u"new", u"?"}, {u"Größe", u"plain", u"?"}, {u"", u"lost", u"?"},  {u"", u"IN", u"none"},
      {u"GRÖSSE", u"b", u"?"},  {u"Größe", u"b ", u"?"},    {u"no", u"b", u"?"}};
  for (const auto& [section, key, value] : cases) EXPECT_EQ(ini.ReadString(section, key, u"?"), value) << key;
  EXPECT_EQ(ini.ReadString(u"TWO", u"K\0EY"sv, u"?"), u"1"sv);
}

TEST_F(MemIniFile, FilesOfEveryEncodingAndNone) {
  for (const TEncoding* encoding :
       {&TEncoding::Default(), &TEncoding::Utf8(), &TEncoding::Utf16(), &TEncoding::Utf16BigEndian()}) {
    const TMemIniFile ini = Make(std::string(encoding->Mark()) + encoding->Encode(u"[ä€]\r\nÖ=ß"));
    EXPECT_EQ(Names(ini) + ini.ReadString(u"Ä€", u"ö", u"?"), u"ä€ß");
  }
  EXPECT_EQ(Names(Make("")) + Names(TMemIniFile(Dir.Path("none"))) + Names(TMemIniFile(u"")), u"");
  const String error = test::RaisedBy<EStreamError>([&] { TMemIniFile ini(Dir.Path()); });
  EXPECT_NE(error.view().find(Dir.Path().view()), std::u16string_view::npos) << error.ToUtf8();
  Make("[a]\nb=c");
  TFileFaults faults;
  faults.Fail(foRead, 5, 1, 0, "a.ini");
  EXPECT_THROW(TMemIniFile ini(Dir.Path("a.ini")), EStreamError);
  faults.CutReads(4);  // the file shrinks meanwhile
  EXPECT_EQ(Names(TMemIniFile(Dir.Path("a.ini"))), u"a");
}

TEST_F(MemIniFile, LargeFilesInLinearTime) {
  std::string bytes, keys = "[last]\n";
  for (int i = 0; i < 100000; ++i) {
    bytes += "[s" + std::to_string(i) + "]\nk=" + std::to_string(i) + "\n";
    keys += "key" + std::to_string(i) + "=\n";
  }
  const TMemIniFile many = Make(bytes + keys), one = Make("[a]\nb=" + std::string(5000000, '='));
  EXPECT_EQ(many.ReadString(u"S99999", u"K", u"?") + many.ReadString(u"LAST", u"KEY99999", u"?"), u"99999");
  EXPECT_EQ(one.ReadString(u"a", u"b", u"?").size(), 5000000);
}

}  // namespace
