// The one way in which the library speaks to the person at the screen.
//
//   TDialog          what a dialog shows
//   MessageDlg       shows a dialog through the sink and returns the button pressed
//   SetDialogSink    replaces the sink
//   TTaskDialog, ShowTaskDialog, SetTaskDialogSink   the same for dialogs with a title, where a desktop has them
//   TDialogDiversion takes what only tells something before it is shown
//   TScriptedDialogs a sink for tests and programs without a screen: records and answers by a script
//
// Example (a program with windows of its own):
//   vx::SetDialogSink([](const vx::TDialog& d) { return MyWindow::Show(d.Text, d.Kind, d.Buttons); });
//
// Unless set, dialogs are written to standard error in UTF-8, as "Warning: text", and answered with
// OK. An empty function sets that back.
//
// Pitfall: services may report from any thread, so a sink may be called by several at a time.
#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <vector>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

enum TMsgDlgType : uint8_t { mtWarning, mtError, mtInformation, mtConfirmation, mtCustom };
enum TMsgDlgBtn : uint8_t {
  mbYes,
  mbNo,
  mbOK,
  mbCancel,
  mbAbort,
  mbRetry,
  mbIgnore,
  mbAll,
  mbNoToAll,
  mbYesToAll,
  mbHelp,
  mbClose
};
using TMsgDlgButtons = Set<TMsgDlgBtn>;
enum TModalResult : int {
  mrNone = 0,
  mrOk = 1,
  mrCancel = 2,
  mrAbort = 3,
  mrRetry = 4,
  mrIgnore = 5,
  mrYes = 6,
  mrNo = 7,
  mrClose = 8
};

struct TDialog {
  String Text;
  TMsgDlgType Kind = mtInformation;
  TMsgDlgButtons Buttons = {mbOK};
};

using TDialogSink = std::function<TModalResult(const TDialog&)>;

// Returns the sink that was set before, empty if it was the default.
TDialogSink SetDialogSink(TDialogSink Sink);
TModalResult MessageDlg(String Text, TMsgDlgType Kind, TMsgDlgButtons Buttons);
// A warning with the OK button alone (mtWarning).
void ShowWarning(String Text);
// A plain notice with the OK button alone (mtCustom).
void ShowMessage(String Text);

// A dialog with a title over its text, as some desktops offer them.
struct TTaskDialog {
  String Caption;
  String Title;
  String Text;
  TMsgDlgType Kind = mtInformation;
  String ExtraButton;                 // beside OK and never the default; none if empty
  TModalResult ExtraResult = mrNone;  // what that button gives
};
using TTaskDialogSink = std::function<TModalResult(const TTaskDialog&)>;
// Unless set, and for an empty function, there are no such dialogs. Returns the sink that was set before.
TTaskDialogSink SetTaskDialogSink(TTaskDialogSink Sink);
bool HasTaskDialogs();
// mrNone where there are none.
TModalResult ShowTaskDialog(const TTaskDialog& Dialog);

// Takes the dialogs of this thread that only tell something, warnings and errors with the OK button alone, as long as
// it lives. Scopes nest, and the innermost counts alone. What is taken is answered with OK and reaches no sink.
class TDialogDiversion {
 public:
  // False of Take: the dialog is shown all the same; so is what Take itself shows. An empty one takes nothing, for code
  // within another scope whose dialogs are to be seen.
  explicit TDialogDiversion(std::function<bool(const TDialog&)> Take);
  ~TDialogDiversion();
  TDialogDiversion(const TDialogDiversion&) = delete;
  TDialogDiversion& operator=(const TDialogDiversion&) = delete;
  // For MessageDlg.
  static bool Takes(const TDialog& Dialog);

 private:
  std::function<bool(const TDialog&)> FTake;
  TDialogDiversion* FOuter;
};

// Takes the sink's place as long as it lives, then puts the previous one back.
class TScriptedDialogs {
 public:
  TScriptedDialogs();
  ~TScriptedDialogs();
  TScriptedDialogs(const TScriptedDialogs&) = delete;
  TScriptedDialogs& operator=(const TScriptedDialogs&) = delete;
  // The answer to the next dialog that has none yet; without one the answer is mrOk.
  void AnswerNext(TModalResult Answer);
  // The dialogs shown so far, in order. Not to be read while other threads may show some.
  std::vector<TDialog> Shown;

 private:
  std::mutex FMutex;
  std::deque<TModalResult> FAnswers;
  TDialogSink FPrevious;
};

}  // namespace vx
