// How wide texts can be at most, so that the widest of many is found without measuring all of them.
//
//   TTextBounds   the advances of the Latin letters of one font on one canvas
//
// Example:
//   vx::TRecordingCanvas canvas;
//   vx::TTextBounds bounds(canvas);
//   int widest = 0;
//   for (const vx::String& text : {u"Müller", u"Meier", u"Ali"}) {
//     if (bounds.Of(text) > widest) widest = std::max(widest, canvas.TextWidth(text));
//   }
//   widest;                                                 // 37
//
// Threads: as a canvas, an object is for one at a time.
//
// Pitfall: the bounds are those of the font that the canvas had when they were made. A surface that does not know the
// advances of letters, or has to shape them, has no bounds, and all texts have to be measured.
#pragma once

#include <array>
#include <climits>
#include <cstdint>
#include <string_view>

namespace vx {

class TCanvas;

class TTextBounds {
 public:
  explicit TTextBounds(const TCanvas& Canvas);
  // No less than the width of Text in pixels; Unknown for a text with letters that need shaping, or other than Latin.
  int64_t Of(std::u16string_view Text) const noexcept {
    int64_t width = 0;
    for (char16_t unit : Text) width += FAdvances[unit < kUnits ? unit : 0];
    return width < kOther ? width : Unknown;
  }
  static constexpr int64_t Unknown = INT_MAX;
  // The widest of the digits.
  int Digit() const noexcept { return FDigit; }

 private:
  static constexpr size_t kUnits = 0x180;
  static constexpr int64_t kOther = int64_t{1} << 40;  // above the width of any text of letters
  // The first stands for all other units.
  std::array<int64_t, kUnits> FAdvances;
  int FDigit = 0;
};

}  // namespace vx
