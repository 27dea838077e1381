// Editors of one line that hold one typed value as text: a number, an amount of money, a date, a month, a time, a count
// of hours, a percentage, or a text under a template.
//
//   TVxMaskEdit                      the editor (TVxMaskEdit.h); TVxCustomMaskEdit is its base
//   TVxMaskMode, TVxLimitModes       what it holds, and which limits apply (MaskTypes.h)
//   StrToHM, toHour, toMinute        texts of hour counts, and CalStrToHourStr, their normal form (HourText.h)
//   LiteralString, CharAllowed       templates (Template.h)
//   ToInteger, ToFloat, ToDate...    values read from texts (ValueText.h)
//
// Only what can still become a value of the mode is taken from the keyboard, the arrow keys step the part of the value
// at the cursor, and when the field is left the text is completed, held to its limits and written in its normal form.
//
// Example:
//   vx::TPlainEdit line;                  // or the line editor of a desktop
//   vx::TVxMaskEdit edit(line);
//   edit.SetMaskMode(vx::mmHour);
//   line.Enter();                         // selects the whole text
//   line.Type(u"1x30");
//   edit.GetText();                       // u"130"
//   line.Exit();
//   edit.GetText();                       // u"1:30"
//   edit.gethour();                       // 1.5
//   edit.SetMaskMode(vx::mmTime);
//   line.Enter();
//   line.Type(u"830\t");
//   line.Down(vx::vkHome);
//   line.Down(vx::vkUp);
//   edit.GetText();                       // u"09:30"
//
// Threads: an editor belongs to the thread of its window; any number may call the routines for texts and templates at
// once.
//
// Pitfalls:
//   - Setting the mode of a field empties it, and takes separators and the texts beside it from the program's settings.
//   - OnChanged compares with the text at entry: a field that goes back to that is not told of, even if another value
//     was told in between.
//   - Stepping by the arrow keys does not stop at the limits; beyond them the value is invalid until the field is left.
//   - The empty picture of a date, u"00.00.0000", is valid and stands for no date.
#pragma once

#include "controls/uVxMaskEdit/HourText.h"
#include "controls/uVxMaskEdit/MaskTypes.h"
#include "controls/uVxMaskEdit/TVxMaskEdit.h"
#include "controls/uVxMaskEdit/Template.h"
#include "controls/uVxMaskEdit/ValueText.h"
