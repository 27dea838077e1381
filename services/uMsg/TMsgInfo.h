// One message.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

enum TMsgType : uint8_t { msgLog, msgWarning, msgError };

struct TMsgInfo {
  // A log line without any text, made now, as all constructors do.
  TMsgInfo();
  TMsgInfo(TMsgType MsgType, String Msg, String Sender = {}, String PositivMsg = {});

  // The fields as a comma text, the stamp as u"dd.mm.yyyy hh:nn:ss", the type and the level as numbers:
  // u"\"24.12.2026 18:30:00\",2,\"Nicht gefunden\",Suche,,0".
  String GetSerialize() const;
  // Reads that form. A field that is missing counts as empty, one too many is ignored. What is no date becomes
  // now, what is no level 0. What is no type becomes a warning, and that is reported as a warning, too.
  void SetSerialize(std::u16string_view Text);

  TDateTime stamp;  // local time
  TMsgType msgType;
  String msg;         // for the user
  String sender;      // who reports; by it warnings are ignored
  String successMsg;  // for the user if all went well
  int level = 0;      // depth at which it was reported; the handler sets it
};

// By level, sender and msg, both by code units: less than 0, 0, more than 0. What is equal is a duplicate.
int CompareMsgInfo(const TMsgInfo& A, const TMsgInfo& B) noexcept;

TMsgInfo msgInfo(TMsgType MsgType, String Msg);
TMsgInfo msgInfo(TMsgType MsgType, String Msg, String Sender);
TMsgInfo Error(String Msg, String Sender = {}, String PositivMsg = {});
TMsgInfo Warning(String Msg, String Sender = {});
TMsgInfo Log(String Msg, String Sender);

}  // namespace vx
