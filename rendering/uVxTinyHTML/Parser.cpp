#include <algorithm>

#include "platform/Text.h"
#include "rendering/uVxTinyHTML/FontHistory.h"
#include "rendering/uVxTinyHTML/Layout.h"
#include "rendering/uVxTinyHTML/detail/Forms.h"
#include "services/uVxXml.h"

namespace vx {

namespace {

class TParser {
 public:
  TParser(std::u16string_view Text, TCanvas& Canvas, const TLayoutOptions& Options)
      : iText(Text), iCanvas(Canvas), iOptions(Options), iBase(Canvas.GetFont()), iFont(iBase) {
    iHistory.scaling = Options.Scale;
    iWraps = Options.Rect.Right > 0 && LineWidth() > 0;
  }

  std::unique_ptr<TDecoLines> Parse() {
    const TCanvasFontScope font(iCanvas);
    iCanvas.SetBrush({iCanvas.GetBrush().Color, bsClear});
    NewLine();
    while (iPos < iText.size() && !iLines->Overflow) {
      if (iText.substr(iPos, 2) == u"\r\n") ++iPos;
      if (iBreaks) {
        iBreaks = false;
        NewLine();
      } else if (iText[iPos] == u'\n') {
        NewLine();
        ++iPos;
      } else {
        ReadWord();
        PlaceWord();
      }
    }
    return std::move(iLines);
  }

 private:
  int LineWidth() const noexcept { return iOptions.Rect.Width(); }
  TDecoLine& Line() const { return *iLines->Get(iLines->GetCount() - 1); }

  // False, with the overflow told, if there is no room for another line.
  bool NewLine() {
    const int count = iLines->GetCount();
    if (count > 0) iTop += Line().Height();
    const bool wanted = iOptions.SizeOnly && (iOptions.LineCount < 1 || iOptions.LineCount > count);
    if (iTop >= iOptions.Rect.Height() && !wanted) {
      iLines->Overflow = true;
      return false;
    }
    auto line = std::make_unique<TDecoLine>(iCanvas);
    line->SetSize(iFont.Size);
    detail::AddOwned(*iLines, std::move(line));
    iLineWidth = iChunkHeight = 0;
    return true;
  }

  void AddChunk() {
    auto chunk = std::make_unique<TDecoChunk>(iCanvas);
    chunk->SetInternalFont(iFont);
    iWord.Add(chunk.release());
  }

  void AddText(size_t First, size_t Last) {
    if (First < Last) iWord.Get(iWord.GetCount() - 1)->Add(XMLDecode(iText.substr(First, Last - First)));
  }

  // Reads up to the next blank that follows no blank, or a line break.
  void ReadWord() {
    AddChunk();
    size_t first = iPos;
    do {
      if (iText[iPos] != u'<') {
        ++iPos;
        continue;
      }
      AddText(first, iPos);
      const size_t end = std::min(iText.find(u'>', iPos), iText.size());
      ReadTag(LowerCase(String(TrimView(iText.substr(iPos + 1, end - iPos - 1)))));
      first = iPos = std::min(end + 1, iText.size());
    } while (iPos < iText.size() && !iBreaks && !IsWordEnd());
    AddText(first, iPos);
  }

  bool IsWordEnd() const noexcept {
    const char16_t next = iText[iPos];
    return (next == u' ' || next == u'\t' || next == u'\n' || next == u'\r') && iText[iPos - 1] != u' ';
  }

  void ReadTag(const String& Tag) {
    if (Tag == u"br" || Tag == u"br/" || Tag == u"br /") {
      iBreaks = true;
    } else {
      if (!Tag.empty() && Tag[0] == u'/') {
        iHistory.CloseMark(Tag);
      } else {
        iHistory.OpenMark(Tag);
      }
      iFont = iHistory.toFont(iBase);
    }
    AddChunk();
  }

  // Whether line and word together are too wide.
  bool IsTooWide() const {
    if (!iWraps) return false;
    iWord.Get(0)->SetFirstInLine(Line().GetCount() == 0);
    int64_t room = LineWidth() - iLineWidth;
    for (int i = 0; i < iWord.GetCount(); ++i) {
      if (room < 0 || iWord.Get(i)->ExceedsWidth(static_cast<int>(room))) return true;
      room -= iWord.Get(i)->Width();
    }
    return room < 0;
  }

  void PlaceWord() {
    while (IsTooWide()) {
      if (Line().GetCount() == 0) {
        Line().AddWord(iWord);
        Line().CommitClipped(LineWidth());
        iChunkHeight = Line().Height();
        if (iWord.GetCount() == 0) break;
      }
      if (!NewLine()) {
        iWord.Clear();
        return;
      }
      iWord.Get(0)->DropLeadingBlanks();
    }
    Commit();
    if (!iOptions.SizeOnly && iTop + LineHeight() > iOptions.Rect.Height()) {
      iLines->Overflow = true;
      iLines->Delete(iLines->GetCount() - 1);
    }
  }

  void Commit() {
    TDecoLine& line = Line();
    const int first = line.GetCount();
    line.AddWord(iWord);
    line.Commit();
    for (int i = first; i < line.GetCount(); ++i) {
      const TDecoChunk& chunk = *line.Get(i);
      if (iWraps) iLineWidth += chunk.Width();
      if (!iOptions.SizeOnly) iChunkHeight = std::max(iChunkHeight, HeightOf(chunk));
    }
  }

  // Chunks of one font mostly follow one another.
  int HeightOf(const TDecoChunk& Chunk) {
    if (iHeight < 0 || Chunk.GetInternalFont() != iHeightFont) {
      iHeightFont = Chunk.GetInternalFont();
      iHeight = Chunk.Height();
    }
    return iHeight;
  }
  // What Line().Height() gives, known from the chunks as they came.
  int LineHeight() const { return Line().GetSize() < 1 ? 0 : std::max(Line().GetSize(), iChunkHeight); }

  const std::u16string_view iText;
  TCanvas& iCanvas;
  const TLayoutOptions iOptions;
  const TFont iBase;
  TFont iFont;  // of the last chunk
  TFontHistory iHistory;
  std::unique_ptr<TDecoLines> iLines = std::make_unique<TDecoLines>();
  TDecoWord iWord{true};
  size_t iPos = 0;
  int64_t iTop = 0;  // of the last line
  int64_t iLineWidth = 0;
  int iChunkHeight = 0;
  TFont iHeightFont;
  int iHeight = -1;  // of a chunk in iHeightFont
  bool iWraps = false;
  bool iBreaks = false;  // the last word ended in a line break
};

}  // namespace

std::unique_ptr<TDecoLines> ParseTinyHTML(std::u16string_view Text, TCanvas& Canvas, const TLayoutOptions& Options) {
  return TParser(Text, Canvas, Options).Parse();
}

}  // namespace vx
