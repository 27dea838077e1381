// Of use to the editor of one line only.
#pragma once

#include <utility>

#include "desktop/TLineEdit.h"

namespace vx {

// The length of an event of the user: if the text is another one in the end, that can be undone.
class TLineEdit::TUserEvent {
 public:
  explicit TUserEvent(TLineEdit& Line) : FLine(Line), FBefore{Line.GetText(), Line.cursorPosition()} {
    ++FLine.FUserEvents;
  }
  ~TUserEvent() {
    if (--FLine.FUserEvents > 0 || FLine.GetText() == FBefore.Text) return;
    FLine.FRedo.clear();
    FLine.FUndo.push_back(std::move(FBefore));
    if (FLine.FUndo.size() > MostSteps) FLine.FUndo.erase(FLine.FUndo.begin());
  }
  TUserEvent(const TUserEvent&) = delete;
  TUserEvent& operator=(const TUserEvent&) = delete;

 private:
  static constexpr size_t MostSteps = 1000;

  TLineEdit& FLine;
  TStep FBefore;
};

}  // namespace vx
