#include "services/uVxXml/CodePageNames.h"

#include <algorithm>
#include <iterator>

#include "platform/CodePage.h"

namespace vx {

namespace {

struct TRow {
  int CodePage;
  const char16_t* Name;
};

// By ascending code page.
// clang-format off
constexpr TRow kRows[] = {
    {37, u"IBM037"}, {437, u"IBM437"}, {500, u"IBM500"}, {708, u"ASMO-708"}, {720, u"DOS-720"}, {737, u"ibm737"},
    {775, u"ibm775"}, {850, u"ibm850"}, {852, u"ibm852"}, {855, u"IBM855"}, {857, u"ibm857"}, {858, u"IBM00858"},
    {860, u"IBM860"}, {861, u"ibm861"}, {862, u"DOS-862"}, {863, u"IBM863"}, {864, u"IBM864"}, {865, u"IBM865"},
    {866, u"cp866"}, {869, u"ibm869"}, {870, u"IBM870"}, {874, u"windows-874"}, {875, u"cp875"}, {932, u"shift_jis"},
    {936, u"gb2312"}, {949, u"ks_c_5601-1987"}, {950, u"big5"}, {1026, u"IBM1026"}, {1047, u"IBM01047"},
    {1140, u"IBM01140"}, {1141, u"IBM01141"}, {1142, u"IBM01142"}, {1143, u"IBM01143"}, {1144, u"IBM01144"},
    {1145, u"IBM01145"}, {1146, u"IBM01146"}, {1147, u"IBM01147"}, {1148, u"IBM01148"}, {1149, u"IBM01149"},
    {1200, u"utf-16"}, {1201, u"unicodeFFFE"}, {1250, u"windows-1250"}, {1251, u"windows-1251"},
    {1252, u"windows-1252"}, {1253, u"windows-1253"}, {1254, u"windows-1254"}, {1255, u"windows-1255"},
    {1256, u"windows-1256"}, {1257, u"windows-1257"}, {1258, u"windows-1258"}, {1361, u"Johab"},
    {10000, u"macintosh"}, {10001, u"x-mac-japanese"}, {10002, u"x-mac-chinesetrad"}, {10003, u"x-mac-korean"},
    {10004, u"x-mac-arabic"}, {10005, u"x-mac-hebrew"}, {10006, u"x-mac-greek"}, {10007, u"x-mac-cyrillic"},
    {10008, u"x-mac-chinesesimp"}, {10010, u"x-mac-romanian"}, {10017, u"x-mac-ukrainian"}, {10021, u"x-mac-thai"},
    {10029, u"x-mac-ce"}, {10079, u"x-mac-icelandic"}, {10081, u"x-mac-turkish"}, {10082, u"x-mac-croatian"},
    {12000, u"utf-32"}, {12001, u"utf-32BE"}, {20000, u"x-Chinese_CNS"}, {20001, u"x-cp20001"},
    {20002, u"x_Chinese-Eten"}, {20003, u"x-cp20003"}, {20004, u"x-cp20004"}, {20005, u"x-cp20005"},
    {20105, u"x-IA5"}, {20106, u"x-IA5-German"}, {20107, u"x-IA5-Swedish"}, {20108, u"x-IA5-Norwegian"},
    {20127, u"us-ascii"}, {20261, u"x-cp20261"}, {20269, u"x-cp20269"}, {20273, u"IBM273"}, {20277, u"IBM277"},
    {20278, u"IBM278"}, {20280, u"IBM280"}, {20284, u"IBM284"}, {20285, u"IBM285"}, {20290, u"IBM290"},
    {20297, u"IBM297"}, {20420, u"IBM420"}, {20423, u"IBM423"}, {20424, u"IBM424"},
    {20833, u"x-EBCDIC-KoreanExtended"}, {20838, u"IBM-Thai"}, {20866, u"koi8-r"}, {20871, u"IBM871"},
    {20880, u"IBM880"}, {20905, u"IBM905"}, {20924, u"IBM00924"}, {20932, u"EUC-JP"}, {20936, u"x-cp20936"},
    {20949, u"x-cp20949"}, {21025, u"cp1025"}, {21866, u"koi8-u"}, {28591, u"iso-8859-1"}, {28592, u"iso-8859-2"},
    {28593, u"iso-8859-3"}, {28594, u"iso-8859-4"}, {28595, u"iso-8859-5"}, {28596, u"iso-8859-6"},
    {28597, u"iso-8859-7"}, {28598, u"iso-8859-8"}, {28599, u"iso-8859-9"}, {28603, u"iso-8859-13"},
    {28605, u"iso-8859-15"}, {29001, u"x-Europa"}, {38598, u"iso-8859-8-i"}, {50220, u"iso-2022-jp"},
    {50221, u"csISO2022JP"}, {50225, u"iso-2022-kr"}, {50227, u"x-cp50227"}, {51932, u"euc-jp"}, {51936, u"EUC-CN"},
    {51949, u"euc-kr"}, {52936, u"hz-gb-2312"}, {54936, u"GB18030"}, {57002, u"x-iscii-de"}, {57003, u"x-iscii-be"},
    {57004, u"x-iscii-ta"}, {57005, u"x-iscii-te"}, {57006, u"x-iscii-as"}, {57007, u"x-iscii-or"},
    {57008, u"x-iscii-ka"}, {57009, u"x-iscii-ma"}, {57010, u"x-iscii-gu"}, {57011, u"x-iscii-pa"},
    {65000, u"utf-7"}, {65001, u"utf-8"}
};
// clang-format on
static_assert(std::size(kRows) == 139);

int CodePageOf(const TEncoding& Encoding) noexcept {
  if (&Encoding == &TEncoding::Utf8()) return 65001;
  if (&Encoding == &TEncoding::Utf16()) return 1200;
  if (&Encoding == &TEncoding::Utf16BigEndian()) return 1201;
  return GetSystemCodePage().GetNumber();
}

}  // namespace

String CodepageToEncoding(int CodePage) {
  const TRow* row = std::lower_bound(std::begin(kRows), std::end(kRows), CodePage,
                                     [](const TRow& Row, int Wanted) { return Row.CodePage < Wanted; });
  return row != std::end(kRows) && row->CodePage == CodePage ? row->Name : u"";
}

TMyEncodingHelper::TMyEncodingHelper(const TEncoding& Encoding) noexcept : FCodePage(CodePageOf(Encoding)) {}

}  // namespace vx
