// A masked editor in a window: dates, times, hours, amounts and numbers, typed as the library's editor has it.
//
//   TMaskEditWidget    a TLineEdit with the TVxMaskEdit that looks after it
//
// Example:
//   auto* birthday = new vx::TMaskEditWidget(&window);      // the window's
//   birthday->Editor().SetMaskMode(vx::mmDate);
//   birthday->Editor().SetDate(vx::EncodeDate(1938, 5, 24));
//   form.addRow("&Geburtstag", birthday);
//   ...
//   vx::TDateTime value;
//   if (birthday->Editor().ToDate(value)) Store(value);
//
// The mode, the value, its limits and what is told of changes are the editor's (controls/uVxMaskEdit.h); the widget
// only shows and hands on. An invalid text gets the editor's colour and image, the value that is about to be stored
// stands below the line with SetHintShow.
//
// For the main thread. Pitfalls:
//   - Write by the editor, not by setText: a text set past it counts as an edit of the user.
//   - The text is only repaired when the line is left, by Tab, Return, the mouse or hiding the window. Who reads values
//     from a menu or a key that leaves the focus where it is calls Editor().Finishing() first.
//   - GetAutoSkip is left to the program.
#pragma once

#include "controls/uVxMaskEdit/TVxMaskEdit.h"
#include "desktop/TLineEdit.h"

namespace vx {

class TMaskEditWidget : public TLineEdit {
  Q_OBJECT

 public:
  explicit TMaskEditWidget(QWidget* Parent = nullptr);
  ~TMaskEditWidget() override;
  String ClassName() const override { return u"TMaskEditWidget"; }

  // The widget's.
  TVxMaskEdit& Editor() noexcept { return FEditor; }
  const TVxMaskEdit& Editor() const noexcept { return FEditor; }

 private:
  TVxMaskEdit FEditor{*this};
};

}  // namespace vx
