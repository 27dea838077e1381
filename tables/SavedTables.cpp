#include "tables/SavedTables.h"

#include <algorithm>
#include <cstring>

#include "platform/Exceptions.h"
#include "platform/SafeFiles.h"
#include "tables/uFileCsv/detail/FetchAhead.h"
#include "tables/uFileCsv/detail/FileForms.h"
#include "tables/uFileCsv/detail/TableReader.h"

namespace vx {

namespace {

std::string BytesOf(const TFileCsv& Table, const String& Path) {
  const detail::TFileForm* form = detail::FindFileForm(Path);
  if (form == nullptr) throw EArgumentException(u"Not the extension of a table file: " + Path);
  std::string bytes;
  std::vector<char> buffer = detail::MakeRowBuffer(Table);
  const auto put = [&](const char* more, size_t count) { bytes.append(more, count); };
  (void)detail::PutRows(Table, *form, buffer, put);
  return bytes;
}

// Compares the rows of a table with those that are read from its bytes.
class TLossFinder {
 public:
  explicit TLossFinder(const TFileCsv& Table) : FTable(Table) {}
  void Compare(std::span<const String> Found) {
    if (FRow >= FTable.GetCount()) return TooMany();
    detail::FetchRowAhead(FTable, FRow);
    const std::span<const String> expected = FTable.GetLines(FRow)->Items();
    for (size_t col = 0; col < expected.size(); ++col) {
      if (col >= Found.size()) {
        Add(col, lrForm);
      } else if (expected[col] != Found[col]) {
        // What the code page lacks stands there as something else; what the form takes away is not there.
        Add(col, expected[col].size() == Found[col].size() ? lrCharacter : lrForm);
      }
    }
    if (Found.size() > expected.size()) TooMany();
    ++FRow;
  }
  TLostCells Finish() {
    while (FRow < FTable.GetCount()) Compare({});
    return std::move(FLost);
  }

 private:
  // Cells and rows that are too many come of others that were cut, which count. Should there be none, the last one
  // does.
  void TooMany() {
    if (FLost.IsEmpty()) Add(0, lrForm);
  }
  void Add(size_t Col, TLossReason Reason) {
    FLost.Add({static_cast<int>(Col), std::min(FRow, FTable.GetCount() - 1), Reason});
  }
  const TFileCsv& FTable;
  int FRow = 0;
  TLostCells FLost;
};

TLostCells LostOf(const TFileCsv& Table, std::string_view Bytes) {
  TLossFinder finder(Table);
  size_t position = 0;
  const auto read = [&](void* target, size_t count) {
    count = std::min(count, Bytes.size() - position);
    std::copy_n(Bytes.data() + position, count, static_cast<char*>(target));
    position += count;
    return count;
  };
  // Not more than a few rows live at a time, whatever the size.
  detail::TTableReader(read, 0).ReadAll([&](std::unique_ptr<TVxStringList> row) { finder.Compare(row->Items()); });
  return finder.Finish();
}

}  // namespace

TLostCells FindLostCells(const TFileCsv& Table, std::u16string_view Path) {
  return LostOf(Table, BytesOf(Table, Path));
}

TSaved SaveWhole(const TFileCsv& Table, std::u16string_view Path, TIfLost IfLost) {
  const String path = Path;  // it may be a cell of the table
  const std::string bytes = BytesOf(Table, path);
  TSaved saved{false, LostOf(Table, bytes)};
  if (!saved.Lost.IsEmpty() && IfLost == ilRefuse) return saved;
  ReplaceFileContent(path, bytes);
  saved.IsSaved = true;
  return saved;
}

}  // namespace vx
