#include "controls/uVxFilter/TVxFilterText.h"

#include <algorithm>

#include "controls/uVxFilter/TVxFilterItem.h"
#include "controls/uVxFilter/detail/ColumnValues.h"
#include "controls/uVxFilter/detail/FilterPaint.h"
#include "platform/Collation.h"
#include "platform/Scan.h"
#include "platform/TCanvas.h"
#include "rendering/uDecoration/detail/TextCells.h"

namespace vx {

namespace {

constexpr int kArrowWidth = 14;

bool IsRegEx(std::u16string_view Value) { return Value.starts_with(u'='); }

// Commatext of one cell that is written as it stands.
bool IsPlainCell(std::u16string_view Text) {
  const char16_t* end = Text.data() + Text.size();
  return scan::FindBlankOr(Text.data(), end, u',', u'"') == end;
}

std::vector<TFilterLine> ValueLines(const TVxFilterItem& Item) {
  std::vector<TFilterLine> lines;
  if (Item.GetCsvV() == nullptr || Item.GetIndex() < 0) return lines;
  for (const detail::TColumnValue& value : detail::ColumnValues(*Item.GetCsvV(), Item.GetIndex(), false))
    lines.push_back({value.Value.empty() ? String(u"(leer)") : value.Value, value.Value});
  return lines;
}

void PaintChoice(TCanvas& Canvas, const TRect& Rect, const String& Value) {
  Canvas.SetBrush({clWindow});
  Canvas.FillRect(Rect);
  const int middle = std::max(Rect.Right - kArrowWidth, Rect.Left);
  detail::PaintText(Canvas, {Rect.Left, Rect.Top, middle, Rect.Bottom}, Value, clWindowText);
  detail::PaintArrow(Canvas, {middle, Rect.Top, Rect.Right, Rect.Bottom});
}

}  // namespace

// --- the test ---

bool TVxFilterText::GetMultiSelect() const { return Parent.GetMultiSelect() == fmsYes; }
bool TVxFilterText::doStrictValues() const { return Parent.GetStrictValues(); }

void TVxFilterText::Update() {
  const String& value = Parent.GetValue();
  FPassesAll = value.empty();
  FIsRegEx = IsRegEx(value);
  FTest = {};
  if (FPassesAll || FIsRegEx) return;
  const TCells values = GetMultiSelect() ? ReadCommatext(value) : TCells{value};
  FTest = detail::TTextTest(values, doStrictValues());
}

bool TVxFilterText::Matches(std::u16string_view aText) const {
  return FIsRegEx ? Parent.GetRegEx().IsMatch(aText) : FTest.Matches(aText);
}

bool TVxFilterText::Check(std::u16string_view aValue, TObject* /*aObject*/) const {
  if (FPassesAll) return true;
  if (!FIsCommatext || IsPlainCell(aValue)) return Matches(aValue);
  FLines.Clear();
  bool isFirst = true;
  detail::ForEachCell(aValue, [&](std::u16string_view cell) {
    if (!isFirst) FLines.Add(u"\r\n");
    isFirst = false;
    FLines.Add(cell);
  });
  return Matches(FLines.View());
}

// --- the window ---

void TVxFilterText::OnChange(TObject* Sender) {
  const TVxFilterForm& form = Parent.GetFilterForm();
  const bool isTyped = form.HasText() && form.GetItemIndex() < 0;
  if (isTyped && IsRegEx(form.GetText())) return;
  TVxFilterCore::OnChange(Sender);
}

void TVxFilterText::DecorateForm(TVxFilterForm& aForm) {
  aForm.SetKind(ffText);
  aForm.SetLines({});
  aForm.SetText(Parent.GetValue());
}

void TVxFilterText::TakeValue(const TVxFilterForm& aForm) { Parent.SetValue(aForm.GetText()); }

void TVxFilterText::Paint(TCanvas& Canvas, const TRect& Rect) {
  Canvas.SetBrush({clWindow});
  Canvas.FillRect(Rect);
  detail::PaintText(Canvas, Rect, Parent.GetValue(), clWindowText);
}

bool TVxFilterTextBox::GetMultiSelect() const { return Parent.GetMultiSelect() < fmsNo; }

// --- one of the column's values ---

bool TVxFilterCBox::doStrictValues() const { return TVxFilterText::doStrictValues() || Parent.GetIsPicked(); }

void TVxFilterCBox::DecorateForm(TVxFilterForm& aForm) {
  std::vector<TFilterLine> lines = ValueLines(Parent);
  // An empty value would pass all rows, as does the first line.
  std::erase_if(lines, [](const TFilterLine& line) { return line.Value.empty(); });
  lines.insert(lines.begin(), {u"ohne Wert", {}});
  const auto chosen = std::find_if(lines.begin(), lines.end(),
                                   [&](const TFilterLine& line) { return line.Value == Parent.GetValue(); });
  const int index = chosen != lines.end() ? static_cast<int>(chosen - lines.begin()) : -1;
  aForm.SetKind(ffCombo);
  aForm.SetLines(std::move(lines));
  aForm.SetItemIndex(index);
  aForm.SetText(Parent.GetValue());
}

void TVxFilterCBox::TakeValue(const TVxFilterForm& aForm) {
  if (aForm.GetItemIndex() < 0) return TVxFilterText::TakeValue(aForm);
  const String value = aForm.GetLine(aForm.GetItemIndex()).Value;
  Parent.GetFilterForm().SetVisible(false);
  Parent.PickValue(value);
}

void TVxFilterCBox::Paint(TCanvas& Canvas, const TRect& Rect) { PaintChoice(Canvas, Rect, Parent.GetValue()); }

// --- several of the column's values ---

bool TVxFilterCheckCBox::doStrictValues() const { return TVxFilterText::doStrictValues() || Parent.GetIsPicked(); }

void TVxFilterCheckCBox::DecorateForm(TVxFilterForm& aForm) {
  std::vector<TFilterLine> lines = ValueLines(Parent);
  const TCells chosen = Parent.GetValues();
  for (TFilterLine& line : lines)
    line.Checked =
        std::any_of(chosen.begin(), chosen.end(), [&](const String& value) { return AnsiSameText(value, line.Value); });
  aForm.SetKind(ffChecks);
  aForm.SetLines(std::move(lines));
}

void TVxFilterCheckCBox::TakeValue(const TVxFilterForm& aForm) { Parent.PickValue(aForm.GetCheckedValues()); }

void TVxFilterCheckCBox::Paint(TCanvas& Canvas, const TRect& Rect) { PaintChoice(Canvas, Rect, Parent.GetValue()); }

}  // namespace vx
