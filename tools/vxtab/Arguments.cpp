#include "tools/vxtab/Arguments.h"

#include <algorithm>
#include <charconv>

namespace vx::vxtab {

int ParseNumber(std::string_view Text) noexcept {
  int value = 0;
  auto [end, error] = std::from_chars(Text.data(), Text.data() + Text.size(), value);
  bool isGood = error == std::errc() && end == Text.data() + Text.size() && Text[0] != '-';
  return isGood ? value : -1;
}

void TArguments::ReadUsage(std::string_view Usage) {
  TOption* option = nullptr;  // the one that a word would be a value of
  for (size_t pos = 0; pos < Usage.size();) {
    size_t end = std::min(Usage.find_first_of(" \n", pos), Usage.size());
    std::string_view word = Usage.substr(pos, end - pos);
    pos = end + 1;
    if (word.empty()) continue;
    const bool isOptional = word.starts_with('[');
    const bool isClosed = word.ends_with(']');
    if (isOptional) word.remove_prefix(1);
    if (isClosed) word.remove_suffix(1);
    if (word.ends_with("...")) word.remove_suffix(3);
    if (word.starts_with("--")) {
      option = &FOptions[std::string(word.substr(2))];
    } else if (option != nullptr && !isOptional) {
      option->Names.emplace_back(word);
    } else {
      FNames.emplace_back(word);
      if (!isOptional) FNeeded = FNames.size();
    }
    if (isClosed) option = nullptr;
  }
}

std::string TArguments::TOption::Form() const {
  std::string result;
  for (const std::string& name : Names) result += ' ' + name;
  return result;
}

TArguments::TArguments(std::string_view Usage, std::span<const std::string> Words) {
  ReadUsage(Usage);
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
    auto known = name.starts_with("--") ? FOptions.find(std::string_view(name).substr(2)) : FOptions.end();
    if (known == FOptions.end()) throw TUsageError("unknown option " + name);
    TOption& option = known->second;
    option.IsGiven = true;
    size_t missing = option.Names.size();
    if (equals != word.npos) {
      if (missing == 0) throw TUsageError("option " + name + " takes no value");
      option.Values.push_back(word.substr(equals + 1));
      --missing;
    }
    if (missing >= Words.size() - i) {
      throw TUsageError("option " + name + " needs " +
                        (option.Names.size() == 1 ? "a value" : "all of" + option.Form()));
    }
    for (; missing > 0; --missing) option.Values.push_back(Words[++i]);
  }
  CheckFiles();
}

void TArguments::CheckFiles() const {
  if (FFiles.size() < FNeeded) throw TUsageError(FNames[FFiles.size()] + " is missing");
  if (FFiles.size() > FNames.size()) throw TUsageError("'" + FFiles[FNames.size()] + "' is too much");
  for (size_t i = 0; i < FFiles.size(); ++i) {
    if (FFiles[i].empty()) throw TUsageError(FNames[i] + " is empty");
  }
}

bool TArguments::Has(std::string_view Option) const {
  auto found = FOptions.find(Option);
  return found != FOptions.end() && found->second.IsGiven;
}

std::span<const std::string> TArguments::Values(std::string_view Option) const {
  auto found = FOptions.find(Option);
  if (found == FOptions.end()) return {};
  return found->second.Values;
}

std::span<const std::string> TArguments::Needed(std::string_view Option) const {
  const TOption& option = FOptions.find(Option)->second;
  if (!option.IsGiven) throw TUsageError("--" + std::string(Option) + option.Form() + " is missing");
  return std::span(option.Values).last(option.Names.size());
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
