#include <cairo-pdf.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>

#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/SafeFiles.h"
#include "platform/UserMessages.h"
#include "platform/cairo/CairoDrawing.h"
#include "platform/cairo/PageDevice.h"

namespace vx {

using drawing::TPageDevice;
using drawing::TSurface;

namespace {

// The bytes of the file until it is closed, in a temporary file without a name, so that a long document takes no more
// memory than a short one.
class TSpool {
 public:
  bool Append(const void* Bytes, size_t Count) noexcept {
    FIsWhole = FIsWhole && FFile != nullptr && std::fwrite(Bytes, 1, Count, FFile.get()) == Count;
    FSize += static_cast<int64_t>(Count);
    if (!FIsWhole && FError == 0) FError = errno;
    return FIsWhole;
  }
  // EWriteError that names the file, if the temporary one could not take all.
  void WriteTo(const String& Filename) {
    if (FIsWhole && std::fflush(FFile.get()) != 0) {
      FError = errno;
      FIsWhole = false;
    }
    if (!FIsWhole) {
      throw EWriteError(
          Concat({u"Cannot write file \"", Filename, u"\". ", SysErrorMessage(FError)}),
          Concat({u"Die Datei \"", Filename, u"\" kann nicht geschrieben werden. ", UserErrorMessage(FError)}), FError);
    }
    ReplaceFileContent(Filename, FSize, [&](int64_t at) { return PieceAt(at); });
  }

 private:
  std::string_view PieceAt(int64_t At) {
    const auto count = static_cast<size_t>(std::min<int64_t>(FSize - At, static_cast<int64_t>(FPiece.size())));
    if (std::fseek(FFile.get(), static_cast<long>(At), SEEK_SET) != 0 ||
        std::fread(FPiece.data(), 1, count, FFile.get()) != count) {
      const int error = errno;
      throw EReadError(u"A temporary file can't be read. " + SysErrorMessage(error),
                       u"Eine Zwischendatei kann nicht gelesen werden. " + UserErrorMessage(error), error);
    }
    return {FPiece.data(), count};
  }

  struct TClose {
    void operator()(std::FILE* File) const noexcept { std::fclose(File); }
  };
  std::unique_ptr<std::FILE, TClose> FFile{std::tmpfile()};
  int64_t FSize = 0;
  bool FIsWhole = true;
  int FError = 0;
  std::array<char, 65536> FPiece;
};

cairo_status_t Append(void* Spool, const unsigned char* Data, unsigned int Length) noexcept {
  return static_cast<TSpool*>(Spool)->Append(Data, Length) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

TSurface NewPdf(TSpool& Bytes, TPoint PageSize, TPoint PixelsPerInch) {
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
        Size(PageSize),
        Surface(NewPdf(Spool, PageSize, PixelsPerInch)),
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
    if (Status != CAIRO_STATUS_WRITE_ERROR) drawing::CheckStatus(Status);  // that one is the spool's to tell
  }

  const String Filename;
  const TPoint Size;
  TSpool Spool;
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
TPoint TPdfFile::GetPageSize() const noexcept { return FImpl->Size; }
int TPdfFile::GetPageCount() const noexcept { return FImpl->PageCount; }

void TPdfFile::NewPage() {
  FImpl->Device->NewPage();
  ++FImpl->PageCount;
}

void TPdfFile::Close() {
  if (FImpl->Closed) return;
  FImpl->Finish();
  FImpl->Spool.WriteTo(FImpl->Filename);
  FImpl->Closed = true;
}

}  // namespace vx
