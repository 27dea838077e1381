// Single-byte code pages: bytes to UTF-16 and back.
//
//   TCodePage           one page; pages are constant and live as long as the program
//   GetSystemCodePage   the page of the library's table and list files
//   SetSystemCodePage   sets it; 1252 unless set
//
// Known pages: 437, 850, 852, 1250, 1251, 1252, 1253, 1254, 1257, 28591, 28592, 28605.
//
// A byte without a character becomes the code unit of the same number, and that code unit becomes
// the byte again: every byte of every page survives the way there and back. A code unit that the
// page lacks becomes "?"; a character outside the 16-bit range is two code units and so "??".
//
// Example:
//   const vx::TCodePage& page = vx::GetSystemCodePage();
//   vx::String text = page.Decode("Stra\xDF" "e");       // u"Straße"
//   std::string bytes = page.Encode(u"Straße 5 €");       // "Stra\xDF" "e 5 \x80"
//
// Threads: any number may read a page, once the system's is set.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/String.h"

namespace vx {

class TCodePage {
 public:
  // The page of that number; nullptr if it is not known.
  static const TCodePage* Find(int Number) noexcept;

  int GetNumber() const noexcept { return FNumber; }
  // The code unit of each byte.
  const char16_t* DecodeTable() const noexcept { return FDecode; }
  char16_t DecodeByte(uint8_t Byte) const noexcept { return FDecode[Byte]; }
  // The byte of a code unit, "?" if the page lacks it.
  uint8_t EncodeUnit(char16_t Unit) const noexcept { return FEncode[Unit]; }
  bool CanEncode(char16_t Unit) const noexcept { return FEncode[Unit] != '?' || Unit == u'?'; }
  // The byte of every code unit: 65536 of them.
  const uint8_t* EncodeTable() const noexcept { return FEncode; }

  // One code unit for each byte. Target must have room for Count units and must not overlap.
  void Decode(const char* Bytes, size_t Count, char16_t* Target) const noexcept;
  // One byte for each code unit. Target must have room for Count bytes and must not overlap.
  void Encode(const char16_t* Units, size_t Count, char* Target) const noexcept;
  String Decode(std::string_view Bytes) const;
  std::string Encode(std::u16string_view Text) const;

  TCodePage(const TCodePage&) = delete;
  TCodePage& operator=(const TCodePage&) = delete;

 private:
  // Upper holds the code units of the bytes 0x80 to 0xFF.
  TCodePage(int Number, const char16_t* Upper) noexcept;
  ~TCodePage() = default;
  template <int kNumber>
  static const TCodePage* Instance(const char16_t* Upper) noexcept;

  int FNumber;
  bool FLatin;  // the bytes 0xA0 to 0xFF are the code units of the same number
  char16_t FDecode[256];
  uint8_t FEncode[65536];
};

const TCodePage& GetSystemCodePage() noexcept;
// False, with nothing changed, for a page that is not known. Not for use while other threads read
// or write files.
bool SetSystemCodePage(int Number) noexcept;

}  // namespace vx
