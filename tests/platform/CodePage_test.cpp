#include "platform/CodePage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "platform/CodePageKernels.h"

namespace vx {
namespace {

struct TPageCase {
  int Number;
  uint32_t Checksum;  // FNV-1a over the 256 code units, taken from the tables of another converter
  const char* Bytes;
  std::u16string_view Units;
};
const TPageCase kPages[] = {
    {437, 0x4D308040, "\x81\xE1\x9B\xEC", u"üß¢∞"},  {850, 0xC42996D0, "\x81\xE1\x9B\xD5", u"üßøı"},
    {852, 0x4D591DEB, "\x81\xE1\xA5", u"üßą"},       {1250, 0x46C01BA5, "\x80\xB9\xFC\x81", u"€ąü\u0081"},
    {1251, 0x865AEB5D, "\x88\xC0\xFF", u"€Ая"},      {1252, 0x1F0FB4AF, "\x80\x84\xDF\x9D", u"€„ß\u009D"},
    {1253, 0x4B0CDFE5, "\xC1\xFE\xAA", u"Αώ\u00AA"}, {1254, 0x73AC6D07, "\xD0\xFD\xFC", u"Ğıü"},
    {1257, 0x87D5C138, "\xA8\xE0\xA5", u"Øą\u00A5"}, {28591, 0x90A458C5, "\x80\xA4\xFF", u"\u0080¤ÿ"},
    {28592, 0x070D570E, "\xA1\xFF", u"Ą˙"},          {28605, 0x25CB4D27, "\xA4\xA6\xBE", u"€ŠŸ"},
};

TEST(CodePageTest, EveryPageHoldsItsCharactersAndMapsEveryByteBack) {
  std::string bytes(256, '\0');
  for (size_t i = 0; i < 256; ++i) bytes[i] = static_cast<char>(i);
  for (const TPageCase& c : kPages) {
    SCOPED_TRACE(c.Number);
    const TCodePage* page = TCodePage::Find(c.Number);
    ASSERT_TRUE(page != nullptr && page->GetNumber() == c.Number);
    String text = page->Decode(bytes);
    EXPECT_EQ(page->Encode(text), bytes);
    uint32_t checksum = 0x811C9DC5;
    for (char16_t unit : text) checksum = (checksum ^ unit) * 0x01000193;
    EXPECT_EQ(checksum, c.Checksum);
    EXPECT_EQ(page->Decode(c.Bytes), c.Units);
    EXPECT_EQ(page->Encode(c.Units), c.Bytes);
    int encodable = 0;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
      bool can = page->CanEncode(static_cast<char16_t>(unit));
      encodable += can;
      ASSERT_TRUE(can || page->EncodeUnit(static_cast<char16_t>(unit)) == '?') << unit;
    }
    EXPECT_EQ(encodable, 256);
  }
}

TEST(CodePageTest, CharactersThatThePageLacks) {
  const TCodePage& page = *TCodePage::Find(1252);
  EXPECT_EQ(page.Encode(u"Größe: 5 €, Ł中😀?"),
            "Gr\xF6\xDF"
            "e: 5 \x80, ?\?\?\??");
  EXPECT_EQ(page.Decode(page.Encode(std::u16string_view(u"a\0b", 3))), std::u16string_view(u"a\0b", 3));
}

// In exact heap buffers, so that a step too far is found, behind Offset elements.
template <typename TOut, typename TIn, typename TTable, typename TLoop>
std::vector<TOut> RunLoop(TLoop Loop, const TTable* Table, bool Latin, const TIn* From, size_t Count, size_t Offset) {
  std::vector<TIn> in(From, From + Offset + Count);
  std::vector<TOut> out(Offset + Count + 1, TOut{0x55});
  Loop(Table, Latin, in.data() + Offset, Count, out.data() + Offset);
  EXPECT_TRUE(out[Count + Offset] == TOut{0x55} && (Offset == 0 || out[Offset - 1] == TOut{0x55}));
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

TEST(CodePageTest, DecodeBytesKeepsToAForeignTableAtEveryLength) {
  char16_t table[256];
  std::copy_n(TCodePage::Find(28591)->DecodeTable(), 256, table);
  table[0xE1] = u'ß';
  for (size_t count : {15u, 255u, 256u, 1000u}) {
    std::string bytes(count, '\xE1');
    std::u16string text(count, u'\0');
    DecodeBytes(table, bytes.data(), count, text.data());
    EXPECT_EQ(text, std::u16string(count, u'ß'));
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
}  // namespace vx
