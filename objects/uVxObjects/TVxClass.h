// Classes as values: what can be asked of a class without an object of it.
#pragma once

#include <memory>
#include <type_traits>
#include <vector>

#include "core/uVxPermissionSet.h"
#include "platform/String.h"

namespace vx {

class TVxClass;
class TVxData;
class TVxObject;
class TVxParserObject;
class TVxStringList;

}  // namespace vx

// Descriptors hand such objects on where their classes are not known yet, since these have descriptors too.
template <>
struct std::default_delete<vx::TVxData> {
  void operator()(vx::TVxData* Data) const noexcept;
};
template <>
struct std::default_delete<vx::TVxParserObject> {
  void operator()(vx::TVxParserObject* Node) const noexcept;
};

namespace vx {

// One field of a class's description.
struct TDataHeadRecord {
  TDataHeadRecord(String Name, String Type, const TVxClass* Class = nullptr)
      : name(std::move(Name)), typ(std::move(Type)), classtype(Class) {}

  String name;                // of a field, or the class's marker: "-" and a number such as u"-1201"
  String typ;                 // of a field such as u"vftDate"; of a marker or a linked object its class's name
  const TVxClass* classtype;  // of a marker or a linked object; nullptr for a plain field
};
using TDataHeads = std::vector<TDataHeadRecord>;

// The descriptor of a class. There is one for each class, reached by its static member Class() and by
// ClassType() of its objects; it lives as long as the program, so addresses may be kept and compared.
// Its virtual operations are the class's own static members of the same name, or the nearest ancestor's.
class TVxClass {
 public:
  TVxClass(const TVxClass&) = delete;
  TVxClass& operator=(const TVxClass&) = delete;

  // As written in the code: u"TPatient".
  const String& ClassName() const noexcept { return FName; }
  // nullptr for TVxObject.
  const TVxClass* ClassParent() const noexcept { return FParent; }
  // The class is Other or one that inherits from it.
  bool InheritsFrom(const TVxClass& Other) const noexcept;

  // A new object of the class; nullptr for an abstract class and one that needs arguments.
  [[nodiscard]] virtual std::unique_ptr<TVxObject> NewInstance() const = 0;
  // The fields of the class as it describes them, made anew. See TVxObject::DataHeads.
  virtual TDataHeads DataHeads(bool Hierarchy) const = 0;
  virtual String ClassCaption(bool Plural, int Fall) const = 0;
  virtual void InitOptionalized(TVxObject* Item) const = 0;
  virtual int ProcessId() const = 0;
  virtual std::unique_ptr<TVxParserObject> GetObjectStructur(TVxStringList& BlockList, const String& Name,
                                                             const TVxClass* OwnType, int Ebene,
                                                             const TVxClass* DeepestClass) const = 0;
  virtual bool Permission(TVXPermissionSet& SubPermission, String& Desc, String& Comment) const = 0;
  // Of TVxData and the classes below it; nullptr for all others.
  [[nodiscard]] virtual std::unique_ptr<TVxData> Factory(const String& Serialize) const = 0;

 protected:
  static std::unique_ptr<TVxData> NoData() noexcept;
  TVxClass(String Name, const TVxClass* Parent) : FName(std::move(Name)), FParent(Parent) {}
  ~TVxClass() = default;

 private:
  String FName;
  const TVxClass* FParent;
};

// The descriptor of T, which hands every operation on to T's static member.
template <typename T>
class TVxClassOf final : public TVxClass {
 public:
  TVxClassOf(String Name, const TVxClass* Parent) : TVxClass(std::move(Name), Parent) {}

  [[nodiscard]] std::unique_ptr<TVxObject> NewInstance() const override {
    if constexpr (!std::is_abstract_v<T> && std::is_default_constructible_v<T>) {
      return std::make_unique<T>();
    } else {
      return nullptr;
    }
  }
  TDataHeads DataHeads(bool Hierarchy) const override { return T::DataHeads(*this, Hierarchy); }
  String ClassCaption(bool Plural, int Fall) const override { return T::ClassCaption(*this, Plural, Fall); }
  void InitOptionalized(TVxObject* Item) const override { T::InitOptionalized(*this, Item); }
  int ProcessId() const override { return T::ProcessId(*this); }
  std::unique_ptr<TVxParserObject> GetObjectStructur(TVxStringList& BlockList, const String& Name,
                                                     const TVxClass* OwnType, int Ebene,
                                                     const TVxClass* DeepestClass) const override;
  bool Permission(TVXPermissionSet& SubPermission, String& Desc, String& Comment) const override {
    return T::Permission(*this, SubPermission, Desc, Comment);
  }
  [[nodiscard]] std::unique_ptr<TVxData> Factory(const String& Serialize) const override {
    if constexpr (std::is_base_of_v<TVxData, T>) {
      return T::Factory(*this, Serialize);
    } else {
      return NoData();
    }
  }
};

}  // namespace vx
