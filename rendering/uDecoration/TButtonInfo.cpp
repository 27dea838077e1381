#include "rendering/uDecoration/TButtonInfo.h"

#include <algorithm>
#include <iterator>

#include "platform/Numbers.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

// By the ordinal.
constexpr std::u16string_view kBorders[] = {u"boNone", u"boSquare", u"boCircle", u"boCell"};

TButtonBorder ToBorder(std::u16string_view Word) noexcept {
  const auto found = std::find(std::begin(kBorders), std::end(kBorders), Word);
  return found == std::end(kBorders) ? boNone : static_cast<TButtonBorder>(found - std::begin(kBorders));
}

}  // namespace

TButtonInfo::TButtonInfo(std::u16string_view aSerial, std::u16string_view aMerge) {
  if (!aSerial.empty()) SetSerialize(aSerial);
  if (!aMerge.empty()) Merge(aMerge);
}

void TButtonInfo::Merge(const TButtonInfo& aOther) {
  if (aOther.ImageIndexEnabled != -1) ImageIndexEnabled = aOther.ImageIndexEnabled;
  if (aOther.ImageIndexDisabled != -1) ImageIndexDisabled = aOther.ImageIndexDisabled;
  if (aOther.ImageIndexHover != -1) ImageIndexHover = aOther.ImageIndexHover;
  if (aOther.ImageIndexDown != -1) ImageIndexDown = aOther.ImageIndexDown;
  if (aOther.Border != boNone) Border = aOther.Border;
  if (!aOther.Caption.empty()) Caption = aOther.Caption;
  if (!aOther.Hint.empty()) Hint = aOther.Hint;
}

String TButtonInfo::GetSerialize() const {
  const String images[] = {IntToStr(ImageIndexEnabled), IntToStr(ImageIndexDisabled), IntToStr(ImageIndexHover),
                           IntToStr(ImageIndexDown)};
  const String cells[] = {WriteCommatext(images), kBorders[Border <= boCell ? Border : boNone], Caption, Hint};
  return WriteLighttext(cells);
}

void TButtonInfo::SetSerialize(std::u16string_view aText) {
  TCells cells = ReadLighttext(aText);
  cells.resize(4);
  TCells images = ReadCommatext(cells[0]);
  images.resize(4);
  ImageIndexEnabled = StrToIntDef(images[0], -1);
  ImageIndexDisabled = StrToIntDef(images[1], -1);
  ImageIndexHover = StrToIntDef(images[2], -1);
  ImageIndexDown = StrToIntDef(images[3], -1);
  Border = ToBorder(cells[1]);
  Caption = cells[2];
  Hint = cells[3];
}

}  // namespace vx
