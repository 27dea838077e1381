// The version of the system, as programs for Windows know it.
//
//   TOSVersionInfoEx, OSVersionEx   the version record
//   GetWinVersion                   the version as text
//   IsWin7, IsWin7AndBigger         questions to the record
//   Is64bit                         whether a program of 32 bits runs on a system of 64
//
// Example (a test):
//   vx::OSVersionEx() = {.MajorVersion = 6, .MinorVersion = 1, .PlatformId = 2, .CSDVersion = u"Service Pack 1"};
//   vx::GetWinVersion();      // u"Windows Server 2008 R2 Professional Service Pack 1"
//
// Pitfalls:
//   - Is64bit is false for a program of 64 bits.
//   - No locks: change the record before other threads ask.
#pragma once

#include <cstdint>

#include "platform/String.h"

namespace vx {

// The platforms of the record.
inline constexpr uint32_t VER_PLATFORM_WIN32s = 0, VER_PLATFORM_WIN32_WINDOWS = 1, VER_PLATFORM_WIN32_NT = 2;
// Any other system; its versions are not counted as those of Windows.
inline constexpr uint32_t VER_PLATFORM_OTHER = 10;
// Bits of the suite, and the product of a workstation.
inline constexpr uint16_t VER_SUITE_PERSONAL = 512, VER_SUITE_WH_SERVER = 32768;
inline constexpr uint8_t VER_NT_WORKSTATION = 1;

struct TOSVersionInfoEx {
  uint32_t MajorVersion = 0;
  uint32_t MinorVersion = 0;
  uint32_t BuildNumber = 0;
  uint32_t PlatformId = VER_PLATFORM_OTHER;
  String CSDVersion{};  // the text of the service pack
  uint16_t ServicePackMajor = 0;
  uint16_t ServicePackMinor = 0;
  uint16_t SuiteMask = 0;
  uint8_t ProductType = 0;
  bool IsServerR2 = false;  // the system's metric 89
};

// The record, which may be replaced. At first it tells of the running system: of any but Windows the platform
// VER_PLATFORM_OTHER, the version 0.0, and its name and version as CSDVersion.
TOSVersionInfoEx& OSVersionEx();

// The version by the record: u"Windows 7 Professional Service Pack 1". u"Unbekannte Windows-Version" stands for
// one that is not known. Every version of VER_PLATFORM_WIN32_NT, servers and unknown ones too, gets
// " Home Edition" with VER_SUITE_PERSONAL and " Professional" without it; that is wanted.
String GetWinVersion();

// Version 6.1 exactly; 6.1 and above. The platform doesn't count.
bool IsWin7();
bool IsWin7AndBigger();

// Whether this process runs under the emulation of 32 bits. The function that knows it is looked up at each
// call; without it, as on this system, false. Exception "IsWindows64: bad process handle" if it fails.
bool Is64bit();
// Gives false if it fails.
using TIsWow64Process = bool (*)(bool& Emulated);
// Puts Function in the place of the system's; nullptr: the system has none. Returns the one before.
TIsWow64Process SetIsWow64Process(TIsWow64Process Function) noexcept;

}  // namespace vx
