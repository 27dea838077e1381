// The handler of messages.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "objects/uVxClasses/TVxStringList.h"
#include "objects/uVxGenerics/GList.h"
#include "platform/Method.h"
#include "platform/TextBuffer.h"
#include "services/uMsg/TMsgInfo.h"

namespace vx {

// When the lines of the log reach the file.
enum TLogAttitude : uint8_t {
  laInstant,  // each at once
  laMsg,      // when the outermost operation ends
  laDestroy   // when the handler ends
};

// How a message stands in the log.
enum TLogForm : uint8_t {
  lfFormat,  // as TMsgHandlerLog::Format tells
  lfTable    // as a row of a table file: six cells in quotes, separated by commas, in the order of %1 to %6
};

struct TMsgHandlerLog {
  bool Active = true;
  TLogAttitude Attitude = laDestroy;
  String FileName = u"messages.log";  // without a directory: in the current one; empty: no log
  // %1 the stamp, %2 LOG, WARNING or ERROR, %3 "ignored" or nothing, %4 the sender, %5 the level, %6 the text;
  // replaced in this order, so that a text put in may be replaced again by a later one. Nothing is escaped:
  // what holds quotes or line breaks can't be read back. TableLog has the form that can.
  String Format = u"%1,%2,%3,%4,%5,\"%6\"";
  TLogForm Form = lfFormat;
  bool MakesDirectory = false;  // if that of FileName is missing; else it is told that the log can't be written
};

// The log for new programs. It is written when the outermost operation ends, its directory is made, and LoadCsv reads
// it back whatever the messages hold.
//
//   vx::Msg().SetLog(vx::TableLog(u"C:\\Daten\\Protokolle\\meldungen.csv"));
TMsgHandlerLog TableLog(String FileName);

using TMsgList = GList<TMsgInfo>;
using TMsgFunction = Method<bool(const TMsgInfo& msgInfo, bool success)>;
// Takes the place of the whole presentation.
using TMsgInterrupt = Method<void(const TMsgInfo& topInfo, TMsgList& msgList, bool return_)>;
// Takes the place of the whole logging.
using TLogInterrupt = Method<void(const TMsgInfo& msgInfo, int level, bool ignored)>;

class TMsgHandler : public TObject {
 public:
  TMsgHandler() = default;
  // Writes what the log still has to hold. A handler whose operations have not all ended says so in the log and
  // in a dialog.
  ~TMsgHandler() override;
  String ClassName() const override { return u"TMsgHandler"; }

  // The function to report by; see the unit's header. It gives the success told or, at the outermost level,
  // whether no error was reported since the operation began. Who may be left by an exception before calling it uses
  // TMsgReport.
  [[nodiscard]] TMsgFunction GetMsg();
  const TLogInterrupt& GetLogInterrupt() const noexcept { return iLogInterrupt; }
  void SetLogInterrupt(TLogInterrupt Value) noexcept { iLogInterrupt = Value; }
  const TMsgInterrupt& GetMsgInterrupt() const noexcept { return iMsgInterrupt; }
  void SetMsgInterrupt(TMsgInterrupt Value) noexcept { iMsgInterrupt = Value; }
  const TMsgHandlerLog& GetLog() const noexcept { return FLog; }
  void SetLog(TMsgHandlerLog Value) { FLog = std::move(Value); }
  // How many messages below the headline a dialog lists, 100 unless set. Of more it shows the first 20 and how many
  // there are beside them, u"... und 19.980 weitere", but only if there is a log, which has them all.
  int GetMostDetails() const noexcept { return FMostDetails; }
  void SetMostDetails(int Value) noexcept { FMostDetails = Value; }

  // Warnings of this sender are neither listed nor shown from now on; the log has them as ignored. An empty
  // sender is not taken.
  void Ignore(const String& Sender);
  // Opens an action: what is reported until its EndAction belongs together. TMsgAction ends it in any case.
  void BeginAction();
  // Closes the action. Whether no error was reported since the outermost operation began. The form with a
  // message reports it, as an error if there was one, but only if anything was reported in the action; at the
  // outermost level its successMsg is shown if nothing was.
  bool EndAction();
  bool EndAction(const TMsgInfo& MsgInfo);
  // Whether anything was reported in the present action.
  bool IsAlert() const noexcept;

 private:
  friend class TMsgReport;
  friend class TMsgAction;
  class TLowered;
  // Ends a report that was not made, or an action, as an exception passes: the depth falls, and what was reported is
  // shown if it was the outermost.
  void Leave() noexcept;
  void LeaveAction() noexcept;
  void Inc();
  void Dec() noexcept { --counter; }
  bool MsgFunction(const TMsgInfo& MsgInfo, bool Success);
  int TakeStart();
  void HandleMsg(const TMsgInfo& TopInfo);
  void DefaultMsgHandling(const TMsgInfo& TopInfo, const TMsgList& List, bool Return);
  void DoLog(const TMsgInfo& MsgInfo, int Level, bool Ignored);
  std::u16string_view StampText(TDateTime Stamp);
  void AppendLine(std::string& Bytes, const TMsgInfo& MsgInfo, int Level, bool Ignored);
  bool writeLog(std::string_view Bytes);
  bool HasLog() const noexcept { return FLog.Active && !FLog.FileName.empty(); }
  String DetailText(const TMsgList& List) const;

  std::string buffer;  // lines of the log that are not in the file yet, as they will stand there
  int counter = 0;     // depth
  std::unique_ptr<TVxStringList> ignoreList;
  TLogInterrupt iLogInterrupt;
  TMsgInterrupt iMsgInterrupt;
  TMsgList iMsgList;
  std::vector<int> msgCount;  // of each open action, how long iMsgList was when it began
  bool return_ = true;
  TMsgHandlerLog FLog;
  int FMostDetails = 100;
  TTextBuffer FLine;  // the line that is being made
  String FStampText;  // of the latest stamp, by its second and the separator in use
  int64_t FStampSecond = -1;
  char16_t FStampSeparator = 0;
};

// The one handler of the program, made at first use.
TMsgHandler& Msg();

// A report: raises the depth at once, and lowers it when it is called, or else when its scope ends, as by an exception
// from what stands in the call. What was reported meanwhile is shown then, too.
//
//   return vx::TMsgReport()(vx::Error(u"Der Import ist fehlgeschlagen!", u"Import"), ReadAll() && StoreAll());
class TMsgReport {
 public:
  explicit TMsgReport(TMsgHandler& Handler = Msg()) : FHandler(Handler) { FHandler.Inc(); }
  ~TMsgReport() {
    if (!FIsMade) FHandler.Leave();
  }
  TMsgReport(const TMsgReport&) = delete;
  TMsgReport& operator=(const TMsgReport&) = delete;
  // Once. Gives what the function of GetMsg gives.
  bool operator()(const TMsgInfo& msgInfo, bool success) {
    FIsMade = true;
    return FHandler.MsgFunction(msgInfo, success);
  }

 private:
  TMsgHandler& FHandler;
  bool FIsMade = false;
};

// An action: begins at once, and ends by End or else when its scope ends, as by an exception.
//
//   vx::TMsgAction action;
//   for (int row = 0; row < count; ++row) Import(row);
//   return action.End(vx::Error(u"Der Import ist nicht vollständig!", u"Import"));
class TMsgAction {
 public:
  explicit TMsgAction(TMsgHandler& Handler = Msg()) : FHandler(Handler) { FHandler.BeginAction(); }
  ~TMsgAction() {
    if (!FHasEnded) FHandler.LeaveAction();
  }
  TMsgAction(const TMsgAction&) = delete;
  TMsgAction& operator=(const TMsgAction&) = delete;
  // One of them, once: EndAction of the handler.
  bool End() {
    FHasEnded = true;
    return FHandler.EndAction();
  }
  bool End(const TMsgInfo& MsgInfo) {
    FHasEnded = true;
    return FHandler.EndAction(MsgInfo);
  }

 private:
  TMsgHandler& FHandler;
  bool FHasEnded = false;
};

namespace uMsg {

// Frees the handler, which writes its log; the next use makes a new one.
void FreeBuffersForLeakPrevention();

}  // namespace uMsg

}  // namespace vx
