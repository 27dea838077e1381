// What decorators ask of whoever has the cells of a table.
#pragma once

#include <span>

#include "platform/TObject.h"

namespace vx {

// Implemented by tables and by what stands between a decorator and its control. Columns and rows count from 0; rows may
// have texts for fewer columns, or for more, which are not looked at.
class TCellSource {
 public:
  virtual int CellCols() const = 0;
  virtual int CellRows() const = 0;
  // The texts of a row, from the first column on; what is missing is empty. They end with the next call.
  virtual std::span<const String> RowTexts(int Row) = 0;
  // What is attached to a cell, or nullptr.
  virtual TObject* CellObject(int Col, int Row) = 0;

 protected:
  ~TCellSource() = default;
};

}  // namespace vx
