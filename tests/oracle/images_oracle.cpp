// Compares the reading and writing of BMP files with ImageMagick, as an independent oracle:
//   images_oracle [directory of BMP files]
// Random pictures of all sizes in every form that ImageMagick writes, ours of every pixel format, and the files of the
// directory, pixel by pixel. Of channels of fewer than 8 bits those are compared that the file has, since ImageMagick
// fills the others in ways of its own. Exit status 1 for any difference.
#include <wand/MagickWand.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "platform/Drawing.h"
#include "platform/TBitmap.h"

namespace {

using namespace vx;

// Red, green, blue and opacity of each pixel, from the top.
struct TSeen {
  size_t Width = 0, Height = 0;
  bool HasOpacity = false;
  std::vector<uint8_t> Bytes;
};

class TMagick {
 public:
  TMagick() : FWand(NewMagickWand()) {}
  ~TMagick() { DestroyMagickWand(FWand); }
  TMagick(const TMagick&) = delete;
  TMagick& operator=(const TMagick&) = delete;
  MagickWand* Wand() const { return FWand; }

  std::optional<TSeen> Read(const std::string& Bmp) const {
    MagickSetFormat(FWand, "BMP");
    if (MagickReadImageBlob(FWand, Bmp.data(), Bmp.size()) != MagickTrue) return {};
    TSeen seen{
        MagickGetImageWidth(FWand), MagickGetImageHeight(FWand), MagickGetImageAlphaChannel(FWand) == MagickTrue, {}};
    seen.Bytes.resize(4 * seen.Width * seen.Height);
    MagickExportImagePixels(FWand, 0, 0, seen.Width, seen.Height, "RGBA", CharPixel, seen.Bytes.data());
    return seen;
  }

 private:
  MagickWand* FWand;
};

std::optional<TSeen> Ours(const std::string& Bmp, String& Fault) {
  try {
    const TBitmap bitmap = DecodeBitmap(Bmp, u"file");
    TSeen seen{static_cast<size_t>(bitmap.GetWidth()),
               static_cast<size_t>(bitmap.GetHeight()),
               bitmap.GetAlphaFormat() != afIgnored,
               {}};
    std::vector<uint32_t> row(seen.Width);
    for (int y = 0; y < bitmap.GetHeight(); ++y) {
      bitmap.GetRow(y, row);
      for (const uint32_t pixel : row) {
        for (const int shift : {16, 8, 0, 24}) seen.Bytes.push_back(static_cast<uint8_t>(pixel >> shift));
      }
    }
    return seen;
  } catch (const EInvalidGraphic& e) {
    Fault = e.GetMessage();
    return {};
  }
}

int FieldOf(const std::string& Bmp, size_t At, int Bytes) {
  int value = 0;
  for (int i = 0; i < Bytes; ++i) value |= static_cast<uint8_t>(Bmp[At + static_cast<size_t>(i)]) << 8 * i;
  return value;
}
// "header 40, 24 bits, compression 0"
std::string FormOf(const std::string& Bmp) {
  const int header = FieldOf(Bmp, 14, 4);
  const int bits = header == 12 ? FieldOf(Bmp, 24, 2) : FieldOf(Bmp, 28, 2);
  return "header " + std::to_string(header) + ", " + std::to_string(bits) + " bits, compression " +
         std::to_string(header == 12 ? 0 : FieldOf(Bmp, 30, 4));
}

// How many bits the file has of red, green, blue and opacity.
std::array<int, 4> BitsOfChannels(const std::string& Bmp) {
  if (FormOf(Bmp).find(" 16 bits") == std::string::npos) return {8, 8, 8, 8};
  if (FieldOf(Bmp, 30, 4) == 0) return {5, 5, 5, 0};
  std::array<int, 4> bits{};
  for (size_t i = 0; i < 4; ++i) bits[i] = std::popcount(static_cast<unsigned>(FieldOf(Bmp, 54 + 4 * i, 4)));
  return bits;
}

class TComparison {
 public:
  void Compare(const std::string& Bmp, const std::string& Name) {
    const std::string form = FormOf(Bmp);
    String fault;
    const std::optional<TSeen> ours = Ours(Bmp, fault), theirs = TMagick().Read(Bmp);
    if (!ours || !theirs || ours->Width != theirs->Width || ours->Height != theirs->Height ||
        (ours->HasOpacity && !theirs->HasOpacity)) {
      return Differs(Name, form, ours ? "only we read it, or in another size, or with opacity" : fault.ToUtf8());
    }
    const std::array<int, 4> bits = BitsOfChannels(Bmp);
    for (size_t i = 0; i < ours->Bytes.size(); ++i) {
      // ImageMagick takes the fourth byte of 32 bits for an opacity also where the header tells of none.
      if (i % 4 == 3 && !ours->HasOpacity) continue;
      if ((ours->Bytes[i] ^ theirs->Bytes[i]) >> (8 - bits[i % 4]) == 0) continue;
      const size_t pixel = i / 4;
      return Differs(Name, form,
                     "channel " + std::to_string(i % 4) + " at " + std::to_string(pixel % ours->Width) + "," +
                         std::to_string(pixel / ours->Width) + ": " + std::to_string(ours->Bytes[i]) +
                         ", ImageMagick " + std::to_string(theirs->Bytes[i]));
    }
    ++FAlike[form];
  }
  // False if anything differed.
  bool Report(const char* What) const {
    std::printf("%s:\n", What);
    for (const auto& [form, count] : FAlike) std::printf("  %s: %d alike\n", form.c_str(), count);
    for (const std::string& line : FDifferences) std::printf("  DIFFERENT: %s\n", line.c_str());
    return FDifferences.empty();
  }

 private:
  void Differs(const std::string& Name, const std::string& Form, const std::string& How) {
    if (FDifferences.size() < 20) FDifferences.push_back(Name + " (" + Form + "): " + How);
  }
  std::map<std::string, int> FAlike;
  std::vector<std::string> FDifferences;
};

constexpr struct {
  const char* Name;
  const char* Format;
  ImageType Type;
  size_t Colors;  // 0 for all
  const char* Subtype;
  CompressionType Compression;
} kForms[] = {
    {"core of 1 bit", "BMP2", BilevelType, 2, nullptr, NoCompression},
    {"core of 4 bits", "BMP2", PaletteType, 16, nullptr, NoCompression},
    {"core of 8 bits", "BMP2", PaletteType, 256, nullptr, NoCompression},
    {"core of 24 bits", "BMP2", TrueColorType, 0, nullptr, NoCompression},
    {"1 bit", "BMP3", BilevelType, 2, nullptr, NoCompression},
    {"4 bits", "BMP3", PaletteType, 16, nullptr, NoCompression},
    {"8 bits", "BMP3", PaletteType, 256, nullptr, NoCompression},
    {"runs of 4 bits", "BMP3", PaletteType, 16, nullptr, RLECompression},
    {"runs of 8 bits", "BMP3", PaletteType, 256, nullptr, RLECompression},
    {"24 bits", "BMP3", TrueColorType, 0, nullptr, NoCompression},
    {"8 bits of version 4", "BMP", PaletteType, 256, nullptr, NoCompression},
    {"runs of version 4", "BMP", PaletteType, 200, nullptr, RLECompression},
    {"24 bits of version 4", "BMP", TrueColorType, 0, nullptr, NoCompression},
    {"32 bits with opacity", "BMP", TrueColorMatteType, 0, nullptr, NoCompression},
    {"fields of 5, 6 and 5 bits", "BMP", TrueColorType, 0, "RGB565", NoCompression},
    {"fields of 5 bits", "BMP", TrueColorType, 0, "RGB555", NoCompression},
    {"fields of 4 bits with opacity", "BMP", TrueColorMatteType, 0, "ARGB4444", NoCompression},
    {"fields of 5 bits with opacity", "BMP", TrueColorMatteType, 0, "ARGB1555", NoCompression},
};
constexpr size_t kSizes[][2] = {{1, 1}, {2, 3}, {3, 2}, {7, 5}, {8, 8}, {9, 4}, {33, 17}, {127, 64}, {300, 3}};

// Noise, runs of one colour, and a slope, side by side.
std::vector<uint8_t> Pixels(size_t Width, size_t Height, std::mt19937& Random) {
  std::vector<uint8_t> bytes;
  uint8_t held[4] = {};
  for (size_t y = 0; y < Height; ++y) {
    for (size_t x = 0; x < Width; ++x) {
      const bool isNoise = x * 3 < Width, isSlope = x * 3 > 2 * Width;
      for (size_t c = 0; c < 4; ++c) {
        if (isNoise || Random() % 20 == 0) held[c] = static_cast<uint8_t>(Random());
        bytes.push_back(isSlope ? static_cast<uint8_t>(x * (c + 1) + y) : held[c]);
      }
    }
  }
  return bytes;
}

bool CompareForms() {
  TComparison all;
  std::mt19937 random(7);
  for (const auto& form : kForms) {
    for (const auto& [width, height] : kSizes) {
      const std::vector<uint8_t> pixels = Pixels(width, height, random);
      const TMagick magick;
      MagickWand* wand = magick.Wand();
      MagickConstituteImage(wand, width, height, "RGBA", CharPixel, pixels.data());
      if (form.Type != TrueColorMatteType) MagickSetImageAlphaChannel(wand, DeactivateAlphaChannel);
      if (form.Colors != 0) MagickQuantizeImage(wand, form.Colors, sRGBColorspace, 0, MagickFalse, MagickFalse);
      MagickSetImageType(wand, form.Type);
      MagickSetImageDepth(wand, 8);
      MagickSetImageCompression(wand, form.Compression);
      if (form.Subtype) MagickSetOption(wand, "bmp:subtype", form.Subtype);
      MagickSetImageFormat(wand, form.Format);
      size_t size = 0;
      unsigned char* bytes = MagickGetImageBlob(wand, &size);
      if (bytes) all.Compare({reinterpret_cast<const char*>(bytes), size}, form.Name);
      MagickRelinquishMemory(bytes);
    }
  }
  return all.Report("written by ImageMagick");
}

bool CompareOwn() {
  TComparison all;
  std::mt19937 random(8);
  for (const TPixelFormat format : {pfDevice, pf1bit, pf4bit, pf8bit, pf15bit, pf16bit, pf24bit, pf32bit}) {
    for (const auto& [width, height] : kSizes) {
      for (const TAlphaFormat alpha : {afIgnored, afDefined}) {
        if (alpha == afDefined && format != pf32bit) continue;
        TBitmap bitmap(format, static_cast<int>(width), static_cast<int>(height));
        bitmap.SetAlphaFormat(alpha);
        std::vector<uint32_t> row(width);
        for (int y = 0; y < bitmap.GetHeight(); ++y) {
          std::generate(row.begin(), row.end(), [&] { return static_cast<uint32_t>(random()); });
          bitmap.SetRow(y, row);
        }
        all.Compare(EncodeBitmap(bitmap), "format " + std::to_string(format));
      }
    }
  }
  return all.Report("written by us");
}

// Broken files may be refused by us alone, which is told.
bool CompareFiles(const std::filesystem::path& Directory) {
  TComparison all;
  std::vector<std::filesystem::path> paths(std::filesystem::directory_iterator(Directory), {});
  std::sort(paths.begin(), paths.end());
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    String fault;
    if (path.extension() != ".bmp") continue;
    const std::string name = path.filename().string();
    if (Ours(bytes, fault) || !(name.starts_with("bad") || name.starts_with("short"))) {
      all.Compare(bytes, name);
    } else {
      std::printf("%s is refused: %s; ImageMagick %s\n", name.c_str(), fault.ToUtf8().c_str(),
                  TMagick().Read(bytes) ? "shows something" : "refuses it, too");
    }
  }
  return all.Report("files");
}

}  // namespace

int main(int argc, char** argv) {
  MagickWandGenesis();
  bool good = CompareForms();
  good = CompareOwn() && good;
  if (argc > 1 && std::filesystem::is_directory(argv[1])) {
    good = CompareFiles(argv[1]) && good;
  } else {
    std::printf("files: skipped, %s is no directory\n", argc > 1 ? argv[1] : "(none given)");
  }
  std::printf("%s\n", good ? "no difference" : "DIFFERENCES");
  MagickWandTerminus();
  return good ? 0 : 1;
}
