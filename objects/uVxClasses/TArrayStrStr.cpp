#include "objects/uVxClasses/TArrayStrStr.h"

#include <algorithm>

namespace vx {

void TArrayStrStr::Add(const String& Key, const String& Value, bool Overwrite) {
  int count = iKeyList.GetCount();
  int index = iKeyList.Add(Key);
  if (iKeyList.GetCount() > count) {
    valueList.InsertItem(index, Value, nullptr);
  } else if (Overwrite) {
    valueList.Put(index, Value);
  }
}

String TArrayStrStr::GetItems(std::u16string_view Key) const {
  int index = IndexOfKey(Key);
  return index >= 0 ? valueList.Get(index) : String();
}

void TArrayStrStr::SetItems(std::u16string_view Key, const String& Value) {
  int index = IndexOfKey(Key);
  if (index >= 0) valueList.Put(index, Value);
}

void TArrayStrStr::Delete(std::u16string_view Key) {
  int index = IndexOfKey(Key);
  if (index >= 0) DeleteIndex(index);
}

void TArrayStrStr::DeleteIndex(int Index) {
  iKeyList.Delete(Index);
  valueList.Delete(Index);
}

void TArrayStrStr::Clear() {
  iKeyList.Clear();
  valueList.Clear();
}

void TArrayStrStr::SetCaseSensitive(bool Value) {
  TVxStringIndexOptions options = iKeyList.GetOptions();
  iKeyList.SetOptions(Value ? options.Exclude(vxioNotCaseSensitive) : options.Include(vxioNotCaseSensitive));
}

String TArrayStrStr::GetSerialize() const {
  std::span<const String> keys = iKeyList.GetCsl().Items();
  std::span<const String> values = valueList.Items();
  TCells cells;
  cells.reserve(2 * keys.size());
  for (size_t i = 0; i < std::min(keys.size(), values.size()); ++i) {
    cells.push_back(keys[i]);
    cells.push_back(values[i]);
  }
  return WriteLighttext(cells);
}

void TArrayStrStr::SetSerialize(const String& Value) {
  TCells cells = ReadLighttext(Value);
  size_t count = cells.size() / 2;
  TVxStringList keys;
  for (size_t i = 0; i < count; ++i) keys.Add(cells[2 * i]);
  Clear();
  iKeyList.AddStrings(keys);
  // All keys are there now: each value goes to its place, with no moving of those behind it.
  TCells values(static_cast<size_t>(iKeyList.GetCount()));
  for (size_t i = 0; i < count; ++i) {
    String key = iKeyList.ModifyString(cells[2 * i]);
    values[static_cast<size_t>(iKeyList.IndexSort(key))] = cells[2 * i + 1];
  }
  valueList.TakeCells(values);
}

}  // namespace vx
