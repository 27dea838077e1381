// Reading and writing the pixels of a bitmap of any depth; the classes of rendering/uBitmapX.h.
//
// Example:
//   if (auto* pixels = dynamic_cast<vx::TBitmapXWrite*>(any.get())) pixels->Exchange(white, silver);
//
// Pitfall: an object looks at its bitmap's format when it is given the bitmap. One that has another format later
// reads and writes like one of the wrong format from the start.
#pragma once

#include <array>
#include <memory>
#include <span>

#include "platform/TBitmap.h"
#include "rendering/uBitmapX/Colors.h"

namespace vx {

class TBitmapXWrite;
class TVxStringList;

// The object frees iBitmap, iSource.
enum TBitmapOwnsOption : uint8_t { booOwnsBitmap, booOwnsSource };
using TBitmapOwnsOptions = Set<TBitmapOwnsOption>;

// What drawing does with pixels. First the picture is turned clockwise, by the sum of the rotations, then mirrored:
// bdoReflectVert exchanges top and bottom, bdoReflectHoriz left and right. Then each colour becomes gray by its
// brightness (bdoGray, as ColorAverage), is inverted, has red and blue exchanged, and loses the channels that
// are not wanted. bdoTransparent leaves out the pixels that equal, in all four bytes, the first pixel of the last row
// of the picture drawn. bdoRelative adds to the target's channels what those drawn are above or below 128.
enum TBitmapDrawOption : uint8_t {
  bdoNoRed,
  bdoNoGreen,
  bdoNoBlue,
  bdoSwapRB,
  bdoInvert,
  bdoGray,
  bdoTransparent,
  bdoRelative,
  bdoRotate90,
  bdoRotate180,
  bdoRotate270,
  bdoReflectVert,
  bdoReflectHoriz
};
using TBitmapDrawOptions = Set<TBitmapDrawOption>;
// The options whose Boolean is true.
TBitmapDrawOptions BoolToDrawOptions(bool NoRed, bool NoGreen, bool NoBlue, bool SwapRB, bool Invert, bool Gray,
                                     bool Transparent, bool Relative, bool Rotate90, bool Rotate180, bool Rotate270,
                                     bool ReflectVert, bool ReflectHoriz) noexcept;

// A bitmap whose pixels are TRGB. Places count from 0 at the left and the top. A column outside the picture
// reads as four zero bytes and is not written; a row outside it raises EInvalidGraphicOperation, but where it is told
// otherwise. With iOk false all reads give zero bytes, writes do nothing, and nothing is raised.
class TBitmapX : public TObject {
 public:
  // Bitmap may be null. This class itself reads no format: iOk stays false.
  explicit TBitmapX(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions = {}, TObject* Source = nullptr,
                    const String& Filename = {});
  ~TBitmapX() override;
  TBitmapX(const TBitmapX&) = delete;
  TBitmapX& operator=(const TBitmapX&) = delete;
  String ClassName() const override { return u"TBitmapX"; }

  // The object of the class for Bitmap's format; pfDevice first becomes the format of the screen's bits (1, 4, 8, 15,
  // 16, 24 or 32). Null for any other format and for no bitmap: nothing has been taken over then.
  static std::unique_ptr<TBitmapX> CreateBitmapX(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions = {},
                                                 TObject* Source = nullptr, const String& Filename = {});
  // Loads a file ".bmp", ".jpg", ".ico", ".emf" or ".wmf" into a bitmap that the result owns; null for other names.
  // Raises as TBitmap::LoadFromFile, so for each ".emf".
  static std::unique_ptr<TBitmapX> CreateLoadBitmapX(const String& Filename, TBitmapOwnsOptions OwnsOptions = {},
                                                     TObject* Source = nullptr);

  // ConvertRGBToColor of GetPixels.
  virtual TColor GetColor(int X, int Y) const { return ConvertRGBToColor(GetPixels(X, Y)); }
  virtual TRGB GetPixels(int X, int Y) const;
  // Another bitmap, or null; the one before is freed if booOwnsBitmap is set. Sets iOk.
  virtual void SetBitmap(TBitmap* Value);
  // The pixels of row Y from the left on, as many as Row takes; those outside the picture are zero bytes.
  virtual void GetRow(int Y, std::span<TRGB> Row) const;

  TBitmap* GetBitmap() const noexcept { return iBitmap; }
  // Of the bitmap; 0 without one.
  int GetWidth() const noexcept { return iBitmap ? iBitmap->GetWidth() : 0; }
  int GetHeight() const noexcept { return iBitmap ? iBitmap->GetHeight() : 0; }

  // The whole picture, or the part Rect of it, as Options say. The result writes to Bitmap or, without one, to a
  // bitmap of its own. That gets the size that comes out, and 24 bits, unless it has 32; pixels left out by
  // bdoTransparent stay as they are in it. Bitmap may be this one's. So for all that follow.
  std::unique_ptr<TBitmapXWrite> Render(TBitmapDrawOptions Options = {}, TBitmap* Bitmap = nullptr) const;
  std::unique_ptr<TBitmapXWrite> RenderRect(const TRect& Rect, TBitmapDrawOptions Options = {},
                                            TBitmap* Bitmap = nullptr) const;
  // The picture in another size with hard edges: each pixel is one of the picture, none is mixed.
  // EArgumentException for a size below 0.
  std::unique_ptr<TBitmapXWrite> RenderHard(int Width, int Height, TBitmapDrawOptions Options = {},
                                            TBitmap* Bitmap = nullptr) const;
  // Each pixel becomes Factor x Factor; of Factor x Factor pixels the one in the middle stays, a rest at the right and
  // the bottom too. EArgumentException for a Factor below 1.
  std::unique_ptr<TBitmapXWrite> RenderHardUp(int Factor, TBitmapDrawOptions Options = {},
                                              TBitmap* Bitmap = nullptr) const;
  std::unique_ptr<TBitmapXWrite> RenderHardDown(int Factor, TBitmapDrawOptions Options = {},
                                                TBitmap* Bitmap = nullptr) const;
  // Turned clockwise by any angle, in a rectangle that holds it all, with the colour Background around it. Pixels
  // between those of the picture are mixed; multiples of 90 degrees are exact. EArgumentException for what is no
  // number.
  std::unique_ptr<TBitmapXWrite> Rotate(double Degrees, TColor Background = clWhite, TBitmapDrawOptions Options = {},
                                        TBitmap* Bitmap = nullptr) const;
  // Smaller and smooth: Factor x Factor pixels become one of their mean, at the right and the bottom of as many as
  // there are. What was drawn Factor times as large has soft edges then. EArgumentException for a Factor below 1.
  std::unique_ptr<TBitmapXWrite> Antialias(int Factor = 2, TBitmapDrawOptions Options = {},
                                           TBitmap* Bitmap = nullptr) const;
  // Writes the bitmap to a PNG file. Raises as SavePngFile; EInvalidGraphicOperation without a bitmap.
  void ConvertToPNG(const String& PngFilename) const;
  // The picture with at most maxColor colours; rendering/uRGBSpace.h tells how. Null if it could not be cut.
  std::unique_ptr<TBitmapXWrite> CompressColors(uint16_t maxColor, bool UseTransparent,
                                                TBitmap* Bitmap = nullptr) const;
  // How often each colour occurs, by rising red, green and blue: u"255.000.128 - 012,000", below the head
  // u"rrr.ggg.bbb - Anzahl 3" with the number of colours. A picture without pixels gives only the row
  // u"rrr.ggg.bbb  hue  sat  val".
  std::unique_ptr<TVxStringList> ColorStatistic() const;

  String iFilename;
  TBitmapOwnsOptions iOwnsOptions;
  TObject* iSource = nullptr;
  TBitmap* iBitmap = nullptr;
  bool iOk = false;  // the bitmap has the format that this class reads

 protected:
  // Takes the bitmap over and lets iOk say whether there is one of Format.
  void TakeBitmap(TBitmap* Value, TPixelFormat Format);
  // The row to read from; null where the pixel reads as zero bytes.
  const uint8_t* RowToRead(TPixelFormat Format, int X, int Y) const {
    if (!iOk || iBitmap->GetPixelFormat() != Format) return nullptr;
    const uint8_t* row = static_cast<const TBitmap*>(iBitmap)->GetScanline(Y);
    return static_cast<unsigned>(X) < static_cast<unsigned>(iBitmap->GetWidth()) ? row : nullptr;
  }
};

// Depths whose pixels are indexes; they can only be read.
class TBitmapXPalette : public TBitmapX {
 public:
  using TBitmapX::TBitmapX;
  String ClassName() const override { return u"TBitmapXPalette"; }

  std::array<TPaletteEntry, 256> iPalette{};
  uint32_t iPaletteCount = 0;  // entries read

 protected:
  // Reads at most Most entries of the bitmap's palette.
  void ReadPalette(size_t Most) noexcept;
};

// One bit: a set one is white whatever the palette says, its fourth byte must not be relied on; the other one is entry
// 0 of the palette, and without a palette four zero bytes.
class TBitmap1 : public TBitmapXPalette {
 public:
  explicit TBitmap1(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions = {}, TObject* Source = nullptr,
                    const String& Filename = {});
  String ClassName() const override { return u"TBitmap1"; }
  TRGB GetPixels(int X, int Y) const override;
  void SetBitmap(TBitmap* Value) override;
};

// The highest index, 15 or 255, is four bytes of 255 whatever the palette says; all others are the palette's entries
// with their flags as the fourth byte. Without a palette iOk is false.
class TBitmap4 : public TBitmapXPalette {
 public:
  explicit TBitmap4(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions = {}, TObject* Source = nullptr,
                    const String& Filename = {});
  String ClassName() const override { return u"TBitmap4"; }
  TRGB GetPixels(int X, int Y) const override;
  void SetBitmap(TBitmap* Value) override;
};
class TBitmap8 : public TBitmapXPalette {
 public:
  explicit TBitmap8(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions = {}, TObject* Source = nullptr,
                    const String& Filename = {});
  String ClassName() const override { return u"TBitmap8"; }
  TRGB GetPixels(int X, int Y) const override;
  void SetBitmap(TBitmap* Value) override;
  void GetRow(int Y, std::span<TRGB> Row) const override;
};

// Depths that can be written. A pixel is written only where its stored value differs.
class TBitmapXWrite : public TBitmapX {
 public:
  using TBitmapX::TBitmapX;
  String ClassName() const override { return u"TBitmapXWrite"; }

  // The stored values of the channels, of 15 and 16 bits 0 to 31, green of 16 bits to 63; only so many bits are
  // written. On 24 and 32 bits the same as GetPixels and SetPixels.
  virtual TRGB GetOriginal(int X, int Y) const = 0;
  virtual void SetOriginal(int X, int Y, TRGB Color) = 0;
  virtual void SetPixels(int X, int Y, TRGB Color) = 0;
  // SetPixels for row Y from the left on, as many as Row has and the picture takes.
  virtual void SetRow(int Y, std::span<const TRGB> Row) = 0;

  // Every pixel that equals A in all four bytes becomes B; the result is how many did.
  int Exchange(TRGB A, TRGB B);
  // SetPixels from Left to Right - 1 and from Top to Bottom - 1, column by column.
  void FloodFill(const TRect& Rect, TRGB Color);
  // Puts Source, as Options say, with its top left pixel at (X, Y); what lies outside this picture is left out.
  void Draw(int X, int Y, const TBitmapX& Source, TBitmapDrawOptions Options = {});
};

// What the four writers have in common; TLayout knows how a pixel is stored.
template <typename TLayout>
class TBitmapXOf : public TBitmapXWrite {
 public:
  explicit TBitmapXOf(TBitmap* Bitmap, TBitmapOwnsOptions OwnsOptions = {}, TObject* Source = nullptr,
                      const String& Filename = {});
  TRGB GetPixels(int X, int Y) const override;
  void SetBitmap(TBitmap* Value) override;
  void GetRow(int Y, std::span<TRGB> Row) const override;
  TRGB GetOriginal(int X, int Y) const override;
  void SetOriginal(int X, int Y, TRGB Color) override;
  void SetPixels(int X, int Y, TRGB Color) override;
  void SetRow(int Y, std::span<const TRGB> Row) override;

 private:
  void Store(int X, int Y, TRGB Original);
};

struct TLayout15;
struct TLayout16;
struct TLayout24;
struct TLayout32;
extern template class TBitmapXOf<TLayout15>;
extern template class TBitmapXOf<TLayout16>;
extern template class TBitmapXOf<TLayout24>;
extern template class TBitmapXOf<TLayout32>;

class TBitmap15 : public TBitmapXOf<TLayout15> {
 public:
  using TBitmapXOf::TBitmapXOf;
  String ClassName() const override { return u"TBitmap15"; }
};
class TBitmap16 : public TBitmapXOf<TLayout16> {
 public:
  using TBitmapXOf::TBitmapXOf;
  String ClassName() const override { return u"TBitmap16"; }
};
class TBitmap24 : public TBitmapXOf<TLayout24> {
 public:
  using TBitmapXOf::TBitmapXOf;
  String ClassName() const override { return u"TBitmap24"; }
};
// Writing to a row at or beyond the height does nothing.
class TBitmap32 : public TBitmapXOf<TLayout32> {
 public:
  using TBitmapXOf::TBitmapXOf;
  String ClassName() const override { return u"TBitmap32"; }
};

// Sets format and size; pixels within both sizes stay.
void SetBitmapDimension(TBitmap& Bitmap, TPixelFormat PixelFormat, int Width, int Height);

// The header of a BMP file of its usual form, with its fields as they stand in the file.
struct TBitmapInfoHeader {
  uint32_t biSize = 0;
  int32_t biWidth = 0;
  int32_t biHeight = 0;  // below 0 for rows from the top
  uint16_t biPlanes = 0;
  uint16_t biBitCount = 0;
  uint32_t biCompression = 0;
  uint32_t biSizeImage = 0;
  int32_t biXPelsPerMeter = 0;
  int32_t biYPelsPerMeter = 0;
  uint32_t biClrUsed = 0;
  uint32_t biClrImportant = 0;
};
// Reads the header of a file that begins with "BM" or "BA". False, with Header unchanged, for any other. Raises
// EFOpenError, and EReadError for a file that ends before.
bool ReadBitmapInfoHeader(const String& Filename, TBitmapInfoHeader& Header);

}  // namespace vx
