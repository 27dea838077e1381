// Measures pieces of work side by side in one run and prints a line for each.
#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace vx::bench {

inline double Seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

inline double Median(std::vector<double> Values) {
  std::sort(Values.begin(), Values.end());
  return Values[Values.size() / 2];
}

// Seconds that Work takes, once.
template <typename TWork>
double Time(TWork Work) {
  double start = Seconds();
  Work();
  return Seconds() - start;
}

// Medians of the seconds that each of the works takes, run in turn so that a change of the machine's
// mood meets all of them. A work returns its seconds, so that it can leave out what is not its point.
template <typename... TWorks>
std::vector<double> Medians(int Rounds, TWorks... Works) {
  std::vector<std::vector<double>> times(sizeof...(Works));
  for (int round = 0; round < Rounds; ++round) {
    size_t i = 0;
    (times[i++].push_back(Works()), ...);
  }
  std::vector<double> medians;
  for (auto& each : times) medians.push_back(Median(each));
  return medians;
}

// Ends the program with What where it is not good, as its figures would be worth nothing.
inline void Expect(bool IsGood, std::string_view What) {
  if (IsGood) return;
  std::printf("FAILED %.*s\n", static_cast<int>(What.size()), What.data());
  std::fflush(stdout);
  std::_Exit(1);
}

// What a figure has to reach, at the end of its line: " bar=2.00 met", or "short". No bar is an empty text.
class TBar {
 public:
  constexpr TBar() = default;
  static constexpr TBar AtLeast(double Value) { return {Value, false}; }
  static constexpr TBar AtMost(double Value) { return {Value, true}; }
  // The figure and the bar are both written in Unit.
  std::string Text(double Figure, const char* Unit = "") const {
    if (FValue == 0) return {};
    char text[80];
    std::snprintf(text, sizeof text, " bar=%.2f%s %s", FValue, Unit,
                  (FIsMost ? Figure <= FValue : Figure >= FValue) ? "met" : "short");
    return text;
  }

 private:
  constexpr TBar(double Value, bool IsMost) : FValue(Value), FIsMost(IsMost) {}
  double FValue = 0;
  bool FIsMost = false;
};

// Seconds for Count pieces of work, written in ms for one piece and in ns a piece for many.
struct TFigure {
  double Value;
  const char* Unit;
  TFigure(double Seconds, double Count)
      : Value(Seconds * (Count > 1 ? 1e9 / Count : 1e3)), Unit(Count > 1 ? "ns" : "ms") {}
};

// A line with our time and a peer's, both in seconds for Count pieces of work, and the peer's time by ours, to which
// the bar belongs.
inline void Report(std::string_view What, double Ours, std::string_view Peer, double PeerTime, double Count = 1,
                   TBar Bar = {}) {
  const TFigure ours(Ours, Count), theirs(PeerTime, Count);
  const double ratio = PeerTime / Ours;
  std::printf("BENCH %.*s ours=%.2f%s %.*s=%.2f%s ratio=%.2f%s\n", static_cast<int>(What.size()), What.data(),
              ours.Value, ours.Unit, static_cast<int>(Peer.size()), Peer.data(), theirs.Value, theirs.Unit, ratio,
              Bar.Text(ratio).c_str());
  std::fflush(stdout);
}

// A line with our time alone, to which the bar belongs: in ms for one piece of work, in ns for many.
inline void ReportOurs(std::string_view What, double Ours, double Count = 1, TBar Bar = {}) {
  const TFigure ours(Ours, Count);
  std::printf("BENCH %.*s ours=%.2f%s%s\n", static_cast<int>(What.size()), What.data(), ours.Value, ours.Unit,
              Bar.Text(ours.Value, ours.Unit).c_str());
  std::fflush(stdout);
}

// A line with the time of a piece of work where there are many and where there are few, and how much longer it takes
// where there are many, to which the bar belongs.
inline void ReportGrowth(std::string_view What, std::string_view Many, double AtMany, std::string_view Few,
                         double AtFew, const char* Unit, TBar Bar = {}) {
  const double ratio = AtMany / AtFew;
  std::printf("BENCH %.*s_linear %.*s=%.2f%s %.*s=%.2f%s ratio=%.2f%s\n", static_cast<int>(What.size()), What.data(),
              static_cast<int>(Many.size()), Many.data(), AtMany, Unit, static_cast<int>(Few.size()), Few.data(), AtFew,
              Unit, ratio, Bar.Text(ratio).c_str());
  std::fflush(stdout);
}

// The bytes that the program holds of the heap.
inline size_t HeapBytes() {
  struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

}  // namespace vx::bench
