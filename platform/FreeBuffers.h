// How units of higher folders join in when FreeBuffersForLeakPrevention (objects/uFreeBuffersLib.h) frees what the
// units keep.
//
//   OnFreeBuffers           a unit says by which routine it frees what it keeps
//   FreeRegisteredBuffers   calls these routines
//
// Example:
//   TReports& Reports() {
//     return Held.Get([] {
//       vx::OnFreeBuffers(vx::foReports, &FreeReports);
//       return std::make_unique<TReports>();
//     });
//   }
//
// A unit says so when it first makes something, so that nothing runs at the program's start and no folder knows those
// above it. Any thread may do so.
#pragma once

#include <cstdint>

namespace vx {

// The order of the calls: threads may still report, and whatever else goes may, too.
enum TFreeOrder : uint8_t { foThreads, foServices, foReports };

// From now on Free is called, once however often it was told. Does nothing if memory is out.
void OnFreeBuffers(TFreeOrder Order, void (*Free)()) noexcept;
// Calls all in their order; of one order, the one told last goes first. They stay told.
void FreeRegisteredBuffers();

}  // namespace vx
