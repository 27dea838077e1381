#include "platform/CodePage.h"

#include "platform/detail/CodePageKernels.h"
#include "tests/support/Test.h"

namespace {

TEST(CodePageTest, EveryPageHoldsItsCharactersAndMapsEveryByteBack) {
  // FNV-1a over the 256 code units, taken from the tables of another converter.
  const std::pair<int, uint32_t> pages[] = {{437, 0x4D308040},   {850, 0xC42996D0},   {852, 0x4D591DEB},
                                            {1250, 0x46C01BA5},  {1251, 0x865AEB5D},  {1252, 0x1F0FB4AF},
                                            {1253, 0x4B0CDFE5},  {1254, 0x73AC6D07},  {1257, 0x87D5C138},
                                            {28591, 0x90A458C5}, {28592, 0x070D570E}, {28605, 0x25CB4D27}};
  std::string bytes(256, '\0');
  for (size_t i = 0; i < 256; ++i) bytes[i] = static_cast<char>(i);
  for (auto [number, expected] : pages) {
    SCOPED_TRACE(number);
    const TCodePage* page = TCodePage::Find(number);
    ASSERT_NE(page, nullptr) << number;
    EXPECT_EQ(page->GetNumber(), number);
    String text = page->Decode(bytes);
    EXPECT_EQ(page->Encode(text), bytes);
    uint32_t checksum = 0x811C9DC5;
    for (char16_t unit : text) checksum = (checksum ^ unit) * 0x01000193;
    EXPECT_EQ(checksum, expected);
    int encodable = 0;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
      bool can = page->CanEncode(static_cast<char16_t>(unit));
      encodable += can;
      ASSERT_EQ(can ? '?' : page->EncodeUnit(static_cast<char16_t>(unit)), '?') << unit;
    }
    EXPECT_EQ(encodable, 256);
  }
}

TEST(CodePageTest, CharactersThatThePageLacks) {
  const TCodePage& page = *TCodePage::Find(1252);
  EXPECT_EQ(page.Encode(u"Größe: 5 €, Ł中😀?"), "Gr\xF6\337e: 5 \x80, ?\?\?\??");
  EXPECT_EQ(page.Decode(page.Encode(std::u16string_view(u"a\0b", 3))), std::u16string_view(u"a\0b", 3));
}

// In exact heap buffers, so that a step too far is found, behind Offset elements.
template <typename TOut, typename TIn, typename TTable, typename TLoop>
std::vector<TOut> RunLoop(TLoop Loop, const TTable* Table, bool Latin, const TIn* From, size_t Count, size_t Offset) {
  std::vector<TIn> in(From, From + Offset + Count);
  std::vector<TOut> out(Offset + Count + 1, TOut{0x55});
  Loop(Table, Latin, in.data() + Offset, Count, out.data() + Offset);
  EXPECT_EQ(out[Count + Offset], TOut{0x55});
  EXPECT_EQ(Offset == 0 ? TOut{0x55} : out[Offset - 1], TOut{0x55});
  return out;
}

TEST(CodePageTest, VectorAndPortableLoopsAgree) {
  using namespace codepage;
  std::mt19937 random(7);
  for (int number : {1252, 850}) {
    const TCodePage& page = *TCodePage::Find(number);
    bool latin = number == 1252;
    for (unsigned percent : {0u, 5u, 60u}) {
      char bytes[200];
      char16_t units[200];
      for (size_t i = 0; i < 200; ++i) {
        bool high = random() % 100 < percent;
        bytes[i] = static_cast<char>(random() % 128 + (high ? 128 : 0));
        units[i] = static_cast<char16_t>(random() % (!high ? 128 : random() % 2 ? 0x10000 : 0x200));
      }
      for (size_t count = 0; count <= 150; ++count) {
        for (size_t offset = 0; offset < 17; ++offset) {
          ASSERT_EQ(RunLoop<char16_t>(DecodeLoop<true>, page.DecodeTable(), latin, bytes, count, offset),
                    RunLoop<char16_t>(DecodeLoop<false>, page.DecodeTable(), false, bytes, count, offset));
          ASSERT_EQ(RunLoop<char>(EncodeLoop<true>, page.EncodeTable(), latin, units, count, offset),
                    RunLoop<char>(EncodeLoop<false>, page.EncodeTable(), false, units, count, offset));
        }
      }
    }
  }
}

TEST(CodePageTest, SystemPageIs1252UnlessSet) {
  EXPECT_EQ(GetSystemCodePage().GetNumber(), 1252);
  EXPECT_TRUE(SetSystemCodePage(850));
  for (int number : {0, -1, 1255, 65001, 1200}) EXPECT_FALSE(SetSystemCodePage(number));
  EXPECT_EQ(GetSystemCodePage().GetNumber(), 850);
  EXPECT_TRUE(SetSystemCodePage(1252));
}

}  // namespace
