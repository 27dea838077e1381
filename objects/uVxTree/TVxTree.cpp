#include "objects/uVxTree/TVxTree.h"

#include <utility>

#include "objects/uVxTree/detail/TreeOrder.h"

namespace vx {

using detail::TListOrder;
using detail::TSiblingOrder;

namespace {

[[noreturn]] void RaiseNode() { throw EAccessViolation(u"Ungültige Referenzierung auf Node!"); }

bool IsChildMode(TNodeAttachMode Mode) noexcept { return Mode == naAddChild || Mode == naAddChildFirst; }

}  // namespace

int TVxTree::GetCount() const noexcept { return TListOrder::Size(iItems); }
TVxTreeNode* TVxTree::GetFirstNode() const noexcept { return TListOrder::First(iItems); }
TVxTreeNode* TVxTree::GetItem(int Index) const noexcept { return TListOrder::At(iItems, Index); }

int TVxTree::IndexOf(const TVxTreeNode* Node) const noexcept {
  return Node && Node->iOwner == this ? TListOrder::Rank(Node) : -1;
}

void TVxTree::CheckNode(const TVxTreeNode* Node) const {
  if (Node && Node->iOwner != this) RaiseNode();
}

void TVxTree::CheckNotBelow(const TVxTreeNode* Node, const TVxTreeNode* Parent) {
  if (Parent && (Parent == Node || Parent->HasAsParent(Node))) RaiseNode();
}

int TVxTree::newIndex(const TVxTreeNode* Node, TNodeAttachMode Mode) const {
  CheckNode(Node);
  switch (Mode) {
    case naAdd:
    case naAddFirst:
      if (!Node) RaiseNode();
      return newIndex(Node->iParent, Mode == naAdd ? naAddChild : naAddChildFirst);
    case naAddChild:
      return EndOfChildren(Node);
    case naAddChildFirst:
      return IndexOf(Node) + 1;
    default:
      return IndexOf(Node);
  }
}

// The next sibling of Node or else of its nearest ancestor that has one stands there.
int TVxTree::EndOfChildren(const TVxTreeNode* Node) const {
  if (!Node || TListOrder::Last(iItems)->iParent == Node) return GetCount();
  CheckOrder();
  const TVxTreeNode* next = nullptr;
  if (iIsDepthFirst) {
    next = TListOrder::NextUpTo(Node, Node->iLevel);
  } else {
    for (; Node && !next; Node = Node->iParent, iClimbed = iClimbed + 1) next = TSiblingOrder::Next(Node);
  }
  return next ? TListOrder::Rank(next) : GetCount();
}

// Whether Node stands where a depth-first order may have it, behind a node that does.
bool TVxTree::IsInPlace(const TVxTreeNode* Node) const noexcept {
  const TVxTreeNode* before = TListOrder::Prev(Node);
  while (before && before->iLevel >= Node->iLevel) before = before->iParent;
  return before == Node->iParent;
}

// A list that departed from the order may have come back to it: worth a look after as many steps as that takes.
void TVxTree::CheckOrder() const noexcept {
  if (iIsDepthFirst || iClimbed < GetCount()) return;
  iClimbed = 0;
  const TVxTreeNode* node = GetFirstNode();
  while (node && IsInPlace(node)) node = TListOrder::Next(node);
  iIsDepthFirst = !node;
}

TVxTreeNode* TVxTree::NewNode(int Index, TVxTreeNode* Parent, String Text, void* Data) {
  if (Index < 0) return nullptr;
  auto* node = new TVxTreeNode;
  node->iOwner = this;
  node->iText = std::move(Text);
  node->iData = Data;
  SetParentAndLevel(node, Parent);
  PutInList(node, Index);
  JoinSiblings(node);
  return node;
}

void TVxTree::SetParentAndLevel(TVxTreeNode* Node, TVxTreeNode* Parent) noexcept {
  Node->iParent = Parent;
  Node->iLevel = Parent ? Parent->iLevel + 1 : 0;
}

void TVxTree::PutInList(TVxTreeNode* Node, int Index) noexcept {
  TVxTreeNode* before = Index == GetCount() ? TListOrder::Last(iItems) : TListOrder::At(iItems, Index - 1);
  TListOrder::PutBehind(iItems, before, Node);
}

// Puts Node, which has its place in the list, among the siblings that stand in front of it and behind it.
void TVxTree::JoinSiblings(TVxTreeNode* Node) noexcept {
  TVxTreeNode*& siblings = SiblingsOf(Node->iParent);
  const int rank = TListOrder::Rank(Node);
  TVxTreeNode* before = TSiblingOrder::Last(siblings);
  if (before && TListOrder::Rank(before) > rank) {
    before = nullptr;
    for (TVxTreeNode* at = siblings; at;) {
      const bool isBefore = TListOrder::Rank(at) < rank;
      if (isBefore) before = at;
      at = isBefore ? TSiblingOrder::Hook(at).Right : TSiblingOrder::Hook(at).Left;
    }
  }
  TSiblingOrder::PutBehind(siblings, before, Node);
}

void TVxTree::LeaveSiblings(TVxTreeNode* Node) noexcept { TSiblingOrder::Remove(SiblingsOf(Node->iParent), Node); }

TVxTreeNode* TVxTree::AddChildObject(TVxTreeNode* Node, String Text, void* Data) {
  return NewNode(newIndex(Node, naAddChild), Node, std::move(Text), Data);
}

TVxTreeNode* TVxTree::AddChildObjectFirst(TVxTreeNode* Node, String Text, void* Data) {
  return NewNode(newIndex(Node, naAddChildFirst), Node, std::move(Text), Data);
}

TVxTreeNode* TVxTree::AddObject(TVxTreeNode* Node, String Text, void* Data) {
  const int index = newIndex(Node, naAdd);
  return NewNode(index, Node->iParent, std::move(Text), Data);
}

TVxTreeNode* TVxTree::AddObjectFirst(TVxTreeNode* Node, String Text, void* Data) {
  const int index = newIndex(Node, naAddFirst);
  return NewNode(index, Node->iParent, std::move(Text), Data);
}

TVxTreeNode* TVxTree::InsertObject(TVxTreeNode* Node, String Text, void* Data) {
  return NewNode(newIndex(Node, naInsert), Node ? Node->iParent : nullptr, std::move(Text), Data);
}

TVxTreeNode* TVxTree::AppendObject(TVxTreeNode* Parent, String Text, void* Data) {
  CheckNode(Parent);
  const bool isInOrder = iIsDepthFirst && EndOfChildren(Parent) == GetCount();
  TVxTreeNode* node = NewNode(GetCount(), Parent, std::move(Text), Data);
  iIsDepthFirst = isInOrder;
  return node;
}

void TVxTree::Clear() noexcept {
  TVxTreeNode* node = iItems;
  iItems = iRoots = nullptr;
  iIsDepthFirst = true;
  // From the leaves of the balanced tree, each of which is taken from its parent first.
  while (node) {
    TTreeHook& hook = TListOrder::Hook(node);
    TVxTreeNode*& below = hook.Left ? hook.Left : hook.Right;
    if (below) {
      node = std::exchange(below, nullptr);
    } else {
      delete std::exchange(node, hook.Up);
    }
  }
}

void TVxTree::Delete(TVxTreeNode* Node) {
  if (!Node) return;
  CheckNode(Node);
  FreeBelow(Node);
  LeaveSiblings(Node);
  TListOrder::Remove(iItems, Node);
  delete Node;
}

void TVxTree::FreeBelow(TVxTreeNode* Node) {
  const TNodes below = NodesBelow(Node);
  Node->iChildren = nullptr;
  for (TVxTreeNode* node : below) TListOrder::Remove(iItems, node);
  for (TVxTreeNode* node : below) delete node;
}

void TVxTree::Move(TVxTreeNode* Node, int Index) {
  if (!Node) RaiseNode();
  CheckNode(Node);
  if (Index < 0 || Index > GetCount()) throw EListError(FormatListError(SListIndexError, Index));
  const int old = TListOrder::Rank(Node);
  if (Index > old) --Index;
  if (Index == old) return;
  const TVxTreeNode* next = TListOrder::Next(Node);
  LeaveSiblings(Node);
  TListOrder::Remove(iItems, Node);
  PutInList(Node, Index);
  JoinSiblings(Node);
  auto isInPlace = [this](const TVxTreeNode* node) { return !node || IsInPlace(node); };
  iIsDepthFirst = iIsDepthFirst && isInPlace(next) && isInPlace(Node) && isInPlace(TListOrder::Next(Node));
}

void TVxTree::MoveTo(TVxTreeNode* Node, TVxTreeNode* Target, TNodeAttachMode Mode) {
  if (!Node || (!Target && !IsChildMode(Mode))) RaiseNode();
  CheckNode(Node);
  int index = newIndex(Target, Mode);
  TVxTreeNode* parent = IsChildMode(Mode) ? Target : Target->iParent;
  CheckNotBelow(Node, parent);
  const TNodes below = NodesBelow(Node);
  if (index > TListOrder::Rank(Node)) --index;
  const int level = Node->iLevel;
  LeaveSiblings(Node);
  TListOrder::Remove(iItems, Node);
  SetParentAndLevel(Node, parent);
  PutInList(Node, index);
  JoinSiblings(Node);
  PutBehind(Node, below, Node->iLevel - level);
}

// The node that follows Node, by the children of each, within all that is below Top; nullptr at its end. Begins at
// Top itself; the whole tree is below nullptr.
TVxTreeNode* TVxTree::NextBelow(const TVxTreeNode* Node, const TVxTreeNode* Top) const noexcept {
  if (TVxTreeNode* child = TSiblingOrder::First(SiblingsOf(Node))) return child;
  for (; Node != Top; Node = Node->iParent) {
    if (TVxTreeNode* sibling = TSiblingOrder::Next(Node)) return sibling;
  }
  return nullptr;
}

TVxTree::TNodes TVxTree::NodesBelow(const TVxTreeNode* Top) const {
  TNodes below;
  for (TVxTreeNode* node = NextBelow(Top, Top); node; node = NextBelow(node, Top)) below.push_back(node);
  return below;
}

// Lets the nodes below Node follow it in the list, in the order in which they are given.
void TVxTree::PutBehind(TVxTreeNode* Node, const TNodes& Below, int LevelChange) noexcept {
  for (TVxTreeNode* node : Below) {
    TListOrder::Remove(iItems, node);
    node->iLevel += LevelChange;
    TListOrder::PutBehind(iItems, Node, node);
    Node = node;
  }
}

}  // namespace vx
