// What a user may do, as a set, as a number and as a text.
//
//   TVxPermissionPart, TVXPermissionSet    one right; a set of rights
//   TVxPermissionImg                       the images that stand for a state of rights
//   PermissionPartToStr, PermissionPartToInt, StrToPermissionPart      one right
//   PermissionSetToInt, IntToPermissionSet, PermissionSetToStr         sets
//
// Example:
//   vx::PermissionSetToInt({vx::ppRead, vx::ppExport});      // 9
//   vx::PermissionSetToStr({vx::ppRead, vx::ppExport});      // u"Lesen/Ausführen,Exportieren"
//   vx::IntToPermissionSet(3);                               // {vx::ppRead, vx::ppWrite}
//
// Threads: each has its own values, and any number may read the same one.
//
// Pitfalls:
//   - A number tells what a set implies (delete implies write, everything implies read), so a set does
//     not always come back from its number as it was: {ppDelete} is 7.
//   - A text implies less: {ppDelete} is u"Schreiben,Löschen" without the right to read.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

enum TVxPermissionPart : uint8_t { ppRead, ppWrite, ppDelete, ppExport, ppFull };
using TVXPermissionSet = Set<TVxPermissionPart>;

enum TVxPermissionImg : uint8_t { piNone, piRead, piWrite, piDelete, piExport, piWriteExport, piFull, piDiffsub };

// u"Lesen/Ausführen", u"Schreiben", u"Löschen", u"Exportieren", u"Vollzugriff"; empty for what is none.
String PermissionPartToStr(TVxPermissionPart Part);
// 1, 2, 4, 8, and 32768 for ppFull; 0 for what is none.
int PermissionPartToInt(TVxPermissionPart Part) noexcept;
// The right of exactly that text, with regard to case. False, with Part unchanged, for any other.
bool StrToPermissionPart(std::u16string_view Text, TVxPermissionPart& Part) noexcept;

// 32768 with ppFull, whatever else is in the set. Otherwise the sum of 1 for any right, 2 for ppWrite
// or ppDelete, 4 for ppDelete and 8 for ppExport: 7 for ppDelete alone; 0 for the empty set.
int PermissionSetToInt(TVXPermissionSet Value) noexcept;
// Below 1 the empty set; up to 15 the rights of the bits, nothing implied: 4 is ppDelete alone; up to
// 32767 the four rights without ppFull; from there on all five.
TVXPermissionSet IntToPermissionSet(int Value) noexcept;
// The rights' texts joined by ",": u"Vollzugriff" with ppFull, else u"Lesen/Ausführen" with ppRead,
// ppWrite or ppExport (ppDelete does not bring it, which is wanted); then in either case u"Schreiben"
// with ppWrite or ppDelete, u"Löschen" with ppDelete, u"Exportieren" with ppExport. Empty for none.
String PermissionSetToStr(TVXPermissionSet Value);

}  // namespace vx
