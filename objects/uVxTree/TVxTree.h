// The tree that is one flat list of its nodes.
#pragma once

#include <vector>

#include "objects/uVxTree/TVxTreeNode.h"
#include "platform/Relaxed.h"

namespace vx {

namespace detail {
class TNestedText;
}  // namespace detail

// All nodes stand in one list in depth-first order: a node, what is below it, its next sibling. AppendObject,
// Move and TVxTreeNode::SetParent let a caller depart from that order; everything is told by the list as it
// is then.
//
// Routines that add return the new node, which is the tree's. They go by newIndex and raise what it raises.
// Adding, finding and deleting a node cost logarithms of the tree's size; adding below a node of a list that
// is not in depth-first order may cost a walk up to the root. No iterators are kept: a walk by GetNext
// stands any change except that its own node is deleted.
class TVxTree : public TObject {
 public:
  TVxTree() noexcept = default;
  ~TVxTree() override { Clear(); }
  TVxTree(const TVxTree&) = delete;
  TVxTree& operator=(const TVxTree&) = delete;
  String ClassName() const override { return u"TVxTree"; }

  // The number of all nodes.
  int GetCount() const noexcept;
  // nullptr in an empty tree.
  TVxTreeNode* GetFirstNode() const noexcept;
  // The node at Index of the list, from 0; nullptr out of range.
  TVxTreeNode* GetItem(int Index) const noexcept;
  // The place in the list, -1 for nullptr and for a node of another tree.
  int IndexOf(const TVxTreeNode* Node) const noexcept;

  // The place in the list at which a new node would go by Mode: for naAddChild the place behind all that is
  // below Node, which is the list's end for nullptr; for naAddChildFirst the one behind Node, 0 for nullptr;
  // for naInsert that of Node, -1 for nullptr. naAdd and naAddFirst stand for the child modes of Node's
  // parent. EAccessViolation u"Ungültige Referenzierung auf Node!" if those two get nullptr, and for a node of
  // another tree.
  int newIndex(const TVxTreeNode* Node, TNodeAttachMode Mode) const;

  // A new last or first child of Node; a root node for nullptr.
  TVxTreeNode* AddChild(TVxTreeNode* Node, String Text) { return AddChildObject(Node, std::move(Text), nullptr); }
  TVxTreeNode* AddChildFirst(TVxTreeNode* Node, String Text) {
    return AddChildObjectFirst(Node, std::move(Text), nullptr);
  }
  TVxTreeNode* AddChildObject(TVxTreeNode* Node, String Text, void* Data);
  TVxTreeNode* AddChildObjectFirst(TVxTreeNode* Node, String Text, void* Data);
  // A new last or first sibling of Node.
  TVxTreeNode* Add(TVxTreeNode* Node, String Text) { return AddObject(Node, std::move(Text), nullptr); }
  TVxTreeNode* AddFirst(TVxTreeNode* Node, String Text) { return AddObjectFirst(Node, std::move(Text), nullptr); }
  TVxTreeNode* AddObject(TVxTreeNode* Node, String Text, void* Data);
  TVxTreeNode* AddObjectFirst(TVxTreeNode* Node, String Text, void* Data);
  // A new sibling directly in front of Node; nullptr for nullptr, and nothing is added.
  TVxTreeNode* Insert(TVxTreeNode* Node, String Text) { return InsertObject(Node, std::move(Text), nullptr); }
  TVxTreeNode* InsertObject(TVxTreeNode* Node, String Text, void* Data);
  // A new node at the list's end with that parent, wherever the parent stands: for callers who build in order.
  TVxTreeNode* Append(TVxTreeNode* Parent, String Text) { return AppendObject(Parent, std::move(Text), nullptr); }
  TVxTreeNode* AppendObject(TVxTreeNode* Parent, String Text, void* Data);

  void Clear() noexcept;
  // Frees Node and all below it; nullptr does nothing. EAccessViolation for a node of another tree.
  void Delete(TVxTreeNode* Node);

  // Takes this one node out of the list and puts it in again in front of the node that stood at Index, which may
  // be the count. Neither its parent nor what is below it changes. EAccessViolation as newIndex for a node
  // that is not the tree's, EListError for an Index out of range; nothing has changed then.
  void Move(TVxTreeNode* Node, int Index);
  // Moves Node to the place that newIndex tells, with all that is below it behind it in depth-first order. The
  // parent becomes Target for the child modes, else Target's parent. EAccessViolation u"Ungültige
  // Referenzierung auf Node!", and nothing has changed, where newIndex raises, for naInsert with nullptr, and if
  // Node would come below itself.
  void MoveTo(TVxTreeNode* Node, TVxTreeNode* Target, TNodeAttachMode Mode);
  // Sorts the siblings of all levels by AnsiCompareText, after which the list is in depth-first order. Of equal
  // texts the one that stood last comes first.
  void AlphaSort();

  // Makes this tree a copy of Tree, node by node in the order of its list; nullptr only clears.
  void Assign(const TVxTree* Tree);
  // Adds copies of all nodes of Tree below Node, in their structure, behind the children that are there, and
  // then lets Node take over what Tree's first node holds (see TVxTreeNode::Assign). nullptr on either side and
  // an empty Tree change nothing. Tree may be this tree.
  void InsertTree(const TVxTree* Tree, TVxTreeNode* Node);
  // Merges Tree into this tree by text, compared by code units: the first root node of the same text takes over
  // what a root node of Tree holds, and so on with the children of both. What has no partner is added as last
  // child with AddMissing, and else left out with all below it. nullptr and this tree itself change nothing.
  void AssignOn(const TVxTree* Tree, bool AddMissing);

  // The offsettext of one cell, the offsettext of the texts of the root nodes (see TVxTreeNode::GetSerialize);
  // empty for an empty tree.
  String GetSerialize() const;
  // Reads that text, any text, and adds its nodes behind those that are there.
  void SetSerialize(std::u16string_view Text);

 private:
  friend class TVxTreeNode;
  using TNodes = std::vector<TVxTreeNode*>;

  TVxTreeNode*& SiblingsOf(TVxTreeNode* Parent) noexcept { return Parent ? Parent->iChildren : iRoots; }
  TVxTreeNode* const& SiblingsOf(const TVxTreeNode* Parent) const noexcept {
    return Parent ? Parent->iChildren : iRoots;
  }
  void CheckNode(const TVxTreeNode* Node) const;
  static void CheckNotBelow(const TVxTreeNode* Node, const TVxTreeNode* Parent);
  int EndOfChildren(const TVxTreeNode* Node) const;
  bool IsInPlace(const TVxTreeNode* Node) const noexcept;
  void CheckOrder() const noexcept;
  TVxTreeNode* NewNode(int Index, TVxTreeNode* Parent, String Text, void* Data);
  static void SetParentAndLevel(TVxTreeNode* Node, TVxTreeNode* Parent) noexcept;
  void PutInList(TVxTreeNode* Node, int Index) noexcept;
  void JoinSiblings(TVxTreeNode* Node) noexcept;
  void LeaveSiblings(TVxTreeNode* Node) noexcept;
  TVxTreeNode* NextBelow(const TVxTreeNode* Node, const TVxTreeNode* Top) const noexcept;
  TNodes NodesBelow(const TVxTreeNode* Top) const;
  void PutBehind(TVxTreeNode* Node, const TNodes& Below, int LevelChange) noexcept;
  void FreeBelow(TVxTreeNode* Node);
  void SortLevels(const TVxTreeNode* Top, TNodes& Below) noexcept;
  static void WriteBelow(detail::TNestedText& Text, const TVxTreeNode* Top, TVxTreeNode* Children);

  TVxTreeNode* iItems = nullptr;  // root of the balanced tree of the list
  TVxTreeNode* iRoots = nullptr;  // root of the balanced tree of the root nodes
  // While set, the list is known to be in depth-first order.
  mutable TRelaxed<bool> iIsDepthFirst = true;
  mutable TRelaxed<int64_t> iClimbed = 0;  // steps up to the root since the order was looked at
};

}  // namespace vx
