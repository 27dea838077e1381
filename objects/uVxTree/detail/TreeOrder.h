// Orders of nodes as weight-balanced trees: the list of a tree, and the siblings below one parent. Internal to
// the tree.
//
// Neither search nor change depends on the nodes before them; a node knows its place by the nodes above it. All
// steps cost a logarithm of the number of nodes, a walk from node to node a constant on average.
#pragma once

#include <algorithm>
#include <span>

#include "objects/uVxTree/TVxTreeNode.h"

namespace vx::detail {

template <int kOrder>
struct TTreeOrder {
  using TNode = TVxTreeNode;

  static TTreeHook& Hook(TNode* Node) noexcept { return Node->iHooks[kOrder]; }
  static const TTreeHook& Hook(const TNode* Node) noexcept { return Node->iHooks[kOrder]; }
  static int Size(const TNode* Root) noexcept { return Root ? Hook(Root).Size : 0; }

  static TNode* First(TNode* Root) noexcept {
    while (Root && Hook(Root).Left) Root = Hook(Root).Left;
    return Root;
  }
  static TNode* Last(TNode* Root) noexcept {
    while (Root && Hook(Root).Right) Root = Hook(Root).Right;
    return Root;
  }
  static TNode* Next(const TNode* Node) noexcept {
    if (TNode* right = Hook(Node).Right) return First(right);
    TNode* up = Hook(Node).Up;
    for (; up && Hook(up).Right == Node; up = Hook(up).Up) Node = up;
    return up;
  }
  static TNode* Prev(const TNode* Node) noexcept {
    if (TNode* left = Hook(Node).Left) return Last(left);
    TNode* up = Hook(Node).Up;
    for (; up && Hook(up).Left == Node; up = Hook(up).Up) Node = up;
    return up;
  }
  // The number of nodes in front of Node.
  static int Rank(const TNode* Node) noexcept {
    int rank = Size(Hook(Node).Left);
    for (const TNode* up = Hook(Node).Up; up; Node = up, up = Hook(up).Up) {
      if (Hook(up).Right == Node) rank += Size(Hook(up).Left) + 1;
    }
    return rank;
  }
  // nullptr out of range.
  static TNode* At(TNode* Root, int Index) noexcept {
    while (Root) {
      const int left = Size(Hook(Root).Left);
      if (Index == left) break;
      Root = Index < left ? Hook(Root).Left : Hook(Root).Right;
      if (Index > left) Index -= left + 1;
    }
    return Root;
  }
  // The first node behind Node whose Level is not above Level.
  static TNode* NextUpTo(const TNode* Node, int Level) noexcept {
    TNode* below = Hook(Node).Right;
    for (;;) {
      if (below && Hook(below).Least <= Level) return FirstUpTo(below, Level);
      TNode* up = Hook(Node).Up;
      for (; up && Hook(up).Right == Node; up = Hook(up).Up) Node = up;
      if (!up || up->iLevel <= Level) return up;
      Node = up;
      below = Hook(up).Right;
    }
  }

  // Puts a node in directly behind Where, in front of all for nullptr.
  static void PutBehind(TNode*& Root, TNode* Where, TNode* Node) noexcept {
    Hook(Node) = {};
    if (!Root) {
      Root = Node;
    } else if (Where && !Hook(Where).Right) {
      Hook(Where).Right = Node;
      Hook(Node).Up = Where;
    } else {
      Where = First(Where ? Hook(Where).Right : Root);
      Hook(Where).Left = Node;
      Hook(Node).Up = Where;
    }
    Balance(Root, Node);
  }
  static void Remove(TNode*& Root, TNode* Node) noexcept {
    TTreeHook& hook = Hook(Node);
    TNode* changed = hook.Up;
    if (!hook.Left || !hook.Right) {
      Replace(Root, Node, hook.Left ? hook.Left : hook.Right);
    } else {
      TNode* next = First(hook.Right);
      changed = next;
      if (Hook(next).Up != Node) {
        changed = Hook(next).Up;
        Replace(Root, next, Hook(next).Right);
        Hook(next).Right = hook.Right;
        Hook(hook.Right).Up = next;
      }
      Replace(Root, Node, next);
      Hook(next).Left = hook.Left;
      Hook(hook.Left).Up = next;
    }
    Balance(Root, changed);
  }
  // To be called when the Level of a node has changed.
  static void Refresh(TNode* Node) noexcept {
    for (; Node; Node = Hook(Node).Up) Update(Node);
  }
  // The root of a new order of Nodes, whatever their hooks were.
  static TNode* Build(std::span<TNode* const> Nodes) noexcept {
    if (Nodes.empty()) return nullptr;
    const size_t middle = Nodes.size() / 2;
    TNode* root = Nodes[middle];
    Hook(root) = {};
    Hook(root).Left = Build(Nodes.first(middle));
    Hook(root).Right = Build(Nodes.subspan(middle + 1));
    for (TNode* below : {Hook(root).Left, Hook(root).Right}) {
      if (below) Hook(below).Up = root;
    }
    Update(root);
    return root;
  }

 private:
  static TNode* FirstUpTo(TNode* Root, int Level) noexcept {
    for (;;) {
      TNode* left = Hook(Root).Left;
      if (left && Hook(left).Least <= Level) {
        Root = left;
      } else if (Root->iLevel <= Level) {
        return Root;
      } else {
        Root = Hook(Root).Right;
      }
    }
  }
  static void Update(TNode* Node) noexcept {
    TTreeHook& hook = Hook(Node);
    hook.Size = Size(hook.Left) + Size(hook.Right) + 1;
    hook.Least = Node->iLevel;
    if (hook.Left) hook.Least = std::min(hook.Least, Hook(hook.Left).Least);
    if (hook.Right) hook.Least = std::min(hook.Least, Hook(hook.Right).Least);
  }
  static void Replace(TNode*& Root, TNode* Old, TNode* New) noexcept {
    TNode* up = Hook(Old).Up;
    if (New) Hook(New).Up = up;
    (!up ? Root : Hook(up).Left == Old ? Hook(up).Left : Hook(up).Right) = New;
  }
  // Lifts the child of Node at that side into Node's place and returns it.
  static TNode* Lift(TNode*& Root, TNode* Node, TNode* TTreeHook::*Side) noexcept {
    TNode* TTreeHook::*other = Side == &TTreeHook::Left ? &TTreeHook::Right : &TTreeHook::Left;
    TNode* child = Hook(Node).*Side;
    TNode* inner = Hook(child).*other;
    Replace(Root, Node, child);
    Hook(Node).*Side = inner;
    if (inner) Hook(inner).Up = Node;
    Hook(child).*other = Node;
    Hook(Node).Up = child;
    Update(Node);
    Update(child);
    return child;
  }
  // No side of a node is more than three times as heavy as the other, an empty one weighing one.
  static void Balance(TNode*& Root, TNode* Node) noexcept {
    for (; Node; Node = Hook(Node).Up) {
      Update(Node);
      const int64_t left = Size(Hook(Node).Left) + int64_t{1}, right = Size(Hook(Node).Right) + int64_t{1};
      if (left <= 3 * right && right <= 3 * left) continue;
      TNode* TTreeHook::*heavy = left > right ? &TTreeHook::Left : &TTreeHook::Right;
      TNode* TTreeHook::*light = left > right ? &TTreeHook::Right : &TTreeHook::Left;
      TNode* child = Hook(Node).*heavy;
      if (Size(Hook(child).*light) + int64_t{1} >= 2 * (Size(Hook(child).*heavy) + int64_t{1}))
        Lift(Root, child, light);
      Node = Lift(Root, Node, heavy);
    }
  }
};

using TListOrder = TTreeOrder<0>;
using TSiblingOrder = TTreeOrder<1>;

}  // namespace vx::detail
