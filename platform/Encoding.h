// The encodings of text files with a byte order mark.
//
//   TEncoding   one encoding: detects, decodes, encodes
//
// Example:
//   size_t mark = 0;
//   const vx::TEncoding& encoding = vx::TEncoding::Detect(bytes, mark, vx::TEncoding::Default());
//   vx::String text = encoding.Decode(std::string_view(bytes).substr(mark));
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/String.h"

namespace vx {

// There is one object of each kind, which lives as long as the program.
class TEncoding {
 public:
  // The system's code page, whichever it is at the time of each call; it has no byte order mark.
  static const TEncoding& Default() noexcept;
  static const TEncoding& Utf8() noexcept;
  static const TEncoding& Utf16() noexcept;           // the low byte first
  static const TEncoding& Utf16BigEndian() noexcept;  // the high byte first

  // The encoding whose mark Bytes begin with, and in MarkSize how many bytes the mark has; Otherwise and 0
  // if they begin with none.
  static const TEncoding& Detect(std::string_view Bytes, size_t& MarkSize, const TEncoding& Otherwise) noexcept;

  // The byte order mark; empty for Default.
  std::string_view Mark() const noexcept { return FMark; }
  // Bytes without a mark as a text. What is not valid UTF-8 becomes U+FFFD; an odd last byte of UTF-16 is
  // dropped.
  String Decode(std::string_view Bytes) const;
  // Text as bytes, without the mark. What the code page lacks becomes "?", a lone surrogate U+FFFD in UTF-8.
  std::string Encode(std::u16string_view Text) const;

  TEncoding(const TEncoding&) = delete;
  TEncoding& operator=(const TEncoding&) = delete;

 private:
  enum TKind : uint8_t { ekCodePage, ekUtf8, ekUtf16, ekUtf16BigEndian };
  constexpr TEncoding(TKind Kind, std::string_view Mark) noexcept : FKind(Kind), FMark(Mark) {}

  TKind FKind;
  std::string_view FMark;
};

}  // namespace vx
