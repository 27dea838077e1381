#include "platform/TListView.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/Exceptions.h"
#include "platform/TCanvas.h"

namespace vx {
namespace {

// So that places add up to what an int64_t holds with ease.
constexpr int kMaxSize = 1 << 24;

}  // namespace

// --- items and columns ---

size_t TListSubItems::Checked(int Index, int Count) const {
  if (Index < 0 || Index >= Count) RaiseListError(SListIndexError, Index);
  return static_cast<size_t>(Index);
}

void TListSubItems::Changed() {
  if (FView != nullptr) FView->Invalidate();
}

String TListSubItems::Get(int Index) const { return FTexts[Checked(Index, GetCount())]; }

void TListSubItems::Put(int Index, const String& Text) {
  FTexts[Checked(Index, GetCount())] = Text;
  Changed();
}

TObject* TListSubItems::GetObject(int Index) const {
  const size_t at = Checked(Index, GetCount());
  return at < FObjects.size() ? FObjects[at] : nullptr;
}

void TListSubItems::PutObject(int Index, TObject* Object) {
  const size_t at = Checked(Index, GetCount());
  if (Object == nullptr && at >= FObjects.size()) return;
  if (at >= FObjects.size()) FObjects.resize(at + 1);
  FObjects[at] = Object;
}

void TListSubItems::Insert(int Index, const String& Text) {
  const auto at = static_cast<std::ptrdiff_t>(Checked(Index, GetCount() + 1));
  if (static_cast<size_t>(at) < FObjects.size()) FObjects.insert(FObjects.begin() + at, nullptr);
  FTexts.insert(FTexts.begin() + at, Text);
  Changed();
}

void TListSubItems::Delete(int Index) {
  const auto at = static_cast<std::ptrdiff_t>(Checked(Index, GetCount()));
  if (static_cast<size_t>(at) < FObjects.size()) FObjects.erase(FObjects.begin() + at);
  FTexts.erase(FTexts.begin() + at);
  Changed();
}

void TListSubItems::Clear() {
  FTexts.clear();
  FObjects.clear();
  Changed();
}

void TListItem::SetCaption(const String& Value) {
  if (FCaption == Value) return;
  FCaption = Value;
  if (FView != nullptr) FView->Invalidate();
}

void TListItem::SetSelected(bool Value) {
  if (FView == nullptr) {
    FSelected = Value;
  } else {
    FView->SelectItem(*this, Value);
  }
}

int TListItem::GetIndex() const { return FView == nullptr ? -1 : FView->IndexOf(*this); }

void TListColumn::SetCaption(const String& Value) {
  if (FCaption == Value) return;
  FCaption = Value;
  FView.Invalidate();
}

void TListColumn::SetWidth(int Value) {
  if (FWidth == std::clamp(Value, 0, kMaxSize)) return;
  FWidth = std::clamp(Value, 0, kMaxSize);
  FView.Invalidate();
}

void TListColumn::SetAlignment(TAlignment Value) {
  FAlignment = Value;
  FView.Invalidate();
}

int TListColumn::GetIndex() const noexcept {
  for (int i = 0; i < FView.GetColumnCount(); ++i) {
    if (&FView.GetColumns(i) == this) return i;
  }
  return -1;
}

TListColumn& TListView::AddColumn(const String& Caption, int Width) {
  auto column = std::make_unique<TListColumn>(*this);
  FColumns.Add(column.get());
  TListColumn& added = *column.release();
  added.SetCaption(Caption);
  added.SetWidth(Width);
  Invalidate();
  return added;
}

void TListView::DeleteColumn(int Index) {
  FColumns.Delete(Index);
  FHotHead = FPressedHead = -1;
  FHotCell.X = -1;
  Invalidate();
}

TListItem& TListView::InsertItem(int Index) {
  auto item = std::make_unique<TListItem>(this);
  item->FIndex = Index;
  FItems.Insert(Index, item.get());
  TListItem& added = *item.release();
  Invalidate();
  return added;
}

void TListView::DeleteItem(int Index) {
  const TListItem& item = GetItems(Index);
  if (item.FSelected) --FSelCount;
  if (FFocused == &item) FFocused = nullptr;
  FItems.Delete(Index);
  FHotCell = {-1, -1};
  SetTopIndex(FTopIndex);
  Invalidate();
}

void TListView::ClearItems() {
  FFocused = nullptr;
  FSelCount = FTopIndex = 0;
  FHotCell = {-1, -1};
  FItems.Clear();
  Invalidate();
}

int TListView::IndexOf(const TListItem& Item) const noexcept {
  if (Item.FView != this) return -1;
  const int known = Item.FIndex;
  if (known >= 0 && known < GetItemCount() && FItems.Get(known) == &Item) return known;
  for (int i = 0; i < GetItemCount(); ++i) FItems.Get(i)->FIndex = i;
  return Item.FIndex;
}

String TListView::CellText(int Col, int Index) const {
  if (Col < 0 || Index < 0 || Index >= GetItemCount()) return {};
  const TListItem& item = GetItems(Index);
  if (Col == 0) return item.GetCaption();
  return Col <= item.GetSubItems().GetCount() ? item.GetSubItems().Get(Col - 1) : String();
}

void TListView::Sort(FunctionRef<int(const TListItem& A, const TListItem& B)> Compare) {
  FItems.Sort([&](TObject* a, TObject* b) {
    return Compare(*static_cast<const TListItem*>(a), *static_cast<const TListItem*>(b));
  });
  Invalidate();
}

// --- look and selection ---

void TListView::SetRowHeight(int Value) { Change(FRowHeight, std::clamp(Value, 1, kMaxSize)); }

void TListView::SetHeadHeight(int Value) { Change(FHeadHeight, std::clamp(Value, 0, kMaxSize)); }

TListItem* TListView::GetSelected() const noexcept {
  if (FSelCount == 0) return nullptr;
  if (FFocused != nullptr && FFocused->FSelected && FSelCount == 1) return FFocused;
  for (int i = 0; i < GetItemCount(); ++i) {
    if (FItems.Get(i)->FSelected) return FItems.Get(i);
  }
  return nullptr;
}

void TListView::ClearSelection() {
  if (FSelCount == 0) return;
  if (FSelCount == 1 && FFocused != nullptr && FFocused->FSelected) {
    FFocused->FSelected = false;
  } else {
    for (int i = 0; i < GetItemCount(); ++i) FItems.Get(i)->FSelected = false;
  }
  FSelCount = 0;
  Invalidate();
}

void TListView::SelectItem(TListItem& Item, bool Value) {
  if (Item.FSelected == Value) return;
  if (Value && !FMultiSelect) ClearSelection();
  Item.FSelected = Value;
  FSelCount += Value ? 1 : -1;
  if (Value) FFocused = &Item;
  Invalidate();
}

void TListView::SetMultiSelect(bool Value) {
  TListItem* first = GetSelected();
  FMultiSelect = Value;
  if (Value || FSelCount < 2) return;
  ClearSelection();
  SelectItem(*first, true);
}

void TListView::SetItemIndex(int Value) {
  const TControlUpdate update(*this);
  ClearSelection();
  FFocused = nullptr;
  if (Value < 0 || Value >= GetItemCount()) return;
  SelectItem(GetItems(Value), true);
  const int whole = std::max((GetHeight() - (HasHeads() ? FHeadHeight : 0)) / FRowHeight, 1);
  if (Value < FTopIndex) SetTopIndex(Value);
  if (Value >= FTopIndex + whole) SetTopIndex(Value - whole + 1);
}

void TListView::SelectByMouse(TListItem& Item, TShiftState Shift) {
  TListItem* const from = FFocused;
  if (FMultiSelect && Shift.Has(ssCtrl)) {
    SelectItem(Item, !Item.FSelected);
  } else {
    ClearSelection();
    SelectItem(Item, true);
  }
  if (!FMultiSelect || !Shift.Has(ssShift) || from == nullptr) {
    FFocused = &Item;
    return;
  }
  const auto [first, last] = std::minmax({IndexOf(*from), IndexOf(Item)});
  for (int i = first; i <= last; ++i) SelectItem(GetItems(i), true);
  FFocused = from;
}

// --- places ---

void TListView::SetTopIndex(int Value) { Change(FTopIndex, std::max(0, std::min(Value, GetItemCount() - 1))); }

void TListView::SetLeftPixels(int Value) { Change(FLeftPixels, std::max(Value, 0)); }

TRect TListView::CellRect(int Col, int Index) const noexcept {
  if (Index < 0 ? !HasHeads() : Index < FTopIndex || Index >= GetItemCount()) return {};
  if (Col < 0 || (FViewStyle == vsReport ? Col >= GetColumnCount() : Col > 0)) return {};
  int64_t left = -int64_t{FLeftPixels}, width = GetWidth();
  if (FViewStyle == vsReport) {
    for (int i = 0; i < Col; ++i) left += FColumns.Get(i)->GetWidth();
    width = FColumns.Get(Col)->GetWidth();
  } else {
    left = 0;
  }
  const int head = HasHeads() ? FHeadHeight : 0;
  const int64_t top = Index < 0 ? 0 : head + (int64_t{Index} - FTopIndex) * FRowHeight;
  if (left >= GetWidth() || left + width <= 0 || top >= GetHeight()) return {};
  const TRect rect{static_cast<int>(left), static_cast<int>(top), static_cast<int>(left + width),
                   static_cast<int>(top) + (Index < 0 ? FHeadHeight : FRowHeight)};
  return rect.IsEmpty() ? TRect() : rect;
}

int TListView::ColumnAt(int X) const noexcept {
  if (X < 0 || X >= GetWidth()) return -1;
  if (FViewStyle != vsReport) return 0;
  int64_t right = -int64_t{FLeftPixels};
  for (int i = 0; i < GetColumnCount(); ++i) {
    right += FColumns.Get(i)->GetWidth();
    if (X < right) return i;
  }
  return -1;
}

TPoint TListView::MouseToCell(int X, int Y) const noexcept {
  const int head = HasHeads() ? FHeadHeight : 0;
  if (Y < 0 || Y >= GetHeight()) return {-1, -1};
  if (Y < head) return {ColumnAt(X), -1};
  const int64_t index = int64_t{FTopIndex} + (Y - head) / FRowHeight;
  if (index >= GetItemCount()) return {-1, -1};
  return {ColumnAt(X), static_cast<int>(index)};
}

// --- mouse ---

void TListView::Hover(int X, int Y) {
  const TPoint cell = MouseToCell(X, Y);
  Change(FHotHead, IsInHead(Y) ? cell.X : -1);
  Change(FHotCell, cell.Y < 0 ? TPoint{-1, -1} : cell);
}

void TListView::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  bool hasSelected = false;
  if (GetEnabled()) {
    const TControlUpdate update(*this);
    Hover(X, Y);
    if (Button == mbLeft) {
      Change(FPressedHead, FHotHead);
      hasSelected = FHotCell.Y >= 0 && (FRowSelect || FHotCell.X == 0);
      if (hasSelected) SelectByMouse(GetItems(FHotCell.Y), Shift);
    }
  }
  if (hasSelected && FOnSelect) FOnSelect(this);
  TControl::MouseDown(Button, Shift, X, Y);
}

void TListView::MouseMove(TShiftState Shift, int X, int Y) {
  if (GetEnabled()) Hover(X, Y);
  TControl::MouseMove(Shift, X, Y);
}

void TListView::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const int pressed = Button == mbLeft ? std::exchange(FPressedHead, -1) : -1;
  if (pressed >= 0) Invalidate();
  TControl::MouseUp(Button, Shift, X, Y);
  if (pressed < 0 || !GetEnabled() || !FOnColumnClick || !IsInHead(Y) || ColumnAt(X) != pressed) return;
  if (pressed < GetColumnCount()) FOnColumnClick(this, GetColumns(pressed));
}

void TListView::MouseLeave() {
  Change(FHotHead, -1);
  Change(FHotCell, {-1, -1});
  TControl::MouseLeave();
}

// --- painting ---

void TListView::PaintCell(TListItem* Item, int Col, int Index) {
  constexpr int kMargin = 2;
  const TRect rect = CellRect(Col, Index);
  if (rect.IsEmpty()) return;
  TCustomDrawStates state;
  if (Item != nullptr && Item->FSelected && (Col == 0 || FRowSelect)) state.Include(cdsSelected);
  if (Item != nullptr && Item == FFocused) state.Include(cdsFocused);
  if (Item != nullptr ? FHotCell.Y == Index && (FRowSelect || FHotCell.X == Col) : FHotHead == Col) {
    state.Include(cdsHot);
  }
  if (Item == nullptr && FPressedHead == Col) state.Include(cdsPressed);
  TCanvas& canvas = *GetCanvas();
  const TCanvasState saved(canvas);
  if (FOnDrawCell) return FOnDrawCell(this, Item, Col, rect, state);
  const bool isMarked = state.Has(cdsSelected);
  const String text = Item == nullptr ? GetColumns(Col).GetCaption() : CellText(Col, Index);
  TFont font = GetFont();
  if (isMarked) font.Color = clHighlightText;
  canvas.SetFont(font);
  canvas.SetBrush({isMarked ? clHighlight : Item == nullptr ? clBtnFace : GetColor()});
  const TAlignment side = FViewStyle == vsReport ? GetColumns(Col).GetAlignment() : taLeftJustify;
  const int surplus = rect.Width() - 2 * kMargin - canvas.TextWidth(text);
  const int shift = side == taRightJustify ? surplus : side == taCenter ? surplus / 2 : 0;
  canvas.TextRect(rect, rect.Left + kMargin + shift, rect.Top + kMargin, text);
}

void TListView::Paint() {
  if (GetCanvas() == nullptr) return;
  const TCanvasState saved(*GetCanvas());
  GetCanvas()->SetBrush({GetColor()});
  GetCanvas()->FillRect(GetClientRect());
  const int columns = FViewStyle == vsReport ? GetColumnCount() : 1;
  const int rows = GetHeight() / FRowHeight + 1;
  const int last = static_cast<int>(std::min<int64_t>(GetItemCount(), int64_t{FTopIndex} + rows));
  for (int col = 0; col < columns; ++col) {
    if (HasHeads()) PaintCell(nullptr, col, -1);
    if (CellRect(col, FTopIndex).IsEmpty()) continue;
    for (int i = FTopIndex; i < last; ++i) PaintCell(&GetItems(i), col, i);
  }
}

}  // namespace vx
