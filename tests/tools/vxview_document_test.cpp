#include "tests/support/TempDir.h"
#include "tests/support/Test.h"
#include "tools/vxview/TableDocument.h"

namespace vx::vxview {
namespace {

struct Document : testing::Test {
  String Write(const std::string& Name, const std::string& Bytes) {
    test::PutText(dir.Path(Name), Bytes);
    return dir.Path(Name);
  }
  test::TTempDir dir;
  TLoadState state;
};

TEST_F(Document, ComesBackByItsOwnRules) {
  const std::string own = "Name,Geboren\r\nM\xFCller,04.05.1944\r\nMeier,01.02.1950\r\n",
                    foreign =
                        "\xEF\xBB\xBFName;Ort\n;\xC5\x81\xC3\xB3"
                        "d\xC5\xBA\n";
  for (const auto& [name, bytes, looksForeign] :
       TCases<std::string, std::string, bool>{{"a.csv", own, false}, {"b.csv", foreign, true}}) {
    const String path = Write(name, bytes);
    TLoadedTable loaded = LoadTable(path, {}, state);
    EXPECT_EQ(loaded.LooksForeign, looksForeign) << name;
    if (looksForeign) loaded = LoadTable(path, TFileForm{frForeign, {}}, state);
    loaded.View->ShowOnly([](const TVxStringList&) { return false; });
    const TSaveOutcome outcome = SaveTable(*loaded.View, path, loaded.Form, loaded.Stamp);
    EXPECT_EQ(outcome.Kind, skSaved) << outcome.Text.ToUtf8();
    EXPECT_EQ(test::GetText(path), bytes) << name;
  }
}

TEST_F(Document, TypesAreGuessedOrTold) {
  const String path = Write("a.csv", "PLZ,Geboren,Grad\r\n53111,04.05.1944,2\r\n01067,01.02.1950,3\r\n");
  const TLoadedTable plain = LoadTable(path, {}, state);
  TDecorationList& guessed = plain.View->GetDecorations();
  for (const auto& [col, type] : TCases<int, TVxFieldType>{{0, vftString}, {1, vftDate}, {2, vftInteger}}) {
    EXPECT_EQ(guessed.VirtualListForCell(col, 1)->Compress()->GetFieldType(), type) << col;
  }
  TDecorationList look;
  look.SetTitle(u"Geburtstage");
  Write("a.look", GetSystemCodePage().Encode(look.GetCommatext()));
  const TLoadedTable loaded = LoadTable(path, {}, state);
  EXPECT_TRUE(TakeLook(*loaded.View, path));
  EXPECT_EQ(loaded.View->GetDecorations().GetTitle(), u"Geburtstage");
  EXPECT_FALSE(TakeLook(*loaded.View, dir.Path("b.csv")));
}

TEST_F(Document, NothingIsLostInSilence) {
  const String path = Write("a.csv", "Name\r\nMeier\r\n");
  TLoadedTable loaded = LoadTable(path, {}, state);
  loaded.View->SetCell(0, 1, u"Łódź");
  EXPECT_EQ(SaveTable(*loaded.View, path, loaded.Form, loaded.Stamp).Kind, skLost);
  loaded.View->SetCell(0, 1, u"Müller");
  Write("a.csv", "Name\r\nHuber\r\n");
  EXPECT_EQ(SaveTable(*loaded.View, path, loaded.Form, loaded.Stamp).Kind, skChanged);
  EXPECT_EQ(test::GetText(path), "Name\r\nHuber\r\n");
  EXPECT_EQ(SaveTable(*loaded.View, path, loaded.Form, {}).Kind, skSaved);
  const TSaveOutcome failed = SaveTable(*loaded.View, dir.Path("no/a.csv"), loaded.Form, {});
  EXPECT_EQ(failed.Kind, skFailed);
  EXPECT_TRUE(failed.Text.view().ends_with(u"Ihr Verzeichnis ist nicht vorhanden.")) << failed.Text;
  EXPECT_THROW(LoadTable(dir.Path("none.csv"), TFileForm{frForeign, {}}, state), EFOpenError);
}

TEST_F(Document, StopsWhenToldTo) {
  std::string bytes;
  for (int row = 0; row < 5000; ++row) bytes += "a,b\r\n";
  const String path = Write("a.csv", bytes);
  state.IsCancelled = true;
  EXPECT_THROW(LoadTable(path, {}, state), TCancelled);
  EXPECT_THROW(LoadTable(path, TFileForm{frForeign, {}}, state), TCancelled);
  state.IsCancelled = false;
  EXPECT_EQ(LoadTable(path, {}, state).View->GetCount(), 5000);
  EXPECT_GT(state.Done, 10000);
}

}  // namespace
}  // namespace vx::vxview
