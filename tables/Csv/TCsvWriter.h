// A table file made row by row, without a table. The unit's header tells the rules.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>

#include "platform/String.h"
#include "tables/Csv/TCsvForm.h"
#include "tables/LostCells.h"

namespace vx {

class TCodePage;

// Keeps the bytes of all rows in memory until they are wanted.
//
// Example:
//   vx::TCsvWriter writer({.Separator = u';', .HasMark = false});
//   writer.Write({u"Łukasz", u"1,50 €", u"a;b"});
//   if (writer.Lost().IsEmpty()) vx::ReplaceFileContent(path, writer.Bytes());
class TCsvWriter {
 public:
  // A Separator of 0 is the comma. Raises EArgumentException for a form that can't be.
  explicit TCsvWriter(const TCsvForm& Form = {});
  ~TCsvWriter();
  TCsvWriter(const TCsvWriter&) = delete;
  TCsvWriter& operator=(const TCsvWriter&) = delete;

  // One row. What can't be held counts as lost; of characters that the encoding lacks "?" is written, in UTF-8 U+FFFD.
  // std::bad_alloc leaves all as it was before the row.
  void Write(std::span<const String> Cells);
  void Write(std::initializer_list<String> Cells) { Write(std::span<const String>(Cells.begin(), Cells.size())); }

  // All rows so far, behind the byte order mark; until the next Write.
  std::string_view Bytes() const noexcept { return {FBytes.get(), FSize}; }
  // Places in the rows so far, the first of them row 0.
  const TLostCells& Lost() const noexcept { return FLost; }

 private:
  char* PutCell(char* Target, std::u16string_view Cell);
  // The cell as it is; false where that needs a closer look, with nothing but scratch written.
  bool PutPlain(char* Target, const char16_t* Units, size_t Count) const;
  bool PutEight(char* Target, const char16_t* Units, size_t Count) const;
  char* PutUnits(char* Target, std::u16string_view Cell, bool IsQuoted);
  char* PutUnit(char* Target, char16_t Unit) const;
  char* PutUtf8(char* Target, std::u16string_view Text, size_t& Pos);
  bool NeedsQuotes(std::u16string_view Cell) const;
  char* Room(size_t Count);

  TCsvForm FForm;
  const TCodePage* FPage;  // nullptr for UTF-8 and UTF-16
  std::unique_ptr<char[]> FBytes;
  size_t FSize = 0, FCapacity = 0;
  int FRow = 0, FCol = 0;
  bool FIsLost = false, FIsFormLost = false;  // of the present cell: a character, the form
  TLostCells FLost;
};

}  // namespace vx
