// TTableWidget with a million rows by ten columns at 1920 x 1080, beside QTableView on a model over the same rows with
// a model that filters and sorts, and beside QTableWidget with a tenth of the rows.
#include <unistd.h>

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <memory>

#include "bench/desktop/QtPeers.h"
#include "bench/support/Bench.h"
#include "bench/tables/GermanTable.h"
#include "controls/TableScene.h"
#include "controls/uVxFilter.h"
#include "desktop/TTableWidget.h"
#include "platform/cairo/CairoDrawing.h"
#include "tables/uTypeCsv.h"

namespace vx::bench {
namespace {

constexpr int kMany = 1000000, kFew = 100000, kFrames = 60;
constexpr int kNameCol = 1;

void Load(TCsvView& View, int Rows) {
  const std::string path = "/tmp/vx_bench_desktop_" + std::to_string(getpid()) + ".txt";
  const std::string bytes =
      "Nummer;Name;Vorname;Datum;PLZ;Ort;Stufe;Stunden;Betrag;Bemerkung\r\n" + MakeGermanTable(Rows);
  std::FILE* file = std::fopen(path.c_str(), "wb");
  Expect(file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size(), path);
  std::fclose(file);
  Expect(View.LoadFromFile(String::FromUtf8(path)), path);
  unlink(path.c_str());
  TDecorationList& list = View.GetDecorations();
  list.SetFixed(0, 1, 0, 0);
  list.SetOptions({dloGridLines, dloVertLine, dloHorzLine, dloColumnClick});
  list.SetZebraLines(2);
  list.CreateRange(rtColumn, kDateCol, -1, kDateCol, -1)->SetFieldType(vftDate);
  list.CreateRange(rtColumn, 8, -1, 8, -1)->SetFieldType(vftCurrency);
}

// The bytes of memory that the program has.
double ResidentBytes() {
  malloc_trim(0);
  std::FILE* file = std::fopen("/proc/self/statm", "r");
  long pages = 0;
  Expect(file && std::fscanf(file, "%*s %ld", &pages) == 1, "statm");
  std::fclose(file);
  return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

// Shown and painted.
void Open(QAbstractScrollArea& Area) {
  Area.resize(1920, 1080);
  Area.show();
  QApplication::processEvents();
  Area.viewport()->repaint();
}

// Seconds of a frame after each of so many steps of the bar.
double ScrollFrame(QAbstractScrollArea& Area, int Step) {
  Area.verticalScrollBar()->setValue(0);
  Area.viewport()->repaint();
  std::vector<double> times;
  for (int i = 1; i <= kFrames; ++i) {
    times.push_back(Time([&] {
      Area.verticalScrollBar()->setValue(i * Step);
      Area.viewport()->repaint();
    }));
  }
  return Median(times);
}

struct TFrames {
  double First, Line, Page, Key, Date, Name, Fit, FitSorted;
};

// Widths that fill the screen, so that there is no less to paint than there can be.
constexpr int kWidth = 188;

TFrames MeasureOurs(TCsvView& Table) {
  TFrames result{};
  auto widget = std::make_unique<TTableWidget>();
  result.First = Time([&] {
    widget->SetTable(&Table);
    Open(*widget);
  });
  for (int col = 0; col < 10; ++col) widget->SetColumnWidth(col, kWidth);
  result.Line = ScrollFrame(*widget, 57);
  result.Page = ScrollFrame(*widget, 1040);
  const auto frame = [&](auto work) {
    return Time([&] {
      work();
      widget->TableChanged();
      widget->viewport()->repaint();
    });
  };
  TVxFilter bar;
  for (int col = 0; col < 10; ++col) bar.GetItems().Add().SetFilterType(ftText);
  std::vector<double> keys;
  for (const char16_t* typed : {u"m", u"mü", u"mül", u"müll", u"mü", u"m", u""}) {
    TVxFilterItem& item = bar.GetItems().Get(kNameCol);
    keys.push_back(frame([&] {
      item.SetValue(typed);
      bar.Filter(&Table);
    }));
  }
  result.Key = *std::max_element(keys.begin(), keys.end());
  Expect(Table.GetCount() == Table.GetAllCount(), "all rows are back");
  const auto fit = [&] {
    return Time([&] {
      widget->FitColumns();
      widget->viewport()->repaint();
    });
  };
  result.Fit = fit();
  result.Date = frame([&] { Table.Sort(kDateCol, 0, TS_NONE, u"yyyymmdd"); });
  result.Name = frame([&] { Table.Sort(kNameCol, 0); });
  result.FitSorted = fit();  // rows that lie anywhere in memory
  widget->SetTable(nullptr);
  return result;
}

TFrames MeasureView(const TCsvView& Table) {
  TFrames result{};
  std::unique_ptr<TQtView> qt;
  result.First = Time([&] {
    qt = std::make_unique<TQtView>(Table);
    Open(qt->View);
  });
  for (int col = 0; col < 10; ++col) qt->View.setColumnWidth(col, kWidth);
  result.Line = ScrollFrame(qt->View, 57);
  result.Page = ScrollFrame(qt->View, 1040);
  const auto frame = [&](auto work) {
    return Time([&] {
      work();
      qt->View.viewport()->repaint();
    });
  };
  qt->Proxy.setFilterKeyColumn(kNameCol);
  result.Key = frame([&] { qt->Proxy.setFilterFixedString("m"); });
  qt->Proxy.setFilterFixedString("");
  result.Date = frame([&] { qt->Proxy.sort(kDateCol); });
  result.Name = frame([&] { qt->Proxy.sort(kNameCol); });
  return result;
}

// Of a tenth of the rows.
TFrames MeasureWidget(const TCsvView& Table) {
  TFrames result{};
  QTableWidget widget;
  widget.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  result.First = Time([&] {
    Fill(widget, Table, kFew);
    Open(widget);
  });
  for (int col = 0; col < 10; ++col) widget.setColumnWidth(col, kWidth);
  result.Line = ScrollFrame(widget, 57);
  result.Page = ScrollFrame(widget, 1040);
  result.Name = Time([&] {
    widget.sortItems(kNameCol);
    widget.viewport()->repaint();
  });
  widget.horizontalHeader()->setResizeContentsPrecision(-1);
  result.Fit = Time([&] {
    widget.resizeColumnsToContents();
    widget.viewport()->repaint();
  });
  return result;
}

void Tell(const char* What, double Ours, double View, double Widget, double MostMs) {
  if (View == 0 && Widget == 0) ReportOurs(What, Ours, 1, TBar::AtMost(MostMs));
  if (View > 0) Report(What, Ours, "qtableview", View);
  if (Widget > 0) Report(std::string(What) + "_tenth", Ours, "qtablewidget_100000", Widget);
}

// Ours alone, beside the bars, where the others are not known.
void TellAll(const TFrames& Ours, const TFrames& View, const TFrames& Widget) {
  Tell("first_frame", Ours.First, View.First, Widget.First, 50);
  Tell("scroll_three_rows", Ours.Line, View.Line, Widget.Line, 8);
  Tell("scroll_page", Ours.Page, View.Page, Widget.Page, 8);
  if (View.Key > 0 || Widget.Key == 0) Tell("filter_key", Ours.Key, View.Key, 0, 200);
  if (View.Date > 0 || Widget.Name == 0) Tell("sort_date", Ours.Date, View.Date, 0, 500);
  Tell("sort_name", Ours.Name, View.Name, Widget.Name, 500);
  Tell("fit_columns", Ours.Fit, 0, Widget.Fit, 500);
  if (Widget.Fit == 0 && View.First == 0) Tell("fit_columns_after_sort", Ours.FitSorted, 0, 0, 500);
}

void MeasureMemory(const TCsvView& Table, double Bare) {
  const double before = ResidentBytes();
  TTableWidget widget;
  widget.SetTable(&const_cast<TCsvView&>(Table));
  Open(widget);
  ScrollFrame(widget, 10000);
  widget.FitRows();
  const double part = (ResidentBytes() - before) / Bare * 100;
  widget.SetTable(nullptr);
  std::printf("BENCH memory_over_table ours=%.2f%% table=%.0fMB%s\n", part, Bare / 1e6,
              TBar::AtMost(10).Text(part, "%").c_str());
  std::fflush(stdout);
}

int Run() {
  const double empty = ResidentBytes();
  TCsvView table;
  Load(table, kMany);
  const double bare = ResidentBytes() - empty;
  MeasureMemory(table, bare);
  const TFrames ours = MeasureOurs(table);
  TellAll(ours, {}, {});
  // The slowest comes last.
  const TFrames widget = MeasureWidget(table);
  TellAll(ours, MeasureView(table), widget);
  return 0;
}

}  // namespace
}  // namespace vx::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  vx::InstallDrawing();
  return vx::bench::Run();
}
