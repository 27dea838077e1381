#include "tools/vxtab/TableFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <istream>
#include <optional>
#include <random>

#include "platform/Encoding.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "tables/TableTexts.h"
#include "tools/vxtab/ForeignLook.h"
#include "tools/vxtab/Show.h"
#include "tools/vxtab/Spreadsheets.h"
#include "tools/vxtab/System.h"

namespace vx::vxtab {

namespace {

namespace fs = std::filesystem;

fs::file_status StatusOf(const String& Path) {
  std::error_code ignored;
  return fs::status(ToNativePath(Path), ignored);
}

std::string LastError() { return SysErrorMessage(GetLastError()).ToUtf8(); }

// Runs Action, and gives what it raises as a failure that names the file.
template <typename F>
auto Naming(const std::string& Name, F Action) {
  std::string text;
  try {
    return Action();
  } catch (const std::bad_alloc&) {
    text = "not enough memory";
  } catch (const std::length_error&) {
    text = "too large";
  } catch (const std::exception& e) {
    text = e.what();
  }
  bool isComplete = text.empty() || text.find(Name) != text.npos;
  throw TFailure(isComplete ? text : Name + ": " + text);
}

void CopyStream(std::istream& In, const String& Path) {
  TFileStream file(Path, fmCreate | fmShareDenyWrite);
  std::string buffer(1 << 20, '\0');
  while (In) {
    In.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    file.WriteBuffer(buffer.data(), static_cast<size_t>(In.gcount()));
  }
  if (In.bad()) throw TFailure("can't be read");
}

// A file that can be read more than once: the one named, or a copy of what is no regular file.
class TInput {
 public:
  TInput(const std::string& Name, std::istream& In) : FPath(String::FromUtf8(Name)) {
    if (Name == "-") {
      CopyStream(In, Scratch());
      return;
    }
    fs::file_status status = StatusOf(FPath);
    if (fs::is_directory(status)) throw TFailure("is a directory");
    if (!fs::exists(status) || fs::is_regular_file(status)) return;
    std::ifstream special(ToNativePath(FPath), std::ios::binary);
    if (!special) throw TFailure("can't be opened");
    CopyStream(special, Scratch());
  }
  ~TInput() { RemoveOnSignal(nullptr); }
  TInput(const TInput&) = delete;
  TInput& operator=(const TInput&) = delete;
  const String& Path() const { return FPath; }
  // From now on the file is another one with this content.
  void Replace(std::string_view Bytes) { TFileStream(Scratch(), fmCreate).WriteBuffer(Bytes.data(), Bytes.size()); }

 private:
  const String& Scratch() {
    FScratch.emplace();
    FPath = FScratch->Path(u"input");
    RemoveOnSignal(&FPath);
    return FPath;
  }
  std::optional<TScratchDirectory> FScratch;
  String FPath;
};

int64_t SizeOf(const String& Path) {
  TFileInfo info;
  return GetFileInfo(Path, info) ? info.Size : 0;
}

const char* FaultText(TCsvFaultKind Kind) {
  if (Kind == cfOpenQuote) return "a quote is never closed";
  return Kind == cfTextBehindQuote ? "text stands behind a closing quote" : "bytes are no character";
}

void LoadForeign(TLoadedFile& File, const std::string& Name, const String& Path, const TReading& Reading,
                 TReporter& Reporter) {
  const TCsvLoaded loaded = LoadCsv(File.Table, Path, Reading.Form);
  File.Bytes = SizeOf(Path);
  File.Separator = loaded.Form.Separator;
  if (Reading.WithDetails) {
    // What is nothing but ASCII was read as UTF-8.
    const bool isAscii =
        loaded.Form.Encoding == ceUtf8 && !loaded.Form.HasMark && GuessEncodingOf(Path).Get() == ceGuess;
    File.Encoding = EncodingName(isAscii ? ceGuess : loaded.Form.Encoding, loaded.Form.HasMark, loaded.Form.CodePage);
  }
  if (loaded.Faults.Count == 0) return;
  const TCsvFault& first = loaded.Faults.First[0];
  std::string text = "note: " + Name + ", line " + std::to_string(first.Line) + ", column " +
                     std::to_string(first.Column) + ": " + FaultText(first.Kind);
  if (loaded.Faults.Count > 1) text += "; so in " + std::to_string(loaded.Faults.Count) + " places";
  Reporter.Say(text);
}

bool IsSpreadsheet(const String& Path) {
  const String extension = LowerCase(ExtractFileExt(Path));
  return extension == u".xlsx" || extension == u".ods";
}

void LoadSpreadsheet(TLoadedFile& File, const std::string& Name, const String& Path, const std::string& Sheet,
                     TReporter& Reporter) {
  File.Bytes = SizeOf(Path);
  const std::vector<std::string> names = ReadSpreadsheet(Path, Sheet, File.Table);
  if (!Sheet.empty() || names.size() < 2) return;
  std::string others;
  for (size_t i = 1; i < names.size(); ++i) others += (i > 1 ? ", " : "") + names[i];
  Reporter.Say("note: " + Name + ": the first sheet is read; take others with --sheet: " + others);
}

void LoadOwn(TLoadedFile& File, const String& Path, bool WithDetails) {
  if (!File.Table.LoadFromFile(Path)) throw TFailure("");
  File.Bytes = SizeOf(Path);
  if (!WithDetails) return;
  TForeignLook look = LookAsForeign(File.Table, Path);
  File.Separator = look.Separator;
  File.Hint = std::move(look.Hint);
}

// A configuration file; those of other programs get the byte order mark that they may lack.
void LoadIni(TLoadedFile& File, TInput& Input, bool IsForeign) {
  const std::string bytes = ReadBytes(Input.Path());
  const TCsvEncodingGuess guess = GuessEncoding(bytes);
  File.Bytes = static_cast<int64_t>(bytes.size());
  if (IsForeign) {
    Input.Replace("\xEF\xBB\xBF" + DecodeForeign(bytes).ToUtf8());
  } else if (!guess.HasMark() && guess.Get() != ceGuess && guess.Get() != ceCodePage) {
    File.Hint = "it looks like " + EncodingName(guess.Get(), false) + " without a byte order mark";
  }
  if (!File.Table.LoadFromIni(Input.Path(), true)) throw TFailure("there is no such file");
}

struct TKnownForm {
  std::u16string_view Extension;
  const char* Text;
};
constexpr TKnownForm kForms[] = {
    {u".csv", ".csv (comma)"},  {u".txt", ".txt (semicolon)"},     {u".vxt", ".vxt (ESC)"},
    {u".tab", ".tab (tab)"},    {u".tsv", ".tsv (tab, UTF-8)"},    {u".jsonl", ".jsonl (JSON lines)"},
    {u".md", ".md (Markdown)"}, {u".xlsx", ".xlsx (spreadsheet)"}, {u"", "none (blank, without quotes)"}};

// The file that a name leads to, so that the new one can be made beside it.
String BehindLinks(const String& Path) {
  std::error_code error;
  fs::path real = fs::canonical(ToNativePath(Path), error);
  return error ? Path : String::FromUtf8(real.native());
}

// A file of a name that nothing has, for writing the table; it goes unless it was given its place.
class TNewFile {
 public:
  TNewFile(const String& Directory, const String& Extension, bool ForOwner) {
    std::random_device random;
    for (int tries = 0; tries < 20; ++tries) {
      // Without a dot, since the extension alone decides the form.
      std::string name = "~vxtab" + std::to_string(random()) + std::to_string(random());
      String path = Concat({Directory, String::FromUtf8(name), Extension});
      if (CreateNewFile(path, ForOwner)) {
        FPath = path;
        RemoveOnSignal(&FPath);
        return;
      }
    }
    throw TFailure("can't make a file in its directory: " + LastError());
  }
  ~TNewFile() {
    RemoveOnSignal(nullptr);
    if (!FPath.empty()) FileDelete(FPath);
  }
  TNewFile(const TNewFile&) = delete;
  TNewFile& operator=(const TNewFile&) = delete;

  const String& Path() const { return FPath; }
  void Release() { FPath.clear(); }

 private:
  String FPath;
};

// Writes the table into the new file, and gives in words what that does not hold; empty if it holds all.
using TWriteTable = std::function<std::string(TFileCsv& Table, const String& Path)>;

std::string WriteNew(TFileCsv& Table, const TWriteTable& Write, const String& Path) {
  std::string lost = Write(Table, Path);
  if (!TFileStream(Path, fmOpenReadWrite | fmShareDenyNone).Flush()) throw TFailure("can't be written: " + LastError());
  return lost;
}

// Where two rows of that number differ, in words; empty if they are equal.
std::string RowDifference(int Row, std::span<const String> Expected, std::span<const String> Found) {
  if (std::ranges::equal(Expected, Found)) return {};
  const std::string where = "row " + std::to_string(Row);
  for (size_t col = 0; col < std::min(Expected.size(), Found.size()); ++col) {
    if (Expected[col] == Found[col]) continue;
    return "column " + std::to_string(col) + " of " + where + " is " + Quoted(Found[col]) + " instead of " +
           Quoted(Expected[col]);
  }
  return where + " has " + std::to_string(Found.size()) + " cells instead of " + std::to_string(Expected.size());
}

// Reads a file only to compare its rows with those of a table, and keeps none.
class TReadAgain : public TFileCsv {
 public:
  explicit TReadAgain(const TFileCsv& Table) : FTable(Table) {}
  int Add(TObject* Row) override {
    TVxStringList* found = AsRow(Row);
    FetchAhead();
    if (FRows < FTable.GetCount() && FDifference.empty()) {
      FDifference = RowDifference(FRows, FTable.GetLines(FRows)->Items(), found->Items());
    }
    delete found;
    return FRows++;
  }
  // Where the tables first differ, in words, after the last row.
  std::string Difference() const {
    if (!FDifference.empty() || FRows == FTable.GetCount()) return FDifference;
    return "it has " + std::to_string(FRows) + " rows instead of " + std::to_string(FTable.GetCount());
  }

 private:
  // The rows of a sorted table lie anywhere in memory: each is asked for some time before its cells, and they
  // before they are read.
  void FetchAhead() const {
    constexpr int kStep = 12;
    const auto rows = FTable.Items().subspan(static_cast<size_t>(std::min(FRows, FTable.GetCount())));
    if (rows.size() > 2 * kStep) __builtin_prefetch(rows[2 * kStep]);
    if (rows.size() <= kStep) return;
    const std::span<const String> cells = FTable.GetLines(FRows + kStep)->Items();
    constexpr size_t kCellsALine = 2;
    for (size_t i = 0; i < std::min<size_t>(cells.size(), 12); i += kCellsALine) __builtin_prefetch(&cells[i]);
  }

  const TFileCsv& FTable;
  int FRows = 0;
  std::string FDifference;
};

std::string WriteOwn(TFileCsv& Table, const String& Path) {
  if (!Table.SaveToFile(Path)) throw TFailure("");
  TReadAgain again(Table);
  if (!again.LoadFromFile(Path)) throw TFailure("");
  return again.Difference();
}

void PutBytes(const String& Path, std::string_view Bytes) {
  TFileStream(Path, fmCreate).WriteBuffer(Bytes.data(), Bytes.size());
}

std::string WriteCsv(TFileCsv& Table, const String& Path, const TCsvForm& Form) {
  TCsvWriter writer(Form);
  for (int row = 0; row < Table.GetCount(); ++row) writer.Write(Table.GetLines(row)->Items());
  PutBytes(Path, writer.Bytes());
  if (writer.Lost().IsEmpty()) return {};
  const TLostCell& first = writer.Lost().First[0];
  return std::to_string(writer.Lost().Count) + " cells can't be written in this form, first column " +
         std::to_string(first.Col) + " of row " + std::to_string(first.Row) + ", " +
         Quoted(Table.GetCell(first.Col, first.Row));
}

std::string WriteSheet(TFileCsv& Table, const String& Path) {
  WriteSpreadsheet(Table, Path);
  TFileCsv again;
  ReadSpreadsheet(Path, {}, again);
  for (int row = 0; row < Table.GetCount(); ++row) {
    const auto found = row < again.GetCount() ? again.GetLines(row)->Items() : std::span<const String>();
    std::string difference = RowDifference(row, Table.GetLines(row)->Items(), found);
    if (!difference.empty()) return "read again, " + difference;
  }
  return {};
}

// How a table is written to that path.
TWriteTable WriterFor(const String& Path, std::optional<TCsvForm> Form) {
  const String extension = LowerCase(ExtractFileExt(Path));
  if (extension == u".tsv" && !Form) Form.emplace();
  if (Form) {
    if (Form->Separator == 0) Form->Separator = CsvSeparatorOf(Path);
    return [form = *Form](TFileCsv& table, const String& path) { return WriteCsv(table, path, form); };
  }
  if (extension == u".xlsx") return WriteSheet;
  if (extension == u".jsonl") {
    return [](TFileCsv& table, const String& path) { return PutBytes(path, TableToJsonLines(table)), std::string(); };
  }
  if (extension == u".md") {
    return [](TFileCsv& table, const String& path) { return PutBytes(path, TableToMarkdown(table)), std::string(); };
  }
  return [](TFileCsv& table, const String& path) {
    const std::string difference = WriteOwn(table, path);
    return difference.empty() ? difference : "read again, " + difference;
  };
}

// Writes the bytes of a whole file into a device or pipe.
void CopyInto(const String& Path, const std::string& Name) {
  std::ifstream source(ToNativePath(Path), std::ios::binary);
  std::ofstream target(ToNativePath(String::FromUtf8(Name)), std::ios::binary);
  if (source.peek() != std::ifstream::traits_type::eof()) target << source.rdbuf();
  if (!target.flush()) throw TFailure("can't be written");
}

}  // namespace

std::string ReadBytes(const String& Path) {
  TFileStream file(Path, fmOpenRead | fmShareDenyNone);
  std::string bytes(static_cast<size_t>(std::max<int64_t>(file.GetSize(), 0)), '\0');
  bytes.resize(file.Read(bytes.data(), bytes.size()));
  return bytes;
}

std::unique_ptr<TLoadedFile> LoadTable(const std::string& Name, const TReading& Reading, std::istream& In,
                                       TReporter& Reporter) {
  TProgress progress(Reporter, "loading " + Name);
  return Naming(Name, [&] {
    TInput input(Name, In);
    auto file = std::make_unique<TLoadedFile>();
    if (IsSpreadsheet(String::FromUtf8(Name))) {
      LoadSpreadsheet(*file, Name, input.Path(), Reading.Sheet, Reporter);
    } else if (Reading.By == rbIni || Reading.By == rbForeignIni) {
      LoadIni(*file, input, Reading.By == rbForeignIni);
    } else if (Reading.By == rbForeign) {
      LoadForeign(*file, Name, input.Path(), Reading, Reporter);
    } else if (Reading.By == rbLibrary) {
      LoadOwn(*file, input.Path(), Reading.WithDetails);
    } else if (!file->Table.LoadMSSQL(input.Path())) {
      const THeadCsv& table = file->Table;
      file->Hint = "the last record has " + std::to_string(table.GetLines(table.GetCount() - 1)->GetCount()) +
                   " cells, the first " + std::to_string(table.FieldCount());
    }
    return file;
  });
}

void CheckTarget(const std::string& Name) {
  if (Name == "-") throw TUsageError("'-' can't be written to; its form would not be known");
  String path = String::FromUtf8(Name);
  String extension = LowerCase(ExtractFileExt(path));
  if (std::none_of(std::begin(kForms), std::end(kForms),
                   [&](const TKnownForm& f) { return extension == f.Extension; })) {
    std::string known;
    for (const TKnownForm& form : kForms) known += std::string(known.empty() ? "" : ", ") + form.Text;
    throw TFailure(Name + ": unknown extension '" + extension.ToUtf8() + "'; known are " + known);
  }
  if (DirectoryExists(path)) throw TFailure(Name + ": is a directory");
  TFileInfo info;
  if (GetFileInfo(path, info) && info.IsReadOnly) throw TFailure(Name + ": is read-only");
}

void SaveTable(TFileCsv& Table, const std::string& Name, const std::optional<TCsvForm>& Form, TReporter& Reporter) {
  TProgress progress(Reporter, "saving " + Name);
  auto save = [&](const String& Directory, bool ForOwner, const std::function<void(TNewFile&)>& put) {
    String path = String::FromUtf8(Name);
    TNewFile file(Directory, ExtractFileExt(path), ForOwner);
    const std::string lost = WriteNew(Table, WriterFor(path, Form), file.Path());
    put(file);
    if (!lost.empty()) Reporter.Say("note: " + Name + " does not hold the whole table: " + lost);
  };
  Naming(Name, [&] {
    String path = String::FromUtf8(Name);
    fs::file_status status = StatusOf(path);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
      TScratchDirectory scratch;
      save(scratch.Path(u""), true, [&](TNewFile& file) { CopyInto(file.Path(), Name); });
      return;
    }
    save(ExtractFilePath(BehindLinks(path)), fs::exists(status), [&](TNewFile& file) {
      if (!FileReplace(file.Path(), path)) throw TFailure("can't be replaced: " + LastError());
      file.Release();
    });
  });
}

}  // namespace vx::vxtab
