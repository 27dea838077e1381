#include "objects/uFreeBuffersLib.h"

#include "core/uConst.h"
#include "objects/uSingleton.h"
#include "objects/uVxGenerics.h"
#include "objects/uVxObjects.h"

namespace vx {

// The objects that applications file go first: they may use all the rest.
void FreeBuffersForLeakPrevention() {
  uSingleton::FreeBuffersForLeakPrevention();
  uVxGenerics::FreeBuffersForLeakPrevention();
  ClearDataheads();
  uVxObjects::FreeBuffersForLeakPrevention();
  uConst::FreeBuffersForLeakPrevention();
}

}  // namespace vx
