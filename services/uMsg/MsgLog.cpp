// The log of the message handler.
#include <utility>

#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "platform/Files.h"
#include "platform/FormatSettings.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/SafeFiles.h"
#include "platform/Text.h"
#include "platform/TextForms.h"
#include "platform/UserMessages.h"
#include "services/uHandleFile.h"
#include "services/uMsg/TMsgHandler.h"

namespace vx {

namespace {

constexpr int kPlaceholders = 6;
using TValues = std::u16string_view[kPlaceholders];

// Fills in texts without "%" in one go, which is the same as replacing one placeholder after the other if each
// "%" of the pattern begins a placeholder. False if it does not.
bool FillAtOnce(TTextBuffer& Line, std::u16string_view Pattern, const TValues& Values) {
  for (size_t at = 0; at < Pattern.size(); ++at) {
    if (Pattern[at] != u'%') {
      Line.Add(Pattern[at]);
      continue;
    }
    if (++at == Pattern.size() || Pattern[at] < u'1' || Pattern[at] >= u'1' + kPlaceholders) return false;
    Line.Add(Values[Pattern[at] - u'1']);
  }
  return true;
}

void FillInTurn(TTextBuffer& Line, const String& Pattern, const TValues& Values) {
  String result = Pattern;
  char16_t placeholder[] = u"%1";
  for (const std::u16string_view value : Values) {
    result = ReplaceAll(result, placeholder, value);
    ++placeholder[1];
  }
  Line.Clear();
  Line.Add(result);
}

void AddAsRow(TTextBuffer& Line, const TValues& Values) {
  for (const std::u16string_view& value : Values) {
    if (&value != Values) Line.Add(u',');
    Line.Add(QuotedStr(value, u'"'));
  }
  Line.Add(u"\r\n");
}

// A failure is told by the writing that follows.
void MakeDirectoryOf(const String& FileName) {
  const String directory = ExtractFileDir(FileName);
  if (directory.empty() || DirectoryExists(directory)) return;
  const TDialogDiversion silence([](const TDialog&) { return true; });
  VxForceDirectories(directory);
}

}  // namespace

TMsgHandlerLog TableLog(String FileName) {
  TMsgHandlerLog log{true, laMsg, std::move(FileName)};
  log.Form = lfTable;
  log.MakesDirectory = true;
  return log;
}

TMsgHandler::~TMsgHandler() {
  try {
    const TDialogDiversion shown({});
    if (counter != 0) {
      counter = 1;
      MsgFunction(Log(u"MessageHandler korrupt!", u"TMsgHandler.Destroy"), false);
      MessageDlg(u"MessageHandler korrupt!", mtError, {mbOK});
    }
    writeLog(buffer);
  } catch (...) {
    // A dialog that raises, or want of memory: there is nobody left to tell.
  }
}

// Lines come in bursts: the text of a stamp is kept for all lines of its second.
std::u16string_view TMsgHandler::StampText(TDateTime Stamp) {
  if (Stamp == 0) return {};
  const TTimeStamp parts = DateTimeToTimeStamp(Stamp);
  const int64_t second = int64_t{parts.Date} * 86400 + parts.Time / 1000;
  const char16_t separator = GetFormatSettings().TimeSeparator;
  if (second != FStampSecond || separator != FStampSeparator) {
    FStampText = FormatDateTime(u"dd.mm.yyyy hh:nn:ss", Stamp);
    FStampSecond = second;
    FStampSeparator = separator;
  }
  return FStampText;
}

void TMsgHandler::AppendLine(std::string& Bytes, const TMsgInfo& MsgInfo, int Level, bool Ignored) {
  constexpr std::u16string_view kNames[] = {u"LOG", u"WARNING", u"ERROR"};
  const String level = IntToStr(Level);
  const TValues values = {StampText(MsgInfo.stamp),
                          kNames[MsgInfo.msgType],
                          Ignored ? u"ignored" : u"",
                          MsgInfo.sender,
                          level,
                          MsgInfo.msg};
  FLine.Clear();
  if (FLog.Form == lfTable) {
    AddAsRow(FLine, values);
    return AppendUtf8(Bytes, FLine.View());
  }
  // What the message itself holds comes last and is not replaced again.
  const bool isPlain = values[0].find(u'%') == values[0].npos && values[3].find(u'%') == values[3].npos;
  if (!isPlain || !FillAtOnce(FLine, FLog.Format, values)) FillInTurn(FLine, FLog.Format, values);
  FLine.Add(u"\r\n");
  AppendUtf8(Bytes, FLine.View());
}

void TMsgHandler::DoLog(const TMsgInfo& MsgInfo, int Level, bool Ignored) {
  if (iLogInterrupt) return iLogInterrupt(MsgInfo, Level, Ignored);
  if (!HasLog()) return;
  if (FLog.Attitude == laInstant) {
    std::string line;
    AppendLine(line, MsgInfo, Level, Ignored);
    if (!writeLog(line)) buffer += line;
    return;
  }
  AppendLine(buffer, MsgInfo, Level, Ignored);
  if (FLog.Attitude != laMsg || Level != 0) return;
  // The dialog of a failure may bring lines of its own.
  const std::string lines = std::exchange(buffer, std::string());
  if (!writeLog(lines)) buffer.insert(0, lines);
}

bool TMsgHandler::writeLog(std::string_view Bytes) {
  if (Bytes.empty()) return true;
  for (;;) {
    try {
      if (FLog.MakesDirectory) MakeDirectoryOf(FLog.FileName);
      AppendLinesToFile(FLog.FileName, Bytes);
      return true;
    } catch (const Exception& error) {
      const String text =
          Concat({u"TMsgHandler.writeLog: Das Protokoll konnte nicht gespeichert werden.\r\n\r\n", UserMessage(error),
                  u"\r\nBitte entfernen Sie den eventuell vorhanden Schreibschutz auf der Datei\r\n"
                  u"oder verbinden Sie das betreffende Laufwerk."});
      if (MessageDlg(text, mtError, {mbOK, mbRetry}) != mrRetry) return false;
    }
  }
}

}  // namespace vx
