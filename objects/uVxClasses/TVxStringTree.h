// A tree of names.
//
// Example:
//   vx::TVxStringTree tree({vx::vxioOwnsObjects, vx::vxioNotCaseSensitive});
//   tree.AddPath(u"Bonn\\Beuel\\Limperich");
//   vx::String text = tree.GetSerialize();
#pragma once

#include <memory>

#include "objects/uVxClasses/TVxStringIndex.h"

namespace vx {

// An index whose objects are its child nodes. A name without a node, or with one that has no names, is a
// leaf. Trees of any depth may be read, written and freed.
//
// Pitfall: nodes that SetSerialize makes, and the tree itself unless made so, do not own their children.
// OwnNodes changes that.
class TVxStringTree : public TVxStringIndex {
 public:
  using TVxStringIndex::TVxStringIndex;
  ~TVxStringTree() override;
  String ClassName() const override { return u"TVxStringTree"; }

  // A new node that owns its children and takes no notice of case.
  [[nodiscard]] static std::unique_ptr<TVxStringTree> newNode();
  // The node under Value in Level, which is added by newNode if it is not there or its object is no tree;
  // that object is freed if Level owns. The result is Level's. An absent Level becomes a new node.
  static TVxStringTree* ValidateNode(TVxStringTree& Level, const String& Value);
  static TVxStringTree* ValidateNode(std::unique_ptr<TVxStringTree>& Level, const String& Value);
  // Adds what is missing of the nodes of a path u"a\\b"; parts are trimmed and empty ones left out.
  void AddPath(std::u16string_view Path);
  // Adds what is missing of the names of Tree, at all levels; leaves become nodes. Nothing of Tree itself
  // is taken over.
  void AddTree(const TVxStringTree& Tree);

  // Whether Strings name a path. The odd walk is wanted: the place at which a name is found in its level
  // leads to the next level by the object that stands at that place here, in the tree's own first
  // level. So paths of one and two names are found as expected, longer ones by chance of places. False
  // for no names and below a leaf without a node; EInvalidCast if the object on the way is no tree, and
  // EStringListError if there is no such place.
  bool CascadeExists(const TStrings& Strings) const;

  // The tree as text; empty for an empty one. A node is the offsettext of the lighttext of its name (empty
  // for the tree itself) and of what its children give; a leaf the offsettext of the lighttext of its name.
  String GetSerialize() const;
  // Clears and reads that text, any text. Leaves have no node then. The new nodes count case and do not
  // own their children.
  void SetSerialize(std::u16string_view Text);

  // Makes this tree and all nodes below it own their children.
  void OwnNodes();

 private:
  TVxStringTree* Child(int Index) const;
  // Visits all names below: Enter(name) and Leave() around those of a node, Leaf(name) for a leaf.
  template <typename TVisitor>
  void Walk(TVisitor& Visitor) const;
  void GiveNodes(TVxStringTree*& Chain) noexcept;

  TVxStringTree* FNextToFree = nullptr;
};

}  // namespace vx
