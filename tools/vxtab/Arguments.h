// The command line of one command, read by the command's usage line.
//
//   TUsageError   wrong usage: exit status 2
//   TFailure      something failed: exit status 1
//   TArguments    files and options
//
// A usage line such as "IN [OUT] --cell C,R=TEXT... [--where NAME CLAUSE VALUE] [--trim]" is all that a
// command tells: "--" begins an option, and the words up to the next option or the closing bracket are its
// values; other words are files, optional ones in brackets.
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
  // Raises TUsageError for an option that Usage lacks, a missing value, a wrong number of files and an
  // empty one.
  // "--" ends the options; "--name=value" is the same as "--name value".
  TArguments(std::string_view Usage, std::span<const std::string> Words);

  const std::string& File(size_t Index) const { return FFiles[Index]; }
  size_t FileCount() const { return FFiles.size(); }
  bool Has(std::string_view Option) const;
  // All values in their order; none if the option is missing.
  std::span<const std::string> Values(std::string_view Option) const;
  // The values of an option of Usage where it stands last. TUsageError if it is missing.
  std::span<const std::string> Needed(std::string_view Option) const;
  // The last value as a number that is not negative; Default if the option is missing. TUsageError.
  int Number(std::string_view Option, int Default) const;
  // Items "N" and "N-M" between commas: the numbers in their order; at most 100000. TUsageError.
  std::vector<int> Numbers(std::string_view Option) const;

 private:
  struct TOption {
    // The names of its values, each behind a blank.
    std::string Form() const;
    std::vector<std::string> Names;
    std::vector<std::string> Values;
    bool IsGiven = false;
  };
  void ReadUsage(std::string_view Usage);
  void CheckFiles() const;

  std::vector<std::string> FNames;  // of the files that Usage has
  size_t FNeeded = 0;               // how many of them may not be missing
  std::vector<std::string> FFiles;
  std::map<std::string, TOption, std::less<>> FOptions;
};

// A number from 0 on in plain decimal digits; -1 for anything else.
int ParseNumber(std::string_view Text) noexcept;

}  // namespace vx::vxtab
