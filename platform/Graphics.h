// Colours and fonts as values.
//
//   TColor                         0x00BBGGRR, or a system colour with high byte 0xFF
//   ColorToString, StringToColor   names such as "clRed", hexadecimal for the others
//   IdentToColor, ColorToIdent     the names alone
//   ColorToRGB, SetSystemColors    what a system colour stands for
//   TPoint, TRect, TAlign          a place; a rectangle; the side that something is bound to
//   TAlignment                     the side that the lines of a text stand at
//   TFont                          name, colour, style and size
//
// Example:
//   vx::ColorToString(0x0000FF);           // u"clRed"
//   vx::ColorToString(0x123456);           // u"$00123456"
//   vx::StringToColor(u"clbtnface");       // 0xFF00000F
//
// Threads: each has its own values, and any number may read the same one.
//
// Pitfall: red is the lowest byte, so 0x0000FF is red and 0xFF0000 is blue.
#pragma once

#include <cstdint>
#include <span>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

using TColor = uint32_t;

inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clMaroon = 0x000080;
inline constexpr TColor clGreen = 0x008000;
inline constexpr TColor clOlive = 0x008080;
inline constexpr TColor clNavy = 0x800000;
inline constexpr TColor clPurple = 0x800080;
inline constexpr TColor clTeal = 0x808000;
inline constexpr TColor clGray = 0x808080;
inline constexpr TColor clSilver = 0xC0C0C0;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clLime = 0x00FF00;
inline constexpr TColor clYellow = 0x00FFFF;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clFuchsia = 0xFF00FF;
inline constexpr TColor clAqua = 0xFFFF00;
inline constexpr TColor clWhite = 0xFFFFFF;
inline constexpr TColor clMoneyGreen = 0xC0DCC0;
inline constexpr TColor clSkyBlue = 0xF0CAA6;
inline constexpr TColor clCream = 0xF0FBFF;
inline constexpr TColor clMedGray = 0xA4A0A0;
inline constexpr TColor clNone = 0x1FFFFFFF;
inline constexpr TColor clDefault = 0x20000000;
// Stand for what the desktop uses at the moment.
inline constexpr TColor clScrollBar = 0xFF000000;
inline constexpr TColor clBackground = 0xFF000001;
inline constexpr TColor clActiveCaption = 0xFF000002;
inline constexpr TColor clInactiveCaption = 0xFF000003;
inline constexpr TColor clMenu = 0xFF000004;
inline constexpr TColor clWindow = 0xFF000005;
inline constexpr TColor clWindowFrame = 0xFF000006;
inline constexpr TColor clMenuText = 0xFF000007;
inline constexpr TColor clWindowText = 0xFF000008;
inline constexpr TColor clCaptionText = 0xFF000009;
inline constexpr TColor clActiveBorder = 0xFF00000A;
inline constexpr TColor clInactiveBorder = 0xFF00000B;
inline constexpr TColor clAppWorkSpace = 0xFF00000C;
inline constexpr TColor clHighlight = 0xFF00000D;
inline constexpr TColor clHighlightText = 0xFF00000E;
inline constexpr TColor clBtnFace = 0xFF00000F;
inline constexpr TColor clBtnShadow = 0xFF000010;
inline constexpr TColor clGrayText = 0xFF000011;
inline constexpr TColor clBtnText = 0xFF000012;
inline constexpr TColor clInactiveCaptionText = 0xFF000013;
inline constexpr TColor clBtnHighlight = 0xFF000014;
inline constexpr TColor cl3DDkShadow = 0xFF000015;
inline constexpr TColor cl3DLight = 0xFF000016;
inline constexpr TColor clInfoText = 0xFF000017;
inline constexpr TColor clInfoBk = 0xFF000018;
inline constexpr TColor clHotLight = 0xFF00001A;
inline constexpr TColor clGradientActiveCaption = 0xFF00001B;
inline constexpr TColor clGradientInactiveCaption = 0xFF00001C;
inline constexpr TColor clMenuHighlight = 0xFF00001D;
inline constexpr TColor clMenuBar = 0xFF00001E;

enum TFontStyle : uint8_t { fsBold, fsItalic, fsUnderline, fsStrikeOut };
using TFontStyles = Set<TFontStyle>;

struct TFont {
  String Name = u"Tahoma";
  TColor Color = clWindowText;
  TFontStyles Style;
  int Size = 8;            // points
  int PixelsPerInch = 96;  // what Size is measured at; a canvas that takes the font puts its own here
  friend bool operator==(const TFont&, const TFont&) noexcept = default;
};

// A place, y growing downwards on a screen.
struct TPoint {
  int X = 0;
  int Y = 0;
  friend constexpr bool operator==(const TPoint&, const TPoint&) noexcept = default;
};

// Sides in screen coordinates: y grows downwards, Right and Bottom lie behind the last pixel.
struct TRect {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
  // Negative for sides the wrong way round.
  constexpr int Width() const noexcept { return Right - Left; }
  constexpr int Height() const noexcept { return Bottom - Top; }
  constexpr bool IsEmpty() const noexcept { return Right <= Left || Bottom <= Top; }
  friend constexpr bool operator==(const TRect&, const TRect&) noexcept = default;
};
// What both have in common; if nothing, a rectangle of all zeros.
constexpr TRect IntersectRect(const TRect& A, const TRect& B) noexcept {
  const TRect both{A.Left > B.Left ? A.Left : B.Left, A.Top > B.Top ? A.Top : B.Top,
                   A.Right < B.Right ? A.Right : B.Right, A.Bottom < B.Bottom ? A.Bottom : B.Bottom};
  return both.IsEmpty() ? TRect{} : both;
}

// The side of its parent that something is bound to.
enum TAlign : uint8_t { alNone, alTop, alBottom, alLeft, alRight, alClient, alCustom };
using TAlignSet = Set<TAlign>;

// Where the lines of a text stand.
enum TAlignment : uint8_t { taLeftJustify, taRightJustify, taCenter };

// The number of system colours: 0xFF000000 to 0xFF00001E.
inline constexpr int SystemColorCount = 31;
// The 0x00BBGGRR of a colour: of a system colour what the desktop uses, of every other one its low 24
// bits. A high byte 0xFF with a number that is no system colour gives black.
TColor ColorToRGB(TColor Color) noexcept;
// Replaces the desktop's colours, from clScrollBar on, by as many as are given, up to
// SystemColorCount. They are those of a plain light desktop at first. Not for use beside other threads.
void SetSystemColors(std::span<const TColor> Colors) noexcept;

// The colour of a name such as u"clRed", in any case. False, with Color unchanged, for anything else.
bool IdentToColor(std::u16string_view Ident, TColor& Color) noexcept;
// The name of a colour; false, with Ident unchanged, for a colour without one.
bool ColorToIdent(TColor Color, String& Ident);
// The name of a known colour such as u"clRed" or u"clWindowText", otherwise "$" and eight upper-case
// hexadecimal digits. StringToColor gives every colour back.
String ColorToString(TColor Color);
// The colour of a name (in any case) or of a number, decimal from -2^31 to 2^32-1 or "$" and
// hexadecimal digits up to 32 bits; a negative number is the colour of the same bits. False, with
// Color unchanged, for anything else: blanks, a sign without digits, a number too large.
bool TryStringToColor(std::u16string_view Text, TColor& Color) noexcept;
// The same; EConvertError for a text that is no colour.
TColor StringToColor(std::u16string_view Text);

}  // namespace vx
