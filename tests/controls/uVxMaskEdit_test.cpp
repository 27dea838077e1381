#include "controls/uVxMaskEdit.h"

#include "fuzz/support/PlainMaskEdit.h"
#include "platform/DateText.h"
#include "platform/TCustomEdit.h"
#include "tests/support/Test.h"

namespace {

constexpr TDateTime kToday = 42046.25;  // 11.02.2015 06:00

// A field that a person has entered. In a script ↑ ↓ ← → are keys, ⇤ and ⇥ Home and End, ⌦ and \b the keys that
// remove, ⇄ leaves the field and enters it again, « cuts the text down to what was typed before.
struct TField {
  explicit TField(TVxMaskMode Mode, std::u16string_view Template = {}) {
    Edit.SetMaskString(Template);
    Edit.SetMaskMode(Mode);
    Line.Enter();
  }
  TField& Do(std::u16string_view Script) {
    const std::u16string_view keys = u"←↑→↓⇤⇥⌦";
    constexpr uint16_t codes[] = {vkLeft, vkUp, vkRight, vkDown, vkHome, vkEnd, vkDelete};
    for (char16_t unit : Script) {
      if (const size_t at = keys.find(unit); at != keys.npos) {
        Line.Down(codes[at]);
      } else if (unit == u'⇄') {
        Line.Exit();
        Line.Enter();
      } else {
        Line.Type({&unit, 1});
      }
    }
    return *this;
  }
  // The text with | at the cursor or [ ] around the selection, and ! behind an invalid one.
  String Shown() const {
    const String whole = Line.GetText();
    const std::u16string_view text = whole;
    const auto start = static_cast<size_t>(Line.GetSelStart()), length = static_cast<size_t>(Line.GetSelLength());
    return Concat({text.substr(0, start), length > 0 ? u"[" : u"|", text.substr(start, length), length > 0 ? u"]" : u"",
                   text.substr(start + length), Edit.GetIsValid() ? u"" : u"!"});
  }
  TPlainEdit Line;
  TVxMaskEdit Edit{Line};
};

// What each script, between two blanks and " = ", leads to; where it ends by leaving the field, leaving once more as
// well.
void ExpectShown(const TCases<TVxMaskMode, String>& Cases) {
  for (const auto& [mode, text] : Cases) {
    for (std::u16string_view rest = text; !rest.empty();) {
      const std::u16string_view row = rest.substr(0, rest.find(u"  "));
      rest.remove_prefix(std::min(rest.size(), row.size() + 2));
      const std::u16string_view script = row.substr(0, row.find(u" = ")), shown = row.substr(script.size() + 3);
      TField field(mode);
      EXPECT_EQ(field.Do(script).Shown(), shown) << String(script);
      if (!script.ends_with(u'⇄')) continue;
      EXPECT_EQ(field.Do(u"⇄").Shown(), shown) << String(script);
    }
  }
}

struct MaskEdit : testing::Test {
  test::TClockAt Clock{kToday};
  test::TZoneAt Zone{0};
};

TEST_F(MaskEdit, TakesWhatCanBecomeAValue) {
  const TCases<TVxMaskMode, String> cases{
      {mmNone, u"a\u0001Ä\b→b = ab|"},
      {mmInteger, u"+-1x2,3+ = +123|  12⇤-⇥→ = -12|  99999999999 = 99999999999|!  12⇄x = |!"},
      {mmFloat, u"1,,2-⇤-+⇤+ = +|-1,2!  12,5\b\b\b⇤⌦ = |!"},
      {mmDate, u"1.2.3.45678901 = 1.2.345678|!  11.02.20159←9 = 11.02.2019|5!"},
      {mmMonth, u"1.2.20159 = 1.22015|!"},
      {mmHour, u"1,3:0: = 1:3:0|  130- = -130|  130-+ = 130|  -999999999999 = -9999999|!"},
      {mmTime, u"1,3:0 = 1:30|"},
      {mmSecond, u"1,3:0:5 = 1:3:05|"},
      {mmPerc, u"5x\b = |!"}};
  ExpectShown(cases);
}

TEST_F(MaskEdit, IsRepairedWhenItIsLeft) {
  const TCases<TVxMaskMode, String> cases{
      {mmInteger, u"\b⇄ = [0]  +007⇄ = [7]  -⇄ = [-]!"},
      {mmFloat,
       u"-0012,500⇄ = [-12,5]  123456789012,345678⇄ = [123456789012,345678]  0,000001⇄ = [0,000001]  "
       u"0,0000000000000000000125⇄ = [1,25E-20]"},
      {mmPerc, u",5⇄ = [0,5]"},
      {mmCurrency, u"\b⇄ = [0]  12,34565⇄ = [12,3456]"},
      {mmDate,
       u"\b⇄ = [00.00.0000]  ⇄ = [00.00.0000]  12⇄ = [12.02.2015]  12.⇄ = [12.02.2015]  1203⇄ = [12.03.2015]  123⇄ = "
       u"[12.03.2015]  12.3.⇄ = [12.03.2015]  12035⇄ = [12.03.2005]  120335⇄ = [12.03.1935]  120334⇄ = [12.03.2034]  "
       u"12030099⇄ = [12.03.0099]  31.2⇄ = [31.2]!  30.12.1899⇄ = [30.12.1899]"},
      {mmMonth, u"3⇄ = [03.2015]  03⇄ = [03.2015]  3.⇄ = [03.2015]  0316⇄ = [03.2016]  132015⇄ = [132015]!"},
      {mmTime,
       u"\b⇄ = [00:00]  8⇄ = [08:00]  830⇄ = [08:30]  8:⇄ = [08:00]  8:5⇄ = [08:05]  :30⇄ = [00:30]  8:75⇄ = [09:15]  "
       u"24:00⇄ = [24:00]  2360⇄ = [24:00]  2401⇄ = [2401]!"},
      {mmSecond, u"24⇄ = [24:00:00]  83015⇄ = [08:30:15]  8:30:5⇄ = [08:30:05]  8:30:60⇄ = [8:30:60]!"},
      {mmHour,
       u"130⇄ = [1:30]  90⇄ = [1:30]  -0:⇄ = [0:00]  1:2:3⇄ = [1:02]  100000⇄ = [1000:00]  100000:0⇄ = [99999:59]"}};
  ExpectShown(cases);
}

TEST_F(MaskEdit, StepsThePartAtTheCursor) {
  const TCases<TVxMaskMode, String> cases{
      {mmInteger, u"9↑ = 1|0  2147483647↑ = 2147483647|  -↑ = -|!"},
      {mmFloat, u"1,25↑ = 1,26|  1,25←←↓ = 1,|15  1,25⇤↓ = |0,25  1,↑ = 2|"},
      {mmCurrency, u"0↓ = -|1"},
      {mmDate,
       u"↑ = [00.00.0000]  31.01.2015⇤↑ = |01.02.2015  31.01.2015⇤→→→↑ = 28.|02.2015  29.02.2016↑ = 28.02.2017|  "
       u"31.12.0001↓ = 00.00.0000|  01.01.0002↓ = 01.01.0001|  01.02.0001⇤→→→↓ = 00.|00.0000  02.02.0001⇤→→→↓ = "
       u"02.|01.0001  01.01.0001⇤↓↑ = |00.00.0000  31.12.9998↑ = 31.12.9999|  30.12.9998↑ = 30.12.9999|  "
       u"30.11.9999⇤→→→↑ = 31.|12.9999  31.12.9999⇤↑ = |31.12.9999"},
      {mmMonth, u"12.2015⇤↑ = |01.2016  12.2015↓ = 12.2014|  02.0001⇤↓ = |00.0000"},
      {mmHour, u"1:59↑ = 2:00|  1:59⇤→↑ = 2|:00  1:59⇤↑ = |2:59  -1:00↑ = -0:59|  -0:59⇤↑ = |0:01"},
      {mmTime, u"23:59⇤→→↑ = 00|:59  23:59↑ = 23:00|  24:00⇤↓ = |23:00"},
      {mmSecond, u"00:00:00↓ = 00:00:59|  00:00:00←←←↓ = 00:59|:00"}};
  ExpectShown(cases);

  TField field(mmInteger);
  field.Edit.SetMaxLength(2);
  EXPECT_EQ(field.Do(u"991↑").Shown(), u"99|");
  field.Edit.SetLimitationMax(99);
  EXPECT_EQ(field.Do(u"←\b⇥↑").Shown(), u"1|0");
  field.Edit.SetMaxLength(0);
  EXPECT_EQ(field.Do(u"⇥0↑↓").Shown(), u"100|!");
  field.Edit.SetReadOnly(true);
  EXPECT_EQ(field.Do(u"\b⌦7↓⇄").Shown(), u"[100]!");
}

TEST_F(MaskEdit, FillsTemplates) {
  const TCases<String, String, String> cases{{u"00.00", u"1x2.34", u"12.34|"},
                                             {u"00.00", u"12.34\b\b\b", u"12|.__!"},
                                             {u"00.00", u"⇤⌦1→⌦", u"1_|.__!"},
                                             {u"00_00", u"⇤12345", u"12_34|!"},
                                             {u"00_00", u"⇤12 34", u"12 34|"},
                                             {u">ll<", u"⇤äÄä1ßÄ", u"Ääß|_!"},
                                             {u"*#1v", u"⇤00-91-", u"-91-|"},
                                             {u"!x\\y9C", u"⇤xyy07\u05D0", u"yy7\u05D0|"},
                                             {u"0\\", u"⇤12", u"1|"},
                                             {u"0!", u"⇤12", u"1|"},
                                             {u"", u"x", u"|"}};
  for (const auto& [mask, script, shown] : cases) EXPECT_EQ(TField(mmMask, mask).Do(script).Shown(), shown) << mask;

  EXPECT_EQ(LiteralString(u"00.A\\A!b_-\\", u'·'), u"··.·A··-");
  EXPECT_EQ((TFacts{CharAllowed(u"0\\", u'\\', 2), CharAllowed(u"0", u'1', 0), TextAllowed(u"00", u"1"),
                    TextAllowed(u"0", u"11")}),
            "no no yes no");
  TField field(mmMask, u"00");
  field.Line.Paste(u"12345");
  EXPECT_EQ(field.Do(u"\b").Shown(), u"1234|!");
}

TEST_F(MaskEdit, HoldsToLimits) {
  const TCases<TVxLimitModes, int, int, String> numbers{
      {lmNone, 0, 0, u"-99 99"}, {lmNone, 0, 10, u"0 10"}, {lmMin, -5, 10, u"-5 99"}, {lmMax, 5, 10, u"-99 10"},
      {lmNone, 10, 5, u"5 5"},   {lmNone, 5, 0, u"0 0"},   {lmMax, 0, 0, u"-99 0"}};
  for (TVxMaskMode mode : {mmInteger, mmFloat, mmCurrency, mmPerc, mmHour}) {
    for (const auto& [limits, low, high, held] : numbers) {
      TField field(mode);
      field.Edit.SetLimitModus(limits);
      field.Edit.SetLimitationMin(low);
      field.Edit.SetLimitationMax(high);
      const String under = field.Do(mode == mmHour ? u"-99:00\t" : u"-99\t").Line.GetText();
      field.Line.Enter();
      const String over = field.Do(mode == mmHour ? u"99:00\t" : u"99\t").Line.GetText();
      EXPECT_EQ(ReplaceAll(Concat({under, u" ", over}), u":00", u""), held) << mode << ' ' << limits << ' ' << low;
    }
  }
  const TCases<TVxMaskMode, TDateTime, TDateTime, String, String> times = {
      {mmDate, kToday, kToday + 1, u"10.02.2015⇄", u"[11.02.2015]"},
      {mmDate, kToday, kToday, u"11.02.2015", u"11.02.2015|"},
      {mmDate, kToday, kToday, u"10.02.2015", u"10.02.2015|!"},
      {mmDate, NAN, kToday, u"01.01.1900⇄", u"[01.01.1900]"},
      {mmDate, 1e300, 0, u"01.01.1900⇄", u"[30.12.1899]"},
      {mmDate, 1e300, 1e300, u"01.01.1900⇄", u"[31.12.9999]"},
      {mmMonth, kToday, kToday, u"02.2015", u"02.2015|"},
      {mmMonth, kToday, kToday, u"03.2015⇄", u"[02.2015]"},
      {mmTime, 0.25, kToday, u"0559⇄", u"[06:00]"},
      {mmTime, 0, 0.25, u"0601⇄", u"[06:00]"},
      {mmSecond, 0.25, 1, u"24⇄", u"[24:00:00]"},
      {mmHour, 0, 1.5, u"36:01⇄", u"[36:00]"},
      {mmHour, NAN, NAN, u"99999:59⇄", u"[99999:59]"}};
  for (const auto& [mode, low, high, script, shown] : times) {
    TField field(mode);
    field.Edit.SetLimitDTMin(low), field.Edit.SetLimitDTMax(high);
    EXPECT_EQ(field.Do(script).Shown(), shown) << script << ' ' << low;
  }
}

TEST_F(MaskEdit, HoldsHoursToWhatReadsBack) {
  TField field(mmHour);
  field.Edit.SetLimitationMax(INT_MIN);
  EXPECT_EQ((TFacts{field.Do(u"1⇄").Shown(), field.Do(u"⇄").Shown()}), "[-2000000000:00] [-2000000000:00]");
}

TEST_F(MaskEdit, WritesNumbersAsToldAndShowsHints) {
  // The digits behind the separator, -1 for no limit, and those before it; with thousands; the script, hint and text.
  const TCases<TVxMaskMode, int, int, bool, String, String, String> cases = {
      {mmInteger, -1, 6, true, u"-1234", u"-1.234", u"-001.234"},
      {mmInteger, -1, 0, false, u"1\b", u"0", u"0"},
      {mmFloat, 2, 3, false, u"1,005", u"1,01", u"001,01"},
      {mmFloat, -1, 0, true, u"1234,5", u"1.234,500000000", u"1.234,5"},
      {mmFloat, -1, 0, false, u"-", u"", u"-"},
      {mmPerc, 0, INT_MAX, false, u"1,5", u"2", String(254, u'0') + u"2"},
      {mmCurrency, 2, 0, true, u"1234,5", u"1.234,50", u"1.234,50"},
      {mmCurrency, -1, 0, false, u"-", u"x,xx", u"-"},
      {mmCurrency, -1, 0, false, u"1\b", u"0,00", u"0"},
      {mmDate, -1, 20, false, u"12", u"12.02.2015", u"12.02.2015"},
      {mmDate, -1, 0, false, u"31.12.1898", u"xx.xx.xxxx", u"31.12.1898"},
      {mmDate, -1, 0, false, u"01.01.2201", u"xx.xx.xxxx", u"01.01.2201"},
      {mmDate, -1, 0, false, u"31.12.2200", u"31.12.2200", u"31.12.2200"},
      {mmDate, -1, 0, false, u"\b", u"00.00.0000", u"00.00.0000"},
      {mmMonth, -1, 0, false, u"13", u"xx.xxxx", u"13"},
      {mmTime, -1, 0, false, u"9:", u"09:00", u"09:00"},
      {mmTime, -1, 0, false, u"25", u"xx:xx", u"25"},
      {mmSecond, -1, 0, false, u"25", u"xx:xx:xx", u"25"},
      {mmHour, 2, 3, false, u"-90", u"-1:30", u"-001:30"}};
  for (const auto& [mode, digits, zeros, thousands, script, hint, text] : cases) {
    TField field(mode);
    field.Edit.SetDigitLimited(digits >= 0), field.Edit.SetDecimaldigits(digits), field.Edit.SetIntegerDiggits(zeros);
    field.Edit.SetUseTausend(thousands), field.Edit.SetHintShow(true);
    EXPECT_EQ(field.Do(script).Line.GetHint(), hint) << script;
    for (int i = 0; i < 2; ++i) EXPECT_EQ(field.Do(u"⇄").Line.GetText(), text) << script << i;
    EXPECT_EQ(field.Line.GetHint(), u"");
  }
}

TEST_F(MaskEdit, TypedValuesReadBackOrAreRefused) {
  TVxMaskEdit edit;
  const auto refusal = [&edit](auto set, auto value) { return RaisedBy<EInvalidInsert>([&] { (edit.*set)(value); }); };
  const String kNot = u"MaskMode ist nicht auf ", kSet = u" gesetzt!";
  edit.SetMaskMode(mmTime);
  EXPECT_EQ(refusal(&TVxMaskEdit::SetInteger, 1), kNot + u"mmInteger" + kSet);
  EXPECT_EQ(refusal(&TVxMaskEdit::setMinute, 1), kNot + u"mmInteger" + kSet);
  EXPECT_EQ(refusal(&TVxMaskEdit::SetFloat, 1), kNot + u"mmFloat oder mmPerc" + kSet);
  EXPECT_EQ(refusal(&TVxMaskEdit::SetDouble, 1), kNot + u"mmFloat oder mmPerc" + kSet);
  EXPECT_EQ(refusal(&TVxMaskEdit::SetCurrency, 1), kNot + u"mmCurrency" + kSet);
  EXPECT_EQ(refusal(&TVxMaskEdit::SetDate, 1), kNot + u"mmDate oder mmMonth" + kSet);
  EXPECT_EQ(refusal(&TVxMaskEdit::sethour, 1), kNot + u"mmHour" + kSet);
  EXPECT_EQ(edit.GetText(), u"00:00");
  edit.SetMaskMode(mmDate);
  EXPECT_EQ(refusal(&TVxMaskEdit::SetTime, 1), kNot + u"mmTime oder mmSecond" + kSet);

  const auto expect = [&edit](TVxMaskMode mode, auto set, auto get, auto value, const String& text) {
    edit.SetMaskMode(mode);
    (edit.*set)(value);
    EXPECT_EQ(edit.GetText(), text);
    EXPECT_EQ((edit.*get)(), value) << text;
  };
  using E = TVxMaskEdit;
  expect(mmInteger, &E::SetInteger, &E::GetInteger, INT_MIN, u"-2147483648");
  expect(mmInteger, &E::setMinute, &E::getMinute, -90, u"-90");
  edit.SetUseTausend(true);
  expect(mmInteger, &E::setMinute, &E::getMinute, -12345, u"-12.345");
  edit.SetUseTausend(false);
  for (const auto& [value, text] : TCases<double, String>{{0.1, u"0,1"},
                                                          {-0.0, u"0"},
                                                          {0.1 + 0.2, u"0,30000000000000004"},
                                                          {1e15, u"1000000000000000"},
                                                          {1e-7, u"0,0000001"},
                                                          {1e22, u"1E22"},
                                                          {5e-324, u"4,94065645841247E-324"},
                                                          {DBL_MAX, u"1,7976931348623157E308"}})
    expect(mmFloat, &E::SetDouble, &E::GetDouble, value, text);
  expect(mmPerc, &E::SetFloat, &E::GetFloat, 1.00000762939453125L, u"1,00000762939453125");
  expect(mmCurrency, &E::SetCurrency, &E::GetCurrency, Currency::FromUnits(INT64_MIN), u"-922337203685477,5808");
  for (const auto& [value, text] :
       TCases<double, String>{{0, u"00.00.0000"}, {1, u"31.12.1899"}, {2958465, u"31.12.9999"}})
    expect(mmDate, &E::SetDate, &E::GetDate, value, text);
  expect(mmMonth, &E::SetDate, &E::GetDate, 42036.0, u"02.2015");
  for (const auto& [value, text] : TCases<double, String>{{0, u"00:00"}, {0.75, u"18:00"}, {1, u"24:00"}})
    expect(mmTime, &E::SetTime, &E::GetTime, value, text);
  expect(mmSecond, &E::SetTime, &E::GetTime, 1.0, u"24:00:00");
  EXPECT_EQ((edit.SetTime(22.0 / 24 + 1.9999999999 / 24), edit.GetText()), u"24:00:00");
  for (const auto& [value, text] : TCases<Extended, String>{{-0.5L, u"-0:30"}, {1e5L, u"100000:00"}, {7.75L, u"7:45"}})
    expect(mmHour, &E::sethour, &E::gethour, value, text);
  int number = 7;
  double time = 7, large = 7;
  EXPECT_EQ((TFacts{ToInteger(u"1.234", number), ToTime(u"24:00:00", time), ToDouble(u"1E999", large)}), "yes yes no");
  EXPECT_EQ((TFacts{number, time, large}), "1234 1 0");
  EXPECT_EQ((TFacts{ToDate(u"00.00.0000", time), time}), "no 0");
  EXPECT_FALSE((edit.sethour(1e5L), edit.GetIsValid()));
  edit.SetMaskMode(mmFloat);
  EXPECT_EQ((TFacts{(edit.SetFloat(NAN), edit.GetIsValid()), edit.GetText()}), "no NAN");
  edit.SetMaskMode(mmDate);
  EXPECT_EQ((edit.SetDate(NAN), edit.GetText()), u"00.00.0000");
}

TEST_F(MaskEdit, TellsOfChanges) {
  struct TEar : TObject {
    void Before(TObject*) { Heard += "b"; }
    void Platform(TObject*) { Heard += "p"; }
    void Changed(TObject*) {
      Heard += "c";
      Field.Edit.Finishing();
    }
    TField Field{mmInteger};
    std::string Heard;
  } ear;
  TVxMaskEdit& edit = ear.Field.Edit;
  edit.OnBeforeChange = TNotifyEvent::Of<&TEar::Before>(ear);
  edit.OnChange = TNotifyEvent::Of<&TEar::Platform>(ear);
  edit.OnChanged = TNotifyEvent::Of<&TEar::Changed>(ear);
  const auto heard = [&ear](const String& script) {
    ear.Heard.clear();
    ear.Field.Do(script);
    return ear.Heard;
  };
  EXPECT_EQ((TFacts{heard(u"12x⇄"), heard(u"⇄")}), "bbpc ");
  EXPECT_EQ(heard(u"12⇄"), "bb") << "the text at entry again";
  EXPECT_EQ(heard(u"↑\r↑⇄"), "bpcbpc");
  EXPECT_EQ(heard(u"-⇄"), "b") << "invalid";
  EXPECT_EQ(heard(u"5⇄"), "bpc");
  ear.Field.Line.SetHasForm(false);
  EXPECT_EQ(heard(u"6⇄"), "b");
  ear.Heard.clear();
  edit.SetInteger(7);
  ear.Field.Line.Paste(u"8");
  EXPECT_EQ(ear.Heard, "b");
}

TEST_F(MaskEdit, ShowsItsModeBesideTheText) {
  const auto look = [](TVxMaskMode mode) {
    TField field(mode);
    return (TFacts{field.Line.GetSides().PreStr, field.Line.GetAlignment(), field.Line.GetSides().PostStr,
                   field.Line.GetMaxLength()});
  };
  EXPECT_EQ(look(mmCurrency), " 1 € 0");
  EXPECT_EQ(look(mmPerc), " 1 % 0");
  EXPECT_EQ(look(mmHour), " 0  10");
  TField hours(mmHour);
  hours.Edit.SetLimitationMax(7);
  hours.Edit.SetMaskMode(mmFloat);
  EXPECT_EQ((TFacts{hours.Edit.GetLimitationMin(), hours.Edit.GetLimitationMax(), hours.Edit.GetLimitDTMin(),
                    hours.Edit.GetMaxLength(), hours.Edit.GetDigitLimited(), hours.Edit.GetDecimaldigits()}),
            "0 7 0 0 no 0");
  TFormatSettings settings;
  settings.CurrencyFormat = 2;
  const TFormatSettingsScope scope(settings);
  EXPECT_EQ(look(mmCurrency), "€ 0  0");

  TField field(mmInteger);
  field.Edit.SetInvalidColor(clBlue);
  field.Do(u"-");
  EXPECT_EQ(field.Line.GetStatus(), (TEditStatus{.IsValid = false, .InvalidColor = clBlue}));
  field.Edit.Init();
  EXPECT_EQ(field.Line.GetStatus(), TEditStatus());
}

TEST_F(MaskEdit, WorksWithAnySeparators) {
  TFormatSettings settings{.DecimalSeparator = u'.',
                           .ThousandSeparator = u'.',
                           .DateSeparator = u'/',
                           .TimeSeparator = u'.',
                           .ShortDateFormat = u"mm/dd/yyyy"};
  const TCases<TVxMaskMode, String, String> cases{{mmDate, u"⇄", u"[00/00/0000]"},  {mmDate, u"3/4⇄↑", u"|04/04/2015"},
                                                  {mmMonth, u"3/4⇄", u"[03/2004]"}, {mmTime, u"8,30⇄", u"[08.30]"},
                                                  {mmHour, u"8,30⇄", u"[8:30]"},    {mmFloat, u"8.30⇄", u"[8.3]"}};
  {
    const TFormatSettingsScope scope(settings);
    for (const auto& [mode, script, shown] : cases) EXPECT_EQ(TField(mode).Do(script).Shown(), shown) << script;
  }
  TField hours(mmHour), date(mmDate);
  hours.Edit.SetFormatSettings(settings);
  EXPECT_EQ(hours.Do(u"8,30⇄").Shown(), u"[8:30]");
  date.Edit.SetFormatSettings(settings);
  EXPECT_EQ(date.Do(u"⇄").Shown(), u"[00/00/0000]");
  Extended number;
  EXPECT_EQ((ToFloat(u"8.5", number, settings), number), 8.5L);
  settings.DecimalSeparator = settings.ThousandSeparator = settings.DateSeparator = settings.TimeSeparator = 0;
  const TFormatSettingsScope scope(settings);
  EXPECT_EQ(TField(mmDate).Do(u"3.4⇄").Shown(), u"[03.04.2015]");
  EXPECT_EQ((TFacts{TField(mmSecond).Do(u"3:4⇄").Shown(), TField(mmFloat).Do(u"3,4⇄").Shown()}), "[03:04:00] [3,4]");
}

// Keys, pastes and focus at random, beside the rules told plainly.
TEST_F(MaskEdit, GoesAsItsRulesTell) {
  for (unsigned seed = 0; seed < 330; ++seed) {
    std::mt19937 random(seed);
    const auto pick = [&random](int low, int high) {
      return low + static_cast<int>(random() % unsigned(high - low + 1));
    };
    fuzz::TMaskPair pair(static_cast<TVxMaskMode>(seed % 11), pick);
    for (int i = 0; i < 60; ++i) {
      const std::string done = pair.Act(pick);
      ASSERT_EQ(pair.Real(), pair.Plain()) << "seed " << seed << ", " << i << ": " << done;
    }
    EXPECT_EQ(pair.FinishedTwice(), "") << seed;
  }
}

TEST_F(MaskEdit, HourTexts) {
  for (const auto& [text, normal] : TCases<String, String>{{u"", u"0:00"},
                                                           {u"5", u"0:05"},
                                                           {u"-5", u"-0:05"},
                                                           {u"+130", u"1:30"},
                                                           {u":7", u"0:07"},
                                                           {u"7:", u"7:00"},
                                                           {u"1:30:45", u"1:30"},
                                                           {u"1:xx", u"1:00"},
                                                           {u"2147483647:60", u"2147483648:00"},
                                                           {u"x:30", u"x:30"}})
    EXPECT_EQ(CalStrToHourStr(text), normal) << text;
  for (const auto& [text, facts] : TCases<String, const char*>{{u"1:30", "yes 1 30 yes 1.5 yes 90"},
                                                               {u"-1:30", "yes -1 30 yes -1.5 yes -90"},
                                                               {u"150", "yes 0 150 yes 2.5 yes 150"},
                                                               {u"x:5:", "no 0 0 no 0 no 0"},
                                                               {u"99999999:0", "yes 99999999 0 yes 99999999 no 0"}}) {
    int hours, minutes, sum;
    Extended number;
    const bool isHM = StrToHM(text, hours, minutes), isHour = toHour(text, number), isSum = toMinute(text, sum);
    EXPECT_EQ((TFacts{isHM, hours, minutes, isHour, static_cast<double>(number), isSum, sum}), facts) << text;
  }
}

}  // namespace
