// XML objects read and written by the rules as they are told, step by step and a call a level.
//
//   Check(PlainRead(text, model) + object.Read(text).size() == text.size(), "reading ends by the rules");
//   Check(Dump(object) == Dump(model), "XML is read by the rules");
#pragma once

#include <memory>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Text.h"
#include "services/uVxXml.h"

namespace vx::fuzz {

struct TPlainXml {
  explicit TPlainXml(std::u16string_view text) : Text(std::u16string(text) + u'\0') {}
  char16_t At(size_t ahead = 0) const { return Text[P + ahead]; }
  bool IsComment() const { return At() == u'<' && At(1) == u'!'; }
  void Comment() {
    const std::u16string rest = Text.substr(P, Text.find(u'\0', P) - P);
    const size_t end = std::min(rest.find(u"-->", 2), rest.find(u"]]>", 2));
    P += end == rest.npos ? rest.size() : end + 3;
  }
  bool Skip() {
    while ((At() > 0 && At() <= 32) || IsComment()) IsComment() ? Comment() : void(++P);
    return At() != 0;
  }
  String UpTo(std::u16string_view stops) {
    const size_t first = P;
    while (At() != 0 && stops.find(At()) == stops.npos) ++P;
    return Text.substr(first, P - first);
  }
  void Read(TXmlObject& object) {
    do {
      UpTo(u"<");
      if (At() == 0) return;
      ++P;
    } while (At() == u'!' || At() == u'?');
    if (At() == u'/') return;
    const String name = UpTo(u" >");
    object.SetName(name);
    if (At() == u' ') {
      while (Skip() && At() != u'/' && At() != u'>') {
        const String attribute = UpTo(u" =");
        Skip();
        if (At() != u'=') continue;
        ++P;
        Skip();
        String value;
        if (At() == u'"' || At() == u'\'')
          ++P, value = UpTo(u"\"'");
        else
          value = UpTo(u" ");
        if (At() != 0) ++P;
        object.AddAttribute(attribute, value);
      }
    }
    if (At() == u'>') {
      ++P;
      if (Skip() && At() != u'<') {
        String value;
        for (value = UpTo(u"<"); IsComment(); value += UpTo(u"<")) Comment();
        object.SetValue(XMLDecode(value));
      }
    }
    if (At() != 0 && At(1) == u'/') ++P;
    Skip();
    const std::u16string closing = u"/" + std::u16string(name.view());
    while (At() != 0 && Text.compare(P, closing.size(), closing) != 0) {
      auto child = std::make_unique<TXmlObject>();
      Read(*child);
      String own = child->GetName();
      if (own.empty()) continue;
      if (own.view().back() == u'/') child->SetName(own.Slice(0, own.size() - 1));
      object.Add(child.release());
    }
    if (At() != 0) P += closing.size();
  }

  std::u16string Text;
  size_t P = 0;
};

// Reads into object and returns how far.
inline size_t PlainRead(std::u16string_view text, TXmlObject& object) {
  TPlainXml plain(text);
  plain.Read(object);
  return plain.P;
}

inline String PlainWrite(const TXmlObject& object, int indent) {
  const String blanks(indent, u' '), name = UpperCase(object.GetName());
  String attributes;
  for (int i = 0; i < object.GetAttributeCount(); ++i) {
    const TXmlAttribute& a = *object.GetAttribute(i);
    if (!a.GetValue().empty()) attributes += Concat({u" ", a.GetName(), u"=\"", XMLEncode(a.GetValue()), u"\""});
  }
  TVxStringList body, lines;
  for (int i = 0; i < object.GetCount(); ++i) body.AddStrings(PlainWrite(*object.GetXml(i), indent + 2).view());
  lines.SetTextStr(object.GetValue());
  for (const String& line : lines.Items()) body.Add(XMLEncode(line));
  if (object.GetIsRoot() && body.GetCount() == 0) body.Add(blanks + u" <NULL />");
  if (attributes.empty() && body.GetCount() == 0) return {};
  lines.Clear();
  const bool isEmpty = body.GetCount() == 0;
  lines.Add(Concat({blanks, u"<", name, attributes, isEmpty ? u" />" : u">"}));
  lines.AddStrings(body);
  if (!isEmpty) lines.Add(Concat({blanks, u"</", name, u">"}));
  return lines.GetCommatext();
}

// All that an object holds.
inline String Dump(const TXmlObject& object) {
  TCells cells{object.GetName(), object.GetValue()};
  for (int i = 0; i < object.GetAttributeCount(); ++i)
    cells.insert(cells.end(), {u"@", object.GetAttribute(i)->GetName(), object.GetAttribute(i)->GetValue()});
  for (int i = 0; i < object.GetCount(); ++i) cells.push_back(u">" + Dump(*object.GetXml(i)));
  return WriteOffsettext(cells);
}

}  // namespace vx::fuzz
