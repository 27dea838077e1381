// Lists of 64-bit floating point numbers that report to an operation of their own instead of raising.
//
//   TVxDoubleList       numbers as they come
//   TVxDoubleSortList   ascending, with or without duplicates
//
// Example:
//   vx::TVxDoubleSortList list;
//   for (double value : {2.0, 1.0, 1.0}) list.Add(value);
//   list.GetCommatext();     // u"1,1,2"
//   list.SetUnique(true);
//   list.GetCommatext();     // u"1,2"
//   list.Get(7);             // 0; and Notify(4, lnError)
//
// Pitfalls:
//   - Faults pass unseen unless a derived class looks at Notify.
//   - What is no number (NaN) stands behind all numbers and is equal to nothing: it is never found.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/TObject.h"
#include "platform/TextForms.h"
#include "platform/Types.h"

namespace vx {

// Indexes count from 0; one outside the list is reported to Notify, and nothing has changed then.
class TVxDoubleList : public TObject {
 public:
  // What Notify is told of. For lnError the value is a number:
  //   1  Delete               5  Insert             9   SetCount
  //   2  Exchange, first      6  Move               11  an entry of a commatext that is no number
  //   3  Exchange, second     7  Put
  //   4  Get                  8  SetCapacity
  // The names that lists of objects have for the same, which are hidden here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
  enum TNotification : uint8_t { lnAdded, lnExtracted, lnDeleted, lnError };
#pragma GCC diagnostic pop
  // Capacity and count stay below it.
  static constexpr int MaxCount = 0x8000000;

  TVxDoubleList() = default;
  TVxDoubleList(const TVxDoubleList&) = delete;
  TVxDoubleList& operator=(const TVxDoubleList&) = delete;
  String ClassName() const override { return u"TVxDoubleList"; }
  // A new empty list of the same class.
  [[nodiscard]] virtual std::unique_ptr<TVxDoubleList> GetNewInstance() const {
    return std::make_unique<TVxDoubleList>();
  }

  int GetCount() const noexcept { return iCount; }
  // More values than now are 0 and not reported, fewer are deleted from the end; what Notify changes on
  // the occasion stays.
  void SetCount(int Value);
  int GetCapacity() const noexcept { return static_cast<int>(iList.size()); }
  // A Value below the count is a fault, too.
  void SetCapacity(int Value);
  // Makes room for one more by Grow, if there is none.
  void Expand();

  // 0 for an index outside the list; a list that must not change reports nothing.
  double Get(int Index);
  double Get(int Index) const noexcept { return IsInside(Index) ? iList[static_cast<size_t>(Index)] : 0; }
  // Reports the old value as deleted, then the new one as added.
  void Put(int Index, double Value);
  // All values, for walking; ends with the next change of the list.
  std::span<const double> Items() const noexcept { return {iList.data(), static_cast<size_t>(iCount)}; }

  // Appends and returns the index; -1 if there is no room.
  virtual int Add(double Value);
  // Index may be the count.
  virtual void Insert(int Index, double Value);
  void Delete(int Index);
  virtual void Clear();
  virtual void Exchange(int A, int B);
  // Takes the value out at CurIndex and puts it in so that it stands at NewIndex. Reports no change.
  virtual void Move(int CurIndex, int NewIndex);
  // Replaces the values by those of Source, each by Add. A list assigned to itself stays.
  virtual void Assign(const TVxDoubleList& Source);
  // The first index of exactly that value, -1 if there is none.
  virtual int IndexOf(double Value) const;
  // Deletes the value that IndexOf gives; returns where it stood, or -1.
  virtual int Remove(double Value);
  // Takes it out and returns it; 0 if there is none. Wanted: a 0 is reported as deleted first, then the
  // value as extracted.
  virtual double Extract(double Value);

  // Ascending. Reports nothing.
  virtual void Sort();
  // By Compare(a, b) < 0, equal ones staying in their order. A Compare that contradicts itself gives some
  // order; one that raises leaves the list as it was.
  virtual void Sort(FunctionRef<int(double, double)> Compare);
  // Sorts and deletes all but one of equal values, from the end. (Unlike the Pack of other lists, which
  // takes out what is empty.)
  void Pack();

  // FloatToStr of each value. Setting reads each entry by StrToDoubleDef into its slot: what is no number
  // becomes 0 and is reported; values that were overwritten or filled in are not.
  String GetCommatext() const;
  virtual void SetCommatext(std::u16string_view Text);

 protected:
  // Called after the change, here without effect. It may change the list.
  virtual void Notify(double /*Value*/, TNotification /*Action*/) {}
  // A capacity above 64 grows by a quarter, one above 8 by 16, others by 4.
  virtual void Grow();

  bool IsInside(int Index) const noexcept { return static_cast<unsigned>(Index) < static_cast<unsigned>(iCount); }
  // Index is at most the count; -1 if there is no room.
  int InsertValue(int Index, double Value);
  // Reads Text as SetCommatext does; Values and, for each, whether it was a number.
  struct TEntryValue {
    double Value;
    bool IsNumber;
  };
  std::vector<TEntryValue> FillSlots(std::u16string_view Text);
  void Error(int Number) { Notify(Number, lnError); }

  std::vector<double> iList;  // as many as the capacity
  int iCount = 0;
};

using TDoubleListNotification = TVxDoubleList::TNotification;

// Pitfalls: Put, SetCount and setting the commatext don't keep the order; the places that searches give
// follow from their steps then.
class TVxDoubleSortList : public TVxDoubleList {
 public:
  String ClassName() const override { return u"TVxDoubleSortList"; }
  [[nodiscard]] std::unique_ptr<TVxDoubleList> GetNewInstance() const override {
    return std::make_unique<TVxDoubleSortList>();
  }

  // False at first. Setting it deletes duplicates; from then on Add takes none.
  bool GetUnique() const noexcept { return iUnique; }
  void SetUnique(bool Value);

  // The place of the first value that is not below Value; the count if there is none.
  virtual int IndexSort(double Value) const;
  virtual int InsertIndexOf(double Value) const { return IndexSort(Value); }
  // Puts Value before its equals, and returns where it or, with Unique, its equal stands.
  int Add(double Value) override;
  // Adds Value, whatever the Index.
  void Insert(int Index, double Value) override;
  // Many values of a plain source are ordered once. From a sorted list it takes over Unique, too.
  void Assign(const TVxDoubleList& Source) override;
  int IndexOf(double Value) const override;
  int Remove(double Value) override;
  // Deletes Value if it is there; gives Value either way.
  double Extract(double Value) override;
  // Nothing: the list is in its order.
  void Sort() override {}
  void Sort(FunctionRef<int(double, double)>) override {}
  // Wanted: the values stand in the slots in the order of the text first, and then each is added once
  // more, so that it stands twice unless Unique.
  void SetCommatext(std::u16string_view Text) override;

  // Refused: a warning, and nothing changes.
  void Exchange(int A, int B) override;
  void Move(int CurIndex, int NewIndex) override;

 private:
  // A derived list may have an Add or a Notify of its own: it is given each value alone.
  bool IsPlain() const noexcept;
  // The same as adding each value in its order.
  void AddAll(std::span<const double> Values);
  void AddSorted(std::span<const double> Values);
  void AddUnsorted(std::span<const double> Values);
  void TakeItems(std::span<const double> Items);

  bool iUnique = false;
};

}  // namespace vx
