#include "core/uVxPermissionSet.h"

#include "tests/support/Test.h"

namespace {

TEST(Permissions, TextsAndNumbers) {
  const TCases<String, int, TVxPermissionPart, TVxPermissionPart> parts = {
      {u"Schreiben", 2, ppWrite, ppWrite},     {u"Lesen/Ausführen", 1, ppRead, ppRead},
      {u"Löschen", 4, ppDelete, ppDelete},     {u"Exportieren", 8, ppExport, ppExport},
      {u"Vollzugriff", 32768, ppFull, ppFull}, {u"", 0, static_cast<TVxPermissionPart>(5), ppWrite}};
  for (const auto& row : parts) {
    const auto& [text, number, part, expected] = row;
    TVxPermissionPart back = ppWrite;
    EXPECT_EQ(StrToPermissionPart(text, back), number != 0) << number;
    EXPECT_EQ(std::tuple(PermissionPartToStr(part), PermissionPartToInt(part), part, back), row);
    for (const String& bad : {text + u" ", String(u"schreiben")}) EXPECT_FALSE(StrToPermissionPart(bad, back)) << bad;
  }
  const TCases<TVXPermissionSet, int, String> sets = {
      {{}, 0, u""},
      {{ppRead}, 1, u"Lesen/Ausführen"},
      {{ppWrite}, 3, u"Lesen/Ausführen,Schreiben"},
      {{ppDelete}, 7, u"Schreiben,Löschen"},
      {{ppExport}, 9, u"Lesen/Ausführen,Exportieren"},
      {{ppFull, ppRead}, 32768, u"Vollzugriff"},
      {{ppFull, ppDelete, ppExport}, 32768, u"Vollzugriff,Schreiben,Löschen,Exportieren"}};
  for (const auto& [rights, number, text] : sets)
    EXPECT_EQ(std::pair(PermissionSetToInt(rights), PermissionSetToStr(rights)), std::pair(number, text));
  const TVXPermissionSet four = {ppRead, ppWrite, ppDelete, ppExport}, five = four + TVXPermissionSet{ppFull};
  const TCases<int, TVXPermissionSet> numbers = {
      {-1, {}},   {0, {}},    {4, {ppDelete}}, {9, {ppRead, ppExport}}, {2, {ppWrite}},
      {15, four}, {16, four}, {32767, four},   {32768, five},           {INT32_MAX, five}};
  for (const auto& [number, rights] : numbers) EXPECT_EQ(IntToPermissionSet(number), rights) << number;
}

}  // namespace
