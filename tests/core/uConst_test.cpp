#include "core/uConst.h"

#include <gtest/gtest.h>

#include "core/uVxFunctionsSerialize/FieldTypes.h"
#include "core/uVxTypes.h"
#include "platform/Calendar.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

TEST(FieldTypes, TextsAndNumbers) {
  String german, internal;
  for (int i = -1; i < 256; ++i) {
    const auto type = static_cast<TVxFieldType>(i);
    const int known = i > 0 && i <= vftButton ? i : 0;
    const String word = VxFieldTypeToText(type, false), name = FieldTypeToStr(type);
    EXPECT_EQ(name, known == vftGrafic ? String(u"vftGrafic") : u"vft" + word) << i;
    EXPECT_TRUE(IntToVxFieldType(i) == known && StrToFieldType(name) == known && GetVxFieldType(name) == known) << i;
    if (i >= 0 && i <= vftButton + 1) german += VxFieldTypeToText(type, true) + u" ", internal += word + u" ";
  }
  EXPECT_EQ(german, u"Unbekannt Kurztext Text Wahrheitswert Zahl Kommazahl Datum Zeit Mehrzeilentext Zeitpunkt Status "
                    u"Bild Stunden Währung Bruch HTML Schalter Grafik Knopf Unbekannt ");
  EXPECT_EQ(internal, u"Unknown ShortString String Boolean Integer Float Date Time Commatext DateTime Status Image "
                      u"Hour Currency Fraction TinyHTML Toggle Grafik Button Unknown ");
  struct { String Text; int Loose; TVxFieldType Exact; } cases[] = {{u"0", 0, vftUnknown}, {u"4", 4, vftUnknown},
      {u"18", 18, vftUnknown}, {u"19", 0, vftUnknown}, {u"-1", 0, vftUnknown}, {u"VFTDATE", 6, vftUnknown},
      {u" $C", 12, vftUnknown}, {u"vftDate", 6, vftDate}, {u"vftunknown", 0, vftUnknown}, {u"Datum", -1, vftUnknown},
      {u"vftDate ", -1, vftUnknown}, {u"vftDatė", -1, vftUnknown}, {u"99999999999", -1, vftUnknown},
      {u"", -1, vftUnknown}};
  for (const auto& c : cases) {
    EXPECT_TRUE(GetVxFieldType(c.Text) == c.Loose && StrToFieldType(c.Text) == c.Exact) << c.Text.ToUtf8();
    EXPECT_EQ(IsVxFieldType(c.Text), c.Loose >= 0) << c.Text.ToUtf8();
    uConst::FreeBuffersForLeakPrevention();
  }
}

TEST(ValueHelpers, Texts) {
  EXPECT_TRUE(StrToBoolExt(u"") == bNone && StrToBoolExt(u"1") == bTrue && StrToBoolExt(u"0") == bFalse);
  EXPECT_TRUE(StrToBoolExt(u" ") == bFalse && StrToBoolExt(u"1 ") == bFalse);
  EXPECT_EQ(BoolExtToStr(bFalse) + BoolExtToStr(bNone) + BoolExtToStr(bTrue) + BoolExtToStr(TBoolExt(3)), u"01");
  const TDateTime day = EncodeDate(2015, 2, 1), moment = day + EncodeTime(6, 5, 0, 999);
  EXPECT_EQ(TVxDateHelper(moment).ToString() + TVxDateTimeHelper(day).ToString(), u"01.02.201501.02.2015 00:00:00");
  EXPECT_EQ(TVxTimeHelper(moment).ToString() + TVxTimeHelper(day - 0.5 - 0.5 / 1440).ToString(), u"06:0511:59:30");
  EXPECT_TRUE(TVxStringHelper(u"20150201").ToDate(1) == day && TVxStringHelper(u"29.02.2015").ToDate(1) == 1);
  EXPECT_TRUE(TVxStringHelper(u"-12").ToInt(7) == -12 && TVxStringHelper(u"1,2").ToInt(7) == 7);
  EXPECT_EQ(TVxIntegerHelper(INT32_MIN).ToString(), u"-2147483648");
}

}  // namespace
}  // namespace vx
