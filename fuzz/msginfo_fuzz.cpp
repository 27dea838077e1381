// Messages: a number, a moment, a text to read, and the fields of a message.
#include "fuzz/support/Values.h"
#include "platform/Clock.h"
#include "services/uMsg.h"

namespace vx::fuzz {
namespace {

int Warnings = 0;

void TakeLog(const TMsgInfo& Info, int, bool) { Warnings += Info.msgType == msgWarning; }
void TakeMsg(const TMsgInfo&, TMsgList&, bool) {}

bool IsSameText(const TMsgInfo& A, const TMsgInfo& B) {
  return A.msg == B.msg && A.sender == B.sender && A.successMsg == B.successMsg && CompareMsgInfo(A, B) == 0;
}

void CheckReadBack(const TMsgInfo& Info) {
  const int warnings = Warnings;
  const String text = Info.GetSerialize();
  TMsgInfo back;
  back.SetSerialize(text);
  // Of a text with a code unit 0 the list form keeps only what is quoted.
  if (text.view().find(u'\0') != std::u16string_view::npos) return;
  Check(Warnings == warnings && back.msgType == Info.msgType, "the type reads back");
  Check(IsSameText(back, Info) && back.level == Info.level, "a message reads back");
  Check(back.stamp == Now() || back.GetSerialize() == text, "a moment that is read stands");
}

}  // namespace

FUZZ(Input) {
  TManualClock clock(46000.5);
  TClockScope scope(clock);
  Msg().SetLogInterrupt(TLogInterrupt::Of<&TakeLog>());
  Msg().SetMsgInterrupt(TMsgInterrupt::Of<&TakeMsg>());
  TValues values(Input);
  const int level = values.Int(), warnings = Warnings;
  const TDateTime stamp = values.Double();
  const auto type = static_cast<TMsgType>(values.Byte() % 3);
  TMsgInfo read;
  read.SetSerialize(Input.Text());
  Check(Warnings == warnings || (Warnings == warnings + 1 && read.msgType == msgWarning), "no type is a warning");
  CheckReadBack(read);

  const String msg = Input.Text(), sender = Input.Text();
  TMsgInfo info(type, msg, sender, Input.Text());
  info.level = level;
  info.stamp = stamp;
  CheckReadBack(info);
}

}  // namespace vx::fuzz
