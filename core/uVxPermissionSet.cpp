#include "core/uVxPermissionSet.h"

#include <iterator>

namespace vx {

namespace {

constexpr struct {
  std::u16string_view Text;
  int Number;
} kParts[] = {
    {u"Lesen/Ausführen", 1}, {u"Schreiben", 2}, {u"Löschen", 4}, {u"Exportieren", 8}, {u"Vollzugriff", 32768}};
static_assert(std::size(kParts) == ppFull + 1);

bool HasAny(TVXPermissionSet Value, TVXPermissionSet Of) noexcept { return !(Value * Of).IsEmpty(); }

}  // namespace

String PermissionPartToStr(TVxPermissionPart Part) { return Part <= ppFull ? kParts[Part].Text : u""; }

int PermissionPartToInt(TVxPermissionPart Part) noexcept { return Part <= ppFull ? kParts[Part].Number : 0; }

bool StrToPermissionPart(std::u16string_view Text, TVxPermissionPart& Part) noexcept {
  for (int i = ppRead; i <= ppFull; ++i) {
    if (kParts[i].Text != Text) continue;
    Part = static_cast<TVxPermissionPart>(i);
    return true;
  }
  return false;
}

int PermissionSetToInt(TVXPermissionSet Value) noexcept {
  if (Value.Has(ppFull)) return kParts[ppFull].Number;
  int result = 0;
  if (HasAny(Value, {ppRead, ppWrite, ppDelete, ppExport})) result += kParts[ppRead].Number;
  if (HasAny(Value, {ppWrite, ppDelete})) result += kParts[ppWrite].Number;
  if (Value.Has(ppDelete)) result += kParts[ppDelete].Number;
  if (Value.Has(ppExport)) result += kParts[ppExport].Number;
  return result;
}

TVXPermissionSet IntToPermissionSet(int Value) noexcept {
  TVXPermissionSet result;
  if (Value < 1) return result;
  for (TVxPermissionPart part : {ppRead, ppWrite, ppDelete, ppExport}) {
    if (Value > 15 || (Value & kParts[part].Number) != 0) result.Include(part);
  }
  if (Value >= kParts[ppFull].Number) result.Include(ppFull);
  return result;
}

String PermissionSetToStr(TVXPermissionSet Value) {
  String result;
  auto add = [&](TVxPermissionPart part) {
    if (!result.empty()) result += u',';
    result += kParts[part].Text;
  };
  if (Value.Has(ppFull)) {
    add(ppFull);
  } else if (HasAny(Value, {ppRead, ppWrite, ppExport})) {
    add(ppRead);
  }
  if (HasAny(Value, {ppWrite, ppDelete})) add(ppWrite);
  if (Value.Has(ppDelete)) add(ppDelete);
  if (Value.Has(ppExport)) add(ppExport);
  return result;
}

}  // namespace vx
