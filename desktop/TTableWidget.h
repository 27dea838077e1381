// A typed table in a window of Qt: the library's own painter on the screen.
//
// Example:
//   vx::InstallDrawing();
//   vx::TCsvView patients;
//   patients.LoadFromFile(u"patienten.vxt");
//   patients.GetDecorations().SetFixed(0, 1, 0, 0);
//   vx::TTableWidget widget;
//   widget.SetTable(&patients);
//   widget.show();
//   patients.AddRow({u"Müller", u"Anna"});
//   widget.TableChanged();                                  // it is seen
//
// The cells are painted from the table into a picture in memory, which is then shown; nothing is copied out of the
// table, and nothing kept for a row. Fixed columns and rows of the decorations stay where they are, the others scroll
// by pixels. A click on a head sorts and a right click on one of dates offers their grouping, as the option
// dloColumnClick says; the right button on any other head, or with Shift, offers the columns. The edge of a head is
// dragged for another width, and double clicked for the fitting one; with the mouse held down on it, a column is moved.
// Order, widths and hidden columns are those of the screen alone: the table stays as it is.
//
// Keys: arrows, Home, End, page keys and Ctrl with them go, with Shift they select, Ctrl+A selects all, Ctrl+Space and
// Shift+Space columns and rows; F7 sorts by the column, Shift+F7 offers the grouping of dates, the menu key the
// columns. In a table that can be changed (SetHistory) F2, a double click or a letter edits the cell, Space turns a box
// over, Return and Tab keep the text and go on, Escape gives it up; Ctrl+Tab leaves the table. Ctrl with X, C, V, Z and
// Y, and Delete, are what they are everywhere.
//
// Columns and rows are told as the table counts them, wherever they stand on the screen.
//
// Pitfalls:
//   - The table is not owned and does not tell when it goes: SetTable(nullptr) before it is freed. The same for a
//     table that moves.
//   - It does not tell either when its cells change: TableChanged after that. Rows that came or went are found at the
//     next painting, so that none is painted that is not there.
//   - Without a drawing component (InstallDrawing) nothing can be painted, and showing raises.
//
// As all widgets it is for the main thread; so is its table while it is shown.
#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <memory>
#include <vector>

#include "controls/TableEditing.h"
#include "platform/Graphics.h"
#include "platform/String.h"

namespace vx {

class TTypeCsv;
class TTableScene;

namespace detail {
class TTableEditing;
class TTableParts;
}  // namespace detail

class TTableWidget : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit TTableWidget(QWidget* Parent = nullptr);
  ~TTableWidget() override;

  // Not owned; nullptr for none. Columns get the widths that the first rows ask for, and the place is the left top one.
  TTypeCsv* GetTable() const noexcept;
  void SetTable(TTypeCsv* Value);
  // Cells, rows, decorations or their order are others than before: all is painted anew. Widths, and the place as far
  // as there still is one, stay.
  void TableChanged();
  // The same for one cell.
  void CellChanged(int Col, int Row);

  // --- places; pixels of the viewport ---
  // (-1, -1) for none, (column, -1) below the last row, (-1, row) beside the last column.
  TPoint CellAt(QPoint Place) const;
  // Without the lines around it; empty for a hidden column or no cell. May lie outside of what is seen.
  QRect CellRect(int Col, int Row) const;
  // Scrolls no further than needed.
  void EnsureVisible(int Col, int Row);
  // The cell with the focus, the first of the content at first; (-1, -1) if there is none. Setting it selects it alone
  // and scrolls there; a hidden or fixed cell is not taken.
  TPoint GetCurrentCell() const noexcept;
  void SetCurrentCell(TPoint Value);

  // --- columns ---
  int GetColumnWidth(int Col) const;
  void SetColumnWidth(int Col, int Value);
  bool GetColumnHidden(int Col) const;
  // The last column that is shown can't be hidden.
  void SetColumnHidden(int Col, bool Value);
  // The place of a column from the left, hidden ones counted.
  int GetColumnPlace(int Col) const;
  void SetColumnPlace(int Col, int Place);
  // All columns, or one, as wide as its cells ask for, and as the trim modes of the decorations say.
  void FitColumns();
  void FitColumn(int Col);
  // Each row as high as it asks for, until rows come, go or are sorted; without it all of the content are alike.
  void FitRows();
  // Order, widths and hidden columns as a text to keep (TTableColumns); reading it never raises.
  String GetLayout() const;
  void SetLayout(const String& Value);
  // Offers fitting, hiding and showing of columns, at a place of the screen; Col is the one that is meant, or -1.
  void ShowColumnMenu(int Col, QPoint Global);

  // --- selection ---
  // By places on the screen, which count the shown columns from the left.
  const TTableSelection& GetSelection() const noexcept;
  // The table's columns by these places; until the layout changes.
  const std::vector<int>& GetShownColumns() const noexcept;
  bool IsSelected(int Col, int Row) const;
  // Goes to the next cell with the text (FindCell of controls/TableEditing.h); false if there is none.
  bool FindNext(const String& Text, TFindOptions Options = {});

  // --- editing ---
  // Makes the changes of the user and remembers them; not owned. Without one, as at first and after SetTable, nothing
  // can be changed.
  TTableHistory* GetHistory() const noexcept;
  void SetHistory(TTableHistory* Value);
  // Asked before a cell is changed; empty: all cells may be.
  void SetMayEdit(std::function<bool(int Col, int Row)> Value);
  // The masked editor that the type of the current cell asks for. False where the cell can't be edited.
  bool BeginEdit();
  // Keep: the text goes into the cell. False if it is no value of the cell's type: Refused tells, and the editor stays.
  bool EndEdit(bool Keep);
  // The editor on the cell, the widget's; nullptr for none.
  QWidget* GetEditor() const noexcept;
  // What the keys and the window's menus do.
  void Undo();
  void Redo();
  void Cut();
  void Copy();
  void Paste();
  void ClearSelected();

  // --- looks ---
  // The row of the content under the mouse is the HoverIndex of the decorations, which mark it. True at first.
  bool GetShowHover() const noexcept;
  void SetShowHover(bool Value);
  // What stands there while the table has no row of content.
  const String& GetEmptyText() const noexcept;
  void SetEmptyText(const String& Value);

  // What can be seen of the table; for reading.
  const TTableScene& GetScene() const noexcept;

 signals:
  // Widths, order or hiding of columns are others.
  void LayoutChanged();
  // A click on a head has sorted the table.
  void Sorted(int Col);
  // The left button went down and up on a vftButton or vftToggle with a text.
  void ButtonClicked(int Col, int Row);
  void CellDoubleClicked(int Col, int Row);
  void CurrentCellChanged(int Col, int Row);
  void SelectionChanged();
  // The user has changed cells, also by undoing; GetHistory tells whether the table is another one than was saved.
  void Edited();
  // A text that is no value of its cell's type, or what a paste could not put in.
  void Refused(const QString& Text);
  // The place has changed, in pixels.
  void Scrolled(int X, int Y);

 protected:
  bool viewportEvent(QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;
  void resizeEvent(QResizeEvent* Event) override;
  void scrollContentsBy(int DX, int DY) override;
  void mousePressEvent(QMouseEvent* Event) override;
  void mouseMoveEvent(QMouseEvent* Event) override;
  void mouseReleaseEvent(QMouseEvent* Event) override;
  void mouseDoubleClickEvent(QMouseEvent* Event) override;
  void keyPressEvent(QKeyEvent* Event) override;
  bool focusNextPrevChild(bool IsNext) override;
  void contextMenuEvent(QContextMenuEvent* Event) override;
  void changeEvent(QEvent* Event) override;
  void focusInEvent(QFocusEvent* Event) override;
  void focusOutEvent(QFocusEvent* Event) override;

 private:
  friend class detail::TTableParts;
  friend class detail::TTableEditing;
  std::unique_ptr<detail::TTableParts> FParts;
};

}  // namespace vx
