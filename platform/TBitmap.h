// A picture in memory, and its files.
//
//   TBitmap            pixels of a format, a palette, a transparent colour, a canvas
//   TPixelFormat       how many bits a pixel has, and where its colours lie in them
//   TPaletteEntry      a colour of a palette
//   EncodeBitmap, DecodeBitmap   a picture as the bytes of a BMP file
//   SetBitmapResource  pictures that are found by a name, such as the arrows of sorted columns
//   GetScreenBitsPerPixel        what pfDevice stands for
//
// Example:
//   vx::TBitmap bitmap(vx::pf24bit, 640, 480);
//   uint8_t* row = bitmap.GetScanline(0);         // the topmost row: blue, green, red; blue, ...
//   row[2] = 255;                                 // the first pixel gets all red
//   vx::TBitmap before = bitmap;                  // shares the pixels until one of both changes
//   bitmap.SaveToFile(u"bild.bmp");
//
// Rows count from the top, whatever the file's order was, and lie GetStride bytes apart, a multiple of 4.
// The bytes of a pixel:
//   pf1bit     a bit, the highest one of a byte first; an index into the palette
//   pf4bit     half a byte, the high one first; an index
//   pf8bit     an index
//   pf15bit    a word of the machine's order: 5 bits blue (the lowest), 5 green, 5 red
//   pf16bit    5 bits blue, 6 green, 5 red
//   pf24bit    blue, green, red
//   pf32bit    blue, green, red, and a fourth byte: what GetAlphaFormat says
//   pfDevice   those of pf32bit; the format that a bitmap has until it is told another
//
// Pitfalls: GetScanline of a bitmap that may be written to parts it from its copies; ask a const one where rows
// are only read. Pointers into rows end with the next change of size or format, and with the next copy that
// is made. One bitmap is for one thread at a time; copies may be used in others.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Graphics.h"
#include "platform/RefCount.h"
#include "platform/TObject.h"

namespace vx {

class TCanvas;

enum TPixelFormat : uint8_t { pfDevice, pf1bit, pf4bit, pf8bit, pf15bit, pf16bit, pf24bit, pf32bit, pfCustom };

// What the fourth byte of 32 bits is: of no meaning, or how opaque the pixel is; the colours are in the latter case
// as they are (afDefined) or multiplied by it (afPremultiplied).
enum TAlphaFormat : uint8_t { afIgnored, afDefined, afPremultiplied };

struct TPaletteEntry {
  uint8_t peRed = 0;
  uint8_t peGreen = 0;
  uint8_t peBlue = 0;
  uint8_t peFlags = 0;
  friend bool operator==(const TPaletteEntry&, const TPaletteEntry&) noexcept = default;
};

// The bits that a pixel of a format has in memory; 0 for pfCustom.
int BitsOfPixelFormat(TPixelFormat Format) noexcept;

class TBitmap : public TObject {
 public:
  // No pixels, pfDevice.
  TBitmap() noexcept;
  // All pixels white. Raises as SetSize and SetPixelFormat.
  TBitmap(TPixelFormat Format, int Width, int Height);
  ~TBitmap() override;
  // A copy shares the pixels and has no canvas; an assignment leaves the canvas where it is.
  TBitmap(const TBitmap& Other) noexcept;
  TBitmap(TBitmap&& Other) noexcept;
  TBitmap& operator=(const TBitmap& Other) noexcept;
  TBitmap& operator=(TBitmap&& Other) noexcept;
  String ClassName() const override { return u"TBitmap"; }

  int GetWidth() const noexcept { return FWidth; }
  int GetHeight() const noexcept { return FHeight; }
  bool GetEmpty() const noexcept { return FWidth == 0 || FHeight == 0; }
  void SetWidth(int Value) { SetSize(Value, FHeight); }
  void SetHeight(int Value) { SetSize(FWidth, Value); }
  // Pixels within both sizes stay, the others are white: all bits set, but for a fourth byte without meaning, which
  // is 0. EInvalidGraphicOperation, with nothing changed, for a size below 0 and for more than 2^31 - 1 bytes.
  void SetSize(int Width, int Height);

  TPixelFormat GetPixelFormat() const noexcept { return FFormat; }
  // Brings the pixels into the format. Colours that the format does not have become the nearest ones: by channel,
  // or the nearest of the palette. To have a palette, formats of indexes keep that of the bitmap as far as
  // it goes; one that had none gets black and white, the 16 colours clBlack to clWhite, or these, a cube of
  // 6 x 6 x 6 and grays. EInvalidGraphicOperation, with nothing changed, for pfCustom.
  void SetPixelFormat(TPixelFormat Value);

  // Bytes from a row to the next one; a multiple of 4.
  int GetStride() const noexcept { return FStride; }
  // The first byte of a row, 0 being the topmost; the first form parts the pixels from those of copies.
  // EInvalidGraphicOperation "Scan line index out of range" for a row that is not there.
  uint8_t* GetScanline(int Row) {
    if (static_cast<unsigned>(Row) >= static_cast<unsigned>(FHeight)) RaiseRow();
    if (FImage->Holders.IsShared()) Detach();
    return FBits + static_cast<size_t>(Row) * static_cast<size_t>(FStride);
  }
  const uint8_t* GetScanline(int Row) const {
    if (static_cast<unsigned>(Row) >= static_cast<unsigned>(FHeight)) RaiseRow();
    return FBits + static_cast<size_t>(Row) * static_cast<size_t>(FStride);
  }
  // Whether a copy has the same pixels, from which a change would part them.
  bool IsShared() const noexcept { return FImage && FImage->Holders.IsShared(); }
  // The pixels of a row in any format as 0xAARRGGBB, as many as Pixels takes and the row has; AA is 0xFF where the
  // fourth byte has no meaning, and colours are never multiplied by it here. Setting takes the nearest colour that the
  // format has, and writes 0 for a fourth byte without meaning. Raise as GetScanline.
  void GetRow(int Row, std::span<uint32_t> Pixels) const;
  void SetRow(int Row, std::span<const uint32_t> Pixels);

  // The palette; empty where there is none. Formats of more than 8 bits keep one without use.
  std::span<const TPaletteEntry> GetPalette() const noexcept;
  // At most 256 entries; EInvalidGraphicOperation for more. Indexes beyond the palette show as black.
  void SetPalette(std::span<const TPaletteEntry> Entries);
  // Copies entries from Start on to Entries, as many as there are and fit; the result is their number.
  int GetPaletteEntries(int Start, std::span<TPaletteEntry> Entries) const noexcept;

  TAlphaFormat GetAlphaFormat() const noexcept { return FAlphaFormat; }
  // Says what the fourth bytes are and changes none.
  void SetAlphaFormat(TAlphaFormat Value) noexcept { FAlphaFormat = Value; }

  // Whether drawing the bitmap leaves pixels of the transparent colour out.
  bool GetTransparent() const noexcept { return FTransparent; }
  void SetTransparent(bool Value) noexcept { FTransparent = Value; }
  // The colour set, and while it is clDefault, as it is at first, the colour of the first pixel of the last row,
  // 0x00BBGGRR; white without any pixels.
  TColor GetTransparentColor() const;
  void SetTransparentColor(TColor Value) noexcept { FTransparentColor = Value; }

  // The canvas that draws on these pixels, made at the first call and the bitmap's. Raises as NewBitmapCanvas.
  TCanvas& GetCanvas();
  bool HasCanvas() const noexcept { return FCanvas != nullptr; }

  // Reads a picture file: BMP by what stands in it, all else by LoadPictureFile. EFOpenError or EReadError for a file
  // that can't be read, EInvalidGraphic for one that is no picture, is cut off or of a form that nothing here reads
  // (EMF is such); each names the file, and nothing has changed then. Without a drawing component all but BMP
  // raise EInvalidGraphicOperation.
  void LoadFromFile(const String& Filename);
  // Writes a BMP file, for ".png" a PNG file, whole or not at all. Raises as EncodeBitmap, ReplaceFileContent
  // and SavePngFile.
  void SaveToFile(const String& Filename) const;
  // The picture of a name in any case; EInvalidGraphic for a name that is not known. Built in are "UP" and "DOWN",
  // the arrows of sorted columns, and "MULTI_SELECT"; what is transparent in them is 0x00FF00FF, and they say so.
  void LoadFromResourceName(std::u16string_view Name);

 private:
  struct TImage {
    TRefCount Holders;
    std::unique_ptr<uint8_t[]> Bits;
    std::vector<TPaletteEntry> Palette;
  };
  friend struct TBitmapAccess;  // the reader of files, which fills pixels that are not set yet

  [[noreturn]] static void RaiseRow();
  void Detach();
  void Allocate(TPixelFormat Format, int Width, int Height);
  void PackRowsOf(const TBitmap& Other);
  void Release() noexcept;
  TImage& OwnImage();
  void ShareFrom(const TBitmap& Other) noexcept;

  TImage* FImage = nullptr;  // null without pixels and palette
  uint8_t* FBits = nullptr;
  int FWidth = 0;
  int FHeight = 0;
  int FStride = 0;
  TPixelFormat FFormat = pfDevice;
  TAlphaFormat FAlphaFormat = afIgnored;
  bool FTransparent = false;
  TColor FTransparentColor = clDefault;
  std::unique_ptr<TCanvas> FCanvas;
};

// A BMP file of all depths from 1 to 32 bits, with or without run lengths (RLE4, RLE8) and bit fields, rows
// from either end, headers of 12 to 124 bytes. Depth and palette are kept; 16 bits with fields of 5, 6 and 5 are
// pf16bit, others of 5 bits pf15bit, and all other fields come as 32 bits. EInvalidGraphic names Name and the fault: a
// size that the bytes can't hold, a palette or runs that lead out of the file or the picture, a file that is cut off.
// What is allocated is never more than 255 bytes for each byte given, plus 1 MiB.
TBitmap DecodeBitmap(std::string_view Bytes, const String& Name);
// The bytes of a BMP file: of the bitmap's depth and palette, from the last row to the first; pfDevice as 24 bits, 32
// bits with transparency with a header of 108 bytes and bit fields. EInvalidGraphicOperation for a bitmap without
// pixels.
std::string EncodeBitmap(const TBitmap& Bitmap);

// Sets the picture that LoadFromResourceName gives for a name in any case, also in place of a built-in one; an
// empty one takes the name away. For any thread.
void SetBitmapResource(const String& Name, const TBitmap& Bitmap);

// The bits of a pixel on the screen, 32 until set.
int GetScreenBitsPerPixel() noexcept;
void SetScreenBitsPerPixel(int Value) noexcept;

}  // namespace vx
