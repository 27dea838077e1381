#include "objects/uVxObjects/Registry.h"

#include <atomic>
#include <new>

#include "objects/uVxClasses.h"
#include "platform/Collation.h"
#include "platform/Lazy.h"

namespace vx {

namespace {

// Objects of others may be counted to the very last.
constinit TLazy<TVxClassRegistry, leStays> Registry;
constinit TLazy<TVxClassCounts, leStays> Counts;
std::atomic<bool> IsFreed = false;

TVxClassRegistry& GetRegistry() {
  return Registry.Get([] {
    auto registry = std::make_unique<TVxClassRegistry>();
    for (const TVxClass* known : {&TVxObject::Class(), &TVxDataIdHelper::Class()}) {
      registry->emplace(known->ClassName(), known);
    }
    IsFreed = false;
    return registry;
  });
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
    TVxClassCounts& counts = Counts.Get();
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

const TVxClassCounts& VxObjectCounter() { return Counts.Get(); }

namespace uVxObjects {

void FreeBuffersForLeakPrevention() noexcept {
  Counts.Free();
  Registry.Free();
  IsFreed = true;
}

}  // namespace uVxObjects

}  // namespace vx
