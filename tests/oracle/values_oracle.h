// What the comparisons of values_oracle share.
//
//   TReport          whether to talk, what part of the random cases is drawn, how many differences there were in all
//   TComparison      counts the checks, the explained cases and the differences of one comparison
//   Wide, Print      a short text of ASCII characters as code units
//   TRandom          numbers that are the same in every run
#pragma once

#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/Currency.h"
#include "platform/String.h"

namespace vx::oracle {

struct TReport {
  bool Verbose = false;
  int Part = 1;  // 10: a tenth
  int64_t Differences = 0;
};

inline std::u16string Wide(std::string_view Text) { return {Text.begin(), Text.end()}; }

// What printf makes of Pattern and Values.
template <typename... Args>
std::u16string Print(const char* Pattern, Args... Values) {
  char text[200];
  return Wide({text, static_cast<size_t>(std::snprintf(text, sizeof text, Pattern, Values...))});
}

template <typename T>
std::string Show(const T& Value) {
  if constexpr (std::is_same_v<T, Currency>) {
    return std::to_string(Value.Units) + " units";
  } else if constexpr (std::is_convertible_v<const T&, std::u16string_view>) {
    return '"' + String(std::u16string_view(Value).substr(0, 250)).ToUtf8() + '"';
  } else if constexpr (std::is_floating_point_v<T>) {
    char text[80];
    std::snprintf(text, sizeof text, "%.21Lg (%La)", static_cast<long double>(Value), static_cast<long double>(Value));
    return text;
  } else {
    return std::to_string(Value);
  }
}

// One comparison: prints its first ten differences, and at its end the line of counts.
class TComparison {
 public:
  TComparison(TReport& Report, const char* Name) : FReport(Report), FName(Name) {}
  ~TComparison() {
    std::printf("ORACLE %s checks=%lld explained=%lld differences=%lld\n", FName, static_cast<long long>(FChecks),
                static_cast<long long>(FExplained), static_cast<long long>(FDifferences));
    FReport.Differences += FDifferences;
  }
  TComparison(const TComparison&) = delete;

  // Counts a case in which an identity does not hold, by a rule that was checked instead of it.
  void Explain() { ++FExplained; }
  bool Verbose() const { return FReport.Verbose; }

  // Routine gave Got for Input, and Want is right; equal numbers are the same, 0 and -0 too.
  template <typename G, typename W, typename... In>
  void Same(const char* Routine, const G& Got, const W& Want, const In&... Input) {
    ++FChecks;
    if (Got == Want || ++FDifferences > 10) return;
    const std::string input = (std::string() + ... + (" " + Show(Input)));
    std::printf("  DIFFERENCE %s %s:%s gave %s, not %s\n", FName, Routine, input.c_str(), Show(Got).c_str(),
                Show(Want).c_str());
  }

 private:
  TReport& FReport;
  const char* FName;
  int64_t FChecks = 0, FExplained = 0, FDifferences = 0;
};

class TRandom {
 public:
  explicit TRandom(uint64_t Seed) : FEngine(Seed) {}
  uint64_t Bits() { return FEngine(); }
  // First to Last, both included.
  int64_t Range(int64_t First, int64_t Last) {
    return First + static_cast<int64_t>(FEngine() % (static_cast<uint64_t>(Last - First) + 1));
  }
  int Int(int First, int Last) { return static_cast<int>(Range(First, Last)); }
  // Of every size alike, of both signs.
  int64_t OfAnySize() { return static_cast<int64_t>(FEngine()) >> (FEngine() % 64); }

 private:
  std::mt19937_64 FEngine;
};

void CompareDates(TReport& Report);
void CompareTimes(TReport& Report);
void CompareNumbers(TReport& Report);

}  // namespace vx::oracle
