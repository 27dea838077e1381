// Tables side by side with their peers: loading, saving, copying, reaching cells, the text forms.
#include <unistd.h>

#include <cstring>
#include <memory>
#include <random>

#include "bench/support/Bench.h"
#include "bench/tables/GermanTable.h"
#include "bench/tables/NaiveTable.h"
#include "platform/CodePage.h"
#include "platform/Text.h"
#include "tables/uFileCsv.h"

namespace vx::bench {

namespace {

constexpr int kRounds = 7;
constexpr int kProbes = 1000000;

struct TPaths {
  std::string In, Out;
  explicit TPaths(const std::string& Directory)
      : In(Directory + "/vx_bench_in.txt"), Out(Directory + "/vx_bench_out.txt") {}
  ~TPaths() {
    unlink(In.c_str());
    unlink(Out.c_str());
  }
};

void WriteFile(const std::string& Path, const std::string& Bytes) {
  std::FILE* file = std::fopen(Path.c_str(), "wb");
  if (!file || std::fwrite(Bytes.data(), 1, Bytes.size(), file) != Bytes.size()) std::abort();
  std::fclose(file);
}

std::unique_ptr<TFileCsv> Load(const std::string& Path) {
  auto table = std::make_unique<TFileCsv>();
  table->LoadFromFile(String::FromUtf8(Path));
  return table;
}

size_t CountCells(const TFileCsv& Table) {
  size_t cells = 0;
  for (int row = 0; row < Table.GetCount(); ++row) cells += Table.GetLines(row)->Items().size();
  return cells;
}

// Ours and the peer have to have read the same, or no figure is worth anything.
void CheckSame(const TFileCsv& Ours, const TNaiveTable& Naive, const char* Who) {
  bool isSame = static_cast<size_t>(Ours.GetCount()) == Naive.size();
  for (int row = 0; isSame && row < Ours.GetCount(); ++row) {
    const auto& line = Naive[static_cast<size_t>(row)];
    std::span<const String> cells = Ours.GetLines(row)->Items();
    isSame = cells.size() == line.size();
    for (size_t col = 0; isSame && col < cells.size(); ++col)
      isSame = cells[col] == GetSystemCodePage().Decode(line[col]);
  }
  if (!isSame) {
    std::printf("%s has read something else\n", Who);
    std::exit(1);
  }
}

// Loading and destruction. Returns the seconds of loading and saving.
std::pair<double, double> MeasureFiles(const TPaths& Paths, const char* Size) {
  double freed[2] = {0, 0};
  std::vector<double> freeOurs, freeNaive;
  std::vector<double> load = Medians(
      kRounds, [&] { return Time([&] { ::benchmark::DoNotOptimize(LoadFloor(Paths.In.c_str())); }); },
      [&] {
        TNaiveTable table;
        double time = Time([&] { table = LoadNaive(Paths.In.c_str()); });
        freeNaive.push_back(Time([&] { TNaiveTable().swap(table); }));
        return time;
      },
      [&] {
        TNaiveTable table;
        return Time([&] { table = LoadLibcsv(Paths.In.c_str()); });
      },
      [&] {
        std::unique_ptr<TFileCsv> table;
        double time = Time([&] { table = Load(Paths.In); });
        freeOurs.push_back(Time([&] { table.reset(); }));
        return time;
      });
  freed[0] = Median(freeOurs);
  freed[1] = Median(freeNaive);
  std::string what = std::string("tables/load") + Size;
  const bool hasBar = *Size == '\0';
  Report(what, load[3], "naive", load[1], 1, hasBar ? TBar::AtLeast(1 / 0.7) : TBar());
  Report(what, load[3], "floor", load[0], 1, hasBar ? TBar::AtLeast(1 / 1.5) : TBar());
  Report(what, load[3], "libcsv", load[2]);
  Report(std::string("tables/destroy") + Size, freed[0], "naive", freed[1]);

  auto ours = Load(Paths.In);
  TNaiveTable naive = LoadNaive(Paths.In.c_str());
  CheckSame(*ours, naive, "the naive reader");
  CheckSame(*ours, LoadLibcsv(Paths.In.c_str()), "libcsv");
  String out = String::FromUtf8(Paths.Out);
  std::vector<double> save = Medians(
      kRounds, [&] { return Time([&] { SaveNaive(naive, Paths.Out.c_str()); }); },
      [&] { return Time([&] { ours->SaveToFile(out); }); });
  Report(std::string("tables/save") + Size, save[1], "naive", save[0], 1, hasBar ? TBar::AtLeast(1) : TBar());
  return {load[3], save[1]};
}

// The bytes that the process holds, wherever it has them from.
size_t ResidentBytes() {
  malloc_trim(0);
  size_t all = 0, resident = 0;
  std::FILE* file = std::fopen("/proc/self/statm", "r");
  Expect(file && std::fscanf(file, "%zu %zu", &all, &resident) == 2, "reading what the process holds");
  std::fclose(file);
  return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

void MeasureMemory(const TPaths& Paths) {
  size_t before = ResidentBytes();
  auto ours = Load(Paths.In);
  const size_t held = ResidentBytes() - before;
  const auto cells = static_cast<double>(CountCells(*ours));
  before = ResidentBytes();
  TNaiveTable naive = LoadNaive(Paths.In.c_str());
  const size_t naiveHeld = ResidentBytes() - before;
  const double bytes = static_cast<double>(held) / cells, naiveBytes = static_cast<double>(naiveHeld) / cells;
  std::printf("BENCH tables/bytes_per_cell ours=%.1f%s naive=%.1f ratio=%.2f\n", bytes,
              TBar::AtMost(48).Text(bytes).c_str(), naiveBytes, naiveBytes / bytes);
}

struct TProbe {
  int Col, Row;
};

std::vector<TProbe> MakeProbes(int Rows) {
  std::mt19937 random(7);
  std::vector<TProbe> probes(kProbes);
  for (TProbe& probe : probes) {
    probe = {static_cast<int>(random() % 10), static_cast<int>(random() % static_cast<unsigned>(Rows))};
  }
  return probes;
}

// What a careful programmer's access to the naive table looks like: bounds looked at, the cell copied.
std::string NaiveGet(const TNaiveTable& Table, int Col, int Row) {
  if (static_cast<size_t>(Row) >= Table.size()) return {};
  const auto& row = Table[static_cast<size_t>(Row)];
  return static_cast<size_t>(Col) < row.size() ? row[static_cast<size_t>(Col)] : std::string();
}
void NaiveSet(TNaiveTable& Table, int Col, int Row, const std::string& Text) {
  if (static_cast<size_t>(Row) >= Table.size()) return;
  auto& row = Table[static_cast<size_t>(Row)];
  if (static_cast<size_t>(Col) < row.size()) row[static_cast<size_t>(Col)] = Text;
}

void MeasureTable(const TPaths& Paths) {
  auto ours = Load(Paths.In);
  TNaiveTable naive = LoadNaive(Paths.In.c_str());
  std::vector<TProbe> probes = MakeProbes(ours->GetCount());

  std::vector<double> copy = Medians(
      kRounds,
      [&] {
        TNaiveTable table;
        return Time([&] { table = naive; });
      },
      [&] {
        std::unique_ptr<TFileCsv> table;
        return Time([&] { table = ours->Duplicate(); });
      });
  Report("tables/duplicate", copy[1], "naive", copy[0], 1, TBar::AtLeast(2));

  std::vector<double> get = Medians(
      kRounds,
      [&] {
        return Time([&] {
          for (const TProbe& p : probes) ::benchmark::DoNotOptimize(NaiveGet(naive, p.Col, p.Row));
        });
      },
      [&] {
        return Time([&] {
          for (const TProbe& p : probes) ::benchmark::DoNotOptimize(ours->GetCell(p.Col, p.Row));
        });
      });
  Report("tables/get_random", get[1], "naive", get[0], kProbes);

  std::vector<double> turn = Medians(
      kRounds,
      [&] {
        TNaiveTable table;
        return Time([&] {
          table.resize(naive[0].size());
          for (size_t col = 0; col < table.size(); ++col) {
            table[col].reserve(naive.size());
            for (const auto& row : naive) table[col].push_back(col < row.size() ? row[col] : std::string());
          }
        });
      },
      [&] {
        std::unique_ptr<TFileCsv> table;
        return Time([&] { table = ours->TurnAxis(); });
      });
  Report("tables/turn_axis", turn[1], "naive", turn[0]);

  const std::string shortBytes = "1.234,56", longBytes = "Verordnung liegt beim Nachbarn";
  const String shortText = u"1.234,56", longText = u"Verordnung liegt beim Nachbarn";
  std::vector<double> set = Medians(
      kRounds,
      [&] {
        return Time([&] {
          for (const TProbe& p : probes) NaiveSet(naive, p.Col, p.Row, p.Col == 9 ? longBytes : shortBytes);
        });
      },
      [&] {
        return Time([&] {
          for (const TProbe& p : probes) ours->SetCell(p.Col, p.Row, p.Col == 9 ? longText : shortText);
        });
      });
  Report("tables/set_random", set[1], "naive", set[0], kProbes, TBar::AtLeast(1));
}

// Our sum of a column, from row 1 on, beside the loop over the cells that a programmer would write. The two work on
// the same table and have to come to the same.
template <typename TSum, typename TCell>
void MeasureSum(const char* What, const TFileCsv& Table, int Col, TSum Sum, TCell Cell) {
  const int last = Table.GetCount() - 1;
  decltype(Sum(Table, Col, 1, last)) sum{}, direct{};
  std::vector<double> times = Medians(
      kRounds, [&] { return Time([&] { sum = Sum(Table, Col, 1, last); }); },
      [&] {
        return Time([&] {
          direct = {};
          for (int row = 1; row <= last; ++row) {
            const std::span<const String> cells = Table.GetLines(row)->Items();
            if (static_cast<size_t>(Col) < cells.size()) direct += Cell(TrimView(cells[static_cast<size_t>(Col)]));
          }
        });
      });
  Expect(sum == direct && !(sum == decltype(sum){}), What);
  Report(What, times[0], "direct", times[1], last, TBar::AtLeast(1));
}

void MeasureSums(const TPaths& Paths) {
  const auto plain = Load(Paths.In);
  THeadCsv headed;
  headed.LoadFromFile(String::FromUtf8(Paths.In));
  constexpr int kNumber = 0, kAmount = 8;
  const auto floats = [](const TFileCsv& table, int col, int from, int to) { return table.SumFloatY(col, from, to); };
  const auto amounts = [](const TFileCsv& table, int col, int from, int to) {
    return table.SumCurrencyY(col, from, to);
  };
  const auto toFloat = [](std::u16string_view cell) { return TVxString::ToExt(cell, 0); };
  const auto toAmount = [](std::u16string_view cell) { return TVxString::ToCurr(cell, 0); };
  MeasureSum("tables/sum_float", *plain, kNumber, floats, toFloat);
  MeasureSum("tables/sum_currency", *plain, kAmount, amounts, toAmount);
  MeasureSum("tables/sum_float_headed", headed, kNumber, floats, toFloat);
}

// The forms have no peer but plain joining and splitting at a character, which quotes nothing.
void MeasureForms() {
  TVxStringList row;
  row.SetSerialize(u';', u'"',
                   u"4711;M\u00FCller;\"Hans Peter\";01.02.1950;53111;\"Bad Homburg\";3;08:30;1.234,56;"
                   u"\"Schl\u00FCssel beim Nachbarn; morgens\"");
  constexpr int kTimes = 200000;
  std::string utf8[10];
  for (size_t i = 0; i < 10; ++i) utf8[i] = row.Items()[i].ToUtf8();
  auto join = [&] {
    return Time([&] {
      for (int i = 0; i < kTimes; ++i) {
        std::string joined;
        for (const std::string& cell : utf8) (joined += cell) += '|';
        ::benchmark::DoNotOptimize(joined);
      }
    });
  };
  std::string joinedOnce;
  for (const std::string& cell : utf8) (joinedOnce += cell) += '|';
  auto split = [&] {
    return Time([&] {
      for (int i = 0; i < kTimes; ++i) {
        std::vector<std::string> cells;
        for (size_t start = 0, end; (end = joinedOnce.find('|', start)) != joinedOnce.npos; start = end + 1) {
          cells.push_back(joinedOnce.substr(start, end - start));
        }
        ::benchmark::DoNotOptimize(cells);
      }
    });
  };
  struct TForm {
    const char* Name;
    String (*Get)(const TVxStringList&);
    void (*Set)(TVxStringList&, std::u16string_view);
  };
#define VX_FORM(Name, Form)                                                         \
  {                                                                                 \
    Name, [](const TVxStringList& list) { return list.Get##Form(); },               \
        [](TVxStringList& list, std::u16string_view text) { list.Set##Form(text); } \
  }
  const TForm forms[] = {VX_FORM("commatext", Commatext),
                         VX_FORM("lighttext", Lighttext),
                         VX_FORM("offsettext", Offsettext),
                         VX_FORM("intellitext", Intellitext),
                         VX_FORM("celltext", CellText),
                         VX_FORM("csvtext", Csv),
                         {"serial", [](const TVxStringList& list) { return list.GetSerialize(u';', u'"'); },
                          [](TVxStringList& list, std::u16string_view text) { list.SetSerialize(u';', u'"', text); }}};
#undef VX_FORM
  for (const TForm& form : forms) {
    String text = form.Get(row);
    TVxStringList target;
    std::vector<double> times = Medians(
        5, join, split,
        [&] {
          return Time([&] {
            for (int i = 0; i < kTimes; ++i) ::benchmark::DoNotOptimize(form.Get(row));
          });
        },
        [&] {
          return Time([&] {
            for (int i = 0; i < kTimes; ++i) form.Set(target, text);
          });
        });
    Report((std::string("tables/write_") + form.Name).c_str(), times[2], "join", times[0], kTimes);
    Report((std::string("tables/read_") + form.Name).c_str(), times[3], "split", times[1], kTimes);
  }
}

}  // namespace

}  // namespace vx::bench

int main(int argc, char** argv) {
  using namespace vx::bench;
  const char* directory = argc > 1 ? argv[1] : std::getenv("TMPDIR");
  TPaths paths(directory ? directory : "/tmp");
  WriteFile(paths.In, MakeGermanTable(100000));
  auto [smallLoad, smallSave] = MeasureFiles(paths, "_100k");
  WriteFile(paths.In, MakeGermanTable(1000000));
  auto [bigLoad, bigSave] = MeasureFiles(paths, "");
  std::printf("BENCH tables/load_linear tenth_of_1m=%.2fms at_100k=%.2fms ratio=%.2f\n", bigLoad * 100, smallLoad * 1e3,
              bigLoad / 10 / smallLoad);
  std::printf("BENCH tables/save_linear tenth_of_1m=%.2fms at_100k=%.2fms ratio=%.2f\n", bigSave * 100, smallSave * 1e3,
              bigSave / 10 / smallSave);
  MeasureMemory(paths);
  MeasureTable(paths);
  MeasureSums(paths);
  MeasureForms();
  return 0;
}
