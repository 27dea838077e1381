// A filter's item on any values and cells: texts against the rules one after the other, and images, expressions and
// regular expressions that must come to an end.
#include "controls/uVxFilter.h"
#include "core/uVxFunctions/Matching.h"
#include "fuzz/support/Input.h"

namespace vx::fuzz {
namespace {

bool PlainMatch(const String& Cell, String Value, bool Strict) {
  if (!Strict) {
    const bool first = Value.view().starts_with(u'!');
    if (first) Value = Value.Slice(1);
    const bool last = Value.view().ends_with(u'!');
    if (last) Value = Value.Slice(0, Value.size() - 1);
    if (!first || !last) Value = (first ? u"" : u"*") + Value + (last ? u"" : u"*");
  }
  return StrMatch(Cell, Value, false);
}

bool PlainCheck(const String& Cell, const TVxFilterItem& Item) {
  if (Item.GetValue().empty()) return true;
  if (!Item.GetFilterCore().GetMultiSelect()) return PlainMatch(Cell, Item.GetValue(), Item.GetStrictValues());
  for (const String& value : Item.GetValues()) {
    if (PlainMatch(Cell, value, Item.GetStrictValues())) return true;
  }
  return false;
}

void CheckRegEx(const String& Value, const TCells& Cells) {
  TVxFilterItem item;
  try {
    item.SetValue(u"=" + Value);
  } catch (const ERegularExpressionError& e) {
    Check(e.GetOffset() >= 0 && e.GetOffset() <= Value.size() && item.GetValue().empty(), "a wrong expression");
    return;
  }
  for (const String& cell : Cells) item.Check(cell, nullptr);
  TRegEx plain(Value, {roIgnoreCase});
  for (const String& cell : Cells) {
    const bool ours = item.Check(cell, nullptr), theirs = plain.IsMatch(cell);
    Check(ours == theirs || item.GetRegEx().GetWasStopped() || plain.GetWasStopped(), "compiled or not, it matches");
  }
}

}  // namespace

FUZZ(Input) {
  const uint8_t flags = Input.Byte();
  const String value = Input.Text();
  const TCells cells = Input.Cells();
  if ((flags & 0x80) != 0) return CheckRegEx(value, cells);
  TVxFilterItem item;
  item.SetFilterType((flags & 0x10) != 0 ? ftImage : ftText);
  item.SetMultiSelect(static_cast<TFilterMultiSelect>(flags % 3));
  item.SetStrictValues((flags & 4) != 0);
  if (value.view().starts_with(u'=')) return;
  item.SetValue(value);
  const TRegEx expression(item.BuildRegEx(value), {roIgnoreCase});
  for (const String& cell : cells) {
    const bool passes = item.Check(cell, nullptr);
    if ((flags & 0x10) != 0) continue;
    Check(passes == PlainCheck(cell, item), "a cell passes by the rules");
    expression.IsMatch(cell);
  }
}

}  // namespace vx::fuzz
