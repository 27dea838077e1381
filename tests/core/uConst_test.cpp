#include "core/uConst.h"

#include <gtest/gtest.h>

#include "core/uVxFunctionsSerialize/FieldTypes.h"
#include "core/uVxTypes.h"
#include "platform/Calendar.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

TEST(FieldTypes, TextsOfEveryOrdinal) {
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
}

TEST(FieldTypes, NumbersAndNamesInAnyCase) {
  struct { const char16_t* Text; int Loose; TVxFieldType Exact; } cases[] = {
      {u"0", 0, vftUnknown}, {u"4", 4, vftUnknown}, {u"18", 18, vftUnknown}, {u"19", 0, vftUnknown},
      {u"-1", 0, vftUnknown}, {u" $C", 12, vftUnknown}, {u"vftDate", 6, vftDate}, {u"VFTDATE", 6, vftUnknown},
      {u"vftunknown", 0, vftUnknown}, {u"VftGrafic", 17, vftUnknown}, {u"vftButton", 18, vftButton},
      {u"Datum", -1, vftUnknown}, {u"vftDate ", -1, vftUnknown}, {u"vftDatė", -1, vftUnknown},
      {u"99999999999", -1, vftUnknown}, {u"", -1, vftUnknown}};
  for (const auto& c : cases) {
    EXPECT_EQ(GetVxFieldType(c.Text), c.Loose) << String(c.Text).ToUtf8();
    EXPECT_TRUE(IsVxFieldType(c.Text) == (c.Loose >= 0) && StrToFieldType(c.Text) == c.Exact) << c.Loose;
    uConst::FreeBuffersForLeakPrevention();
  }
}

TEST(BoolExt, Texts) {
  EXPECT_TRUE(StrToBoolExt(u"") == bNone && StrToBoolExt(u"1") == bTrue && StrToBoolExt(u"0") == bFalse);
  EXPECT_TRUE(StrToBoolExt(u" ") == bFalse && StrToBoolExt(u"1 ") == bFalse);
  EXPECT_EQ(BoolExtToStr(bFalse) + BoolExtToStr(bNone) + BoolExtToStr(bTrue), u"01");
  EXPECT_EQ(BoolExtToStr(static_cast<TBoolExt>(3)), u"");
}

TEST(ValueHelpers, Texts) {
  const TDateTime day = EncodeDate(2015, 2, 1);
  const TDateTime moment = day + EncodeTime(6, 5, 0, 999), second = day + EncodeTime(23, 59, 9, 0);
  EXPECT_EQ(TVxDateHelper(moment).ToString() + TVxDateTimeHelper(day).ToString(), u"01.02.201501.02.2015 00:00:00");
  EXPECT_EQ(TVxTimeHelper(moment).ToString() + TVxTimeHelper(second).ToString(), u"06:0523:59:09");
  EXPECT_EQ(TVxIntegerHelper(INT32_MIN).ToString(), u"-2147483648");
  EXPECT_TRUE(TVxStringHelper(u"20150201").ToDate(1) == day && TVxStringHelper(u"29.02.2015").ToDate(1) == 1);
  EXPECT_TRUE(TVxStringHelper(u"-12").ToInt(7) == -12 && TVxStringHelper(u"1,2").ToInt(7) == 7);
}

}  // namespace
}  // namespace vx
