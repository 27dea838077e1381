// The text node with the fields of a node that is seen.
#pragma once

#include "objects/uVxTree/TVxTextNode.h"

namespace vx {

// Indexes are those of pictures; -1 is none. They are part of the node's texts, Data is not.
class TTreeViewNode : public TVxTextNode {
 public:
  using TVxTextNode::TVxTextNode;
  String ClassName() const override { return u"TTreeViewNode"; }

  // Not owned.
  void* GetData() const noexcept { return iData; }
  void SetData(void* Value) noexcept { iData = Value; }
  int GetImageIndex() const noexcept { return iImageIndex; }
  void SetImageIndex(int Value) noexcept { iImageIndex = Value; }
  int GetOverlayIndex() const noexcept { return iOverlayIndex; }
  void SetOverlayIndex(int Value) noexcept { iOverlayIndex = Value; }
  int GetSelectedIndex() const noexcept { return iSelectedIndex; }
  void SetSelectedIndex(int Value) noexcept { iSelectedIndex = Value; }
  int GetStateIndex() const noexcept { return iStateIndex; }
  void SetStateIndex(int Value) noexcept { iStateIndex = Value; }

  [[nodiscard]] std::unique_ptr<TVxTextNode> GetNewInstance(TVxTextNode* Parent, String Text) const override;
  // Behind the text: u"ÿTTreeViewNode", then ImageIndex, OverlayIndex, SelectedIndex and StateIndex in decimal digits.
  // The mark is this class's also for objects of derived classes, which may add marks and fields of their own.
  void GetTextList(TStrings& Strings) const override;
  // Looks for the last mark; each index that stands behind it is taken, -1 for what is no number, the others stay as
  // they are. What stands in front of the mark is the parent class's.
  void SetTextList(const TStrings& Strings, int Count) override;
  // Data and indexes too; from a node of another class they become nullptr and -1.
  void Assign(const TVxTextNode& Source) override;
  void InitNode() override;
  // All indexes below 0, too.
  bool isEmpty() const override;

 private:
  void* iData = nullptr;
  int iImageIndex = -1;
  int iOverlayIndex = -1;
  int iSelectedIndex = -1;
  int iStateIndex = -1;
};

}  // namespace vx
