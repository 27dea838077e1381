#include "platform/MainThread.h"
#include "services/uMsg.h"
#include "services/uThreadPool.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

std::atomic<int> Jobs{0};  // alive
struct TJob : TThreadJob {
  explicit TJob(std::function<void()> work) : Work(std::move(work)) { ++Jobs; }
  ~TJob() override { --Jobs; }
  void doExecute(TThreadData&) override { Work(); }
  std::function<void()> Work;
};

// One worker, which is handed up to 31 jobs at a time.
struct TData : TThreadData {
  TData() { iThreadCount = 1, GetTicks().Add(1); }
  void Done(TThreadJob* job, TThreadQueue& queue, int doing) override {
    TThreadData::Done(job, queue, doing);
    ForEachJob(job, [&](TThreadJob&) { ++Ended; });
    delete job;
    if (const auto act = std::exchange(OnDone, {})) act();
  }
  bool HaveToSync() override { return false; }
  void Synchronize() override {}
  std::atomic<int> Ended{0};
  std::function<void()> OnDone;
};

struct PoolWorkThreads : testing::Test {
  PoolWorkThreads() { SetMainThread(); }
  ~PoolWorkThreads() override {
    EXPECT_EQ(Jobs, 0);
    while (CheckSynchronize()) continue;
  }
};

std::string Refusal(const std::function<void()>& work) {
  try {
    work();
  } catch (const Exception& error) {
    return error.what();
  }
  return "none";
}
const auto Pause = [] { SystemClock().Sleep(1); };

TEST_F(PoolWorkThreads, LoopsDoEachItemOnceWhereverTheyRun) {
  TData data;
  TThreadPool one(1), four(4), stopped(data, true);
  for (TThreadPool* pool : {&one, &four, &stopped}) {
    for (int count : {0, 1, 2, 7, 1000, 300000}) {
      std::vector<uint8_t> done(static_cast<size_t>(count));
      TLoopParts<int64_t> sums(pool->GetLoopThreads(), 0);
      const bool isWhole = pool->ForEach(-3, count - 3, sums, [&](int i, int64_t& sum) {
        ++done[static_cast<size_t>(i + 3)];
        sum += i;
      });
      const int64_t sum = std::accumulate(sums.begin(), sums.end(), int64_t{0}, std::plus<>());
      EXPECT_TRUE(isWhole) << count;
      EXPECT_EQ(sum, int64_t{count} * (count - 7) / 2);
      EXPECT_EQ(done, std::vector<uint8_t>(done.size(), 1));
    }
    auto nested = pool->Run([pool] {
      std::atomic<int> bodies{0};
      const auto inner = [&](size_t) {
        EXPECT_TRUE(pool->ForEach(uint8_t{250}, uint8_t{255}, [&](uint8_t) { ++bodies; }));
      };
      EXPECT_TRUE(pool->ForEach(0, size_t{20}, inner));
      return bodies.load();
    });
    EXPECT_EQ(nested.Get(), 100);
  }
  EXPECT_EQ(Refusal([&] { (void)one.ForEach(-1, 5u, [](unsigned) {}); }), "A loop from below zero needs a signed end");
  TLoopParts<int> few(1);
  EXPECT_THROW((void)four.ForEach(0, 9, few, [](int, int&) {}), EArgumentException);
  std::atomic<int> served{0};
  EXPECT_TRUE(four.ForEach(0, 50, [&](int) { Pause(), TThread::Synchronize([&] { served += IsMainThread(); }); }));
  EXPECT_EQ(served, 50);
}

TEST_F(PoolWorkThreads, LoopsAreBrokenOff) {
  TThreadPool pool(3);
  TPoolProgress progress;
  TConnection stops = progress.GetSignal().Connect([](TObject*, int, int, bool& stop, TObject*) { stop = true; });
  std::atomic<int> begun{0};
  auto loop = [&](std::function<void()> act, TPoolProgress* shown = nullptr) {
    begun = 0;
    return pool.ForEach(
        0, 100000, [&](int) { ++begun == 50 ? act() : Pause(); }, shown);
  };
  const auto byTask = [&] {
    std::atomic<TPoolTask<bool>*> self{nullptr};
    auto task = pool.Run([&] {
      return loop([&] {
        while (self == nullptr) Pause();
        self.load()->Cancel();
      });
    });
    self = &task;
    return task.Get();
  };
  const TCases<const char*, std::function<bool()>, std::string> cases = {
      {"by a body", [&] { return loop([] { throw EConvertError(u"fifty"); }); }, "fifty"},
      {"by the pool", [&] { return loop([&] { pool.Cancel(), begun = TThreadPool::IsCanceled() ? 51 : 100000; }); },
       "none"},
      {"by a handler", [&] { return loop([] {}, &progress); }, "none"},
      {"by its task", byTask, "none"}};
  for (const auto& [what, run, told] : cases) {
    bool isWhole = false;
    EXPECT_EQ(Refusal([&, act = run] { isWhole = act(); }), told) << what;
    EXPECT_EQ((TFacts{isWhole, begun < 10000}), "no yes") << what;
  }
  EXPECT_FALSE(TThreadPool::IsCanceled());
  stops = progress.GetSignal().Connect([] { throw EConvertError(u"shown"); });
  EXPECT_EQ(Refusal([&] { (void)loop([] {}, &progress); }), "shown");
}

TEST_F(PoolWorkThreads, ProgressIsThrottledInTheMainThread) {
  test::TClockAt clock(46000);
  TThreadPool pool(3);
  std::vector<std::string> shown;
  auto progress = std::make_unique<TPoolProgress>();
  TConnection shows = progress->GetSignal().Connect([&](TObject*, int step, int max, bool&, TObject*) {
    shown.push_back(std::to_string(step) + "/" + std::to_string(max) + (IsMainThread() ? "" : "!"));
  });
  EXPECT_TRUE(pool.ForEach(
      0, 500, [](int) { SystemClock().Sleep(1); }, progress.get()));
  EXPECT_EQ((TFacts{shown.size() <= 3, shown.back()}), "yes 500/500") << "a clock that stands still lets two come";
  shown.clear(), progress->Begin(5'000'000'000);
  const auto advance = [&](int64_t steps) { std::thread([&] { progress->Advance(steps); }).join(); };
  advance(1'000'000), advance(1'000'000);
  EXPECT_TRUE(CheckSynchronize());
  advance(1'000'000);
  EXPECT_FALSE(CheckSynchronize()) << "too early";
  clock.Advance(100), advance(1'000'000), CheckSynchronize(), advance(4'996'000'000), CheckSynchronize();
  clock.Advance(100), advance(1), progress.reset();
  EXPECT_TRUE(CheckSynchronize()) << "finds it gone";
  EXPECT_EQ((TFacts{shown}), "500000/1250000000,1000000/1250000000,1250000000/1250000000");
}

TEST_F(PoolWorkThreads, WaitTellsOrIsRefused) {
  TData data;
  TThreadPool pool(data, true);
  std::vector<std::string> refused;
  const auto refuse = [&] { refused.push_back(Refusal([&] { (void)pool.Wait(); })); };
  EXPECT_EQ(pool.Wait(), pwDone);
  pool.Add(new TJob([&] { TThread::Synchronize([&] { refuse(); }); }));
  EXPECT_EQ(pool.Wait(), pwStopped);
  data.OnDone = [&] { refuse(), refused.push_back(Refusal([&] { (void)pool.ForEach(0, 2, [](int) {}); })); };
  pool.Start();
  EXPECT_EQ((TFacts{pool.Wait(), refused.size(), refused[0]}),
            "0 3 What the main thread runs for a pool can't wait for the pool");
  EXPECT_EQ((TFacts{refused[1] == refused[2], refused[1]}), "yes A hook of a pool can't wait for the pool");
  data.SetTicksFinish(1);
  TEvent go;
  pool.Add(new TJob([&] { (void)go.WaitFor(); }));
  while (pool.Wait(1) != pwTimeout || pool.GetThreadsOn()) Pause();
  go.SetEvent();
  EXPECT_EQ((TFacts{pool.Wait(), data.Ended.load()}), "0 2") << "the workers had stopped before its end";
  data.SetTicksFinish(0);
  auto task = pool.Run([&] { return Refusal([&] { (void)pool.Wait(); }); });
  EXPECT_EQ(pool.Wait(60000), pwDone);
  EXPECT_EQ(task.Get(), "A job of a pool can't wait for the pool");
  pool.Add(new TJob([&] { (void)go.WaitFor(); })), go.ResetEvent();
  std::thread stops([&] { SystemClock().Sleep(20), pool.Stop(), go.SetEvent(); });
  EXPECT_EQ(pool.Wait(), pwStopped);
  stops.join();
}

TEST_F(PoolWorkThreads, CancelMeansWhatIsThere) {
  TData data;
  TThreadPool pool(data, true);
  std::atomic<int> begun{0};
  std::atomic<bool> sees{false}, later{true};
  for (int i = 0; i < 100; ++i) {
    pool.Add(new TJob([&] {
      for (++begun; !TThreadPool::IsCanceled();) Pause();
      sees = true;
    }));
  }
  pool.Start();
  while (begun == 0) Pause();
  auto never = pool.Run([] { return 1; });
  EXPECT_EQ(pool.Cancel(), 100 - 31 + 1);
  pool.Add(new TJob([&] { later = TThreadPool::IsCanceled(); }));
  EXPECT_EQ(pool.Wait(), pwDone);
  EXPECT_EQ((TFacts{begun.load(), sees.load(), later.load(), data.Ended.load()}), "1 yes no 2");
  EXPECT_THROW(never.Get(), ECanceled);
}

TEST_F(PoolWorkThreads, TasksGiveWhatTheyGiveOrRaise) {
  TScriptedDialogs screen;
  Msg().SetLog({false, laDestroy, u"", u""});
  auto pool = std::make_unique<TThreadPool>(1);
  auto moved = pool->Run([text = std::make_unique<int>(7)]() mutable { return std::move(text); });
  EXPECT_EQ(*moved.Get(), 7);
  auto raises = pool->Run([] { throw EConvertError(u"told"); });
  EXPECT_EQ(Refusal([&] { raises.Get(); }), "told");
  auto asks = pool->Run([&] { return pool->Run([] { return 5; }).Get() + 1; });
  EXPECT_TRUE(asks.Wait()) << "the only worker runs what it waits for";
  EXPECT_EQ(asks.Get(), 6);
  TPoolTask<std::string>* self = nullptr;
  TEvent isSet, go;
  auto selfish = pool->Run([&] { return (void)isSet.WaitFor(), Refusal([&] { (void)self->Wait(); }); });
  self = &selfish, isSet.SetEvent();
  EXPECT_EQ(selfish.Get(), "A task can't wait for itself");
  {
    auto dropped = pool->Run([] { throw EConvertError(u"dropped"); });
  }
  EXPECT_EQ(pool->Wait(), pwDone);
  while (screen.Shown.empty()) (void)CheckSynchronize(1);
  EXPECT_EQ(screen.Shown[0].Text, u"dropped");
  auto held = pool->Run([&] { (void)go.WaitFor(); });
  while (pool->Wait(1) == pwDone) Pause();
  auto left = pool->Run([] {}), gone = pool->Run([] {});
  EXPECT_FALSE(held.Wait(1));
  left.Cancel();
  EXPECT_THROW(left.Get(), ECanceled);
  go.SetEvent(), held.Get(), gone.Cancel(), pool.reset();
  EXPECT_TRUE(gone.IsReady());
  uMsg::FreeBuffersForLeakPrevention();
}

}  // namespace
