// The document type: entities, and attributes with defaults, that stand in the file itself.
#include <algorithm>

#include "platform/detail/Utf8.h"
#include "services/Xml/detail/XmlChars.h"
#include "services/Xml/detail/XmlScanner.h"

namespace vx::detail {

namespace {

bool IsPublicId(std::u16string_view Text) noexcept {
  return std::ranges::all_of(Text, [](char16_t unit) {
    const bool isLetter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    return isLetter || (unit >= u'0' && unit <= u'9') ||
           std::u16string_view(u" \n-'()+,./:=?;!*#@$_%").find(unit) != std::u16string_view::npos;
  });
}

// Without blanks at the ends and more than one in a row.
std::u16string Collapsed(std::u16string_view Text) {
  std::u16string result;
  for (char16_t unit : Text) {
    if (unit != u' ' || (!result.empty() && result.back() != u' ')) result += unit;
  }
  if (!result.empty() && result.back() == u' ') result.pop_back();
  return result;
}

}  // namespace

// Blanks that have to be there.
bool TXmlScanner::PassBlanks() { return SkipBlanks() || Fail(xfExpected, FPos, u" "); }

bool TXmlScanner::TakeDoctype() {
  FHasDoctype = true;
  FPos += 9;
  std::u16string_view root;
  if (!PassBlanks() || !TakeName(root)) return false;
  const char16_t* const first = FPos;
  const bool isParted = SkipBlanks();
  if (isParted && (StandsAt(u"SYSTEM") || StandsAt(u"PUBLIC"))) {
    if (!TakeExternalId(true)) return false;
    SkipBlanks();
  }
  if (*FPos == u'[') {
    ++FPos;
    if (!TakeSubset()) return false;
    SkipBlanks();
  }
  const char16_t* const last = FPos;
  if (!Expect(u'>')) return false;
  Piece = xpDoctype;
  Name = root;
  Text = {first, static_cast<size_t>(last - first)};
  return true;
}

bool TXmlScanner::TakeExternalId(bool NeedsSystem) {
  const bool isPublic = *FPos == u'P';
  FPos += 6;
  std::u16string_view value;
  if (!PassBlanks()) return false;
  const char16_t* const at = FPos;
  if (!TakeLiteral(value)) return false;
  if (!isPublic) return true;
  if (!IsPublicId(value)) return Fail(xfExpected, at, u"PUBLIC");
  const bool isParted = SkipBlanks();
  if (!NeedsSystem && *FPos != u'"' && *FPos != u'\'') return true;
  return (isParted || Fail(xfExpected, FPos, u" ")) && TakeLiteral(value);
}

// What stands in brackets, up to the closing one.
bool TXmlScanner::TakeSubset() {
  for (;;) {
    SkipBlanks();
    if (*FPos == u']') {
      ++FPos;
      return true;
    }
    bool isGood = false;
    if (StandsAt(u"<!--")) {
      isGood = TakeComment();
    } else if (StandsAt(u"<?")) {
      isGood = TakeInstruction();
    } else if (StandsAt(u"<!ENTITY")) {
      isGood = TakeEntity();
    } else if (StandsAt(u"<!ATTLIST")) {
      isGood = TakeAttributeList();
    } else if (StandsAt(u"<!ELEMENT")) {
      isGood = SkipMarkup(u"<!ELEMENT");
    } else if (StandsAt(u"<!NOTATION")) {
      isGood = SkipMarkup(u"<!NOTATION");
    } else if (*FPos == u'%') {
      const char16_t* const end = EndOfXmlName(FPos + 1);
      return Fail(xfParameterEntity, FPos, {FPos + 1, static_cast<size_t>(end - FPos - 1)});
    } else {
      return Fail(xfExpected, FPos, u"]");
    }
    if (!isGood) return false;
  }
}

// Declarations that mean something to who validates only; their names are looked at, and where they end.
bool TXmlScanner::SkipMarkup(std::u16string_view Word) {
  FPos += Word.size();
  std::u16string_view name;
  if (!PassBlanks() || !TakeName(name) || !PassBlanks()) return false;
  while (*FPos != u'>') {
    if (*FPos == u'"' || *FPos == u'\'') {
      if (!TakeLiteral(name)) return false;
    } else if (*FPos == u'<' || *FPos == u'%' || FPos == FEnd) {
      return Fail(xfExpected, FPos, u">");
    } else {
      ++FPos;
    }
  }
  ++FPos;
  return true;
}

bool TXmlScanner::TakeEntity() {
  FPos += 8;
  std::u16string_view name;
  if (!PassBlanks()) return false;
  const bool isParameter = *FPos == u'%';
  if (isParameter) {
    ++FPos;
    if (!PassBlanks()) return false;
  }
  TEntity entity;
  if (!TakeName(name) || !PassBlanks()) return false;
  entity.IsExternal = StandsAt(u"SYSTEM") || StandsAt(u"PUBLIC");
  if (entity.IsExternal) {
    if (!TakeExternalId(true)) return false;
    const bool isParted = SkipBlanks();
    if (!isParameter && isParted && StandsAt(u"NDATA")) {
      FPos += 5;
      std::u16string_view notation;
      if (!PassBlanks() || !TakeName(notation)) return false;
    }
  } else if (!TakeEntityText(entity.Text)) {
    return false;
  }
  SkipBlanks();
  if (!Expect(u'>')) return false;
  if (!isParameter) FEntities.emplace(name, entity);  // the first declaration counts
  return true;
}

// Numbers become characters; other references stay until the entity is used.
bool TXmlScanner::TakeEntityText(std::u16string_view& Value) {
  std::u16string text;
  const char16_t quote = *FPos;
  if (quote != u'"' && quote != u'\'') return Fail(xfExpected, FPos, u"\"");
  for (++FPos; *FPos != quote;) {
    if (FPos == FEnd) return Fail(xfExpected, FEnd, {&quote, 1});
    if (*FPos == u'%') {
      const char16_t* const end = EndOfXmlName(FPos + 1);
      return Fail(xfParameterEntity, FPos, {FPos + 1, static_cast<size_t>(end - FPos - 1)});
    }
    if (*FPos != u'&') {
      text += *FPos++;
    } else if (FPos[1] == u'#') {
      char32_t character = 0;
      char16_t units[2];
      ++FPos;
      if (!TakeNumber(character)) return false;
      text.append(units, PutCharacter(units, character));
    } else {
      const char16_t* const end = EndOfXmlName(FPos + 1);
      if (end == FPos + 1 || *end != u';') return Fail(xfReference, FPos);
      text.append(FPos, static_cast<size_t>(end + 1 - FPos));
      FPos += end + 1 - FPos;
    }
  }
  ++FPos;
  Value = KeepText(std::move(text));
  return true;
}

bool TXmlScanner::TakeAttributeList() {
  FPos += 9;
  std::u16string_view element;
  if (!PassBlanks() || !TakeName(element)) return false;
  std::vector<TDeclaredAttribute>& list = FDeclared[element];
  for (;;) {
    const bool isParted = SkipBlanks();
    if (*FPos == u'>') break;
    if (!isParted) return Fail(xfExpected, FPos, u">");
    TDeclaredAttribute attribute;
    if (!TakeDeclaredAttribute(attribute)) return false;
    const bool isFirst = FDeclaredNames.emplace(element, attribute.Name).second;  // which counts
    if (isFirst && (attribute.HasDefault || !attribute.IsPlain)) list.push_back(attribute);
  }
  ++FPos;
  return true;
}

bool TXmlScanner::TakeDeclaredAttribute(TDeclaredAttribute& Attribute) {
  if (!TakeName(Attribute.Name) || !PassBlanks() || !TakeAttributeType(Attribute.IsPlain) || !PassBlanks())
    return false;
  for (std::u16string_view word : {u"#REQUIRED", u"#IMPLIED"}) {
    if (!StandsAt(word)) continue;
    FPos += word.size();
    return true;
  }
  if (StandsAt(u"#FIXED")) {
    FPos += 6;
    if (!PassBlanks()) return false;
  }
  return TakeDefault(Attribute);
}

bool TXmlScanner::TakeDefault(TDeclaredAttribute& Attribute) {
  const char16_t* const at = FPos;
  std::u16string_view literal;
  std::u16string value;
  if (!TakeLiteral(literal) || !Expand(literal, {}, true, at, value)) return false;
  Attribute.Default = KeepText(Attribute.IsPlain ? std::move(value) : Collapsed(value));
  Attribute.HasDefault = true;
  return true;
}

bool TXmlScanner::TakeAttributeType(bool& IsPlain) {
  std::u16string_view type;
  if (*FPos != u'(') {
    const char16_t* const at = FPos;
    if (!TakeName(type)) return false;
    static constexpr std::u16string_view kTypes[] = {u"CDATA",    u"ID",      u"IDREF",    u"IDREFS",  u"ENTITY",
                                                     u"ENTITIES", u"NMTOKEN", u"NMTOKENS", u"NOTATION"};
    if (std::ranges::find(kTypes, type) == std::end(kTypes)) return Fail(xfExpected, at, u"CDATA");
    IsPlain = type == u"CDATA";
    if (type != u"NOTATION") return true;
    if (!PassBlanks()) return false;
  }
  IsPlain = false;
  if (!Expect(u'(')) return false;
  for (;;) {
    SkipBlanks();
    const char16_t* const first = FPos;
    FPos += (type.empty() ? EndOfXmlToken(FPos) : EndOfXmlName(FPos)) - FPos;
    if (FPos == first) return Fail(xfName, FPos);
    SkipBlanks();
    if (*FPos == u')') break;
    if (!Expect(u'|')) return false;
  }
  ++FPos;
  return true;
}

// What is declared of the present element and its attributes.
void TXmlScanner::AddDeclared() {
  const auto found = FDeclared.find(Name);
  if (found == FDeclared.end()) return;
  std::map<std::u16string_view, TXmlReadAttribute*> present;
  for (TXmlReadAttribute& attribute : Attributes) present.emplace(attribute.Name, &attribute);
  std::vector<TXmlReadAttribute> added;
  for (const TDeclaredAttribute& declared : found->second) {
    const auto own = present.find(declared.Name);
    if (own == present.end()) {
      if (declared.HasDefault) added.push_back({declared.Name, declared.Default});
    } else if (!declared.IsPlain) {
      std::u16string value = Collapsed(own->second->Value);
      if (value != own->second->Value) own->second->Value = KeepText(std::move(value));
    }
  }
  Attributes.insert(Attributes.end(), added.begin(), added.end());
}

}  // namespace vx::detail
