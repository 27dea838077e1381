#include "tables/Relations/RelationRows.h"

#include <algorithm>

#include "core/StrictDates.h"
#include "platform/Calendar.h"
#include "platform/Exceptions.h"
#include "platform/TextBuffer.h"
#include "tables/Relations/detail/Cells.h"
#include "tables/uTypeCsv.h"

namespace vx {

namespace {

// What a date is cut to.
enum TDatePart : uint8_t { dpYear, dpMonth, dpDay };

bool ReadDate(std::u16string_view Cell, TDateTime& Date, TTextFault& Fault) noexcept {
  if (TryStrToDateStrict(Cell, Date, Fault)) return true;
  TTextFault other;
  if (Fault.Kind == tfEmpty || !TryStrToDateTimeStrict(Cell, Date, other)) return false;
  Fault = {};
  return true;
}

void AddField(TTextBuffer& Text, int Value) {
  Text.Add(u'-');
  Text.AddNumber(static_cast<unsigned>(Value), 2);
}

TGroupKey ByPart(const TRelationColumn& Column, TDatePart Part) {
  return By(Column, [Part](std::u16string_view cell, TTextFault& fault) -> String {
    TDateTime date = 0;
    if (!ReadDate(cell, date, fault)) return {};
    int year = 0, month = 0, day = 0;
    DecodeDate(date, year, month, day);
    TTextBuffer text;
    text.AddNumber(static_cast<unsigned>(year), 4);
    if (Part >= dpMonth) AddField(text, month);
    if (Part >= dpDay) AddField(text, day);
    return text.ToString();
  });
}

}  // namespace

TRelationRows::TRelationRows(const TFileCsv& Table, int First, int Last) : FLeft(&Table) {
  if (First < -1 || Last < -1) throw EArgumentException(u"Rows of a table before the first one");
  const auto* typed = dynamic_cast<const TTypeCsv*>(&Table);
  const int count = Table.GetCount(), end = typed ? typed->GetContentCount() : count;
  if (First < 0) First = typed ? std::max(1, typed->GetContentTop()) : dynamic_cast<const THeadCsv*>(&Table) ? 1 : 0;
  FFirst = std::min(First, count);
  FEnd = std::max(FFirst, Last < 0 ? end : std::min(Last, count - 1) + 1);
}

const TFileCsv& TRelationRows::Table(bool IsRight) const {
  if (!IsRight) return *FLeft;
  if (!FRight) throw EArgumentException(u"A column of the right table where there is no join");
  return *FRight;
}

TGroupKey ByDay(const TRelationColumn& Column) { return ByPart(Column, dpDay); }
TGroupKey ByMonth(const TRelationColumn& Column) { return ByPart(Column, dpMonth); }
TGroupKey ByYear(const TRelationColumn& Column) { return ByPart(Column, dpYear); }

int detail::IndexIn(const TFileCsv& Table, const TCellColumn& Column) {
  const int col = Column.In(Table);
  if (col >= 0) return col;
  if (!Column.GetName().empty())
    throw EArgumentException(Concat({u"The table has no column '", Column.GetName(), u"'"}));
  throw EArgumentException(u"A column of a table before the first one");
}

String detail::NameIn(const TRelationRows& Rows, const TRelationColumn& Column) {
  if (!Column.Name.empty()) return Column.Name;
  const TFileCsv& table = Rows.Table(Column.IsRight);
  const auto* head = dynamic_cast<const THeadCsv*>(&table);
  return head ? head->FieldName(IndexIn(table, Column.Column)) : String(Column.Column.GetName());
}

}  // namespace vx
