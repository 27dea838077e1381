#include <tbb/global_control.h>
#include <tbb/parallel_for.h>
#include <tbb/task_group.h>
#include <time.h>

#include <algorithm>
#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "bench/machinery/Topics.h"
#include "bench/support/Bench.h"
#include "services/uThreadPool.h"

namespace vx::bench {
namespace {

constexpr int kWorkers = 2;
constexpr int kRounds = 7;
constexpr int kLoopRounds = 51;

// Work of a length that the compiler can't shorten.
uint64_t Spin(int Steps, uint64_t Seed) {
  for (int i = 0; i < Steps; ++i) Seed = Seed * 6364136223846793005u + 1442695040888963407u;
  return Seed;
}

// The steps of a job that takes so many nanoseconds, one job behind the other.
int StepsOf(double Nanoseconds) {
  constexpr int kSteps = 200;
  std::vector<uint64_t> results(10000);
  auto run = [&] {
    for (uint64_t& result : results) result = Spin(kSteps, result);
  };
  double best = 1;
  for (int round = 0; round < 100; ++round) best = std::min(best, Time(run));
  benchmark::DoNotOptimize(results.data());
  return static_cast<int>(Nanoseconds * kSteps * static_cast<double>(results.size()) / (best * 1e9));
}

class TSpinJob : public TThreadJob {
 public:
  int Steps = 0;
  uint64_t Result = 1;

 protected:
  void doExecute(TThreadData&) override { Result = Spin(Steps, Result); }
};

// Counts jobs and tells of the last one.
class TSpinData : public TThreadData {
 public:
  TSpinData() : TThreadData(-1000000) {}
  void Expect(int Count, bool IsFreeing) {
    FLeft = Count;
    FIsFreeing = IsFreeing;
    FDone.ResetEvent();
  }
  void WaitForLast() { (void)FDone.WaitFor(); }
  void Done(TThreadJob* job, TThreadQueue& queue, int doing) override {
    TThreadData::Done(job, queue, doing);
    auto* jobs = dynamic_cast<TThreadJobs*>(job);
    FLeft -= jobs != nullptr ? jobs->GetCount() : 1;
    if (jobs != nullptr && !FIsFreeing) jobs->SetOwnsObjects(false);
    if (jobs != nullptr || FIsFreeing) delete job;
    if (FLeft == 0) FDone.SetEvent();
  }
  bool HaveToSync() override { return false; }
  void Synchronize() override {}

 private:
  int FLeft = 0;
  bool FIsFreeing = false;
  TEvent FDone;
};

// Jobs are added to a running pool, and freed as they end.
double Ours(int Count, int Steps) {
  TSpinData data;
  TThreadPool pool(data, true);
  pool.Start();
  data.Expect(Count, true);
  return Time([&] {
    for (int i = 0; i < Count; ++i) {
      auto* job = new TSpinJob;
      job->Steps = Steps;
      pool.Add(job);
    }
    data.WaitForLast();
  });
}

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

// Seconds by Clock that Work takes.
template <typename TWork>
double TimeBy(double (*Clock)(), TWork Work) {
  const double start = Clock();
  Work();
  return Clock() - start;
}

// Jobs wait already when the workers start, and the pool knows their length.
double OursFilled(std::vector<TSpinJob>& Jobs, double (*Clock)()) {
  TSpinData data;
  for (int i = 0; i < 64; ++i) data.GetTicks().Add(1);
  TThreadPool pool(data, true);
  data.Expect(static_cast<int>(Jobs.size()), false);
  for (TSpinJob& job : Jobs) pool.Add(&job);
  return TimeBy(Clock, [&] {
    pool.Start();
    data.WaitForLast();
  });
}

double TaskGroup(int Count, int Steps) {
  tbb::task_group group;
  std::vector<uint64_t> results(static_cast<size_t>(Count));
  return Time([&] {
    for (uint64_t& result : results) group.run([&result, Steps] { result = Spin(Steps, 1); });
    group.wait();
  });
}

double Asio(int Count, int Steps) {
  boost::asio::thread_pool pool(kWorkers);
  std::vector<uint64_t> results(static_cast<size_t>(Count));
  return Time([&] {
    for (uint64_t& result : results) boost::asio::post(pool, [&result, Steps] { result = Spin(Steps, 1); });
    pool.join();
  });
}

double Ideal(std::vector<TSpinJob>& Jobs, double (*Clock)()) {
  const size_t half = Jobs.size() / 2;
  auto run = [&](size_t First, size_t Behind) {
    for (size_t i = First; i < Behind; ++i) Jobs[i].Result = Spin(Jobs[i].Steps, Jobs[i].Result);
  };
  return TimeBy(Clock, [&] {
    std::thread first(run, 0, half), second(run, half, Jobs.size());
    first.join();
    second.join();
  });
}

void Measure(const char* What, int Count, double Nanoseconds) {
  const int steps = StepsOf(Nanoseconds);
  std::vector<TSpinJob> jobs(static_cast<size_t>(Count));
  for (TSpinJob& job : jobs) job.Steps = steps;
  const tbb::global_control limit(tbb::global_control::max_allowed_parallelism, kWorkers);
  const std::vector<double> times = Medians(
      kRounds, [&] { return Ours(Count, steps); }, [&] { return TaskGroup(Count, steps); },
      [&] { return Asio(Count, steps); }, [&] { return OursFilled(jobs, &Seconds); },
      [&] { return Ideal(jobs, &Seconds); }, [&] { return OursFilled(jobs, &ProcessorSeconds); },
      [&] { return Ideal(jobs, &ProcessorSeconds); });
  const std::string name = std::string("machinery/pool_") + What;
  const bool isTiny = Nanoseconds < 1000;
  Report(name, times[0], "tbb_task_group", times[1], Count, isTiny ? TBar::AtLeast(1) : TBar());
  Report(name, times[0], "asio_thread_pool", times[2], Count);
  Report(name + "_settled", times[3], "two_threads", times[4], Count, isTiny ? TBar::AtLeast(1 / 1.3) : TBar());
  Report(name + "_settled_processor", times[5], "two_threads", times[6], Count);
}

// A loop over a range whose bodies take so many nanoseconds, beside the same one in a single thread.
void MeasureLoop(const char* What, int Count, double Nanoseconds, TBar Bar) {
  const int steps = StepsOf(Nanoseconds);
  std::vector<uint64_t> results(static_cast<size_t>(Count)), wanted(results.size());
  auto into = [steps](std::vector<uint64_t>& Values) {
    return [&Values, steps](int i) { Values[static_cast<size_t>(i)] = Spin(steps, static_cast<uint64_t>(i)); };
  };
  auto alone = [&] {
    return Time([&, body = into(wanted)] {
      for (int i = 0; i < Count; ++i) body(i);
    });
  };
  (void)alone();
  auto checked = [&](auto Run) {
    std::fill(results.begin(), results.end(), 0);
    const double time = Time([&] { Run(into(results)); });
    Expect(results == wanted, What);
    return time;
  };
  const tbb::global_control limit(tbb::global_control::max_allowed_parallelism, kWorkers);
  TThreadPool pool(kWorkers);
  const std::vector<double> times = Medians(
      kLoopRounds, [&] { return checked([&](auto body) { Expect(pool.ForEach(0, Count, body), What); }); },
      [&] { return checked([&](auto body) { tbb::parallel_for(0, Count, body); }); }, alone);
  const std::string name = std::string("machinery/loop_") + What;
  Report(name, times[0], "tbb_parallel_for", times[1], Count, Bar);
  Report(name, times[0], "one_thread", times[2], Count);
}

// The processor's time that a pool takes in ten seconds in which it has nothing to do, its workers stopped.
void MeasureIdle() {
  TSpinData data;
  data.SetIdleTicks(100);
  TThreadPool pool(data, true);
  data.Expect(1000, true);
  for (int i = 0; i < 1000; ++i) pool.Add(new TSpinJob);
  pool.Start();
  data.WaitForLast();
  while (pool.GetThreadsOn()) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  const double start = ProcessorSeconds();
  std::this_thread::sleep_for(std::chrono::seconds(10));
  const double used = ProcessorSeconds() - start;
  std::printf("BENCH machinery/pool_idle processor=%.2fms of 10000ms share=%.5f\n", used * 1e3, used / 10);
}

}  // namespace

void RunPool() {
  Measure("1M_jobs_100ns", 1000000, 100);
  Measure("10k_jobs_50us", 10000, 50000);
  MeasureLoop("1M_bodies_3ns", 1000000, 3, TBar::AtLeast(0.67));
  MeasureLoop("1M_bodies_30ns", 1000000, 30, TBar::AtLeast(0.67));
  MeasureLoop("1k_bodies_30us", 1000, 30000, TBar::AtLeast(0.67));
  MeasureIdle();
}

}  // namespace vx::bench
