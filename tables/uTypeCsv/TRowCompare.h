// The comparison by which a typed table is sorted.
#pragma once

#include <concepts>
#include <type_traits>

#include "platform/Types.h"
#include "tables/uSort/Compare.h"

namespace vx {

// Refers to a callable that must outlive it: meant for parameters only. Rows that are told in order by a comparison
// which contradicts itself come to stand in some order, and none is lost.
//
// Example:
//   const vx::TSortColumn column{.Index = 2, .SortType = vx::vftCurrency, .SortDirection = -1};
//   table.CustomSort(vx::CustomSortProcStr, &column, nullptr);                 // reads each cell once
//   table.CustomSort([](const vx::TStrings& a, const vx::TStrings& b, const vx::TSortColumn*) {
//     return a.GetCount() - b.GetCount();
//   }, nullptr, nullptr);
class TRowCompare {
 public:
  using TCode = int(const TStrings& Row1, const TStrings& Row2, const TSortColumn* Column);

  template <typename F>
  requires(!std::same_as<std::remove_cvref_t<F>, TRowCompare> &&
           std::is_invocable_r_v<int, F&, const TStrings&, const TStrings&, const TSortColumn*>)
      TRowCompare(F&& Compare)
  noexcept : FCompare(Compare) {
    if constexpr (std::is_convertible_v<F, TCode*>) FIsByType = static_cast<TCode*>(Compare) == &CustomSortProcStr;
  }
  // Whether this is CustomSortProcStr, whose order can be found without comparing rows.
  bool IsByType() const noexcept { return FIsByType; }
  int operator()(const TStrings& Row1, const TStrings& Row2, const TSortColumn* Column) const {
    return FCompare(Row1, Row2, Column);
  }

 private:
  FunctionRef<TCode> FCompare;
  bool FIsByType = false;
};

}  // namespace vx
