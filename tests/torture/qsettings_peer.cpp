// What Qt's QSettings does with the stores of net_torture.cpp: the same number of processes, keys and pauses.
//
//   qsettings_peer NAME SECONDS MOUNT1 MOUNT2
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QSettings>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace {

constexpr int kWriters = 4, kKeys = 16;

struct TShared {
  std::atomic<uint64_t> Acknowledged, Tried, Microseconds, Keys[kWriters][kKeys];
};

void Store(TShared& Shared, const QString& Path, int Writer, int Seconds) {
  std::mt19937 random(static_cast<unsigned>(Writer));
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(Seconds);
  QSettings ini(Path, QSettings::IniFormat);
  for (uint64_t value = 1; std::chrono::steady_clock::now() < end; ++value) {
    const unsigned key = random() % kKeys;
    ini.setValue(QString("W%1/k%2").arg(Writer).arg(key), QString::number(value));
    ini.setValue("Alle/k", QString("%1.%2").arg(Writer).arg(value));
    const auto begin = std::chrono::steady_clock::now();
    ini.sync();
    ++Shared.Tried;
    if (ini.status() != QSettings::NoError) continue;
    const auto time = std::chrono::steady_clock::now() - begin;
    Shared.Microseconds += static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(time).count());
    Shared.Keys[Writer][key] = value;
    ++Shared.Acknowledged;
    ::usleep(random() % 20000);
  }
}

}  // namespace

int main(int Arguments, char** Argument) {
  if (Arguments < 5) return 2;
  void* memory = ::mmap(nullptr, sizeof(TShared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) return 2;
  auto& shared = *new (memory) TShared{};
  for (int w = 0; w < kWriters; ++w) {
    if (::fork() != 0) continue;
    Store(shared, QString::fromUtf8(Argument[3 + w % 2]) + "/Peer.ini", w, std::atoi(Argument[2]));
    ::_exit(0);
  }
  while (::wait(nullptr) > 0) continue;
  ::sleep(2);
  uint64_t lost = 0;
  const QSettings ini(QString::fromUtf8(Argument[3]) + "/Peer.ini", QSettings::IniFormat);
  for (int i = 0; i < kWriters * kKeys; ++i) {
    const int writer = i / kKeys, key = i % kKeys;
    lost += ini.value(QString("W%1/k%2").arg(writer).arg(key)).toULongLong() < shared.Keys[writer][key];
  }
  const auto acknowledged = static_cast<double>(shared.Acknowledged.load());
  std::printf("torture-net: %s: QSettings stores=%ju acknowledged=%.0f ms/store=%.1f lost=%ju\n", Argument[1],
              uintmax_t{shared.Tried}, acknowledged,
              static_cast<double>(shared.Microseconds.load()) / 1000 / std::max(acknowledged, 1.0), uintmax_t{lost});
  return 0;
}
