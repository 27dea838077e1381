// Lists and indexes of texts and numbers, with the forms in which a list travels as one text.
//
//   TVxStringList        the row type of every table and the work list of all text routines
//   TVxStringPairList    a sorted list of keys, each with a second text and object beside it
//   TVxString            a text as typed values and typed values as texts
//   TOldStringList       the older list, without ownership and without a rule of case
//   TVxStringIndex       sorted keys, each with an object; TVxStringTree: nodes of them
//   TArrayStrStr         texts by texts
//   TVxIntegerList       numbers; TVxIntegerListUnique: each once; TVxIdList: sorted
//   TVxDoubleList        floating point numbers; TVxDoubleSortList: sorted
//   TVxPointList         points, each once, sorted
//   TVxDouble, TvxDateRange   a number, and a range of dates, as objects
//   TPop                 reads typed values from a list one after another
//   QuotedStr, DequotedStr, CommatextToCelltext   the primitives of quoting
//
// The forms (commatext, lighttext, offsettext, intellitext, celltext, csv text and the serial form
// with free characters) are told in platform/TextForms.h.
//
// Example:
//   vx::TVxStringList row;
//   row.SetCommatext(u"4711,\"Max Meier\",Bonn");
//   row.Put(2, u"Köln");
//   vx::String line = row.GetCommatext();       // u"4711,\"Max Meier\",Köln"
//
// Threads: several may read one at once through its const members; who changes it has to be alone with it. Copies share
// what they hold until one of them changes, and may go to other threads.
//
// Pitfalls:
//   - Commatext: a blank ends a cell that does not stand in quotes, just as a comma does.
//   - Lists do not own the objects of their items unless told.
//   - A sorted list is extended by Add alone; Insert and Put raise EStringListError.
//   - Sort of a list of texts costs n x n for texts that stand just so; see TTextList.
#pragma once

#include "objects/uVxClasses/TArrayStrStr.h"
#include "objects/uVxClasses/TOldStringList.h"
#include "objects/uVxClasses/TPop.h"
#include "objects/uVxClasses/TVxDouble.h"
#include "objects/uVxClasses/TVxDoubleList.h"
#include "objects/uVxClasses/TVxIdList.h"
#include "objects/uVxClasses/TVxIntegerList.h"
#include "objects/uVxClasses/TVxPointList.h"
#include "objects/uVxClasses/TVxString.h"
#include "objects/uVxClasses/TVxStringIndex.h"
#include "objects/uVxClasses/TVxStringList.h"
#include "objects/uVxClasses/TVxStringPairList.h"
#include "objects/uVxClasses/TVxStringTree.h"
#include "objects/uVxClasses/TextForms.h"
#include "objects/uVxClasses/TvxDateRange.h"
