#include "platform/BulkMemory.h"

#include "objects/uVxClasses.h"
#include "platform/StringArena.h"
#include "tests/support/Test.h"
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#endif

namespace {

size_t ResidentBytes() {
  size_t all, resident;
  std::ifstream("/proc/self/statm") >> all >> resident;
  return resident * static_cast<size_t>(::sysconf(_SC_PAGESIZE));
}

TEST(BulkMemory, PiecesKeepWhatStandsInThemAndGoBackWithTheLastOne) {
  constexpr size_t kSizes[] = {1, 8, 48, 250, 4096, TBulkMemory::MaxPiece};
  constexpr size_t kAll = size_t{64} << 20;
  const size_t before = ResidentBytes();
  std::vector<std::pair<unsigned char*, size_t>> pieces;
  {
    TBulkMemory memory;
    for (size_t bytes = 0; bytes < kAll; bytes += pieces.back().second) {
      const size_t size = kSizes[pieces.size() % std::size(kSizes)];
      pieces.emplace_back(static_cast<unsigned char*>(memory.Take(size)), size);
      std::memset(pieces.back().first, static_cast<int>(pieces.size() % 251), size);
    }
  }
  EXPECT_GT(ResidentBytes(), before + kAll / 2);
  for (size_t i = 0; const auto& [piece, size] : pieces) {
    ASSERT_EQ(std::count(piece, piece + size, ++i % 251), static_cast<std::ptrdiff_t>(size));
    ASSERT_EQ(reinterpret_cast<uintptr_t>(piece) % 8, 0U);
  }
  auto free = [&](size_t i) {
    for (; i < pieces.size(); i += 2) TBulkMemory::Return(pieces[i].first);
  };
  std::jthread(free, 0), free(1);
  EXPECT_LT(ResidentBytes(), before + kAll / 4);
}

#if defined(__SANITIZE_ADDRESS__)
TEST(BulkMemory, IsForbiddenBesidePiecesAndInReturnedOnes) {
  TBulkMemory memory;
  for (int size : {1, 8, 21, 4096}) {
    auto* piece = static_cast<char*>(memory.Take(static_cast<size_t>(size)));
    const auto forbidden = [&] {
      std::string told;
      for (int at : {-1, 0, size - 1, size}) told += __asan_address_is_poisoned(piece + at) ? 'x' : '-';
      return told;
    };
    EXPECT_EQ(forbidden(), "x--x") << size;
    TBulkMemory::Return(piece);
    EXPECT_EQ(forbidden(), "xxxx") << size;
  }
}
#endif

TEST(BulkMemory, PiecesThatComeAndGoNeedNoMore) {
  TBulkMemory memory;
  TStringArena arena(&memory);
  detail::TEntries cells;
  const size_t before = ResidentBytes();
  for (int i = 0; i < 200000; ++i) {
    auto row = TVxStringList::NewIn(memory);
    cells.Insert(0, arena.Build(1000, [](char16_t* units) { std::fill_n(units, 1000, u'x'); }), nullptr);
    row->TakeCells(cells, &memory);
  }
  EXPECT_LT(ResidentBytes(), before + (size_t{16} << 20));
}

// May refuse to be made.
class TOddList : public TVxStringList {
 public:
  explicit TOddList(bool Raises) { Raises ? throw 1 : ++Alive; }
  ~TOddList() override { --Alive; }
  static inline int Alive = 0;
};

TEST(BulkMemory, ListsAreFreedAliveWhereverTheyAreMade) {
  std::vector<std::unique_ptr<TObject>> lists;
  {
    TBulkMemory memory;
    detail::TEntries cells;
    for (int i = 0; i < 20000; ++i) {
      auto row = TVxStringList::NewIn(memory);
      cells.Insert(0, u"a cell that is too long to stand inside", nullptr), cells.Insert(1, IntToStr(i), nullptr);
      row->TakeCells(cells, &memory);
      lists.push_back(i % 3 ? std::move(row) : row->Duplicate());  // a copy shares the array of one that goes
    }
    cells.Insert(0, String(), nullptr);
    while (cells.Count() < 4000) cells.Insert(0, cells.Text(0), nullptr);
    lists.push_back(TVxStringList::NewIn(memory));
    static_cast<TVxStringList&>(*lists.back()).TakeCells(cells, &memory);
  }
  lists.push_back(std::make_unique<TOddList>(false));
  EXPECT_THROW(TOddList(true), int);
  EXPECT_THROW((void)std::make_unique<TOddList>(true), int);
  EXPECT_EQ(TOddList::Alive, 1);
  for (int i = 0; i < 20000; i += 7) {
    auto& row = static_cast<TVxStringList&>(*lists[static_cast<size_t>(i)]);
    row.Add(u"grown"), row.Put(0, u"c");
    ASSERT_EQ(row.GetCommatext(), Concat({u"c,", IntToStr(i), u",grown"}));
  }
  EXPECT_EQ(static_cast<TVxStringList&>(*lists[20000]).GetCount(), 4000);
  std::jthread([&] { lists.clear(); }).join();
  EXPECT_EQ(TOddList::Alive, 0);
}

}  // namespace
