// The strict readers: hours, money, factors, numbers, dates. What those of amounts accept is compared with Python's
// regular expressions, over many random texts: tests/oracle/. Here stands where they find what is wrong.
#include "core/DecimalFactor.h"
#include "core/HourAmount.h"
#include "core/MoneyText.h"
#include "core/StrictDates.h"
#include "core/StrictNumbers.h"
#include "platform/Calendar.h"
#include "tests/support/Test.h"

namespace {

// What many texts give alike: a value, or what is wrong. In a text that is refused a ^ stands before the unit at fault;
// the value stays as it was.
using TTexts = std::vector<std::pair<String, std::vector<String>>>;
template <typename T, typename TTry, typename TShow>
void Expect(const T& Before, TTry Try, TShow Show, const TTexts& Cases) {
  for (const auto& [told, texts] : Cases) {
    for (const String& text : texts) {
      const int position = Pos(u"^", text);
      T value = Before;
      TTextFault fault;
      const bool isRead = Try(ReplaceAll(text, u"^", u""), value, fault);
      const String place = position > 0 ? u" an Position " + IntToStr(position) : u"";
      EXPECT_EQ(isRead ? Show(value) : fault.GetText(), told + place) << text;
      EXPECT_EQ(isRead ? Before : value, Before) << text;
    }
  }
}

TEST(AmountTexts, Hours) {
  auto show = [](THourAmount value) { return IntToStr(value.Minutes); };
  auto strict = [](auto text, auto& value, auto& fault) { return TryStrToHourAmount(text, value, fault); };
  Expect(THourAmount::FromMinutes(-77), strict, show,
         {{u"-405", {u"-6:45", u"\u22126:45", u" -006:45\t"}},
          {u"45", {u"0:45", u":45", u"+:45"}},
          {u"9223372036854775807", {u"153722867280912930:07"}},
          {u"-9223372036854775808", {u"-153722867280912930:08"}},
          {u"leer", {u"", u" \u00A0"}},
          {u"unvollständig", {u"-^", u"7^", u"7:^", u" 7:5^"}},
          {u"Minuten über 59", {u"7:^60", u"-:^99"}},
          {u"Wert zu groß", {u"^153722867280912930:08", u" -^99999999999999999999:00"}},
          {u"unerwartetes Zeichen", {u"7:6^x", u"7:30^:00", u"7:30^0", u"1^.000:00", u"-^ 1:00", u"7^,5", u"^x"}}});
  auto industry = [](auto text, auto& value, auto& fault) {
    return TryStrToHourAmount(text, value, fault, {hroIndustry});
  };
  Expect(THourAmount::FromMinutes(-77), industry, show,
         {{u"450", {u"7:30", u"7,5", u"7,50"}},
          {u"-20", {u"-0,33", u"-,33"}},
          {u"unvollständig", {u"7,^", u",^", u"-^"}},
          {u"zu viele Nachkommastellen", {u"7,12^5"}},
          {u"unerwartetes Zeichen", {u"7,5^:00", u"^h", u"8^ h"}}});
}

TEST(AmountTexts, Money) {
  auto read = [](auto text, auto& value, auto& fault) { return TryStrToMoney(text, value, fault); };
  auto show = [](Currency value) { return IntToStr(value.Units); };
  Expect(Currency(-77), read, show,
         {{u"250100", {u"25,01", u"+25,01", u" 25,01 € ", u"€25,01", u"EUR 25,01", u"25,01\u00A0Euro", u"25,0100"}},
          {u"-250100", {u"- 25,01", u"\u221225,01", u"25,01-", u"25,01- EUR", u"-€25,01", u"€ -25,01"}},
          {u"12345000", {u"1.234,50", u"1 234,5", u"1\u00A0234,50 €", u"1'234,50", u"1’234.50", u"1234,5"}},
          {u"-30000", {u"-3,-", u"-3,--", u"-3,– €", u"- 3,—", u"-3.-"}},
          {u"9223372036854775807", {u"922.337.203.685.477,5807"}},
          {u"-9223372036854775808", {u"-922337203685477,5808"}},
          {u"leer", {u"", u" \t"}},
          {u"unvollständig", {u"5,^", u"EUR^", u"-^", u",^"}},
          {u"falsche Tausendergruppe", {u"25^.01", u"0^.125", u"12345^.678,90", u"1.234^.56", u"1^.2345", u"1^ 23"}},
          {u"zu viele Nachkommastellen", {u"1,2345^6", u"1,0000^0"}},
          {u"Wert zu groß", {u"^922337203685477,5808", u"- ^99999999999999999999999"}},
          {u"unerwartetes Zeichen",
           {u"^abc", u"-^,50", u"1,234^.50", u"1.234^'567", u"^(3,00)", u"5 €^uro", u"€ 5 ^€", u"5 EUR ^x", u"-^-5",
            u"-5,00^-", u"5^-", u"3,0^-", u"5 ^CHF", u"1  ^234", u"3,--^-"}}});
  auto point = [](auto text, auto& value, auto& fault) { return TryStrToMoney(text, value, fault, {mroDecimalPoint}); };
  Expect(Currency(-77), point, show,
         {{u"12345000", {u"1,234.50", u"1234.5 €"}}, {u"falsche Tausendergruppe", {u"1234^,5"}}});
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToMoney(u"25.01"); }),
            u"'25.01' ist kein Betrag: falsche Tausendergruppe an Position 3");
}

TEST(AmountTexts, Factors) {
  auto read = [](auto text, auto& value, auto& fault) { return TryStrToDecimalFactor(text, value, fault); };
  auto show = [](TDecimalFactor value) { return DecimalFactorToStr(value); };
  Expect(TDecimalFactor(-77), read, show,
         {{u"-0,19", {u"-19 %", u" -0,190 ", u"-19,0%"}},
          {u"0,000000000000000001", {u"0,0000000000000000010"}},
          {u"999999999999999999", {u"0999999999999999999,00"}},
          {u"leer", {u" "}},
          {u"unvollständig", {u"5,^", u"-^"}},
          {u"unerwartetes Zeichen", {u"1^.000", u"^,5", u"1 ^000", u"1^e3", u"^%"}},
          {u"Wert zu groß", {u"-^1000000000000000000", u"^99999999999999999999"}},
          {u"zu viele Nachkommastellen", {u"0,000000000000000000^1", u"0,00000000000000001 %^"}}});
}

TEST(AmountTexts, Dates) {
  auto show = [](TDateTime value) { return IntToStr(int64_t(std::llround(value * 86400000))); };
  auto date = [](auto text, auto& value, auto& fault) { return TryStrToDateStrict(text, value, fault); };
  const TTexts faults = {{u"leer", {u"", u" \u00A0"}},
                         {u"diesen Tag gibt es nicht", {u"^31.02.2015", u"^29.2.1900", u"^0.1.2015", u"2015-02-^29"}},
                         {u"diesen Monat gibt es nicht", {u"1.^13.2015", u"01.^00.2015", u"2015-^13-01"}},
                         {u"kein vierstelliges Jahr", {u"4.5.^44", u"04.05.^12345", u"04.05.^0000", u"^0000-01-01"}},
                         {u"unvollständig", {u"4^", u"4.5^", u"4.5.^", u"2015-01-1^", u"2015-^"}}};
  Expect(TDateTime(-7), date, show,
         {{u"1399334400000", {u"04.05.1944", u"4.5.1944", u" 1944-05-04\t"}},
          {u"-86400000", {u"29.12.1899"}},
          {u"-59926435200000", {u"1.1.0001"}},
          {u"unerwartetes Zeichen",
           {u"04^/05/1944", u"19^440504", u"1944-5^-04", u"04.05.1944^ 06:30", u"^-4.5.1944", u"4.^ 5.1944", u"^Mai",
            u"2015-02-01^T", u"00^4.05.1944"}}});
  Expect(TDateTime(-7), date, show, faults);
  auto dateTime = [](auto text, auto& value, auto& fault) { return TryStrToDateTimeStrict(text, value, fault); };
  Expect(TDateTime(-7), dateTime, show, faults);
  Expect(TDateTime(-7), dateTime, show,
         {{u"1399357800000", {u"04.05.1944 06:30", u"4.5.1944  6:30:00", u"1944-05-04T06:30", u"1944-05-04 06:30"}},
          {u"-108000000", {u"29.12.1899 06:00"}},
          {u"1399357815250", {u"04.05.1944 06:30:15.250", u"04.05.1944 06:30:15:250"}},
          {u"unvollständig", {u"04.05.1944^", u"04.05.1944 06^", u"04.05.1944 06:30:15.25^"}},
          {u"diese Stunde gibt es nicht", {u"04.05.1944 ^24:00"}},
          {u"unerwartetes Zeichen", {u"04.05.1944^T06:30", u"04.05.1944 06:30^ Uhr", u"04.05.1944^,06:30"}}});
  auto time = [](auto text, auto& value, auto& fault) { return TryStrToTimeStrict(text, value, fault); };
  Expect(TDateTime(-7), time, show,
         {{u"23400000", {u"06:30", u" 6:30 ", u"6:30:00"}},
          {u"86400000", {u"24:00", u"24:00:00"}},
          {u"86399999", {u"23:59:59.999"}},
          {u"Minuten über 59", {u"6:^60"}},
          {u"Sekunden über 59", {u"6:30:^60"}},
          {u"diese Stunde gibt es nicht", {u"^25:00", u"^24:01", u"^24:00:00.001"}},
          {u"leer", {u""}},
          {u"unvollständig", {u"6^", u"6:3^", u"6:30:^"}},
          {u"unerwartetes Zeichen", {u"^-6:30", u"6^.30", u"6:3^x", u"6:30^ Uhr", u"00^6:30", u"6:30:15.250^0"}}});
}

TEST(AmountTexts, DatesAreWrittenWhole) {
  using TWriter = bool (*)(TDateTime, String&);
  const TDateTime noNumber = std::nan(""), morning = EncodeTime(6, 30, 0, 0), day = EncodeDate(1944, 5, 4);
  for (const auto& [writer, value, told] : TCases<TWriter, TDateTime, String>{
           {TryDateToStrStrict, day, u"04.05.1944"},
           {TryDateToStrStrict, 0, u"30.12.1899"},
           {TryDateToStrStrict, day + morning, u"-"},
           {TryDateToStrStrict, 3e6, u"-"},
           {TryDateToStrStrict, noNumber, u"-"},
           {TryTimeToStrStrict, morning, u"06:30"},
           {TryTimeToStrStrict, EncodeTime(6, 30, 15, 0), u"06:30:15"},
           {TryTimeToStrStrict, EncodeTime(0, 0, 0, 7), u"00:00:00:007"},
           {TryTimeToStrStrict, 1, u"24:00"},
           {TryTimeToStrStrict, -0.25, u"-"},
           {TryTimeToStrStrict, 1.25, u"-"},
           {TryTimeToStrStrict, noNumber, u"-"},
           {TryDateTimeToStrStrict, day, u"04.05.1944 00:00:00"},
           {TryDateTimeToStrStrict, -1.25, u"29.12.1899 06:00:00"},
           {TryDateTimeToStrStrict, day + EncodeTime(6, 30, 15, 250), u"04.05.1944 06:30:15:250"},
           {TryDateTimeToStrStrict, -7e5, u"-"}}) {
    String text = u"-";
    EXPECT_EQ(writer(value, text), told != u"-") << value;
    EXPECT_EQ(text, told);
  }
}

TEST(AmountTexts, Numbers) {
  auto whole = [](auto text, auto& value, auto& fault) { return TryStrToInt64Strict(text, value, fault); };
  Expect(int64_t{-77}, whole, [](int64_t value) { return IntToStr(value); },
         {{u"9223372036854775807", {u"9223372036854775807", u"+009223372036854775807"}},
          {u"-9223372036854775808", {u"-9223372036854775808"}},
          {u"0", {u"-0", u" 0\t"}},
          {u"leer", {u""}},
          {u"unvollständig", {u"-^"}},
          {u"Wert zu groß", {u"^9223372036854775808", u"-^9223372036854775809", u"^99999999999999999999"}},
          {u"unerwartetes Zeichen", {u"1^.000", u"^$1F", u"0^x1F", u"12^,0", u"12^ 3", u"-^-1"}}});
  auto number = [](auto text, auto& value, auto& fault) { return TryStrToDoubleStrict(text, value, fault); };
  auto shown = [](double value) {
    String text;
    return TryDoubleToStrStrict(value, text) ? text : u"-";
  };
  const String nines(309, u'9'), zeros(395, u'0');
  Expect(double{-77}, number, shown,
         {{u"12,5", {u"12,5", u"+012,50"}},
          {u"-0,1", {u"-0,1", u"-0,1000000000000000000000000000000000000001"}},
          {u"0,30000000000000004", {u"0,30000000000000004"}},
          {u"9007199254740992", {u"9007199254740993"}},
          {u"9007199254740996", {u"9007199254740995"}},
          {u"0", {u"0,0", u"0," + zeros + u"1"}},
          {u"leer", {u" "}},
          {u"unvollständig", {u"5,^", u"-^"}},
          {u"Wert zu groß", {u"-^" + nines, u"^0," + zeros + u"1234"}},
          {u"unerwartetes Zeichen", {u"12,5^ x", u"1^.000", u"^,5", u"1^e3", u"1,5^,5", u"^NAN", u"^INF"}}});
  EXPECT_EQ(shown(1e300).size(), 301);
  EXPECT_EQ(shown(std::nan("")), u"-");
}

TEST(AmountTexts, YesAndNo) {
  auto read = [](auto text, auto& value, auto& fault) { return TryStrToBoolStrict(text, value, fault); };
  for (const bool before : {false, true})
    Expect(before, read, [](bool value) { return String(value ? u"ja" : u"nein"); },
           {{u"ja", {u"1", u"j", u"JA", u"y", u"Yes", u"wahr", u" TRUE "}},
            {u"nein", {u"0", u"n", u"Nein", u"NO", u"falsch", u"False"}},
            {u"leer", {u" "}},
            {u"unerwartetes Zeichen", {u"^2", u" ^jaja", u"^00", u"^x", u"^-1"}}});
}

}  // namespace
