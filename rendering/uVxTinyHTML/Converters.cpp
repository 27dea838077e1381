#include "rendering/uVxTinyHTML/Converters.h"

#include <algorithm>

#include "objects/uVxClassesString.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "rendering/uVxTinyHTML/Layout.h"
#include "rendering/uVxTinyHTML/detail/Forms.h"
#include "services/uVxXml.h"

namespace vx {

namespace {

// The marks that make Chunk's font of Base, as text in front of it and behind it.
void AppendChunk(String& Html, const TDecoChunk& Chunk, const TFont& Base) {
  const String& text = Chunk.GetValue();
  if (TrimView(text).empty()) {
    Html += text;
    return;
  }
  const int64_t larger = int64_t{Chunk.GetSize()} - Base.Size;
  const bool colored = Chunk.GetColor() != Base.Color;
  if (Chunk.GetBold()) Html += u"<b>";
  if (Chunk.GetItalic()) Html += u"<i>";
  if (Chunk.GetUnderline()) Html += u"<u>";
  if (Chunk.GetStrikeOut()) Html += u"<s>";
  if (larger != 0) Html += Concat({u"<font size = \"", larger > 0 ? u"+" : u"", IntToStr(larger), u"\" >"});
  if (colored) Html += Concat({u"<font color = \"", ColorToString(Chunk.GetColor()), u"\" >"});
  Html += text;
  if (colored) Html += u"</font>";
  if (larger != 0) Html += u"</font>";
  if (Chunk.GetUnderline()) Html += u"</u>";
  if (Chunk.GetStrikeOut()) Html += u"</s>";
  if (Chunk.GetItalic()) Html += u"</i>";
  if (Chunk.GetBold()) Html += u"</b>";
}

// What lies outside of tags.
String WithoutTags(const String& Text) {
  String result;
  result.Reserve(Text.size());
  bool isTag = false;
  for (const char16_t* pos = Text.begin(); pos != Text.end();) {
    if (*pos == u'<' || *pos == u'>') {
      isTag = *pos++ == u'<';
      continue;
    }
    const char16_t* end = std::find_if(pos, Text.end(), [](char16_t unit) { return unit == u'<' || unit == u'>'; });
    if (!isTag) result += std::u16string_view(pos, static_cast<size_t>(end - pos));
    pos = end;
  }
  return result;
}

}  // namespace

String detail::WriteTinyHTML(const TDecoLines& Lines, const TFont& Base) {
  String html;
  for (int i = 0; i < Lines.GetCount(); ++i) {
    if (i > 0) html += u"\r\n";
    const TDecoLine& line = *Lines.Get(i);
    for (int c = 0; c < line.GetCount(); ++c) AppendChunk(html, *line.Get(c), Base);
  }
  return html;
}

String HTMLEscape(std::u16string_view Text, bool AsXml) {
  if (AsXml) return XMLEncode(Text);
  String result;
  result.Reserve(static_cast<int>(Text.size()));
  for (char16_t unit : Text) {
    switch (unit) {
      case u'<':
        result += u"&lt;";
        break;
      case u'>':
        result += u"&gt;";
        break;
      case u'"':
        result += u"&quot;";
        break;
      case u'&':
        result += u"&amp;";
        break;
      default:
        if (unit > 127) {
          result += Concat({u"&#", IntToStr(unit), u";"});
        } else {
          result += unit;
        }
    }
  }
  return result;
}

String HTML2Text(std::u16string_view Text, std::u16string_view LineBreak) {
  if (Text.empty()) return {};
  static const String kBreaks[] = {u"\r\n", u"\r", u"\n", u"<br>", u"<br/>", u"<br />"};
  static const String kEntities[] = {u"&quot;", u"&apos;", u"&gt;", u"&lt;", u"&amp;"};
  static const String kCharacters[] = {u"\"", u"'", u">", u"<", u"&"};
  const std::vector<String> breaks(std::size(kBreaks), String(LineBreak));
  return VxStringReplace(WithoutTags(VxStringReplace(String(Text), kBreaks, breaks)), kEntities, kCharacters);
}

String HTML2HTML(std::u16string_view Text, TCanvas& Canvas) {
  return detail::WriteTinyHTML(*ParseTinyHTML(Text, Canvas, {.Rect = detail::kPage}), Canvas.GetFont());
}

}  // namespace vx
