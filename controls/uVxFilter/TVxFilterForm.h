// The window that comes up below an item of the filter bar, without a screen: a text to type, a list to choose from,
// or a list with check boxes.
//
// Threads: all of it belongs to the thread of its window.
#pragma once

#include <vector>

#include "controls/uVxFilter/FilterTypes.h"
#include "platform/TControl.h"

namespace vx {

enum TFilterFormKind : uint8_t {
  ffText,   // a text
  ffCombo,  // a text, and lines one of which can be chosen
  ffList,   // lines one of which can be chosen
  ffChecks  // lines with check boxes
};

// The button that lets several values be chosen.
struct TFilterButton {
  String Hint = u"mehrere auswählen";
  String GlyphName = u"MULTI_SELECT";
  TColor TransparentColor = 0x00FF00FF;
  bool Visible = true;
  bool Down = false;
};

struct TFilterLine {
  String Caption;
  String Value;
  int Row = -1;  // a row that has the value, counted in all rows of the view; -1 for none
  bool Checked = false;
};

// A line is as high as the head with the caption and the button, 18 pixels; a text field stands below that.
using TFilterKeyEvent = Method<void(TObject* Sender, char16_t& Key)>;
using TFilterLineEvent = Method<void(TCanvas& Canvas, int Line, TRect& Rect)>;

class TVxFilterForm : public TControl {
 public:
  static constexpr int LineHeight = 18;

  TVxFilterForm();
  String ClassName() const override { return u"TVxFilterForm"; }

  // "Filterwert" at first.
  const String& GetCaption() const noexcept { return FCaption; }
  void SetCaption(const String& Value) { Change(FCaption, Value); }
  TFilterFormKind GetKind() const noexcept { return FKind; }
  void SetKind(TFilterFormKind Value) { Change(FKind, Value); }
  bool HasText() const noexcept { return FKind == ffText || FKind == ffCombo; }
  bool HasLines() const noexcept { return FKind != ffText; }
  const String& GetText() const noexcept { return FText; }
  void SetText(const String& Value) { Change(FText, Value); }
  const TFilterButton& GetButton() const noexcept { return FButton; }
  void SetButton(const TFilterButton& Value);

  // --- the lines, counted from 0; an index outside does nothing and gives an empty line ---
  int GetLineCount() const noexcept { return static_cast<int>(FLines.size()); }
  const TFilterLine& GetLine(int Index) const noexcept;
  void SetLines(std::vector<TFilterLine> Lines);
  // The commatext of the values of the lines that are checked.
  String GetCheckedValues() const;
  // The line chosen in a list or combo; -1 for none.
  int GetItemIndex() const noexcept { return FItemIndex; }
  void SetItemIndex(int Value) { Change(FItemIndex, Value); }
  // The first line that is to be seen.
  int GetTopLine() const noexcept { return FTopLine; }
  void SetTopLine(int Value);
  TRect GetLineRect(int Index) const noexcept;
  TRect GetButtonRect() const noexcept;
  // Whether OnDrawLine paints the line, and its painting, for a desktop that shows lines in its own way.
  bool HasPicture(int Index) const noexcept { return FOnDrawLine && GetLine(Index).Row >= 0; }
  void PaintPicture(TCanvas& Canvas, int Index, TRect Rect) const;

  // --- what the user does ---
  // A key that OnKeyPress leaves goes to the text, if there is one: 8 deletes its last character.
  void KeyPress(char16_t Key);
  // The text was made another one, where a desktop has an editor of its own for it. No line is chosen any more.
  void EditText(const String& Value);
  // Checks a line or takes its check away; elsewhere chooses it.
  void ClickLine(int Index);
  void ClickButton();
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void Paint() override;

  // After text, choice or checks have changed by the user.
  void SetOnChange(TNotifyEvent Value) noexcept { FOnChange = Value; }
  void SetOnKeyPress(TFilterKeyEvent Value) noexcept { FOnKeyPress = Value; }
  void SetOnButton(TNotifyEvent Value) noexcept { FOnButton = Value; }
  // Paints a line in the place of its caption; Rect is that place.
  void SetOnDrawLine(TFilterLineEvent Value) noexcept { FOnDrawLine = Value; }

 private:
  int FirstLineTop() const noexcept { return LineHeight * (HasText() ? 2 : 1); }
  void PaintHead(TCanvas& Canvas) const;
  void PaintLine(TCanvas& Canvas, int Index) const;
  void Changed();

  String FCaption = u"Filterwert", FText;
  TFilterFormKind FKind = ffText;
  TFilterButton FButton;
  std::vector<TFilterLine> FLines;
  int FItemIndex = -1, FTopLine = 0;
  TNotifyEvent FOnChange, FOnButton;
  TFilterKeyEvent FOnKeyPress;
  TFilterLineEvent FOnDrawLine;
};

}  // namespace vx
