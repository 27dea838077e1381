// The table in memory: rows of texts. The unit's header tells the whole and its pitfalls.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "core/uConst.h"
#include "core/uVxTypes.h"
#include "objects/uVxClasses.h"
#include "platform/Currency.h"
#include "platform/TObjectList.h"
#include "platform/Types.h"
#include "tables/uFileCsv/Ranges.h"

namespace vx {

namespace detail {
struct TRowAdder;
class TCellAccess;
}  // namespace detail

class TListItem;
class TListView;
class TStringGrid;

enum TCsvAllMode : uint8_t {
  camTrim,              // blanks at both ends of each cell go
  camUnTrim,            // each cell is padded on the right to the longest of its column
  camDeleteEnter,       // carriage returns and line feeds become spaces
  camBalanceColcount,   // short rows get empty cells up to the length of row 0
  camDeleteEmptyLines,  // rows whose cells are all blank go
  camThousandDivider,   // whole and decimal numbers get thousands separators; see GuessFieldType
  camBalanceMax         // with camBalanceColcount: up to the length of the longest row
};
using TCsvAllModes = Set<TCsvAllMode>;

// The list operations are those of TObjectList, virtual for derived classes: a table that owns its rows
// takes Add's and Insert's rows over, and Extract gives a row back without freeing it.
//
// Every entry has to be a TVxStringList; reaching another one raises EInvalidCast. Row indexes outside
// the table raise EListError where an operation says nothing else.
//
// A derived class's GetCell is asked by the typed getters and the sums, also for cells beyond the rows, and by
// THeadCsv::AddContent. Its SetCell gets what the typed setters, the targets of sums, AddContent and LoadFromIni
// write. All else takes the cells as they stand in the rows: files and texts, look-ups, DoAll, sorting, columns.
class TFileCsv : public TObjectList {
 public:
  explicit TFileCsv(bool OwnsObjects = true) noexcept : TObjectList(OwnsObjects) {}
  // Rows are freed while the table is still whole.
  ~TFileCsv() override { TObjectList::Clear(); }
  String ClassName() const override { return u"TFileCsv"; }

  // --- what derived classes may override, beside the operations of TObjectList ---
  // The text of a cell, empty past the end. Negative indexes raise the list errors.
  // ReadCell<ckText> of tables/CheckedCells.h tells an empty cell from none.
  virtual String GetCell(int Col, int Row) const;
  // Puts what Item has in a column of its view (0: caption and data, n: sub-item n - 1 with its object) into the cell
  // TableCol of Line, which becomes the row TableRow; cells before it are added where they are missing. Nothing for a
  // ViewCol that the item does not have.
  virtual void GetListviewCell(const TListItem& Item, int ViewCol, TVxStringList& Line, int TableCol, int TableRow);
  // A new empty table of the same class; a derived class overrides it.
  [[nodiscard]] virtual std::unique_ptr<TFileCsv> GetNewInstance() const;
  // Writes only a cell that there is: the table never grows. Negative indexes raise the list errors.
  // WriteCell and GrowCell of tables/CheckedCells.h tell where nothing was written, or let the row grow.
  virtual void SetCell(int Col, int Row, const String& Text);
  // Makes the grid as large as the table, row 0 telling the columns, and writes the cells and objects that differ.
  // WithNumbers puts a column before them: "Nr." and the indexes of the rows. An empty table, or one without cells in
  // row 0, leaves no rows and columns. The grid's top row stays, as far as there is one.
  virtual void SetGridIntern(TStringGrid& Grid, bool WithNumbers);
  // The reverse of GetListviewCell; missing sub-items are added. Nothing for a TableCol that Line does not have.
  virtual void SetListviewCell(TListItem& Item, int ViewCol, const TVxStringList& Line, int TableCol, int TableRow);
  // Makes this table equal to Source, row by row, keeping the row objects that there are.
  virtual void Assign(const TFileCsv& Source);
  // Of each row that has the cell; a negative column does nothing.
  virtual void DeleteCol(int Col);
  virtual void ClearCol(int Col);
  // Makes this table hold the cells and objects of the grid, row by row, keeping the row objects that there are; with
  // DropFirstCol without the first column.
  virtual void GetGrid(const TStringGrid& Grid, bool DropFirstCol);
  // Reads items of a list view, by GetListviewCell. Columns is a commatext of numbers of columns of the view; what is
  // no such number is left out, and an empty text means all columns. OnlySelected takes only selected items.
  //   Limit below 1   appends a row with the captions of the columns, and one for each item from First on
  //   Limit from 1    row 0 gets the captions, and the rows from 1 on the items First to First + Limit, both included;
  //                   rows before row Limit are used again, or deleted if they aren't needed, others are appended
  // The result is the number of rows in use; First below 0 counts as 0. A row that is used again is emptied first.
  virtual int GetListView(const TListView& View, std::u16string_view Columns, int First, int Limit, bool OnlySelected);
  virtual void Init() { Clear(); }
  // Replaces the table by the file's rows. The separator (comma, ";", ESC or tab) is counted in the
  // first line, whatever the file's name. A missing file shows a warning, gives false and leaves the
  // table as it was. A fault while reading raises EStreamError; the table is empty then.
  // Files of other programs, UTF-8, and cells with blanks but without quotes: LoadCsv of tables/Csv.h.
  virtual bool LoadFromFile(std::u16string_view Path);
  // SaveToFile, and then opens a ".csv" or ".txt" file in its application; ".txt" is renamed to ".csv"
  // for that, if possible. The result is that of SaveToFile.
  virtual bool SaveAndExecute(std::u16string_view Path);
  // Writes the table in the form that the extension tells: ".csv" comma, ".txt" ";", ".vxt" ESC,
  // ".tab" tab, none: space, without any quotes. Then watches the file's stamp for up to 1500 ms. If
  // the file can't be seen to have changed, and can't be stamped, shows a warning and gives false.
  // Another extension raises EStringListError on a table with rows, and nothing is written. Faults
  // while writing raise EStreamError.
  // What the file can't hold is lost unsaid: SaveWhole of tables/SavedTables.h tells it, SaveCsv can hold it.
  virtual bool SaveToFile(std::u16string_view Path);
  // SetGridIntern, and then SetGridColWidth by 1.11.
  virtual void SetGrid(TStringGrid& Grid, bool WithNumbers);
  // Makes the items of the view show rows, by SetListviewCell: Count of them from First on, all for a Count that is
  // negative or too large; First below 0 counts as 0. Columns is a text of numbers of cells between commas, for the
  // columns of the view from 0 on; what is no cell of row 0 is left out, and an empty text means all. Items are used
  // again, emptied, with their selection; others are added, and those behind them deleted.
  virtual void SetListview(TListView& View, std::u16string_view Columns, int First, int Count);
  // Makes the columns of the grid as wide as their widest text in the grid's font, texts below 100 pixels counting 1.2
  // times, by Factor, cut to whole pixels; a column without texts gets no width. Nothing if the grid has no canvas.
  static void SetGridColWidth(TStringGrid& Grid, Extended Factor);

  // --- walking; tables/uFileCsv/Ranges.h tells what must not happen meanwhile ---
  auto begin() noexcept { return Rows().begin(); }
  auto end() noexcept { return Rows().end(); }
  auto begin() const noexcept { return Rows().begin(); }
  auto end() const noexcept { return Rows().end(); }
  // The rows from First on; EArgumentException for a First below 0.
  TRowRange Rows(int First = 0) { return {ItemsFrom(First), {}}; }
  TConstRowRange Rows(int First = 0) const { return {ItemsFrom(First), {}}; }
  // The cells of a column in the rows from First on; EArgumentException for a Col or First below 0.
  TColumnRange Column(int Col, int First = 0) const;

  // --- rows ---
  // The row stays the table's.
  TVxStringList* GetLines(int Row) const { return AsRow(Get(Row)); }
  // Puts a row in the place of another, which a table that owns frees.
  void SetLines(int Row, TVxStringList* Line) { Put(Row, Line); }
  // The number of cells of row 0, 0 for an empty table.
  int FieldCount() const;
  // Both append a row and return its index.
  int AddRow(std::u16string_view Commatext);
  int AddRow(std::span<const String> Cells);
  // In braces each cell is a text: AddRow({u"a", IntToStr(5)}). Numbers are refused.
  int AddRow(std::initializer_list<TNewText> Cells);
  template <typename = void>  // behind the one before, where both fit
  int AddRow(std::initializer_list<String> Cells) {
    return AddRow(std::span<const String>(Cells));
  }
  template <detail::NoText T>
  int AddRow(T&&) {
    detail::RefuseNoText<T>();
    return -1;
  }
  // Appends a row of Count empty cells and returns its index; a negative Count means FieldCount.
  int AddEmpty(int Count);
  // Appends copies of the rows of Other, which stays as it is.
  void AddFileCsv(const TFileCsv& Other);
  // Appends the rows of Other themselves and frees Other; nullptr is ignored.
  void AddAndFree(std::unique_ptr<TFileCsv> Other);
  [[nodiscard]] std::unique_ptr<TFileCsv> Duplicate() const;
  // Deletes the rows of two or more cells that are all empty and returns how many. Rows without cells
  // and rows of one empty cell stay; that is wanted.
  int RemoveEmpty();

  // --- cells ---
  // The object beside a cell; nullptr past the end. Rows do not own their objects unless told.
  TObject* GetObject(int Col, int Row) const;
  void SetObject(int Col, int Row, TObject* Object);
  // The cell, or the value told for a row or a column outside the table, negative ones too.
  String getElement(int Col, int Row, const String& NoColValue, const String& NoRowValue) const;

  // --- cells as typed values; see TVxString for the readers and writers ---
  // Getters trim what GetCell gives; a text that is no such value is 0 or false. Setters hand their text
  // to SetCell. ReadCell and WriteCell of tables/CheckedCells.h tell what could not be read or written.
  bool GetCellsAsBool(int Col, int Row) const;
  void SetCellsAsBool(int Col, int Row, bool Value);
  TBoolExt GetCellsAsBoolExt(int Col, int Row) const;
  void SetCellsAsBoolExt(int Col, int Row, TBoolExt Value);
  Currency GetCellsAsCurrency(int Col, int Row) const;
  void SetCellsAsCurrency(int Col, int Row, Currency Value);
  TDateTime GetCellsAsDate(int Col, int Row) const;
  void SetCellsAsDate(int Col, int Row, TDateTime Value);
  TDateTime GetCellsAsDateTime(int Col, int Row) const;
  void SetCellsAsDateTime(int Col, int Row, TDateTime Value);
  Extended GetCellsAsFloat(int Col, int Row) const;
  void SetCellsAsFloat(int Col, int Row, Extended Value);
  // An amount of hours, in days; read as StrToHourDef reads it, with its rule for minus signs, and
  // written as hours and minutes: 1.5 is u"36:00". Seconds are dropped. A negative amount counts its
  // days down and its time of day up: -1.25 is u"-18:00". What is no number or infinite counts 0.
  TDateTime GetCellsAsHour(int Col, int Row) const;
  void SetCellsAsHour(int Col, int Row, TDateTime Value);
  int GetCellsAsInt(int Col, int Row) const;
  void SetCellsAsInt(int Col, int Row, int Value);
  TDateTime GetCellsAsTime(int Col, int Row) const;
  void SetCellsAsTime(int Col, int Row, TDateTime Value);
  // The type by the look of the text alone, blanks at its ends included:
  //   vftUnknown   the empty text
  //   vftInteger   digits; a sign may stand in front: u"-12"
  //   vftFloat     the same with one comma: u"1234,50"
  //   vftDate      dots at the positions 3 and 6 of 8 or 10, no comma: u"11.02.2015"
  //   vftTime      u"hh:nn" up to u"24:00", u"hh:nn:ss" up to u"24:00:00"
  //   vftHour      any other text without a sign that has one colon before two digits up to 59: u"124:30"
  //   vftString    all else, such as u"1.234,50"
  // Digits are not looked for: u"-" is an integer. That is wanted.
  static TVxFieldType GuessFieldType(std::u16string_view Text) noexcept;

  // --- sums over the cells From to To of a row or a column, through the typed getters ---
  // The sum as text, which is also written to the cell Target of that row or column if there is one.
  //   vftInteger, vftFloat, vftFraction, vftDateTime   SumFloat, by FloatToStr
  //   vftCurrency                                      SumCurrency, with two decimals
  //   vftTime, vftHour                                 SumTime
  //   any other type                                   empty
  // A From outside FieldCount (SumX) or GetCount (SumY) means 1, a To outside the last but one: the first
  // cell is a label and the last one the total. Empty, and nothing is written, if there is no such
  // row, or no such column in row 0. Sums of hours and money that tell unreadable cells: tables/CellSums.h.
  String SumX(int Row, TVxFieldType FieldType, int From = -1, int To = -1, int Target = -1);
  String SumY(int Col, TVxFieldType FieldType, int From = -1, int To = -1, int Target = -1);
  // The range is taken as told; cells past the end count 0 unless a derived class's GetCell gives some.
  Extended SumFloatX(int Row, int From, int To) const;
  Extended SumFloatY(int Col, int From, int To) const;
  // EOverflow where the sum leaves the range of amounts.
  Currency SumCurrencyX(int Row, int From, int To) const;
  Currency SumCurrencyY(int Col, int From, int To) const;
  // The sum of CellsAsHour as hours and minutes. Pitfall: SumTimeX counts the hours within the last day
  // twice: 12:00 and 24:00 make u"48:00", where SumTimeY has u"36:00". Both keep the hours within 0 to
  // 65535: one more is 0, and one below 0 is 65535. This is wanted; programs that share tables know it so.
  // SumHoursX and SumHoursY (tables/CellSums.h) do neither.
  String SumTimeX(int Row, int From, int To) const;
  String SumTimeY(int Col, int From, int To) const;

  // --- columns; short rows are skipped, and a negative column does nothing ---
  // Empties every cell and clears its object. The last cell of row 0 becomes a single space; that is
  // wanted, so that the table does not look empty to those who test its text.
  void ClearContent();
  // The commatext of the trimmed cells of a column; a short row gives an empty cell.
  String ColumnContent(int Col) const;
  // The same sorted without regard to case, and neighbours that are exactly equal once.
  String ColumnContentUnique(int Col) const;

  // --- looking up by a key, without regard to case ---
  // The first row whose cell at Col is Key; -1 if there is none or Col is negative.
  int IndexForColKey(int Col, std::u16string_view Key) const;
  // The row itself, which stays the table's; nullptr if there is none.
  TVxStringList* ItemForColKey(int Col, std::u16string_view Key) const;
  // The cell at ResultCol of that row; Default if there is no such row or cell.
  String ElementForColKey(int KeyCol, std::u16string_view Key, int ResultCol, const String& Default) const;
  virtual String ElementForKey(int KeyCol, std::u16string_view Key, int ResultCol, const String& Default) const;

  // --- the whole table ---
  void DoAll(TCsvAllModes Modes);
  // A new table with rows and columns exchanged: as many rows as row 0 has cells. Cells beyond the
  // width of row 0 are dropped; a short row gives empty cells.
  [[nodiscard]] std::unique_ptr<TFileCsv> TurnAxis() const;
  // Shows the commatexts of all rows in a dialog: a debugging aid.
  void ShowContent() const;

  // --- files; see tables/uFileCsv/Files.cpp for the bytes ---
  // Replaces the table by a database server's export: UTF-16, comma between fields, no quotes; a line
  // end inside a field belongs to the field. False if the last record is ragged; the rows stand then
  // as they were read.
  bool LoadMSSQL(std::u16string_view Path);

  // --- the whole table as one text ---
  // Rows as commatexts, joined by carriage return and line feed, none behind the last row.
  String GetText() const;
  void SetText(std::u16string_view Text);
  // Rows as commatexts in the system's code page, each followed by ESC. Cells must not hold an ESC,
  // and rows without cells are lost when it is read again.
  std::string GetAnsiCsv() const;
  void SetAnsiCsv(std::string_view Bytes);
  // Rows as commatexts, each followed by Separator.
  String ExportToString(std::u16string_view Separator) const;
  // Appends the rows; always true. Separator has to be one character, and cells must not hold it. Rows
  // without cells are dropped.
  bool ImportFromString(std::u16string_view Text, std::u16string_view Separator);
  // Appends the commatext of each row to Strings; or gives a new list.
  void ExportToStringList(TStrings& Strings) const;
  [[nodiscard]] std::unique_ptr<TVxStringList> ExportToStringList() const;
  // Appends a row for each commatext, also one without cells; nullptr is ignored.
  void ImportFromStringList(const TStrings* Strings);
  // A new table of the same class with a row for each cell of a row from FirstCol on, read as commatext;
  // nullptr if there is no such row.
  [[nodiscard]] std::unique_ptr<TFileCsv> ItemToCsv(int Row, int FirstCol) const;

  // --- lines of table files ---
  // The separator that a text's first line is cut by: u",", u";", ESC or tab.
  static String AnalyseToParse(std::u16string_view Text);
  // The same from the first item, taking no notice of quotes; empty for an empty list.
  static String AnalyseToParse(const TStrings& Strings);
  // One line as a new row; an empty Separator means the comma.
  [[nodiscard]] static std::unique_ptr<TVxStringList> ParseCommatext(std::u16string_view Text,
                                                                     std::u16string_view Separator);
  // One row as a line: cells that hold Separator, a code unit below 33 or a double quote stand in double
  // quotes. With a space as Separator nothing is quoted.
  static String ParseChar(const TVxStringList& Row, std::u16string_view Separator);

 protected:
  // The entry as a row; EInvalidCast if it is none.
  static TVxStringList* AsRow(TObject* Entry) { return detail::AsRow(Entry); }

  // Appends a row of the table's own making through the virtual Add and returns its index.
  int AddNew(std::unique_ptr<TVxStringList> Row);
  // The same for an operation that puts each row in its told place; a derived class that orders what Add
  // gets overrides it.
  virtual int AddInPlace(std::unique_ptr<TVxStringList> Row) { return AddNew(std::move(Row)); }
  // Around operations that add many rows: a derived class that orders them may do so once, in EndRows.
  // Pairs may nest.
  virtual void BeginRows() {}
  virtual void EndRows() {}
  // Adds what Rows() adds between the two.
  template <typename F>
  void AddMany(F Rows) {
    BeginRows();
    try {
      Rows();
    } catch (...) {
      EndRows();
      throw;
    }
    EndRows();
  }

 private:
  friend struct detail::TRowAdder;
  friend class detail::TCellAccess;
  std::span<TObject* const> ItemsFrom(int First) const;
  // Whether the row's cells are all blank then.
  bool DoRow(int Row, TCsvAllModes Modes, int Width, std::span<const int> CellWidths);
  static String WithThousandDivider(const String& Text);
  // The cell itself, for reading at once; nullptr past the end.
  const String* FindCell(int Col, int Row) const {
    if (Row >= GetCount()) return nullptr;
    FetchAhead(Get(Row), Col);
    const TVxStringList* line = GetLines(Row);
    std::span<const String> cells = line->Items();
    if (Col < 0) (void)line->Get(Col);  // raises what a list raises
    return static_cast<size_t>(Col) < cells.size() ? &cells[static_cast<size_t>(Col)] : nullptr;
  }
  // Rows and their texts are mostly allocated one behind the other, so that the processor can fetch a
  // cell while it still waits for its row. A guess that fails costs nothing.
  static void FetchAhead(const TObject* Row, int Col) noexcept {
    uintptr_t texts = reinterpret_cast<uintptr_t>(Row) + sizeof(TVxStringList) + 2 * sizeof(void*);
    uintptr_t cell = texts + static_cast<uintptr_t>(Col) * sizeof(String);
    __builtin_prefetch(reinterpret_cast<const void*>(cell));  // NOLINT(performance-no-int-to-ptr): never read
  }
  // What Read makes of the trimmed cell.
  template <typename F>
  auto ReadCell(int Col, int Row, F Read) const;
  // The last index of the range up to To that may hold a cell: a derived class may make cells beyond the rows.
  int LastInRow(int Row, int To) const;
  int LastInCol(int To) const;
  // Whether this is a table of the library's own classes, which do not override GetCell.
  bool IsPlain() const noexcept;
  // Asks for each row from the last to the first whether it is to go, and returns how many went.
  template <typename F>
  int DeleteWhere(F IsGone);
};

// A new table, each item read as commatext into a row.
[[nodiscard]] std::unique_ptr<TFileCsv> StringsToCsv(const TStrings& Strings);
// A new list of the commatexts of the rows.
[[nodiscard]] std::unique_ptr<TVxStringList> CsvToStrings(const TFileCsv& Table);

}  // namespace vx
