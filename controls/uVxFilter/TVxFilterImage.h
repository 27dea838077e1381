// The filters of the bar that test images: cells with the number of an image, or several with commas between.
//
// Threads: all of it belongs to the thread of its window.
#pragma once

#include <vector>

#include "controls/uVxFilter/TVxFilterCore.h"
#include "platform/String.h"

namespace vx {

class TVxFilterImage : public TVxFilterCore {
 public:
  using TVxFilterCore::TVxFilterCore;
  String ClassName() const override { return u"TVxFilterImage"; }
  bool GetMultiSelect() const override;
  // A list of the column's values: with check boxes for several, otherwise to choose one, or "ohne Wert".
  void DecorateForm(TVxFilterForm& aForm) override;
  void Paint(TCanvas& Canvas, const TRect& Rect) override;
  void Update() override;

 protected:
  void TakeValue(const TVxFilterForm& aForm) override;
  // One value of the column, as an image at the left of Rect, which loses that place; Row is a row that has it, -1 for
  // none.
  virtual void PaintValue(TCanvas& Canvas, TRect& Rect, const String& aValue, int Row) = 0;
  // Whether Text is among the values of the item, regardless of case.
  bool IsAmongValues(std::u16string_view Text) const noexcept;

  std::vector<String> FValues;  // of the item's commatext

 private:
  void PaintLine(TCanvas& Canvas, int Line, TRect& Rect);

  std::vector<int> FRows;  // a row for each value that is shown, sought when it is painted
};

// The item's OnDrawCol paints the values. A cell has to be the value, or with several, one of them; if it is not, and
// has a comma, one of its own values has to be the item's whole value, unless StrictValues is set. An empty value
// passes all.
class TVxFilterImgDraw : public TVxFilterImage {
 public:
  using TVxFilterImage::TVxFilterImage;
  String ClassName() const override { return u"TVxFilterImgDraw"; }
  bool Check(std::u16string_view aValue, TObject* aObject) const override;

 protected:
  void PaintValue(TCanvas& Canvas, TRect& Rect, const String& aValue, int Row) override;
};

// Values are images of the item's list, or of the view's. A cell without a comma has to be the value, or with several,
// one of them; of one with commas one of its values has to. An empty value passes all.
class TVxFilterImgList : public TVxFilterImage {
 public:
  using TVxFilterImage::TVxFilterImage;
  String ClassName() const override { return u"TVxFilterImgList"; }
  bool Check(std::u16string_view aValue, TObject* aObject) const override;

 protected:
  void PaintValue(TCanvas& Canvas, TRect& Rect, const String& aValue, int Row) override;
};

}  // namespace vx
