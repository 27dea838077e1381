#include "services/Xml/TXmlDocument.h"

#include <utility>

#include "services/Xml/detail/XmlTree.h"

namespace vx {

// --- the document ---

TXmlDocument::TXmlDocument() : FMemory(std::make_unique<TMemory>()), FTop(NewNode(xnDocument)) {}
TXmlDocument::~TXmlDocument() = default;

TXmlNode* TXmlDocument::GetRoot() const noexcept {
  for (TXmlNode* node = FTop->FFirst; node != nullptr; node = node->FNext) {
    if (node->IsElement()) return node;
  }
  return nullptr;
}

TXmlNode* TXmlDocument::SetRoot(std::u16string_view Name) {
  const String name = Name;  // it may be one of this document
  Clear();
  return FTop->Add(name);
}

void TXmlDocument::Clear() {
  auto fresh = std::make_unique<TMemory>();
  fresh.swap(FMemory);
  try {
    FTop = NewNode(xnDocument);
  } catch (...) {
    fresh.swap(FMemory);
    throw;
  }
  FForm = {};
}

TXmlNode* TXmlDocument::NewNode(TXmlNodeKind Kind) {
  return ::new (FMemory->Blocks.Take(sizeof(TXmlNode))) TXmlNode(*this, Kind);
}

TXmlAttr* TXmlDocument::NewAttr(std::u16string_view Name, std::u16string_view Value) {
  auto* attr = ::new (FMemory->Blocks.Take(sizeof(TXmlAttr))) TXmlAttr();
  attr->FName = Name;
  attr->FValue = Value;
  return attr;
}

std::u16string_view TXmlDocument::Keep(std::u16string_view Text) {
  if (Text.empty()) return {};
  auto* units = static_cast<char16_t*>(FMemory->Blocks.Take(Text.size() * sizeof(char16_t)));
  std::char_traits<char16_t>::copy(units, Text.data(), Text.size());
  return {units, Text.size()};
}

// --- nodes ---

void TXmlNode::SetName(std::u16string_view Value) { FName = FDocument->Keep(Value); }
void TXmlNode::SetValue(std::u16string_view Value) { FValue = FDocument->Keep(Value); }

String TXmlNode::GetText() const {
  if (!IsElement()) return FValue;
  const auto isText = [](const TXmlNode& node) { return node.FKind == xnText || node.FKind == xnCData; };
  size_t size = 0;
  for (const TXmlNode& child : Children()) size += isText(child) ? child.FValue.size() : 0;
  return String::Build(size, [&](char16_t* target) {
    for (const TXmlNode& child : Children()) {
      if (isText(child)) target = std::copy(child.FValue.begin(), child.FValue.end(), target);
    }
  });
}

void TXmlNode::SetText(std::u16string_view Value) {
  if (!IsElement()) return SetValue(Value);
  const std::u16string_view value = FDocument->Keep(Value);
  Clear();
  if (!value.empty()) AddNode(xnText, {}, value);
}

TXmlNode* TXmlNode::Find(std::u16string_view Name) const noexcept {
  for (TXmlNode* node = FFirst; node != nullptr; node = node->FNext) {
    if (node->IsElement() && node->FName == Name) return node;
  }
  return nullptr;
}

String TXmlNode::FindText(std::u16string_view Name) const {
  const TXmlNode* node = Find(Name);
  return node == nullptr ? String() : node->GetText();
}

TXmlAttr* TXmlNode::FindAttr(std::u16string_view Name) const noexcept {
  TXmlAttr* attr = FFirstAttr;
  while (attr != nullptr && attr->FName != Name) attr = attr->FNext;
  return attr;
}

std::u16string_view TXmlNode::GetAttribute(std::u16string_view Name) const noexcept {
  const TXmlAttr* attr = FindAttr(Name);
  return attr == nullptr ? std::u16string_view() : attr->FValue;
}

void TXmlNode::SetAttribute(std::u16string_view Name, std::u16string_view Value) {
  const std::u16string_view value = FDocument->Keep(Value);
  TXmlAttr** place = &FFirstAttr;
  while (*place != nullptr && (*place)->FName != Name) place = &(*place)->FNext;
  if (*place != nullptr) {
    (*place)->FValue = value;
  } else {
    *place = FDocument->NewAttr(FDocument->Keep(Name), value);
  }
}

bool TXmlNode::DeleteAttribute(std::u16string_view Name) noexcept {
  TXmlAttr** place = &FFirstAttr;
  while (*place != nullptr && (*place)->FName != Name) place = &(*place)->FNext;
  if (*place == nullptr) return false;
  *place = (*place)->FNext;
  return true;
}

TXmlNode* TXmlNode::AddNode(TXmlNodeKind Kind, std::u16string_view Name, std::u16string_view Value) {
  TXmlNode* node = FDocument->NewNode(Kind);
  node->FName = Name;
  node->FValue = Value;
  node->FParent = this;
  node->FPrevious = FLast;
  (FLast == nullptr ? FFirst : FLast->FNext) = node;
  return FLast = node;
}

TXmlNode* TXmlNode::Add(std::u16string_view Name, std::u16string_view Text) {
  const std::u16string_view name = FDocument->Keep(Name), text = FDocument->Keep(Text);
  TXmlNode* node = AddNode(xnElement, name, {});
  if (!text.empty()) node->AddNode(xnText, {}, text);
  return node;
}

TXmlNode* TXmlNode::AddText(std::u16string_view Value) { return AddNode(xnText, {}, FDocument->Keep(Value)); }
TXmlNode* TXmlNode::AddCData(std::u16string_view Value) { return AddNode(xnCData, {}, FDocument->Keep(Value)); }
TXmlNode* TXmlNode::AddComment(std::u16string_view Value) { return AddNode(xnComment, {}, FDocument->Keep(Value)); }
TXmlNode* TXmlNode::AddInstruction(std::u16string_view Name, std::u16string_view Value) {
  return AddNode(xnInstruction, FDocument->Keep(Name), FDocument->Keep(Value));
}

// A node that is copied into itself ends with what it held before.
TXmlNode* TXmlNode::AddCopy(const TXmlNode& Node) {
  const auto copyOne = [&](TXmlNode& parent, const TXmlNode& from) {
    TXmlNode* to = parent.AddNode(from.FKind, FDocument->Keep(from.FName), FDocument->Keep(from.FValue));
    TXmlAttr** place = &to->FFirstAttr;
    for (const TXmlAttr* attr = from.FFirstAttr; attr != nullptr; attr = attr->FNext, place = &(*place)->FNext) {
      *place = FDocument->NewAttr(FDocument->Keep(attr->FName), FDocument->Keep(attr->FValue));
    }
    return to;
  };
  TXmlNode* const copy = copyOne(*this, Node);
  TXmlNode* to = copy;
  for (const TXmlNode* from = &Node;;) {
    if (from->FFirst != nullptr && from->FFirst != copy) {
      from = from->FFirst;
      to = copyOne(*to, *from);
      continue;
    }
    while (from != &Node && (from->FNext == nullptr || from->FNext == copy)) {
      from = from->FParent;
      to = to->FParent;
    }
    if (from == &Node) return copy;
    from = from->FNext;
    to = copyOne(*to->FParent, *from);
  }
}

void TXmlNode::Delete(TXmlNode* Child) noexcept {
  (Child->FPrevious == nullptr ? FFirst : Child->FPrevious->FNext) = Child->FNext;
  (Child->FNext == nullptr ? FLast : Child->FNext->FPrevious) = Child->FPrevious;
  Child->FParent = Child->FNext = Child->FPrevious = nullptr;
}

void TXmlNode::Clear() noexcept { FFirst = FLast = nullptr; }

}  // namespace vx
