#include "tools/vxtab/ForeignLook.h"

#include <algorithm>
#include <string_view>

#include "platform/CodePage.h"
#include "platform/Encoding.h"
#include "platform/Files.h"

namespace vx::vxtab {

namespace {

// A file in pieces: what is not used of one begins the next.
class TPieces {
 public:
  explicit TPieces(const String& Path) : FFile(Path, fmOpenRead | fmShareDenyNone) { (void)More(); }
  std::string_view Unused() const noexcept { return std::string_view(FBytes).substr(FUsed); }
  void Use(size_t Count) noexcept { FUsed += Count; }
  bool AtEnd() const noexcept { return FAtEnd; }
  int64_t GetSize() const { return FFile.GetSize(); }
  // Reads on, more each time that nothing was used; false at the end of the file.
  bool More() {
    FBytes.erase(0, FUsed);
    FUsed = 0;
    const size_t had = FBytes.size();
    FBytes.resize(std::max(kPiece, 2 * had));
    const size_t count = FFile.Read(FBytes.data() + had, FBytes.size() - had);
    FBytes.resize(had + count);
    FAtEnd = count == 0;
    return !FAtEnd;
  }

 private:
  static constexpr size_t kPiece = size_t{256} * 1024;  // more than a guess looks at for zeros
  TFileStream FFile;
  std::string FBytes;
  size_t FUsed = 0;
  bool FAtEnd = false;
};

// The first line as the library sees it, at least.
std::string_view FirstLine(TPieces& Pieces) {
  bool inQuotes = false;
  size_t at = 0;
  do {
    for (const std::string_view bytes = Pieces.Unused(); at < bytes.size(); ++at) {
      if (bytes[at] == '"') inQuotes = !inQuotes;
      if (!inQuotes && (bytes[at] == '\r' || bytes[at] == '\n')) return bytes.substr(0, at + 1);
    }
  } while (Pieces.More());
  return Pieces.Unused();
}

// The rows of a table beside those that other programs would see. Rows without cells don't count, since the
// library takes two line feeds for one line end.
class TRowsBeside {
 public:
  explicit TRowsBeside(const TFileCsv& Table) : FTable(Table) {}
  // False for the first row whose number of cells is another.
  bool Next(int Cells) {
    if (Cells == 0) return true;
    SkipEmpty();
    const int own = FRow < FTable.GetCount() ? FTable.GetLines(FRow)->GetCount() : 0;
    if (own == Cells) {
      ++FRow;
      return true;
    }
    FDifference = own == 0 ? "it would have more rows than the " + std::to_string(FTable.GetCount()) + " read now"
                           : "row " + std::to_string(FRow) + " would have " + std::to_string(Cells) +
                                 " cells instead of " + std::to_string(own);
    return false;
  }
  // The difference in words, after the last row.
  std::string Difference() {
    SkipEmpty();
    if (!FDifference.empty() || FRow == FTable.GetCount()) return FDifference;
    return "it would have " + std::to_string(FRow) + " rows";
  }

 private:
  void SkipEmpty() {
    while (FRow < FTable.GetCount() && FTable.GetLines(FRow)->GetCount() == 0) ++FRow;
  }
  const TFileCsv& FTable;
  int FRow = 0;
  std::string FDifference;
};

std::string FirstUnlikeRow(const TFileCsv& Table, const String& Path, char16_t Separator) {
  TRowsBeside rows(Table);
  TCsvReader reader(Path, {.Separator = Separator, .Encoding = ceCodePage});
  for (int cells = reader.Skip(); cells >= 0; cells = reader.Skip()) {
    if (!rows.Next(cells)) break;
  }
  return rows.Difference();
}

const TEncoding& EncodingOf(TCsvEncoding Encoding) {
  if (Encoding == ceUtf8) return TEncoding::Utf8();
  if (Encoding == ceUtf16) return TEncoding::Utf16();
  return Encoding == ceUtf16BigEndian ? TEncoding::Utf16BigEndian() : TEncoding::Default();
}

}  // namespace

std::string EncodingName(TCsvEncoding Encoding, bool HasMark, int CodePage) {
  if (Encoding == ceUtf8) return HasMark ? "UTF-8 with a byte order mark" : "UTF-8";
  if (Encoding == ceUtf16) return "UTF-16, little end first";
  if (Encoding == ceUtf16BigEndian) return "UTF-16, big end first";
  if (Encoding == ceGuess) return "ASCII";
  return CodePage == 0 ? "code page" : "code page " + std::to_string(CodePage);
}

TCsvEncodingGuess GuessEncoding(std::string_view Bytes) noexcept {
  TCsvEncodingGuess guess(Bytes, static_cast<int64_t>(Bytes.size()));
  (void)guess.Look(Bytes, true);
  return guess;
}

TCsvEncodingGuess GuessEncodingOf(const String& Path) {
  TPieces pieces(Path);
  TCsvEncodingGuess guess(pieces.Unused(), pieces.GetSize());
  for (;;) {
    pieces.Use(guess.Look(pieces.Unused(), pieces.AtEnd()));
    if (guess.IsSure() || pieces.AtEnd()) return guess;
    (void)pieces.More();
  }
}

String DecodeForeign(std::string_view Bytes) {
  const TEncoding& encoding = EncodingOf(GuessEncoding(Bytes).Get());
  if (Bytes.starts_with(encoding.Mark())) Bytes.remove_prefix(encoding.Mark().size());
  return encoding.Decode(Bytes);
}

TForeignLook LookAsForeign(const TFileCsv& Table, const String& Path) {
  TForeignLook look;
  const TCsvEncodingGuess guess = GuessEncodingOf(Path);
  const TCsvEncoding encoding = guess.Get();
  if (encoding == ceUtf16 || encoding == ceUtf16BigEndian) {
    std::string bytes;
    TFileStream(Path, fmOpenRead | fmShareDenyNone).ReadRest(bytes, SIZE_MAX / 4);
    look.Separator = TFileCsv::AnalyseToParse(DecodeForeign(bytes))[0];
  } else {
    TPieces pieces(Path);
    look.Separator = TFileCsv::AnalyseToParse(GetSystemCodePage().Decode(FirstLine(pieces)))[0];
  }
  if (encoding == ceGuess || encoding == ceCodePage) {
    look.Hint = FirstUnlikeRow(Table, Path, look.Separator);
  } else {
    look.Hint = "it looks like " + EncodingName(encoding, guess.HasMark());
  }
  return look;
}

}  // namespace vx::vxtab
