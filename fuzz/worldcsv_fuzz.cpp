// Table files of other programs: the first bytes tell a form, the rest is a file. It is read by the rules, in a form
// told or found out, written in that form and read back.
#include "fuzz/support/Input.h"
#include "platform/CodePage.h"
#include "tables/Csv.h"
#include "tests/support/PlainTable.h"

namespace vx::fuzz {
namespace {

using TRows = std::vector<TCells>;

bool IsLineEnd(char16_t Unit) { return Unit == u'\r' || Unit == u'\n'; }

// The rules, unit by unit.
TRows ReadPlainCsv(std::u16string_view Text, char16_t Separator, char16_t Quote) {
  TRows rows;
  for (size_t pos = 0; pos < Text.size();) {
    TCells cells;
    for (bool isMore = true; isMore;) {
      String cell;
      bool inQuotes = Quote != 0 && pos < Text.size() && Text[pos] == Quote;
      const bool isQuoted = inQuotes;
      if (inQuotes) ++pos;
      for (; pos < Text.size(); ++pos) {
        const char16_t unit = Text[pos];
        if (!inQuotes && (unit == Separator || IsLineEnd(unit))) break;
        if (inQuotes && unit == Quote) {
          inQuotes = pos + 1 < Text.size() && Text[pos + 1] == Quote;
          if (!inQuotes) continue;
          ++pos;
        }
        cell += unit;
      }
      isMore = pos < Text.size() && Text[pos] == Separator;
      if (isMore || !cells.empty() || isQuoted || !cell.empty()) cells.push_back(cell);
      if (isMore) ++pos;
    }
    if (pos < Text.size() && Text[pos] == u'\r' && pos + 1 < Text.size() && Text[pos + 1] == u'\n') ++pos;
    ++pos;
    rows.push_back(cells);
  }
  return rows;
}

TCsvForm TakeForm(TInput& Input) {
  TCsvForm form;
  form.Separator = u"\0,;\t|→é"[Input.Byte() % 7];
  form.Quote = u"\"\"'\0"[Input.Byte() % 4];
  form.Encoding = static_cast<TCsvEncoding>(Input.Byte() % 5);
  const unsigned rest = Input.Byte();
  form.CodePage = (rest & 1) != 0 ? 1252 : 0;
  form.HasMark = (rest & 2) != 0;
  form.LineEnd = static_cast<TCsvLineEnd>(rest / 4 % 3);
  form.Quoting = static_cast<TCsvQuoting>(rest / 16 % 2);
  if (form.Encoding == ceCodePage && form.Separator == u'→') form.Separator = u',';
  return form;
}

void CheckReader(std::string_view Bytes, const TCsvForm& Form, const TRows& Rows) {
  TCsvReader reader = TCsvReader::OverBytes(Bytes, Form), counter = TCsvReader::OverBytes(Bytes, Form);
  int64_t line = 0;
  for (const TCells& row : Rows) {
    Check(reader.Next() && std::ranges::equal(reader.Cells(), row), "row by row it is the same");
    Check(counter.Skip() == static_cast<int>(row.size()), "rows gone over have as many cells");
    Check(reader.Line() > line, "each row begins on a line of its own");
    line = reader.Line();
  }
  Check(!reader.Next() && counter.Skip() == -1, "there are no more rows");
}

void CheckWritten(const TFileCsv& Table, const TCsvForm& Form) {
  TCsvWriter writer(Form);
  for (int row = 0; row < Table.GetCount(); ++row) writer.Write(Table.GetLines(row)->Items());
  TFileCsv back;
  const TCsvLoaded loaded = LoadCsvBytes(back, writer.Bytes(), Form);
  Check((test::Rows(back) == test::Rows(Table)) == writer.Lost().IsEmpty(), "what is not told as lost comes back");
  if (Form.Quote != 0) Check(loaded.Faults.Count == 0, "what was written has no faults");
}

}  // namespace

FUZZ(Input) {
  const TCsvForm form = TakeForm(Input);
  const std::string bytes = Input.Bytes();
  TFileCsv table;
  const TCsvLoaded loaded = LoadCsvBytes(table, bytes, form);
  const TRows rows = test::Rows(table);
  CheckReader(bytes, form, rows);
  if (loaded.Form.Encoding == ceCodePage) {
    const TCodePage& page = loaded.Form.CodePage == 0 ? GetSystemCodePage() : *TCodePage::Find(loaded.Form.CodePage);
    Check(rows == ReadPlainCsv(page.Decode(bytes), loaded.Form.Separator, form.Quote), "a file is read by the rules");
  } else if (loaded.Form.Encoding == ceUtf8) {
    const std::string_view text = std::string_view(bytes).substr(loaded.Form.HasMark ? 3 : 0);
    const bool isGood = String::FromUtf8(text).ToUtf8() == text;
    if (isGood) {
      Check(rows == ReadPlainCsv(String::FromUtf8(text), loaded.Form.Separator, form.Quote),
            "UTF-8 is read by the rules");
    }
    bool hasInvalid = false;
    for (const TCsvFault& fault : loaded.Faults.First) hasInvalid |= fault.Kind == cfInvalidBytes;
    if (loaded.Faults.Count <= static_cast<int64_t>(TCsvFaults::kMostKept)) {
      Check(isGood != hasInvalid, "bytes that are no character are told");
    }
  }
  TCsvForm writing = loaded.Form;
  writing.LineEnd = form.LineEnd;
  writing.HasMark = form.HasMark;
  writing.Quoting = form.Quoting;
  if (writing.Encoding != ceCodePage || writing.Separator < 0x80) CheckWritten(table, writing);
}

}  // namespace vx::fuzz
