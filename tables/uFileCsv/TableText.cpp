// The whole table as one text or list of texts.
#include "platform/CodePage.h"
#include "tables/uFileCsv.h"

namespace vx {

namespace {

constexpr char kEsc = 27;

std::u16string_view TrimSpaces(std::u16string_view Text) {
  size_t first = Text.find_first_not_of(u' ');
  if (first == Text.npos) return {};
  return Text.substr(first, Text.find_last_not_of(u' ') - first + 1);
}

}  // namespace

String TFileCsv::GetText() const { return CsvToStrings(*this)->GetTextStr(); }

void TFileCsv::SetText(std::u16string_view Text) {
  TVxStringList lines;
  lines.SetTextStr(Text);
  Clear();
  ImportFromStringList(&lines);
}

std::string TFileCsv::GetAnsiCsv() const {
  const TCodePage& page = GetSystemCodePage();
  size_t most = 0;
  for (int row = 0; row < GetCount(); ++row) {
    ++most;
    for (const String& cell : GetLines(row)->Items()) most += 2 * static_cast<size_t>(cell.size()) + 3;
  }
  std::string result;
  result.reserve(most);
  for (int row = 0; row < GetCount(); ++row) {
    String line = GetLines(row)->GetCommatext();
    size_t old = result.size();
    result.resize(old + static_cast<size_t>(line.size()));
    page.Encode(line.data(), static_cast<size_t>(line.size()), result.data() + old);
    result += kEsc;
  }
  return result;
}

void TFileCsv::SetAnsiCsv(std::string_view Bytes) {
  std::string kept(Bytes);  // the bytes may be a part of what this table holds
  Clear();
  AddMany([&] {
    for (size_t start = 0; start < kept.size();) {
      size_t end = std::min(kept.find(kEsc, start), kept.size());
      if (end > start) AddRow(GetSystemCodePage().Decode({kept.data() + start, end - start}));
      start = end + 1;
    }
  });
}

String TFileCsv::ExportToString(std::u16string_view Separator) const {
  String result;
  for (int row = 0; row < GetCount(); ++row) {
    result += GetLines(row)->GetCommatext();
    result += Separator;
  }
  return result;
}

bool TFileCsv::ImportFromString(std::u16string_view Text, std::u16string_view Separator) {
  Text = TrimSpaces(Text);
  AddMany([&] {
    while (!Text.empty()) {
      size_t end = Separator.size() == 1 ? Text.find(Separator[0]) : Text.npos;
      auto row = std::make_unique<TVxStringList>();
      row->SetCommatext(Text.substr(0, end));
      if (row->GetCount() > 0) AddNew(std::move(row));
      Text = end == Text.npos ? std::u16string_view() : Text.substr(end + 1);
    }
  });
  return true;
}

void TFileCsv::ExportToStringList(TStrings& Strings) const {
  for (int row = 0; row < GetCount(); ++row) Strings.Add(GetLines(row)->GetCommatext());
}

std::unique_ptr<TVxStringList> TFileCsv::ExportToStringList() const {
  auto result = std::make_unique<TVxStringList>();
  ExportToStringList(*result);
  return result;
}

void TFileCsv::ImportFromStringList(const TStrings* Strings) {
  if (!Strings) return;
  int count = Strings->GetCount();
  AddMany([&] {
    for (int i = 0; i < count; ++i) AddRow(Strings->Get(i));
  });
}

std::unique_ptr<TFileCsv> TFileCsv::ItemToCsv(int Row, int FirstCol) const {
  if (Row < 0 || Row >= GetCount()) return nullptr;
  std::unique_ptr<TFileCsv> result = GetNewInstance();
  for (int col = FirstCol < 0 ? 0 : FirstCol; col < GetLines(Row)->GetCount(); ++col) {
    auto row = std::make_unique<TVxStringList>();
    row->SetCommatext(GetLines(Row)->Get(col));
    result->AddInPlace(std::move(row));
  }
  return result;
}

std::unique_ptr<TFileCsv> StringsToCsv(const TStrings& Strings) {
  auto result = std::make_unique<TFileCsv>();
  result->ImportFromStringList(&Strings);
  return result;
}

std::unique_ptr<TVxStringList> CsvToStrings(const TFileCsv& Table) { return Table.ExportToStringList(); }

}  // namespace vx
