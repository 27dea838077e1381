// Measures pieces of work side by side in one run and prints a line for each.
#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
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

// A line with our time and a peer's, both in seconds for Count pieces of work; printed in ms for one
// piece, in ns for many.
inline void Report(const char* What, double Ours, const char* Peer, double PeerTime, double Count = 1) {
  double scale = Count > 1 ? 1e9 / Count : 1e3;
  const char* unit = Count > 1 ? "ns" : "ms";
  std::printf("BENCH %s ours=%.2f%s %s=%.2f%s ratio=%.2f\n", What, Ours * scale, unit, Peer, PeerTime * scale, unit,
              PeerTime / Ours);
  std::fflush(stdout);
}

// The bytes that the program holds of the heap.
inline size_t HeapBytes() {
  struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

}  // namespace vx::bench
