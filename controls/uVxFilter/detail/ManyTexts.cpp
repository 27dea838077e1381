#include "controls/uVxFilter/detail/ManyTexts.h"

namespace vx::detail {

void TManyTexts::Add(std::u16string_view Text) {
  uint32_t node = 0;
  FFirst.set(Text.front() & 0xFF);
  for (char16_t unit : Text) {
    const auto [child, isNew] = FChildren.try_emplace(Key(node, unit), static_cast<uint32_t>(FNodes.size()));
    node = child->second;
    if (isNew) FNodes.emplace_back();
  }
  FNodes[node].IsEnd = true;
}

uint32_t TManyTexts::Next(uint32_t Node, char16_t Unit) const {
  for (;; Node = FNodes[Node].Back) {
    const auto child = FChildren.find(Key(Node, Unit));
    if (child != FChildren.end()) return child->second;
    if (Node == 0) return 0;
  }
}

// A child has a higher number than its parent, but where to go on may be any node that is nearer to the root: so the
// nodes are taken level by level.
void TManyTexts::Finish() {
  struct TEdge {
    uint32_t Parent, Child;
    char16_t Unit;
  };
  std::vector<std::vector<TEdge>> edges(FNodes.size());
  for (const auto& [key, child] : FChildren)
    edges[key >> 16].push_back({static_cast<uint32_t>(key >> 16), child, static_cast<char16_t>(key & 0xFFFF)});
  std::vector<TEdge> queue = edges[0];
  for (size_t i = 0; i < queue.size(); ++i) {
    const TEdge edge = queue[i];
    TNode& node = FNodes[edge.Child];
    if (edge.Parent != 0) node.Back = Next(FNodes[edge.Parent].Back, edge.Unit);
    node.IsEnd = node.IsEnd || FNodes[node.Back].IsEnd;
    queue.insert(queue.end(), edges[edge.Child].begin(), edges[edge.Child].end());
  }
}

}  // namespace vx::detail
