#include "tables/uFileCsv/detail/FileForms.h"

#include <algorithm>

#include "platform/Paths.h"
#include "platform/Text.h"
#include "tables/uFileCsv/detail/FetchAhead.h"

namespace vx::detail {

namespace {

constexpr TFileForm kFileForms[] = {
    {u".csv", rfCommatext, u','}, {u".txt", rfChar, u';'}, {u".vxt", rfChar, 27},
    {u".tab", rfChar, 9},         {u"", rfPlain, u' '},
};

}  // namespace

const TFileForm* FindFileForm(const String& Path) {
  const String extension = LowerCase(ExtractFileExt(Path));
  for (const TFileForm& form : kFileForms) {
    if (extension == form.Extension) return &form;
  }
  return nullptr;
}

std::vector<char> MakeRowBuffer(const TFileCsv& Table) {
  size_t longest = 0;
  size_t total = 0;
  for (int row = 0; row < Table.GetCount(); ++row) {
    FetchRowAhead(Table, row);
    const size_t most = TRowWriter::MostBytes(Table.GetLines(row)->Items());
    longest = std::max(longest, most);
    total += most;
  }
  return std::vector<char>(std::max(longest, std::min(total, TRowWriter::kGoodBuffer)));
}

int64_t PutRows(const TFileCsv& Table, const TFileForm& Form, std::vector<char>& Buffer, TRowWriter::TPut Put) {
  TRowWriter writer(Put, Form.Form, Form.Separator, Buffer);
  for (int row = 0; row < Table.GetCount(); ++row) {
    FetchRowAhead(Table, row);
    writer.Write(Table.GetLines(row)->Items());
  }
  writer.Flush();
  return writer.GetBytes();
}

}  // namespace vx::detail
