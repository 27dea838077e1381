// A flag that is up for a while.
#pragma once

namespace vx::detail {

// Raises Flag as long as it lives, and puts it back as it was.
class TFlagScope {
 public:
  explicit TFlagScope(bool& Flag, bool Value = true) noexcept : FFlag(Flag), FBefore(Flag) { FFlag = Value; }
  ~TFlagScope() { FFlag = FBefore; }
  TFlagScope(const TFlagScope&) = delete;
  TFlagScope& operator=(const TFlagScope&) = delete;

 private:
  bool& FFlag;
  bool FBefore;
};

}  // namespace vx::detail
