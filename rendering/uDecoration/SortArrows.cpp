#include "rendering/uDecoration/detail/SortArrows.h"

#include "platform/FreeBuffers.h"
#include "platform/Lazy.h"
#include "rendering/uDecoration/TDecorator.h"

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

}  // namespace

void uDecoration::FreeBuffersForLeakPrevention() noexcept { Arrows.Free(); }

const TBitmap* detail::SortArrowOf(const TDecorationList& List) {
  const auto* table = dynamic_cast<const TSortedTable*>(List.OutermostParent());
  if (table == nullptr || table->GetSortCell() != List.GetCell()) return nullptr;
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
