#include "services/uMsg/TMsgInfo.h"

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"
#include "services/uMsg/TMsgHandler.h"

namespace vx {

namespace {

constexpr std::u16string_view kStampMask = u"dd.mm.yyyy hh:nn:ss";

int Order(const String& A, const String& B) noexcept { return A.view().compare(B.view()); }

}  // namespace

TMsgInfo::TMsgInfo() : TMsgInfo(msgLog, String()) {}

TMsgInfo::TMsgInfo(TMsgType MsgType, String Msg, String Sender, String PositivMsg)
    : stamp(Now()),
      msgType(MsgType),
      msg(std::move(Msg)),
      sender(std::move(Sender)),
      successMsg(std::move(PositivMsg)) {}

String TMsgInfo::GetSerialize() const {
  TVxStringList fields;
  fields.AddStrings({FormatDateTime(kStampMask, stamp), IntToStr(msgType), msg, sender, successMsg, IntToStr(level)});
  return fields.GetCommaText();
}

void TMsgInfo::SetSerialize(std::u16string_view Text) {
  TVxStringList fields;
  fields.SetCommaText(Text);
  auto field = [&](int index) { return index < fields.GetCount() ? fields.Get(index) : String(); };
  if (!TryStrToDateTime(field(0), stamp)) stamp = Now();
  const int type = StrToIntDef(field(1), -1);
  msg = field(2);
  sender = field(3);
  successMsg = field(4);
  level = StrToIntDef(field(5), 0);
  msgType = type == msgLog || type == msgError ? static_cast<TMsgType>(type) : msgWarning;
  if (type >= msgLog && type <= msgError) return;
  TMsgReport()(Warning(u"TMsgInfo: Anzahl der Felder nicht korrekt", u"TMsgInfo.setSerialize"), true);
}

int CompareMsgInfo(const TMsgInfo& A, const TMsgInfo& B) noexcept {
  if (A.level != B.level) return A.level < B.level ? -1 : 1;
  if (const int senders = Order(A.sender, B.sender); senders != 0) return senders;
  return Order(A.msg, B.msg);
}

TMsgInfo msgInfo(TMsgType MsgType, String Msg) { return {MsgType, std::move(Msg)}; }
TMsgInfo msgInfo(TMsgType MsgType, String Msg, String Sender) { return {MsgType, std::move(Msg), std::move(Sender)}; }
TMsgInfo Error(String Msg, String Sender, String PositivMsg) {
  return {msgError, std::move(Msg), std::move(Sender), std::move(PositivMsg)};
}
TMsgInfo Warning(String Msg, String Sender) { return {msgWarning, std::move(Msg), std::move(Sender)}; }
TMsgInfo Log(String Msg, String Sender) { return {msgLog, std::move(Msg), std::move(Sender)}; }

}  // namespace vx
