// Threads of this program, and what they wait for.
//
//   GetLogicalCpuCount     the processors of the system
//   TEvent                 a manual-reset event: whoever waits goes on once it is set
//   TCriticalSection       a lock that counts; TCriticalSectionLock holds it for a scope
//   TThread                a thread as an object
//   TLazyTicks             the tick count at a fraction of its price
//
// Example:
//   class TLoader : public vx::TThread {
//    public:
//     TLoader() : TThread(true) {}
//     ~TLoader() override { Finish(); }
//    protected:
//     void Execute() override {
//       while (!GetTerminated() && LoadNext()) Synchronize([&] { ShowProgress(); });   // in the main thread
//     }
//   };
//   TLoader loader;
//   loader.Start();
//   loader.WaitFor();
//
// Two rules for classes derived from TThread or from a class derived from it:
//   - The thread must not run before the object is whole: create it suspended and let the creator call Start, or call
//     AfterConstruction as the last thing in the constructor of the last class.
//   - The thread must not run any more when the object is taken apart: each class calls Finish as the first thing in
//     its destructor. A destructor that finds the thread running ends the program with a message.
//
// Pitfalls:
//   - All waits are in real time: a clock set by SetClock (platform/Clock.h) does not move them.
//   - An object with FreeOnTerminate must come from new, and nobody may touch it once it was terminated.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/Exceptions.h"
#include "platform/TObject.h"
#include "platform/Types.h"

namespace vx {

// A thread that can't be made.
class EThread : public Exception {
 public:
  using Exception::Exception;
};

// The processors of the system that are in use, at least 1.
int GetLogicalCpuCount() noexcept;
// For tests: the number from now on; 0 and less: the system's again. Returns the number set before, 0 for the system's.
int SetLogicalCpuCount(int Value) noexcept;

enum TWaitResult : uint8_t { wrSignaled, wrTimeout, wrAbandoned };
inline constexpr uint32_t kInfinite = 0xFFFFFFFF;

// Stays set until it is reset, and lets all go on that wait meanwhile. Any thread may use it.
class TEvent {
 public:
  explicit TEvent(bool InitialState = false) noexcept : FState(InitialState ? kSet : 0u) {}
  TEvent(const TEvent&) = delete;
  TEvent& operator=(const TEvent&) = delete;

  void SetEvent() noexcept { Change(kSet, 0); }
  void ResetEvent() noexcept { Change(0, kSet); }
  // From now on nobody waits here any more: WaitFor gives wrAbandoned where it would wait.
  void Abandon() noexcept { Change(kAbandoned, 0); }
  bool IsSet() const noexcept { return (FState.load(std::memory_order_acquire) & kSet) != 0; }
  // Waits up to so many milliseconds for the event to be set; 0 looks only, kInfinite waits without end.
  TWaitResult WaitFor(uint32_t Milliseconds = kInfinite) noexcept;

 private:
  static constexpr unsigned kSet = 1, kAbandoned = 2;
  void Change(unsigned On, unsigned Off) noexcept;

  std::atomic<unsigned> FState;
  std::mutex FMutex;
  std::condition_variable FChanged;
};

// The thread that holds it may enter again and has to leave as often as it entered. Held for short it costs a waiting
// thread no sleep.
class TCriticalSection {
 public:
  TCriticalSection() noexcept = default;
  TCriticalSection(const TCriticalSection&) = delete;
  TCriticalSection& operator=(const TCriticalSection&) = delete;
  void Enter() noexcept;
  // False, at once, if another thread holds it.
  [[nodiscard]] bool TryEnter() noexcept;
  // Only by the thread that holds it.
  void Leave() noexcept;
  // Whether the calling thread holds it.
  bool IsHeld() const noexcept;

 private:
  enum TLockState : int { lsFree, lsHeld, lsAwaited };
  bool EnterAgain() noexcept;
  bool EnterFree() noexcept;
  std::atomic<int> FState{lsFree};
  std::atomic<const void*> FOwner{nullptr};
  int FDepth = 0;
};

class TCriticalSectionLock {
 public:
  explicit TCriticalSectionLock(TCriticalSection& Section) noexcept : FSection(Section) { FSection.Enter(); }
  ~TCriticalSectionLock() { FSection.Leave(); }
  TCriticalSectionLock(const TCriticalSectionLock&) = delete;
  TCriticalSectionLock& operator=(const TCriticalSectionLock&) = delete;

 private:
  TCriticalSection& FSection;
};

// Raising a thread above tpNormal needs a right that users mostly lack; it stays where it is then.
enum TThreadPriority : uint8_t { tpIdle, tpLowest, tpLower, tpNormal, tpHigher, tpHighest, tpTimeCritical };

class TThread : public TObject {
 public:
  // The thread of the system comes with Start; unless CreateSuspended, AfterConstruction calls it.
  explicit TThread(bool CreateSuspended);
  ~TThread() override;
  TThread(const TThread&) = delete;
  TThread& operator=(const TThread&) = delete;
  String ClassName() const override { return u"TThread"; }

  // Lets the thread run; nothing if it was started before. Raises EThread if the system gives no thread.
  void Start();
  // Tells the thread to end, which it does when it next asks GetTerminated. A thread that was not started does not
  // run Execute any more.
  void Terminate();
  // Waits until the thread has ended: DoTerminate has run, and unless it frees itself, the object is at rest. The main
  // thread runs meanwhile what other threads want run there. Returns at once in the thread itself, and for one that
  // was not started.
  void WaitFor() noexcept;

  bool GetTerminated() const noexcept { return FTerminated.load(std::memory_order_acquire); }
  bool GetStarted() const noexcept;
  bool GetFinished() const noexcept;
  bool IsRunning() const noexcept { return GetStarted() && !GetFinished(); }
  // Whether the object deletes itself when the thread ends; false unless set. One that never starts does not end.
  bool GetFreeOnTerminate() const noexcept { return FFreeOnTerminate; }
  void SetFreeOnTerminate(bool Value) noexcept { FFreeOnTerminate = Value; }
  TThreadPriority GetPriority() const noexcept { return FPriority; }
  void SetPriority(TThreadPriority Value) noexcept;
  // What left Execute, which ended the thread; nullptr for nothing. Of a thread that has ended.
  std::exception_ptr GetFatalException() const noexcept { return FFatalException; }

  // The object of the calling thread; nullptr for the main thread and others that no TThread runs.
  static TThread* CurrentThread() noexcept;
  // Runs Method in the main thread and waits until it has run; what it raises is raised here. The main thread itself
  // runs it at once. A thread that is terminated waits one more second for the main thread to come; then it gets
  // false without Method having run, and from then on at once, so that a program always comes to its end.
  static bool Synchronize(FunctionRef<void()> Method);
  // Has Method run in the main thread some time later, and waits for nothing, not even in the main thread.
  static void Queue(std::function<void()> Method);

 protected:
  // What the thread does. It should end soon after GetTerminated. What it raises ends the thread.
  virtual void Execute() = 0;
  // In the thread, behind Execute. What it raises is dropped.
  virtual void DoTerminate() {}
  // Called by Terminate, in whichever thread that is, to wake what the thread waits in.
  virtual void TerminatedSet() noexcept {}

  // Starts the thread unless it was created suspended.
  void AfterConstruction();
  // Ends the thread and waits for it; it does not free itself any more. Nothing in the thread itself, nor for one
  // that was not started. May be called by each class of a hierarchy.
  void Finish() noexcept;
  // For the destructor of a class that is derived from: ends the program if the thread still runs, as the object that
  // it works on is taken apart already.
  void ExpectFinished() const noexcept;

  struct TState;
  // The object lives at least as long as this, even if its thread ends meanwhile and frees it.
  class TKeep {
   public:
    explicit TKeep(const TThread& Thread);
    ~TKeep();
    TKeep(const TKeep&) = delete;
    TKeep& operator=(const TKeep&) = delete;

   private:
    std::shared_ptr<TState> FState;
  };

 private:
  static void Run(TThread* Self, const std::shared_ptr<TState>& State) noexcept;
  void ApplyPriority() noexcept;

  std::shared_ptr<TState> FState;
  std::thread FThread;
  std::exception_ptr FFatalException;
  std::atomic<bool> FTerminated{false};
  std::atomic<bool> FFreeOnTerminate{false};
  std::atomic<TThreadPriority> FPriority{tpNormal};
  bool FCreateSuspended;
  bool FGaveUp = false;  // the thread's own: the main thread did not come
};

// GetTickCount (platform/Clock.h) for many readings in a row. With the system's clock a reading is at most a few
// milliseconds old, as exact as the clock by which the system wakes threads; with any other it is exact. The clock is
// the one in use when the object is made.
class TLazyTicks {
 public:
  TLazyTicks() noexcept;
  int64_t Read() noexcept;

 private:
  bool FIsSystem;
  int64_t FCoarse = -1;
  int64_t FTicks = 0;
};

}  // namespace vx
