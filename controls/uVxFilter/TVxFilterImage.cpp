#include "controls/uVxFilter/TVxFilterImage.h"

#include <algorithm>

#include "controls/uVxFilter/TVxFilterItem.h"
#include "controls/uVxFilter/detail/ColumnValues.h"
#include "controls/uVxFilter/detail/FilterPaint.h"
#include "platform/Collation.h"
#include "platform/Numbers.h"
#include "platform/TCanvas.h"
#include "platform/TImageList.h"
#include "rendering/uDecoration/TDecoration.h"
#include "rendering/uDecoration/detail/TextCells.h"
#include "tables/uTypeCsv.h"

namespace vx {

namespace {

bool HasCells(std::u16string_view Value) { return Value.find(u',') != Value.npos; }

// Whether any cell of the commatext is good.
template <typename F>
bool AnyCell(std::u16string_view Commatext, F IsGood) {
  bool result = false;
  detail::ForEachCell(Commatext, [&](std::u16string_view cell) { result = result || IsGood(cell); });
  return result;
}

TImageList* ImagesOf(const TVxFilterItem& Item) {
  if (Item.GetImageList() != nullptr || Item.GetCsvV() == nullptr) return Item.GetImageList();
  return Item.GetCsvV()->GetDecorations().GetImageList();
}

// The name of the image if it has one.
String CaptionOf(const TVxFilterItem& Item, const String& Value) {
  const auto* images = dynamic_cast<const TVxImageList*>(ImagesOf(Item));
  const String name = images != nullptr ? images->GetItems(StrToIntDef(Value, -1)) : String();
  return name.empty() ? Value : name;
}

}  // namespace

bool TVxFilterImage::GetMultiSelect() const { return Parent.GetMultiSelect() == fmsYes; }

void TVxFilterImage::Update() {
  FPassesAll = Parent.GetValue().empty();
  FValues = Parent.GetValues();
  FRows.clear();
}

bool TVxFilterImage::IsAmongValues(std::u16string_view Text) const noexcept {
  return std::any_of(FValues.begin(), FValues.end(), [&](const String& value) { return AnsiSameText(value, Text); });
}

bool TVxFilterImgDraw::Check(std::u16string_view aValue, TObject* /*aObject*/) const {
  if (FPassesAll) return true;
  const String& value = Parent.GetValue();
  if (GetMultiSelect() ? IsAmongValues(aValue) : value == aValue) return true;
  if (Parent.GetStrictValues() || !HasCells(aValue)) return false;
  return AnyCell(aValue, [&](std::u16string_view cell) { return AnsiSameText(cell, value); });
}

bool TVxFilterImgList::Check(std::u16string_view aValue, TObject* /*aObject*/) const {
  if (FPassesAll) return true;
  const bool isMulti = GetMultiSelect();
  if (!HasCells(aValue)) return isMulti ? IsAmongValues(aValue) : Parent.GetValue() == aValue;
  return AnyCell(aValue, [&](std::u16string_view cell) {
    return isMulti ? IsAmongValues(cell) : AnsiSameText(Parent.GetValue(), cell);
  });
}

// --- the window ---

void TVxFilterImage::DecorateForm(TVxFilterForm& aForm) {
  const bool isMulti = GetMultiSelect();
  std::vector<TFilterLine> lines;
  if (!isMulti) lines.push_back({u"ohne Wert", {}});
  if (Parent.GetCsvV() != nullptr && Parent.GetIndex() >= 0) {
    for (const detail::TColumnValue& value : detail::ColumnValues(*Parent.GetCsvV(), Parent.GetIndex(), true)) {
      if (value.Value.empty()) continue;
      lines.push_back({CaptionOf(Parent, value.Value), value.Value, value.Row, isMulti && IsAmongValues(value.Value)});
    }
  }
  // Numbers of images in their order.
  std::stable_sort(lines.begin(), lines.end(), [](const TFilterLine& a, const TFilterLine& b) {
    return StrToIntDef(a.Value, -1) < StrToIntDef(b.Value, -1);
  });
  const auto chosen = std::find_if(lines.begin(), lines.end(),
                                   [&](const TFilterLine& line) { return line.Value == Parent.GetValue(); });
  const int index = !isMulti && chosen != lines.end() ? static_cast<int>(chosen - lines.begin()) : -1;
  aForm.SetKind(isMulti ? ffChecks : ffList);
  aForm.SetOnDrawLine(TFilterLineEvent::Of<&TVxFilterImage::PaintLine>(*this));
  aForm.SetLines(std::move(lines));
  aForm.SetItemIndex(index);
}

void TVxFilterImage::TakeValue(const TVxFilterForm& aForm) {
  if (aForm.GetKind() == ffChecks) return Parent.PickValue(aForm.GetCheckedValues());
  const String value = aForm.GetLine(aForm.GetItemIndex()).Value;
  Parent.GetFilterForm().SetVisible(false);
  Parent.PickValue(value);
}

void TVxFilterImage::PaintLine(TCanvas& Canvas, int Line, TRect& Rect) {
  const TFilterLine& line = Parent.GetFilterForm().GetLine(Line);
  PaintValue(Canvas, Rect, line.Value, line.Row);
  if (line.Caption != line.Value) detail::PaintText(Canvas, Rect, line.Caption, clWindowText);
}

void TVxFilterImage::Paint(TCanvas& Canvas, const TRect& Rect) {
  Canvas.SetBrush({clWindow});
  Canvas.FillRect(Rect);
  if (FPassesAll || Parent.GetCsvV() == nullptr) return;
  const std::vector<String> values = GetMultiSelect() ? FValues : std::vector<String>{Parent.GetValue()};
  if (FRows.size() != values.size()) FRows = detail::RowsOfValues(*Parent.GetCsvV(), Parent.GetIndex(), values);
  TRect rest = Rect;
  for (size_t i = 0; i < values.size() && rest.Width() > 0; ++i) PaintValue(Canvas, rest, values[i], FRows[i]);
}

void TVxFilterImgDraw::PaintValue(TCanvas& Canvas, TRect& Rect, const String& aValue, int Row) {
  const int right = std::min(Rect.Left + Rect.Height(), Rect.Right);
  TRect place{Rect.Left, Rect.Top, right, Rect.Bottom};
  Rect.Left = right;
  if (!Parent.GetOnDrawCol() || Row < 0) return detail::PaintText(Canvas, place, aValue, clWindowText);
  const TCanvasState saved(Canvas);
  Canvas.IntersectClip(place);
  TDecoration plain;
  Parent.GetOnDrawCol()(Canvas, Parent.GetIndex(), Row, place, plain);
}

void TVxFilterImgList::PaintValue(TCanvas& Canvas, TRect& Rect, const String& aValue, int /*Row*/) {
  const TImageList* images = ImagesOf(Parent);
  const int index = StrToIntDef(aValue, -1);
  if (images == nullptr || index < 0 || index >= images->GetCount()) {
    detail::PaintText(Canvas, Rect, aValue, clWindowText);
    Rect.Left = std::min(Rect.Left + Canvas.TextWidth(aValue) + 4, Rect.Right);
    return;
  }
  const TCanvasState saved(Canvas);
  Canvas.IntersectClip(Rect);
  images->Draw(Canvas, Rect.Left + 1, Rect.Top + (Rect.Height() - images->GetHeight()) / 2, index);
  Rect.Left = std::min(Rect.Left + images->GetWidth() + 2, Rect.Right);
}

}  // namespace vx
