#include "controls/TableEditing/TTableHistory.h"

#include <algorithm>
#include <utility>

#include "controls/TableEditing/detail/WholeTable.h"

namespace vx {

using detail::TWholeTable;
using TPlaces = std::unordered_map<const TObject*, int>;

struct TTableHistory::TCellChange {
  TVxStringList* Row;
  int Col;
  int CountBefore;  // the cells of the row
  String Before, After;

  static String TextAt(const TVxStringList& Row, int Col) { return Col < Row.GetCount() ? Row.Get(Col) : String(); }
  static void Put(TVxStringList& Row, int Col, const String& Text) {
    while (Row.GetCount() <= Col) Row.InsertItem(Row.GetCount(), String(), nullptr);
    Row.Put(Col, Text);
  }
  // False if the cell is not as the step left it.
  bool Run(bool IsUndo) const {
    if (TextAt(*Row, Col) != (IsUndo ? After : Before)) return false;
    Put(*Row, Col, IsUndo ? Before : After);
    if (IsUndo) ShrinkRow();
    return true;
  }

 private:
  void ShrinkRow() const {
    for (int last = Row->GetCount() - 1; last >= CountBefore; --last) {
      if (!Row->Get(last).empty() || Row->GetObject(last)) return;
      Row->Delete(last);
    }
  }
};

// Rows that came or went together.
struct TTableHistory::TRowsChange {
  std::vector<TVxStringList*> Rows;
  std::vector<int> Places;  // rising
  bool IsDelete;
  bool IsOut = false;   // the rows are out of the table
  bool IsOwner = true;  // and are freed with the step then

  TRowsChange(std::vector<TVxStringList*> aRows, std::vector<int> aPlaces, bool aIsDelete)
      : Rows(std::move(aRows)), Places(std::move(aPlaces)), IsDelete(aIsDelete) {}
  TRowsChange(const TRowsChange&) = delete;
  TRowsChange& operator=(const TRowsChange&) = delete;
  TRowsChange(TRowsChange&& Other) noexcept = default;
  ~TRowsChange() {
    if (!IsOut || !IsOwner) return;
    for (TVxStringList* row : Rows) delete row;
  }

  // Neither does anything where a failure has left the rows on the side to which they are to go.
  // Rows that are no longer in the table are forgotten.
  void TakeOut(TTypeCsv& Table, const TPlaces& Found) {
    if (IsOut) return;
    std::vector<std::pair<int, TVxStringList*>> there;
    for (TVxStringList* row : Rows) {
      if (const auto at = Found.find(row); at != Found.end()) there.emplace_back(at->second, row);
    }
    std::ranges::sort(there);
    std::vector<int> places;
    std::vector<TVxStringList*> rows;
    for (const auto& [place, row] : there) places.push_back(place), rows.push_back(row);
    {
      TWholeTable whole(Table);
      whole.TakeOut(places);
    }
    Rows = std::move(rows);
    Places = std::move(places);
    IsOut = true;
    IsOwner = Table.GetOwnsObjects();
  }
  void PutIn(TTypeCsv& Table) {
    if (!IsOut) return;
    TWholeTable whole(Table);
    whole.PutIn(Rows, Places);
    IsOut = false;
  }
};

struct TTableHistory::TStep {
  // In the order in which they were made: cells, then rows, then cells again.
  struct TPart {
    std::vector<TCellChange> Cells;
    std::vector<TRowsChange> Rows;  // at most one, behind the cells
  };
  std::vector<TPart> Parts;

  std::vector<TCellChange>& Cells() {
    if (Parts.empty() || !Parts.back().Rows.empty()) Parts.emplace_back();
    return Parts.back().Cells;
  }
  TRowsChange& AddRows(TRowsChange Change) {
    if (Parts.empty() || !Parts.back().Rows.empty()) Parts.emplace_back();
    return Parts.back().Rows.emplace_back(std::move(Change));
  }
};

TTableHistory::TTableHistory(TTypeCsv& Table) noexcept : FTable(Table) {}
TTableHistory::~TTableHistory() = default;

// The step that takes the next change: the last one between BeginStep and EndStep, else a new one.
TTableHistory::TStep& TTableHistory::OpenStep() {
  if (!FIsOpen) {
    auto step = std::make_unique<TStep>();
    FSteps.reserve(static_cast<size_t>(FDone) + 1);
    FSteps.resize(static_cast<size_t>(FDone));
    if (FSaved > FDone) FSaved = -1;
    FSteps.push_back(std::move(step));
    ++FDone;
    FIsOpen = FNesting > 0;
  }
  return *FSteps.back();
}

void TTableHistory::EndStep() noexcept {
  if (--FNesting == 0) FIsOpen = false;
}

// --- changes ---

bool TTableHistory::SetCells(std::span<const TCellEdit> Edits) {
  std::vector<TCellChange> changes;
  changes.reserve(Edits.size());
  for (const TCellEdit& edit : Edits) {
    TVxStringList* row = FTable.GetLines(edit.Row);
    if (edit.Col < 0) row->Get(edit.Col);  // raises
    changes.push_back({row, edit.Col, 0, String(), edit.Text});
  }
  std::vector<TCellChange>* cells = nullptr;
  for (TCellChange& change : changes) {
    change.Before = TCellChange::TextAt(*change.Row, change.Col);
    if (change.Before == change.After) continue;
    change.CountBefore = change.Row->GetCount();
    if (!cells) cells = &OpenStep().Cells();
    cells->push_back(change);
    TCellChange::Put(*change.Row, change.Col, change.After);
  }
  return cells != nullptr;
}

bool TTableHistory::SetCell(int Col, int Row, const String& Text) {
  const TCellEdit edit{Col, Row, Text};
  return SetCells({&edit, 1});
}

bool TTableHistory::InsertRows(int Row, std::vector<std::unique_ptr<TVxStringList>> Rows) {
  if (Rows.empty()) return false;
  const TObjectList& all = detail::AllRowsOf(FTable);
  const int first = Row == FTable.GetCount() ? all.GetCount() : all.IndexOf(FTable.Get(Row));
  std::vector<TVxStringList*> rows;
  std::vector<int> places;
  for (const auto& row : Rows) rows.push_back(row.get()), places.push_back(first + static_cast<int>(places.size()));
  TRowsChange& change = OpenStep().AddRows({std::move(rows), std::move(places), false});
  change.IsOut = true;
  for (auto& row : Rows) (void)row.release();
  change.PutIn(FTable);
  return true;
}

bool TTableHistory::DeleteRows(std::span<const int> Rows) {
  std::vector<TVxStringList*> rows;
  for (const int row : Rows) rows.push_back(FTable.GetLines(row));
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  if (rows.empty()) return false;
  const TPlaces places = detail::FindRows(FTable, {rows.begin(), rows.end()});
  OpenStep().AddRows({std::move(rows), {}, true}).TakeOut(FTable, places);
  return true;
}

// --- there and back ---

TTableStep TTableHistory::Undo() {
  if (!CanUndo()) return {};
  FIsOpen = false;
  return Run(*FSteps[static_cast<size_t>(--FDone)], true);
}

TTableStep TTableHistory::Redo() {
  if (!CanRedo()) return {};
  return Run(*FSteps[static_cast<size_t>(FDone++)], false);
}

void TTableHistory::Clear() {
  FSaved = IsChanged() ? -1 : 0;
  FSteps.clear();
  FDone = 0;
  FIsOpen = false;
}

TTableStep TTableHistory::Run(TStep& Step, bool IsUndo) {
  TTableStep result;
  const auto tell = [&](const TVxStringList* Row, int Col, bool IsDone) {
    ++(IsDone ? result.Changes : result.Left);
    if (IsDone && result.Changes == 1) result.Place = {Col, FTable.IndexOf(Row)};
  };
  const auto runRows = [&](TRowsChange& change) {
    const bool comesBack = change.IsDelete == IsUndo;
    if (comesBack) {
      change.PutIn(FTable);
      for (const TVxStringList* row : change.Rows) tell(row, -1, true);
    } else {
      const TPlaces places = detail::FindRows(FTable, {change.Rows.begin(), change.Rows.end()});
      result.Left += static_cast<int>(change.Rows.size() - places.size());
      result.Changes += static_cast<int>(places.size());
      change.TakeOut(FTable, places);
    }
  };
  const auto runCells = [&](std::vector<TCellChange>& cells) {
    std::unordered_set<const TObject*> rows;
    for (const TCellChange& cell : cells) rows.insert(cell.Row);
    const TPlaces there = detail::FindRows(FTable, std::move(rows));
    const auto run = [&](const TCellChange& cell) {
      tell(cell.Row, cell.Col, there.contains(cell.Row) && cell.Run(IsUndo));
    };
    IsUndo ? std::for_each(cells.rbegin(), cells.rend(), run) : std::for_each(cells.begin(), cells.end(), run);
  };
  const auto runPart = [&](TStep::TPart& part) {
    if (!IsUndo) runCells(part.Cells);
    for (TRowsChange& change : part.Rows) runRows(change);
    if (IsUndo) runCells(part.Cells);
  };
  IsUndo ? std::for_each(Step.Parts.rbegin(), Step.Parts.rend(), runPart)
         : std::for_each(Step.Parts.begin(), Step.Parts.end(), runPart);
  return result;
}

}  // namespace vx
