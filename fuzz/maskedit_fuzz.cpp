// A masked editor and the plain one under the same keys, pastes and changes of focus; and one with any settings, whose
// texts are canonical when it is left.
#include <cmath>

#include "controls/uVxMaskEdit.h"
#include "fuzz/support/PlainMaskEdit.h"
#include "fuzz/support/Values.h"
#include "platform/Clock.h"

namespace vx::fuzz {
namespace {

void CheckBesidePlain(TVxMaskMode Mode, TValues& Values) {
  const auto pick = [&Values](int low, int high) { return low + Values.Byte() % (high - low + 1); };
  TMaskPair pair(Mode, pick);
  for (int acts = Values.Byte() % 64; acts > 0; --acts) {
    pair.Act(pick);
    Check(pair.Real() == pair.Plain(), "an editor goes as its rules tell");
  }
  Check(pair.FinishedTwice().empty(), "what is left is canonical");
}

TFormatSettings AnySettings(TInput& Input) {
  TFormatSettings settings;
  settings.DecimalSeparator = Input.Unit();
  settings.ThousandSeparator = Input.Unit();
  settings.DateSeparator = Input.Unit();
  settings.TimeSeparator = Input.Unit();
  return settings;
}

void Configure(TVxMaskEdit& Edit, TValues& Values) {
  const unsigned flags = Values.Byte();
  Edit.SetAllowEmpty((flags & 1) != 0);
  Edit.SetDigitLimited((flags & 2) != 0);
  Edit.SetUseTausend((flags & 4) != 0);
  Edit.SetHintShow((flags & 8) != 0);
  Edit.SetLimitModus(static_cast<TVxLimitModes>(flags / 16 % 3));
  Edit.SetDecimaldigits(Values.Small());
  Edit.SetIntegerDiggits(Values.Small());
  if ((flags & 128) == 0) return;
  Edit.SetLimitationMin(Values.Int());
  Edit.SetLimitationMax(Values.Int());
  Edit.SetLimitDTMin(Values.Double());
  Edit.SetLimitDTMax(Values.Double());
}

void CheckCanonical(TVxMaskEdit& Edit, const char* Rule) {
  Edit.Finishing();
  const String once = Edit.GetText();
  const bool isValid = Edit.GetIsValid();
  Check(Edit.Validate() == isValid, "the canonical text is judged alike");
  Edit.Finishing();
  Check(Edit.GetText() == once && Edit.GetIsValid() == isValid, Rule);
}

// Each setter of the mode, and that its value reads back.
void CheckValues(TVxMaskEdit& Edit, TValues& Values) {
  switch (Edit.GetMaskMode()) {
    case mmInteger: {
      const int value = Values.Int();
      Edit.SetInteger(value);
      return Check(Edit.GetInteger() == value, "a whole number reads back");
    }
    case mmCurrency: {
      const Currency value = Currency::FromUnits(static_cast<int64_t>(Values.Bits()));
      Edit.SetCurrency(value);
      return Check(Edit.GetDigitLimited() || Edit.GetCurrency() == value, "an amount reads back");
    }
    case mmFloat:
    case mmPerc: {
      const double value = Values.Double();
      Edit.SetDouble(value);
      return Check(Edit.GetDigitLimited() || !std::isfinite(value) || Edit.GetDouble() == value, "a number reads back");
    }
    case mmDate: {
      const double value = static_cast<double>(Values.Bits(3) % 3652059) - 693593;
      Edit.SetDate(value);
      return Check(Edit.GetDate() == value, "a date reads back");
    }
    case mmHour: {
      // Hours and minutes/60 are rounded apart from one another, so that minutes are what is compared.
      const int minutes = Values.Int();
      Edit.sethour(Extended(minutes) / 60);
      return Check(std::llround(Edit.gethour() * 60) == minutes, "hours read back");
    }
    case mmSecond:
      return Edit.SetTime(Values.Double());
    default:
      return;
  }
}

}  // namespace

FUZZ(Input) {
  TManualClock clock(42046.25);
  TClockScope scope(clock);
  TFixedTimeZone zone(0);
  TTimeZoneScope zoneScope(zone);
  TValues values(Input);
  const unsigned kind = values.Byte();
  const auto mode = static_cast<TVxMaskMode>(kind / 2 % 11);
  if (kind % 2 == 0) return CheckBesidePlain(mode, values);

  TFormatSettingsScope settings(AnySettings(Input));
  TPlainEdit line;
  TVxMaskEdit edit(line);
  edit.SetMaskString(Input.Text());
  edit.SetMaskMode(mode);
  Configure(edit, values);
  CheckValues(edit, values);
  CheckCanonical(edit, "a value that was set is canonical");
  line.Enter();
  line.Paste(Input.Text());
  line.Type(Input.Text());
  for (int keys = values.Byte() % 16; keys > 0; --keys) line.Down(static_cast<uint16_t>(vkEnd + values.Byte() % 12));
  CheckCanonical(edit, "a text that was typed is canonical");
}

}  // namespace vx::fuzz
