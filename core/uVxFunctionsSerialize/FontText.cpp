#include "core/uVxFunctionsSerialize/FontText.h"

#include "objects/uVxClasses/TextForms.h"
#include "platform/Text.h"

namespace vx {

namespace {

constexpr char16_t kDefaultName[] = u"Tahoma";
constexpr int kDefaultSize = 10;
constexpr struct {
  char16_t Unit;
  TFontStyle Style;
} kStyles[] = {{u'B', fsBold}, {u'I', fsItalic}, {u'U', fsUnderline}, {u'S', fsStrikeOut}};

}  // namespace

String FontToString(const TFont& Font, bool Compact) {
  String cells[4] = {Font.Name, ColorToString(Font.Color), String(), IntToStr(Font.Size)};
  if (Compact && Font.Name == kDefaultName) cells[0].clear();
  if (Compact && Font.Color == clWindowText) cells[1].clear();
  for (const auto& style : kStyles) {
    if (Font.Style.Has(style.Style)) cells[2] += style.Unit;
  }
  return WriteCommatext(cells);
}

void StringToFont(std::u16string_view Text, TFont& Font) {
  TCells cells = ReadCommatext(Text);
  if (cells.size() != 4) return;
  Font.Name = cells[0].empty() ? String(kDefaultName) : cells[0];
  if (!TryStringToColor(cells[1], Font.Color)) Font.Color = clWindowText;
  Font.Style = {};
  for (const auto& style : kStyles) {
    if (cells[2].view().find(style.Unit) != std::u16string_view::npos) Font.Style.Include(style.Style);
  }
  Font.Size = StrToIntDef(cells[3], kDefaultSize);
}

}  // namespace vx
