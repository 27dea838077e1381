#include "core/uVxFunctionsSerialize/TrimLines.h"

#include <span>

#include "core/uVxFunctionsSerialize/WordWrap.h"
#include "platform/Text.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

constexpr char16_t kSection = 255;

bool IsBlank(std::u16string_view Line) { return TrimView(Line).empty(); }

void TrimSides(TStrings& Strings, bool Left, bool Right) {
  for (int i = Strings.GetCount() - 1; i >= 0; --i) {
    String line = Strings.Get(i);
    if (Left) line = TrimLeft(line);
    if (Right) line = TrimRight(line);
    Strings.Put(i, line);
  }
}

// Deletes the blank lines from index First up to, not including, Last. The others move up first, so
// that all deleting happens at the end of the list.
void DeleteBlank(TStrings& Strings, int First, int Last) {
  int count = Strings.GetCount();
  int kept = First;
  for (int i = First; i < count; ++i) {
    if (i < Last && IsBlank(Strings.Get(i))) continue;
    if (i == kept && i >= Last) return;
    if (i != kept) Strings.Exchange(kept, i);
    ++kept;
  }
  for (int i = count - 1; i >= kept; --i) Strings.Delete(i);
}

String TrimmedCommatext(const TStrings& Strings, bool Left, bool Right) {
  TCells cells;
  for (int i = 0; i < Strings.GetCount(); ++i) cells.push_back(Strings.Get(i));
  std::span<const String> rest = cells;
  while (Left && !rest.empty() && IsBlank(rest.front())) rest = rest.subspan(1);
  while (Right && !rest.empty() && IsBlank(rest.back())) rest = rest.first(rest.size() - 1);
  return WriteCommatext(rest);
}

}  // namespace

bool TrimStrings(TStrings& Strings, bool TrimLeft, bool TrimRight, bool RemoveLeading, bool RemoveTrailing,
                 bool RemoveInner) {
  if (Strings.GetCount() == 0) return false;
  TUpdateScope scope(Strings);
  if (TrimLeft || TrimRight) TrimSides(Strings, TrimLeft, TrimRight);
  int last = Strings.GetCount() - 1;
  for (; last >= 0 && IsBlank(Strings.Get(last)); --last) {
    if (RemoveTrailing) Strings.Delete(last);
  }
  int first = 0;
  while (first < Strings.GetCount() - 1 && IsBlank(Strings.Get(first))) ++first;
  if (RemoveLeading) {
    if (first < Strings.GetCount() && IsBlank(Strings.Get(first))) ++first;
    DeleteBlank(Strings, 0, first);
    first = 0;
  }
  // The last index counts from before the deletion at the start: this is wanted.
  if (RemoveInner && first < last - 1) {
    Strings.Get(last - 1);
    DeleteBlank(Strings, first + 1, last);
  }
  return Strings.GetCount() > 0;
}

String TrimString(const TStrings& Strings) { return TrimmedCommatext(Strings, true, true); }
String TrimStringLeft(const TStrings& Strings) { return TrimmedCommatext(Strings, true, false); }
String TrimStringRight(const TStrings& Strings) { return TrimmedCommatext(Strings, false, true); }

String TrimUltimate(const TStrings& Strings) {
  TCells cells = ReadCommatext(Strings.GetCommaText());
  for (String& cell : cells) cell = Trim(cell);
  std::erase_if(cells, [](const String& cell) { return cell.empty(); });
  return WriteCommatext(cells);
}

bool DecorateStrings(TStrings& Strings, bool TrimLeft, bool TrimRight, bool RemoveLeading, bool RemoveTrailing,
                     bool RemoveInner, bool Wrap, int Width) {
  auto trim = [&] { return TrimStrings(Strings, TrimLeft, TrimRight, RemoveLeading, RemoveTrailing, RemoveInner); };
  if (Strings.GetCount() == 0) return false;
  bool left = trim();
  return Wrap && WordWrapStrings(Strings, Width, 0) ? trim() : left;
}

bool GetMyCommatext(std::u16string_view Name, const TStrings& Strings, int& First, int& Last) {
  First = 0;
  Last = 0;
  const String header = Concat({std::u16string_view(&kSection, 1), Name});
  const int count = Strings.GetCount();
  bool inside = Name.empty();
  for (int i = 0; i < count; ++i) {
    const String line = Strings.Get(i);
    if (line == header) {
      inside = true;
      if (i + 1 < count) First = i + 1;
    } else if (inside) {
      bool ends = line.size() >= 2 && line[0] == kSection && line[1] == u'T';
      if (!ends && i + 1 < count) continue;
      Last = ends ? i - 1 : i;
      return First <= Last;
    }
  }
  First = 0;
  Last = -1;
  return false;
}

}  // namespace vx
