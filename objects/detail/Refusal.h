// The warning of a list that does not offer what its base does.
#pragma once

#include "platform/Dialogs.h"

namespace vx::detail {

// What stands before and behind the name of the function.
struct TRefusal {
  std::u16string_view Before;
  std::u16string_view Behind;

  void operator()(std::u16string_view Function) const { ShowWarning(Concat({Before, Function, Behind})); }
};

}  // namespace vx::detail
