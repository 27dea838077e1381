// Where the columns and rows of a table stand when it is put on pages. Knows sizes in pixels only.
//
// Example: columns of 40, 60 and 60 pixels, the first one fixed, on pages that are 120 wide:
//   TPagePlan plan({.ColWidths = widths, .RowHeights = heights, .FixedCols = 1, .FixedRows = 1, .Room = {120, 300}});
//   plan.GetPage(1).Cols;    // column 2, beside the fixed column 0
//
// A band is a run of columns, or of rows, that stands on one page. Bands are found in one pass; what is kept is a
// place for each band, none for each row.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/Graphics.h"

namespace vx::detail {

// Lines (columns or rows) one after the other. Skip pixels of the first one stood on the page before; with a Cut above
// 0 the last one shows only so many pixels and goes on on the next page. Both only happen to a line that is
// higher than a page.
struct TBand {
  int First = 0;
  int End = 0;  // behind the last line
  int Skip = 0;
  int Cut = 0;
  friend bool operator==(const TBand&, const TBand&) noexcept = default;
};

// What one page shows: the fixed lines at the top and the left first, then the bands. Of several strips the rows of
// the first one stand at the left.
struct TPageContent {
  TBand Cols;
  std::span<const TBand> Strips;
};

class TPagePlan {
 public:
  struct TTable {
    std::span<const int> ColWidths;  // pixels; negative ones count as 0
    std::span<const int> RowHeights;
    int FixedCols = 0;  // at the left, on each page; left out where they leave less than half of the room
    int FixedRows = 0;  // at the top, likewise
    TPoint Room;        // of a page, without its margins and headings; at least one pixel each way
    int Strips = 1;     // side by side on a page at most; as many as have room for all columns
    int StripGap = 0;   // pixels between strips
  };
  explicit TPagePlan(const TTable& Table);

  // At least 1: a table without rows has a page with its fixed rows.
  int GetPageCount() const noexcept { return GetDownCount() * static_cast<int>(FColBands.size()); }
  // Pages side by side, and one below the other. A page's number counts from left to right, then down.
  int GetAcrossCount() const noexcept { return static_cast<int>(FColBands.size()); }
  int GetDownCount() const noexcept;
  // Page from 0 on.
  TPageContent GetPage(int Page) const noexcept;
  // Fixed lines that stand on each page.
  int GetFixedCols() const noexcept { return FFixedCols; }
  int GetFixedRows() const noexcept { return FFixedRows; }
  int GetStrips() const noexcept { return FStrips; }
  // Of a strip, from its left side to the left side of the next one.
  int GetStripStep() const noexcept { return FStripStep; }
  // The pixels below the last row of the last page; strips count as full.
  int GetRest() const noexcept { return FRest; }

 private:
  int FFixedCols;
  int FFixedRows;
  int FStrips = 1;
  int FStripStep = 0;
  int FRest = 0;
  std::vector<TBand> FColBands;
  std::vector<TBand> FRowBands;
};

}  // namespace vx::detail
