// A table file made row by row, without a table. The unit's header tells the rules.
#pragma once

#include <cstdint>
#include <cstdlib>
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
  // std::bad_alloc leaves the rows before it.
  void Write(std::span<const String> Cells);
  void Write(std::initializer_list<String> Cells) { Write(std::span<const String>(Cells.begin(), Cells.size())); }

  // All rows so far, behind the byte order mark; until the next Write.
  std::string_view Bytes() const noexcept { return {FBytes.get(), FSize}; }
  // Places in the rows so far, the first of them row 0.
  const TLostCells& Lost() const noexcept { return FLost; }

 private:
  char* PutCell(char* Target, std::u16string_view Cell);
  // Where a cell ends that stands as it is; nullptr for one that needs quotes or a closer look.
  char* PutPlain(char* Target, const char16_t* Units, size_t Count) const;
  bool PutEight(char*& Target, const char16_t* Units, size_t From, size_t To) const;
  bool PutWide(char*& Target, std::u16string_view Units, uint64_t Bytes, unsigned Wide) const;
  char* PutUnits(char* Target, std::u16string_view Cell, bool IsQuoted);
  char* PutUnit(char* Target, char16_t Unit) const;
  char* PutPiece(char* Target, std::u16string_view Piece);
  char* PutUtf8(char* Target, std::u16string_view Text, size_t& Pos);
  bool NeedsQuotes(std::u16string_view Cell) const;
  // Target, or its new place where there is room for Count bytes more.
  char* Room(char* Target, size_t Count);

  TCsvForm FForm;
  static constexpr size_t kLanes = 8;
  char16_t FSeparators[kLanes], FQuotes[kLanes];  // each as often as units are looked at in one step
  const TCodePage* FPage;                         // nullptr for UTF-8 and UTF-16
  struct TFree {
    void operator()(char* Bytes) const noexcept { std::free(Bytes); }
  };
  std::unique_ptr<char, TFree> FBytes;
  char* FEnd = nullptr;  // of the bytes that there is room for
  size_t FSize = 0;
  int FRow = 0, FCol = 0;
  bool FIsLost = false, FIsFormLost = false;  // of the present cell: a character, the form
  TLostCells FLost;
};

}  // namespace vx
