#include <algorithm>
#include <vector>

#include "core/uVxFunctions.h"
#include "objects/uVxClasses.h"
#include "platform/CodePage.h"
#include "platform/Exceptions.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "rendering/uVxTinyHTML/Converters.h"
#include "rendering/uVxTinyHTML/Layout.h"
#include "rendering/uVxTinyHTML/detail/Forms.h"
#include "services/uVxXml.h"

namespace vx {

namespace {

constexpr std::u16string_view kWordEnds = u"\n\r \\{}";

struct TSign {
  std::u16string_view Word;
  uint8_t Byte;  // in the system's code page
};
constexpr TSign kSigns[] = {{u"bullet", 149}, {u"endash", 150},    {u"emdash", 151},   {u"lquote", 145},
                            {u"rquote", 146}, {u"ldblquote", 147}, {u"rdblquote", 148}};

struct TSwitch {
  std::u16string_view Word;
  TFontStyle Style;
  bool On;
};
constexpr TSwitch kSwitches[] = {
    {u"ul", fsUnderline, true},     {u"ul0", fsUnderline, false},     {u"ulnone", fsUnderline, false},
    {u"strike", fsStrikeOut, true}, {u"strike0", fsStrikeOut, false}, {u"b", fsBold, true},
    {u"b0", fsBold, false},         {u"i", fsItalic, true},           {u"i0", fsItalic, false}};

class TRtfReader {
 public:
  TRtfReader(std::u16string_view Text, TCanvas& Canvas)
      : iText(Text), iCanvas(Canvas), iDefault(Canvas.GetFont()), iCurrent(iDefault) {}

  std::unique_ptr<TDecoLines> Read() {
    const TCanvasFontScope font(iCanvas);
    iCanvas.SetBrush({iCanvas.GetBrush().Color, bsClear});
    ReadColors();
    FindStart();
    iLine = std::make_unique<TDecoLine>(iCanvas);
    NewChunk();
    for (;;) {
      const size_t backslash = iText.find(u'\\', iPos);
      if (backslash == iText.npos) break;
      iChunk->Add(XMLEncode(iText.substr(iPos, backslash - iPos)));
      iPos = backslash + 1;
      Obey(ReadWord());
    }
    EndLine();
    return std::move(iLines);
  }

 private:
  // The entries of the colour table; what stands between two semicolons and is no colour has no number.
  void ReadColors() {
    iColors = {iDefault.Color};
    iPos = std::min<size_t>(8, iText.size());
    const size_t begin = iText.find(u"\\colortbl");
    if (begin == iText.npos) return;
    const size_t end = std::min(iText.find(u'}', begin), iText.size());
    for (size_t first = begin; first <= end;) {
      const size_t last = std::min(iText.find(u';', first), end);
      AddColor(iText.substr(first, last - first));
      first = last + 1;
    }
    iPos = std::min(end + 1, iText.size());
  }

  void AddColor(std::u16string_view Entry) {
    TVxStringList parts;
    if (!StrMatch(Entry, u"\\*red*\\*green*\\*blue*", true, &parts) || parts.GetCount() != 6) return;
    const auto channel = [&](int index) { return static_cast<TColor>(StrToIntDef(parts.Get(index), 0)); };
    iColors.push_back(channel(1) + (channel(3) << 8) + (channel(5) << 16));
  }

  void FindStart() {
    for (const std::u16string_view word : {u"\\plain", u"\\pard", u"\\par"}) {
      const size_t at = iText.find(word);
      if (at == iText.npos) continue;
      iPos = at + word.size();
      SkipWordEnd();
      return;
    }
  }

  void SkipWordEnd() {
    if (iPos < iText.size() && iText[iPos] != u'\\' && kWordEnds.find(iText[iPos]) != kWordEnds.npos) ++iPos;
  }

  // The word behind a backslash, in small letters.
  String ReadWord() {
    if (iPos < iText.size() && iText[iPos] == u'\'') {
      return LowerCase(String(Take(std::min(iPos + 3, iText.size()))));
    }
    const std::u16string_view word = Take(std::min(iText.find_first_of(kWordEnds, iPos), iText.size()));
    SkipWordEnd();
    return LowerCase(String(TrimView(word)));
  }

  // The text up to End, where reading goes on.
  std::u16string_view Take(size_t End) {
    const std::u16string_view taken = iText.substr(iPos, End - iPos);
    iPos = End;
    return taken;
  }

  void Obey(const String& Word) {
    const std::u16string_view word = Word;
    if (word == u"par") {
      EndLine();
      iLine = std::make_unique<TDecoLine>(iCanvas);
      NewChunk();
      iPos = std::min(iText.find_first_not_of(u"\r\n", iPos), iText.size());
    } else if (word == u"plain") {
      iCurrent = iDefault;
      NewChunk();
    } else if (word == u"tab") {
      NewChunk();
      iChunk->SetValue(u"\t");
    } else if (word.starts_with(u'\'')) {
      AddByte(word.substr(1));
    } else if (!ObeySwitch(word) && !AddSign(word)) {
      ObeyNumber(word);
    }
  }

  bool ObeySwitch(std::u16string_view Word) {
    const auto* found = std::find_if(std::begin(kSwitches), std::end(kSwitches),
                                     [&](const TSwitch& entry) { return entry.Word == Word; });
    if (found == std::end(kSwitches)) return false;
    const TFontStyles style{found->Style};
    iCurrent.Style = found->On ? iCurrent.Style + style : iCurrent.Style - style;
    NewChunk();
    return true;
  }

  bool AddSign(std::u16string_view Word) {
    const auto* found =
        std::find_if(std::begin(kSigns), std::end(kSigns), [&](const TSign& entry) { return entry.Word == Word; });
    if (found == std::end(kSigns)) return false;
    AddUnit(found->Byte);
    return true;
  }

  void ObeyNumber(std::u16string_view Word) {
    if (Word.starts_with(u"fs")) {
      iCurrent.Size = StrToIntDef(Word.substr(2), 16) / 2;
      NewChunk();
    } else if (Word.starts_with(u"cf")) {
      const int index = StrToInt(Word.substr(2));
      if (index < 0 || index >= static_cast<int>(iColors.size())) {
        throw EConvertError(Concat({u"\"", Word, u"\": the file has no such colour"}));
      }
      iCurrent.Color = iColors[static_cast<size_t>(index)];
      NewChunk();
    }
  }

  void AddByte(std::u16string_view Digits) {
    int byte = 0;
    if (Digits.size() == 2 && TryStrToInt(u"$" + String(Digits), byte)) AddUnit(static_cast<uint8_t>(byte));
  }
  void AddUnit(uint8_t Byte) {
    const char16_t unit = GetSystemCodePage().DecodeByte(Byte);
    iChunk->Add(String(1, unit));
  }

  void NewChunk() {
    EndChunk();
    iChunk = std::make_unique<TDecoChunk>(iCanvas);
    iChunk->SetInternalFont(iCurrent);
  }
  void EndChunk() {
    if (iChunk) detail::AddOwned(*iLine, std::move(iChunk));
  }
  void EndLine() {
    EndChunk();
    detail::AddOwned(*iLines, std::move(iLine));
  }

  const std::u16string_view iText;
  TCanvas& iCanvas;
  const TFont iDefault;
  TFont iCurrent;
  std::vector<TColor> iColors;
  std::unique_ptr<TDecoLines> iLines = std::make_unique<TDecoLines>();
  std::unique_ptr<TDecoLine> iLine;
  std::unique_ptr<TDecoChunk> iChunk;
  size_t iPos = 0;
};

}  // namespace

String RTF2HTML(std::u16string_view Text, TCanvas& Canvas) {
  const std::unique_ptr<TDecoLines> lines = TRtfReader(Text, Canvas).Read();
  return detail::WriteTinyHTML(*lines, Canvas.GetFont());
}

}  // namespace vx
