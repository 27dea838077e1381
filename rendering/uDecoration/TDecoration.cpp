#include "rendering/uDecoration/TDecoration.h"

#include "rendering/uDecoration/detail/Regions.h"

namespace vx {

String RangeTypeToStr(TRangeType Type) {
  constexpr std::u16string_view kWords[] = {u"Unknown", u"Cell", u"Column", u"Row",
                                            u"Rect",    u"All",  u"Fixed",  u"Content"};
  return kWords[Type <= rtContent ? Type : rtUnknown];
}

TDecoration::~TDecoration() = default;

void TDecoration::Init() {
  iRange = {-1, -1, -1, -1};
  iRangeType = rtUnknown;
  iFieldType = vftUnknown;
  iTextAngle = taNone;
  iColor = clWhite;
  iImageIndex = -1;
  iTag = 0;
  iAlignSet = {};
  iImageAlignSet = {};
  iOptions = {};
  iTrimModes = {};
  iFont.reset();
  iImageList = nullptr;
  iSelectColor = {};
  iSelectRange = {};
  iWidthMin = iWidthMax = iHeightMin = iHeightMax = -1;
  iFormatString.clear();
}

bool TDecoration::Empty() const noexcept {
  return iFieldType == vftUnknown && iFormatString.empty() && iAlignSet.IsEmpty() && iImageAlignSet.IsEmpty() &&
         iColor == clWhite && !iFont && iSelectColor == TColorRect() && iSelectRange == TRect() &&
         iTrimModes.IsEmpty() && iOptions.IsEmpty() && iImageIndex == -1;
}

void TDecoration::CalculateRange(TRect& aRect) const noexcept {
  const bool isRect = iRangeType == rtRect;
  const bool hasCols = iRangeType == rtColumn || isRect, hasRows = iRangeType == rtRow || isRect;
  const bool isCell = iRangeType == rtCell;
  aRect = iRange;
  if (hasCols || isCell) aRect.Left = detail::ToCol(aRect.Left, iParent);
  if (hasCols) aRect.Right = detail::ToCol(aRect.Right, iParent);
  if (hasRows || isCell) aRect.Top = detail::ToRow(aRect.Top, iParent);
  if (hasRows) aRect.Bottom = detail::ToRow(aRect.Bottom, iParent);
}

void TDecoration::RangeRect(TRect& aRect) const noexcept {
  CalculateRange(aRect);
  const int lastCol = iParent ? detail::WrappingDiff(iParent->GetColCount(), 1) : aRect.Right;
  const int lastRow = iParent ? detail::WrappingDiff(iParent->GetRowCount(), 1) : aRect.Bottom;
  switch (iRangeType) {
    case rtUnknown:
      aRect = {-1, -1, -1, -1};
      break;
    case rtCell:
      aRect.Right = aRect.Left;
      aRect.Bottom = aRect.Top;
      break;
    case rtColumn:
      aRect.Top = 0;
      aRect.Bottom = lastRow;
      break;
    case rtRow:
      aRect.Left = 0;
      aRect.Right = lastCol;
      break;
    case rtRect:
      break;
    case rtAll:
      aRect = {0, 0, lastCol, lastRow};
      break;
    case rtFixed:
    case rtContent:
      if (iParent) aRect = detail::ContentOf(*iParent);
      break;
  }
}

bool TDecoration::Responsible(int aCol, int aRow) const noexcept { return detail::Applies(*this, aCol, aRow); }

const TFont& TDecoration::GetFont() const noexcept {
  static const TFont plain;
  if (iFont) return *iFont;
  return iParent ? iParent->GetFont() : plain;
}

void TDecoration::SetFont(const TFont& Value) {
  if (iFont) {
    *iFont = Value;
  } else {
    iFont = std::make_unique<TFont>(Value);
  }
}

void TDecoration::SetFontOwner(bool Value) {
  if (!Value) {
    iFont.reset();
  } else if (!iFont) {
    SetFont(GetFont());
  }
}

void TDecoration::Merge(const TDecoration& aSource) {
  if (!aSource.iAlignSet.IsEmpty()) iAlignSet = aSource.iAlignSet;
  if (aSource.iFieldType != vftUnknown) iFieldType = aSource.iFieldType;
  if (aSource.iTextAngle != taNone) iTextAngle = aSource.iTextAngle;
  if (!aSource.iFormatString.empty()) iFormatString = aSource.iFormatString;
  if (!aSource.iImageAlignSet.IsEmpty()) iImageAlignSet = aSource.iImageAlignSet;
  if (aSource.iImageIndex >= 0) iImageIndex = aSource.iImageIndex;
  if (aSource.iImageList) iImageList = aSource.iImageList;
  if (aSource.iColor != clWhite) iColor = aSource.iColor;
  for (TColor TColorRect::*edge : {&TColorRect::Left, &TColorRect::Top, &TColorRect::Right, &TColorRect::Bottom}) {
    if (aSource.iSelectColor.*edge != clSilver) iSelectColor.*edge = aSource.iSelectColor.*edge;
  }
  for (int TRect::*edge : {&TRect::Left, &TRect::Top, &TRect::Right, &TRect::Bottom}) {
    if (aSource.iSelectRange.*edge != 0) iSelectRange.*edge = aSource.iSelectRange.*edge;
  }
  if (aSource.iFont) SetFont(*aSource.iFont);
  iOptions = iOptions + aSource.iOptions;
  if (aSource.iWidthMin >= 0) iWidthMin = aSource.iWidthMin;
  if (aSource.iWidthMax >= 0) iWidthMax = aSource.iWidthMax;
  if (aSource.iHeightMin >= 0) iHeightMin = aSource.iHeightMin;
  if (aSource.iHeightMax >= 0) iHeightMax = aSource.iHeightMax;
}

}  // namespace vx
