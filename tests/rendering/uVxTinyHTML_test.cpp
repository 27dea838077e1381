#include "rendering/uVxTinyHTML.h"

#include "core/uVxFunctions.h"
#include "platform/TRecordingCanvas.h"
#include "tests/support/Test.h"

namespace {

// Tahoma 8 of the recording canvas: a letter is 7 wide, a blank 4, a line 14 high.
constexpr TRect kWide{0, 0, 1000, 1000};

String Repeated(std::u16string_view Text, int Count) {
  String all;
  for (int i = 0; i < Count; ++i) all += Text;
  return all;
}

String Marks(const TDecoChunk& C) {
  String marks;
  if (C.GetBold()) marks += u"b";
  if (C.GetItalic()) marks += u"i";
  if (C.GetUnderline()) marks += u"u";
  if (C.GetStrikeOut()) marks += u"s";
  if (C.GetSize() != 8) marks += IntToStr(C.GetSize());
  if (C.GetColor() != clWindowText) marks += ColorToString(C.GetColor());
  return marks.empty() ? marks : u"{" + marks + u"}";
}

// Lines between slashes, their chunks between bars; at the end "[..]" for an overflow.
String Layout(std::u16string_view Text, const TLayoutOptions& Options) {
  TRecordingCanvas canvas;
  const auto lines = ParseTinyHTML(Text, canvas, Options);
  EXPECT_EQ(canvas.GetFont(), TFont());
  String result;
  for (int i = 0; i < lines->GetCount(); ++i) {
    if (i > 0) result += u"/";
    for (int c = 0; c < lines->Get(i)->GetCount(); ++c) {
      const TDecoChunk& chunk = *lines->Get(i)->Get(c);
      result += Concat({c > 0 ? u"|" : u"", chunk.GetValue(), Marks(chunk)});
    }
  }
  return lines->Overflow ? result + u"[..]" : result;
}

TEST(uVxTinyHTML, LaysOutLines) {
  for (const auto& [name, text, width, height, lines] : TCases<std::string, String, int, int, String>{
           {"nothing", u"", 1000, 1000, u""},
           {"break", u"a<br>b<BR/>c< br / >d", 1000, 1000, u"a|/b|/c|/d"},
           {"break with a blank", u"a< BR /\r>d", 1000, 1000, u"a|/d"},
           {"line feeds", u"a\r\nb\nc", 1000, 1000, u"a/b/c"},
           {"break at the end", u"a<br>", 1000, 1000, u"a|"},
           {"line feed at the end", u"a\n", 1000, 1000, u"a/"},
           {"lone return", u"a\rb", 1000, 1000, u"a|\rb"},
           {"line feed behind a blank", u"a \nb", 1000, 1000, u"a| \nb"},
           {"words begin with their blanks", u"a  b\tc", 1000, 1000, u"a|  b|\tc"},
           {"tag without end", u"a <b and more", 1000, 1000, u"a| |"},
           {"marks closed in any order", u"<b>x<i>y</b>z</i>w</b>v", 1000, 1000, u"|x{b}|y{bi}|z{i}|w|v"},
           {"unknown tags", u"a<x y>b</x>", 1000, 1000, u"a|b|"},
           {"entities", u"&lt;b&gt; &amp;", 1000, 1000, u"<b>| &"},
           {"font", u"<font color = \"clRed\" size=\"+2\">x</font>y", 1000, 1000, u"|x{10clRed}|y"},
           {"font without quotes", u"<font color=clRed>x", 1000, 1000, u"|x"},
           {"wrapped at blanks", u"aaa bbb ccc", 46, 1000, u"aaa| bbb/ccc"},
           {"a row of blanks at the wrap", u"aaa    bbb", 25, 1000, u"aaa/bbb"},
           {"long word", u"abcdefgh", 20, 1000, u"ab/cd/efg/h"},
           {"long word behind another", u"a bcdefgh", 20, 1000, u"a/bc/def/gh"},
           {"long word of many letters", u"abcdefghklmnopqsuvwxyz0123", 70, 1000, u"abcdefghkl/mnopqsuv/wxyz0123"},
           {"long word in two fonts", u"abc<b>defg</b>h", 29, 1000, u"abc|d{b}/efg{b}|h"},
           {"filled to the pixel", u"aaaaaaaaaaaaaaaaaaaaaaaa\u0301", 84, 1000, u"aaaaaaaaaaaa/aaaaaaaaaaaa\u0301"},
           {"marks without a width", Repeated(u"\u0301", 30) + u"aaa", 14, 1000, Repeated(u"\u0301", 30) + u"aa/a"},
           {"overhang as wide as the line", u"<b><i>x", 1, 1000, u"|{b}/{b}/x{bi}/{bi}"},
           {"narrower than a letter", u"ab", 3, 1000, u"a/b/"},
           {"no width", u"aaa bbb", 0, 1000, u"aaa| bbb"},
           {"second line too low", u"aaa bbb", 25, 14, u"aaa[..]"},
           {"second line cut", u"aaa bbb", 25, 27, u"aaa[..]"},
           {"no line fits", u"aaa", 100, 13, u"[..]"},
           {"no room", u"aaa", 100, 0, u"[..]"}})
    EXPECT_EQ(Layout(text, {.Rect = {0, 0, width, height}}), lines) << name;
}

TEST(uVxTinyHTML, ReadsFonts) {
  for (const auto& [mark, scale, chunk] :
       TCases<String, Extended, String>{{u"font size = \"+2\"", 2, u"x{12}"},
                                        {u"font size=\"14\"", 0.5, u"x{7}"},
                                        {u"font size=\"-3\"", 0.5, u"x{6}"},
                                        {u"font size=\"large\"", 1.5, u"x{12}"},
                                        {u"font size=\"\"", 2, u"x"},
                                        {u"FONT COLOR=\"#0000FF\"", 1, u"x{clRed}"},
                                        {u"font color=\"red\"", 1, u"x{clBlack}"},
                                        {u"font face=\"x\" color=\"clBlue\"", 1, u"x{clBlue}"}})
    EXPECT_EQ(Layout(u"<" + mark + u">x", {.Rect = kWide, .Scale = scale}), u"|" + chunk) << mark;
}

// Marks in one list, applied one after the other.
struct TPlainHistory {
  std::vector<String> Marks;

  void Close(std::u16string_view Name) {
    const auto found = std::find_if(Marks.rbegin(), Marks.rend(), [&](const String& mark) {
      return Name == u"font" ? mark.view().starts_with(Name) : mark.view() == Name;
    });
    if (found != Marks.rend()) Marks.erase(std::next(found).base());
  }
  TFont Apply(TFont Font, Extended Scale) const {
    for (const String& mark : Marks) {
      const size_t style = std::u16string_view(u"bius").find(mark.view());
      if (style != std::u16string_view::npos) Font.Style = Font.Style + TFontStyles{static_cast<TFontStyle>(style)};
      TVxStringList parts;
      if (StrMatch(mark, u"font*color*=*\"*\"*", true, &parts)) Font.Color = StringToColorDef(parts.Get(3), Font.Color);
      if (!StrMatch(mark, u"font*size*=*\"*\"*", true, &parts)) continue;
      const String value = parts.Get(3);
      const bool isAdded = value[0] == u'+' || value[0] == u'-';
      const auto scaled = static_cast<int>(RoundMath(StrToIntDef(value, isAdded ? 0 : Font.Size) * Scale));
      Font.Size = isAdded ? Font.Size + scaled : scaled;
    }
    return Font;
  }
};

TEST(TFontHistory, GivesWhatMarkAfterMarkGives) {
  const auto opening = std::to_array<String>(
      {u"b", u"i", u"u", u"s", u"font size=\"+3\"", u"font size=\"-1\"", u"font size=\"9\"", u"font color=\"clred\"",
       u"font color=\"clwindow\"", u"font color=\"none\"", u"font size=\"x\"", u"font color=\"$ff0000\" size=\"+1\""});
  const std::u16string_view closing[] = {u"b", u"i", u"u", u"s", u"font"};
  std::mt19937 random(1);
  for (const Extended scale : {1.0L, 1.5L}) {
    TFontHistory history;
    history.scaling = scale;
    TPlainHistory plain;
    for (int step = 0; step < 500; ++step) {
      if (random() % 9 < 4) {
        const String& mark = opening[random() % std::size(opening)];
        ASSERT_TRUE(history.OpenMark(mark));
        plain.Marks.push_back(mark);
      } else {
        const std::u16string_view name = closing[random() % std::size(closing)];
        static_cast<void>(history.CloseMark(u"/" + String(name)));
        plain.Close(name);
      }
      ASSERT_EQ(history.toFont({}), plain.Apply({}, scale)) << step;
    }
    EXPECT_EQ(history.GetChangeList()->GetCount(), static_cast<int>(plain.Marks.size()));
  }
}

TEST(uVxTinyHTML, Draws) {
  const String font = u" clWindowText Tahoma 8";
  // The lines of "ab", a blank, a bold "c" and "ddddd" from two places on.
  const auto drawn = [&](std::u16string_view ab, std::u16string_view blank, std::u16string_view c,
                         std::u16string_view d) {
    return Concat({u"text ", ab, u",20 14x14 \"ab\"", font, u"\ntext ", blank, u",20 4x14 \" \"", font, u"\ntext ", c,
                   u",20 8x14 \"c\"", font, u" bold\ntext ", d, u",34 35x14 \"ddddd\"", font, u"\n"});
  };
  const String cut = Concat({u"text 10,20 14x14 \"ab\"", font, u" in 10,20 30x20\ntext 24,20 4x14 \" \"", font,
                             u" in 10,20 30x20\ntext 28,20 8x14 \"c\"", font,
                             u" bold in 10,20 30x20\ntext 40,26 16x14 \"[..]\"", font, u"\n"});
  for (const auto& [name, rect, alignment, fits, text] : TCases<std::string, TRect, TAlignment, bool, String>{
           {"left", {10, 20, 56, 60}, taLeftJustify, true, drawn(u"10", u"24", u"28", u"10")},
           {"right", {10, 20, 56, 60}, taRightJustify, true, drawn(u"29", u"43", u"47", u"21")},
           {"centre", {10, 20, 56, 60}, taCenter, true, drawn(u"19", u"33", u"37", u"15")},
           {"cut", {10, 20, 56, 40}, taLeftJustify, false, cut},
           {"too low", {10, 20, 56, 30}, taLeftJustify, false, u""}}) {
    SCOPED_TRACE(name);
    TRecordingCanvas canvas;
    EXPECT_EQ(HTML2Canvas(u"ab <b>c</b> ddddd", canvas, rect, alignment, 1), fits);
    EXPECT_EQ(canvas.GetText(), text);
    EXPECT_EQ(canvas.GetFont(), TFont());
    EXPECT_EQ(canvas.GetTextVertical(), tvTop);
  }
}

TEST(uVxTinyHTML, Measures) {
  for (const auto& [text, wrap, lineCount, width, right, bottom] :
       TCases<String, bool, int, int, int, int>{{u"", false, 0, 0, 0, 8},
                                                {u"aaa bbb", false, 0, 5, 46, 14},
                                                {u"aaa bbb", true, 0, 25, 21, 28},
                                                {u"aaa bbb ccc", true, 2, 25, 21, 28},
                                                {u"aaa", false, 3, 0, 21, 30},
                                                {u"<font size=\"9\">", false, 1000000000, 0, 0, INT32_MAX},
                                                {u"<font size=\"9\">", false, 1000000, 0, 0, 9000006},
                                                {u"a<font size=\"+8\">b<br>cc", false, 0, 0, 26, 52},
                                                {u"abc<font size=\"+8\">d", true, 0, 15, 20, 68}}) {
    TRecordingCanvas canvas;
    EXPECT_EQ(HTML2CanvasSize(text, canvas, wrap, lineCount, width, 1), (TRect{0, 0, right, bottom}))
        << text << lineCount;
  }
}

// In a time that grows with the text.
TEST(uVxTinyHTML, StandsHostileTexts) {
  std::vector<String> texts = {
      Repeated(u"<b>a", 5000),
      Repeated(u"<b>", 5000) + Repeated(u"<font size=\"+1\">", 5000) + Repeated(u"</b>a", 5000),
      Repeated(u"<font size=\"x\">", 2000) + u"a", Repeated(Repeated(u"\u0301", 1000) + Repeated(u"W", 99), 20),
      Repeated(u"<font color=\"1\">", 2000) + Repeated(u"</font>", 2000)};
  for (auto piece : {u"x", u"\u0301", u"\x01", u" ", u"a ", u"<"}) texts.push_back(Repeated(piece, 20000));
  for (const String& text : texts) {
    TRecordingCanvas canvas;
    for (const int width : {0, 1, 100}) {
      EXPECT_GT(HTML2CanvasSize(text, canvas, true, 0, width, 1.25).Bottom, 0) << text.Slice(0, 20).ToUtf8();
    }
    static_cast<void>(HTML2Canvas(text, canvas, {0, 0, 30000, 30000}, taCenter, 1));
    EXPECT_EQ(RTF2HTML(u"\\plain" + text + u"\\'e4", canvas).view().back(), u'ä');
  }
}

TEST(uVxTinyHTML, EscapesAndStrips) {
  EXPECT_EQ(HTMLEscape(u"<a> & \"ü\" '", false), u"&lt;a&gt; &amp; &quot;&#252;&quot; '");
  EXPECT_EQ(HTMLEscape(u"ü'", true), u"ü&#039;");
  for (const auto& [html, text] : TCases<String, String>{{u"", u""},
                                                         {u"a<b>c</b>", u"ac"},
                                                         {u"a > b", u"a  b"},
                                                         {u"a<br>b<br/>c\nd<br />e", u"a|b|c|d|e"},
                                                         {u"a<BR>b", u"ab"},
                                                         {u"&lt;&amp;lt;&quot;&apos;&gt; &#252;", u"<&lt;\"'> &#252;"},
                                                         {u"a<b", u"a"}})
    EXPECT_EQ(HTML2Text(html, u"|"), text) << html;
}

TEST(uVxTinyHTML, WritesRtf) {
  const String head =
      u"{\\rtf1\\ansi\\ansicpg0\\uc0\\deff0\\deflang0\\deflangfe0\\paperw12240\\paperh15480\\margl850\\margr567"
      u"\\margt567\\margb567\\headery720\\footery720\\viewscale100\\viewzk0";
  const String tables = u"{\\fonttbl{\\f0\\fnil Tahoma;}}{\\colortbl;";
  const String paragraph = u"}\\pard\\fi0\\li0\\ql\\ri0\\sb0\\sa0\\itap0";
  const String black = u"\\red0\\green0\\blue0;";
  for (const auto& [html, form, rect, colors, body] : TCases<String, TRtfText, TRect, String, String>{
           {u"", rfAsIs, kWide, u"", u""},
           {u"a", rfAsIs, kWide, black, u"\\plain \\f0\\fs16 a"},
           {u"aaa bbb", rfAsIs, {0, 0, 25, 20}, black, u"\\plain \\f0\\fs16 aaa"},
           {u"a<br><b><i><u><s>b\\{ü", rfAsIs, kWide, black,
            u"\\plain \\f0\\fs16 a\\plain \\f0\\fs16 \\par \\plain \\f0\\fs16 \\plain \\f0\\fs16\\b \\plain "
            u"\\f0\\fs16\\b\\i "
            u"\\plain \\f0\\fs16\\b\\i\\ul \\plain \\f0\\fs16\\b\\i\\ul\\strike b\\{ü"},
           {u"<font color=\"clRed\">a</font><font color=\"$030201\">b</font><font color=\"clRed\">c", rfAsIs, kWide,
            black + u"\\red255\\green0\\blue0;\\red1\\green2\\blue3;",
            u"\\plain \\f0\\fs16 \\plain \\f0\\fs16\\cf2 a\\plain \\f0\\fs16 \\plain \\f0\\fs16\\cf3 b\\plain "
            u"\\f0\\fs16 "
            u"\\plain \\f0\\fs16\\cf2 c"},
           {u"\\{ü}\t€\x7F\U0001F600\r", rfEscaped, kWide, black,
            u"\\plain \\f0\\fs16 \\\\\\{\\u252\\'3f\\}\\plain \\f0\\fs16 \\tab "
            u"\\u8364\\'3f\\u127\\'3f\\u-10179\\'3f\\u-8704\\'3f\\plain "
            u"\\f0\\fs16  "}}) {
    TRecordingCanvas canvas;
    const String begin = form == rfEscaped ? head + u"\\uc1" : head;
    EXPECT_EQ(HTML2RTF(html, canvas, rect, form), begin + tables + colors + paragraph + body + u"}") << html;
  }
}

TEST(uVxTinyHTML, ReadsRtfAndWritesItsNormalForm) {
  TRecordingCanvas canvas;
  for (const auto& [rtf, html] : TCases<String, String>{
           {u"\\plain Hallo", u""},
           {u"\\plain Hallo\\par ", u"Hallo\r\n"},
           {u"{\\rtf1\\plain a\\b b\\b0\\ul  c\\ulnone d\\par\r\n\r\ne\\tab f\\i\\plain g\\i h\\i0}",
            u"a<b>b</b><u> c</u>d\r\ne\tfg<i>h</i>"},
           {u"\\plain\\fs24 a\\fs10 b\\fsx c\\plain d\\par",
            u"<font size = \"+4\" >a</font><font size = \"-3\" >b</font>cd\r\n"},
           {u"{\\colortbl;\\red255\\green0\\blue0;;\\red1\\green2\\blue3;}\\plain\\cf1 a\\cf2\\b\\strike b\\cf0 c\\par",
            u"<font color = \"clRed\" >a</font><b><s><font color = \"$00030201\" >b</font></s></b><b><s>c</s></b>\r\n"},
           {u"\\pard a & <b>\\'e4\\'DF x\\bullet\\endash\\ldblquote y\\zz z\\par",
            u"a &amp; &lt;b&gt;äß x•–\u201Cyz\r\n"},
           {u"12345678abc\\i", u"abc"},
           {u"{\\colortbl;}abc\\par", u""},
           {u"{\\colortbl;}abc\\i", u"abc"},
           {u"\\plain a{b}c\\'", u"a{b}c"}})
    EXPECT_EQ(RTF2HTML(rtf, canvas), html) << rtf;
  EXPECT_EQ(RaisedBy<EConvertError>([&] { static_cast<void>(RTF2HTML(u"\\plain\\cf7 a", canvas)); }),
            u"\"cf7\": the file has no such colour");
  EXPECT_EQ(canvas.GetFont(), TFont());
  EXPECT_EQ(HTML2HTML(u"<I>a <b>b</i></b><font size = \"+2\" >c</font>", canvas),
            u"<i>a</i> <b><i>b</i></b><font size = \"+2\" >c</font>");
}

}  // namespace
