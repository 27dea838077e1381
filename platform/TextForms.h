// The forms in which a list of cells travels as one text, byte for byte.
//
//   form         separator   a cell is quoted when it holds            one empty cell   no cell
//   commatext    ,           1 to 32, double quote, comma              ""               empty
//   serial form  free        1 to 32, the delimiter, the quote         two quotes       empty
//   lighttext    |           | or °                                    °°               empty
//   offsettext   none: hexadecimal length and ° before each cell       0°               empty
//   intellitext  offsettext where cells are long or hold °, else lighttext
//   celltext     line feed   never                                     empty            empty
//   csv text     ESC behind every cell, never quoted                   one ESC          empty
//
// Example:
//   vx::TCells cells = vx::ReadLighttext(u"Max Meier|Bonn|");   // three cells, the last one empty
//   vx::String text = vx::WriteOffsettext(cells);               // u"9°Max Meier4°Bonn0°"
//
// Readers never reject a text: they yield what their rules yield. Two rules look odd and are wanted,
// since files rely on them: a quoted cell without closing quote loses its last character, and a
// delimiter that is itself a blank (tab, ESC, space) is skipped in runs, so that empty cells between
// such delimiters vanish.
//
// Characters that end or quote a cell are always below 256: no other code unit is ever a separator.
//
// Threads: any number may call these at once.
#pragma once

#include <span>
#include <vector>

#include "platform/String.h"

namespace vx {

using TCells = std::vector<String>;

// Text between two Quotes, with every Quote inside doubled. The result is allocated once.
String QuotedStr(std::u16string_view Text, char16_t Quote);
// Undoes QuotedStr. Consumed is the number of code units read, the closing quote included, so that
// the caller can go on behind it. A Text that does not begin with Quote gives an empty result and 0;
// one without closing quote gives all that was read.
String DequotedStr(std::u16string_view Text, char16_t Quote, int& Consumed);
// The celltext of the cells of a commatext.
String CommatextToCelltext(std::u16string_view Text);

String WriteCommatext(std::span<const String> Cells);
TCells ReadCommatext(std::u16string_view Text);

// Delimiter and Quote have to be below 256 if the text is to be read again: units above never separate
// or quote.
String WriteSerialize(std::span<const String> Cells, char16_t Delimiter, char16_t Quote);
// A blank ends an unquoted cell just as the delimiter does. A code unit 0 ends the text.
TCells ReadSerialize(std::u16string_view Text, char16_t Delimiter, char16_t Quote);

String WriteLighttext(std::span<const String> Cells);
TCells ReadLighttext(std::u16string_view Text);

// Cells of any content, and reading takes no look at it. A cell as long as the one before it has no
// length of its own.
String WriteOffsettext(std::span<const String> Cells);
// A text without ° in its first eleven code units comes back whole, as one cell. A length beyond
// the end of the text takes what is left.
TCells ReadOffsettext(std::u16string_view Text);
// The cells number First to Last alone, counted from 0.
TCells ReadOffsettext(std::u16string_view Text, int First, int Last);

// Decides by the middle cell and a sample of about ten cells, never by a full walk.
String WriteIntellitext(std::span<const String> Cells);
TCells ReadIntellitext(std::u16string_view Text);

String WriteCellText(std::span<const String> Cells);
TCells ReadCellText(std::u16string_view Text);

String WriteCsv(std::span<const String> Cells);
// Empty cells and the leading blanks of a cell are lost.
TCells ReadCsv(std::u16string_view Text);

}  // namespace vx
