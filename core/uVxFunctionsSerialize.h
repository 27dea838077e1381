// Routines that stand on the text forms of lists (see platform/TextForms.h).
//
//   ToCommatext, ArrayToCommatext, CommatextToString,
//   TextToCommatext, CommatextToText                    between commatext, lines and sentences
//   explode, implode, mergeSl                           splitting and joining
//   TrimStrings, TrimString, TrimStringLeft, TrimStringRight,
//   TrimUltimate, DecorateStrings, GetMyCommatext       lines of a list
//   WordWrapCommatext, WordWrapTINYCommatext, WordWrapStrings   lines of limited width
//   FontToString, StringToFont                          a font as text
//   FieldTypeToStr, StrToFieldType, GetVxFieldType ...  the types of cells, and booleans with a third state
//
// Example:
//   auto parts = vx::explode(u"Bonn; Köln;", u';', {vx::eoTrim});      // Bonn, Köln and an empty one
//   vx::String text = vx::implode(*parts, u", ", {vx::eoSkipEmpty});   // u"Bonn, Köln"
//
// Threads: any number may call these at once; the program's settings are to stand still meanwhile.
//
// Pitfalls:
//   - explode takes the last piece as it stands, whatever the options say.
//   - TrimStrings raises EStringListError when it removes inner lines behind two or more leading ones.
//   - The widths count code units.
#pragma once

#include "core/uVxFunctionsSerialize/Commatext.h"
#include "core/uVxFunctionsSerialize/Explode.h"
#include "core/uVxFunctionsSerialize/FieldTypes.h"
#include "core/uVxFunctionsSerialize/FontText.h"
#include "core/uVxFunctionsSerialize/TrimLines.h"
#include "core/uVxFunctionsSerialize/WordWrap.h"
