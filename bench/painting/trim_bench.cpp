// The sizes of all columns and rows of a table, beside the calculation of each cell.
#include <cstdio>
#include <filesystem>
#include <memory>

#include "bench/controls/Topic.h"
#include "bench/support/Bench.h"
#include "bench/tables/GermanTable.h"
#include "platform/Drawing.h"
#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"
#include "rendering/uDecoration.h"
#include "tables/uFileCsv.h"

namespace vx::bench {
namespace {

constexpr int kRounds = 5;
constexpr int kMillion = 1000000;
constexpr double kMostMs = 500;
constexpr double kMostGrowth = 1.3;

// The rows of a table as a decorator asks for them.
class TTableCells final : public TCellSource {
 public:
  explicit TTableCells(const TFileCsv& Table) noexcept : FTable(Table) {}
  int CellCols() const override { return FTable.FieldCount(); }
  int CellRows() const override { return FTable.GetCount(); }
  std::span<const String> RowTexts(int Row) override { return FTable.GetLines(Row)->Items(); }
  TObject* CellObject(int Col, int Row) override { return FTable.GetObject(Col, Row); }

 private:
  const TFileCsv& FTable;
};

std::unique_ptr<TFileCsv> MakeTable(int Rows) {
  auto table = std::make_unique<TFileCsv>();
  const std::string path = (std::filesystem::temp_directory_path() / "vx_bench_painting.txt").string();
  std::FILE* file = std::fopen(path.c_str(), "wb");
  const std::string text = MakeGermanTable(Rows);
  Expect(file != nullptr && std::fwrite(text.data(), 1, text.size(), file) == text.size(), path);
  std::fclose(file);
  Expect(table->LoadFromFile(String::FromUtf8(path)), path);
  std::remove(path.c_str());
  return table;
}

// Number, date, hours and amount as such; with formats they are shown otherwise than they stand.
void Decorate(TDecorationList& List, bool HasFormats) {
  List.SetFixed(0, 1, 0, 0);
  const auto column = [&](int col, TVxFieldType type, const char16_t* format) {
    TDecoration& look = *List.CreateRange(rtColumn, col, -1, col, -1);
    look.SetFieldType(type);
    if (HasFormats) look.SetFormatString(format);
  };
  column(0, vftInteger, u"#,##0");
  column(3, vftDate, u"d. mmmm yyyy");
  column(7, vftHour, u"q");
  column(8, vftCurrency, u"EUR");
}

// Calculate for each cell of the table.
TTableSizes SizesOfAll(TCanvas& Canvas, TDecorationList& List, TTableCells& Cells) {
  TTableSizes sizes{std::vector<int>(static_cast<size_t>(Cells.CellCols())),
                    std::vector<int>(static_cast<size_t>(Cells.CellRows()))};
  const auto buffer = List.DuplicateHead();
  for (int row = 0; row < Cells.CellRows(); ++row) {
    const std::span<const String> texts = Cells.RowTexts(row);
    for (int col = 0; col < Cells.CellCols(); ++col) {
      const auto c = static_cast<size_t>(col), r = static_cast<size_t>(row);
      List.VirtualListForCell(col, row, *buffer);
      const TPoint size = DecoratorCanvas().Calculate(Canvas, c < texts.size() ? texts[c] : String(), nullptr, *buffer);
      sizes.ColWidths[c] = std::max(sizes.ColWidths[c], size.X);
      sizes.RowHeights[r] = std::max(sizes.RowHeights[r], size.Y);
    }
  }
  return sizes;
}

// Milliseconds for the table.
double Measure(TCanvas& Canvas, const TFileCsv& Table, bool HasFormats) {
  TTableCells cells(Table);
  TDecorationList list;
  Decorate(list, HasFormats);
  return 1e3 * Medians(kRounds, [&] {
           return Time([&] { benchmark::DoNotOptimize(DecoratorCanvas().TrimDevice(Canvas, {}, list, cells)); });
         })[0];
}

void CompareWithAllCells(TCanvas& Canvas, const TFileCsv& Table, bool HasFormats, const char* What) {
  TTableCells cells(Table);
  TDecorationList list;
  Decorate(list, HasFormats);
  TTableSizes ours, all;
  const auto times = Medians(
      3, [&] { return Time([&] { ours = DecoratorCanvas().TrimDevice(Canvas, {}, list, cells); }); },
      [&] { return Time([&] { all = SizesOfAll(Canvas, list, cells); }); });
  Expect(ours == all, What);
  Report(What, times[0], "all_cells", times[1], Table.GetCount() * Table.FieldCount());
}

const TTopic topic("trim", [] {
  InstallDrawing();
  TBitmap bitmap(pf32bit, 16, 16);
  const auto canvas = NewBitmapCanvas(bitmap);
  const auto few = MakeTable(kMillion / 10), many = MakeTable(kMillion);
  for (const bool hasFormats : {false, true}) {
    const std::string what = hasFormats ? "painting/trim_formats" : "painting/trim";
    CompareWithAllCells(*canvas, *few, hasFormats, (what + "_100k").c_str());
    const double atFew = Measure(*canvas, *few, hasFormats), atMany = Measure(*canvas, *many, hasFormats);
    ReportOurs(what + "_million", atMany / 1e3, 1, TBar::AtMost(kMostMs));
    ReportGrowth(what, "million", atMany / 10, "100k", atFew, "ms", TBar::AtMost(kMostGrowth));
  }
});

}  // namespace
}  // namespace vx::bench
