#include "controls/TableScene.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <sstream>

#include "platform/TRecordingCanvas.h"
#include "tables/uTypeCsv.h"

namespace vx {
namespace {

// An axis as a plain list of sizes.
struct TPlainAxis {
  std::vector<int> Sizes;
  int64_t Begin(int index) const { return std::accumulate(Sizes.begin(), Sizes.begin() + index, int64_t{0}); }
  int At(int64_t place) const {
    for (size_t i = 0; i < Sizes.size(); place -= Sizes[i++]) {
      if (place >= 0 && place < Sizes[i]) return static_cast<int>(i);
    }
    return -1;
  }
};

TEST(TableAxis, IsAListOfSizes) {
  std::mt19937 random(7);
  const auto pick = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  for (int round = 0; round < 50; ++round) {
    TTableAxis axis;
    TPlainAxis plain{std::vector<int>(static_cast<size_t>(1 + pick(20)), 10)};
    const int count = static_cast<int>(plain.Sizes.size());
    axis.Reset(count, 10);
    for (int step = 0; step < 12; ++step) {
      const int i = pick(count), to = pick(count), size = pick(3) * 10;
      if (step % 3 == 2) {
        axis.Move(i, to);
        const int moved = plain.Sizes[static_cast<size_t>(i)];
        plain.Sizes.erase(plain.Sizes.begin() + i);
        plain.Sizes.insert(plain.Sizes.begin() + to, moved);
      } else {
        axis.SetSize(i, size);
        plain.Sizes[static_cast<size_t>(i)] = size;
      }
      if (step == 8) axis.SetSizes(plain.Sizes);
    }
    for (int i = 0; i <= count; ++i) ASSERT_EQ(axis.Begin(i), plain.Begin(i)) << round;
    for (int64_t place = -1; place <= plain.Begin(count); ++place) ASSERT_EQ(axis.At(place), plain.At(place)) << place;
  }
}

std::string Told(const TAxisView& view) {
  std::ostringstream text;
  for (const auto zone : {TAxisView::zoFirst, TAxisView::zoMiddle, TAxisView::zoLast}) {
    text << view.ZoneBegin(zone) << ".." << view.ZoneEnd(zone) << ":";
    for (const TAxisPiece& piece : view.Pieces(zone, 0, view.Room)) text << ' ' << piece.Index << '@' << piece.Place;
    text << "; ";
  }
  return text.str();
}

TEST(TableAxis, ShowsFixedOnesAndWhatIsScrolled) {
  TTableAxis axis;
  axis.Reset(10, 10);
  axis.SetSize(4, 0);
  EXPECT_EQ(Told({axis, 1, 1, 45, 0}), "0..10: 0@0; 10..35: 1@10 2@20 3@30; 35..45: 9@35; ");
  EXPECT_EQ(Told({axis, 1, 1, 45, 23}), "0..10: 0@0; 10..35: 3@7 5@17 6@27; 35..45: 9@35; ");
  EXPECT_EQ(Told({axis, 1, 1, 45, 45}), "0..10: 0@0; 10..35: 6@5 7@15 8@25; 35..45: 9@35; ");
  EXPECT_EQ(Told({axis, 2, 0, 200, 0}), "0..20: 0@0 1@10; 20..90: 2@20 3@30 5@40 6@50 7@60 8@70 9@80; 90..90:; ");
  EXPECT_EQ(Told({axis, 3, 3, 25, 0}), "0..25: 0@0 1@10 2@20; 25..25:; 25..25:; ") << "no room but for fixed ones";
  const TAxisView view{axis, 1, 1, 45, 0};
  EXPECT_EQ(view.OffsetToSee(6), 25);
  EXPECT_EQ((TAxisView{axis, 1, 1, 45, 45}).OffsetToSee(2), 10);
  EXPECT_EQ(view.OffsetToSee(9), 0) << "fixed";
  EXPECT_EQ(view.At(36), 9);
  EXPECT_EQ(view.At(45), -1);
}

TEST(TableColumns, LayoutComesBackAndBadOnesDoNoHarm) {
  TTableColumns columns;
  columns.SetLine(1);
  columns.Reset(4, 50);
  columns.SetWidth(2, 70);
  columns.SetHidden(1, true);
  columns.Move(3, 0);
  const String layout = columns.GetLayout();
  EXPECT_EQ(layout, u"3=50,0=50,1=-50,2=70");
  EXPECT_EQ(columns.GetAxis().Total(), 51 + 51 + 71);
  TTableColumns other;
  other.SetLine(1);
  other.Reset(4, 20);
  other.SetLayout(layout);
  EXPECT_EQ(other.GetLayout(), layout);
  EXPECT_EQ(other.GetAxis().Total(), columns.GetAxis().Total());
  other.SetLayout(u"2=9,2=8,7=1,x,1=0,,0=-99999999999,=,1");
  EXPECT_EQ(other.GetLayout(), u"2=9,3=50,0=50,1=-50");
  other.SetCount(2);
  EXPECT_EQ(other.GetLayout(), u"0=50,1=-50");
  other.SetHidden(1, false);
  other.SetCount(3);
  EXPECT_EQ(other.GetAxis().Total(), 3 * 51 - (51 - other.GetWidth(2) - 1));
}

TEST(TableScene, MeasuresFixedRowsAndTheFirstOnes) {
  TTypeCsv table;
  table.AddRow({u"Nr", u"Name"});
  for (int i = 0; i < 3000; ++i) table.AddRow({u"1", i == 2500 ? u"Ein sehr langer Name" : u"Meier"});
  table.AddRow({u"", u"Summe aller Zeilen", u"zu viel"});
  table.GetDecorations().SetFixed(0, 1, 0, 1);
  TFont large;
  large.Size = 20;
  table.GetDecorations().CreateRange(rtRow, -1, 3001, -1, 3001)->SetFont(large);
  TRecordingCanvas canvas;
  TTableScene scene;
  scene.SetRoom({400, 100});
  scene.SetTable(&table);
  scene.MeasureSample(canvas);
  const TTableSizes all = table.TrimDevice(canvas, {});
  EXPECT_EQ(scene.Columns().GetWidth(0), all.ColWidths[0]);
  EXPECT_LT(scene.Columns().GetWidth(1), all.ColWidths[1]);
  EXPECT_EQ(scene.GetRowHeight(), all.RowHeights[1] + 1) << "with its line";
  scene.FitColumn(canvas, 1);
  EXPECT_EQ(scene.Columns().GetWidth(1), all.ColWidths[1]);
  EXPECT_EQ(scene.CellAt({5, 99}), (TPoint{0, 3001})) << "the sum stays at the bottom";
  scene.ScrollTo(scene.OffsetToSee(1, 2500));
  const TRect cell = scene.CellRect(1, 2500);
  EXPECT_EQ(scene.CellAt({cell.Left, cell.Bottom - 1}), (TPoint{1, 2500}));
  EXPECT_EQ(cell.Bottom + 1, scene.MiddleRect().Bottom);
  EXPECT_EQ(table.GetDecorations().GetRowCount(), 3002) << "not that of the sample";
  const int high = scene.CellRect(0, 3001).Height();
  EXPECT_GT(high, cell.Height());
  scene.FitRows(canvas);
  table.ClearContent();
  EXPECT_TRUE(scene.Sync());
  EXPECT_EQ(scene.CellRect(0, 1).Height(), high) << "goes along with the sum";
  EXPECT_EQ(scene.CellAt({5, cell.Height() + 1}), (TPoint{0, 1}));
}

}  // namespace
}  // namespace vx
