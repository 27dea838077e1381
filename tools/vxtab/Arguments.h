// The command line of one command, read by the command's usage line.
//
//   TUsageError   wrong usage: exit status 2
//   TFailure      something failed: exit status 1
//   TArguments    files and options
//
// A usage line such as "IN OUT --cell C,R=TEXT... [--trim]" is all that a command tells: "--" begins
// an option, a word behind it is its value, other words are files.
#pragma once

#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vx::vxtab {

class TUsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};
// An empty text: the library has told it already.
class TFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class TArguments {
 public:
  // Raises TUsageError for an option that Usage lacks, a missing value and a wrong number of files.
  // "--" ends the options; "--name=value" is the same as "--name value".
  TArguments(std::string_view Usage, std::span<const std::string> Words);

  const std::string& File(size_t Index) const { return FFiles[Index]; }
  bool Has(std::string_view Option) const { return FOptions.contains(Option); }
  // All values in their order; none if the option is missing.
  std::span<const std::string> Values(std::string_view Option) const;
  // The last value as a number that is not negative; Default if the option is missing. TUsageError.
  int Number(std::string_view Option, int Default) const;
  // Items "N" and "N-M" between commas: the numbers in their order; at most 100000. TUsageError.
  std::vector<int> Numbers(std::string_view Option) const;

 private:
  std::vector<std::string> FFiles;
  std::map<std::string, std::vector<std::string>, std::less<>> FOptions;
};

// A number from 0 on in plain decimal digits; -1 for anything else.
int ParseNumber(std::string_view Text) noexcept;

}  // namespace vx::vxtab
