// A topic of the benchmarks of controls, which its own source names:
//
//   const TTopic topic("edit", [] { ... });
#pragma once

namespace vx::bench {

class TTopic {
 public:
  using TRun = void (*)();

  TTopic(const char* Name, TRun Run) : FName(Name), FRun(Run), FNext(FFirst) { FFirst = this; }
  // Runs the topic of that name, all for nullptr. False if there is none.
  static bool RunAll(const char* Name);
  // The topics' names, a line each.
  static void PrintNames();

 private:
  static inline const TTopic* FFirst = nullptr;
  const char* FName;
  TRun FRun;
  const TTopic* FNext;
};

}  // namespace vx::bench
