// The gauge of a window, and the groups of gauges that move together.
//
// Example:
//   vx::TVxGauge here, there;
//   here.SetGroupIndex(1);
//   there.SetGroupIndex(1);
//   here.SetPosition(40);
//   there.GetPosition();          // 40.0L
#pragma once

#include <memory>

#include "controls/uVxGauge/TVxGaugeThread.h"
#include "controls/uVxGauge/TVxPaintObject.h"
#include "objects/uVxObjects.h"
#include "platform/TControl.h"

namespace vx {

class TVxGauge;

// Tells its gauge what has changed.
class TVxPaintObjectVcl : public TVxPaintObjectData {
 public:
  explicit TVxPaintObjectVcl(TVxGauge& Gauge) : FGauge(Gauge) {}
  String ClassName() const override { return u"TVxPaintObjectVcl"; }
  // The picture of PaintBitmap, which is the object's until the next call.
  const TBitmap& Paint();

 protected:
  void LookChanged() override;
  void ValuesChanged(bool IsSeen) override;

 private:
  TVxGauge& FGauge;
  TBitmap FPicture;
};

// All of it belongs to the thread of its window. What is painted and said is that of its paint object; of the control
// come the place, the canvas, whether it is visible, and OnInvalidate.
class TVxGauge : public TControl {
 public:
  // 185 pixels wide and 41 high. Window is the control's, for the painter thread; null: that paints nothing.
  explicit TVxGauge(const std::shared_ptr<TGaugeWindow>& Window = nullptr);
  ~TVxGauge() override;
  String ClassName() const override { return u"TVxGauge"; }

  // Look and value; whatever is changed there acts on the gauge.
  TVxPaintObjectVcl& GetPaintObject() noexcept { return iPaintObject; }
  const TVxPaintObjectVcl& GetPaintObject() const noexcept { return iPaintObject; }

  // The value, as TVxPaintObject promises.
  Extended GetMax() const noexcept { return iPaintObject.GetMax(); }
  Extended GetMin() const noexcept { return iPaintObject.GetMin(); }
  Extended GetPosition() const noexcept { return iPaintObject.GetPosition(); }
  void SetMax(Extended Value) { iPaintObject.SetMax(Value); }
  void SetMin(Extended Value) { iPaintObject.SetMin(Value); }
  void SetPosition(Extended Value) { iPaintObject.SetPosition(Value); }
  void SetValues(Extended Max, Extended Min, Extended Position) { iPaintObject.SetValues(Max, Min, Position); }

  // The part of the control that the gauge takes; all of it while this is empty.
  const TRect& GetPaintRect() const noexcept { return iPaintRect; }
  void SetPaintRect(const TRect& Value);

  // -1, or the group whose gauges all have the same limits and the same position. A gauge that comes to a group takes
  // the values of those that are there. Any index below 0 becomes -1.
  int GetGroupIndex() const noexcept { return iGroupIndex; }
  void SetGroupIndex(int aIndex);
  // With aReceive this gauge takes the values of the others of its group, if they differ; otherwise they take its own,
  // which happens with each change of value.
  void UpdatePendant(bool aReceive);

  // The process's painter thread paints the gauge into its window, beside Paint, until it is told otherwise. A new size
  // of the control comes to it with the next Paint.
  bool GetThreadPainted() const noexcept { return FListed != nullptr; }
  void SetThreadPainted(bool Value);

  // The task bar follows the position, in whole per cent.
  bool GetShowInTaskbar() const noexcept { return iShowInTaskbar; }
  void SetShowInTaskbar(bool Value);
  // Has the task bar show the position if it is to follow it.
  void RefreshTaskbar();

  // Raises as TVxPaintObject::PaintBitmap.
  void Paint() override;
  // To be called by a timer of the window, such as every 20 ms: calls Invalidate if the glow runs and can be seen.
  void GlowTimer();

 private:
  friend class TVxPaintObjectVcl;
  friend class TGaugeGroupList;
  void LookChanged();
  void ValuesChanged(bool IsSeen);
  bool HasValuesOf(const TVxGauge& Other) const noexcept;
  void ReceiveValues(const TVxGauge& Other);
  void ApplyPaintRect();
  void TellTaskbar(int Percent);

  TVxPaintObjectVcl iPaintObject;
  TRect iPaintRect;
  bool iKilled = false;  // on its way out: nothing acts any more
  int iGroupIndex = -1;
  bool iShowInTaskbar = false;
  bool FIsPainting = false;
  bool FIsReceiving = false;  // whoever it receives values from tells the others
  int FTaskbarPercent = -1;   // what the task bar shows; -1: nothing
  std::unique_ptr<TVxPaintObjectThreadListed> FListed;
};

// The gauges that have a group index, in the order of these. Does not own them.
class TGaugeGroupList : public TVxListClassed<TGaugeGroupList, TVxObjectListU, u"TGaugeGroupList"> {
 public:
  using TVxListClassed::TVxListClassed;
  ~TGaugeGroupList() override { TVxObjects::Clear(); }

  // The process's list: made with the first gauge that has a group index and freed with the last. Only while there is
  // such a gauge.
  static TGaugeGroupList& Instance();

  // Index from 0 to the count, exclusively.
  TVxGauge& GetGauge(int Index) const { return static_cast<TVxGauge&>(*GetItem(Index)); }
  // Sorts the gauges from aLow to aHigh, both included and held to the list, by their group index.
  void SortByGroupIndex(int aLow, int aHigh);
  // Where the gauges of a group begin; the count, or where they would be, if there are none.
  int FindGroup(int GroupIndex) const;

 private:
  friend class TVxGauge;
  static void Enter(TVxGauge& Gauge);
  static void Leave(TVxGauge& Gauge);
};

}  // namespace vx
