// The marks of a rich text that are open at a place, and the font that they make. See rendering/uVxTinyHTML.h.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "objects/uVxClasses.h"
#include "platform/Graphics.h"
#include "platform/TObject.h"

namespace vx {

// The open marks in the order in which they were opened. However they are nested, opening and closing one and the font
// that they make cost the same, for bases that stay the same.
class TFontHistory : public TObject {
 public:
  String ClassName() const override { return u"TFontHistory"; }

  // What sizes with a value are multiplied by.
  Extended scaling = 1.0;

  // Opens the mark Tag: "b", "i", "u", "s", or "font" with color = "..." or size = "..." or both, the value not empty.
  // False, with nothing opened, for anything else. Case does not matter.
  bool OpenMark(std::u16string_view Tag);
  // Closes the last open mark of that kind: "/b", "/i", "/u", "/s" or "/font". False if none is open, or for anything
  // else.
  bool CloseMark(std::u16string_view Tag);

  // Base with the open marks applied, in their order: styles are added; a colour that StringToColorDef can't read
  // leaves the one before; sizes are rounded to the nearest, halves to even, and held to 32 bits.
  TFont toFont(const TFont& Base) const;

  // The open marks as texts in small letters, such as "b" or `font color = "red"`; a new list.
  std::unique_ptr<TVxStringList> GetChangeList() const;

 private:
  enum TKind : uint8_t { kBold, kItalic, kUnderline, kStrikeOut, kFont, kKinds };
  // The values of a font mark, empty where it has none.
  struct TFontMark {
    String Color, Size;
  };
  // What font marks change of a font; no other mark does, and they are closed from the last one on.
  struct TLook {
    TColor Color = 0;
    int Size = 0;
    friend bool operator==(const TLook&, const TLook&) noexcept = default;
  };
  static TKind KindOf(std::u16string_view Name) noexcept;
  TLook Applied(const TFontMark& Mark, TLook Look) const;

  std::vector<String> iMarks;         // empty where a mark was closed
  std::vector<size_t> iOpen[kKinds];  // indexes of the open marks of a kind
  std::vector<TFontMark> iFontMarks;  // those of kFont
  // What the first font marks make of iLookBase at iLookScaling, as many as were asked for.
  mutable std::vector<TLook> iLooks;
  mutable TLook iLookBase;
  mutable Extended iLookScaling = 1.0;
};

}  // namespace vx
