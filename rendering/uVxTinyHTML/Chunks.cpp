#include "rendering/uVxTinyHTML/Chunks.h"

#include <algorithm>

namespace vx {

namespace {

// Chunks of more characters than this are cut at a guess instead of one by one.
constexpr int kGuessFrom = 20;
// How much of a long text is measured at first to see that it is too wide.
constexpr int kFirstLook = 64;

}  // namespace

// --- TDecoChunk

void TDecoChunk::SetStyle(TFontStyle Style, bool Value) noexcept {
  Change(iInternalFont.Style,
         Value ? iInternalFont.Style + TFontStyles{Style} : iInternalFont.Style - TFontStyles{Style});
}

void TDecoChunk::SetValue(const String& Value) {
  if (iValue != Value) iLead = -1;
  Change(iValue, Value);
}

std::unique_ptr<TDecoChunk> TDecoChunk::Duplicate() const {
  auto result = std::make_unique<TDecoChunk>(*FCanvas);
  result->iInternalFont = iInternalFont;
  return result;
}

void TDecoChunk::Add(const String& Text) {
  if (Text.empty()) return;
  if (iValue.empty()) {
    iValue = Text;
  } else {
    iValue += Text;
  }
  iWidth = iLead = -1;
}

void TDecoChunk::TakeFont() const {
  TFont font = FCanvas->GetFont();
  font.Size = iInternalFont.Size;
  font.Color = iInternalFont.Color;
  font.Style = iInternalFont.Style;
  FCanvas->SetFont(font);
}

int TDecoChunk::Width() const {
  if (iWidth >= 0) return iWidth;
  TakeFont();
  return iWidth = FCanvas->TextWidth(iValue) + Overhang();
}

// With the chunk's font on the canvas.
int TDecoChunk::Overhang() const { return GetBold() || GetItalic() ? FCanvas->GetFontMetrics().Overhang : 0; }

bool TDecoChunk::ExceedsWidth(int Limit) const {
  if (iWidth < 0 && iValue.size() > kFirstLook) {
    TakeFont();
    for (int64_t look = kFirstLook; look < iValue.size(); look *= 2) {
      if (PrefixWidth(static_cast<int>(look)) > Limit) return true;
    }
  }
  return Width() > Limit;
}

int TDecoChunk::Height() const {
  if (GetSize() < 1) return 0;
  const TCanvasFontScope saved(*FCanvas);
  FCanvas->SetFont(iInternalFont);
  return FCanvas->TextHeight(u"0");
}

int TDecoChunk::BaseLine() const {
  const TCanvasFontScope saved(*FCanvas);
  FCanvas->SetFont(iInternalFont);
  return FCanvas->GetFontMetrics().Ascent;
}

int TDecoChunk::GetLength() const noexcept {
  if (!iFirstInLine) return iValue.size();
  if (iLead < 0) {
    const auto begin = std::find_if(iValue.begin(), iValue.end(), [](char16_t unit) { return unit > u' '; });
    iLead = static_cast<int>(begin - iValue.begin());
  }
  return iValue.size() - iLead;
}

void TDecoChunk::TakeRest(const TDecoChunk& Chunk, int First) {
  iLead = Chunk.iLead < 0 ? -1 : std::max(Chunk.iLead - First, 0);
  iValue = Chunk.iValue.Slice(First);
  iWidth = -1;
}

void TDecoChunk::DropLeadingBlanks() {
  const size_t blanks = iValue.view().find_first_not_of(u' ');
  if (blanks != 0) TakeRest(*this, static_cast<int>(std::min<size_t>(blanks, INT32_MAX)));
}

std::unique_ptr<TDecoChunk> TDecoChunk::Cut(int Room, int LineWidth) {
  std::unique_ptr<TDecoChunk> tail = Duplicate();
  tail->iValue = iValue;
  const bool isLong = GetLength() > kGuessFrom;
  tail->iLead = iLead;
  if (isLong) {
    String rest;
    FitInWidth(LineWidth, rest);
  } else {
    TakeFont();
    const int room = Room - Overhang();
    SetValue(iValue.Slice(0, LargestPrefix(1, [&](int count) { return PrefixWidth(count) <= room; })));
  }
  tail->TakeRest(*tail, iValue.size());
  return tail;
}

// The largest number of characters, from First on, for which all up to it hold, but at least First.
template <typename TTest>
int TDecoChunk::LargestPrefix(int First, TTest Holds) const {
  const int length = iValue.size();
  int good = std::min(First, length);
  int64_t stride = 1;
  while (good + stride <= length && Holds(static_cast<int>(good + stride))) {
    good += static_cast<int>(stride);
    stride *= 2;
  }
  auto bad = static_cast<int>(std::min<int64_t>(good + stride, int64_t{length} + 1));
  while (good + 1 < bad) {
    const int middle = good + (bad - good) / 2;
    (Holds(middle) ? good : bad) = middle;
  }
  return good;
}

void TDecoChunk::FitInWidth(int Width, String& Rest) {
  Rest.clear();
  const int length = iValue.size();
  if (length == 0) return;
  TakeFont();
  // A guess that goes on to the first place that reaches Width, or back to the last that does not exceed it, matters
  // only where these two differ. They are looked for from the front, so that no line costs more than its own length.
  int count = LargestPrefix(1, [&](int n) { return PrefixWidth(n) <= Width; });
  if (PrefixWidth(count) == Width) {
    const auto held = [length](int64_t n) { return static_cast<int>(std::clamp<int64_t>(n, 1, length)); };
    const int first = LargestPrefix(0, [&](int n) { return PrefixWidth(n) < Width; }) + 1;
    const int guess = held(Width / std::max(FCanvas->TextWidth(u"A"), 1));
    count = std::clamp(held(int64_t{guess} * Width / std::max(PrefixWidth(guess), 1)), first, count);
  }
  Rest = iValue.Slice(count);
  SetValue(iValue.Slice(0, count));
}

void TDecoChunk::Draw(int X, int Y) const {
  FCanvas->SetFont(iInternalFont);
  FCanvas->TextOut(X, Y, iValue);
}

void TDecoChunk::Draw(int X, int Y, const TRect& Rect) const {
  FCanvas->SetFont(iInternalFont);
  FCanvas->TextRect(Rect, X, Y, iValue);
}

// --- TDecoWord

void TDecoWord::Put(TDecoChunk* Chunk, bool First) {
  std::unique_ptr<TDecoChunk> owner(FOwnsObjects ? Chunk : nullptr);
  FChunks.insert(First ? FChunks.begin() : FChunks.end(), Chunk);
  static_cast<void>(owner.release());  // the word's
  const int size = Chunk->GetSize();
  if (First) {
    if (FLargest.empty() || FLargest.front()->GetSize() <= size) FLargest.push_front(Chunk);
    return;
  }
  while (!FLargest.empty() && FLargest.back()->GetSize() < size) FLargest.pop_back();
  FLargest.push_back(Chunk);
}

TDecoChunk* TDecoWord::ExtractFirst() noexcept {
  TDecoChunk* chunk = FChunks.front();
  FChunks.pop_front();
  if (!FLargest.empty() && FLargest.front() == chunk) FLargest.pop_front();
  return chunk;
}

void TDecoWord::Clear() noexcept {
  if (FOwnsObjects) {
    for (TDecoChunk* chunk : FChunks) delete chunk;
  }
  FChunks.clear();
  FLargest.clear();
}

int TDecoWord::Width() const {
  int64_t width = 0;
  for (const TDecoChunk* chunk : FChunks) width += chunk->Width();
  return static_cast<int>(std::min<int64_t>(width, INT32_MAX));
}

// --- TDecoLine

int TDecoLine::Width() const {
  int64_t width = 0;
  for (int i = 0; i < GetCount(); ++i) width += Get(i)->Width();
  if (word && word->GetCount() > 0) {
    word->Get(0)->SetFirstInLine(GetCount() == 0);
    width += word->Width();
  }
  return static_cast<int>(std::min<int64_t>(width, INT32_MAX));
}

int TDecoLine::Height() const {
  if (iSize < 1) return 0;
  int height = iSize;
  for (int i = 0; i < GetCount(); ++i) height = std::max(height, Get(i)->Height());
  return height;
}

int TDecoLine::Add(TObject* Chunk) {
  auto* chunk = static_cast<TDecoChunk*>(Chunk);
  const bool isLargest = GetCount() == 0 || chunk->GetSize() > iSize;
  const int ascent = isLargest ? chunk->BaseLine() : baseLine;
  const int index = TObjectList::Add(Chunk);
  chunk->SetFirstInLine(index == 0);
  if (isLargest) iSize = chunk->GetSize();
  baseLine = ascent;
  return index;
}

// The chunk is the word's until the line has it.
TDecoChunk* TDecoLine::TakeFirst(TDecoWord& Word) {
  TDecoChunk* chunk = Word.Get(0);
  Add(chunk);
  static_cast<void>(Word.ExtractFirst());
  return chunk;
}

void TDecoLine::Commit() {
  if (!word) return;
  while (word->GetCount() > 0) TakeFirst(*word);
  word = nullptr;
}

std::unique_ptr<TDecoWord> TDecoLine::Clip(int Width) {
  auto rest = std::make_unique<TDecoWord>(true);
  int room = Width, at = 0;
  while (at < GetCount() && !Get(at)->ExceedsWidth(room - 1)) room -= Get(at++)->Width();
  if (at == GetCount()) return rest;
  while (GetCount() > at + 1) {
    TDecoChunk* last = Get(GetCount() - 1);
    const TReleaseScope moved(*this);
    SetCount(GetCount() - 1);
    rest->AddFirst(last);
  }
  rest->AddFirst(Get(at)->Cut(room, Width).release());
  return rest;
}

void TDecoLine::CommitClipped(int Width) {
  TDecoWord& rest = *word;
  word = nullptr;
  const TDecoChunk* largest = rest.GetLargest();
  int room = Width;
  while (rest.GetCount() > 0) {
    TDecoChunk* chunk = TakeFirst(rest);
    if (largest && largest->GetSize() > iSize) {
      baseLine = largest->BaseLine();
      iSize = largest->GetSize();
    }
    if (chunk->ExceedsWidth(room - 1)) {
      const bool isOverhang = GetCount() == 1 && chunk->GetValue().empty();
      if (isOverhang) return;
      rest.AddFirst(chunk->Cut(room, Width).release());
      return;
    }
    room -= chunk->Width();
  }
}

template <typename TDraw>
void TDecoLine::DrawFrom(int X, TDraw Draw) const {
  int64_t left = X;
  for (int i = 0; i < GetCount(); ++i) {
    Draw(*Get(i), static_cast<int>(std::min<int64_t>(left, INT32_MAX)));
    left += Get(i)->Width();
  }
}

void TDecoLine::Draw(int X, int Y) const {
  DrawFrom(X, [&](const TDecoChunk& chunk, int left) { chunk.Draw(left, Y + baseLine); });
}

void TDecoLine::Draw(const TRect& Rect) const {
  DrawFrom(Rect.Left, [&](const TDecoChunk& chunk, int left) { chunk.Draw(left, Rect.Top + baseLine, Rect); });
}

}  // namespace vx
