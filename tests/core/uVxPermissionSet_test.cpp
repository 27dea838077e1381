#include "core/uVxPermissionSet.h"

#include "tests/support/Test.h"

namespace {

using namespace vx;

TEST(Permissions, TextsAndNumbers) {
  struct {
    String Text;
    int Number;
    TVxPermissionPart Part, Back;
  } parts[] = {{u"Schreiben", 2, ppWrite, ppWrite},     {u"Lesen/Ausführen", 1, ppRead, ppRead},
               {u"Löschen", 4, ppDelete, ppDelete},     {u"Exportieren", 8, ppExport, ppExport},
               {u"Vollzugriff", 32768, ppFull, ppFull}, {u"", 0, static_cast<TVxPermissionPart>(5), ppWrite}};
  for (const auto& c : parts) {
    TVxPermissionPart back = ppWrite;
    EXPECT_TRUE(PermissionPartToStr(c.Part) == c.Text && PermissionPartToInt(c.Part) == c.Number) << c.Number;
    EXPECT_TRUE(StrToPermissionPart(c.Text, back) == (c.Number != 0) && back == c.Back) << c.Number;
    EXPECT_FALSE(StrToPermissionPart(c.Text + u" ", back) || StrToPermissionPart(u"schreiben", back));
  }
  struct {
    TVXPermissionSet Rights;
    int Number;
    String Text;
  } sets[] = {{{}, 0, u""},
              {{ppRead}, 1, u"Lesen/Ausführen"},
              {{ppWrite}, 3, u"Lesen/Ausführen,Schreiben"},
              {{ppDelete}, 7, u"Schreiben,Löschen"},
              {{ppExport}, 9, u"Lesen/Ausführen,Exportieren"},
              {{ppFull, ppRead}, 32768, u"Vollzugriff"},
              {{ppFull, ppDelete, ppExport}, 32768, u"Vollzugriff,Schreiben,Löschen,Exportieren"}};
  for (auto& c : sets) EXPECT_EQ(PermissionSetToInt(c.Rights), c.Number);
  for (auto& c : sets) EXPECT_EQ(PermissionSetToStr(c.Rights), c.Text);
  const TVXPermissionSet four = {ppRead, ppWrite, ppDelete, ppExport}, five = four + TVXPermissionSet{ppFull};
  struct {
    int Number;
    TVXPermissionSet Rights;
  } numbers[] = {{-1, {}},   {0, {}},    {4, {ppDelete}}, {9, {ppRead, ppExport}}, {2, {ppWrite}},
                 {15, four}, {16, four}, {32767, four},   {32768, five},           {INT32_MAX, five}};
  for (const auto& c : numbers) EXPECT_EQ(IntToPermissionSet(c.Number), c.Rights) << c.Number;
}

}  // namespace
