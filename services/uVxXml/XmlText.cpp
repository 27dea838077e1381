#include "services/uVxXml/XmlText.h"

#include <algorithm>

#include "platform/Scan.h"
#include "platform/Text.h"
#include "platform/TextBuffer.h"
#include "services/uVxXml/detail/Escapes.h"

namespace vx {

namespace {

// What stands at an "&", and how many units of the text it takes.
struct TEntity {
  char16_t Unit;
  size_t Size;
};

char16_t CharacterOf(std::u16string_view Digits) {
  if (!std::all_of(Digits.begin(), Digits.end(), IsDigit)) return u' ';
  unsigned code = 0;  // of four digits at most
  for (char16_t digit : Digits) code = 10 * code + DigitValue(digit);
  return static_cast<char16_t>(code);
}

TEntity EntityAt(const char16_t* First, const char16_t* Last) {
  struct TNamed {
    std::u16string_view Name;
    char16_t Unit;
  };
  static constexpr TNamed kNamed[] = {{u"lt", u'<'},   {u"gt", u'>'},   {u"amp", u'&'},  {u"quot", u'"'},
                                      {u"auml", u'ä'}, {u"ouml", u'ö'}, {u"uuml", u'ü'}, {u"nbsp", u' '}};
  constexpr ptrdiff_t kFarthest = 6;
  const char16_t* limit = First + 1 + std::min<ptrdiff_t>(kFarthest, Last - First - 1);
  const char16_t* end = std::find(First + 1, limit, u';');
  if (end == limit) return {u'&', 1};
  const std::u16string_view name(First + 1, static_cast<size_t>(end - First - 1));
  if (name.size() >= 2 && name[0] == u'#') return {CharacterOf(name.substr(1)), name.size() + 2};
  for (const TNamed& named : kNamed) {
    if (SameAscii(name, named.Name)) return {named.Unit, name.size() + 2};
  }
  return {u'&', 1};
}

bool IsBlank(char16_t Unit) { return Unit == u'\t' || Unit == u' '; }
bool IsLineEnd(char16_t Unit) { return Unit == u'\n' || Unit == u'\r'; }

}  // namespace

String XMLEncode(std::u16string_view Text) {
  return String::Build(xml::EncodedSize(Text), [&](char16_t* target) { xml::PutEncoded(target, Text); });
}

String XMLDecode(std::u16string_view Text) {
  const char16_t* const end = Text.data() + Text.size();
  const char16_t* const first = scan::FindUnit(Text.data(), end, u'&');
  size_t total = Text.size();
  for (const char16_t* pos = first; pos != end;) {
    const size_t size = EntityAt(pos, end).Size;
    total -= size - 1;
    pos = scan::FindUnit(pos + size, end, u'&');
  }
  if (total == Text.size()) return Text;
  return String::Build(total, [&](char16_t* target) {
    target = std::copy(Text.data(), first, target);
    for (const char16_t* pos = first; pos != end;) {
      const TEntity entity = EntityAt(pos, end);
      *target++ = entity.Unit;
      pos += entity.Size;
      const char16_t* next = scan::FindUnit(pos, end, u'&');
      target = std::copy(pos, next, target);
      pos = next;
    }
  });
}

String StripHTMLTags(std::u16string_view Text) {
  TTextBuffer kept;
  bool inTag = false;
  for (size_t i = 0; i < Text.size(); ++i) {
    const char16_t unit = Text[i];
    if (unit == u'<' || unit == u'>') inTag = unit == u'<';
    if (inTag || unit == u'>' || IsLineEnd(unit)) continue;
    if (IsBlank(unit) && i + 1 < Text.size()) {
      const char16_t next = Text[i + 1];
      if (IsBlank(next) || IsLineEnd(next) || next == u'<') continue;
    }
    kept.Add(unit);
  }
  String result = kept.ToString();
  result = ReplaceAll(result, u"&quot;", u"\"");
  result = ReplaceAll(result, u"&apos;", u"'");
  result = ReplaceAll(result, u"&gt;", u">");
  result = ReplaceAll(result, u"&lt;", u"<");
  return ReplaceAll(result, u"&amp;", u"&");
}

}  // namespace vx
