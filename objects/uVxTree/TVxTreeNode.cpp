#include "objects/uVxTree/TVxTreeNode.h"

#include "objects/uVxTree/TVxTree.h"
#include "objects/uVxTree/detail/TreeOrder.h"

namespace vx {

using detail::TListOrder;
using detail::TSiblingOrder;

TVxTree* TVxTreeNode::GetOwner() const {
  if (!iOwner) throw EAccessViolation(u"Parent Zeiger des Treenode ungültig!");
  return iOwner;
}

void TVxTreeNode::SetParent(TVxTreeNode* Value) {
  TVxTree* tree = GetOwner();
  tree->CheckNode(Value);
  tree->CheckNotBelow(this, Value);
  if (Value == iParent) return;
  const TVxTree::TNodes below = tree->NodesBelow(this);
  const int change = (Value ? Value->iLevel + 1 : 0) - iLevel;
  tree->LeaveSiblings(this);
  tree->SetParentAndLevel(this, Value);
  TListOrder::Refresh(this);
  tree->JoinSiblings(this);
  for (TVxTreeNode* node : below) {
    node->iLevel += change;
    TListOrder::Refresh(node);
  }
  tree->iIsDepthFirst = false;
}

int TVxTreeNode::GetAbsoluteIndex() const {
  GetOwner();
  return TListOrder::Rank(this);
}

int TVxTreeNode::GetIndex() const {
  GetOwner();
  return TSiblingOrder::Rank(this);
}

int TVxTreeNode::GetCount() const noexcept { return TSiblingOrder::Size(iChildren); }

bool TVxTreeNode::HasAsParent(const TVxTreeNode* Node) const noexcept {
  if (!Node) return false;
  const TVxTreeNode* parent = iParent;
  while (parent && parent->iLevel > Node->iLevel) parent = parent->iParent;
  return parent == Node;
}

TVxTreeNode* TVxTreeNode::GetNext() const {
  GetOwner();
  return TListOrder::Next(this);
}

TVxTreeNode* TVxTreeNode::GetPrev() const {
  GetOwner();
  return TListOrder::Prev(this);
}

TVxTreeNode* TVxTreeNode::getNextSibling() const {
  GetOwner();
  return TSiblingOrder::Next(this);
}

TVxTreeNode* TVxTreeNode::getPrevSibling() const {
  GetOwner();
  return TSiblingOrder::Prev(this);
}

TVxTreeNode* TVxTreeNode::GetFirstChild() const {
  TVxTreeNode* next = GetNext();
  return next && next->iParent == this ? next : nullptr;
}

TVxTreeNode* TVxTreeNode::GetLastChild() const {
  GetOwner();
  return TSiblingOrder::Last(iChildren);
}

TVxTreeNode* TVxTreeNode::GetNextChild(const TVxTreeNode* Child) const {
  return Child ? Child->getNextSibling() : nullptr;
}

TVxTreeNode* TVxTreeNode::GetPrevChild(const TVxTreeNode* Child) const {
  return Child ? Child->getPrevSibling() : nullptr;
}

TVxTreeNode* TVxTreeNode::GetItems(int Index) const {
  TVxTreeNode* child = TSiblingOrder::At(iChildren, Index);
  if (!child) throw EAccessViolation(u"Ungültige Referenzierung auf Item!");
  return child;
}

int TVxTreeNode::IndexOf(const TVxTreeNode* Child) const {
  return Child && Child->iParent == this ? TSiblingOrder::Rank(Child) : -1;
}

void TVxTreeNode::Assign(const TVxTreeNode* Node) {
  if (!Node) return;
  iText = Node->iText;
  iData = Node->iData;
  iImageIndex = Node->iImageIndex;
  iSelectedIndex = Node->iSelectedIndex;
  iStateIndex = Node->iStateIndex;
}

void TVxTreeNode::MoveTo(TVxTreeNode* Target, TNodeAttachMode Mode) { GetOwner()->MoveTo(this, Target, Mode); }
void TVxTreeNode::Delete() { GetOwner()->Delete(this); }
void TVxTreeNode::DeleteChildren() { GetOwner()->FreeBelow(this); }

void TVxTreeNode::AlphaSort() {
  TVxTree* tree = GetOwner();
  TVxTree::TNodes below = tree->NodesBelow(this);
  tree->SortLevels(this, below);
  tree->PutBehind(this, below, 0);
}

}  // namespace vx
