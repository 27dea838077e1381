#include <algorithm>
#include <unordered_map>
#include <vector>

#include "platform/Numbers.h"
#include "rendering/uVxTinyHTML/Converters.h"
#include "rendering/uVxTinyHTML/Layout.h"
#include "rendering/uVxTinyHTML/detail/Forms.h"

namespace vx {

namespace {

constexpr std::u16string_view kHead =
    u"\\rtf1\\ansi\\ansicpg0\\uc0\\deff0\\deflang0\\deflangfe0\\paperw12240\\paperh15480\\margl850\\margr567"
    u"\\margt567\\margb567\\headery720\\footery720\\viewscale100\\viewzk0";
// Overrides the \uc0 of the head: behind the number of a character stands one that readers without Unicode take
// instead. Many others leave out one as well, whatever is told, and some of them with all letters that follow a plain
// "?".
constexpr std::u16string_view kOneStandIn = u"\\uc1";
constexpr std::u16string_view kParagraph = u"\\pard\\fi0\\li0\\ql\\ri0\\sb0\\sa0\\itap0";

class TRtfWriter {
 public:
  explicit TRtfWriter(TRtfText Form) : iForm(Form) { ColorIndex(iDefaultColor); }

  String Write(const TDecoLines& Lines) {
    const TDecoChunk* first = FirstChunk(Lines);
    if (Lines.GetCount() == 0 || (Lines.GetCount() == 1 && !first)) {
      return Concat({u"{", kHead, u"{\\fonttbl{\\f0\\fnil Tahoma;}}", u"{\\colortbl;}", kParagraph, u"}"});
    }
    iBody = kParagraph;
    for (int i = 0; i < Lines.GetCount(); ++i) {
      if (i > 0) iBody += u"\\par ";
      const TDecoLine& line = *Lines.Get(i);
      for (int c = 0; c < line.GetCount(); ++c) AppendChunk(*line.Get(c));
    }
    String result = Concat({u"{", kHead, iForm == rfEscaped ? kOneStandIn : u"", u"{\\fonttbl{\\f0\\fnil "});
    AppendText(result, first ? first->GetInternalFont().Name : String(u"Tahoma"));
    result += u";}}{\\colortbl;";
    for (const TColor color : iColors) {
      result += Concat({u"\\red", IntToStr(color & 0xFF), u"\\green", IntToStr(color >> 8 & 0xFF), u"\\blue",
                        IntToStr(color >> 16 & 0xFF), u";"});
    }
    result += u"}";
    result += iBody;
    result += u"}";
    return result;
  }

 private:
  static const TDecoChunk* FirstChunk(const TDecoLines& Lines) {
    for (int i = 0; i < Lines.GetCount(); ++i) {
      if (Lines.Get(i)->GetCount() > 0) return Lines.Get(i)->Get(0);
    }
    return nullptr;
  }

  // The place of a colour in the table, counted from 1; at its end if it is new.
  int ColorIndex(TColor Color) {
    const TColor rgb = ColorToRGB(Color);
    const auto [entry, isNew] = iIndexes.try_emplace(rgb, static_cast<int>(iColors.size()) + 1);
    if (isNew) iColors.push_back(rgb);
    return entry->second;
  }

  void AppendChunk(const TDecoChunk& Chunk) {
    iBody += Concat({u"\\plain \\f0\\fs", IntToStr(int64_t{Chunk.GetSize()} * 2)});
    if (Chunk.GetColor() != iDefaultColor) iBody += u"\\cf" + IntToStr(ColorIndex(Chunk.GetColor()));
    if (Chunk.GetBold()) iBody += u"\\b";
    if (Chunk.GetItalic()) iBody += u"\\i";
    if (Chunk.GetUnderline()) iBody += u"\\ul";
    if (Chunk.GetStrikeOut()) iBody += u"\\strike";
    iBody += u" ";
    AppendText(iBody, Chunk.GetValue());
  }

  void AppendText(String& Rtf, const String& Text) const {
    if (iForm == rfAsIs) {
      Rtf += Text;
      return;
    }
    for (char16_t unit : Text) {
      if (unit == u'\\' || unit == u'{' || unit == u'}') Rtf += u'\\';
      if (unit == u'\t') {
        Rtf += u"\\tab ";
      } else if (unit > 126) {
        // The number is one of 16 bits with a sign.
        Rtf += Concat({u"\\u", IntToStr(static_cast<int16_t>(unit)), u"\\'3f"});
      } else {
        Rtf += std::max(unit, u' ');
      }
    }
  }

  const TRtfText iForm;
  const TColor iDefaultColor = TFont().Color;
  std::vector<TColor> iColors;
  std::unordered_map<TColor, int> iIndexes;
  String iBody;
};

}  // namespace

String HTML2RTF(std::u16string_view Text, TCanvas& Canvas, TRtfText Form) {
  return HTML2RTF(Text, Canvas, detail::kPage, Form);
}

String HTML2RTF(std::u16string_view Text, TCanvas& Canvas, const TRect& Rect, TRtfText Form) {
  return TRtfWriter(Form).Write(*ParseTinyHTML(Text, Canvas, {.Rect = Rect}));
}

}  // namespace vx
