#include "platform/Clock.h"

#include <signal.h>
#include <sys/time.h>
#include <time.h>

#include "tests/support/Test.h"

namespace {

constexpr double kMs = 1.0 / 86400000.0;
// The days on which summer time begins and ends in 2026.
constexpr int kSpring = 46110, kAutumn = 46320;
constexpr TDateTime At(int Day, int Hour, int Minute = 0) { return Day + (Hour * 60 + Minute) / 1440.0; }

TEST(ClockTest, ManualClockMovesByAdvanceAndSleepOnly) {
  test::TZoneAt zone(90);
  test::TClockAt clock(46000.5);
  EXPECT_EQ(Now(), 46000.5625);
  for (int pause : {100, -7}) Sleep(pause);
  for (int pause : {43200000 - 100, -5}) clock.Advance(pause);
  EXPECT_EQ((TFacts{GetTickCount(), LocalToUtc(Now()), clock.GetSleeps()}), "43200000 46001 2");
}

TEST(ClockTest, SystemClockTellsTheTimeToTheMicrosecond) {
  EXPECT_EQ(&GetClock(), &SystemClock()) << "set back by every scope";
  timespec t{};
  clock_gettime(CLOCK_REALTIME, &t);
  double late = (SystemClock().UtcNow() - 25569 - static_cast<double>(t.tv_sec / 86400)) * 86400;
  late -= static_cast<double>(t.tv_sec % 86400) + static_cast<double>(t.tv_nsec) / 1e9;
  EXPECT_GE(late, -1e-6);
  EXPECT_LT(late, 1);
}

TEST(ClockTest, SystemSleepIsNotCutShortBySignals) {
  auto previous = signal(SIGALRM, [](int) {});
  itimerval timer{{0, 3000}, {0, 3000}}, off{};
  setitimer(ITIMER_REAL, &timer, nullptr);
  int64_t start = SystemClock().Ticks();
  SystemClock().Sleep(60);
  EXPECT_GE(SystemClock().Ticks() - start, 59);
  setitimer(ITIMER_REAL, &off, nullptr);
  signal(SIGALRM, previous);
}

void CheckCentralEurope2026() {
  const TCases<TDateTime, TDateTime, bool> cases = {// local and universal time, and whether the first is skipped
                                                    {At(46204, 14), At(46204, 12), false},
                                                    {At(kSpring, 2) - kMs, At(kSpring, 1) - kMs, false},
                                                    {At(kSpring, 3), At(kSpring, 1), false},
                                                    {At(kSpring, 2), At(kSpring, 1), true},
                                                    {At(kSpring, 2, 30), At(kSpring, 1, 30), true},
                                                    // the doubled hour
                                                    {At(kAutumn, 2, 30), At(kAutumn, 0, 30), false},
                                                    {At(kAutumn, 3) - kMs, At(kAutumn, 1) - kMs, false},
                                                    {At(kAutumn, 3), At(kAutumn, 2), false}};
  for (const auto& [local, utc, isSkipped] : cases) {
    EXPECT_NEAR(LocalToUtc(local), utc, kMs / 100) << local;
    EXPECT_NEAR(UtcToLocal(utc), isSkipped ? local + 1 / 24.0 : local, kMs / 100) << local;
  }
  EXPECT_NEAR(UtcToLocal(At(kAutumn, 1, 30)), At(kAutumn, 2, 30), kMs / 100) << "second half";
}

// A rule written out needs no zone data.
void SetSystemZone(const char* Zone) {
  Zone != nullptr ? setenv("TZ", Zone, 1) : unsetenv("TZ");
  tzset();
}

TEST(TimeZoneTest, SystemZoneFollowsTheRulesOfEachYear) {
  SetSystemZone("CET-1CEST,M3.5.0,M10.5.0/3");
  CheckCentralEurope2026();
  SetSystemZone("XXX-5");
  for (double value : {-657434.0, 0.0, 2958465.9}) EXPECT_EQ(SystemTimeZone().OffsetAtUtc(value), 300) << value;
  for (double value : {-657435.0, 2958466.0, 1e300, -1e300, HUGE_VAL, -HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(SystemTimeZone().OffsetAtUtc(value) + SystemTimeZone().OffsetAtLocal(value * 1.1), 0) << value;
  }
  SetSystemZone(nullptr);
  if (access("/usr/share/zoneinfo/Europe/Berlin", R_OK) != 0) GTEST_SKIP() << "no zone data of Europe/Berlin here";
  SetSystemZone("Europe/Berlin");
  CheckCentralEurope2026();
  // No summer time in 1970, double summer time in 1945, local mean time in 1890.
  for (auto [day, offset] : {std::pair{25750, 60}, {16619, 180}, {-3650, 53}})
    EXPECT_EQ(SystemTimeZone().OffsetAtUtc(day), offset);
  SetSystemZone(nullptr);
}

}  // namespace
