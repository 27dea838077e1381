// Counts the primes below a number on all processors, while the main thread shows how far it is:
//   thread_pool 1000000
// Standard error shows the progress, standard output the result.
#include <cstdio>

#include "platform/MainThread.h"
#include "platform/Numbers.h"
#include "services/uThreadPool.h"

namespace {

constexpr int kRange = 1000;

// Counts in one range; runs on a worker.
class TRangeJob : public vx::TThreadJob {
 public:
  TRangeJob(int First, int Behind) : FFirst(First), FBehind(Behind) {}
  int GetPrimes() const { return FPrimes; }

 protected:
  void doExecute(vx::TThreadData&) override {
    for (int number = FFirst; number < FBehind; ++number) FPrimes += IsPrime(number);
  }

 private:
  static bool IsPrime(int Number) {
    for (int i = 2; i <= Number / i; ++i) {
      if (Number % i == 0) return false;
    }
    return Number >= 2;
  }

  int FFirst, FBehind;
  int FPrimes = 0;
};

// Adds up. Done comes from the workers, one at a time; Synchronize is for the screen.
class TPrimes : public vx::TThreadData {
 public:
  explicit TPrimes(int Ranges) : FRanges(Ranges) {}

  void Done(vx::TThreadJob* job, vx::TThreadQueue& queue, int doing) override {
    TThreadData::Done(job, queue, doing);
    vx::ForEachJob(job, [&](vx::TThreadJob& each) {
      FPrimes += static_cast<TRangeJob&>(each).GetPrimes();
      ++FDone;
    });
    delete job;
  }
  bool HaveToSync() override { return FDone > FShown; }
  void Synchronize() override {
    FShown = FDone.load();
    std::fprintf(stderr, "%d of %d ranges\n", FShown.load(), FRanges);
  }

  bool IsReady() const { return FShown == FRanges; }
  int GetPrimes() const { return FPrimes; }

 private:
  const int FRanges;
  std::atomic<int> FDone{0}, FShown{0}, FPrimes{0};
};

}  // namespace

int main(int argc, char** argv) {
  int bound = 0;
  if (argc != 2 || !vx::TryStrToInt(vx::String::FromUtf8(argv[1]), bound) || bound < 1) return 2;
  const int ranges = (bound - 1) / kRange + 1;
  TPrimes primes(ranges);
  vx::TThreadPool pool(primes, false);
  for (int i = 0; i < ranges; ++i) {
    const int first = i * kRange;
    pool.Add(new TRangeJob(first, bound - first > kRange ? first + kRange : bound));
  }
  while (!primes.IsReady()) (void)vx::CheckSynchronize(100);
  std::printf("%d primes below %d, in %d ranges\n", primes.GetPrimes(), bound, ranges);
  return 0;
}
