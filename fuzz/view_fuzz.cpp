// A view does what a plain list does, whatever is done to it, and takes any text for its hidden rows.
#include "fuzz/support/Input.h"
#include "tests/support/ViewWalk.h"

namespace vx::fuzz {

FUZZ(Input) {
  const int steps = Input.Byte() % 64;
  test::TViewWalk walk([&](int count) { return Input.Byte() % count; });
  for (int step = 0; step < steps; ++step) {
    const std::string fault = walk.Step();
    Check(fault.empty(), fault.c_str());
  }
  TCsvView& view = walk.View;
  const String shown = test::Names(view), text = Input.Text();
  view.SetHiddenText(text);
  TVxStringList lines;
  lines.SetText(text);
  const auto isRow = [](const String& line) { return !line.empty(); };
  Check(test::Names(view) == shown, "a text of hidden rows leaves those on show");
  Check(view.GetAll().GetCount() == view.GetCount() + std::ranges::count_if(lines.Items(), isRow),
        "each line that is not empty is a row");
  const String all = test::Names(view.GetAll());
  const auto hidden = test::HiddenLines(view);
  view.SetHiddenText(view.GetHiddenText());
  Check(test::Names(view.GetAll()) == all, "hidden rows that were written come back to their places");
  Check(test::HiddenLines(view) == hidden, "hidden rows that were written come back");
  view.ShowAll();
  Check(test::Names(view) == all, "all rows come back in their order");
}

}  // namespace vx::fuzz
