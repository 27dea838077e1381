// The library's text type.
//
//   String           a value of UTF-16 code units whose copies share characters
//   operator+        joins two texts in one allocation
//   operator<<       writes into streams, for those who include <ostream>
//   std::hash        over the code units
//
// Example:
//   vx::String name = u"Müller";
//   vx::String copy = name;                    // shares, copies no character
//   copy += u"-Lüdenscheid";                   // detaches first; name stays as it was
//   vx::String town = copy.Slice(7);           // u"Lüdenscheid"; shares where it is long
//   std::string bytes = town.ToUtf8();
//
// Texts of up to 11 code units stand inside the value; longer ones in a counted block, and a text
// may be a slice of a larger block.
//
// Threads: copies may be read, changed and freed in several threads at once, though they share characters; one value is
// for one thread at a time, or for many that only read it.
//
// Pitfalls:
//   - Subscripts, Slice and view() count from 0, as C++ does; routines of the library that speak of
//     positions count from 1.
//   - The characters need not be followed by a code unit 0, and a text may hold code units 0.
//   - A slice keeps its whole block alive. Detached() gives a text that holds nothing else.
//   - A view of a String ends with the next change of that String, as with every container.
#pragma once

#include <bit>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include "platform/RefCount.h"

namespace vx {

class TBulkMemory;

class String {
 public:
  // The longest text that needs no block, in code units.
  static constexpr int InlineCapacity = 11;

  String() noexcept : FUnits{} {}
  // A null pointer gives the empty text. Texts of 2^31 code units and more raise std::length_error.
  String(const char16_t* Text) : String(Text ? std::u16string_view(Text) : std::u16string_view()) {}
  String(std::u16string_view Text) : FUnits{} { Init(Text.data(), Text.size()); }
  String(const std::u16string& Text) : String(std::u16string_view(Text)) {}
  // Count times the code unit Unit; a negative Count counts as 0.
  String(int Count, char16_t Unit);
  String(const String& Other) noexcept { Share(Other); }
  String(String&& Other) noexcept { Take(Other); }
  ~String() { Release(); }

  String& operator=(const String& Other) noexcept;
  String& operator=(String&& Other) noexcept;
  String& operator=(std::u16string_view Text) { return *this = String(Text); }
  String& operator=(const char16_t* Text) { return *this = String(Text); }
  String& operator=(const std::u16string& Text) { return *this = String(Text); }

  // Characters that are not valid UTF-8 become U+FFFD, one for each broken sequence.
  static String FromUtf8(std::string_view Bytes);
  // Lone surrogates become U+FFFD.
  std::string ToUtf8() const;

  // A text of exactly Length code units that Fill(char16_t*) has to write, all of them: the way to
  // build a text of known length with one allocation. std::length_error for 2^31 and more.
  template <std::invocable<char16_t*> F>
  static String Build(size_t Length, F&& Fill);

  bool empty() const noexcept { return size() == 0; }
  int size() const noexcept { return IsInline() ? FUnits[kTag] : static_cast<int>(Load().Length); }
  const char16_t* data() const noexcept { return IsInline() ? FUnits : Load().Data; }
  const char16_t* begin() const noexcept { return data(); }
  const char16_t* end() const noexcept { return data() + size(); }
  std::u16string_view view() const noexcept;
  operator std::u16string_view() const noexcept { return view(); }

  // The code unit at Index, counted from 0; Index must lie inside the text.
  char16_t operator[](int Index) const noexcept { return data()[Index]; }
  // Writes one code unit, counted from 0; Index must lie inside the text. Detaches first.
  void SetUnit(int Index, char16_t Unit) { MutableData()[Index] = Unit; }
  // The characters for writing; detaches first, so that no other text changes with this one.
  char16_t* MutableData();

  // The part of Count code units that begins at First, counted from 0, both held to the text: never
  // raises, and shares the characters of a long text.
  String Slice(int First, int Count = INT32_MAX) const;
  // The same text, in a block of its own size if it stands in a larger one.
  String Detached() const;

  // Appends. Repeated appending to one text costs amortised constant time a code unit.
  String& operator+=(std::u16string_view Text) { return Append(Text.data(), Text.size()); }
  String& operator+=(char16_t Unit) { return Append(&Unit, 1); }
  // Room for Length code units in all, so that appending up to there allocates no more.
  void Reserve(int Length);
  void clear() noexcept { *this = String(); }
  void swap(String& Other) noexcept { std::swap(FUnits, Other.FUnits); }

  // Equality and order by code units, without any regard to language. For the German order see
  // Collation.h.
  friend bool operator==(const String& A, const String& B) noexcept { return Equal(A, B); }
  friend bool operator==(const String& A, std::u16string_view B) noexcept { return A.view() == B; }
  friend bool operator==(const String& A, const char16_t* B) noexcept { return A.view() == B; }
  friend bool operator==(const String& A, const std::u16string& B) noexcept { return A.view() == B; }
  friend std::strong_ordering operator<=>(const String& A, const String& B) noexcept { return A.view() <=> B.view(); }
  friend std::strong_ordering operator<=>(const String& A, std::u16string_view B) noexcept { return A.view() <=> B; }
  friend std::strong_ordering operator<=>(const String& A, const char16_t* B) noexcept {
    return A.view() <=> std::u16string_view(B);
  }
  friend std::strong_ordering operator<=>(const String& A, const std::u16string& B) noexcept {
    return A.view() <=> std::u16string_view(B);
  }

  // A text of bytes has to be turned into one first: write u"...", or FromUtf8.
  template <size_t N>
  friend bool operator==(const String&, const char (&)[N]) = delete;
  template <size_t N>
  friend String operator+(const String&, const char (&)[N]) = delete;
  template <size_t N>
  friend String operator+(const char (&)[N], const String&) = delete;

  // Writes UTF-8 into a stream. A width told before (std::setw) counts characters.
  template <typename TTraits>
  friend std::basic_ostream<char, TTraits>& operator<<(std::basic_ostream<char, TTraits>& Stream, const String& Text) {
    const std::string bytes = Text.ToUtf8();
    if (Stream.width() > 0) {
      for (const char byte : bytes)
        if ((byte & 0xC0) == 0x80) Stream.width(Stream.width() + 1);  // a byte that begins no character
    }
    return Stream << bytes;
  }

  // The bytes of the block that this text stands in, 0 for a text inside the value. Several texts
  // may share one block. For measurements.
  size_t BlockBytes() const noexcept;

 private:
  friend class TStringArena;

  // Leaves the value to be written whole by who makes it.
  struct TRaw {};
  explicit String(TRaw) noexcept {}

  struct TBlock {
    TRefCount Refs;
    uint32_t Capacity : 31;   // code units behind the header
    uint32_t IsBulk : 1 = 0;  // a piece of TBulkMemory, not of the heap
    char16_t* Units() noexcept { return reinterpret_cast<char16_t*>(this + 1); }
  };
  struct TLong {
    TBlock* Block;
    const char16_t* Data;
    uint32_t Length;
  };
  static constexpr int kTag = 11;            // index of the tag in FUnits
  static constexpr char16_t kLong = 0xFFFF;  // tag of a text in a block; else the tag is the length
  static constexpr size_t kLongBytes = sizeof(TBlock*) + sizeof(char16_t*) + sizeof(uint32_t);

  bool IsInline() const noexcept { return FUnits[kTag] != kLong; }
  TLong Load() const noexcept {
    TLong L;
    std::memcpy(static_cast<void*>(&L), FUnits, kLongBytes);
    return L;
  }
  void Store(TBlock* Block, const char16_t* Data, uint32_t Length) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
      // Length and tag in one piece: a copy of the value that follows at once reads them as one.
      uint64_t last = uint64_t{kLong} << 48 | Length;
      std::memcpy(FUnits, static_cast<const void*>(&Block), sizeof Block);
      std::memcpy(FUnits + 4, static_cast<const void*>(&Data), sizeof Data);
      std::memcpy(FUnits + 8, &last, sizeof last);
    } else {
      TLong L{Block, Data, Length};
      std::memcpy(FUnits, static_cast<const void*>(&L), kLongBytes);
      FUnits[kTag] = kLong;
    }
  }
  // In Memory, which has to have pieces of that size; in the heap for nullptr.
  static TBlock* NewBlock(size_t Capacity, uint32_t Holders = 1, TBulkMemory* Memory = nullptr);
  static void FreeBlock(TBlock* Block) noexcept;
  static void AddRef(TBlock* Block) noexcept { Block->Refs.Add(); }

  void Init(const char16_t* Data, size_t Length) {
    if (Length <= InlineCapacity) {
      std::memcpy(FUnits, Data ? Data : FUnits, Length * sizeof(char16_t));
      FUnits[kTag] = static_cast<char16_t>(Length);
    } else {
      InitLong(Data, Length);
    }
  }
  void InitLong(const char16_t* Data, size_t Length);
  void Share(const String& Other) noexcept {
    std::memcpy(FUnits, Other.FUnits, sizeof FUnits);
    if (!IsInline()) AddRef(Load().Block);
  }
  void Take(String& Other) noexcept {
    std::memcpy(FUnits, Other.FUnits, sizeof FUnits);
    std::memset(Other.FUnits, 0, sizeof FUnits);
  }
  void Release() noexcept {
    if (!IsInline()) ReleaseLong();
  }
  void ReleaseLong() noexcept;
  String& Append(const char16_t* Data, size_t Length);
  static bool Equal(const String& A, const String& B) noexcept;

  // A short text: its code units, the unused ones 0, and its length in the last unit. A long text:
  // the fields of TLong, and kLong in the last unit. The value may be moved in memory as bytes.
  alignas(8) char16_t FUnits[12];
};

static_assert(sizeof(String) == 24 && sizeof(void*) == 8);

String operator+(const String& A, const String& B);
String operator+(const String& A, std::u16string_view B);
String operator+(std::u16string_view A, const String& B);
inline String operator+(const String& A, const char16_t* B) { return A + std::u16string_view(B); }
inline String operator+(const char16_t* A, const String& B) { return std::u16string_view(A) + B; }
inline String operator+(const String& A, const std::u16string& B) { return A + std::u16string_view(B); }
inline String operator+(const std::u16string& A, const String& B) { return std::u16string_view(A) + B; }
// Joins any number of texts in one allocation.
String Concat(std::initializer_list<std::u16string_view> Parts);
// Appends Text as UTF-8; lone surrogates become U+FFFD.
void AppendUtf8(std::string& Bytes, std::u16string_view Text);

inline std::u16string_view String::view() const noexcept {
  if (IsInline()) return {FUnits, FUnits[kTag]};
  TLong L = Load();
  return {L.Data, L.Length};
}

inline bool String::Equal(const String& A, const String& B) noexcept {
  if (A.IsInline() && B.IsInline()) return std::memcmp(A.FUnits, B.FUnits, sizeof A.FUnits) == 0;
  return A.view() == B.view();
}

inline String& String::operator=(const String& Other) noexcept {
  if (this != &Other) {
    if (!Other.IsInline()) AddRef(Other.Load().Block);  // first: both may stand in one block
    Release();
    std::memcpy(FUnits, Other.FUnits, sizeof FUnits);
  }
  return *this;
}

inline String& String::operator=(String&& Other) noexcept {
  if (this != &Other) {
    Release();
    Take(Other);
  }
  return *this;
}

template <std::invocable<char16_t*> F>
String String::Build(size_t Length, F&& Fill) {
  String result;
  if (Length <= InlineCapacity) {
    if (Length == 0) return result;
    result.FUnits[kTag] = static_cast<char16_t>(Length);
    std::forward<F>(Fill)(result.FUnits);
    return result;
  }
  TBlock* block = NewBlock(Length);
  result.Store(block, block->Units(), static_cast<uint32_t>(Length));
  std::forward<F>(Fill)(block->Units());
  return result;
}

}  // namespace vx

template <>
struct std::hash<vx::String> {
  size_t operator()(const vx::String& Text) const noexcept { return std::hash<std::u16string_view>()(Text.view()); }
};
