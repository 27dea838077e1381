// Tables by their names.
#pragma once

#include <memory>
#include <string_view>

#include "objects/uVxClasses/TVxStringIndex.h"
#include "tables/uFileCsv/TFileCsv.h"
#include "tables/uFileCsv/THeadCsv.h"

namespace vx {

// An index of keys with tables. Unless other options are given it owns the tables, and case does not
// count in the keys.
//
// Example:
//   vx::TFileCsvList lists;
//   lists.ImportFromString(u"FARBE,\"0,1\",\"rot,blau\"");
//   lists.GetFileCsv(lists.IndexOf(u"Farbe"))->GetCell(1, 1);      // u"blau"
class TFileCsvList : public TVxStringIndex {
 public:
  TFileCsvList();
  explicit TFileCsvList(TVxStringIndexOptions Options) : TVxStringIndex(Options) {}
  String ClassName() const override { return u"TFileCsvList"; }
  // Clear, and the options that hold unless others are given.
  void Init() override;
  // A new empty table of the list's kind.
  [[nodiscard]] virtual std::unique_ptr<TFileCsv> CreateNewItem() const;

  // The table, which stays the list's; nullptr outside the list.
  TFileCsv* GetFileCsv(int Index) const;
  // Puts a table beside a key; the one that stood there is not freed. Outside the list nothing happens, and
  // the table is the caller's still.
  void SetFileCsv(int Index, TFileCsv* Table);

  // Replaces all by what Text holds; always true. Text is a row of cells for each table, rows parted by ESC:
  // the key, and the table's rows as commatexts. Of tables with the same key the last one stays.
  bool ImportFromString(std::u16string_view Text);
};

class THeadCsvList : public TFileCsvList {
 public:
  THeadCsvList() = default;
  explicit THeadCsvList(TVxStringIndexOptions Options) : TFileCsvList(Options) {}
  String ClassName() const override { return u"THeadCsvList"; }
  [[nodiscard]] std::unique_ptr<TFileCsv> CreateNewItem() const override;
  // The table if it is a THeadCsv, which stays the list's; nullptr outside the list.
  THeadCsv* GetHeadCsv(int Index) const;
  // As SetFileCsv.
  void SetHeadCsv(int Index, THeadCsv* Table) { SetFileCsv(Index, Table); }
};

}  // namespace vx
