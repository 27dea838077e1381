// Messages to the user and the log: one handler for the whole program.
//
//   TMsgInfo       one message
//   TMsgHandler    collects messages, writes the log, shows one dialog when the outermost operation ends
//   Msg            the handler
//   Error, Warning, Log, msgInfo    make a message and send nothing
//
// Example:
//   bool Import() {
//     return vx::Msg().GetMsg()(vx::Error(u"Der Import ist fehlgeschlagen!", u"Import"), ReadAll() && StoreAll());
//   }
//
// GetMsg raises the depth before the arguments are worked out, so that what ReadAll and StoreAll report counts
// as detail of this message. The user sees one dialog: this message as headline, the others below it. A success
// (true) reports no error. BeginAction and EndAction bracket several steps in the same way.
//
// Pitfalls:
//   - Each GetMsg has to be followed by exactly one call of what it gave, each BeginAction by one EndAction.
//   - Warnings are shown whatever the success is; only errors depend on it.
//   - Unless told otherwise the log is written when the handler ends.
//   - No locks: all reports come from the thread that shows dialogs.
#pragma once

#include "services/uMsg/TMsgHandler.h"
#include "services/uMsg/TMsgInfo.h"
