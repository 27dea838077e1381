#include <iostream>
#include <string>
#include <vector>

#include "tools/vxtab/System.h"
#include "tools/vxtab/Vxtab.h"

int main(int argc, char** argv) {
  vx::vxtab::HandleSignals();
  std::ios::sync_with_stdio(false);
  std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  vx::vxtab::TTerminal terminal{vx::vxtab::TerminalWidth(1), vx::vxtab::IsTerminal(2)};
  return vx::vxtab::RunVxtab(arguments, std::cin, std::cout, std::cerr, terminal);
}
