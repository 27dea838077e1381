// The table in the order of one column.
#include "tables/uFileCsv/TSortCsv.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "tables/uSort/RowOrder.h"

namespace vx {

namespace {

// So many rows are put in one by one, which costs less than a look at the whole table.
constexpr int kFewRows = 64;

bool HasCell(const TVxStringList& Row, int Column) noexcept { return static_cast<size_t>(Column) < Row.Items().size(); }

std::u16string_view KeyOf(const TVxStringList& Row, int Column) {
  if (!HasCell(Row, Column)) throw EStringListError(FormatListError(SListIndexError, Column));
  return Row.Items()[static_cast<size_t>(Column)];
}

}  // namespace

// How rows come into the table: nothing has changed until it is made.
struct TSortCsv::TMergePlan {
  std::vector<TVxStringList*> NewRows;                                  // of new keys, in the order of the keys
  std::vector<size_t> InTable;                                          // which of the rows are in the table then
  std::vector<std::pair<TVxStringList*, TVxStringList*>> Replacements;  // who takes over whose content, in turn
  std::vector<int> Order;                                               // of the table with the new rows behind it
};

TSortCsv::TSortCsv(bool OwnsObjects) : TFileCsv(OwnsObjects) {}

TSortCsv::~TSortCsv() { FreePending(); }

std::unique_ptr<TFileCsv> TSortCsv::GetNewInstance() const {
  auto result = std::make_unique<TSortCsv>();
  result->iSortColumn = iSortColumn;
  return result;
}

void TSortCsv::Init() {
  TFileCsv::Init();
  iSortColumn = 0;
}

void TSortCsv::Clear() {
  FreePending();
  TFileCsv::Clear();
}

std::u16string_view TSortCsv::KeyAt(int Row) const { return KeyOf(*GetLines(Row), iSortColumn); }

int TSortCsv::IndexSort(std::u16string_view Key) const {
  const int count = GetCount();
  if (count == 0 || Key < KeyAt(0)) return 0;
  if (Key > KeyAt(count - 1)) return count;
  int low = 0;
  int high = count - 1;
  while (low != high) {
    const int middle = low + (high - low) / 2;
    const std::u16string_view key = KeyAt(middle);
    if (Key > key) {
      low = middle + 1;
    } else {
      high = middle;
      if (key == Key) low = middle;
    }
  }
  return low;
}

int TSortCsv::Add(TObject* Row) {
  TVxStringList* row = AsRow(Row);
  const std::u16string_view key = KeyOf(*row, iSortColumn);
  if (AddsLater()) {
    if (FPending.empty() && (GetCount() == 0 || KeyAt(GetCount() - 1) < key)) return TFileCsv::Add(row);
    FPending.emplace_back().reset(row);
    return -1;
  }
  Merge(FPending);
  const int index = IndexSort(key);
  if (index == GetCount() || KeyAt(index) != key) {
    Insert(index, row);
    return index;
  }
  TVxStringList* there = GetLines(index);
  if (there == row) return index;
  there->Assign(*row);
  if (GetOwnsObjects()) delete row;
  return index;
}

// A derived class sees each row come at its place. A table that does not own can't keep rows back: who made
// them has to know at once whether they are in use.
bool TSortCsv::AddsLater() {
  if (FRowsDepth == 0 || !GetOwnsObjects() || typeid(*this) != typeid(TSortCsv)) return false;
  if (FRowsSeen < kFewRows) {
    ++FRowsSeen;
    return false;
  }
  if (FRowsSeen == kFewRows) {
    ++FRowsSeen;
    FIsInOrder = IsInOrder();
  }
  return FIsInOrder;
}

bool TSortCsv::IsInOrder() const {
  const TVxStringList* previous = nullptr;
  for (const TObject* entry : Items()) {
    const auto* row = dynamic_cast<const TVxStringList*>(entry);
    if (!row || !HasCell(*row, iSortColumn)) return false;
    if (previous && KeyOf(*previous, iSortColumn) >= KeyOf(*row, iSortColumn)) return false;
    previous = row;
  }
  return true;
}

int TSortCsv::AddInPlace(std::unique_ptr<TVxStringList> Row) {
  try {
    const int index = TFileCsv::Add(Row.get());
    (void)Row.release();  // the table has it
    return index;
  } catch (...) {
    if (IndexOf(Row.get()) >= 0) (void)Row.release();  // it came in before a derived class raised
    throw;
  }
}

void TSortCsv::BeginRows() {
  if (FRowsDepth++ == 0) FRowsSeen = 0;
}

void TSortCsv::EndRows() {
  if (--FRowsDepth == 0) Merge(FPending);
}

TSortCsv::TMergePlan TSortCsv::PlanMerge(const std::vector<TFreeRow>& Rows) const {
  constexpr size_t kAhead = 8;
  const int count = GetCount();
  std::vector<TVxStringList*> lines;
  lines.reserve(Rows.size());
  for (const TFreeRow& row : Rows) lines.push_back(row.get());
  const std::vector<int> sorted = OrderRowsByUnits(lines, iSortColumn);
  auto rowAt = [&](size_t i) { return lines[static_cast<size_t>(sorted[i])]; };
  TMergePlan plan;
  plan.Order.reserve(static_cast<size_t>(count) + Rows.size());
  int next = 0;  // of the table
  for (size_t i = 0; i < sorted.size();) {
    TVxStringList* keeper = rowAt(i);
    const std::u16string_view key = KeyOf(*keeper, iSortColumn);
    while (next < count && KeyAt(next) < key) plan.Order.push_back(next++);
    if (next < count && KeyAt(next) == key) {
      keeper = GetLines(next);
    } else {
      plan.Order.push_back(count + static_cast<int>(plan.NewRows.size()));
      plan.NewRows.push_back(keeper);
    }
    for (; i < sorted.size() && KeyOf(*rowAt(i), iSortColumn) == key; ++i) {
      // The rows lie anywhere in memory: each is asked for some time before it is read, and then its cell.
      if (i + 2 * kAhead < sorted.size()) {
        __builtin_prefetch(rowAt(i + 2 * kAhead));
        __builtin_prefetch(rowAt(i + kAhead)->Items().data() + iSortColumn);
      }
      if (rowAt(i) != keeper) {
        plan.Replacements.emplace_back(keeper, rowAt(i));
      } else {
        plan.InTable.push_back(static_cast<size_t>(sorted[i]));
      }
    }
  }
  while (next < count) plan.Order.push_back(next++);
  return plan;
}

// What adding Rows one by one gives, if the table is in order. Rows is empty then. If this raises, all of Rows
// are as before still to be added.
void TSortCsv::Merge(std::vector<TFreeRow>& Rows) {
  if (Rows.empty()) return;
  const TMergePlan plan = PlanMerge(Rows);
  const int count = GetCount();
  const int all = static_cast<int>(plan.Order.size());
  if (GetCapacity() < all) SetCapacity(all);
  // Doing this again after a failure does no harm: the key of a row stays.
  for (auto [keeper, row] : plan.Replacements) keeper->Assign(*row);
  for (TVxStringList* row : plan.NewRows) TFileCsv::Add(row);
  try {
    Arrange(plan.Order);
  } catch (...) {
    TReleaseScope scope(*this);
    SetCount(count);
    throw;
  }
  for (size_t row : plan.InTable) (void)Rows[row].release();  // the table has them
  std::exchange(Rows, {}).clear();
}

// Rows is made to hold all rows of the table, which go from the last to the first; those from Out on have gone.
void TSortCsv::TakeOut(std::vector<TFreeRow>& Rows, size_t& Out) {
  const bool isOwned = GetOwnsObjects();
  TReleaseScope scope(*this);
  while (Out > 0) {
    --Out;
    Rows[Out] = TFreeRow(GetLines(static_cast<int>(Out)), TFreeIfOwned{isOwned});
    Delete(static_cast<int>(Out));
  }
}

void TSortCsv::SetSortColumn(int Value) {
  Merge(FPending);
  for (TObject* entry : Items()) (void)KeyOf(*AsRow(entry), Value);  // raises before anything is changed
  std::vector<TFreeRow> rows(static_cast<size_t>(GetCount()));
  const int oldColumn = std::exchange(iSortColumn, Value);
  size_t out = rows.size();  // the first that has left
  size_t back = 0;           // the first that has not come back
  try {
    TakeOut(rows, out);
    if (typeid(*this) == typeid(TSortCsv)) {
      Merge(rows);
    } else {
      for (; back < rows.size(); ++back) {
        Add(rows[back].get());
        (void)rows[back].release();  // it is in the table, or freed if that owns
      }
    }
  } catch (...) {
    // No row gets lost: what is not in the table comes behind the others.
    if (back == 0) iSortColumn = oldColumn;
    size_t i = std::max(out, back);
    if (IndexOf(rows[i].get()) >= 0) (void)rows[i++].release();  // it never left, or came before a derived class raised
    for (; i < rows.size(); ++i) {
      TFileCsv::Add(rows[i].get());
      (void)rows[i].release();  // the table has it
    }
    throw;
  }
}

void TSortCsv::Assign(const TFileCsv& Source) {
  if (&Source == this) return;
  Clear();
  TFileCsv::Assign(Source);
}

TVxStringList* TSortCsv::ItemForKey(std::u16string_view Key) const {
  const int index = IndexSort(Key);
  return index < GetCount() && KeyAt(index) == Key ? GetLines(index) : nullptr;
}

String TSortCsv::ElementForKey(std::u16string_view Key, int Col, const String& Default) const {
  const TVxStringList* row = ItemForKey(Key);
  return row && HasCell(*row, Col) ? row->Get(Col) : Default;
}

bool TSortCsv::SetElement(std::u16string_view Key, int Col, const String& Text) {
  TVxStringList* row = ItemForKey(Key);
  if (!row || !HasCell(*row, Col)) return false;
  row->Put(Col, Text);
  return true;
}

void TSortCsv::ShowIndex() const {
  String text;
  for (int row = 0; row < GetCount(); ++row) {
    text += getElement(0, row, {}, {});
    text += u"\r\n";
  }
  ShowMessage(text);
}

}  // namespace vx
