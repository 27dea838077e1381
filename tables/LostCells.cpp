#include "tables/LostCells.h"

#include <algorithm>

#include "platform/TextBuffer.h"

namespace vx {

String TLostCells::ToText() const {
  if (IsEmpty()) return {};
  constexpr size_t kMostTold = 3;
  TTextBuffer text;
  text.AddNumber(static_cast<uint64_t>(Count));
  text.Add(Count == 1 ? u" Zelle kann" : u" Zellen können");
  text.Add(u" nicht gespeichert werden: ");
  for (size_t i = 0; i < std::min(First.size(), kMostTold); ++i) {
    if (i > 0) text.Add(u"; ");
    text.Add(u"Zeile ");
    text.AddNumber(static_cast<uint64_t>(First[i].Row) + 1);
    text.Add(u", Spalte ");
    text.AddNumber(static_cast<uint64_t>(First[i].Col) + 1);
    text.Add(First[i].Reason == lrCharacter ? u" (Zeichen)" : u" (Dateiform)");
  }
  if (Count > static_cast<int64_t>(kMostTold)) text.Add(u" …");
  return text.ToString();
}

}  // namespace vx
