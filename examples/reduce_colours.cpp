// Reduces a picture to a number of colours, saves it, and prints how often each colour occurs in it:
//
//   reduce_colours PICTURE COLOURS OUT [transparent]
//
// OUT is a ".bmp" of 8 bits for up to 256 colours, or a ".png". With "transparent" the colour at the bottom left counts
// as transparent and stays a colour of its own.
#include <cstdio>
#include <set>
#include <vector>

#include "objects/uVxClasses.h"
#include "platform/Drawing.h"
#include "platform/Exceptions.h"
#include "platform/Numbers.h"
#include "platform/cairo/CairoDrawing.h"
#include "rendering/uBitmapX.h"

namespace {

// The pixels as indexes into a palette of the colours that occur.
void MakeIndexes(const vx::TBitmapX& Picture) {
  std::set<vx::TColor> colors;
  std::vector<vx::TRGB> row(static_cast<size_t>(Picture.GetWidth()));
  for (int y = 0; y < Picture.GetHeight(); ++y) {
    Picture.GetRow(y, row);
    for (const vx::TRGB pixel : row) colors.insert(vx::ConvertRGBToColor(pixel));
  }
  if (colors.size() > 256) return;
  std::vector<vx::TPaletteEntry> palette;
  for (const vx::TColor color : colors) {
    palette.push_back(
        {static_cast<uint8_t>(color), static_cast<uint8_t>(color >> 8), static_cast<uint8_t>(color >> 16)});
  }
  Picture.iBitmap->SetPalette(palette);
  Picture.iBitmap->SetPixelFormat(vx::pf8bit);
}

int Reduce(const vx::String& Filename, int Colours, const vx::String& OutFilename, bool UseTransparent) {
  vx::TBitmap bitmap;
  bitmap.LoadFromFile(Filename);
  const auto picture = vx::TBitmapX::CreateBitmapX(&bitmap);
  const auto reduced = picture->CompressColors(static_cast<uint16_t>(Colours), UseTransparent);
  if (!reduced) {
    std::fprintf(stderr, "The picture can't be cut into %d colours\n", Colours);
    return 1;
  }
  const auto statistic = reduced->ColorStatistic();
  for (int i = 0; i < statistic->GetCount(); ++i) std::printf("%s\n", statistic->Get(i).ToUtf8().c_str());
  if (OutFilename.view().ends_with(u".bmp")) MakeIndexes(*reduced);
  reduced->iBitmap->SaveToFile(OutFilename);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const int colours = argc > 3 ? vx::StrToIntDef(vx::String::FromUtf8(argv[2]), 0) : 0;
  if (colours < 2 || colours > 65535) {
    std::fprintf(stderr, "usage: reduce_colours PICTURE COLOURS OUT [transparent]; COLOURS from 2 on\n");
    return 2;
  }
  vx::InstallDrawing();
  try {
    return Reduce(vx::String::FromUtf8(argv[1]), colours, vx::String::FromUtf8(argv[3]), argc > 4);
  } catch (const vx::Exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
  }
}
