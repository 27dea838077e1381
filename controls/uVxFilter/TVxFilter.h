// The filter bar.
//
// Threads: all of it belongs to the thread of its window.
#pragma once

#include <vector>

#include "controls/uVxFilter/TVxFilterItem.h"
#include "controls/uVxFilter/TVxPaintBox.h"
#include "platform/TPopupMenu.h"
#include "services/uVxEvents/Signals.h"

namespace vx {

class TCsvView;

// Where an item stands, in pixels of the bar, and the part of the bar in which it may be seen.
struct TFilterPlace {
  int Left = 0;
  int Width = 0;
  int From = 0;
  int To = 0;  // behind it
};

// 18 pixels high, in clBtnFace. A left click on an item opens its window, a right click anywhere the menu.
class TVxFilter : public TVxPaintBox {
 public:
  TVxFilter();
  // Calls OnDestroy.
  ~TVxFilter() override;
  String ClassName() const override { return u"TVxFilter"; }

  // Shows the rows of aView whose cells pass the items of their columns, and hides all others; fixed rows at its top
  // and bottom stay as they are. Each row is asked once, hidden ones too, and only until a column fails; columns
  // without an item, and items beyond the cells of a row, pass. Nothing for nullptr. A regular expression that was
  // given up on a cell (see TRegEx) is told in one message, once for each expression.
  void Filter(TCsvView* aView);
  // Binds the bar to a view, which is not owned and has to live as long as it is bound: drops the items beyond the
  // cells of its first row, hidden or not, and finds the kind of all others. nullptr unbinds, and drops nothing.
  void SetFilter(TCsvView* aView);
  TCsvView* GetView() const noexcept { return FView; }
  // Empties the values of all items.
  void Reset();
  // Calls OnChanged, then emits SigChanged. Called after each change of a value.
  void Changed();

  TVxFilterItems& GetItems() noexcept { return iItems; }
  const TVxFilterItems& GetItems() const noexcept { return iItems; }
  // "Filter zurücksetzen", with the hint "löscht alle gesetzten Filterwerte", calls Reset.
  TPopupMenu& GetFilterPopup() noexcept { return iFilterPopup; }
  // Every change of a value, with the bar as its sender.
  TNotifySignal& GetSigChanged() noexcept { return iSigChanged; }
  const TNotifyEvent& GetOnChanged() const noexcept { return iOnChanged; }
  void SetOnChanged(TNotifyEvent Value) noexcept { iOnChanged = Value; }
  const TNotifyEvent& GetOnDestroy() const noexcept { return iOnDestroy; }
  void SetOnDestroy(TNotifyEvent Value) noexcept { iOnDestroy = Value; }

  // The first column to be seen behind the fixed ones at the left: what lies before it is scrolled away.
  int GetLeftCol() const noexcept { return iLeftCol; }
  void SetLeftCol(int Value) { Change(iLeftCol, Value); }
  // Between items, in pixels; 1 at first.
  int GetSplitLineWidth() const noexcept { return iSplitLineWidth; }
  void SetSplitLineWidth(int Value) { Change(iSplitLineWidth, Value); }
  // Where a table has its columns on the screen: by index of the item, with no width for one that is not seen. None, as
  // at first: side by side in their order, as GetLeftCol and their widths tell.
  void SetPlaces(std::vector<TFilterPlace> Value);
  // Puts the items where they stand; Paint and the mouse do that, too.
  void Realign();
  // Of an item, as far as its place may be seen; empty for nothing.
  TRect ItemRect(int Index) const noexcept;
  // The item at that place; nullptr for none.
  TVxFilterItem* ItemAt(int X, int Y);

  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;

 protected:
  void PaintContent(TCanvas& Canvas) override;

 private:
  void ResetClick(TObject* Sender);
  void TellStopped();
  void TakePlaces();

  TPopupMenu iFilterPopup;
  TVxFilterItems iItems{this};
  std::vector<TFilterPlace> iPlaces;
  int iLeftCol = 0;
  TNotifyEvent iOnChanged, iOnDestroy;
  TNotifySignal iSigChanged;
  int iSplitLineWidth = 1;
  TCsvView* FView = nullptr;
};

}  // namespace vx
