#include "tables/CheckedCells.h"

#include "core/MoneyText.h"
#include "core/StrictDates.h"
#include "core/StrictNumbers.h"
#include "platform/Exceptions.h"
#include "platform/Numbers.h"
#include "platform/TextBuffer.h"

namespace vx {

namespace detail {

// What is private to tables.
class TCellAccess {
 public:
  // The cell where it stands; without one why not.
  static TCellFaultKind Find(const TFileCsv& Table, int Col, int Row, const String*& Cell) {
    if (Col < 0) return cfNoColumn;
    if (Row < 0 || Row >= Table.GetCount()) return cfNoRow;
    TFileCsv::FetchAhead(Table.Get(Row), Col);
    const std::span<const String> cells = Table.GetLines(Row)->Items();
    if (static_cast<size_t>(Col) >= cells.size()) return cfNoCell;
    Cell = &cells[static_cast<size_t>(Col)];
    return cfNone;
  }
  static bool IsPlain(const TFileCsv& Table) noexcept { return Table.IsPlain(); }
};

}  // namespace detail

namespace {

using detail::TCellAccess;

constexpr int kLongestShown = 60;  // units of a cell that a text for people shows

char16_t SeparatorOf(TCellOptions Options) noexcept { return Options.Has(coDecimalPoint) ? u'.' : u','; }

template <TCellKind K>
bool Read(std::u16string_view Text, TCellValue<K>& Value, TTextFault& Fault, TCellOptions Options) noexcept {
  if constexpr (K == ckInt) return TryStrToInt64Strict(Text, Value, Fault);
  if constexpr (K == ckFloat) return TryStrToDoubleStrict(Text, Value, Fault, SeparatorOf(Options));
  if constexpr (K == ckDate) return TryStrToDateStrict(Text, Value, Fault);
  if constexpr (K == ckTime) return TryStrToTimeStrict(Text, Value, Fault);
  if constexpr (K == ckDateTime) return TryStrToDateTimeStrict(Text, Value, Fault);
  if constexpr (K == ckHours)
    return TryStrToHourAmount(Text, Value, Fault,
                              Options.Has(coIndustry) ? THourReadOptions{hroIndustry} : THourReadOptions{});
  if constexpr (K == ckMoney)
    return TryStrToMoney(Text, Value, Fault,
                         Options.Has(coDecimalPoint) ? TMoneyReadOptions{mroDecimalPoint} : TMoneyReadOptions{});
  if constexpr (K == ckFactor) return TryStrToDecimalFactor(Text, Value, Fault, SeparatorOf(Options));
  if constexpr (K == ckBool) return TryStrToBoolStrict(Text, Value, Fault);
}

// False for a value that Text can't hold.
template <TCellKind K>
bool Write(const TCellValue<K>& Value, String& Text, TCellOptions Options) {
  if constexpr (K == ckFloat) return TryDoubleToStrStrict(Value, Text, SeparatorOf(Options));
  if constexpr (K == ckDate) return TryDateToStrStrict(Value, Text);
  if constexpr (K == ckTime) return TryTimeToStrStrict(Value, Text);
  if constexpr (K == ckDateTime) return TryDateTimeToStrStrict(Value, Text);
  if constexpr (K == ckText) Text = Value;
  if constexpr (K == ckInt) Text = IntToStr(Value);
  if constexpr (K == ckHours) Text = HourAmountToStr(Value);
  if constexpr (K == ckMoney) Text = MoneyToStr(Value, SeparatorOf(Options));
  if constexpr (K == ckFactor) Text = DecimalFactorToStr(Value, SeparatorOf(Options));
  if constexpr (K == ckBool) Text = Value ? u"1" : u"0";
  return true;
}

// What is told of a cell that was asked for as Wanted; apart, so that good cells don't pay for it.
[[gnu::noinline, gnu::cold]] TCellFault FaultOf(const TFileCsv& Table, const TCellColumn& Column, int Col, int Row,
                                                TCellKind Wanted, TCellFaultKind Kind) {
  TCellFault fault;
  fault.Kind = Kind;
  fault.Wanted = Wanted;
  fault.Col = Col;
  fault.Row = Row;
  fault.Column = Column.GetName();
  const auto* head = dynamic_cast<const THeadCsv*>(&Table);
  if (head && Col >= 0 && head->GetCount() > 0) fault.Column = head->FieldName(Col);
  return fault;
}

void Grow(TVxStringList& Row, int Count) {
  for (int i = Row.GetCount(); i < Count; ++i) Row.Insert(i, String());
}

// Without line breaks, and with double quotes doubled.
void AddQuoted(TTextBuffer& Text, std::u16string_view Value) {
  Text.Add(u'"');
  for (const char16_t unit : Value) {
    if (unit == u'"') Text.Add(u'"');
    Text.Add(unit < u' ' ? u' ' : unit);
  }
  Text.Add(u'"');
}

String Shortened(const String& Cell) {
  return Cell.size() <= kLongestShown ? Cell : Cell.Slice(0, kLongestShown) + u"...";
}

}  // namespace

int TCellColumn::Find(const TFileCsv& Table) const {
  const auto* head = dynamic_cast<const THeadCsv*>(&Table);
  return head ? head->FieldIndex(FName) : -1;
}

String TCellFault::GetText() const {
  static constexpr const char16_t* kNone[] = {u"kein Text",         u"keine ganze Zahl", u"keine Zahl",
                                              u"kein Datum",        u"keine Uhrzeit",    u"kein Datum mit Uhrzeit",
                                              u"keine Stundenzahl", u"kein Betrag",      u"kein Faktor",
                                              u"weder Ja noch Nein"};
  const String row = u"Zeile " + IntToStr(int64_t{Row} + 1);
  const String name = Column.empty() ? String() : Concat({u" ('", Column, u"')"});
  const String place = Concat({row, u", Spalte ", IntToStr(int64_t{Col} + 1), name, u": "});
  switch (Kind) {
    case cfNone:
      return {};
    case cfNoColumn:
      return Column.empty() ? Concat({u"Spalte ", IntToStr(int64_t{Col} + 1), u" gibt es nicht"})
                            : Concat({u"Spalte '", Column, u"' gibt es nicht"});
    case cfNoRow:
      return row + u" gibt es nicht";
    case cfNoCell:
      return Concat({row, u" hat keine Spalte ", IntToStr(int64_t{Col} + 1), name});
    case cfEmpty:
      return place + u"leer";
    case cfUnreadable:
      return Concat({place, u"'", Shortened(Cell), u"' ist ", kNone[Wanted], u": ", Text.GetText()});
    case cfUnwritable:
      return Concat({place, u"der Wert ist ", kNone[Wanted], u", das in einer Zelle stehen kann"});
  }
  return {};
}

String TCellFault::GetLogText() const {
  static constexpr const char16_t* kWanted[] = {u"text",     u"int",   u"float", u"date",   u"time",
                                                u"datetime", u"hours", u"money", u"factor", u"bool"};
  static constexpr const char16_t* kKinds[] = {u"",      u"nocolumn",   u"norow",     u"nocell",
                                               u"empty", u"unreadable", u"unwritable"};
  static constexpr const char16_t* kWhy[] = {u"",      u"empty",    u"unexpected", u"incomplete", u"minutes",
                                             u"group", u"decimals", u"toolarge",   u"day",        u"month",
                                             u"year",  u"hour",     u"second"};
  if (Kind == cfNone) return {};
  TTextBuffer text;
  text.Add(Concat({u"cell col=", IntToStr(Col), u" row=", IntToStr(Row)}));
  if (!Column.empty()) {
    text.Add(u" name=");
    AddQuoted(text, Column);
  }
  text.Add(Concat({u" wanted=", kWanted[Wanted], u" fault=", kKinds[Kind]}));
  if (Kind == cfUnreadable) {
    text.Add(Concat({u" why=", kWhy[Text.Kind], u" position=", IntToStr(Text.Position), u" text="}));
    AddQuoted(text, Cell);
  }
  return text.ToString();
}

void TCellFault::Raise() const { throw EConvertError(GetText()); }

template <TCellKind K>
TCheckedCell<TCellValue<K>> ReadCell(const TFileCsv& Table, TCellColumn Column, int Row, TCellOptions Options) {
  using TResult = TCheckedCell<TCellValue<K>>;
  const int col = Column.In(Table);
  const String* cell = nullptr;
  const TCellFaultKind kind = TCellAccess::Find(Table, col, Row, cell);
  if (kind != cfNone) [[unlikely]]
    return TResult(FaultOf(Table, Column, col, Row, K, kind));
  String made;
  if (!TCellAccess::IsPlain(Table)) {
    made = Table.GetCell(col, Row);
    cell = &made;
  }
  if constexpr (K == ckText) {
    return TResult(*cell);
  } else {
    TCellValue<K> value{};
    TTextFault why;
    if (Read<K>(*cell, value, why, Options)) [[likely]]
      return TResult(value);
    TCellFault fault = FaultOf(Table, Column, col, Row, K, why.Kind == tfEmpty ? cfEmpty : cfUnreadable);
    fault.Text = why;
    if (fault.Kind == cfUnreadable) fault.Cell = cell->Detached();
    return TResult(std::move(fault));
  }
}

template <TCellKind K>
TCellResult detail::PutCell(TFileCsv& Table, TCellColumn Column, int Row, const TCellValue<K>& Value,
                            TCellOptions Options, bool MayGrow) {
  const int col = Column.In(Table);
  const String* cell = nullptr;
  const TCellFaultKind kind = TCellAccess::Find(Table, col, Row, cell);
  if (kind != cfNone && !(kind == cfNoCell && MayGrow)) return TCellResult(FaultOf(Table, Column, col, Row, K, kind));
  String text;
  if (!Write<K>(Value, text, Options)) return TCellResult(FaultOf(Table, Column, col, Row, K, cfUnwritable));
  if (kind == cfNoCell) Grow(*Table.GetLines(Row), col + 1);
  Table.SetCell(col, Row, text);
  return {};
}

#define VX_CELL_KIND(K)                                                                                  \
  template TCheckedCell<TCellValue<(K)>> ReadCell<(K)>(const TFileCsv&, TCellColumn, int, TCellOptions); \
  template TCellResult detail::PutCell<(K)>(TFileCsv&, TCellColumn, int, const TCellValue<(K)>&, TCellOptions, bool);
VX_CELL_KIND(ckText)
VX_CELL_KIND(ckInt)
VX_CELL_KIND(ckFloat)
VX_CELL_KIND(ckDate)
VX_CELL_KIND(ckTime)
VX_CELL_KIND(ckDateTime)
VX_CELL_KIND(ckHours)
VX_CELL_KIND(ckMoney)
VX_CELL_KIND(ckFactor)
VX_CELL_KIND(ckBool)
#undef VX_CELL_KIND

}  // namespace vx
