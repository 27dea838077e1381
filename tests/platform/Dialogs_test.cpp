#include "platform/Dialogs.h"

#include "platform/Graphics.h"
#include "platform/Shell.h"
#include "tests/support/Test.h"

namespace {

TEST(DialogsTest, DefaultSinkWritesToStandardErrorAndAnswersOk) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(MessageDlg(u"Löschen?\r\nJa\rNein", mtConfirmation, {mbYes, mbNo}), mrOk);
  ShowWarning(u"w"), ShowMessage(u"");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Confirmation: Löschen?\nJa\rNein\nWarning: w\nMessage: \n");
}

TEST(DialogsTest, ScriptRecordsAnswersInOrderAndPutsThePreviousBack) {
  TScriptedDialogs dialogs;
  dialogs.AnswerNext(mrNo), dialogs.AnswerNext(mrAbort);
  EXPECT_EQ(MessageDlg(u"a", mtConfirmation, {mbYes, mbNo}), mrNo);
  {
    TScriptedDialogs inner;
    EXPECT_EQ(MessageDlg(u"b", mtError, {mbOK}), mrOk);
    SetDialogSink([](const TDialog&) {
      SetDialogSink([](const TDialog&) { return mrClose; });
      return MessageDlg(u"a sink may show dialogs and replace itself", mtError, {mbOK});
    });
    EXPECT_EQ(MessageDlg(u"outer", mtError, {mbOK}), mrClose);
  }
  EXPECT_EQ(MessageDlg(u"c", mtError, {mbOK}), mrAbort);
  ShowWarning(u"d");
  ASSERT_EQ(dialogs.Shown.size(), 3u);
  EXPECT_EQ(std::pair(dialogs.Shown[0].Text, dialogs.Shown[0].Buttons),
            std::pair(String(u"a"), TMsgDlgButtons{mbYes, mbNo}));
  EXPECT_EQ(std::pair(dialogs.Shown[2].Kind, dialogs.Shown[2].Buttons), std::pair(mtWarning, TMsgDlgButtons{mbOK}));
}

TEST(DialogsTest, DiversionsTakeWhatOnlyTells) {
  TScriptedDialogs screen;
  {
    const TDialogDiversion diversion(
        [](const TDialog& dialog) { return ShowWarning(u"Take " + dialog.Text), dialog.Text == u"e"; });
    screen.AnswerNext(mrCancel), screen.AnswerNext(mrYes);
    EXPECT_EQ((TFacts{MessageDlg(u"e", mtError, {mbOK}), MessageDlg(u"r", mtError, {mbOK, mbRetry})}), "1 6");
    ShowWarning(u"w"), ShowMessage(u"m");
    const TDialogDiversion shown({});
    ShowWarning(u"s");
  }
  ShowWarning(u"outside");
  String all;
  for (const TDialog& dialog : screen.Shown) all += dialog.Text + u"|";
  EXPECT_EQ(all, u"Take e|r|Take w|w|m|s|outside|");
}

// An own directory with an opener that tells on a pipe what it was given.
class ShellTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string opener = FDirectory + "/xdg-open", pipe = FDirectory + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    test::PutText(FDir.Path("xdg-open"), "#!/bin/sh\n{ echo \"$#\"; echo \"$1\"; pwd; } > '" + pipe + "'\n");
    test::PutText(FFile, "x");
    ASSERT_EQ(chmod(opener.c_str(), 0700), 0);
    setenv("PATH", ("/nowhere::" + FDirectory + ":" + FPath).c_str(), 1);
  }
  void TearDown() override {
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a process is left behind";
    setenv("PATH", FPath.c_str(), 1);
  }
  test::TTempDir FDir;
  std::string FDirectory = FDir.GetPath(), FPath = std::getenv("PATH");
  String FFile = FDir.Path("Größe; $(touch x) 'a'.csv");
};

TEST_F(ShellTest, StartsTheOpenerWithTheFileInTheDirectory) {
  ASSERT_TRUE(OpenDocument(FFile, u"/usr"));
  EXPECT_EQ(test::GetText(String::FromUtf8(FDirectory + "/pipe")), "1\n" + FFile.ToUtf8() + "\n/usr\n");
}

TEST_F(ShellTest, ReportsWhatCannotBeStarted) {
  for (const String& file : {String(), FFile + u".missing", FFile + std::u16string_view(u"\0x", 2)})
    EXPECT_FALSE(OpenDocument(file, u"")) << file.ToUtf8();
  EXPECT_FALSE(OpenDocument(FFile, FFile)) << "not a directory";
  setenv("PATH", "/nowhere", 1);
  EXPECT_FALSE(OpenDocument(FFile, u"")) << "no opener";
  SetOpenDocument([](const String& file, const String& directory) { return file == u"D:\\a" && directory == u"D:\\"; });
  EXPECT_TRUE(OpenDocument(u"D:\\a", u"D:\\"));
  EXPECT_TRUE(SetOpenDocument({}));
}

TEST(ColorTest, NamesAndNumbers) {
  const TCases<std::u16string_view, std::u16string_view, TColor> cases = {
      {u"$123abc", u"$00123ABC", 0x123ABC},        {u"CLBLUE", u"clBlue", 0xFF0000},
      {u"$ff000008", u"clWindowText", 0xFF000008}, {u"$00000000000FF", u"clRed", 0xFF},
      {u"4294967295", u"$FFFFFFFF", 0xFFFFFFFF},   {u"-16777208", u"clWindowText", 0xFF000008},
      {u"-2147483648", u"$80000000", 0x80000000}};
  for (const auto& [text, written, color] : cases)
    EXPECT_EQ(std::pair(StringToColor(text), ColorToString(color)), std::pair(color, String(written))) << String(text);
  for (uint64_t value = 0; value <= 0xFFFFFFFF; value += value < 0xFEFF0000 || value > 0xFF000100 ? 99991 : 1)
    ASSERT_EQ(StringToColor(ColorToString(static_cast<TColor>(value))), value);
  for (std::u16string_view text : {u"", u"$", u"-", u"clRe", u"clRedd", u" 1", u"1 ", u"0x1", u"$-1", u"-$1", u"1A",
                                   u"4294967296", u"-2147483649", u"$100000000", u"cl\u212Aed"})
    EXPECT_THROW(StringToColor(text), EConvertError) << String(text).ToUtf8();
}

}  // namespace
