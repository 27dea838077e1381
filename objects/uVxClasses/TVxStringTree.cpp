#include "objects/uVxClasses/TVxStringTree.h"

#include <algorithm>

#include "core/uVxFunctionsSerialize/Explode.h"
#include "objects/detail/NestedText.h"
#include "platform/Exceptions.h"
#include "platform/Text.h"

namespace vx {

namespace {

String NameText(const String& Name) { return WriteLighttext({&Name, 1}); }

String FirstName(std::u16string_view Lighttext) {
  TCells names = ReadLighttext(Lighttext);
  return names.empty() ? String() : names[0];
}

// The names of a tree with their depths, in the order of a walk.
struct TNames {
  struct TName {
    size_t Depth;
    String Name;
  };
  void Enter(const String& Name) { Names.push_back({Depth++, Name}); }
  void Leaf(const String& Name) { Names.push_back({Depth, Name}); }
  void Leave() { --Depth; }

  std::vector<TName> Names;
  size_t Depth = 0;
};

// The text of a walk.
struct TText {
  TText() { Text.Put({}); }  // the tree's own name
  void Enter(const String& Name) {
    Text.Open();
    Text.Put(NameText(Name));
  }
  void Leaf(const String& Name) {
    Enter(Name);
    Leave();
  }
  void Leave() { Text.Close(); }

  detail::TNestedText Text;
};

}  // namespace

// Nodes below go one after the other, not each inside its parent's destructor.
TVxStringTree::~TVxStringTree() {
  TVxStringTree* chain = nullptr;
  GiveNodes(chain);
  while (chain) {
    TVxStringTree* node = chain;
    chain = node->FNextToFree;
    node->GiveNodes(chain);
    delete node;
  }
}

// Takes the nodes that this one owns out of it.
void TVxStringTree::GiveNodes(TVxStringTree*& Chain) noexcept {
  if (!GetOptions().Has(vxioOwnsObjects)) return;
  for (int i = 0; i < GetCount(); ++i) {
    TVxStringTree* node = Child(i);
    if (!node) continue;
    SetObjects(i, nullptr);
    node->FNextToFree = Chain;
    Chain = node;
  }
}

TVxStringTree* TVxStringTree::Child(int Index) const { return dynamic_cast<TVxStringTree*>(GetObjects(Index)); }

std::unique_ptr<TVxStringTree> TVxStringTree::newNode() {
  return std::make_unique<TVxStringTree>(TVxStringIndexOptions{vxioOwnsObjects, vxioNotCaseSensitive});
}

TVxStringTree* TVxStringTree::ValidateNode(TVxStringTree& Level, const String& Value) {
  int index;
  bool found = Level.Find(Value, index);
  if (found) {
    if (TVxStringTree* node = Level.Child(index)) return node;
  }
  std::unique_ptr<TVxStringTree> node = newNode();
  if (found) {
    TObject* old = Level.GetObjects(index);
    Level.SetObjects(index, node.get());
    if (Level.GetOptions().Has(vxioOwnsObjects)) delete old;
  } else {
    Level.Add(Value, node.get());
  }
  return node.release();
}

TVxStringTree* TVxStringTree::ValidateNode(std::unique_ptr<TVxStringTree>& Level, const String& Value) {
  if (!Level) Level = newNode();
  return ValidateNode(*Level, Value);
}

void TVxStringTree::AddPath(std::u16string_view Path) {
  TVxStringTree* level = this;
  std::unique_ptr<TVxStringList> parts = explode(Path, u'\\');
  for (const String& part : parts->Items()) {
    String name = Trim(part);
    if (!name.empty()) level = ValidateNode(*level, name);
  }
}

void TVxStringTree::AddTree(const TVxStringTree& Tree) {
  TNames names;  // first all of them, as Tree may be a part of this tree or hold it
  Tree.Walk(names);
  std::vector<TVxStringTree*> levels{this};
  for (const TNames::TName& each : names.Names) {
    levels.resize(each.Depth + 1);
    levels.push_back(ValidateNode(*levels.back(), each.Name));
  }
}

bool TVxStringTree::CascadeExists(const TStrings& Strings) const {
  const TVxStringTree* level = this;
  int count = Strings.GetCount();
  for (int i = 0; i < count; ++i) {
    int index;
    if (!level || !level->Find(Strings.Get(i), index)) return false;
    if (i + 1 == count) return true;
    TObject* object = GetObjects(index);
    level = dynamic_cast<TVxStringTree*>(object);
    if (object && !level)
      throw EInvalidCast(Concat({u"A node of the tree is not a TVxStringTree but ", object->ClassName()}));
  }
  return false;
}

template <typename TVisitor>
void TVxStringTree::Walk(TVisitor& Visitor) const {
  struct TStep {
    const TVxStringTree* Node;
    int Next;
  };
  std::vector<TStep> steps{{this, 0}};
  for (;;) {
    TStep& step = steps.back();
    if (step.Next == step.Node->GetCount()) {
      steps.pop_back();
      if (steps.empty()) return;
      Visitor.Leave();
      continue;
    }
    int index = step.Next++;
    String name = step.Node->GetItems(index);
    const TVxStringTree* child = step.Node->Child(index);
    if (child && child->GetCount() > 0) {
      Visitor.Enter(name);
      steps.push_back({child, 0});
    } else {
      Visitor.Leaf(name);
    }
  }
}

String TVxStringTree::GetSerialize() const {
  if (GetCount() == 0) return {};
  TText text;
  Walk(text);
  return text.Text.Text();
}

void TVxStringTree::SetSerialize(std::u16string_view Text) {
  struct TStep {
    TVxStringTree* Node;
    detail::TOffsetReader Cells;
  };
  String kept = Text;  // it may be one of the keys
  Clear();
  std::vector<TStep> steps{{this, detail::TOffsetReader(kept)}};
  std::u16string_view cell, name, second;
  steps.back().Cells.Next(cell);  // the tree's own name
  while (!steps.empty()) {
    if (!steps.back().Cells.Next(cell)) {
      steps.pop_back();
      continue;
    }
    TVxStringTree* level = steps.back().Node;
    detail::TOffsetReader cells(cell);
    if (!cells.Next(name)) continue;
    detail::TOffsetReader children = cells;
    std::unique_ptr<TVxStringTree> node;
    if (cells.Next(second)) {
      node = std::make_unique<TVxStringTree>();
      steps.push_back({node.get(), children});
    }
    String key = FirstName(name);
    int index;
    TVxStringTree* replaced = level->Find(key, index) ? level->Child(index) : nullptr;
    // Nobody else knows of a node that was made here and loses its place.
    if (replaced) replaced->OwnNodes();
    level->Add(key, node.get());
    (void)node.release();  // the level has it
    if (!level->GetOptions().Has(vxioOwnsObjects)) delete replaced;
  }
}

void TVxStringTree::OwnNodes() {
  std::vector<TVxStringTree*> nodes{this};
  while (!nodes.empty()) {
    TVxStringTree* node = nodes.back();
    nodes.pop_back();
    node->SetOptions(node->GetOptions() + TVxStringIndexOptions{vxioOwnsObjects});
    for (int i = 0; i < node->GetCount(); ++i) {
      if (TVxStringTree* child = node->Child(i)) nodes.push_back(child);
    }
  }
}

}  // namespace vx
