// A dialogue with masked editors, as text: each line is what a person does, then the field with its cursor | or its
// selection [ ], what the hint says, and ! where the value is not valid.
//   edit_dialogue
// Fills in a service: its date, its time, the hours, the price, a month for the invoice and a number under a template.
#include <cstdio>
#include <string>

#include "controls/uVxMaskEdit.h"
#include "platform/Clock.h"
#include "platform/DateText.h"

namespace {

// A field on a form without a screen, and its label.
class TField : public vx::TObject {
 public:
  TField(const char* Label, vx::TVxMaskMode Mode) : FLabel(Label) {
    Edit.SetMaskMode(Mode);
    Edit.SetHintShow(true);
    Edit.OnChanged = vx::TNotifyEvent::Of<&TField::Changed>(*this);
    std::printf("\n%s\n", Label);
    Show("");
  }

  TField& Type(std::u16string_view Keys) {
    FLine.Type(Keys);
    if (Keys == u"\b") return Show("Backspace");
    return Show(Keys == u"\r" ? "Return" : "types " + vx::String(Keys).ToUtf8());
  }
  TField& Press(const char* Name, uint16_t Key, int Times = 1) {
    for (int i = 0; i < Times; ++i) FLine.Down(Key);
    return Show(Name);
  }
  TField& Paste(std::u16string_view Text) {
    FLine.Paste(Text);
    return Show("pastes " + vx::String(Text).ToUtf8());
  }
  TField& Enter() {
    FLine.Enter();
    return Show("enters");
  }
  TField& Leave() {
    FLine.Exit();
    return Show("leaves");
  }

 private:
  TField& Show(const std::string& Done) {
    const std::string text = FLine.GetText().ToUtf8();
    const auto start = static_cast<size_t>(FLine.GetSelStart()), length = static_cast<size_t>(FLine.GetSelLength());
    const std::string shown = FLine.GetSides().PreStr.ToUtf8() + text.substr(0, start) + (length > 0 ? "[" : "|") +
                              text.substr(start, length) + (length > 0 ? "]" : "") + text.substr(start + length) + " " +
                              FLine.GetSides().PostStr.ToUtf8();
    const std::string hint = FLine.GetHint().ToUtf8();
    std::printf("  %-20s  %-18s %s %s\n", Done.c_str(), shown.c_str(), FLine.GetStatus().IsValid ? " " : "!",
                hint.c_str());
    return *this;
  }
  void Changed(vx::TObject*) { std::printf("  (%s is told: %s)\n", FLabel, Edit.GetText().ToUtf8().c_str()); }

  vx::TPlainEdit FLine;
  const char* FLabel;

 public:
  vx::TVxMaskEdit Edit{FLine};
};

}  // namespace

int main() {
  vx::TManualClock clock(vx::StrToDate(u"11.02.2024"));  // the same dialogue every day
  vx::TClockScope scope(clock);
  TField date("Date, from 2015 to 2030", vx::mmDate);
  date.Edit.SetLimitDTMin(vx::StrToDate(u"01.01.2015"));
  date.Edit.SetLimitDTMax(vx::StrToDate(u"31.12.2030"));
  date.Enter().Type(u"31").Type(u"01x24").Leave();
  date.Enter().Press("Home", vx::vkHome).Press("3 times Right", vx::vkRight, 3).Press("Up", vx::vkUp);
  date.Enter().Type(u"30.02.2024").Leave().Enter().Type(u"02022044").Leave();

  TField time("Time", vx::mmTime);
  time.Enter().Type(u"8").Type(u"75").Leave().Press("Up", vx::vkUp).Type(u"\r");
  time.Enter().Type(u"24:00").Leave();

  TField hours("Hours in the month, at most 200", vx::mmHour);
  hours.Edit.SetLimitationMin(0);
  hours.Edit.SetLimitationMax(200);
  hours.Enter().Type(u"130").Type(u"-").Leave();
  hours.Enter().Type(u"38,5").Press("Up", vx::vkUp).Leave();
  std::printf("  as a number: %.4Lf\n", hours.Edit.gethour());

  TField price("Price, two decimals, thousands", vx::mmCurrency);
  price.Edit.SetDigitLimited(true);
  price.Edit.SetDecimaldigits(2);
  price.Edit.SetUseTausend(true);
  price.Enter().Type(u"1234,5,x0").Leave().Press("Left", vx::vkLeft).Press("Up", vx::vkUp).Leave();

  TField month("Month of the invoice", vx::mmMonth);
  month.Enter().Type(u"12").Leave().Press("Home", vx::vkHome).Press("Up", vx::vkUp);

  TField insurance("Insurance number under >000000009", vx::mmMask);
  insurance.Edit.SetMaskString(u">000000009");
  insurance.Press("Home", vx::vkHome).Type(u"aA12345678").Type(u"0").Type(u"9").Paste(u"!!").Type(u"\b").Leave();

  try {
    time.Edit.SetDate(vx::StrToDate(u"11.02.2015"));
  } catch (const vx::EInvalidInsert& error) {
    std::printf("\nA date for the time: %s\n", error.what());
    return 0;
  }
  return 1;
}
