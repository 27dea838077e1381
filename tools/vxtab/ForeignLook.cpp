#include "tools/vxtab/ForeignLook.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "tools/vxtab/ForeignRows.h"

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
  static constexpr size_t kPiece = size_t{256} * 1024;  // more than GuessEncoding looks at for zeros
  TFileStream FFile;
  std::string FBytes;
  size_t FUsed = 0;
  bool FAtEnd = false;
};

TFileEncoding EncodingOf(const String& Path) {
  TPieces pieces(Path);
  TEncodingGuess guess(pieces.Unused(), pieces.GetSize());
  for (;;) {
    pieces.Use(guess.Look(pieces.Unused(), pieces.AtEnd()));
    if (guess.IsSure() || pieces.AtEnd()) return guess.Get();
    (void)pieces.More();
  }
}

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

std::string FirstUnlikeRow(const TFileCsv& Table, TPieces& Pieces, char Separator) {
  TRowsBeside rows(Table);
  for (;;) {
    const std::string_view bytes = Pieces.Unused();
    const char* const end = bytes.data() + bytes.size();
    const char* pos = bytes.data();
    while (pos != end) {
      TCellCount row;
      const char* next = WalkRow(pos, end, Separator, row);
      if (next == end && !Pieces.AtEnd()) break;  // it may go on in the next piece
      if (!rows.Next(row.Cells)) return rows.Difference();
      pos = next;
    }
    Pieces.Use(static_cast<size_t>(pos - bytes.data()));
    if (Pieces.AtEnd()) return rows.Difference();
    (void)Pieces.More();
  }
}

}  // namespace

TForeignLook LookAsForeign(const TFileCsv& Table, const String& Path) {
  TForeignLook look;
  look.Encoding = EncodingOf(Path);
  if (look.Encoding == encUtf16Le || look.Encoding == encUtf16Be) {
    std::string bytes;
    TFileStream(Path, fmOpenRead | fmShareDenyNone).ReadRest(bytes, SIZE_MAX / 4);
    look.Separator = TFileCsv::AnalyseToParse(DecodeForeign(bytes).Text)[0];
    look.Hint = std::string("it looks like ") + EncodingName(look.Encoding);
    return look;
  }
  TPieces pieces(Path);
  look.Separator = TFileCsv::AnalyseToParse(GetSystemCodePage().Decode(FirstLine(pieces)))[0];
  if (look.Encoding == encAscii || look.Encoding == encCodePage) {
    look.Hint = FirstUnlikeRow(Table, pieces, static_cast<char>(look.Separator));
  } else {
    look.Hint = std::string("it looks like ") + EncodingName(look.Encoding);
  }
  return look;
}

}  // namespace vx::vxtab
