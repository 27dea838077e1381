#include "services/uVxXml/TXmlObject.h"

#include <memory>

namespace vx {

namespace {

template <typename T>
int IndexOfName(const TObjectListOf<T>& List, std::u16string_view Name) noexcept {
  for (int i = 0; i < List.GetCount(); ++i) {
    if (List.Get(i)->GetName() == Name) return i;
  }
  return -1;
}

template <typename T>
T* AddTo(TObjectListOf<T>& List, std::unique_ptr<T> Object) {
  List.Add(Object.get());
  return Object.release();
}

}  // namespace

// Frees the tree from its leaves on, walking down and up again: a call a level would need as deep a stack.
TXmlObject::~TXmlObject() {
  if (!XmlObjects.GetOwnsObjects()) return;
  TXmlObject* current = this;
  for (;;) {
    if (current->XmlObjects.GetCount() > 0) {
      if (TXmlObject* child = current->TakeLastChild()) {
        child->iParent = current;
        current = child;
      }
    } else if (current == this) {
      return;
    } else {
      TXmlObject* parent = current->iParent;
      delete current;
      current = parent;
    }
  }
}

// nullptr, too, for a child that the list does not own.
TXmlObject* TXmlObject::TakeLastChild() {
  const bool owns = XmlObjects.GetOwnsObjects();
  const int last = XmlObjects.GetCount() - 1;
  TXmlObject* child = GetXml(last);
  const TReleaseScope released(XmlObjects);
  XmlObjects.Delete(last);
  return owns ? child : nullptr;
}

TXmlObject* TXmlObject::Add(String Name, String Value) {
  auto child = std::make_unique<TXmlObject>();
  child->SetName(std::move(Name));
  child->SetValue(std::move(Value));
  return AddTo(XmlObjects, std::move(child));
}

TXmlObject* TXmlObject::Add(TXmlObject* Object) {
  return Object == nullptr ? nullptr : AddTo(XmlObjects, std::unique_ptr<TXmlObject>(Object));
}

TXmlAttribute* TXmlObject::AddAttribute(String Name, String Value) {
  return AddTo(Attributes, std::make_unique<TXmlAttribute>(std::move(Name), std::move(Value)));
}

int TXmlObject::IndexOf(std::u16string_view Name) const noexcept { return IndexOfName(XmlObjects, Name); }

int TXmlObject::IndexOfAttribute(std::u16string_view Name) const noexcept { return IndexOfName(Attributes, Name); }

bool TXmlObject::GetValue(std::u16string_view Name, String& Value) const {
  if (const int index = IndexOf(Name); index >= 0) {
    Value = GetXml(index)->GetValue();
  } else if (const int attribute = IndexOfAttribute(Name); attribute >= 0) {
    Value = GetAttribute(attribute)->GetValue();
  } else {
    return false;
  }
  return true;
}

String TXmlObject::GetValue(std::u16string_view Name) const {
  String value;
  GetValue(Name, value);
  return value;
}

}  // namespace vx
