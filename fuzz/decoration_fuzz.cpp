// Decorations: the text of one, that of another one which is laid over it, a cell, and the text of a button.
#include "fuzz/support/Values.h"
#include "platform/Dialogs.h"
#include "tests/support/PlainDecorations.h"

namespace vx::fuzz {
namespace {

// Of a text with a code unit 0 reading keeps only what stands before it.
bool HasZero(std::u16string_view Text) { return Text.find(u'\0') != Text.npos; }

// False for a text that is refused.
bool Read(TDecoration& Item, const String& Text) {
  TScriptedDialogs dialogs;
  const String before = Item.GetCommatext();
  Item.SetCommatext(Text);
  Check(dialogs.Shown.empty() == (ReadCommatext(Text).size() >= 22), "a short text is told");
  Check(dialogs.Shown.empty() || Item.GetCommatext() == before, "a short text changes nothing");
  const String written = Item.GetCommatext();
  TDecoration back;
  back.SetCommatext(written);
  Check(HasZero(written) || back.GetCommatext() == written, "a decoration reads back");
  return dialogs.Shown.empty();
}

}  // namespace

FUZZ(Input) {
  TValues values(Input);
  TDecorationList list;
  list.SetColCount(values.Small());
  list.SetRowCount(values.Small());
  list.SetFixed(values.Small(), values.Small(), values.Small(), values.Small());
  const int col = values.Small(), row = values.Small();

  TDecoration first(&list), second(&list);
  if (Read(first, Input.Text()) && Read(second, Input.Text()) && !HasZero(first.GetCommatext()) &&
      !HasZero(second.GetCommatext())) {
    const String merged = test::MergedText(second, first);
    TDecorationList::CompressDecoration(second, first);
    Check(first.GetCommatext() == merged, "what is set overwrites");
  }
  TRect range;
  second.RangeRect(range);
  const TRect& given = second.GetRange();
  const auto isSmall = [](int value) { return value > -1000000 && value < 1000000; };
  if (isSmall(given.Left) && isSmall(given.Top) && isSmall(given.Right) && isSmall(given.Bottom)) {
    const test::TPlainDecorations plain(list);
    Check(second.Responsible(col, row) == plain.Applies(second, col, row), "a cell is in a region, or not");
  }

  const String text = Input.Text();
  const TButtonInfo button(text), back(button.GetSerialize());
  Check(HasZero(button.GetSerialize()) || back == button, "a button reads back");
  TButtonInfo over(button);
  over.Merge(text);
  Check(over == button, "a button laid over itself");
}

}  // namespace vx::fuzz
