// Cells read and written as typed values, with a word on each that could not be.
//
//   ReadCell      the value of a cell, or why there is none, and where
//   WriteCell     writes a cell, or tells that there is no such cell; GrowCell adds the cells that the row lacks
//   TCheckedCell  what reading gives; TCellResult: what writing gives; TCellFault: what was wrong
//
// Example:
//   vx::THeadCsv patients;
//   patients.SetText(u"Name,Geburt\r\nAnja,04.05.1944\r\nTim,31.02.1950");
//   const auto born = vx::ReadCell<vx::ckDate>(patients, u"Geburt", 1);
//   born.value_or(0) == vx::EncodeDate(1944, 5, 4);              // true
//   const auto other = vx::ReadCell<vx::ckDate>(patients, 1, 2);
//   if (!other) other.GetText();
//   // u"Zeile 3, Spalte 2 ('Geburt'): '31.02.1950' ist kein Datum: diesen Tag gibt es nicht an Position 1"
//   vx::WriteCell<vx::ckMoney>(patients, 2, 1, 25).GetText();    // u"Zeile 2 hat keine Spalte 3"
//   bool(vx::GrowCell<vx::ckMoney>(patients, 2, 1, 25));         // true
//   patients.GetCell(2, 1);                                      // u"25,00"
//
// Columns and rows count from 0, and the column comes first; texts for people count both from 1. In a table with a
// head a column may be told by its name. Cells are asked through the virtual GetCell and written through SetCell.
//
// Pitfalls: value_or hides what is wrong as well as what is empty: where that is a difference ask IsEmpty. Numbers are
// read as German ones whatever the format settings say. What is written as one kind is read back as the same kind.
#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <utility>

#include "core/DecimalFactor.h"
#include "core/HourAmount.h"
#include "core/TextFault.h"
#include "platform/Currency.h"
#include "platform/Types.h"
#include "tables/uFileCsv.h"

namespace vx {

// What a cell is read and written as, by which rules, and as which type.
enum TCellKind : uint8_t {
  ckText,      // as it stands, blanks too; the empty text is one                                           String
  ckInt,       // TryStrToInt64Strict                                                                       int64_t
  ckFloat,     // TryStrToDoubleStrict                                                                      double
  ckDate,      // TryStrToDateStrict                                                                        TDateTime
  ckTime,      // TryStrToTimeStrict; 24:00 is 1.0                                                          TDateTime
  ckDateTime,  // TryStrToDateTimeStrict                                                                    TDateTime
  ckHours,     // TryStrToHourAmount                                                                        THourAmount
  ckMoney,     // TryStrToMoney; written with two decimals, or with four where there are so many            Currency
  ckFactor,  // TryStrToDecimalFactor                                                                     TDecimalFactor
  ckBool     // TryStrToBoolStrict; written u"1" and u"0"                                                 bool
};

enum TCellOption : uint8_t {
  coDecimalPoint,  // numbers, amounts and factors have a point before their decimals: u"1,234.50"
  coIndustry       // hours may also be told in hundredths: u"7,5"; see hroIndustry
};
using TCellOptions = Set<TCellOption>;

enum TCellFaultKind : uint8_t {
  cfNone,
  cfNoColumn,    // no column of that name, or an index below 0
  cfNoRow,       // no such row
  cfNoCell,      // the row is too short
  cfEmpty,       // no text, or blanks alone
  cfUnreadable,  // a text that is no such value
  cfUnwritable   // a value that no cell of that kind can hold: a date with a time of the day, a number that is none
};

struct TCellFault {
  TCellFaultKind Kind = cfNone;
  TCellKind Wanted = ckText;
  int Col = -1, Row = -1;  // as they were asked for; -1 for a name that no column has
  TTextFault Text;         // of an unreadable cell; its position counts in the cell's text
  String Column;           // the name of the column, as far as there is one
  String Cell;             // the text of an unreadable cell

  // In German, for people, as in the example above; of a long cell the beginning. Empty if there is no fault.
  String GetText() const;
  // One line for a log: u"cell col=1 row=2 name=\"Geburt\" wanted=date fault=unreadable why=day position=1
  // text=\"31.02.1950\"", with double quotes doubled and without line breaks. Empty if there is no fault.
  String GetLogText() const;
  // EConvertError with GetText.
  [[noreturn]] void Raise() const;
};

class [[nodiscard]] TCellResult {
 public:
  TCellResult() noexcept = default;
  explicit TCellResult(TCellFault Fault) noexcept : FFault(std::move(Fault)) {}

  explicit operator bool() const noexcept { return FFault.Kind == cfNone; }
  const TCellFault& GetFault() const noexcept { return FFault; }
  // There is nothing to read: the cell is empty, or its row is too short to have it. No other fault is among these.
  bool IsEmpty() const noexcept { return FFault.Kind == cfEmpty || FFault.Kind == cfNoCell; }
  String GetText() const { return FFault.GetText(); }
  String GetLogText() const { return FFault.GetLogText(); }

 protected:
  TCellFault FFault;
};

template <typename T>
class [[nodiscard]] TCheckedCell : public TCellResult {
 public:
  TCheckedCell() noexcept = default;
  explicit TCheckedCell(T Value) noexcept : FValue(std::move(Value)) {}
  explicit TCheckedCell(TCellFault Fault) noexcept : TCellResult(std::move(Fault)) {}

  // The value; one that is 0, false or empty where there is a fault.
  const T& operator*() const noexcept { return FValue; }
  const T* operator->() const noexcept { return &FValue; }
  T value_or(T Default) const { return *this ? FValue : std::move(Default); }
  // The value; EConvertError with GetText where there is a fault.
  const T& value() const {
    if (!*this) FFault.Raise();
    return FValue;
  }

 private:
  T FValue{};
};

// A column by its index or, in a table with a head, by its name, which has to outlive the call.
class TCellColumn {
 public:
  constexpr TCellColumn(int Index) noexcept : FIndex(Index) {}
  template <std::convertible_to<std::u16string_view> T>
  constexpr TCellColumn(const T& Name) noexcept : FName(Name), FIsName(true) {}

  // The index in that table; -1 for a name that it does not have, or that is asked of a table without a head.
  int In(const TFileCsv& Table) const { return FIsName ? Find(Table) : FIndex; }
  std::u16string_view GetName() const noexcept { return FName; }

 private:
  int Find(const TFileCsv& Table) const;

  std::u16string_view FName;
  int FIndex = -1;
  bool FIsName = false;
};

template <TCellKind K>
using TCellValue = std::tuple_element_t<K, std::tuple<String, int64_t, double, TDateTime, TDateTime, TDateTime,
                                                      THourAmount, Currency, TDecimalFactor, bool>>;

// The cell as a value of that kind. Allocates nothing for a cell that can be read, unless a derived class's GetCell
// does; the text of ckText shares its characters.
template <TCellKind K>
TCheckedCell<TCellValue<K>> ReadCell(const TFileCsv& Table, TCellColumn Column, int Row, TCellOptions Options = {});

namespace detail {

// Whether a cell of type V keeps all that a T can tell: no fractions cut off, no number or pointer as a boolean.
template <typename T, typename V>
concept KeptAs = std::convertible_to<T, V> &&(!std::integral<V> || requires(const T& Value) { V{Value}; });

template <TCellKind K>
TCellResult PutCell(TFileCsv& Table, TCellColumn Column, int Row, const TCellValue<K>& Value, TCellOptions Options,
                    bool MayGrow);

}  // namespace detail

// Writes a value into a cell that there is; with a fault nothing has changed. Of the options coDecimalPoint counts.
template <TCellKind K, detail::KeptAs<TCellValue<K>> T>
TCellResult WriteCell(TFileCsv& Table, TCellColumn Column, int Row, const T& Value, TCellOptions Options = {}) {
  return detail::PutCell<K>(Table, Column, Row, Value, Options, false);
}
// The same; a row that is too short gets empty cells up to this one. Rows are never added.
template <TCellKind K, detail::KeptAs<TCellValue<K>> T>
TCellResult GrowCell(TFileCsv& Table, TCellColumn Column, int Row, const T& Value, TCellOptions Options = {}) {
  return detail::PutCell<K>(Table, Column, Row, Value, Options, true);
}

}  // namespace vx
