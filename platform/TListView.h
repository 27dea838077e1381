// A list of items in columns, without a screen.
//
//   TListView, TListColumn             columns, items, selection, sorting, mouse, painting
//   TListItem                          see platform/ListItem.h
//   TViewStyle                         how items are shown
//   TCustomDrawState, TCustomDrawStates, TListDrawEvent, TColumnClickEvent    what its events tell
//
// Example:
//   vx::TListView view;
//   view.SetViewStyle(vx::vsReport);
//   view.AddColumn(u"Name", 80);
//   view.AddColumn(u"Ort");
//   vx::TListItem& item = view.AddItem();
//   item.SetCaption(u"Müller");
//   item.SubItems().Add(u"Köln");
//   view.CellRect(1, 0).Left;                  // 80
//   view.MouseToCell(85, 30).X;                // 1
//
// Column 0 is the caption of an item, column n its sub-item n - 1. Columns and items are the view's own; their
// references end when they are deleted. Indexes outside raise EListError where nothing else is told.
//
// Threads: all of it belongs to the thread of its window; a program without windows uses it in one thread at a time.
//
// Pitfall: only vsReport has columns; in the other styles the captions stand one below the other over the whole width.
#pragma once

#include <cstdint>

#include "platform/ListItem.h"
#include "platform/TControl.h"
#include "platform/TObjectList.h"

namespace vx {

enum TViewStyle : uint8_t { vsIcon, vsSmallIcon, vsList, vsReport };

enum TCustomDrawState : uint8_t {
  cdsSelected,
  cdsFocused,
  cdsHot,     // under the mouse
  cdsPressed  // a head, and the left button went down there
};
using TCustomDrawStates = Set<TCustomDrawState>;

class TListColumn : public TObject {
 public:
  explicit TListColumn(TListView& View) noexcept : FView(View) {}
  String ClassName() const override { return u"TListColumn"; }
  const String& GetCaption() const noexcept { return FCaption; }
  void SetCaption(const String& Value);
  // In pixels, held to 0 to 2^24; 50 at first.
  int GetWidth() const noexcept { return FWidth; }
  void SetWidth(int Value);
  TAlignment GetAlignment() const noexcept { return FAlignment; }
  void SetAlignment(TAlignment Value);
  int GetIndex() const noexcept;

 private:
  TListView& FView;
  String FCaption;
  int FWidth = 50;
  TAlignment FAlignment = taLeftJustify;
};

// Paints a cell in the view's place; Item is nullptr for the head of the column.
using TListDrawEvent =
    Method<void(TObject* Sender, TListItem* Item, int Col, const TRect& Rect, TCustomDrawStates State)>;
using TColumnClickEvent = Method<void(TObject* Sender, TListColumn& Column)>;

class TListView : public TControl {
 public:
  // 250 x 150 pixels, vsIcon.
  TListView() { SetBounds({0, 0, 250, 150}); }
  String ClassName() const override { return u"TListView"; }

  // --- columns ---
  int GetColumnCount() const noexcept { return FColumns.GetCount(); }
  TListColumn& GetColumns(int Index) const { return *FColumns.Get(Index); }
  TListColumn& AddColumn(const String& Caption = {}, int Width = 50);
  void DeleteColumn(int Index);

  // --- items ---
  int GetItemCount() const noexcept { return FItems.GetCount(); }
  TListItem& GetItems(int Index) const { return *FItems.Get(Index); }
  TListItem& AddItem() { return InsertItem(GetItemCount()); }
  // Index may be the count.
  TListItem& InsertItem(int Index);
  void DeleteItem(int Index);
  void ClearItems();
  // -1 for an item of another view. Mostly O(1).
  int IndexOf(const TListItem& Item) const noexcept;
  // The text of a cell; empty where there is none.
  String CellText(int Col, int Index) const;
  // Puts the items in the order of Compare; equal ones stay in theirs. Selection and focus stay with their items.
  void Sort(FunctionRef<int(const TListItem& A, const TListItem& B)> Compare);
  // The same by a comparison that is handed Data, such as CustomSortProc and its TSortColumn.
  template <typename T>
  void CustomSort(int (*Compare)(const TListItem& A, const TListItem& B, const T* Data), const T* Data) {
    Sort([&](const TListItem& a, const TListItem& b) { return Compare(a, b, Data); });
  }

  // --- look and behaviour ---
  TViewStyle GetViewStyle() const noexcept { return FViewStyle; }
  void SetViewStyle(TViewStyle Value) { Change(FViewStyle, Value); }
  // The user can't change captions.
  bool GetReadOnly() const noexcept { return FReadOnly; }
  void SetReadOnly(bool Value) noexcept { FReadOnly = Value; }
  bool GetShowColumnHeaders() const noexcept { return FShowColumnHeaders; }
  void SetShowColumnHeaders(bool Value) { Change(FShowColumnHeaders, Value); }
  // The selection is not shown while the view has no focus.
  bool GetHideSelection() const noexcept { return FHideSelection; }
  void SetHideSelection(bool Value) { Change(FHideSelection, Value); }
  bool GetMultiSelect() const noexcept { return FMultiSelect; }
  // Without it only the first selected item stays so.
  void SetMultiSelect(bool Value);
  bool GetRowSelect() const noexcept { return FRowSelect; }
  void SetRowSelect(bool Value) { Change(FRowSelect, Value); }
  // In pixels, held to 1 to 2^24; 20 at first.
  int GetRowHeight() const noexcept { return FRowHeight; }
  void SetRowHeight(int Value);
  // Of the heads of columns; 24 at first. They are there in vsReport, with ShowColumnHeaders.
  int GetHeadHeight() const noexcept { return FHeadHeight; }
  void SetHeadHeight(int Value);
  bool HasHeads() const noexcept { return FViewStyle == vsReport && FShowColumnHeaders; }

  // --- selection ---
  // The first selected item, nullptr for none; and how many there are.
  TListItem* GetSelected() const noexcept;
  int GetSelCount() const noexcept { return FSelCount; }
  void ClearSelection();
  // The item that the user moved to last, -1 for none.
  int GetItemIndex() const noexcept { return FFocused == nullptr ? -1 : IndexOf(*FFocused); }
  // Selects that item alone and scrolls to it; none for -1 and other indexes outside.
  void SetItemIndex(int Value);

  // --- places ---
  // The first item that is shown, and the pixels that the columns are scrolled to the left.
  int GetTopIndex() const noexcept { return FTopIndex; }
  void SetTopIndex(int Value);
  int GetLeftPixels() const noexcept { return FLeftPixels; }
  void SetLeftPixels(int Value);
  // Of the cell, or for an Index of -1 of the head, in the client's pixels; all zeros if it can't be seen.
  TRect CellRect(int Col, int Index) const noexcept;
  // The column (X) and the item (Y) at that place, each -1 for none. At a head Y is -1.
  TPoint MouseToCell(int X, int Y) const noexcept;
  bool IsInHead(int Y) const noexcept { return HasHeads() && Y >= 0 && Y < FHeadHeight; }

  // --- mouse and painting ---
  // The item under the mouse, and the column whose head is; -1 for none.
  int GetHotIndex() const noexcept { return FHotCell.Y; }
  int GetHotHead() const noexcept { return FHotHead; }
  // A left button selects the item; with Ctrl, and MultiSelect, it changes the one alone, with Shift all from the
  // item before on.
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  // A left button that went down and comes up over a head is a click on its column.
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseLeave() override;
  // The ground, the heads, and the cells that can be seen.
  void Paint() override;
  const TListDrawEvent& GetOnDrawCell() const noexcept { return FOnDrawCell; }
  void SetOnDrawCell(TListDrawEvent Value) { Change(FOnDrawCell, Value); }
  const TColumnClickEvent& GetOnColumnClick() const noexcept { return FOnColumnClick; }
  void SetOnColumnClick(TColumnClickEvent Value) noexcept { FOnColumnClick = Value; }
  // After the selection has changed.
  const TNotifyEvent& GetOnSelect() const noexcept { return FOnSelect; }
  void SetOnSelect(TNotifyEvent Value) noexcept { FOnSelect = Value; }

 private:
  friend class TListItem;
  void SelectItem(TListItem& Item, bool Value);
  void SelectByMouse(TListItem& Item, TShiftState Shift);
  void Hover(int X, int Y);
  void PaintCell(TListItem* Item, int Col, int Index);
  int ColumnAt(int X) const noexcept;

  TObjectListOf<TListColumn> FColumns;
  TObjectListOf<TListItem> FItems;
  TListItem* FFocused = nullptr;
  int FSelCount = 0, FTopIndex = 0, FLeftPixels = 0, FRowHeight = 20, FHeadHeight = 24;
  int FHotHead = -1, FPressedHead = -1;
  TPoint FHotCell{-1, -1};
  TViewStyle FViewStyle = vsIcon;
  bool FReadOnly = false, FShowColumnHeaders = true, FHideSelection = true, FMultiSelect = false, FRowSelect = false;
  TListDrawEvent FOnDrawCell;
  TColumnClickEvent FOnColumnClick;
  TNotifyEvent FOnSelect;
};

}  // namespace vx
