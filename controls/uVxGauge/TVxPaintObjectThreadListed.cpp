// The setters of a listed object, each under its section.
#include "controls/uVxGauge/TVxGaugeThread.h"

namespace vx {

namespace {

using TLock = TCriticalSectionLock;
using TBase = TVxPaintObject;

}  // namespace

TVxPaintValues TVxPaintObjectThreadListed::GetSnapshot() const {
  TLock lock(iSection);
  return GetValues();
}

void TVxPaintObjectThreadListed::Assign(const TVxPaintValues& Values) {
  TLock lock(iSection);
  TBase::Assign(Values);
}

void TVxPaintObjectThreadListed::SetBgColorFirst(TColor Value) {
  TLock lock(iSection);
  TBase::SetBgColorFirst(Value);
}

void TVxPaintObjectThreadListed::SetBgColorSecond(TColor Value) {
  TLock lock(iSection);
  TBase::SetBgColorSecond(Value);
}

void TVxPaintObjectThreadListed::SetBgColorThird(TColor Value) {
  TLock lock(iSection);
  TBase::SetBgColorThird(Value);
}

void TVxPaintObjectThreadListed::SetCaption(const String& Value) {
  TLock lock(iSection);
  TBase::SetCaption(Value);
}

void TVxPaintObjectThreadListed::SetCaptionAlignment(TAlignment Value) {
  TLock lock(iSection);
  TBase::SetCaptionAlignment(Value);
}

void TVxPaintObjectThreadListed::SetCaptionMargin(int Value) {
  TLock lock(iSection);
  TBase::SetCaptionMargin(Value);
}

void TVxPaintObjectThreadListed::SetCaptionShadow(bool Value) {
  TLock lock(iSection);
  TBase::SetCaptionShadow(Value);
}

void TVxPaintObjectThreadListed::SetCaptionShadowColor(TColor Value) {
  TLock lock(iSection);
  TBase::SetCaptionShadowColor(Value);
}

void TVxPaintObjectThreadListed::SetCaptionShow(bool Value) {
  TLock lock(iSection);
  TBase::SetCaptionShow(Value);
}

void TVxPaintObjectThreadListed::SetGaugeColorFirst(TColor Value) {
  TLock lock(iSection);
  TBase::SetGaugeColorFirst(Value);
}

void TVxPaintObjectThreadListed::SetGaugeColorSecond(TColor Value) {
  TLock lock(iSection);
  TBase::SetGaugeColorSecond(Value);
}

void TVxPaintObjectThreadListed::SetGaugeColorThird(TColor Value) {
  TLock lock(iSection);
  TBase::SetGaugeColorThird(Value);
}

void TVxPaintObjectThreadListed::SetGlowBrightness(uint8_t Value) {
  TLock lock(iSection);
  TBase::SetGlowBrightness(Value);
}

void TVxPaintObjectThreadListed::SetGlowColorActive(bool Value) {
  TLock lock(iSection);
  TBase::SetGlowColorActive(Value);
}

void TVxPaintObjectThreadListed::SetGlowColorFirst(TColor Value) {
  TLock lock(iSection);
  TBase::SetGlowColorFirst(Value);
}

void TVxPaintObjectThreadListed::SetGlowColorSecond(TColor Value) {
  TLock lock(iSection);
  TBase::SetGlowColorSecond(Value);
}

void TVxPaintObjectThreadListed::SetGlowColorThird(TColor Value) {
  TLock lock(iSection);
  TBase::SetGlowColorThird(Value);
}

void TVxPaintObjectThreadListed::SetGlowDelay(TGlowDelay Value) {
  TLock lock(iSection);
  TBase::SetGlowDelay(Value);
}

void TVxPaintObjectThreadListed::SetGlowState(TVxGaugeGlowState Value) {
  TLock lock(iSection);
  TBase::SetGlowState(Value);
}

void TVxPaintObjectThreadListed::SetGlowTick(int Value) {
  TLock lock(iSection);
  TBase::SetGlowTick(Value);
}

void TVxPaintObjectThreadListed::SetGlowWidthPercent(TGlowWidthPercent Value) {
  TLock lock(iSection);
  TBase::SetGlowWidthPercent(Value);
}

void TVxPaintObjectThreadListed::SethParent(const std::shared_ptr<TGaugeWindow>& Value) {
  TLock lock(iSection);
  TBase::SethParent(Value);
}

void TVxPaintObjectThreadListed::SetKITT(bool Value) {
  TLock lock(iSection);
  TBase::SetKITT(Value);
}

void TVxPaintObjectThreadListed::SetMax(Extended Value) {
  TLock lock(iSection);
  TBase::SetMax(Value);
}

void TVxPaintObjectThreadListed::SetMin(Extended Value) {
  TLock lock(iSection);
  TBase::SetMin(Value);
}

void TVxPaintObjectThreadListed::SetValues(Extended Max, Extended Min, Extended Position) {
  TLock lock(iSection);
  TBase::SetValues(Max, Min, Position);
}

void TVxPaintObjectThreadListed::SetPaintRect(const TRect& Value) {
  TLock lock(iSection);
  TBase::SetPaintRect(Value);
}

void TVxPaintObjectThreadListed::SetPercentShow(bool Value) {
  TLock lock(iSection);
  TBase::SetPercentShow(Value);
}

void TVxPaintObjectThreadListed::SetPosition(Extended Value) {
  TLock lock(iSection);
  TBase::SetPosition(Value);
}

void TVxPaintObjectThreadListed::SetValueShow(bool Value) {
  TLock lock(iSection);
  TBase::SetValueShow(Value);
}

void TVxPaintObjectThreadListed::SetFont(const TFont& Value) {
  TLock lock(iSection);
  TBase::SetFont(Value);
}

void TVxPaintObjectThreadListed::SetVisible(bool Value) {
  TLock lock(iSection);
  TBase::SetVisible(Value);
}

}  // namespace vx
