// Declared where all units can see it, and made here, above those that it calls.
#include "objects/uFreeBuffersLib.h"

#include "core/uConst.h"
#include "objects/uSingleton.h"
#include "objects/uVxGenerics.h"
#include "objects/uVxObjects.h"
#include "services/uAnimate.h"
#include "services/uMsg.h"
#include "services/uThreadPool.h"

namespace vx {

// Threads may still report, and the log is written next; then go the objects that applications file, which may use all
// the rest.
void FreeBuffersForLeakPrevention() {
  uThreadPool::FreeBuffersForLeakPrevention();
  uAnimate::FreeBuffersForLeakPrevention();
  uMsg::FreeBuffersForLeakPrevention();
  uSingleton::FreeBuffersForLeakPrevention();
  uVxGenerics::FreeBuffersForLeakPrevention();
  ClearDataheads();
  uVxObjects::FreeBuffersForLeakPrevention();
  uConst::FreeBuffersForLeakPrevention();
}

}  // namespace vx
