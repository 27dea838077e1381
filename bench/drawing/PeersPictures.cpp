#include <gdk-pixbuf/gdk-pixbuf.h>
#include <libimagequant.h>
#include <wand/MagickWand.h>

#include <cmath>

#include "bench/drawing/Pictures.h"
#include "bench/support/Bench.h"

namespace vx::bench {

double Psnr(const TRgbBytes& A, const TRgbBytes& B) {
  double sum = 0;
  for (size_t i = 0; i < A.size(); ++i) sum += (A[i] - B[i]) * (A[i] - B[i]);
  return 10 * std::log10(255.0 * 255.0 * static_cast<double>(A.size()) / sum);
}

// --- gdk-pixbuf

struct TPixbufPeer::TImpl {
  std::string Bmp;
  GdkPixbuf* Picture = nullptr;
  GdkPixbuf* Loaded() const {
    GdkPixbufLoader* loader = gdk_pixbuf_loader_new_with_type("bmp", nullptr);
    gdk_pixbuf_loader_write(loader, reinterpret_cast<const guchar*>(Bmp.data()), Bmp.size(), nullptr);
    gdk_pixbuf_loader_close(loader, nullptr);
    GdkPixbuf* picture = gdk_pixbuf_loader_get_pixbuf(loader);
    g_object_ref(picture);
    g_object_unref(loader);
    return picture;
  }
};

TPixbufPeer::TPixbufPeer(const std::string& Bmp) : FImpl(std::make_unique<TImpl>()) {
  FImpl->Bmp = Bmp;
  FImpl->Picture = FImpl->Loaded();
}
TPixbufPeer::~TPixbufPeer() { g_object_unref(FImpl->Picture); }

double TPixbufPeer::Load() {
  return Time([&] {
    GdkPixbuf* picture = FImpl->Loaded();
    Expect(gdk_pixbuf_get_width(picture) == kWidth, "gdk-pixbuf reads");
    g_object_unref(picture);
  });
}

double TPixbufPeer::Save() {
  return Time([&] {
    gchar* bytes = nullptr;
    gsize size = 0;
    Expect(gdk_pixbuf_save_to_buffer(FImpl->Picture, &bytes, &size, "bmp", nullptr, nullptr), "gdk-pixbuf writes");
    g_free(bytes);
  });
}

// --- ImageMagick

struct TMagickPeer::TImpl {
  std::string Bmp;
  MagickWand* Picture = nullptr;
  MagickWand* Reduced = nullptr;
  MagickWand* Loaded() const {
    MagickWand* wand = NewMagickWand();
    Expect(MagickReadImageBlob(wand, Bmp.data(), Bmp.size()) == MagickTrue, "ImageMagick reads");
    return wand;
  }
};

TMagickPeer::TMagickPeer(const std::string& Bmp) : FImpl(std::make_unique<TImpl>()) {
  MagickWandGenesis();
  FImpl->Bmp = Bmp;
  FImpl->Picture = FImpl->Loaded();
}
TMagickPeer::~TMagickPeer() {
  DestroyMagickWand(FImpl->Picture);
  if (FImpl->Reduced) DestroyMagickWand(FImpl->Reduced);
  MagickWandTerminus();
}

double TMagickPeer::Load() {
  return Time([&] { DestroyMagickWand(FImpl->Loaded()); });
}

double TMagickPeer::Save() {
  MagickSetImageFormat(FImpl->Picture, "BMP3");
  return Time([&] {
    size_t size = 0;
    unsigned char* bytes = MagickGetImageBlob(FImpl->Picture, &size);
    Expect(size > 54, "ImageMagick writes");
    MagickRelinquishMemory(bytes);
  });
}

double TMagickPeer::Reduce() {
  if (FImpl->Reduced) DestroyMagickWand(FImpl->Reduced);
  FImpl->Reduced = CloneMagickWand(FImpl->Picture);
  return Time([&] { MagickQuantizeImage(FImpl->Reduced, kColors, sRGBColorspace, 0, MagickFalse, MagickFalse); });
}

TRgbBytes TMagickPeer::GetReduced() const {
  TRgbBytes bytes(size_t{3} * kWidth * kHeight);
  MagickExportImagePixels(FImpl->Reduced, 0, 0, kWidth, kHeight, "RGB", CharPixel, bytes.data());
  return bytes;
}

// --- libimagequant

TQuantPeer::TQuantPeer(const TRgbBytes& Picture) : FIndexes(size_t{1} * kWidth * kHeight) {
  for (size_t i = 0; i < Picture.size(); i += 3) {
    FPixels.insert(FPixels.end(), {Picture[i], Picture[i + 1], Picture[i + 2], 255});
  }
}

double TQuantPeer::Reduce() {
  return Time([&] {
    liq_attr* attributes = liq_attr_create();
    liq_set_max_colors(attributes, kColors);
    liq_image* image = liq_image_create_rgba(attributes, FPixels.data(), kWidth, kHeight, 0);
    liq_result* result = nullptr;
    Expect(liq_image_quantize(image, attributes, &result) == LIQ_OK, "libimagequant reduces");
    liq_set_dithering_level(result, 0);
    liq_write_remapped_image(result, image, FIndexes.data(), FIndexes.size());
    FPalette.clear();
    for (const liq_color& color : liq_get_palette(result)->entries) {
      FPalette.insert(FPalette.end(), {color.r, color.g, color.b});
    }
    liq_result_destroy(result);
    liq_image_destroy(image);
    liq_attr_destroy(attributes);
  });
}

TRgbBytes TQuantPeer::GetReduced() const {
  TRgbBytes bytes;
  for (uint8_t index : FIndexes)
    bytes.insert(bytes.end(), &FPalette[size_t{3} * index], &FPalette[size_t{3} * index] + 3);
  return bytes;
}

}  // namespace vx::bench
