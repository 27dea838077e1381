#include "tools/vxview/SelectionSum.h"

#include "core/ExactSum.h"
#include "core/MoneyText.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "tables/uTypeCsv.h"

namespace vx::vxview {

namespace {

bool IsBlank(std::u16string_view Text) noexcept { return Text.find_first_not_of(u' ') == Text.npos; }

struct TSums {
  THourSum Hours;
  TMoneySum Money, Numbers;
  int HourCount = 0, MoneyCount = 0, NumberCount = 0, Unreadable = 0;

  void AddHours(std::u16string_view Text) {
    THourAmount hours;
    if (!TryStrToHourAmount(Text, hours)) {
      ++Unreadable;
      return;
    }
    Hours.Add(hours);
    ++HourCount;
  }
  void AddMoney(std::u16string_view Text, TMoneySum& Sum, int& Count) {
    Currency amount;
    if (!TryStrToMoney(Text, amount)) {
      ++Unreadable;
      return;
    }
    Sum.Add(amount);
    ++Count;
  }
  void Add(TVxFieldType Type, std::u16string_view Text) {
    if (IsBlank(Text)) return;
    if (Type == vftHour) AddHours(Text);
    if (Type == vftCurrency) AddMoney(Text, Money, MoneyCount);
    if (Type == vftInteger || Type == vftFloat) AddMoney(Text, Numbers, NumberCount);
  }
};

template <typename TSum, typename TToText>
String SumText(const TSum& Sum, TToText ToText) {
  decltype(Sum.Get()) total{};
  return Sum.TryGet(total) ? ToText(total) : String(u"zu groß");
}

}  // namespace

String SelectionText(const TTypeCsv& Table, const TTableSelection& Selection, std::span<const int> Columns) {
  const int64_t cells = Selection.GetCellCount();
  if (cells <= 1) return {};
  String text = Concat({FormatFloat(u"#,##0", static_cast<double>(cells)), u" Zellen markiert"});
  if (cells > MostSummed) return text;
  TSums sums;
  for (const TRect& range : Selection.GetRanges()) {
    for (int place = range.Left; place < range.Right; ++place) {
      const int col = Columns[static_cast<size_t>(place)];
      const TVxFieldType type = Table.GetDecorations().GetColumnFieldType(col);
      if (type != vftHour && type != vftCurrency && type != vftInteger && type != vftFloat) continue;
      for (int row = range.Top; row < range.Bottom; ++row) sums.Add(type, Table.GetCell(col, row));
    }
  }
  const auto hours = [](THourAmount value) { return HourAmountToStr(value); };
  const auto money = [](Currency value) { return MoneyToStr(value); };
  if (sums.HourCount > 0) text = Concat({text, u", Stunden ", SumText(sums.Hours, hours)});
  if (sums.MoneyCount > 0) text = Concat({text, u", Beträge ", SumText(sums.Money, money)});
  if (sums.NumberCount > 0) text = Concat({text, u", Summe ", SumText(sums.Numbers, money)});
  if (sums.Unreadable > 0) text = Concat({text, u", ", IntToStr(sums.Unreadable), u" nicht lesbar"});
  return text;
}

}  // namespace vx::vxview
