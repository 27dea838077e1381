#include "core/uVxFunctionsSerialize/WordWrap.h"

#include <algorithm>
#include <vector>

#include "platform/Text.h"
#include "platform/TextForms.h"
#include "platform/Types.h"

namespace vx {

namespace {

constexpr size_t kNone = std::u16string_view::npos;

void AppendPiece(TCells& Pieces, std::u16string_view Text) {
  Text = TrimRightView(Text);
  Pieces.emplace_back(Text.empty() ? std::u16string_view(u" ") : Text);
}

void WrapPlain(TCells& Pieces, std::u16string_view Text, size_t Width) {
  while (Text.size() > Width) {
    size_t space = Text.rfind(u' ', Width - 1);
    size_t taken = space == kNone ? Width : space + 1;
    AppendPiece(Pieces, Text.substr(0, taken));
    Text.remove_prefix(taken);
  }
  if (!Text.empty()) AppendPiece(Pieces, Text);
}

// For each place in Text the visible length of what begins there.
std::vector<size_t> VisibleLengths(std::u16string_view Text) {
  std::vector<size_t> result(Text.size() + 1);
  size_t close = kNone;
  for (size_t i = Text.size(); i-- > 0;) {
    if (Text[i] == u'>') close = i;
    if (Text[i] != u'<') {
      result[i] = result[i + 1] + 1;
    } else {
      result[i] = close == kNone ? Text.size() - i : result[close + 1];
    }
  }
  return result;
}

// Where Text, whose visible length is above Width, breaks.
size_t TinyBreak(std::u16string_view Text, size_t Width) {
  size_t visible = 0;   // of the units outside tags
  size_t open = kNone;  // where the tag begins in which i stands
  size_t depth = 0;     // of "<" without ">"
  bool stray = false;   // a ">" had no "<" to pair with
  size_t balanced = 0;  // the longest prefix that pairs up
  size_t atSpace = 0;   // the same up to the last space
  for (size_t i = 0; i < Text.size(); ++i) {
    char16_t unit = Text[i];
    if (unit == u'<') {
      ++depth;
      if (open == kNone) open = i;
    } else if (unit == u'>') {
      stray = stray || depth == 0;
      if (stray && balanced == 0) return Width;
      if (depth > 0) --depth;
    }
    if (open == kNone) ++visible;
    if (unit == u'>') open = kNone;
    if (depth == 0 && !stray) balanced = i + 1;
    if (unit == u' ') atSpace = balanced;
    if (visible + (open == kNone ? 0 : i + 1 - open) >= Width) break;
  }
  return atSpace > 0 ? atSpace : Width;
}

void WrapTiny(TCells& Pieces, std::u16string_view Text, size_t Width) {
  std::vector<size_t> visible = VisibleLengths(Text);
  const size_t lastSpace = Text.rfind(u' ');
  size_t pos = 0;
  while (visible[pos] > Width) {
    bool hasSpace = lastSpace != kNone && lastSpace >= pos;
    size_t taken = hasSpace ? TinyBreak(Text.substr(pos), Width) : Width;
    AppendPiece(Pieces, Text.substr(pos, taken));
    pos += taken;
  }
  if (pos < Text.size()) AppendPiece(Pieces, Text.substr(pos));
}

template <typename TWrap>
String WrapCommatext(std::u16string_view Text, int Width, TWrap Wrap) {
  TCells cells = ReadCommatext(Text);
  if (Width < 1) return WriteCommatext(cells);
  TCells result;
  for (String& cell : cells) {
    if (cell.size() > Width) {
      Wrap(result, cell, static_cast<size_t>(Width));
    } else {
      result.push_back(std::move(cell));
    }
  }
  return WriteCommatext(result);
}

constexpr TCharSet kDigits = TCharSet::Range(u'0', u'9');
constexpr TCharSet kInWords =
    kDigits + TCharSet::Range(u'A', u'Z') + TCharSet::Range(u'a', u'z') + TCharSet(u"ÄÖÜßäöü");

// Whether a line may end with the unit at Index, which is not the last one of Line.
bool MayEndLine(std::u16string_view Line, size_t Index) {
  char16_t unit = Line[Index];
  if (kInWords.Has(unit)) return false;
  if (unit != u',' && unit != u'.') return true;
  return Index == 0 || !kDigits.Has(Line[Index - 1]) || !kDigits.Has(Line[Index + 1]);
}

// How much of Line, which is longer than Width, stays; at least one unit.
size_t LineBreak(std::u16string_view Line, size_t Width) {
  size_t size = Width;
  while (size > 0 && !MayEndLine(Line, size - 1)) --size;
  return size > 0 ? size : Width;
}

// The lines into which Line breaks.
TCells BreakLine(std::u16string_view Line, size_t Width, size_t Indent) {
  TCells lines;
  const String blanks(static_cast<int>(Indent), u' ');
  std::u16string_view indent;
  while (Line.size() > Width - indent.size()) {
    size_t taken = LineBreak(Line, Width - indent.size());
    lines.push_back(Concat({indent, Line.substr(0, taken)}));
    Line.remove_prefix(taken);
    indent = blanks;
  }
  lines.push_back(Concat({indent, Line}));
  return lines;
}

// Brings the item now at Order[i] to index i, for all i.
void Rearrange(TStrings& Strings, const std::vector<int>& Order) {
  std::vector<int> item(Order.size());   // which one stands at an index
  std::vector<int> place(Order.size());  // where one stands
  for (size_t i = 0; i < Order.size(); ++i) item[i] = place[i] = static_cast<int>(i);
  for (size_t i = 0; i < Order.size(); ++i) {
    size_t from = static_cast<size_t>(place[static_cast<size_t>(Order[i])]);
    if (from == i) continue;
    Strings.Exchange(static_cast<int>(i), static_cast<int>(from));
    std::swap(item[i], item[from]);
    place[static_cast<size_t>(item[i])] = static_cast<int>(i);
    place[static_cast<size_t>(item[from])] = static_cast<int>(from);
  }
}

}  // namespace

String WordWrapCommatext(std::u16string_view Text, int Width) { return WrapCommatext(Text, Width, WrapPlain); }

String WordWrapTINYCommatext(std::u16string_view Text, int Width) { return WrapCommatext(Text, Width, WrapTiny); }

bool WordWrapStrings(TStrings& Strings, int Width, int Indent) {
  const int count = Strings.GetCount();
  if (count == 0 || Width < 1) return false;
  TUpdateScope scope(Strings);
  const size_t width = static_cast<size_t>(Width);
  const size_t indent = static_cast<size_t>(std::clamp(Indent, 0, Width - 1));
  // The new lines are added behind all others and then brought to their places together.
  std::vector<int> order;
  for (int i = 0; i < count; ++i) {
    order.push_back(i);
    String line = Strings.Get(i);
    if (line.size() <= Width) continue;
    TCells lines = BreakLine(line, width, indent);
    Strings.Put(i, lines[0]);
    for (size_t k = 1; k < lines.size(); ++k) order.push_back(Strings.Add(lines[k]));
  }
  Rearrange(Strings, order);
  return Strings.GetCount() > count;
}

}  // namespace vx
