#include "rendering/uDecoration/detail/SortArrows.h"

#include "platform/FreeBuffers.h"
#include "platform/Lazy.h"
#include "rendering/uDecoration/TDecorator.h"
#include "rendering/uDecoration/detail/Decorators.h"

namespace vx {
namespace {

constexpr TColor kTransparent = clFuchsia;

struct TArrows {
  TArrows() {
    OnFreeBuffers(foServices, &uDecoration::FreeBuffersForLeakPrevention);
    Up.LoadFromResourceName(u"UP");
    Up.SetTransparentColor(kTransparent);
    Up.SetTransparent(true);
    Down.LoadFromResourceName(u"DOWN");
  }
  TBitmap Up, Down;
};

constinit TLazy<TArrows> Arrows;

// The table, if it is sorted by the cell of the list.
const TSortedTable* SortedBy(const TDecorationList& List) {
  const auto* table = dynamic_cast<const TSortedTable*>(List.OutermostParent());
  return table != nullptr && table->GetSortCell() == List.GetCell() ? table : nullptr;
}

}  // namespace

void uDecoration::FreeBuffersForLeakPrevention() noexcept {
  detail::FreeDecorators();
  Arrows.Free();
}

bool detail::IsSortCell(const TDecorationList& List) { return SortedBy(List) != nullptr; }

const TBitmap* detail::SortArrowOf(const TDecorationList& List) {
  const TSortedTable* table = SortedBy(List);
  if (table == nullptr) return nullptr;
  switch (table->GetSortArrow()) {
    case saUp:
      return &Arrows.Get().Up;
    case saDown:
      return &Arrows.Get().Down;
    case saNone:
      break;
  }
  return nullptr;
}

}  // namespace vx
