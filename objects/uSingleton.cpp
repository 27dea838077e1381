#include "objects/uSingleton.h"

#include "platform/Lazy.h"

namespace vx {
namespace {

constinit TLazy<TSingletons> Singletons;

}  // namespace

TSingletons& GSingletons() { return Singletons.Get(); }

void uSingleton::FreeBuffersForLeakPrevention() noexcept { Singletons.Free(); }

}  // namespace vx
