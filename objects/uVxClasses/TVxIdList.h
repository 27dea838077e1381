// The sorted list of numbers without duplicates.
//
//   TVxIdList   ascending, searched by halving
//
// Example:
//   vx::TVxIdList ids;
//   ids.SetCommatext(u"5,3,5");
//   ids.GetCommatext();                   // u"3,5"
//   ids.Add(4);                           // 1: where it stands now
//   bool common = ids.Intersects(u"7,5");  // true
#pragma once

#include "objects/uVxClasses/TVxIntegerList.h"

namespace vx {

// Adding many at once (Assign, Add and AddList of a list, the text forms) orders them once; adding one
// above all others costs no more than appending. Pitfall: Put and SetCount don't keep the order; the
// searches find no more than they meet then.
class TVxIdList : public TVxIntegerList {
 public:
  String ClassName() const override { return u"TVxIdList"; }
  [[nodiscard]] std::unique_ptr<TVxIntegerList> GetNewInstance() const override {
    return std::make_unique<TVxIdList>();
  }

  using TVxIntegerList::Add;
  // Where Id stands now, or stood before.
  int Add(int Id) override;
  int Extract(int Id) override { return TVxIntegerList::Extract(Id); }
  int Remove(int Id) override { return Extract(Id); }
  // -1 if it is not in the list.
  int IndexOf(int Id) const override;
  int GetIndex(int Id) const { return IndexOf(Id); }

  // Deletes each id that List doesn't hold.
  void Intersect(const TVxIntegerList& List);
  // Any id of this list is in the other one, or in a commatext, whose words count as 0.
  bool Intersects(const TVxIdList& IdList) const;
  bool Intersects(std::u16string_view Commatext) const;

  // Refused: a warning, and nothing changes.
  void Exchange(int A, int B) override;
  void Insert(int Index, int Id) override;
  void Insert(int Index, void* Id) override;
  using TVxIntegerList::Insert;
  void Move(int From, int To) override;

 protected:
  // Where Id stands or has to stand: 0 to the count.
  int GetIndexInternal(int Id) const noexcept;
  void AddAll(std::vector<int> Values) override;
};

}  // namespace vx
