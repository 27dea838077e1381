// A font in a size, as this component draws with it: which installed file it is, its metrics, and its
// letters as advances and coverage masks. Of use to this component only.
//
// Any thread may measure and take glyphs at any time; what is known already is read without a lock.
//
// What is kept is bounded: TFace::MostFaces faces, those used last, beside those that canvases hold; of each the
// letters of 40 pages of 256 and TFace::MostMaskBytes of masks, in all less than 2 MiB a face. Cairo, Pango and
// fontconfig bound what they keep of fonts themselves.
#pragma once

#include <cairo.h>
#include <fontconfig/fontconfig.h>
#include <pango/pango.h>

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/TCanvas.h"

namespace vx::drawing {

// A pointer of a C library that is given back in the end.
template <auto Free>
struct TFree {
  template <typename T>
  void operator()(T* Pointer) const noexcept {
    Free(Pointer);
  }
};
template <typename T, auto Free>
using THandle = std::unique_ptr<T, TFree<Free>>;

using TSurface = THandle<cairo_surface_t, cairo_surface_destroy>;
using TCairo = THandle<cairo_t, cairo_destroy>;
using TCairoFace = THandle<cairo_font_face_t, cairo_font_face_destroy>;
using TScaledFont = THandle<cairo_scaled_font_t, cairo_scaled_font_destroy>;
using TCairoPattern = THandle<cairo_pattern_t, cairo_pattern_destroy>;
using TFontOptions = THandle<cairo_font_options_t, cairo_font_options_destroy>;
using TFcPattern = THandle<FcPattern, FcPatternDestroy>;
using TPangoFont = THandle<PangoFontDescription, pango_font_description_free>;

// Raises EInvalidGraphicOperation for a status other than success.
void CheckStatus(cairo_status_t Status);
// The way in which letters are made for pixels: gray edges, whole pixels for advances.
TFontOptions PixelFontOptions();

// A letter; its mask covers Width x Height pixels from (Left, Top) of the base line's place on.
struct TGlyph {
  unsigned long Index = 0;
  int Left = 0, Top = 0, Width = 0, Height = 0;
  std::unique_ptr<uint8_t[]> Mask;
};

class TFace {
 public:
  // The largest em square in pixels; larger fonts count as this one.
  static constexpr int LargestEm = 4096;
  // How many faces are kept for the next canvas, and how many bytes of masks for each.
  static constexpr size_t MostFaces = 64;
  static constexpr size_t MostMaskBytes = 1 << 20;
  // Up to this size glyphs have masks.
  static constexpr int LargestMaskEm = 72;

  // The face of the font's name, style and size, from the cache or made.
  static std::shared_ptr<TFace> Of(const TFont& Font);
  // The same font, so many times as large, in whole pixels.
  std::shared_ptr<TFace> Scaled(double Scale) const;
  static void FreeUnused() noexcept;

  TFace(const String& Name, bool Bold, bool Italic, int Em);

  int Em() const noexcept { return FEm; }
  const TFontMetrics& Metrics() const noexcept { return FMetrics; }
  cairo_font_face_t* CairoFace() const noexcept { return FCairoFace.get(); }
  // The installed font, as fontconfig describes it.
  FcPattern* Pattern() const noexcept { return FPattern.get(); }
  const PangoFontDescription* PangoFont() const noexcept { return FPangoFont.get(); }
  // Counts up with each face made, so that it is known again.
  uint64_t Id() const noexcept { return FId; }

  // Whether Text can be drawn letter by letter.
  bool IsSimple(std::u16string_view Text) { return SimpleWidth(Text) >= 0; }
  // The width of Text, at most 2^27; -1 for one that has to be shaped.
  int SimpleWidth(std::u16string_view Text);
  // The advance of a unit of a simple text, in pixels.
  int Advance(char16_t Unit) { return StoredAdvance(Unit) - kStored; }
  // The glyph of a unit of a simple text; without a mask if the face is larger than LargestMaskEm. It may end with this
  // thread's next call.
  const TGlyph& Glyph(char16_t Unit);

 private:
  friend struct TFaceCache;
  static constexpr int kPages = 0x28;
  // What the advances are stored as: 0 is not known yet, kShaped is for shaping, others are kStored higher.
  static constexpr int kShaped = 1;
  static constexpr int kStored = 2;
  struct TPage {
    std::array<std::atomic<int>, 256> Advances{};
    std::array<std::atomic<const TGlyph*>, 256> Glyphs{};
  };

  int StoredAdvance(char16_t Unit) {
    const TPage* page = Unit < kPages * 256 ? FPages[Unit >> 8].load(std::memory_order_acquire) : nullptr;
    const int stored = page ? page->Advances[Unit & 255].load(std::memory_order_relaxed) : 0;
    return stored ? stored : LearnAdvance(Unit);
  }
  int LearnAdvance(char16_t Unit);
  const TGlyph& LearnGlyph(char16_t Unit);
  unsigned long GlyphIndex(char16_t Unit);
  TPage& Page(char16_t Unit);
  void MakeMask(TGlyph& Glyph);

  // As the cache knows a face.
  using TKey = std::tuple<String, bool, bool, int>;
  static std::shared_ptr<TFace> Of(const TKey& Key);

  const TKey FKey;
  const int FEm;
  const uint64_t FId;
  TFontMetrics FMetrics;
  TFcPattern FPattern;
  TCairoFace FCairoFace;
  TScaledFont FScaledFont;
  TPangoFont FPangoFont;
  std::mutex FMutex;
  std::array<std::atomic<TPage*>, kPages> FPages{};
  std::vector<std::unique_ptr<TPage>> FOwnPages;
  std::vector<std::unique_ptr<TGlyph>> FOwnGlyphs;
  size_t FMaskBytes = 0;
};

}  // namespace vx::drawing
