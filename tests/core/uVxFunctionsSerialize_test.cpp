#include "core/uVxFunctionsSerialize.h"

#include "objects/uVxClasses.h"
#include "tests/support/Test.h"

namespace {

// Lists are written as their lighttexts here.
struct TLines : TVxStringList {
  explicit TLines(std::u16string_view Lighttext) { SetLighttext(Lighttext); }
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
  const TCases<String, TExplodeOptions, String> cases = {{u" a ; b ;", {}, u" a | b |"},
                                                         {u" a ;; b ", {eoTrim}, u"a|| b "},
                                                         {u" ;a; ;", {eoSkipEmpty}, u" |a| |"},
                                                         {u" ; a ; ", {eoTrim, eoSkipEmpty}, u"a| "},
                                                         {u";", {eoSkipEmpty}, u"°°"}};
  for (const auto& [text, options, pieces] : cases) EXPECT_EQ(Text(*explode(text, u';', options)), pieces) << text;
  EXPECT_EQ(Text(*explode(u"a;b,c→d", TCharSet(u";,"))), u"a|b|c→d");
}

TEST(Implode, LeavesOutWhatIsEmpty) {
  const TCases<String, TExplodeOptions, String> cases = {
      {u"|a| ||b |", {}, u"+a+ ++b +"},      {u"", {}, u""},
      {u"| a||b |", {eoTrim}, u"+a++b+"},    {u"|a| ||b |", {eoSkipEmpty}, u"a+ +b "},
      {u"| | ", {eoTrim, eoSkipEmpty}, u""}, {u" || a| ||b | ", {eoTrim, eoSkipEmpty}, u"a+b"}};
  for (const auto& [pieces, options, text] : cases) EXPECT_EQ(implode(TLines(pieces), u"+", options), text);
  EXPECT_EQ(implode(TCells{u"a ", u"", u"b "}, u"+", {eoTrim, eoSkipEmpty}), u"a+b");
  EXPECT_EQ(Text(*mergeSl(TLines(u"x|y|z"), TLines(u"1|2"), u"=")), u"x=1|y=2");
}

TEST(GetMyCommatext, FindsTheSection) {
  const TCases<String, String, bool, int, int> cases = {
      {u"a|ÿx|b", u"", true, 0, 2},    {u"ÿTA|a|b|ÿTB|c", u"TA", true, 1, 2}, {u"ÿTA|a|b|ÿTB|c", u"TB", true, 4, 4},
      {u"ÿTB|c", u"", false, 0, -1},   {u"a|ÿx|ÿ|b|ÿTB|c", u"", true, 3, 3},  {u"ÿTA|a|b|ÿTB|c", u"TC", false, 0, -1},
      {u"a|ÿTA", u"TA", false, 0, -1}, {u"ÿTA|ÿTB|c", u"TA", false, 1, 0},    {u"ÿTA|ÿnote|ÿt|tÿT", u"TA", true, 1, 3},
      {u"ÿta|a", u"TA", false, 0, -1}, {u"ÿTA|a|ÿTA|b", u"TA", true, 3, 3},   {u"", u"", false, 0, -1}};
  for (const auto& row : cases) {
    const auto& [lines, name, found, first, last] = row;
    int from = 7, to = 7;
    const bool isThere = GetMyCommatext(name, TLines(lines), from, to);
    EXPECT_EQ(std::tuple(lines, name, isThere, from, to), row);
  }
}

enum TFlag { tLeft = 1, tRight = 2, rLeading = 4, rTrailing = 8, rInner = 16, rAll = 28 };
bool RunTrim(TStrings& List, int Flags) {
  return TrimStrings(List, Flags & tLeft, Flags & tRight, Flags & rLeading, Flags & rTrailing, Flags & rInner);
}

TEST(TrimStrings, RemovesWhatTheFlagsSay) {
  // Where blanks in front go and those inside, one of the blanks behind the last line goes too.
  const TCases<String, int, String> cases = {
      {u" | a || b |", 0, u" | a || b |"},          {u" | a || b ||", rAll + tLeft + tRight, u"a|b"},
      {u" | a || b |", tLeft, u"|a ||b |"},         {u"a|||b||c", rAll, u"a|b|c"},
      {u" | a || b |", tRight, u"| a|| b|"},        {u"||", rInner, u"||"},
      {u" | a || b |", rLeading, u" a || b |"},     {u"||", rLeading, u""},
      {u" | a || b | |", rTrailing, u" | a || b "}, {u"||", rTrailing, u""},
      {u" | a || b |", rInner, u" | a | b |"},      {u"", rAll, u""},
      {u"||a||||", rLeading + rInner, u"a|||"}};
  for (const auto& [lines, flags, left] : cases) {
    TLines list(lines);
    const bool isLeft = RunTrim(list, flags);
    EXPECT_EQ(std::pair(isLeft, Text(list)), std::pair(!left.empty(), left)) << lines << " " << flags;
  }
  const TLines all(u"| | a b ||c||");
  EXPECT_EQ(TrimStringLeft(all) + u" " + TrimStringRight(all), u"\" a b \",,c,, ,\" \",\" a b \",,c");
  EXPECT_EQ(TrimString(all) + u" " + TrimUltimate(all), u"\" a b \",,c \"a b\",c");
}

TEST(TrimStrings, RaisesBehindTwoLeadingLinesAndKeepsObjects) {
  TLines list(u"||a||b"), objects(u"|a|||b||c|");
  EXPECT_THROW(RunTrim(list, rAll), EStringListError);
  EXPECT_EQ((TFacts{Text(list), list.GetUpdateCount()}), "a||b 0");
  for (int i = 0; i < objects.GetCount(); ++i) objects.PutObject(i, &list + (i % 2 ? 0 : 1));
  RunTrim(objects, rAll);
  EXPECT_EQ(Text(objects), u"a|b|c");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(objects.GetObject(i), &list + (i == 0 ? 0 : 1));
}

TEST(WordWrap, BreaksCellsAtSpaces) {
  const TCases<String, int, String> cases = {
      {u"abcdefg", 3, u"abc,def,g"},           {u"\"Max Meier\",Bonn", 5, u"Max,Meier,Bonn"}, {u"", 5, u""},
      {u"\"ab\tcd\"", 4, u"\"ab\tc\",d"},      {u"\"Max Meier\"", 3, u"Max,\" \",Mei,er"},    {u"a b,c", 0, u"a,b,c"},
      {u"\"     \"", 2, u"\" \",\" \",\" \""}, {u"\"  abc\",\"a  b\"", 3, u"\" \",abc,a,b"}};
  for (const auto& [text, width, wrapped] : cases) EXPECT_EQ(WordWrapCommatext(text, width), wrapped) << text;
}

TEST(WordWrap, CountsVisibleUnitsOfTinyCells) {
  // A mark is nowhere cut; one that is never closed is visible, and nothing pairs up then.
  const TCases<String, int, String> cases = {{u"<b>abc</b>", 3, u"<b>abc</b>"},
                                             {u"<b>abc</b>  ", 5, u"<b>abc</b>"},
                                             {u"<b>Max</b> <i>Meier</i>", 8, u"<b>Max</b>|<i>Meier</i>"},
                                             {u"<b>Max</b> <i>Meier</i>", 5, u"<b>Ma|x</b>|<i>Meier</i>"},
                                             {u"ab <b x>cd ef</b>", 5, u"ab|<b x>cd ef</b>"},
                                             {u"ab cd<b x>ef gh</b>", 8, u"ab cd|<b x>ef gh</b>"},
                                             {u"ab cd<b x=1 y>e", 5, u"ab|cd<b x=1 y>e"},
                                             {u"abcdefgh<b>", 3, u"abc|def|gh<b>"},
                                             {u"a<bcd ef", 4, u"a<bc|d ef"},
                                             {u"a>b cd ef", 4, u"a|>b c|d ef"},
                                             {u"<b>abcdefgh</b>", 3, u"<b>|abc|def|gh</b>"}};
  for (const auto& [cell, width, wrapped] : cases) {
    const String cells = WordWrapTINYCommatext(ToCommatext(TCells{cell}), width);
    EXPECT_EQ(WriteLighttext(ReadCommatext(cells)), wrapped) << cell;
  }
}

TEST(WordWrap, BreaksLinesBehindWhatIsNoWord) {
  // Umlauts belong to words, é to none.
  const TCases<String, int, int, bool, String> cases = {
      {u"", 5, 0, false, u""},
      {u"abcdef", 0, 0, false, u"abcdef"},
      {u"a,bcd", 3, 0, true, u"a,|bcd"},
      {u"Max Meier|x|Anna Maria", 5, 0, true, u"Max |Meier|x|Anna |Maria"},
      {u",1234", 3, 0, true, u",|123|4"},
      {u"1.000,50 Euro", 7, 0, true, u"1.000,5|0 Euro"},
      {u"ab 1.000,50", 8, 0, true, u"ab |1.000,50"},
      {u"Äßü-öä", 4, 0, true, u"Äßü-|öä"},
      {u"abé123", 5, 0, true, u"abé|123"},
      {u"aa bb cc", 4, 2, true, u"aa |  bb|   |  cc"},
      {u"abcdefgh", 4, 2, true, u"abcd|  ef|  gh"},
      {u"abcdef", 3, 9, true, u"abc|  d|  e|  f"}};
  for (const auto& [lines, width, indent, result, wrapped] : cases) {
    TLines list(lines);
    const bool isDone = WordWrapStrings(list, width, indent);
    EXPECT_EQ(std::pair(isDone, Text(list)), std::pair(result, wrapped)) << lines;
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
  EXPECT_EQ((TFacts{DecorateStrings(list, true, true, true, true, true, false, 4), Text(list)}), "yes Max   Meier");
  EXPECT_EQ((TFacts{DecorateStrings(list, true, true, true, true, true, true, 4), Text(list)}), "yes Max|Meie|r");
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
    EXPECT_EQ((StringToFont(text, font), font), expected) << text;
  }
}

}  // namespace
