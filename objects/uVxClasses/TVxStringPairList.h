// A list of keys, each with a second text and object.
#pragma once

#include "objects/uVxClasses/TVxStringList.h"

namespace vx {

// The pairs stand in a second list, item for item. Sorted, and with duplicates ignored, unless told.
//
// Pitfall: Sort and CustomSort order the keys alone, and the pairs stay where they are. A pair list
// gets its order by adding to it while it is sorted.
class TVxStringPairList : public TVxStringList {
 public:
  TVxStringPairList() : TVxStringPairList(true, dupIgnore) {}
  TVxStringPairList(bool Sorted, TDuplicates Duplicates) : TVxStringList(false, Sorted, Duplicates, false) {}
  String ClassName() const override { return u"TVxStringPairList"; }

  // Adds a key with its pair and returns the index. A key that is there already, with duplicates
  // ignored, gets the new pair: the last one wins.
  int AddPair(const String& Key, String Pair, TObject* KeyObject = nullptr, TObject* PairObject = nullptr);
  String GetPairs(int Index) const { return iPairList.Get(Index); }
  void SetPairs(int Index, const String& Pair) { iPairList.Put(Index, Pair); }
  TObject* GetPairObjects(int Index) const { return iPairList.GetObject(Index); }
  void SetPairObjects(int Index, TObject* Object) { iPairList.PutObject(Index, Object); }
  void GetAll(int Index, TObject*& KeyObject, String& Key, TObject*& PairObject, String& Pair) const;
  // The list of the pairs, which stays this list's. Its count must not be changed.
  TVxStringList& GetList() noexcept { return iPairList; }
  const TVxStringList& GetList() const noexcept { return iPairList; }
  int PairCount() const { return iPairList.GetCount(); }
  // The first index of that pair, -1 if there is none.
  int PairIndexOf(std::u16string_view Pair) const { return iPairList.IndexOf(Pair); }
  bool PairFind(std::u16string_view Pair, int& Index) const;
  // Deletes all entries with that key; returns how many, -1 if there was none.
  int Remove(std::u16string_view Key);

  using TVxStringList::AddStrings;
  // From a pair list the pairs come too.
  void AddStrings(const TStrings& Strings) override;
  void Clear() override;
  void Delete(int Index) override;
  void Exchange(int A, int B) override;
  void Move(int From, int To) override;
  void InsertItem(int Index, const String& Text, TObject* Object) override;
  [[nodiscard]] std::unique_ptr<TVxStringList> Duplicate() const override;
  // Also compares the pairs, and their objects.
  bool EqualsAll(const TTextList& Other) const override;
  bool EqualsObjects(const TTextList& Other) const override;

 private:
  void DetachBoth();
  TVxStringList iPairList;
};

}  // namespace vx
