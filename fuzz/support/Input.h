// What the fuzz targets share: texts and cells out of the fuzzer's bytes, and checks.
//
//   TInput    takes numbers, texts and cells from the bytes
//   Check     ends the program with the rule that does not hold
//   FUZZ      the entry point of a target
//
// Bytes are taken as the code units of the same number, so that seeds are readable in Latin-1. The byte 0xFF ends a
// cell; 0xFE is followed by two bytes, the high and the low one of any code unit.
//
// Example:
//   FUZZ(Input) {
//     TCells cells = Input.Cells();
//     Check(ReadOffsettext(WriteOffsettext(cells)) == cells, "offsettext reads back");
//   }
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/TextForms.h"

namespace vx::fuzz {

// An abort, which the fuzzer reports with the bytes that led there.
inline void Check(bool Holds, const char* Rule) {
  if (Holds) return;
  std::fprintf(stderr, "does not hold: %s\n", Rule);
  std::abort();
}

// What takes something takes it from the front; what is missing at the end is 0 or empty.
class TInput {
 public:
  TInput(const uint8_t* Data, size_t Size) : FPos(Data), FEnd(Data + Size) {}

  uint8_t Byte() { return FPos == FEnd ? uint8_t{0} : *FPos++; }
  char16_t Unit() {
    uint8_t byte = Byte();
    if (byte != 0xFE) return byte;
    unsigned high = Byte();
    return static_cast<char16_t>(high << 8 | Byte());
  }
  // All bytes that are left, as they are.
  std::string Bytes() {
    std::string result(FPos, FEnd);
    FPos = FEnd;
    return result;
  }
  // The text up to the end of the cell.
  String Text() {
    String result;
    FMore = false;
    while (FPos != FEnd && !FMore) {
      FMore = *FPos == 0xFF;
      if (FMore) {
        ++FPos;
      } else {
        result += Unit();
      }
    }
    return result;
  }
  // All that is left: no cell if nothing is, else one more than there are ends of cells.
  TCells Cells() {
    TCells cells;
    for (FMore = FPos != FEnd; FMore;) cells.push_back(Text());
    return cells;
  }

 private:
  const uint8_t* FPos;
  const uint8_t* FEnd;
  bool FMore = false;  // the last text had an end of its own
};

// The text of all cells in a row, for readers that take one text.
inline String Joined(const TCells& Cells) {
  String result;
  for (const String& cell : Cells) result += cell.view();
  return result;
}

}  // namespace vx::fuzz

// Defines the target's entry point, within namespace vx::fuzz; its body follows and takes from the TInput of that name.
#define FUZZ(Input)                                                         \
  static void RunTarget(TInput& Input);                                     \
  extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size);  \
  extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) { \
    TInput input(Data, Size);                                               \
    RunTarget(input);                                                       \
    return 0;                                                               \
  }                                                                         \
  static void RunTarget(TInput& Input)
