// A text as the serial form of all trees: what is read is written by the rules, and that is read back as the same.
#include <functional>

#include "fuzz/support/Input.h"
#include "objects/uVxTree.h"
#include "platform/Numbers.h"

namespace vx::fuzz {

namespace {

String PlainText(const TVxTreeNode* Node) {
  TCells cells{Node->GetText(), IntToStr(Node->GetImageIndex()), IntToStr(Node->GetStateIndex())}, children;
  for (int i = 0; i < Node->GetCount(); ++i) children.push_back(PlainText(Node->GetItems(i)));
  if (!children.empty()) cells.push_back(WriteOffsettext(children));
  return WriteOffsettext(cells);
}

String PlainText(const TVxTextNode* Node) {
  if (Node->isEmpty()) return {};
  TCells cells{Node->GetLightText()};
  for (int i = 0; i < Node->GetCount(); ++i) cells.push_back(PlainText(Node->GetItems(i)));
  return WriteOffsettext(cells);
}

template <typename TTree>
void CheckTexts(const String& Text) {
  TTree tree, again;
  tree.SetSerialize(Text);
  const String written = tree.GetSerialize();
  Check(written == PlainText(&tree), "a tree is written by the rules");
  for (int i = 1; i < tree.GetCount(); ++i) {
    Check(tree.CompareText(tree.GetItems(i - 1)->GetText(), tree.GetItems(i)->GetText()) < 0, "children are in order");
  }
  // A code unit 0 ends a lighttext, so that the texts are others from then on.
  if (Text.view().find(u'\0') != std::u16string_view::npos) return;
  again.SetSerialize(written);
  Check(again.GetSerialize() == written, "a text that was written reads back");
  again.AddMerge(tree);
  Check(again.GetSerialize() == written, "an equal tree adds nothing");
  again.AddMergeFree(tree.DuplicateDeep(nullptr));
  Check(again.GetSerialize() == written, "an equal tree that is used up adds nothing");
}

}  // namespace

FUZZ(Input) {
  const String text = Input.Text();
  TVxTree tree, again, merged;
  tree.SetSerialize(text);
  TCells roots;
  for (TVxTreeNode* node = tree.GetFirstNode(); node; node = node->getNextSibling()) roots.push_back(PlainText(node));
  String written = WriteOffsettext(roots);
  if (!roots.empty()) written = WriteOffsettext({&written, 1});
  Check(tree.GetSerialize() == written, "a list is written by the rules");
  again.SetSerialize(written);
  Check(again.GetSerialize() == written, "a list that was written reads back");
  for (TVxTreeNode* node = again.GetFirstNode(); node; node = node->GetNext()) {
    const TVxTreeNode* prev = node->GetPrev();
    Check(node->GetLevel() <= (prev ? prev->GetLevel() + 1 : 0), "a list is in depth-first order");
  }
  again.AlphaSort();
  Check(again.GetCount() == tree.GetCount(), "sorting keeps all nodes");
  merged.AssignOn(&tree, true);
  merged.AssignOn(&again, false);
  Check(merged.GetCount() <= tree.GetCount(), "merging adds each text once");
  CheckTexts<TVxTextNode>(text);
  CheckTexts<TTreeViewNode>(text);
}

}  // namespace vx::fuzz
