// Table files of the world beside the library's own on the same million rows: reading, writing, rows without a table.
// The bars stand where both have the code page to do with; nothing else reads or writes UTF-8.
#include <unistd.h>

#include <memory>

#include "bench/support/Bench.h"
#include "bench/tables/GermanTable.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "tables/Csv.h"

namespace vx::bench {

namespace {

constexpr int kRounds = 7;
constexpr int kRows = 1000000;

void WriteFile(const String& Path, const std::string& Bytes) {
  TFileStream(Path, fmCreate).WriteBuffer(Bytes.data(), Bytes.size());
}

void ExpectSame(const TFileCsv& Ours, const TFileCsv& Theirs) {
  bool isSame = Ours.GetCount() == Theirs.GetCount();
  for (int row = 0; isSame && row < Ours.GetCount(); ++row) {
    isSame = std::ranges::equal(Ours.GetLines(row)->Items(), Theirs.GetLines(row)->Items());
  }
  Expect(isSame, "both have read the same");
}

// Seconds of what Load does with a new table, without freeing it.
template <typename F>
double TimeLoad(F Load) {
  TFileCsv table;
  return Time([&] { Load(table); });
}

void MeasureReading(const String& Page, const String& Utf8, const String& Utf16) {
  const TCsvForm told{.Separator = u';', .Encoding = ceCodePage, .CodePage = 1252};
  std::vector<double> times = Medians(
      kRounds, [&] { return TimeLoad([&](TFileCsv& table) { table.LoadFromFile(Page); }); },
      [&] { return TimeLoad([&](TFileCsv& table) { LoadCsv(table, Page); }); },
      [&] { return TimeLoad([&](TFileCsv& table) { LoadCsv(table, Page, told); }); },
      [&] { return TimeLoad([&](TFileCsv& table) { LoadCsv(table, Utf8); }); },
      [&] { return TimeLoad([&](TFileCsv& table) { LoadCsv(table, Utf16); }); },
      [&] {
        return Time([&] {
          TCsvReader reader(Page);
          size_t cells = 0;
          while (reader.Next()) cells += reader.Cells().size();
          Expect(cells == size_t{10} * kRows, "all cells come");
        });
      });
  Report("world/load", times[1], "LoadFromFile", times[0], 1, TBar::AtLeast(1));
  Report("world/load_told", times[2], "LoadFromFile", times[0], 1, TBar::AtLeast(1));
  Report("world/load_utf8", times[3], "LoadFromFile", times[0]);
  Report("world/load_utf16", times[4], "LoadFromFile", times[0]);
  Report("world/rows", times[5], "LoadFromFile", times[0], 1, TBar::AtLeast(1));
}

// On the disk when it returns, as SaveCsv leaves it.
double TimeSave(TFileCsv& Table, const String& Path) {
  return Time([&] {
    Table.SaveToFile(Path);
    TFileStream(Path, fmOpenReadWrite).Flush();
  });
}

// Both write the same bytes, but for the quotes that LoadFromFile needs round blanks.
void MeasureWriting(TFileCsv& Table, const String& Out) {
  const TCsvForm page{.Separator = u';', .Encoding = ceCodePage}, utf8{.Separator = u';', .Encoding = ceUtf8};
  const auto save = [&](const TCsvForm& form) {
    return Time([&] { Expect(SaveCsv(Table, Out, form).IsSaved, "all is saved"); });
  };
  const auto rows = [&](const TCsvForm& form) {
    return Time([&] {
      TCsvWriter writer(form);
      for (int row = 0; row < Table.GetCount(); ++row) writer.Write(Table.GetLines(row)->Items());
      ::benchmark::DoNotOptimize(writer.Bytes().data());
    });
  };
  std::vector<double> times = Medians(
      kRounds, [&] { return TimeSave(Table, Out); }, [&] { return save(page); }, [&] { return save(utf8); },
      [&] { return Time([&] { Table.SaveToFile(Out); }); }, [&] { return rows(page); }, [&] { return rows(utf8); });
  Report("world/save", times[1], "SaveToFile_flushed", times[0], 1, TBar::AtLeast(1));
  Report("world/save_utf8", times[2], "SaveToFile_flushed", times[0]);
  Report("world/write_rows", times[4], "SaveToFile", times[3], 1, TBar::AtLeast(1));
  Report("world/write_rows_utf8", times[5], "SaveToFile", times[3]);
}

}  // namespace

}  // namespace vx::bench

int main(int argc, char** argv) {
  using namespace vx;
  using namespace vx::bench;
  const char* told = argc > 1 ? argv[1] : std::getenv("TMPDIR");
  const String base = String::FromUtf8(std::string(told ? told : "/tmp") + "/vx_bench_world");
  const String page = base + u".txt", utf8 = base + u"8.txt", utf16 = base + u"16.txt", out = base + u"_out.txt";
  WriteFile(page, MakeGermanTable(kRows));
  {
    TFileCsv ours, theirs;
    LoadCsv(ours, page);
    theirs.LoadFromFile(page);
    ExpectSame(ours, theirs);
    Expect(SaveCsv(ours, utf8, {.HasMark = false}).IsSaved && SaveCsv(ours, utf16, {.Encoding = ceUtf16}).IsSaved,
           "copies");
    LoadCsv(theirs, utf8);
    ExpectSame(ours, theirs);
    LoadCsv(theirs, utf16);
    ExpectSame(ours, theirs);
  }
  MeasureReading(page, utf8, utf16);
  TFileCsv table;
  LoadCsv(table, page);
  MeasureWriting(table, out);
  for (const String& path : {page, utf8, utf16, out}) FileDelete(path);
  return 0;
}
