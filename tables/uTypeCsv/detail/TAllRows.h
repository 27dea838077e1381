// What a view is made of beside the table. Internal to uTypeCsv.
#pragma once

#include <span>
#include <utility>

#include "tables/uTypeCsv/TCsvView.h"

namespace vx {

namespace detail {

// While it lives, the coming or going of Row is told by the view itself.
class TOwnChange {
 public:
  TOwnChange(const TObject*& Own, const TObject* Row) noexcept : FOwn(Own), FWas(std::exchange(Own, Row)) {}
  ~TOwnChange() { FOwn = FWas; }
  TOwnChange(const TOwnChange&) = delete;
  TOwnChange& operator=(const TOwnChange&) = delete;

 private:
  const TObject*& FOwn;
  const TObject* FWas;
};

}  // namespace detail

// All rows, hidden ones among them. To delete many rows from the last to the first takes a time that grows with the
// list; see TDeleteScope. The rows are not the list's.
class TCsvView::TAllRows : public TObjectList {
 public:
  TAllRows() : TObjectList(false) {}
  using TObjectList::PutAll;

 private:
  const TDeleteScope FScope{*this};
};

}  // namespace vx
