// A list of texts whose items are found by hashing.
//
//   THashedStringList   the list
//
// Example:
//   list.Add(u"Ort=Köln");
//   int place = list.IndexOfName(u"ORT");      // 0
//
// Case does not count, as with AnsiSameText. The hashes are made when the first search needs them, kept while items
// are appended or deleted, and made anew after other changes: to delete many items, each found by its name, takes a
// time that grows with their number.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "platform/TStrings.h"

namespace vx {

namespace detail {
class THoles;
}

// Objects are never freed. Reading makes hashes: one thread at a time.
class THashedStringList : public TStrings {
 public:
  THashedStringList();
  ~THashedStringList() override;
  String ClassName() const override { return u"THashedStringList"; }

  String Get(int Index) const override { return At(Index).Text; }
  void Put(int Index, const String& Text) override;
  TObject* GetObject(int Index) const override { return At(Index).Object; }
  void PutObject(int Index, TObject* Object) override;
  int GetCount() const override { return static_cast<int>(FItems.size() - FFree); }
  int GetCapacity() const override { return static_cast<int>(FItems.capacity()); }
  void SetCapacity(int Value) override;
  int Add(const String& Text) override { return AddObject(Text, nullptr); }
  int AddObject(const String& Text, TObject* Object) override;
  void Insert(int Index, const String& Text) override { InsertObject(Index, Text, nullptr); }
  void InsertObject(int Index, const String& Text, TObject* Object) override;
  void Delete(int Index) override;
  void Clear() override;
  void Exchange(int A, int B) override;

  // The item itself, until the list changes.
  const String& View(int Index) const { return At(Index).Text; }
  // The first item that is Text; -1 if there is none.
  int IndexOf(std::u16string_view Text) const override;
  // The first item in which Name stands before the first "="; -1 if there is none.
  int IndexOfName(std::u16string_view Name) const;
  // What stands before the first "=" of an item, empty if it has none; and what stands behind it.
  String GetNames(int Index) const;
  String GetValueFromIndex(int Index) const;

 protected:
  // After every change of the list. A derived class that overrides it calls this one.
  virtual void Changed();

 private:
  struct TItem {
    String Text;
    TObject* Object;
  };
  // Where the item stands in FItems.
  size_t PlaceOf(int Index) const {
    if (Index < 0 || Index >= GetCount()) RaiseListError(u"List index out of bounds (%d)", Index);
    return FFree == 0 ? static_cast<size_t>(Index) : PlaceAmongHoles(Index);
  }
  size_t PlaceAmongHoles(int Index) const noexcept;
  const TItem& At(int Index) const { return FItems[PlaceOf(Index)]; }
  TItem& At(int Index) { return FItems[PlaceOf(Index)]; }
  struct THashes;
  // Keeps the hashes right for an item that was added at the end, or is to be taken out.
  void Extend(size_t Place) noexcept;
  void Shrink(size_t Place) noexcept;
  // Lets the items stand without holes; the hashes are to be made anew.
  void CloseHoles() noexcept;
  void Forget() noexcept;
  int Find(std::unique_ptr<THashes>& Hashes, bool ByName, std::u16string_view Key) const;

  std::vector<TItem> FItems;
  size_t FFree = 0;                         // of FItems, those that are holes
  std::unique_ptr<detail::THoles> FHoles;   // null while there are none
  mutable std::unique_ptr<THashes> FTexts;  // of whole items; null: to be made
  mutable std::unique_ptr<THashes> FNames;  // of what stands before "="
};

}  // namespace vx
