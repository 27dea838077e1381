// Imports amounts from a table of visits and reports what is wrong with it in one dialog, with a log beside it:
//   import_job visits.csv messages.log
// Each step reports where it finds a fault. None of them knows who called it, and the user sees one summary: the
// message of the outermost step as headline, the others below it.
#include <cstdio>

#include "core/uVxFunctions.h"
#include "services/uMsg.h"
#include "tables/uFileCsv.h"

namespace {

using vx::Msg;

bool ReadAmount(const vx::String& Text, vx::Currency& Sum) {
  vx::Currency amount;
  const bool isAmount = vx::TryStrToCurr(Text, amount);
  if (isAmount) Sum = Sum + amount;
  return vx::TMsgReport()(vx::Error(vx::Concat({u"\"", Text, u"\" ist kein Betrag"}), u"ReadAmount"), isAmount);
}

bool ImportRow(const vx::THeadCsv& Table, int Row, vx::Currency& Sum) {
  const vx::String patient = Table.getElement(u"Patient", Row, vx::String(), vx::String());
  if (patient.empty()) vx::TMsgReport()(vx::Warning(u"Ein Besuch hat keinen Patienten", u"ImportRow"), true);
  return vx::TMsgReport()(
      vx::Error(vx::Concat({u"Der Besuch bei ", patient, u" wurde nicht übernommen"}), u"ImportRow"),
      ReadAmount(Table.getElement(u"Betrag", Row, vx::String(), vx::String()), Sum));
}

bool ImportVisits(const vx::THeadCsv& Table, vx::Currency& Sum) {
  vx::TMsgAction action;
  for (int row = 1; row < Table.GetCount(); ++row) ImportRow(Table, row, Sum);
  return action.End(vx::Error(u"Der Import ist nicht vollständig!", u"ImportVisits", u"Alle Besuche sind übernommen."));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  vx::TMsgHandlerLog log;
  log.FileName = vx::String::FromUtf8(argv[2]);
  Msg().SetLog(log);
  vx::THeadCsv table;
  if (!table.LoadFromFile(vx::String::FromUtf8(argv[1]))) return 1;
  vx::Currency sum;
  const bool isWhole = ImportVisits(table, sum);
  std::printf("%s: %s\n", isWhole ? "whole" : "in part", vx::VxCurrToStr(sum, {vx::ctsSign}, 2).ToUtf8().c_str());
  vx::uMsg::FreeBuffersForLeakPrevention();  // writes the log
  return 0;
}
