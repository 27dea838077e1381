// Sides and font styles as texts.
//
//   AlignSetToString, StringToAlignSet        a set of sides by letters
//   AlignToStr, StrToAlign                    one side: u"Left"
//   AlignToString, StringToAlign              one side: u"alLeft"; reads German words too
//   FontStylesToString, StringToFontStyles    a set of font styles by letters
//
// Example:
//   vx::AlignSetToString({vx::alTop, vx::alLeft});    // u"LT"
//   vx::StringToAlign(u"rechts");                     // vx::alRight
//
// Pitfall: only StringToAlign takes letters in any case, and only AlignToStr keeps alCustom.
#pragma once

#include "platform/Graphics.h"

namespace vx {

// L, T, R, B and C, in this order, for the members alLeft, alTop, alRight, alBottom and alClient; the
// other two have no letter.
String AlignSetToString(TAlignSet Aligns);
// The set of those capital letters; everything else in Text is passed over.
TAlignSet StringToAlignSet(std::u16string_view Text) noexcept;

// u"None", u"Top", u"Bottom", u"Left", u"Right", u"Client" or u"Custom"; u"None" for what is no side.
String AlignToStr(TAlign Align);
// Exactly one of those words; Default for anything else.
TAlign StrToAlign(std::u16string_view Text, TAlign Default) noexcept;

// u"alNone", u"alTop", u"alBottom", u"alLeft", u"alRight" or u"alClient"; u"alNone" for alCustom too.
String AlignToString(TAlign Align);
// "top", "altop" or "oben", "right", "alright" or "rechts", "left", "alleft" or "links", "bottom",
// "albottom" or "unten", "client", "alclient" or "klient", in any case; alNone for anything else.
TAlign StringToAlign(std::u16string_view Text) noexcept;

// B, I, U and S, in this order, for bold, italic, underline and strikeout.
String FontStylesToString(TFontStyles Styles);
// The set of those capital letters in any order; everything else in Text is passed over.
TFontStyles StringToFontStyles(std::u16string_view Text) noexcept;

}  // namespace vx
