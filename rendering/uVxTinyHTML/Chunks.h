// What the lines of a rich text are made of. See rendering/uVxTinyHTML.h.
#pragma once

#include <deque>
#include <memory>
#include <string_view>

#include "platform/Graphics.h"
#include "platform/TCanvas.h"
#include "platform/TObjectList.h"

namespace vx {

// Puts the font of a canvas back at the end of a block.
class TCanvasFontScope {
 public:
  explicit TCanvasFontScope(TCanvas& Canvas) : FCanvas(Canvas), FFont(Canvas.GetFont()) {}
  ~TCanvasFontScope() { FCanvas.SetFont(FFont); }
  TCanvasFontScope(const TCanvasFontScope&) = delete;
  TCanvasFontScope& operator=(const TCanvasFontScope&) = delete;

 private:
  TCanvas& FCanvas;
  TFont FFont;
};

// A run of text in one font. It measures on its canvas, which has to outlive it; measuring leaves the canvas with the
// size, colour and style of the chunk's font, drawing with all of it.
class TDecoChunk : public TObject {
 public:
  // An empty text in the canvas's font.
  explicit TDecoChunk(TCanvas& Canvas) : FCanvas(&Canvas), iInternalFont(Canvas.GetFont()) {}
  String ClassName() const override { return u"TDecoChunk"; }
  TCanvas& GetCanvas() const noexcept { return *FCanvas; }

  const TFont& GetInternalFont() const noexcept { return iInternalFont; }
  void SetInternalFont(const TFont& Font) { Change(iInternalFont, Font); }
  bool GetBold() const noexcept { return iInternalFont.Style.Has(fsBold); }
  void SetBold(bool Value) noexcept { SetStyle(fsBold, Value); }
  bool GetItalic() const noexcept { return iInternalFont.Style.Has(fsItalic); }
  void SetItalic(bool Value) noexcept { SetStyle(fsItalic, Value); }
  bool GetUnderline() const noexcept { return iInternalFont.Style.Has(fsUnderline); }
  void SetUnderline(bool Value) noexcept { SetStyle(fsUnderline, Value); }
  bool GetStrikeOut() const noexcept { return iInternalFont.Style.Has(fsStrikeOut); }
  void SetStrikeOut(bool Value) noexcept { SetStyle(fsStrikeOut, Value); }
  TColor GetColor() const noexcept { return iInternalFont.Color; }
  void SetColor(TColor Value) noexcept { Change(iInternalFont.Color, Value); }
  int GetSize() const noexcept { return iInternalFont.Size; }
  void SetSize(int Value) noexcept { Change(iInternalFont.Size, Value); }
  const String& GetValue() const noexcept { return iValue; }
  void SetValue(const String& Value);
  // Whether no chunk stands before it in its line.
  bool GetFirstInLine() const noexcept { return iFirstInLine; }
  void SetFirstInLine(bool Value) noexcept { Change(iFirstInLine, Value); }

  // A chunk with an equal font and an empty text.
  std::unique_ptr<TDecoChunk> Duplicate() const;
  void Add(const String& Text);
  void DropLeadingBlanks();
  // The last character, by code units; nothing happens to an empty text.
  void DeleteLastChar() { SetValue(iValue.Slice(0, iValue.size() - 1)); }

  // In pixels. Width is measured once and then known until something changes; an overhang of bold or italic letters is
  // part of it. Height is 0 for a font below one point.
  int Width() const;
  int Height() const;
  // The ascent of the font.
  int BaseLine() const;
  // Whether Width is above Limit, found out by measuring no more of a long text than it takes.
  bool ExceedsWidth(int Limit) const;
  // The length of the text; without leading code units up to 32 for the first chunk of a line.
  int GetLength() const noexcept;
  // Cuts the text where a line is full, Room being what the chunks before it leave of LineWidth: character by character
  // until it fits into Room, a text of more than 20 by FitInWidth with the whole of LineWidth. At least one character
  // stays. The result is a duplicate with the rest, which may be empty.
  [[nodiscard]] std::unique_ptr<TDecoChunk> Cut(int Room, int LineWidth);
  // Cuts the text so that it fits into Width pixels, but leaves at least one character; Rest gets the tail that was
  // cut off. A text that fits stays whole. The first guess goes by the width of "A".
  void FitInWidth(int Width, String& Rest);

  // The text with its base line at Y by the canvas's alignment of texts; in the second form clipped to Rect.
  void Draw(int X, int Y) const;
  void Draw(int X, int Y, const TRect& Rect) const;

 private:
  template <typename T>
  void Change(T& Field, const T& Value) {
    if (Field == Value) return;
    Field = Value;
    iWidth = -1;
  }
  void SetStyle(TFontStyle Style, bool Value) noexcept;
  // Chunk's text from First on, counted from 0; Chunk may be this one.
  void TakeRest(const TDecoChunk& Chunk, int First);
  void TakeFont() const;
  template <typename TTest>
  int LargestPrefix(int First, TTest Holds) const;
  int Overhang() const;
  int PrefixWidth(int Count) const { return FCanvas->TextPrefixWidth(iValue, Count); }

  TCanvas* FCanvas;
  TFont iInternalFont;
  String iValue;
  mutable int iWidth = -1;  // -1 while unknown
  mutable int iLead = -1;   // leading code units up to 32; -1 while unknown
  bool iFirstInLine = false;
};

// The chunks that move to the next line together. Does not own them unless told to.
class TDecoWord : public TObject {
 public:
  explicit TDecoWord(bool OwnsObjects = false) noexcept : FOwnsObjects(OwnsObjects) {}
  ~TDecoWord() override { Clear(); }
  TDecoWord(const TDecoWord&) = delete;
  TDecoWord& operator=(const TDecoWord&) = delete;
  String ClassName() const override { return u"TDecoWord"; }

  // Chunks that leave the word by Clear or with its end are freed while this is set.
  bool GetOwnsObjects() const noexcept { return FOwnsObjects; }
  void SetOwnsObjects(bool Value) noexcept { FOwnsObjects = Value; }
  int GetCount() const noexcept { return static_cast<int>(FChunks.size()); }
  // Index counts from 0 and must be one of the word.
  TDecoChunk* Get(int Index) const { return FChunks[static_cast<size_t>(Index)]; }
  // The first chunk of the largest font, by the sizes that the chunks came with; nullptr if there is none.
  const TDecoChunk* GetLargest() const noexcept { return FLargest.empty() ? nullptr : FLargest.front(); }
  // A word that owns takes the chunk over, also if this raises.
  void Add(TDecoChunk* Chunk) { Put(Chunk, false); }
  void AddFirst(TDecoChunk* Chunk) { Put(Chunk, true); }
  // Takes the first chunk out and gives it to the caller, who owns it if the word did. The word must not be empty.
  [[nodiscard]] TDecoChunk* ExtractFirst() noexcept;
  void Clear() noexcept;
  // The sum of the chunks' widths.
  int Width() const;

 private:
  void Put(TDecoChunk* Chunk, bool First);

  std::deque<TDecoChunk*> FChunks;
  std::deque<TDecoChunk*> FLargest;  // those with no larger one behind them
  bool FOwnsObjects;
};

// A line: chunks that it owns, and a word that is tried out behind them.
class TDecoLine : public TObjectList {
 public:
  explicit TDecoLine(TCanvas& Canvas) noexcept : FCanvas(&Canvas) {}
  String ClassName() const override { return u"TDecoLine"; }
  TCanvas& GetCanvas() const noexcept { return *FCanvas; }
  TDecoChunk* Get(int Index) const { return static_cast<TDecoChunk*>(TObjectList::Get(Index)); }

  // The size of the largest font in points.
  int GetSize() const noexcept { return iSize; }
  void SetSize(int Value) noexcept { iSize = Value; }
  // The ascent of the chunk that brought the size: what lies between the line's top and its base line.
  int GetBaseLine() const noexcept { return baseLine; }
  // The pending word, which stays its owner's; nullptr if there is none.
  TDecoWord* GetWord() const noexcept { return word; }

  // The widths of the chunks and of the pending word, in pixels; in an empty line the word's first chunk counts as the
  // first of the line from then on.
  int Width() const;
  // The larger of GetSize and the heights of the chunks; 0 for a size below 1.
  int Height() const;

  // Appends a TDecoChunk, which the line owns from then on.
  int Add(TObject* Chunk) override;
  // Makes Word pending.
  void AddWord(TDecoWord& Word) noexcept { word = &Word; }
  // Appends the chunks of the pending word, which is empty then, and forgets it. Without one nothing happens.
  void Commit();
  // Forgets the pending word; its chunks stay with it.
  void Rollback() noexcept { word = nullptr; }
  // Cuts a line that is wider than Width and gives a word that owns what was too much, empty if nothing was. The chunk
  // that reaches Width is cut character by character, one of more than 20 by FitInWidth with the whole of Width; at
  // least one character of it stays. The chunks behind it follow.
  [[nodiscard]] std::unique_ptr<TDecoWord> Clip(int Width);
  // What Commit and Clip do one after the other to an empty line, at a cost that grows with what stays in the line
  // alone; so the line keeps the size of the word's largest chunk, also if that is not in it. The rest stays in the
  // word, which must own its chunks and is pending no more. Where the overhang of an empty first chunk fills the line,
  // it stands there alone and leaves no rest, which would fill each further line.
  void CommitClipped(int Width);

  // The chunks one behind the other from X on, the line's top at Y; or from the left top of Rect on and clipped to it.
  void Draw(int X, int Y) const;
  void Draw(const TRect& Rect) const;

 private:
  TDecoChunk* TakeFirst(TDecoWord& Word);
  template <typename TDraw>
  void DrawFrom(int X, TDraw Draw) const;

  TCanvas* FCanvas;
  TDecoWord* word = nullptr;
  int iSize = 0;
  int baseLine = 0;
};

}  // namespace vx
