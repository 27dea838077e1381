// Changes of a table that can be undone and done again. The unit's header tells the whole.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/Graphics.h"
#include "platform/String.h"

namespace vx {

class TTypeCsv;
class TVxStringList;

// A text for a cell of the table.
struct TCellEdit {
  int Col = 0;
  int Row = 0;  // of those on show
  String Text;
};

// What became of a step.
struct TTableStep {
  int Changes = 0;       // cells and rows that were changed
  int Left = 0;          // those that were not, since the table was changed otherwise meanwhile
  TPoint Place{-1, -1};  // the first that was changed: column and row, -1 for a row as a whole or one not on show
};

// Makes changes and remembers them, as many as there is memory for: with each the texts that were there, and the rows
// that were taken out, which it owns as the table did.
//
// Cells are remembered with their rows and so are found behind a sort or a filter. Rows come back to where they stood
// among all rows, hidden ones included; behind a sort they stand at the same number.
//
// Pitfall: what the program itself does to the table is not remembered. A cell that it changed stays as it is, and a
// row that it took out is left alone when a step about them is undone or done again; TTableStep tells so. A row that
// it freed and another that came to the same place in memory can't be told apart: call Clear after such changes.
class TTableHistory {
 public:
  // The table, or view, has to outlive the history.
  explicit TTableHistory(TTypeCsv& Table) noexcept;
  ~TTableHistory();
  TTableHistory(const TTableHistory&) = delete;
  TTableHistory& operator=(const TTableHistory&) = delete;

  // One step. A row that ends before its cell grows by empty ones up to it. False if nothing changes by it; EListError
  // for a row outside the table, EStringListError for a column below 0, and nothing has changed.
  bool SetCells(std::span<const TCellEdit> Edits);
  bool SetCell(int Col, int Row, const String& Text);
  // One step: new rows before Row, which may be the count; the table owns them if it owns any. False for none.
  bool InsertRows(int Row, std::vector<std::unique_ptr<TVxStringList>> Rows);
  // One step; rows that are told twice count once. False for none. EListError as above.
  bool DeleteRows(std::span<const int> Rows);
  // Between these all steps are one; pairs may nest.
  void BeginStep() noexcept { ++FNesting; }
  void EndStep() noexcept;

  bool CanUndo() const noexcept { return FDone > 0; }
  bool CanRedo() const noexcept { return FDone < static_cast<int>(FSteps.size()); }
  // Nothing if there is no step.
  TTableStep Undo();
  TTableStep Redo();
  // Forgets all steps; whether the table is changed stays.
  void Clear();

  // Whether the table is another one than when MarkSaved was called, or at first: a step undone makes it that again.
  bool IsChanged() const noexcept { return FSaved != FDone; }
  void MarkSaved() noexcept { FSaved = FDone, FIsOpen = false; }

 private:
  struct TCellChange;
  struct TRowsChange;
  struct TStep;
  TStep& OpenStep();
  TTableStep Run(TStep& Step, bool IsUndo);

  TTypeCsv& FTable;
  std::vector<std::unique_ptr<TStep>> FSteps;
  int FDone = 0;   // steps that are done; those behind were undone
  int FSaved = 0;  // FDone when the table was saved; -1 if no step leads back to that
  int FNesting = 0;
  bool FIsOpen = false;  // the last step takes further changes
};

}  // namespace vx
