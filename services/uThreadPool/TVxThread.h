// A thread that can be stopped and started again.
#pragma once

#include <cstdint>
#include <mutex>

#include "platform/Threads.h"

namespace vx {

// Set or reset an event, again and again until a look at it shows the new state: for an event that other threads
// change at the same time.
void SetEvent(TEvent& handle) noexcept;
void ResetEvent(TEvent& handle) noexcept;

// Calls doExecute again and again while it is started, and rests at no cost while it is stopped. The two rules for
// derived classes of platform/Threads.h hold.
//
// An object frees itself when its thread has ended. Who wants to keep it, or has it on the stack, calls
// SetFreeOnTerminate(false) before Terminate; deleting it ends the thread, waits for it and needs nothing more.
class TVxThread : public TThread {
 public:
  // Stopped if suspended, otherwise started as soon as the constructor of the last class calls AfterConstruction.
  explicit TVxThread(bool suspended);
  // minTicks in milliseconds, 0 counts as 1: how long WaitForEvent waits.
  TVxThread(bool suspended, TThreadPriority priority, uint32_t minTicks);
  ~TVxThread() override;
  String ClassName() const override { return u"TVxThread"; }

  // Started, whether or not doExecute runs at the moment.
  bool Active() const noexcept { return iEventHandle.IsSet(); }
  // Raises EThread if the system gives no thread.
  virtual void Start();
  // What doExecute does at the moment comes to its end; a Sleep in it is broken off.
  virtual void Stop();
  // Lets the thread end after what doExecute does at the moment, and wakes it wherever it waits. A thread that was
  // never started is started for that, and frees itself.
  void Terminate();
  // Waits so many milliseconds, in the thread itself. True if they passed; false, at once, when the thread is stopped
  // or terminated.
  bool Sleep(uint32_t milliseconds) noexcept;
  // Waits up to the thread's minTicks for being started: true if it is, and is not terminated.
  bool WaitForEvent() noexcept;
  uint32_t GetMinTicks() const noexcept { return iMinTicks; }

  // The living objects of this class and derived ones.
  static int GetThreadCount() noexcept;

 protected:
  void Execute() override;
  // One unit of work. What it raises ends the thread.
  virtual void doExecute() = 0;
  void TerminatedSet() noexcept override;

 private:
  TEvent iEventHandle;  // the run gate
  uint32_t iMinTicks;
  TEvent iSleepHandle;  // set while the thread is stopped
  std::mutex FGate;     // both events change as one
};

namespace uThreadPool {

// Waits for threads that were told to end and free themselves: in rounds of 10 milliseconds of real time, as long as
// there are TVxThread objects, running in each what is waiting for the main thread. Gives up after 100 rounds.
void FreeBuffersForLeakPrevention();

// The same without giving up, to be called by an application that must not end before its threads: it returns only if
// the last object goes within the first 100 rounds. Later than that it never returns, which is wanted.
void WaitForThreads();

}  // namespace uThreadPool

}  // namespace vx
