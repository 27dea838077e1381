#include "tables/Relations/GroupSums.h"

#include <algorithm>
#include <numeric>

#include "core/ExactSum.h"
#include "core/StrictDates.h"
#include "core/StrictNumbers.h"
#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "platform/Sorting.h"
#include "tables/Relations/detail/Cells.h"

namespace vx {

namespace {

// The exact sum of whole numbers.
class TIntegerSum {
 public:
  void Add(int64_t Value) noexcept { FSum.Add({Value}); }
  int64_t Get() const { return FSum.Get().Value; }

 private:
  struct TWhole {
    int64_t Value = 0;
  };
  TExactSum<TWhole, &TWhole::Value> FSum;
};
// Of values that have no sum.
template <typename T>
struct TNoSum {
  void Add(T) noexcept {}
  T Get() const noexcept { return {}; }
};

template <typename T>
void Take(TGroupSum<T>& Sum, T Value) noexcept {
  Sum.Least = Sum.Read == 0 ? Value : std::min(Sum.Least, Value);
  Sum.Most = Sum.Read == 0 ? Value : std::max(Sum.Most, Value);
  ++Sum.Read;
}

// Read(text, value, fault) reads a cell as T; TSum is the exact sum of T.
template <typename T, typename TSum, typename TRead>
TGroupSums<T> SumOf(const TGroups& Groups, const TRelationColumn& Column, TRead Read) {
  const TRelationRows& rows = Groups.GetRows();
  const detail::TColumnCells cells(rows, Column);
  TGroupSums<T> result;
  result.Groups.resize(static_cast<size_t>(Groups.GetCount()));
  std::vector<TSum> sums(result.Groups.size());
  TSum total;
  for (int number = rows.GetFirst(); number < rows.GetEnd(); ++number) {
    const auto group = static_cast<size_t>(Groups.GroupOf(number));
    TGroupSum<T>& sum = result.Groups[group];
    if (!cells.Find(number)) {
      ++sum.Missing;
      ++result.Total.Missing;
      continue;
    }
    T value{};
    TTextFault fault;
    if (Read(cells.GetTable().GetCell(cells.GetCol(), cells.RowOf(number)), value, fault)) {
      sums[group].Add(value);
      total.Add(value);
      Take(sum, value);
      Take(result.Total, value);
    } else if (fault.Kind == tfEmpty) {
      ++sum.Empty;
      ++result.Total.Empty;
    } else {
      ++sum.Unreadable;
      ++result.Total.Unreadable;
      result.Unreadable.push_back({cells.GetCol(), cells.RowOf(number), fault});
    }
  }
  for (size_t group = 0; group < sums.size(); ++group) result.Groups[group].Sum = sums[group].Get();
  result.Total.Sum = total.Get();
  return result;
}

template <typename T>
constexpr TCellKind kKindOf = ckInt;
template <>
constexpr TCellKind kKindOf<THourAmount> = ckHours;
template <>
constexpr TCellKind kKindOf<Currency> = ckMoney;

template <TCellKind K, typename T>
void Put(TFileCsv& Table, int Col, int Row, T Value) {
  if (const TCellResult written = WriteCell<K>(Table, Col, Row, Value); !written) written.GetFault().Raise();
}

// Writes the sum of a group into a cell that there is, unless it has none.
template <typename T>
void PutSum(TFileCsv& Table, int Col, int Row, const TGroupSum<T>& Sum) {
  if (Sum.Read > 0) Put<kKindOf<T>>(Table, Col, Row, Sum.Sum);
}

template <typename T>
void AppendSums(THeadCsv& Table, std::u16string_view Name, const TGroupSums<T>& Sums) {
  if (static_cast<size_t>(Table.GetCount()) != Sums.Groups.size() + 1) {
    throw EArgumentException(u"Sums of another number of groups than the table has rows");
  }
  const int col = Table.GetLines(0)->Add(Name);
  for (int row = 1; row < Table.GetCount(); ++row) {
    TVxStringList& line = *Table.GetLines(row);
    while (line.GetCount() <= col) line.Add({});
    PutSum(Table, col, row, Sums.Groups[static_cast<size_t>(row - 1)]);
  }
}

// Groups as cells of a table: each has a row by its first keys and a column by its last one.
class TPivot {
 public:
  explicit TPivot(const TGroups& Groups) : FGroups(Groups), FLast(Groups.GetKeyCount() - 1) {
    if (FLast < 1) throw EArgumentException(u"A pivot of groups by less than two keys");
    FColOf.resize(static_cast<size_t>(Groups.GetCount()));
    FTable = std::make_unique<THeadCsv>();
    std::vector<String> head;
    for (int key = 0; key < FLast; ++key) head.push_back(Groups.KeyName(key));
    FindColumns(head);
    FTable->AddRow(head);
    AddRows(static_cast<int>(head.size()));
  }

  // Put(table, column, row, group) writes the cell of a group.
  template <typename F>
  std::unique_ptr<THeadCsv> Fill(F Put) {
    for (size_t i = 0; i < FRowOf.size(); ++i) {
      const int group = FOrder[i];
      Put(*FTable, FColOf[static_cast<size_t>(group)], FRowOf[i], group);
    }
    return std::move(FTable);
  }

 private:
  // By the texts of the keys First to Last.
  int Compare(int A, int B, int First, int Last) const {
    int result = 0;
    for (int key = First; key <= Last && result == 0; ++key) {
      const String &a = FGroups.Key(A, key), &b = FGroups.Key(B, key);
      result = FGroups.GetOptions().Has(koNoCase) ? AnsiCompareText(a, b) : AnsiCompareStr(a, b);
    }
    return result;
  }
  void OrderBy(int First, int Last) {
    std::vector<int> groups(FColOf.size());
    std::iota(groups.begin(), groups.end(), 0);
    FOrder = StableSort(std::move(groups), [&](int a, int b) { return Compare(a, b, First, Last) < 0; });
  }
  void FindColumns(std::vector<String>& Head) {
    OrderBy(FLast, FLast);
    for (size_t i = 0; i < FOrder.size(); ++i) {
      if (i == 0 || Compare(FOrder[i - 1], FOrder[i], FLast, FLast) != 0) Head.push_back(FGroups.Key(FOrder[i], FLast));
      FColOf[static_cast<size_t>(FOrder[i])] = static_cast<int>(Head.size()) - 1;
    }
  }
  void AddRows(int Width) {
    OrderBy(0, FLast - 1);
    for (size_t i = 0; i < FOrder.size(); ++i) {
      if (i == 0 || Compare(FOrder[i - 1], FOrder[i], 0, FLast - 1) != 0) {
        TVxStringList& row = *FTable->GetLines(FTable->AddEmpty(Width));
        for (int key = 0; key < FLast; ++key) row.Put(key, FGroups.Key(FOrder[i], key));
      }
      FRowOf.push_back(FTable->GetCount() - 1);
    }
  }

  const TGroups& FGroups;
  const int FLast;  // the key of the columns
  std::unique_ptr<THeadCsv> FTable;
  std::vector<int> FOrder, FRowOf;  // the groups by their rows, and those rows
  std::vector<int> FColOf;          // of each group
};

template <typename T>
std::unique_ptr<THeadCsv> Pivot(const TGroups& Groups, const TGroupSums<T>& Sums) {
  if (Sums.Groups.size() != static_cast<size_t>(Groups.GetCount())) throw EArgumentException(u"Sums of other groups");
  return TPivot(Groups).Fill([&](THeadCsv& table, int col, int row, int group) {
    PutSum(table, col, row, Sums.Groups[static_cast<size_t>(group)]);
  });
}

}  // namespace

TGroupSums<THourAmount> SumHours(const TGroups& Groups, const TRelationColumn& Column, THourReadOptions Options) {
  return SumOf<THourAmount, THourSum>(Groups, Column,
                                      [Options](std::u16string_view text, THourAmount& value, TTextFault& fault) {
                                        return TryStrToHourAmount(text, value, fault, Options);
                                      });
}

TGroupSums<Currency> SumMoney(const TGroups& Groups, const TRelationColumn& Column, TMoneyReadOptions Options) {
  return SumOf<Currency, TMoneySum>(Groups, Column,
                                    [Options](std::u16string_view text, Currency& value, TTextFault& fault) {
                                      return TryStrToMoney(text, value, fault, Options);
                                    });
}

TGroupSums<int64_t> SumIntegers(const TGroups& Groups, const TRelationColumn& Column) {
  return SumOf<int64_t, TIntegerSum>(Groups, Column, TryStrToInt64Strict);
}

TGroupSums<TDateTime> FindDates(const TGroups& Groups, const TRelationColumn& Column) {
  return SumOf<TDateTime, TNoSum<TDateTime>>(Groups, Column, TryStrToDateStrict);
}

void AddSums(THeadCsv& Table, std::u16string_view Name, const TGroupSums<THourAmount>& Sums) {
  AppendSums(Table, Name, Sums);
}

void AddSums(THeadCsv& Table, std::u16string_view Name, const TGroupSums<Currency>& Sums) {
  AppendSums(Table, Name, Sums);
}

void AddSums(THeadCsv& Table, std::u16string_view Name, const TGroupSums<int64_t>& Sums) {
  AppendSums(Table, Name, Sums);
}

std::unique_ptr<THeadCsv> PivotCounts(const TGroups& Groups) {
  return TPivot(Groups).Fill(
      [&](THeadCsv& table, int col, int row, int group) { Put<ckInt>(table, col, row, Groups.Size(group)); });
}

std::unique_ptr<THeadCsv> PivotSums(const TGroups& Groups, const TGroupSums<THourAmount>& Sums) {
  return Pivot(Groups, Sums);
}

std::unique_ptr<THeadCsv> PivotSums(const TGroups& Groups, const TGroupSums<Currency>& Sums) {
  return Pivot(Groups, Sums);
}

std::unique_ptr<THeadCsv> PivotSums(const TGroups& Groups, const TGroupSums<int64_t>& Sums) {
  return Pivot(Groups, Sums);
}

}  // namespace vx
