#include "objects/uVxClasses/TVxIdList.h"

#include <algorithm>
#include <typeinfo>

#include "objects/detail/Refusal.h"

namespace vx {

namespace {

constexpr detail::TRefusal Refuse{u"[TVxIdList] : Die Funktion ", u" ist nicht unterstützt."};

}  // namespace

int TVxIdList::GetIndexInternal(int Id) const noexcept {
  if (FItems.empty() || Id <= FItems.front()) return 0;
  if (Id > FItems.back()) return GetCount();
  // The half is chosen by a subscript: of jumps that depend on what is read, every second one would be
  // foretold wrongly, and compilers make jumps of all other forms.
  size_t starts[2] = {0, 0};
  for (size_t count = FItems.size(); count > 1;) {
    const size_t half = count / 2;
    starts[1] = starts[0] + half;
    starts[0] = starts[FItems[starts[1] - 1] < Id];
    count -= half;
  }
  return static_cast<int>(starts[0]);
}

int TVxIdList::Add(int Id) {
  const int place = GetIndexInternal(Id);
  if (place == GetCount() || Get(place) != Id) TVxIntegerList::Insert(place, Id);
  return place;
}

void TVxIdList::AddAll(std::vector<int> Values) {
  // A derived list may have an Add of its own.
  if (typeid(*this) != typeid(TVxIdList)) return TVxIntegerList::AddAll(std::move(Values));
  if (!std::is_sorted(Values.begin(), Values.end())) std::sort(Values.begin(), Values.end());
  Values.erase(std::unique(Values.begin(), Values.end()), Values.end());
  const bool appends = FItems.empty() || Values.empty() || FItems.back() < Values.front();
  if (Values.size() > INT32_MAX - FItems.size() || (!appends && !std::is_sorted(FItems.begin(), FItems.end()))) {
    TVxIntegerList::AddAll(std::move(Values));
  } else if (appends) {
    FItems.insert(FItems.end(), Values.begin(), Values.end());
  } else {
    std::vector<int> items;
    items.reserve(FItems.size() + Values.size());
    std::set_union(FItems.begin(), FItems.end(), Values.begin(), Values.end(), std::back_inserter(items));
    FItems.swap(items);
  }
}

int TVxIdList::IndexOf(int Id) const {
  const int place = GetIndexInternal(Id);
  return place < GetCount() && begin()[place] == Id ? place : -1;
}

void TVxIdList::Intersect(const TVxIntegerList& List) {
  if (&List == this) return;
  TVxIdList copy;
  const auto* ids = dynamic_cast<const TVxIdList*>(&List);
  if (!ids) {
    copy.AddList(List);
    ids = &copy;
  }
  std::erase_if(FItems, [&](int id) { return !ids->IsIn(id); });
}

bool TVxIdList::Intersects(const TVxIdList& IdList) const {
  if (GetCount() > IdList.GetCount()) return IdList.Intersects(*this);
  return std::any_of(begin(), end(), [&](int id) { return IdList.IsIn(id); });
}

bool TVxIdList::Intersects(std::u16string_view Commatext) const {
  if (FItems.empty() || Commatext.empty()) return false;
  TVxIdList other;
  other.SetCommatext(Commatext);
  return Intersects(other);
}

void TVxIdList::Exchange(int, int) { Refuse(u"Exchange"); }
void TVxIdList::Insert(int, int) { Refuse(u"Insert"); }
void TVxIdList::Insert(int, void*) { Refuse(u"Insert"); }
void TVxIdList::Move(int, int) { Refuse(u"Move"); }

}  // namespace vx
