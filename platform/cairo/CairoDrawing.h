// Drawing for real: on bitmaps, into PDF and SVG files, and the reading of picture files. The component
// vxlib::drawing, beside the library.
//
//   InstallDrawing    makes TBitmap's canvas, LoadPictureFile and EncodePng work
//   TPdfFile          pages of a PDF file
//   TSvgFile          a picture of lines and texts as an SVG file
//   FontStandIns      what is taken for a font that is not installed
//
// Example:
//   vx::InstallDrawing();
//   vx::TPdfFile pdf(u"namen.pdf", vx::PageA4());
//   pdf.GetCanvas().TextOut(300, 300, u"Müller, Anna");
//   pdf.NewPage();
//   pdf.GetCanvas().TextOut(300, 300, u"Seite 2");
//   pdf.Close();
//
// Texts of Latin, Greek and Cyrillic letters, digits and signs stand letter by letter, each as wide as its
// font says in whole pixels; all others are shaped, written in their direction, and take letters that the
// font lacks from another one. Texts stay texts in PDF and SVG files, with the letters used embedded.
//
// Pitfall: a font is chosen from those installed, so that widths differ between machines that have
// different ones. Tests of what is painted use TRecordingCanvas.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "platform/Drawing.h"
#include "platform/TCanvas.h"
#include "platform/TPrintPages.h"

namespace vx {

// Sets the drawing backend of Cairo, Pango and gdk-pixbuf: canvases of bitmaps of every format, pictures
// of the forms that gdk-pixbuf knows on this machine (PNG, JPEG, ICO and others; WMF with the packages of the group
// "pictures" in cmake/debian-packages.txt), PNG out. May be called again.
void InstallDrawing();

// The families that are tried for a font, in this order, behind its own name: for "Tahoma" and for every
// other font without serifs of a known desktop those that look and run most like it. What none of them has
// is left to fontconfig. Bold and italic letters are those of the family, or synthesised where it has none.
std::span<const std::u16string_view> FontStandIns(std::u16string_view Name) noexcept;

// The pixels of a page of 210 x 297 mm.
TPoint PageA4(TPoint PixelsPerInch = GetPrinterPixelsPerInch()) noexcept;

// Pages that are drawn one after the other. Nothing stands in the file before Close; a file that is
// destroyed without it is never written.
class TPdfFile : public TPrintPages {
 public:
  // Pages of so many pixels. EInvalidGraphicOperation for a size below 1.
  TPdfFile(const String& Filename, TPoint PageSize, TPoint PixelsPerInch = GetPrinterPixelsPerInch());
  ~TPdfFile() override;
  // Draws on the present page; a printer. Ends with the file.
  TCanvas& GetCanvas() noexcept override;
  TPoint GetPageSize() const noexcept override;
  // The canvas goes on on a page of its own with the state that it has.
  void NewPage() override;
  int GetPageCount() const noexcept;
  // Writes the file, whole or not at all; EFCreateError or EWriteError names it, and Close may be tried again then.
  // Drawing ends with the first Close: what draws later raises EInvalidGraphicOperation. Once the file is written,
  // another Close does nothing.
  void Close();

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

// One picture of a size in pixels; a metafile. Written as TPdfFile is.
class TSvgFile {
 public:
  TSvgFile(const String& Filename, TPoint Size, TPoint PixelsPerInch = GetScreenPixelsPerInch());
  ~TSvgFile();
  TCanvas& GetCanvas() noexcept;
  void Close();

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

namespace CairoDrawing {
// Frees the fonts that no canvas holds any more, and the texts that this thread keeps shaped.
void FreeBuffersForLeakPrevention() noexcept;
}  // namespace CairoDrawing

}  // namespace vx
