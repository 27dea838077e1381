// Writes rows as lines of bytes in the system's code page. Internal to uFileCsv.
#pragma once

#include <span>

#include "platform/CodePage.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx::detail {

// How a file's cells are joined and quoted.
enum TRowForm : uint8_t {
  rfCommatext,  // quoted are cells with a unit from 1 to 32, a double quote or a comma before any 0
  rfChar,       // quoted are cells with a unit below 33, a double quote or the separator
  rfPlain       // nothing is quoted
};

// Puts lines somewhere through one buffer, which has to have room for the longest. The caller flushes at the end.
class TRowWriter {
 public:
  using TPut = FunctionRef<void(const char* Bytes, size_t Count)>;

  TRowWriter(TPut Put, TRowForm Form, char16_t Separator, std::span<char> Buffer);
  // The room that a line of these cells takes at most.
  static size_t MostBytes(std::span<const String> Cells) noexcept;
  // A larger buffer is of no use, unless a line needs it.
  static constexpr size_t kGoodBuffer = 256 * 1024;
  TRowWriter(const TRowWriter&) = delete;
  TRowWriter& operator=(const TRowWriter&) = delete;
  // One line, with carriage return and line feed.
  void Write(std::span<const String> Cells);
  void Flush();
  // The bytes of all lines so far.
  int64_t GetBytes() const noexcept { return FFlushed + (FNext - FBuffer.data()); }

 private:
  char* PutCell(char* Target, const char16_t* Units, size_t Count);
  char* PutSpecialCell(char* Target, const char16_t* Units, size_t Count);
  // Puts the units down unquoted; false if one of them may need quotes.
  bool PutUnquoted(char* Target, const char16_t* Units, size_t Count) const;
  bool PutEight(char* Target, const char16_t* Units, size_t Count) const;
  bool NeedsQuotes(const char16_t* Units, size_t Count) const;

  TPut FPut;
  const TCodePage& FPage;
  TRowForm FForm;
  char16_t FSeparator;
  std::span<char> FBuffer;
  char* FNext;
  int64_t FFlushed = 0;
};

}  // namespace vx::detail
