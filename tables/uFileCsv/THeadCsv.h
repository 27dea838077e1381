// A table whose row 0 holds the names of its columns.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "platform/Relaxed.h"
#include "tables/uFileCsv/TFileCsv.h"

namespace vx {

// Body rows are the rows from 1 on. Names are matched by AnsiCompareText, so that case does not count; of
// a name that stands twice the first column is meant. An unknown name gives an empty text, no row, 0.
//
// Example:
//   vx::THeadCsv patients;
//   patients.LoadFromFile(u"C:\\Daten\\Patienten.csv");
//   vx::String town = patients.ElementForField(u"Nummer", u"P-1002", u"Ort");
//
// Pitfalls:
//   - Some look-ups match values exactly and others without regard to case; each says which.
//   - Reading notes the last hit, so that the next look-up may begin there; several threads may read all the same, as
//     long as none changes the table.
class THeadCsv : public TFileCsv {
 public:
  explicit THeadCsv(bool OwnsObjects = true) noexcept : TFileCsv(OwnsObjects) {}
  String ClassName() const override { return u"THeadCsv"; }
  [[nodiscard]] std::unique_ptr<TFileCsv> GetNewInstance() const override;

  // --- controls ---
  int GetListView(const TListView& View, std::u16string_view Columns, int First, int Limit, bool OnlySelected) override;
  // Makes the view have a column for each name, called so, and shows body rows: First counts from row 1 on, and Columns
  // may have names for numbers, as IndicesForNames takes them.
  void SetListview(TListView& View, std::u16string_view Columns, int First, int Count) override;

  // --- names ---
  // The column of a name; -1 if there is none.
  int FieldIndex(std::u16string_view Name) const;
  // The name of a column; empty if there is no such column in row 0.
  String FieldName(int Index) const;
  // Takes a text of names between commas, as explode cuts it, and gives it as commatext, each known name
  // replaced by its column in decimal digits: u"Ort,gibtsnicht" gives u"5,gibtsnicht".
  String IndicesForNames(std::u16string_view Names) const;

  // --- columns ---
  using TFileCsv::FieldCount;
  // How many body rows have Value in that column, without regard to case.
  int FieldCount(std::u16string_view Name, std::u16string_view Value) const;
  // The commatext of the column's trimmed body cells, a short row giving an empty one.
  String FieldContent(std::u16string_view Name) const;
  // The same sorted without regard to case, and neighbours that are exactly equal once.
  String FieldContentUnique(std::u16string_view Name) const;
  using TFileCsv::SumY;
  String SumY(std::u16string_view Name, TVxFieldType FieldType, int From = -1, int To = -1, int Target = -1);

  // --- looking up a row ---
  // The row found last, -1 before the first hit. A look-up tries it first, so that asking for several
  // fields of one row costs one comparison each.
  int GetLastItem() const noexcept { return iLastItem; }
  // The first body row whose cell is exactly Value; it stays the table's. nullptr if there is none.
  TVxStringList* ItemForField(std::u16string_view Name, std::u16string_view Value) const;
  // The cell ResultName of that row; empty if there is no such row or cell.
  String ElementForField(std::u16string_view KeyName, std::u16string_view KeyValue,
                         std::u16string_view ResultName) const;
  using TFileCsv::getElement;
  String getElement(std::u16string_view Name, int Row, const String& NoColValue, const String& NoRowValue) const;
  // The cell Name of the row with that key. Unlike ItemForField this one takes no notice of case in the
  // key, unless the last hit has it exactly, and looks at row 0 too; LastItem becomes the row, also -1.
  String getElement(std::u16string_view Name, std::u16string_view KeyName, std::u16string_view KeyValue,
                    const String& NoColValue, const String& NoRowValue) const;

  // --- the whole table ---
  // Puts the body rows in the order of a column, without regard to case. Does nothing with fewer than two
  // body rows. Two consequences are wanted:
  //   - of rows with equal keys only the last one stays; the others leave the table and are not freed,
  //     also if the table owns its rows: they are the caller's then;
  //   - rows too short to have the cell stay in place, in front of the sorted ones.
  void SortByField(std::u16string_view Name, bool Ascending);
  // A new table with copies of the head and of all body rows that have Value in that column, without
  // regard to case; only the head for an unknown name.
  [[nodiscard]] std::unique_ptr<THeadCsv> DuplicateUnique(std::u16string_view Name, std::u16string_view Value) const;
  // Merges the body rows of Source into this table by an exact key. A row goes into the first body row
  // with its key, or into a new one; each of its cells that is not empty overwrites the cell of that
  // name, if there is one. With AddFields, names that are missing here are appended to the head first,
  // and all body rows padded to its width. If either table lacks KeyName, every row is a new one. Does
  // nothing if Source has no rows.
  void AddContent(const THeadCsv& Source, std::u16string_view KeyName, bool AddFields);
  // Appends a row for each section of a configuration file (see platform/MemIniFile.h): its name as
  // u"[Name]" in the column "[Sections]", and the values of its keys in the columns of their names. An
  // empty table or one that is replaced gets the head "[Sections]" and all keys in upper case, sorted;
  // another one gets the columns that it lacks, and its rows are padded. Keys that differ in case share a
  // column. Of sections that stand twice both are rows, with the values of the first one. False if there is
  // no such file; a table to be replaced is empty then. A file that can't be read raises EStreamError, and
  // the table is as it was.
  bool LoadFromIni(std::u16string_view Path, bool Replace);

 protected:
  // The row of the last hit, which may be row 0 or not the first with that cell, if its cell in the column
  // Name is exactly Value; else nullptr. FieldIndex becomes the column, or -1.
  TVxStringList* TestLastItem(std::u16string_view Name, std::u16string_view Value, int& FieldIndex) const;

  mutable TRelaxed<int> iLastItem = -1;

 private:
  // The same as rows; -1 for none.
  int TestLastRow(std::u16string_view Name, std::u16string_view Value, int& FieldIndex) const;
  int RowForField(std::u16string_view Name, std::u16string_view Value) const;
  // The first row from First on with Value in the column, without regard to case; -1 if there is none.
  int NextWith(int First, int Col, std::u16string_view Value) const;
  // Row 0 gets the names that it lacks, and all body rows are padded to its width.
  void AddMissingFields(std::span<const String> Names);
  // The body rows in the order told by their indexes: Kept behind Short, and Dropped out of the table.
  void PutInOrder(std::span<const int> Short, std::span<const int> Kept, std::span<const int> Dropped);
};

}  // namespace vx
