// What the comparisons of values_oracle share.
//
//   TReport          whether to talk, and how many differences there were in all
//   TComparison      counts the cases, the explained ones and the differences of one comparison
//   TWide, Print     a short text of ASCII characters as code units
//   TRandom          numbers that are the same in every run
#pragma once

#include <concepts>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/Currency.h"
#include "platform/String.h"

namespace vx::oracle {

// Wide enough for every amount in its units, times ten, and for every decimal number of 38 digits.
__extension__ typedef __int128 TInt128;

struct TReport {
  bool Verbose = false;
  int64_t Differences = 0;
};

// ASCII characters as code units, at most 300 of them.
class TWide {
 public:
  template <std::convertible_to<std::string_view> T>
  TWide(const T& Source) : TWide(static_cast<std::string_view>(Source), 0) {}
  operator std::u16string_view() const { return {FUnits, FCount}; }

 private:
  TWide(std::string_view Text, int) : FCount(Text.size() < sizeof FUnits / 2 ? Text.size() : sizeof FUnits / 2) {
    for (size_t i = 0; i < FCount; ++i) FUnits[i] = static_cast<unsigned char>(Text[i]);
  }

  char16_t FUnits[300];
  size_t FCount;
};

// What printf makes of Pattern and Values.
template <typename... Args>
TWide Print(const char* Pattern, Args... Values) {
  char text[200];
  int count = std::snprintf(text, sizeof text, Pattern, Values...);
  return TWide(std::string_view(text, static_cast<size_t>(count)));
}

inline std::string Show(const std::string& Text) { return Text; }
inline std::string Show(const char* Text) { return Text; }
inline std::string Show(std::u16string_view Text) {
  return "\"" + String(Text.substr(0, 250)).ToUtf8() + (Text.size() > 250 ? "..." : "\"");
}
inline std::string Show(const TWide& Text) { return Show(std::u16string_view(Text)); }
inline std::string Show(const String& Text) { return Show(Text.view()); }
inline std::string Show(Currency Value) { return std::to_string(Value.Units) + " units"; }
template <typename T>
requires std::is_arithmetic_v<T> || std::is_enum_v<T> std::string Show(T Value) {
  char text[80];
  if constexpr (std::is_floating_point_v<T>) {
    std::snprintf(text, sizeof text, "%.21Lg (%La)", static_cast<long double>(Value), static_cast<long double>(Value));
  } else {
    std::snprintf(text, sizeof text, "%lld", static_cast<long long>(Value));
  }
  return text;
}

// One comparison; at its end the first ten differences and the line of counts are printed.
class TComparison {
 public:
  TComparison(TReport& Report, const char* Name, const char* Unit) : FReport(Report), FName(Name), FUnit(Unit) {}
  ~TComparison() {
    for (const std::string& line : FFirst) std::printf("  DIFFERENCE %s %s\n", FName, line.c_str());
    std::printf("ORACLE %s %s=%lld", FName, FUnit, static_cast<long long>(FCases));
    if (FExplained > 0) std::printf(" explained=%lld", static_cast<long long>(FExplained));
    std::printf(" differences=%lld\n", static_cast<long long>(FDifferences));
    std::fflush(stdout);
    FReport.Differences += FDifferences;
  }
  TComparison(const TComparison&) = delete;
  TComparison& operator=(const TComparison&) = delete;

  // Counts one more case. Each may be checked in several ways.
  void Case() { ++FCases; }
  // Counts a case in which an identity does not hold, by a rule that was checked instead of it.
  void Explain() { ++FExplained; }
  bool Verbose() const { return FReport.Verbose; }

  // Routine gave Got for Input, and Want is right; equal numbers are the same, 0 and -0 too.
  template <typename G, typename W, typename... In>
  void Same(const char* Routine, const G& Got, const W& Want, const In&... Input) {
    if (Got == Want) [[likely]]
      return;
    Differ(Routine, Show(Got), Show(Want), (std::string() + ... + (" " + Show(Input))));
  }
  template <typename... In>
  void Same(const char* Routine, const String& Got, const TWide& Want, const In&... Input) {
    Same(Routine, Got.view(), std::u16string_view(Want), Input...);
  }

 private:
  [[gnu::noinline]] void Differ(const char* Routine, const std::string& Got, const std::string& Want,
                                const std::string& Input) {
    if (++FDifferences <= 10) FFirst.push_back(Routine + (":" + Input) + " gave " + Got + ", not " + Want);
  }

  TReport& FReport;
  const char* FName;
  const char* FUnit;
  int64_t FCases = 0, FExplained = 0, FDifferences = 0;
  std::vector<std::string> FFirst;
};

class TRandom {
 public:
  explicit TRandom(uint64_t Seed) : FEngine(Seed) {}
  uint64_t Bits() { return FEngine(); }
  // First to Last, both included.
  int64_t Range(int64_t First, int64_t Last) {
    return First + static_cast<int64_t>(FEngine() % (static_cast<uint64_t>(Last - First) + 1));
  }
  // Of every size alike, of both signs: First to -First for a First below 0.
  int64_t OfAnySize() { return static_cast<int64_t>(FEngine()) >> (FEngine() % 64); }

 private:
  std::mt19937_64 FEngine;
};

void CompareDates(TReport& Report);
void CompareWeeks(TReport& Report);
void CompareTimes(TReport& Report);
void CompareCurrency(TReport& Report);
void ComparePrinting(TReport& Report);
void CompareParsing(TReport& Report);

}  // namespace vx::oracle
