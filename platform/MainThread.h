// The main thread and the methods that other threads want run there.
//
//   IsMainThread, SetMainThread   which thread it is
//   CheckSynchronize              runs what is waiting; the application calls it again and again
//   SetWakeMainThread             how the application hears that something is waiting
//
// Example (the main loop of a program without windows):
//   while (!done) vx::CheckSynchronize(100);   // runs what threads hand over, waits up to 100 ms for it
//
// Threads hand their methods over by TThread::Synchronize and TThread::Queue (platform/Threads.h).
//
// Pitfall: nothing runs by itself. A main thread that neither calls CheckSynchronize nor waits for a thread by
// TThread::WaitFor keeps those waiting that synchronize with it.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

#include "platform/Types.h"

namespace vx {

class TThread;

// Whether the calling thread is the main thread. The first thread to ask becomes it, unless one was set; the
// constructor of every TThread asks. A thread that a TThread runs never becomes it by asking.
bool IsMainThread() noexcept;
// Makes the calling thread the main thread.
void SetMainThread() noexcept;

// Runs, in their order, the methods that are waiting when it is called; if there is none, waits up to Timeout
// milliseconds of real time for one (below 0: without end). Whether any has run. May be called by a method that it
// runs. What a queued method raises ends the call and goes to the caller; the others stay for the next call. In any
// thread but the main thread nothing runs, and the result is false at once.
bool CheckSynchronize(int Timeout = 0);

// Called by the handing thread each time after a method has come, so that a program with an event loop of its own can
// call CheckSynchronize there; must not raise. Empty: nobody is told. Returns the function set before.
std::function<void()> SetWakeMainThread(std::function<void()> Wake);

namespace main_thread {

// For threads and pools alone. Run waits until the main thread has run Method, see TThread::Synchronize; once
// Terminated is set, GaveUp tells a later call not to wait again.
bool Run(FunctionRef<void()> Method, const std::atomic<bool>* Terminated, bool* GaveUp);
void Enqueue(std::function<void()> Method);
// Runs what comes until IsOver, which is asked again after each Wake, for at most so many milliseconds (below 0:
// without end). Whether it is over. Never raises: what queued methods raise is raised by the next CheckSynchronize.
bool DrainUntil(FunctionRef<bool()> IsOver, int64_t Timeout = -1) noexcept;
// Whether the calling thread is the main thread and runs a method for a thread of which IsMeant is true, which waits
// for the method to end.
bool IsServing(FunctionRef<bool(const TThread* Thread)> IsMeant);
// All that wait look again.
void Wake() noexcept;

}  // namespace main_thread

}  // namespace vx
