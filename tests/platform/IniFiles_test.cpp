#include "platform/CustomIniFile.h"
#include "platform/THashedStringList.h"
#include "tests/support/Test.h"

namespace {

// Searches of a list against those of a plain one, under random changes of both.
TEST(HashedStringList, FindsTheFirstWhateverChanges) {
  const std::vector<String> names({u"", u"a", u"A", u"ä", u"Ä", u"ß", u"zZ[{`@", u"Straße", u"STRAßE",
                                   u"Überschrift 1234567", u"überschrift 1234567", u"überschrift 1234568",
                                   u"Überschrift 12345", u"a", u"öab", u"abcd"});
  std::mt19937 random(7);
  auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  auto item = [&] {
    const String& name = names.begin()[below(16)];
    return below(4) == 0 ? name : name + u"=" + names.begin()[below(4)] + (below(3) == 0 ? u"=" : u"");
  };
  THashedStringList list;
  std::vector<String> plain;
  for (int round = 1; round <= 20000; ++round) {
    const int count = static_cast<int>(plain.size()), at = below(count + 1), to = below(count + 1);
    const String text = item();
    const std::function<void()> works[] = {
        [&] { list.Clear(), list.Add(text), plain.assign(1, text); },
        [&] { list.Add(text), plain.push_back(text); },
        [&] { list.Insert(at, text), plain.insert(plain.begin() + at, text); },
        [&] { list.Delete(at), plain.erase(plain.begin() + at); },
        [&] { list.Exchange(at, to), std::swap(plain.begin()[at], plain.begin()[to]); },
        [&] { list.Put(at, text), plain.begin()[at] = text; },
        [&] { list.Put(at, list.GetNames(at) + u"=x"), plain.begin()[at] = list.View(at); },
        [&] { list.PutObject(at, nullptr), list.SetCapacity(count + 3); }};
    const bool isInside = at < count && to < count;
    works[std::min(count > 90 ? 0 : below(isInside ? 9 : 3), 7)]();
    ASSERT_EQ(list.GetCount(), static_cast<int>(plain.size()));
    const String wanted = UpperCase(below(2) == 0 ? item() : names.begin()[below(16)]);
    int first = -1, firstName = -1;
    for (int i = list.GetCount() - 1; i >= 0; --i) {
      const String& own = plain.begin()[i];
      ASSERT_EQ(list.Get(i), own);
      if (UpperCase(own) == wanted) first = i;
      if (Pos(u"=", own) == 0) continue;
      EXPECT_EQ(list.GetNames(i) + u"=" + list.GetValueFromIndex(i), own);
      if (UpperCase(list.GetNames(i)) == wanted) firstName = i;
    }
    ASSERT_EQ(round % 3 > 0 ? list.IndexOf(wanted) : first, first) << wanted.ToUtf8();
    ASSERT_EQ(round % 5 > 0 ? list.IndexOfName(LowerCase(wanted)) : firstName, firstName) << wanted.ToUtf8();
  }
  EXPECT_THROW(list.Put(-1, u""), EStringListError);
  EXPECT_THROW(list.Insert(list.GetCount() + 1, u""), EStringListError);
}

struct TTextsIni : TCustomIniFile {
  TTextsIni() : TCustomIniFile(u"a.ini") {}
  String ReadString(std::u16string_view, std::u16string_view Ident, const String& Default) override {
    return Ident == u"list" ? THashedStringList().Get(0) : Texts.count(Ident) > 0 ? Texts[Ident] : Default;
  }
  void WriteString(const String&, const String& Ident, const String& Value) override { Texts[Ident] = Value; }
  void ReadSection(std::u16string_view, TStrings&) override {}
  void ReadSections(TStrings&) override {}
  void ReadSectionValues(std::u16string_view, TStrings&) override {}
  void EraseSection(const String&) override {}
  void DeleteKey(const String&, const String&) override {}
  void UpdateFile() override {}
  bool ValueExists(std::u16string_view, std::u16string_view) override { return false; }
  std::map<String, String> Texts;
};

// Items go in any order, each found by its name, while others come; doubles come out as the first of them goes.
TEST(HashedStringList, LosesManyItems) {
  constexpr int kNames = 20000, kDoubles = 10;
  THashedStringList list;
  std::vector<int> order(kNames);
  std::iota(order.begin(), order.end(), 0);
  auto line = [](int name, int turn) { return Concat({IntToStr(name), u"=", IntToStr(turn)}); };
  for (int turn : {0, 1}) {
    for (int name : order) {
      if (turn == 0 || name % kDoubles == 0) list.Add(line(name, turn));
    }
  }
  std::shuffle(order.begin(), order.end(), std::mt19937(7));
  std::vector<bool> isGone(kNames);
  std::vector<String> expected, left;
  for (int i = 0; i < kNames / 2; ++i) {
    const int name = order[static_cast<size_t>(i)];
    const int index = list.IndexOfName(IntToStr(name));
    ASSERT_EQ(list.Get(index), line(name, 0));
    list.Delete(index);
    isGone[static_cast<size_t>(name)] = true;
    ASSERT_EQ(list.IndexOfName(IntToStr(name)) >= 0, name % kDoubles == 0);
    if (i % 3 == 0) list.Add(line(name, 2));
  }
  for (int turn : {0, 1}) {
    for (int name = 0; name < kNames; ++name) {
      if (turn == 0 ? !isGone[static_cast<size_t>(name)] : name % kDoubles == 0) expected.push_back(line(name, turn));
    }
  }
  for (int i = 0; i < kNames / 2; i += 3) expected.push_back(line(order[static_cast<size_t>(i)], 2));
  for (int i = 0; i < list.GetCount(); ++i) left.push_back(list.Get(i));
  EXPECT_EQ(left, expected);
  for (size_t i = left.size(); i-- > 0;) ASSERT_EQ(list.View(static_cast<int>(i)), left[i]);
}

TEST(CustomIniFile, TypedValuesGoThroughTheirTexts) {
  TTextsIni ini;
  const TCases<String, int, double, double, double, double> cases = {
      {u"0x1F", 31, 9, 9, 9, 9}, {u"12", 12, 9, 0.5, 0.5, 12},         {u"0x", 7, 9, 9, 9, 9},
      {u"$a", 10, 9, 9, 9, 9},   {u"0XFF", 255, 9, 9, 9, 9},           {u"99999999999", 7, 9, 9, 9, 99999999999},
      {u"0x1G", 7, 9, 9, 9, 9},  {u"0xFFFFFFFF", -1, 9, 9, 9, 9},      {u"", 7, 9, 9, 9, 9},
      {u"0x-1", 7, 9, 9, 9, 9},  {u"1.2.2015", 7, 42036, 42036, 9, 9}, {u"0", 0, 9, 0, 0, 0},
      {u"1,5", 7, 9, 9, 9, 1.5}, {u"18:00", 7, 9, 0.75, 0.75, 9},      {u"1.2.2015 6:00", 7, 9, 42036.25, 9, 9}};
  for (const auto& [text, integer, date, dateTime, time, float_] : cases) {
    ini.WriteString(u"s", u"d", text);
    EXPECT_EQ((std::vector{ini.ReadDate(u"s", u"d", 9), ini.ReadDateTime(u"s", u"d", 9), ini.ReadTime(u"s", u"d", 9),
                           static_cast<double>(ini.ReadFloat(u"s", u"d", 9)), ini.ReadInteger(u"s", u"d", 7) + 0.0}),
              (std::vector{date, dateTime, time, float_, integer + 0.0}))
        << text;
    EXPECT_EQ(ini.ReadBool(u"s", u"d", true), integer != 0);
  }
  EXPECT_EQ((TFacts{ini.ReadDate(u"s", u"-", 42036.25), ini.ReadTime(u"s", u"-", 42036.25)}), "42036 0.25")
      << "as texts";
  EXPECT_THROW(ini.ReadDate(u"s", u"list", 0), EStringListError);
  ini.WriteInteger(u"s", u"i", -1), ini.WriteBool(u"s", u"b", true), ini.WriteDate(u"s", u"d", 42036.25);
  ini.WriteDateTime(u"s", u"dt", 42036.25), ini.WriteTime(u"s", u"t", 42036.25), ini.WriteFloat(u"s", u"f", 1.5);
  String all;
  for (const auto& [key, text] : ini.Texts) all = all + key + u"=" + text + u";";
  EXPECT_EQ(all, u"b=1;d=01.02.2015;dt=01.02.2015 06:00:00;f=1,5;i=-1;t=06:00:00;");
}

}  // namespace
