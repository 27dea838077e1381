#include "platform/cairo/PictureFiles.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include "platform/Drawing.h"
#include "platform/Files.h"
#include "platform/cairo/Face.h"
#include "platform/cairo/Painter.h"

namespace vx::drawing {

namespace {

// More pixels than this are taken for a fault of the file.
constexpr int64_t kMostPixels = int64_t{1} << 27;

constexpr size_t kMostBytes = size_t{1} << 30;

using TPixbuf = THandle<GdkPixbuf, g_object_unref>;
using TLoader = THandle<GdkPixbufLoader, g_object_unref>;

// What a routine of gdk-pixbuf says about its failure.
class TFault {
 public:
  ~TFault() { g_clear_error(&FError); }
  GError** Place() noexcept { return &FError; }
  String Text() const { return FError ? String::FromUtf8(FError->message) : String(u"it is no picture"); }

 private:
  GError* FError = nullptr;
};

[[noreturn]] void RaiseNoPicture(const String& Filename, const String& Fault) {
  throw EInvalidGraphic(Filename + u": " + Fault);
}

// PNG and JPEG files tell their end; of one without it the loader would give the upper part as if it were all.
bool IsCutOff(std::string_view Bytes) noexcept {
  if (Bytes.starts_with("\x89PNG")) return Bytes.find("IEND\xAE\x42\x60\x82") == Bytes.npos;
  return Bytes.starts_with("\xFF\xD8") && Bytes.find("\xFF\xD9") == Bytes.npos;
}

void RefuseHuge(GdkPixbufLoader* Loader, int Width, int Height, void* Refused) {
  if (int64_t{Width} * Height <= kMostPixels) return;
  *static_cast<bool*>(Refused) = true;
  gdk_pixbuf_loader_set_size(Loader, 1, 1);
}

// The picture that a file holds, turned as it says that it is to be seen.
TPixbuf ReadPixbuf(const String& Filename) {
  std::string bytes;
  TFileStream(Filename, fmOpenRead | fmShareDenyWrite).ReadRest(bytes, kMostBytes);
  if (IsCutOff(bytes)) RaiseNoPicture(Filename, u"it is cut off");
  const TLoader loader(gdk_pixbuf_loader_new());
  bool huge = false;
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(RefuseHuge), &huge);
  TFault fault;
  const auto* data = reinterpret_cast<const guchar*>(bytes.data());
  bool good = gdk_pixbuf_loader_write(loader.get(), data, bytes.size(), fault.Place());
  // A loader is closed in any case; after a fault the first one counts.
  if (good) {
    good = gdk_pixbuf_loader_close(loader.get(), fault.Place());
  } else {
    gdk_pixbuf_loader_close(loader.get(), nullptr);
  }
  if (huge) RaiseNoPicture(Filename, u"it claims more pixels than a picture may have");
  if (!good) RaiseNoPicture(Filename, fault.Text());
  GdkPixbuf* pixbuf = gdk_pixbuf_loader_get_pixbuf(loader.get());
  if (!pixbuf) RaiseNoPicture(Filename, u"it is no picture");
  TPixbuf turned(gdk_pixbuf_apply_embedded_orientation(pixbuf));
  if (!turned) throw std::bad_alloc();
  return turned;
}

}  // namespace

void LoadPicture(const String& Filename, TBitmap& Bitmap) {
  const TPixbuf pixbuf = ReadPixbuf(Filename);
  const int width = gdk_pixbuf_get_width(pixbuf.get()), height = gdk_pixbuf_get_height(pixbuf.get());
  const int channels = gdk_pixbuf_get_n_channels(pixbuf.get());
  const guchar* pixels = gdk_pixbuf_read_pixels(pixbuf.get());
  const size_t stride = static_cast<size_t>(gdk_pixbuf_get_rowstride(pixbuf.get()));
  const bool opaque = channels < 4;
  TBitmap result(opaque ? pf24bit : pf32bit, width, height);
  if (!opaque) result.SetAlphaFormat(afDefined);
  for (int y = 0; y < height; ++y) {
    const guchar* from = pixels + static_cast<size_t>(y) * stride;
    uint8_t* to = result.GetScanline(y);
    for (int x = 0; x < width; ++x, from += channels, to += channels) {
      to[0] = from[2];
      to[1] = from[1];
      to[2] = from[0];
      if (!opaque) to[3] = from[3];
    }
  }
  Bitmap = result;
}

std::string PngOf(const TBitmap& Bitmap) {
  if (Bitmap.GetEmpty()) throw EInvalidGraphicOperation(u"A bitmap without pixels can't be written");
  const int width = Bitmap.GetWidth(), height = Bitmap.GetHeight();
  const bool opaque = Bitmap.GetAlphaFormat() == afIgnored;
  const TPixbuf pixbuf(gdk_pixbuf_new(GDK_COLORSPACE_RGB, !opaque, 8, width, height));
  if (!pixbuf) throw std::bad_alloc();
  guchar* pixels = gdk_pixbuf_get_pixels(pixbuf.get());
  const size_t stride = static_cast<size_t>(gdk_pixbuf_get_rowstride(pixbuf.get()));
  TPictureRows rows(Bitmap);
  for (int y = 0; y < height; ++y) {
    const uint32_t* row = rows.Row(y);
    guchar* to = pixels + static_cast<size_t>(y) * stride;
    for (int x = 0; x < width; ++x) {
      *to++ = static_cast<guchar>(row[x] >> 16);
      *to++ = static_cast<guchar>(row[x] >> 8);
      *to++ = static_cast<guchar>(row[x]);
      if (!opaque) *to++ = static_cast<guchar>(row[x] >> 24);
    }
  }
  gchar* bytes = nullptr;
  gsize length = 0;
  TFault fault;
  if (!gdk_pixbuf_save_to_buffer(pixbuf.get(), &bytes, &length, "png", fault.Place(), nullptr)) {
    throw EInvalidGraphicOperation(u"The picture can't be written as PNG: " + fault.Text());
  }
  const THandle<gchar, g_free> held(bytes);
  return {bytes, length};
}

}  // namespace vx::drawing
