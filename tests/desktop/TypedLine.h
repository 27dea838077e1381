// A line in a window that is typed into by events, with the calls of a TPlainEdit.
#pragma once

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QTest>

#include "desktop/QtValues.h"
#include "desktop/TLineEdit.h"

namespace vx::test {

class TTypedLine : public TLineEdit {
 public:
  TTypedLine() : TLineEdit(new QWidget) {
    new QLineEdit(parentWidget());
    parentWidget()->show();
    QApplication::setActiveWindow(parentWidget());
    setFocus();
  }
  ~TTypedLine() override {
    QWidget* const form = parentWidget();
    setParent(nullptr);
    delete form;
  }
  using TLineEdit::dropEvent;
  void Enter() {
    if (hasFocus()) selectAll();
    setFocus(Qt::TabFocusReason);
  }
  void Exit() { static_cast<QWidget*>(parentWidget()->children().back())->setFocus(); }
  // Other letters with Ctrl are told straight to the listener: in a window they are no characters.
  void Type(std::u16string_view Keys) {
    constexpr std::pair<char16_t, int> keys[] = {
        {chBack, Qt::Key_Backspace}, {chTab, Qt::Key_Tab}, {chReturn, Qt::Key_Return}, {chEscape, Qt::Key_Escape}};
    for (char16_t unit : Keys) {
      const auto known = std::find_if(std::begin(keys), std::end(keys), [&](auto& key) { return key.first == unit; });
      if (unit >= u' ' || known != std::end(keys)) {
        Send(known != std::end(keys) ? known->second : 0, {}, QString(QChar(unit)));
      } else if (Events != nullptr) {
        Events->KeyPress(unit);
      }
    }
  }
  void SetEvents(TEditEvents* AEvents) override {
    Events = AEvents;
    TLineEdit::SetEvents(AEvents);
  }
  void Down(uint16_t Key, TShiftState Shift = {}) {
    constexpr std::pair<uint16_t, int> keys[] = {
        {vkLeft, Qt::Key_Left}, {vkRight, Qt::Key_Right}, {vkUp, Qt::Key_Up},        {vkDown, Qt::Key_Down},
        {vkHome, Qt::Key_Home}, {vkEnd, Qt::Key_End},     {vkDelete, Qt::Key_Delete}};
    for (const auto& [number, key] : keys) {
      if (number == Key) Send(key, Shift.Has(ssShift) ? Qt::ShiftModifier : Qt::NoModifier, {});
    }
  }
  void Paste(std::u16string_view Text) {
    QApplication::clipboard()->setText(ToQt(Text));
    Send(Qt::Key_V, Qt::ControlModifier, QString(QChar(chPaste)));
  }
  void Send(int Key, Qt::KeyboardModifiers Modifiers, const QString& Text) {
    QKeyEvent pressed(QEvent::KeyPress, Key, Modifiers, Text);
    event(&pressed);  // the form has no part in it
  }
  TEditEvents* Events = nullptr;

 protected:
  bool focusNextPrevChild(bool) override { return false; }
};

}  // namespace vx::test
