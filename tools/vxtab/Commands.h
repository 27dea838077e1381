// The commands of vxtab. A new one is a function and a row in the table of Commands.cpp.
#pragma once

#include <iosfwd>
#include <span>

#include "tools/vxtab/Arguments.h"
#include "tools/vxtab/Reporter.h"
#include "tools/vxtab/Vxtab.h"

namespace vx::vxtab {

// All that a command gets.
struct TContext {
  const TArguments& Args;
  std::istream& In;
  std::ostream& Out;
  TReporter& Reporter;
  const TTerminal& Terminal;
};

struct TCommand {
  const char* Name;
  const char* Usage;  // see TArguments; the options of all commands come behind it
  const char* Help;   // lines for the help
  // Raises TUsageError and TFailure, and whatever the library raises.
  void (*Run)(const TContext& Context);
};

// The options that every command has.
inline constexpr char kCommonUsage[] =
    " [--foreign] [--separator NAME] [--encoding NAME] [--codepage N]"
    " [--sheet NAME] [--to-separator NAME] [--to-encoding NAME]";

std::span<const TCommand> AllCommands() noexcept;

}  // namespace vx::vxtab
