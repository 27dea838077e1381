// Rectangles, and what the system knows.
//
//   RectMargins, InitRect, InRect                   rectangles
//   SystemErrorMessage                              the text of a system error
//   GetWindowsUserName, IsRemoteSession             the user and the session
//   BitsPerPixel                                    the screen
//   ProcessMemoryInfoMin, ProcessMemoryInfoMax      the memory of this program
//   VxFindDefExe, IsTrueTypeFont                    programs and fonts
//
// Example:
//   vx::TRect outer = vx::RectMargins(cell, 1, 4, 2);
//   bool isOver = vx::InRect(x, y, outer);
//
// Pitfall: InRect counts all four sides as inside, Right and Bottom too.
#pragma once

#include "platform/Graphics.h"

namespace vx {

// Rect grown by Factor*DX to the left and to the right and by Factor*DY up and down; a negative Factor
// shrinks it. Sides stay within 32 bits.
TRect RectMargins(const TRect& Rect, int Factor, int DX, int DY) noexcept;
// Sets all four sides to Value.
void InitRect(TRect& Rect, int Value) noexcept;
// True if the point lies inside or on any of the four sides.
bool InRect(int X, int Y, const TRect& Rect) noexcept;

// The system's text of its error Code; empty if it has none.
String SystemErrorMessage(int Code);

// The login name of the user; empty if the system can't tell it.
String GetWindowsUserName();
// True if the user sits at another machine.
bool IsRemoteSession();
// The bits of a pixel on the screen; 0 without a screen.
int BitsPerPixel();
// The bytes of memory that the program holds now, and the most it ever held; 0 if unknown.
int64_t ProcessMemoryInfoMin();
int64_t ProcessMemoryInfoMax();
// The path of the program that opens files such as File, by its name; empty if there is none. File need
// not exist.
String VxFindDefExe(const String& File);
// True if a TrueType font of that family is installed; letters in any case. Reads the font files anew
// each time.
bool IsTrueTypeFont(std::u16string_view Name);

}  // namespace vx
