#include <algorithm>

#include "controls/uVxMaskEdit/HourText.h"
#include "controls/uVxMaskEdit/TVxMaskEdit.h"
#include "controls/uVxMaskEdit/Template.h"
#include "controls/uVxMaskEdit/detail/FlagScope.h"
#include "controls/uVxMaskEdit/detail/Judging.h"
#include "controls/uVxMaskEdit/detail/Steps.h"
#include "platform/Text.h"

namespace vx {

namespace {

constexpr int kDateLength = 10, kMonthLength = 7;

bool IsSign(char16_t Char) noexcept { return Char == u'+' || Char == u'-'; }

}  // namespace

void TVxCustomMaskEdit::KeyPress(char16_t& Key) {
  if (Key == 0 || Key == chSelectAll || Key == chCopy || Key == chPaste) return;
  CharKeys(Key);
  if (Key != chEscape && !GetReadOnly()) Key = 0;
}

void TVxCustomMaskEdit::CharKeys(char16_t aChar) {
  if (aChar == 0 || aChar == chEscape || GetReadOnly()) return;
  if (aChar == chTab || aChar == chReturn) return Finishing();
  const String before = GetText();
  {
    const detail::TFlagScope changing(iChanging);
    if (aChar == chBack) {
      Backspace();
    } else {
      inputChar(aChar);
    }
  }
  if (GetText() != before) Changed();
}

void TVxCustomMaskEdit::Backspace() {
  const int place = GetSelStart();
  if (GetSelLength() > 0) return iWidget.SetSelText({});
  if (place == 0) return;
  if (iRules.iMaskMode == mmMask) {
    PutLiteral(place - 1);
    SetSelStart(place - 1);
  } else {
    SetSelStart(place - 1);
    iWidget.SetSelLength(1);
    iWidget.SetSelText({});
  }
}

// Puts what the template has at a place, counted from 0, instead of what stands there; what lies beyond the template
// goes.
void TVxCustomMaskEdit::PutLiteral(int aPlace) {
  if (aPlace >= GetText().size()) return;
  iWidget.SetSelStart(aPlace);
  iWidget.SetSelLength(1);
  iWidget.SetSelText(detail::EmptyPicture(iRules).Slice(aPlace, 1));
}

bool TVxCustomMaskEdit::HasRoom() const { return GetMaxLength() <= 0 || GetText().size() < GetMaxLength(); }

void TVxCustomMaskEdit::Insert(char16_t aChar) { iWidget.SetSelText({&aChar, 1}); }

int TVxCustomMaskEdit::ExistChar(char16_t aChar) const {
  const String text = GetText();
  return static_cast<int>(std::count(text.begin(), text.end(), aChar));
}

bool TVxCustomMaskEdit::CharAllowed(char16_t aChar, int aPosition) const noexcept {
  return vx::CharAllowed(iRules.iMaskString, aChar, aPosition);
}

void TVxCustomMaskEdit::inputChar(char16_t aChar) {
  const detail::TFlagScope changing(iChanging);
  if (GetSelLength() > 0) iWidget.SetSelText({});
  if (aChar < u' ') return;
  switch (iRules.iMaskMode) {
    case mmNone:
      if (HasRoom()) Insert(aChar);
      return;
    case mmInteger:
      return InputSigned(aChar, false);
    case mmFloat:
    case mmCurrency:
    case mmPerc:
      return InputSigned(aChar, true);
    case mmDate:
      return InputDate(aChar, kDateLength, 2);
    case mmMonth:
      return InputDate(aChar, kMonthLength, 1);
    case mmHour:
      return InputHour(aChar);
    case mmTime:
      return InputTime(aChar, 1);
    case mmSecond:
      return InputTime(aChar, 2);
    case mmMask:
      return InputMask(aChar);
  }
}

// A decimal separator does not count against the greatest length.
void TVxCustomMaskEdit::InputSigned(char16_t aChar, bool aWithDecimals) {
  const char16_t separator = iRules.iFormatSettings.DecimalSeparator;
  const bool isBeyond = aWithDecimals && ExistChar(separator) > 0;
  if (GetMaxLength() > 0 && GetText().size() > GetMaxLength() - (isBeyond ? 0 : 1)) return;
  const bool isFirstSign = IsSign(aChar) && GetSelStart() == 0 && ExistChar(aChar) == 0;
  const bool isFirstSeparator = aWithDecimals && aChar == separator && !isBeyond;
  if (isFirstSign || isFirstSeparator || IsDigit(aChar)) Insert(aChar);
}

void TVxCustomMaskEdit::InputDate(char16_t aChar, int aCursors, int aSeparators) {
  if (GetSelStart() >= aCursors || !HasRoom()) return;
  const bool isSeparator = aChar == iRules.iFormatSettings.DateSeparator && ExistChar(aChar) < aSeparators;
  if (isSeparator || IsDigit(aChar)) Insert(aChar);
}

void TVxCustomMaskEdit::InputHour(char16_t aChar) {
  const String text = GetText();
  const int most = GetMaxLength(), cursor = GetSelStart();
  if (most > 0 && CalStrToHourStr(Concat({text, {&aChar, 1}})).size() > most) return;
  const bool isNegative = text.view().starts_with(u'-');
  const char16_t separator = iRules.iFormatSettings.DecimalSeparator;
  if (aChar == u'+' && isNegative) {
    iWidget.SetText(text.Slice(1));
    SetSelStart(cursor);
  } else if (aChar == u'-' && !isNegative && HasRoom()) {
    iWidget.SetText(u"-" + text);
    SetSelStart(cursor + 1);
  } else if ((aChar == separator || aChar == u',') && ExistChar(separator) < 2 && HasRoom()) {
    Insert(separator);
  } else if (IsDigit(aChar) && HasRoom()) {
    Insert(aChar);
  }
}

void TVxCustomMaskEdit::InputTime(char16_t aChar, int aSeparators) {
  if (!HasRoom()) return;
  const char16_t separator = iRules.iFormatSettings.TimeSeparator;
  if (aChar == u',' || aChar == separator) {
    if (ExistChar(separator) < aSeparators) Insert(separator);
  } else if (IsDigit(aChar)) {
    Insert(aChar);
  }
}

// Places that look as if they were blank in the template are skipped, unless a blank is typed.
void TVxCustomMaskEdit::InputMask(char16_t aChar) {
  const int cursor = GetSelStart();
  TTemplateReader reader(iRules.iMaskString);
  TTemplatePlace place;
  for (int i = 0; reader.Next(place); ++i) {
    const bool isSkipped =
        aChar != u' ' && place.Unit == iRules.iBlankChar && (place.IsLiteral() || place.Unit == u'_');
    if (i < cursor || isSkipped) continue;
    if (place.Takes(aChar)) Overwrite(i, aChar);
    return;
  }
}

// A text that ends before that place gets what the template has up to there.
void TVxCustomMaskEdit::Overwrite(int aPlace, char16_t aChar) {
  const int size = GetText().size();
  if (aPlace >= size && GetMaxLength() > 0 && aPlace >= GetMaxLength()) return;
  SetSelStart(aPlace);
  iWidget.SetSelLength(1);
  if (aPlace > size) iWidget.SetSelText(detail::EmptyPicture(iRules).Slice(size, aPlace - size));
  Insert(aChar);
}

void TVxCustomMaskEdit::KeyDown(uint16_t& Key, TShiftState Shift) {
  if ((Key == vkUp || Key == vkDown) && !Shift.Has(ssAlt)) {
    DoTheArrowKey(Key);
    if (iRules.iMaskMode != mmNone && iRules.iMaskMode != mmMask) Key = 0;
  } else if (Key == vkDelete && !Shift.Has(ssShift) && !GetReadOnly()) {
    DeleteKey();
    Key = 0;
  } else if (Key == vkA && Shift.Has(ssCtrl)) {
    SetSelStart(0);
    SetSelLength(GetText().size());
    Key = 0;
  }
}

void TVxCustomMaskEdit::DeleteKey() {
  const String before = GetText();
  {
    const detail::TFlagScope changing(iChanging);
    const int cursor = GetSelStart();
    if (iRules.iMaskMode == mmMask) {
      PutLiteral(cursor);
    } else {
      if (GetSelLength() == 0) SetSelLength(1);
      iWidget.SetSelText({});
    }
    SetSelStart(cursor);
  }
  if (GetText() != before) Changed();
}

void TVxCustomMaskEdit::DoTheArrowKey(uint16_t aKey) {
  if ((aKey != vkUp && aKey != vkDown) || GetReadOnly() || !iIsValid) return;
  const String before = GetText();
  const int cursor = GetSelStart();
  String text;
  if (!detail::StepText(iRules, before, cursor, aKey == vkUp ? 1 : -1, text)) return;
  if (GetMaxLength() > 0 && text.size() > GetMaxLength()) return;
  HideHint();
  const detail::TFlagScope noHint(iHintShow, false);
  {
    const detail::TFlagScope changing(iChanging);
    iWidget.SetText(text);
    SetSelStart(cursor);
  }
  if (text != before) Changed();
}

}  // namespace vx
