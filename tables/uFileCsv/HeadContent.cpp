// Operations on the whole of a table with a head: sorting, merging, configuration files.
#include <algorithm>
#include <functional>
#include <optional>
#include <queue>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/uVxFunctionsSerialize/Explode.h"
#include "platform/Collation.h"
#include "platform/MemIniFile.h"
#include "platform/Text.h"
#include "services/uHandleFile.h"
#include "tables/uFileCsv/THeadCsv.h"
#include "tables/uSort.h"

namespace vx {

namespace {

constexpr char16_t kSectionsName[] = u"[Sections]";

// Columns by their names, for looking up many of them. Of a name that stands twice the first.
class TColumnsByName {
 public:
  explicit TColumnsByName(std::span<const String> Names) {
    for (int col = 0; col < static_cast<int>(Names.size()); ++col) Take(Names[static_cast<size_t>(col)], col);
  }
  // False, with nothing changed, for a name that is there.
  bool Take(const String& Name, int Col) { return FColumns.emplace(LowerCase(Name), Col).second; }
  int Find(const String& Name) const {
    auto found = FColumns.find(LowerCase(Name));
    return found == FColumns.end() ? -1 : found->second;
  }

 private:
  std::unordered_map<String, int> FColumns;
};

// Rows by their keys, each the cell of one column as GetCell gives it.
class TRowsByKey {
 public:
  TRowsByKey(const TFileCsv& Table, int Col) : FTable(Table), FCol(Col) {
    FRows.reserve(static_cast<size_t>(Table.GetCount()));
    for (int row = 1; row < Table.GetCount(); ++row) Note(row);
  }
  // The row has its present key from now on.
  void Note(int Row) { FRows[FTable.GetCell(FCol, Row)].push(Row); }
  // The first row with that key now, -1 if there is none.
  int Find(const String& Key) {
    auto found = FRows.find(Key);
    if (found == FRows.end()) return -1;
    TFirstRow& rows = found->second;
    while (!rows.empty() && !(FTable.GetCell(FCol, rows.top()) == Key)) rows.pop();  // has another key meanwhile
    return rows.empty() ? -1 : rows.top();
  }

 private:
  using TFirstRow = std::priority_queue<int, std::vector<int>, std::greater<>>;

  const TFileCsv& FTable;
  int FCol;
  std::unordered_map<String, TFirstRow> FRows;
};

void PadTo(TVxStringList& Row, int Width) {
  if (Row.GetCount() >= Width) return;
  Row.SetCapacity(std::max(Row.GetCapacity(), Width));
  while (Row.GetCount() < Width) Row.InsertItem(Row.GetCount(), String(), nullptr);
}

// The keys of all sections in capital letters, each once, in the order of AnsiCompareText.
TCells SortedKeys(const TMemIniFile& File, const TVxStringList& Sections) {
  TCells result;
  std::unordered_set<String> seenSections, seenKeys;
  TVxStringList keys;
  for (const String& section : Sections.Items()) {
    if (!seenSections.insert(UpperCase(section)).second) continue;  // its keys would be those of the first one
    File.ReadSection(section, keys);
    for (const String& key : keys.Items()) {
      String name = UpperCase(key);
      if (seenKeys.insert(LowerCase(name)).second) result.push_back(std::move(name));
    }
  }
  std::ranges::sort(result, [](const String& a, const String& b) { return AnsiCompareText(a, b) < 0; });
  return result;
}

}  // namespace

String THeadCsv::IndicesForNames(std::u16string_view Names) const {
  std::unique_ptr<TVxStringList> pieces = explode(Names, u',');
  const TColumnsByName columns(GetCount() > 0 ? GetLines(0)->Items() : std::span<const String>());
  TCells cells;
  for (const String& piece : pieces->Items()) {
    const int col = columns.Find(piece);
    cells.push_back(col < 0 ? piece : IntToStr(col));
  }
  return WriteCommatext(cells);
}

void THeadCsv::SortByField(std::u16string_view Name, bool Ascending) {
  const int col = FieldIndex(Name);
  if (GetCount() <= 2 || col < 0) return;
  std::vector<int> shortRows, keyed, kept, dropped;
  std::vector<const TVxStringList*> lines;
  for (int row = 1; row < GetCount(); ++row) {
    const TVxStringList* line = GetLines(row);
    if (line->GetCount() <= col) {
      shortRows.push_back(row);
    } else {
      keyed.push_back(row);
      lines.push_back(line);
    }
  }
  const TSortColumn by{.Index = col, .SortType = vftString, .SortDirection = 1, .DateTimeFormat = {}};
  const std::vector<int> order = OrderRows(lines, {&by, 1});
  const auto key = [&](size_t i) -> const String& {
    return lines[static_cast<size_t>(order[i])]->Items()[static_cast<size_t>(col)];
  };
  for (size_t i = 0; i < order.size(); ++i) {
    const bool isLast = i + 1 == order.size() || !AnsiSameText(key(i), key(i + 1));
    (isLast ? kept : dropped).push_back(keyed[static_cast<size_t>(order[i])]);
  }
  if (!Ascending) std::ranges::reverse(kept);
  PutInOrder(shortRows, kept, dropped);
}

void THeadCsv::PutInOrder(std::span<const int> Short, std::span<const int> Kept, std::span<const int> Dropped) {
  if (typeid(*this) == typeid(THeadCsv)) {
    std::vector<int> order{0};
    order.reserve(static_cast<size_t>(GetCount()));
    for (std::span<const int> part : {Short, Kept, Dropped}) order.insert(order.end(), part.begin(), part.end());
    Arrange(order);
    const TReleaseScope scope(*this);
    SetCount(GetCount() - static_cast<int>(Dropped.size()));
    return;
  }
  // A derived class sees each row go and come.
  std::vector<TObject*> rows;
  for (int row : Kept) rows.push_back(Get(row));
  std::vector<int> gone(Kept.begin(), Kept.end());
  gone.insert(gone.end(), Dropped.begin(), Dropped.end());
  std::ranges::sort(gone, std::greater<>());
  const TReleaseScope scope(*this);
  try {
    for (int row : gone) Delete(row);
    for (TObject* row : rows) Add(row);
  } catch (...) {  // of a derived class: no row that was to stay is lost
    const std::unordered_set<TObject*> present(Items().begin(), Items().end());
    for (TObject* row : rows) {
      if (!present.contains(row)) TObjectList::Add(row);
    }
    throw;
  }
}

void THeadCsv::AddMissingFields(std::span<const String> Names) {
  TVxStringList* head = GetLines(0);
  TColumnsByName columns(head->Items());
  for (const String& name : Names) {
    if (columns.Take(name, head->GetCount())) head->InsertItem(head->GetCount(), name, nullptr);
  }
  for (int row = 1; row < GetCount(); ++row) PadTo(*GetLines(row), head->GetCount());
}

void THeadCsv::AddContent(const THeadCsv& Source, std::u16string_view KeyName, bool AddFields) {
  const int count = Source.GetCount();  // read once: Source may be this table
  if (count == 0) return;
  if (GetCount() == 0) AddEmpty(-1);
  if (AddFields) AddMissingFields(Source.GetLines(0)->Items());
  const int sourceKey = Source.FieldIndex(KeyName);
  const int key = FieldIndex(KeyName);
  const bool isKeyed = sourceKey >= 0 && key >= 0;
  std::vector<int> targets;  // the column here of each one of Source
  const TColumnsByName columns(GetLines(0)->Items());
  for (const String& name : Source.GetLines(0)->Items()) targets.push_back(columns.Find(name));

  std::optional<TRowsByKey> rows;
  if (isKeyed) rows.emplace(*this, key);
  for (int from = 1; from < count; ++from) {
    const String oldKey = isKeyed ? Source.GetCell(sourceKey, from) : String();
    const int found = isKeyed ? rows->Find(oldKey) : -1;
    const int row = found >= 0 ? found : AddEmpty(-1);
    const int width = std::min(Source.GetLines(from)->GetCount(), static_cast<int>(targets.size()));
    for (int col = 0; col < width; ++col) {
      const int target = targets[static_cast<size_t>(col)];
      const String cell = Source.GetCell(col, from);
      if (!cell.empty() && target >= 0 && !(GetCell(target, row) == cell)) SetCell(target, row, cell);
    }
    if (isKeyed && (found < 0 || !(GetCell(key, row) == oldKey))) rows->Note(row);
  }
}

bool THeadCsv::LoadFromIni(std::u16string_view Path, bool Replace) {
  const String path = Path;  // it may be a cell of this table
  if (!VxFileExists(path)) {
    if (Replace) Init();
    return false;
  }
  const TMemIniFile file(path);
  TVxStringList sections;
  file.ReadSections(sections);
  TCells names = SortedKeys(file, sections);
  names.insert(names.begin(), kSectionsName);
  if (Replace) Init();
  if (GetCount() == 0) {
    AddRow(names);
  } else {
    AddMissingFields(names);
  }
  const int sectionCol = FieldIndex(kSectionsName);
  const std::unique_ptr<TVxStringList> head = GetLines(0)->Duplicate();
  for (const String& section : sections.Items()) {
    const int row = AddEmpty(-1);
    for (int col = 0; col < head->GetCount(); ++col) {
      SetCell(col, row,
              col == sectionCol ? Concat({u"[", section, u"]"}) : file.ReadString(section, head->Get(col), String()));
    }
  }
  return true;
}

}  // namespace vx
