#include "objects/uVxObjects/Heads.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx {

namespace {

using THeadsCache = std::unordered_map<const TVxClass*, TDataHeads>;

// Not destroyed at the program's end: others may ask later.
THeadsCache& GetCache(bool Hierarchy) {
  static THeadsCache* const caches = new THeadsCache[2];
  return caches[Hierarchy];
}

// The place of the field of that name, else of the marker of that number; -1 for none.
int FindField(const TDataHeads& Heads, std::u16string_view Name) {
  auto place = [&](auto matches) {
    auto found = std::find_if(Heads.begin(), Heads.end(), matches);
    return found == Heads.end() ? -1 : static_cast<int>(found - Heads.begin());
  };
  const int field = place([&](const TDataHeadRecord& head) { return head.name == Name; });
  if (field >= 0) return field;
  return place([&](const TDataHeadRecord& head) {
    return !head.name.empty() && head.name[0] == u'-' && head.name.view().substr(1) == Name;
  });
}

bool IsIndex(const String& Element) { return !Element.empty() && Element[0] == u'['; }

}  // namespace

TDataHeadRecordList::TDataHeadRecordList(String Name, String Type, const TVxClass* Class) {
  Add(std::move(Name), std::move(Type), Class);
}

void TDataHeadRecordList::Add(String Name, String Type, const TVxClass* Class) {
  FList.emplace_back(std::move(Name), std::move(Type), Class);
}

void TDataHeadRecordList::AddRange(TDataHeads List) {
  FList.insert(FList.end(), std::make_move_iterator(List.begin()), std::make_move_iterator(List.end()));
}

const TDataHeads& GetDataHeads(const TVxClass& Class, bool Hierarchy) {
  THeadsCache& cache = GetCache(Hierarchy);
  if (auto known = cache.find(&Class); known != cache.end()) return known->second;
  // The class may have asked for its description meanwhile: then the one entered first stays.
  TDataHeads heads = Class.DataHeads(Hierarchy);
  return cache.try_emplace(&Class, std::move(heads)).first->second;
}

void ClearDataheads() noexcept {
  GetCache(false).clear();
  GetCache(true).clear();
}

void GetSearchString(const String& Path, String& Tail, String& Head) {
  const int bar = Pos(u"|", Path);
  String tail = bar > 0 ? Path.Slice(bar) : String();
  Head = bar > 0 ? Path.Slice(0, bar - 1) : Path;
  Tail = std::move(tail);
}

String getEntryInfo(const TVxClass* Class, const String& Call) {
  String result = u"vftString";
  if (!Class) return result;
  const TDataHeads* heads = &GetDataHeads(*Class, true);
  String rest = Call, element;
  while (!rest.empty()) {
    GetSearchString(rest, rest, element);
    if (IsIndex(element)) GetSearchString(rest, rest, element);
    const int field = FindField(*heads, element);
    if (field < 0) continue;
    const TDataHeadRecord& head = (*heads)[static_cast<size_t>(field)];
    result = head.typ;
    if (!rest.empty() && head.classtype) heads = &GetDataHeads(*head.classtype, true);
  }
  return result;
}

int TValueOfRecord::GetValueOfPos(String& Tail) const {
  String element;
  GetSearchString(aCall, Tail, element);
  return aClass ? FindField(GetDataHeads(*aClass, false), element) : -1;
}

int TValueOfRecord::GetListValueOfPos(String& Tail, int& ListPos) const {
  String index, rest;
  GetSearchString(aCall, rest, index);
  const bool isIndex = IsIndex(index) && index[index.size() - 1] == u']';
  ListPos = isIndex ? StrToIntDef(index.Slice(1, index.size() - 2), 0) : 0;
  return TValueOfRecord(DT, rest, aValue, aClass).GetValueOfPos(Tail);
}

}  // namespace vx
