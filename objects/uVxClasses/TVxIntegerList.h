// Lists of 32-bit numbers in any order.
//
//   TVxIntegerList             numbers as they come
//   TVxIntegerListUnique       each number once, where it came first
//   TVxIntegerListEnumerator   walks a list by MoveNext and GetCurrent
//
// Example:
//   vx::TVxIntegerList list;
//   list.SetCommatext(u"3,x,1");
//   list.GetCommatext();                   // u"3,0,1": what is no number is 0
//   list.Sort();
//   for (int item : list) Use(item);       // first 0, then 1 and 3
//
// Pitfall: range-for and Items() look at the list's own memory and end with its next change; the
// enumerator asks the list each time.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/TObject.h"
#include "platform/TextForms.h"

namespace vx {

class TVxIntegerListEnumerator;

// Indexes count from 0; one outside the list raises EListError with SListIndexError, and nothing has
// changed then.
class TVxIntegerList : public TObject {
 public:
  TVxIntegerList() = default;
  TVxIntegerList(const TVxIntegerList&) = delete;
  TVxIntegerList& operator=(const TVxIntegerList&) = delete;
  String ClassName() const override { return u"TVxIntegerList"; }
  // A new empty list: of the own class, where the class says so.
  [[nodiscard]] virtual std::unique_ptr<TVxIntegerList> GetNewInstance() const {
    return std::make_unique<TVxIntegerList>();
  }

  int GetCount() const noexcept { return static_cast<int>(FItems.size()); }
  // More items than now are 0, fewer are cut at the end. EListError (SListCountError) below 0.
  void SetCount(int Value);
  int GetCapacity() const noexcept;
  // Raises EListError (SListCapacityError) below the count.
  void SetCapacity(int Value);

  int Get(int Index) const {
    CheckIndex(Index, GetCount());
    return FItems[static_cast<size_t>(Index)];
  }
  void Put(int Index, int Item);
  // All items, for walking without a copy.
  std::span<const int> Items() const noexcept { return FItems; }
  const int* begin() const noexcept { return FItems.data(); }
  const int* end() const noexcept { return FItems.data() + FItems.size(); }
  TVxIntegerListEnumerator GetEnumerator() const;
  // Raise EListError on an empty list.
  int First() const { return Get(0); }
  int Last() const { return Get(GetCount() - 1); }

  // Appends, in derived lists puts where the item belongs; returns the index.
  virtual int Add(int Item);
  // The same for a number kept in a pointer: its low 32 bits. Nothing is ever looked up behind it.
  virtual int Add(void* Item) { return Add(FromPointer(Item)); }
  template <typename T>
  int Add(T* Item) = delete;  // an address is no number
  // Adds all items in their order, each as Add(int) does. List may be this list.
  virtual void Add(const TVxIntegerList& List) { AddList(List); }
  void AddList(const TVxIntegerList& List) { AddAll({List.begin(), List.end()}); }
  void AddList(std::span<const int> List) { AddAll({List.begin(), List.end()}); }
  // Index may be the count.
  virtual void Insert(int Index, int Item);
  virtual void Insert(int Index, void* Item) { Insert(Index, FromPointer(Item)); }
  template <typename T>
  void Insert(int Index, T* Item) = delete;
  void Delete(int Index);
  // Takes the first equal item out; returns where it stood, -1 if there is none.
  virtual int Extract(int Item);
  virtual int Remove(int Item);
  // For each item of List its first occurrence here goes, if there is one.
  void Minus(const TVxIntegerList& List);
  // Gives the memory back, too.
  virtual void Clear() { std::vector<int>().swap(FItems); }
  void Reset() { Clear(); }
  virtual void Exchange(int A, int B);
  // Takes the item out at From and puts it in so that it stands at To.
  virtual void Move(int From, int To);
  // Ascending.
  void Sort();

  // The first index, -1 if there is none.
  virtual int IndexOf(int Item) const;
  virtual bool IsIn(int Item) const { return IndexOf(Item) >= 0; }
  // Whether there is one; Index is what IndexOf gives.
  virtual bool Find(int Item, int& Index) const;
  // Other is of exactly the same class and has the same items in the same order.
  virtual bool EqualsAll(const TVxIntegerList& Other) const;

  // Replaces the items by those of Source, each as Add(int) does; the capacity is Source's count at
  // least. A list assigned to itself stays.
  void Assign(const TVxIntegerList& Source);
  // A new list of GetNewInstance's class with the same items.
  [[nodiscard]] std::unique_ptr<TVxIntegerList> Duplicate() const;

  // The items in decimal digits in a text form (see TextForms.h); empty for an empty list. Setting
  // replaces the items, each as Add(int) does; an entry that StrToInt would not take is 0.
  String GetCommatext() const { return WriteCommatext(ToCells()); }
  void SetCommatext(std::u16string_view Text) { SetCells(ReadCommatext(Text)); }
  String GetLighttext() const { return WriteLighttext(ToCells()); }
  void SetLighttext(std::u16string_view Text) { SetCells(ReadLighttext(Text)); }
  String GetSerialize(char16_t DividerChar, char16_t QuoteChar) const {
    return WriteSerialize(ToCells(), DividerChar, QuoteChar);
  }
  void SetSerialize(char16_t DividerChar, char16_t QuoteChar, std::u16string_view Value) {
    SetCells(ReadSerialize(Value, DividerChar, QuoteChar));
  }
  // Pre, the number and Post for each item, with Divider between them: u"<1>, <2>".
  String GetUserText(std::u16string_view Divider, std::u16string_view Pre, std::u16string_view Post) const;

 protected:
  // Adds each by the virtual Add(int). Overrides may take the whole if the result is the same.
  virtual void AddAll(std::vector<int> Values);
  static void CheckIndex(int Index, int Count);

  std::vector<int> FItems;

 private:
  static int FromPointer(void* Item) noexcept;
  TCells ToCells() const;
  void SetCells(const TCells& Cells);
};

// Pitfall: only Add keeps numbers apart; Insert, Put and SetCount don't look. GetNewInstance, and so
// Duplicate, gives a plain TVxIntegerList.
class TVxIntegerListUnique : public TVxIntegerList {
 public:
  String ClassName() const override { return u"TVxIntegerListUnique"; }
  using TVxIntegerList::Add;
  // The index of the equal item if there is one; otherwise appends.
  int Add(int Item) override;

 protected:
  void AddAll(std::vector<int> Values) override;
};

// Begins before the first item: MoveNext comes first. The list must outlive it and may change meanwhile.
class TVxIntegerListEnumerator {
 public:
  explicit TVxIntegerListEnumerator(const TVxIntegerList& List) noexcept : FList(&List) {}
  // Raises EListError before the first MoveNext.
  int GetCurrent() const { return FList->Get(FIndex); }
  // False behind the last item; the current one stays the last then.
  bool MoveNext() noexcept {
    bool moves = FIndex + 1 < FList->GetCount();
    if (moves) ++FIndex;
    return moves;
  }

 private:
  const TVxIntegerList* FList;
  int FIndex = -1;
};

inline TVxIntegerListEnumerator TVxIntegerList::GetEnumerator() const { return TVxIntegerListEnumerator(*this); }

}  // namespace vx
