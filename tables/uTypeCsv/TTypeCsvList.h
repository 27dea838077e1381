// Typed tables by their names.
#pragma once

#include <memory>

#include "tables/uFileCsv/TFileCsvList.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

// As its base: unless other options are given it owns the tables, and case does not count in the keys.
//
// Example:
//   vx::TTypeCsvList lists;
//   lists.ImportFromString(u"FARBE,\"0,1\",\"rot,blau\"");
//   lists.GetTypeCsv(0)->GetDecorations().SetFixed(0, 1, 0, 0);
class TTypeCsvList : public THeadCsvList {
 public:
  TTypeCsvList() = default;
  explicit TTypeCsvList(TVxStringIndexOptions Options) : THeadCsvList(Options) {}
  String ClassName() const override { return u"TTypeCsvList"; }
  [[nodiscard]] std::unique_ptr<TFileCsv> CreateNewItem() const override;
  // The table if it is a TTypeCsv, which stays the list's; nullptr outside the list.
  TTypeCsv* GetTypeCsv(int Index) const;
  // As SetFileCsv.
  void SetTypeCsv(int Index, TTypeCsv* Table) { SetFileCsv(Index, Table); }
  // Adds a typed table for each entry of Source, under the same key and with the rows of its table, which is freed with
  // Source, whether that owns it or not; nullptr is ignored.
  void AddAndFree(std::unique_ptr<THeadCsvList> Source);
};

}  // namespace vx
