// Painted cells on a picture, a screen of them beside a table view of Qt, and what a long document takes of memory.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "bench/controls/Topic.h"
#include "bench/painting/QtTable.h"
#include "bench/support/Bench.h"
#include "bench/tables/GermanTable.h"
#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"
#include "rendering/uDecoration/TDecoratorCanvas.h"
#include "tables/TTablePrinter.h"

namespace vx::bench {

namespace {

constexpr int kRounds = 15, kCols = 12, kRows = 60, kWidth = 100, kHeight = 17;
constexpr TBar kCellBar = TBar::AtMost(5000), kScreenBar = TBar::AtMost(4), kMemoryBar = TBar::AtMost(10);

// As many rows and columns of a German table, with types, stripes and sides as programs give them.
void Fill(TTypeCsv& Table, int Rows, int Cols) {
  const std::string path = "/tmp/vx_bench_cells_" + std::to_string(getpid()) + ".txt";
  std::ofstream(path, std::ios::binary) << MakeGermanTable(Rows);
  TFileCsv source;
  Expect(source.LoadFromFile(String::FromUtf8(path)), path);
  unlink(path.c_str());
  for (int row = 0; row < Rows; ++row) {
    std::vector<String> cells;
    for (int col = 0; col < Cols; ++col) cells.push_back(source.GetCell(col % 10, row));
    Table.AddRow(cells);
  }
  TDecorationList& look = Table.GetDecorations();
  look.SetFixed(0, 1, 0, 0);
  look.SetZebraLines(2);
  const TVxFieldType types[] = {vftInteger, vftString, vftString, vftDate, vftString};
  for (int col = 0; col < Cols; ++col) {
    TDecoration* column = look.CreateRange(rtColumn, col, -1, col, -1);
    column->SetFieldType(types[col % 5]);
    if (col % 5 == 0) column->SetAlignSet({alRight});
    if (col % 5 == 3) column->SetFormatString(u"dd.mm.yyyy");
  }
}

TTableSizes SizesOf(int Cols, int Rows) {
  return {std::vector<int>(static_cast<size_t>(Cols), kWidth - 1),
          std::vector<int>(static_cast<size_t>(Rows), kHeight - 1)};
}

void RunCells() {
  InstallDrawing();
  TTypeCsv table;
  Fill(table, kRows, kCols);
  TBitmap picture(pf32bit, kCols * kWidth, kRows * kHeight);
  TCanvas& canvas = picture.GetCanvas();
  TDecorationList& look = table.GetDecorations();
  look.SetColCount(kCols);
  look.SetRowCount(kRows);
  const auto cell = look.DuplicateHead();
  const auto drawCells = [&] {
    return Time([&] {
      for (int row = 1; row < kRows; ++row) {
        const std::span<const String> texts = table.GetLines(row)->Items();
        for (int col = 0; col < kCols; ++col) {
          look.VirtualListForCell(col, row, *cell);
          const TRect place{col * kWidth, row * kHeight, (col + 1) * kWidth, (row + 1) * kHeight};
          DecoratorCanvas().DrawCell(canvas, place, texts[static_cast<size_t>(col)], nullptr, *cell, {});
        }
      }
    });
  };
  drawCells();
  ReportOurs("decorated_cell", Medians(kRounds, drawCells)[0], (kRows - 1) * kCols, kCellBar);

  const TTableSizes sizes = SizesOf(kCols, kRows);
  const auto drawScreen = [&] {
    return Time([&] {
      DecoratorCanvas().DrawTable(canvas, {0, 0, kCols * kWidth, kRows * kHeight}, look, table, sizes);
    });
  };
  std::vector<std::vector<std::string>> texts;
  for (int row = 0; row < kRows; ++row) {
    texts.emplace_back();
    for (const String& text : table.GetLines(row)->Items()) texts.back().push_back(text.ToUtf8());
  }
  TQtTable peer(texts, kWidth, kHeight);
  peer.Render();
  const auto medians = Medians(kRounds, drawScreen, [&] { return peer.Render(); });
  ReportOurs("screen_60x12", medians[0], 1, kScreenBar);
  Report("screen_60x12", medians[0], "qtableview", medians[1]);
}

// Of this process, in MB, by its name in /proc/self/status.
double StatusMegabytes(const std::string& Name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == Name && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

// What printing so many rows takes at most beside what there is before, in a process of its own.
double PrintingMegabytes(int Rows) {
  int pipes[2];
  Expect(pipe(pipes) == 0, "pipe");
  if (fork() == 0) {
    const std::string path = "/tmp/vx_bench_print_" + std::to_string(getpid()) + ".pdf";
    InstallDrawing();
    TTypeCsv table;
    Fill(table, Rows, 8);
    std::ofstream("/proc/self/clear_refs") << 5;
    const double before = StatusMegabytes("VmRSS:");
    TPdfFile pdf(String::FromUtf8(path), PageA4());
    Expect(PrintTable(table, pdf) > 1, "pages");
    pdf.Close();
    const double more = StatusMegabytes("VmHWM:") - before;
    unlink(path.c_str());
    Expect(write(pipes[1], &more, sizeof more) == sizeof more, "write");
    _exit(0);
  }
  double more = 0;
  Expect(read(pipes[0], &more, sizeof more) == sizeof more, "the printing process");
  wait(nullptr);
  close(pipes[0]);
  close(pipes[1]);
  return more;
}

void RunPrinting() {
  const double few = PrintingMegabytes(10000), many = PrintingMegabytes(100000);
  std::printf("BENCH pdf_memory few=%.1fMB many=%.1fMB more=%.1fMB%s\n", few, many, many - few,
              kMemoryBar.Text(many - few, "MB").c_str());
}

const TTopic kPrinting("printing", RunPrinting);
const TTopic kCells("cells", RunCells);

}  // namespace

}  // namespace vx::bench
