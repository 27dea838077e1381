#include "objects/uVxClasses/TVxString.h"

#include "objects/uVxClasses.h"
#include "platform/Calendar.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

template <typename T>
concept TWritable = requires(T Value) {
  TVxString::ToString(Value);
};
static_assert(TWritable<bool> && TWritable<TBoolExt> && TWritable<int> && TWritable<double> && TWritable<Currency>);
static_assert(!TWritable<int64_t> && !TWritable<unsigned> && !TWritable<const char16_t*> && !TWritable<char16_t>);

const TDateTime kDate = EncodeDate(2015, 2, 11), kTime = EncodeTime(6, 30, 15, 250);

// What every reader makes of a text, as the text that its writer makes of that; "~" for the default.
String ReadAll(const char16_t* Text) {
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
  const struct {
    const char16_t *Text, *Expected;
  } kCases[] = {{u"", u"1||~|~|-7|~|~|~"},
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
  for (const auto& c : kCases) EXPECT_EQ(ReadAll(c.Text), c.Expected) << String(c.Text).ToUtf8();
}

TEST(TVxString, AnObjectAndAListWriteAndReadAlike) {
  const struct {
    int (*Put)(TVxString&, TVxStringList&);
    const char16_t* Text;
  } kCases[] = {
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
  for (const auto& c : kCases) {
    TVxString value;
    const int i = c.Put(value, list);
    EXPECT_TRUE(value.GetAsString() == c.Text && list.Get(i) == c.Text) << i;
    EXPECT_TRUE(value.GetAsBool() == list.AsBool(i) && value.GetAsBoolExt() == list.AsBoolExt(i)) << i;
    EXPECT_TRUE(value.GetAsCurr() == list.AsCurr(i) && value.GetAsExt() == list.AsExt(i)) << i;
    EXPECT_TRUE(value.GetAsDate() == list.AsDate(i) && value.GetAsDateTime() == list.AsDateTime(i)) << i;
    EXPECT_TRUE(value.GetAsInt() == list.AsInt(i) && value.GetAsTime() == list.AsTime(i)) << i;
    EXPECT_EQ(value.gatAsTimeFull(), list.AsTime(i));
  }
  EXPECT_TRUE(list.AsBool(0) && !list.AsBool(1) && list.AsBoolExt(1) == bNone && list.AsCurr(2) == -12);
  EXPECT_TRUE(list.AsDate(3) == kDate && list.AsDateTime(4) == kDate && list.AsExt(5) == 1e20L && list.AsInt(6) == -12);
  EXPECT_TRUE(list.AsTime(7) == 1 && list.AsInt(7) == 0 && list.AsTime(8) == kTime);
}

}  // namespace
