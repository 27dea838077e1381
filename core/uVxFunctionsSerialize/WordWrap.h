// Breaking texts into lines of a width, counted in code units.
#pragma once

#include "platform/TStrings.h"

namespace vx {

// Breaks every cell of a commatext that is longer than Width into cells of at most Width: behind the
// last space that fits, or at Width if there is none. The pieces lose their trailing blanks; a piece
// with nothing left is one space, so that it survives as a cell. A Width below 1 breaks nothing.
String WordWrapCommatext(std::u16string_view Text, int Width);

// The same for cells with tags such as <b>, of which only what is visible counts. A tag begins at the
// first "<" and ends at the first ">" behind it; a "<" that is never closed and a ">" in front of the
// first "<" are visible. A cell is looked at if it is longer than Width with its tags. It breaks at
// the last place up to a space where all "<" and ">" before it pair up, so that no tag is cut. A cell
// with no such place breaks at Width, tags counted.
String WordWrapTINYCommatext(std::u16string_view Text, int Width);

// Breaks every line longer than Width behind the last character that may end a line: one that is
// neither a letter (A to Z, ÄÖÜßäöü) nor a digit, nor "," or "." between two digits. Without such a
// place it breaks at Width. Lines are not trimmed; the rest goes, behind Indent spaces, to a line of
// its own behind this one, which has no object. Returns whether anything was broken; false on an
// empty list and for a Width below 1. A place inside the Indent spaces does not count, and an Indent
// of Width or more counts as Width - 1.
bool WordWrapStrings(TStrings& Strings, int Width, int Indent);

}  // namespace vx
