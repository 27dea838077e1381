#include "services/uWindowsVersion.h"

#include <atomic>

#include "platform/Exceptions.h"
#include "platform/System.h"
#include "platform/Text.h"

namespace vx {

namespace {

std::atomic<TIsWow64Process> IsWow64Process{nullptr};

constexpr uint32_t Code(uint32_t Major, uint32_t Minor) noexcept { return Major << 16 | Minor; }

// 0, which is no known version, for what doesn't fit.
uint32_t CodeOf(const TOSVersionInfoEx& Info) noexcept {
  return Info.MajorVersion > 0xFFFF || Info.MinorVersion > 0xFFFF ? 0 : Code(Info.MajorVersion, Info.MinorVersion);
}

constexpr char16_t kUnknown[] = u"Unbekannte Windows-Version";

const char16_t* OldName(uint32_t Version) noexcept {
  switch (Version) {
    case Code(4, 0):
      return u"Windows 95";
    case Code(4, 10):
      return u"Windows 98";
    case Code(4, 90):
      return u"Windows Millennium Edition";
    default:
      return kUnknown;
  }
}

const char16_t* NewName(const TOSVersionInfoEx& Info) noexcept {
  const bool isWorkstation = Info.ProductType == VER_NT_WORKSTATION;
  switch (CodeOf(Info)) {
    case Code(4, 0):
      return u"Windows NT";
    case Code(5, 0):
      return u"Windows 2000";
    case Code(5, 1):
      return u"Windows XP";
    case Code(5, 2):
      if (Info.IsServerR2) return u"Windows Server 2003 \"R2\"";
      if (isWorkstation) return u"Windows XP x64";
      return (Info.SuiteMask & VER_SUITE_WH_SERVER) != 0 ? u"Windows Home Server" : u"Windows Server 2003";
    case Code(6, 0):
      return isWorkstation ? u"Windows Vista" : u"Windows Server 2008";
    case Code(6, 1):
      return isWorkstation ? u"Windows 7" : u"Windows Server 2008 R2";
    default:
      return kUnknown;
  }
}

String NameOf(const TOSVersionInfoEx& Info) {
  switch (Info.PlatformId) {
    case VER_PLATFORM_WIN32s:
      return u"Win32s";
    case VER_PLATFORM_WIN32_WINDOWS:
      return OldName(CodeOf(Info));
    case VER_PLATFORM_WIN32_NT:
      return NewName(Info) + String((Info.SuiteMask & VER_SUITE_PERSONAL) != 0 ? u" Home Edition" : u" Professional");
    default:
      return kUnknown;
  }
}

}  // namespace

TOSVersionInfoEx& OSVersionEx() {
  static TOSVersionInfoEx info{.CSDVersion = SystemName()};
  return info;
}

String GetWinVersion() {
  const TOSVersionInfoEx& info = OSVersionEx();
  return Trim(NameOf(info) + u" " + info.CSDVersion);
}

bool IsWin7() { return OSVersionEx().MajorVersion == 6 && OSVersionEx().MinorVersion == 1; }

bool IsWin7AndBigger() {
  const TOSVersionInfoEx& info = OSVersionEx();
  return info.MajorVersion >= 7 || (info.MajorVersion == 6 && info.MinorVersion >= 1);
}

bool Is64bit() {
  const TIsWow64Process function = IsWow64Process;
  bool emulated = false;
  if (function != nullptr && !function(emulated)) throw Exception(u"IsWindows64: bad process handle");
  return emulated;
}

TIsWow64Process SetIsWow64Process(TIsWow64Process Function) noexcept { return IsWow64Process.exchange(Function); }

}  // namespace vx
