// What a decorator asks of the table that decorations are for.
#pragma once

#include "platform/Graphics.h"

namespace vx {

enum TSortArrow : uint8_t {
  saNone,
  saUp,   // sorted in ascending order
  saDown  // in descending order
};

// Implemented by tables that can be sorted. A decorator finds it at the end of the parents of a list of decorations.
class TSortedTable {
 public:
  // The cell, column and row, by which the table was sorted last; (-1, -1) for none.
  virtual TPoint GetSortCell() const noexcept = 0;
  // What that cell shows.
  virtual TSortArrow GetSortArrow() const noexcept = 0;

 protected:
  ~TSortedTable() = default;
};

}  // namespace vx
