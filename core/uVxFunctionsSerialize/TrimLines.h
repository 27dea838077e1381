// Trimming the lines of a list and finding sections in it. A blank line is one that trims to nothing.
#pragma once

#include "platform/TStrings.h"

namespace vx {

// Trims every line on the sides asked for, then deletes blank lines at the end, at the start and,
// with RemoveInner, between the first and the last line that is not blank. Returns whether lines are
// left. Pitfall, which is wanted: with RemoveInner, two or more lines removed at the start and others
// behind them it raises EStringListError, the inner blank lines still being there. On a sorted list
// trimming raises EStringListError.
bool TrimStrings(TStrings& Strings, bool TrimLeft, bool TrimRight, bool RemoveLeading, bool RemoveTrailing,
                 bool RemoveInner);
// The commatext of the lines without blank ones at both ends, or at one. The list stays as it is.
String TrimString(const TStrings& Strings);
String TrimStringLeft(const TStrings& Strings);
String TrimStringRight(const TStrings& Strings);
// The commatext of all trimmed lines that are not blank. The list stays as it is.
String TrimUltimate(const TStrings& Strings);

// TrimStrings and, with Wrap, WordWrapStrings to Width without indent; if that wrapped anything,
// TrimStrings again. Returns what the last TrimStrings returned; false for an empty list.
bool DecorateStrings(TStrings& Strings, bool TrimLeft, bool TrimRight, bool RemoveLeading, bool RemoveTrailing,
                     bool RemoveInner, bool Wrap, int Width);

// Finds a section in a list of lines: it begins behind the line ÿName, with an empty Name at the
// first line, and ends before the next line that begins with ÿT, or with the list. First and Last are
// the indexes of its lines; the result is whether it has any. Other lines that begin with ÿ are
// content: only names of classes, which begin with T, part sections.
bool GetMyCommatext(std::u16string_view Name, const TStrings& Strings, int& First, int& Last);

}  // namespace vx
