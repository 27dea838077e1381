// Messages to the user and the log: one handler for the whole program.
//
//   TMsgInfo       one message
//   TMsgHandler    collects messages, writes the log, shows one dialog when the outermost operation ends
//   Msg            the handler
//   TMsgReport, TMsgAction          report by it, or bracket several steps, within a scope
//   TMsgDialogs, ReportFaults       reports in place of the dialogs and the file faults of other routines
//   TableLog       a log that can be read back as a table
//   Error, Warning, Log, msgInfo    make a message and send nothing
//
// Example:
//   bool Import() {
//     return vx::TMsgReport()(vx::Error(u"Der Import ist fehlgeschlagen!", u"Import"), ReadAll() && StoreAll());
//   }
//
// The report raises the depth before the arguments are worked out, so that what ReadAll and StoreAll report counts
// as detail of this message. The user sees one dialog: this message as headline, the others below it. A success
// (true) reports no error. A TMsgAction brackets several steps in the same way. Msg().GetMsg() and BeginAction with
// EndAction do the same without a scope.
//
// Pitfalls:
//   - Each GetMsg has to be followed by exactly one call of what it gave, each BeginAction by one EndAction, also when
//     an exception passes: otherwise the depth stays raised, and no dialog comes any more. The scopes see to it.
//   - Warnings are shown whatever the success is; only errors depend on it.
//   - Unless told otherwise the log is written when the handler ends.
//   - No locks: all reports come from the thread that shows dialogs.
#pragma once

#include "services/uMsg/MsgTests.h"
#include "services/uMsg/TMsgDialogs.h"
#include "services/uMsg/TMsgHandler.h"
#include "services/uMsg/TMsgInfo.h"
