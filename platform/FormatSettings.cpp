#include "platform/FormatSettings.h"

#include <cstddef>
#include <new>

namespace vx {

namespace {

// Lives as long as the program: whoever runs last may still print a number.
TFormatSettings& Settings() noexcept {
  alignas(TFormatSettings) static std::byte storage[sizeof(TFormatSettings)];
  static TFormatSettings& settings = *new (storage) TFormatSettings;
  return settings;
}

}  // namespace

const TFormatSettings& GetFormatSettings() noexcept { return Settings(); }

void SetFormatSettings(const TFormatSettings& New) { Settings() = New; }

}  // namespace vx
