#include "objects/uVxGenerics/TVxDataIdSingleton.h"

#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "platform/Format.h"
#include "platform/Numbers.h"

namespace vx {

TVxDataIdSingleton::TVxDataIdSingleton() {
  ShowWarning(
      u"Das Hilfsobjekt darf nicht direkt instantiiert werden!\r\n"
      u"Statt dessen ist die Klassenmethode \"Singleton\" zu nutzen.\r\n"
      u"[TVxDataIdSingleton.Create]");
}

TVxDataIdSingleton::~TVxDataIdSingleton() {
  if (AccessSingleton(0) == this) AccessSingleton(2);
}

TVxDataIdSingleton* TVxDataIdSingleton::Access(int Request, TVxDataIdSingleton* (*Make)()) {
  static constinit TVxDataIdSingleton* slot = nullptr;
  switch (Request) {
    case 0:
      break;
    case 1:
      if (!slot) slot = Make();
      break;
    case 2:
      slot = nullptr;
      break;
    default:
      throw Exception(Format(u"Illegal request %d in AccessSingleton", {Request}));
  }
  return slot;
}

String TVxDataIdSingleton::GetSerialize() const { return IntToStr(GetId()); }
void TVxDataIdSingleton::SetSerialize(const String& Value) { SetId(StrToIntDef(Value, 0)); }

void uVxGenerics::FreeBuffersForLeakPrevention() { TVxDataIdSingleton::ReleaseSingleton(); }

}  // namespace vx
