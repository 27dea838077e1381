#include "tables/uSort/RowOrder.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctions/Numbers.h"
#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "platform/Numbers.h"
#include "tables/uSort/detail/CellValues.h"
#include "tables/uSort/detail/SortKeys.h"
#include "tables/uSort/detail/SortRecords.h"

namespace vx {

using detail::CommatextLines;
using detail::FindMomentForm;
using detail::HasFewDigits;
using detail::KeyOf;
using detail::SignOfDifference;
using detail::SortRecords;
using detail::TByteKeys;
using detail::TMomentForm;
using detail::TMomentKeys;
using detail::TSortRecord;
namespace {

// Two and more records that are equal so far.
struct TRun {
  size_t Begin, End;
};

// What StrToHourDef gives are whole minutes, which differ in fewer bits.
int64_t WholeMinutes(TDateTime Hours) noexcept { return static_cast<int64_t>(Hours * 1440 + (Hours < 0 ? -0.5 : 0.5)); }

struct TSizes {
  size_t Least = SIZE_MAX, Most = 0;
};

// Refines an order column by column. Only rows that are equal so far are looked at again, and none is read
// but for its key.
class TRowOrder {
 public:
  explicit TRowOrder(std::span<const TVxStringList* const> Rows);
  void By(const TSortColumn& Column);
  void ByUnits(int Column);
  std::vector<int> Take() const;

 private:
  using TView = std::u16string_view;

  TView Cell(uint32_t Row) const noexcept {
    auto cells = FRows[Row]->Items();
    return static_cast<size_t>(FColumn) < cells.size() ? cells[static_cast<size_t>(FColumn)].view() : TView();
  }
  std::span<TSortRecord> Records(TRun Run) { return FRecords.subspan(Run.Begin, Run.End - Run.Begin); }
  size_t CountInRuns() const noexcept;
  void PrefetchBehind(size_t Index) const noexcept;
  void SetWord(TSortRecord& Record, uint64_t Word) const noexcept { Record.Word = FDescending ? ~Word : Word; }
  // Numbers the records of all runs and gives each WordOf(its row).
  template <typename F>
  void FillWords(F WordOf);
  // Sorts a run by its words and hands each run of equal ones to Then.
  template <typename F>
  void SortByWords(TRun Run, F Then);
  // Sorts a run by Compare of what KeyOfRow makes of two rows, and keeps each run of equal ones.
  template <typename FKeyOf, typename FCompare>
  void SortByKeys(TRun Run, FKeyOf KeyOfRow, FCompare Compare);

  template <typename F>
  void ByNumber(F KeyOf);
  void ByFloat();
  void ByMoment(TVxFieldType FieldType);
  // By AnsiCompareText of what TextOf makes of a cell.
  template <typename F>
  void ByText(F TextOf);
  // By the bytes of Keys behind the first word, too, which the records have; then by Rest(run).
  template <typename F>
  void ByBytes(const TByteKeys& Keys, F Rest);
  // Gives the records of a run the words of their keys at Index, and says how long those keys are.
  TSizes LoadWords(TRun Run, const TByteKeys& Keys, size_t Index);

  // For the next column.
  void Keep(TRun Run) { FNext.push_back(Run); }
  void NextRuns() {
    FRuns.swap(FNext);
    FNext.clear();
  }

  std::span<const TVxStringList* const> FRows;
  std::unique_ptr<TSortRecord[]> FMemory;
  std::span<TSortRecord> FRecords, FScratch;
  std::vector<TRun> FRuns, FNext;
  int FColumn = 0;
  bool FDescending = false;
};

TRowOrder::TRowOrder(std::span<const TVxStringList* const> Rows) : FRows(Rows) {
  if (Rows.size() > INT32_MAX) throw EListError(FormatListError(SListCountError, INT32_MAX));
  FMemory = std::make_unique_for_overwrite<TSortRecord[]>(2 * Rows.size());
  FRecords = {FMemory.get(), Rows.size()};
  FScratch = {FMemory.get() + Rows.size(), Rows.size()};
  for (uint32_t row = 0; row < FRecords.size(); ++row) FRecords[row] = {0, row, 0};
  if (Rows.size() > 1) FRuns.push_back({0, Rows.size()});
}

std::vector<int> TRowOrder::Take() const {
  std::vector<int> result(FRecords.size());
  std::transform(FRecords.begin(), FRecords.end(), result.begin(),
                 [](const TSortRecord& Record) { return static_cast<int>(Record.Row); });
  return result;
}

size_t TRowOrder::CountInRuns() const noexcept {
  size_t count = 0;
  for (TRun run : FRuns) count += run.End - run.Begin;
  return count;
}

// A cell lies three steps from its row, each of which waits for memory; so they are begun one after the other
// for rows that come later.
inline void TRowOrder::PrefetchBehind(size_t Index) const noexcept {
  constexpr size_t kStep = 12;
  const auto* next = FRecords.data() + Index;
  const size_t rest = FRecords.size() - Index;
  if (rest > 4 * kStep) __builtin_prefetch(&FRows[next[4 * kStep].Row]);
  if (rest > 3 * kStep) __builtin_prefetch(FRows[next[3 * kStep].Row]);
  if (rest > 2 * kStep) {
    auto cells = FRows[next[2 * kStep].Row]->Items();
    if (static_cast<size_t>(FColumn) < cells.size()) __builtin_prefetch(&cells[static_cast<size_t>(FColumn)]);
  }
  if (rest > kStep) __builtin_prefetch(Cell(next[kStep].Row).data());
}

template <typename F>
void TRowOrder::FillWords(F WordOf) {
  uint32_t slot = 0;
  for (TRun run : FRuns) {
    for (size_t i = run.Begin; i < run.End; ++i) {
      PrefetchBehind(i);
      SetWord(FRecords[i], WordOf(FRecords[i].Row));
      FRecords[i].Slot = slot++;
    }
  }
}

template <typename F>
void TRowOrder::SortByWords(TRun Run, F Then) {
  SortRecords(Records(Run), FScratch);
  for (size_t begin = Run.Begin, end; begin < Run.End; begin = end) {
    end = begin + 1;
    while (end < Run.End && FRecords[end].Word == FRecords[begin].Word) ++end;
    if (end - begin > 1) Then(TRun{begin, end});
  }
}

template <typename FKeyOf, typename FCompare>
void TRowOrder::SortByKeys(TRun Run, FKeyOf KeyOfRow, FCompare Compare) {
  using TKey = decltype(KeyOfRow(uint32_t{}));
  std::vector<std::pair<TKey, TSortRecord>> keyed;
  keyed.reserve(Run.End - Run.Begin);
  for (const TSortRecord& record : Records(Run)) keyed.emplace_back(KeyOfRow(record.Row), record);
  // Compare may contradict itself. A merge sort stays within its bounds and its time all the same.
  std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& a, const auto& b) {
    const int result = Compare(a.first, b.first);
    return FDescending ? result > 0 : result < 0;
  });
  for (size_t i = 0; i < keyed.size(); ++i) FRecords[Run.Begin + i] = keyed[i].second;
  for (size_t begin = 0, end; begin < keyed.size(); begin = end) {
    end = begin + 1;
    while (end < keyed.size() && Compare(keyed[end - 1].first, keyed[end].first) == 0) ++end;
    if (end - begin > 1) Keep({Run.Begin + begin, Run.Begin + end});
  }
}

template <typename F>
void TRowOrder::ByNumber(F KeyOfCell) {
  FillWords([&](uint32_t row) { return KeyOfCell(Cell(row)); });
  for (TRun run : FRuns) SortByWords(run, [this](TRun equal) { Keep(equal); });
}

void TRowOrder::ByFloat() {
  bool areExact = true;
  FillWords([&](uint32_t row) {
    const TView cell = Cell(row);
    areExact = areExact && HasFewDigits(cell);
    return KeyOf(StrToExtDef(cell, 0));
  });
  for (TRun run : FRuns) {
    SortByWords(run, [&](TRun equal) {
      if (areExact) return Keep(equal);
      SortByKeys(
          equal, [this](uint32_t row) { return StrToExtDef(Cell(row), 0); }, SignOfDifference<Extended>);
    });
  }
}

void TRowOrder::ByMoment(TVxFieldType FieldType) {
  TMomentKeys keys(FieldType);
  FillWords([&](uint32_t row) { return keys.Add(Cell(row)); });
  if (keys.AreExact()) {
    for (TRun run : FRuns) {
      for (TSortRecord& record : Records(run)) {
        SetWord(record, keys.Packed(FDescending ? ~record.Word : record.Word));
      }
      SortByWords(run, [this](TRun equal) { Keep(equal); });
    }
    return;
  }
  const TMomentForm& form = *FindMomentForm(FieldType);
  auto keyOfRow = [&](uint32_t row) { return std::pair(Cell(row), form.Digits(Cell(row))); };
  for (TRun run : FRuns) {
    SortByKeys(run, keyOfRow, [&form](const auto& a, const auto& b) {
      int result;
      return form.CompareUnits(a.first, b.first, result) ? result : SignOfDifference(a.second, b.second);
    });
  }
}

template <typename F>
void TRowOrder::ByText(F TextOf) {
  TByteKeys keys(CountInRuns());
  FillWords([&](uint32_t row) { return keys.AddText(TextOf(Cell(row))); });
  ByBytes(keys, [&](TRun equal) {
    auto records = Records(equal);
    bool areWhole =
        std::all_of(records.begin(), records.end(), [&](auto& record) { return keys.IsWhole(record.Slot); });
    if (areWhole) return Keep(equal);
    SortByKeys(
        equal, [&](uint32_t row) { return TextOf(Cell(row)); }, [](TView a, TView b) { return AnsiCompareText(a, b); });
  });
}

TSizes TRowOrder::LoadWords(TRun Run, const TByteKeys& Keys, size_t Index) {
  constexpr size_t kStep = 12;
  TSizes sizes;
  auto records = Records(Run);
  for (size_t i = 0; i < records.size(); ++i) {
    if (i + 2 * kStep < records.size()) Keys.PrefetchStart(records[i + 2 * kStep].Slot);
    if (i + kStep < records.size()) Keys.PrefetchBytes(records[i + kStep].Slot);
    SetWord(records[i], Keys.Word(records[i].Slot, Index));
    const size_t size = Keys.Size(records[i].Slot);
    sizes = {std::min(sizes.Least, size), std::max(sizes.Most, size)};
  }
  return sizes;
}

template <typename F>
void TRowOrder::ByBytes(const TByteKeys& Keys, F Rest) {
  struct TTask {
    TRun Run;
    size_t Words;  // so many words are equal
  };
  std::vector<TTask> tasks;
  auto sortRun = [&](TRun run, size_t words) {
    SortByWords(run, [&, words](TRun equal) { tasks.push_back({equal, words}); });
  };
  for (TRun first : FRuns) {
    sortRun(first, 1);
    while (!tasks.empty()) {
      const TTask task = tasks.back();
      tasks.pop_back();
      const TRun run = task.Run;
      const size_t read = 8 * task.Words;
      const auto [least, most] = LoadWords(run, Keys, task.Words);
      if (least > read) {
        sortRun(run, task.Words + 1);
      } else if (least == most) {
        Rest(run);
      } else {
        // What has ended stands, by its size, before what goes on, and is not looked at again.
        for (TSortRecord& record : Records(run)) SetWord(record, std::min(Keys.Size(record.Slot), read + 1));
        SortByWords(run, [&](TRun equal) {
          Keys.Size(FRecords[equal.Begin].Slot) > read ? tasks.push_back({equal, task.Words}) : Rest(equal);
        });
      }
    }
  }
}

void TRowOrder::By(const TSortColumn& Column) {
  if (Column.SortDirection == 0) return;
  FColumn = Column.Index;
  FDescending = Column.SortDirection < 0;
  const TMomentForm* form = FindMomentForm(Column.SortType);
  if (form != nullptr) {
    const String& format = Column.DateTimeFormat;
    if (format.empty() || format == form->Format) {
      ByMoment(Column.SortType);
    } else {
      ByText([&](TView cell) { return form->Text(cell, format); });
    }
    return NextRuns();
  }
  switch (Column.SortType) {
    case vftBoolean:
      ByNumber([](TView cell) { return KeyOf(int64_t{StrToBool(cell)}); });
      break;
    case vftInteger:
    case vftStatus:
      ByNumber([](TView cell) { return KeyOf(int64_t{StrToIntDef(cell, 0)}); });
      break;
    case vftFloat:
    case vftFraction:
      ByFloat();
      break;
    case vftCommatext:
      ByText(CommatextLines);
      break;
    case vftHour:
      ByNumber([](TView cell) { return KeyOf(WholeMinutes(StrToHourDef(cell, 0))); });
      break;
    case vftCurrency:
      ByNumber([](TView cell) { return KeyOf(StrToCurrDef(cell, 0).Units); });
      break;
    default:
      ByText([](TView cell) { return cell; });
  }
  NextRuns();
}

void TRowOrder::ByUnits(int Column) {
  FColumn = Column;
  TByteKeys keys(FRows.size());
  for (const TVxStringList* row : FRows) {
    if (Column < 0 || Column >= row->GetCount()) row->Get(Column);  // raises
  }
  FillWords([&](uint32_t row) { return keys.AddUnits(Cell(row)); });
  ByBytes(keys, [this](TRun equal) { Keep(equal); });
}

}  // namespace

std::vector<int> OrderRows(std::span<const TVxStringList* const> Rows, std::span<const TSortColumn> Columns) {
  TRowOrder order(Rows);
  for (const TSortColumn& column : Columns) order.By(column);
  return order.Take();
}

std::vector<int> OrderRowsByUnits(std::span<const TVxStringList* const> Rows, int Column) {
  TRowOrder order(Rows);
  order.ByUnits(Column);
  return order.Take();
}

}  // namespace vx
