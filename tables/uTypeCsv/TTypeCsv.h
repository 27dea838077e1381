// The table with a head whose cells have types and looks. The unit's header tells the whole and its pitfalls.
#pragma once

#include <memory>
#include <unordered_map>

#include "objects/uVxClasses/TVxIntegerList.h"
#include "platform/TListView.h"
#include "platform/TStringGrid.h"
#include "platform/Types.h"
#include "rendering/uDecoration/TCellSource.h"
#include "rendering/uDecoration/TDecorationList.h"
#include "rendering/uDecoration/TSortedTable.h"
#include "rendering/uDecoration/TTableSizes.h"
#include "tables/uFileCsv/THeadCsv.h"
#include "tables/uTypeCsv/TRowCompare.h"

namespace vx {

class TBitmap;
class TTypeCsv;

// Before a sort, where Permitted begins as true and false stops it, and after one, where it is of no matter. Col and
// Row are the cell that was clicked.
using TVxSortEvent = Method<void(TTypeCsv& Table, int Col, int Row, bool& Permitted)>;
// Before and after the painting of a cell: Rect is the cell on the canvas, Decoration its effective decoration.
using TCsvDrawEvent =
    Method<void(TTypeCsv& Table, TCanvas& Canvas, int Col, int Row, TRect& Rect, TDecoration& Decoration)>;

// Fixed rows at the top and at the bottom, of which the decorations tell, take no part in sorting and ClearContent.
// What lies between them is the content.
class TTypeCsv : public THeadCsv, public TSortedTable, public TCellSource {
 public:
  explicit TTypeCsv(bool OwnsObjects = true);
  ~TTypeCsv() override;
  String ClassName() const override { return u"TTypeCsv"; }
  [[nodiscard]] std::unique_ptr<TFileCsv> GetNewInstance() const override;
  // Clear, the decorations as those of a new list, and the format of dates as at first. Events stay.
  void Init() override;
  // No rows, and no sort has been. The decorations stay.
  void Clear() override;

  // Also takes over the decorations of a typed table, and of its two events for drawing those that are set.
  void Assign(const TFileCsv& Source) override;
  // A copy of the same class.
  [[nodiscard]] std::unique_ptr<TTypeCsv> Duplicate() const;
  // Deletes the content, the last row first.
  virtual void ClearContent();
  // With dloDimensionBySet the table first grows, by rows without cells and by empty cells, up to this one.
  void SetCell(int Col, int Row, const String& Text) override;

  // The number of fixed rows at the top, and the index behind the last row of the content.
  int GetContentTop() const noexcept { return iDecorations->GetFixed().Top; }
  int GetContentCount() const noexcept { return GetCount() - iDecorations->GetFixed().Bottom; }
  // How the regions of the table look and are read; the table's own, whose parent is this table.
  TDecorationList& GetDecorations() const noexcept { return *iDecorations; }

  // --- sorting ---
  // Puts the content in the order of a column, by its type; rows that are equal stay as they stood. With TS_NONE
  // ascending, or descending if the last sort was by the same column and ascending. A DateFormat that is not empty is
  // SortDateFormat from then on. (Col, Row) is the SortCell then. Indices, which may be nullptr: see CustomSort.
  // Nothing happens if Col or Row is -1, or OnSort says so.
  void Sort(int Col, int Row, TSortOrder Order = TS_NONE, const String& DateFormat = String(),
            TVxIntegerList* Indices = nullptr);
  // Puts the content in the order of Compare, which gets Column; equal rows stay as they stood. Indices, unless
  // nullptr, tells for each row where it stood before, the fixed ones among them. What Compare raises goes to the
  // caller, and nothing has changed then. No notification: no row comes or goes.
  virtual void CustomSort(TRowCompare Compare, const TSortColumn* Column, TVxIntegerList* Indices);
  // The cell by which the table was sorted last, (-1, -1) at first, and the direction.
  TPoint GetSortCell() const noexcept override { return SortCell; }
  void SetSortCell(TPoint Value) noexcept { SortCell = Value; }
  TSortOrder GetSortDirection() const noexcept { return SortDirection; }
  void SetSortDirection(TSortOrder Value) noexcept { SortDirection = Value; }
  TSortArrow GetSortArrow() const noexcept override;
  // How dates are sorted, u"yyyymmddhhnnss" at first; for dates the three below are made. u"yyyymmdd" is fast.
  const String& GetSortDateFormat() const noexcept { return iSortDateFormat; }
  void SetSortDateFormat(const String& Value) { iSortDateFormat = Value; }
  // Where each row stood before the sort, while a click on a head sorts a table without decorations of single content
  // rows; else nullptr.
  TVxIntegerList* GetSortIndices() const noexcept { return iSortIndices.get(); }
  // The choices of a menu: the next sort by a date goes by day, month and year in the order u"ddmmyyyy", u"mmddyyyy" or
  // u"yyyymmdd".
  void OnChangeToDay(TObject* Sender);
  void OnChangeToMonth(TObject* Sender);
  void OnChangeToYear(TObject* Sender);
  // Offers these three in a menu at the mouse, if the column is one of dates; another format than before makes the next
  // sort an ascending one. True if there is a format then, so also where nothing was chosen; false for other columns
  // and for what is no TControl.
  bool PopupDateFormat(TObject* Control, int Col);

  // --- text ---
  // A plain table of what is visible, for a file or a printer: commatexts as lines, rich texts without their marks,
  // indexes of images as the names of these, line feeds between lines; every other cell as it stands.
  //   Images   the names by index; one that is missing stays a number, one that is empty is dropped. With nullptr the
  //            names are those of the cell's image list.
  //   Copy     whether a table without anything of the kind is copied, too. If not, the result is nullptr then, and the
  //            caller goes on with this table.
  // Pitfall: whether there is something of the kind is asked of all decorations but the last one; that is wanted.
  [[nodiscard]] std::unique_ptr<TFileCsv> ExportToCsv(const std::unordered_map<int, String>* Images, bool Copy) const;

  // --- controls; a Target or Sender of another kind than is told is ignored ---
  // Tells the decorations how many columns and rows there are: in Target if that is a TStringGrid, else in this table.
  void DecorationsCounts(TObject* Target = nullptr);
  // Takes over the cells of the grid, and its fixed border and lines into the decorations. The flag is of no matter.
  void GetGrid(const TStringGrid& Grid, bool DropFirstCol) override;
  // Fills the grid, without numbers of rows, gives it what the decorations say of its border, lines, font and colours,
  // and calls OnSetGrid. Its cells are to be painted by DrawGrid then. The flag is of no matter.
  void SetGrid(TStringGrid& Grid, bool WithNumbers) override;
  using THeadCsv::GetListView;
  // Appends the captions of the columns and all items of the view, and takes its layout into the decorations.
  int GetListView(const TListView& View);
  // Makes the view a report with heads that shows all body rows, and gives it the layout that the decorations say.
  void SetListView(TListView& View);
  // Sizes the columns and rows of a TStringGrid, TListView or TPaintBox to what they hold (see TTableSizes.h). Those of
  // a paint box are DecoratorCanvas().GetSizes() then.
  void Trim(TObject* Target);
  // The same for a canvas: the sizes for a table that stands at Rect and has room for Width and Height pixels; 0 and
  // below stand for those of Rect.
  [[nodiscard]] TTableSizes TrimDevice(TCanvas& Canvas, const TRect& Rect, int Width = 0, int Height = 0);

  // Paint a cell, as the events of these controls tell it, on their canvas; a paint box, a canvas and a bitmap get the
  // states as the decorator has them. Rect is the place of the cell. Nothing for a control without a canvas.
  void DrawGrid(TObject* Sender, int Col, int Row, const TRect& Rect, TGridDrawStates State);
  void DrawListView(TObject* Sender, TListItem* Item, int Col, const TRect& Rect, TCustomDrawStates State);
  void DrawPaintBox(TObject* Sender, int Col, int Row, const TRect& Rect, TDecorationDrawStates State);
  void DrawDevice(TCanvas& Canvas, int Col, int Row, const TRect& Rect, TDecorationDrawStates State);
  void DrawBitmap(TBitmap& Bitmap, int Col, int Row, const TRect& Rect, TDecorationDrawStates State);

  // A click on a head of a TListView: offers the formats of dates, sorts, and fills the view anew.
  void MouseColumnClick(TObject* Sender, TListColumn& Column);
  // What a TStringGrid tells.
  void MouseDown(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y);
  void MouseMove(TObject* Sender, TShiftState Shift, int X, int Y);
  // With dloColumnClick, in the grid's fixed rows: the left button sorts by that column and fills the grid anew, the
  // right one offers the formats of dates before, and does nothing on a column of other values.
  void MouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y);
  // The same on a cell of a control of any kind, whose Show shows the rows anew while SortIndices are there. True if
  // the table was to be sorted.
  bool ClickHead(TObject* Control, int Col, int Row, TMouseButton Button, FunctionRef<void()> Show);
  // The row under the mouse, -1 for none; repaints Control, which may be nullptr.
  void SetHoverIndex(TControl* Control, int Index);

  // --- the table as a decorator reads it ---
  int CellCols() const override { return FieldCount(); }
  int CellRows() const override { return GetCount(); }
  std::span<const String> RowTexts(int Row) override { return GetLines(Row)->Items(); }
  TObject* CellObject(int Col, int Row) override { return GetObject(Col, Row); }

  // --- events ---
  // Around the painting of a cell. Setting one takes the place of the callback of the decorations, and an empty one
  // takes it away.
  const TCsvDrawEvent& GetOnPostDraw() const noexcept { return iOnPostDraw; }
  void SetOnPostDraw(TCsvDrawEvent Value);
  const TCsvDrawEvent& GetOnPreDraw() const noexcept { return iOnPreDraw; }
  void SetOnPreDraw(TCsvDrawEvent Value);
  // After a grid was filled.
  const TNotifyEvent& GetOnSetGrid() const noexcept { return iOnSetGrid; }
  void SetOnSetGrid(TNotifyEvent Value) noexcept { iOnSetGrid = Value; }
  const TVxSortEvent& GetOnSort() const noexcept { return iOnSort; }
  void SetOnSort(TVxSortEvent Value) noexcept { iOnSort = Value; }
  const TVxSortEvent& GetOnSorted() const noexcept { return iOnSorted; }
  void SetOnSorted(TVxSortEvent Value) noexcept { iOnSorted = Value; }
  // Kept in the decorations.
  const TCallbackPostDraw& GetCallbackPostDraw() const noexcept { return iDecorations->GetCallbackPostDraw(); }
  void SetCallbackPostDraw(TCallbackPostDraw Value) noexcept { iDecorations->SetCallbackPostDraw(Value); }
  const TCallbackDraw& GetCallbackPreDraw() const noexcept { return iDecorations->GetCallbackPreDraw(); }
  void SetCallbackPreDraw(TCallbackDraw Value) noexcept { iDecorations->SetCallbackPreDraw(Value); }
  const TCallbackTrimming& GetCallbackTrimmingHoriz() const noexcept {
    return iDecorations->GetCallbackTrimmingHoriz();
  }
  void SetCallbackTrimmingHoriz(TCallbackTrimming Value) noexcept { iDecorations->SetCallbackTrimmingHoriz(Value); }

 protected:
  // What the decorations call while an event is set.
  void OnDecorationsPostDraw(TCanvas& Canvas, int Col, int Row, TRect& Rect, TDecoration& Decoration);
  void OnDecorationsPreDraw(TCanvas& Canvas, int Col, int Row, TRect& Rect, TDecoration& Decoration);
  // Takes over the decorations and the events for drawing.
  void AssignDecorations(const TTypeCsv& Source);
  // The order of Rows, by index, in which those of the content stand sorted and the fixed ones where they are.
  std::vector<int> ContentOrder(std::span<TObject* const> Rows, TRowCompare Compare, const TSortColumn* Column) const;
  // No decoration is bound to single cells, rows or rectangles of the content.
  bool ContentMoves() const;
  static void FillIndices(std::span<const int> Order, TVxIntegerList* Indices);
  // Rows[Order[0]], Rows[Order[1]] and so on.
  static std::vector<TObject*> InOrder(std::span<TObject* const> Rows, std::span<const int> Order);
  // The entry as a row, as AsRow gives it, but without a look at it where all entries are known to be rows.
  TVxStringList* KnownRow(TObject* Entry) const {
    return FHasOthers || Entry == nullptr ? AsRow(Entry) : static_cast<TVxStringList*>(Entry);
  }
  // An override has to hand on to this one.
  void Notify(TObject* Object, TListNotification Action) override;

  std::unique_ptr<TDecorationList> iDecorations;
  TCsvDrawEvent iOnPostDraw, iOnPreDraw;
  TNotifyEvent iOnSetGrid;
  TVxSortEvent iOnSort, iOnSorted;
  String iSortDateFormat;
  std::unique_ptr<TVxIntegerList> iSortIndices;
  TPoint SortCell{-1, -1};
  TSortOrder SortDirection = TS_NONE;

 private:
  bool FHasOthers = false;  // some entry was no plain TVxStringList
};

}  // namespace vx
