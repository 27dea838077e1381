#include "bench/sorting/Peers.h"

#include <unicode/ucol.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>

namespace vx::bench {

namespace {

// What is sorted: something to compare, and the row that it belongs to.
template <typename T>
struct TEntry {
  T Value;
  int Row;
};

template <typename T>
using TEntries = std::vector<TEntry<T>>;

template <typename T, typename TTable, typename TRead>
TEntries<T> MakeEntries(const TTable& Table, size_t Col, TRead Read) {
  TEntries<T> entries;
  entries.reserve(Table.size());
  typename TTable::value_type::value_type none;
  for (const auto& row : Table) {
    entries.push_back({Read(Col < row.size() ? row[Col] : none), static_cast<int>(entries.size())});
  }
  return entries;
}

template <typename T, typename TLess>
TOrder Sorted(TEntries<T> Entries, TLess Less) {
  std::stable_sort(Entries.begin(), Entries.end(),
                   [&](const TEntry<T>& A, const TEntry<T>& B) { return Less(A.Value, B.Value); });
  TOrder order;
  order.reserve(Entries.size());
  for (const TEntry<T>& entry : Entries) order.push_back(entry.Row);
  return order;
}

bool IsDigit(char Char) { return Char >= '0' && Char <= '9'; }

// The number of Count digits; what is no digit makes it negative.
int ReadDigits(const char* Text, int Count) {
  int number = 0;
  for (int i = 0; i < Count; ++i) {
    if (!IsDigit(Text[i])) return -100000000;
    number = number * 10 + (Text[i] - '0');
  }
  return number;
}

int ReadDate(const std::string& Text) {
  if (Text.size() != 10 || Text[2] != '.' || Text[5] != '.') return 0;
  const char* text = Text.data();
  return std::max(0, ReadDigits(text + 6, 4) * 10000 + ReadDigits(text + 3, 2) * 100 + ReadDigits(text, 2));
}

int ReadHours(const std::string& Text) {
  size_t colon = Text.size() - 3;
  if (Text.size() < 4 || Text.size() > 8 || Text[colon] != ':') return 0;
  return std::max(0, ReadDigits(Text.data(), static_cast<int>(colon)) * 60 + ReadDigits(Text.data() + colon + 1, 2));
}

// In units of 1/10000.
int64_t ReadAmount(const std::string& Text) {
  bool isNegative = !Text.empty() && Text[0] == '-';
  int64_t number = 0;
  int decimals = -1;
  if (Text.size() > 18) return 0;
  for (size_t i = isNegative ? 1 : 0; i < Text.size(); ++i) {
    if (IsDigit(Text[i])) {
      if (decimals == 4) return 0;
      number = number * 10 + (Text[i] - '0');
      if (decimals >= 0) ++decimals;
    } else if (Text[i] == ',' && decimals < 0) {
      decimals = 0;
    } else if (Text[i] != '.' || decimals >= 0) {
      return 0;
    }
  }
  for (int i = std::max(decimals, 0); i < 4; ++i) number *= 10;
  return isNegative ? -number : number;
}

void Check(UErrorCode Error) {
  if (U_SUCCESS(Error)) return;
  std::fprintf(stderr, "ICU: %s\n", u_errorName(Error));
  std::exit(1);
}

}  // namespace

TIcuOrder::TIcuOrder() {
  UErrorCode error = U_ZERO_ERROR;
  FCollator = ucol_open("de", &error);
  Check(error);
  ucol_setAttribute(FCollator, UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &error);
  ucol_setAttribute(FCollator, UCOL_STRENGTH, UCOL_SECONDARY, &error);
  Check(error);
}

TIcuOrder::~TIcuOrder() { ucol_close(FCollator); }

int TIcuOrder::Compare(std::u16string_view A, std::u16string_view B) const {
  return ucol_strcoll(FCollator, A.data(), static_cast<int>(A.size()), B.data(), static_cast<int>(B.size()));
}

TOrder TIcuOrder::ByCompare(const TWideTable& Table, size_t Col) const {
  auto view = [](const std::u16string& Text) { return std::u16string_view(Text); };
  auto less = [this](std::u16string_view A, std::u16string_view B) { return Compare(A, B) < 0; };
  return Sorted(MakeEntries<std::u16string_view>(Table, Col, view), less);
}

TOrder TIcuOrder::ByKeys(const TWideTable& Table, size_t Col) const {
  struct TKey {
    size_t Start;
    uint32_t Length;
  };
  std::vector<uint8_t> bytes(Table.size() * 16 + 64);
  size_t used = 0;
  auto make = [&](const std::u16string& Text) {
    for (;;) {
      int room = static_cast<int>(std::min<size_t>(bytes.size() - used, 1 << 30));
      int length = ucol_getSortKey(FCollator, Text.data(), static_cast<int>(Text.size()), bytes.data() + used, room);
      if (length <= room) {
        used += static_cast<size_t>(length);
        return TKey{used - static_cast<size_t>(length), static_cast<uint32_t>(length)};
      }
      bytes.resize(2 * bytes.size() + static_cast<size_t>(length));
    }
  };
  // A key ends with its only 0, so that none is the beginning of another.
  auto less = [&](const TKey& A, const TKey& B) {
    return std::memcmp(bytes.data() + A.Start, bytes.data() + B.Start, std::min(A.Length, B.Length)) < 0;
  };
  return Sorted(MakeEntries<TKey>(Table, Col, make), less);
}

TOrder OrderByBytes(const TNarrowTable& Table, size_t Col) {
  auto view = [](const std::string& Text) { return std::string_view(Text); };
  return Sorted(MakeEntries<std::string_view>(Table, Col, view), std::less<>());
}

TOrder OrderByDate(const TNarrowTable& Table, size_t Col) {
  return Sorted(MakeEntries<int>(Table, Col, ReadDate), std::less<>());
}

TOrder OrderByAmount(const TNarrowTable& Table, size_t Col) {
  return Sorted(MakeEntries<int64_t>(Table, Col, ReadAmount), std::less<>());
}

TOrder OrderByHours(const TNarrowTable& Table, size_t Col) {
  return Sorted(MakeEntries<int>(Table, Col, ReadHours), std::less<>());
}

int FindRow(const TNarrowTable& Table, size_t First, size_t Col, const std::string& Key) {
  for (size_t row = First; row < Table.size(); ++row) {
    if (Col < Table[row].size() && Table[row][Col] == Key) return static_cast<int>(row);
  }
  return -1;
}

}  // namespace vx::bench
