// A sorted index of unique keys, each with an object.
//
//   VxCompareText          the comparison of keys
//   TVxStringIndexOption   who frees the objects, and whether case counts
//   TVxStringIndex         the index
//
// Example:
//   vx::TVxStringIndex towns({vx::vxioOwnsObjects, vx::vxioNotCaseSensitive});
//   towns.Add(u"Köln", new TTown);                    // the index frees it
//   int place;
//   if (towns.Find(u"KÖLN", place)) Show(towns.GetObjects(place));
//
// Keys stand in the normal form that ModifyString gives; with FixedLength 0, the default, they stay as
// they are.
//
// Pitfalls:
//   - Add of a key that is there replaces its object and frees the old one if the index owns.
//   - Whatever puts or changes keys past Add (Assign, LoadFromFile, SetItems, the list of GetCsl) has to keep
//     them in order; otherwise searches miss keys, and a key costs a move of all behind it.
//   - An object that the index owns must not stand under two keys.
//   - LastIndex is one for all threads that read an index at once.
#pragma once

#include <memory>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Relaxed.h"

namespace vx {

// 0 for equal texts. Without CaseSensitive AnsiCompareText. With it the order by code units, where the
// number tells how they differ: -3 or 3 in a unit that both have, -2 or 2 if one begins with the other,
// -1 or 1 if one is empty.
int VxCompareText(std::u16string_view S1, std::u16string_view S2, bool CaseSensitive) noexcept;

enum TVxStringIndexOption : uint8_t {
  vxioOwnsObjects,      // objects are freed with their entries and when they are replaced
  vxioModifyAnsiChars,  // no effect: FixedLength alone decides whether letters are folded
  vxioNotCaseSensitive  // keys are compared by AnsiCompareText; to be set while the index is empty
};
using TVxStringIndexOptions = Set<TVxStringIndexOption>;

namespace detail {
class TIndexKeys;
struct TFoundKey;
}  // namespace detail

// Indexes count from 0; one outside the index raises EStringListError with SListIndexError, and nothing
// has changed then. Objects are freed after the index has changed, so that their destructors may look at it.
class TVxStringIndex : public TObject {
 public:
  TVxStringIndex() : TVxStringIndex(TVxStringIndexOptions()) {}
  explicit TVxStringIndex(TVxStringIndexOptions Options);
  // Frees the objects if the index owns them.
  ~TVxStringIndex() override;
  String ClassName() const override { return u"TVxStringIndex"; }
  // Clear, and vxioOwnsObjects off. The constructor calls this one; a derived class whose Init does more
  // calls its own in its constructor.
  virtual void Init();

  TVxStringIndexOptions GetOptions() const noexcept { return iOptions; }
  void SetOptions(TVxStringIndexOptions Value);
  // To how many code units keys are brought before letters are folded; 0 and below: not at all. Keys
  // that are there already stay.
  int GetFixedLength() const noexcept { return iFixedLength; }
  void SetFixedLength(int Value) noexcept { iFixedLength = Value; }
  // How many calls of Add met a key that was there.
  int GetDuplicateCount() const noexcept { return iDuplicateCount; }
  // Where the last Find or search for an object ended, also without success; -1 after Clear.
  int GetLastIndex() const noexcept { return iLastIndex; }

  int GetCount() const;
  // The key and the object, raw: setting neither folds nor orders nor frees.
  String GetItems(int Index) const;
  void SetItems(int Index, const String& Value) { GetCsl().Put(Index, Value); }
  TObject* GetObjects(int Index) const;
  void SetObjects(int Index, TObject* Value);
  // The list of the keys with their objects: it stays the index's, follows each change of it, and may be kept as
  // long as the index lives. What is deleted in it is gone from the index, too, but no object is freed. Items, the
  // text forms and changes of the list cost a walk through all keys when the index has changed a lot; the count,
  // Get, GetObject, PutObject and Delete don't.
  TVxStringList& GetCsl() noexcept;
  const TVxStringList& GetCsl() const noexcept;

  // The normal form of a key: cut or padded with blanks to FixedLength, then every ä, ö, ü and ß, from the
  // left, replaced by ae, oe, ue and ss, and each Ä, Ö and Ü by Ae, Oe and Ue at the end and before a
  // unit from a on or a blank, else by AE, OE and UE. Each replacement at position p appends the unit p + 32,
  // so that Müller and Mueller stand side by side as different keys: u"Ärger" and 5 give u"Aerger!".
  // Without FixedLength Text itself, sharing its characters.
  String ModifyString(const String& Text) const;
  // The place of a key in normal form, or where it would stand.
  int IndexSort(std::u16string_view Key) const;

  // Puts a key in and returns its place, at the cost of about the root of the count. A key that is there keeps its text
  // and gets Object; another object that it had is freed if the index owns.
  int Add(const String& Text, TObject* Object = nullptr);
  // Adds all keys with their objects, as Add does.
  void AddStrings(const TVxStringIndex& Index) { AddStrings(Index.GetCsl()); }
  void AddStrings(const TStrings& Strings);

  // Whether the key is there; Index is its place or where it would stand, and so is LastIndex. The key
  // at LastIndex is tried first: looking up one key again costs one comparison.
  bool Find(std::u16string_view Text, int& Index) const;
  // The place by Find, or -1.
  int IndexOf(std::u16string_view Text) const;
  bool IsIn(std::u16string_view Text) const { return IndexOf(Text) >= 0; }
  // The place of an object, the one at LastIndex or else the first one, or -1. LastIndex becomes the
  // result. Linear.
  int IndexOf(const TObject* Object) const;
  // IndexOf the key's normal form, which is therefore folded twice: callers that stored keys in that way
  // rely on it.
  int SortedIndexOf(const String& Text) const { return IndexOf(ModifyString(Text)); }

  // Deletes an entry and frees its object if the index owns. By key or object: where it stood, -1 if it
  // is not there.
  void Delete(int Index);
  int Delete(std::u16string_view Text);
  int Delete(const TObject* Object);
  // Deletes an entry and gives its object, which may be nullptr, to the caller.
  [[nodiscard]] TObject* Extract(int Index);
  [[nodiscard]] TObject* Extract(int Index, String& Text);
  // nullptr for a key that is not there.
  [[nodiscard]] TObject* Extract(std::u16string_view Text);
  // Frees all objects and keeps the keys; does nothing unless the index owns.
  void DeleteObjects();
  // Frees what the index owns, forgets all keys, LastIndex and DuplicateCount. Options stay.
  void Clear();

  // Takes over keys and objects as they stand, with no sorting, and owns no objects from then on: those
  // that it owned before are left to the caller.
  void Assign(const TVxStringIndex& Source) { Assign(Source.GetCsl()); }
  void Assign(const TStrings& Source);

  // The keys with Seperator between them.
  String Implode(std::u16string_view Seperator) const;
  String GetCommatext() const { return GetCsl().GetCommatext(); }
  // Adds the cells as keys without objects to what is there.
  void SetCommatext(std::u16string_view Text);
  String GetIntellitext() const { return GetCsl().GetIntellitext(); }
  // Clears, then adds the cells as keys without objects.
  void SetIntellitext(std::u16string_view Text);
  // The keys as lines, with none behind the last one.
  String GetText() const { return GetCsl().GetText(); }
  // Replaces the keys by the lines of a file as they stand; false, with nothing changed, if there is no
  // such file. Faults of the file raise EStreamError.
  [[nodiscard]] bool LoadFromFile(std::u16string_view Name);
  // Writes the keys as lines; true if the file exists afterwards. Faults of the file raise EStreamError.
  [[nodiscard]] bool SaveToFile(std::u16string_view Name) const;

 private:
  // Of a text that is not in normal form yet.
  detail::TFoundKey SearchText(std::u16string_view Text) const;
  bool Same(std::u16string_view A, std::u16string_view B) const noexcept;
  void AddAll(std::span<const String> Texts, std::span<TObject* const> Objects);
  bool AddSorted(std::span<const String> Texts, std::span<TObject* const> Objects);
  void Free(TObject* Object) const {
    if (iOptions.Has(vxioOwnsObjects)) delete Object;
  }

  std::unique_ptr<detail::TIndexKeys> FKeys;
  int iDuplicateCount = 0;
  int iFixedLength = 0;
  mutable TRelaxed<int> iLastIndex = -1;
  TVxStringIndexOptions iOptions;
};

}  // namespace vx
