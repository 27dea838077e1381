// Rows for a table from readers that are none of its members.
#pragma once

#include <memory>
#include <utility>

#include "tables/uFileCsv/TFileCsv.h"

namespace vx::detail {

struct TRowAdder {
  // Empties the table and adds the rows that Next() gives, up to a nullptr. What Next raises leaves the table empty.
  template <typename F>
  static void Replace(TFileCsv& Table, F Next) {
    Table.Clear();
    Table.SetOwnsObjects(true);
    try {
      Table.AddMany([&] {
        while (std::unique_ptr<TVxStringList> row = Next()) Table.AddNew(std::move(row));
      });
    } catch (...) {
      Table.Clear();
      throw;
    }
  }
};

}  // namespace vx::detail
