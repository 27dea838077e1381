// Sorting, copying and merging of whole trees.
#include <algorithm>
#include <optional>
#include <unordered_map>

#include "objects/uVxTree/TVxTree.h"
#include "objects/uVxTree/detail/TreeOrder.h"
#include "platform/Collation.h"

namespace vx {

using detail::TListOrder;
using detail::TSiblingOrder;

namespace {

using TChildrenByText = std::unordered_map<String, TVxTreeNode*>;

}  // namespace

// Sorts the siblings of all levels below Top; the list is left as it is. Below has to have room for all of them
// and gets them in the new order.
void TVxTree::SortLevels(const TVxTreeNode* Top, TNodes& Below) noexcept {
  for (const TVxTreeNode* node = Top;;) {
    TVxTreeNode*& siblings = node ? const_cast<TVxTreeNode*>(node)->iChildren : iRoots;
    Below.clear();
    // The last one first: it is to stay in front of its equals.
    for (TVxTreeNode* at = TSiblingOrder::Last(siblings); at; at = TSiblingOrder::Prev(at)) Below.push_back(at);
    std::stable_sort(Below.begin(), Below.end(), [](const TVxTreeNode* a, const TVxTreeNode* b) {
      return AnsiCompareText(a->iText, b->iText) < 0;
    });
    siblings = TSiblingOrder::Build(Below);
    node = NextBelow(node, Top);
    if (!node) break;
  }
  Below.clear();
  for (TVxTreeNode* node = NextBelow(Top, Top); node; node = NextBelow(node, Top)) Below.push_back(node);
}

void TVxTree::AlphaSort() {
  TNodes nodes = NodesBelow(nullptr);
  SortLevels(nullptr, nodes);
  iItems = TListOrder::Build(nodes);
  iIsDepthFirst = true;
}

void TVxTree::Assign(const TVxTree* Tree) {
  if (Tree == this) return;
  TVxTree copy;
  for (const TVxTreeNode* node = Tree ? Tree->GetFirstNode() : nullptr; node; node = TListOrder::Next(node)) {
    copy.NewNode(copy.GetCount(), nullptr, {}, nullptr)->Assign(node);
  }
  TVxTreeNode* source = Tree ? Tree->GetFirstNode() : nullptr;
  copy.iRoots = nullptr;
  for (TVxTreeNode* node = copy.GetFirstNode(); node; node = TListOrder::Next(node)) {
    node->iOwner = this;
    node->iLevel = source->iLevel;
    node->iParent = copy.GetItem(Tree->IndexOf(source->iParent));
    TVxTreeNode*& siblings = copy.SiblingsOf(node->iParent);
    TSiblingOrder::PutBehind(siblings, TSiblingOrder::Last(siblings), node);
    TListOrder::Refresh(node);
    source = TListOrder::Next(source);
  }
  std::swap(iItems, copy.iItems);
  std::swap(iRoots, copy.iRoots);
  iIsDepthFirst = !Tree || Tree->iIsDepthFirst;
}

void TVxTree::InsertTree(const TVxTree* Tree, TVxTreeNode* Node) {
  if (!Tree || !Node || Tree->GetCount() == 0) return;
  CheckNode(Node);
  const TNodes sources = Tree->NodesBelow(nullptr);  // first all of them, as Tree may be this tree
  const TVxTreeNode* first = Tree->GetFirstNode();
  TNodes path;  // the copies of the ancestors, from Node down
  for (const TVxTreeNode* source : sources) {
    path.resize(static_cast<size_t>(source->iLevel) + 1);
    path[0] = Node;
    path.push_back(AddChild(path.back(), {}));
    path.back()->Assign(source);
  }
  Node->Assign(first);
}

void TVxTree::AssignOn(const TVxTree* Tree, bool AddMissing) {
  if (!Tree || Tree == this) return;
  std::unordered_map<const TVxTreeNode*, TChildrenByText> partners;
  auto childrenOf = [&](TVxTreeNode* parent) -> TChildrenByText& {
    auto [found, isNew] = partners.try_emplace(parent);
    if (!isNew) return found->second;
    TVxTreeNode* child = TSiblingOrder::First(SiblingsOf(parent));
    for (; child; child = TSiblingOrder::Next(child)) found->second.emplace(child->iText, child);
    return found->second;
  };
  // The partners of the ancestors, that of the tree itself first; none for what is left out.
  std::vector<std::optional<TVxTreeNode*>> path{nullptr};
  for (const TVxTreeNode* source = Tree->NextBelow(nullptr, nullptr); source;
       source = Tree->NextBelow(source, nullptr)) {
    path.resize(static_cast<size_t>(source->iLevel) + 1);
    const std::optional<TVxTreeNode*> parent = path.back();
    path.emplace_back();
    if (!parent) continue;
    TChildrenByText& children = childrenOf(*parent);
    auto found = children.find(source->iText);
    if (found == children.end()) {
      if (!AddMissing) continue;
      found = children.emplace(source->iText, AddChild(*parent, source->iText)).first;
    }
    found->second->Assign(source);
    path.back() = found->second;
  }
}

}  // namespace vx
