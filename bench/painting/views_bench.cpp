// A click on the head of a column beside the order of the rows alone, and hiding and showing rows, of a million rows as
// they were read and in any order.
#include <unistd.h>

#include <algorithm>
#include <numeric>
#include <random>

#include "bench/controls/Topic.h"
#include "bench/support/Bench.h"
#include "bench/tables/GermanTable.h"
#include "tables/uSort.h"
#include "tables/uTypeCsv.h"

namespace vx::bench {

namespace {

constexpr int kRounds = 5, kMany = 1000000, kFew = 100000;
constexpr TBar kSortBar = TBar::AtLeast(1 / 1.3), kHideBar = TBar::AtMost(100);

struct TSortedColumn {
  const char* Name;
  int Col;
  TVxFieldType Type;
};
constexpr TSortedColumn kColumns[] = {{"date", 3, vftDate}, {"amount", 8, vftCurrency}, {"surname", 1, vftString}};

void Load(TCsvView& View, int Rows) {
  const std::string path = "/tmp/vx_bench_views_" + std::to_string(getpid()) + ".txt";
  const std::string bytes =
      "Nummer;Name;Vorname;Datum;PLZ;Ort;Stufe;Stunden;Betrag;Bemerkung\r\n" + MakeGermanTable(Rows);
  std::FILE* file = std::fopen(path.c_str(), "wb");
  Expect(file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size(), path);
  std::fclose(file);
  Expect(View.LoadFromFile(String::FromUtf8(path)), path);
  unlink(path.c_str());
  View.GetDecorations().SetFixed(0, 1, 0, 0);
  for (const TSortedColumn& column : kColumns) {
    View.GetDecorations().CreateRange(rtColumn, column.Col, -1, column.Col, -1)->SetFieldType(column.Type);
  }
}

// Puts the rows below the head in an order that no file has.
void Shuffle(TCsvView& View) {
  View.SetViewMode(false);
  std::mt19937 random(20261123);
  std::vector<int> order(static_cast<size_t>(View.GetCount()));
  std::iota(order.begin(), order.end(), 0);
  std::shuffle(order.begin() + 1, order.end(), random);
  View.Arrange(order);
}

std::vector<const TVxStringList*> Body(const TCsvView& View) {
  std::vector<const TVxStringList*> rows;
  for (int row = 1; row < View.GetCount(); ++row) rows.push_back(View.GetLines(row));
  return rows;
}

void ShowEachTenth(TCsvView& View) {
  int number = 0;
  View.ShowOnly([&](const TVxStringList&) { return number++ % 10 == 0; });
}

void MeasureClicks(TCsvView& View) {
  for (const TSortedColumn& at : kColumns) {
    const TSortColumn column{.Index = at.Col, .SortType = at.Type, .SortDirection = 1, .DateTimeFormat = u"yyyymmdd"};
    std::vector<int> order;
    const auto click = [&] {
      View.SetSortDirection(TS_NONE);
      return Time([&] { View.Sort(at.Col, 0, TS_NONE, u"yyyymmdd"); });
    };
    const std::vector<double> times = Medians(
        kRounds,
        [&] {
          Shuffle(View);
          const std::vector<const TVxStringList*> rows = Body(View);
          const double time = Time([&] { order = OrderRows(rows, {&column, 1}); });
          click();
          for (size_t i = 0; i < rows.size(); ++i) {
            Expect(View.Get(static_cast<int>(i) + 1) == rows[static_cast<size_t>(order[i])], "order of the rows");
          }
          return time;
        },
        [&] {
          Shuffle(View);
          return click();
        },
        [&] {
          Shuffle(View);
          ShowEachTenth(View);
          return click();
        });
    Report(std::string("click_") + at.Name, times[1], "OrderRows", times[0], kMany, kSortBar);
    Report(std::string("click_hidden_") + at.Name, times[2], "OrderRows", times[0], kMany, kSortBar);
  }
}

// Milliseconds to hide nine tenths of the rows, and to show them again.
std::vector<double> HideAndShow(TCsvView& View) {
  double shown = 0;
  std::vector<double> times = Medians(
      kRounds,
      [&] {
        const double hidden = Time([&] { ShowEachTenth(View); }) * 1e3;
        Expect(View.GetCount() == 1 + View.GetAllCount() / 10, "rows on show");
        shown = Time([&] { View.ShowAll(); }) * 1e3;
        return hidden;
      },
      [&] { return shown; });
  return times;
}

const TTopic topic("views", [] {
  TCsvView few, view;
  Load(few, kFew);
  Load(view, kMany);
  const std::vector<double> atFew = HideAndShow(few), asRead = HideAndShow(view);
  MeasureClicks(view);
  Shuffle(view);
  const std::vector<double> shuffled = HideAndShow(view);
  for (const auto& [name, i] : {std::pair("hide", 0), std::pair("show", 1)}) {
    const auto at = static_cast<size_t>(i);
    ReportOurs(std::string(name) + "_nine_tenths", asRead[at] / 1e3, 1, kHideBar);
    ReportOurs(std::string(name) + "_nine_tenths_any_order", shuffled[at] / 1e3, 1, kHideBar);
    ReportGrowth(name, "1000000", asRead[at], "100000", atFew[at], "ms");
  }
});

}  // namespace

}  // namespace vx::bench
