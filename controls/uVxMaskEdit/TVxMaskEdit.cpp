#include "controls/uVxMaskEdit/TVxMaskEdit.h"

#include <utility>

#include "controls/uVxMaskEdit/detail/FlagScope.h"
#include "controls/uVxMaskEdit/detail/Judging.h"
#include "controls/uVxMaskEdit/detail/TimeKinds.h"
#include "core/uVxFunctionsTime.h"

namespace vx {

namespace {

constexpr int kTimeLength = 10;
constexpr int kHourDigits = 2;

TDateTime MostTime() {
  TDateTime hours;
  VxStrToHour(u"99999:59", hours);
  return hours;
}

}  // namespace

TVxCustomMaskEdit::TVxCustomMaskEdit() : iOwnWidget(std::make_unique<TPlainEdit>()), iWidget(*iOwnWidget) {
  Init();
  iWidget.SetEvents(this);
}

TVxCustomMaskEdit::TVxCustomMaskEdit(TCustomEdit& aWidget) : iWidget(aWidget) {
  Init();
  iWidget.SetEvents(this);
}

TVxCustomMaskEdit::~TVxCustomMaskEdit() { iWidget.SetEvents(nullptr); }

void TVxCustomMaskEdit::Init() {
  LeaveMode();
  iRules = {};
  iSides = {};
  iStatus = {};
  iAutoSkip = true;
  iChanged = iHintShow = false;
  OnBeforeChange = OnChange = OnChanged = nullptr;
  SetMaskMode(mmNone);
}

void TVxCustomMaskEdit::SetMaskMode(TVxMaskMode aMode) {
  LeaveMode();
  iRules.iMaskMode = aMode;
  iRules.iFormatSettings = detail::FieldSettings(vx::GetFormatSettings());
  iSides.PreStr.clear();
  iSides.PostStr.clear();
  SetAlignment(taLeftJustify);
  EnterMode();
  iWidget.ShowSides(iSides);
  BeginText(detail::EmptyPicture(iRules));
}

void TVxCustomMaskEdit::EnterMode() {
  switch (iRules.iMaskMode) {
    case mmInteger:
    case mmFloat:
      return SetAlignment(taRightJustify);
    case mmPerc:
      iSides.PostStr = String(u"%");
      return SetAlignment(taRightJustify);
    case mmCurrency:
      return EnterCurrency();
    case mmHour:
      return EnterHours();
    case mmTime:
    case mmSecond:
      return SetMaxLength(kTimeLength);
    default:
      return;
  }
}

void TVxCustomMaskEdit::EnterCurrency() {
  const TFormatSettings& settings = iRules.iFormatSettings;
  const bool isInFront = settings.CurrencyFormat == 0 || settings.CurrencyFormat == 2;
  (isInFront ? iSides.PreStr : iSides.PostStr) = settings.CurrencyString;
  SetAlignment(isInFront ? taLeftJustify : taRightJustify);
}

// What the mode has set and nobody has changed since goes with it.
void TVxCustomMaskEdit::LeaveMode() {
  const TVxMaskMode mode = iRules.iMaskMode;
  if ((mode == mmHour || mode == mmTime || mode == mmSecond) && GetMaxLength() == kTimeLength) SetMaxLength(0);
  if (mode != mmHour) return;
  const TMaskRules none;
  if (iRules.iMMMin == -detail::kMostHours) iRules.iMMMin = none.iMMMin;
  if (iRules.iMMMax == detail::kMostHours) iRules.iMMMax = none.iMMMax;
  if (iRules.iDTMin == -MostTime()) iRules.iDTMin = none.iDTMin;
  if (iRules.iDTMax == MostTime()) iRules.iDTMax = none.iDTMax;
  if (iRules.iDecimaldigits == kHourDigits) iRules.iDecimaldigits = none.iDecimaldigits;
  iRules.iDigitLimit = none.iDigitLimit;
}

void TVxCustomMaskEdit::UseColons() {
  TFormatSettings& settings = iRules.iFormatSettings;
  settings.DecimalSeparator = settings.TimeSeparator = u':';
  if (settings.ThousandSeparator == u':') settings.ThousandSeparator = 0;
}

void TVxCustomMaskEdit::EnterHours() {
  UseColons();
  iRules.iMMMin = -detail::kMostHours;
  iRules.iMMMax = detail::kMostHours;
  iRules.iDTMin = -MostTime();
  iRules.iDTMax = MostTime();
  iRules.iDecimaldigits = kHourDigits;
  iRules.iDigitLimit = true;
  SetMaxLength(kTimeLength);
}

void TVxCustomMaskEdit::BeginText(const String& aText) {
  const detail::TFlagScope changing(iChanging);
  iWidget.SetText(aText);
  iBackBuffer = aText;
  iChanged = false;
  iIsValid = true;
  HideHint();
  RefreshStatus();
}

void TVxCustomMaskEdit::SetMaskString(String aMask) {
  iRules.iMaskString = std::move(aMask);
  if (iRules.iMaskMode == mmMask) BeginText(detail::EmptyPicture(iRules));
}

void TVxCustomMaskEdit::SetBlankChar(char16_t aChar) {
  iRules.iBlankChar = aChar;
  if (iRules.iMaskMode == mmMask) BeginText(detail::EmptyPicture(iRules));
}

void TVxCustomMaskEdit::SetFormatSettings(const TFormatSettings& aSettings) {
  const String before = detail::EmptyPicture(iRules);
  iRules.iFormatSettings = detail::FieldSettings(aSettings);
  if (iRules.iMaskMode == mmHour) UseColons();
  const String picture = detail::EmptyPicture(iRules);
  if (picture != before && GetText() == before) BeginText(picture);
}

void TVxCustomMaskEdit::SetText(const String& aText) { WriteValue(aText); }

// Writes without a word to anybody, and judges what stands there then.
void TVxCustomMaskEdit::WriteValue(const String& aText) {
  {
    const detail::TFlagScope changing(iChanging);
    iWidget.SetText(aText);
  }
  Validate(false);
}

bool TVxCustomMaskEdit::Validate(bool aRepair) {
  const detail::TJudgeWish wish = aRepair ? detail::jwRepair : iHintShow ? detail::jwHint : detail::jwCheck;
  const detail::TJudgement judgement = detail::Judge(iRules, GetText(), wish);
  iIsValid = judgement.IsValid;
  if (aRepair && iIsValid) {
    const detail::TFlagScope changing(iChanging);
    iWidget.SetText(judgement.Text);
    iWidget.SetSelStart(judgement.Text.size());
  }
  if (wish == detail::jwHint) iWidget.ShowHint(judgement.Hint);
  RefreshStatus();
  return iIsValid;
}

void TVxCustomMaskEdit::Finishing() {
  Validate(true);
  if (iIsValid && iChanged && !iReporting && iWidget.HasForm() && GetText() != iBackBuffer) {
    const detail::TFlagScope reporting(iReporting);
    if (OnChange) OnChange(this);
    if (OnChanged) OnChanged(this);
    iChanged = false;
  }
  HideHint();
  RefreshStatus();
}

// The user has edited.
void TVxCustomMaskEdit::Changed() {
  if (OnBeforeChange) OnBeforeChange(this);
  iChanged = true;
  Validate(false);
}

void TVxCustomMaskEdit::Change() {
  if (!iChanging) Changed();
}

void TVxCustomMaskEdit::DoEnter() { iBackBuffer = GetText(); }

void TVxCustomMaskEdit::DoExit() {
  if (!GetReadOnly()) Finishing();
}

void TVxCustomMaskEdit::HideHint() { iWidget.ShowHint({}); }

void TVxCustomMaskEdit::RefreshStatus() {
  iStatus.IsValid = iIsValid;
  iWidget.ShowStatus(iStatus);
}

void TVxCustomMaskEdit::SetPreStr(String aText) {
  iSides.PreStr = std::move(aText);
  iWidget.ShowSides(iSides);
}

void TVxCustomMaskEdit::SetPostStr(String aText) {
  iSides.PostStr = std::move(aText);
  iWidget.ShowSides(iSides);
}

void TVxCustomMaskEdit::SetPreImage(const TBitmap* aImage) {
  iSides.PreImage = aImage;
  iWidget.ShowSides(iSides);
}

void TVxCustomMaskEdit::SetPostImage(const TBitmap* aImage) {
  iSides.PostImage = aImage;
  iWidget.ShowSides(iSides);
}

void TVxCustomMaskEdit::SetErrorImage(const TBitmap* aImage) {
  iStatus.ErrorImage = aImage;
  RefreshStatus();
}

void TVxCustomMaskEdit::SetInvalidColor(TColor aColor) {
  iStatus.InvalidColor = aColor;
  RefreshStatus();
}

void TVxCustomMaskEdit::SetShowValidStatus(bool aShow) {
  iStatus.IsShown = aShow;
  RefreshStatus();
}

void TVxCustomMaskEdit::SetHintShow(bool aShow) {
  iHintShow = aShow;
  if (!aShow) HideHint();
}

}  // namespace vx
