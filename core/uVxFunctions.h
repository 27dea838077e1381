// The small routines for values that the whole library uses.
//
//   Rounding        RoundTrade, RoundMath, RoundCurrency, between, Clamp, Divide
//   Sorting         QuickSort
//   Numbers         booleans, numbers and amounts of money from texts: StrToIntHeavy, TryStrToCurr ...
//   DateParsers     dates, times and hours from texts: StrToDateDef, StrToTimeDef, StrToHourDef ...
//   Database        the text forms of a database
//   CurrencyText    VxCurrToStr, DatesToDuration
//   Quoting         VxStrToQuoted, VxQuotedToStr
//   Strings         quote, GarantyLength, StrSet, StrCharset ...
//   Matching        StrMatch, StrFind
//   Colors          brightness, gray, hashes of colours, StringToColorDef
//   LayoutText      letters and names of alignments and font styles
//   SmallValues     rectangles, questions to the system
//
// Example, with German settings:
//   vx::Currency amount = vx::StrToCurrDef(u"1.234,565", 0);
//   vx::VxCurrToStr(amount, {vx::ctsThousendDivider}, 2);      // u"1.234,57"
//   vx::TDateTime birthday = vx::StrToDateDef(u"19350211", 0);
//   bool isMatch = vx::StrMatch(u"Meier, Max", u"m*, *", false);   // true
//
// Routines in Def give their default for a text that is no such value; routines in Heavy repair the text
// first. Pitfall: some repairs look odd, such as StrToIntHeavy(u"-12", 0) being 12. They are wanted: all
// programs that share data read it alike.
//
// Threads: any number may call these at once; the program's settings are to stand still meanwhile.
#pragma once

#include "core/uVxFunctions/Colors.h"
#include "core/uVxFunctions/CurrencyText.h"
#include "core/uVxFunctions/Database.h"
#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctions/LayoutText.h"
#include "core/uVxFunctions/Matching.h"
#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctions/Quoting.h"
#include "core/uVxFunctions/Rounding.h"
#include "core/uVxFunctions/SmallValues.h"
#include "core/uVxFunctions/Sorting.h"
#include "core/uVxFunctions/Strings.h"
