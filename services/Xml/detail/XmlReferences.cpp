// References in texts and values.
#include <algorithm>

#include "platform/Text.h"
#include "platform/detail/Utf8.h"
#include "services/Xml/detail/XmlChars.h"
#include "services/Xml/detail/XmlScanner.h"

namespace vx::detail {

namespace {

// 0 for a name that is none of the five.
char16_t PredefinedEntity(std::u16string_view Name) noexcept {
  return Name == u"lt"     ? u'<'
         : Name == u"gt"   ? u'>'
         : Name == u"amp"  ? u'&'
         : Name == u"quot" ? u'"'
         : Name == u"apos" ? u'\''
                           : u'\0';
}

// The character of u"#65" or u"#x41"; 0 if there is none.
char32_t NumberedCharacter(std::u16string_view Text) noexcept {
  const bool isHex = Text.starts_with(u"#x");
  Text.remove_prefix(isHex ? 2 : 1);
  const unsigned base = isHex ? 16 : 10;
  char32_t value = 0;
  for (char16_t unit : Text) {
    const unsigned digit = DigitValue(unit);
    if (digit >= base || value > 0x10FFFF) return 0;
    value = value * base + digit;
  }
  return IsXmlCharacter(value) ? value : 0;
}

void Append(std::u16string& Text, char32_t Character) {
  char16_t units[2];
  Text.append(units, PutCharacter(units, Character));
}

}  // namespace

// Stands at "#", and then behind the ";".
bool TXmlScanner::TakeNumber(char32_t& Character) {
  const char16_t* const at = FPos - 1;
  char16_t* end = FPos + (FPos[1] == u'x' ? 2 : 1);
  while (DigitValue(*end) < 16) ++end;
  Character = *end == u';' ? NumberedCharacter({FPos, static_cast<size_t>(end - FPos)}) : 0;
  if (Character == 0) return Fail(xfReference, end == FEnd ? FEnd : at);
  FPos = end + 1;
  return true;
}

bool TXmlScanner::TakeReference(TPieces& Pieces, bool InValue) {
  char16_t* const at = FPos;
  GoTo(at);
  Pieces.KeepUpTo(at);
  ++FPos;
  if (*FPos == u'#') {
    char32_t character = 0;
    if (!TakeNumber(character)) return false;
    char16_t units[2];
    GoTo(FPos);
    Pieces.Put({units, static_cast<size_t>(PutCharacter(units, character) - units)}, FPos);
    return true;
  }
  const char16_t* const end = EndOfXmlName(FPos);
  if (end == FPos || *end != u';') return Fail(xfReference, end == FEnd ? FEnd : at);
  const std::u16string_view name(FPos, static_cast<size_t>(end - FPos));
  FPos += name.size() + 1;
  if (const char16_t unit = PredefinedEntity(name)) {
    GoTo(FPos);
    Pieces.Put({&unit, 1}, FPos);
    return true;
  }
  TEntity* entity = nullptr;
  std::u16string expanded;
  if (!FindEntity(name, at, entity)) return false;
  entity->IsOpen = true;
  const bool isGood = Expand(entity->Text, name, InValue, at, expanded);
  entity->IsOpen = false;
  if (!isGood) return false;
  GoTo(FPos);
  Pieces.Put(expanded, FPos);
  return true;
}

bool TXmlScanner::FindEntity(std::u16string_view EntityName, const char16_t* At, TEntity*& Entity) {
  const auto found = FEntities.find(EntityName);
  if (found == FEntities.end()) return Fail(xfUnknownEntity, At, EntityName);
  Entity = &found->second;
  if (Entity->IsExternal) return Fail(xfExternalEntity, At, EntityName);
  if (Entity->IsOpen) return Fail(xfEntityLoop, At, EntityName);
  FExpanded += static_cast<int64_t>(Entity->Text.size()) + 1;
  return FExpanded <= FLimits.EntityUnits || Fail(xfLimit, At);
}

// Literal with all references in it resolved, behind Expanded. Entity is empty for a default of an attribute.
bool TXmlScanner::Expand(std::u16string_view Literal, std::u16string_view Entity, bool InValue, const char16_t* At,
                         std::u16string& Expanded) {
  struct TOpen {
    std::u16string_view Rest, Name;
    TEntity* Entity;
  };
  std::vector<TOpen> open{{Literal, Entity, nullptr}};
  bool isGood = true;
  while (isGood && !open.empty()) {
    TEntity* opened = nullptr;
    if (open.back().Rest.empty()) {
      if (open.back().Entity != nullptr) open.back().Entity->IsOpen = false;
      open.pop_back();
      continue;
    }
    const std::u16string_view before = open.back().Rest;
    isGood = ExpandNext(open.back().Rest, open.back().Name, InValue, At, Expanded, opened);
    if (isGood && opened != nullptr) {
      opened->IsOpen = true;
      open.push_back({opened->Text, before.substr(1, before.find(u';') - 1), opened});
    }
  }
  for (const TOpen& entity : open) {
    if (entity.Entity != nullptr) entity.Entity->IsOpen = false;
  }
  return isGood;
}

// The next reference, or all up to it.
bool TXmlScanner::ExpandNext(std::u16string_view& Rest, std::u16string_view Entity, bool InValue, const char16_t* At,
                             std::u16string& Expanded, TEntity*& Opened) {
  if (Rest[0] != u'&') {
    const std::u16string_view plain = Rest.substr(0, Rest.find(u'&'));
    Rest.remove_prefix(plain.size());
    if (plain.find(u'<') != plain.npos) return Fail(Entity.empty() ? xfLess : xfEntityMarkup, At, Entity);
    if (!InValue && plain.find(u"]]>") != plain.npos) return Fail(xfBrackets, At);
    const size_t first = Expanded.size();
    Expanded += plain;
    const auto isBlank = [](char16_t unit) { return IsXmlBlank(unit) || unit == u'\r'; };
    if (InValue) std::replace_if(Expanded.begin() + static_cast<ptrdiff_t>(first), Expanded.end(), isBlank, u' ');
    return true;
  }
  const size_t end = Rest.find(u';');
  if (end == Rest.npos) return Fail(xfReference, At);
  const std::u16string_view name = Rest.substr(1, end - 1);
  if (name.starts_with(u'#')) {
    const char32_t character = NumberedCharacter(name);
    if (character == 0) return Fail(xfReference, At);
    Append(Expanded, character);
  } else if (const char16_t unit = PredefinedEntity(name)) {
    Expanded += unit;
  } else if (!IsXmlName(name)) {
    return Fail(xfReference, At);
  } else if (!FindEntity(name, At, Opened)) {
    return false;
  }
  Rest.remove_prefix(end + 1);
  return true;
}

}  // namespace vx::detail
