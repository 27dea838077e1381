// Objects of classes that describe themselves.
//
//   TVxClass                       the descriptor of a class: its name, its parent, what it says of itself
//   TVxObject                      the base of such objects; TVxClassed makes a class one of them
//   TVxData, TVxDataId             objects with a text form; those with a number besides
//   TVxDataIdHelper                the smallest of these: the number is the text
//   TDataHeadRecord(List), GetDataHeads, getEntryInfo    which fields a class has
//   TValueOfRecord, GetSearchString    call paths such as u"Besuche|[2]|Datum"
//   TVxParserObject, TVxParserEntryObject    the tree of all that can be reached from a class
//   TVxVirtualType, TVxVirtualList    what stands in that tree without being an object of its own
//   RegisterVxObject, CreateVxObject, VxObjectClasses    classes by their names
//   DoCountObjects, VxObjectCounter    how many objects of each class are alive
//   TVxObjects, TVxObjectList      lists of objects that warn of a bad index and carry on
//   TVxObjectListU, TVxObjectListSortU, TVxObjectListSortD    without duplicates; sorted without and with them
//   TVxDataIdList                  sorted by id
//
// Example:
//   class TVisit : public vx::TVxClassed<TVisit, vx::TVxObject, u"TVisit"> {
//    public:
//     static vx::TDataHeads DataHeads(const vx::TVxClass& Self, bool Hierarchy) {
//       vx::TDataHeadRecordList heads(u"-2001", u"TVisit", &Class());
//       if (Hierarchy) heads.AddRange(TVxObject::DataHeads(Self, true));
//       heads.Add(u"Datum", u"vftDate");
//       return heads.getDHRecords();
//     }
//   };
//   vx::RegisterVxObject(TVisit::Class());
//   std::unique_ptr<vx::TVxObject> visit = vx::CreateVxObject(u"TVisit");
//   visit->Caption();                                  // u"object of TVisit"
//   vx::getEntryInfo(&TVisit::Class(), u"Datum");      // u"vftDate"
//   vx::TVxStringList visited;
//   auto tree = TVisit::Class().GetObjectStructur(visited, u"", nullptr, 1, nullptr);
//
// Pitfalls:
//   - A class that inherits without TVxClassed goes for its parent: its objects have the parent's class,
//     and new instances are the parent's.
//   - Static members are asked through the descriptor (visit->ClassType().ClassCaption(...)), so that those
//     of the object's own class answer.
//   - Registry, descriptions and counts take no locks: they belong to one thread.
//   - Descriptions are kept: what DataHeads says later is not noticed before ClearDataheads.
#pragma once

#include "objects/uVxObjects/Heads.h"
#include "objects/uVxObjects/Registry.h"
#include "objects/uVxObjects/Structure.h"
#include "objects/uVxObjects/TVxClass.h"
#include "objects/uVxObjects/TVxData.h"
#include "objects/uVxObjects/TVxDataIdList.h"
#include "objects/uVxObjects/TVxObject.h"
#include "objects/uVxObjects/TVxObjectList.h"
#include "objects/uVxObjects/TVxObjectListSort.h"
#include "objects/uVxObjects/TVxObjects.h"
