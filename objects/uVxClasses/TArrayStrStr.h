// A map from text to text.
//
// Example:
//   vx::TArrayStrStr colors;
//   colors.Add(u"Bonn", u"red", false);
//   colors.GetItems(u"Bonn");                 // u"red"; empty for a key that is not there
//   vx::String text = colors.GetSerialize();  // u"Bonn|red"
#pragma once

#include "objects/uVxClasses/TVxStringIndex.h"
#include "objects/uVxObjects/TVxData.h"

namespace vx {

// The keys are in order, and the value at an index belongs to the key there. Indexes count from 0; one
// outside raises EStringListError. Keys count case unless told.
class TArrayStrStr : public TVxClassed<TArrayStrStr, TVxData, u"TArrayStrStr"> {
 public:
  // Puts a pair in. The value of a key that is there changes with Overwrite only.
  void Add(const String& Key, const String& Value, bool Overwrite);
  // The value of a key; empty if it is not there. Setting changes nothing then.
  String GetItems(std::u16string_view Key) const;
  void SetItems(std::u16string_view Key, const String& Value);
  String GetKeys(int Index) const { return iKeyList.GetItems(Index); }
  String GetValues(int Index) const { return valueList.Get(Index); }
  void SetValues(int Index, const String& Value) { valueList.Put(Index, Value); }
  int GetCount() const { return iKeyList.GetCount(); }
  // -1 if it is not there. Of a value the first index, found without regard to case.
  int IndexOfKey(std::u16string_view Key) const { return iKeyList.IndexOf(Key); }
  int IndexOfValue(std::u16string_view Value) const { return valueList.IndexOf(Value); }
  bool IsKeyIn(std::u16string_view Key) const { return IndexOfKey(Key) >= 0; }
  bool IsValueIn(std::u16string_view Value) const { return IndexOfValue(Value) >= 0; }
  // Takes a pair out; a key that is not there changes nothing.
  void Delete(std::u16string_view Key);
  void DeleteIndex(int Index);
  void Clear();

  // To be set while the map is empty.
  bool GetCaseSensitive() const noexcept { return !iKeyList.GetOptions().Has(vxioNotCaseSensitive); }
  void SetCaseSensitive(bool Value);
  // The keys, which stay the map's. What changes their number takes keys and values apart.
  TVxStringIndex& GetKeyList() noexcept { return iKeyList; }
  const TVxStringIndex& GetKeyList() const noexcept { return iKeyList; }

  // The lighttext of key, value, key, value and so on.
  String GetSerialize() const override;
  // Replaces the pairs by those of Value; of one key the last value counts. A last key without value is
  // left out.
  void SetSerialize(const String& Value) override;

 private:
  TVxStringIndex iKeyList;
  TVxStringList valueList;
};

}  // namespace vx
