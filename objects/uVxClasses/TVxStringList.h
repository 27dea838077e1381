// The list of texts that every table row is.
#pragma once

#include <new>

#include "objects/uVxClasses/TTextList.h"

namespace vx {

// Beside what all lists of texts share: an order with or without regard to case, and objects that the
// list may own. All flags are off and duplicates are ignored unless told.
class TVxStringList : public TTextList {
 public:
  TVxStringList() = default;
  TVxStringList(bool OwnsObjects, bool Sorted, TDuplicates Duplicates, bool CaseSensitive);
  // Objects that the list owns are freed after the list has been emptied, so that their destructors
  // see a consistent list.
  ~TVxStringList() override;
  // An empty list that is a piece of Memory, for tables of many rows. It is freed as any other, by this delete.
  [[nodiscard]] static std::unique_ptr<TVxStringList> NewIn(TBulkMemory& Memory);
  static void operator delete(TVxStringList* List, std::destroying_delete_t) noexcept;  // no over-aligned heirs
  String ClassName() const override { return u"TVxStringList"; }

  // A list that owns its objects frees an object when its item goes, and one that it does not take
  // because Text is there already.
  bool GetOwnsObjects() const noexcept { return FOwnsObject; }
  void SetOwnsObjects(bool Value) noexcept { FOwnsObject = Value; }
  // The rule of CompareStrings: AnsiCompareStr with regard to case, else AnsiCompareText. Changing it
  // orders a sorted list anew.
  bool GetCaseSensitive() const noexcept { return FCaseSensitive; }
  void SetCaseSensitive(bool Value);

  // Puts an item in with no regard to a sorted list's order: for derived lists.
  virtual void InsertItem(int Index, const String& Text, TObject* Object);
  // Swaps two entries, of a sorted list too. A derived list's Exchange is not called.
  void ExchangeItems(int A, int B) { TTextList::Exchange(A, B); }

  void Sort() override;
  // Orders the items once by Compare(list, a, b); does nothing on a sorted list. Steps and cost are those of Sort.
  using TCompare = FunctionRef<int(const TVxStringList& List, int A, int B)>;
  virtual void CustomSort(TCompare Compare) {
    SortBy([&](int a, int b) { return Compare(*this, a, b); });
  }

  using TTextList::AddStrings;
  // Copies texts and objects; from a TVxStringList also the rule of case, the rule of duplicates and
  // the flag Sorted, with no new ordering. Ownership stays as it was.
  void Assign(const TStrings& Source) override;
  // A new list with the same texts, objects and flags.
  [[nodiscard]] virtual std::unique_ptr<TVxStringList> Duplicate() const;
  // The items by their index.
  std::unordered_map<int, String> ConvertToDictionary() const;
  // The items become the cells number First to Last of an offsettext, counted from 0.
  void ParseOffsettext(std::u16string_view Text, int First, int Last) { SetCells(ReadOffsettext(Text, First, Last)); }
  // Replaces the items by Cells, which are moved from: for readers of table files. See TEntries::TakeAll for Memory.
  void TakeCells(std::span<String> Cells);
  void TakeCells(detail::TEntries& Cells, TBulkMemory* Memory = nullptr);

  int AddTimeFull(TDateTime Value);
  // Each reads the item as it stands by TVxString; one that is no such value is 0 or false.
  bool AsBool(int Index) const;
  TBoolExt AsBoolExt(int Index) const;
  Currency AsCurr(int Index) const;
  TDateTime AsDate(int Index) const;
  TDateTime AsDateTime(int Index) const;
  Extended AsExt(int Index) const;
  int AsInt(int Index) const;
  // The time of TimeFull, too.
  TDateTime AsTime(int Index) const;

 protected:
  int CompareStrings(std::u16string_view A, std::u16string_view B) const override;
  void InsertEntry(int Index, const String& Text, TObject* Object) override { InsertItem(Index, Text, Object); }
  void FreeObject(TObject* Object) override {
    if (FOwnsObject) delete Object;
  }
  bool TakesPlainly() const override;

 private:
  bool FCaseSensitive = false;
  bool FOwnsObject = false;
  bool FIsBulk = false;  // made by NewIn
};

}  // namespace vx
