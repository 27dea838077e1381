// Classes by their names, and how many objects of each are alive.
#pragma once

#include <map>

#include "objects/uVxObjects/TVxData.h"

namespace vx {

// The order of names in listings: German, with regard to case, so that a name is found by exactly itself.
struct TClassNameOrder {
  using is_transparent = void;
  bool operator()(std::u16string_view A, std::u16string_view B) const noexcept;
};
using TVxClassRegistry = std::map<String, const TVxClass*, TClassNameOrder>;
using TVxClassCounts = std::map<String, int, TClassNameOrder>;

// Makes a class known by its name. Of classes with the same name the first stays. TVxObject and
// TVxDataIdHelper are known from the start. To be done at the program's start, by one thread.
void RegisterVxObject(const TVxClass& Class);
// The class of exactly that name; nullptr for one that is not registered.
const TVxClass* GetVxObjectClass(std::u16string_view Name);
// A new object of the class of exactly that name; nullptr for one that is not registered and one that
// has no object to give.
[[nodiscard]] std::unique_ptr<TVxObject> CreateVxObject(std::u16string_view Name);
// All registered classes, for listing; lives until FreeBuffersForLeakPrevention.
const TVxClassRegistry& VxObjectClasses();

// Makes and frees an object of every registered class and tells of each in a line: u"TVxObject OK", or
// u"TPatient ERROR" followed by u" CREATE" where making one raised and u" CLASSTYPE" where the object
// is of another name. A class without an object to give is in order. The lines are joined by \r\n and go,
// unless Filename is empty, also to that file; EStreamError where it can't be written. Empty between
// FreeBuffersForLeakPrevention and the registry's next use.
String TestVxObjects(std::u16string_view Filename);

// The number of living objects by class as far as DoCountObjects was on, for listing. Classes on the way
// from TVxObject to that of an object have an entry too. Lives until FreeBuffersForLeakPrevention.
const TVxClassCounts& VxObjectCounter();

namespace uVxObjects {

// Frees the registry, the counts and what lists of ids share. The next use begins with the classes known
// from the start and with no counts. Not for use beside other threads that use the unit.
void FreeBuffersForLeakPrevention() noexcept;

}  // namespace uVxObjects

}  // namespace vx
