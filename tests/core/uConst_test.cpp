#include "core/uConst.h"

#include "core/uVxFunctionsSerialize/FieldTypes.h"
#include "core/uVxTypes.h"
#include "objects/uVxClasses.h"
#include "platform/Calendar.h"
#include "tests/support/Test.h"

namespace {

TEST(FieldTypes, TextsAndNumbers) {
  String german, internal;
  for (int i = -1; i < 256; ++i) {
    const auto type = static_cast<TVxFieldType>(i);
    const int known = i > 0 && i <= vftButton ? i : 0;
    const String word = VxFieldTypeToText(type, false), name = FieldTypeToStr(type);
    EXPECT_EQ(name, known == vftGrafic ? String(u"vftGrafic") : u"vft" + word) << i;
    EXPECT_EQ((std::array<int, 3>{IntToVxFieldType(i), StrToFieldType(name), GetVxFieldType(name)}),
              (std::array{known, known, known}))
        << i;
    if (i >= 0 && i <= vftButton + 1) german += VxFieldTypeToText(type, true) + u" ", internal += word + u" ";
  }
  EXPECT_EQ(german,
            u"Unbekannt Kurztext Text Wahrheitswert Zahl Kommazahl Datum Zeit Mehrzeilentext Zeitpunkt Status "
            u"Bild Stunden Währung Bruch HTML Schalter Grafik Knopf Unbekannt ");
  EXPECT_EQ(internal,
            u"Unknown ShortString String Boolean Integer Float Date Time Commatext DateTime Status Image "
            u"Hour Currency Fraction TinyHTML Toggle Grafik Button Unknown ");
  const TCases<String, int, TVxFieldType> cases = {
      {u"0", 0, vftUnknown},  {u"18", 18, vftUnknown},  {u"VFTDATE", 6, vftUnknown},  {u"vftunknown", 0, vftUnknown},
      {u"4", 4, vftUnknown},  {u"-1", 0, vftUnknown},   {u"Datum", -1, vftUnknown},   {u"vftDate ", -1, vftUnknown},
      {u"19", 0, vftUnknown}, {u" $C", 12, vftUnknown}, {u"vftDatė", -1, vftUnknown}, {u"99999999999", -1, vftUnknown},
      {u"", -1, vftUnknown},  {u"vftDate", 6, vftDate}};
  for (const auto& [text, loose, exact] : cases) {
    EXPECT_EQ(std::tuple(GetVxFieldType(text), IsVxFieldType(text), StrToFieldType(text)),
              std::tuple(loose, loose >= 0, exact))
        << text;
    uConst::FreeBuffersForLeakPrevention();
  }
}

TEST(ValueHelpers, Texts) {
  const std::map<String, TBoolExt> bools = {
      {u"", bNone}, {u"1", bTrue}, {u"0", bFalse}, {u" ", bFalse}, {u"1 ", bFalse}};
  for (const auto& [text, value] : bools) EXPECT_EQ(StrToBoolExt(text), value) << text;
  EXPECT_EQ(BoolExtToStr(bFalse) + BoolExtToStr(bNone) + BoolExtToStr(bTrue) + BoolExtToStr(TBoolExt(3)), u"01");
  const TDateTime day = EncodeDate(2015, 2, 1), moment = day + EncodeTime(6, 5, 0, 999);
  EXPECT_EQ(TVxDateHelper(moment).ToString() + TVxDateTimeHelper(day).ToString(), u"01.02.201501.02.2015 00:00:00");
  EXPECT_EQ(TVxTimeHelper(moment).ToString() + TVxTimeHelper(day - 0.5 - 0.5 / 1440).ToString(), u"06:0511:59:30");
  EXPECT_EQ(TVxStringHelper(u"20150201").ToDate(1), day);
  EXPECT_EQ(TVxStringHelper(u"29.02.2015").ToDate(1), 1);
  EXPECT_EQ((TFacts{TVxStringHelper(u"-12").ToInt(7), TVxStringHelper(u"1,2").ToInt(7)}), "-12 7");
  EXPECT_EQ(TVxIntegerHelper(INT32_MIN).ToString(), u"-2147483648");
}

TEST(Subtypes, Lists) {
  TVxStringList keys, texts, pairs, symbols;
  keys.SetCommatext(SubtypeKeys());
  String counts;
  for (const String& key : keys.Items()) {
    uConst::FreeBuffersForLeakPrevention();
    const String loose = LowerCase(key);
    symbols.Clear();
    texts.SetCommatext(SubtypeContent(loose));
    pairs.SetCommatext(SubtypeIdContent(loose));
    for (int i = 0; i < pairs.GetCount(); ++i) {
      const String symbol = getSubTypeSymbol(loose, i), text = getSubTypeText(key, i);
      EXPECT_EQ(pairs.Get(i) + texts.Get(i), WriteCommatext(TCells{symbol, text}) + text);
      EXPECT_EQ(getSubTypeIndex(key, LowerCase(symbol)), (symbols.Add(symbol), symbols.IndexOf(symbol)));
      EXPECT_EQ(SubtypeTextToSymbol(key, symbol), symbol);
    }
    EXPECT_EQ(getSubTypeText(key, pairs.GetCount()) + getSubTypeSymbol(key, texts.GetCount()), u"");
    counts += key + u" " + IntToStr(pairs.GetCount()) + u" ";
  }
  EXPECT_EQ(counts,
            u"ABRRUNDUNG 5 ABWESENHEITANSPRUCH 3 ABWESENHEITARBEITSZEIT 3 ABWESENHEITRUNDUNG 4 "
            u"ABWESENHEITSPEZIALISIERUNG 8 ANSPRUCHPRECISION 5 BERUF 19 BERUFSABSCHLUSS 15 BESCHART 9 "
            u"BESCHSTATUS 4 BOOLEXT 3 FAMSTATUS 8 FEDERALSTATE 53 LASTSCHRIFT 3 MEDITYP 4 MITTERMINGRUPPEN 6 "
            u"NATIONALITY 24 PATRELATION 23 PATTERMINGRUPPEN 6 PFLEGESTUFE 9 RELIGION 24 SEX 2 "
            u"SGBXILEISTUNGSART 4 SGBXIRESTAN 6 UNTERBRINGUNG 4 VERSORGUNG 6 WOCHENTAGE 8 ");
  const TCases<String, int, String> entries = {{u"RELIGION", 0, u" "},
                                               {u"BERUF", 4, u"4 Fachkrankenschwester/-pfleger"},
                                               {u"RELIGION", 23, u"?? unbekannt"},
                                               {u"RELIGION", 4, u"ef freie ev. Gemeinde"},
                                               {u"RELIGION", 22, u"-- keine Kirche"},
                                               {u"FEDERALSTATE", 40, u"40 Appenzell Ausserrhoden"},
                                               {u"PATRELATION", 22, u" "},
                                               {u"BESCHART", 7, u"48 Praktikant/in, Schüler/in, Azubi"},
                                               {u"PFLEGESTUFE", 0, u"-1 keine"},
                                               {u"SGBXIRESTAN", 5, u"PS Privat + Sozialamt"},
                                               {u"PATRELATION", 8, u"9 Großmutter"},
                                               {u"BERUFSABSCHLUSS", 10, u"78 Sozialpädagog(e)/in / Sozialarbeiter/in"},
                                               {u"BESCHART", 4, u"39 über 50% Vollzeit"},
                                               {u"ABWESENHEITSPEZIALISIERUNG", 3, u"D Dienstbesprechnung"},
                                               {u"NATIONALITY", 23, u"000 unbekannt"},
                                               {u"NATIONALITY", 14, u"040 österreichisch"}};
  for (const auto& [key, index, entry] : entries)
    EXPECT_EQ(getSubTypeSymbol(key, index) + u" " + getSubTypeText(key, index), entry);
  EXPECT_EQ(SubtypeIdContent(u"boolext"), u"\"0,Nein\",\"1,Ja\",\"2,\"\"keine Angabe\"\"\"");
}

TEST(Subtypes, LookingUp) {
  const TCases<String, String, int, String, String> cases = {
      {u"federalstate", u"0", 0, u"0", u""},   {u"FEDERALSTATE", u"UNBEKANNT", 52, u"0", u"unbekannt"},
      {u"FEDERALSTATE", u"", 0, u"0", u""},    {u"FEDERALSTATE", u"zürich", 26, u"26", u"Zürich"},
      {u"PFLEGESTUFE", u"0", 1, u"0", u"0"},   {u"NATIONALITY", u"000", 0, u"000", u""},
      {u"PFLEGESTUFE", u"0+", 6, u"5", u"0+"}, {u"Religion", u"LT", 2, u"lt", u"lutherisch"},
      {u"PATRELATION", u"", 22, u"", u""},     {u"SEX", u"", -1, u"", u""},
      {u"SEX", u"männlich ", -1, u"", u""},    {u"", u"0", -1, u"", u""},
      {u"SEXE", u"0", -1, u"", u""},           {u"zz", u"", -1, u"", u""}};
  for (const auto& row : cases) {
    const auto& [key, value, index, symbol, text] = row;
    EXPECT_EQ(std::tuple(key, value, getSubTypeIndex(key, value), SubtypeTextToSymbol(key, value),
                         SubtypeSymbolToText(key, value)),
              row);
  }
  EXPECT_EQ(Bundesland(26) + Bundesland(0) + Bundesland(52) + Bundesland(1), u"ZürichBaden-Württemberg");
  EXPECT_EQ(getSubTypeText(u"none", 0) + getSubTypeSymbol(u"none", 0) + SubtypeContent(u"none"), u"");
  EXPECT_EQ(test::RaisedBy<EArgumentException>([] { SubtypeIdContent(u"none"); }), u"Unknown subtype \"none\"");
}

TEST(Subtypes, Countries) {
  const auto number = [](TObject* object) { return static_cast<int>(reinterpret_cast<intptr_t>(object)); };
  const TCases<String, int, int, String> cases = {
      {u"2,26", 26, 2, u"0 2Bayern 26Zürich 0unbekannt "},
      {u" ", 7, 1, u"0 7Niedersachsen 0unbekannt "},
      {u"3 ,\"1\",99,x", 25, 3, u"0 1Baden-Württemberg 3Berlin 25Wien 0unbekannt "},
      {u"0", -5, 0, u"0 0unbekannt "}};
  TVxStringList list;
  for (const auto& [selection, current, result, expected] : cases) {
    EXPECT_EQ(GetCountries(list, selection, current), result) << current;
    String items;
    for (int i = 0; i < list.GetCount(); ++i) items += IntToStr(number(list.GetObject(i))) + list.Get(i) + u" ";
    EXPECT_EQ(items, expected);
  }
  for (int current : {0, 51, 52}) EXPECT_EQ(GetCountries(list, u"", current), current % 52) << current;
  EXPECT_EQ(list.GetCommatext(), SubtypeContent(u"FEDERALSTATE"));
  for (int i = 0; i < 53; ++i) EXPECT_EQ(number(list.GetObject(i)), i % 52);
  // The same texts: nothing is touched, the objects neither.
  list.PutObject(7, nullptr);
  EXPECT_EQ((TFacts{GetCountries(list, u"", 7), number(list.GetObject(7))}), "0 0");
  EXPECT_EQ((TFacts{GetCountries(list, u"7", 7), number(list.GetObject(1))}), "1 7");
}

}  // namespace
