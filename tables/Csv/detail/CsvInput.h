// Where the units of a table file come from. Internal to the readers of Csv.
#pragma once

#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/Files.h"
#include "tables/Csv/detail/CsvRows.h"

namespace vx::detail {

// A file, or bytes in memory, which have to stay.
class TCsvInput {
 public:
  // Raises EFOpenError.
  explicit TCsvInput(const String& Path) : FFile(std::make_unique<TFileStream>(Path, fmOpenRead | fmShareDenyNone)) {}
  explicit TCsvInput(std::string_view Bytes) noexcept : FBytes(Bytes) {}

  // Up to Count bytes; 0 at the end. EReadError.
  size_t Read(void* Target, size_t Count) {
    if (FFile) return FFile->Read(Target, Count);
    Count = std::min(Count, FBytes.size() - FPosition);
    if (Count > 0) std::memcpy(Target, FBytes.data() + FPosition, Count);
    FPosition += Count;
    return Count;
  }
  int64_t GetSize() const { return FFile ? FFile->GetSize() : static_cast<int64_t>(FBytes.size()); }
  void SetPosition(size_t Value) noexcept {
    FPosition = Value;
    if (FFile) FFile->SetPosition(static_cast<int64_t>(Value));
  }

 private:
  std::unique_ptr<TFileStream> FFile;
  std::string_view FBytes;
  size_t FPosition = 0;
};

// A stretch of the input as units: what is not used of one begins the next.
template <typename TUnit>
class TCsvBuffer {
 public:
  // IsSwapped: code units come with the high byte first.
  TCsvBuffer(TCsvInput& Input, bool IsSwapped)
      : FInput(Input),
        FIsSwapped(IsSwapped),
        FUnits(FirstSize(Input) + kCsvPadding),
        FPos(FUnits.data()),
        FEnd(FUnits.data()) {
    *FEnd = '\n';
  }
  TCsvBuffer(const TCsvBuffer&) = delete;
  TCsvBuffer& operator=(const TCsvBuffer&) = delete;

  const TUnit* Pos() const noexcept { return FPos; }
  const TUnit* End() const noexcept { return FEnd; }
  bool IsLast() const noexcept { return FIsLast; }
  // Whether the input ended in the middle of a code unit, which is left out.
  bool HasHalfUnit() const noexcept { return FHalfBytes > 0 && FIsLast; }
  void Use(const TUnit* Up) noexcept { FPos = Up; }
  // Makes more units available behind the unused ones; false at the end of the input.
  bool Fill() {
    if (FIsLast) return false;
    const size_t unused = static_cast<size_t>(FEnd - FPos);
    if (unused > 0) std::memmove(FUnits.data(), FPos, unused * sizeof(TUnit));
    if (unused + kCsvPadding >= FUnits.size() / 2) FUnits.resize(2 * FUnits.size());
    FPos = FUnits.data();
    TUnit* const first = FUnits.data() + unused;
    *first = FHalf;
    const size_t room = (FUnits.size() - kCsvPadding - unused) * sizeof(TUnit);
    const size_t count = FInput.Read(reinterpret_cast<char*>(first) + FHalfBytes, room - FHalfBytes);
    const size_t bytes = FHalfBytes + count;
    FIsLast = count == 0;
    FHalfBytes = bytes % sizeof(TUnit);
    FEnd = first + bytes / sizeof(TUnit);
    FHalf = *FEnd;
    if (FIsSwapped) Swap(first);
    *FEnd = '\n';
    return !FIsLast;
  }

 private:
  static size_t FirstSize(const TCsvInput& Input) {
    // Small files need no large buffer; one unit more than the file shows that it has ended.
    return static_cast<size_t>(std::clamp<int64_t>(Input.GetSize() + 1, 4096, 256 * 1024));
  }
  void Swap(TUnit* First) {
    if constexpr (sizeof(TUnit) == 2) {
      for (; First != FEnd; ++First) *First = static_cast<TUnit>(*First << 8 | *First >> 8);
    }
  }

  TCsvInput& FInput;
  bool FIsSwapped;
  std::vector<TUnit> FUnits;
  const TUnit* FPos;
  TUnit* FEnd;
  TUnit FHalf = 0;        // what stood behind the end where the input stopped in the middle of a unit
  size_t FHalfBytes = 0;  // of it
  bool FIsLast = false;
};

}  // namespace vx::detail
