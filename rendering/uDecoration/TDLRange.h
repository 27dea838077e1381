// Long runs of column or row decorations, in which a cell is found by bisection. TDecorationList::RefreshRangeList
// makes them; nobody else has to.
#pragma once

#include "platform/TObjectList.h"
#include "rendering/uDecoration/DecorationTypes.h"

namespace vx {

class TDLRangeList;

// Decorations that stand one behind the other in a list and lie along one axis in a steady direction.
class TDLRange : public TObject {
 public:
  // From aIndBegin to aIndEnd of the decoration list, both included; aRange is rtColumn or rtRow.
  TDLRange(TDLRangeList* aParent, int aIndBegin, int aIndEnd, TRangeType aRange, TDLDirectionType aDirection) noexcept
      : iParent(aParent), iIndBegin(aIndBegin), iIndEnd(aIndEnd), iRange(aRange), iDirection(aDirection) {}
  String ClassName() const override { return u"TDLRange"; }

  TDLRangeList* GetParent() const noexcept { return iParent; }
  int GetIndBegin() const noexcept { return iIndBegin; }
  int GetIndEnd() const noexcept { return iIndEnd; }
  TRangeType GetRange() const noexcept { return iRange; }
  TDLDirectionType GetDirection() const noexcept { return iDirection; }
  // Direction, first and last index, axis: u"Right,1,500,Column".
  String GetCommatext() const;

  // Adds the run's decorations that apply to the cell to aVirtual, in the order of the list. Pitfall: the bisection may
  // miss some where they overlap, or have been changed or moved since the run was made; EListError where the run points
  // beyond the list.
  void Responsible(int aCol, int aRow, TDecorationList& aVirtual) const;

 private:
  friend class TDecorationList;
  bool Rises() const noexcept { return iDirection == dldtRight || iDirection == dldtDown || iDirection == dldtEqual; }
  // Calls Found(index) for what Responsible tests; SpanAt(index) is what an item covers along the axis.
  template <typename TSpanAt, typename TFound>
  void Search(int Position, TSpanAt SpanAt, TFound Found) const;
  // Looks whether the bisection finds all that apply.
  void Weigh();

  TDLRangeList* iParent;
  int iIndBegin;
  int iIndEnd;
  TRangeType iRange;
  TDLDirectionType iDirection;
  bool FIsUneven = false;  // the bisection would miss something
};

// The runs of a decoration list by rising first index; owns them.
class TDLRangeList : public TObjectList {
 public:
  explicit TDLRangeList(TDecorationList* aParent) noexcept : iParent(aParent) {}
  ~TDLRangeList() override { TObjectList::Clear(); }
  String ClassName() const override { return u"TDLRangeList"; }

  TDecorationList* GetParent() const noexcept { return iParent; }
  TDLRange* GetItems(int Index) const { return static_cast<TDLRange*>(Get(Index)); }
  // The run that begins with exactly that index of the decoration list; nullptr if there is none.
  TDLRange* GetRanges(int aIndBegin) const noexcept;
  // Where a run with that first index stands or would be put.
  int IndexSort(int aIndBegin) const noexcept;
  // The Commatext of each run, one a line.
  String GetText() const;

  // Takes a TDLRange over and puts it at its place, which is the result; anything else is refused with -1 and stays the
  // caller's.
  int Add(TObject* Object) override;
  // The same, whatever the Index.
  void Insert(int Index, TObject* Object) override;
  // Both do nothing but tell so in a dialog.
  void Exchange(int A, int B) override;
  void Move(int From, int To) override;

 private:
  TDecorationList* iParent;
};

}  // namespace vx
