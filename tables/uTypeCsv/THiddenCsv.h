// The rows that a view hides.
#pragma once

#include <vector>

#include "objects/uVxClasses/TVxStringList.h"
#include "objects/uVxGenerics/GSortList.h"

namespace vx {

// Kept by their addresses, so that whether a row is among them costs one search by halving. A row that is deleted,
// and each at the end of the list, is freed if the list owns; one that is extracted is not.
class THiddenCsv : public GSortList<TVxStringList*> {
 public:
  THiddenCsv() = default;
  ~THiddenCsv() override { Clear(); }
  String ClassName() const override { return u"THiddenCsv"; }
  bool GetOwnsObjects() const noexcept { return iOwnsObjects; }
  void SetOwnsObjects(bool Value) noexcept { iOwnsObjects = Value; }

  // Makes Rows, each of them once, the rows of the list, in the time that sorting them takes. Nothing is freed and
  // nobody notified: the caller has taken care of the ones before.
  void TakeAll(std::vector<TVxStringList*> Rows);

 protected:
  void Notify(TVxStringList* const& Item, TCollectionNotification Action) override {
    if (Action == cnRemoved && iOwnsObjects) delete Item;
  }

  bool iOwnsObjects = true;
};

}  // namespace vx
