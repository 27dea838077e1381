#include <cairo-pdf.h>

#include <cmath>

#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/SafeFiles.h"
#include "platform/cairo/CairoDrawing.h"
#include "platform/cairo/PageDevice.h"

namespace vx {

using drawing::TPageDevice;
using drawing::TSurface;

namespace {

cairo_status_t Append(void* Bytes, const unsigned char* Data, unsigned int Length) noexcept {
  try {
    static_cast<std::string*>(Bytes)->append(reinterpret_cast<const char*>(Data), Length);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::exception&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

TSurface NewPdf(std::string& Bytes, TPoint PageSize, TPoint PixelsPerInch) {
  if (PageSize.X < 1 || PageSize.Y < 1 || PixelsPerInch.X < 1 || PixelsPerInch.Y < 1) {
    throw EInvalidGraphicOperation(u"A page without pixels can't be drawn on");
  }
  TSurface surface(cairo_pdf_surface_create_for_stream(Append, &Bytes, PageSize.X * 72.0 / PixelsPerInch.X,
                                                       PageSize.Y * 72.0 / PixelsPerInch.Y));
  drawing::CheckStatus(cairo_surface_status(surface.get()));
  const std::string made = FormatDateTime(u"yyyy-mm-dd\"T\"hh:nn:ss", Now()).ToUtf8();
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, made.c_str());
  return surface;
}

}  // namespace

TPoint PageA4(TPoint PixelsPerInch) noexcept {
  return {static_cast<int>(std::lround(210 / 25.4 * PixelsPerInch.X)),
          static_cast<int>(std::lround(297 / 25.4 * PixelsPerInch.Y))};
}

struct TPdfFile::TImpl {
  TImpl(const String& AFilename, TPoint PageSize, TPoint PixelsPerInch)
      : Filename(AFilename),
        Surface(NewPdf(Bytes, PageSize, PixelsPerInch)),
        Device(new TPageDevice(Surface.get(), PageSize, PixelsPerInch)),
        Canvas(std::unique_ptr<TCanvasDevice>(Device)) {}

  // Completes the bytes of the file, once.
  void Finish() {
    if (!Finished) {
      Finished = true;
      Device->Finish();
      // An empty last page counts as a page, too.
      cairo_surface_show_page(Surface.get());
      cairo_surface_finish(Surface.get());
      Status = cairo_surface_status(Surface.get());  // what draws later changes the surface's own
    }
    drawing::CheckStatus(Status);
  }

  const String Filename;
  std::string Bytes;
  TSurface Surface;
  TPageDevice* const Device;  // the canvas's
  TCanvas Canvas;
  int PageCount = 1;
  bool Finished = false;
  cairo_status_t Status = CAIRO_STATUS_SUCCESS;
  bool Closed = false;
};

TPdfFile::TPdfFile(const String& Filename, TPoint PageSize, TPoint PixelsPerInch)
    : FImpl(std::make_unique<TImpl>(Filename, PageSize, PixelsPerInch)) {}
TPdfFile::~TPdfFile() = default;

TCanvas& TPdfFile::GetCanvas() noexcept { return FImpl->Canvas; }
int TPdfFile::GetPageCount() const noexcept { return FImpl->PageCount; }

void TPdfFile::NewPage() {
  FImpl->Device->NewPage();
  ++FImpl->PageCount;
}

void TPdfFile::Close() {
  if (FImpl->Closed) return;
  FImpl->Finish();
  ReplaceFileContent(FImpl->Filename, FImpl->Bytes);
  FImpl->Closed = true;
}

}  // namespace vx
