#include "objects/uVxClasses/TVxString.h"

#include "objects/uVxClasses.h"
#include "platform/Calendar.h"
#include "tests/support/Test.h"

namespace {

template <typename T>
concept TWritable = requires(T Value) {
  TVxString::ToString(Value);
};
static_assert(TWritable<bool> && TWritable<TBoolExt> && TWritable<int> && TWritable<double> && TWritable<Currency>);
static_assert(!TWritable<int64_t> && !TWritable<unsigned> && !TWritable<const char16_t*> && !TWritable<char16_t>);

const TDateTime kDate = EncodeDate(2015, 2, 11), kTime = EncodeTime(6, 30, 15, 250);

// What every reader makes of a text, as the text that its writer makes of that; "~" for the default.
String ReadAll(std::u16string_view Text) {
  const Currency amount = TVxString::ToCurr(Text, -7);
  const Extended number = TVxString::ToExt(Text, -7);
  const TDateTime date = TVxString::ToDate(Text, -7), both = TVxString::ToDateTime(Text, -7);
  const TDateTime time = TVxString::ToTime(Text, -7);
  EXPECT_EQ(time, TVxString::ToTimeFull(Text, -7));
  const String parts[] = {
      TVxString::ToString(TVxString::ToBool(Text, true)),    TVxString::ToString(TVxString::ToBoolExt(Text)),
      amount == -7 ? u"~" : TVxString::ToString(amount),     number == -7 ? u"~" : TVxString::ToString(number),
      TVxString::ToString(TVxString::ToInt(Text, -7)),       date == -7 ? u"~" : TVxString::DateToString(date),
      both == -7 ? u"~" : TVxString::DateTimeToString(both), time == -7 ? u"~" : TVxString::TimeToString(time)};
  String all;
  for (const String& part : parts) all += (all.empty() ? u"" : u"|") + part;
  return all;
}

TEST(TVxString, EveryReaderTakesItsOwnTextsAndGivesTheDefaultElse) {
  const TCases<String, String> kCases = {{u"", u"1||~|~|-7|~|~|~"},
                                         {u"1", u"1|1|1,00|1|1|~|~|01:00"},
                                         {u"wahr", u"1|0|~|~|-7|~|~|00:00"},
                                         {u" 1", u"0|0|1,00|1|1|~|30.12.1899 00:00:00|01:00"},
                                         {u"1.234,565", u"0|0|1234,57|~|-7|~|~|00:00"},
                                         {u"1234,5", u"0|0|1234,50|1234,5|-7|~|~|00:00"},
                                         {u"11.02.2015", u"0|0|11022015,00|~|-7|11.02.2015|~|00:00"},
                                         {u"11.02.2015 06:30:15", u"0|0|~|~|-7|~|11.02.2015 06:30:15|00:30"},
                                         {u"24:00", u"0|0|~|~|-7|~|~|24:00"},
                                         {u"06:30:15:250", u"0|0|~|~|-7|~|~|06:30"},
                                         {u"6:75", u"0|0|~|~|-7|~|~|~"}};
  for (const auto& [text, expected] : kCases) EXPECT_EQ(ReadAll(text), expected) << text;
}

TEST(TVxString, AnObjectAndAListWriteAndReadAlike) {
  const TCases<int (*)(TVxString&, TVxStringList&), String> cases = {
      {[](auto& one, auto& list) { return one.SetAsBool(true), list.AddBool(true); }, u"1"},
      {[](auto& one, auto& list) { return one.SetAsBoolExt(bNone), list.AddBoolExt(bNone); }, u""},
      {[](auto& one, auto& list) { return one.SetAsCurr(-12), list.AddCurr(-12); }, u"-12,00"},
      {[](auto& one, auto& list) { return one.SetAsDate(kDate), list.AddDate(kDate); }, u"11.02.2015"},
      {[](auto& one, auto& list) { return one.SetAsDateTime(kDate), list.AddDateTime(kDate); }, u"11.02.2015 00:00:00"},
      {[](auto& one, auto& list) { return one.SetAsExt(1e20L), list.AddExt(1e20L); }, u"1E20"},
      {[](auto& one, auto& list) { return one.SetAsInt(-12), list.AddInt(-12); }, u"-12"},
      {[](auto& one, auto& list) { return one.SetAsTime(1), list.AddTime(1); }, u"24:00"},
      {[](auto& one, auto& list) { return one.SetAsTimeFull(kTime), list.AddTimeFull(kTime); }, u"06:30:15:250"}};
  TVxStringList list;
  for (const auto& [put, text] : cases) {
    TVxString value;
    const int i = put(value, list);
    EXPECT_EQ(std::pair(value.GetAsString(), list.Get(i)), std::pair(text, text)) << i;
    EXPECT_EQ(
        std::tuple(value.GetAsBool(), value.GetAsBoolExt(), value.GetAsCurr(), value.GetAsExt(), value.GetAsInt()),
        std::tuple(list.AsBool(i), list.AsBoolExt(i), list.AsCurr(i), list.AsExt(i), list.AsInt(i)))
        << i;
    EXPECT_EQ((std::array{value.GetAsDate(), value.GetAsDateTime(), value.GetAsTime(), value.gatAsTimeFull()}),
              (std::array{list.AsDate(i), list.AsDateTime(i), list.AsTime(i), list.AsTime(i)}))
        << i;
  }
  EXPECT_EQ((TFacts{list.AsBool(0), list.AsBool(1), list.AsCurr(2).Units, list.AsExt(5), list.AsInt(6), list.AsInt(7)}),
            "yes no -120000 1e+20 -12 0");
  EXPECT_EQ(list.AsBoolExt(1), bNone);
  EXPECT_EQ((std::array{list.AsDate(3), list.AsDateTime(4), list.AsTime(7), list.AsTime(8)}),
            (std::array{kDate, kDate, 1.0, kTime}));
}

}  // namespace
