// An editor of one line in a window, as the library's editors want it.
//
//   TLineEdit    Qt's line editor as a TCustomEdit
//
// Example (TMaskEditWidget.h has both in one):
//   vx::TLineEdit line(&window);
//   vx::TVxMaskEdit edit(line);          // has to go before the line does
//   edit.SetMaskMode(vx::mmDate);
//
// It does what TPlainEdit does, and what people expect of a window besides: drag and drop, the middle button, input
// methods, a menu in German, and undoing. Whoever listens (TEditEvents) hears of each key before anything happens, and
// can deal with it:
//   - Backspace, Return, Tab, Escape, Ctrl+A, Ctrl+C, Ctrl+V and Ctrl+X are characters, too; any other letter with Ctrl
//     is none. Return and Escape go on to the window afterwards, so that a dialog's button is pressed.
//   - Ctrl+X copies before it is told, since who deals with it may take the selection away.
//   - Ctrl+Z and Ctrl+Y are the line's own: they put whole texts back, one for each key, paste or leaving, also where
//     the listener wrote the text. A text that the program sets begins anew. QLineEdit's own undo() is of no use here.
//   - DoEnter and DoExit tell of the focus within the window: not of the window's own, nor of menus. A line that is
//     hidden has been left.
//
// What is pasted ends at its first line break. The places of a text are those of QLineEdit, in code units.
//
// For the main thread. Pitfalls:
//   - setMaxLength, setTextMargins and setPalette are the line's: call SetMaxLength, ShowSides and ShowStatus instead.
//   - An exception of a listener that comes out of an event ends the program, as with all of Qt.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <optional>
#include <vector>

#include "platform/TCustomEdit.h"

namespace vx {

class TLineEdit : public QLineEdit, public TCustomEdit {
  Q_OBJECT

 public:
  explicit TLineEdit(QWidget* Parent = nullptr);
  ~TLineEdit() override;
  String ClassName() const override { return u"TLineEdit"; }

  void SetEvents(TEditEvents* Events) override { FEvents = Events; }
  String GetText() const override;
  void SetText(const String& Text) override;
  int GetSelStart() const override;
  void SetSelStart(int Place) override;
  int GetSelLength() const override { return selectionLength(); }
  void SetSelLength(int Length) override;
  void SetSelText(std::u16string_view Text) override;
  int GetMaxLength() const override { return FMaxLength; }
  void SetMaxLength(int Length) override { FMaxLength = Length; }
  bool GetReadOnly() const override { return isReadOnly(); }
  void SetReadOnly(bool IsReadOnly) override { setReadOnly(IsReadOnly); }
  TAlignment GetAlignment() const override { return FAlignment; }
  void SetAlignment(TAlignment Alignment) override;
  // Whether the line stands in another widget.
  bool HasForm() const override { return parentWidget() != nullptr; }
  // Within the frame. The images are looked at when the line is painted.
  void ShowSides(const TEditSides& Sides) override;
  // The image stands at the right end.
  void ShowStatus(const TEditStatus& Status) override;
  // Below the line, while it can be seen.
  void ShowHint(const String& Hint) override;

  const TEditSides& GetSides() const noexcept { return FSides; }
  const TEditStatus& GetStatus() const noexcept { return FStatus; }
  const String& GetHint() const noexcept { return FHint; }

  // What the menu and the keys do; nothing in a line that is read only, but for Copy.
  void Undo();
  void Redo();
  void Cut();
  void Copy();
  // As if the user had pasted it.
  void Paste(const QString& Text);

 protected:
  bool event(QEvent* Event) override;
  void keyPressEvent(QKeyEvent* Event) override;
  void inputMethodEvent(QInputMethodEvent* Event) override;
  void focusInEvent(QFocusEvent* Event) override;
  void focusOutEvent(QFocusEvent* Event) override;
  void hideEvent(QHideEvent* Event) override;
  void mouseReleaseEvent(QMouseEvent* Event) override;
  void dropEvent(QDropEvent* Event) override;
  void contextMenuEvent(QContextMenuEvent* Event) override;
  void changeEvent(QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  static constexpr char16_t kCut = 24;  // Ctrl+X
  class TUserEvent;
  struct TStep {
    String Text;
    int Place = 0;
  };

  void Changed();
  bool TellKeyDown(const QKeyEvent& Event);
  // False: whoever listens has dealt with it.
  bool TellKeyPress(char16_t Key);
  void Control(char16_t Key, QKeyEvent& Event);
  void Type(const QString& Text);
  void Move(QKeyEvent& Event);
  void Leave();
  void Go(std::vector<TStep>& From, std::vector<TStep>& To);
  void FitSides();
  bool HasErrorImage() const noexcept;

  TEditEvents* FEvents = nullptr;
  int FMaxLength = 0;
  TAlignment FAlignment = taLeftJustify;
  TEditSides FSides;
  TEditStatus FStatus;
  String FHint;
  QLabel* FHintLabel = nullptr;           // the line's
  std::optional<QPalette> FValidPalette;  // while an invalid value is shown
  std::vector<TStep> FUndo, FRedo;        // the newest one last
  int FUserEvents = 0;                    // that are under way
  bool FIsWriting = false;                // the line tells of the change itself
  bool FIsEntered = false;
};

}  // namespace vx
