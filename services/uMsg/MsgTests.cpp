#include "services/uMsg/MsgTests.h"

#include "platform/Dialogs.h"
#include "services/uMsg/TMsgHandler.h"

namespace vx {

namespace {

bool IsValid(bool Success) {
  TMsgReport()(Error(u"isValid: Error", u"isValid"), Success);
  return Success;
}

bool Store(bool Success) {
  if (!Success) TMsgReport()(Error(u"Store: Error", u"store"), false);
  return Success;
}

void SetSubData(bool IsReporting) {
  TMsgAction action;
  if (IsReporting) {
    TMsgReport()(Warning(u"TSubClass: Anzahl der Felder nicht korrekt", u"TSubClass.SetData"), true);
  }
  action.End();
}

void SetData(bool IsReporting, bool IsSubReporting) {
  TMsgAction action;
  if (IsReporting) TMsgReport()(Warning(u"TClass: Anzahl der Felder nicht korrekt", u"TClass.SetData"), false);
  SetSubData(IsSubReporting);
  action.End();
}

}  // namespace

void TestErrorHandling() {
  if (TMsgReport()(Error(u"Falsch", u"Testerrorhandling"), IsValid(true) && Store(false))) {
    ShowMessage(u"hat geklappt!");
  }
}

void TestBeginEndAction() {
  TMsgAction action;
  for (bool isReporting : {false, true}) {
    for (bool isSubReporting : {false, true}) SetData(isReporting, isSubReporting);
  }
  action.End(Warning(u"BeginEndAction hat nen Problem", u"TestBeginEndAction"));
}

}  // namespace vx
