#include "platform/cairo/Face.h"

#include <cairo-ft.h>
#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <tuple>

#include "platform/Drawing.h"
#include "platform/FreeBuffers.h"
#include "platform/TCanvasDevice.h"
#include "platform/Text.h"
#include "platform/cairo/CairoDrawing.h"

namespace vx {

namespace {

// The widths of cell texts in the first one lie about 2 % above those of the font itself, in bold 1 %.
constexpr std::u16string_view kLikeTahoma[] = {u"DejaVu Sans Condensed", u"Liberation Sans", u"Noto Sans",
                                               u"DejaVu Sans"};
constexpr std::u16string_view kLikeArial[] = {u"Liberation Sans", u"Arimo", u"DejaVu Sans Condensed"};
constexpr std::u16string_view kLikeVerdana[] = {u"DejaVu Sans", u"Bitstream Vera Sans"};
constexpr std::u16string_view kLikeCourier[] = {u"Liberation Mono", u"Cousine", u"DejaVu Sans Mono"};
constexpr std::u16string_view kLikeTimes[] = {u"Liberation Serif", u"Tinos", u"DejaVu Serif Condensed"};

struct TStandIns {
  std::u16string_view Name;
  std::span<const std::u16string_view> Families;
};
constexpr TStandIns kStandIns[] = {
    {u"Arial", kLikeArial},     {u"Helvetica", kLikeArial},     {u"Segoe UI", kLikeTahoma},
    {u"Courier", kLikeCourier}, {u"Courier New", kLikeCourier}, {u"Times New Roman", kLikeTimes},
    {u"Verdana", kLikeVerdana},
};

}  // namespace

std::span<const std::u16string_view> FontStandIns(std::u16string_view Name) noexcept {
  for (const TStandIns& entry : kStandIns) {
    if (SameAscii(entry.Name, Name)) return entry.Families;
  }
  return kLikeTahoma;
}

namespace drawing {

namespace {

// What may be drawn letter by letter if the font has it: no marks that stand on others, nothing that joins or
// changes with its neighbours, nothing that other fonts show as a picture.
constexpr struct {
  char16_t First, Last;
} kSimple[] = {
    {0x0020, 0x007E}, {0x00A0, 0x00AC}, {0x00AE, 0x02FF}, {0x0370, 0x0482}, {0x048A, 0x052F}, {0x1E00, 0x1FFF},
    {0x2010, 0x2027}, {0x2030, 0x203B}, {0x203D, 0x2048}, {0x204A, 0x205E}, {0x2070, 0x20CF}, {0x2100, 0x2121},
    {0x2123, 0x2138}, {0x213A, 0x2193}, {0x219A, 0x21A8}, {0x21AB, 0x2319}, {0x231C, 0x2327}, {0x2329, 0x23CE},
    {0x23D0, 0x23E8}, {0x2500, 0x25A9}, {0x25AC, 0x25B5}, {0x25B7, 0x25BF}, {0x25C1, 0x25FA}, {0x2605, 0x260D},
    {0x2610, 0x2610}, {0x2612, 0x2613}, {0x2701, 0x2701}, {0x2717, 0x2720}, {0x2722, 0x2727}, {0x2768, 0x2794},
};

bool MaybeSimple(char16_t Unit) noexcept {
  return std::any_of(std::begin(kSimple), std::end(kSimple),
                     [Unit](const auto& range) { return Unit >= range.First && Unit <= range.Last; });
}

void AddFamily(FcPattern* Pattern, std::u16string_view Family) {
  const std::string name = String(Family).ToUtf8();
  FcPatternAddString(Pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name.c_str()));
}

// The installed font that comes next to what is asked for.
TFcPattern MatchFont(const String& Name, bool Bold, bool Italic, int Em) {
  TFcPattern wanted(FcPatternCreate());
  if (!wanted) throw std::bad_alloc();
  AddFamily(wanted.get(), Name);
  for (std::u16string_view family : FontStandIns(Name)) AddFamily(wanted.get(), family);
  FcPatternAddInteger(wanted.get(), FC_WEIGHT, Bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(wanted.get(), FC_SLANT, Italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddDouble(wanted.get(), FC_PIXEL_SIZE, Em);
  FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  TFcPattern match(FcFontMatch(nullptr, wanted.get(), &result));
  if (!match || result != FcResultMatch) {
    throw EInvalidGraphicOperation(u"No font is installed, not even one to stand in for '" + Name + u"'");
  }
  return match;
}

bool IsSynthesised(FcPattern* Match) noexcept {
  FcBool embolden = FcFalse;
  FcMatrix* slant = nullptr;
  return (FcPatternGetBool(Match, FC_EMBOLDEN, 0, &embolden) == FcResultMatch && embolden) ||
         FcPatternGetMatrix(Match, FC_MATRIX, 0, &slant) == FcResultMatch;
}

}  // namespace

struct TCachedFace {
  std::shared_ptr<TFace> Face;
  uint64_t LastUse = 0;
};
struct TFaceCache {
  std::mutex Mutex;
  std::map<TFace::TKey, TCachedFace> Faces;
  uint64_t Uses = 0;
};

namespace {

// Lives until the program's very end, since canvases may do so.
TFaceCache& Cache() {
  static auto* cache = [] {
    OnFreeBuffers(foServices, &CairoDrawing::FreeBuffersForLeakPrevention);
    return new TFaceCache;
  }();
  return *cache;
}

}  // namespace

void CheckStatus(cairo_status_t Status) {
  if (Status == CAIRO_STATUS_SUCCESS) return;
  if (Status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
  throw EInvalidGraphicOperation(u"Drawing failed: " + String::FromUtf8(cairo_status_to_string(Status)));
}

TFontOptions PixelFontOptions() {
  TFontOptions options(cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_SLIGHT);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_ON);
  return options;
}

std::shared_ptr<TFace> TFace::Of(const TFont& Font) {
  return Of(TKey{Font.Name, Font.Style.Has(fsBold), Font.Style.Has(fsItalic), std::min(FontPixels(Font), LargestEm)});
}

std::shared_ptr<TFace> TFace::Scaled(double Scale) const {
  TKey key = FKey;
  std::get<int>(key) = std::clamp(static_cast<int>(std::lround(std::min(FEm * Scale, 1.0 * LargestEm))), 1, LargestEm);
  return Of(key);
}

std::shared_ptr<TFace> TFace::Of(const TKey& Key) {
  TFaceCache& cache = Cache();
  std::lock_guard lock(cache.Mutex);
  auto found = cache.Faces.find(Key);
  if (found == cache.Faces.end()) {
    if (cache.Faces.size() >= MostFaces) {
      cache.Faces.erase(std::min_element(cache.Faces.begin(), cache.Faces.end(), [](const auto& a, const auto& b) {
        return a.second.LastUse < b.second.LastUse;
      }));
    }
    const auto& [name, bold, italic, em] = Key;
    auto face = std::make_shared<TFace>(name, bold, italic, em);
    found = cache.Faces.emplace(Key, TCachedFace{std::move(face)}).first;
  }
  found->second.LastUse = ++cache.Uses;
  return found->second.Face;
}

void TFace::FreeUnused() noexcept {
  TFaceCache& cache = Cache();
  std::lock_guard lock(cache.Mutex);
  cache.Faces.clear();
}

TFace::TFace(const String& Name, bool Bold, bool Italic, int Em)
    : FKey(Name, Bold, Italic, Em), FEm(Em), FId([] {
        static std::atomic<uint64_t> made{0};
        return ++made;
      }()) {
  FPattern = MatchFont(Name, Bold, Italic, Em);
  FCairoFace.reset(cairo_ft_font_face_create_for_pattern(FPattern.get()));
  cairo_matrix_t size, identity;
  cairo_matrix_init_scale(&size, Em, Em);
  cairo_matrix_init_identity(&identity);
  FScaledFont.reset(cairo_scaled_font_create(FCairoFace.get(), &size, &identity, PixelFontOptions().get()));
  CheckStatus(cairo_scaled_font_status(FScaledFont.get()));
  FPangoFont.reset(pango_fc_font_description_from_pattern(FPattern.get(), FALSE));
  pango_font_description_set_absolute_size(FPangoFont.get(), double{PANGO_SCALE} * Em);

  cairo_font_extents_t extents;
  cairo_scaled_font_extents(FScaledFont.get(), &extents);
  FMetrics = {static_cast<int>(std::lround(extents.ascent)), static_cast<int>(std::lround(extents.descent)),
              IsSynthesised(FPattern.get()) ? 1 : 0};
}

int TFace::SimpleWidth(std::u16string_view Text) {
  int64_t width = 0;
  for (char16_t unit : Text) {
    const int stored = StoredAdvance(unit);
    if (stored == kShaped) return -1;
    width += stored - kStored;
  }
  return static_cast<int>(std::min<int64_t>(width, 1 << 27));
}

const TGlyph& TFace::Glyph(char16_t Unit) {
  const TGlyph* glyph =
      FPages[Unit >> 8].load(std::memory_order_acquire)->Glyphs[Unit & 255].load(std::memory_order_acquire);
  return glyph ? *glyph : LearnGlyph(Unit);
}

TFace::TPage& TFace::Page(char16_t Unit) {
  std::atomic<TPage*>& place = FPages[Unit >> 8];
  if (!place.load(std::memory_order_relaxed)) {
    FOwnPages.push_back(std::make_unique<TPage>());
    place.store(FOwnPages.back().get(), std::memory_order_release);
  }
  return *place.load(std::memory_order_relaxed);
}

// 0 for a unit that the font lacks.
unsigned long TFace::GlyphIndex(char16_t Unit) {
  std::string utf8;
  AppendUtf8(utf8, {&Unit, 1});
  cairo_glyph_t room;
  cairo_glyph_t* glyph = &room;
  int count = 1;
  const cairo_status_t status = cairo_scaled_font_text_to_glyphs(
      FScaledFont.get(), 0, 0, utf8.data(), static_cast<int>(utf8.size()), &glyph, &count, nullptr, nullptr, nullptr);
  const unsigned long index = status == CAIRO_STATUS_SUCCESS && count == 1 ? glyph->index : 0;
  if (glyph != &room) cairo_glyph_free(glyph);
  CheckStatus(status);
  return index;
}

int TFace::LearnAdvance(char16_t Unit) {
  const char16_t shown = Unit < u' ' ? u' ' : Unit;
  if (!MaybeSimple(shown)) return kShaped;
  std::lock_guard lock(FMutex);
  cairo_glyph_t glyph{GlyphIndex(shown), 0, 0};
  int stored = kShaped;
  if (glyph.index) {
    cairo_text_extents_t extents;
    cairo_scaled_font_glyph_extents(FScaledFont.get(), &glyph, 1, &extents);
    stored = kStored + std::max(static_cast<int>(std::lround(extents.x_advance)), 0);
  }
  Page(Unit).Advances[Unit & 255].store(stored, std::memory_order_relaxed);
  return stored;
}

const TGlyph& TFace::LearnGlyph(char16_t Unit) {
  std::lock_guard lock(FMutex);
  std::atomic<const TGlyph*>& place = Page(Unit).Glyphs[Unit & 255];
  if (const TGlyph* known = place.load(std::memory_order_relaxed)) return *known;
  auto glyph = std::make_unique<TGlyph>();
  glyph->Index = GlyphIndex(Unit < u' ' ? u' ' : Unit);
  if (FEm <= LargestMaskEm) MakeMask(*glyph);
  const size_t bytes = static_cast<size_t>(glyph->Width) * static_cast<size_t>(glyph->Height);
  if (bytes > MostMaskBytes - FMaskBytes) {
    thread_local std::unique_ptr<TGlyph> spare;
    spare = std::move(glyph);
    return *spare;
  }
  FMaskBytes += bytes;
  FOwnGlyphs.push_back(std::move(glyph));
  place.store(FOwnGlyphs.back().get(), std::memory_order_release);
  return *FOwnGlyphs.back();
}

void TFace::MakeMask(TGlyph& Glyph) {
  cairo_glyph_t glyph{Glyph.Index, 0, 0};
  cairo_text_extents_t extents;
  cairo_scaled_font_glyph_extents(FScaledFont.get(), &glyph, 1, &extents);
  if (extents.width <= 0 || extents.height <= 0) return;
  Glyph.Left = static_cast<int>(std::floor(extents.x_bearing)) - 1;
  Glyph.Top = static_cast<int>(std::floor(extents.y_bearing)) - 1;
  Glyph.Width = static_cast<int>(std::ceil(extents.x_bearing + extents.width)) + 1 - Glyph.Left;
  Glyph.Height = static_cast<int>(std::ceil(extents.y_bearing + extents.height)) + 1 - Glyph.Top;

  TSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, Glyph.Width, Glyph.Height));
  TCairo cairo(cairo_create(surface.get()));
  cairo_set_scaled_font(cairo.get(), FScaledFont.get());
  glyph.x = -Glyph.Left;
  glyph.y = -Glyph.Top;
  cairo_show_glyphs(cairo.get(), &glyph, 1);
  CheckStatus(cairo_status(cairo.get()));
  cairo_surface_flush(surface.get());
  const uint8_t* rows = cairo_image_surface_get_data(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  // Without the empty rows and columns of the border.
  int top = Glyph.Height, bottom = 0, left = Glyph.Width, right = 0;
  for (int y = 0; y < Glyph.Height; ++y) {
    for (int x = 0; x < Glyph.Width; ++x) {
      if (!rows[y * stride + x]) continue;
      top = std::min(top, y);
      bottom = std::max(bottom, y + 1);
      left = std::min(left, x);
      right = std::max(right, x + 1);
    }
  }
  if (bottom <= top) {
    Glyph.Width = Glyph.Height = 0;
    return;
  }
  Glyph.Left += left;
  Glyph.Top += top;
  Glyph.Width = right - left;
  Glyph.Height = bottom - top;
  Glyph.Mask = std::make_unique<uint8_t[]>(static_cast<size_t>(Glyph.Width) * static_cast<size_t>(Glyph.Height));
  for (int y = 0; y < Glyph.Height; ++y) {
    std::memcpy(&Glyph.Mask[static_cast<size_t>(y) * static_cast<size_t>(Glyph.Width)],
                rows + (top + y) * stride + left, static_cast<size_t>(Glyph.Width));
  }
}

}  // namespace drawing

}  // namespace vx
