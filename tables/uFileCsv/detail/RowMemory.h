// Where an operation that makes many rows has them from. Internal to uFileCsv.
#pragma once

#include <memory>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/BulkMemory.h"

namespace vx::detail {

// The heap, or large blocks where the rows are many: few rows take no more memory than they need.
class TRowMemory {
 public:
  static constexpr int ManyRows = 16384;

  explicit TRowMemory(bool AreMany) noexcept : FAreMany(AreMany) {}
  [[nodiscard]] std::unique_ptr<TVxStringList> NewRow() {
    return FAreMany ? TVxStringList::NewIn(FBulk) : std::make_unique<TVxStringList>();
  }
  // For the cells and texts of the rows; nullptr for the heap.
  TBulkMemory* Bulk() noexcept { return FAreMany ? &FBulk : nullptr; }

 private:
  bool FAreMany;
  TBulkMemory FBulk;
};

}  // namespace vx::detail
