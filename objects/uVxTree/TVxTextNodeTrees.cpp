// What TVxTextNode does with all nodes below one.
#include <vector>

#include "objects/detail/NestedText.h"
#include "objects/uVxClasses/TVxStringList.h"
#include "objects/uVxTree/TVxTextNode.h"
#include "platform/Exceptions.h"

namespace vx {

using detail::TNestedText;

namespace {

const TVxTextNode* RootOf(const TVxTextNode* Node) {
  while (Node->GetParent()) Node = Node->GetParent();
  return Node;
}

}  // namespace

int TVxTextNode::NodeCount() const {
  std::vector<const TVxTextNode*> nodes{this};
  int count = -1;
  while (!nodes.empty()) {
    const TVxTextNode* node = nodes.back();
    nodes.pop_back();
    ++count;
    for (int i = 0; i < node->GetCount(); ++i) nodes.push_back(node->GetItems(i));
  }
  return count;
}

std::unique_ptr<TVxTextNode> TVxTextNode::Duplicate(TVxTextNode* Parent) const {
  std::unique_ptr<TVxTextNode> copy = GetNewInstance(Parent, {});
  copy->Assign(*this);
  return copy;
}

std::unique_ptr<TVxTextNode> TVxTextNode::DuplicateDeep(TVxTextNode* Parent) const {
  struct TStep {
    const TVxTextNode* Source;
    TVxTextNode* Copy;
  };
  std::unique_ptr<TVxTextNode> result = Duplicate(Parent);
  std::vector<TStep> steps{{this, result.get()}};
  while (!steps.empty()) {
    const TStep step = steps.back();
    steps.pop_back();
    for (int i = 0; i < step.Source->GetCount(); ++i) {
      const TVxTextNode* child = step.Source->GetItems(i);
      std::unique_ptr<TVxTextNode> copy = child->Duplicate(step.Copy);
      step.Copy->Add(copy.get());
      steps.push_back({child, copy.release()});
    }
  }
  return result;
}

std::unique_ptr<TVxTextNode> TVxTextNode::DuplicateVirtual() const {
  std::unique_ptr<TVxTextNode> copy = Duplicate(iParent);
  copy->SetOwnsObjects(false);
  for (int i = 0; i < GetCount(); ++i) copy->TObjectList::Insert(i, GetItems(i));
  return copy;
}

void TVxTextNode::AddMerge(const TVxTextNode& Node) {
  if (&Node == this) return;
  std::unique_ptr<TVxTextNode> copy;  // of what grows with this tree
  if (RootOf(&Node) == RootOf(this)) copy = Node.DuplicateDeep(nullptr);
  struct TStep {
    TVxTextNode* Target;
    const TVxTextNode* Source;
  };
  std::vector<TStep> steps{{this, copy ? copy.get() : &Node}};
  while (!steps.empty()) {
    const TStep step = steps.back();
    steps.pop_back();
    step.Target->Assign(*step.Source);
    for (int i = 0; i < step.Source->GetCount(); ++i) {
      const TVxTextNode* child = step.Source->GetItems(i);
      steps.push_back({step.Target->Validate(child->iText), child});
    }
  }
}

void TVxTextNode::AddMergeFree(std::unique_ptr<TVxTextNode>&& Node) {
  if (!Node) return;
  for (const TVxTextNode* node = this; node; node = node->iParent) {
    if (node == Node.get()) throw EAccessViolation(u"Ungültige Referenzierung auf Node!");
  }
  struct TStep {
    TVxTextNode* Target;
    std::unique_ptr<TVxTextNode> Source;
  };
  std::vector<TStep> steps;
  steps.push_back({this, std::move(Node)});
  while (!steps.empty()) {
    const TStep step = std::move(steps.back());
    steps.pop_back();
    if (!step.Source->GetOwnsObjects()) {  // its children are another's
      step.Target->AddMerge(*step.Source);
      continue;
    }
    step.Target->Assign(*step.Source);
    for (int i = step.Source->GetCount() - 1; i >= 0; --i) {
      std::unique_ptr<TVxTextNode> child(step.Source->GetItems(i));
      step.Source->Take(i);
      const int index = step.Target->IndexOf(child->iText);
      if (index >= 0) {
        steps.push_back({step.Target->GetItems(index), std::move(child)});
      } else {
        child->iParent = step.Target;
        step.Target->Add(child.get());
        (void)child.release();  // the target has it
      }
    }
  }
}

String TVxTextNode::GetLightText() const {
  if (isEmpty()) return {};
  TVxStringList texts;
  GetTextList(texts);
  return texts.GetLighttext();
}

void TVxTextNode::SetLightText(std::u16string_view Text) {
  if (Text.empty()) {
    InitNode();
    return;
  }
  TVxStringList texts;
  texts.SetLighttext(Text);
  SetTextList(texts, -1);
}

String TVxTextNode::GetSerialize() const {
  if (isEmpty()) return {};
  struct TStep {
    const TVxTextNode* Node;
    int Next;
  };
  TNestedText text;
  text.Put(GetLightText());
  std::vector<TStep> steps{{this, 0}};
  for (;;) {
    TStep& step = steps.back();
    if (step.Next == step.Node->GetCount()) {
      steps.pop_back();
      if (steps.empty()) return text.Text();
      text.Close();
      continue;
    }
    const TVxTextNode* child = step.Node->GetItems(step.Next++);
    if (child->isEmpty()) {
      text.Put({});
    } else {
      text.Open();
      text.Put(child->GetLightText());
      steps.push_back({child, 0});
    }
  }
}

void TVxTextNode::SetSerialize(std::u16string_view Text) {
  struct TStep {
    TVxTextNode* Node;
    std::unique_ptr<TVxTextNode> Owned;  // Node, until its parent gets it
    detail::TOffsetReader Cells;
  };
  const String kept = Text;  // it may be the text of a node
  Clear();
  std::vector<TStep> steps;
  std::u16string_view cell;
  auto enter = [&](TVxTextNode* node, std::unique_ptr<TVxTextNode> owned, std::u16string_view text) {
    steps.push_back({node, std::move(owned), detail::TOffsetReader(text)});
    node->SetLightText(steps.back().Cells.Next(cell) ? cell : std::u16string_view());
  };
  enter(this, nullptr, kept);
  for (;;) {
    TStep& step = steps.back();
    if (step.Cells.Next(cell)) {
      std::unique_ptr<TVxTextNode> child = step.Node->GetNewInstance(step.Node, {});
      TVxTextNode* node = child.get();
      enter(node, std::move(child), cell);
      continue;
    }
    std::unique_ptr<TVxTextNode> done = std::move(step.Owned);
    steps.pop_back();
    if (steps.empty()) return;
    steps.back().Node->Add(done.get());
    (void)done.release();  // its parent has it
  }
}

}  // namespace vx
