// vxtab, the table tool, as a function: main calls it, and so do the tests.
//
// Example:
//   std::ostringstream out, err;
//   int status = vx::vxtab::RunVxtab({"info", "Patienten.csv"}, std::cin, out, err);
#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace vx::vxtab {

struct TTerminal {
  int Width = 0;              // columns that "show" may use; 0: no terminal, lines get long
  bool ShowProgress = false;  // err is a terminal, on which a line may be taken back
};

// Arguments without the program's name, in UTF-8. Gives the exit status: 0, 1 when something failed,
// 2 for wrong usage; the message then stands in err. Raises nothing. Sets the dialog sink and the code
// page for the time of the call.
int RunVxtab(std::span<const std::string> Arguments, std::istream& In, std::ostream& Out, std::ostream& Err,
             const TTerminal& Terminal = {});

}  // namespace vx::vxtab
