#include "services/uMsg/TMsgDialogs.h"

#include <utility>

#include "platform/UserMessages.h"

namespace vx {

TMsgDialogs::TMsgDialogs(String Sender, TMsgHandler& Handler)
    : FDiversion([sender = std::move(Sender), &Handler](const TDialog& dialog) {
        const TMsgType type = dialog.Kind == mtError ? msgError : msgWarning;
        TMsgReport report(Handler);
        report(msgInfo(type, dialog.Text, sender), false);
        return true;
      }) {}

bool ReportFaults(String Sender, FunctionRef<bool()> Work) {
  try {
    const TMsgDialogs reported(Sender);
    return Work();
  } catch (const EStreamError& error) {
    TMsgReport()(Error(UserMessage(error), std::move(Sender)), false);
    return false;
  }
}

}  // namespace vx
