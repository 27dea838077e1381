// The older list of texts, for code that needs neither ownership nor a rule of case.
#pragma once

#include "objects/uVxClasses/TTextList.h"

namespace vx {

// Always compares without regard to case and never frees an object.
class TOldStringList : public TTextList {
 public:
  String ClassName() const override { return u"TOldStringList"; }

  // On a text that a sorted list has already, and ignores, the existing item gets Object.
  int AddObject(const String& Text, TObject* Object) override;
  // Puts an item without object in, with no regard to a sorted list's order: for derived lists.
  virtual void InsertItem(int Index, const String& Text);
  // Swaps two entries. Sorting calls it for every swap, also of an entry with itself.
  virtual void ExchangeItems(int A, int B) { TTextList::Exchange(A, B); }

  void Sort() override;
  // Orders the items once by Compare(list, a, b); does nothing on a sorted list. Steps and cost are those of Sort.
  using TCompare = FunctionRef<int(const TOldStringList& List, int A, int B)>;
  virtual void CustomSort(TCompare Compare) {
    SortBy([&](int a, int b) { return Compare(*this, a, b); });
  }

  using TTextList::AddStrings;
  // Copies texts and objects; from a TOldStringList also the rule of duplicates and the flag Sorted,
  // with no new ordering.
  void Assign(const TStrings& Source) override;
  // A new list with the same texts, objects and flags.
  [[nodiscard]] virtual std::unique_ptr<TOldStringList> Duplicate() const;

 protected:
  void InsertEntry(int Index, const String& Text, TObject* Object) override;
  void SortExchange(int A, int B) override { ExchangeItems(A, B); }
};

}  // namespace vx
