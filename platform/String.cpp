#include "platform/String.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

#include "platform/BulkMemory.h"
#include "platform/StringArena.h"
#include "platform/detail/Utf8.h"

namespace vx {

namespace {

constexpr size_t kMaxLength = INT32_MAX;

[[noreturn]] void RaiseTooLong() { throw std::length_error("vx::String: longer than 2^31-1 code units"); }

void AppendValue(std::string& Target, char32_t Value) {
  if (Value < 0x80) {
    Target += static_cast<char>(Value);
  } else if (Value < 0x800) {
    Target += static_cast<char>(0xC0 | Value >> 6);
    Target += static_cast<char>(0x80 | (Value & 0x3F));
  } else if (Value < 0x10000) {
    Target += static_cast<char>(0xE0 | Value >> 12);
    Target += static_cast<char>(0x80 | (Value >> 6 & 0x3F));
    Target += static_cast<char>(0x80 | (Value & 0x3F));
  } else {
    Target += static_cast<char>(0xF0 | Value >> 18);
    Target += static_cast<char>(0x80 | (Value >> 12 & 0x3F));
    Target += static_cast<char>(0x80 | (Value >> 6 & 0x3F));
    Target += static_cast<char>(0x80 | (Value & 0x3F));
  }
}

// Appends the first character of Text and gives its number of units.
size_t AppendCharacter(std::string& Target, std::u16string_view Text) {
  char32_t value = Text[0];
  const bool isHigh = value >= 0xD800 && value < 0xDC00;
  if (isHigh && Text.size() > 1 && Text[1] >= 0xDC00 && Text[1] < 0xE000) {
    AppendValue(Target, 0x10000 + ((value - 0xD800) << 10) + (Text[1] - 0xDC00u));
    return 2;
  }
  if (value >= 0xD800 && value < 0xE000) value = 0xFFFD;
  AppendValue(Target, value);
  return 1;
}

// The units in front that are ASCII, as bytes at Target.
size_t NarrowAscii(std::u16string_view Text, char* Target) noexcept {
  constexpr size_t kBlock = 16;
  size_t at = 0;
  for (; Text.size() - at >= kBlock; at += kBlock) {
    char block[kBlock];
    unsigned all = 0;
    for (size_t i = 0; i < kBlock; ++i) all |= Text[at + i];
    if (all >= 0x80) break;
    for (size_t i = 0; i < kBlock; ++i) block[i] = static_cast<char>(Text[at + i]);
    std::memcpy(Target + at, block, kBlock);
  }
  for (; at < Text.size() && Text[at] < 0x80; ++at) Target[at] = static_cast<char>(Text[at]);
  return at;
}

}  // namespace

String::TBlock* String::NewBlock(size_t Capacity, uint32_t Holders, TBulkMemory* Memory) {
  if (Capacity > kMaxLength) RaiseTooLong();
  const size_t bytes = sizeof(TBlock) + Capacity * sizeof(char16_t);
  void* memory = Memory ? Memory->Take(bytes) : std::malloc(bytes);
  if (!memory) throw std::bad_alloc();
  return new (memory) TBlock{TRefCount(Holders), static_cast<uint32_t>(Capacity) & INT32_MAX, Memory != nullptr};
}

void String::FreeBlock(TBlock* Block) noexcept {
  const bool isBulk = Block->IsBulk;
  Block->~TBlock();
  if (isBulk) {
    TBulkMemory::Return(Block);
  } else {
    std::free(Block);
  }
}

void String::ReleaseLong() noexcept {
  TBlock* block = Load().Block;
  if (block->Refs.Release()) FreeBlock(block);
}

void String::InitLong(const char16_t* Data, size_t Length) {
  TBlock* block = NewBlock(Length);
  std::memcpy(block->Units(), Data, Length * sizeof(char16_t));
  Store(block, block->Units(), static_cast<uint32_t>(Length));
}

String::String(int Count, char16_t Unit) : FUnits{} {
  *this = Build(static_cast<size_t>(std::max(Count, 0)), [&](char16_t* units) { std::fill_n(units, Count, Unit); });
}

String String::FromUtf8(std::string_view Bytes) {
  std::u16string units;
  units.reserve(Bytes.size());
  for (size_t pos = 0; pos < Bytes.size();) {
    char16_t character[2];
    units.append(character, detail::PutCharacter(character, detail::NextFromUtf8(Bytes, pos)));
  }
  return String(std::u16string_view(units));
}

std::string String::ToUtf8() const {
  std::string result;
  result.reserve(static_cast<size_t>(size()) + static_cast<size_t>(size()) / 4);
  AppendUtf8(result, view());
  return result;
}

void AppendUtf8(std::string& Bytes, std::u16string_view Text) {
  constexpr size_t kPiece = 128;  // little is lost where it holds another character than ASCII
  while (!Text.empty()) {
    if (Text[0] >= 0x80) {
      Text.remove_prefix(AppendCharacter(Bytes, Text));
      continue;
    }
    const std::u16string_view piece = Text.substr(0, kPiece);
    const size_t size = Bytes.size();
    Bytes.resize(size + piece.size());
    const size_t count = NarrowAscii(piece, Bytes.data() + size);
    Bytes.resize(size + count);
    Text.remove_prefix(count);
  }
}

char16_t* String::MutableData() {
  if (IsInline()) return FUnits;
  TLong now = Load();
  if (now.Block->Refs.IsShared()) {
    *this = String(std::u16string_view(now.Data, now.Length));
    if (IsInline()) return FUnits;  // a long form may hold few units after a Reserve
    now = Load();
  }
  return now.Block->Units() + (now.Data - now.Block->Units());
}

String String::Slice(int First, int Count) const {
  int length = size();
  First = std::clamp(First, 0, length);
  Count = std::clamp(Count, 0, length - First);
  if (Count == length) return *this;
  if (Count <= InlineCapacity) return String(std::u16string_view(data() + First, static_cast<unsigned>(Count)));
  TLong now = Load();
  AddRef(now.Block);
  String result;
  result.Store(now.Block, now.Data + First, static_cast<uint32_t>(Count));
  return result;
}

String String::Detached() const {
  if (IsInline() || Load().Block->Capacity == Load().Length) return *this;
  return String(view());
}

void String::Reserve(int Length) {
  if (Length <= size() || Length <= InlineCapacity) return;
  if (!IsInline()) {
    TLong now = Load();
    size_t room = now.Block->Capacity - static_cast<size_t>(now.Data - now.Block->Units());
    if (!now.Block->Refs.IsShared() && room >= static_cast<size_t>(Length)) return;
  }
  std::u16string_view old = view();
  TBlock* block = NewBlock(static_cast<size_t>(Length));
  std::memcpy(block->Units(), old.data(), old.size() * sizeof(char16_t));
  Release();
  Store(block, block->Units(), static_cast<uint32_t>(old.size()));
}

String& String::Append(const char16_t* Data, size_t Length) {
  size_t old = static_cast<size_t>(size());
  size_t total = old + Length;
  if (total > kMaxLength) RaiseTooLong();
  if (Length == 0) return *this;
  if (IsInline() && total <= InlineCapacity) {
    std::memmove(FUnits + old, Data, Length * sizeof(char16_t));
    FUnits[kTag] = static_cast<char16_t>(total);
    return *this;
  }
  if (!IsInline()) {
    TLong now = Load();
    size_t room = now.Block->Capacity - static_cast<size_t>(now.Data - now.Block->Units());
    if (!now.Block->Refs.IsShared() && room >= total) {
      std::memmove(now.Block->Units() + (now.Data - now.Block->Units()) + old, Data, Length * sizeof(char16_t));
      Store(now.Block, now.Data, static_cast<uint32_t>(total));
      return *this;
    }
  }
  // The old text is freed only after the copy: Data may be a part of it.
  TBlock* block = NewBlock(std::min(std::max(total, old + old / 2 + 16), kMaxLength));
  std::memcpy(block->Units(), data(), old * sizeof(char16_t));
  std::memcpy(block->Units() + old, Data, Length * sizeof(char16_t));
  Release();
  Store(block, block->Units(), static_cast<uint32_t>(total));
  return *this;
}

size_t String::BlockBytes() const noexcept {
  return IsInline() ? 0 : sizeof(TBlock) + Load().Block->Capacity * sizeof(char16_t);
}

String Concat(std::initializer_list<std::u16string_view> Parts) {
  size_t total = 0;
  for (std::u16string_view part : Parts) total += part.size();
  return String::Build(total, [&](char16_t* target) {
    for (std::u16string_view part : Parts) target = std::copy(part.begin(), part.end(), target);
  });
}

String operator+(const String& A, const String& B) { return Concat({A.view(), B.view()}); }
String operator+(const String& A, std::u16string_view B) { return Concat({A.view(), B}); }
String operator+(std::u16string_view A, const String& B) { return Concat({A, B.view()}); }

TByteTable::TByteTable(const char16_t* Units) noexcept {
  std::copy_n(Units, 256, FUnits);
  int exceptions = 0;
  for (int byte = 0xA0; byte < 256; ++byte) {
    if (FUnits[byte] == byte) continue;
    FException = static_cast<char>(byte);
    ++exceptions;
  }
  FIsLatin = exceptions <= 1;
}

void TStringArena::Open() {
  if (FBlock && FBlock->Refs.Release(kReserve - FGiven)) {
    const bool isBulk = FBlock->IsBulk;  // no text of it is in use: it serves again
    ::new (FBlock) String::TBlock{TRefCount(kReserve), static_cast<uint32_t>(FBlockUnits) & INT32_MAX, isBulk};
  } else {
    FBlock = nullptr;
    FLeft = 0;
    FBlock = String::NewBlock(FBlockUnits, kReserve, FMemory);
  }
  FGiven = 0;
  FNext = FBlock->Units();
  FLeft = FBlockUnits;
}

void TStringArena::Close() noexcept {
  if (!FBlock) return;
  if (FBlock->Refs.Release(kReserve - FGiven)) String::FreeBlock(FBlock);
  FBlock = nullptr;
  FGiven = 0;
  FLeft = 0;
}

}  // namespace vx
