// Lists of decorations. There is no peer: what counts is the time for a cell, and that it grows as the logarithm.
#include <cmath>
#include <random>

#include "bench/decorations/Topics.h"
#include "bench/support/Bench.h"
#include "platform/TextForms.h"
#include "rendering/uDecoration.h"

namespace vx::bench {
namespace {

constexpr int kRounds = 9;
constexpr int kCells = 20000;  // that are asked for

struct TSize {
  int Columns, Rows, Cells;
};
constexpr TSize kFew{500, 100, 10000}, kMany{5000, 1000, 100000};

// A decoration for each column and row, and for as many cells as told, in a table with ten times as many rows.
void Fill(TDecorationList& List, TSize Size) {
  std::mt19937 random(4711);
  List.SetColCount(Size.Columns);
  List.SetRowCount(Size.Rows * 10);
  for (int i = 0; i < Size.Columns; ++i) List.CreateRange(rtColumn, i, -1, i, -1)->SetFieldType(vftDate);
  for (int i = 0; i < Size.Rows; ++i) List.CreateRange(rtRow, -1, i, -1, i)->SetColor(clYellow);
  const int first = List.GetCount();
  while (List.GetCount() < first + Size.Cells) {
    const int col = static_cast<int>(random() % static_cast<unsigned>(Size.Columns));
    List.GetCell(col, static_cast<int>(random() % static_cast<unsigned>(List.GetRowCount())), true)->SetColor(clRed);
  }
  List.RefreshRangeList();
}

// All that applies, found by looking at every decoration.
int CountPlainly(const TDecorationList& List, TPoint Cell) {
  int count = 0;
  for (int i = 0; i < List.GetCount(); ++i) count += List.GetItems(i)->Responsible(Cell.X, Cell.Y);
  return count;
}

// Parts of the table of 25 x 40 cells, row by row, as painting asks.
std::vector<TPoint> PickPainted(const TDecorationList& List) {
  std::mt19937 random(815);
  std::vector<TPoint> cells;
  while (cells.size() < kCells) {
    const int left = static_cast<int>(random() % static_cast<unsigned>(List.GetColCount() - 25));
    const int top = static_cast<int>(random() % static_cast<unsigned>(List.GetRowCount() - 40));
    for (int i = 0; i < 1000; ++i) cells.push_back({left + i % 25, top + i / 25});
  }
  return cells;
}

// In any order; half of them have a decoration of their own.
std::vector<TPoint> PickAnywhere(const TDecorationList& List) {
  std::mt19937 random(815);
  std::vector<TPoint> cells;
  const int first = List.GetIndexFirstCell();
  for (int i = 0; i < kCells; ++i) {
    const int row = static_cast<int>(random() % static_cast<unsigned>(List.GetRowCount()));
    const auto pick = static_cast<int>(random() % static_cast<unsigned>(List.GetCount() - first));
    const TRect& range = List.GetItems(first + pick)->GetRange();
    cells.push_back({range.Left, i % 2 ? range.Top : row});
  }
  return cells;
}

// Seconds for kCells cells.
double MeasureCells(TDecorationList& List, const std::vector<TPoint>& Cells) {
  const auto buffer = List.DuplicateHead();
  int found = 0;
  const auto work = [&] {
    int64_t colors = 0;
    for (TPoint cell : Cells) {
      List.VirtualListForCell(cell.X, cell.Y, *buffer);
      found += buffer->GetCount();
      colors += buffer->Compress()->GetColor();
    }
    Expect(colors > 0, "colours");
  };
  const double seconds = Medians(kRounds, [&] { return Time(work); })[0];
  int plain = 0;
  for (size_t i = 0; i < Cells.size(); i += 100) plain += CountPlainly(List, Cells[i]);
  int sampled = 0;
  for (size_t i = 0; i < Cells.size(); i += 100) {
    List.VirtualListForCell(Cells[i].X, Cells[i].Y, *buffer);
    sampled += buffer->GetCount();
  }
  Expect(sampled == plain && found > 0, "the decorations of a cell");
  return seconds;
}

double Steps(TSize Size) { return std::log2(Size.Columns) + std::log2(Size.Rows) + std::log2(Size.Cells); }

void RunCells() {
  TDecorationList few, many;
  Fill(few, kFew);
  Fill(many, kMany);
  const double painted = MeasureCells(few, PickPainted(few)), paintedMany = MeasureCells(many, PickPainted(many));
  ReportOurs("deco_cell_painted", painted, kCells, TBar::AtMost(500));
  ReportGrowth("deco_cell_painted", "many", paintedMany / kCells * 1e9, "few", painted / kCells * 1e9, "ns",
               TBar::AtMost(Steps(kMany) / Steps(kFew)));
  // No bar for the growth here: that many decorations don't stay near the processor, and each is one that is used.
  const double any = MeasureCells(few, PickAnywhere(few)), anyMany = MeasureCells(many, PickAnywhere(many));
  ReportOurs("deco_cell_anywhere", any, kCells, TBar::AtMost(500));
  ReportGrowth("deco_cell_anywhere", "many", anyMany / kCells * 1e9, "few", any / kCells * 1e9, "ns");
}

// Of decorations of cells, each with a colour and a format: the nanoseconds for one, written and read, in their order
// and in the opposite one.
std::vector<double> MeasureTexts(int Count) {
  TDecorationList list;
  list.Clear();
  for (int i = 0; i < Count; ++i) {
    TDecoration* item = list.CreateRange(rtCell, i / 100, i % 100, -1, -1);
    item->SetColor(clRed);
    item->SetFormatString(u"dd.mm.yyyy");
  }
  const String text = list.GetCommatext();
  TCells cells = ReadCommatext(text);
  std::reverse(cells.end() - Count, cells.end());
  const String reversed = WriteCommatext(cells);
  const auto read = [&](const String& from) {
    TDecorationList copy;
    const double seconds = Time([&] { copy.SetCommatext(from); });
    Expect(copy.GetCommatext() == text, "the list reads back");
    return seconds;
  };
  std::vector<double> times = Medians(
      5, [&] { return Time([&] { Expect(list.GetCommatext().size() == text.size(), "the text"); }); },
      [&] { return read(text); }, [&] { return read(reversed); });
  for (double& time : times) time *= 1e9 / Count;
  return times;
}

void RunTexts() {
  constexpr int kMuch = 100000, kLittle = 10000;
  const std::vector<double> much = MeasureTexts(kMuch), little = MeasureTexts(kLittle);
  const char* works[] = {"deco_text_written", "deco_text_read", "deco_text_read_reversed"};
  for (size_t i = 0; i < std::size(works); ++i) {
    ReportOurs(works[i], little[i] * kLittle / 1e9, kLittle);
    ReportGrowth(works[i], "100000", much[i], "10000", little[i], "ns", TBar::AtMost(1.5));
  }
}

}  // namespace

void RunLists() {
  RunCells();
  RunTexts();
}

}  // namespace vx::bench
