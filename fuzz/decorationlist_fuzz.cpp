// Lists of decorations: a text, which also travels as a constant of a program; then a list out of the bytes, whose
// cells are looked up while it changes.
#include "fuzz/support/Values.h"
#include "objects/uVxClasses.h"
#include "platform/Dialogs.h"
#include "tests/support/PlainDecorations.h"

namespace vx::fuzz {
namespace {

void CheckText(const String& Text) {
  TScriptedDialogs dialogs;
  TDecorationList list;
  list.SetCommatext(Text);
  const String written = list.GetCommatext();
  const bool isOdd = written.view().find(u'\0') != std::u16string_view::npos;
  Check(list.GetCount() == list.GetIndexFirstCell() || list.GetFirst(rtCell) == list.GetItems(list.GetIndexFirstCell()),
        "cells stand behind the others");
  for (int i = list.GetIndexFirstCell() + 1; i < list.GetCount(); ++i) {
    Check(list.GetItems(i - 1)->IndexSort() < list.GetItems(i)->IndexSort(), "cells stand in their order, one each");
  }
  TDecorationList back;
  back.SetCommatext(written);
  const bool hasSeparator = list.GetTitle() == u"ÿ" || list.GetSubTitle() == u"ÿ";
  Check(isOdd || hasSeparator || back.GetCommatext() == written, "a list reads back");

  TVxStringList lines;
  list.ExportPasFormat(&lines);
  Check(lines.Get(lines.GetCount() - 1).view().back() == u';', "a constant ends");
  TDecorationList constant;
  constant.ImportPasFormat(&lines);
  // A text that holds what stands for a line break gives one.
  if (isOdd || hasSeparator || written.view().find(u"'+#13+#10+") != std::u16string_view::npos) return;
  Check(constant.GetCommatext() == written, "a constant reads back");
}

void CheckCells(TDecorationList& List, bool IsFresh) {
  const test::TPlainDecorations plain(List);
  TDecorationList buffer(false);
  for (int col = -1; col < 14; col += 3) {
    for (int row = -1; row < 14; row += 2) {
      const test::TItems wanted = IsFresh ? plain.All(col, row) : plain.ByRuns(col, row);
      List.VirtualListForCell(col, row, buffer);
      Check(test::Items(buffer) == wanted, "the decorations of a cell");
    }
  }
}

}  // namespace

FUZZ(Input) {
  CheckText(Input.Text());
  TValues values(Input);
  const auto next = [&](int count) { return values.Byte() % count; };
  TDecorationList list;
  test::MakeDecorations(list, next(2) != 0, next);
  CheckCells(list, true);
  list.SetColCount(next(14));
  list.SetRowCount(next(14));
  CheckCells(list, true);
  for (int changes = next(20); changes > 0 && list.GetIndexFirstCell() > 0; --changes) {
    const int index = next(list.GetIndexFirstCell());
    switch (next(5)) {
      case 0:
        list.Delete(index);
        break;
      case 1:
        list.Move(index, next(list.GetIndexFirstCell()));
        break;
      case 2:
        list.GetItems(index)->SetRange(next(14), next(14), next(14), next(14));
        list.Exchange(index, index);  // the list counts as changed
        break;
      case 3:
        list.GetCell(next(14), next(14), true)->SetColor(clRed);
        break;
      default:
        list.CreateRange(rtRow, 0, next(14), 0, next(14));
    }
  }
  list.Exchange(0, 0);
  const bool isEmpty = list.GetIndexFirstCell() == 0;
  if (!isEmpty) CheckCells(list, false);
  list.RefreshRangeList();
  CheckCells(list, true);
}

}  // namespace vx::fuzz
