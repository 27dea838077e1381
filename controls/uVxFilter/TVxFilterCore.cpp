#include "controls/uVxFilter/TVxFilterCore.h"

#include "controls/uVxFilter/TVxFilter.h"
#include "controls/uVxFilter/TVxFilterItem.h"
#include "platform/TCanvas.h"

namespace vx {

namespace {

constexpr char16_t kEnter = 13;
constexpr char16_t kEscape = 27;

}  // namespace

// Whoever hears of a new value may take the item away: nothing of it is touched behind TakeValue.
void TVxFilterCore::OnChange(TObject* /*Sender*/) { TakeValue(Parent.GetFilterForm()); }

void TVxFilterCore::OnKeyPress(TObject* /*Sender*/, char16_t& Key) {
  if (Key != kEnter && Key != kEscape) return;
  const bool isTaken = Key == kEnter;
  Key = 0;
  TVxFilterForm& form = Parent.GetFilterForm();
  form.SetVisible(false);
  if (!isTaken) return;
  try {
    TakeValue(form);
  } catch (const ERegularExpressionError&) {
    form.SetVisible(true);
    throw;
  }
}

void TVxFilterCore::Click() {
  TVxFilterForm& form = Parent.GetFilterForm();
  TFilterButton button = form.GetButton();
  button.Down = GetMultiSelect();
  form.SetButton(button);
  DecorateForm(form);
  if (const TVxFilter* bar = Parent.GetFilter()) {
    const TPoint place = bar->ClientToScreen({Parent.GetLeft(), bar->GetHeight()});
    form.SetBounds({place.X, place.Y, place.X + form.GetWidth(), place.Y + form.GetHeight()});
  }
  form.SetVisible(true);
  form.Invalidate();
}

bool TVxFilterData::Check(std::u16string_view /*aValue*/, TObject* aObject) const {
  return Parent.GetData() == nullptr || aObject == Parent.GetData();
}

void TVxFilterData::Update() { FPassesAll = Parent.GetData() == nullptr; }

void TVxFilterData::Paint(TCanvas& Canvas, const TRect& Rect) {
  Canvas.SetBrush({clWindow});
  Canvas.FillRect(Rect);
}

}  // namespace vx
