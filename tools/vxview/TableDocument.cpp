#include "tools/vxview/TableDocument.h"

#include <algorithm>
#include <array>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/SafeFiles.h"
#include "platform/Text.h"
#include "platform/UserMessages.h"
#include "tables/SavedTables.h"
#include "tools/vxtab/ForeignLook.h"
#include "tools/vxtab/TypeGuess.h"

namespace vx::vxview {

namespace {

String MissingText(const String& Path) { return Concat({u"Die Datei\r\n", Path, u"\r\nist nicht vorhanden."}); }

// Counts what is read, and stops when it is told to.
class TWatchedTable : public THeadCsv {
 public:
  explicit TWatchedTable(TLoadState& State) : FState(State) {}
  int Add(TObject* Row) override {
    constexpr int kRowsALook = 1024;
    for (const String& cell : AsRow(Row)->Items()) FBytes += cell.size() + 1;
    if (GetCount() % kRowsALook == 0) {
      FState.Done = FBytes;
      if (FState.IsCancelled) throw TCancelled();
    }
    return THeadCsv::Add(Row);
  }

 private:
  TLoadState& FState;
  int64_t FBytes = 0;
};

// Hands all rows over.
std::unique_ptr<TCsvView> ViewOf(TFileCsv& Table) {
  auto view = std::make_unique<TCsvView>();
  view->SetCapacity(Table.GetCount());
  const TReleaseScope released(Table);
  for (TObject* row : Table.Items()) view->Add(row);
  Table.Clear();
  return view;
}

// Reads the bytes in pieces, so that a large file can be stopped on the way.
std::string ReadWatched(const String& Path, TLoadState& State) {
  constexpr size_t kPiece = 4 << 20;
  TFileStream file(Path, fmOpenRead | fmShareDenyNone);
  std::string bytes;
  for (size_t count = 1; count > 0;) {
    if (State.IsCancelled) throw TCancelled();
    const size_t had = bytes.size();
    bytes.resize(had + kPiece);
    count = file.Read(bytes.data() + had, kPiece);
    bytes.resize(had + count);
    State.Done = static_cast<int64_t>(bytes.size());
  }
  return bytes;
}

void LoadForeign(TLoadedTable& Loaded, const String& Path, const TCsvForm& Form, TLoadState& State) {
  TWatchedTable table(State);
  const std::string bytes = ReadWatched(Path, State);
  const TCsvLoaded csv = LoadCsvBytes(table, bytes, Form);
  Loaded.View = ViewOf(table);
  Loaded.Form = {frForeign, csv.Form};
  if (csv.Faults.Count > 0) Loaded.Note = csv.Faults.First[0].ToText();
  if (csv.Faults.Count > 1) {
    Loaded.Note += Concat({u"\r\nSo auch an ", IntToStr(csv.Faults.Count - 1), u" weiteren Stellen."});
  }
}

void LoadOwn(TLoadedTable& Loaded, const String& Path, bool LooksAround, TLoadState& State) {
  TWatchedTable table(State);
  if (!table.LoadFromFile(Path)) throw EFOpenError(MissingText(Path));
  if (LooksAround) Loaded.LooksForeign = !vxtab::LookAsForeign(table, Path).Hint.empty();
  Loaded.View = ViewOf(table);
  Loaded.Form = {frLibrary, {}};
}

// The type that nearly all cells with a text look like.
TVxFieldType TypeOf(const vxtab::TTypeCounts& Counts) {
  constexpr int kInHundred = 95;
  int64_t filled = 0;
  std::pair<TVxFieldType, int> most{vftString, 0};
  for (const auto& type : vxtab::TypesByCount(Counts)) {
    if (type.first == vftUnknown) continue;
    filled += type.second;
    if (type.second > most.second) most = type;
  }
  return int64_t{most.second} * 100 >= filled * kInHundred ? most.first : vftString;
}

// Digits that are no numbers: postcodes and the like, which an editor of numbers would rewrite.
bool HasCodes(const TFileCsv& Table, int Col) {
  constexpr int kMostDigits = 9;
  return std::ranges::any_of(Table.Items(), [&](TObject* row) {
    const auto cells = static_cast<TVxStringList*>(row)->Items();
    if (static_cast<size_t>(Col) >= cells.size()) return false;
    const String& cell = cells[static_cast<size_t>(Col)];
    return cell.size() > kMostDigits || (cell.size() > 1 && cell[0] == u'0');
  });
}

// Every column gets the type of its cells, found in some thousand rows from all over the table.
void GuessTypes(TCsvView& View) {
  constexpr int kMostRows = 4000;
  const int head = View.GetContentTop(), count = View.GetCount();
  TFileCsv sample(false);
  const int step = std::max(1, (count - head) / kMostRows);
  for (int row = head; row < count; row += step) sample.Add(View.GetLines(row));
  const auto counts = vxtab::CountTypes(sample, 0);
  for (int col = 0; col < static_cast<int>(counts.size()); ++col) {
    const TVxFieldType type = TypeOf(counts[static_cast<size_t>(col)]);
    if (type == vftString || (type == vftInteger && HasCodes(sample, col))) continue;
    View.GetDecorations().CreateRange(rtColumn, col, -1, col, -1)->SetFieldType(type);
  }
}

// As a table without a look file is shown.
void GuessLook(TCsvView& View) {
  TDecorationList& look = View.GetDecorations();
  look.SetFixed({0, 1, 0, 0});
  TDecorationListOptions options = look.GetOptions();
  options.Include(dloColumnClick);
  options.Include(dloGridLines);
  look.SetOptions(options);
  look.SetZebraLines(2);
  look.SetMarginHoriz(4);
  look.SetMarginVerti(2);
  GuessTypes(View);
}

// The rows of the view in their order, hidden ones included; they stay the view's.
class TAllRows : public TFileCsv {
 public:
  explicit TAllRows(const TCsvView& View) : TFileCsv(false) {
    SetCapacity(View.GetAll().GetCount());
    for (TObject* row : View.GetAll().Items()) Add(row);
  }
};

}  // namespace

TFileStamp StampOf(const String& Path) {
  TFileInfo info;
  if (!GetFileInfo(Path, info) || info.IsDirectory) return {};
  return {info.Size, info.LastWrite, info.Id};
}

String LookPathOf(const String& Path) { return ChangeFileExt(Path, u".look"); }

bool TakeLook(TCsvView& View, const String& Path) {
  TFileInfo info;
  if (!GetFileInfo(LookPathOf(Path), info) || info.IsDirectory) return false;
  std::string bytes;
  TFileStream(LookPathOf(Path), fmOpenRead | fmShareDenyNone).ReadRest(bytes, SIZE_MAX / 4);
  View.GetDecorations().SetCommatext(GetSystemCodePage().Decode(bytes));
  return true;
}

TLoadedTable LoadTable(const String& Path, const std::optional<TFileForm>& Form, TLoadState& State) {
  TLoadedTable loaded;
  loaded.Stamp = StampOf(Path);
  if (loaded.Stamp.Size < 0) throw EFOpenError(MissingText(Path));
  State.Total = loaded.Stamp.Size;
  if (Form && Form->Rules == frForeign) {
    LoadForeign(loaded, Path, Form->Form, State);
  } else {
    LoadOwn(loaded, Path, !Form, State);
  }
  GuessLook(*loaded.View);
  return loaded;
}

TSaveOutcome SaveTable(const TCsvView& View, const String& Path, const TFileForm& Form,
                       const std::optional<TFileStamp>& Expected, TIfLost IfLost) {
  constexpr int kPatience = 3000;
  TFileTurn turn;
  try {
    (void)turn.Take(Path, kPatience);  // where there is no turn, the replacement itself tells why
    if (Expected && StampOf(Path) != *Expected) {
      return {skChanged,
              Concat({u"Die Datei\r\n", Path, u"\r\nist inzwischen von einem anderen Programm geändert worden."}),
              {}};
    }
    const TAllRows rows(View);
    const TSaved saved =
        Form.Rules == frForeign ? SaveCsv(rows, Path, Form.Form, IfLost) : SaveWhole(rows, Path, IfLost);
    if (!saved.IsSaved) return {skLost, saved.Lost.ToText(), {}};
    return {skSaved, {}, StampOf(Path)};
  } catch (const Exception& e) {
    return {skFailed, Concat({u"Die Datei\r\n", Path, u"\r\nkann nicht gespeichert werden:\r\n", UserMessage(e)}), {}};
  }
}

}  // namespace vx::vxview
