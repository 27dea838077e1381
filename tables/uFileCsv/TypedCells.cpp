// Cells as typed values, and the sums over them.
#include <algorithm>
#include <cmath>

#include "objects/uVxClasses/TVxString.h"
#include "platform/Calendar.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "tables/uFileCsv.h"

namespace vx {

namespace {

// A duration, read to the nearest millisecond like every time: the sum of 24 single hours may lie a
// rounding error below the full day.
struct TDuration {
  explicit TDuration(Extended Value) noexcept {
    if (!std::isfinite(Value)) return;
    const Extended msecs = std::nearbyint(Value * MSecsPerDay);
    Days = std::trunc(msecs / MSecsPerDay);
    AllHours = std::trunc(msecs / MSecsPerHour);
    const int time = static_cast<int>(std::fmod(std::fabs(msecs), Extended{MSecsPerDay}));
    Hour = time / MSecsPerHour;
    Minute = time / 60000 % 60;
  }

  static constexpr int MSecsPerHour = MSecsPerDay / 24;
  Extended Days = 0, AllHours = 0;  // cut towards 0
  int Hour = 0, Minute = 0;         // of the time of day, which has no sign
};

String HoursToText(Extended Hours, int Minute) {
  return FormatFloat(u"#######00", Hours) + u":" + FormatFloat(u"00", Minute);
}

// Hours as an unsigned number of 16 bits.
Extended Wrapped(Extended Hours) noexcept {
  constexpr Extended kRange = 65536;
  const Extended rest = std::fmod(Hours, kRange);
  return rest < 0 ? rest + kRange : rest;
}

void SetDefaults(int& From, int& To, int Count) noexcept {
  if (From < 0 || From >= Count) From = 1;
  if (To < 0 || To >= Count) To = Count - 2;
}

template <typename T, typename F>
T SumOf(int From, int Last, F Get) {
  T sum = 0;
  for (int64_t i = From; i <= Last; ++i) sum += Get(static_cast<int>(i));
  return sum;
}

template <typename TFloat, typename TCurr, typename TTime>
String SumToText(TVxFieldType FieldType, TFloat Float, TCurr Curr, TTime Time) {
  switch (FieldType) {
    case vftInteger:
    case vftFloat:
    case vftFraction:
    case vftDateTime:
      return FloatToStr(Float());
    case vftCurrency:
      return CurrToStrF(Curr(), ffFixed, 2);
    case vftTime:
    case vftHour:
      return Time();
    default:
      return {};
  }
}

// The usual cell has no blanks.
std::u16string_view Trimmed(std::u16string_view Text) noexcept {
  return !Text.empty() && Text.front() > u' ' && Text.back() > u' ' ? Text : TrimView(Text);
}

}  // namespace

// Where GetCell is this class's own, a cell is read where it stands.
template <typename F>
auto TFileCsv::ReadCell(int Col, int Row, F Read) const {
  if (!IsPlain()) return Read(Trimmed(GetCell(Col, Row)));
  const String* cell = FindCell(Col, Row);
  return Read(cell ? Trimmed(*cell) : std::u16string_view());
}

bool TFileCsv::GetCellsAsBool(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return TVxString::ToBool(cell, false); });
}
void TFileCsv::SetCellsAsBool(int Col, int Row, bool Value) { SetCell(Col, Row, TVxString::ToString(Value)); }

TBoolExt TFileCsv::GetCellsAsBoolExt(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return TVxString::ToBoolExt(cell); });
}
void TFileCsv::SetCellsAsBoolExt(int Col, int Row, TBoolExt Value) { SetCell(Col, Row, TVxString::ToString(Value)); }

Currency TFileCsv::GetCellsAsCurrency(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return TVxString::ToCurr(cell, 0); });
}
void TFileCsv::SetCellsAsCurrency(int Col, int Row, Currency Value) { SetCell(Col, Row, TVxString::ToString(Value)); }

TDateTime TFileCsv::GetCellsAsDate(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return TVxString::ToDate(cell, 0); });
}
void TFileCsv::SetCellsAsDate(int Col, int Row, TDateTime Value) { SetCell(Col, Row, TVxString::DateToString(Value)); }

TDateTime TFileCsv::GetCellsAsDateTime(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return TVxString::ToDateTime(cell, 0); });
}
void TFileCsv::SetCellsAsDateTime(int Col, int Row, TDateTime Value) {
  SetCell(Col, Row, TVxString::DateTimeToString(Value));
}

Extended TFileCsv::GetCellsAsFloat(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return TVxString::ToExt(cell, 0); });
}
void TFileCsv::SetCellsAsFloat(int Col, int Row, Extended Value) { SetCell(Col, Row, TVxString::ToString(Value)); }

// An empty text is no amount of hours and so gives the default, too.
TDateTime TFileCsv::GetCellsAsHour(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return StrToHourDef(cell, 0); });
}
void TFileCsv::SetCellsAsHour(int Col, int Row, TDateTime Value) {
  const TDuration duration(Value);
  SetCell(Col, Row, HoursToText(duration.Days * 24 + duration.Hour, duration.Minute));
}

int TFileCsv::GetCellsAsInt(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return TVxString::ToInt(cell, 0); });
}
void TFileCsv::SetCellsAsInt(int Col, int Row, int Value) { SetCell(Col, Row, TVxString::ToString(Value)); }

TDateTime TFileCsv::GetCellsAsTime(int Col, int Row) const {
  return ReadCell(Col, Row, [](std::u16string_view cell) { return TVxString::ToTime(cell, 0); });
}
void TFileCsv::SetCellsAsTime(int Col, int Row, TDateTime Value) { SetCell(Col, Row, TVxString::TimeToString(Value)); }

TVxFieldType TFileCsv::GuessFieldType(std::u16string_view Text) noexcept {
  if (Text.empty()) return vftUnknown;
  int signs = 0, commas = 0, dots = 0, colons = 0;
  for (size_t i = 0; i < Text.size(); ++i) {
    const char16_t unit = Text[i];
    if (IsDigit(unit)) continue;
    if (unit == u'.') {
      ++dots;
    } else if (unit == u':') {
      ++colons;
    } else if (unit == u',' && commas == 0) {
      ++commas;
    } else if ((unit == u'+' || unit == u'-') && i == 0) {
      ++signs;
    } else {
      return vftString;
    }
  }
  const size_t length = Text.size();
  auto areAt = [&](char16_t unit) { return Text[2] == unit && Text[5] == unit; };
  if (dots > 0) {
    const bool isDate = commas == 0 && dots == 2 && (length == 10 || length == 8) && areAt(u'.');
    return isDate ? vftDate : vftString;
  }
  if (colons == 0) return commas == 1 ? vftFloat : vftInteger;
  if (signs > 0) return vftString;
  if (colons == 1 && length >= 3 && Text[length - 3] == u':' && Text.substr(length - 2) <= u"59") {
    return length == 5 && Text <= u"24:00" ? vftTime : vftHour;
  }
  const bool isTime = colons == 2 && length == 8 && areAt(u':') && Text <= u"24:00:00" && Text.substr(3, 2) <= u"59" &&
                      Text.substr(6) <= u"59";
  return isTime ? vftTime : vftString;
}

String TFileCsv::WithThousandDivider(const String& Text) {
  const TVxFieldType type = GuessFieldType(Text);
  const char16_t divider = GetFormatSettings().ThousandSeparator;
  if (divider == 0 || (type != vftInteger && type != vftFloat)) return Text;
  const size_t first = Text[0] == u'+' || Text[0] == u'-' ? 1 : 0;
  const std::u16string_view number = Text.view().substr(first);
  const size_t whole = std::min(number.find(u','), number.size());
  if (whole <= 3) return Text;
  return String::Build(static_cast<size_t>(Text.size()) + (whole - 1) / 3, [&](char16_t* out) {
    out = std::copy_n(Text.data(), first, out);
    for (size_t i = 0; i < whole; ++i) {
      if (i > 0 && (whole - i) % 3 == 0) *out++ = divider;
      *out++ = number[i];
    }
    std::copy(number.begin() + static_cast<std::ptrdiff_t>(whole), number.end(), out);
  });
}

String TFileCsv::SumX(int Row, TVxFieldType FieldType, int From, int To, int Target) {
  if (Row < 0 || Row >= GetCount()) return {};
  const int width = FieldCount();
  SetDefaults(From, To, width);
  String result = SumToText(
      FieldType, [&] { return SumFloatX(Row, From, To); }, [&] { return SumCurrencyX(Row, From, To); },
      [&] { return SumTimeX(Row, From, To); });
  if (Target >= 0 && Target < width) SetCell(Target, Row, result);
  return result;
}

String TFileCsv::SumY(int Col, TVxFieldType FieldType, int From, int To, int Target) {
  if (Col < 0 || Col >= FieldCount()) return {};
  SetDefaults(From, To, GetCount());
  String result = SumToText(
      FieldType, [&] { return SumFloatY(Col, From, To); }, [&] { return SumCurrencyY(Col, From, To); },
      [&] { return SumTimeY(Col, From, To); });
  if (Target >= 0 && Target < GetCount()) SetCell(Col, Target, result);
  return result;
}

int TFileCsv::LastInRow(int Row, int To) const {
  if (!IsPlain()) return To;
  return Row < GetCount() ? std::min(To, GetLines(Row)->GetCount() - 1) : -1;
}

int TFileCsv::LastInCol(int To) const { return IsPlain() ? std::min(To, GetCount() - 1) : To; }

Extended TFileCsv::SumFloatX(int Row, int From, int To) const {
  return SumOf<Extended>(From, LastInRow(Row, To), [&](int col) { return GetCellsAsFloat(col, Row); });
}

Extended TFileCsv::SumFloatY(int Col, int From, int To) const {
  return SumOf<Extended>(From, LastInCol(To), [&](int row) { return GetCellsAsFloat(Col, row); });
}

Currency TFileCsv::SumCurrencyX(int Row, int From, int To) const {
  return SumOf<Currency>(From, LastInRow(Row, To), [&](int col) { return GetCellsAsCurrency(col, Row); });
}

Currency TFileCsv::SumCurrencyY(int Col, int From, int To) const {
  return SumOf<Currency>(From, LastInCol(To), [&](int row) { return GetCellsAsCurrency(Col, row); });
}

String TFileCsv::SumTimeX(int Row, int From, int To) const {
  const TDuration sum(SumOf<Extended>(From, LastInRow(Row, To), [&](int col) { return GetCellsAsHour(col, Row); }));
  return HoursToText(Wrapped(sum.Hour + sum.AllHours), sum.Minute);
}

String TFileCsv::SumTimeY(int Col, int From, int To) const {
  const TDuration sum(SumOf<Extended>(From, LastInCol(To), [&](int row) { return GetCellsAsHour(Col, row); }));
  return HoursToText(Wrapped(sum.Hour + sum.Days * 24), sum.Minute);
}

}  // namespace vx
