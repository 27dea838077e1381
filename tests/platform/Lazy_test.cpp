#include "platform/Lazy.h"

#include "platform/FreeBuffers.h"
#include "tests/support/Test.h"

namespace {

struct TCounted {
  TCounted() { ++Made; }
  ~TCounted();
  int Number = 1;
  static inline std::atomic<int> Made = 0, Freed = 0;
};
constinit TLazy<TCounted> Held;
// As it goes, somebody asks again.
TCounted::~TCounted() {
  if (++Freed == 1) Held.Get().Number = 2;
}

TEST(TLazy, IsMadeOnceAndAgainAfterItWasFreed) {
  EXPECT_THROW(Held.Get([]() -> std::unique_ptr<TCounted> { throw std::runtime_error("none"); }), std::runtime_error);
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) threads.emplace_back([] { Held.Get(); });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(TCounted::Made, 1);
  Held.Free();
  EXPECT_EQ(TCounted::Made, 2);
  EXPECT_EQ(Held.Get().Number, 2);
  Held.Free();
  Held.Free();
  EXPECT_EQ(TCounted::Freed, 2);
  EXPECT_EQ(Held.Get().Number, 1);
}

TEST(FreeBuffers, CallEachOnceInTheirOrder) {
  static std::vector<int> calls;
  auto reports = [] { calls.push_back(3); };
  auto services = [] { calls.push_back(2); };
  auto later = [] { calls.push_back(1); };
  OnFreeBuffers(foReports, reports);
  OnFreeBuffers(foServices, services);
  OnFreeBuffers(foServices, later);
  OnFreeBuffers(foThreads, [] { calls.push_back(0); });
  OnFreeBuffers(foThreads, reports);
  FreeRegisteredBuffers();
  FreeRegisteredBuffers();
  EXPECT_EQ(calls, (std::vector<int>{0, 1, 2, 3, 0, 1, 2, 3}));
}

}  // namespace
