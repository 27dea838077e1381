#include "core/uVxFunctionsSerialize/FieldTypes.h"

#include <algorithm>
#include <iterator>

#include "platform/Collation.h"
#include "platform/Numbers.h"

namespace vx {

namespace {

constexpr int kCount = static_cast<int>(FIELDTYPESTRINGS.size());

constexpr struct {
  std::u16string_view German, Internal;
} kWords[] = {{u"Unbekannt", u"Unknown"},
              {u"Kurztext", u"ShortString"},
              {u"Text", u"String"},
              {u"Wahrheitswert", u"Boolean"},
              {u"Zahl", u"Integer"},
              {u"Kommazahl", u"Float"},
              {u"Datum", u"Date"},
              {u"Zeit", u"Time"},
              {u"Mehrzeilentext", u"Commatext"},
              {u"Zeitpunkt", u"DateTime"},
              {u"Status", u"Status"},
              {u"Bild", u"Image"},
              {u"Stunden", u"Hour"},
              {u"Währung", u"Currency"},
              {u"Bruch", u"Fraction"},
              {u"HTML", u"TinyHTML"},
              {u"Schalter", u"Toggle"},
              {u"Grafik", u"Grafik"},
              {u"Knopf", u"Button"}};
static_assert(std::size(kWords) == FIELDTYPESTRINGS.size() && vftButton + 1 == kCount);

// An index into the tables.
size_t IndexOf(TVxFieldType Type) noexcept { return Type < kCount ? Type : vftUnknown; }

template <typename F>
int Find(F&& Matches) noexcept {
  auto found = std::find_if(FIELDTYPESTRINGS.begin(), FIELDTYPESTRINGS.end(), Matches);
  return found == FIELDTYPESTRINGS.end() ? -1 : static_cast<int>(found - FIELDTYPESTRINGS.begin());
}

}  // namespace

String FieldTypeToStr(TVxFieldType Type) { return FIELDTYPESTRINGS[IndexOf(Type)]; }

TVxFieldType StrToFieldType(std::u16string_view Text) noexcept {
  return IntToVxFieldType(Find([&](std::u16string_view name) { return name == Text; }));
}

int GetVxFieldType(std::u16string_view Text) noexcept {
  int number;
  if (TryStrToInt(Text, number)) return IntToVxFieldType(number);
  // Texts that differ in case alone are equally long.
  return Find([&](std::u16string_view name) { return name.size() == Text.size() && AnsiSameText(name, Text); });
}

bool IsVxFieldType(std::u16string_view Text) noexcept { return GetVxFieldType(Text) >= 0; }

TVxFieldType IntToVxFieldType(int Value) noexcept {
  return Value > vftUnknown && Value < kCount ? static_cast<TVxFieldType>(Value) : vftUnknown;
}

String VxFieldTypeToText(TVxFieldType Type, bool German) {
  const auto& words = kWords[IndexOf(Type)];
  return German ? words.German : words.Internal;
}

String BoolExtToStr(TBoolExt Value) { return Value == bFalse ? u"0" : Value == bTrue ? u"1" : u""; }

TBoolExt StrToBoolExt(std::u16string_view Text) noexcept {
  if (Text.empty()) return bNone;
  return Text == u"1" ? bTrue : bFalse;
}

}  // namespace vx
