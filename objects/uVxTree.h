// Two models of trees, one without a control on the screen behind it and one that is searched by texts.
//
//   TVxTree          a tree as one flat list of its nodes, to be built, moved and saved like a tree view's
//   TVxTreeNode      one of its nodes
//   TNodeAttachMode  where a node goes in relation to another one
//   TVxTextNode      a node that is the list of its children, sorted by text and each text once
//   TTreeViewNode    the same with the fields of a node that is seen
//
// Example:
//   vx::TVxTree tree;
//   vx::TVxTreeNode* home = tree.AddChild(nullptr, u"Wohnbereich 1");
//   tree.AddChild(home, u"Zimmer 12");
//   vx::String kept = tree.GetSerialize();
//
//   vx::TVxTextNode root;
//   root.Validate(u"Bonn")->Validate(u"Beuel");
//   vx::String path = root.Validate(u"bonn")->Validate(u"Beuel")->TextToRoot(u"\\");   // u"\\Bonn\\Beuel"
//
// Both models stand trees of any depth and texts of any content: no operation goes down by calling itself.
//
// Threads: several may read one at once through its const members; who changes it has to be alone with it.
//
// Pitfalls:
//   - Nodes of a TVxTree are the tree's: they are freed by Delete and Clear of the tree, never by hand.
//   - Setting the Serialize of a TVxTree or of its nodes adds to what is there; that of a TVxTextNode replaces.
//   - The text of a TVxTextNode is its place among its siblings: changing it while the node is in a list breaks
//     the order of that list.
#pragma once

#include "objects/uVxTree/TTreeViewNode.h"
#include "objects/uVxTree/TVxTextNode.h"
#include "objects/uVxTree/TVxTree.h"
#include "objects/uVxTree/TVxTreeNode.h"
