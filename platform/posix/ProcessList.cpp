#include <algorithm>
#include <filesystem>
#include <optional>

#include "platform/Processes.h"
#include "platform/os/SystemFiles.h"

namespace vx {

namespace {

namespace fs = std::filesystem;

// The process whose directory of states this is; nothing if it has ended. What it says is the id, the name in
// parentheses, which may hold some itself, and a letter for its state.
std::optional<TProcessInfo> ReadProcess(const fs::path& Directory) {
  const std::string name = Directory.filename().string();
  if (name.find_first_not_of("0123456789") != name.npos) return {};
  const std::string state = os::TSource((Directory / "stat").string()).ReadAll();
  const size_t open = state.find('('), close = state.rfind(')');
  if (close == state.npos || open > close || close + 2 >= state.size()) return {};
  if (const char letter = state[close + 2]; letter == 'Z' || letter == 'X' || letter == 'x') return {};
  TProcessInfo info{os::NumberIn(name, 0), String::FromUtf8(state.substr(open + 1, close - open - 1)), {}};
  std::error_code error;
  std::string file = fs::read_symlink(Directory / "exe", error).filename().string();
  constexpr std::string_view kDeleted = " (deleted)";
  if (file.ends_with(kDeleted)) file.resize(file.size() - kDeleted.size());
  info.FileName = String::FromUtf8(file);
  return info;
}

}  // namespace

std::vector<TProcessInfo> ListProcesses() {
  std::vector<TProcessInfo> result;
  std::error_code error;
  fs::directory_iterator entries(os::Rooted("/proc"), error);
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    if (auto process = ReadProcess(entries->path())) result.push_back(*process);
  }
  std::sort(result.begin(), result.end(), [](const auto& a, const auto& b) { return a.Id < b.Id; });
  return result;
}

}  // namespace vx
