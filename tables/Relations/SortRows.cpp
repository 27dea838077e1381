#include "tables/Relations/SortRows.h"

#include <algorithm>
#include <memory>
#include <numeric>

#include "core/HourAmount.h"
#include "core/MoneyText.h"
#include "core/StrictDates.h"
#include "core/StrictNumbers.h"
#include "platform/Exceptions.h"
#include "tables/Relations/RelationRows.h"
#include "tables/Relations/detail/Cells.h"
#include "tables/uSort/detail/SortKeys.h"
#include "tables/uSort/detail/SortRecords.h"
#include "tables/uTypeCsv.h"

namespace vx {

using detail::KeyOf;
using detail::TSortRecord;

namespace {

// Whether a cell has a value to sort by, and a number that stands as the value does.
using TReadKey = bool (*)(std::u16string_view Cell, uint64_t& Key, TTextFault& Fault);

template <typename T, auto Read, auto KeyOfValue>
bool ReadKey(std::u16string_view Cell, uint64_t& Key, TTextFault& Fault) {
  T value{};
  if (!Read(Cell, value, Fault)) return false;
  Key = KeyOfValue(value);
  return true;
}

constexpr auto kReadFloat = [](std::u16string_view cell, double& value, TTextFault& fault) {
  return TryStrToDoubleStrict(cell, value, fault);
};
constexpr auto kReadHours = [](std::u16string_view cell, THourAmount& value, TTextFault& fault) {
  return TryStrToHourAmount(cell, value, fault);
};
constexpr auto kReadMoney = [](std::u16string_view cell, Currency& value, TTextFault& fault) {
  return TryStrToMoney(cell, value, fault);
};
constexpr auto kOfInt = [](int64_t value) { return KeyOf(value); };
constexpr auto kOfFloat = [](double value) { return KeyOf(Extended{value}); };
constexpr auto kOfHours = [](THourAmount value) { return KeyOf(value.Minutes); };
constexpr auto kOfMoney = [](Currency value) { return KeyOf(value.Units); };
constexpr auto kOfBool = [](bool value) { return uint64_t{value}; };

// nullptr for the types of which every cell is.
TReadKey ReaderOf(TVxFieldType Type) noexcept {
  switch (Type) {
    case vftInteger:
    case vftStatus:
      return ReadKey<int64_t, TryStrToInt64Strict, kOfInt>;
    case vftFloat:
    case vftFraction:
      return ReadKey<double, kReadFloat, kOfFloat>;
    case vftDate:
      return ReadKey<TDateTime, TryStrToDateStrict, kOfFloat>;
    case vftTime:
      return ReadKey<TDateTime, TryStrToTimeStrict, kOfFloat>;
    case vftDateTime:
      return ReadKey<TDateTime, TryStrToDateTimeStrict, kOfFloat>;
    case vftHour:
      return ReadKey<THourAmount, kReadHours, kOfHours>;
    case vftCurrency:
      return ReadKey<Currency, kReadMoney, kOfMoney>;
    case vftBoolean:
      return ReadKey<bool, TryStrToBoolStrict, kOfBool>;
    default:
      return nullptr;
  }
}

// The rows in an order that each column refines from the last one on: each sort is stable, so that the first column
// has the last word.
class TRowSorter {
 public:
  TRowSorter(const TFileCsv& Table, const TRelationRows& Rows) : FTable(Table), FOrder(Size(Rows.GetCount())) {
    std::iota(FOrder.begin(), FOrder.end(), Rows.GetFirst());
  }

  void By(int Col, TVxFieldType Type, bool IsDescending, TSortFaults& Faults) {
    if (const TReadKey read = ReaderOf(Type)) {
      ByValue(Col, read, IsDescending, Faults);
    } else {
      ByText(Col, Type, IsDescending);
    }
  }
  std::span<const int> Order() const noexcept { return FOrder; }

 private:
  static size_t Size(int Count) noexcept { return static_cast<size_t>(Count); }

  void ByValue(int Col, TReadKey Read, bool IsDescending, TSortFaults& Faults) {
    const auto memory = std::make_unique_for_overwrite<TSortRecord[]>(2 * FOrder.size());
    size_t count = 0;
    std::vector<int> rest;
    for (uint32_t place = 0; place < FOrder.size(); ++place) {
      const int row = FOrder[place];
      const String* cell = detail::FindCell(*FTable.GetLines(row), Col);
      TTextFault fault{.Kind = tfEmpty};
      uint64_t key = 0;
      if (cell && Read(*cell, key, fault)) {
        memory[count++] = {IsDescending ? ~key : key, place, 0};
        continue;
      }
      rest.push_back(row);
      if (fault.Kind == tfEmpty) {
        ++Faults.Empty;
      } else {
        Faults.Unreadable.push_back({Col, row, fault});
      }
    }
    detail::SortRecords({memory.get(), count}, {memory.get() + FOrder.size(), count});
    FNext.clear();
    for (size_t i = 0; i < count; ++i) FNext.push_back(FOrder[memory[i].Row]);
    FNext.insert(FNext.end(), rest.begin(), rest.end());
    FOrder.swap(FNext);
  }
  void ByText(int Col, TVxFieldType Type, bool IsDescending) {
    std::vector<const TVxStringList*> rows(FOrder.size());
    std::ranges::transform(FOrder, rows.begin(), [&](int row) { return FTable.GetLines(row); });
    const TSortColumn column{.Index = Col, .SortType = Type, .SortDirection = IsDescending ? -1 : 1};
    const std::vector<int> places = OrderRows(rows, {&column, 1});
    FNext.resize(FOrder.size());
    std::ranges::transform(places, FNext.begin(), [&](int place) { return FOrder[Size(place)]; });
    FOrder.swap(FNext);
  }

  const TFileCsv& FTable;
  std::vector<int> FOrder, FNext;
};

// Puts the rows in their order, and the faults of each row where it stands then.
void Arrange(TFileCsv& Table, std::span<const int> Order, int First, TSortFaults& Faults) {
  std::vector<int> order(static_cast<size_t>(Table.GetCount()));
  std::iota(order.begin(), order.end(), 0);
  std::ranges::copy(Order, order.begin() + First);
  Table.Arrange(order);
  if (Faults.IsWhole()) return;
  std::vector<int> places(order.size());
  for (size_t place = 0; place < order.size(); ++place)
    places[static_cast<size_t>(order[place])] = static_cast<int>(place);
  for (TUnreadableCell& cell : Faults.Unreadable) cell.Row = places[static_cast<size_t>(cell.Row)];
}

}  // namespace

TSortFaults SortRows(TFileCsv& Table, std::span<const TRowSort> Columns, int First, int Last) {
  const auto* view = dynamic_cast<const TCsvView*>(&Table);
  if ((view && view->GetViewMode()) || dynamic_cast<const TSortCsv*>(&Table)) {
    throw EArgumentException(u"SortRows of a table that keeps an order of its own");
  }
  const TRelationRows rows(Table, First, Last);
  std::vector<int> cols;
  for (const TRowSort& column : Columns) cols.push_back(detail::IndexIn(Table, column.Column));
  TSortFaults faults;
  TRowSorter sorter(Table, rows);
  for (size_t i = Columns.size(); i-- > 0;) {
    if (Columns[i].Order != TS_NONE) sorter.By(cols[i], Columns[i].Type, Columns[i].Order == TS_DESCENDING, faults);
  }
  Arrange(Table, sorter.Order(), rows.GetFirst(), faults);
  std::ranges::stable_sort(faults.Unreadable, {}, &TUnreadableCell::Row);
  return faults;
}

TSortFaults SortRows(TFileCsv& Table, std::initializer_list<TRowSort> Columns, int First, int Last) {
  return SortRows(Table, std::span<const TRowSort>(Columns.begin(), Columns.size()), First, Last);
}

}  // namespace vx
