// The cells of a commatext and the lines of a text, handed over one by one, so that a cell costs no list.
#pragma once

#include <string_view>

#include "platform/IniLine.h"
#include "platform/Scan.h"
#include "platform/TextBuffer.h"
#include "platform/detail/CellReader.h"

namespace vx::detail {

// What TCellReader asks for; hands each cell to Take(std::u16string_view).
template <typename F>
struct TCellTaker {
  using Unit = char16_t;
  static constexpr char16_t Delimiter = u',';
  static constexpr char16_t Quote = u'"';

  template <bool kLines>
  const char16_t* TakeUnquoted(const char16_t* First, const char16_t* Last) {
    const char16_t* stop = scan::FindBlankOr(First, Last, Delimiter);
    Take({First, static_cast<size_t>(stop - First)});
    return stop;
  }
  const char16_t* NextQuote(const char16_t* First, const char16_t* Last) const {
    return scan::FindUnit(First, Last, Quote);
  }
  void TakeEmpty() { Take({}); }
  void TakeQuoted(const char16_t* Text, size_t Count, size_t Pairs) {
    if (Pairs == 0) return Take({Text, Count});
    Buffer.Clear();
    for (size_t i = 0; i < Count; ++i) {
      Buffer.Add(Text[i]);
      if (Text[i] == Quote) ++i;
    }
    Take(Buffer.View());
  }

  F& Call;
  TTextBuffer Buffer{};
  void Take(std::u16string_view Cell) { Call(Cell); }
};

// Hands each cell of a commatext to Take(std::u16string_view), which may look at it only meanwhile.
template <typename F>
void ForEachCell(std::u16string_view Commatext, F Take) {
  TCellTaker<F> taker{Take};
  TCellReader<false, TCellTaker<F>> reader(taker, Commatext.data(), Commatext.data() + Commatext.size());
  reader.ReadRow();
}

// Hands over the lines as TStrings::SetTextStr finds them.
template <typename F>
void ForEachTextLine(std::u16string_view Text, F Take) {
  ForEachLine(Text.substr(0, Text.find(u'\0')), Take);
}

}  // namespace vx::detail
