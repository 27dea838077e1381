// The table tool as whole processes, each with cold memory, beside one that only reads the file and touches as much
// memory.
//
//   bench_cold [DIRECTORY [ROWS...]]   for tables of so many rows: 1000000 and 10000000 unless told
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <memory>

#include "bench/cold/Process.h"
#include "bench/support/Bench.h"
#include "bench/tables/GermanTable.h"

namespace vx::bench {

namespace {

constexpr int kRounds = 5;
constexpr int kBarRows = 1000000, kManyRows = 10000000;

// What a process can't go below: all bytes of the file, and Megabytes of memory, a page after the other.
int ReadAndTouch(const char* Path, size_t Megabytes) {
  constexpr size_t kPage = 4096, kBuffer = size_t{256} << 10;
  const auto buffer = std::make_unique<char[]>(kBuffer);
  const int file = open(Path, O_RDONLY | O_CLOEXEC);
  while (file >= 0 && read(file, buffer.get(), kBuffer) > 0) {
  }
  const size_t bytes = Megabytes << 20;
  auto* memory = static_cast<volatile char*>(std::malloc(bytes));
  if (file < 0 || !memory) return 1;
  for (size_t at = 0; at < bytes; at += kPage) memory[at] = 1;
  return 0;
}

void WriteTable(const std::string& Path, int Rows) {
  const std::string bytes = MakeGermanTable(Rows);
  std::FILE* file = std::fopen(Path.c_str(), "wb");
  Expect(file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size(), "writing " + Path);
  Expect(std::fclose(file) == 0, "writing " + Path);
}

void ReportCost(const std::string& What, const TProcessCost& Cost) {
  std::printf("BENCH %s_cost user=%.0fms sys=%.0fms faults=%ld resident=%.0fMB\n", What.c_str(), Cost.User * 1e3,
              Cost.System * 1e3, Cost.Faults, Cost.ResidentMb);
}

struct TBench {
  std::string Self, In, Out;

  TProcessCost Run(std::vector<std::string> Arguments) const {
    Arguments.insert(Arguments.begin(), VXTAB_PATH);
    unlink(Out.c_str());
    return RunProcess(Arguments);
  }

  void MeasureLoad(const std::string& What, int Rows) const {
    const std::vector<std::string> info{"info", In};
    const auto megabytes = std::to_string(static_cast<size_t>(Run(info).ResidentMb));
    std::vector<TProcessCost> ours, floors;
    for (int round = 0; round < kRounds; ++round) {
      floors.push_back(RunProcess({Self, "--floor", In, megabytes}));
      ours.push_back(Run(info));
    }
    const TProcessCost cost = MedianOf(ours), floor = MedianOf(floors);
    const bool hasBar = Rows == kBarRows;
    Report(What, cost.Seconds, "floor", floor.Seconds, 1, hasBar ? TBar::AtLeast(1 / 1.5) : TBar());
    ReportOurs(What, cost.Seconds, 1, hasBar ? TBar::AtMost(300) : Rows == kManyRows ? TBar::AtMost(3500) : TBar());
    ReportCost(What, cost);
    ReportCost(What + "_floor", floor);
    if (Rows != kManyRows) return;
    std::printf("BENCH %s_memory ours=%.2fGB%s\n", What.c_str(), cost.ResidentMb / 1024,
                TBar::AtMost(5.5).Text(cost.ResidentMb / 1024, "GB").c_str());
  }

  void MeasureCommand(const std::string& What, const std::vector<std::string>& Arguments, TBar Bar) const {
    std::vector<TProcessCost> costs;
    for (int round = 0; round < kRounds; ++round) costs.push_back(Run(Arguments));
    const TProcessCost cost = MedianOf(costs);
    ReportOurs(What, cost.Seconds, 1, Bar);
    ReportCost(What, cost);
  }

  void Measure(int Rows) const {
    WriteTable(In, Rows);
    const std::string size = "_" + std::to_string(Rows);
    MeasureLoad("cold/load" + size, Rows);
    if (Rows > kBarRows) return;
    const bool hasBar = Rows == kBarRows;
    // The first row is the head of a table that has none.
    MeasureCommand("cold/sort" + size, {"sort", In, Out, "--by", "Becker"}, hasBar ? TBar::AtMost(2000) : TBar());
    MeasureCommand("cold/convert" + size, {"convert", In, Out}, hasBar ? TBar::AtMost(800) : TBar());
  }
};

}  // namespace

}  // namespace vx::bench

int main(int argc, char** argv) {
  using namespace vx::bench;
  if (argc == 4 && std::strcmp(argv[1], "--floor") == 0) {
    return ReadAndTouch(argv[2], static_cast<size_t>(std::atoll(argv[3])));
  }
  const char* temporary = std::getenv("TMPDIR");
  const std::string directory = argc > 1 ? argv[1] : temporary ? temporary : "/tmp";
  const TBench bench{argv[0], directory + "/vx_bench_cold.txt", directory + "/vx_bench_cold.csv"};
  std::vector<int> sizes;
  for (int i = 2; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));
  if (sizes.empty()) sizes = {kBarRows, kManyRows};
  for (int rows : sizes) bench.Measure(rows);
  unlink(bench.In.c_str());
  unlink(bench.Out.c_str());
  return 0;
}
