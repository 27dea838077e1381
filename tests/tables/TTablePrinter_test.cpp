#include "tables/TTablePrinter.h"

#include "platform/Calendar.h"
#include "platform/TRecordingCanvas.h"
#include "tables/detail/PagePlan.h"
#include "tests/support/Test.h"

namespace {

std::string Text(const detail::TBand& Band) {
  std::string text = std::to_string(Band.First) + "-" + std::to_string(Band.End);
  if (Band.Skip > 0) text += " from " + std::to_string(Band.Skip);
  if (Band.Cut > 0) text += " for " + std::to_string(Band.Cut);
  return text;
}

// "columns: rows | rows of the next strip" for each page.
std::string Pages(const detail::TPagePlan& Plan) {
  std::string text;
  for (int page = 0; page < Plan.GetPageCount(); ++page) {
    const detail::TPageContent content = Plan.GetPage(page);
    text += (page > 0 ? "; " : "") + Text(content.Cols) + ":";
    for (const detail::TBand& rows : content.Strips) text += (&rows > content.Strips.data() ? " | " : " ") + Text(rows);
  }
  return text;
}

TEST(PagePlan, ColumnsAndRowsComeOntoPages) {
  // The widths of the columns, the heights of the rows, how many are fixed, the room and the strips; the pages and what
  // is left of the last one.
  const TCases<const char*, const char*, std::string, int> cases = {
      {"all on one page", "40 60 | 10 10 | 0 1 | 100 20 | 1", "0-2: 1-2", 0},
      {"rows that don't fit go on", "40 | 10 10 10 10 | 0 1 | 100 35 | 1", "0-1: 1-3; 0-1: 3-4", 15},
      {"columns side by side first", "40 60 60 | 10 30 30 | 1 1 | 110 50 | 1", "1-2: 1-2; 2-3: 1-2; 1-2: 2-3; 2-3: 2-3",
       10},
      {"a row higher than a page is cut", "40 | 10 70 5 | 0 1 | 100 40 | 1",
       "0-1: 1-2 for 30; 0-1: 1-2 from 30 for 30; 0-1: 1-3 from 60", 15},
      {"a column wider than a page, too", "150 20 | 10 | 0 0 | 100 40 | 1", "0-1 for 100: 0-1; 0-2 from 100: 0-1", 30},
      {"large fixed lines are not repeated", "60 60 | 30 10 10 | 1 1 | 100 40 | 1",
       "0-1: 0-2; 1-2: 0-2; 0-1: 2-3; 1-2: 2-3", 30},
      {"hidden lines take no room", "100 0 -5 | 40 0 0 | 0 0 | 100 40 | 1", "0-3: 0-3", 0},
      {"strips", "30 | 10 20 20 20 | 0 1 | 100 30 | 3", "0-1: 1-2 | 2-3 | 3-4", 0},
      {"as many strips as there is room for", "40 | 20 20 20 | 0 0 | 100 20 | 9", "0-1: 0-1 | 1-2; 0-1: 2-3", 0},
      {"no rows", "40 | | 0 1 | 100 40 | 1", "0-1: 0-0", 40},
      {"no columns", "| 10 | 1 1 | 100 40 | 1", "0-0: 1-1", 30},
      {"no room", "5 | 2 | 0 0 | 0 0 | 1",
       "0-1 for 1: 0-1 for 1; 0-1 from 1 for 1: 0-1 for 1; 0-1 from 2 for 1: 0-1 for 1; 0-1 from 3 for 1: 0-1 for 1; "
       "0-1 from 4: 0-1 for 1; 0-1 for 1: 0-1 from 1; 0-1 from 1 for 1: 0-1 from 1; 0-1 from 2 for 1: 0-1 from 1; "
       "0-1 from 3 for 1: 0-1 from 1; 0-1 from 4: 0-1 from 1",
       -1}};
  for (const auto& [name, table, pages, rest] : cases) {
    std::vector<std::vector<int>> t(1);
    std::istringstream words(table);
    for (std::string word; words >> word;) word == "|" ? void(t.emplace_back()) : t.back().push_back(std::stoi(word));
    const detail::TPagePlan plan({.ColWidths = t[0],
                                  .RowHeights = t[1],
                                  .FixedCols = t[2][0],
                                  .FixedRows = t[2][1],
                                  .Room = {t[3][0], t[3][1]},
                                  .Strips = t[4][0]});
    EXPECT_EQ(Pages(plan), pages) << name;
    EXPECT_EQ(plan.GetRest(), rest) << name;
  }
}

// Pages of which the texts are kept, each with its place.
struct TPages : TPrintPages {
  explicit TPages(TPoint PageSize) : Size(PageSize) {}
  TCanvas& GetCanvas() noexcept override { return Canvas; }
  TPoint GetPageSize() const noexcept override { return Size; }
  void NewPage() override { Take("\npage "); }
  void Take(const char* Next) {
    std::istringstream lines(Canvas.GetText().ToUtf8());
    for (std::string line; std::getline(lines, line);) {
      if (!line.starts_with("text ")) continue;
      const size_t quote = line.find('"');
      Texts +=
          line.substr(5, line.find(' ', 5) - 4) + line.substr(quote + 1, line.find('"', quote + 1) - quote - 1) + "; ";
    }
    Canvas.Clear();
    Texts += Next;
  }
  TPoint Size;
  TRecordingCanvas Canvas;
  std::string Texts;
};

TEST(TablePrinter, EachPageHasHeadingsHeadRowAndFootAndTheLastOneTheLegend) {
  TTypeCsv table;
  for (const char16_t* name : {u"Name", u"Anna", u"Bea", u"Cem", u"Dora"}) table.AddRow({name});
  TDecorationList& look = table.GetDecorations();
  look.SetFixed(0, 1, 0, 0);
  look.SetTitle(u"Plan");
  TPrintForm form;
  form.Margins = {1, 1, 1, 1};
  form.Date = EncodeDate(2026, 3, 2);
  TVxStringList legend;
  legend.Add(u"U: Urlaub");
  form.LegendTexts = &legend;
  const TCases<int, std::string> cases = {
      {150,
       "4,4 Plan; 4,132 02.03.2026; 120,132 Seite 1 von 3; 5,39 Name; 5,56 Anna; 5,73 Bea; 5,90 Cem; \n"
       "page 4,4 Plan; 4,132 02.03.2026; 120,132 Seite 2 von 3; 5,39 Name; 5,56 Dora; \n"
       "page 4,4 Plan; 4,132 02.03.2026; 120,132 Seite 3 von 3; 8,43 Legende; 8,66 U: Urlaub; "},
      {220,
       "4,4 Plan; 4,202 02.03.2026; 120,202 Seite 1 von 1; 5,39 Name; 5,56 Anna; 5,73 Bea; 5,90 Cem; 5,107 Dora; "
       "8,139 Legende; 8,162 U: Urlaub; "}};
  for (const auto& [height, texts] : cases) {
    TPages pages({200, height});
    PrintTable(table, pages, form);
    pages.Take("");
    EXPECT_EQ(pages.Texts, texts);
  }
  EXPECT_EQ(look.GetDevice(), ddScreen);
}

}  // namespace
