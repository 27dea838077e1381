// What all plain models of controls have in common: a place, a look, and the mouse. They have no screen. Tests and
// programs without one use them as they are; a desktop shows them, feeds them with what the user does, and answers
// OnInvalidate by painting.
//
//   TControl                        the base
//   TMouseEvent, TMouseMoveEvent    what its events tell
//   TControlUpdate                  one Invalidate for all changes of a block
//
// Example:
//   vx::TControl control;
//   control.SetBounds({10, 10, 210, 60});
//   control.ClientToScreen({5, 5}).X;                    // 15
//   control.MouseMove({}, 20, 30);                       // what a desktop tells
//   control.GetMousePos().Y;                             // 30
//
// Positions are pixels from the left top corner of the control unless told otherwise. A setter that changes what is to
// be seen calls Invalidate.
//
// Threads: all of it belongs to the thread of its window; a program without windows uses it in one thread at a time.
//
// Pitfalls:
//   - Parent, canvas and the objects of events are not owned; whoever frees them first takes them away.
//   - Without a canvas nothing can be measured or painted: GetCanvas gives nullptr until somebody lends one.
#pragma once

#include "platform/Graphics.h"
#include "platform/Method.h"
#include "platform/Mouse.h"
#include "platform/TObject.h"

namespace vx {

class TCanvas;

using TMouseEvent = Method<void(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y)>;
using TMouseMoveEvent = Method<void(TObject* Sender, TShiftState Shift, int X, int Y)>;

class TControl : public TObject {
 public:
  TControl() = default;
  TControl(const TControl&) = delete;
  TControl& operator=(const TControl&) = delete;
  String ClassName() const override { return u"TControl"; }

  // In the pixels of the parent, or of the screen without one, held to -2^27 to 2^27. A right or bottom side before the
  // other one counts as that.
  const TRect& GetBounds() const noexcept { return FBounds; }
  void SetBounds(const TRect& Value);
  int GetLeft() const noexcept { return FBounds.Left; }
  int GetTop() const noexcept { return FBounds.Top; }
  int GetWidth() const noexcept { return FBounds.Width(); }
  int GetHeight() const noexcept { return FBounds.Height(); }
  void SetWidth(int Value) { SetBounds({FBounds.Left, FBounds.Top, FBounds.Left + Value, FBounds.Bottom}); }
  void SetHeight(int Value) { SetBounds({FBounds.Left, FBounds.Top, FBounds.Right, FBounds.Top + Value}); }
  TRect GetClientRect() const noexcept { return {0, 0, GetWidth(), GetHeight()}; }
  TControl* GetParent() const noexcept { return FParent; }
  void SetParent(TControl* Value) noexcept { FParent = Value; }
  // Through all parents.
  TPoint ClientToScreen(TPoint Place) const noexcept;
  TPoint ScreenToClient(TPoint Place) const noexcept;

  bool GetVisible() const noexcept { return FVisible; }
  void SetVisible(bool Value) { Change(FVisible, Value); }
  // One that is not enabled takes no notice of the mouse, but for leaving it.
  bool GetEnabled() const noexcept { return FEnabled; }
  void SetEnabled(bool Value) { Change(FEnabled, Value); }
  const TFont& GetFont() const noexcept { return FFont; }
  void SetFont(const TFont& Value) { Change(FFont, Value); }
  TColor GetColor() const noexcept { return FColor; }
  void SetColor(TColor Value) { Change(FColor, Value); }
  const String& GetHint() const noexcept { return FHint; }
  void SetHint(const String& Value) { FHint = Value; }
  // Free for the program.
  int64_t GetTag() const noexcept { return FTag; }
  void SetTag(int64_t Value) noexcept { FTag = Value; }

  // The surface to paint and measure on, lent by whoever shows the control.
  TCanvas* GetCanvas() const noexcept { return FCanvas; }
  void SetCanvas(TCanvas* Value) noexcept { FCanvas = Value; }
  // Paints the control on its canvas, whose state is what it was afterwards. Nothing without a canvas.
  virtual void Paint() {}
  // Tells by OnInvalidate that the control has to be painted anew, between BeginUpdate and EndUpdate once at the end.
  void Invalidate();
  // Pairs may nest.
  void BeginUpdate() noexcept { ++FUpdates; }
  void EndUpdate();
  const TNotifyEvent& GetOnInvalidate() const noexcept { return FOnInvalidate; }
  void SetOnInvalidate(TNotifyEvent Value) noexcept { FOnInvalidate = Value; }

  // --- what the user does, as the desktop tells it; a derived control does its own part and hands on to this one ---
  virtual void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y);
  virtual void MouseMove(TShiftState Shift, int X, int Y);
  // A left button that went down here and comes up over the control is a click, too; with ssDouble a double click.
  virtual void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y);
  virtual void MouseLeave();
  virtual void Click();
  virtual void DblClick();
  // Where the mouse was last; (-1, -1) while it is elsewhere.
  TPoint GetMousePos() const noexcept { return FMousePos; }

  // --- what the program wants to know ---
  const TMouseEvent& GetOnMouseDown() const noexcept { return FOnMouseDown; }
  void SetOnMouseDown(TMouseEvent Value) noexcept { FOnMouseDown = Value; }
  const TMouseMoveEvent& GetOnMouseMove() const noexcept { return FOnMouseMove; }
  void SetOnMouseMove(TMouseMoveEvent Value) noexcept { FOnMouseMove = Value; }
  const TMouseEvent& GetOnMouseUp() const noexcept { return FOnMouseUp; }
  void SetOnMouseUp(TMouseEvent Value) noexcept { FOnMouseUp = Value; }
  // Before the first OnMouseMove or OnMouseDown.
  const TNotifyEvent& GetOnMouseEnter() const noexcept { return FOnMouseEnter; }
  void SetOnMouseEnter(TNotifyEvent Value) noexcept { FOnMouseEnter = Value; }
  const TNotifyEvent& GetOnMouseLeave() const noexcept { return FOnMouseLeave; }
  void SetOnMouseLeave(TNotifyEvent Value) noexcept { FOnMouseLeave = Value; }
  const TNotifyEvent& GetOnClick() const noexcept { return FOnClick; }
  void SetOnClick(TNotifyEvent Value) noexcept { FOnClick = Value; }
  const TNotifyEvent& GetOnDblClick() const noexcept { return FOnDblClick; }
  void SetOnDblClick(TNotifyEvent Value) noexcept { FOnDblClick = Value; }

 protected:
  // Sets a field and calls Invalidate if that changes it.
  template <typename T>
  void Change(T& Field, const T& Value) {
    if (Field == Value) return;
    Field = Value;
    Invalidate();
  }

 private:
  void MouseAt(int X, int Y);

  TRect FBounds;
  TControl* FParent = nullptr;
  TCanvas* FCanvas = nullptr;
  TFont FFont;
  String FHint;
  int64_t FTag = 0;
  TColor FColor = clWindow;
  TPoint FMousePos{-1, -1};
  int FUpdates = 0;
  bool FVisible = true, FEnabled = true;
  bool FIsInvalid = false;  // since BeginUpdate
  bool FMouseInside = false;
  bool FLeftIsDown = false;  // since a MouseDown here
  TNotifyEvent FOnInvalidate, FOnMouseEnter, FOnMouseLeave, FOnClick, FOnDblClick;
  TMouseEvent FOnMouseDown, FOnMouseUp;
  TMouseMoveEvent FOnMouseMove;
};

// Keeps a control between BeginUpdate and EndUpdate.
class TControlUpdate {
 public:
  explicit TControlUpdate(TControl& Control) noexcept : FControl(Control) { FControl.BeginUpdate(); }
  // What an OnInvalidate raises ends the program here; one that may fail has to keep that to itself.
  ~TControlUpdate() { FControl.EndUpdate(); }
  TControlUpdate(const TControlUpdate&) = delete;
  TControlUpdate& operator=(const TControlUpdate&) = delete;

 private:
  TControl& FControl;
};

}  // namespace vx
