// Which encoding the bytes of a text file are in.
#pragma once

#include <cstdint>
#include <string_view>

#include "tables/Csv/TCsvForm.h"

namespace vx {

// By the byte order mark; without one UTF-16 by its zero bytes, UTF-8 if there are characters beyond ASCII and all are
// valid, otherwise a code page. For bytes that come in pieces.
//
// Example:
//   vx::TCsvEncodingGuess guess(bytes, static_cast<int64_t>(bytes.size()));
//   (void)guess.Look(bytes, true);
//   guess.Get();                       // vx::ceUtf8
class TCsvEncodingGuess {
 public:
  // Beginning: at least 65,536 bytes, or all of Size if they are fewer.
  TCsvEncodingGuess(std::string_view Beginning, int64_t Size) noexcept;
  // Looks at the next bytes, and returns how many of them it is done with: the others have to begin the next piece,
  // unless AreLast.
  size_t Look(std::string_view Bytes, bool AreLast) noexcept;
  // What comes changes nothing more.
  bool IsSure() const noexcept { return FIsSure; }
  // ceGuess: nothing but ASCII, which is the same in UTF-8 and in every code page.
  TCsvEncoding Get() const noexcept { return FEncoding; }
  bool HasMark() const noexcept { return FHasMark; }

 private:
  TCsvEncoding FEncoding = ceGuess;
  bool FHasMark = false;
  bool FIsSure = false;
};

// The code page of a German text: 850 where most of the letters ä, ö and ü stand where that page has them, else 0.
int GuessCodePage(std::string_view Bytes) noexcept;

}  // namespace vx
