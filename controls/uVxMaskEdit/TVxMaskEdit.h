// The masked editor itself; uVxMaskEdit.h tells what it is for.
//
// Threads: all of it belongs to the thread of its window.
#pragma once

#include <memory>

#include "controls/uVxMaskEdit/MaskTypes.h"
#include "platform/Currency.h"
#include "platform/Method.h"
#include "platform/TCustomEdit.h"

namespace vx {

// Keys and focus come in by the members of TEditEvents, which the widget calls. Whatever stands behind Widget is the
// widget's: text, cursor, selection, the greatest length.
class TVxCustomMaskEdit : public TObject, public TEditEvents {
 public:
  // With a widget of its own, a TPlainEdit.
  TVxCustomMaskEdit();
  // For aWidget, which stays the caller's and has to live longer.
  explicit TVxCustomMaskEdit(TCustomEdit& aWidget);
  ~TVxCustomMaskEdit() override;
  TVxCustomMaskEdit(const TVxCustomMaskEdit&) = delete;
  TVxCustomMaskEdit& operator=(const TVxCustomMaskEdit&) = delete;
  String ClassName() const override { return u"TVxCustomMaskEdit"; }

  // All settings as they are at first, and the mode mmNone.
  void Init();
  TCustomEdit& GetWidget() const noexcept { return iWidget; }

  // --- The mode. Setting it takes the program's format settings afresh, empties the text or gives it the empty picture
  // of the mode, and sets alignment and the texts beside it. mmHour, mmTime and mmSecond set MaxLength to 10; mmHour
  // sets limits, decimals and DigitLimited, too. What of this nobody has changed goes when the mode is left.
  TVxMaskMode GetMaskMode() const noexcept { return iRules.iMaskMode; }
  void SetMaskMode(TVxMaskMode aMode);
  // The template of mmMask, and what stands at its places that are not filled in yet. In mmMask the text begins anew.
  const String& GetMaskString() const noexcept { return iRules.iMaskString; }
  void SetMaskString(String aMask);
  char16_t GetBlankChar() const noexcept { return iRules.iBlankChar; }
  void SetBlankChar(char16_t aChar);

  // --- The text. SetText makes no change that OnChanged would tell; it may be longer than MaxLength.
  String GetText() const { return iWidget.GetText(); }
  void SetText(const String& aText);
  int GetSelStart() const { return iWidget.GetSelStart(); }
  void SetSelStart(int aPlace) { iWidget.SetSelStart(aPlace); }
  int GetSelLength() const { return iWidget.GetSelLength(); }
  void SetSelLength(int aLength) { iWidget.SetSelLength(aLength); }
  String GetSelText() const { return iWidget.GetSelText(); }
  void SetSelText(std::u16string_view aText) { iWidget.SetSelText(aText); }  // counts as an edit of the user
  int GetMaxLength() const { return iWidget.GetMaxLength(); }
  void SetMaxLength(int aLength) { iWidget.SetMaxLength(aLength); }
  bool GetReadOnly() const { return iWidget.GetReadOnly(); }
  void SetReadOnly(bool aReadOnly) { iWidget.SetReadOnly(aReadOnly); }
  TAlignment GetAlignment() const { return iWidget.GetAlignment(); }
  void SetAlignment(TAlignment aAlignment) { iWidget.SetAlignment(aAlignment); }

  // --- The value. To... reads the text as it stands, whatever the mode; false, with the value 0, where it is none.
  // A date is none in an empty picture. 1.0, to the millisecond, is the time 24:00.
  bool ToInteger(int& aValue) const;
  bool ToFloat(Extended& aValue) const;
  bool ToDouble(double& aValue) const;
  bool ToCurrency(Currency& aValue) const;
  bool ToDate(TDateTime& aValue) const;  // in mmMonth the first day of the month
  bool ToTime(TDateTime& aValue) const;
  bool toHour(Extended& aHours) const;
  bool toMinute(int& aMinutes) const;
  // The same value, 0 where there is none.
  int GetInteger() const;
  Extended GetFloat() const;
  double GetDouble() const;
  Currency GetCurrency() const;
  TDateTime GetDate() const;
  TDateTime GetTime() const;
  Extended gethour() const;
  int getMinute() const;
  // Writes the value as it stays when the field is left, and asks whether it is valid; limits change nothing here. The
  // date 0 gives the empty picture; a number that is none gives u"NAN" or u"INF", which is invalid. In a mode for other
  // values EInvalidInsert "MaskMode ist nicht auf mmInteger gesetzt!" and so on.
  void SetInteger(int aValue);
  void setMinute(int aMinutes);  // in mmInteger
  void SetFloat(Extended aValue);
  void SetDouble(double aValue);
  void SetCurrency(Currency aValue);
  void SetDate(TDateTime aValue);
  void SetTime(TDateTime aValue);
  void sethour(Extended aHours);  // to the nearest minute

  // --- Validity. Validate asks whether the text is a value within the limits; with aRepair it completes the text,
  // holds the value to the limits and writes it in the form that stays. An invalid text stays as it is.
  bool Validate(bool aRepair = false);
  bool GetIsValid() const noexcept { return iIsValid; }
  // Repairs, and tells OnChange and OnChanged where the widget stands on a form and the user has brought another valid
  // text than there was at entry.
  void Finishing();
  bool CharAllowed(char16_t aChar, int aPosition) const noexcept;  // under the template; positions count from 1
  int ExistChar(char16_t aChar) const;                             // how often the text has it

  // --- What the user does.
  void KeyDown(uint16_t& Key, TShiftState Shift) override;
  void KeyPress(char16_t& Key) override;
  void Change() override;
  void DoEnter() override;
  void DoExit() override;
  // A character but those of the clipboard; one that the mode does not take removes the selection all the same.
  void CharKeys(char16_t aChar);
  void inputChar(char16_t aChar);
  // vkUp or vkDown; nothing in a field that is read only or invalid.
  void DoTheArrowKey(uint16_t aKey);

  // --- Settings of the rules; each counts from the next validation on.
  bool GetAllowEmpty() const noexcept { return iRules.iAllowEmpty; }
  void SetAllowEmpty(bool aAllow) noexcept { iRules.iAllowEmpty = aAllow; }
  int GetDecimaldigits() const noexcept { return iRules.iDecimaldigits; }
  void SetDecimaldigits(int aDigits) noexcept { iRules.iDecimaldigits = aDigits; }
  bool GetDigitLimited() const noexcept { return iRules.iDigitLimit; }
  void SetDigitLimited(bool aLimited) noexcept { iRules.iDigitLimit = aLimited; }
  bool GetUseTausend() const noexcept { return iRules.iUseTausend; }
  void SetUseTausend(bool aUse) noexcept { iRules.iUseTausend = aUse; }
  int GetIntegerDiggits() const noexcept { return iRules.iZerosInFront; }
  void SetIntegerDiggits(int aDigits) noexcept { iRules.iZerosInFront = aDigits; }
  TVxLimitModes GetLimitModus() const noexcept { return iRules.iLimitMode; }
  void SetLimitModus(TVxLimitModes aMode) noexcept { iRules.iLimitMode = aMode; }
  // Of numbers, and of hours. Where the lower limit lies above the upper one, the upper one counts.
  int GetLimitationMin() const noexcept { return iRules.iMMMin; }
  void SetLimitationMin(int aLimit) noexcept { iRules.iMMMin = aLimit; }
  int GetLimitationMax() const noexcept { return iRules.iMMMax; }
  void SetLimitationMax(int aLimit) noexcept { iRules.iMMMax = aLimit; }
  // Of dates, times and hours, to the day, month, minute or second that the mode shows.
  TDateTime GetLimitDTMin() const noexcept { return iRules.iDTMin; }
  void SetLimitDTMin(TDateTime aLimit) noexcept { iRules.iDTMin = aLimit; }
  TDateTime GetLimitDTMax() const noexcept { return iRules.iDTMax; }
  void SetLimitDTMax(TDateTime aLimit) noexcept { iRules.iDTMax = aLimit; }
  // The separators of the field, until the mode is set. Dates are of day, month and year whatever the settings say, and
  // hours have ":". An empty picture is shown with the new ones; any other text stays as it is.
  const TFormatSettings& GetFormatSettings() const noexcept { return iRules.iFormatSettings; }
  void SetFormatSettings(const TFormatSettings& aSettings);

  // --- What is shown beside the text. Images stay the caller's.
  bool GetAutoSkip() const noexcept { return iAutoSkip; }  // for the desktop; no rule here asks for it
  void SetAutoSkip(bool aSkip) noexcept { iAutoSkip = aSkip; }
  const String& GetPreStr() const noexcept { return iSides.PreStr; }
  void SetPreStr(String aText);
  const String& GetPostStr() const noexcept { return iSides.PostStr; }
  void SetPostStr(String aText);
  const TBitmap* GetPreImage() const noexcept { return iSides.PreImage; }
  void SetPreImage(const TBitmap* aImage);
  const TBitmap* GetPostImage() const noexcept { return iSides.PostImage; }
  void SetPostImage(const TBitmap* aImage);
  const TBitmap* GetErrorImage() const noexcept { return iStatus.ErrorImage; }
  void SetErrorImage(const TBitmap* aImage);
  TColor GetInvalidColor() const noexcept { return iStatus.InvalidColor; }
  void SetInvalidColor(TColor aColor);
  bool GetShowValidStatus() const noexcept { return iStatus.IsShown; }
  void SetShowValidStatus(bool aShow);
  // While the user types, a hint tells what would be stored.
  bool GetHintShow() const noexcept { return iHintShow; }
  void SetHintShow(bool aShow);

  // --- Events. Each edit of the user is told to OnBeforeChange, before it is judged; the others tell of the value when
  // the field is left.
  TNotifyEvent OnBeforeChange, OnChange, OnChanged;

 private:
  void WriteValue(const String& aText);
  void WriteNumber(const String& aText);
  void RequireMode(bool aFits, const char16_t* aModes) const;
  void Changed();
  void HideHint();
  void RefreshStatus();
  void BeginText(const String& aText);
  void EnterHours();
  void UseColons();
  void EnterCurrency();
  void EnterMode();
  void LeaveMode();
  bool HasRoom() const;
  void Insert(char16_t aChar);
  void InputSigned(char16_t aChar, bool aWithDecimals);
  void InputDate(char16_t aChar, int aCursors, int aSeparators);
  void InputHour(char16_t aChar);
  void InputTime(char16_t aChar, int aSeparators);
  void InputMask(char16_t aChar);
  void Overwrite(int aPlace, char16_t aChar);
  void Backspace();
  void DeleteKey();
  void PutLiteral(int aPlace);

  std::unique_ptr<TPlainEdit> iOwnWidget;
  TCustomEdit& iWidget;
  TMaskRules iRules;
  TEditSides iSides;
  TEditStatus iStatus;
  String iBackBuffer;  // the empty picture, and the text at entry
  bool iAutoSkip = true;
  bool iChanged = false;   // since the last report
  bool iChanging = false;  // the control itself writes
  bool iReporting = false;
  bool iIsValid = true;
  bool iHintShow = false;
};

// The editor that applications use.
class TVxMaskEdit : public TVxCustomMaskEdit {
 public:
  using TVxCustomMaskEdit::TVxCustomMaskEdit;
  String ClassName() const override { return u"TVxMaskEdit"; }
};

}  // namespace vx
