// Frees what the units keep for the whole program.
//
//   FreeBuffersForLeakPrevention   calls the routine of that name of every unit
//
// Example:
//   vx::FreeBuffersForLeakPrevention();      // as the last thing that a program does with the library
//
// Pitfall: what is used afterwards is built again, and stays.
#pragma once

namespace vx {

// Also forgets the descriptions of classes. No other thread may use the library meanwhile.
void FreeBuffersForLeakPrevention();

}  // namespace vx
