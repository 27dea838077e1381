#include "controls/uVxGauge/TVxPaintObject.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/Clock.h"
#include "rendering/uBitmapX.h"

namespace vx {

namespace {

constexpr int kFarthest = 1 << 27;
constexpr TGlowDelay kMostDelay = 1000;

bool AreFinite(const TGaugeValues& Values) noexcept {
  return std::isfinite(Values.Max) && std::isfinite(Values.Min) && std::isfinite(Values.Position);
}

}  // namespace

TVxPaintObject::TVxPaintObject() = default;
TVxPaintObject::~TVxPaintObject() = default;

template <typename T>
void TVxPaintObject::Change(T& Field, const T& Value, bool& Changed) {
  if (Field == Value) return;
  Field = Value;
  Changed = true;
  LookChanged();
}

void TVxPaintObject::Assign(const TVxPaintValues& Values) {
  if (Values == *this) return;
  static_cast<TVxPaintValues&>(*this) = Values;
  MeasureBar();
  iBasicsChanged = true;
  LookChanged();
}

void TVxPaintObject::SetBgColorFirst(TColor Value) { Change(iBgColorFirst, Value, iBasicsChanged); }
void TVxPaintObject::SetBgColorSecond(TColor Value) { Change(iBgColorSecond, Value, iBasicsChanged); }
void TVxPaintObject::SetBgColorThird(TColor Value) { Change(iBgColorThird, Value, iBasicsChanged); }
void TVxPaintObject::SetCaption(const String& Value) { Change(iCaption, Value, iBasicsChanged); }
void TVxPaintObject::SetCaptionAlignment(TAlignment Value) { Change(iCaptionAlignment, Value, iBasicsChanged); }
void TVxPaintObject::SetCaptionMargin(int Value) { Change(iCaptionMargin, Value, iBasicsChanged); }
void TVxPaintObject::SetCaptionShadow(bool Value) { Change(iCaptionShadow, Value, iBasicsChanged); }
void TVxPaintObject::SetCaptionShadowColor(TColor Value) { Change(iCaptionShadowColor, Value, iBasicsChanged); }
void TVxPaintObject::SetCaptionShow(bool Value) { Change(iCaptionShow, Value, iBasicsChanged); }
void TVxPaintObject::SetGaugeColorFirst(TColor Value) { Change(iGaugeColorFirst, Value, iGaugeChanged); }
void TVxPaintObject::SetGaugeColorSecond(TColor Value) { Change(iGaugeColorSecond, Value, iGaugeChanged); }
void TVxPaintObject::SetGaugeColorThird(TColor Value) { Change(iGaugeColorThird, Value, iGaugeChanged); }
void TVxPaintObject::SetGlowBrightness(uint8_t Value) { Change(iGlowBrightness, Value, iBasicsChanged); }
void TVxPaintObject::SetGlowColorActive(bool Value) { Change(iGlowColorActive, Value, iBasicsChanged); }
void TVxPaintObject::SetGlowColorFirst(TColor Value) { Change(iGlowColorFirst, Value, iBasicsChanged); }
void TVxPaintObject::SetGlowColorSecond(TColor Value) { Change(iGlowColorSecond, Value, iBasicsChanged); }
void TVxPaintObject::SetGlowColorThird(TColor Value) { Change(iGlowColorThird, Value, iBasicsChanged); }
void TVxPaintObject::SetGlowTick(int Value) { Change(iGlowTick, Value, iBasicsChanged); }
void TVxPaintObject::SethParent(const std::shared_ptr<TGaugeWindow>& Value) { Change(ihParent, Value, iBasicsChanged); }
void TVxPaintObject::SetKITT(bool Value) { Change(iKITT, Value, iBasicsChanged); }
void TVxPaintObject::SetPercentShow(bool Value) { Change(iPercentShow, Value, iBasicsChanged); }
void TVxPaintObject::SetValueShow(bool Value) { Change(iValueShow, Value, iBasicsChanged); }
void TVxPaintObject::SetFont(const TFont& Value) { Change(iFont, Value, iBasicsChanged); }
void TVxPaintObject::SetVisible(bool Value) { Change(iVisible, Value, iBasicsChanged); }

void TVxPaintObject::SetGlowDelay(TGlowDelay Value) {
  Change(iGlowDelay, std::clamp(Value, 1, kMostDelay), iBasicsChanged);
}

void TVxPaintObject::SetGlowWidthPercent(TGlowWidthPercent Value) {
  Change(iGlowWidthPercent, std::clamp(Value, 1, 100), iBasicsChanged);
}

void TVxPaintObject::SetGlowState(TVxGaugeGlowState Value) {
  if (iGlowState == Value) return;
  const bool ran = GetGlowRunning();
  iGlowState = Value;
  iBasicsChanged = true;
  NoteGlow(ran);
  LookChanged();
}

void TVxPaintObject::SetPaintRect(const TRect& Value) {
  const auto held = [](int Side) { return std::clamp(Side, -kFarthest, kFarthest); };
  const TRect rect{held(Value.Left), held(Value.Top), held(Value.Right), held(Value.Bottom)};
  if (rect == iPaintRect) return;
  iPaintRect = rect;
  MeasureBar();
  iBasicsChanged = true;
  LookChanged();
}

void TVxPaintObject::SetMax(Extended Value) {
  if (Value != iMax) TakeValues({Value, iMin, iPosition});
}

void TVxPaintObject::SetMin(Extended Value) {
  if (Value != iMin) TakeValues({iMax, Value, iPosition});
}

void TVxPaintObject::SetValues(Extended Max, Extended Min, Extended Position) {
  const TGaugeValues values{Max, Min, Position};
  if (values != Values()) TakeValues(values);
}

void TVxPaintObject::SetPosition(Extended Value) {
  if (!(Value >= iMin && Value <= iMax) || Value == iPosition) return;
  // Between the limits before and behind: no glow starts or ends.
  const Extended end = FBarScale * (Value - iMin);
  if (iMin < Value && Value < iMax && FIsInside && !iCaptionShow && end >= FBarEnd && end < FBarEnd + 1) {
    iPosition = Value;
    ValuesChanged(false);
  } else {
    TakeValues({iMax, iMin, Value});
  }
}

void TVxPaintObject::TakeValues(const TGaugeValues& New) {
  if (!AreFinite(New)) return;
  const TGaugeValues old = Values();
  const bool ran = GetGlowRunning();
  const bool isRedrawn = DoRedraw(iPaintRect.Width(), old, New);
  const Extended before = CalcPercent(old.Position, old.Max, old.Min),
                 now = CalcPercent(New.Position, New.Max, New.Min);
  if ((before <= 0 && now > 0) || (before >= 100 && now < 100)) iGlowChanged = true;
  iMax = New.Max;
  iMin = New.Min;
  iPosition = New.Position;
  MeasureBar();
  NoteGlow(ran);
  const bool isSeen = isRedrawn || (ran && !GetGlowRunning());  // the last glow has to go
  if (isSeen) iGaugeChanged = true;
  ValuesChanged(isSeen);
}

void TVxPaintObject::MeasureBar() noexcept {
  const Extended range = iMax - iMin;
  FIsInside = iMin < iPosition && iPosition < iMax && std::isfinite(range);
  FBarScale = FIsInside ? static_cast<Extended>(iPaintRect.Width()) / range : 0;
  FBarEnd = CalcBarEnd(iPaintRect.Width(), Values());
}

Extended TVxPaintObject::CalcPercent(Extended Value, Extended Max, Extended Min) noexcept {
  return Max == Min ? Min : (Value - Min) / (Max - Min) * 100;
}

int TVxPaintObject::CalcBarEnd(int Width, const TGaugeValues& Values) noexcept {
  const Extended range = Values.Max - Values.Min;
  if (!(range > 0)) return 0;
  const Extended end = static_cast<Extended>(Width) / range * (Values.Position - Values.Min);
  if (std::isnan(end)) return 0;
  constexpr Extended kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(end, -kMost, kMost));
}

bool TVxPaintObject::DoRedraw(int Width, const TGaugeValues& Old, const TGaugeValues& New) const noexcept {
  return iCaptionShow || CalcBarEnd(Width, Old) != CalcBarEnd(Width, New);
}

bool TVxPaintObject::GetGlowRunning() const noexcept {
  return iGlowState == ggsOn || (iGlowState == ggsAuto && iMin < iPosition && iPosition < iMax);
}

void TVxPaintObject::BeginPainting() {
  iBasicsChanged = false;
  iGaugeChanged = false;
  if (GetGlowRunning()) iGlowChanged = false;
}

void TVxPaintObject::NoteGlow(bool Ran) {
  if (!Ran && GetGlowRunning()) iGlowTick = static_cast<int>(GetTickCount());
}

}  // namespace vx
