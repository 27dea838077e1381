#include "tables/Csv/CsvFiles.h"

#include <utility>

#include "platform/SafeFiles.h"
#include "tables/Csv/TCsvWriter.h"
#include "tables/Csv/detail/CsvSource.h"
#include "tables/uFileCsv/detail/FetchAhead.h"
#include "tables/uFileCsv/detail/RowAdder.h"

namespace vx {

namespace {

TCsvLoaded Load(TFileCsv& Table, detail::TCsvInput Input, const TCsvForm& Form) {
  const auto source = detail::TCsvSource::New(std::move(Input), Form, true);
  detail::TRowAdder::Replace(Table, [&] { return source->Next() ? source->TakeRow() : nullptr; });
  return {source->Form, std::move(source->Faults)};
}

}  // namespace

TCsvLoaded LoadCsv(TFileCsv& Table, std::u16string_view Path, const TCsvForm& Form) {
  return Load(Table, detail::TCsvInput(String(Path)), Form);
}

TCsvLoaded LoadCsvBytes(TFileCsv& Table, std::string_view Bytes, const TCsvForm& Form) {
  return Load(Table, detail::TCsvInput(Bytes), Form);
}

TSaved SaveCsv(const TFileCsv& Table, std::u16string_view Path, const TCsvForm& Form, TIfLost IfLost) {
  const String path = Path;  // it may be a cell of the table
  TCsvForm form = Form;
  if (form.Separator == 0) form.Separator = CsvSeparatorOf(path);
  TCsvWriter writer(form);
  for (int row = 0; row < Table.GetCount(); ++row) {
    detail::FetchRowAhead(Table, row);
    writer.Write(Table.GetLines(row)->Items());
  }
  TSaved saved{false, writer.Lost()};
  if (!saved.Lost.IsEmpty() && IfLost == ilRefuse) return saved;
  ReplaceFileContent(path, writer.Bytes());
  saved.IsSaved = true;
  return saved;
}

}  // namespace vx
