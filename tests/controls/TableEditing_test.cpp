#include "controls/TableEditing.h"

#include <gtest/gtest.h>

#include <deque>
#include <random>

#include "tables/uTypeCsv.h"
#include "tests/support/Cases.h"

namespace vx {
namespace {

std::string Text(const TFileCsv& Table) {
  std::string text;
  for (int row = 0; row < Table.GetCount(); ++row) text += Table.GetLines(row)->GetCommatext().ToUtf8() + "|";
  return text;
}

std::string Ranges(const TTableSelection& Selection) {
  std::string text;
  for (const auto& [left, top, right, bottom] : Selection.GetRanges()) {
    for (const int side : {left, top, right, bottom}) text += std::to_string(side) + ' ';
    text += '|';
  }
  return text;
}

// What keys, the mouse and new areas make of a selection, beside a plain set of cells.
TEST(TableSelection, KeepsToASetOfCells) {
  std::mt19937 random(7);
  const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
  TTableSelection selection;
  selection.SetArea({1, 2, 7, 9});
  std::vector<std::vector<bool>> kept(10, std::vector<bool>(10)), last = kept;
  TPoint anchor{1, 2};
  const auto fill = [](auto& cells, TPoint a, TPoint b) {
    for (auto& row : cells) std::fill(row.begin(), row.end(), false);
    for (int y = std::min(a.Y, b.Y); y <= std::max(a.Y, b.Y); ++y) {
      for (int x = std::min(a.X, b.X); x <= std::max(a.X, b.X); ++x) cells[size_t(y)][size_t(x)] = true;
    }
  };
  const auto keep = [&] {
    for (size_t y = 0; y < 10; ++y) {
      for (size_t x = 0; x < 10; ++x) kept[y][x] = kept[y][x] || last[y][x];
    }
  };
  last[2][1] = true;
  for (int i = 0; i < 4000; ++i) {
    const TPoint cell{1 + below(6), 2 + below(7)};
    switch (below(4)) {
      case 0:
        selection.MoveTo(cell);
        kept.assign(10, std::vector<bool>(10)), fill(last, anchor = cell, cell);
        break;
      case 1:
        keep(), fill(last, cell, cell), anchor = cell;
        if (kept[size_t(cell.Y)][size_t(cell.X)])
          kept[size_t(cell.Y)][size_t(cell.X)] = false, last = decltype(last)(10, std::vector<bool>(10));
        selection.Toggle(cell);
        break;
      default:
        selection.ExtendTo(cell), fill(last, anchor, cell);
    }
    int64_t count = 0;
    for (int y = 0; y < 10; ++y) {
      for (int x = 0; x < 10; ++x) {
        const bool is = kept[size_t(y)][size_t(x)] || last[size_t(y)][size_t(x)];
        count += is;
        ASSERT_EQ(selection.IsSelected({x, y}), is) << "step " << i << " at " << x << ',' << y;
      }
    }
    ASSERT_EQ(selection.GetCellCount(), count) << "step " << i;
    int64_t inRanges = 0;
    for (const TRect& range : selection.GetRanges()) inRanges += range.Width() * range.Height();
    ASSERT_EQ(inRanges, count) << "step " << i;
  }
}

TEST(TableSelection, Keys) {
  struct TCase {
    const char* Name;
    uint16_t Key;
    TShiftState Shift;
    const char* Ranges;
    TPoint Current;
  };
  for (const auto& [name, key, shift, ranges, current] : std::vector<TCase>{
           {"down", vkDown, {}, "2 6 3 7 |", {2, 6}},
           {"to the edge", vkDown, {ssCtrl}, "2 8 3 9 |", {2, 8}},
           {"a page, held to the area", vkPrior, {}, "2 2 3 3 |", {2, 2}},
           {"reaching", vkRight, {ssShift}, "2 5 4 6 |", {3, 5}},
           {"to the beginning of the row", vkHome, {}, "1 5 2 6 |", {1, 5}},
           {"reaching to the last cell", vkEnd, {ssShift, ssCtrl}, "2 5 4 9 |", {3, 8}},
           {"next cell", vkTab, {}, "3 5 4 6 |", {3, 5}},
           {"cell before", vkTab, {ssShift}, "1 5 2 6 |", {1, 5}},
           {"row above", vkReturn, {ssShift}, "2 4 3 5 |", {2, 4}},
           {"columns", vkSpace, {ssCtrl}, "2 2 3 9 |", {2, 5}},
           {"rows", vkSpace, {ssShift}, "1 5 4 6 |", {2, 5}},
           {"all", vkA, {ssCtrl}, "1 2 4 9 |", {2, 5}},
       }) {
    TTableSelection selection;
    selection.SetArea({1, 2, 4, 9});
    selection.MoveTo({2, 5});
    EXPECT_TRUE(selection.Key(key, shift, 4)) << name;
    EXPECT_EQ(Ranges(selection), ranges) << name;
    EXPECT_EQ(selection.GetCurrent(), current) << name;
  }
  TTableSelection selection;
  EXPECT_FALSE(selection.Key(vkDown, {}, 4));  // nothing to select
  selection.SetArea({0, 0, 3, 2});
  selection.MoveTo({2, 0});
  selection.Key(vkTab, {}, 1);
  EXPECT_EQ(selection.GetCurrent(), (TPoint{0, 1}));
  EXPECT_FALSE(selection.Key(vkA, {}, 1));
  selection.SetArea({0, 0, 3, 1});  // the row has gone
  EXPECT_EQ(Ranges(selection), "0 0 1 1 |");
}

class TableHistory : public testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(TablesAndViews, TableHistory, testing::Bool(),
                         [](const auto& test) { return test.param ? "View" : "Table"; });

// Random changes, sorts and filters; every state comes back by undoing, and again by doing.
TEST_P(TableHistory, GoesBackAndForth) {
  std::mt19937 random(11);
  const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
  for (int round = 0; round < 40; ++round) {
    const std::unique_ptr<TTypeCsv> table = GetParam() ? std::make_unique<TCsvView>() : std::make_unique<TTypeCsv>();
    auto* view = dynamic_cast<TCsvView*>(table.get());
    for (int row = 0; row < 9; ++row) table->AddRow(String::FromUtf8(std::to_string(row) + ",a"));
    if (view && round % 4 > 0) view->ShowOnly([&](const TVxStringList&) { return below(3) > 0; });
    const auto state = [&] {
      std::string text = Text(*table) + "of ";
      if (view) {
        for (int row = 0; row < view->GetAll().GetCount(); ++row) text += view->GetAllCells(0, row).ToUtf8() + " ";
      }
      return text;
    };
    TTableHistory history(*table);
    std::deque<std::string> states{state()};
    for (int step = 0; step < 12; ++step) {
      const int rows = table->GetCount(), kind = below(4);
      if (kind == 0 && rows > 0) {
        const std::vector<int> gone{below(rows), below(rows), below(rows)};
        EXPECT_TRUE(history.DeleteRows(gone));
      } else if (kind == 1) {
        std::vector<std::unique_ptr<TVxStringList>> come;
        for (int i = below(3); i >= 0; --i) come.push_back(std::make_unique<TVxStringList>());
        EXPECT_TRUE(history.InsertRows(below(rows + 1), std::move(come)));
      } else if (rows > 0) {
        history.BeginStep();
        for (int i = below(3); i >= 0; --i) {
          history.SetCell(below(4), below(rows), String::FromUtf8(std::to_string(random())));
        }
        if (kind == 3) history.DeleteRows(std::vector<int>{below(rows)});
        history.EndStep();
      }
      if (state() != states.back()) states.push_back(state());
    }
    for (auto back = states.rbegin() + 1; back != states.rend(); ++back) {
      EXPECT_EQ(history.Undo().Left, 0);
      ASSERT_EQ(state(), *back) << "round " << round;
    }
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.IsChanged());
    for (size_t i = 1; i < states.size(); ++i) {
      history.Redo();
      ASSERT_EQ(state(), states[i]) << "round " << round;
    }
    EXPECT_FALSE(history.CanRedo());
  }
}

TEST(TableHistory, WhatTheProgramChangedStays) {
  TTypeCsv table;
  for (auto* line : {u"a,1", u"b,2", u"c"}) table.AddRow(line);
  TTableHistory history(table);
  EXPECT_FALSE(history.SetCell(1, 0, u"1"));
  EXPECT_FALSE(history.SetCell(5, 2, u""));
  history.SetCells(std::vector<TCellEdit>{{1, 0, u"x"}, {1, 1, u"y"}, {2, 2, u"z"}});
  table.SetCell(1, 0, u"other");
  table.Delete(1);
  const TTableStep step = history.Undo();
  EXPECT_EQ((TFacts{step.Changes, step.Left, step.Place.X, step.Place.Y, Text(table)}), "1 2 2 1 a,other|c|");
  EXPECT_THROW(history.SetCell(0, 9, u"x"), EListError);
  EXPECT_THROW(history.SetCell(-1, 0, u"x"), EStringListError);
  EXPECT_EQ(Text(table), "a,other|c|");
}

TEST(TableHistory, KnowsWhatWasSaved) {
  TTypeCsv table;
  table.AddRow(u"a");
  TTableHistory history(table);
  history.SetCell(0, 0, u"b");
  history.MarkSaved();
  history.Undo();
  EXPECT_TRUE(history.IsChanged());
  history.Redo();
  EXPECT_FALSE(history.IsChanged());
  history.Undo();
  history.SetCell(0, 0, u"c");  // no way leads back to what was saved
  history.Undo();
  EXPECT_TRUE(history.IsChanged());
}

struct TBlocks : testing::Test {
  TBlocks() {
    for (auto* line : {u"Name,Datum,Notiz", u"Meier,01.02.2026,\"a\"\"b\"", u"Müller,,x", u"Ernst,03.02.2026,y"}) {
      table.AddRow(line);
    }
    table.GetDecorations().SetFixed({0, 1, 0, 0});
    table.GetDecorations().CreateRange(rtColumn, 1, -1, 1, -1)->SetFieldType(vftDate);
    table.GetDecorations().CreateRange(rtColumn, 1, -1, 1, -1)->SetFormatString(u"d.m.");
    table.DecorationsCounts();
    selection.SetArea({0, 1, 3, 4});
  }
  TTypeCsv table;
  TTableSelection selection;
  TTableHistory history{table};
  const std::vector<int> columns{1, 0, 2};  // the first two have changed their places
};

TEST_F(TBlocks, CopiedAsTextAndAsShown) {
  selection.MoveTo({0, 1});
  selection.Toggle({1, 2});
  table.SetCell(0, 2, u"<M\t\"ü\r\nller>");
  EXPECT_EQ(CopyAsText(table, selection, columns), u"01.02.2026\t\r\n\t\"<M\t\"\"ü\r\nller>\"\r\n");
  EXPECT_EQ(CopyAsHtml(table, selection, columns),
            u"<table>\r\n<tr><th>Datum</th><th>Name</th></tr>\r\n<tr><td>1.2.</td><td></td></tr>\r\n"
            u"<tr><td></td><td>&lt;M\t&quot;ü<br>ller&gt;</td></tr>\r\n</table>\r\n");
}

TEST_F(TBlocks, PastedWhereTheyFit) {
  const TMayPut mayPut = [](int col, int, String& text) { return col != 1 || text != u"x"; };
  selection.MoveTo({0, 3});
  TPasteResult result =
      PasteText(table, history, u"x\tSchmidt\tq\tz\r\n04.02.2026\t\"Groß\tu\"\n", selection, columns, {true, mayPut});
  EXPECT_EQ((TFacts{result.Changed, result.Outside, result.Refused, result.FirstRefused.X, result.FirstRefused.Y}),
            "4 1 1 1 3");
  EXPECT_EQ(result.Places, (TRect{0, 3, 3, 5}));
  EXPECT_EQ(table.GetCell(0, 3), u"Schmidt");
  EXPECT_EQ(Text(table).substr(Text(table).find("q")), "q|\"Groß\tu\",04.02.2026,|");
  history.Undo();
  EXPECT_EQ(table.GetCount(), 4);
  EXPECT_EQ(table.GetCell(0, 3), u"Ernst");
  result = PasteText(table, history, u"1\t2\n3\t4", selection, columns);
  EXPECT_EQ((TFacts{result.Changed, result.Outside, table.GetCell(1, 3)}), "2 2 1");
  selection.MoveTo({0, 1}), selection.ExtendTo({0, 2});
  EXPECT_EQ(PasteText(table, history, u"5", selection, columns).Changed, 2);
  EXPECT_EQ(ClearCells(table, history, selection, columns), 2);
  EXPECT_EQ((TFacts{table.GetCell(1, 1), table.GetCell(1, 2), table.GetCell(1, 3)}), "  1");
}

TEST_F(TBlocks, Found) {
  struct TCase {
    const char16_t* Text;
    TPoint From;
    TFindOptions Options;
    TPoint Found;
  };
  for (const auto& [text, from, options, found] : std::vector<TCase>{{u"MÜ", {0, 1}, {}, {1, 2}},
                                                                     {u"m", {1, 1}, {}, {1, 2}},
                                                                     {u"m", {1, 1}, {foAlsoAtPlace}, {1, 1}},
                                                                     {u"m", {1, 2}, {}, {1, 1}},
                                                                     {u"name", {0, 1}, {}, {-1, -1}},
                                                                     {u"2026", {0, 1}, {foBackward}, {0, 3}},
                                                                     {u"e*r", {1, 1}, {}, {1, 2}},
                                                                     {u"ernst", {-5, 99}, {foWholeCell}, {1, 3}},
                                                                     {u"erns", {0, 0}, {foWholeCell}, {-1, -1}},
                                                                     {u"", {0, 1}, {}, {-1, -1}}}) {
    EXPECT_EQ(FindCell(table, text, columns, from, options), found) << String(text).ToUtf8();
  }
}

}  // namespace
}  // namespace vx
