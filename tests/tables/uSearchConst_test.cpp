#include "tables/uSearchConst.h"

#include "tests/support/Test.h"

namespace {

TEST(uSearchConst, EveryWordIsFoundByTextAndBySymbol) {
  struct {
    std::span<const std::u16string_view> Texts, Symbols;
    int (*Index)(std::u16string_view) noexcept;
    String (*Text)(int), (*Symbol)(int), (*ToText)(std::u16string_view), (*ToSymbol)(std::u16string_view);
    bool (*Validate)(String&);
  } kinds[] = {{CLAUSE_TEXT, CLAUSE_SYMBOL, getClauseIndex, getClauseText, getClauseSymbol, ClauseSymbolToText,
                ClauseTextToSymbol, ValidateClauseSymbol},
               {DATE_TEXT, DATE_SYMBOL, getDateIndex, getDateText, getDateSymbol, SymbolToDate, DateToSymbol,
                ValidateDateSymbol},
               {TIME_TEXT, TIME_SYMBOL, getTimeIndex, getTimeText, getTimeSymbol, SymbolToTime, TimeToSymbol,
                ValidateTimeSymbol}};
  for (const auto& kind : kinds) {
    for (int i = -1; i <= static_cast<int>(kind.Texts.size()); ++i) {
      const size_t at = static_cast<size_t>(i) < kind.Texts.size() ? static_cast<size_t>(i) : 0;
      const std::tuple wanted{String(kind.Texts[at]), String(kind.Symbols[at]), static_cast<int>(at)};
      EXPECT_EQ(std::tuple(kind.Text(i), kind.Symbol(i), static_cast<int>(at)), wanted) << i;
      for (std::u16string_view word : {kind.Texts[at], kind.Symbols[at]})
        EXPECT_EQ(std::tuple(kind.ToText(word), kind.ToSymbol(word), kind.Index(word)), wanted) << i;
      String symbol = kind.Symbols[at];
      EXPECT_TRUE(kind.Validate(symbol)) << i;
      EXPECT_EQ(symbol, kind.Symbols[at]);
    }
    for (const char16_t* unknown : {u"xyz", u"", u"MM", u"Gleich ="}) {
      String symbol = unknown;
      EXPECT_EQ((TFacts{kind.Index(unknown), kind.Validate(symbol)}), "0 no") << symbol;
      EXPECT_EQ(symbol, kind.Symbols[0]);
    }
  }
}

TEST(uSearchConst, ATimeIsNeverAGoodDateTime) {
  for (auto [before, after] : {std::pair{u"mm", u"mm"}, {u"hh", u"hh:nn:ss"}, {u"x", u"hh:nn:ss"}}) {
    String symbol = before;
    EXPECT_EQ(ValidateDateTimeSymbol(symbol), symbol == u"mm");
    EXPECT_EQ(symbol, after);
  }
}

TEST(uSearchConst, Status) {
  for (auto [text, number, status] :
       {std::tuple{u"Aktiv", 0, tsActive}, {u"INAKTIV", 8, tsInactive}, {u"GELÖSCHT", 9, tsDeleted}}) {
    const std::tuple wanted{String(STATUS_TEXT[status]), number, status};
    EXPECT_EQ(std::tuple(GetStatusText(number), GetStatusIndex(text), GetStatus(number)), wanted);
    EXPECT_EQ(std::tuple(GetStatusText(status), GetStatusIndex(status), GetStatus(text)), wanted);
  }
  EXPECT_EQ((TFacts{GetStatusIndex(u"tot"), GetStatus(5), GetStatus(u"tot"), GetStatusText(5)}), "-1 0 0 ");
}

TEST(uSearchConst, Commatexts) {
  EXPECT_EQ(GetClauseCommaText(true), u"\"gleich =\",\"ungleich <>\"");
  EXPECT_EQ(GetClauseCommaText(false).Slice(0, 53), u"enthält,\"enthält nicht\",\"gleich =\",\"ungleich <>\",\"kle");
  EXPECT_EQ(GetDateTimeCommaText(true, true), u"Datum,Tag,Monat,Jahr,Zeit,Stunde,Minute,Sekunde");
  EXPECT_EQ(GetDateTimeCommaText(false, false) + GetStatusCommaText(), u"aktiv,inaktiv,gelöscht");
  EXPECT_EQ(GetBoolCommaText() + u"/" + GetCaseCommaText(), u"Nein,Ja/,aA");
}

}  // namespace
