#include "objects/uVxObjects/Registry.h"

#include <new>

#include "objects/uVxClasses.h"
#include "objects/uVxObjects/TVxDataIdList.h"
#include "platform/Collation.h"

namespace vx {

namespace {

// Not destroyed at the program's end: objects of others may be counted later.
TVxClassRegistry* Registry = nullptr;
TVxClassCounts* Counts = nullptr;
bool IsFreed = false;

TVxClassRegistry& GetRegistry() {
  if (!Registry) {
    auto registry = std::make_unique<TVxClassRegistry>();
    for (const TVxClass* known : {&TVxObject::Class(), &TVxDataIdHelper::Class()}) {
      registry->emplace(known->ClassName(), known);
    }
    Registry = registry.release();
    IsFreed = false;
  }
  return *Registry;
}

TVxClassCounts& GetCounts() {
  if (!Counts) Counts = new TVxClassCounts();
  return *Counts;
}

String TestClass(const String& Name) {
  String error;
  try {
    std::unique_ptr<TVxObject> object = CreateVxObject(Name);
    if (object && object->ClassName() != Name) error = u" CLASSTYPE";
  } catch (...) {
    error = u" CREATE";
  }
  return error.empty() ? Name + u" OK" : Concat({Name, u" ERROR", error});
}

}  // namespace

bool TClassNameOrder::operator()(std::u16string_view A, std::u16string_view B) const noexcept {
  return AnsiCompareStr(A, B) < 0;
}

void RegisterVxObject(const TVxClass& Class) { GetRegistry().emplace(Class.ClassName(), &Class); }

const TVxClass* GetVxObjectClass(std::u16string_view Name) {
  const TVxClassRegistry& registry = GetRegistry();
  auto entry = registry.find(Name);
  return entry == registry.end() ? nullptr : entry->second;
}

std::unique_ptr<TVxObject> CreateVxObject(std::u16string_view Name) {
  const TVxClass* found = GetVxObjectClass(Name);
  return found ? found->NewInstance() : nullptr;
}

const TVxClassRegistry& VxObjectClasses() { return GetRegistry(); }

String TestVxObjects(std::u16string_view Filename) {
  if (IsFreed) return {};
  std::vector<String> names;  // what is made may register further classes
  for (const auto& entry : GetRegistry()) names.push_back(entry.first);
  TVxStringList lines;
  for (const String& name : names) lines.Add(TestClass(name));
  if (!Filename.empty()) lines.SaveToFile(Filename);
  return lines.GetText();
}

void CountObject(std::u16string_view ClassName, int Change) noexcept {
  try {
    TVxClassCounts& counts = GetCounts();
    auto entry = counts.find(ClassName);
    if (entry == counts.end()) entry = counts.emplace(ClassName, 0).first;
    entry->second += Change;
  } catch (const std::bad_alloc&) {
    // The count is then wrong, as it is for objects made while counting was off.
  }
}

void CountObject(const TVxClass& (*ClassOf)(), int Change) noexcept {
  try {
    CountObject(ClassOf().ClassName().view(), Change);
  } catch (const std::bad_alloc&) {
  }
}

const TVxClassCounts& VxObjectCounter() { return GetCounts(); }

namespace uVxObjects {

void FreeBuffersForLeakPrevention() noexcept {
  delete std::exchange(Counts, nullptr);
  delete std::exchange(Registry, nullptr);
  TVxDataIdList::FreeProbe();
  IsFreed = true;
}

}  // namespace uVxObjects

}  // namespace vx
