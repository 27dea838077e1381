// Gauges that a thread of their own paints, straight into their windows.
//
// Example:
//   vx::TVxPaintObjectThreadListed gauge;         // from here on the painter thread looks at it every 20 ms
//   gauge.SetPaintRect({0, 0, 300, 24});
//   gauge.SethParent(window);
//   for (int i = 1; i <= 100; ++i) {
//     Work(i);
//     gauge.SetPosition(i);                       // never waits for a painting
//   }
//
// Locks, each taken only inside those named before it:
//   1. the process's lock, of the reference to its painter and the count of listed objects
//   2. iLock of the painter, of its list; held for a whole round, paintings included
//   3. the section of a listed object; held for a setter or for making a snapshot, never while painting
// Add and Remove take the second, setters only the third. So making and freeing a listed object may wait for the
// paintings of one round, and setting it never does.
#pragma once

#include <atomic>
#include <exception>
#include <memory>
#include <vector>

#include "controls/uVxGauge/TVxPaintObject.h"
#include "platform/Threads.h"
#include "services/uThreadPool.h"

namespace vx {

class TVxGaugeThread;

// A snapshot made for one painting; it shares nothing but the window, and that stays until it is painted.
class TVxPaintObjectThreadPainter : public TVxPaintObject {
 public:
  explicit TVxPaintObjectThreadPainter(const TVxPaintValues& Values) { TVxPaintObject::Assign(Values); }
  String ClassName() const override { return u"TVxPaintObjectThreadPainter"; }
  // Paints and puts the picture into the window, at the top left of the rectangle. Nothing for an empty rectangle or
  // no window. Raises as PaintBitmap.
  void Paint();
};

// Any thread may set it. It is painted whenever a change or the glow calls for it, while its window is visible. What a
// painting raises is told once, as an error by the message handler (services/uMsg.h) in the main thread, and it is
// painted again with the next change.
//
// Pitfall: what the getters give is for a thread that knows that no other one is setting; GetSnapshot is for all.
class TVxPaintObjectThreadListed : public TVxPaintObjectData {
 public:
  // Listed with Thread; without one with the process's painter, which is made if there is none. Raises EThread if the
  // system gives no thread.
  explicit TVxPaintObjectThreadListed(TVxGaugeThread* Thread = nullptr);
  ~TVxPaintObjectThreadListed() override;
  String ClassName() const override { return u"TVxPaintObjectThreadListed"; }

  // The objects listed with the process's painter.
  static int GetListedCount() noexcept;

  TVxPaintValues GetSnapshot() const;
  void SetBgColorFirst(TColor Value) override;
  void SetBgColorSecond(TColor Value) override;
  void SetBgColorThird(TColor Value) override;
  void SetCaption(const String& Value) override;
  void SetCaptionAlignment(TAlignment Value) override;
  void SetCaptionMargin(int Value) override;
  void SetCaptionShadow(bool Value) override;
  void SetCaptionShadowColor(TColor Value) override;
  void SetCaptionShow(bool Value) override;
  void SetGaugeColorFirst(TColor Value) override;
  void SetGaugeColorSecond(TColor Value) override;
  void SetGaugeColorThird(TColor Value) override;
  void SetGlowBrightness(uint8_t Value) override;
  void SetGlowColorActive(bool Value) override;
  void SetGlowColorFirst(TColor Value) override;
  void SetGlowColorSecond(TColor Value) override;
  void SetGlowColorThird(TColor Value) override;
  void SetGlowDelay(TGlowDelay Value) override;
  void SetGlowState(TVxGaugeGlowState Value) override;
  void SetGlowTick(int Value) override;
  void SetGlowWidthPercent(TGlowWidthPercent Value) override;
  void SethParent(const std::shared_ptr<TGaugeWindow>& Value) override;
  void SetKITT(bool Value) override;
  void SetMax(Extended Value) override;
  void SetMin(Extended Value) override;
  void SetValues(Extended Max, Extended Min, Extended Position) override;
  void SetPaintRect(const TRect& Value) override;
  void SetPercentShow(bool Value) override;
  void SetPosition(Extended Value) override;
  void SetValueShow(bool Value) override;
  void SetFont(const TFont& Value) override;
  void SetVisible(bool Value) override;
  void Assign(const TVxPaintValues& Values) override;

  // For the painter, whose thread may come while a derived class is made or taken apart: it calls nothing virtual.
  //
  // The window is visible, and the glow runs or there is something new to be seen. Under the section.
  bool doPaint() const;
  // What is to be painted at present; null for nothing.
  std::unique_ptr<TVxPaintObjectThreadPainter> GetPainter();

 private:
  friend class TVxGaugeThread;
  void PaintingFailed(const std::exception_ptr& Error);

  TVxGaugeThread* FThread;  // null once it has ended; under the process's lock
  bool FIsProcess = false;  // FThread is the process's painter
  bool FIsFailureTold = false;
  mutable TCriticalSection iSection;
};

// Paints the objects of its list in rounds of 20 milliseconds, and ends, and frees itself, in a round that finds none.
class TVxGaugeThread : public TVxThread {
 public:
  explicit TVxGaugeThread(bool suspended = true);
  ~TVxGaugeThread() override;
  String ClassName() const override { return u"TVxGaugeThread"; }

  // Starts the thread if it had nothing to paint; raises EThread, with nothing added, if the system gives none. Object
  // has to be removed before it goes.
  void Add(TVxPaintObjectThreadListed& Object);
  // Waits for the paintings of the round under way; Object is not painted any more then.
  void Remove(const TVxPaintObjectThreadListed& Object) noexcept;

 protected:
  void doExecute() override;
  void DoTerminate() override;

 private:
  friend class TVxPaintObjectThreadListed;
  bool IsStopped() const noexcept { return GetTerminated() || !Active(); }
  // Paints all objects that have to be; the number of objects.
  size_t PaintAll();
  void EndUnlessUsed();

  std::vector<TVxPaintObjectThreadListed*> iList;
  TCriticalSection iLock;
};

}  // namespace vx
