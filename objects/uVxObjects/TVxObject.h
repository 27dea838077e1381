// The base of self-describing objects.
#pragma once

#include <algorithm>
#include <cstddef>

#include "objects/uVxObjects/TVxClass.h"
#include "platform/TObject.h"
#include "platform/Types.h"

namespace vx {

// Objects of classes that describe themselves. A class joins in by one line, which names the class, its
// parent and the class's name as text:
//
//   class TPatient : public vx::TVxClassed<TPatient, vx::TVxDataIdLighttext, u"TPatient"> { ... };
//
// It has then Class() and ClassType(). What it says about itself it says in static members that hide the
// ancestor's; each takes the class that was asked as Self, which may be a descendant:
//
//   static vx::String ClassCaption(const vx::TVxClass& Self, bool Plural, int Fall);
class TVxObject : public TObject {
 public:
  TVxObject();
  TVxObject(const TVxObject& Other);
  TVxObject& operator=(const TVxObject&) noexcept = default;
  ~TVxObject() override;

  static const TVxClass& Class();
  virtual const TVxClass& ClassType() const { return Class(); }
  String ClassName() const final { return ClassType().ClassName(); }

  // The description of a class: a marker, with Hierarchy the fields of the ancestors, then its own
  // fields. None here. Callers ask GetDataHeads, which keeps the answer.
  static TDataHeads DataHeads(const TVxClass& Self, bool Hierarchy);
  // u"object of " and the class's name.
  virtual String Caption() const;
  // The German noun: for Fall 0 alone, for 1 to 4 with the article of nominative, genitive, dative or
  // accusative: u"den Objekten" for plural and 3. Other values of Fall count as 0.
  static String ClassCaption(const TVxClass& Self, bool Plural, int Fall);
  // Does nothing here.
  static void InitOptionalized(const TVxClass& Self, TVxObject* Item);
  // 0 and empty here.
  static int ProcessId(const TVxClass& Self);
  virtual String ProcessData() const;
  // Below 0, 0 or above 0; here by the addresses, an order without meaning that does not change.
  virtual int Compare(const TVxObject& Other) const;
  // A new object of the same class; nullptr where the class has none to give.
  [[nodiscard]] virtual std::unique_ptr<TVxObject> GetNewInstance() const;
  // The tree of all that can be reached from a class. BlockList (best sorted) takes what was visited; what it
  // has already gives the empty node u"LeerOBJ" of type u"Leer". Name is the path to here with U+00FF between
  // its elements, OwnType the class as which this node is reached, DeepestClass the first ancestor that does
  // not count, or nullptr. Ebene is how much deeper the walk may go by links that lead back: to OwnType, to an
  // ancestor, or under a name that stands in Name. A node not opened has the one entry u"+".
  static std::unique_ptr<TVxParserObject> GetObjectStructur(const TVxClass& Self, TVxStringList& BlockList,
                                                            const String& Name, const TVxClass* OwnType, int Ebene,
                                                            const TVxClass* DeepestClass);
  // Whether the class is under rights management: false here, with an empty set, the class's name and
  // no comment.
  static bool Permission(const TVxClass& Self, TVXPermissionSet& SubPermission, String& Desc, String& Comment);
  // Reads the value that the call path Name leads to at the date DT, or writes Value to it unless
  // Reading. Empty here.
  virtual String ValueOf(TDateTime DT, const String& Name, const String& Value, bool Reading);
  // Caption.
  String ToString() const { return Caption(); }
};

// While true, VxObjectCounter counts living objects by class. Objects that were made while it was false
// are not known to it: counts may be too low, and even below 0. Not for use beside other threads.
inline bool DoCountObjects = false;
// Adds Change to the count of the living objects of that class. Never raises: without memory for a new
// entry the change is lost.
void CountObject(std::u16string_view ClassName, int Change) noexcept;
// The same; ClassOf is a class's static member Class.
void CountObject(const TVxClass& (*ClassOf)(), int Change) noexcept;

// A text as an argument of a template.
template <size_t kSize>
struct TClassNameText {
  consteval TClassNameText(const char16_t (&Text)[kSize]) { std::copy_n(Text, kSize, Units); }
  char16_t Units[kSize];
};

// Makes TSelf a class with a descriptor, below TBase.
template <typename TSelf, typename TBase, TClassNameText kName>
class TVxClassed : public TBase {
 public:
  using TBase::TBase;
  TVxClassed() = default;

  static const TVxClass& Class() {
    static const TVxClassOf<TSelf>& descriptor = *new TVxClassOf<TSelf>(kName.Units, &TBase::Class());
    return descriptor;
  }
  const TVxClass& ClassType() const override { return Class(); }

 private:
  // The base has counted an object of its own class.
  struct TCounter {
    TCounter() noexcept { Move(1); }
    TCounter(const TCounter&) noexcept { Move(1); }
    TCounter& operator=(const TCounter&) noexcept { return *this; }
    ~TCounter() { Move(-1); }
    static void Move(int Change) noexcept {
      if (!DoCountObjects) return;
      CountObject(&TBase::Class, -Change);
      CountObject(&TVxClassed::Class, Change);
    }
  };
  [[no_unique_address]] TCounter FCounter;
};

template <typename T>
std::unique_ptr<TVxParserObject> TVxClassOf<T>::GetObjectStructur(TVxStringList& BlockList, const String& Name,
                                                                  const TVxClass* OwnType, int Ebene,
                                                                  const TVxClass* DeepestClass) const {
  return T::GetObjectStructur(*this, BlockList, Name, OwnType, Ebene, DeepestClass);
}

}  // namespace vx
