#include "platform/CodePage.h"

#include <atomic>
#include <climits>
#include <cstring>
#include <stdexcept>

#include "platform/detail/CodePageKernels.h"

namespace vx {

namespace {

#include "platform/CodePageTables.inc"

// Null stands for page 1252.
constinit std::atomic<const TCodePage*> SystemPage{nullptr};

bool IsLatin(const char16_t* Table) noexcept {
  unsigned difference = 0;
  for (unsigned byte = 0xA0; byte < 0x100; ++byte) difference |= Table[byte] ^ byte;
  return difference == 0;
}

}  // namespace

TCodePage::TCodePage(int Number, const char16_t* Upper) noexcept : FNumber(Number) {
  for (unsigned byte = 0; byte < 0x80; ++byte) FDecode[byte] = static_cast<char16_t>(byte);
  std::memcpy(FDecode + 0x80, Upper, 0x80 * sizeof(char16_t));
  std::memset(FEncode, '?', sizeof FEncode);
  // Should a page ever hold a character whose code unit is also the number of a byte without one,
  // the character has to win: bytes without a character go first.
  for (bool isCharacter : {false, true}) {
    for (unsigned byte = 0; byte < 0x100; ++byte) {
      if ((FDecode[byte] != byte) == isCharacter) FEncode[FDecode[byte]] = static_cast<uint8_t>(byte);
    }
  }
  FLatin = IsLatin(FDecode);
}

// The page stands in storage of its own, set up by the first call and never taken down.
template <int kNumber>
const TCodePage* TCodePage::Instance(const char16_t* Upper) noexcept {
  static const TCodePage page(kNumber, Upper);
  return &page;
}

const TCodePage* TCodePage::Find(int Number) noexcept {
  switch (Number) {
    case 437:
      return Instance<437>(kUpper437);
    case 850:
      return Instance<850>(kUpper850);
    case 852:
      return Instance<852>(kUpper852);
    case 1250:
      return Instance<1250>(kUpper1250);
    case 1251:
      return Instance<1251>(kUpper1251);
    case 1252:
      return Instance<1252>(kUpper1252);
    case 1253:
      return Instance<1253>(kUpper1253);
    case 1254:
      return Instance<1254>(kUpper1254);
    case 1257:
      return Instance<1257>(kUpper1257);
    case 28591:
      return Instance<28591>(kUpper28591);
    case 28592:
      return Instance<28592>(kUpper28592);
    case 28605:
      return Instance<28605>(kUpper28605);
    default:
      return nullptr;
  }
}

void TCodePage::Decode(const char* Bytes, size_t Count, char16_t* Target) const noexcept {
  codepage::DecodeLoop<codepage::kHasVector>(FDecode, FLatin, Bytes, Count, Target);
}

void TCodePage::Encode(const char16_t* Units, size_t Count, char* Target) const noexcept {
  codepage::EncodeLoop<codepage::kHasVector>(FEncode, FLatin, Units, Count, Target);
}

String TCodePage::Decode(std::string_view Bytes) const {
  if (Bytes.size() > INT_MAX) throw std::length_error("text too long");
  return String::Build(static_cast<int>(Bytes.size()),
                       [&](char16_t* target) { Decode(Bytes.data(), Bytes.size(), target); });
}

std::string TCodePage::Encode(std::u16string_view Text) const {
  std::string result(Text.size(), '\0');
  Encode(Text.data(), Text.size(), result.data());
  return result;
}

const TCodePage& GetSystemCodePage() noexcept {
  const TCodePage* page = SystemPage.load(std::memory_order_acquire);
  return page != nullptr ? *page : *TCodePage::Find(1252);
}

bool SetSystemCodePage(int Number) noexcept {
  const TCodePage* page = TCodePage::Find(Number);
  if (page == nullptr) return false;
  SystemPage.store(page, std::memory_order_release);
  return true;
}

}  // namespace vx
