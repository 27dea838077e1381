#include "services/uThreadPool.h"

#include "platform/MainThread.h"
#include "services/uMsg.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

using TSizes = std::vector<int>;
constexpr uint32_t kLong = 60000;  // ms that no test waits to their end

// Whether it comes true within a minute; the main thread's queue is drained meanwhile.
bool Comes(const std::function<bool()>& isTrue) {
  const int64_t end = SystemClock().Ticks() + kLong;
  while (!isTrue() && SystemClock().Ticks() < end) (void)CheckSynchronize(1);
  return isTrue();
}
int64_t MillisecondsOf(const std::function<void()>& work) {
  const int64_t start = SystemClock().Ticks();
  work();
  return SystemClock().Ticks() - start;
}

struct TWorker : TVxThread {
  TWorker(bool suspended, std::function<void(TWorker&)> work) : TVxThread(suspended), Work(std::move(work)) {
    AfterConstruction();
  }
  ~TWorker() override { Finish(); }
  // Starts it and waits for its end, which it outlives.
  void RunOnce() { SetFreeOnTerminate(false), Start(), WaitFor(); }
  void doExecute() override { Work(*this); }
  std::function<void(TWorker&)> Work;
};

std::atomic<int> Jobs{0};  // alive
struct TJob : TThreadJob {
  explicit TJob(std::function<void()> work = {}) : Work(std::move(work)) { ++Jobs; }
  ~TJob() override { --Jobs; }
  void doExecute(TThreadData&) override {
    if (Work) Work();
  }
  std::function<void()> Work;
};

// Notes the sizes of the batches, 0 for a single job, and what else it is told.
struct TData : TThreadData {
  TData() { iThreadCount = 1; }
  explicit TData(int diff) : TThreadData(diff) {}
  void SetTicksWork(uint32_t value) { iTicksWork = value; }
  void Done(TThreadJob* job, TThreadQueue& queue, int doing) override {
    TThreadData::Done(job, queue, doing);
    auto* jobs = dynamic_cast<TThreadJobs*>(job);
    Sizes.push_back(jobs ? jobs->GetCount() : 0);
    ForEachJob(job, [&](TThreadJob& each) { Failures += each.GetError() != nullptr; });
    delete job;
    Ended += jobs ? Sizes.back() : 1;
    if (OnDone) OnDone(queue, doing);
  }
  void Added(TThreadQueue&, int) override { ++AddedCount; }
  void GetFirst(TThreadQueue& queue) override {
    for (int i = 0; i < First; ++i) queue.Push(new TJob);
  }
  bool HaveToSync() override { return ++Rounds, WantsSync; }
  void Synchronize() override { WantsSync = false, ++(IsMainThread() ? SyncsMain : SyncsPool); }
  TSizes Sizes;
  std::function<void(TThreadQueue&, int)> OnDone;
  int First = 0, AddedCount = 0;
  std::atomic<int> Ended{0}, Failures{0}, SyncsMain{0}, SyncsPool{0}, Rounds{0};
  std::atomic<bool> WantsSync{false};
};

struct ThreadPool : testing::Test {
  ThreadPool() { SetMainThread(); }
  ~ThreadPool() override {
    EXPECT_EQ(Jobs, 0);
    EXPECT_TRUE(Comes([] { return TVxThread::GetThreadCount() == 0; }));
  }
};
using Threads = ThreadPool;

TEST_F(Threads, EventsAndSections) {
  TEvent event;
  const std::pair<std::function<void()>, TWaitResult> steps[] = {{[] {}, wrTimeout},
                                                                 {[&] { SetEvent(event); }, wrSignaled},
                                                                 {[] {}, wrSignaled},
                                                                 {[&] { ResetEvent(event); }, wrTimeout},
                                                                 {[&] { event.Abandon(); }, wrAbandoned},
                                                                 {[&] { SetEvent(event); }, wrSignaled},
                                                                 {[&] { ResetEvent(event); }, wrAbandoned}};
  for (const auto& step : steps) EXPECT_EQ((step.first(), event.WaitFor(1)), step.second) << &step - steps;
  TCriticalSection section;
  const auto other = [&](bool wanted) { std::thread([&] { EXPECT_EQ(section.TryEnter(), wanted); }).join(); };
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(section.TryEnter());
  section.Leave();
  other(false);
  section.Leave();
  other(true);
}

TEST_F(Threads, StartStopSleepAndEnd) {
  std::atomic<int> rounds{0};
  std::atomic<bool> slept{false};
  auto turn = [&](TWorker& self) { ++rounds, slept = self.Sleep(15); };
  TWorker thread(true, turn);
  EXPECT_EQ((TFacts{thread.Active(), thread.Sleep(kLong), thread.WaitForEvent()}), "no no no");
  thread.Start(), thread.Start();
  EXPECT_TRUE(thread.Active());
  EXPECT_TRUE(Comes([&] { return rounds > 2; }));
  EXPECT_TRUE(Comes([&] { return slept.load(); }));
  thread.Stop();
  EXPECT_EQ((TFacts{thread.Active(), thread.Sleep(kLong)}), "no no");
  SystemClock().Sleep(100);
  const int before = rounds;
  SystemClock().Sleep(30);
  EXPECT_EQ(rounds, before);
  thread.Start();
  EXPECT_TRUE(Comes([&] { return rounds > before; })) << "goes on";

  for (bool isStopped : {false, true}) {
    TWorker other(false, [](TWorker& self) { EXPECT_FALSE(self.Sleep(kLong)); });
    if (isStopped) other.Stop();
    other.SetFreeOnTerminate(false);
    EXPECT_LT(MillisecondsOf([&] { other.Terminate(), other.WaitFor(); }), 5000) << "wakes it";
  }
  (void)new TWorker(false, [](TWorker& self) { self.Terminate(); });
  (new TWorker(true, turn))->Terminate();
  delete new TWorker(false, turn);
  delete new TWorker(true, turn);
  EXPECT_TRUE(Comes([] { return TVxThread::GetThreadCount() == 1; })) << "the others have freed themselves";

  TWorker failing(true, [](TWorker&) { throw std::runtime_error("no"); });
  failing.RunOnce();
  EXPECT_THROW(std::rethrow_exception(failing.GetFatalException()), std::runtime_error);
}

TEST_F(Threads, RunMethodsInTheMainThread) {
  TSizes order;
  std::atomic<bool> ran{true};
  TWorker thread(true, [&](TWorker& self) {
    TThread::Queue([&] { order.push_back(1); });
    EXPECT_TRUE(TThread::Synchronize([&] { order.push_back(IsMainThread() ? 2 : -2); }));
    EXPECT_THROW((void)TThread::Synchronize([] { throw EConvertError(u"x"); }), EConvertError);
    EXPECT_EQ((TFacts{CheckSynchronize(), IsMainThread()}), "no no");
    self.Terminate();
  });
  thread.RunOnce();
  EXPECT_EQ(order, (TSizes{1, 2}));
  TThread::Queue([&] { TThread::Queue([&] { order.push_back(4); }), throw EConvertError(u"q"); });
  TThread::Queue([&] { order.push_back(3); });
  EXPECT_THROW(CheckSynchronize(), EConvertError);
  EXPECT_EQ((TFacts{CheckSynchronize(), CheckSynchronize(1)}), "yes no");
  EXPECT_EQ(order, (TSizes{1, 2, 3, 4}));

  std::atomic<int> woken{0};
  SetWakeMainThread([&] { ++woken; });
  TWorker alone(false, [&](TWorker&) { ran = TThread::Synchronize([] {}) || TThread::Synchronize([] {}); });
  alone.SetFreeOnTerminate(false);
  while (woken == 0) SystemClock().Sleep(1);
  alone.Terminate();
  while (!alone.GetFinished()) SystemClock().Sleep(1);
  EXPECT_EQ((TFacts{ran.load(), woken.load()}), "no 1") << "a terminated thread gives up where none comes";
  SetWakeMainThread({});
}

TEST_F(Threads, ADestructorThatForgetsFinishIsLoud) {
  struct TForgetful : TThread {
    TForgetful() : TThread(true) {}
    void Execute() override { SystemClock().Sleep(kLong); }
  };
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(TForgetful().Start(), "has to call Finish");
}

TEST(ThreadTicks, AreTheAverageOfTheLast) {
  TThreadTicks ring(3), none(0);
  EXPECT_EQ(ring.Average(), 10u);
  const TCases<uint32_t, std::string> cases = {
      // added: whether the ring came round, the average, how many
      {0, "yes 1 1"}, {6, "no 3 2"}, {10, "no 5 3"}, {30, "yes 15 3"}, {~0u, "no 13 3"}, {4, "no 11 3"}};
  for (const auto& [ticks, told] : cases) {
    EXPECT_EQ((TFacts{ring.Add(ticks), ring.Average(), ring.GetCount()}), told) << ticks;
  }
  EXPECT_EQ((TFacts{none.Add(7), none.Average()}), "no 10");
}

TEST(ThreadData, CountsWorkersAndMeasuresSingleJobs) {
  for (auto [processors, diff, told] :
       {std::tuple(4, 0, "4 0"), {4, -1, "3 -1"}, {4, -2, "2 -2"}, {1, 0, "2 0"}, {8, 3, "11 3"}}) {
    SetLogicalCpuCount(processors);
    TData data(diff);
    EXPECT_EQ((TFacts{data.GetThreadCount(), data.GetThreadDiff()}), told) << processors;
  }
  SetLogicalCpuCount(0);
  test::TClockAt clock(46000);
  clock.Advance(0xFFFFFFFB);
  TData data;
  TThreadQueue queue;
  auto advance = [&](int ticks) { return [&, ticks] { clock.Advance(ticks); }; };
  auto* one = new TJob(advance(12));
  one->Execute(data);
  EXPECT_EQ(one->GetTicks(), 12u) << "over the wrap of the counter";
  data.Done(one, queue, 0);
  data.Done(new TThreadJobs, queue, 0);
  EXPECT_EQ(data.GetTicks().GetCount(), 1);
  auto* jobs = new TThreadJobs;
  for (int ticks : {1, 20, 10, 0}) jobs->Add(new TJob(advance(ticks)));
  jobs->Add(nullptr), jobs->Add(new TJob([] { throw EConvertError(u"x"); })), jobs->Add(new TJob(advance(5)));
  jobs->Execute(data);
  EXPECT_EQ((TFacts{jobs->GetCount(), jobs->GetTicks(), jobs->GetItem(1)->GetTicks()}), "6 36 20");
  for (int i : {4, 5}) EXPECT_EQ(jobs->GetItem(i)->GetError() != nullptr, i == 4) << i;
  data.Done(jobs, queue, 0);
  EXPECT_EQ(data.GetTicks().Average(), (12u + 36u / 6) / 2);
  EXPECT_THROW(TJob([] { throw EConvertError(u"x"); }).Execute(data), EConvertError);
  for (int i = 0; i < 200; delete (i++ % 3 == 0 ? queue.Pop() : nullptr)) queue.Push(new TJob);
  EXPECT_EQ(queue.GetCount(), 133);
  queue.Clear();
  EXPECT_EQ(queue.Pop(), nullptr);
  EXPECT_EQ(Jobs, 0);
}

// One worker and a clock that stands still: every hand-over is known.
TEST_F(ThreadPool, HandsOutAsMuchAsTakesTheTime) {
  test::TClockAt clock(46000);
  const TCases<uint32_t, uint32_t, int, TSizes> cases = {
      {0, 30, 40, {4, 31, 5}}, {1, 30, 70, {31, 31, 8}}, {14, 30, 9, {3, 5, 1}},     {30, 30, 5, {2, 3}},
      {31, 30, 3, {0, 2}},     {1, 0, 2, {0, 0}},        {1, 0xFFFFFFFF, 500, {500}}};
  for (const auto& [average, work, count, sizes] : cases) {
    TData data;
    data.SetTicksWork(work);
    if (average != 0) data.GetTicks().Add(average);
    data.First = 1;
    TThreadPool pool(data, true);
    for (int i = 1; i < count; ++i) pool.Add(new TJob);
    pool.Add(nullptr), pool.Start();
    EXPECT_TRUE(Comes([&, all = count] { return data.Ended == all; }));
    pool.ThreadsDestroy(false);
    EXPECT_EQ(data.Sizes, sizes) << average << " " << work;
    EXPECT_EQ(data.AddedCount, count - 1);
  }
}

TEST_F(ThreadPool, RestsWhenIdleAndWorksAgain) {
  test::TClockAt clock(46000);
  TData data;
  data.First = 3;
  TThreadPool pool(data, false);
  auto settle = [&, last = 0]() mutable { return last = data.Rounds, Comes([&] { return data.Rounds > last + 1; }); };
  EXPECT_TRUE(Comes([&] { return data.Ended == 3; }));
  EXPECT_TRUE(Comes([&] { return pool.GetThreadsOn(); }));
  clock.Advance(1000), settle(), clock.Advance(2999), settle();
  EXPECT_EQ((TFacts{pool.GetThreadsOn(), data.SyncsPool.load()}), "yes 0");
  clock.Advance(1);
  EXPECT_TRUE(Comes([&] { return data.SyncsPool == 1; }));
  EXPECT_TRUE(Comes([&] { return !pool.GetThreadsOn(); }));
  EXPECT_EQ(data.GetTicksBegin(), 4000u) << "the time for which they ran";
  clock.Advance(500);
  data.WantsSync = true;
  EXPECT_TRUE(Comes([&] { return data.SyncsMain == 1; }));
  data.SetTicksFinish(1);
  pool.Add(new TJob);
  EXPECT_TRUE(Comes([&] { return data.SyncsPool == 2; })) << "without any idle time";
  EXPECT_EQ(data.GetTicksBegin(), 4000u);
  data.SetTicksFinish(0);
  pool.Start(), pool.Start();
  EXPECT_EQ(data.GetTicksBegin(), 500u) << "the tick at which they would have begun";
  EXPECT_TRUE(Comes([&] { return data.Ended == 4; }));
  pool.Stop();
  pool.Add(new TJob);
  SystemClock().Sleep(30);
  EXPECT_EQ(data.Ended, 4);
  EXPECT_EQ(data.GetTicksBegin(), 4000u);
}

TEST_F(ThreadPool, GoesOnWhenJobsAndHooksRaise) {
  TScriptedDialogs screen;
  Msg().SetLog({false, laDestroy, u"", u""});
  for (uint32_t work : {0u, 30u}) {
    TData data(-100);
    data.SetTicksWork(work);
    data.OnDone = [&](TThreadQueue&, int) {
      if (data.Ended == 50) throw std::runtime_error("hook");
    };
    TThreadPool pool(data, true);
    for (int i = 0; i < 50; ++i) {
      pool.Add(new TJob([i] { i == 7 ? throw EConvertError(u"seven") : i == 9 ? throw 9 : 0; }));
    }
    pool.Start();
    EXPECT_TRUE(Comes([&] { return data.Ended == 50; }));
    EXPECT_TRUE(Comes([&] { return screen.Shown.size() == 3; }));
    EXPECT_EQ(data.Failures, 2);
    std::set<String> texts;
    for (auto& dialog : screen.Shown) texts.insert(dialog.Text);
    EXPECT_EQ(texts, (std::set<String>{u"Unbekannter Fehler", u"hook", u"seven"}));
    screen.Shown.clear();
    pool.Add(new TJob);
    EXPECT_TRUE(Comes([&] { return data.Ended == 51; }));
  }
  uMsg::FreeBuffersForLeakPrevention();
}

// Work that waits, that runs, that is asleep and that wants the main thread, which ends the pool or is not there.
TEST_F(ThreadPool, EndsInBoundedTime) {
  for (const char* by : {"destructor", "Terminate", "stopped", "workers", "another thread", "job", "unstarted"}) {
    const std::string how = by;
    TData data(-100);
    data.SetTicksWork(0);
    std::atomic<int> begun{0}, ran{0};
    auto* pool = new TThreadPool(data, true);
    if (how == "job") pool->Add(new TJob([&] { begun = 2, pool->Terminate(); }));
    pool->Add(new TJob([&] { ++begun, (void)static_cast<TVxThread*>(TThread::CurrentThread())->Sleep(kLong); }));
    pool->Add(new TJob([&] { ++begun, ran += TThread::Synchronize([] {}); }));
    for (int i = 0; i < 1000; ++i) pool->Add(new TJob([] { SystemClock().Sleep(20); }));
    if (how != "unstarted") {
      data.WantsSync = true;
      pool->Start();
      while (begun < 2) SystemClock().Sleep(1);
    }
    const int64_t taken = MillisecondsOf([&] {
      if (how == "stopped") pool->Stop();
      if (how == "workers") pool->ThreadsDestroy(true);
      if (how == "job") return;
      if (how == "Terminate") return pool->Terminate();
      if (how != "another thread") return delete pool;
      std::thread([&] { delete pool; }).join();
    });
    EXPECT_LT(taken, 10000) << how;
    EXPECT_TRUE(Comes([] { return Jobs == 0; })) << how;
    EXPECT_TRUE(Comes([] { return TVxThread::GetThreadCount() == 0; })) << how;
    const int met = how == "another thread" || how == "unstarted" ? 0 : 1;
    EXPECT_EQ(how == "job" ? met : ran.load(), met) << how;
    EXPECT_LT(data.Ended, 500);
  }
  EXPECT_LT(MillisecondsOf([] { uThreadPool::FreeBuffersForLeakPrevention(), uThreadPool::WaitForThreads(); }), 900);
  TWorker living(true, [](TWorker&) {});
  EXPECT_GE(MillisecondsOf([] { uThreadPool::FreeBuffersForLeakPrevention(); }), 1000) << "gives up";
}

TEST_F(ThreadPool, EndsBehindTheBatchAtHand) {
  TData data;
  std::atomic<int> ran{0};
  {
    TThreadPool pool(data, true);
    pool.Add(new TJob([&] {
      for (++ran; !TThread::CurrentThread()->GetTerminated();) SystemClock().Sleep(1);
    }));
    for (int i = 0; i < 9; ++i) pool.Add(new TJob([&] { ++ran; }));
    pool.Start();
    EXPECT_TRUE(Comes([&] { return ran == 1; }));
  }
  EXPECT_EQ(ran, 4) << "of ten jobs those that were handed out";
}

TEST_F(ThreadPool, RunsEveryJobOnceUnderLoad) {
  constexpr int kEach = 5000, kProducers = 3, kAgain = 500;
  TData data(-100);
  std::atomic<int> ran{0};
  std::atomic<bool> isWrong{false};
  int again = kAgain;
  data.SetIdleTicks(1);
  data.OnDone = [&](TThreadQueue& queue, int doing) {
    if (doing < 0 || doing > 1) isWrong = true;
    if (again > 0) --again, queue.Push(new TJob([&] { ++ran; }));
    if (data.Ended % 64 == 0) data.WantsSync = true;
  };
  TThreadPool pool(data, false);
  auto produce = [&] {
    for (int i = 0; i < kEach; ++i) {
      pool.Add(new TJob([&] { ++ran; }));
      if (i % 1000 == 0) SystemClock().Sleep(25);
    }
  };
  std::thread a(produce), b(produce), c(produce);
  for (int i = 0; i < 20; ++i) (void)CheckSynchronize(1), pool.Start();
  EXPECT_TRUE(Comes([&] { return data.Ended == kProducers * kEach + kAgain; }));
  a.join(), b.join(), c.join();
  EXPECT_EQ(ran, kProducers * kEach + kAgain);
  EXPECT_FALSE(isWrong);
}

}  // namespace
