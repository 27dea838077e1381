#include "tools/vxtab/Arguments.h"

#include <algorithm>
#include <charconv>

namespace vx::vxtab {

namespace {

struct TUsage {
  std::vector<std::string> Files;
  std::map<std::string, bool, std::less<>> Options;  // whether the option takes a value
};

TUsage ReadUsage(std::string_view Text) {
  TUsage usage;
  for (size_t pos = 0; pos < Text.size();) {
    size_t end = std::min(Text.find(' ', pos), Text.size());
    std::string_view word = Text.substr(pos, end - pos);
    pos = end + 1;
    bool isOptional = word.starts_with('[');
    if (isOptional) word.remove_prefix(1);
    bool isClosed = word.ends_with(']');
    if (isClosed) word.remove_suffix(1);
    if (!word.starts_with("--")) {
      if (!word.empty()) usage.Files.emplace_back(word);
      continue;
    }
    bool hasValue = !isClosed && pos < Text.size();
    usage.Options.emplace(word.substr(2), hasValue);
    if (hasValue) pos = std::min(Text.find(' ', pos), Text.size()) + 1;
  }
  return usage;
}

}  // namespace

int ParseNumber(std::string_view Text) noexcept {
  int value = 0;
  auto [end, error] = std::from_chars(Text.data(), Text.data() + Text.size(), value);
  bool isGood = error == std::errc() && end == Text.data() + Text.size() && Text[0] != '-';
  return isGood ? value : -1;
}

TArguments::TArguments(std::string_view Usage, std::span<const std::string> Words) {
  const TUsage usage = ReadUsage(Usage);
  bool onlyFiles = false;
  for (size_t i = 0; i < Words.size(); ++i) {
    const std::string& word = Words[i];
    if (onlyFiles || word == "-" || !word.starts_with('-')) {
      FFiles.push_back(word);
      continue;
    }
    if (word == "--") {
      onlyFiles = true;
      continue;
    }
    size_t equals = word.find('=');
    std::string name = word.substr(0, equals);
    auto known = name.starts_with("--") ? usage.Options.find(std::string_view(name).substr(2)) : usage.Options.end();
    if (known == usage.Options.end()) throw TUsageError("unknown option " + name);
    std::vector<std::string>& values = FOptions[known->first];
    if (!known->second) {
      if (equals != std::string::npos) throw TUsageError("option " + name + " takes no value");
    } else if (equals != std::string::npos) {
      values.push_back(word.substr(equals + 1));
    } else if (i + 1 < Words.size()) {
      values.push_back(Words[++i]);
    } else {
      throw TUsageError("option " + name + " needs a value");
    }
  }
  if (std::find(FFiles.begin(), FFiles.end(), "") != FFiles.end()) throw TUsageError("a file name is empty");
  if (FFiles.size() < usage.Files.size()) throw TUsageError(usage.Files[FFiles.size()] + " is missing");
  if (FFiles.size() > usage.Files.size()) throw TUsageError("'" + FFiles[usage.Files.size()] + "' is too much");
}

std::span<const std::string> TArguments::Values(std::string_view Option) const {
  auto found = FOptions.find(Option);
  if (found == FOptions.end()) return {};
  return found->second;
}

int TArguments::Number(std::string_view Option, int Default) const {
  auto values = Values(Option);
  if (values.empty()) return Default;
  int number = ParseNumber(values.back());
  if (number < 0) throw TUsageError("--" + std::string(Option) + " " + values.back() + ": not a number from 0 on");
  return number;
}

std::vector<int> TArguments::Numbers(std::string_view Option) const {
  constexpr size_t kMost = 100000;
  std::vector<int> result;
  for (const std::string& value : Values(Option)) {
    for (size_t pos = 0; pos <= value.size();) {
      size_t end = std::min(value.find(',', pos), value.size());
      std::string_view item = std::string_view(value).substr(pos, end - pos);
      size_t dash = std::min(item.find('-'), item.size());
      int first = ParseNumber(item.substr(0, dash));
      int last = dash == item.size() ? first : ParseNumber(item.substr(dash + 1));
      if (first < 0 || last < first)
        throw TUsageError("--" + std::string(Option) + " " + value + ": not a list like 0,2-4");
      if (static_cast<size_t>(last - first) >= kMost - result.size())
        throw TUsageError("--" + std::string(Option) + ": too many");
      for (int number = first; number <= last; ++number) result.push_back(number);
      pos = end + 1;
    }
  }
  return result;
}

}  // namespace vx::vxtab
