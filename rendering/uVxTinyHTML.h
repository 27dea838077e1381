// Short rich texts in a small dialect of HTML: drawn, measured, and turned into other forms.
//
//   HTML2Canvas, HTML2CanvasSize        drawn into a rectangle; the room that a text needs
//   HTMLEscape, HTML2Text, HTML2HTML    escaped, plain, in the normal form of the dialect
//   HTML2RTF, RTF2HTML                  to rich text for other programs and back
//   ParseTinyHTML, TDecoLines           the lines that drawing, measuring and the converters work from
//   TDecoChunk, TDecoWord, TDecoLine    a run of text in one font; what moves to the next line as a whole; a line
//   TFontHistory                        the marks that are open, and the font that they make
//
// Example:
//   vx::TRecordingCanvas canvas;
//   const vx::String text = u"<b>Frau Müller</b><br>um <font color = \"clRed\">8:30</font> Uhr";
//   vx::HTML2CanvasSize(text, canvas, true, 0, 200, 1.0);          // the two lines: 200 pixels are enough
//   vx::HTML2Canvas(text, canvas, {0, 0, 200, 40}, vx::taLeftJustify, 1.0);    // true: all of it fitted
//   vx::HTML2Text(text, u"\r\n");                                  // u"Frau Müller\r\num 8:30 Uhr"
//
// The dialect: b, i, u, s and their closing forms; font with color = "..." or size = "..." and /font; br, br/ and
// "br /"; names in any case. Other tags vanish without effect. Marks may be closed in any order. A size with a sign is
// added to the one before, times the scale; without a sign it is the size itself.
//
// Threads: any number may call these at once, each with a canvas and lines of its own.
//
// Pitfalls:
//   - A line feed breaks a line as <br> does; a carriage return in front of it vanishes, a lone one stays.
//   - A tag without ">" swallows the rest of the text.
//   - The attributes of font need their quotation marks.
//   - HTML2RTF writes texts as they stand: a backslash or a brace in them is a command to the reader. New programs use
//     rfEscaped.
#pragma once

#include "rendering/uVxTinyHTML/Chunks.h"
#include "rendering/uVxTinyHTML/Converters.h"
#include "rendering/uVxTinyHTML/FontHistory.h"
#include "rendering/uVxTinyHTML/Layout.h"
