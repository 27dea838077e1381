#include "objects/uVxTree/TVxTextNode.h"

#include <algorithm>
#include <vector>

#include "objects/detail/Refusal.h"
#include "platform/Collation.h"
#include "platform/Exceptions.h"

namespace vx {

namespace {

constexpr detail::TRefusal Refuse{u"Die Funktion \"TVxTextNode.", u"\" wir nicht unterstützt."};

}  // namespace

// Nodes below go one after the other, not each inside its parent's destructor.
TVxTextNode::~TVxTextNode() {
  TVxTextNode* chain = nullptr;
  GiveNodes(chain);
  while (chain) {
    TVxTextNode* node = chain;
    chain = node->FNextToFree;
    node->GiveNodes(chain);
    delete node;
  }
}

// Takes the nodes that this one owns out of it, for ever.
void TVxTextNode::GiveNodes(TVxTextNode*& Chain) noexcept {
  if (!GetOwnsObjects()) return;
  SetOwnsObjects(false);
  for (int i = 0; i < GetCount(); ++i) {
    TVxTextNode* node = GetItems(i);
    node->iParent = nullptr;
    node->FNextToFree = Chain;
    Chain = node;
  }
  TObjectList::Clear();
}

void TVxTextNode::Notify(TObject* Object, TListNotification Action) {
  // What is deleted from a list that does not own may be gone already.
  if (Action == lnAdded && GetOwnsObjects()) static_cast<TVxTextNode*>(Object)->iParent = this;
  if (Action == lnExtracted) static_cast<TVxTextNode*>(Object)->iParent = nullptr;
  TObjectList::Notify(Object, Action);
}

int TVxTextNode::CompareText(std::u16string_view A, std::u16string_view B) const { return AnsiCompareText(A, B); }

std::unique_ptr<TVxTextNode> TVxTextNode::GetNewInstance(TVxTextNode* Parent, String Text) const {
  return std::make_unique<TVxTextNode>(Parent, std::move(Text));
}

void TVxTextNode::GetTextList(TStrings& Strings) const {
  Strings.Clear();
  Strings.Add(iText);
}

void TVxTextNode::SetTextList(const TStrings& Strings, int Count) {
  if (Count < 0 || Count > Strings.GetCount()) Count = Strings.GetCount();
  iText = Count > 0 ? Strings.Get(0) : String();
}

void TVxTextNode::Assign(const TVxTextNode& Source) { iText = Source.iText; }
void TVxTextNode::InitNode() { iText.clear(); }
bool TVxTextNode::isEmpty() const { return iText.empty() && GetCount() == 0; }

void TVxTextNode::Init() {
  InitNode();
  Clear();
}

int TVxTextNode::Level() const noexcept {
  int level = 0;
  for (const TVxTextNode* parent = iParent; parent; parent = parent->iParent) ++level;
  return level;
}

int TVxTextNode::IndexSort(std::u16string_view Text) const {
  const int count = GetCount();
  if (count == 0) return 0;
  if (CompareText(Text, GetItems(count - 1)->iText) > 0) return count;
  if (CompareText(Text, GetItems(0)->iText) <= 0) return 0;
  int low = 1, high = count - 1;
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (CompareText(Text, GetItems(middle)->iText) > 0) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

bool TVxTextNode::Find(std::u16string_view Text, int& Index) const {
  Index = IndexSort(Text);
  return Index < GetCount() && CompareText(Text, GetItems(Index)->iText) == 0;
}

int TVxTextNode::IndexOf(std::u16string_view Text) const {
  int index;
  return Find(Text, index) ? index : -1;
}

int TVxTextNode::Add(TObject* Node) {
  auto* node = dynamic_cast<TVxTextNode*>(Node);
  if (!node || node == this) throw EAccessViolation(u"Ungültige Referenzierung auf Node!");
  int index;
  if (Find(node->iText, index)) {
    Put(index, node);
  } else {
    TObjectList::Insert(index, node);
  }
  return index;
}

void TVxTextNode::Insert(int, TObject* Node) { Add(Node); }

int TVxTextNode::Remove(TObject* Node) {
  const int index = IndexOf(dynamic_cast<TVxTextNode*>(Node));
  if (index >= 0) Delete(index);
  return index;
}

// Takes the child at Index out without freeing it.
void TVxTextNode::Take(int Index) {
  const bool owns = GetOwnsObjects();
  SetOwnsObjects(false);
  GetItems(Index)->iParent = nullptr;
  TObjectList::Delete(Index);
  SetOwnsObjects(owns);
}

TObject* TVxTextNode::Extract(TObject* Node) {
  const int index = IndexOf(dynamic_cast<TVxTextNode*>(Node));
  if (index < 0 || GetItems(index) != Node) return TObjectList::Extract(Node);
  Take(index);
  return Node;
}

void TVxTextNode::Exchange(int, int) { Refuse(u"Exchange"); }
void TVxTextNode::Move(int, int) { Refuse(u"Move"); }

TVxTextNode* TVxTextNode::GetNewItem(String Text) {
  std::unique_ptr<TVxTextNode> node = GetNewInstance(this, std::move(Text));
  Add(node.get());
  return node.release();
}

TVxTextNode* TVxTextNode::Validate(const String& Text) {
  const int index = IndexOf(Text);
  return index >= 0 ? GetItems(index) : GetNewItem(Text);
}

bool TVxTextNode::Exists(const TStrings& Strings) const {
  const TVxTextNode* node = this;
  for (int i = 0; i < Strings.GetCount(); ++i) {
    const int index = node->IndexOf(Strings.Get(i));
    if (index < 0) return false;
    node = node->GetItems(index);
  }
  return true;
}

TVxTextNode* TVxTextNode::ValidateNodes(const TStrings& Strings) {
  TVxTextNode* node = this;
  for (int i = 0; i < Strings.GetCount(); ++i) node = node->Validate(Strings.Get(i));
  return node;
}

String TVxTextNode::TextToRoot(std::u16string_view Separator) const {
  std::vector<const TVxTextNode*> path;
  for (const TVxTextNode* node = this; node; node = node->iParent) path.push_back(node);
  String result = path.back()->iText;
  for (path.pop_back(); !path.empty(); path.pop_back()) {
    result += Separator;
    result += path.back()->iText;
  }
  return result;
}

std::unique_ptr<TVxTextNode> TVxTextNode::NodeToTree() {
  if (!iParent || !iParent->Extract(this)) return nullptr;
  return std::unique_ptr<TVxTextNode>(this);
}

int TVxTextNode::FindClassname(const TStrings& Strings, std::u16string_view Name, int& Index) {
  for (int i = std::min(Index, Strings.GetCount()) - 1; i >= 1; --i) {
    if (Strings.Get(i) == Name) return Index = i;
  }
  return Index;
}

}  // namespace vx
