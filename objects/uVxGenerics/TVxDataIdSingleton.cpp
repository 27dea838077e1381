#include "objects/uVxGenerics/TVxDataIdSingleton.h"

#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "platform/Format.h"
#include "platform/Numbers.h"

namespace vx {

namespace {

// One for the class and all that derive from it, in each thread.
constinit thread_local TVxDataIdSingleton* Slot = nullptr;

// Frees what a thread leaves in its slot.
struct TSlotEnd {
  ~TSlotEnd() { delete Slot; }
};

}  // namespace

TVxDataIdSingleton::TVxDataIdSingleton() {
  ShowWarning(
      u"Das Hilfsobjekt darf nicht direkt instantiiert werden!\r\n"
      u"Statt dessen ist die Klassenmethode \"Singleton\" zu nutzen.\r\n"
      u"[TVxDataIdSingleton.Create]");
}

TVxDataIdSingleton::~TVxDataIdSingleton() {
  if (Slot == this) Slot = nullptr;
}

TVxDataIdSingleton* TVxDataIdSingleton::Access(int Request, TVxDataIdSingleton* (*Make)()) {
  switch (Request) {
    case 0:
      break;
    case 1:
      if (!Slot) {
        static thread_local const TSlotEnd end;
        Slot = Make();
      }
      break;
    case 2:
      Slot = nullptr;
      break;
    default:
      throw Exception(Format(u"Illegal request %d in AccessSingleton", {Request}));
  }
  return Slot;
}

String TVxDataIdSingleton::GetSerialize() const { return IntToStr(GetId()); }
void TVxDataIdSingleton::SetSerialize(const String& Value) { SetId(StrToIntDef(Value, 0)); }

void uVxGenerics::FreeBuffersForLeakPrevention() { TVxDataIdSingleton::ReleaseSingleton(); }

}  // namespace vx
