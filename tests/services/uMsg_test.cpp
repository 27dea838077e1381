#include "services/uMsg.h"

#include "platform/Application.h"
#include "tables/Csv.h"
#include "tables/uFileCsv.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;
using test::GetText;

struct Messages : testing::Test {
  Messages() { SetLog(laDestroy); }
  ~Messages() override {
    TMsgHandlerLog log = Msg().GetLog();
    log.Active = false;
    Msg().SetLog(log);
    uMsg::FreeBuffersForLeakPrevention();
  }
  void SetLog(TLogAttitude attitude, String format = u"%2,%3,%4,%5,%6") {
    uMsg::FreeBuffersForLeakPrevention();
    Msg().SetLog({true, attitude, Dir.Path("messages.log"), std::move(format)});
  }
  // The dialogs since the last call: kind, buttons by "I" for Ignore, and text.
  std::vector<std::string> Dialogs() {
    std::vector<std::string> result;
    for (const TDialog& dialog : Screen.Shown)
      result.push_back(std::string(1, "WEI"[dialog.Kind]) + (dialog.Buttons.Has(mbIgnore) ? "I " : " ") +
                       dialog.Text.ToUtf8());
    Screen.Shown.clear();
    return result;
  }
  std::string EndLog() { return uMsg::FreeBuffersForLeakPrevention(), GetText(Dir.Path("messages.log")); }
  test::TTempDir Dir;
  TScriptedDialogs Screen;
  test::TClockAt Clock{46000.25};
  test::TZoneAt Zone{60};
};
using TTexts = std::vector<std::string>;

bool Report(TMsgInfo info, bool success) { return Msg().GetMsg()(info, success); }

TEST_F(Messages, SingleReports) {
  const TCases<TMsgInfo, bool, std::string> cases = {
      {Error(u"e"), true, "yes "},
      {Error(u"e", u"s", u"gut"), true, "yes I gut"},
      {Error(u"e", u"s", u"gut"), false, "no E e"},
      {Warning(u"w", u"s"), true, "yes WI w"},
      {Warning(u"w"), false, "yes WI w"},
      {{msgWarning, u"w", u"", u"gut"}, true, "yes WI gut\r\nWarnung: w"},
      {Log(u"l", u"s"), false, "yes "}};
  for (const auto& [info, success, told] : cases) {
    EXPECT_EQ((TFacts{Report(info, success), Dialogs()}), told) << info.msg;
  }
  SetTerminating(true);
  Report(Error(u"e"), false);
  SetTerminating(false);
  EXPECT_EQ(Dialogs(), TTexts());
  EXPECT_EQ(EndLog(),
            "ERROR,,s,0,e\r\nWARNING,,s,0,w\r\nWARNING,,,0,w\r\nWARNING,,,0,w\r\nLOG,,s,0,l\r\nERROR,,,0,e\r\n");
}

TEST_F(Messages, NestedReportsAreOneDialog) {
  TestErrorHandling();
  EXPECT_EQ(Dialogs(), (TTexts{"E Falsch\r\n\r\nFehler: Store: Error"}));
  TestBeginEndAction();
  EXPECT_EQ(Dialogs(),
            (TTexts{"WI BeginEndAction hat nen Problem\r\n\r\nWarnung: TSubClass: Anzahl der Felder nicht korrekt\r\n"
                    "Warnung: TClass: Anzahl der Felder nicht korrekt"}));
  EXPECT_EQ(EndLog(),
            "ERROR,,store,1,Store: Error\r\nERROR,,Testerrorhandling,0,Falsch\r\n"
            "WARNING,,TSubClass.SetData,3,TSubClass: Anzahl der Felder nicht korrekt\r\n"
            "WARNING,,TClass.SetData,2,TClass: Anzahl der Felder nicht korrekt\r\n"
            "WARNING,,TClass.SetData,2,TClass: Anzahl der Felder nicht korrekt\r\n"
            "WARNING,,TSubClass.SetData,3,TSubClass: Anzahl der Felder nicht korrekt\r\n"
            "WARNING,,TestBeginEndAction,1,BeginEndAction hat nen Problem\r\n");
}

TEST_F(Messages, Actions) {
  Msg().BeginAction();
  EXPECT_FALSE(Msg().IsAlert());
  EXPECT_EQ((TFacts{Msg().EndAction({msgError, u"nicht berichtet", u"s", u"fertig"}), Dialogs()}), "yes I fertig");
  Msg().BeginAction();
  Report(Error(u"tief"), false);
  EXPECT_TRUE(Msg().IsAlert());
  EXPECT_EQ((TFacts{Msg().EndAction(Warning(u"Ende", u"s")), Dialogs()}), "no E Ende\r\n\r\nFehler: tief")
      << "a failed action closes with an error";
  for (int i = 0; i < 3; ++i) Report(Warning(u"x", u"s"), true);
  Msg().BeginAction();
  for (const char16_t* text : {u"a", u"b", u"a"}) Report(Warning(text, u"s"), true);
  Dialogs();
  Msg().EndAction({msgWarning, u"c", u"s", u"gut"});
  EXPECT_EQ(Dialogs(), (TTexts{"WI gut\r\nEs sind 3 Warnungen aufgetreten\r\n\r\nWarnung: a\r\nWarnung: b"}));
  Msg().EndAction();
  EXPECT_EQ(Dialogs().size(), 2u) << "an EndAction too many is told, and shown twice as the depth falls twice";
  Msg().BeginAction();
  const std::string log = EndLog();
  EXPECT_EQ(Dialogs(), (TTexts{"E MessageHandler korrupt!"}));
  EXPECT_NE(log.find("ERROR,,TMsgHandler.Destroy,-1,MessageHandler korrupt, EndAction ohne BeginAction!\r\n"),
            log.npos);
  EXPECT_EQ(log.find("nicht berichtet"), log.npos);
  EXPECT_TRUE(log.ends_with("LOG,,TMsgHandler.Destroy,0,MessageHandler korrupt!\r\n")) << log;
}

struct TRecorder {
  void Shown(const TMsgInfo& top, TMsgList& list, bool result) {
    Tops.push_back(top.msg), Count = list.GetCount(), Result = result;
  }
  void Logged(const TMsgInfo&, int level, bool ignored) { Levels.push_back(ignored ? -1 : level); }
  std::vector<String> Tops;
  std::vector<int> Levels;
  int Count = 0;
  bool Result = true;
};

TEST_F(Messages, IgnoringAndInterrupts) {
  Screen.AnswerNext(mrIgnore);
  for (const char16_t* sender : {u"Sender", u"Sender", u"sender"}) Report(Warning(u"w", sender), true);
  EXPECT_EQ(Dialogs().size(), 2u) << "senders are told apart by case";
  TTaskDialog task;
  SetTaskDialogSink([&](const TTaskDialog& dialog) { return task = dialog, mrIgnore; });
  Report(Warning(u"w", u"Dritter"), true);
  SetTaskDialogSink({});
  EXPECT_EQ((TFacts{task.Caption, task.Title, task.ExtraButton}), "Warnung w Warnungen ignorieren");
  Report(Warning(u"w", u"Dritter"), true);
  EXPECT_EQ(Dialogs(), TTexts());
  TRecorder recorder;
  Msg().SetMsgInterrupt(TMsgInterrupt::Of<&TRecorder::Shown>(recorder));
  Msg().SetLogInterrupt(TLogInterrupt::Of<&TRecorder::Logged>(recorder));
  Msg().GetMsg()(Error(u"außen"), Report(Warning(u"innen", u"Sender"), true) && Report(Error(u"innen"), false));
  EXPECT_EQ((TFacts{recorder.Tops, recorder.Count, recorder.Result, recorder.Levels}), "außen 2 no -1,1,0");
  Msg().SetLogInterrupt({});
  EXPECT_NE(EndLog().find("WARNING,ignored,Sender,0,w"), std::string::npos);
}

TEST_F(Messages, ScopesEndWhateverPasses) {
  auto raise = []() -> bool { throw std::runtime_error("passes"); };
  EXPECT_THROW(TMsgReport()(Error(u"Kopf"), Report(Error(u"innen"), false) || raise()), std::runtime_error);
  EXPECT_EQ(Dialogs(), TTexts{"E innen"}) << "what was reported until then";
  auto act = [&] {
    TMsgAction outer;
    const TMsgAction inner;
    Report(Warning(u"w"), true);
    raise();
  };
  EXPECT_THROW(act(), std::runtime_error);
  EXPECT_EQ(Dialogs(), TTexts{"WI w"});
  {
    TMsgAction action;
    EXPECT_FALSE(TMsgReport()(Error(u"e"), false));
    EXPECT_FALSE(action.End(Error(u"Ende")));
  }
  EXPECT_EQ(Dialogs(), TTexts{"E Ende\r\n\r\nFehler: e"});
  // The screen fails just as the last message is shown.
  const TDialogSink sink = SetDialogSink([](const TDialog&) -> TModalResult { throw std::runtime_error("screen"); });
  EXPECT_THROW(Report(Error(u"e"), false), std::runtime_error);
  EXPECT_THROW(act(), std::runtime_error);
  SetDialogSink(sink);
  EXPECT_EQ((TFacts{Report(Error(u"danach"), false), Dialogs()}), "no E danach");
}

TEST_F(Messages, LogFormsAndAttitudes) {
  SetLog(laInstant, u"%%1%7|%1|%6|%4|%");
  TMsgInfo info = Log(u"M%1\"\r\n", u"%5");
  Report(info, true);
  info.stamp = 0;
  Report(info, true);
  const std::string stamp = "09.12.2025 07:00:00";
  EXPECT_EQ(GetText(Dir.Path("messages.log")),
            "%" + stamp + "%7|" + stamp + "|M%1\"\r\n|0|%\r\n%%7||M%1\"\r\n|0|%\r\n");
  {
    TFileFaults faults;
    faults.Fail(foWrite, 28, 2);
    Screen.AnswerNext(mrRetry);
    Report(Log(u"spät", u""), true);
    const std::string told =
        "E TMsgHandler.writeLog: Das Protokoll konnte nicht gespeichert werden.\r\n\r\nDie Datei \"" +
        Dir.Path("messages.log").ToUtf8() +
        "\" kann nicht geschrieben werden. Der Datenträger ist voll.\r\n"
        "Bitte entfernen Sie den eventuell vorhanden Schreibschutz auf der Datei\r\n"
        "oder verbinden Sie das betreffende Laufwerk.";
    EXPECT_EQ(Dialogs(), (TTexts{told, told}));
    Report(Log(u"früh", u""), true);
  }
  std::string log = EndLog();
  EXPECT_NE(log.find("früh"), log.npos) << log;
  EXPECT_LT(log.find("früh"), log.find("spät")) << log;
  SetLog(laMsg, u"%6");
  Msg().BeginAction();
  Report(Log(u"eins", u""), true);
  EXPECT_EQ(GetText(Dir.Path("messages.log")), log);
  Msg().EndAction();
  Report(Log(u"zwei", u""), true);
  EXPECT_EQ(GetText(Dir.Path("messages.log")), log + "eins\r\nzwei\r\n");
}

TEST_F(Messages, DialogsOfOthersAreDetails) {
  TFileCsv table;
  test::PutText(Dir.Path("busy.csv"), "a");
  const TFileStream busy(Dir.Path("busy.csv"), fmOpenRead | fmShareExclusive);
  const std::string missing = " Die Datei\r\nnone.csv\r\nist nicht vorhanden,\r\nkann also nicht geladen werden.";
  const auto load = [&](const String& path) { return ReportFaults({}, [&] { return table.LoadFromFile(path); }); };
  {
    TMsgAction action;
    const TMsgDialogs reported(u"Import");
    EXPECT_EQ((TFacts{table.LoadFromFile(u"none.csv"), load(busy.GetPath()), Dialogs()}), "no no ");
    EXPECT_FALSE(action.End(Error(u"Nicht alles kam an", u"Import")));
    EXPECT_EQ(Dialogs(), TTexts{"E Nicht alles kam an\r\n\r\nWarnung:" + missing + "\r\nFehler: Die Datei \"" +
                                busy.GetPath().ToUtf8() +
                                "\" kann nicht geöffnet werden. Sie wird gerade von einem anderen Programm benutzt."});
  }
  load(u"none.csv"), table.LoadFromFile(u"none.csv");
  EXPECT_EQ(Dialogs(), (TTexts{"WI" + missing, "W" + missing})) << "outside of an action at once";
}

TEST_F(Messages, LongSummariesAreCut) {
  const auto tell = [&](int count) {
    TMsgAction action;
    for (int i = 1; i <= count; ++i) Report(Warning(IntToStr(i)), true);
    action.End(Warning(u"Ende"));
    const std::string text = Dialogs().at(0);
    return (TFacts{std::ranges::count(text, '\n'), text.substr(text.rfind('\n') + 1)});
  };
  EXPECT_EQ(tell(100), "101 Warnung: 100");
  EXPECT_EQ(tell(20000), "22 ... und 19.980 weitere");
  EXPECT_EQ(std::ranges::count(EndLog(), '\n'), 101 + 20001) << "the log has all";
  Msg().SetLog({false});
  EXPECT_EQ(tell(200), "201 Warnung: 200") << "nowhere else";
}

TEST_F(Messages, LogsThatAreTables) {
  const std::vector<String> texts = {u"a \"b\",c;d", u"\r\n\"\r\r\n\n", u"%1 \"", u"", u" Größe \t", u"Łukasz"};
  const String path = Dir.Path() + u"/neu/Protokolle/meldungen.csv";
  TFileCsv table;
  Msg().SetLog(TableLog(path));
  for (const String& text : texts) Report(Log(text, text), true);
  EXPECT_EQ(LoadCsv(table, path).Faults.Count, 0);
  ASSERT_EQ(table.GetCount(), 6);
  for (int row = 0; row < 6; ++row) {
    const std::string text = texts[static_cast<size_t>(row)].ToUtf8();
    EXPECT_EQ((TFacts{table.GetLines(row)->Items()}), "09.12.2025 07:00:00,LOG,," + text + ",0," + text);
  }
  Msg().SetLog(TableLog(path + u"/x/log.csv"));
  Report(Log(u"l", u""), true);
  EXPECT_EQ(Dialogs().size(), 1u) << "one dialog for a directory that can't be made";
}

TEST_F(Messages, SerialForm) {
  TMsgInfo info(msgError, u"a,\"b\"\r\n", u"s", u"gut");
  info.level = -2;
  EXPECT_EQ(info.GetSerialize(), u"\"09.12.2025 07:00:00\",2,\"a,\"\"b\"\"\r\n\",s,gut,-2");
  TMsgInfo again;
  again.SetSerialize(info.GetSerialize() + u",mehr");
  EXPECT_EQ(again.GetSerialize(), info.GetSerialize());
  EXPECT_EQ(Dialogs(), TTexts());
  again.SetSerialize(u"");
  EXPECT_EQ(again.GetSerialize(), u"\"09.12.2025 07:00:00\",1,,,,0");
  EXPECT_EQ(Dialogs(), (TTexts{"WI TMsgInfo: Anzahl der Felder nicht korrekt"}));
}

}  // namespace
