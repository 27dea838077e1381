// The look and the value of a gauge.
//
// Example:
//   vx::TVxPaintObjectData gauge;
//   gauge.SetPaintRect({0, 0, 200, 20});
//   gauge.SetPosition(30);
//   vx::TBitmap picture;
//   gauge.PaintBitmap(picture);             // as it is at the present tick count
//
// All setters are virtual, so that descendants can lock around each of them.
#pragma once

#include <array>
#include <memory>

#include "controls/uVxGauge/GaugeTypes.h"
#include "platform/TBitmap.h"
#include "platform/TObject.h"

namespace vx {

class TBitmapXWrite;
class TCanvas;

// All that can be set.
struct TVxPaintValues {
  bool iVisible = true;
  TColor iBgColorFirst = 0x00FFFFFF;  // at the top; Second in the middle, Third at the bottom
  TColor iBgColorSecond = 0x00CBCBCB;
  TColor iBgColorThird = 0x00D5D5D5;
  String iCaption;
  TAlignment iCaptionAlignment = taLeftJustify;
  int iCaptionMargin = 0;  // pixels that the text keeps from both sides
  bool iCaptionShadow = false;
  TColor iCaptionShadowColor = 0;
  bool iCaptionShow = false;
  TColor iGaugeColorFirst = 0x00CDFFCD;
  TColor iGaugeColorSecond = 0x0028D300;
  TColor iGaugeColorThird = 0x0033E21C;
  uint8_t iGlowBrightness = 100;  // what is added to each channel in the middle of the glow
  bool iGlowColorActive = false;  // the glow has colours of its own; otherwise it lights up those below it
  TColor iGlowColorFirst = 0x00CDFFCD;
  TColor iGlowColorSecond = 0x0028D300;
  TColor iGlowColorThird = 0x0033E21C;
  TGlowDelay iGlowDelay = 10;
  TVxGaugeGlowState iGlowState = ggsAuto;
  int iGlowTick = 0;  // the low 32 bits of the tick count at which the glow began to run
  TGlowWidthPercent iGlowWidthPercent = 50;
  std::shared_ptr<TGaugeWindow> ihParent;
  bool iKITT = false;  // the glow swings between both ends instead of running through from left to right
  Extended iMax = 100;
  Extended iMin = 0;
  Extended iPosition = 0;
  TRect iPaintRect;  // of the window
  bool iPercentShow = false;
  bool iValueShow = false;
  TFont iFont;
  friend bool operator==(const TVxPaintValues&, const TVxPaintValues&) noexcept = default;
};

class TVxPaintObject : public TObject, protected TVxPaintValues {
 public:
  TVxPaintObject();
  ~TVxPaintObject() override;
  TVxPaintObject(const TVxPaintObject&) = delete;
  TVxPaintObject& operator=(const TVxPaintObject&) = delete;
  String ClassName() const override { return u"TVxPaintObject"; }

  const TVxPaintValues& GetValues() const noexcept { return *this; }

  // A value that is there already changes nothing.
  virtual void SetBgColorFirst(TColor Value);
  virtual void SetBgColorSecond(TColor Value);
  virtual void SetBgColorThird(TColor Value);
  virtual void SetCaption(const String& Value);
  virtual void SetCaptionAlignment(TAlignment Value);
  virtual void SetCaptionMargin(int Value);
  virtual void SetCaptionShadow(bool Value);
  virtual void SetCaptionShadowColor(TColor Value);
  virtual void SetCaptionShow(bool Value);
  virtual void SetGaugeColorFirst(TColor Value);
  virtual void SetGaugeColorSecond(TColor Value);
  virtual void SetGaugeColorThird(TColor Value);
  virtual void SetGlowBrightness(uint8_t Value);
  virtual void SetGlowColorActive(bool Value);
  virtual void SetGlowColorFirst(TColor Value);
  virtual void SetGlowColorSecond(TColor Value);
  virtual void SetGlowColorThird(TColor Value);
  // Held to its range, as SetGlowWidthPercent does.
  virtual void SetGlowDelay(TGlowDelay Value);
  virtual void SetGlowState(TVxGaugeGlowState Value);
  virtual void SetGlowTick(int Value);
  virtual void SetGlowWidthPercent(TGlowWidthPercent Value);
  // The window that a painter thread paints into; null for none.
  virtual void SethParent(const std::shared_ptr<TGaugeWindow>& Value);
  virtual void SetKITT(bool Value);
  // Limits that are no finite numbers are ignored. The position stays, even outside the new limits, and limits may
  // stand the wrong way round; the bar is empty then.
  virtual void SetMax(Extended Value);
  virtual void SetMin(Extended Value);
  // All at once, the position whether or not it lies between the limits; ignored if any is no finite number.
  virtual void SetValues(Extended Max, Extended Min, Extended Position);
  // Sides are held to -2^27 to 2^27.
  virtual void SetPaintRect(const TRect& Value);
  virtual void SetPercentShow(bool Value);
  // Ignored outside GetMin to GetMax.
  virtual void SetPosition(Extended Value);
  virtual void SetValueShow(bool Value);
  virtual void SetFont(const TFont& Value);
  virtual void SetVisible(bool Value);
  // All values at once, as they are.
  virtual void Assign(const TVxPaintValues& Values);

  TColor GetBgColorFirst() const noexcept { return iBgColorFirst; }
  TColor GetBgColorSecond() const noexcept { return iBgColorSecond; }
  TColor GetBgColorThird() const noexcept { return iBgColorThird; }
  const String& GetCaption() const noexcept { return iCaption; }
  TAlignment GetCaptionAlignment() const noexcept { return iCaptionAlignment; }
  int GetCaptionMargin() const noexcept { return iCaptionMargin; }
  bool GetCaptionShadow() const noexcept { return iCaptionShadow; }
  TColor GetCaptionShadowColor() const noexcept { return iCaptionShadowColor; }
  bool GetCaptionShow() const noexcept { return iCaptionShow; }
  TColor GetGaugeColorFirst() const noexcept { return iGaugeColorFirst; }
  TColor GetGaugeColorSecond() const noexcept { return iGaugeColorSecond; }
  TColor GetGaugeColorThird() const noexcept { return iGaugeColorThird; }
  uint8_t GetGlowBrightness() const noexcept { return iGlowBrightness; }
  bool GetGlowColorActive() const noexcept { return iGlowColorActive; }
  TColor GetGlowColorFirst() const noexcept { return iGlowColorFirst; }
  TColor GetGlowColorSecond() const noexcept { return iGlowColorSecond; }
  TColor GetGlowColorThird() const noexcept { return iGlowColorThird; }
  TGlowDelay GetGlowDelay() const noexcept { return iGlowDelay; }
  TVxGaugeGlowState GetGlowState() const noexcept { return iGlowState; }
  int GetGlowTick() const noexcept { return iGlowTick; }
  TGlowWidthPercent GetGlowWidthPercent() const noexcept { return iGlowWidthPercent; }
  const std::shared_ptr<TGaugeWindow>& GethParent() const noexcept { return ihParent; }
  bool GetKITT() const noexcept { return iKITT; }
  Extended GetMax() const noexcept { return iMax; }
  Extended GetMin() const noexcept { return iMin; }
  Extended GetPosition() const noexcept { return iPosition; }
  const TRect& GetPaintRect() const noexcept { return iPaintRect; }
  bool GetPercentShow() const noexcept { return iPercentShow; }
  bool GetValueShow() const noexcept { return iValueShow; }
  const TFont& GetFont() const noexcept { return iFont; }
  bool GetVisible() const noexcept { return iVisible; }

  // (Value - Min) / (Max - Min) * 100; Min if both limits are the same.
  static Extended CalcPercent(Extended Value, Extended Max, Extended Min) noexcept;
  // Where the bar ends in a gauge of so many pixels, which is where its background goes on: the whole part of
  // Width / (Max - Min) * (Position - Min), 0 if Max is not above Min. Beyond Width for a position above Max.
  static int CalcBarEnd(int Width, const TGaugeValues& Values) noexcept;
  // Whether new values show in a gauge of so many pixels: the bar ends at another one, or the caption is shown.
  bool DoRedraw(int Width, const TGaugeValues& Old, const TGaugeValues& New) const noexcept;

  // The look, the size or the end of the bar has changed since the last painting.
  bool GetBasicsChanged() const noexcept { return iBasicsChanged || iGaugeChanged; }
  bool GetGlowRunning() const noexcept;
  // The percentage has left 0 upwards or 100 downwards since the last painting in which the glow ran.
  bool GetGlowChanged() const noexcept { return iGlowChanged; }
  // Milliseconds after which the glow is where it was.
  int GetGlowPeriod() const noexcept;

  // What the gauge says: the caption, the percentage and the value beginning from 0, as far as they are shown:
  // u"Import  12,50%   5 von 40". A text that stands at the right has but one blank before the value.
  String GetText() const;
  // Paints the gauge as it is at the present tick count, in the size of its rectangle: Bitmap gets that and 24 bits.
  // Raises as TBitmap::SetSize, and if there is text as TBitmap::GetCanvas.
  void PaintBitmap(TBitmap& Bitmap);

 protected:
  // Behind each change: whether something of it is to be seen.
  virtual void LookChanged() {}
  virtual void ValuesChanged(bool /*IsSeen*/) {}
  // Says that what is due is about to be painted: nothing is, until the next change.
  void BeginPainting();
  // Makes the layers that are absent.
  void CreateLayers();

  bool iBasicsChanged = false;
  bool iGaugeChanged = false;  // the bar's end or colours
  bool iGlowChanged = false;   // see GetGlowChanged
  // The layers, kept from one painting to the next: background and bar, and both in full glow, the latter also as
  // pixels; background and bar with the glow where it is.
  std::unique_ptr<TBitmap> ibmpbg, ibmpGlowBg, ibmpGlowProgress, ibmpprogress;
  std::unique_ptr<TBitmapXWrite> ibmpXglowBG, ibmpXglowProgress;
  std::unique_ptr<TBitmap> ibufferbg, ibufferprogress;
  TColorArray icArrayBg, icArrayGauge;

 private:
  // What the layers were painted from.
  struct TLayerLook {
    TPoint Size;
    std::array<TColor, 9> Colors{};
    uint8_t Brightness = 0;
    bool HasColors = false;
    friend bool operator==(const TLayerLook&, const TLayerLook&) noexcept = default;
  };

  template <typename T>
  void Change(T& Field, const T& Value, bool& Changed);
  void TakeValues(const TGaugeValues& New);
  // A glow that runs and did not begins at the present tick count.
  void NoteGlow(bool Ran);
  TGaugeValues Values() const noexcept { return {iMax, iMin, iPosition}; }

  TLayerLook GetLayerLook() const;
  void PaintLayers();
  TColorArray PaintGlowColors(const TColorArray& Ramp) const;
  int GetGlowWidth() const noexcept;
  int GetGlowSteps() const noexcept;
  int GetGlowLeft() const;
  void PaintGlow(TBitmap& Bitmap, const TBitmapXWrite& Glow, int Left) const;
  void PaintText(TBitmap& Bitmap) const;

  TLayerLook FLayerLook;

  // For steps that are not seen: what CalcBarEnd multiplies by, and where the bar ends, in whole pixels, while the
  // position is between the limits and on neither of them.
  void MeasureBar() noexcept;
  Extended FBarScale = 0;
  Extended FBarEnd = 0;
  bool FIsInside = false;
};

// Fills Bitmap, as wide as it is, with a row of each colour of Ramp.
void PaintGradientToBitmap(TBitmap& Bitmap, const TColorArray& Ramp);
// Count colours from First over Second, in the middle, to Third.
TColorArray GradientRamp(TColor First, TColor Second, TColor Third, int Count);

// A paint object that keeps its layers.
class TVxPaintObjectData : public TVxPaintObject {
 public:
  TVxPaintObjectData() { CreateLayers(); }
  String ClassName() const override { return u"TVxPaintObjectData"; }
};

}  // namespace vx
