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
  SetRange(-1, -1, -1, -1);
  SetRangeType(rtUnknown);
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

namespace {

// TDecoration::CalculateRange.
TRect Normalized(const detail::TRegion& Region) noexcept {
  const bool isRect = Region.Type == rtRect, isCell = Region.Type == rtCell;
  const bool hasCols = Region.Type == rtColumn || isRect, hasRows = Region.Type == rtRow || isRect;
  TRect range = Region.Range;
  if (hasCols || isCell) range.Left = Region.Col(range.Left);
  if (hasCols) range.Right = Region.Col(range.Right);
  if (hasRows || isCell) range.Top = Region.Row(range.Top);
  if (hasRows) range.Bottom = Region.Row(range.Bottom);
  return range;
}

}  // namespace

TRect detail::CoveredBy(const TRegion& Region) noexcept {
  TRect cells = Normalized(Region);
  const TDecorationList* parent = Region.Parent;
  const int lastCol = parent ? WrappingDiff(parent->GetColCount(), 1) : cells.Right;
  const int lastRow = parent ? WrappingDiff(parent->GetRowCount(), 1) : cells.Bottom;
  switch (Region.Type) {
    case rtUnknown:
      return {-1, -1, -1, -1};
    case rtCell:
      return {cells.Left, cells.Top, cells.Left, cells.Top};
    case rtColumn:
      return {cells.Left, 0, cells.Right, lastRow};
    case rtRow:
      return {0, cells.Top, lastCol, cells.Bottom};
    case rtRect:
      break;
    case rtAll:
      return {0, 0, lastCol, lastRow};
    case rtFixed:
    case rtContent:
      if (parent) return ContentOf(*parent);
      break;
  }
  return cells;
}

void TDecoration::CalculateRange(TRect& aRect) const noexcept { aRect = Normalized(detail::TRegion(*this)); }

void TDecoration::RangeRect(TRect& aRect) const noexcept { aRect = detail::CoveredBy(detail::TRegion(*this)); }

bool TDecoration::Responsible(int aCol, int aRow) const noexcept {
  return detail::Applies(detail::TRegion(*this), aCol, aRow);
}

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
