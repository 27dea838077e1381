#include "rendering/uDecoration.h"

#include "core/uVxFunctions.h"
#include "tables/uFileCsv.h"
#include "tests/support/PlainDecorations.h"
#include "tests/support/Test.h"

namespace {

static_assert(TDecoration::IndexSort(INT_MIN, -1) == INT64_MAX);
static_assert(TDecoration::IndexSort(2, -1) == 0x1FFFFFFFF);

constexpr char16_t kPlain[] = u"0,-1,-1,-1,-1,,,0,,,,,,,,,0,0,0,0,,-1,0,,,,";
constexpr char16_t kHead[] = u",,,0,0,0,0,,\",,,10\",1,1,0,0,0,0,,,FIVHGC,0,0,";

// The tags in the order of the list, a bar before the cells.
String Tags(const TDecorationList& List) {
  String text;
  for (int i = 0; i <= List.GetCount(); ++i) {
    if (i == List.GetIndexFirstCell()) text += u"| ";
    if (i < List.GetCount()) text += IntToStr(List.GetItems(i)->GetTag()) + u" ";
  }
  return text;
}

// What dialogs told, "/" for the ends of lines.
std::vector<String> Told(const TScriptedDialogs& Dialogs) {
  std::vector<String> texts;
  for (const auto& dialog : Dialogs.Shown) texts.push_back(ReplaceAll(dialog.Text, u"\r\n", u"/"));
  return texts;
}

TDecoration* Make(TRangeType Type, TRect Range, int Tag = 0) {
  auto* item = new TDecoration;
  item->SetRangeType(Type), item->SetRange(Range), item->SetTag(Tag);
  return item;
}

void Draw(TCanvas&, int, int, TRect&, TDecoration&) {}

String Reread(const TCells& Cells) {
  TDecoration item;
  item.SetCommatext(WriteCommatext(Cells));
  return item.GetCommatext();
}

TEST(Decoration, SaysAllInItsText) {
  TDecoration item;
  EXPECT_EQ(item.GetCommatext(), kPlain);
  EXPECT_TRUE(item.Empty());
  item.SetRangeType(rtRect), item.SetRange(1, 2, -1, 7);
  item.SetAlignSet({alTop, alBottom, alLeft, alRight, alClient}), item.SetColor(clRed), item.SetFieldType(vftDate);
  item.SetFont({u"Arial", clBlue, {fsBold, fsItalic}, 12}), item.SetFormatString(u"dd, \"mm\"");
  item.SetImageAlignSet({alTop}), item.SetOptions({doCoupled, doZebraLine});
  item.SetSelectColor(clBlack, clSilver, 0x123456, clHighlight), item.SetSelectRange(1, 0, 2, -3);
  item.SetTrimModes({tmNone, tmCanvasHeightMin, tmTrueCommatext}), item.SetImageIndex(0), item.SetTextAngle(taVert);
  item.SetWidthMin(0), item.SetWidthMax(10), item.SetHeightMin(-5), item.SetHeightMax(20);
  const String text = item.GetCommatext();
  EXPECT_EQ(text,
            u"4,1,2,-1,7,LTRBC,clRed,6,\"Arial,clBlue,BI,12\",\"dd, \"\"mm\"\"\",T,CZ,clBlack,,$00123456,clHighlight,"
            u"1,0,2,-3,NGU,0,2,0,10,,20");
  EXPECT_EQ(Reread(ReadCommatext(text)), text);
  item.SetTag(3);
  item.Init();
  EXPECT_EQ(item.GetCommatext(), kPlain);
  EXPECT_EQ(item.GetTag(), 0);
}

// The plain decoration with one cell of its text replaced.
TCells With(int Cell, const String& Text) {
  TCells cells = ReadCommatext(kPlain);
  cells[static_cast<size_t>(Cell)] = Text;
  return cells;
}

TEST(Decoration, IsEmptyUnlessSomethingShows) {
  String empty;
  // Each the number of a cell of the text, and what stands there.
  for (std::u16string_view text :
       {u"5|L", u"6|clRed", u"7|2", u"8|,,,8", u"9|x", u"10|C", u"11|C", u"12|0", u"15|0", u"16|1", u"19|-1", u"20|N",
        u"21|0", u"21|-2", u"0|5", u"1|4", u"22|1", u"23|0", u"26|0"}) {
    const TCells cell = ReadLighttext(text);
    TDecoration item;
    item.SetCommatext(WriteCommatext(With(StrToInt(cell[0]), cell[1])));
    if (item.Empty()) empty += String(text) + u" ";
  }
  EXPECT_EQ(empty, u"0|5 1|4 22|1 23|0 26|0 ");
}

TEST(Decoration, WhatCannotBeReadIsAsAtFirst) {
  // Each the number of a cell, what is read and what is written then.
  for (std::u16string_view text :
       {u"0|7|7",        u"0|8|0",     u"0|-1|0",       u"0|x|0",  u"4|x|-1", u"4|-9|-9",      u"5|CxlTL|LTC",
        u"6|$00FFFFFF|", u"6|red|",    u"7|18|18",      u"7|19|0", u"7|x|0",  u"8|Arial|,,,8", u"8|,,SB,x|,,BS,10",
        u"9| \"| \"",    u"11|ZcC|CZ", u"13|clSilver|", u"14|?|",  u"16|x|0", u"20|UnN U|NU",  u"21|x|-1",
        u"21|-7|-7",     u"22||0",     u"22|3|0",       u"23|-4|", u"25|x|",  u"26|0|0"}) {
    const TCells cell = ReadLighttext(text);
    const int index = StrToInt(cell[0]);
    EXPECT_EQ(Reread(With(index, cell[1])), WriteCommatext(With(index, cell[2]))) << String(text).ToUtf8();
  }
  TDecorationList list;
  std::vector<String> ofItem, ofList, options;
  for (int i = 0; i < 16; ++i) {
    TDecoration item;
    item.SetTrimModes({static_cast<TTrimMode>(i)});
    list.SetTrimModes(item.GetTrimModes()), list.SetOptions({static_cast<TDecorationListOption>(i)});
    ofItem.push_back(ReadCommatext(item.GetCommatext())[20]);
    ofList.push_back(ReadCommatext(list.GetCommatext())[16]);
    options.push_back(ReadCommatext(list.GetCommatext())[17]);
  }
  EXPECT_EQ((TFacts{ofItem}), "N,C,I,H,G,E,M,O,R,S,W,T,D,P,F,U");
  EXPECT_EQ(ofList, ofItem);
  EXPECT_EQ((TFacts{options}), "F,I,V,H,G,C,R,N,D,B,,,,,,");
}

TEST(Decoration, OlderTextsEndBefore) {
  TCells cells = ReadCommatext(u"2,1,-1,1,-1,,,0,,,,,,,,,0,0,0,0,,-1,2,5,6,7,8");
  for (auto end : {u"2,5,6,7,8", u"2,5,6,7,", u"2,5,6,,", u"2,5,,,", u"2,,,,", u"1,,,,"}) {
    EXPECT_EQ(Reread(cells), String(u"2,1,-1,1,-1,,,0,,,,,,,,,0,0,0,0,,-1,") + end);
    cells.pop_back();
  }
  TScriptedDialogs dialogs;
  EXPECT_EQ(Reread(cells), kPlain);
  EXPECT_EQ(Told(dialogs),
            std::vector<String>{u"Die Dekoration konnte nicht zugewiesen werden!//Der folgende Datensatz "
                                u"hat 21 statt 22 Felder://2/1/-1/1/-1///0/////////0/0/0/0/"});
}

TEST(Decoration, CoversCells) {
  TDecorationList list;
  const TDecorationList empty(false);
  list.SetColCount(10), list.SetRowCount(20), list.SetFixed(1, 2, 3, 4);
  const TPlainDecorations plain(list), nothing(empty);
  for (const auto& [type, range, cells, withoutList] :
       TCases<TRangeType, TRect, TRect, TRect>{{rtUnknown, {1, 2, 3, 4}, {-1, -1, -1, -1}, {-1, -1, -1, -1}},
                                               {rtCell, {-1, -2, 5, 6}, {9, 18, 9, 18}, {-1, -2, -1, -2}},
                                               {rtColumn, {-3, 5, -1, 7}, {7, 0, 9, 19}, {-3, 0, -1, 7}},
                                               {rtRow, {5, -3, 7, -1}, {0, 17, 9, 19}, {0, -3, 7, -1}},
                                               {rtRect, {-2, -4, -1, -20}, {8, 16, 9, 0}, {-2, -4, -1, -20}},
                                               {rtRect, {0, 1, -11, -30}, {0, 1, -1, -10}, {0, 1, -11, -30}},
                                               {rtAll, {1, 2, 3, 4}, {0, 0, 9, 19}, {0, 0, 3, 4}},
                                               {rtFixed, {1, 2, 3, 4}, {1, 2, 6, 15}, {1, 2, 3, 4}},
                                               {rtContent, {-1, 2, 3, 4}, {1, 2, 6, 15}, {-1, 2, 3, 4}}}) {
    TDecoration item(&list), loose;
    for (TDecoration* each : {&item, &loose}) {
      each->SetRangeType(type), each->SetRange(range);
      TRect covered;
      each->RangeRect(covered);
      EXPECT_EQ(covered, each == &item ? cells : withoutList) << type;
    }
    const bool hasNone = type == rtFixed || type == rtContent;
    for (int col = -3; col < 12; ++col) {
      for (int row = -5; row < 22; ++row) {
        EXPECT_EQ(item.Responsible(col, row), plain.Applies(item, col, row)) << type << ' ' << col << ' ' << row;
        EXPECT_EQ(loose.Responsible(col, row), !hasNone && nothing.Applies(loose, col, row)) << type;
      }
    }
  }
  TRect range;
  TDecoration row(&list);
  row.SetRangeType(rtRow), row.SetRange(-5, -3, -1, -100);
  row.CalculateRange(range);
  EXPECT_EQ(range, (TRect{-5, 17, -1, -80}));
}

TEST(Decoration, FontsAreItsOwnOrTheLists) {
  TDecorationList list;
  TDecoration item(&list), loose;
  EXPECT_EQ(&item.GetFont(), &list.GetFont());
  EXPECT_EQ(loose.GetFont(), TFont());
  item.SetFontOwner(true);
  TFont own = list.GetFont();
  EXPECT_EQ(item.GetFont(), own);
  own.Size = 33;
  item.SetFont(own), item.SetFontOwner(true);
  EXPECT_EQ(item.GetFont().Size, 33);
  item.SetFontOwner(false);
  EXPECT_EQ(&item.GetFont(), &list.GetFont());
}

TEST(DecorationList, StandsInItsOrder) {
  TDecorationList list;
  const auto add = [&](TRangeType type, int col, int row, int tag) {
    return list.Add(Make(type, {col, row, 0, 1}, tag));
  };
  EXPECT_EQ((TFacts{add(rtRow, 0, 1, 1), add(rtCell, 2, 5, 5), add(rtCell, 2, -1, 4), add(rtCell, -1, 9, 3),
                    add(rtCell, 0, 0, 6), add(rtCell, 7, 0, 7), Tags(list)}),
            "1 2 2 2 3 6 0 1 | 3 6 4 5 7 ");
  auto* again = Make(rtCell, {2, 5, 9, 9}, 99);
  again->SetColor(clRed);
  EXPECT_EQ(list.Add(again), 5);
  EXPECT_EQ(list.GetCell(2, 5, false)->GetColor(), clRed);
  EXPECT_EQ(list.CreateRange(rtCell, 2, 5, 1, 1), list.GetItems(5));
  EXPECT_EQ(add(rtRect, -1, 9, 2), 2) << "a region is never merged into the cell at its corner";
  list.Insert(0, Make(rtCell, {1, 1, 0, 0}, 8));
  EXPECT_EQ(Tags(list), u"0 1 2 | 3 6 8 4 5 7 ");
  for (int cell : {2, 3}) list.Exchange(0, cell);
  for (int from : {0, 5}) list.Move(from, 1);
  list.Sort([](TObject*, TObject*) { return -1; });
  EXPECT_EQ(Tags(list), u"1 2 0 | 3 6 8 4 5 7 ");
  for (int index : {1, 3}) list.Delete(index);
  list.Remove(list.GetItems(0));
  delete list.Extract(list.GetItems(0));
  list.Remove(list.GetItems(3));
  EXPECT_EQ(Tags(list), u"| 3 8 4 7 ");
  TObject foreign;
  EXPECT_EQ(list.Add(&foreign), -1);
  list.Insert(0, &foreign);
  list.Insert(0, Make(rtColumn, {0, 0, 0, 0}, 1));
  EXPECT_EQ(Tags(list), u"| 1 3 8 4 7 ") << "Insert does not count it among the regions";
  list.SetCount(6);
  EXPECT_EQ(RaisedBy<EInvalidCast>([&] { list.GetItems(5); }),
            u"an entry of the decoration list is no TDecoration but nothing");
}

TEST(DecorationList, FindsItems) {
  TDecorationList list;
  list.SetColCount(10), list.SetRowCount(20);
  TDecoration* column = list.CreateRange(rtColumn, -2, -1, -1, -1);
  column->SetFieldType(vftCurrency);
  EXPECT_EQ((TItems{list.GetRange(rtColumn, 8, 3, 9, 4, false), list.GetRange(rtColumn, 8, 3, 8, 4, false)}),
            (TItems{column, nullptr}));
  TDecoration* later = list.GetRange(rtColumn, 8, 0, 8, 0, true);
  EXPECT_EQ(later->GetRange(), (TRect{8, 0, 8, 0}));
  list.CreateRange(rtAll, 0, 0, 0, 0)->SetFieldType(vftDate);
  EXPECT_EQ((TItems{list.GetFirst(rtColumn), list.GetFirst(rtCell)}), (TItems{column, nullptr}));
  TDecoration* cell = list.GetRange(rtCell, 8, 1, 0, 0, true);
  cell->SetFieldType(vftHour);
  EXPECT_EQ((TItems{list.GetFirst(rtCell), list.GetCell(8, 2, false)}), (TItems{cell, nullptr}));
  EXPECT_EQ(list.GetColumnFieldType(8), vftCurrency);
  EXPECT_EQ(list.GetColumnFieldType(7), vftUnknown);
  later->SetFieldType(vftHour);
  EXPECT_EQ(list.GetColumnFieldType(8), vftHour);
  EXPECT_EQ((TFacts{list.ContainsType(vftDate), list.ContainsType(vftButton)}), "yes no");
  EXPECT_EQ((TFacts{list.ContainsTypeForCell(vftCurrency, 9, 0), list.ContainsTypeForCell(vftCurrency, 7, 0)}),
            "yes no");
  column->SetOptions({doCoupled});
  EXPECT_FALSE(list.ContainsTypeForCell(vftHour, 8, 1)) << "the coupled one decides alone";
  for (int i = 0; int tag : {4, 6, 4, 1, INT_MIN}) list.GetItems(i++)->SetTag(tag);
  EXPECT_EQ(list.DeleteTags(INT_MIN), 0) << "the result has to be positive";
  EXPECT_EQ((TFacts{list.DeleteTag(4), Tags(list)}), "2 6 1 | -2147483648 ");
  EXPECT_EQ((TFacts{list.DeleteTags(2), Tags(list)}), "1 1 | -2147483648 ");
}

TEST(DecorationList, KnowsTheFixedBorder) {
  TDecorationList list;
  list.SetColCount(10), list.SetRowCount(20);
  String inside;
  // Each the fixed border, the sides asked for, and a cell.
  for (std::u16string_view text : {u"1,0,0,0,,0,5", u"1,0,0,0,,1,5", u"1,0,0,0,T,0,5", u"0,2,0,0,T,5,1",
                                   u"0,0,0,0,,9,19", u"0,0,0,0,,10,0", u"0,0,0,0,R,10,0", u"0,0,1,0,R,9,0",
                                   u"0,0,1,0,R,8,0", u"0,0,0,2,B,0,18", u"0,0,0,0,B,0,20", u"0,0,0,2,L,0,18"}) {
    const TCells cells = ReadCommatext(text);
    const auto number = [&](size_t i) { return StrToInt(cells[i]); };
    list.SetFixed(number(0), number(1), number(2), number(3));
    if (list.FixedCell(number(5), number(6), StringToAlignSet(cells[4]))) inside += String(text) + u" ";
  }
  EXPECT_EQ(inside, u"1,0,0,0,,0,5 0,2,0,0,T,5,1 0,0,0,0,,10,0 0,0,1,0,R,9,0 0,0,0,2,B,0,18 ");
}

TEST(DecorationList, RunsOfFiveAndMore) {
  // Each item by its type (all, column, row, rectangle, cell) and its first and last position.
  for (const auto& [items, text] : TCases<std::u16string_view, String>{
           {u"c00 c11 c22 c33 ", u""},
           {u"a00 c00 c11 t22 c35 c59 ", u"Right,1,5,Column"},
           {u"t00 r99 r77 r59 r49 r00 x00 ", u"Up,1,5,Row"},
           {u"r11 r11 r22 r22 r33 c44 ", u"Down,0,4,Row"},
           {u"r11 r11 r11 r11 r11 r23 ", u"Down,0,5,Row"},
           {u"r11 r11 r11 r11 r11 r11 ", u"Equal,0,5,Row"},
           {u"r11 r11 r11 r11 r13 r00 ", u"Up,0,5,Row"},
           {u"c02 c13 c24 c35 c46 ", u""},
           {u"c00 r00 r11 r22 r33 r44 r33 r22 r11 r00 r00 ", u"Down,1,5,Row\r\nUp,6,10,Row"}}) {
    TDecorationList list;
    list.Clear();
    for (size_t i = 0; i < items.size(); i += 4) {
      constexpr TRangeType types[] = {rtAll, rtColumn, rtRow, rtRect, rtCell};
      const int first = items[i + 1] - u'0', last = items[i + 2] - u'0';
      list.CreateRange(types[std::u16string_view(u"acrtx").find(items[i])], first, first, last, last);
    }
    list.RefreshRangeList();
    EXPECT_EQ(list.GetRanges().GetText(), text) << String(items);
  }
  TDecorationList list;
  TDLRangeList& ranges = list.GetRanges();
  for (int begin : {7, 1, 4}) ranges.Insert(0, new TDLRange(&ranges, begin, begin + 9, rtUnknown, dldtUnknown));
  EXPECT_EQ(ranges.GetText(), u"Unknown,1,10,Unknown\r\nUnknown,4,13,Unknown\r\nUnknown,7,16,Unknown");
  EXPECT_EQ(ranges.GetRanges(4), ranges.GetItems(1));
  EXPECT_EQ(ranges.GetRanges(5), nullptr);
  EXPECT_EQ(ranges.Add(&list), -1);
  TScriptedDialogs dialogs;
  ranges.Exchange(0, 1);
  ranges.Move(0, 1);
  EXPECT_EQ(Told(dialogs), (std::vector<String>{u"[TDLRangeList] : Die Funktion Exchange ist nicht unterstützt.",
                                                u"[TDLRangeList] : Die Funktion Move ist nicht unterstützt."}));
}

TEST(DecorationList, FindsWhatAppliesToACell) {
  std::mt19937 random(5);
  const auto next = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  TDecorationList buffer(false), list;
  const auto compare = [&](bool isFresh) {
    const TPlainDecorations plain(list);
    for (int col = -2; col < 15; col += 1 + next(3)) {
      for (int row = -2; row < 15; row += 1 + next(3)) {
        const TItems wanted = isFresh ? plain.All(col, row) : plain.ByRuns(col, row);
        TDecoration* coupled = nullptr;
        // A cell of its own is never the coupled one.
        for (auto* item : wanted) coupled = !plain.IsCell(*item) && item->GetOptions().Has(doCoupled) ? item : coupled;
        list.VirtualListForCell(col, row, buffer);
        ASSERT_EQ(Items(buffer), wanted) << list.GetCommatext().ToUtf8() << ' ' << col << ' ' << row;
        ASSERT_EQ(buffer.GetCell(), (TPoint{col, row}));
        ASSERT_EQ(buffer.GetCoupled(), coupled);
      }
    }
  };
  for (int round = 0; round < 100; ++round) {
    MakeDecorations(list, round % 2 != 0, next);
    compare(true);
    list.SetColCount(next(13)), list.SetRowCount(next(13));
    compare(true);
    for (int deleted = 1 + next(6); deleted > 0 && list.GetCount() > 0; --deleted) list.Delete(next(list.GetCount()));
    compare(false);
    for (int i = list.GetIndexFirstCell(); i-- > 0;) {
      if (next(4) == 0) list.GetItems(i)->SetRange(next(9), next(9), next(9), next(9));
    }
    compare(false);
  }
}

TEST(DecorationList, ListsOfCellsAreBuffers) {
  TDecorationList list;
  list.SetHoverIndex(7), list.SetTitle(u"Dienst");
  for (int i = 0; i < 40; ++i) list.CreateRange(rtColumn, i, 0, i, 0);
  TDecoration* cell = list.GetCell(3, 3, true);
  const auto fresh = list.VirtualListForCell(3, 3);
  EXPECT_EQ(Items(*fresh), (TItems{list.GetItems(0), list.GetItems(4), cell}));
  EXPECT_EQ(fresh->GetParent(), &list);
  EXPECT_EQ((TFacts{fresh->GetTitle(), fresh->GetHoverIndex()}), "Dienst 7");
  const auto memory = fresh->Items().data();
  list.RefreshRangeList();
  for (int i = 0; i < 40; ++i) list.VirtualListForCell(i, 3, *fresh);
  list.VirtualListForCell(3, 3, *fresh);
  EXPECT_EQ(fresh->Items().data(), memory) << "the same memory";
  EXPECT_EQ(fresh->GetIndexFirstCell(), 2);
  TDecorationList owner;
  list.VirtualListForCell(3, 3, owner);
  EXPECT_FALSE(owner.GetOwnsObjects());
  EXPECT_EQ(list.GetRanges().GetCount(), 1);
  list.SetCount(20);
  list.VirtualListForCell(3, 3, *fresh);
  EXPECT_EQ((TFacts{list.GetRanges().GetCount(), fresh->GetCount()}), "0 2") << "runs beyond the list are dropped";
  list.RefreshRangeList();
  list.GetRanges().Add(new TDLRange(&list.GetRanges(), 20, 29, rtColumn, dldtRight));
  list.SetColCount(9);
  list.VirtualListForCell(3, 3, *fresh);
  EXPECT_EQ(list.GetRanges().GetCount(), 0) << "also at another size of the table";
}

TEST(DecorationList, MergesWhatIsSet) {
  // What may stand in each cell of a text.
  constexpr std::u16string_view pools[] = {
      u"1|4",       u"0|3",          u"0|-3",   u"0|3",    u"0|3",    u"|L|TC",  u"|clRed|clBlack",
      u"0|1|18",    u"|,,B,9|A,,,8", u"|x|0",   u"|L|TC",  u"|C|Z",   u"|clRed", u"|clBlack",
      u"|clBlue",   u"|clBtnFace",   u"0|3|-3", u"0|3|-3", u"0|3|-3", u"0|3|-3", u"|N",
      u"-1|-5|0|4", u"0|1|2",        u"|0|8",   u"|0|8",   u"|0|8",   u"|0|8"};
  std::mt19937 random(3);
  TImageList images, others;
  for (int round = 0; round < 200; ++round) {
    TDecorationList list;
    list.Clear();
    list.SetImageList(round % 2 ? &images : nullptr);
    TDecoration merged;
    String wanted = kPlain;
    for (int i = 0; i < 3; ++i) {
      TCells cells;
      for (std::u16string_view pool : pools) {
        const TCells choice = ReadLighttext(pool);
        cells.push_back(choice[random() % choice.size()]);
      }
      auto* item = new TDecoration;
      list.TObjectList::Add(item);
      item->SetCommatext(WriteCommatext(cells)), item->SetImageList(round % 3 == i ? &others : nullptr);
      merged.SetCommatext(wanted);
      wanted = MergedText(*item, merged);
    }
    const auto look = list.Compress();
    ASSERT_EQ(look->GetCommatext(), wanted);
    EXPECT_EQ(std::pair(look->GetParent(), look->GetImageList()), std::pair(&list, &others));
    TDecorationList::CompressDecoration(*look, *look);
    EXPECT_EQ(look->GetCommatext(), wanted);
    list.SetCount(0);
    EXPECT_EQ(list.Compress()->GetImageList(), list.GetImageList());
  }
}

TEST(DecorationList, SaysAllInItsText) {
  TDecorationList list;
  EXPECT_EQ(list.GetCommatext(),
            u",,,0,0,0,0,clWhite,\",,,10\",1,1,0,0,0,0,,,FIVHGC,0,0,ÿ,"
            u"\"5,-1,-1,-1,-1,,,2,,,,,,,,,0,0,0,0,,-1,0,,,,\"");
  EXPECT_EQ((TFacts{list.GetCell().X, list.GetCell().Y, list.GetHoverIndex()}), "-1 -1 -1");
  const String head = u"\"a, b\",c,clRed,1,2,3,4,clBlue,\"Arial,,,9\",5,6,7,8,9,10,clGreen,NU,FB,11,12,ÿ";
  list.SetCommatext(head);
  EXPECT_EQ(list.GetCommatext(), head);
  EXPECT_EQ(list.GetCount(), 0);
  list.SetCommatext(u",,?,x,,,,,,x,x,x,x,x,x,?,,,x,x,ÿ");
  EXPECT_EQ(list.GetCommatext(), u",,,0,0,0,0,,\"Arial,,,9\",1,1,0,0,0,0,,,,0,0,ÿ") << "no font leaves the font";
  for (const char16_t* separator : {u"ÿ", u"'#255'", u"'#255", u"7,ÿ,'#255'", u"7,more,ÿ"}) {
    list.SetCommatext(Concat({u",,,0,0,0,0,,\",,,10\",1,1,0,0,0,0,,,FIVHGC,0,", separator, u",\"", kPlain, u"\""}));
    EXPECT_EQ(list.GetPrintPageColumns(), separator[0] == u'7' ? 7 : 0) << String(separator);
    EXPECT_EQ(list.GetFixedColor(), clBtnFace) << String(separator);
  }
  TScriptedDialogs dialogs;
  list.SetCommatext(Concat({kHead, u"'#255,x,ÿ"}));
  EXPECT_EQ(list.GetCount(), 0) << "the usual separator counts before the older ones";
}

TEST(DecorationList, RefusesTextsWithADialog) {
  TScriptedDialogs dialogs;
  TDecorationList list;
  list.SetTitle(u"Titel"), list.SetCommatext(u"a,b");
  EXPECT_EQ((TFacts{list.GetCount(), list.GetTitle()}), "0 Titel");
  list.SetCommatext(u"1,2,3,4,5,6,7,8,9,0,1,2,3,4,5,6,7,8,ÿ,x");
  EXPECT_EQ(list.GetCommatext(), TDecorationList().GetCommatext());
  list.SetCommatext(Concat({kHead, u"ÿ,\"3,5,5,5,5\",\"", kPlain, u"\""}));
  EXPECT_EQ(list.GetCommatext(), Concat({kHead, u"ÿ,\"", kPlain, u"\",\"", kPlain, u"\""}));
  const String lead = u"Die Dekorationsliste konnte nicht zugewiesen werden!//Der folgende Datensatz ";
  EXPECT_EQ(Told(dialogs),
            (std::vector<String>{lead + u"enthält keinen Trenner://a/b",
                                 lead + u"hat 18 statt 19 Felder://1/2/3/4/5/6/7/8/9/0/1/2/3/4/5/6/7/8/ÿ/x",
                                 u"Die Dekoration konnte nicht zugewiesen werden!//Der folgende Datensatz hat 5 statt "
                                 u"22 Felder://3/5/5/5/5"}));
}

TEST(DecorationList, ReadsInAnyOrderAsIfAdded) {
  std::mt19937 random(4);
  for (int round = 0; round < 50; ++round) {
    TDecorationList added;
    added.Clear();
    String text = Concat({kHead, u"ÿ"});
    for (int i = 0; i < 60; ++i) {
      auto* item = Make(random() % 3 ? rtCell : rtRect,
                        {static_cast<int>(random() % 4) - 1, static_cast<int>(random() % 4) - 1, i, i});
      item->SetImageIndex(i % 7 ? i : -1);
      text += Concat({u",\"", item->GetCommatext(), u"\""});
      added.Add(item);
    }
    TDecorationList read;
    read.SetCommatext(text);
    added.SetFixedColor(clBtnFace);
    EXPECT_EQ(read.GetCommatext(), added.GetCommatext());
    EXPECT_EQ(read.GetIndexFirstCell(), added.GetIndexFirstCell());
    EXPECT_EQ(read.GetItems(0)->GetParent(), &read);
  }
}

TEST(DecorationList, Copies) {
  TFileCsv table;
  TDecorationList list(&table);
  list.SetCommatext(u"a,b,clRed,1,2,3,4,clBlue,\"Arial,,,9\",5,6,7,8,9,10,clGreen,NU,FB,11,12,ÿ");
  TImageList images;
  list.SetImageList(&images), list.SetColCount(3), list.SetRowCount(4), list.SetCell({1, 2});
  list.SetDevice(ddPrinter), list.SetHoverIndex(6), list.SetCallbackPreDraw(TCallbackDraw::Of<&Draw>());
  list.CreateRange(rtRow, 0, 0, 0, 0);
  list.SetCoupled(list.GetItems(0));
  const auto copy = list.Duplicate(), head = list.DuplicateHead();
  EXPECT_EQ(copy->GetCommatext(), list.GetCommatext());
  EXPECT_EQ(head->GetCount(), 0);
  head->CreateRange(rtRow, 0, 0, 0, 0);
  EXPECT_EQ(head->GetCommatext(), list.GetCommatext());
  for (const TDecorationList* each : {copy.get(), head.get()}) {
    EXPECT_EQ((TFacts{each->GetColCount(), each->GetRowCount(), each->GetCell().X, each->GetCell().Y,
                      each->GetDevice() == ddPrinter, each->GetHoverIndex(), each->GetOwnsObjects()}),
              "3 4 1 2 yes -1 yes");
    EXPECT_EQ(each->GetImageList(), &images);
    EXPECT_EQ(each->GetCallbackPreDraw(), list.GetCallbackPreDraw());
    EXPECT_EQ(each->GetCoupled(), nullptr);
    EXPECT_EQ(each->GetItems(0)->ParentTypeCsv(), &table);
  }
  TObject other;
  list.SetParent(&other);
  EXPECT_EQ(copy->GetItems(0)->ParentTypeCsv(), nullptr);
  EXPECT_EQ(TDecoration().ParentTypeCsv(), nullptr);

  const TTempDir dir;
  list.SetTitle(u"Größe €");
  EXPECT_TRUE(list.SaveToFile(dir.Path("a.txt")));
  EXPECT_EQ(GetText(dir.Path("a.txt")), GetSystemCodePage().Encode(list.GetCommatext()));
}

TEST(DecorationList, GivesFontsToAll) {
  for (const auto& [name, own, size, ofList, result] :
       TCases<String, String, int, String, String>{{u"Arial", u"Courier,,B,12", 8, u"Arial,,,8", u"Arial,,B,10"},
                                                   {u"Arial", u"Courier,,,7", 12, u"Arial,,,12", u"Arial,,,9"},
                                                   {u"Arial", u"Courier,,,7", 0, u"Arial,,,10", u"Arial,,,7"},
                                                   {u"Arial", u"Courier,,,7", 10, u"Arial,,,10", u"Arial,,,7"},
                                                   {u"tahoma", u"Courier,,,7", 10, u",,,10", u"Courier,,,7"},
                                                   {u"Arial", u"wingDings,,,7", 5, u"Arial,,,5", u"wingDings,,,7"}}) {
    TDecorationList list;
    list.GetItems(0)->SetCommatext(u"5,0,0,0,0,,,0,\"" + own + u"\",,,,,,,,0,0,0,0,,-1");
    list.SetGlobalFont(name, size);
    const TCells cells = ReadCommatext(list.GetCommatext());
    EXPECT_EQ((std::array{cells[8], ReadCommatext(cells[21])[8]}), (std::array{ofList, result})) << name << own << size;
  }
}

TEST(DecorationList, IsAConstantOfAProgram) {
  TDecorationList list;
  TVxStringList lines;
  list.ExportPasFormat(nullptr);
  list.ImportPasFormat(nullptr);
  for (const auto& [title, text] : TCases<String, String>{
           {u"",
            u"        ',,,0,0,0,0,clWhite,\",,,10\",1,1,0,0,0,0,,,FIVHGC,0,0,ÿ,\"5,-1,-1,-1,-1,,,'\r\n"
            u"      + '2,,,,,,,,,0,0,0,0,,-1,0,,,,\"';"},
           {u"a\r\nb",
            u"        '\"a'+#13+#10+'b\",,,0,0,0,0,clWhite,\",,,10\",1,1,0,0,0,0,,,FIVHGC,0,0,ÿ,\"5,-1,-1,'\r\n"
            u"      + '-1,-1,,,2,,,,,,,,,0,0,0,0,,-1,0,,,,\"';"},
           {String(75, u'x'),
            u"        'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx'\r\n"
            u"      + 'xxxx,,,0,0,0,0,clWhite,\",,,10\",1,1,0,0,0,0,,,FIVHGC,0,0,ÿ,\"5,-1,-1,-1,'\r\n"
            u"      + '-1,,,2,,,,,,,,,0,0,0,0,,-1,0,,,,\"';"}}) {
    list.SetTitle(title);
    list.ExportPasFormat(&lines);
    EXPECT_EQ(lines.GetText(), u"   Decorationsliste =\r\n" + text);
    for (auto line : {u" ", u"'not read'"}) lines.Add(line);
    TDecorationList read;
    read.ImportPasFormat(&lines);
    EXPECT_EQ(read.GetCommatext(), list.GetCommatext()) << title;
  }
}

TEST(ButtonInfo, LaysOneOverTheOther) {
  for (const auto& [text, over, result] :
       TCases<String, String, String>{{u"", u"", u"-1,-1,-1,-1|boNone||"},
                                      {u"1,2,3,4|boCell|Ja|Nein", u"", u"1,2,3,4|boCell|Ja|Nein"},
                                      {u"1,2,3,4|boCell|Ja|Nein", u"-1,x,-2", u"1,2,-2,4|boCell|Ja|Nein"},
                                      {u"1,2,3,4|boCell|Ja|Nein", u",,,0|boSquare||Hint", u"1,2,3,0|boSquare|Ja|Hint"},
                                      {u"7|BOCELL|°a|b°|c|d", u"|boCircle|neu", u"7,-1,-1,-1|boCircle|neu|c"}})
    EXPECT_EQ(TButtonInfo(text, over).GetSerialize(), result);
  const TButtonInfo plain;
  EXPECT_EQ(plain.GetSerialize(), u"-1,-1,-1,-1|boNone||");
  TButtonInfo info(u"1,2,3,4|boCell|Ja|Nein");
  info.SetSerialize(u"");
  EXPECT_EQ(info, plain);
}

}  // namespace
