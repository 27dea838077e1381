#include "rendering/uRGBSpace.h"

#include <algorithm>

#include "core/uVxFunctions/Rounding.h"
#include "platform/Numbers.h"

namespace vx {
namespace {

constexpr int kSide = 64;
constexpr TRGB kNoBox{0, 0, 0, 255};

uint8_t& ChannelOf(TRGB& Color, TBaseColor Channel) noexcept {
  return Channel == bcRed ? Color.Red : Channel == bcGreen ? Color.Green : Color.Blue;
}

size_t CellOf(TRGB Color) noexcept {
  return static_cast<size_t>(Color.Blue >> 2) << 12 | static_cast<size_t>(Color.Red >> 2) << 6 |
         static_cast<size_t>(Color.Green >> 2);
}

}  // namespace

TIntArr64D3::TIntArr64D3() : FCounts(kSide * kSide * kSide), FSums(kSumSide * kSumSide * kSumSide) {}

void TIntArr64D3::Clear() noexcept { std::fill(FCounts.begin(), FCounts.end(), 0); }

void TIntArr64D3::SumUp() noexcept {
  for (int blue = 0; blue < static_cast<int>(kSide); ++blue) {
    for (int red = 0; red < static_cast<int>(kSide); ++red) {
      uint32_t* sums =
          FSums.data() + ((static_cast<size_t>(blue) + 1) * kSumSide + static_cast<size_t>(red) + 1) * kSumSide;
      const uint32_t* byRed = sums - kSumSide;
      const uint32_t* byBlue = sums - kSumSide * kSumSide;
      const uint32_t* byBoth = byBlue - kSumSide;
      const int32_t* counts = FCounts.data() + IndexOf(blue, red, 0);
      uint32_t line = 0;
      for (size_t green = 0; green < kSide; ++green) {
        line += static_cast<uint32_t>(counts[green]);
        sums[green + 1] = line + byRed[green + 1] + byBlue[green + 1] - byBoth[green + 1];
      }
    }
  }
}

uint32_t TIntArr64D3::SumBelow(int Blue, int Red, int Green) const noexcept {
  return FSums[(static_cast<size_t>(Blue) * kSumSide + static_cast<size_t>(Red)) * kSumSide +
               static_cast<size_t>(Green)];
}

int TIntArr64D3::CountOf(TRGB Low, TRGB High) const noexcept {
  auto held = [](int Corner) { return std::min(Corner, static_cast<int>(kSide)); };
  const int blue = held(Low.Blue), red = held(Low.Red), green = held(Low.Green);
  const int blueEnd = held(High.Blue + 1), redEnd = held(High.Red + 1), greenEnd = held(High.Green + 1);
  if (blue >= blueEnd || red >= redEnd || green >= greenEnd) return 0;
  return static_cast<int>(SumBelow(blueEnd, redEnd, greenEnd) - SumBelow(blue, redEnd, greenEnd) -
                          SumBelow(blueEnd, red, greenEnd) - SumBelow(blueEnd, redEnd, green) +
                          SumBelow(blue, red, greenEnd) + SumBelow(blue, redEnd, green) +
                          SumBelow(blueEnd, red, green) - SumBelow(blue, red, green));
}

TRGBSubSpace& TRGBSubSpaceList::GetSpace(int Index) const { return static_cast<TRGBSubSpace&>(*Get(Index)); }

TRGB TRGBSubSpaceList::GetAveColor(TRGB Color64) {
  if (ilastIndex < 0 || ilastIndex >= GetCount() || !GetSpace(ilastIndex).inSpace(Color64)) {
    ilastIndex = 0;
    while (ilastIndex < GetCount() && !GetSpace(ilastIndex).inSpace(Color64)) ++ilastIndex;
  }
  return ilastIndex < GetCount() ? GetSpace(ilastIndex).iaveColor : kNoBox;
}

String TRGBSubSpaceList::GetSpacesCommatext() const {
  TVxStringList lines;
  for (int i = 0; i < GetCount(); ++i) lines.Add(GetSpace(i).GetSpaceCommatext());
  return lines.GetTextStr();
}

TRGBSubSpace::TRGBSubSpace(TRGBSubSpace* Parent) : iParent(Parent) {
  if (!Parent) return;
  iBitmapX = Parent->iBitmapX;
  iLevel = static_cast<int16_t>(Parent->iLevel + 1);
  imaxRGB = Parent->imaxRGB;
  iminRGB = Parent->iminRGB;
  iP3D = Parent->iP3D;
}

void TRGBSubSpace::ClearSpaces() {
  icutColor = bcNone;
  iSpaces.Clear();
}

bool TRGBSubSpace::inSpace(TRGB Color64) const noexcept {
  auto within = [](uint8_t Low, uint8_t Value, uint8_t High) { return Low <= Value && Value <= High; };
  return within(iminRGB.Red, Color64.Red, imaxRGB.Red) && within(iminRGB.Green, Color64.Green, imaxRGB.Green) &&
         within(iminRGB.Blue, Color64.Blue, imaxRGB.Blue);
}

void TRGBSubSpace::AddSpaces(TRGBSubSpaceList& List) const {
  for (TObject* space : iSpaces.Items()) List.Add(space);
}

String TRGBSubSpace::GetSpaceCommatext() const {
  std::vector<String> cells;
  for (uint8_t bound : {iminRGB.Red, iminRGB.Green, iminRGB.Blue, imaxRGB.Red, imaxRGB.Green, imaxRGB.Blue}) {
    cells.push_back(IntToStr(bound));
  }
  cells.push_back(Concat({IntToStr(iaveColor.Red), u".", IntToStr(iaveColor.Green), u".", IntToStr(iaveColor.Blue)}));
  return WriteCommatext(cells);
}

int TRGBSubSpace::AreaCount(TBaseColor Color, int Value) const noexcept {
  if (!iP3D || Color == bcNone || Value < 0 || Value >= kSide) return 0;
  TRGB low = iminRGB, high = imaxRGB;
  ChannelOf(low, Color) = ChannelOf(high, Color) = static_cast<uint8_t>(Value);
  return iP3D->CountOf(low, high);
}

void TRGBSubSpace::CompressSpace() noexcept {
  for (TBaseColor axis : {bcGreen, bcRed, bcBlue}) {
    uint8_t& low = ChannelOf(iminRGB, axis);
    uint8_t& high = ChannelOf(imaxRGB, axis);
    while (low <= high && AreaCount(axis, low) == 0) ++low;
    while (high > low && AreaCount(axis, high) == 0) --high;
  }
}

bool TRGBSubSpace::DivideSpace() {
  ClearSpaces();
  const int red = imaxRGB.Red - iminRGB.Red, green = imaxRGB.Green - iminRGB.Green, blue = imaxRGB.Blue - iminRGB.Blue;
  icutColor = red <= green && green >= blue ? bcGreen : red >= blue ? bcRed : bcBlue;
  int low = ChannelOf(iminRGB, icutColor), high = ChannelOf(imaxRGB, icutColor);
  // Counted as 32 bits that wrap.
  uint32_t lowCount = static_cast<uint32_t>(AreaCount(icutColor, low));
  uint32_t highCount = static_cast<uint32_t>(AreaCount(icutColor, high));
  while (low + 1 < high) {
    if (static_cast<int32_t>(highCount) >= static_cast<int32_t>(lowCount)) {
      lowCount += static_cast<uint32_t>(AreaCount(icutColor, ++low));
    } else {
      highCount += static_cast<uint32_t>(AreaCount(icutColor, --high));
    }
  }
  auto lower = std::make_unique<TRGBSubSpace>(this), upper = std::make_unique<TRGBSubSpace>(this);
  ChannelOf(lower->imaxRGB, icutColor) = static_cast<uint8_t>(low);
  ChannelOf(upper->iminRGB, icutColor) = static_cast<uint8_t>(high);
  for (auto* half : {&lower, &upper}) {
    (*half)->CompressSpace();
    iSpaces.Add(half->get());
    static_cast<void>(half->release());  // the list's
  }
  return true;
}

// The sums are of 32 bits and wrap.
void TRGBSubSpace::CalculateAverage() {
  uint32_t count = 0, sums[3] = {};
  for (int blue = iminRGB.Blue; blue <= std::min<int>(imaxRGB.Blue, kSide - 1); ++blue) {
    for (int red = iminRGB.Red; red <= std::min<int>(imaxRGB.Red, kSide - 1); ++red) {
      for (int green = iminRGB.Green; green <= std::min<int>(imaxRGB.Green, kSide - 1); ++green) {
        const int cell = iP3D->Get(blue, red, green);
        if (cell <= 0) continue;
        const auto pixels = static_cast<uint32_t>(cell);
        count += pixels;
        sums[0] += pixels * static_cast<uint32_t>(red);
        sums[1] += pixels * static_cast<uint32_t>(green);
        sums[2] += pixels * static_cast<uint32_t>(blue);
      }
    }
  }
  TRGB average;
  const auto all = static_cast<int32_t>(count);
  uint8_t* const channels[] = {&average.Red, &average.Green, &average.Blue};
  for (int i = 0; all >= 1 && i < 3; ++i) {
    ProtectRound64(static_cast<Extended>(static_cast<int32_t>(sums[i])) / all, *channels[i]);
  }
  iaveColor = RGBFrom64(average);
}

TRGBSpace::TRGBSpace(const TBitmapX& BitmapX, uint16_t maxColor, bool UseTransparent) : imaxColor(maxColor) {
  iBitmapX = &BitmapX;
  if (UseTransparent) {
    itransRGB = BitmapX.GetHeight() > 0 ? BitmapX.GetPixels(0, BitmapX.GetHeight() - 1) : TRGB{};
    imaxColor = static_cast<uint16_t>(maxColor - 1);
  }
  iLevel = 0;
  iP3D = &FCounts;
  NewP3D();
}

void TRGBSpace::ClearSpaces() {
  iVSpaces.Clear();
  TRGBSubSpace::ClearSpaces();
}

void TRGBSpace::NewP3D() {
  FCounts.Clear();
  std::vector<TRGB> row(static_cast<size_t>(iBitmapX->GetWidth()));
  const bool isTransparent = Transparent();
  for (int y = 0; y < iBitmapX->GetHeight(); ++y) {
    iBitmapX->GetRow(y, row);
    for (TRGB pixel : row) {
      if (!isTransparent || !EqualsRGB(pixel, itransRGB)) FCounts.Add(RGBTo64(pixel));
    }
  }
  FCounts.SumUp();
  iminRGB = {};
  imaxRGB = {kSide - 1, kSide - 1, kSide - 1, 0};
  CompressSpace();
}

// Divides the boxes of that level from the last one up, until there are as many as wanted. The result is the count that
// the last one came to.
int TRGBSpace::CutLevel(int Level, bool& Divided) {
  std::vector<TRGBSubSpace*> halves;
  int count = 0, at = iVSpaces.GetCount() - 1;
  for (; at >= 0 && count < imaxColor && iVSpaces.GetSpace(at).iLevel == Level; --at) {
    TRGBSubSpace& space = iVSpaces.GetSpace(at);
    Divided = space.DivideSpace();
    count = 2 + at + static_cast<int>(halves.size());  // the others, and two for this one
    if (count > imaxColor) {
      space.ClearSpaces();
      break;
    }
    for (TObject* half : space.iSpaces.Items()) halves.push_back(static_cast<TRGBSubSpace*>(half));
  }
  iVSpaces.SetCount(at + 1);
  for (TRGBSubSpace* half : halves) iVSpaces.Add(half);
  return count;
}

// False if there are fewer boxes than wanted in the end.
bool TRGBSpace::Cut() {
  ClearSpaces();
  DivideSpace();
  AddSpaces(iVSpaces);
  int count = 0;
  bool isDivided = true;
  while (count < imaxColor && isDivided) {
    isDivided = false;
    count = CutLevel(iVSpaces.GetSpace(iVSpaces.GetCount() - 1).iLevel, isDivided);
  }
  return count >= imaxColor;
}

std::unique_ptr<TBitmapXWrite> TRGBSpace::Render(TBitmap* Bitmap) {
  if (!Cut()) return nullptr;
  for (int i = 0; i < iVSpaces.GetCount(); ++i) iVSpaces.GetSpace(i).CalculateAverage();
  // The picture stays what it is also if it is painted on.
  TBitmap copy;
  std::unique_ptr<TBitmapX> held;
  if (Bitmap && Bitmap == iBitmapX->iBitmap && iBitmapX->iOk) {
    copy = *Bitmap;
    held = TBitmapX::CreateBitmapX(&copy);
  }
  std::unique_ptr<TBitmapXWrite> target;
  if (!Bitmap) {
    target = iBitmapX->Render();
  } else if (Bitmap->GetPixelFormat() == pf32bit) {
    Bitmap->SetSize(iBitmapX->GetWidth(), iBitmapX->GetHeight());
    target = std::make_unique<TBitmap32>(Bitmap);
  } else {
    SetBitmapDimension(*Bitmap, pf24bit, iBitmapX->GetWidth(), iBitmapX->GetHeight());
    target = std::make_unique<TBitmap24>(Bitmap);
  }
  Paint(*target, held ? *held : *iBitmapX);
  return target;
}

// The average of each cell's first box stands in one table, so that no pixel searches the boxes.
void TRGBSpace::Paint(TBitmapXWrite& Target, const TBitmapX& Picture) {
  std::vector<TRGB> averages(size_t{kSide} * kSide * kSide, kNoBox);
  for (int i = iVSpaces.GetCount(); i-- > 0;) {
    const TRGBSubSpace& space = iVSpaces.GetSpace(i);
    for (int blue = space.iminRGB.Blue; blue <= space.imaxRGB.Blue && blue < kSide; ++blue) {
      for (int red = space.iminRGB.Red; red <= space.imaxRGB.Red && red < kSide; ++red) {
        const int end = std::min<int>(space.imaxRGB.Green, kSide - 1);
        for (int green = space.iminRGB.Green; green <= end; ++green) {
          averages[(static_cast<size_t>(blue) * kSide + static_cast<size_t>(red)) * kSide +
                   static_cast<size_t>(green)] = space.iaveColor;
        }
      }
    }
  }
  TRGB written = itransRGB;
  for (uint8_t* channel : {&written.Red, &written.Green, &written.Blue}) {
    if ((*channel + 1) % 4 == 0) --*channel;
  }
  const auto width = static_cast<size_t>(Picture.GetWidth());
  std::vector<TRGB> row(width), old(Transparent() ? width : 0);
  for (int y = 0; y < Picture.GetHeight(); ++y) {
    Picture.GetRow(y, row);
    if (Transparent()) Target.GetRow(y, old);
    for (size_t x = 0; x < width; ++x) {
      row[x] = !old.empty() && EqualsRGB(old[x], itransRGB) ? written : averages[CellOf(row[x])];
    }
    Target.SetRow(y, row);
  }
}

}  // namespace vx
