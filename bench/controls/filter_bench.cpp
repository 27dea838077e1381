// The filter bar: one item on a million cells beside regular expressions and scans of others, and a whole view beside
// a model of the desktop's.
#include <cwctype>
#include <regex>

#include "bench/controls/FilterPeers.h"
#include "bench/controls/Topic.h"
#include "bench/support/Bench.h"
#include "controls/uVxFilter.h"

namespace vx::bench {
namespace {

constexpr int kCells = 1000000;
constexpr int kRounds = 5;

// Names, towns and remarks, which repeat, but for a number.
std::vector<std::u16string> MakeColumn(int Column, int Count) {
  static const char16_t* const kWords[3][8] = {
      {u"Müller", u"Schäfer", u"Weiß", u"Obermeier", u"Łukasz", u"Öztürk", u"Hansen", u"Bößer"},
      {u"Bonn", u"Köln", u"Königswinter", u"Düsseldorf", u"Bad Godesberg", u"Troisdorf", u"Siegburg",
       u"Sankt Augustin"},
      {u"Grundpflege", u"Behandlungspflege", u"Verbandswechsel", u"Hauswirtschaft", u"Insulin", u"Beratung",
       u"Große Körperpflege", u"Einkauf"}};
  std::vector<std::u16string> cells;
  cells.reserve(static_cast<size_t>(Count));
  uint32_t state = 7 + static_cast<uint32_t>(Column);
  for (int i = 0; i < Count; ++i) {
    state = state * 1664525 + 1013904223;
    const std::string number = std::to_string(state >> 12);
    cells.push_back(kWords[Column][state >> 29] + std::u16string(u", ") + std::u16string(number.begin(), number.end()));
  }
  return cells;
}

std::vector<String> ToCells(const std::vector<std::u16string>& Texts) { return {Texts.begin(), Texts.end()}; }

template <typename F>
double TimeOfCells(const std::vector<String>& Cells, int& Found, F Test) {
  Found = 0;
  return Time([&] {
    for (const String& cell : Cells) Found += Test(cell);
  });
}

wchar_t Fold(char16_t Unit) { return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(Unit))); }

// As one would write it: the value in capitals, each place of the cell compared.
bool HandContains(std::u16string_view Cell, std::u16string_view Folded) {
  return std::search(Cell.begin(), Cell.end(), Folded.begin(), Folded.end(),
                     [](char16_t a, char16_t b) { return Fold(a) == static_cast<wchar_t>(b); }) != Cell.end();
}

void RunContains(const std::vector<String>& Cells) {
  TVxFilterItem item;
  item.SetValue(u"meier");
  const TPcre2Expression pcre(u"meier");
  const std::wregex regex(L"meier", std::regex::icase | std::regex::optimize);
  const std::vector<String> few(Cells.begin(), Cells.begin() + kCells / 20);
  int ours = 0, theirs = 0, scanned = 0, fewFound = 0, fewOurs = 0;
  const std::vector<double> times = Medians(
      kRounds, [&] { return TimeOfCells(Cells, ours, [&](const String& cell) { return item.Check(cell, nullptr); }); },
      [&] { return TimeOfCells(Cells, theirs, [&](const String& cell) { return pcre.IsMatch(cell); }); },
      [&] { return TimeOfCells(Cells, scanned, [&](const String& cell) { return HandContains(cell, u"MEIER"); }); });
  const double wide = TimeOfCells(few, fewFound, [&](const String& cell) {
    return std::regex_search(std::wstring(cell.begin(), cell.end()), regex);
  });
  TimeOfCells(few, fewOurs, [&](const String& cell) { return item.Check(cell, nullptr); });
  Expect(ours > 0 && ours == theirs && ours == scanned && fewFound == fewOurs, "the cells that contain a text");
  ReportOurs("filter_contains", times[0], kCells, TBar::AtMost(30));
  Report("filter_contains", times[0], "pcre2", times[1], kCells);
  Report("filter_contains", times[0], "hand", times[2], kCells);
  Report("filter_contains", times[0], "wregex", wide * 20, kCells);
}

void RunRegEx(const std::vector<String>& Cells) {
  for (const char16_t* pattern : {u"^(ober|mü)\\w+, .*7$", u"m[^,]*r, \\d{3}1"}) {
    TVxFilterItem item;
    item.SetValue(String(u"=") + pattern);
    const TPcre2Expression pcre(pattern);
    int ours = 0, theirs = 0, whole = 0;
    const std::vector<double> times = Medians(
        kRounds,
        [&] { return TimeOfCells(Cells, ours, [&](const String& cell) { return item.Check(cell, nullptr); }); },
        [&] { return TimeOfCells(Cells, theirs, [&](const String& cell) { return pcre.IsMatch(cell); }); },
        [&] { return TimeOfCells(Cells, whole, [&](const String& cell) { return pcre.IsMatchOfWhole(cell); }); });
    Expect(ours > 0 && ours == theirs && ours == whole, "the cells that match an expression");
    Report("filter_regex", times[0], "pcre2", times[1], kCells, TBar::AtLeast(1 / 1.3));
    Report("filter_regex", times[0], "pcre2_unchecked", times[2], kCells);
  }
}

// Seconds to filter a view of so many rows by three items.
double RunView(const std::vector<std::u16string>* Columns, const std::u16string* Words, int Count, int& Rows) {
  TCsvView view;
  for (size_t row = 0; row < static_cast<size_t>(Count); ++row)
    view.AddRow({String(Columns[0][row]), String(Columns[1][row]), String(Columns[2][row])});
  TVxFilter bar;
  for (int col = 0; col < 3; ++col) {
    TVxFilterItem& item = bar.GetItems().Add();
    item.SetFilterType(ftText);
    item.SetValue(Words[col]);
  }
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    times.push_back(Time([&] { bar.Filter(&view); }));
    Rows = view.GetCount();
    view.ShowAll();
  }
  return Median(times);
}

void RunViews(const std::vector<std::u16string>* Columns) {
  const std::u16string words[3] = {u"er", u"o", u"pflege"};
  int rows = 0, fewRows = 0, theirRows = 0;
  const double many = RunView(Columns, words, kCells, rows);
  const double few = RunView(Columns, words, kCells / 10, fewRows);
  std::vector<double> theirs;
  TQtFilter qt(Columns, words);
  for (int round = 0; round < 3; ++round) theirs.push_back(qt.Filter(theirRows));
  Expect(rows > fewRows && rows == theirRows, "the rows that three items leave");
  ReportOurs("filter_view", many, 1, TBar::AtMost(250));
  Report("filter_view", many, "qt", Median(theirs));
  ReportGrowth("filter_view", "million", many * 1e3, "tenth", few * 1e3, "ms", TBar::AtMost(13));
}

const TTopic topic("filter", [] {
  const std::vector<std::u16string> columns[3] = {MakeColumn(0, kCells), MakeColumn(1, kCells), MakeColumn(2, kCells)};
  {
    const std::vector<String> cells = ToCells(columns[0]);
    RunContains(cells);
    RunRegEx(cells);
  }
  RunViews(columns);
});

}  // namespace
}  // namespace vx::bench
