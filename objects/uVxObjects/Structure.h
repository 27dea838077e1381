// The tree of all that can be reached from a class, as a selection of fields shows it.
#pragma once

#include <span>

#include "objects/uVxClasses/TVxStringList.h"
#include "objects/uVxObjects/TVxObject.h"

namespace vx {

// A leaf of the tree: one field.
class TVxParserEntryObject : public TVxClassed<TVxParserEntryObject, TVxObject, u"TVxParserEntryObject"> {
 public:
  TVxParserEntryObject() = default;
  TVxParserEntryObject(const TVxClass* ParentClass, String Name, String Type, const TVxClass* OwnType = nullptr)
      : iName(std::move(Name)), iOwnType(OwnType), iParentClass(ParentClass), iTyp(std::move(Type)) {}

  const String& GetName() const noexcept { return iName; }
  void SetName(String Value) noexcept { iName = std::move(Value); }
  // The class of the linked object; nullptr for none.
  const TVxClass* GetOwnType() const noexcept { return iOwnType; }
  void SetOwnType(const TVxClass* Value) noexcept { iOwnType = Value; }
  // The class that has the field.
  const TVxClass* GetParentClass() const noexcept { return iParentClass; }
  void SetParentClass(const TVxClass* Value) noexcept { iParentClass = Value; }
  // The name of a field type or of a class.
  const String& GetTyp() const noexcept { return iTyp; }
  void SetTyp(String Value) noexcept { iTyp = std::move(Value); }

  // Makes Other the same; nullptr is left alone.
  virtual void Assignto(TVxParserEntryObject* Other) const;
  // Other has the same name, type and classes. False for nullptr.
  virtual bool Equals(const TVxParserEntryObject* Other) const;

 private:
  String iName;
  const TVxClass* iOwnType = nullptr;
  const TVxClass* iParentClass = nullptr;
  String iTyp;
};

// An inner node of the tree, which owns what stands below it.
class TVxParserObject : public TVxClassed<TVxParserObject, TVxParserEntryObject, u"TVxParserObject"> {
 public:
  using TChildren = std::span<const std::unique_ptr<TVxParserEntryObject>>;
  using TVxClassed::TVxClassed;

  // The node is only a link to pass through.
  bool GetIsBridge() const noexcept { return iBridgeFlag; }
  void SetIsBridge(bool Value) noexcept { iBridgeFlag = Value; }
  // The node is a link to an element.
  bool GetIsLinkedElement() const noexcept { return iLinkedElement; }
  void SetIsLinkedElement(bool Value) noexcept { iLinkedElement = Value; }
  // The node stands for a list of elements.
  bool GetIsList() const noexcept { return iListFlag; }
  void SetIsList(bool Value) noexcept { iListFlag = Value; }

  // The children in their order, for walking; ends with the next change.
  TChildren GetData() const noexcept { return iData; }
  // Appends a child and returns true; false, with nothing changed, for nullptr.
  bool Add(std::unique_ptr<TVxParserEntryObject> Entry);
  // How many leaves stand below, at any depth.
  int GetSize() const;
  // All leaves with the way to them, such as u"Patient|Name", in their order. Before the name of a node on
  // the way stands u"-<>-" if it is a bridge, then u"|[] " if it is a list. Each has its leaf as object,
  // which stays this node's.
  [[nodiscard]] std::unique_ptr<TVxStringList> GetPropertyList() const;
  // The names of the children.
  [[nodiscard]] std::unique_ptr<TVxStringList> GetShortPropertyList() const;

  // A node gets a copy of all that stands below, instead of its own; a leaf what a leaf has.
  void Assignto(TVxParserEntryObject* Other) const override;
  // Of a node also the flags and the number of children have to be the same, not the children: nodes
  // with other children of the same number are equal, which is wanted.
  bool Equals(const TVxParserEntryObject* Other) const override;

 private:
  void AddProperties(const String& Path, TVxStringList& List) const;

  bool iBridgeFlag = false;
  std::vector<std::unique_ptr<TVxParserEntryObject>> iData;
  bool iLinkedElement = false;
  bool iListFlag = false;
};

// Stands in the structure for what is no object of its own: holds the object that it belongs to.
class TVxVirtualType : public TVxClassed<TVxVirtualType, TVxObject, u"TVxVirtualType"> {
 public:
  // Holder stays the caller's.
  explicit TVxVirtualType(TObject* Holder = nullptr) : iHolder(Holder) {}

 protected:
  TObject* iHolder;
};

// The same for a list.
class TVxVirtualList : public TVxClassed<TVxVirtualList, TVxVirtualType, u"TVxVirtualList"> {
 public:
  using TVxClassed::TVxClassed;
  // The base's tree, marked as a list.
  static std::unique_ptr<TVxParserObject> GetObjectStructur(const TVxClass& Self, TVxStringList& BlockList,
                                                            const String& Name, const TVxClass* OwnType, int Ebene,
                                                            const TVxClass* DeepestClass);
};

}  // namespace vx
