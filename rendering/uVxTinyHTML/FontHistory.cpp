#include "rendering/uVxTinyHTML/FontHistory.h"

#include <algorithm>
#include <cmath>

#include "core/uVxFunctions.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx {

namespace {

constexpr std::u16string_view kNames[] = {u"b", u"i", u"u", u"s"};
constexpr TFontStyle kStyles[] = {fsBold, fsItalic, fsUnderline, fsStrikeOut};

// The text between the quotes of an attribute of a font mark; empty if there is none.
String AttributeOf(const String& Mark, std::u16string_view Pattern) {
  TVxStringList parts;
  if (!StrMatch(Mark, Pattern, true, &parts) || parts.GetCount() < 4) return {};
  return parts.Get(3);
}

int Held(Extended Size) noexcept {
  if (std::isnan(Size)) return 0;
  return static_cast<int>(std::llrint(std::clamp<Extended>(Size, INT32_MIN, INT32_MAX)));
}

}  // namespace

TFontHistory::TKind TFontHistory::KindOf(std::u16string_view Name) noexcept {
  return static_cast<TKind>(std::find(std::begin(kNames), std::end(kNames), Name) - std::begin(kNames));
}

bool TFontHistory::OpenMark(std::u16string_view Tag) {
  const String mark = LowerCase(String(Tag));
  const TKind kind = KindOf(mark);
  if (kind == kFont) {
    if (!mark.view().starts_with(u"font")) return false;
    TFontMark values{AttributeOf(mark, u"font*color*=*\"*\"*"), AttributeOf(mark, u"font*size*=*\"*\"*")};
    if (values.Color.empty() && values.Size.empty()) return false;
    iFontMarks.push_back(std::move(values));
  }
  iOpen[kind].push_back(iMarks.size());
  iMarks.push_back(mark);
  return true;
}

bool TFontHistory::CloseMark(std::u16string_view Tag) {
  const String mark = LowerCase(String(Tag));
  if (mark.empty() || mark[0] != u'/') return false;
  const std::u16string_view name = mark.view().substr(1);
  const TKind kind = KindOf(name);
  if ((kind == kFont && name != u"font") || iOpen[kind].empty()) return false;
  iMarks[iOpen[kind].back()].clear();
  iOpen[kind].pop_back();
  while (!iMarks.empty() && iMarks.back().empty()) iMarks.pop_back();
  if (kind == kFont) {
    iFontMarks.pop_back();
    iLooks.resize(std::min(iLooks.size(), iFontMarks.size()));
  }
  return true;
}

TFontHistory::TLook TFontHistory::Applied(const TFontMark& Mark, TLook Look) const {
  if (!Mark.Color.empty()) Look.Color = StringToColorDef(Mark.Color, Look.Color);
  if (Mark.Size.empty()) return Look;
  const bool isAdded = Mark.Size[0] == u'+' || Mark.Size[0] == u'-';
  const int scaled = Held(StrToIntDef(Mark.Size, isAdded ? 0 : Look.Size) * scaling);
  Look.Size = isAdded ? Held(Extended{1} * Look.Size + scaled) : scaled;
  return Look;
}

TFont TFontHistory::toFont(const TFont& Base) const {
  TFont font = Base;
  for (int kind = kBold; kind < kFont; ++kind) {
    if (!iOpen[kind].empty()) font.Style.Include(kStyles[kind]);
  }
  const TLook base{Base.Color, Base.Size};
  if (base != iLookBase || scaling != iLookScaling) {
    iLooks.clear();
    iLookBase = base;
    iLookScaling = scaling;
  }
  while (iLooks.size() < iFontMarks.size()) {
    iLooks.push_back(Applied(iFontMarks[iLooks.size()], iLooks.empty() ? base : iLooks.back()));
  }
  if (!iLooks.empty()) {
    font.Color = iLooks.back().Color;
    font.Size = iLooks.back().Size;
  }
  return font;
}

std::unique_ptr<TVxStringList> TFontHistory::GetChangeList() const {
  auto list = std::make_unique<TVxStringList>();
  for (const String& mark : iMarks) {
    if (!mark.empty()) list->Add(mark);
  }
  return list;
}

}  // namespace vx
