#include <string>

#include "platform/Text.h"
#include "platform/TextBuffer.h"
#include "rendering/uDecoration/detail/CellPainter.h"

namespace vx::detail {
namespace {

constexpr std::u16string_view kDots = u"..";

class TShortener {
 public:
  TShortener(const TCanvas& Canvas, int Width) noexcept : FCanvas(Canvas), FWidth(Width) {}

  bool Fits(std::u16string_view Text) const { return FCanvas.TextWidth(Text) <= FWidth; }
  bool IsNarrower(std::u16string_view Text) const { return FCanvas.TextWidth(Text) < FWidth; }
  // The longest part of Head that leaves room for ".." and Tail, without the last character at least.
  std::u16string_view Part(std::u16string_view Head, std::u16string_view Tail = {});

 private:
  bool FitsCut(std::u16string_view Head, std::u16string_view Tail);

  const TCanvas& FCanvas;
  const int FWidth;
  TTextBuffer FCut;
};

bool TShortener::FitsCut(std::u16string_view Head, std::u16string_view Tail) {
  FCut.Clear();
  FCut.Add(Head);
  FCut.Add(Tail);
  FCut.Add(kDots);
  return Fits(FCut.View());
}

std::u16string_view TShortener::Part(std::u16string_view Head, std::u16string_view Tail) {
  // From the short side, so that the end of a long text is not measured again and again.
  size_t fitting = 0, step = 1;
  while (fitting + step < Head.size() && FitsCut(Head.substr(0, fitting + step), Tail)) {
    fitting += step;
    step *= 2;
  }
  size_t tooLong = std::min(fitting + step, Head.size());
  while (tooLong - fitting > 1 && tooLong > fitting) {
    const size_t middle = fitting + (tooLong - fitting) / 2;
    (FitsCut(Head.substr(0, middle), Tail) ? fitting : tooLong) = middle;
  }
  const bool isHalf = fitting > 0 && (Head[fitting - 1] & 0xFC00) == 0xD800;
  return Head.substr(0, isHalf ? fitting - 1 : fitting);
}

// Without the blanks behind First but for those between two digits.
String WithoutBlanks(std::u16string_view Line, size_t First) {
  std::u16string kept;  // from the end
  for (size_t i = Line.size() - 1; i > First; --i) {
    const bool parts = !kept.empty() && IsDigit(kept.back()) && IsDigit(Line[i - 1]);
    if (Line[i] != u' ' || parts) kept += Line[i];
  }
  return Concat({Line.substr(0, First + 1), std::u16string(kept.rbegin(), kept.rend())});
}

std::u16string_view FirstCharacter(std::u16string_view Text) noexcept {
  const bool isPair = Text.size() > 1 && (Text[0] & 0xFC00) == 0xD800 && (Text[1] & 0xFC00) == 0xDC00;
  return Text.substr(0, isPair ? 2 : 1);
}

}  // namespace

String ShortenedLine(const TCanvas& Canvas, const String& Line, int Width, bool ProtectsNumbers) {
  TShortener shortener(Canvas, Width);
  if (Line.empty() || shortener.Fits(Line)) return Line;
  String line = Line;
  size_t head = static_cast<size_t>(line.size());
  const auto digit = std::find_if(line.view().begin(), line.view().end(), IsDigit);
  if (ProtectsNumbers && digit != line.view().end()) {
    head = static_cast<size_t>(digit - line.view().begin());
    line = WithoutBlanks(line, head);
    if (shortener.Fits(line)) return line;
  }
  const std::u16string_view text = line;
  if (!shortener.IsNarrower(kDots)) {
    const std::u16string_view first = FirstCharacter(text);
    return shortener.IsNarrower(first) ? String(first) : String();
  }
  const std::u16string_view numbers = text.substr(head), part = shortener.Part(text.substr(0, head), numbers);
  if (!part.empty() || numbers.empty()) return Concat({part, kDots, numbers});
  if (shortener.Fits(numbers)) return String(numbers);
  return Concat({shortener.Part(numbers), kDots});
}

}  // namespace vx::detail
