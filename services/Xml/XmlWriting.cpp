// Trees as XML.
#include <algorithm>
#include <array>
#include <utility>

#include "platform/CodePage.h"
#include "platform/Encoding.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "services/Xml/XmlFiles.h"
#include "services/Xml/detail/XmlChars.h"
#include "services/Xml/detail/XmlInput.h"

namespace vx {

namespace {

enum TPlace : uint8_t { plText, plValue, plCData, plComment, plName };

constexpr bool IsPlainAscii(char16_t Unit, TPlace Place) noexcept {
  if (Unit < u' ') return (Unit == u'\n' || Unit == u'\t') && Place != plValue;
  if (Place == plCData) return Unit != u']';
  const bool isMarkup = Unit == u'<' || Unit == u'>' || Unit == u'&' || (Unit == u'"' && Place == plValue);
  return !isMarkup || Place >= plComment;
}
// A bit for each place where the unit can stand as it is.
constexpr auto kPlainAscii = [] {
  std::array<uint8_t, 128> places{};
  for (char16_t unit = 0; unit < 128; ++unit) {
    for (TPlace place : {plText, plValue, plCData, plComment, plName}) {
      if (IsPlainAscii(unit, place)) places[unit] = static_cast<uint8_t>(places[unit] | 1 << place);
    }
  }
  return places;
}();

class TXmlWriter {
 public:
  TXmlWriter(const TXmlDocument& Document, const TXmlForm& Form)
      : FTop(Document.GetTop()), FForm(Form), FIsUnicode(IsUnicode(Form.Encoding)) {
    const int page = detail::CodePageOfXml(Form.Encoding);
    FPage = page == 0 ? nullptr : TCodePage::Find(page);
  }

  TXmlWritten Write() {
    TXmlWritten result;
    PutDeclaration();
    if (PutTree()) {
      result.Bytes = Encoded();
    } else {
      result.Fault = std::move(FFault);
    }
    return result;
  }

 private:
  static bool IsUnicode(TXmlEncoding Encoding) noexcept { return Encoding <= xeUtf16BigEndian; }

  bool Fail(TXmlFaultKind Kind, std::u16string_view Detail = {}) {
    FFault.Kind = Kind;
    FFault.Detail = Detail;
    return false;
  }

  void PutDeclaration() {
    if (!FForm.HasDeclaration && FIsUnicode) return;
    FText += u"<?xml version=\"1.0\" encoding=\"";
    FText += XmlEncodingName(FForm.Encoding).view();
    FText += u'"';
    if (FForm.Standalone != xsNotTold)
      FText += FForm.Standalone == xsYes ? u" standalone=\"yes\"" : u" standalone=\"no\"";
    FText += u"?>\n";
  }

  bool PutTree() {
    int roots = 0;
    for (const TXmlNode& node : FTop.Children()) {
      roots += node.IsElement();
      const bool isText = node.GetKind() == xnText || node.GetKind() == xnCData;
      if (isText || roots > 1 || (node.GetKind() == xnDoctype && roots > 0)) return Fail(xfOutside);
      if (!PutNodes(node)) return false;
      FText += u'\n';
    }
    return roots == 1 || Fail(xfNoElement);
  }

  // A node with all that is in it.
  bool PutNodes(const TXmlNode& First) {
    for (const TXmlNode* node = &First;;) {
      if (!PutNode(*node)) return false;
      if (node->GetFirst() != nullptr) {
        EnterNode(*node);
        node = node->GetFirst();
        BeginLine();
        continue;
      }
      while (node != &First && node->GetNext() == nullptr) {
        node = node->GetParent();
        LeaveNode(*node);
      }
      if (node == &First) return true;
      node = node->GetNext();
      BeginLine();
    }
  }

  // --- lines; what stands in an element with a text is written as it is ---
  void EnterNode(const TXmlNode& Node) {
    ++FDepth;
    const auto isText = [](const TXmlNode& child) { return child.GetKind() == xnText || child.GetKind() == xnCData; };
    if (FForm.Indent <= 0 || FMixedDepth > 0) return;
    for (const TXmlNode& child : Node.Children()) {
      if (isText(child)) FMixedDepth = FDepth;
    }
  }
  void LeaveNode(const TXmlNode& Node) {
    const bool isMixed = FMixedDepth > 0;
    if (FMixedDepth == FDepth) FMixedDepth = 0;
    --FDepth;
    if (!isMixed) BeginLine();
    FText += u"</";
    FText += Node.GetName();
    FText += u'>';
  }
  void BeginLine() {
    constexpr int kDeepest = 100;  // so that the blanks do not grow with the square of the depth
    if (FForm.Indent <= 0 || FMixedDepth > 0) return;
    FText += u'\n';
    FText.append(static_cast<size_t>(FForm.Indent) * static_cast<size_t>(std::min(FDepth, kDeepest)), u' ');
  }

  // --- nodes ---
  // An element up to its children.
  bool PutNode(const TXmlNode& Node) {
    switch (Node.GetKind()) {
      case xnElement:
        return PutStart(Node);
      case xnText:
        return PutText(Node.GetValue(), plText);
      case xnCData:
        FText += u"<![CDATA[";
        if (!PutText(Node.GetValue(), plCData)) return false;
        FText += u"]]>";
        return true;
      case xnComment:
        return PutComment(Node.GetValue());
      case xnInstruction:
        return PutInstruction(Node);
      case xnDoctype:
        return PutDoctype(Node);
      case xnDocument:
        break;
    }
    return Fail(xfOutside);
  }
  bool PutStart(const TXmlNode& Node) {
    FText += u'<';
    if (!PutName(Node.GetName())) return false;
    for (const TXmlAttr& attr : Node.Attributes()) {
      FText += u' ';
      if (!PutName(attr.GetName())) return false;
      FText += u"=\"";
      if (!PutText(attr.GetValue(), plValue)) return false;
      FText += u'"';
    }
    FText += Node.GetFirst() == nullptr ? u"/>" : u">";
    return true;
  }
  bool PutComment(std::u16string_view Value) {
    if (Value.find(u"--") != Value.npos || Value.ends_with(u'-')) return Fail(xfDashes);
    FText += u"<!--";
    if (!PutText(Value, plComment)) return false;
    FText += u"-->";
    return true;
  }
  bool PutInstruction(const TXmlNode& Node) {
    const std::u16string_view value = Node.GetValue();
    if (SameAscii(Node.GetName(), u"xml") || value.find(u"?>") != value.npos) return Fail(xfInstruction);
    FText += u"<?";
    if (!PutName(Node.GetName())) return false;
    if (!value.empty()) FText += u' ';
    if (!PutText(value, plComment)) return false;
    FText += u"?>";
    return true;
  }
  bool PutDoctype(const TXmlNode& Node) {
    if (Node.GetParent() != &FTop) return Fail(xfOutside);
    FText += u"<!DOCTYPE ";
    if (!PutName(Node.GetName()) || !PutText(Node.GetValue(), plComment)) return false;
    FText += u'>';
    return true;
  }
  bool PutName(std::u16string_view Name) {
    return detail::IsXmlName(Name) ? PutText(Name, plName) : Fail(xfName, Name);
  }

  // --- texts ---
  // Whether the unit can stand there as it is; a half of a pair is looked at as a whole.
  bool IsPlain(char16_t Unit, TPlace Place) const noexcept {
    if (Unit >= 128) {
      const bool isCharacter = Unit < 0xD800 || (Unit >= 0xE000 && Unit < 0xFFFE);
      return isCharacter && (FIsUnicode || (FPage != nullptr && FPage->CanEncode(Unit)));
    }
    return (kPlainAscii[Unit] >> Place & 1) != 0;
  }

  bool PutText(std::u16string_view Text, TPlace Place) {
    for (size_t pos = 0; pos < Text.size();) {
      size_t end = pos;
      while (end < Text.size() && IsPlain(Text[end], Place)) ++end;
      FText += Text.substr(pos, end - pos);
      pos = end;
      if (pos < Text.size() && !PutSpecial(Text, pos, Place)) return false;
    }
    return true;
  }

  // A character that cannot simply stand there, and behind it.
  bool PutSpecial(std::u16string_view Text, size_t& Pos, TPlace Place) {
    const char16_t unit = Text[Pos];
    const bool isPair = detail::IsHighSurrogate(unit) && Pos + 1 < Text.size() && detail::IsLowSurrogate(Text[Pos + 1]);
    const char32_t character = isPair ? detail::JoinSurrogates(unit, Text[Pos + 1]) : unit;
    const std::u16string_view all = Text.substr(Pos, isPair ? 2 : 1);
    if (!detail::IsXmlCharacter(character)) return Fail(xfCharacter, detail::XmlNumberOf(character));
    Pos += all.size();
    if (isPair && FIsUnicode) {
      FText += all;
    } else if (Place >= plComment) {
      return Fail(unit == u'\r' ? xfCharacter : xfUnencodable, unit == u'\r' ? std::u16string_view(u"U+000D") : all);
    } else if (Place == plCData) {
      PutInCData(Text, Pos, character);
    } else {
      PutEscape(character);
    }
    return true;
  }
  void PutEscape(char32_t Character) {
    switch (Character) {
      case '<':
        FText += u"&lt;";
        return;
      case '>':
        FText += u"&gt;";
        return;
      case '&':
        FText += u"&amp;";
        return;
      case '"':
        FText += u"&quot;";
        return;
      default:
        FText += u"&#";
        FText += IntToStr(static_cast<int>(Character)).view();
        FText += u';';
    }
  }
  // Character data is closed and opened again around what it cannot hold.
  void PutInCData(std::u16string_view Text, size_t Pos, char32_t Character) {
    if (Character == ']') {
      FText += u']';
      if (Pos >= 2 && Text[Pos - 2] == u']' && Pos < Text.size() && Text[Pos] == u'>') FText += u"]]><![CDATA[";
      return;
    }
    FText += u"]]>";
    PutEscape(Character);
    FText += u"<![CDATA[";
  }

  std::string Encoded() const {
    std::string bytes;
    if (FForm.Encoding == xeUtf8) {
      if (FForm.HasMark) bytes = TEncoding::Utf8().Mark();
      AppendUtf8(bytes, FText);
    } else if (FIsUnicode) {
      const TEncoding& encoding = FForm.Encoding == xeUtf16 ? TEncoding::Utf16() : TEncoding::Utf16BigEndian();
      bytes = encoding.Mark();
      bytes += encoding.Encode(FText);
    } else if (FPage != nullptr) {
      bytes = FPage->Encode(FText);
    } else {
      bytes.assign(FText.begin(), FText.end());
    }
    return bytes;
  }

  const TXmlNode& FTop;
  const TXmlForm& FForm;
  bool FIsUnicode;
  const TCodePage* FPage = nullptr;
  std::u16string FText;
  TXmlFault FFault;
  int FDepth = 0;
  int FMixedDepth = 0;  // of the outermost open element with a text; 0 if there is none
};

}  // namespace

TXmlWritten WriteXml(const TXmlDocument& Document, const TXmlForm& Form) { return TXmlWriter(Document, Form).Write(); }

}  // namespace vx
