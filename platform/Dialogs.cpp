#include "platform/Dialogs.h"

#include <cstdio>
#include <string>
#include <utility>

#include "platform/Hook.h"

namespace vx {

namespace {

// Never taken down: a dialog may come from the last code that runs.
THook<TDialogSink>& Hook() {
  static THook<TDialogSink>& hook = *new THook<TDialogSink>;
  return hook;
}

THook<TTaskDialogSink>& TaskHook() {
  static THook<TTaskDialogSink>& hook = *new THook<TTaskDialogSink>;
  return hook;
}

constinit thread_local TDialogDiversion* Innermost = nullptr;

const char* KindName(TMsgDlgType Kind) noexcept {
  switch (Kind) {
    case mtWarning:
      return "Warning";
    case mtError:
      return "Error";
    case mtInformation:
      return "Information";
    case mtConfirmation:
      return "Confirmation";
    case mtCustom:
      break;
  }
  return "Message";
}

// In one call, so that dialogs of several threads don't mix.
TModalResult WriteToStandardError(const TDialog& Dialog) {
  std::string line = KindName(Dialog.Kind);
  line += ": ";
  std::string text = Dialog.Text.ToUtf8();
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    line += text[i];
  }
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
  return mrOk;
}

}  // namespace

TDialogSink SetDialogSink(TDialogSink Sink) { return Hook().Exchange(std::move(Sink)); }

TModalResult MessageDlg(String Text, TMsgDlgType Kind, TMsgDlgButtons Buttons) {
  TDialog dialog{std::move(Text), Kind, Buttons};
  if (TDialogDiversion::Takes(dialog)) return mrOk;
  auto sink = Hook().Get();
  return sink ? (*sink)(dialog) : WriteToStandardError(dialog);
}

void ShowWarning(String Text) { MessageDlg(std::move(Text), mtWarning, {mbOK}); }

void ShowMessage(String Text) { MessageDlg(std::move(Text), mtCustom, {mbOK}); }

TTaskDialogSink SetTaskDialogSink(TTaskDialogSink Sink) { return TaskHook().Exchange(std::move(Sink)); }

bool HasTaskDialogs() { return TaskHook().Get() != nullptr; }

TModalResult ShowTaskDialog(const TTaskDialog& Dialog) {
  const auto sink = TaskHook().Get();
  return sink ? (*sink)(Dialog) : mrNone;
}

TDialogDiversion::TDialogDiversion(std::function<bool(const TDialog&)> Take)
    : FTake(std::move(Take)), FOuter(std::exchange(Innermost, this)) {}

TDialogDiversion::~TDialogDiversion() { Innermost = FOuter; }

bool TDialogDiversion::Takes(const TDialog& Dialog) {
  const bool onlyTells = (Dialog.Kind == mtWarning || Dialog.Kind == mtError) && Dialog.Buttons == TMsgDlgButtons{mbOK};
  if (!onlyTells || Innermost == nullptr || !Innermost->FTake) return false;
  const std::function<bool(const TDialog&)>& take = Innermost->FTake;
  const TDialogDiversion shown({});
  return take(Dialog);
}

TScriptedDialogs::TScriptedDialogs() {
  FPrevious = SetDialogSink([this](const TDialog& dialog) {
    std::lock_guard lock(FMutex);
    Shown.push_back(dialog);
    if (FAnswers.empty()) return mrOk;
    TModalResult answer = FAnswers.front();
    FAnswers.pop_front();
    return answer;
  });
}

TScriptedDialogs::~TScriptedDialogs() { SetDialogSink(std::move(FPrevious)); }

void TScriptedDialogs::AnswerNext(TModalResult Answer) {
  std::lock_guard lock(FMutex);
  FAnswers.push_back(Answer);
}

}  // namespace vx
