// What services/uAnimate.h tells of tables: those that make them stand here, above it.
#include "services/uAnimate.h"

#include <algorithm>

#include "platform/DateText.h"
#include "platform/Numbers.h"
#include "tables/uFileCsv/TFileCsv.h"

namespace vx {

namespace {

constexpr char16_t kLong[] = u"h:nn:ss:zzz";
constexpr char16_t kShort[] = u"n:ss:zzz";

// The cells of a watch in the statistic.
TCells RowOf(const TStopWatch& Watch) {
  TDateTime sum = 0, least = -1, most = 0;
  int count = 0;
  for (TObject* object : Watch.Items()) {
    const TSWPeriod* period = dynamic_cast<const TSWPeriod*>(object);
    if (period == nullptr || !(period->GetFinish() > 0)) continue;
    const TDateTime length = period->Period();
    sum += length;
    least = count == 0 ? length : std::min(least, length);
    most = std::max(most, length);
    ++count;
  }
  return {String(Watch.GetLevel(), u'+') + Watch.GetName(),
          FormatDateTime(kLong, sum),
          IntToStr(count),
          FormatDateTime(kShort, count > 0 ? sum / count : 0),
          FormatDateTime(kShort, least),
          FormatDateTime(kShort, most),
          IntToStr(Watch.GetNr()),
          IntToStr(Watch.GetLevel())};
}

}  // namespace

void TSWList::Statistic(TFileCsv& table) const {
  table.Clear();
  table.AddRow(u"Name,Zeit,Anzahl,Durchschnitt,Min,Max,Nr,Level");
  for (int i = 0; i < GetCount(); ++i) {
    if (const TStopWatch* watch = Watch(i)) table.AddRow(RowOf(*watch));
  }
}

std::unique_ptr<TFileCsv> TSWList::Statistic() const {
  auto table = std::make_unique<TFileCsv>();
  Statistic(*table);
  return table;
}

void TSWList::ShowStatistic() const { Statistic()->ShowContent(); }

void TSWList::getStatisticElement(std::u16string_view name, TVxStringList& strings) const {
  const String key = name;  // it may be one of the strings
  const std::unique_ptr<TFileCsv> table = Statistic();
  strings.Clear();
  for (int i = 0; i < table->GetCount(); ++i) {
    if (table->GetCell(0, i) != key) continue;
    strings.Assign(*table->GetLines(i));
    return;
  }
}

std::unique_ptr<TVxStringList> TSWList::getStatisticElement(std::u16string_view name) const {
  auto strings = std::make_unique<TVxStringList>();
  getStatisticElement(name, *strings);
  return strings;
}

}  // namespace vx
