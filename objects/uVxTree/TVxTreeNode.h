// The node of a TVxTree.
#pragma once

#include "platform/Exceptions.h"
#include "platform/TObject.h"

namespace vx {

namespace detail {
template <int kOrder>
struct TTreeOrder;
}  // namespace detail

class TVxTree;
class TVxTreeNode;

// Where a node goes in relation to another one.
enum TNodeAttachMode : uint8_t {
  naAdd,            // behind the last sibling
  naAddFirst,       // in front of the first sibling
  naAddChild,       // behind the last child
  naAddChildFirst,  // in front of the first child
  naInsert          // directly in front of the node
};

// The place of a node in a balanced tree that keeps an order. Internal to the tree.
struct TTreeHook {
  TVxTreeNode* Left = nullptr;
  TVxTreeNode* Right = nullptr;
  TVxTreeNode* Up = nullptr;
  int Size = 1;   // nodes from here down
  int Least = 0;  // the least Level among them
};

// Nodes are made and freed by their tree. Neighbours, siblings and children are always told by the order of
// the tree's list; the children of a node are those that have it as parent, wherever they stand. Each step
// costs a logarithm of the tree's size at most.
//
// On a node without a tree whatever asks for other nodes raises as GetOwner does.
class TVxTreeNode : public TObject {
 public:
  TVxTreeNode() = default;
  TVxTreeNode(const TVxTreeNode&) = delete;
  TVxTreeNode& operator=(const TVxTreeNode&) = delete;
  String ClassName() const override { return u"TVxTreeNode"; }

  const String& GetText() const noexcept { return iText; }
  void SetText(String Value) noexcept { iText = std::move(Value); }
  // Not owned, not saved.
  void* GetData() const noexcept { return iData; }
  void SetData(void* Value) noexcept { iData = Value; }
  // -1 is none, for each of the three.
  int GetImageIndex() const noexcept { return iImageIndex; }
  void SetImageIndex(int Value) noexcept { iImageIndex = Value; }
  int GetSelectedIndex() const noexcept { return iSelectedIndex; }
  void SetSelectedIndex(int Value) noexcept { iSelectedIndex = Value; }
  int GetStateIndex() const noexcept { return iStateIndex; }
  void SetStateIndex(int Value) noexcept { iStateIndex = Value; }

  // The tree. Raises EAccessViolation u"Parent Zeiger des Treenode ungültig!" on a node that has none.
  TVxTree* GetOwner() const;
  // nullptr for a root node.
  TVxTreeNode* GetParent() const noexcept { return iParent; }
  // Changes the reference alone: the node and what is below it keep their places in the list, which stands
  // in depth-first order no longer if those are not the right ones; MoveTo is the way to move a node.
  // EAccessViolation u"Ungültige Referenzierung auf Node!", and nothing has changed, for this node itself, one
  // below it or one of another tree.
  void SetParent(TVxTreeNode* Value);

  // The place in the tree's list, from 0.
  int GetAbsoluteIndex() const;
  // The number of siblings in front of this node.
  int GetIndex() const;
  // The number of ancestors.
  int GetLevel() const noexcept { return iLevel; }
  // The number of direct children.
  int GetCount() const noexcept;
  bool GetHasChildren() const noexcept { return iChildren != nullptr; }
  // Whether Node is among the ancestors.
  bool HasAsParent(const TVxTreeNode* Node) const noexcept;

  // The neighbours in the list; nullptr at its ends.
  TVxTreeNode* GetNext() const;
  TVxTreeNode* GetPrev() const;
  // The nearest nodes behind and in front of this one that have the same parent; nullptr if there is none.
  TVxTreeNode* getNextSibling() const;
  TVxTreeNode* getPrevSibling() const;
  // The next node in the list if this one is its parent, else nullptr.
  TVxTreeNode* GetFirstChild() const;
  // nullptr without children.
  TVxTreeNode* GetLastChild() const;
  // The sibling behind or in front of Child; nullptr for nullptr.
  TVxTreeNode* GetNextChild(const TVxTreeNode* Child) const;
  TVxTreeNode* GetPrevChild(const TVxTreeNode* Child) const;
  // The child number Index, from 0. Raises EAccessViolation u"Ungültige Referenzierung auf Item!" out of range.
  TVxTreeNode* GetItems(int Index) const;
  // The number of that child, -1 for what is no child of this node.
  int IndexOf(const TVxTreeNode* Child) const;

  // Takes over text, data and indexes, not the children; nullptr changes nothing.
  void Assign(const TVxTreeNode* Node);
  // TVxTree::MoveTo and Delete for this node, which is gone after Delete.
  void MoveTo(TVxTreeNode* Target, TNodeAttachMode Mode);
  void Delete();
  // Frees all nodes below this one.
  void DeleteChildren();
  // Sorts the children and all levels below as TVxTree::AlphaSort does. They stand directly behind this node then.
  void AlphaSort();

  // The node and all below it as text: the offsettext (see platform/TextForms.h) of text, ImageIndex,
  // StateIndex and, with children, the offsettext of their texts. u"A" without children gives
  // u"1°A2°-1°-1". SelectedIndex and Data are not in it.
  String GetSerialize() const;
  // Reads that text, any text: fewer than three cells change nothing; an index that is no number becomes -1.
  // The children of the fourth cell are added behind those that are there; one of fewer than three cells is
  // a node without text.
  void SetSerialize(std::u16string_view Text);

 private:
  friend class TVxTree;
  template <int kOrder>
  friend struct detail::TTreeOrder;

  String iText;
  void* iData = nullptr;
  TVxTree* iOwner = nullptr;
  TVxTreeNode* iParent = nullptr;
  TVxTreeNode* iChildren = nullptr;  // root of the balanced tree of the children
  int iImageIndex = -1;
  int iSelectedIndex = -1;
  int iStateIndex = -1;
  int iLevel = 0;
  TTreeHook iHooks[2];  // in the list of the tree, and among the siblings
};

}  // namespace vx
