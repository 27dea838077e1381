#include "objects/uVxContnrs/TVxIdObjectList.h"

#include "objects/uVxContnrs/detail/MergeById.h"

namespace vx {

using detail::MergeById;

int TVxIdObjectList::Add(int Id, TObject* Object) {
  int known = GetCount();
  int place = iIds.Add(Id);
  if (GetCount() == known) {
    iObjects.Put(place, Object);
    return place;
  }
  try {
    iObjects.Insert(place, Object);
  } catch (...) {
    iIds.Delete(place);
    throw;
  }
  return place;
}

void TVxIdObjectList::AddList(const TVxIdObjectList& List) {
  if (&List == this) return;
  std::vector<TObject*> replaced;
  auto take = [&](TObject* old, TObject* taken) {
    if (old != taken) replaced.push_back(old);
    return taken;
  };
  auto merged = MergeById(iIds.Items(), iObjects.Items(), List.iIds.Items(), List.iObjects.Items(), take);
  int count = static_cast<int>(merged.size());
  iObjects.SetCapacity(count);  // first: nothing below fails but the ids, and then all stays
  iIds.AddList(List.iIds);
  bool owns = GetOwnsObjects();
  SetOwnsObjects(false);
  iObjects.SetCount(count);
  for (int i = 0; i < count; ++i) iObjects.Put(i, merged[static_cast<size_t>(i)]);
  SetOwnsObjects(owns);
  for (TObject* object : replaced) {
    if (owns) delete object;
  }
}

void TVxIdObjectList::Clear() {
  while (GetCount() > 0) DeleteIndex(GetCount() - 1);
  iIds.Clear();
  iObjects.Clear();
}

void TVxIdObjectList::ClearObjects() {
  for (int i = 0; i < GetCount(); ++i) SetItem(i, nullptr);
}

void TVxIdObjectList::DeleteIndex(int Index) {
  iIds.Delete(Index);
  iObjects.Delete(Index);
}

int TVxIdObjectList::Delete(int Id) {
  int place = IndexOf(Id);
  if (place >= 0) DeleteIndex(place);
  return place;
}

TObject* TVxIdObjectList::Extract(int Id) {
  TObject* object;
  if (!Find(Id, object)) return nullptr;
  bool owns = GetOwnsObjects();
  SetOwnsObjects(false);
  Delete(Id);
  SetOwnsObjects(owns);
  return object;
}

int TVxIdObjectList::Remove(const TObject* Object) {
  int place = iObjects.IndexOf(Object);
  if (place >= 0) DeleteIndex(place);
  return place;
}

bool TVxIdObjectList::Find(int Id, TObject*& Object) const {
  int place = IndexOf(Id);
  Object = place < 0 ? nullptr : GetItem(place);
  return place >= 0;
}

}  // namespace vx
