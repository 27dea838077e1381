// A rich text turned into other forms. See rendering/uVxTinyHTML.h.
#pragma once

#include <string_view>

#include "platform/Graphics.h"
#include "platform/String.h"
#include "platform/TCanvas.h"

namespace vx {

// Text as it has to stand between tags. With AsXml by XMLEncode; otherwise "<", ">", the double quote and "&" become
// entities, and each code unit above 127 "&#", its number and ";": u"ü" gives u"&#252;".
String HTMLEscape(std::u16string_view Text, bool AsXml);

// Text without tags and ">", its line breaks and those of the forms <br>, <br/> and <br /> (small letters) replaced by
// LineBreak; a carriage return with a line feed is both and also each of them. Then &quot; &apos; &gt; &lt; and &amp;
// are decoded, and no others: u"a<b>c</b>" gives u"ac", u"&#252;" stays.
String HTML2Text(std::u16string_view Text, std::u16string_view LineBreak);

// How HTML2RTF writes texts.
enum TRtfText : uint8_t {
  // As they stand, which is how old data was written: backslashes and braces in them are commands to the reader, and
  // characters above 127 are left to its good will.
  rfAsIs,
  // So that every reader gets the same text: backslash and braces escaped, tabs as \tab, characters above 126 as \u
  // and their number with a "?" behind it that readers of Unicode leave out, other code units below 32 as the blanks
  // that they are drawn as. For new programs.
  rfEscaped
};

// Text as RTF: laid out on Canvas, in whose font it begins, at a scale of 1; each line becomes a paragraph. Lines are
// wrapped at 1000 pixels, and what stands below 1000 pixels is dropped; with Rect at its width and height.
String HTML2RTF(std::u16string_view Text, TCanvas& Canvas, TRtfText Form = rfAsIs);
String HTML2RTF(std::u16string_view Text, TCanvas& Canvas, const TRect& Rect, TRtfText Form = rfAsIs);

// Text in the normal form of the dialect: laid out as by HTML2RTF, lines joined by \r\n, each run of text between all
// the marks that its font needs beside the canvas's. Of a run, font is closed first, then u, s, i and b; that order is
// wanted. Entities come out as the characters that they stand for.
String HTML2HTML(std::u16string_view Text, TCanvas& Canvas);

// The text of an RTF file in the normal form of HTML2HTML, measured against the canvas's font; the canvas's brush is
// clear then. No parser of all of RTF: groups mean nothing, braces stay in the text, reading begins at the first
// \plain, else \pard, else \par, a text behind the last backslash is dropped, and "&", "<" and ">" arrive as entities.
// EConvertError for a \cf whose number is none or has no colour.
String RTF2HTML(std::u16string_view Text, TCanvas& Canvas);

}  // namespace vx
