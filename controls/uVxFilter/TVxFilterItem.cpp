#include "controls/uVxFilter/TVxFilterItem.h"

#include <algorithm>
#include <typeinfo>

#include "controls/uVxFilter/TVxFilter.h"
#include "controls/uVxFilter/TVxFilterImage.h"
#include "controls/uVxFilter/TVxFilterText.h"
#include "controls/uVxFilter/detail/ColumnValues.h"
#include "controls/uVxFilter/detail/TextTest.h"
#include "platform/Format.h"
#include "platform/Numbers.h"
#include "services/uMsg.h"
#include "tables/uTypeCsv.h"

namespace vx {

namespace {

// A column of at most so many different values offers them as a list.
constexpr int kFewValues = 7;

}  // namespace

TVxFilterItem::TVxFilterItem() : iFilterCore(std::make_unique<TVxFilterTextBox>(*this)) { iFilterCore->Update(); }
TVxFilterItem::~TVxFilterItem() = default;

TVxFilter* TVxFilterItem::GetFilter() const noexcept {
  return GetCollection() != nullptr ? static_cast<TVxFilterItems*>(GetCollection())->GetFilter() : nullptr;
}

// --- the value ---

void TVxFilterItem::SetValue(const String& aText) {
  if (aText != iValue) TakeValue(aText, false);
}

void TVxFilterItem::PickValue(const String& aText) {
  if (aText != iValue || !FIsPicked) TakeValue(aText, true);
}

void TVxFilterItem::TakeValue(const String& aText, bool IsPicked) {
  if (aText.view().starts_with(u'=')) {
    iRegEx = TRegEx(BuildRegEx(aText), {roIgnoreCase, roCompiled});
    FIsToldStopped = false;
  }
  iValue = aText;
  FIsPicked = IsPicked;
  Refresh();
  if (TVxFilter* bar = GetFilter()) bar->Changed();
}

String TVxFilterItem::BuildRegEx(std::u16string_view aValue) const {
  if (aValue.starts_with(u'=')) return String(aValue.substr(1));
  const TCells values = iFilterCore->GetMultiSelect() ? ReadCommatext(aValue) : TCells{String(aValue)};
  return detail::BuildExpression(values, iStrictValues);
}

void TVxFilterItem::SetData(TObject* Value) {
  if (iData == Value) return;
  iData = Value;
  Refresh();
  if (TVxFilter* bar = GetFilter()) bar->Changed();
}

void TVxFilterItem::TellStopped() {
  if (FIsToldStopped || !iRegEx.GetWasStopped()) return;
  FIsToldStopped = true;
  const String text = Format(
      u"Der Ausdruck \"%s\" ist für manche Zellen zu aufwendig. Diese Zellen gelten als nicht passend.", {iValue});
  TMsgReport()(Warning(text, u"Filter"), true);
}

// --- the kind ---

void TVxFilterItem::SetFilterType(TFilterType Value) {
  iFilterType = Value;
  SetItem();
}
void TVxFilterItem::SetMultiSelect(TFilterMultiSelect Value) {
  iMultiSelect = Value;
  SetItem();
}
void TVxFilterItem::SetStrictValues(bool Value) {
  iStrictValues = Value;
  Refresh();
}
void TVxFilterItem::SetIsFixedCol(bool Value) {
  iIsFixedCol = Value;
  SetItem();
}
void TVxFilterItem::SetCsvV(TCsvView* Value) {
  iCsvV = Value;
  SetItem();
}
void TVxFilterItem::SetOnDrawCol(TCallbackPostDraw Value) {
  iOnDrawCol = Value;
  SetItem();
}

TFilterType TVxFilterItem::GetEffectiveType() const {
  if (iIsFixedCol) return ftNone;
  if (iFilterType != ftAuto) return iFilterType;
  if (iCsvV == nullptr || GetIndex() < 0) return ftText;
  switch (iCsvV->GetDecorations().GetColumnFieldType(GetIndex())) {
    case vftGrafic:
      return ftNone;
    case vftBoolean:
    case vftStatus:
      return ftCboxText;
    case vftCommatext:
    case vftTinyHTML:
      return ftText;
    case vftImage:
    case vftToggle:
      return ftImage;
    default:
      return detail::HasMoreValues(*iCsvV, GetIndex(), kFewValues) ? ftText : ftCboxText;
  }
}

std::unique_ptr<TVxFilterCore> TVxFilterItem::GetFilterCore2() {
  std::unique_ptr<TVxFilterCore> core;
  switch (GetEffectiveType()) {
    case ftText:
      core = std::make_unique<TVxFilterTextBox>(*this);
      break;
    case ftCboxText:
      if (iMultiSelect == fmsYes)
        core = std::make_unique<TVxFilterCheckCBox>(*this);
      else
        core = std::make_unique<TVxFilterCBox>(*this);
      break;
    case ftImage:
      if (iOnDrawCol)
        core = std::make_unique<TVxFilterImgDraw>(*this);
      else
        core = std::make_unique<TVxFilterImgList>(*this);
      break;
    case ftData:
      core = std::make_unique<TVxFilterData>(*this);
      break;
    default:
      core = std::make_unique<TVxFilterNone>(*this);
      break;
  }
  const TVxFilterCore &made = *core, &present = *iFilterCore;
  if (typeid(made) == typeid(present)) core = nullptr;
  return core;
}

void TVxFilterItem::SetItem() {
  if (iCsvV != nullptr) {
    const TRect& fixed = iCsvV->GetDecorations().GetFixed();
    const bool isRight = fixed.Right > 0 && GetIndex() >= detail::CountColumns(*iCsvV) - fixed.Right;
    iIsFixedCol = GetIndex() >= 0 && (GetIndex() < fixed.Left || isRight);
  }
  if (std::unique_ptr<TVxFilterCore> core = GetFilterCore2()) {
    if (iFilterForm != nullptr) iFilterForm->SetOnDrawLine({});  // the core's, if any
    iFilterCore = std::move(core);
  }
  if (auto* text = dynamic_cast<TVxFilterText*>(iFilterCore.get())) {
    const bool hasColumn = iCsvV != nullptr && GetIndex() >= 0;
    text->SetIsCommatext(hasColumn && iCsvV->GetDecorations().GetColumnFieldType(GetIndex()) == vftCommatext);
  }
  Refresh();
}

void TVxFilterItem::Refresh() {
  iFilterCore->Update();
  Changed(false);
}

// --- the look ---

void TVxFilterItem::SetLeft(int Value) {
  if (iLeft == Value) return;
  iLeft = Value;
  Changed(false);
}
void TVxFilterItem::SetWidth(int Value) {
  iWidth = std::max(Value, 0);
  Changed(false);
}
void TVxFilterItem::SetImageList(TImageList* Value) {
  iImageList = Value;
  Changed(false);
}

// --- the user ---

void TVxFilterItem::Click() {
  if (iOnClick) iOnClick(this);
  iFilterCore->Click();
}

TVxFilterForm& TVxFilterItem::GetFilterForm() {
  if (iFilterForm == nullptr) {
    iFilterForm = std::make_unique<TVxFilterForm>();
    iFilterForm->SetOnChange(TNotifyEvent::Of<&TVxFilterItem::FormChanged>(*this));
    iFilterForm->SetOnKeyPress(TFilterKeyEvent::Of<&TVxFilterItem::FormKeyPress>(*this));
    iFilterForm->SetOnButton(TNotifyEvent::Of<&TVxFilterItem::FormButton>(*this));
  }
  return *iFilterForm;
}

void TVxFilterItem::FormChanged(TObject* Sender) { iFilterCore->OnChange(Sender); }
void TVxFilterItem::FormKeyPress(TObject* Sender, char16_t& Key) { iFilterCore->OnKeyPress(Sender, Key); }

// The same value tests otherwise now.
void TVxFilterItem::FormButton(TObject* /*Sender*/) {
  SetMultiSelect(iFilterForm->GetButton().Down ? fmsYes : fmsNo);
  iFilterCore->Click();
  TVxFilter* bar = GetFilter();
  if (bar != nullptr && !iValue.empty()) bar->Changed();
}

// --- the list ---

std::unique_ptr<TCollectionItem> TVxFilterItems::NewItem() { return std::make_unique<TVxFilterItem>(); }

TVxFilterItem& TVxFilterItems::Named(TCollectionItem& Item) {
  auto& item = static_cast<TVxFilterItem&>(Item);
  item.SetName(u"FilterItem" + IntToStr(item.GetIndex() + 1));
  if (FFilter != nullptr && FFilter->GetView() != nullptr) item.SetCsvV(FFilter->GetView());
  return item;
}

void TVxFilterItems::Update(TCollectionItem* /*Item*/) {
  if (FFilter != nullptr) FFilter->Invalidate();
}

}  // namespace vx
