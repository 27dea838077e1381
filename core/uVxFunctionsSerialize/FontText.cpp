#include "core/uVxFunctionsSerialize/FontText.h"

#include "core/uVxFunctions/LayoutText.h"
#include "platform/Numbers.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

constexpr char16_t kDefaultName[] = u"Tahoma";
constexpr int kDefaultSize = 10;

}  // namespace

String FontToString(const TFont& Font, bool Compact) {
  String cells[4] = {Font.Name, ColorToString(Font.Color), FontStylesToString(Font.Style), IntToStr(Font.Size)};
  if (Compact && Font.Name == kDefaultName) cells[0].clear();
  if (Compact && Font.Color == clWindowText) cells[1].clear();
  return WriteCommatext(cells);
}

void StringToFont(std::u16string_view Text, TFont& Font) {
  TCells cells = ReadCommatext(Text);
  if (cells.size() != 4) return;
  Font.Name = cells[0].empty() ? String(kDefaultName) : cells[0];
  if (!TryStringToColor(cells[1], Font.Color)) Font.Color = clWindowText;
  Font.Style = StringToFontStyles(cells[2]);
  Font.Size = StrToIntDef(cells[3], kDefaultSize);
}

}  // namespace vx
