// Selection, keys, editing in place and the clipboard of TTableWidget.
#pragma once

#include <QPointer>
#include <functional>
#include <vector>

#include "controls/TableEditing.h"

class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace vx {

class TVxStringList;

namespace detail {

class TTableParts;

class TTableEditing {
 public:
  using TMayEdit = std::function<bool(int Col, int Row)>;

  explicit TTableEditing(TTableParts& Parts) noexcept : FParts(Parts) {}

  // In step with the table and its columns: the current cell goes with its row.
  void Sync();
  // Nothing is selected, nothing edited.
  void Forget();

  TTableSelection Selection;         // by places on the screen
  TTableHistory* History = nullptr;  // nullptr: nothing can be changed
  TMayEdit MayEdit;

  const std::vector<int>& ShownColumns() const noexcept { return FColumns; }
  bool IsSelected(int Col, int Row) const;
  // The current cell in the table's columns; (-1, -1) for none.
  TPoint Current() const noexcept;
  void MoveTo(int Col, int Row);

  // --- events; true: dealt with ---
  bool Key(QKeyEvent& Event);
  void Press(const QMouseEvent& Event, TPoint Cell);
  bool Drag(const QMouseEvent& Event);

  // --- what keys and menus do ---
  bool BeginEdit(const QString& Typed = {});
  // Keep: the text goes into the cell. False if it is no value of the cell's type, and the editor stays.
  bool EndEdit(bool Keep);
  bool IsEditing() const noexcept { return FEditor != nullptr; }
  QWidget* Editor() const noexcept { return FEditor; }
  // The editor stands on its cell, wherever that is now.
  void PlaceEditor();
  bool Toggle();
  void Undo();
  void Redo();
  void Copy() const;
  void Cut();
  void Paste();
  void ClearSelected();
  bool Find(const String& Text, TFindOptions Options);

 private:
  TPoint PlaceOf(int Col, int Row) const noexcept;
  bool CanEdit(TPoint Cell) const;
  TMayPut MayPut() const;
  bool CommandKey(QKeyEvent& Event);
  bool TypedKey(const QKeyEvent& Event);
  // What was selected before, or is: painted anew.
  void Changed(TPoint Before);
  void Edited(const TTableStep& Step);
  QString EditorText() const;

  TTableParts& FParts;
  std::vector<int> FColumns, FPlaces;   // shown columns by place, and back: -1 for hidden ones
  const TVxStringList* FRow = nullptr;  // of the current cell; only to be compared
  QPointer<QWidget> FEditor;
  TPoint FEdited{-1, -1};
  QString FBefore;  // the editor's text at its beginning
};

}  // namespace detail
}  // namespace vx
