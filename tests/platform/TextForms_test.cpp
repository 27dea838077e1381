#include "platform/TextForms.h"

#include "objects/uVxClasses.h"
#include "tests/support/Test.h"

namespace {

using std::u16string_view;
using namespace std::string_view_literals;

struct TForm {
  const char* Name;
  String (*Write)(std::span<const String>);
  TCells (*Read)(u16string_view);
  // Whether the form promises to give these cells back.
  bool (*Keeps)(const TCells&);
  const char16_t* OneEmpty;
  void (TTextList::*Set)(u16string_view) = nullptr;
  String (TTextList::*Get)() const = nullptr;
};

bool Has(const TCells& Cells, u16string_view Units) {
  return std::ranges::any_of(Cells, [&](const String& c) { return c.view().find_first_of(Units) != Units.npos; });
}
bool NoZero(const TCells& Cells) { return !Has(Cells, u"\0"sv); }
bool NoEmptyAndZero(const TCells& Cells) {
  return NoZero(Cells) && (Cells.size() == 1 || std::ranges::find(Cells, u"") == Cells.end());
}
bool NoLineFeed(const TCells& Cells) { return Cells != TCells{u""} && !Has(Cells, u"\n"); }
bool NoBlankInFront(const TCells& Cells) {
  return !Has(Cells, u"\x1B\0"sv) && std::ranges::none_of(Cells, [](const String& c) { return c[0] <= 32; });
}
template <char16_t kDelimiter, char16_t kQuote>
String WriteFree(std::span<const String> Cells) {
  return WriteSerialize(Cells, kDelimiter, kQuote);
}
template <char16_t kDelimiter, char16_t kQuote>
TCells ReadFree(u16string_view Text) {
  return ReadSerialize(Text, kDelimiter, kQuote);
}

using TList = TTextList;
const TForm kForms[] = {
    {"comma", WriteCommatext, ReadCommatext, NoZero, u"\"\"", &TList::SetCommatext, &TList::GetCommatext},
    {"light", WriteLighttext, ReadLighttext, NoZero, u"°°", &TList::SetLighttext, &TList::GetLighttext},
    {"offset", WriteOffsettext, ReadOffsettext, [](const TCells&) { return true; }, u"0°", &TList::SetOffsettext,
     &TList::GetOffsettext},
    {"intelli", WriteIntellitext, ReadIntellitext, NoZero, u"°°", &TList::SetIntellitext, &TList::GetIntellitext},
    {"serial ;'", WriteFree<u';', u'\''>, ReadFree<u';', u'\''>, NoZero, u"''"},
    {"serial tab", WriteFree<u'\t', u'"'>, ReadFree<u'\t', u'"'>, NoEmptyAndZero, u"\"\""},
    {"cell", WriteCellText, ReadCellText, NoLineFeed, u"", &TList::SetCellText, &TList::GetCellText},
    {"csv", WriteCsv, ReadCsv, NoBlankInFront, u"\x1B", &TList::SetCsv, &TList::GetCsv}};

constexpr u16string_view kNasty = u"ab1F,;|\u00B0\"' \t\r\n\x1B\0\u0100\u2022\xD83D"sv;

struct TRandomText {
  size_t Below(size_t Limit) { return FRandom() % Limit; }
  String Text(size_t Longest) {
    // Most texts use a few units of the alphabet only, so that runs of quotes and delimiters are common.
    size_t first = Below(kNasty.size() - 4), width = Below(3) == 0 ? kNasty.size() - first : 4;
    String result;
    for (size_t left = Below(Longest + 1); left > 0; --left) result += kNasty[first + Below(width)];
    return result;
  }
  TCells Cells() {
    TCells result;
    for (size_t left = Below(Below(4) == 0 ? 40 : 5); left > 0; --left) result.push_back(Text(Below(5) == 0 ? 300 : 4));
    return result;
  }
  std::mt19937 FRandom{20240229};
};

TEST(TextForms, GiveBackWhatTheyPromiseAndReadAnyText) {
  TRandomText random;
  int kept[std::size(kForms)] = {};
  for (int round = 0; round < 12000; ++round) {
    TCells written = random.Cells();
    String any = random.Text(static_cast<size_t>(round) % 50);
    // In a block of its own, so that reading past its end is found.
    std::vector<char16_t> exact(any.begin(), any.end());
    for (size_t f = 0; f < std::size(kForms); ++f) {
      TCells read = kForms[f].Read({exact.data(), exact.size()});
      for (const TCells* cells : {&written, &read}) {
        if (!kForms[f].Keeps(*cells)) continue;
        kept[f] += cells == &written;
        String text = kForms[f].Write(*cells);
        ASSERT_EQ(kForms[f].Read(text), *cells) << kForms[f].Name << ": " << text.ToUtf8();
      }
    }
  }
  for (int count : kept) EXPECT_GT(count, 2400);
}

// Watches the update state while the forms are set.
template <typename TBase>
struct TWatched : TBase {
  int Updates = 0;
  void SetUpdateState(bool Updating) override { Updates += Updating; }
};

TEST(TextForms, OfTheListsAndOfNoCellAndOneEmptyCell) {
  const TCells cells = {u"a b", u"c", u"|"};
  auto check = [&](const TForm& form, auto list) {
    SCOPED_TRACE(form.Name);
    list.Add(u"gone");
    (list.*form.Set)(form.Write(cells));
    EXPECT_TRUE(std::ranges::equal(list.Items(), cells));
    EXPECT_EQ((list.*form.Get)(), form.Write(cells));
    EXPECT_EQ(list.Updates, form.Set != &TList::SetCellText);
    list.SetSerialize(u';', u'\'', u"a;'b c'");
    EXPECT_EQ((TFacts{list.GetSerialize(u';', u'\''), list.GetUpdateCount()}), "a;'b c' 0");
  };
  for (const TForm& form : kForms) {
    EXPECT_EQ(form.Write({}) + form.Write(TCells{u""}), form.OneEmpty) << form.Name;
    EXPECT_EQ((TFacts{form.Read({}).size(), form.Read(u"").size()}), "0 0") << form.Name;
    if (form.Set == nullptr) continue;
    check(form, TWatched<TVxStringList>());
    check(form, TWatched<TOldStringList>());
  }
}

TEST(TextForms, Writing) {
  const String y(256, u'y'), z(4096, u'z'), odd(0xA0B, u'z');
  const TCases<int, String, TCells> cases = {
      {0, u"a,,b", {u"a", u"", u"b"}},
      {0, u"a,", {u"a", u""}},
      {0, u"\"a,\"\" b\",\"\x01\",°;ä", {u"a,\" b", u"\x01", u"°;ä"}},
      {0, u"a\0 b,\"a \0b\""sv, {u"a\0 b"sv, u"a \0b"sv}},
      {4, u"'Max Meier';'a;''';\"a,b\";", {u"Max Meier", u"a;'", u"\"a,b\"", u""}},
      {1, u"a b\t\r\n|°x|y°|°°°°|", {u"a b\t\r\n", u"x|y", u"°", u""}},
      {1, u"a\0||b"sv, {u"a\0|"sv, u"b"}},
      {2, u"3°abc°xyz1°q", {u"abc", u"xyz", u"q"}},
      {2, u"0°°°1°a0°", {u"", u"", u"", u"a", u""}},
      {2,
       Concat({u"FF°", String(255, u'x'), u"100°", y, u"°", y, u"1000°", z, u"A0B°", odd}),
       {String(255, u'x'), y, y, z, odd}},
      {6, u"a\nb\r\n", {u"a", u"b\r", u""}},
      {7, u"a\x1B b \x1B\x1B\x1B", {u"a", u" b ", u"", u""}}};
  for (const auto& [form, text, cells] : cases) EXPECT_EQ(kForms[form].Write(cells), text) << kForms[form].Name;
}

TEST(TextForms, Reading) {
  // Each cell with a bar behind it. The fourth form reads what is none of this system's own as an offsettext.
  const TCases<int, String, String> cases = {
      {0, u"\"abc", u"ab¦"},   {0, u"\"a\"b\"c\"", u"a¦b\"c\"¦"},  {0, u"  a , b\t,\r\n c ", u"a¦b¦c¦"},
      {0, u"a,\0b"sv, u"a¦¦"}, {5, u"a\t\tb\t", u"a¦b¦"},          {0, u"a,", u"a¦¦"},
      {1, u"a|\0b"sv, u"a¦"},  {1, u" a |\tb|", u" a ¦\tb¦¦"},     {0, u"\"a\"\"b\"\"\"  ,x", u"a\"b\"¦x¦"},
      {1, u"°ab", u"a¦"},      {2, u"0000000003°abc", u"abc¦"},    {0, u"\"", u"¦"},
      {2, u"1°amore", u"a¦"},  {2, u"FFFFFFFFF°short", u"short¦"}, {4, u"a;;'b;''' ; \"c", u"a¦¦b;'¦\"c¦"},
      {3, u"1°", u"1°¦"},      {3, u"ab|°c°", u"ab¦c¦"},           {1, u"a°b|°c|°°d°e|f", u"a°b¦c|°d¦e¦f¦"},
      {3, u"3°abc", u"abc¦"},  {3, u"abcdefghi°", u"abcdefghi°¦"}, {2, u"0a°0123456789a°tail", u"0123456789¦tail¦"},
      {3, u"°a°|b", u"a¦b¦"},  {6, u"a\r\n\nb\n", u"a\r¦¦b¦¦"},    {2, u"00000000003°abc", u"00000000003°abc¦"},
      {3, u"abc|d°e", u"e¦"},  {7, u"a\x1B\0b"sv, u"a¦"},          {7, u" \ra \x1B\x1B \x1B\tb", u"a ¦b¦"}};
  for (const auto& [form, text, cells] : cases) {
    String read;
    for (const String& cell : kForms[form].Read(text)) read += cell + u"¦";
    EXPECT_EQ(read, cells) << kForms[form].Name << ": " << text;
  }
}

TEST(TextForms, IntellitextDecidesByTheMiddleCellAndASample) {
  TCells few(25, String(u"x")), many = few;
  few[3] = String(900, u'y');  // not in the sample of every second
  many[22] = String(900, u'y');
  const TCases<TCells, bool> cases = {
      {{u"a", u"°"}, true}, {{u"a", u"°b", u"c"}, true},  {{String(250, u'x'), String(250, u'x')}, false}, {few, false},
      {many, true},         {{u"a", u"b", u"°c"}, false}, {{String(250, u'x'), String(251, u'x')}, true}};
  for (const auto& [cells, isOffset] : cases)
    EXPECT_EQ(WriteIntellitext(cells), isOffset ? WriteOffsettext(cells) : WriteLighttext(cells)) << cells[1].ToUtf8();
}

TEST(TextForms, Parts) {
  TVxStringList list;
  list.ParseOffsettext(u"1°a°b°c", 1, 2);
  EXPECT_EQ(list.GetCommatext(), u"b,c");
  int consumed = -1;
  EXPECT_EQ((TFacts{DequotedStr(u"'a''''b'''x", u'\'', consumed), consumed}), "a''b' 10");
  EXPECT_EQ(QuotedStr(u"a''b'", u'\'') + QuotedStr(u"", u'\''), u"'a''''b'''''");
  EXPECT_EQ(CommatextToCelltext(u"a,\"b c\","), u"a\nb c\n");
}

}  // namespace
