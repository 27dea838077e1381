// A list of texts whose items are found by hashing.
//
//   THashedStringList   the list
//
// Example:
//   list.Add(u"Ort=Köln");
//   int place = list.IndexOfName(u"ORT");      // 0
//
// Case does not count, as with AnsiSameText. The hashes are made when the first search needs
// them, kept while items are appended, and made anew after other changes.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "platform/TStrings.h"

namespace vx {

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
  int GetCount() const override { return static_cast<int>(FItems.size()); }
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
  const TItem& At(int Index) const {
    if (static_cast<size_t>(Index) >= FItems.size()) RaiseListError(u"List index out of bounds (%d)", Index);
    return FItems[static_cast<size_t>(Index)];
  }
  TItem& At(int Index) { return const_cast<TItem&>(std::as_const(*this).At(Index)); }
  struct THashes;
  // The item Index was added at the end, or came in another way.
  void Extend(int Index) noexcept;
  void Forget() noexcept;
  int Find(std::unique_ptr<THashes>& Hashes, bool ByName, std::u16string_view Key) const;

  std::vector<TItem> FItems;
  mutable std::unique_ptr<THashes> FTexts;  // of whole items; null: to be made
  mutable std::unique_ptr<THashes> FNames;  // of what stands before "="
};

}  // namespace vx
