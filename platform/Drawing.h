// What drawing asks of the outside: who draws on bitmaps and reads picture files, and how fine screen
// and printer are.
//
//   TDrawingBackend, SetDrawingBackend    canvases of bitmaps, picture files; the component
//                                         vxlib::drawing brings one
//   NewBitmapCanvas, LoadPictureFile, SavePngFile, EncodePng    what goes through it
//   GetScreenPixelsPerInch, GetPrinterPixelsPerInch             and their setters
//   EInvalidGraphic                       a picture that is none, or of a form that nothing here reads
//   EInvalidGraphicOperation              drawing that can't be done
//
// Example:
//   vx::InstallDrawing();                          // platform/cairo/CairoDrawing.h
//   vx::TBitmap bitmap;
//   vx::LoadPictureFile(u"logo.png", bitmap);
//   std::unique_ptr<vx::TCanvas> canvas = vx::NewBitmapCanvas(bitmap);
//   canvas->TextOut(4, 4, u"Müller");
//
// Pitfall: the library alone draws on no bitmap. Without a backend the four routines raise
// EInvalidGraphicOperation; measuring and drawing on a TRecordingCanvas need none.
#pragma once

#include <memory>
#include <string>

#include "platform/Exceptions.h"
#include "platform/Graphics.h"
#include "platform/String.h"

namespace vx {

class TBitmap;
class TCanvas;

class EInvalidGraphic : public Exception {
 public:
  using Exception::Exception;
};
class EInvalidGraphicOperation : public Exception {
 public:
  using Exception::Exception;
};

// Draws on bitmaps and reads and writes picture files. Its operations are called by several threads
// at once, for different bitmaps.
class TDrawingBackend {
 public:
  virtual ~TDrawingBackend() = default;
  // A canvas that draws into the pixels of Bitmap, which has to outlive it. The canvas looks at size,
  // format and rows of Bitmap anew with each operation, so that they may change meanwhile.
  virtual std::unique_ptr<TCanvas> NewBitmapCanvas(TBitmap& Bitmap) = 0;
  // Reads a picture of any form that the backend knows but ".bmp" into Bitmap: 24 bits, or 32 bits for
  // one with transparency. EFOpenError or EReadError for a file that can't be read, EInvalidGraphic for
  // one that is no picture; each names the file and leaves Bitmap as it was.
  virtual void LoadPictureFile(const String& Filename, TBitmap& Bitmap) = 0;
  // Bitmap as the bytes of a PNG file; the fourth byte of 32 bits is kept as transparency.
  virtual std::string EncodePng(const TBitmap& Bitmap) = 0;
};

// Sets the backend and returns the one before; null for none.
std::shared_ptr<TDrawingBackend> SetDrawingBackend(std::shared_ptr<TDrawingBackend> Backend);

// See TDrawingBackend. EInvalidGraphicOperation if there is no backend.
std::unique_ptr<TCanvas> NewBitmapCanvas(TBitmap& Bitmap);
void LoadPictureFile(const String& Filename, TBitmap& Bitmap);
std::string EncodePng(const TBitmap& Bitmap);
// Writes Bitmap as a PNG file, whole or not at all; EFCreateError or EWriteError names the file.
void SavePngFile(const TBitmap& Bitmap, const String& Filename);

// Pixels on an inch across (X) and down (Y): 96 and 96 on the screen, 600 and 600 on the printer until
// set. A canvas takes them when it is made. Values below 1 count as 1.
TPoint GetScreenPixelsPerInch() noexcept;
TPoint GetPrinterPixelsPerInch() noexcept;
void SetScreenPixelsPerInch(TPoint PixelsPerInch) noexcept;
void SetPrinterPixelsPerInch(TPoint PixelsPerInch) noexcept;

}  // namespace vx
