#include "core/uVxFunctionsSerialize.h"

#include "objects/uVxClasses.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

// Lists are written as their lighttexts here.
struct TLines : TVxStringList {
  explicit TLines(const char16_t* Lighttext) { SetLighttext(Lighttext); }
};
String Text(const TTextList& List) { return List.GetLighttext(); }

TEST(Commatexts, Conversions) {
  const TCells items = {u" ", u" a ", u"", u"b", u"\t"};
  EXPECT_EQ(ArrayToCommatext(items, false), u"\" \",\" a \",,b,\"\t\"");
  EXPECT_EQ(ArrayToCommatext(items, true), u"\" a \",b");
  EXPECT_THROW(ArrayToCommatext(TCells{u"", u"", u"a"}, true), EStringListError);
  EXPECT_EQ(CommatextToString(u"\" Max \",,\"\tMeier\","), u"Max \tMeier ");
  EXPECT_EQ(TextToCommatext(u"a b\r\n\rc\nd\n"), u"\"a b\",,c,d");
  EXPECT_EQ(CommatextToText(u"\"a b\",,c,"), u"a b\r\n\r\nc\r\n");
}

TEST(Explode, TakesTheLastPieceAsItStands) {
  struct {
    const char16_t* Text;
    TExplodeOptions Options;
    const char16_t* Pieces;
  } cases[] = {{u" a ; b ;", {}, u" a | b |"},
               {u" a ;; b ", {eoTrim}, u"a|| b "},
               {u" ;a; ;", {eoSkipEmpty}, u" |a| |"},
               {u" ; a ; ", {eoTrim, eoSkipEmpty}, u"a| "},
               {u";", {eoSkipEmpty}, u"°°"}};
  for (const auto& c : cases) EXPECT_EQ(Text(*explode(c.Text, u';', c.Options)), c.Pieces) << String(c.Text).ToUtf8();
  EXPECT_EQ(Text(*explode(u"a;b,c→d", TCharSet(u";,"))), u"a|b|c→d");
}

TEST(Implode, LeavesOutWhatIsEmpty) {
  struct {
    const char16_t* Pieces;
    TExplodeOptions Options;
    const char16_t* Text;
  } cases[] = {{u"", {}, u""},
               {u"|a| ||b |", {}, u"+a+ ++b +"},
               {u"| a||b |", {eoTrim}, u"+a++b+"},
               {u"|a| ||b |", {eoSkipEmpty}, u"a+ +b "},
               {u" || a| ||b | ", {eoTrim, eoSkipEmpty}, u"a+b"},
               {u"| | ", {eoTrim, eoSkipEmpty}, u""}};
  for (const auto& c : cases) EXPECT_EQ(implode(TLines(c.Pieces), u"+", c.Options), c.Text);
  EXPECT_EQ(implode(TCells{u"a ", u"", u"b "}, u"+", {eoTrim, eoSkipEmpty}), u"a+b");
  EXPECT_EQ(Text(*mergeSl(TLines(u"x|y|z"), TLines(u"1|2"), u"=")), u"x=1|y=2");
}

TEST(GetMyCommatext, FindsTheSection) {
  struct {
    const char16_t *Lines, *Name;
    bool Found;
    int First, Last;
  } cases[] = {{u"ÿTA|a|b|ÿTB|c", u"TA", true, 1, 2},
               {u"ÿTA|a|b|ÿTB|c", u"TB", true, 4, 4},
               {u"ÿTA|a|b|ÿTB|c", u"TC", false, 0, -1},
               {u"a|ÿx|ÿ|b|ÿTB|c", u"", true, 3, 3},
               {u"a|ÿx|b", u"", true, 0, 2},
               {u"ÿTB|c", u"", false, 0, -1},
               {u"ÿTA|ÿTB|c", u"TA", false, 1, 0},
               {u"a|ÿTA", u"TA", false, 0, -1},
               {u"ÿTA|ÿnote|ÿt|tÿT", u"TA", true, 1, 3},
               {u"ÿTA|a|ÿTA|b", u"TA", true, 3, 3},
               {u"ÿta|a", u"TA", false, 0, -1},
               {u"", u"", false, 0, -1}};
  for (const auto& c : cases) {
    int first = 7, last = 7;
    bool found = GetMyCommatext(c.Name, TLines(c.Lines), first, last);
    EXPECT_TRUE(found == c.Found && first == c.First && last == c.Last) << String(c.Lines).ToUtf8() << first << last;
  }
}

enum TFlag { tLeft = 1, tRight = 2, rLeading = 4, rTrailing = 8, rInner = 16, rAll = 28 };
bool RunTrim(TStrings& List, int Flags) {
  return TrimStrings(List, Flags & tLeft, Flags & tRight, Flags & rLeading, Flags & rTrailing, Flags & rInner);
}

TEST(TrimStrings, RemovesWhatTheFlagsSay) {
  struct {
    const char16_t* Lines;
    int Flags;
    const char16_t* Left;
  } cases[] = {{u" | a || b |", 0, u" | a || b |"},
               {u" | a || b |", tLeft, u"|a ||b |"},
               {u" | a || b |", tRight, u"| a|| b|"},
               {u" | a || b |", rLeading, u" a || b |"},
               {u" | a || b | |", rTrailing, u" | a || b "},
               {u" | a || b |", rInner, u" | a | b |"},
               {u" | a || b ||", rAll + tLeft + tRight, u"a|b"},
               {u"a|||b||c", rAll, u"a|b|c"},
               {u"||", rInner, u"||"},
               {u"||", rLeading, u""},
               {u"||", rTrailing, u""},
               {u"||a||||", rLeading + rInner, u"a|||"},  // one of the blanks behind the last line goes too
               {u"", rAll, u""}};
  for (const auto& c : cases) {
    TLines list(c.Lines);
    EXPECT_EQ(RunTrim(list, c.Flags), *c.Left != 0) << String(c.Lines).ToUtf8();
    EXPECT_EQ(Text(list), c.Left) << String(c.Lines).ToUtf8() << " " << c.Flags;
  }
  const TLines lines(u"| | a b ||c||");
  EXPECT_EQ(TrimStringLeft(lines) + u" " + TrimStringRight(lines), u"\" a b \",,c,, ,\" \",\" a b \",,c");
  EXPECT_EQ(TrimString(lines) + u" " + TrimUltimate(lines), u"\" a b \",,c \"a b\",c");
}

TEST(TrimStrings, RaisesBehindTwoLeadingLinesAndKeepsObjects) {
  TLines list(u"||a||b"), objects(u"|a|||b||c|");
  EXPECT_THROW(RunTrim(list, rAll), EStringListError);
  EXPECT_TRUE(Text(list) == u"a||b" && list.GetUpdateCount() == 0);
  for (int i = 0; i < objects.GetCount(); ++i) objects.PutObject(i, &list + (i % 2 ? 0 : 1));
  RunTrim(objects, rAll);
  EXPECT_EQ(Text(objects), u"a|b|c");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(objects.GetObject(i), &list + (i == 0 ? 0 : 1));
}

TEST(WordWrap, BreaksCellsAtSpaces) {
  struct {
    const char16_t* Text;
    int Width;
    const char16_t* Wrapped;
  } cases[] = {{u"", 5, u""},
               {u"a b,c", 0, u"a,b,c"},
               {u"\"Max Meier\",Bonn", 5, u"Max,Meier,Bonn"},
               {u"\"Max Meier\"", 3, u"Max,\" \",Mei,er"},
               {u"abcdefg", 3, u"abc,def,g"},
               {u"\"ab\tcd\"", 4, u"\"ab\tc\",d"},
               {u"\"     \"", 2, u"\" \",\" \",\" \""},
               {u"\"  abc\",\"a  b\"", 3, u"\" \",abc,a,b"}};
  for (const auto& c : cases) EXPECT_EQ(WordWrapCommatext(c.Text, c.Width), c.Wrapped) << String(c.Text).ToUtf8();
}

TEST(WordWrap, CountsVisibleUnitsOfTinyCells) {
  struct {
    const char16_t* Cell;
    int Width;
    const char16_t* Wrapped;
  } cases[] = {
      {u"<b>abc</b>", 3, u"<b>abc</b>"},
      {u"<b>abc</b>  ", 5, u"<b>abc</b>"},
      {u"<b>Max</b> <i>Meier</i>", 8, u"<b>Max</b>|<i>Meier</i>"},
      {u"<b>Max</b> <i>Meier</i>", 5, u"<b>Ma|x</b>|<i>Meier</i>"},  // the fifth is in </b>, and no space before it
      {u"ab <b x>cd ef</b>", 5, u"ab|<b x>cd ef</b>"},
      {u"ab cd<b x>ef gh</b>", 8, u"ab cd|<b x>ef gh</b>"},
      {u"ab cd<b x=1 y>e", 5, u"ab|cd<b x=1 y>e"},
      {u"abcdefgh<b>", 3, u"abc|def|gh<b>"},
      {u"a<bcd ef", 4, u"a<bc|d ef"},  // never closed: visible, and nothing pairs up
      {u"a>b cd ef", 4, u"a|>b c|d ef"},
      {u"<b>abcdefgh</b>", 3, u"<b>|abc|def|gh</b>"}};
  for (const auto& c : cases) {
    String wrapped = WordWrapTINYCommatext(ToCommatext(TCells{c.Cell}), c.Width);
    EXPECT_EQ(WriteLighttext(ReadCommatext(wrapped)), c.Wrapped) << String(c.Cell).ToUtf8();
  }
}

TEST(WordWrap, BreaksLinesBehindWhatIsNoWord) {
  struct {
    const char16_t* Lines;
    int Width, Indent;
    bool Result;
    const char16_t* Wrapped;
  } cases[] = {{u"", 5, 0, false, u""},
               {u"abcdef", 0, 0, false, u"abcdef"},
               {u"a,bcd", 3, 0, true, u"a,|bcd"},
               {u"Max Meier|x|Anna Maria", 5, 0, true, u"Max |Meier|x|Anna |Maria"},
               {u",1234", 3, 0, true, u",|123|4"},
               {u"1.000,50 Euro", 7, 0, true, u"1.000,5|0 Euro"},
               {u"ab 1.000,50", 8, 0, true, u"ab |1.000,50"},
               {u"Äßü-öä", 4, 0, true, u"Äßü-|öä"},
               {u"abé123", 5, 0, true, u"abé|123"},  // é belongs to no word
               {u"aa bb cc", 4, 2, true, u"aa |  bb|   |  cc"},
               {u"abcdefgh", 4, 2, true, u"abcd|  ef|  gh"},
               {u"abcdef", 3, 9, true, u"abc|  d|  e|  f"}};
  for (const auto& c : cases) {
    TLines list(c.Lines);
    EXPECT_EQ(WordWrapStrings(list, c.Width, c.Indent), c.Result) << String(c.Lines).ToUtf8();
    EXPECT_EQ(Text(list), c.Wrapped) << String(c.Lines).ToUtf8();
  }
}

TEST(WordWrap, LongTextsTakeLittleTime) {
  String word = QuotedStr(String(2000000, u'a') + u" " + String(2000000, u' '), u'"');
  EXPECT_GT(WordWrapCommatext(word, 3).size(), 2000000);
  EXPECT_GT(WordWrapTINYCommatext(word, 3).size(), 2000000);
  TVxStringPairList list(false, dupIgnore);
  for (int i = 0; i < 60000; ++i) list.AddPair(u"ab cd", IntToStr(i));
  EXPECT_TRUE(WordWrapStrings(list, 3, 0));
  EXPECT_EQ(list.Get(119998) + list.Get(119999) + list.GetPairs(119998) + list.GetPairs(119999), u"ab cd59999");
}

TEST(DecorateStrings, TrimsBeforeAndAfterWrapping) {
  TLines empty(u""), list(u"| Max   Meier |");
  EXPECT_FALSE(DecorateStrings(empty, true, true, true, true, true, true, 5));
  EXPECT_TRUE(DecorateStrings(list, true, true, true, true, true, false, 4));
  EXPECT_EQ(Text(list), u"Max   Meier");
  EXPECT_TRUE(DecorateStrings(list, true, true, true, true, true, true, 4));
  EXPECT_EQ(Text(list), u"Max|Meie|r");
}

TEST(FontText, WritesAndReads) {
  TFont arial{u"Arial Narrow", clRed, {fsStrikeOut, fsBold}, 12}, plain;
  EXPECT_EQ(FontToString(arial, true), u"\"Arial Narrow\",clRed,BS,12");
  EXPECT_EQ(FontToString(plain, true) + u"|" + FontToString(plain, false), u",,,8|Tahoma,clWindowText,,8");
  const std::pair<String, TFont> cases[] = {
      {u"\"Arial Narrow\",clRed,BS,12", arial},
      {u",,,8", plain},
      {u"a,b,c", arial},
      {u"a,b,c,4,", arial},
      {u"Courier,$00123456,xUbI,big", {u"Courier", 0x123456, {fsUnderline, fsItalic}, 10}},
      {u",nocolour,,", {u"Tahoma", clWindowText, {}, 10}}};
  for (const auto& [text, expected] : cases) {
    TFont font = arial;
    StringToFont(text, font);
    EXPECT_TRUE(font == expected) << text.ToUtf8();
  }
}

}  // namespace
