// What the test files have in common: GoogleTest, the standard headers, what can be steered in a test (clock, zone,
// dialogs, files, code page, formats), texts and numbers, and the helpers of this folder.
//
//   vx::test::TClockAt clock(46000);  // replaces the program's clock as long as it lives
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cerrno>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "platform/Files.h"
#include "platform/FormatSettings.h"
#include "platform/Numbers.h"
#include "platform/TObject.h"
#include "platform/Text.h"
#include "tests/support/Cases.h"
#include "tests/support/FileText.h"
#include "tests/support/Print.h"
#include "tests/support/Raised.h"
#include "tests/support/TempDir.h"

namespace vx::test {

struct TClockAt : TManualClock {
  using TManualClock::TManualClock;
  TClockScope Scope{*this};
};
struct TZoneAt : TFixedTimeZone {
  using TFixedTimeZone::TFixedTimeZone;
  TTimeZoneScope Scope{*this};
};

// An object that tells when it goes.
struct TProbe : TObject {
  explicit TProbe(std::function<void()> AAtEnd) : AtEnd(std::move(AAtEnd)) {}
  ~TProbe() override { AtEnd(); }
  const std::function<void()> AtEnd;
};

}  // namespace vx::test

// Test files name what they test as the library does.
using namespace vx;
using namespace vx::test;
