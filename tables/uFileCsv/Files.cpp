// Table files: loading, saving, the database export.
//
// A table file is single-byte text in the system's code page, one row a line, every line ended by
// carriage return and line feed; no head, no byte order mark, no word on its encoding. A line break
// inside a quoted cell stands as it is. The extension decides the separator when a file is written;
// when it is read, the counts in the first line do.
#include "platform/Files.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>
#include <vector>

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "platform/Paths.h"
#include "platform/Shell.h"
#include "platform/Text.h"
#include "services/uHandleFile.h"
#include "tables/uFileCsv.h"
#include "tables/uFileCsv/detail/FileForms.h"
#include "tables/uFileCsv/detail/TableReader.h"

namespace vx {

using detail::CountSeparators;
using detail::TFileForm;
using detail::TSeparatorCounts;
using detail::TTableReader;

namespace {

void WriteRows(const TFileCsv& Table, const String& Path, const TFileForm& Form) {
  // Before the file is emptied, all that could stop the writing but the file itself.
  std::vector<char> buffer = detail::MakeRowBuffer(Table);
  TFileStream file(Path, fmCreate | fmShareDenyWrite);
  const auto put = [&](const char* bytes, size_t count) { file.WriteBuffer(bytes, count); };
  file.SetSize(detail::PutRows(Table, Form, buffer, put));
}

// Waits until the file's stamp is another than Before. If it stays, the file is stamped with the
// present time: the result is whether one of both came out.
bool ConfirmStamp(const String& Path, TDateTime Before) {
  constexpr int kPatience = 1500;
  constexpr int kPause = 100;
  int64_t start = GetTickCount();
  bool isChanged = VxFileLastWrite(Path, false) != Before;
  while (!isChanged && GetTickCount() - start < kPatience) {
    Sleep(kPause);
    isChanged = VxFileLastWrite(Path, false) != Before;
  }
  int errorCode;
  return isChanged || VxSetFileLastWrite(Path, Now(), errorCode);
}

// The code units of a UTF-16 file up to the first 0, as this machine holds them.
std::u16string ReadUtf16(const String& Path) {
  std::string bytes;
  TFileStream(Path, fmOpenRead | fmShareDenyNone).ReadRest(bytes, SIZE_MAX / 4);
  std::u16string text(bytes.size() / 2, u'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
  if constexpr (std::endian::native == std::endian::big) {
    for (char16_t& unit : text) unit = static_cast<char16_t>(unit << 8 | unit >> 8);
  }
  text.resize(std::min(text.size(), text.find(u'\0')));
  return text;
}

bool IsLineEnd(char16_t Unit) { return Unit == u'\r' || Unit == u'\n'; }

}  // namespace

bool TFileCsv::LoadFromFile(std::u16string_view FilePath) {
  String Path = FilePath;  // it may be a cell of this table
  if (!VxFileExists(Path)) {
    ShowWarning(Concat({u"Die Datei\r\n", Path, u"\r\nist nicht vorhanden,\r\nkann also nicht geladen werden."}));
    return false;
  }
  Clear();
  SetOwnsObjects(true);
  try {
    TFileStream file(Path, fmOpenRead | fmShareDenyNone);
    const auto read = [&](void* target, size_t count) { return file.Read(target, count); };
    TTableReader reader(read, file.GetSize());
    AddMany([&] { reader.ReadAll([this](std::unique_ptr<TVxStringList> row) { AddNew(std::move(row)); }); });
  } catch (const EStreamError&) {
    Clear();
    throw;
  }
  return true;
}

bool TFileCsv::SaveToFile(std::u16string_view FilePath) {
  String Path = FilePath;
  const TFileForm* form = detail::FindFileForm(Path);
  if (!form && GetCount() > 0) throw EStringListError(FormatListError(SListIndexError, -1));
  TDateTime before = VxFileLastWrite(Path, false);
  WriteRows(*this, Path, form ? *form : *detail::FindFileForm({}));
  // The size that the file has by then is not looked at: that is wanted, another program may have it already.
  if (ConfirmStamp(Path, before)) return true;
  ShowWarning(Concat({u"Die Datei wurde nicht korrekt gespeichert.\r\n\r\n\r\n\r\nDateipfad ", Path}));
  return false;
}

bool TFileCsv::SaveAndExecute(std::u16string_view FilePath) {
  String Path = FilePath;
  if (!SaveToFile(Path)) return false;
  String extension = LowerCase(ExtractFileExt(Path));
  if ((extension != u".csv" && extension != u".txt") || !VxFileExists(Path)) return true;
  String file = Path;
  if (extension == u".txt") {
    String renamed = ChangeFileExt(Path, u".csv");
    if (VxMoveFile(Path, renamed, true)) file = renamed;
  }
  OpenDocument(file, ExtractFileDir(file));
  return true;
}

bool TFileCsv::LoadMSSQL(std::u16string_view FilePath) {
  String Path = FilePath;  // it may be a cell of this table
  Clear();
  SetOwnsObjects(true);
  std::u16string text = ReadUtf16(Path);
  auto headEnd = std::find_if(text.begin(), text.end(), IsLineEnd);
  size_t commas = static_cast<size_t>(std::count(text.begin(), headEnd, u','));
  constexpr size_t kLargeText = 1024 * 1024;
  detail::TRowMemory memory(text.size() >= kLargeText);
  TStringArena arena(memory.Bulk());
  detail::TEntryFiller cells;
  size_t count = 0;  // of cells of the present row
  auto takeCell = [&](size_t start, size_t end) {
    ::new (cells.Place()) String(
        arena.Build(end - start, [&](char16_t* units) { std::copy_n(text.data() + start, end - start, units); }));
    cells.Advance();
    ++count;
  };
  auto takeRow = [&] {
    auto row = memory.NewRow();
    cells.GiveTo([&](detail::TEntries& entries) { row->TakeCells(entries, memory.Bulk()); });
    count = 0;
    AddNew(std::move(row));
  };
  bool isWhole = false;
  AddMany([&] {
    size_t start = 0;
    for (size_t pos = 0; pos < text.size(); ++pos) {
      if (text[pos] == u',') {
        takeCell(start, pos);
        start = pos + 1;
      } else if (IsLineEnd(text[pos]) && count >= commas) {
        takeCell(start, pos);
        takeRow();
        while (pos + 1 < text.size() && IsLineEnd(text[pos + 1])) ++pos;
        start = pos + 1;
      }
    }
    takeCell(start, text.size());
    isWhole = count == commas + 1;
    takeRow();
  });
  return isWhole;
}

String TFileCsv::AnalyseToParse(std::u16string_view Text) {
  TSeparatorCounts counts;
  CountSeparators(Text.data(), Text.data() + Text.size(), counts);
  return String(1, counts.Winner());
}

String TFileCsv::AnalyseToParse(const TStrings& Strings) {
  if (Strings.GetCount() == 0) return {};
  TSeparatorCounts counts;
  String first = Strings.Get(0);
  for (char16_t unit : first) counts.Count(unit);
  return String(1, counts.Winner());
}

std::unique_ptr<TVxStringList> TFileCsv::ParseCommatext(std::u16string_view Text, std::u16string_view Separator) {
  auto row = std::make_unique<TVxStringList>();
  row->SetSerialize(Separator.empty() ? u',' : Separator[0], u'"', Text);
  return row;
}

String TFileCsv::ParseChar(const TVxStringList& Row, std::u16string_view Separator) {
  String line;
  for (const String& cell : Row.Items()) {
    if (&cell != Row.Items().data()) line += Separator;
    auto isSpecial = [](char16_t unit) { return unit < 33 || unit == u'"'; };
    bool isQuoted =
        Separator != u" " && (std::any_of(cell.begin(), cell.end(), isSpecial) ||
                              (!Separator.empty() && cell.view().find(Separator) != std::u16string_view::npos));
    line += isQuoted ? QuotedStr(cell, u'"') : cell;
  }
  return line;
}

}  // namespace vx
