// Blocks from which many texts are sliced, for readers that make millions of them.
#pragma once

#include <algorithm>

#include "platform/Scan.h"
#include "platform/String.h"

namespace vx {

// What each byte becomes, for readers that change more than the code page does.
class TByteTable {
 public:
  // Units: 256 code units, the first 128 the bytes themselves.
  explicit TByteTable(const char16_t* Units) noexcept;
  char16_t Unit(unsigned char Byte) const noexcept { return FUnits[Byte]; }
#if defined(__SSE2__)
  // A bit for each byte that need not be the code unit of the same number.
  unsigned Others(__m128i Bytes) const noexcept {
    if (!FIsLatin) return scan::Mask(Bytes);
    __m128i low = _mm_cmplt_epi8(Bytes, _mm_set1_epi8(-96));  // 0x80 to 0x9F
    return scan::Mask(_mm_or_si128(low, _mm_cmpeq_epi8(Bytes, _mm_set1_epi8(FException))));
  }
#endif

 private:
  char16_t FUnits[256];
  bool FIsLatin;           // the bytes from 0xA0 on are the code units of the same number, but for one
  char FException = -128;  // that one, or one below 0xA0
};

// Gives texts that stand one behind the other in shared blocks: one allocation for thousands of
// texts, and no reference counting until they are copied or freed. The texts live on without the
// arena; a block goes with the last of its texts, so that one short text may keep a block of 64 KB, and where
// that came from a TBulkMemory, its 2 MB; String::Detached gives a text that keeps nothing. Use by one thread at
// a time.
class TStringArena {
 public:
  // BlockUnits: code units a block; a text longer than a quarter of it gets a block of its own.
  explicit TStringArena(size_t BlockUnits = 32768) noexcept : FBlockUnits(BlockUnits) {}
  // Its blocks are pieces of Memory, which has to live as long; nullptr for the heap.
  explicit TStringArena(TBulkMemory* Memory) noexcept : FMemory(Memory), FBlockUnits(32768) {}
  ~TStringArena() { Close(); }
  TStringArena(const TStringArena&) = delete;
  TStringArena& operator=(const TStringArena&) = delete;

  // A text of exactly Length code units that Fill(char16_t*) has to write, all of them.
  template <std::invocable<char16_t*> F>
  String Build(size_t Length, F&& Fill) {
    if (Length <= String::InlineCapacity || Length > FBlockUnits / 4)
      return String::Build(Length, std::forward<F>(Fill));
    return BuildSlice(Length, std::forward<F>(Fill));
  }

  // The text of Count bytes. At least 16 bytes must be readable from Bytes on, whatever Count is.
  String Decode(const TByteTable& Table, const unsigned char* Bytes, size_t Count) {
    if (Count <= String::InlineCapacity) return DecodeShort(Table, Bytes, Count);
    return Build(Count, [&](char16_t* units) { DecodeLong(Table, Bytes, Count, units); });
  }

 private:
  template <typename F>
  String BuildSlice(size_t Length, F&& Fill) {
    if (Length > FLeft) Open();
    char16_t* units = FNext;
    std::forward<F>(Fill)(units);
    FNext += Length;
    FLeft -= Length;
    ++FGiven;
    String result{String::TRaw()};
    result.Store(FBlock, units, static_cast<uint32_t>(Length));
    return result;
  }
  static String DecodeShort(const TByteTable& Table, const unsigned char* Bytes, size_t Count) {
    String result{String::TRaw()};
    DecodeShort(Table, Bytes, Count, result.FUnits);
    return result;
  }
  // Writes the whole of a short text, the tag and the zeros behind it too.
  static void DecodeShort(const TByteTable& Table, const unsigned char* Bytes, size_t Count, char16_t* Units) {
#if defined(__SSE2__)
    // Sixteen bytes at once, those behind the text cleared.
    alignas(16) static constexpr unsigned char kKeep[32] = {255, 255, 255, 255, 255, 255, 255, 255,
                                                            255, 255, 255, 255, 255, 255, 255, 255};
    __m128i bytes = _mm_and_si128(scan::Load(Bytes), scan::Load(kKeep + 16 - Count));
    __m128i high = _mm_insert_epi16(_mm_unpackhi_epi8(bytes, _mm_setzero_si128()), static_cast<int>(Count), 3);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(Units), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(Units + 8), high);
    Patch(Table, Bytes, Table.Others(bytes), Units);
#else
    std::fill_n(Units, String::kTag, u'\0');
    DecodeLong(Table, Bytes, Count, Units);
    Units[String::kTag] = static_cast<char16_t>(Count);
#endif
  }
  static void DecodeLong(const TByteTable& Table, const unsigned char* Bytes, size_t Count, char16_t* Units) {
    size_t i = 0;
#if defined(__SSE2__)
    // The last step looks at bytes that were done already; there is a first one of 8 for any count.
    auto step = [&](size_t at) {
      __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(Bytes + at));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(Units + at), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
      Patch(Table, Bytes + at, Table.Others(bytes), Units + at);
    };
    for (; i + 8 <= Count; i += 8) step(i);
    if (Count >= 8 && i < Count) step(Count - 8);
    if (Count >= 8) return;
#endif
    for (; i < Count; ++i) Units[i] = Table.Unit(Bytes[i]);
  }
#if defined(__SSE2__)
  static void Patch(const TByteTable& Table, const unsigned char* Bytes, unsigned Mask, char16_t* Units) {
    for (; Mask != 0; Mask &= Mask - 1) {
      int i = std::countr_zero(Mask);
      Units[i] = Table.Unit(Bytes[i]);
    }
  }
#endif

  // The open block counts this many references, more than it can ever give away; Close takes back
  // what was not given.
  static constexpr uint32_t kReserve = 1u << 31;
  void Open();
  void Close() noexcept;

  String::TBlock* FBlock = nullptr;
  char16_t* FNext = nullptr;
  size_t FLeft = 0;
  uint32_t FGiven = 0;
  TBulkMemory* FMemory = nullptr;
  size_t FBlockUnits;
};

}  // namespace vx
