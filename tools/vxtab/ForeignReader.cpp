#include "tools/vxtab/ForeignReader.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>
#include <memory>
#include <vector>

#include "platform/CodePage.h"
#include "platform/Scan.h"
#include "tools/vxtab/ForeignRows.h"

namespace vx::vxtab {

namespace {

// Walks rows and cells. The sink has Cell as WalkRow asks, and Row(), which gives false to stop.
template <typename TSink>
void Walk(std::u16string_view Text, char16_t Separator, TSink& Sink) {
  const char16_t* pos = Text.data();
  const char16_t* const end = pos + Text.size();
  while (pos != end) {
    pos = WalkRow(pos, end, Separator, Sink);
    if (!Sink.Row()) return;
  }
}

// The value of a cell that begins with a quote.
String Unquote(std::u16string_view Raw) {
  String value;
  const char16_t* pos = Raw.data() + 1;
  const char16_t* const end = Raw.data() + Raw.size();
  const char16_t* quote = scan::FindUnit(pos, end, u'"');
  value.Reserve(static_cast<int>(Raw.size()));
  while (end - quote > 1 && quote[1] == u'"') {
    value += std::u16string_view(pos, static_cast<size_t>(quote + 1 - pos));
    pos = quote + 2;
    quote = scan::FindUnit(pos, end, u'"');
  }
  value += std::u16string_view(pos, static_cast<size_t>(quote - pos));
  if (quote != end) value += std::u16string_view(quote + 1, static_cast<size_t>(end - quote - 1));
  return value;
}

struct TTableSink {
  const String& Text;
  TFileCsv& Table;
  TCells Cells{};

  void Cell(const char16_t* First, size_t Count) {
    int offset = static_cast<int>(First - Text.data());
    int count = static_cast<int>(Count);
    if (Count == 0 || *First != u'"') {
      Cells.push_back(Text.Slice(offset, count));
      return;
    }
    // Most quoted cells are their raw text without the outer quotes.
    std::u16string_view inner(First + 1, Count > 1 ? Count - 2 : 0);
    bool isPlain = Count > 1 && First[Count - 1] == u'"' && inner.find(u'"') == inner.npos;
    Cells.push_back(isPlain ? Text.Slice(offset + 1, count - 2) : Unquote({First, Count}));
  }
  bool Row() {
    auto row = std::make_unique<TVxStringList>();
    row->TakeCells(Cells);
    Cells.clear();
    Table.Add(row.get());
    (void)row.release();  // the table has it
    return true;
  }
};

struct TCountSink : TCellCount {
  explicit TCountSink(FunctionRef<bool(int)> Take) : TakeCount(Take) {}
  bool Row() { return TakeCount(std::exchange(Cells, 0)); }
  FunctionRef<bool(int)> TakeCount;
};

bool IsContinuation(std::string_view Bytes, size_t Index) {
  return Index < Bytes.size() && (static_cast<uint8_t>(Bytes[Index]) & 0xC0) == 0x80;
}

// The number of bytes of the valid UTF-8 character at Index; 0 if there is none.
size_t Utf8Length(std::string_view Bytes, size_t Index) {
  uint8_t lead = static_cast<uint8_t>(Bytes[Index]);
  if (lead < 0x80) return 1;
  size_t length = lead >= 0xC2 && lead < 0xE0   ? 2
                  : lead >= 0xE0 && lead < 0xF0 ? 3
                  : lead >= 0xF0 && lead < 0xF5 ? 4
                                                : 0;
  for (size_t i = 1; i < length; ++i) {
    if (!IsContinuation(Bytes, Index + i)) return 0;
  }
  uint8_t second = length > 2 ? static_cast<uint8_t>(Bytes[Index + 1]) : 0;
  bool isOverlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
  bool isBeyond = (lead == 0xED && second >= 0xA0) || (lead == 0xF4 && second >= 0x90);
  return isOverlong || isBeyond ? 0 : length;
}

// UTF-16 without a mark: in every other place of the beginning nearly all bytes are zero, and hardly
// one in the others. encAscii if it is not so.
TFileEncoding Utf16ByZeros(std::string_view Bytes, int64_t Size) {
  size_t length = std::min<size_t>(Bytes.size(), 65536) / 2 * 2;
  size_t zeros[2] = {};
  for (size_t i = 0; i < length; ++i) zeros[i & 1] += Bytes[i] == '\0';
  if (length == 0 || Size % 2 != 0) return encAscii;
  if (zeros[1] > length / 4 && zeros[0] <= length / 20) return encUtf16Le;
  if (zeros[0] > length / 4 && zeros[1] <= length / 20) return encUtf16Be;
  return encAscii;
}

String DecodeUtf16(std::string_view Bytes, bool LittleEndFirst) {
  return String::Build(Bytes.size() / 2, [&](char16_t* units) {
    for (size_t i = 0; i + 1 < Bytes.size(); i += 2) {
      auto first = static_cast<uint8_t>(Bytes[i]), second = static_cast<uint8_t>(Bytes[i + 1]);
      *units++ = static_cast<char16_t>(LittleEndFirst ? first | second << 8 : first << 8 | second);
    }
  });
}

}  // namespace

const char* EncodingName(TFileEncoding Encoding) noexcept {
  static constexpr const char* kNames[] = {"ASCII",
                                           "code page",
                                           "UTF-8",
                                           "UTF-8 with a byte order mark",
                                           "UTF-16, little end first",
                                           "UTF-16, big end first"};
  return kNames[Encoding];
}

TEncodingGuess::TEncodingGuess(std::string_view Beginning, int64_t Size) noexcept {
  if (Beginning.starts_with("\xEF\xBB\xBF")) {
    FEncoding = encUtf8Mark;
  } else if (Beginning.starts_with("\xFF\xFE")) {
    FEncoding = encUtf16Le;
  } else if (Beginning.starts_with("\xFE\xFF")) {
    FEncoding = encUtf16Be;
  } else {
    FEncoding = Utf16ByZeros(Beginning, Size);
  }
  FIsSure = FEncoding != encAscii;
}

size_t TEncodingGuess::Look(std::string_view Bytes, bool AreLast) noexcept {
  constexpr size_t kLongest = 4;  // bytes of a character
  size_t i = 0;
  while (i < Bytes.size() && !FIsSure) {
    for (uint64_t word; Bytes.size() - i >= sizeof word; i += sizeof word) {
      std::memcpy(&word, Bytes.data() + i, sizeof word);
      if ((word & 0x8080808080808080) != 0) break;
    }
    if (i == Bytes.size() || (!AreLast && Bytes.size() - i < kLongest)) break;
    const size_t length = Utf8Length(Bytes, i);
    if (length > 1) FEncoding = encUtf8;
    if (length == 0) FEncoding = encCodePage;
    FIsSure = length == 0;
    i += length;
  }
  return i;
}

TFileEncoding GuessEncoding(std::string_view Bytes) noexcept {
  TEncodingGuess guess(Bytes, static_cast<int64_t>(Bytes.size()));
  (void)guess.Look(Bytes, true);
  return guess.Get();
}

TForeignText DecodeForeign(std::string_view Bytes) {
  TForeignText result;
  result.Encoding = GuessEncoding(Bytes);
  if (result.Encoding == encUtf8Mark) {
    result.Text = String::FromUtf8(Bytes.substr(3));
  } else if (result.Encoding == encUtf8) {
    result.Text = String::FromUtf8(Bytes);
  } else if (result.Encoding == encUtf16Le || result.Encoding == encUtf16Be) {
    result.Text = DecodeUtf16(Bytes, result.Encoding == encUtf16Le);
    if (!result.Text.empty() && result.Text[0] == 0xFEFF) result.Text = result.Text.Slice(1);
  } else {
    result.Text = GetSystemCodePage().Decode(Bytes);
  }
  return result;
}

char16_t GuessSeparator(std::u16string_view Text) {
  constexpr size_t kSample = 262144;
  constexpr int kRows = 100;
  char16_t best = u',';
  int bestRows = 0;
  for (char16_t candidate : {u'\x1B', u'\t', u';', u','}) {
    std::map<int, int> rowsByCells;
    int rows = 0;
    CountForeign(Text.substr(0, kSample), candidate, [&](int cells) {
      if (cells > 1) ++rowsByCells[cells];
      return ++rows < kRows;
    });
    for (auto [cells, count] : rowsByCells) {
      if (count <= bestRows) continue;
      best = candidate;
      bestRows = count;
    }
  }
  return best;
}

void ReadForeign(const String& Text, char16_t Separator, TFileCsv& Table) {
  TTableSink sink{Text, Table};
  Walk(Text, Separator, sink);
}

void CountForeign(std::u16string_view Text, char16_t Separator, FunctionRef<bool(int Cells)> TakeCount) {
  TCountSink sink{TakeCount};
  Walk(Text, Separator, sink);
}

}  // namespace vx::vxtab
