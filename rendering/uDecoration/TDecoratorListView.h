// The decorator of list views: row 0 of the table are the heads of the columns, row n is the item n - 1.
//
// Example:
//   vx::TListView view;
//   vx::TDecorationList list;
//   vx::TRecordingCanvas canvas;
//   view.SetCanvas(&canvas);
//   view.SetViewStyle(vx::vsReport);
//   view.AddColumn(u"Name");
//   view.AddItem().SetCaption(u"Müller");
//   vx::DecoratorListView().Trim(view, list);
//   view.GetColumns(0).GetWidth();                       // 43
//
// Pitfall: SetComponent and SetDecorations only note what Trim() without arguments is about; whoever frees one of them
// takes it away again.
#pragma once

#include "platform/TListView.h"
#include "rendering/uDecoration/TDecorator.h"
#include "rendering/uDecoration/TTableSizes.h"

namespace vx {

class TDecoratorListView : public TDecorator {
 public:
  String ClassName() const override { return u"TDecoratorListView"; }
  TObject* GetComponent() const override { return FView; }
  // nullptr for anything but a TListView.
  void SetComponent(TObject* aComponent) override { FView = dynamic_cast<TListView*>(aComponent); }
  TDecorationList* GetDecorations() const noexcept { return FDecorations; }
  void SetDecorations(TDecorationList* Value) noexcept { FDecorations = Value; }
  // Of the view and the decorations that were set; nothing if one is missing.
  void Trim() override;

  // Sizes the columns by the trim modes (TTableSizes.h), the heads as high as the highest of them, and all items as
  // high as the highest one; the room is that of the view, for widths alone. The list's counts become the view's.
  // Nothing if the view has no canvas or is not of vsReport.
  void Trim(TListView& View, TDecorationList& List);
  // The list gets the view's counts, and whether rows are selected whole and heads can be clicked.
  void ReadLayout(const TListView& View, TDecorationList& List) const;
  // The view gets whether rows are selected whole, and the list's font and colour; a white one leaves the view's.
  void WriteLayout(TListView& View, const TDecorationList& List) const;
  // Widths of the columns and, as the first two heights, those of heads and items.
  TTableSizes ReadSizes(const TListView& View) const;
  void WriteSizes(TListView& View, const TTableSizes& Sizes) const;

  // Paints a cell of the view, or a head for an Item of nullptr, on its canvas, as OnDrawCell tells it. Nothing without
  // a canvas.
  void DrawItemCell(TListView& View, TDecorationList& List, TListItem* Item, int Col, const TRect& Rect,
                    TCustomDrawStates State);

 private:
  TListView* FView = nullptr;
  TDecorationList* FDecorations = nullptr;
};

// The one that all share; made at first use, and freed by uDecoration::FreeBuffersForLeakPrevention.
TDecoratorListView& DecoratorListView();

}  // namespace vx
