#include "objects/uVxTree/TTreeViewNode.h"

#include "platform/Numbers.h"

namespace vx {

namespace {

constexpr char16_t kMark[] = u"ÿTTreeViewNode";

}  // namespace

std::unique_ptr<TVxTextNode> TTreeViewNode::GetNewInstance(TVxTextNode* Parent, String Text) const {
  return std::make_unique<TTreeViewNode>(Parent, std::move(Text));
}

void TTreeViewNode::GetTextList(TStrings& Strings) const {
  TVxTextNode::GetTextList(Strings);
  Strings.Add(kMark);
  for (int index : {iImageIndex, iOverlayIndex, iSelectedIndex, iStateIndex}) Strings.Add(IntToStr(index));
}

void TTreeViewNode::SetTextList(const TStrings& Strings, int Count) {
  if (Count < 0 || Count > Strings.GetCount()) Count = Strings.GetCount();
  int place = Count;
  FindClassname(Strings, kMark, place);
  TVxTextNode::SetTextList(Strings, place);
  for (int* index : {&iImageIndex, &iOverlayIndex, &iSelectedIndex, &iStateIndex}) {
    if (++place < Count) *index = StrToIntDef(Strings.Get(place), -1);
  }
}

void TTreeViewNode::Assign(const TVxTextNode& Source) {
  TVxTextNode::Assign(Source);
  const TTreeViewNode none;
  const auto* source = dynamic_cast<const TTreeViewNode*>(&Source);
  if (!source) source = &none;
  iData = source->iData;
  iImageIndex = source->iImageIndex;
  iOverlayIndex = source->iOverlayIndex;
  iSelectedIndex = source->iSelectedIndex;
  iStateIndex = source->iStateIndex;
}

void TTreeViewNode::InitNode() {
  TVxTextNode::InitNode();
  iData = nullptr;
  iImageIndex = iOverlayIndex = iSelectedIndex = iStateIndex = -1;
}

bool TTreeViewNode::isEmpty() const {
  return TVxTextNode::isEmpty() && iImageIndex < 0 && iOverlayIndex < 0 && iSelectedIndex < 0 && iStateIndex < 0;
}

}  // namespace vx
