#include "objects/uFreeBuffersLib.h"

#include "core/uConst.h"
#include "objects/uSingleton.h"
#include "objects/uVxGenerics.h"
#include "objects/uVxObjects.h"
#include "platform/FreeBuffers.h"

namespace vx {

// Threads may still report, and the log is written next; then go the objects that applications file, which may use all
// the rest.
void FreeBuffersForLeakPrevention() {
  FreeRegisteredBuffers();
  uSingleton::FreeBuffersForLeakPrevention();
  uVxGenerics::FreeBuffersForLeakPrevention();
  ClearDataheads();
  uVxObjects::FreeBuffersForLeakPrevention();
  uConst::FreeBuffersForLeakPrevention();
}

}  // namespace vx
