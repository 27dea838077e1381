// Internal to the routines that change lists.
#pragma once

#include "platform/TStrings.h"

namespace vx {

// Keeps a list between BeginUpdate and EndUpdate, also when an error passes.
class TUpdateScope {
 public:
  explicit TUpdateScope(TStrings& Strings) : FStrings(Strings) { FStrings.BeginUpdate(); }
  ~TUpdateScope() { FStrings.EndUpdate(); }
  TUpdateScope(const TUpdateScope&) = delete;
  TUpdateScope& operator=(const TUpdateScope&) = delete;

 private:
  TStrings& FStrings;
};

}  // namespace vx
