// All decorations of a table in their order of precedence, and the look of the table as a whole. The unit's header
// tells what it is for and its pitfalls.
//
// Painting keeps one list as a buffer, so that finding the decorations of a cell allocates nothing:
//   auto buffer = list.DuplicateHead();
//   for (...) {
//     list.VirtualListForCell(col, row, *buffer);
//     auto look = buffer->Compress();
//   }
#pragma once

#include <concepts>
#include <memory>
#include <span>
#include <string_view>
#include <typeinfo>

#include "platform/TObjectList.h"
#include "platform/TStrings.h"
#include "rendering/uDecoration/TDLRange.h"
#include "rendering/uDecoration/TDecoration.h"

namespace vx {

class TListView;

namespace detail {
struct TPlaces;
}

// The order: first, up to IndexFirstCell, the decorations of every kind but rtCell, as they were added; behind them
// those of cells by rising column and row, at most one a cell. A later one takes precedence.
//
// Every entry has to be a TDecoration; reaching another one raises EInvalidCast. Indexes outside the list raise
// EListError. Objects are owned exactly while OwnsObjects says so.
class TDecorationList : public TObjectList {
 public:
  // Owns its objects.
  TDecorationList() : TDecorationList(true, nullptr) {}
  explicit TDecorationList(std::same_as<bool> auto aOwnsObjects) : TDecorationList(aOwnsObjects, nullptr) {}
  // Owns its objects. aParent, which stays the caller's, is the table, the grid or the list that this one is for.
  explicit TDecorationList(TObject* aParent) : TDecorationList(true, aParent) {}
  ~TDecorationList() override;
  String ClassName() const override { return u"TDecorationList"; }

  // Empties the list and resets all but parent, callbacks and runs. A list that owns gets one decoration of rtAll:
  // everything is a vftString.
  virtual void Init();
  void Clear() override;

  // --- the decorations ---
  TDecoration* GetItems(int Index) const { return AsDecoration(Get(Index)); }
  // The index of the first decoration of a cell; the count if there is none.
  int GetIndexFirstCell() const noexcept { return iIndexFirstCell; }
  // Puts the decoration at its place and returns it: behind those of its kind, or by its cell. If that cell has one
  // already, that one takes what the new one has set, its index is the result, and a list that owns frees the new one.
  // Anything but a TDecoration is refused with -1 and stays the caller's.
  int Add(TObject* Object) override;
  // Add for a decoration of a cell. Any other is put at Index, and IndexFirstCell stays as it is; that is wanted.
  // Anything but a TDecoration is ignored and stays the caller's.
  void Insert(int Index, TObject* Object) override;
  void Delete(int Index) override;
  TObject* Extract(TObject* Object) override;
  // Only before IndexFirstCell; beyond it they do nothing.
  void Exchange(int A, int B) override;
  void Move(int From, int To) override;
  // Does nothing: the order is the list's meaning.
  void Sort(FunctionRef<int(TObject*, TObject*)>) noexcept {}

  // Makes a decoration, adds it and returns what is in the list then: for a cell that had one already that one.
  TDecoration* CreateRange(TRangeType aType, int Left, int Top, int Right, int Bottom);
  // The decoration of exactly that cell, in O(log n); if there is none nullptr, or with aCreate a new one.
  TDecoration* GetCell(int aCol, int aRow, bool aCreate);
  // The last decoration of that type whose RangeRect is the one that a range of these coordinates would have. For
  // rtCell as GetCell. If there is none nullptr, or with aCreate a new one.
  TDecoration* GetRange(TRangeType aType, int Left, int Top, int Right, int Bottom, bool aCreate);
  // The first of that type, nullptr if there is none.
  TDecoration* GetFirst(TRangeType aType) const;
  // By the last decoration of rtColumn that covers the column and has a type; vftUnknown if there is none. Other kinds
  // are not considered.
  TVxFieldType GetColumnFieldType(int aCol) const;
  // Any decoration has that type.
  bool ContainsType(TVxFieldType aType) const;
  // The same for those that apply to the cell; if one of them is coupled, the last of these alone decides.
  bool ContainsTypeForCell(TVxFieldType aType, int aCol, int aRow);
  // Delete the decorations whose tag is aTag, or has a positive AND with it; return how many.
  int DeleteTag(int aTag);
  int DeleteTags(int aTag);

  // --- the decorations of a cell ---
  // A list of those that apply to the cell, in their order; they stay this list's. It has this list as its parent and
  // its head.
  std::unique_ptr<TDecorationList> VirtualListForCell(int aCol, int aRow);
  // The same in a list of the caller's, which is emptied, no longer owns its items, and keeps its head but for Cell and
  // HoverIndex. Allocates nothing once aList has had as many items.
  void VirtualListForCell(int aCol, int aRow, TDecorationList& aList);
  // One decoration of all that the items have set, later ones taking precedence, with the list's image list if none
  // has one. Its parent is this list.
  std::unique_ptr<TDecoration> Compress();
  // What is set in aSource overwrites aTarget; options are united. Range, type of range, tag and trim modes are not
  // touched.
  static void CompressDecoration(const TDecoration& aSource, TDecoration& aTarget);
  // Finds the runs anew. Whoever has changed the list, or a range in it, calls it before painting goes on: with runs of
  // another list than this one, some decorations may be missed.
  void RefreshRangeList();
  TDLRangeList& GetRanges() const noexcept { return *iRanges; }

  // --- copies ---
  // By the serial form, and AssignHeadVar: tags and image lists of the decorations are lost.
  void Assign(const TDecorationList& aSource);
  // All but the decorations, the runs, HoverIndex and the parent.
  void AssignHead(const TDecorationList& aSource);
  // The part of the head that changes while the program runs: Cell, ColCount, RowCount, Device, ImageList, callbacks.
  void AssignHeadVar(const TDecorationList& aSource);
  // New lists that own, with this one as their parent; the second one has no items.
  std::unique_ptr<TDecorationList> Duplicate();
  std::unique_ptr<TDecorationList> DuplicateHead();

  // --- texts ---
  // Serial form: the commatext of 20 cells of the head, "ÿ", and a cell for each decoration.
  String GetCommatext() const;
  // Reads that text; never raises. Without "ÿ" (or "'#255'" or "'#255" of older texts), or with fewer than 19 cells
  // before it, a dialog tells so, and the list is empty, or as Init leaves it. A decoration with too few cells is added
  // as it is at first, after its dialog. A list that does not own leaves the decorations to the caller. O(n log n).
  void SetCommatext(std::u16string_view aText);
  // Writes the commatext in the system's code page; the file is made anew, and others may read it meanwhile. True.
  // Raises EFCreateError and EWriteError.
  bool SaveToFile(const String& aFileName) const;
  // The commatext as a constant of a program's text, in lines of up to 80 characters; nullptr is ignored. Pitfall: a
  // quote in it stays as it is.
  void ExportPasFormat(TStrings* aStrings) const;
  // Reads the lines of ExportPasFormat from the second one up to a blank one; nullptr is ignored.
  void ImportPasFormat(const TStrings* aStrings);

  // Makes the items of a list view show the decorations, in their order: the kind of region, its coordinates, the field
  // type in words, the format, whether there is an own font, the colour, whether it is coupled. The data of an item is
  // its decoration, which stays this list's. Items are used again, with their selection.
  void SetListView(TListView& aListView);

  // Gives the list's font the name, and with an aSize of at least 1 the size; own fonts of decorations get the name and
  // are made smaller or larger by as many points, except those named Wingdings, which keep their signs. Nothing if the
  // list's font is that already, whatever the case of its name.
  void SetGlobalFont(const String& aName, int aSize);

  // --- the table ---
  // Numbers of columns and rows, which the target sets.
  int GetColCount() const noexcept { return iColCount; }
  void SetColCount(int Value) noexcept { iColCount = Value; }
  int GetRowCount() const noexcept { return iRowCount; }
  void SetRowCount(int Value) noexcept { iRowCount = Value; }
  // Numbers of fixed columns at the left and the right, of fixed rows at the top and the bottom.
  const TRect& GetFixed() const noexcept { return iFixed; }
  void SetFixed(const TRect& Value) noexcept { iFixed = Value; }
  void SetFixed(int Left, int Top, int Right, int Bottom) noexcept { iFixed = {Left, Top, Right, Bottom}; }
  // The cell lies in the fixed border, or in one of the sides alLeft, alTop, alRight, alBottom of it that aAlignSet
  // names. With an empty set all count, and cells beyond the table are in it, too.
  bool FixedCell(int aCol, int aRow, TAlignSet aAlignSet) const noexcept;
  // The table, the grid or the list that this one is for; not owned.
  TObject* GetParent() const noexcept { return iParent; }
  void SetParent(TObject* Value) noexcept { iParent = Value; }
  // The first parent, up from this list's, that is no decoration list; nullptr if there is none.
  TObject* OutermostParent() const noexcept;

  // --- the head: the look of the whole ---
  const String& GetTitle() const noexcept { return iTitle; }
  void SetTitle(const String& Value) { iTitle = Value; }
  const String& GetSubTitle() const noexcept { return iSubTitle; }
  void SetSubTitle(const String& Value) { iSubTitle = Value; }
  // Backgrounds of the content and of the fixed border. White for none.
  TColor GetColor() const noexcept { return iColor; }
  void SetColor(TColor Value) noexcept { iColor = Value; }
  // Pitfall: white in a new list, clBtnFace in one that was read from a text without a colour; that is wanted.
  TColor GetFixedColor() const noexcept { return iFixedColor; }
  void SetFixedColor(TColor Value) noexcept { iFixedColor = Value; }
  TColor GetSelectionColor() const noexcept { return iSelectionColor; }
  void SetSelectionColor(TColor Value) noexcept { iSelectionColor = Value; }
  const TFont& GetFont() const noexcept { return iFont; }
  void SetFont(const TFont& Value) { iFont = Value; }
  // Not owned.
  TImageList* GetImageList() const noexcept { return iImageList; }
  void SetImageList(TImageList* Value) noexcept { iImageList = Value; }
  // Between image and text, in pixels.
  int GetImageSpacing() const noexcept { return iImageSpacing; }
  void SetImageSpacing(int Value) noexcept { iImageSpacing = Value; }
  // At the left and right, and at the top and bottom of each cell, in pixels.
  int GetMarginHoriz() const noexcept { return iMarginHoriz; }
  void SetMarginHoriz(int Value) noexcept { iMarginHoriz = Value; }
  int GetMarginVerti() const noexcept { return iMarginVerti; }
  void SetMarginVerti(int Value) noexcept { iMarginVerti = Value; }
  // The most lines that a cell shows; 0 for no limit.
  int GetMaxSubLines() const noexcept { return iMaxSubLines; }
  void SetMaxSubLines(int Value) noexcept { iMaxSubLines = Value; }
  // Trimming goes no lower; pixels.
  int GetMinColWidth() const noexcept { return iMinColWidth; }
  void SetMinColWidth(int Value) noexcept { iMinColWidth = Value; }
  int GetMinRowHeight() const noexcept { return iMinRowHeight; }
  void SetMinRowHeight(int Value) noexcept { iMinRowHeight = Value; }
  TTrimModes GetTrimModes() const noexcept { return iTrimModes; }
  void SetTrimModes(TTrimModes Value) noexcept { iTrimModes = Value; }
  TDecorationListOptions GetOptions() const noexcept { return iOptions; }
  void SetOptions(TDecorationListOptions Value) noexcept { iOptions = Value; }
  // Above 1, every n-th row of the content is darker.
  int GetZebraLines() const noexcept { return iZebraLines; }
  void SetZebraLines(int Value) noexcept { iZebraLines = Value; }
  int GetPrintPageColumns() const noexcept { return iPrintPageColumns; }
  void SetPrintPageColumns(int Value) noexcept { iPrintPageColumns = Value; }

  // --- what changes while the program runs ---
  TDecorationDevice GetDevice() const noexcept { return iDevice; }
  void SetDevice(TDecorationDevice Value) noexcept { iDevice = Value; }
  // The row under the mouse; -1 for none.
  int GetHoverIndex() const noexcept { return iHoverIndex; }
  void SetHoverIndex(int Value) noexcept { iHoverIndex = Value; }
  // Of a virtual list: its cell, (-1, -1) for none, and the last of its items that is coupled.
  TPoint GetCell() const noexcept { return iCell; }
  void SetCell(TPoint Value) noexcept { iCell = Value; }
  TDecoration* GetCoupled() const noexcept { return iCoupled; }
  void SetCoupled(TDecoration* Value) noexcept { iCoupled = Value; }
  const TCallbackPostDraw& GetCallbackPostDraw() const noexcept { return iCallbackPostDraw; }
  void SetCallbackPostDraw(TCallbackPostDraw Value) noexcept { iCallbackPostDraw = Value; }
  const TCallbackDraw& GetCallbackPreDraw() const noexcept { return iCallbackPreDraw; }
  void SetCallbackPreDraw(TCallbackDraw Value) noexcept { iCallbackPreDraw = Value; }
  const TCallbackTrimming& GetCallbackTrimmingHoriz() const noexcept { return iCallbackTrimmingHoriz; }
  void SetCallbackTrimmingHoriz(TCallbackTrimming Value) noexcept { iCallbackTrimmingHoriz = Value; }

 private:
  friend class TDLRange;
  TDecorationList(bool aOwnsObjects, TObject* aParent);
  static TDecoration* AsDecoration(TObject* Entry) {
    if (Entry != nullptr && typeid(*Entry) == typeid(TDecoration)) [[likely]]
      return static_cast<TDecoration*>(Entry);
    return CastDecoration(Entry);
  }
  static TDecoration* CastDecoration(TObject* Entry);
  // The insertion index of a decoration, see Add.
  int IndexSort(TRangeType aType, int aCol, int aRow) const;
  // The same for a cell, by the copies if there are some.
  int FindCell(const detail::TPlaces* Places, int aCol, int aRow) const;
  // Of what stands at Index, if that is the decoration of the cell.
  TDecoration* CellAt(int Index, int aCol, int aRow) const;
  // Empties the list and keeps its memory.
  void DropItems();
  void Changing() override;
  // The copy of the items' places; nullptr while the items themselves have to be asked. It is made once as many cells
  // have been asked for as pay for it, so that changes and look-ups in turn cost no more than either.
  const detail::TPlaces* Places();
  void MakePlaces();
  // Adds the items First to Last that apply to the cell.
  void TestItems(const detail::TPlaces* Places, int First, int Last, TDecorationList& aVirtual) const;
  void TestRun(const detail::TPlaces* Places, const TDLRange& Run, TDecorationList& aVirtual) const;
  void AddApplying(TDecoration& aItem);
  void WeighRuns();
  int AddDecoration(TDecoration& aItem);
  void ReadHead(std::span<const String> Cells);
  void ReadItems(std::span<const String> Texts);
  int DeleteWhere(FunctionRef<bool(const TDecoration&)> IsDoomed);

  int iIndexFirstCell = 0;
  bool FRunsAreFresh = false;  // the list has not changed since they were made
  TPoint FRunsSize;            // of the table when they were weighed
  int FAsked = 0;              // how many cells have been asked for without FPlaces
  std::unique_ptr<detail::TPlaces> FPlaces;
  int iColCount = 0;
  int iRowCount = 0;
  TRect iFixed;
  TPoint iCell{-1, -1};
  TDecoration* iCoupled = nullptr;
  TObject* iParent;
  std::unique_ptr<TDLRangeList> iRanges;
  TImageList* iImageList = nullptr;
  TCallbackPostDraw iCallbackPostDraw;
  TCallbackDraw iCallbackPreDraw;
  TCallbackTrimming iCallbackTrimmingHoriz;
  TFont iFont;
  String iTitle;
  String iSubTitle;
  TColor iColor = clWhite;
  TColor iFixedColor = clWhite;
  TColor iSelectionColor = clHighlight;
  TTrimModes iTrimModes;
  TDecorationListOptions iOptions;
  TDecorationDevice iDevice = ddScreen;
  int iHoverIndex = -1;
  int iImageSpacing = 1;
  int iMarginHoriz = 1;
  int iMarginVerti = 0;
  int iMaxSubLines = 0;
  int iMinColWidth = 0;
  int iMinRowHeight = 0;
  int iPrintPageColumns = 0;
  int iZebraLines = 0;
};

}  // namespace vx
