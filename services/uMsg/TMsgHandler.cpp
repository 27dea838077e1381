// Depth, actions, and what is shown at the end.
#include "services/uMsg/TMsgHandler.h"

#include <algorithm>
#include <numeric>

#include "platform/Application.h"
#include "platform/Dialogs.h"
#include "platform/Format.h"
#include "platform/FreeBuffers.h"
#include "platform/Lazy.h"
#include "platform/NumberMasks.h"

namespace vx {

namespace {

constinit TLazy<TMsgHandler> Handler;

// Of records that compare equal only the first stays.
void RemoveDuplicates(TMsgList& List) {
  std::vector<int> order(static_cast<size_t>(List.GetCount()));
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](int a, int b) { return CompareMsgInfo(List.Get(a), List.Get(b)) < 0; });
  std::vector<bool> isDuplicate(order.size());
  for (size_t i = 1; i < order.size(); ++i) {
    isDuplicate[static_cast<size_t>(order[i])] = CompareMsgInfo(List.Get(order[i - 1]), List.Get(order[i])) == 0;
  }
  if (std::ranges::find(isDuplicate, true) == isDuplicate.end()) return;
  std::vector<TMsgInfo> kept;
  for (int i = 0; i < List.GetCount(); ++i) {
    if (!isDuplicate[static_cast<size_t>(i)]) kept.push_back(List.Get(i));
  }
  List.Clear();
  List.AddRange(kept);
}

// What the dialog at the end says.
struct TSummary {
  String Headline;
  String Detail;
  TMsgDlgType Kind = mtWarning;
};

TSummary Summarize(const TMsgInfo& Top, const TMsgList& List, bool Return) {
  TSummary result;
  const int count = List.GetCount();
  if (count == 0) {
    result.Headline = Top.successMsg;
    result.Kind = mtInformation;
  } else if (!Return) {
    result.Kind = mtError;
    result.Headline =
        Top.msgType == msgWarning ? Concat({u"Es ist ein Fehler aufgetreten!\r\nWarnung: ", Top.msg}) : Top.msg;
  } else if (!Top.successMsg.empty()) {
    const String second =
        count == 1 ? Concat({u"Warnung: ", Top.msg}) : Format(u"Es sind %d Warnungen aufgetreten", {count});
    result.Headline = Concat({Top.successMsg, u"\r\n", second});
  } else {
    result.Headline = Top.msg;
  }
  return result;
}

// Shows it by a task dialog where there are such, else by a plain one.
TModalResult Present(const TSummary& Summary) {
  const bool isWarning = Summary.Kind == mtWarning;
  if (HasTaskDialogs()) {
    TTaskDialog dialog;
    dialog.Caption = isWarning ? u"Warnung" : Summary.Kind == mtError ? u"Fehler" : u"Information";
    dialog.Title = Summary.Headline;
    dialog.Text = Summary.Detail;
    dialog.Kind = Summary.Kind;
    if (isWarning) {
      dialog.ExtraButton = u"Warnungen ignorieren";
      dialog.ExtraResult = mrIgnore;
    }
    return ShowTaskDialog(dialog);
  }
  const String text =
      Summary.Detail.empty() ? Summary.Headline : Concat({Summary.Headline, u"\r\n\r\n", Summary.Detail});
  return MessageDlg(text, Summary.Kind, isWarning ? TMsgDlgButtons{mbOK, mbIgnore} : TMsgDlgButtons{mbOK});
}

}  // namespace

void TMsgHandler::Inc() {
  if (counter < 1) {
    counter = 0;
    return_ = true;
    iMsgList.Clear();
  }
  ++counter;
}

TMsgFunction TMsgHandler::GetMsg() {
  Inc();
  return TMsgFunction::Of<&TMsgHandler::MsgFunction>(*this);
}

void TMsgHandler::BeginAction() {
  msgCount.push_back(0);
  Inc();
  msgCount.back() = iMsgList.GetCount();
}

// Lowers the depth at its end, whatever happens until then.
class TMsgHandler::TLowered {
 public:
  explicit TLowered(TMsgHandler& Owner) noexcept : FHandler(Owner) {}
  ~TLowered() { FHandler.Dec(); }
  TLowered(const TLowered&) = delete;
  TLowered& operator=(const TLowered&) = delete;

 private:
  TMsgHandler& FHandler;
};

void TMsgHandler::Leave() noexcept {
  Dec();
  try {
    if (counter < 1 && iMsgList.GetCount() > 0) HandleMsg(iMsgList.Last());
  } catch (...) {
    // A dialog that raises: the exception that passes already is the one to be told of.
  }
}

void TMsgHandler::LeaveAction() noexcept {
  try {
    EndAction();
  } catch (...) {
    // As above.
  }
}

bool TMsgHandler::MsgFunction(const TMsgInfo& MsgInfo, bool Success) {
  Dec();
  const bool isError = MsgInfo.msgType == msgError;
  if (!isError || !Success) {
    const bool ignored = MsgInfo.msgType == msgWarning && ignoreList && ignoreList->IndexOf(MsgInfo.sender) >= 0;
    DoLog(MsgInfo, counter, ignored);
    if (MsgInfo.msgType != msgLog && !ignored) {
      TMsgInfo copy = MsgInfo;
      copy.level = counter;
      iMsgList.Add(std::move(copy));
    }
  }
  if (isError) return_ = return_ && Success;
  if (counter >= 1) return Success;
  const bool result = return_;
  if (iMsgList.GetCount() > 0 || !MsgInfo.successMsg.empty()) HandleMsg(MsgInfo);
  return result;
}

// How long the list was when the present action began, which ends by this.
int TMsgHandler::TakeStart() {
  if (msgCount.empty()) {
    MsgFunction(Error(u"MessageHandler korrupt, EndAction ohne BeginAction!", u"TMsgHandler.Destroy"), false);
    return 0;
  }
  const int start = msgCount.back();
  msgCount.pop_back();
  return start;
}

bool TMsgHandler::EndAction() {
  int start;
  bool result;
  {
    const TLowered lowered(*this);
    start = TakeStart();
    result = return_;
  }
  if (counter < 1 && iMsgList.GetCount() > start) HandleMsg(iMsgList.Last());
  return result;
}

bool TMsgHandler::EndAction(const TMsgInfo& MsgInfo) {
  int start;
  bool result;
  {
    const TLowered lowered(*this);
    start = TakeStart();
    if (iMsgList.GetCount() > start) {
      TMsgInfo closing = MsgInfo;
      if (!return_ && MsgInfo.msgType == msgWarning) {
        closing.SetSerialize(MsgInfo.GetSerialize());
        closing.msgType = msgError;
      }
      GetMsg()(closing, false);
    }
    result = return_;
  }
  if (counter >= 1) return result;
  if (iMsgList.GetCount() > start) {
    HandleMsg(iMsgList.Last());
  } else if (!MsgInfo.successMsg.empty()) {
    HandleMsg(MsgInfo);
  }
  return result;
}

// All but the last, which is the headline as a rule.
String TMsgHandler::DetailText(const TMsgList& List) const {
  constexpr int kFirst = 20;
  const int count = std::max(List.GetCount() - 1, 0);
  const bool isCut = count > std::max(FMostDetails, kFirst) && (HasLog() || iLogInterrupt);
  const int shown = isCut ? kFirst : count;
  TTextBuffer text;
  for (int i = 0; i < shown; ++i) {
    if (i > 0) text.Add(u"\r\n");
    text.Add(List.Get(i).msgType == msgWarning ? u"Warnung: " : u"Fehler: ");
    text.Add(List.Get(i).msg);
  }
  if (isCut) text.Add(Concat({u"\r\n... und ", FormatFloat(u"#,##0", count - shown), u" weitere"}));
  return text.ToString();
}

bool TMsgHandler::IsAlert() const noexcept { return iMsgList.GetCount() > (msgCount.empty() ? 0 : msgCount.back()); }

void TMsgHandler::HandleMsg(const TMsgInfo& TopInfo) {
  const TDialogDiversion shown({});  // what is presented is not reported again
  const TMsgInfo top = TopInfo;      // NOLINT(performance-unnecessary-copy-initialization): may be one of the list
  RemoveDuplicates(iMsgList);
  if (iMsgInterrupt) {
    iMsgInterrupt(top, iMsgList, return_);
  } else {
    DefaultMsgHandling(top, iMsgList, return_);
  }
}

void TMsgHandler::DefaultMsgHandling(const TMsgInfo& TopInfo, const TMsgList& List, bool Return) {
  if (IsTerminating()) return;
  TSummary summary = Summarize(TopInfo, List, Return);
  summary.Detail = DetailText(List);
  if (Present(summary) != mrIgnore) return;
  for (int i = 0; i < List.GetCount(); ++i) {
    if (List.Get(i).msgType == msgWarning) Ignore(List.Get(i).sender);
  }
}

void TMsgHandler::Ignore(const String& Sender) {
  if (Sender.empty()) return;
  if (!ignoreList) ignoreList = std::make_unique<TVxStringList>(false, true, dupIgnore, true);
  ignoreList->Add(Sender);
}

TMsgHandler& Msg() {
  return Handler.Get([] {
    OnFreeBuffers(foReports, &uMsg::FreeBuffersForLeakPrevention);
    return std::make_unique<TMsgHandler>();
  });
}

void uMsg::FreeBuffersForLeakPrevention() { Handler.Free(); }

}  // namespace vx
