// The texts of trees and of their nodes.
#include <vector>

#include "objects/detail/NestedText.h"
#include "objects/uVxTree/TVxTree.h"
#include "objects/uVxTree/detail/TreeOrder.h"
#include "platform/Numbers.h"

namespace vx {

using detail::TNestedText;
using detail::TSiblingOrder;

namespace {

void PutFields(TNestedText& Text, const TVxTreeNode* Node) {
  Text.Put(Node->GetText());
  Text.Put(IntToStr(Node->GetImageIndex()));
  Text.Put(IntToStr(Node->GetStateIndex()));
}

// Cells that give the children of nodes, from the outermost node to the one that is read just now.
struct TLevel {
  TVxTreeNode* Parent;
  detail::TOffsetReader Cells;
};

void ReadFields(TVxTreeNode* Node, std::u16string_view Text, std::vector<TLevel>& Levels) {
  detail::TOffsetReader reader(Text);
  std::u16string_view text, image, state, children;
  if (!reader.Next(text) || !reader.Next(image) || !reader.Next(state)) return;
  Node->SetText(text);
  Node->SetImageIndex(StrToIntDef(image, -1));
  Node->SetStateIndex(StrToIntDef(state, -1));
  if (reader.Next(children)) Levels.push_back({Node, detail::TOffsetReader(children)});
}

void ReadLevels(TVxTree* Tree, std::vector<TLevel>& Levels) {
  std::u16string_view cell;
  while (!Levels.empty()) {
    if (Levels.back().Cells.Next(cell)) {
      ReadFields(Tree->AddChild(Levels.back().Parent, {}), cell, Levels);
    } else {
      Levels.pop_back();
    }
  }
}

}  // namespace

// Writes the nodes below Top, each as one cell; Children is the root of its children.
void TVxTree::WriteBelow(TNestedText& Text, const TVxTreeNode* Top, TVxTreeNode* Children) {
  const TVxTreeNode* node = TSiblingOrder::First(Children);
  while (node) {
    Text.Open();
    PutFields(Text, node);
    if (node->iChildren) {
      Text.Open();
      node = TSiblingOrder::First(node->iChildren);
      continue;
    }
    Text.Close();
    const TVxTreeNode* next = TSiblingOrder::Next(node);
    for (; !next && node->iParent != Top; next = TSiblingOrder::Next(node)) {
      node = node->iParent;
      Text.Close();
      Text.Close();
    }
    node = next;
  }
}

String TVxTree::GetSerialize() const {
  if (GetCount() == 0) return {};
  TNestedText text;
  text.Open();
  WriteBelow(text, nullptr, iRoots);
  text.Close();
  return text.Text();
}

void TVxTree::SetSerialize(std::u16string_view Text) {
  const String kept = Text;  // it may be the text of a node
  std::u16string_view roots;
  if (!detail::TOffsetReader(kept).Next(roots)) return;
  std::vector<TLevel> levels{{nullptr, detail::TOffsetReader(roots)}};
  ReadLevels(this, levels);
}

String TVxTreeNode::GetSerialize() const {
  TNestedText text;
  PutFields(text, this);
  if (iChildren) {
    text.Open();
    TVxTree::WriteBelow(text, this, iChildren);
    text.Close();
  }
  return text.Text();
}

void TVxTreeNode::SetSerialize(std::u16string_view Text) {
  const String kept = Text;
  std::vector<TLevel> levels;
  ReadFields(this, kept, levels);
  if (!levels.empty()) ReadLevels(GetOwner(), levels);
}

}  // namespace vx
