#include "tables/CellSums.h"

#include <algorithm>
#include <utility>

#include "core/ExactSum.h"
#include "platform/Exceptions.h"

namespace vx {

namespace {

int CellsOf(const TFileCsv& Table, int Row) { return Row < Table.GetCount() ? Table.GetLines(Row)->GetCount() : 0; }

// Adds up cell by cell; TSum is the exact sum of T, Read reads a text as T.
template <typename T, typename TSum, typename TRead>
class TAdder {
 public:
  TAdder(const TFileCsv& Table, TRead Read) : FTable(Table), FRead(Read) {}

  void Add(int Col, int Row) {
    if (Col >= CellsOf(FTable, Row)) {
      ++FResult.Missing;
      return;
    }
    T value;
    TTextFault fault;
    if (FRead(FTable.GetCell(Col, Row), value, fault)) {
      FSum.Add(value);
      ++FResult.Read;
    } else if (fault.Kind == tfEmpty) {
      ++FResult.Empty;
    } else {
      FResult.Unreadable.push_back({Col, Row, fault});
    }
  }
  void AddMissing(int64_t Count) { FResult.Missing += std::max<int64_t>(Count, 0); }
  TCellSum<T> Result() {
    FResult.Sum = FSum.Get();
    return std::move(FResult);
  }

 private:
  const TFileCsv& FTable;
  TRead FRead;
  TSum FSum;
  TCellSum<T> FResult;
};

void Check(int Line, int From, int To) {
  if (Line < 0 || From < 0 || To < -1) throw EArgumentException(u"A sum of cells before the first row or column");
}

// What Add(index) adds from From to To, of There indexes in all; a To below 0 is the last one.
template <typename TAdder, typename TAdd>
auto SumOf(int From, int To, int There, TAdder& Adder, TAdd Add) {
  const int last = To < 0 ? There - 1 : std::min(To, There - 1);
  for (int i = From; i <= last; ++i) Add(i);
  Adder.AddMissing(int64_t{To} - std::max(last, From - 1));
  return Adder.Result();
}

template <typename T, typename TSum, typename TRead>
TCellSum<T> SumY(const TFileCsv& Table, int Col, int From, int To, TRead Read) {
  Check(Col, From, To);
  TAdder<T, TSum, TRead> adder(Table, Read);
  return SumOf(From, To, Table.GetCount(), adder, [&](int row) { adder.Add(Col, row); });
}

template <typename T, typename TSum, typename TRead>
TCellSum<T> SumX(const TFileCsv& Table, int Row, int From, int To, TRead Read) {
  Check(Row, From, To);
  TAdder<T, TSum, TRead> adder(Table, Read);
  return SumOf(From, To, CellsOf(Table, Row), adder, [&](int col) { adder.Add(col, Row); });
}

auto HourReader(THourReadOptions Options) {
  return [Options](std::u16string_view text, THourAmount& value, TTextFault& fault) {
    return TryStrToHourAmount(text, value, fault, Options);
  };
}

auto MoneyReader(TMoneyReadOptions Options) {
  return [Options](std::u16string_view text, Currency& value, TTextFault& fault) {
    return TryStrToMoney(text, value, fault, Options);
  };
}

}  // namespace

THourCellSum SumHoursY(const TFileCsv& Table, int Col, int From, int To, THourReadOptions Options) {
  return SumY<THourAmount, THourSum>(Table, Col, From, To, HourReader(Options));
}

TMoneyCellSum SumMoneyY(const TFileCsv& Table, int Col, int From, int To, TMoneyReadOptions Options) {
  return SumY<Currency, TMoneySum>(Table, Col, From, To, MoneyReader(Options));
}

THourCellSum SumHoursX(const TFileCsv& Table, int Row, int From, int To, THourReadOptions Options) {
  return SumX<THourAmount, THourSum>(Table, Row, From, To, HourReader(Options));
}

TMoneyCellSum SumMoneyX(const TFileCsv& Table, int Row, int From, int To, TMoneyReadOptions Options) {
  return SumX<Currency, TMoneySum>(Table, Row, From, To, MoneyReader(Options));
}

}  // namespace vx
