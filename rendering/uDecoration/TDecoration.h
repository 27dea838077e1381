// The look of one region of a table, and how the raw texts in it are read. The unit's header tells the whole.
//
// Example:
//   vx::TDecoration head(&list);
//   head.SetRangeType(vx::rtRow);
//   head.SetRange(-1, 0, -1, 0);          // row 0
//   head.SetFontOwner(true);              // a font of its own, at first the list's
#pragma once

#include <atomic>
#include <memory>

#include "core/uConst.h"
#include "platform/TImageList.h"
#include "rendering/uDecoration/DecorationTypes.h"

namespace vx {

class TFileCsv;

// A decoration keeps a reference to the list that it belongs to, its parent, and asks that for the size of the table.
// The parent is not owned and may be missing.
class TDecoration : public TObject {
 public:
  // The parent has to live as long as the decoration is asked anything.
  explicit TDecoration(TDecorationList* aParent = nullptr) noexcept : iParent(aParent) {}
  ~TDecoration() override;
  TDecoration(const TDecoration&) = delete;
  TDecoration& operator=(const TDecoration&) = delete;
  String ClassName() const override { return u"TDecoration"; }

  // Everything but the parent becomes what it was at first; the own font is freed.
  void Init();
  // Nothing is set that a cell would show: field type, format, both alignments, colour, own font, stripes, trim modes
  // and options are as at first, and the image index is exactly -1. The text's angle, the image list, the tag and the
  // size limits do not count; that is wanted.
  bool Empty() const noexcept;

  // --- the region ---
  TRangeType GetRangeType() const noexcept { return iRangeType; }
  void SetRangeType(TRangeType Value) noexcept {
    iRangeType = Value;
    RangeChanged();
  }
  // As it was given: columns from Left to Right, rows from Top to Bottom, negative ones from the end of the table.
  const TRect& GetRange() const noexcept { return iRange; }
  void SetRange(const TRect& Value) noexcept {
    iRange = Value;
    RangeChanged();
  }
  void SetRange(int Left, int Top, int Right, int Bottom) noexcept { SetRange({Left, Top, Right, Bottom}); }
  // The range with the parent's count added to the negative coordinates that the type uses; as it was given without a
  // parent. A coordinate that is too low stays negative.
  void CalculateRange(TRect& aRect) const noexcept;
  // The cells that are covered, Right and Bottom among them: (-1, -1, -1, -1) for rtUnknown. rtRect may end with a
  // negative side, which is open. Pitfall: rtFixed gives the content, which is all that it does not cover; that is
  // wanted.
  void RangeRect(TRect& aRect) const noexcept;
  // The cell is in the region. rtContent and rtFixed never apply without a parent.
  bool Responsible(int aCol, int aRow) const noexcept;
  // The order among cells: Left * 2^32 + Top of the range as given; wraps around.
  int64_t IndexSort() const noexcept { return IndexSort(iRange.Left, iRange.Top); }
  static constexpr int64_t IndexSort(int aCol, int aRow) noexcept {
    return static_cast<int64_t>((static_cast<uint64_t>(aCol) << 32) + static_cast<uint64_t>(aRow));
  }

  // --- text ---
  TTextAngle GetTextAngle() const noexcept { return iTextAngle; }
  void SetTextAngle(TTextAngle Value) noexcept { iTextAngle = Value; }
  TAlignSet GetAlignSet() const noexcept { return iAlignSet; }
  void SetAlignSet(TAlignSet Value) noexcept { iAlignSet = Value; }
  TVxFieldType GetFieldType() const noexcept { return iFieldType; }
  void SetFieldType(TVxFieldType Value) noexcept { iFieldType = Value; }
  // What it means depends on the field type.
  const String& GetFormatString() const noexcept { return iFormatString; }
  void SetFormatString(const String& Value) { iFormatString = Value; }

  // --- font ---
  // The own font; the parent's if there is none; a plain TFont without a parent.
  const TFont& GetFont() const noexcept;
  // Makes Value the own font.
  void SetFont(const TFont& Value);
  // Whether there is an own font.
  bool GetFontOwner() const noexcept { return iFont != nullptr; }
  // True makes one, a copy of what GetFont gives, if there is none; false frees it.
  void SetFontOwner(bool Value);

  // --- colours, in 0x00BBGGRR or as system colours ---
  // White for none.
  TColor GetColor() const noexcept { return iColor; }
  void SetColor(TColor Value) noexcept { iColor = Value; }
  // The edge stripes: silver for no colour; widths in pixels.
  const TColorRect& GetSelectColor() const noexcept { return iSelectColor; }
  void SetSelectColor(const TColorRect& Value) noexcept { iSelectColor = Value; }
  void SetSelectColor(TColor Left, TColor Top, TColor Right, TColor Bottom) noexcept {
    iSelectColor = {Left, Top, Right, Bottom};
  }
  const TRect& GetSelectRange() const noexcept { return iSelectRange; }
  void SetSelectRange(const TRect& Value) noexcept { iSelectRange = Value; }
  void SetSelectRange(int Left, int Top, int Right, int Bottom) noexcept { iSelectRange = {Left, Top, Right, Bottom}; }

  // --- images ---
  TAlignSet GetImageAlignSet() const noexcept { return iImageAlignSet; }
  void SetImageAlignSet(TAlignSet Value) noexcept { iImageAlignSet = Value; }
  // Negative for none.
  int GetImageIndex() const noexcept { return iImageIndex; }
  void SetImageIndex(int Value) noexcept { iImageIndex = Value; }
  // Not owned; nullptr for the list's.
  TImageList* GetImageList() const noexcept { return iImageList; }
  void SetImageList(TImageList* Value) noexcept { iImageList = Value; }

  // --- size: limits in pixels, negative for none ---
  TTrimModes GetTrimModes() const noexcept { return iTrimModes; }
  void SetTrimModes(TTrimModes Value) noexcept { iTrimModes = Value; }
  int GetWidthMin() const noexcept { return iWidthMin; }
  void SetWidthMin(int Value) noexcept { iWidthMin = Value; }
  int GetWidthMax() const noexcept { return iWidthMax; }
  void SetWidthMax(int Value) noexcept { iWidthMax = Value; }
  int GetHeightMin() const noexcept { return iHeightMin; }
  void SetHeightMin(int Value) noexcept { iHeightMin = Value; }
  int GetHeightMax() const noexcept { return iHeightMax; }
  void SetHeightMax(int Value) noexcept { iHeightMax = Value; }

  TDecorationOptions GetOptions() const noexcept { return iOptions; }
  void SetOptions(TDecorationOptions Value) noexcept { iOptions = Value; }
  // A free mark of the caller, see TDecorationList::DeleteTag.
  int GetTag() const noexcept { return iTag; }
  void SetTag(int Value) noexcept { iTag = Value; }

  TDecorationList* GetParent() const noexcept { return iParent; }
  void SetParent(TDecorationList* Value) noexcept {
    iParent = Value;
    RangeChanged();
  }
  // The table at the end of the parents, through lists in lists; nullptr if there stands something else or nothing.
  // Made in tables/uDecoration.cpp.
  TFileCsv* ParentTypeCsv() const;

  // --- serial form: the commatext of 27 cells ---
  // Image list, tag and parent are not part of it.
  String GetCommatext() const;
  // Reads that text. With fewer than 22 cells a dialog tells so, and nothing changes. Values that can't be read become
  // what they are at first, and letters without meaning are passed over; never raises. Without cell 23 the angle is
  // taHorz, without the last four there are no size limits: older texts end there.
  void SetCommatext(std::u16string_view aText);

 private:
  friend class TDecorationList;
  // All that CompressDecoration merges: what aSource has set.
  void Merge(const TDecoration& aSource);

  // How often the region of a decoration has changed that some list has a copy of, plus one.
  static uint64_t RangeChanges() noexcept { return FRangeChanges.load(std::memory_order_relaxed); }
  void RangeChanged() noexcept {
    if (!FIsCopied) return;
    FIsCopied = false;
    FRangeChanges.fetch_add(1, std::memory_order_relaxed);
  }
  inline static constinit std::atomic<uint64_t> FRangeChanges{1};

  // What Responsible reads stands first, in one line of the processor's cache.
  TDecorationList* iParent;
  TRect iRange{-1, -1, -1, -1};
  TRangeType iRangeType = rtUnknown;
  TVxFieldType iFieldType = vftUnknown;
  TTextAngle iTextAngle = taNone;
  bool FIsCopied = false;  // a list has a copy of the region
  TColor iColor = clWhite;
  int iImageIndex = -1;
  int iTag = 0;
  TAlignSet iAlignSet;
  TAlignSet iImageAlignSet;
  TDecorationOptions iOptions;
  TTrimModes iTrimModes;
  std::unique_ptr<TFont> iFont;
  TImageList* iImageList = nullptr;
  TColorRect iSelectColor;
  TRect iSelectRange;
  int iWidthMin = -1;
  int iWidthMax = -1;
  int iHeightMin = -1;
  int iHeightMax = -1;
  String iFormatString;
};

}  // namespace vx
