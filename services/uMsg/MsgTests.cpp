// Two small operations that show how reports nest.
#include "platform/Dialogs.h"
#include "services/uMsg/TMsgHandler.h"

namespace vx {

namespace {

bool IsValid(bool Success) {
  Msg().GetMsg()(Error(u"isValid: Error", u"isValid"), Success);
  return Success;
}

bool Store(bool Success) {
  if (!Success) Msg().GetMsg()(Error(u"Store: Error", u"store"), false);
  return Success;
}

void SetSubData(bool IsReporting) {
  Msg().BeginAction();
  if (IsReporting) {
    Msg().GetMsg()(Warning(u"TSubClass: Anzahl der Felder nicht korrekt", u"TSubClass.SetData"), true);
  }
  Msg().EndAction();
}

void SetData(bool IsReporting, bool IsSubReporting) {
  Msg().BeginAction();
  if (IsReporting) Msg().GetMsg()(Warning(u"TClass: Anzahl der Felder nicht korrekt", u"TClass.SetData"), false);
  SetSubData(IsSubReporting);
  Msg().EndAction();
}

}  // namespace

void TestErrorHandling() {
  if (Msg().GetMsg()(Error(u"Falsch", u"Testerrorhandling"), IsValid(true) && Store(false))) {
    ShowMessage(u"hat geklappt!");
  }
}

void TestBeginEndAction() {
  Msg().BeginAction();
  for (bool isReporting : {false, true}) {
    for (bool isSubReporting : {false, true}) SetData(isReporting, isSubReporting);
  }
  Msg().EndAction(Warning(u"BeginEndAction hat nen Problem", u"TestBeginEndAction"));
}

}  // namespace vx
