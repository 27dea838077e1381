// Blocks from which many texts are sliced, for readers that make millions of them.
#pragma once

#include "platform/CodePage.h"
#include "platform/Scan.h"
#include "platform/String.h"

namespace vx {

// Gives texts that stand one behind the other in shared blocks: one allocation for thousands of
// texts, and no reference counting until they are copied or freed. The texts live on without the
// arena; a block goes with the last of its texts. Use by one thread at a time.
class TStringArena {
 public:
  // BlockUnits: code units a block; a text longer than a quarter of it gets a block of its own.
  explicit TStringArena(size_t BlockUnits = 32768) noexcept : FBlockUnits(BlockUnits) {}
  ~TStringArena() { Close(); }
  TStringArena(const TStringArena&) = delete;
  TStringArena& operator=(const TStringArena&) = delete;

  // A text of exactly Length code units that Fill(char16_t*) has to write, all of them.
  template <std::invocable<char16_t*> F>
  String Build(size_t Length, F&& Fill) {
    if (Length <= String::InlineCapacity || Length > FBlockUnits / 4) return String::Build(Length, std::forward<F>(Fill));
    if (Length > FLeft) Open();
    char16_t* units = FNext;
    std::forward<F>(Fill)(units);
    FNext += Length;
    FLeft -= Length;
    ++FGiven;
    String result;
    result.Store(FBlock, units, static_cast<uint32_t>(Length));
    return result;
  }

  // The text of Count bytes by a table of 256 code units whose first 128 are the bytes themselves. At
  // least 16 bytes must be readable from Bytes on, whatever Count is.
  String Decode(const char16_t* Table, const unsigned char* Bytes, size_t Count) {
    if (Count > String::InlineCapacity) {
      return Build(Count, [=](char16_t* units) {
        DecodeBytes(Table, reinterpret_cast<const char*>(Bytes), Count, units);
      });
    }
    return DecodeInline(Table, Bytes, Count);
  }

 private:
  static String DecodeInline(const char16_t* Table, const unsigned char* Bytes, size_t Count) {
    String result;
    DecodeShort(Table, Bytes, Count, result.FUnits);
    return result;
  }
  // Writes the whole of a short text, the tag and the zeros behind it too.
  static void DecodeShort(const char16_t* Table, const unsigned char* Bytes, size_t Count, char16_t* Units) {
#if defined(__SSE2__)
    // Sixteen bytes at once, those behind the text cleared.
    alignas(16) static constexpr unsigned char kKeep[32] = {255, 255, 255, 255, 255, 255, 255, 255,
                                                            255, 255, 255, 255, 255, 255, 255, 255};
    __m128i bytes = _mm_and_si128(scan::Load(Bytes), scan::Load(kKeep + 16 - Count));
    __m128i high = _mm_insert_epi16(_mm_unpackhi_epi8(bytes, _mm_setzero_si128()), static_cast<int>(Count), 3);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(Units), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(Units + 8), high);
    for (unsigned mask = scan::Mask(bytes); mask != 0; mask &= mask - 1) {
      int i = std::countr_zero(mask);
      Units[i] = Table[Bytes[i]];
    }
#else
    for (size_t i = 0; i < Count; ++i) Units[i] = Table[Bytes[i]];
    Units[String::kTag] = static_cast<char16_t>(Count);
#endif
  }

  // The open block counts this many references, more than it can ever give away; Close takes back
  // what was not given.
  static constexpr uint32_t kReserve = 1u << 31;
  void Open();
  void Close() noexcept;

  String::TBlock* FBlock = nullptr;
  char16_t* FNext = nullptr;
  size_t FLeft = 0;
  uint32_t FGiven = 0;
  size_t FBlockUnits;
};

}  // namespace vx
