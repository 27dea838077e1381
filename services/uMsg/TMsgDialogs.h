// Dialogs of routines as reports to the message handler.
#pragma once

#include "platform/Dialogs.h"
#include "platform/Types.h"
#include "services/uMsg/TMsgHandler.h"

namespace vx {

// While it lives, what routines called by this thread would tell in a dialog of their own, as TFileCsv::LoadFromFile
// tells that a file is missing, is reported to the handler instead, with the dialog's text: a warning as a warning, an
// error as an error that failed. Within a TMsgAction or the arguments of a TMsgReport it becomes a detail of their one
// dialog; outside of both it is shown at once. The routines give the results that they always give. Questions, notices,
// and the handler's own dialogs are shown as ever; exceptions pass, see ReportFaults.
//
//   vx::TMsgAction action;
//   const vx::TMsgDialogs reported(u"Import");
//   for (const vx::String& name : names) table.LoadFromFile(name);
//   return action.End(vx::Error(u"Der Import ist nicht vollständig!", u"Import"));
//
// Pitfall: only in the thread of the handler, which has no locks.
class TMsgDialogs {
 public:
  // Sender: who reports; warnings of an empty one can't be ignored.
  explicit TMsgDialogs(String Sender = {}, TMsgHandler& Handler = Msg());

 private:
  TDialogDiversion FDiversion;
};

// Runs Work within a TMsgDialogs and gives what it gives. A fault of a file (EStreamError) is reported as an error with
// its German text, and gives false; any other exception passes.
//
//   vx::ReportFaults(u"Import", [&] { return table.LoadFromFile(name); });
bool ReportFaults(String Sender, FunctionRef<bool()> Work);

}  // namespace vx
