// The strict readers of amounts: hours, money, factors. What they accept is compared with Python's regular expressions,
// over many random texts: tests/oracle/. Here stands where they find what is wrong.
#include "core/DecimalFactor.h"
#include "core/HourAmount.h"
#include "core/MoneyText.h"
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

}  // namespace
