#include "objects/uVxContnrs/TVxIdValueList.h"

#include <algorithm>

#include "core/uVxFunctions/DateParsers.h"
#include "objects/uVxContnrs/detail/MergeById.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"

namespace vx {

using detail::MergeById;

int TVxIdValueList::Add(int Id, int Value) {
  int known = GetCount();
  int place = iIds.Add(Id);
  if (GetCount() == known) {
    iValues.Put(place, Value);
    return place;
  }
  try {
    iValues.Insert(place, Value);
  } catch (...) {
    iIds.Delete(place);
    throw;
  }
  return place;
}

int TVxIdValueList::AddValue(int Id, int Inc) {
  int place = IndexOf(Id);
  if (place < 0) return 0;
  int sum = static_cast<int>(static_cast<uint32_t>(GetVal(place)) + static_cast<uint32_t>(Inc));
  SetVal(place, sum);
  return sum;
}

void TVxIdValueList::AddList(const TVxIdValueList& List) {
  if (&List != this) AddAll(List.iIds.Items(), List.iValues.Items());
}

// Ids ascend, each once.
void TVxIdValueList::AddAll(std::span<const int> Ids, std::span<const int> Values) {
  auto merged = MergeById(iIds.Items(), iValues.Items(), Ids, Values, [](int, int taken) { return taken; });
  int count = static_cast<int>(merged.size());
  iValues.SetCapacity(count);  // first: nothing below fails but the ids, and then all stays
  iIds.AddList(Ids);
  iValues.SetCount(count);
  for (int i = 0; i < count; ++i) iValues.Put(i, merged[static_cast<size_t>(i)]);
}

void TVxIdValueList::Clear() noexcept {
  iIds.Clear();
  iValues.Clear();
}

void TVxIdValueList::ClearValues() {
  for (int i = 0; i < GetCount(); ++i) SetVal(i, 0);
}

int TVxIdValueList::Delete(int Id) {
  int place = IndexOf(Id);
  if (place >= 0) DeleteIndex(place);
  return place;
}

void TVxIdValueList::DeleteIndex(int Index) {
  iIds.Delete(Index);
  iValues.Delete(Index);
}

int TVxIdValueList::Remove(int Id) {
  int value = GetValue(Id);
  Delete(Id);
  return value;
}

bool TVxIdValueList::Find(int Id, int& Value) const {
  int place = IndexOf(Id);
  Value = place < 0 ? 0 : GetVal(place);
  return place >= 0;
}

bool TVxIdValueList::FindValue(int Value, int& Id) const {
  int place = iValues.IndexOf(Value);
  Id = place < 0 ? 0 : GetId(place);
  return place >= 0;
}

int TVxIdValueList::GetValue(int Id) const {
  int value;
  Find(Id, value);
  return value;
}

void TVxIdValueList::SetValue(int Id, int Value) {
  int place = IndexOf(Id);
  if (place >= 0) SetVal(place, Value);
}

const TVxIntegerList& TVxIdValueList::GetList(bool Ids) const noexcept {
  if (Ids) return iIds;
  return iValues;
}

String TVxIdValueList::GetCsv() const {
  TCells lines;
  lines.reserve(static_cast<size_t>(GetCount()));
  for (int i = 0; i < GetCount(); ++i) {
    int value = GetVal(i);
    const String pair[] = {IntToStr(GetId(i)),
                           iValueType == vtDate ? FormatDateTime(u"dd.mm.yyyy", value) : IntToStr(value)};
    lines.push_back(WriteCommatext(pair));
  }
  return WriteCsv(lines);
}

void TVxIdValueList::SetCsv(std::u16string_view Text) {
  std::vector<std::pair<int, int>> pairs;
  for (const String& line : ReadCsv(Text)) {
    TCells cells = ReadCommatext(line);
    if (cells.size() < 2) continue;
    int value = iValueType == vtDate ? static_cast<int>(StrToDateDef(cells[1], 0)) : StrToIntDef(cells[1], 0);
    pairs.emplace_back(StrToIntDef(cells[0], 0), value);
  }
  std::stable_sort(pairs.begin(), pairs.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<int> ids, values;
  for (auto [id, value] : pairs) {
    if (!ids.empty() && ids.back() == id) {
      values.back() = value;
    } else {
      ids.push_back(id);
      values.push_back(value);
    }
  }
  Clear();
  AddAll(ids, values);
}

}  // namespace vx
