#include "objects/uVxClasses/TextForms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "objects/uVxClasses.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

using std::u16string_view;

struct TForm {
  const char* Name;
  String (*Write)(std::span<const String>);
  TCells (*Read)(u16string_view);
  // Whether the form promises to give these cells back.
  bool (*Keeps)(const TCells&);
};

bool Has(const String& Cell, char16_t Unit) { return Cell.view().find(Unit) != u16string_view::npos; }
bool NoZero(const TCells& Cells) {
  return std::ranges::none_of(Cells, [](const String& c) { return Has(c, 0); });
}
template <char16_t kDelimiter, char16_t kQuote>
String WriteFree(std::span<const String> Cells) { return WriteSerialize(Cells, kDelimiter, kQuote); }
template <char16_t kDelimiter, char16_t kQuote>
TCells ReadFree(u16string_view Text) { return ReadSerialize(Text, kDelimiter, kQuote); }
bool NoZeroNoEmpty(const TCells& Cells) {
  return NoZero(Cells) && (Cells.size() == 1 || std::ranges::none_of(Cells, [](const String& c) { return c.empty(); }));
}

const TForm kForms[] = {
    {"commatext", WriteCommatext, ReadCommatext, NoZero},
    {"lighttext", WriteLighttext, ReadLighttext, NoZero},
    {"offsettext", WriteOffsettext, ReadOffsettext, [](const TCells&) { return true; }},
    {"intellitext", WriteIntellitext, ReadIntellitext, NoZero},
    {"serial ;'", WriteFree<u';', u'\''>, ReadFree<u';', u'\''>, NoZero},
    {"serial tab", WriteFree<u'\t', u'"'>, ReadFree<u'\t', u'"'>, NoZeroNoEmpty},
    {"celltext", WriteCellText, ReadCellText,
     [](const TCells& Cells) {
       return !(Cells.size() == 1 && Cells[0].empty()) &&
              std::ranges::none_of(Cells, [](const String& c) { return Has(c, u'\n'); });
     }},
    {"csv text", WriteCsv, ReadCsv, [](const TCells& Cells) {
       return NoZero(Cells) && std::ranges::none_of(Cells, [](const String& c) {
                return c.empty() || Has(c, 27) || c[0] <= 32;
              });
     }}};

constexpr u16string_view kNasty(u"ab1F,;|\u00B0\"' \t\r\n\x1B\0\u0100\u2022\xD83D", 19);

class TRandomText {
 public:
  int Below(int Limit) { return static_cast<int>(FRandom() % static_cast<unsigned>(Limit)); }
  String Text(int Longest) {
    // Most texts use a few units of the alphabet only, so that runs of quotes and delimiters are common.
    int first = Below(static_cast<int>(kNasty.size()) - 4);
    int width = Below(3) == 0 ? static_cast<int>(kNasty.size()) - first : 4;
    String result;
    for (int left = Below(Longest + 1); left > 0; --left) {
      result += kNasty[static_cast<size_t>(first + Below(width))];
    }
    return result;
  }
  TCells Cells() {
    TCells result;
    for (int left = Below(Below(4) == 0 ? 40 : 5); left > 0; --left) result.push_back(Text(Below(5) == 0 ? 300 : 4));
    return result;
  }

 private:
  std::mt19937 FRandom{20240229};
};

TEST(TextForms, GiveBackWhatTheyPromise) {
  TRandomText random;
  int kept[std::size(kForms)] = {};
  for (int round = 0; round < 6000; ++round) {
    TCells cells = random.Cells();
    for (size_t f = 0; f < std::size(kForms); ++f) {
      if (!kForms[f].Keeps(cells)) continue;
      ++kept[f];
      String text = kForms[f].Write(cells);
      ASSERT_EQ(kForms[f].Read(text), cells) << kForms[f].Name << ": " << text.ToUtf8();
    }
  }
  for (size_t f = 0; f < std::size(kForms); ++f) EXPECT_GT(kept[f], 1200) << kForms[f].Name;
}

TEST(TextForms, ReadAnyTextAndSettleAfterOneTurn) {
  TRandomText random;
  for (int round = 0; round < 20000; ++round) {
    String text = random.Text(round % 50);
    // In a block of its own, so that reading past its end is found.
    std::vector<char16_t> exact(text.begin(), text.end());
    for (const TForm& form : kForms) {
      TCells cells = form.Read({exact.data(), exact.size()});
      if (!form.Keeps(cells)) continue;
      EXPECT_EQ(form.Read(form.Write(cells)), cells) << form.Name << ": " << text.ToUtf8();
    }
  }
}

TEST(TextForms, NoCellAndOneEmptyCell) {
  const char16_t* oneEmpty[] = {u"\"\"", u"°°", u"0°", u"°°", u"''", u"\"\"", u"", u"\x1B"};
  for (size_t f = 0; f < std::size(kForms); ++f) {
    EXPECT_EQ(kForms[f].Write({}), u"") << kForms[f].Name;
    EXPECT_TRUE(kForms[f].Read({}).empty()) << kForms[f].Name;
    EXPECT_TRUE(kForms[f].Read(u"").empty()) << kForms[f].Name;
    EXPECT_EQ(kForms[f].Write(TCells{u""}), oneEmpty[f]) << kForms[f].Name;
  }
}

// Cells are written here with "|" between them; "-" is no cell.
TCells Cells(u16string_view Text) {
  TCells result;
  if (Text == u"-") return result;
  for (size_t bar; (bar = Text.find(u'|')) != Text.npos; Text.remove_prefix(bar + 1)) {
    result.emplace_back(Text.substr(0, bar));
  }
  result.emplace_back(Text);
  return result;
}

TEST(TextForms, Writing) {
  struct { const TForm& Form; TCells Cells; String Text; } cases[] = {
      {kForms[0], Cells(u"a||b"), u"a,,b"}, {kForms[0], Cells(u"a|"), u"a,"},
      {kForms[0], Cells(u"a,\" b|\x01|°;ä"), u"\"a,\"\" b\",\"\x01\",°;ä"},
      {kForms[0], Cells(u16string_view(u"a\0 b|a \0b", 9)), String(u16string_view(u"a\0 b,\"a \0b\"", 11))},
      {kForms[4], Cells(u"Max Meier|a;'|\"a,b\"|"), u"'Max Meier';'a;''';\"a,b\";"},
      {kForms[1], {u"a b\t\r\n", u"x|y", u"°", u""}, u"a b\t\r\n|°x|y°|°°°°|"},
      {kForms[1], {String(u16string_view(u"a\0|", 3)), u"b"}, String(u16string_view(u"a\0||b", 5))},
      {kForms[2], Cells(u"abc|xyz|q"), u"3°abc°xyz1°q"}, {kForms[2], Cells(u"|||a|"), u"0°°°1°a0°"},
      {kForms[2], {String(255, u'x'), String(256, u'y'), String(256, u'y'), String(4096, u'z'), String(0xA0B, u'z')},
       Concat({u"FF°", String(255, u'x'), u"100°", String(256, u'y'), u"°", String(256, u'y'), u"1000°",
               String(4096, u'z'), u"A0B°", String(0xA0B, u'z')})},
      {kForms[6], Cells(u"a|b\r|"), u"a\nb\r\n"}, {kForms[7], Cells(u"a| b ||"), u"a\x1B b \x1B\x1B\x1B"}};
  for (const auto& c : cases) EXPECT_EQ(c.Form.Write(c.Cells), c.Text) << c.Form.Name;
}

TEST(TextForms, Reading) {
  struct { const TForm& Form; String Text; TCells Cells; } cases[] = {
      {kForms[0], u"a b", Cells(u"a|b")}, {kForms[0], u"  a , b\t,\r\n c ", Cells(u"a|b|c")},
      {kForms[0], u"a,", Cells(u"a|")}, {kForms[0], u",", Cells(u"|")}, {kForms[0], u",,a", Cells(u"||a")},
      {kForms[0], u"\"a\"b\"c\"", Cells(u"a|b\"c\"")}, {kForms[0], u"\"a\"\"b\"\"\"  ,x", Cells(u"a\"b\"|x")},
      {kForms[0], u"\"abc", Cells(u"ab")}, {kForms[0], u"x \"a", Cells(u"x|")}, {kForms[0], u"\"", Cells(u"")},
      {kForms[0], u"\"\"\"", Cells(u"")}, {kForms[0], u"\"a\"\"b", Cells(u"a\"")}, {kForms[0], u"\"a\"\"", Cells(u"a")},
      {kForms[0], u" \t ", Cells(u"-")}, {kForms[0], String(u16string_view(u"a,\0b", 4)), Cells(u"a|")},
      {kForms[0], String(u16string_view(u"a\0b", 3)), Cells(u"a")},
      {kForms[4], u"Max Meier;Bonn", Cells(u"Max|Meier|Bonn")}, {kForms[4], u"a;;'b;''' ; \"c", Cells(u"a||b;'|\"c")},
      {kForms[5], u"a\t\tb\t", Cells(u"a|b")}, {kForms[1], u" a |\tb", Cells(u" a |\tb")},
      {kForms[1], u"a|", Cells(u"a|")}, {kForms[1], u"|", Cells(u"|")},
      {kForms[1], u"a°b|°c|°°d°e|f", {u"a°b", u"c|°d", u"e", u"f"}}, {kForms[1], u"°ab", Cells(u"a")},
      {kForms[1], u"°°°", Cells(u"")}, {kForms[1], String(u16string_view(u"a|\0b", 4)), Cells(u"a")},
      {kForms[2], u"°a", Cells(u"")}, {kForms[2], u"°", Cells(u"")}, {kForms[2], u"3°abc°xyz1°q", Cells(u"abc|xyz|q")},
      {kForms[2], u"0a°0123456789a°tail", Cells(u"0123456789|tail")},
      {kForms[2], u"1x2°" + String(258, u'y'), {String(258, u'y')}}, {kForms[2], u"0000000003°abc", Cells(u"abc")},
      {kForms[2], u"00000000003°abc", Cells(u"00000000003°abc")}, {kForms[2], u"plain text", Cells(u"plain text")},
      {kForms[2], u"a plain text of any length", Cells(u"a plain text of any length")},
      {kForms[2], u"1°amore", Cells(u"a")}, {kForms[2], u"1°ano more cells here", Cells(u"a")},
      {kForms[2], u"FF°short", Cells(u"short")}, {kForms[2], u"FFFFFFFFF°short", Cells(u"short")},
      {kForms[3], u"1°", Cells(u"1°")},
      {kForms[3], u"abc|d°e", Cells(u"e")},  // no form of this system's own: read as an offsettext
      {kForms[3], u"ab|°c°", Cells(u"ab|c")}, {kForms[3], u"3°abc", Cells(u"abc")},
      {kForms[3], u"abcdefghi°", Cells(u"abcdefghi°")}, {kForms[3], u"°a°|b", Cells(u"a|b")},
      {kForms[6], u"a\r\n\nb\n", {u"a\r", u"", u"b", u""}}, {kForms[7], u" \ra \x1B\x1B \x1B\tb", Cells(u"a |b")},
      {kForms[7], String(u16string_view(u"a\x1B\0b", 4)), Cells(u"a")}};
  for (const auto& c : cases) EXPECT_EQ(c.Form.Read(c.Text), c.Cells) << c.Form.Name << ": " << c.Text.ToUtf8();
}

TEST(TextForms, IntellitextDecidesByTheMiddleCellAndASample) {
  auto isOffset = [](const TCells& cells) { return WriteIntellitext(cells) == WriteOffsettext(cells); };
  EXPECT_TRUE(isOffset(Cells(u"a|°b|c")));
  EXPECT_FALSE(isOffset(Cells(u"a|b|°c")));
  EXPECT_EQ(WriteIntellitext(Cells(u"a|b|°c")), u"a|b|°°°c°");
  EXPECT_TRUE(isOffset(Cells(u"a|°")));
  EXPECT_FALSE(isOffset({String(250, u'x'), String(250, u'x')}));
  EXPECT_TRUE(isOffset({String(250, u'x'), String(251, u'x')}));
  TCells many(25, String(u"x"));
  many[3] = String(900, u'y');  // not in the sample of every second
  EXPECT_FALSE(isOffset(many));
  many[22] = String(900, u'y');
  EXPECT_TRUE(isOffset(many));
}

TEST(TextForms, PartsOfAnOffsettext) {
  struct { const char16_t* Text; int First, Last; const char16_t* Cells; } cases[] = {
      {u"1°a°b°c", 1, 1, u"b"},  {u"1°a°b°c", 0, 1, u"a|b"}, {u"1°a°b°c", 2, 9, u"c"}, {u"1°a°b°c", 3, 9, u"-"},
      {u"1°a°b°c", 2, 1, u"-"},  {u"1°a°b°c", 0, -1, u"-"},  {u"plain", 0, 2, u"plain"}, {u"plain", 1, 2, u"-"}};
  for (const auto& c : cases) {
    TVxStringList list;
    list.Add(u"gone");
    list.ParseOffsettext(c.Text, c.First, c.Last);
    EXPECT_EQ(ReadOffsettext(list.GetOffsettext()), Cells(c.Cells)) << c.First << "-" << c.Last;
  }
}

TEST(Quoting, QuotedAndBack) {
  struct { String Text, Quoted; } cases[] = {
      {u"", u"''"}, {u"a b", u"'a b'"}, {u"'", u"''''"}, {u"a''b'", u"'a''''b'''"}};
  int consumed = -1;
  for (const auto& c : cases) {
    EXPECT_EQ(QuotedStr(c.Text, u'\''), c.Quoted);
    EXPECT_EQ(DequotedStr(c.Quoted + u",'x'", u'\'', consumed), c.Text);
    EXPECT_EQ(consumed, c.Quoted.size());
  }
  struct { const char16_t *Text, *Result; int Consumed; } partly[] = {
      {u"", u"", 0}, {u"a'b'", u"", 0}, {u"'", u"", 1}, {u"'ab", u"ab", 3}, {u"'a''", u"a'", 4}, {u"'a'''b", u"a'", 5}};
  for (const auto& c : partly) {
    EXPECT_EQ(DequotedStr(c.Text, u'\'', consumed), c.Result) << String(c.Text).ToUtf8();
    EXPECT_EQ(consumed, c.Consumed) << String(c.Text).ToUtf8();
  }
  EXPECT_EQ(CommatextToCelltext(u"a,\"b c\","), u"a\nb c\n");
  EXPECT_EQ(CommatextToCelltext(u""), u"");
}

// Watches the update state while the forms are set.
template <typename TBase>
class TWatched : public TBase {
 public:
  int Updates = 0;

 protected:
  void SetUpdateState(bool Updating) override { Updates += Updating; }
};

template <typename TList>
void SetEveryForm(TList& List) {
  List.Add(u"gone");
  List.SetCommatext(u"a b");
  EXPECT_EQ(List.GetLighttext(), u"a|b");
  List.SetLighttext(u"a b|°|°°");
  EXPECT_EQ(List.GetCommatext(), u"\"a b\",|");
  List.SetOffsettext(u"1°a°b");
  EXPECT_EQ(List.GetSerialize(u';', u'\''), u"a;b");
  List.SetIntellitext(u"2°ab1°c");
  EXPECT_EQ(List.GetIntellitext(), u"ab|c");
  List.SetCsv(u"a\x1B b\x1B");
  EXPECT_EQ(List.GetCsv(), u"a\x1B" u"b\x1B");
  List.SetSerialize(u';', u'\'', u"a;'b c'");
  EXPECT_EQ(List.GetOffsettext(), u"1°a3°b c");
  EXPECT_EQ(List.Updates, 6);
  List.SetCellText(u"a\nb");
  EXPECT_EQ(List.GetCellText(), u"a\nb");
  EXPECT_EQ(List.Updates, 6);
  EXPECT_EQ(List.GetUpdateCount(), 0);
}

TEST(TextForms, OfTheLists) {
  TWatched<TVxStringList> list;
  SetEveryForm(list);
  TWatched<TOldStringList> old;
  SetEveryForm(old);
}

}  // namespace
}  // namespace vx
