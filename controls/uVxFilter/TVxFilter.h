// The filter bar.
#pragma once

#include "controls/uVxFilter/TVxFilterItem.h"
#include "controls/uVxFilter/TVxPaintBox.h"
#include "platform/TPopupMenu.h"
#include "services/uVxEvents/Signals.h"

namespace vx {

class TCsvView;

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
  // Puts the items side by side; Paint and the mouse do that, too.
  void Realign();
  // The item at that place; nullptr for none.
  TVxFilterItem* ItemAt(int X, int Y);

  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;

 protected:
  void PaintContent(TCanvas& Canvas) override;

 private:
  void ResetClick(TObject* Sender);
  void TellStopped();

  TPopupMenu iFilterPopup;
  TVxFilterItems iItems{this};
  int iLeftCol = 0;
  TNotifyEvent iOnChanged, iOnDestroy;
  TNotifySignal iSigChanged;
  int iSplitLineWidth = 1;
  TCsvView* FView = nullptr;
};

}  // namespace vx
