#include "core/uVxFunctions/SmallValues.h"

#include <algorithm>

#include "platform/System.h"

namespace vx {

namespace {

int Held(int64_t Value) noexcept { return static_cast<int>(std::clamp<int64_t>(Value, INT32_MIN, INT32_MAX)); }

}  // namespace

TRect RectMargins(const TRect& Rect, int Factor, int DX, int DY) noexcept {
  const int64_t x = int64_t{Factor} * DX, y = int64_t{Factor} * DY;
  return {Held(Rect.Left - x), Held(Rect.Top - y), Held(Rect.Right + x), Held(Rect.Bottom + y)};
}

void InitRect(TRect& Rect, int Value) noexcept { Rect = {Value, Value, Value, Value}; }

bool InRect(int X, int Y, const TRect& Rect) noexcept {
  return X >= Rect.Left && X <= Rect.Right && Y >= Rect.Top && Y <= Rect.Bottom;
}

String SystemErrorMessage(int Code) { return SystemErrorText(Code); }

String GetWindowsUserName() { return LoginName(); }

bool IsRemoteSession() { return IsRemoteLogin(); }

int BitsPerPixel() { return ScreenDepth(); }

int64_t ProcessMemoryInfoMin() { return ResidentBytes(); }

int64_t ProcessMemoryInfoMax() { return PeakResidentBytes(); }

String VxFindDefExe(const String& File) { return ProgramOfFile(File); }

bool IsTrueTypeFont(std::u16string_view Name) { return HasTrueTypeFont(Name); }

}  // namespace vx
