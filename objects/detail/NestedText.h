// Writes offsettexts whose cells are offsettexts again, to any depth. Internal to the trees of nodes and of keys.
#pragma once

#include <algorithm>
#include <vector>

#include "platform/detail/OffsetCells.h"

namespace vx::detail {

// Takes the cells of the text in their order; those between Open and Close are the cells of one cell. Nothing is
// written before all sizes are known, so that no text is copied from depth to depth.
class TNestedText {
 public:
  TNestedText() : FOpen{TOpen{}} {}
  void Put(String Cell) {
    const auto size = static_cast<size_t>(Cell.size());
    FCells.push_back({std::move(Cell), size, false});
    Count(FCells.size() - 1);
  }
  void Open() {
    FOpen.push_back({FCells.size()});
    FCells.emplace_back();
  }
  void Close() {
    const TOpen closed = FOpen.back();
    FOpen.pop_back();
    FCells[closed.Cell].Size = closed.Size;
    Count(closed.Cell);
  }
  // The whole text, when all that was opened is closed. std::length_error where it is too long for a String.
  String Text() const {
    return String::Build(FOpen[0].Size, [this](char16_t* target) {
      for (const TCell& cell : FCells) {
        if (!cell.IsAsBefore) target = PutHex(target, cell.Size);
        *target++ = u'\u00B0';
        target = std::copy(cell.Text.begin(), cell.Text.end(), target);
      }
    });
  }

 private:
  struct TCell {
    String Text;  // empty for one of cells
    size_t Size = 0;
    bool IsAsBefore = false;  // as long as the cell before it, so that it has no length of its own
  };
  struct TOpen {
    size_t Cell = 0;
    size_t Size = 0;
    size_t Last = SIZE_MAX;
  };

  void Count(size_t Index) {
    TCell& cell = FCells[Index];
    TOpen& open = FOpen.back();
    cell.IsAsBefore = cell.Size == open.Last;
    open.Size += (cell.IsAsBefore ? 0 : HexDigits(cell.Size)) + 1 + cell.Size;
    open.Last = cell.Size;
  }

  std::vector<TCell> FCells;
  std::vector<TOpen> FOpen;
};

}  // namespace vx::detail
