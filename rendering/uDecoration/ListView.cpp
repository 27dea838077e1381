// The decorations of a list as the items of a list view.
#include "core/uVxFunctionsSerialize/FieldTypes.h"
#include "platform/Numbers.h"
#include "platform/TListView.h"
#include "rendering/uDecoration/TDecorationList.h"

namespace vx {
namespace {

constexpr int kSubItems = 6;

// The coordinates that the kind of region has, with commas between.
String Coordinates(const TDecoration& Item) {
  const TRect& range = Item.GetRange();
  const auto both = [](int a, int b) { return Concat({IntToStr(a), u",", IntToStr(b)}); };
  switch (Item.GetRangeType()) {
    case rtCell:
      return both(range.Left, range.Top);
    case rtColumn:
      return both(range.Left, range.Right);
    case rtRow:
      return both(range.Top, range.Bottom);
    case rtRect:
      return Concat({both(range.Left, range.Top), u",", both(range.Right, range.Bottom)});
    default:
      return {};
  }
}

}  // namespace

void TDecorationList::SetListView(TListView& aListView) {
  const TControlUpdate update(aListView);
  const auto yes = [](bool value) { return value ? u"ja" : u"nein"; };
  for (int i = 0; i < GetCount(); ++i) {
    TDecoration& decoration = *GetItems(i);
    TListItem& item = i < aListView.GetItemCount() ? aListView.GetItems(i) : aListView.AddItem();
    TListSubItems& texts = item.SubItems();
    while (texts.GetCount() < kSubItems) texts.Add({});
    item.SetData(&decoration);
    item.SetCaption(RangeTypeToStr(decoration.GetRangeType()));
    texts.Put(0, Coordinates(decoration));
    texts.Put(1, VxFieldTypeToText(decoration.GetFieldType(), true));
    texts.Put(2, decoration.GetFormatString());
    texts.Put(3, yes(decoration.GetFontOwner()));
    texts.Put(4, ColorToString(decoration.GetColor()));
    texts.Put(5, yes(decoration.GetOptions().Has(doCoupled)));
  }
  while (aListView.GetItemCount() > GetCount()) aListView.DeleteItem(aListView.GetItemCount() - 1);
}

}  // namespace vx
