// What all lists of texts of the library share: storage, text forms, files.
#pragma once

#include <atomic>
#include <memory>
#include <span>
#include <typeinfo>
#include <unordered_map>

#include "core/uVxTypes.h"
#include "objects/uVxClasses/TNewText.h"
#include "objects/uVxClasses/detail/Entries.h"
#include "platform/Currency.h"
#include "platform/TStrings.h"
#include "platform/TextForms.h"
#include "platform/Types.h"

namespace vx {

class TFileStream;

// What a sorted list does with a text that it holds already.
enum TDuplicates : uint8_t {
  dupIgnore,  // nothing; the existing item is the result
  dupAccept,  // takes it too, before the equal ones
  dupError    // raises EStringListError
};

// The base of TVxStringList and TOldStringList; not for use of its own. Indexes count from 0; one
// outside the list raises EStringListError with SListIndexError, and nothing has changed then.
class TTextList : public TStrings {
 public:
  String Get(int Index) const override;
  // Raises SSortedListError on a sorted list.
  void Put(int Index, const String& Text) override;
  TObject* GetObject(int Index) const override;
  // An object that stood there before is not freed.
  void PutObject(int Index, TObject* Object) override;
  int GetCount() const override { return Entries().Count(); }
  int GetCapacity() const override { return Entries().Capacity(); }
  // Raises SListCapacityError below the count.
  void SetCapacity(int Value) override;
  // The items for walking, without a copy; ends with the next change of the list.
  std::span<const String> Items() const noexcept { return Entries().Texts(); }
  const String* begin() const noexcept { return Items().data(); }
  const String* end() const noexcept { return begin() + Items().size(); }

  int Add(const String& Text) override { return AddObject(Text, nullptr); }
  void Insert(int Index, const String& Text) override { InsertObject(Index, Text, nullptr); }
  // Appends, or puts a sorted list's item where it belongs; returns the index. For a text that a
  // sorted list has already see TDuplicates.
  int AddObject(const String& Text, TObject* Object) override;
  // Raises SSortedListError on a sorted list, as Move does.
  void InsertObject(int Index, const String& Text, TObject* Object) override;
  void Move(int From, int To) override;
  void Delete(int Index) override;
  void Clear() override;
  void Exchange(int A, int B) override;
  int IndexOf(std::u16string_view Text) const override;
  // The items joined by carriage return and line feed, with none behind the last one: not like the
  // text of other lists, where every line ends so.
  String GetTextStr() const override;

  using TStrings::AddStrings;
  // Appends the texts, and the objects beside them; where there are fewer objects, the rest has none.
  void AddStrings(std::span<const String> Texts);
  // In braces each item is a text; numbers are refused.
  void AddStrings(std::initializer_list<TNewText> Texts);
  template <typename = void>  // behind the one before, where both fit
  void AddStrings(std::initializer_list<String> Texts) {
    AddStrings(std::span<const String>(Texts));
  }
  void AddStrings(std::span<const String> Texts, std::span<TObject* const> Objects);
  // Appends the cells of a commatext.
  void AddStrings(std::u16string_view Commatext);
  // Each hands the text that TVxString writes to Add and returns its index.
  int AddBool(bool Value);
  int AddBoolExt(TBoolExt Value);
  int AddCurr(Currency Value);
  int AddDate(TDateTime Value);
  int AddDateTime(TDateTime Value);
  int AddExt(Extended Value);
  int AddInt(int Value);
  int AddTime(TDateTime Value);
  // Deletes, for each item of Strings, its first occurrence here.
  void Minus(const TStrings& Strings);

  // Binary search by the list's order. Index is where Text stands or would have to stand; with
  // dupAccept the first of equal items. Meant for sorted lists.
  virtual bool Find(std::u16string_view Text, int& Index) const;
  // Orders the items once by the list's order; does nothing on a sorted list. Calls CustomSort, which a derived
  // class may override, as do SetSorted and whatever orders the list anew. Equal items may change their places,
  // but always in the same way; its steps are fixed (PartitionSort in platform/Sorting.h), so that n items cost
  // n log n mostly, but n x n if they stand just so.
  virtual void Sort() = 0;
  bool GetSorted() const noexcept { return FSorted; }
  // Setting it orders the items at once, by Sort.
  virtual void SetSorted(bool Value);
  TDuplicates GetDuplicates() const noexcept { return FDuplicates; }
  void SetDuplicates(TDuplicates Value) noexcept { FDuplicates = Value; }

  // The other list is of the same class and has the same texts.
  virtual bool EqualsAll(const TTextList& Other) const;
  // The objects at this list's indexes are the same. Raises SListIndexError if Other is shorter, and
  // takes no notice of what it has beyond.
  virtual bool EqualsObjects(const TTextList& Other) const;

  // The text forms (see TextForms.h). Setting replaces the items and never fails.
  String GetCommatext() const { return WriteCommatext(Items()); }
  void SetCommatext(std::u16string_view Text) { SetCells(ReadCommatext(Text)); }
  String GetLighttext() const { return WriteLighttext(Items()); }
  void SetLighttext(std::u16string_view Text) { SetCells(ReadLighttext(Text)); }
  String GetOffsettext() const { return WriteOffsettext(Items()); }
  void SetOffsettext(std::u16string_view Text) { SetCells(ReadOffsettext(Text)); }
  String GetIntellitext() const { return WriteIntellitext(Items()); }
  void SetIntellitext(std::u16string_view Text) { SetCells(ReadIntellitext(Text)); }
  String GetCellText() const { return WriteCellText(Items()); }
  // Unlike the other forms, set without BeginUpdate and EndUpdate.
  void SetCellText(std::u16string_view Text);
  String GetCsv() const { return WriteCsv(Items()); }
  void SetCsv(std::u16string_view Text) { SetCells(ReadCsv(Text)); }
  String GetSerialize(char16_t Delimiter, char16_t Quote) const { return WriteSerialize(Items(), Delimiter, Quote); }
  void SetSerialize(char16_t Delimiter, char16_t Quote, std::u16string_view Text) {
    SetCells(ReadSerialize(Text, Delimiter, Quote));
  }

  // Replaces the items by the lines of a file in the system's code page. A line ends at a line feed;
  // a carriage return before it is dropped, one alone is not a line end. No line is empty because of
  // a final line end. Each goes to Add once, whole. Others are denied writing meanwhile. Faults of the file
  // are raised as EStreamError; the list then holds what was read.
  virtual void LoadFromFile(std::u16string_view Path);
  // Writes every item, the last too, followed by carriage return and line feed, in the system's code
  // page. Creates or empties the file; others are denied writing. Raises EStreamError.
  virtual void SaveToFile(std::u16string_view Path) const;
  // The same at the end of an existing file or, with Front, before its content.
  void SaveToFileAdd(std::u16string_view Path, bool Front) const;
  // The same from the stream's position on.
  virtual void SaveToStream(TFileStream& Stream) const;
  // The bytes that SaveToStream writes.
  int64_t GetSaveToSize() const;

 protected:
  int CompareStrings(std::u16string_view A, std::u16string_view B) const override;
  // How a sort swaps two entries, which may be one and the same.
  virtual void SortExchange(int A, int B) {
    if (A != B) Entries().Exchange(A, B);
  }
  void CheckIndex(int Index) const;
  void CheckNotSorted() const;
  // Makes room at Index, which is not checked, and fills it.
  virtual void InsertEntry(int Index, const String& Text, TObject* Object) = 0;
  // Frees objects that went with their entries, if the list owns them.
  virtual void FreeObject(TObject*) {}
  // Whether appending needs no look at order, duplicates or overrides: items may then be taken whole.
  virtual bool TakesPlainly() const { return false; }
  void SetCells(TCells Cells);
  void AddCells(TCells Cells);
  // Compares the items at two indexes.
  using TCompareIndexes = FunctionRef<int(int A, int B)>;
  // Orders the items, unless the list is sorted.
  void SortBy(TCompareIndexes Compare);
  // Makes sure that a change that adds nothing to List can't fail for want of memory.
  static void Detach(TTextList& List) { List.Entries().Detach(); }

  detail::TEntries& Entries() {
    if (FPlace.load(std::memory_order_relaxed) != lpHere) [[unlikely]]
      TakeBack();
    return FEntries;
  }
  const detail::TEntries& Entries() const {
    if (FPlace.load(std::memory_order_acquire) == lpAway) [[unlikely]]
      Fetch();
    return FEntries;
  }
  // The class as EqualsAll sees it.
  virtual const std::type_info& Kind() const noexcept { return typeid(*this); }

  // A derived list may keep its items elsewhere as long as nobody asks for them in one piece.
  enum TPlace : uint8_t {
    lpHere,  // in FEntries
    lpBoth,  // in FEntries too, which nobody has changed
    lpAway   // FEntries is empty
  };
  // Makes a copy in FEntries for reading; several threads may call it at once.
  virtual void Fetch() const {}
  // Puts the items into FEntries, where they stay.
  virtual void TakeBack() {}
  mutable detail::TEntries FEntries;
  mutable std::atomic<TPlace> FPlace = lpHere;
  bool FSorted = false;
  TDuplicates FDuplicates = dupIgnore;
};

}  // namespace vx
