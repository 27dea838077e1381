#include "platform/Application.h"

#include <atomic>

namespace vx {

namespace {

std::atomic<bool> isTerminating{false};

}  // namespace

bool IsTerminating() noexcept { return isTerminating; }

void SetTerminating(bool Value) noexcept { isTerminating = Value; }

}  // namespace vx
