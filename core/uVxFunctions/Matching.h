// Texts matched with a pattern, and found in a buffer.
//
//   StrMatch   a pattern with the wildcard "*", which also captures
//   StrFind    a text in a buffer, from a place on in either direction
//
// Example:
//   vx::TVxStringList parts;
//   vx::StrMatch(u"width=\"80\"", u"*=\"*\"", false, &parts);    // true
//   parts.GetLighttext();                                        // u"width=|80"
//
// The time grows with the lengths of both texts together, whatever they hold.
// Pitfall: where several characters stand between two "*", the capture in front of them ends with all
// of them but the last one.
#pragma once

#include "platform/String.h"
#include "platform/TStrings.h"
#include "platform/Types.h"

namespace vx {

// True if Text as a whole is Pattern, in which each "*" stands for any characters, also none; without
// CaseSensitive in upper case. What lies between two "*" is found at its first place.
//
// List, if there is one, is cleared and gets what the "*" stood for, as written in Text, one entry for
// each "*" or row of "*". Where n characters stand between two "*", the entry in front of them also has
// the first n-1 of them; that is wanted: u"axxbcyyd" by u"a*bc*d" gives u"xxb" and u"yy". A "*" that is
// left when Text is used up gets no entry, nor does any if Text equals Pattern, save for u"*" alone,
// which gets Text. A false result leaves what was captured until then.
bool StrMatch(std::u16string_view Text, std::u16string_view Pattern, bool CaseSensitive, TStrings* List = nullptr);

// Looks for Text in Buffer and puts the place found, counted from 0, into Pos; false, with Pos
// unchanged, if there is none. Forward it begins at place Pos, backward Text.size() before it and goes
// on towards the front. A Pos outside the buffer counts as its nearer end. A code unit 0 is part of no
// place and ends a search forward.
//
// Case never counts, whatever MatchCase says: A to Z, À to Ö and Ø to Ý are their small letters, and
// then only the low 8 bits of two units are compared; that is wanted. With WholeWord the units before
// and behind the place must be in Delimiters, be 0 or lie outside the buffer. An empty Text is found at
// any place inside the buffer.
bool StrFind(std::u16string_view Buffer, std::u16string_view Text, int& Pos, bool Forward, bool MatchCase,
             bool WholeWord, const TCharSet& Delimiters);
// The same in a buffer that ends at its first code unit 0; nothing is found in a null pointer. Each call
// walks the whole buffer: who looks for many places gives the form above the buffer's size.
bool StrFind(const char16_t* Buffer, std::u16string_view Text, int& Pos, bool Forward, bool MatchCase, bool WholeWord,
             const TCharSet& Delimiters);

}  // namespace vx
